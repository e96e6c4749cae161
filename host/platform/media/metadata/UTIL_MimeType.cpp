#include "platform/UTIL_MimeType.h"

#include <QFileInfo>

namespace {

const QStringList& audioExtensions()
{
    static const QStringList extensions{"mp3", "wav", "ogg", "oga", "opus", "flac", "m4a", "aac", "amr", "wma", "mid", "midi"};
    return extensions;
}

const QStringList& videoExtensions()
{
    static const QStringList extensions{"mp4", "3gp", "3g2", "avi", "mkv", "mov", "wmv", "m4v", "webm", "mpg", "mpeg"};
    return extensions;
}

const QStringList& pictureExtensions()
{
    static const QStringList extensions{"jpg", "jpeg", "png", "gif", "bmp"};
    return extensions;
}

bool hasExtensionOf(const QString& path, const QStringList& extensions)
{
    return extensions.contains(QFileInfo(path).suffix().toLower());
}

} // namespace

void UTIL_MimeType::queryMpSupportedExtensions(QStringList& extensions, int mediaClass)
{
    switch (mediaClass) {
    case Audio:
        extensions = audioExtensions();
        break;
    case Video:
        extensions = videoExtensions();
        break;
    case Picture:
        extensions = pictureExtensions();
        break;
    default:
        extensions.clear();
        break;
    }
}

bool UTIL_MimeType::isAudio(const QString& path)
{
    return hasExtensionOf(path, audioExtensions());
}

bool UTIL_MimeType::isVideo(const QString& path)
{
    return hasExtensionOf(path, videoExtensions());
}

bool UTIL_MimeType::isPicture(const QString& path)
{
    return hasExtensionOf(path, pictureExtensions());
}
