#pragma once
// Reads a media file's tags with TagLib.

#include <QString>

#include <optional>

#include "host/platform/media/database/MediaRecord.h"

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
    /** The tags of @p path; all empty for a file without tags, or of a kind TagLib does not
     *  know (a video container it has no parser for). Nothing for a file that is no media
     *  file of its @p kind: a name TagLib has a parser for and a content that parser refuses,
     *  or a song in which it finds no sound. */
    static std::optional<MediaTags> read(const QString& path, MediaKind kind);
    /** A tag's date as yyyy-MM-dd, or as much of it as it holds ("2008", "2008-05");
     *  empty when it does not begin with a year. */
    static QString normalizedDate(const QString& tagDate);
};
