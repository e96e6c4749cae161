#pragma once
// Brings kept ordered results up to date with a batch of changed media
// objects, in place. For entry searches, each changed object leaves the
// result, and those that match the search now enter it at their place, found
// by binary search on the result with SQLite comparing the two rows by the
// search's order columns: the order is exactly the one ORDER BY gives, ties
// broken by the object id. For album names, each album a changed object was
// in or is in now is looked up again and added or removed.

#include <QByteArray>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "host/platform/media/database/MediaChanges.h"

class MediaRowOrder;
class MediaSearchPlan;
class SqliteStatement;
struct MediaOrderedResult;

class MediaResultFollower {
public:
    /** Gives a statement prepared from the SQL, kept by the database connection. */
    using StatementSource = std::function<SqliteStatement&(const QByteArray& sql)>;

    MediaResultFollower(StatementSource statements, const MediaEntryChanges& changes);

    /** Whether placing the changes costs less than reading @p plan's result of @p size
     *  entries anew. */
    bool isCheaperThanRereading(const MediaSearchPlan& plan, size_t size) const;
    /** Updates @p result of @p plan; false when it cannot (a row it compares with is gone
     *  or the database failed): @p result is then unusable and must be read anew. Results
     *  over group members are never followed. */
    bool follow(const MediaSearchPlan& plan, MediaOrderedResult& result);

private:
    bool followEntries(const MediaSearchPlan& plan, std::vector<quint32>& ids);
    bool followAlbums(const MediaSearchPlan& plan, MediaOrderedResult& result);
    /** Takes the changed objects out of @p ids, keeping the order of the others. */
    void removeChanged(std::vector<quint32>& ids) const;
    /** The places in @p ids of the changed objects, ascending. */
    std::vector<size_t> changedPlaces(const std::vector<quint32>& ids) const;
    /** The changed objects that match @p plan now, in result order. */
    std::optional<std::vector<quint32>> enteringIds(const MediaSearchPlan& plan);
    /** Where the row of @p order goes among @p ids, at or after @p from, reading the rows
     *  it compares with through @p row (their order columns); nothing on failure. */
    static std::optional<size_t> placeOf(const MediaRowOrder& order, const std::vector<quint32>& ids, size_t from,
                                         SqliteStatement& row);
    /** The albums the changed objects were in or are in now; nothing on failure. */
    std::optional<std::vector<std::pair<QByteArray, QByteArray>>> touchedAlbums();
    static void insertAt(std::vector<quint32>& ids, const std::vector<quint32>& entering,
                         const std::vector<size_t>& places);

    StatementSource m_statements;
    const MediaEntryChanges& m_changes;
    QByteArray m_idsJson;              // the changed ids as a JSON array, for json_each
    std::vector<quint64> m_lowBits;    // a bit per value of an id's low 16 bits: a fast "not changed"
};
