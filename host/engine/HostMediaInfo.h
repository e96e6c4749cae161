#pragma once
// What the host engine knows about one media item before it plays it: the
// content type from the name's extension, and title, artist, album and
// duration read from the file with TagLib.

#include <QString>

#include "platform/MP_PlayerTypes.h"

struct HostMediaInfo {
    /** Duration given to a file whose length TagLib cannot tell (a fake video file). */
    static constexpr int kDefaultDuration = 10000;

    QString title;
    QString artist;
    QString album;
    /** Milliseconds; 0 for a stream, which has no end. */
    int duration = 0;
    MP_CONTENT_TYPE contentType = MP_CONTENT_UNKNOWN;
    /** False when the local file does not exist; a stream is always playable. */
    bool playable = false;

    /**
     * Describes the media at @p path (a local path, a "file://" name, a stream
     * address or a progressive-download name ending in ".pd"). Without tags the
     * title is the display name.
     */
    static HostMediaInfo read(const QString& path);

    /** Content type from the extension: sound, video, or unknown (streams default to sound). */
    static MP_CONTENT_TYPE contentTypeOf(const QString& path);

    /** The file name without folder and extension ("Night Drive" for "/m/Night Drive.mp3"). */
    static QString displayName(const QString& path);
};
