// MediaDatabase: groups (user play lists, the play history) and their ordered members.

#include "host/platform/media/database/MediaDatabase.h"

#include <sqlite3.h>

#include "host/platform/media/database/SqliteStatement.h"
#include "host/platform/media/database/SqliteTransaction.h"

quint32 MediaDatabase::addGroup(MetadataGroupType type, const QString& name, const QString& source)
{
    SqliteStatement& insert = statement("INSERT INTO groups (type, name, source) VALUES (?1, ?2, ?3)");
    insert.bind(1, qint64(type));
    insert.bind(2, name);
    if (source.isEmpty())
        insert.bindNull(3);
    else
        insert.bind(3, source);
    if (!insert.run())
        return 0;
    return quint32(sqlite3_last_insert_rowid(m_db));
}

bool MediaDatabase::removeGroup(quint32 id)
{
    if (id == METADATA_AUDIO_HISTORY_GROUP_ID || id == METADATA_VIDEO_HISTORY_GROUP_ID)
        return false;
    SqliteStatement& remove = statement("DELETE FROM groups WHERE id = ?1");
    remove.bind(1, qint64(id));
    return remove.run() && sqlite3_changes(m_db) == 1;
}

std::optional<MediaGroup> MediaDatabase::readGroup(SqliteStatement& query)
{
    std::optional<MediaGroup> found;
    if (query.step() == SqliteStatement::Step::Row)
        found = MediaGroup{quint32(query.int64(0)), MetadataGroupType(query.int64(1)), query.text(2), query.text(3)};
    query.reset();
    return found;
}

std::optional<MediaGroup> MediaDatabase::groupById(quint32 id)
{
    SqliteStatement& query = statement("SELECT id, type, name, source FROM groups WHERE id = ?1");
    query.bind(1, qint64(id));
    return readGroup(query);
}

std::optional<MediaGroup> MediaDatabase::groupBySource(const QString& source)
{
    SqliteStatement& query = statement("SELECT id, type, name, source FROM groups WHERE source = ?1");
    query.bind(1, source);
    return readGroup(query);
}

std::optional<MediaGroup> MediaDatabase::groupByName(MetadataGroupType type, const QString& name)
{
    SqliteStatement& query =
        statement("SELECT id, type, name, source FROM groups WHERE type = ?1 AND name = ?2 ORDER BY id LIMIT 1");
    query.bind(1, qint64(type));
    query.bind(2, name);
    return readGroup(query);
}

QList<MediaGroup> MediaDatabase::groupsWithSourceUnder(const QString& folder)
{
    const QPair<QString, QString> range = pathRangeOf(folder);
    SqliteStatement& query =
        statement("SELECT id, type, name, source FROM groups WHERE source >= ?1 AND source < ?2");
    query.bind(1, range.first);
    query.bind(2, range.second);
    QList<MediaGroup> groups;
    while (query.step() == SqliteStatement::Step::Row)
        groups.append(MediaGroup{quint32(query.int64(0)), MetadataGroupType(query.int64(1)), query.text(2),
                                 query.text(3)});
    query.reset();
    return groups;
}

QList<quint32> MediaDatabase::groupMembers(quint32 groupId)
{
    SqliteStatement& query = statement("SELECT media_id FROM group_members WHERE group_id = ?1 ORDER BY position");
    query.bind(1, qint64(groupId));
    QList<quint32> members;
    while (query.step() == SqliteStatement::Step::Row)
        members.append(quint32(query.int64(0)));
    query.reset();
    return members;
}

std::optional<QByteArray> MediaDatabase::groupMemberView(quint32 groupId, const QList<QByteArray>& mediaColumns)
{
    // A left join: a member whose media object another program deleted
    // without foreign keys stays in the group but leaves its searches.
    QByteArray sql = "SELECT gm.media_id";
    for (const QByteArray& column : mediaColumns)
        sql += ", " + column;
    sql += " FROM group_members gm LEFT JOIN media m ON m.id = gm.media_id WHERE gm.group_id = ?1 ORDER BY gm.position";
    SqliteStatement& query = statement(sql);
    query.bind(1, qint64(groupId));
    QByteArray view;
    const int columns = 1 + int(mediaColumns.size());
    SqliteStatement::Step step = query.step();
    for (; step == SqliteStatement::Step::Row; step = query.step()) {
        // Each value with its length, so that no two rows run into each other.
        for (int column = 0; column < columns; ++column) {
            if (query.isNull(column)) {
                view += 'N';
            } else {
                const QByteArray value = query.utf8(column);
                view += 'V' + QByteArray::number(value.size()) + ':' + value;
            }
        }
    }
    query.reset();
    if (step != SqliteStatement::Step::Done)
        return std::nullopt;
    return view;
}

bool MediaDatabase::setGroupMembers(quint32 groupId, const QList<quint32>& mediaIds)
{
    if (!groupById(groupId))
        return false;
    SqliteTransaction transaction(m_db);
    SqliteStatement& clear = statement("DELETE FROM group_members WHERE group_id = ?1");
    clear.bind(1, qint64(groupId));
    if (!transaction.isActive() || !clear.run())
        return false;
    SqliteStatement& insert = statement("INSERT INTO group_members (group_id, position, media_id) VALUES (?1, ?2, ?3)");
    for (int position = 0; position < mediaIds.size(); ++position) {
        insert.bind(1, qint64(groupId));
        insert.bind(2, qint64(position + 1));
        insert.bind(3, qint64(mediaIds[position]));
        if (!insert.run())
            return false;
    }
    return transaction.commit();
}
