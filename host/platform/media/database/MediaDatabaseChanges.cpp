// MediaDatabase: what changed since a point: commit stamps and the change log.

#include "host/platform/media/database/MediaDatabase.h"

#include <sqlite3.h>

#include "host/platform/media/database/MediaEntryChangeReader.h"
#include "host/platform/media/database/SqliteStatement.h"

MediaCommitStamp MediaDatabase::commitStamp()
{
    // data_version moves when another connection (the scanner, another
    // process) commits; total_changes when this one writes.
    SqliteStatement& query = statement(QByteArrayLiteral("PRAGMA data_version"));
    const qint64 othersVersion = query.step() == SqliteStatement::Step::Row ? query.int64(0) : -1;
    query.reset();
    return MediaCommitStamp{othersVersion, sqlite3_total_changes64(m_db)};
}

std::optional<qint64> MediaDatabase::latestChange()
{
    SqliteStatement& query = statement("SELECT max(seq) FROM change_log");
    std::optional<qint64> latest;
    if (query.step() == SqliteStatement::Step::Row)
        latest = query.int64(0);
    query.reset();
    return latest;
}

std::optional<MediaChanges> MediaDatabase::changesSince(qint64 sequence)
{
    // Subject 0 is the media table, any other a group; a group row whose
    // group is gone tells of its deletion.
    SqliteStatement& query = statement(
        "SELECT c.subject, c.seq, EXISTS (SELECT 1 FROM groups g WHERE g.id = c.subject) "
        "FROM change_log c WHERE c.seq > ?1 ORDER BY c.seq");
    query.bind(1, sequence);
    MediaChanges changes;
    changes.lastSequence = sequence;
    SqliteStatement::Step step = query.step();
    for (; step == SqliteStatement::Step::Row; step = query.step()) {
        const qint64 subject = query.int64(0);
        changes.lastSequence = query.int64(1);
        if (subject == 0)
            changes.isMediaChanged = true;
        else
            changes.groups.append(MediaGroupChange{quint32(subject), query.int64(2) == 0});
    }
    query.reset();
    if (step != SqliteStatement::Step::Done)
        return std::nullopt;
    return changes;
}

std::optional<MediaLogPosition> MediaDatabase::latestEntryChange()
{
    // Without its three triggers (dropped in the shell) the log misses
    // changes: then it has no place to follow from, and results are read anew
    // after every change.
    SqliteStatement& query = statement(
        "SELECT seq, media_id FROM media_change_log WHERE (SELECT count(*) FROM sqlite_schema WHERE type = 'trigger' "
        "AND tbl_name = 'media' AND name IN ('media_insert_logged', 'media_update_logged', 'media_delete_logged')) = 3 "
        "ORDER BY seq DESC LIMIT 1");
    std::optional<MediaLogPosition> latest;
    if (query.step() == SqliteStatement::Step::Row)
        latest = MediaLogPosition{query.int64(0), query.int64(1)};
    query.reset();
    return latest;
}

std::optional<MediaEntryChanges> MediaDatabase::entryChangesSince(const MediaLogPosition& from, int limit)
{
    // From the known place itself, which must still be there, and one row
    // more than the limit, which tells that there are too many.
    SqliteStatement& query = statement(
        "SELECT seq, media_id, album_key, album FROM media_change_log WHERE seq >= ?1 ORDER BY seq LIMIT ?2");
    query.bind(1, from.sequence);
    query.bind(2, qint64(limit) + 2);
    MediaEntryChangeReader reader(from, limit);
    SqliteStatement::Step step = query.step();
    bool isReadable = true;
    for (; isReadable && step == SqliteStatement::Step::Row; step = query.step()) {
        MediaChangeLogRow row;
        row.sequence = query.int64(0);
        row.mediaId = query.int64(1);
        if (!query.isNull(2))
            row.albumKey = query.utf8(2);
        if (!query.isNull(3))
            row.album = query.utf8(3);
        isReadable = reader.add(row);
    }
    query.reset();
    if (!isReadable || step != SqliteStatement::Step::Done)
        return std::nullopt;
    return reader.finish();
}

std::optional<qint64> MediaDatabase::schemaVersion()
{
    SqliteStatement& query = statement("PRAGMA schema_version");
    std::optional<qint64> version;
    if (query.step() == SqliteStatement::Step::Row)
        version = query.int64(0);
    query.reset();
    return version;
}
