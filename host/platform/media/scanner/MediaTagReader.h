#pragma once
// Reads a media file's tags with TagLib.

#include <QString>

#include <optional>

struct MediaTags {
    QString title;
    QString artist;
    QString album;
    QString genre;
    QString composer;
    int track = 0;
    QString date;                 ///< yyyy-MM-dd or its known part; empty when absent
};

class MediaTagReader {
public:
    /** The tags of @p path; all empty for a file without tags, or of a kind TagLib has no
     *  reader for (.3gp, .aac, .amr). Nothing for a file that is no media file: empty or
     *  text, of a kind TagLib reads with a content no reader of TagLib's takes, or an MP3
     *  without a frame. */
    static std::optional<MediaTags> read(const QString& path);
    /** A tag's date as yyyy-MM-dd, or as much of it as it holds ("2008", "2008-05");
     *  empty when it does not begin with a year. */
    static QString normalizedDate(const QString& tagDate);
};
