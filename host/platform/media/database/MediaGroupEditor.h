#pragma once
// Changes the members of the database's groups the way play lists and the
// play history need: insertion at a place, moves, the history's bound, and
// removal by place within a storage selection. Each change is one transaction.

#include <QList>

#include <optional>

#include "platform/Metadata.h"

class MediaDatabase;

/** One object to put into a group and the place to put it at. */
struct MediaGroupInsertion {
    quint32 objectId = 0;
    quint32 position = 0;      ///< 0 = first; past the end appends
};

class MediaGroupEditor {
public:
    /** Works on @p database, which must outlive the editor. */
    explicit MediaGroupEditor(MediaDatabase& database);

    /** Inserts the objects one after another, each at its place in the group as it is by
     *  then; an object already in the group moves there. A play-history group then keeps
     *  only its first (newest) METADATA_HISTORY_LIMIT members. False, changing nothing,
     *  when the group or one of the objects is not stored. */
    bool addItems(quint32 groupId, const QList<MediaGroupInsertion>& items);
    /** Removes the members at @p positions: places (from 0) in the group's order counted
     *  among the members stored on @p storage (every member when nothing). The objects
     *  stay. False, changing nothing, when the group is not a stored group of @p type or a
     *  position names no member. */
    bool removeAt(quint32 groupId, MetadataGroupType type, std::optional<int> storage,
                  const QList<quint32>& positions);

private:
    MediaDatabase& m_database;
};
