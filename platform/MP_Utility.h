#pragma once
// Helpers of the playback engine library.

#include <QString>

class MP_Utility {
public:
    /** Formats milliseconds as "m:ss", or "h:mm:ss" from one hour on; negative counts as 0. */
    static QString convertTime(int milliseconds);
    /** The local path behind a media name as the phone names it: without a "file://"
     *  scheme and without the progressive-download suffix, a file on the memory card
     *  under "/mmc/mmca1". */
    static QString getCleanFileName(const QString& path);
    /** Medium of a path (MP_MEDIUM_TYPE): "http://" and "rtsp://" are streams, a
     *  progressive-download suffix is a download, anything else a local file. */
    static int getMediumType(const QString& path);
    /** @p path without the progressive-download suffix ".pd"; unchanged when it has none. */
    static QString removePDSuffix(const QString& path);
};
