#include "platform/STUFF_Global.h"

#include <QFileInfo>

#include "host/platform/media/metadata/MediaFileLookup.h"
#include "host/platform/phone/HostStorage.h"

STUFF_Global* STUFF_Global::instance()
{
    static STUFF_Global global;
    return &global;
}

bool STUFF_Global::hasMMCSDCard(bool refresh)
{
    // The host always looks at the folder: taking the card out is removing
    // it, and nothing is cached that could be stale.
    Q_UNUSED(refresh);
    return QFileInfo(HostStorage::memoryCardPath()).isDir();
}

bool STUFF_Global::canAsRingTone(const QString& path) const
{
    const std::optional<MediaRecord> media = MediaFileLookup::find(path);
    if (!media || media->kind != MediaKind::Audio)
        return false;
    const QFileInfo file(path);
    return file.isFile() && file.size() <= kMaxRingtoneBytes;
}

QString STUFF_Global::getDisplayPathName(const QString& path)
{
    return QFileInfo(path).fileName();
}

QString STUFF_Global::getDefaultMMCSDPartition()
{
    return HostStorage::memoryCardPath();
}

QString STUFF_Global::getShortName(const QString& path) const
{
    return path.section(QLatin1Char('/'), -1);
}
