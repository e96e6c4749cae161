#include "host/platform/media/database/MediaGroupEditor.h"

#include <QSet>

#include <algorithm>
#include <memory>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/database/SqliteTransaction.h"

MediaGroupEditor::MediaGroupEditor(MediaDatabase& database) : m_database(database) {}

bool MediaGroupEditor::addItems(quint32 groupId, const QList<MediaGroupInsertion>& items)
{
    const std::unique_ptr<SqliteTransaction> transaction = m_database.beginTransaction();
    if (!transaction->isActive())
        return false;
    const std::optional<MediaGroup> group = m_database.groupById(groupId);
    if (!group) {
        qCWarning(lcMetadata, "cannot add to group %u: no such group", groupId);
        return false;
    }
    QList<quint32> members = m_database.groupMembers(groupId);
    for (const MediaGroupInsertion& item : items) {
        if (!m_database.mediaById(item.objectId)) {
            qCWarning(lcMetadata, "cannot add object %u to group %u: no such object", item.objectId, groupId);
            return false;
        }
        members.removeAll(item.objectId);
        members.insert(qsizetype(std::min<quint32>(item.position, quint32(members.size()))), item.objectId);
    }
    // The newest entries of a history are at its front (the history list
    // reads it by ascending place), so the oldest fall off its end.
    if (group->type == METADATA_GROUP_PLAY_HISTORY && members.size() > qsizetype(METADATA_HISTORY_LIMIT))
        members.resize(qsizetype(METADATA_HISTORY_LIMIT));
    return m_database.setGroupMembers(groupId, members) && transaction->commit();
}

bool MediaGroupEditor::removeAt(quint32 groupId, MetadataGroupType type, std::optional<int> storage,
                                const QList<quint32>& positions)
{
    const std::unique_ptr<SqliteTransaction> transaction = m_database.beginTransaction();
    if (!transaction->isActive())
        return false;
    const std::optional<MediaGroup> group = m_database.groupById(groupId);
    if (!group || group->type != type) {
        qCWarning(lcMetadata, "cannot remove from group %u of type %u: no such group", groupId, uint32_t(type));
        return false;
    }
    const QList<quint32> members = m_database.groupMembers(groupId);
    // The places of the members that the storage selection shows, as the
    // list that counted the positions saw them.
    QList<qsizetype> selected;
    for (qsizetype i = 0; i < members.size(); ++i) {
        if (!storage) {
            selected.append(i);
            continue;
        }
        const std::optional<MediaRecord> record = m_database.mediaById(members[i]);
        if (record && record->storage == *storage)
            selected.append(i);
    }
    QSet<qsizetype> removed;
    for (const quint32 position : positions) {
        if (position >= quint32(selected.size())) {
            qCWarning(lcMetadata, "cannot remove place %u from group %u: it has %d members there", position, groupId,
                      int(selected.size()));
            return false;
        }
        removed.insert(selected[qsizetype(position)]);
    }
    QList<quint32> kept;
    for (qsizetype i = 0; i < members.size(); ++i) {
        if (!removed.contains(i))
            kept.append(members[i]);
    }
    return m_database.setGroupMembers(groupId, kept) && transaction->commit();
}
