#include "platform/MP_Utility.h"

#include <QFileInfo>

#include "host/platform/phone/HostStorage.h"
#include "platform/MP_PlayerTypes.h"

namespace {

const QString kFileScheme = QStringLiteral("file://");
const QString kProgressiveDownloadSuffix = QStringLiteral(".pd");
// Where the phone mounts its memory card; the player's clients tell card
// files by this prefix.
const QString kPhoneCardPath = QStringLiteral("/mmc/mmca1");

// The host's card folder is <data folder>/mmca1; @p path lies on the card when it
// is that folder or inside it ("mmca1x" beside it is not the card). The folder
// may be reached through a link, so the place it leads to counts as well, as
// it does for the database's storage of a file. Returns the path with the
// card's folder replaced by the phone's, unchanged when it is not on the card.
QString withPhoneCardPath(const QString& path)
{
    const QString card = HostStorage::memoryCardPath();
    for (const QString& folder : {card, QFileInfo(card).canonicalFilePath()}) {
        if (folder.isEmpty() || !path.startsWith(folder))
            continue;
        if (path.size() == folder.size() || path.at(folder.size()) == QLatin1Char('/'))
            return kPhoneCardPath + path.mid(folder.size());
    }
    return path;
}

} // namespace

QString MP_Utility::convertTime(int milliseconds)
{
    const int totalSeconds = milliseconds > 0 ? milliseconds / 1000 : 0;
    const int hours = totalSeconds / 3600;
    const int minutes = totalSeconds / 60 % 60;
    const int seconds = totalSeconds % 60;
    if (hours > 0)
        return QStringLiteral("%1:%2:%3")
            .arg(hours)
            .arg(minutes, 2, 10, QLatin1Char('0'))
            .arg(seconds, 2, 10, QLatin1Char('0'));
    return QStringLiteral("%1:%2").arg(minutes).arg(seconds, 2, 10, QLatin1Char('0'));
}

QString MP_Utility::getCleanFileName(const QString& path)
{
    QString clean = removePDSuffix(path);
    if (clean.startsWith(kFileScheme, Qt::CaseInsensitive))
        clean.remove(0, kFileScheme.size());
    return withPhoneCardPath(clean);
}

int MP_Utility::getMediumType(const QString& path)
{
    if (path.startsWith(QLatin1String("http://"), Qt::CaseInsensitive)
        || path.startsWith(QLatin1String("rtsp://"), Qt::CaseInsensitive))
        return MP_MEDIUM_STREAM;
    if (path.endsWith(kProgressiveDownloadSuffix))
        return MP_MEDIUM_PROGRESSIVE_DOWNLOAD;
    return MP_MEDIUM_LOCAL;
}

QString MP_Utility::removePDSuffix(const QString& path)
{
    if (!path.endsWith(kProgressiveDownloadSuffix))
        return path;
    return path.left(path.size() - kProgressiveDownloadSuffix.size());
}
