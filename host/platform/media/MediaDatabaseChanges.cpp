// MediaDatabase: what changed since a point: commit stamps and the change log.

#include "host/platform/media/MediaDatabase.h"

#include <sqlite3.h>

#include "host/platform/media/SqliteStatement.h"

MediaCommitStamp MediaDatabase::commitStamp()
{
    // data_version moves when another connection (the scanner, another
    // process) commits; total_changes when this one writes.
    SqliteStatement& query = statement("PRAGMA data_version");
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
