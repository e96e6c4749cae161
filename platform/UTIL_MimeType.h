#pragma once
// The phone's media-type helper: which file extensions the media player
// supports, by media class, and the class of a file by its extension.

#include <QString>
#include <QStringList>

class UTIL_MimeType {
public:
    /** Media classes of the extension tables. */
    enum MediaClass { Audio = 0, Video = 1, Picture = 4 };

    /** Fills @p extensions (lower case, without the dot) with the supported
     *  extensions of @p mediaClass; empty for an unknown class. */
    static void queryMpSupportedExtensions(QStringList& extensions, int mediaClass);
    /** Whether @p path has an extension of that class (case ignored). */
    static bool isAudio(const QString& path);
    static bool isVideo(const QString& path);
    static bool isPicture(const QString& path);
};
