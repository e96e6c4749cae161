#include "platform/MP_Utility.h"

#include "platform/MP_PlayerTypes.h"

namespace {

const QString kFileScheme = QStringLiteral("file://");
const QString kProgressiveDownloadSuffix = QStringLiteral(".pd");

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
    return clean;
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
