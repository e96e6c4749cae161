#include "host/engine/HostMediaInfo.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

#include <taglib/audioproperties.h>
#include <taglib/fileref.h>
#include <taglib/tag.h>

#include "platform/MP_Utility.h"
#include "platform/UTIL_MimeType.h"

namespace {

bool isStream(const QString& path)
{
    return MP_Utility::getMediumType(path) == MP_MEDIUM_STREAM;
}

// The name part that carries the extension: for a stream the URL's path, so
// that a query string does not hide it.
QString nameOf(const QString& path)
{
    if (isStream(path))
        return QUrl(path).path();
    return MP_Utility::getCleanFileName(path);
}

// The file on disk. A progressive download keeps its ".pd" suffix there: it
// is the part already downloaded.
QString localFileOf(const QString& path)
{
    const QString scheme = QStringLiteral("file://");
    return path.startsWith(scheme, Qt::CaseInsensitive) ? path.mid(scheme.size()) : path;
}

QString toQString(const TagLib::String& text)
{
    return QString::fromUtf8(text.toCString(true)).trimmed();
}

void readTags(const QString& file, HostMediaInfo& info)
{
    const QByteArray encoded = QFile::encodeName(file);
    const TagLib::FileRef ref(encoded.constData(), true, TagLib::AudioProperties::Average);
    if (ref.isNull())
        return;
    if (const TagLib::Tag* tag = ref.tag()) {
        info.title = toQString(tag->title());
        info.artist = toQString(tag->artist());
        info.album = toQString(tag->album());
    }
    if (const TagLib::AudioProperties* properties = ref.audioProperties())
        info.duration = properties->lengthInMilliseconds();
}

} // namespace

HostMediaInfo HostMediaInfo::read(const QString& path)
{
    HostMediaInfo info;
    info.contentType = contentTypeOf(path);
    if (isStream(path)) {
        info.playable = true;
    } else {
        const QString file = localFileOf(path);
        info.playable = QFileInfo(file).isFile();
        if (info.playable)
            readTags(file, info);
        // Zero would make an item end the moment it starts; a file TagLib
        // cannot measure plays for a fixed time instead.
        if (info.duration <= 0)
            info.duration = kDefaultDuration;
    }
    if (info.title.isEmpty())
        info.title = displayName(path);
    return info;
}

MP_CONTENT_TYPE HostMediaInfo::contentTypeOf(const QString& path)
{
    const QString name = nameOf(path);
    if (UTIL_MimeType::isAudio(name))
        return MP_CONTENT_SOUND;
    if (UTIL_MimeType::isVideo(name))
        return MP_CONTENT_VIDEO;
    return isStream(path) ? MP_CONTENT_SOUND : MP_CONTENT_UNKNOWN;
}

QString HostMediaInfo::displayName(const QString& path)
{
    const QString name = QFileInfo(nameOf(path)).completeBaseName();
    return name.isEmpty() ? path : name;
}
