#pragma once
// Reads the rows of the media objects' change log that follow a known place,
// and refuses as soon as they cannot tell exactly which objects changed: the
// place is gone (the log was trimmed past it, or emptied and refilled), a
// number is missing or out of order, a row is malformed, or there are more
// changes than the caller follows. The rows come from the database file,
// which any program may write, so nothing in them is trusted.

#include <QByteArray>

#include <optional>

#include "host/platform/media/database/MediaChanges.h"

/** One row of the log as read; album key and album are null for an insertion. */
struct MediaChangeLogRow {
    qint64 sequence = 0;
    qint64 mediaId = 0;
    std::optional<QByteArray> albumKey;
    std::optional<QByteArray> album;
};

class MediaEntryChangeReader {
public:
    /** Reads the changes after @p from, at most @p limit of them. */
    MediaEntryChangeReader(const MediaLogPosition& from, int limit);

    /** Takes the next row, in log order, starting with the row at the known place;
     *  false once the rows cannot describe the changes (later rows are then ignored). */
    bool add(const MediaChangeLogRow& row);
    /** The changes read; nothing when a row was refused or the known place was not the
     *  first row. */
    std::optional<MediaEntryChanges> finish();

private:
    bool addChange(const MediaChangeLogRow& row);

    MediaLogPosition m_from;
    int m_limit;
    int m_count = 0;
    bool m_isPlaceFound = false;
    bool m_isRefused = false;
    MediaEntryChanges m_changes;
};
