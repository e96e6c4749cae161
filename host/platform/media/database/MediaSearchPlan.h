#pragma once
// A search request read and checked: the SQL that lists its whole ordered
// result, the values bound to it, and the window and values to deliver.
// Reading never trusts the request: anything it cannot interpret makes the
// whole request unreadable.

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <string>
#include <variant>

#include "platform/Metadata.h"

class SqliteStatement;

class MediaSearchPlan {
public:
    /** Reads @p request; @p storageCount is the number of storages the phone has
     *  (profile "MF_FlexNumber"/"StorageNumber"). Returns nothing and sets @p error
     *  when the request cannot be read. */
    static std::optional<MediaSearchPlan> read(const MetadataSearchMediaRequest& request, int storageCount,
                                               QString* error);
    /** Writes to @p key all that read() makes a plan of but the window: requests with
     *  equal keys read into the same plan, or are both refused. Reads no more of the
     *  request than read() does: false (and @p key unspecified) where that would take
     *  a value that read() refuses unread. True says nothing of whether read() accepts. */
    static bool writeShapeOfRequest(const MetadataSearchMediaRequest& request, int storageCount, std::string& key);
    /** The same plan for the window of @p resultCount entries from @p firstIndex
     *  (neither negative). */
    MediaSearchPlan withWindow(int firstIndex, int resultCount) const;

    /** The distinct album names of the result are asked for, not its entries. */
    bool isGrouped() const { return m_isGrouped; }
    /** The group a group list draws from; nothing for other lists. */
    std::optional<quint32> groupId() const { return m_groupId; }
    int firstIndex() const { return m_firstIndex; }
    /** Entries wanted; 0 asks for the total only. */
    int resultCount() const { return m_resultCount; }
    const QList<MetadataSearchCandidateType>& candidates() const { return m_candidates; }
    /** Whether any value to deliver must be read from the entry's row. */
    bool needsRowValues() const;

    /** SQL listing the whole result in order: object ids, or album names when grouped. */
    const QByteArray& sql() const { return m_sql; }
    /** Binds the request's values to a statement prepared from sql(), or to one that has
     *  conditionSql() after parameters 1 to @p firstIndex - 1 of its own. */
    void bindTo(SqliteStatement& statement, int firstIndex = 1) const;

    /** One column of the result's order: "m.<column>", most significant first. */
    struct OrderTerm {
        QByteArray column;
        bool isDescending = false;
    };
    /** The order of the result, total: it ends with the object id for entries, and is the
     *  album key and album for album names. */
    const QList<OrderTerm>& orderTerms() const { return m_orderTerms; }
    /** The conditions an entry of the result meets, over "media m", joined by AND. */
    QByteArray conditionSql() const;
    /** The columns of the media objects ("m.<column>", ascending, each once) that the
     *  result depends on: those its conditions, order and album names read, and the id. */
    QList<QByteArray> mediaColumns() const;
    /** Whether the result depends on group members (a group list or a group filter), not
     *  only on the media objects. */
    bool readsGroups() const { return isGroupList() || m_hasGroupFilter; }
    /** Equal keys mean equal ordered results (on the same database state). */
    const QByteArray& shapeKey() const { return m_shapeKey; }

private:
    using Value = std::variant<qint64, QByteArray>;
    struct Condition {
        QByteArray sql;           // with one ? per value
        QList<Value> values;
    };

    MediaSearchPlan() = default;
    bool readListType(const MetadataSearchMediaRequest& request, QString* error);
    bool readFilters(const MetadataSearchMediaRequest& request, QString* error);
    bool readFilter(const MetadataSearchFilter& filter, QString* error);
    // The parts of readFilter: by operator, then by the kind of value.
    static bool readAnyFilter(const MetadataSearchFilter& filter, QString* error);
    bool readEqualFilter(const MetadataSearchFilter& filter, QString* error);
    bool readTextFilter(const MetadataSearchFilter& filter, QString* error);
    bool readNumberFilter(const MetadataSearchFilter& filter, QString* error);
    static bool refuseUnreadableValue(const MetadataSearchFilter& filter, QString* error);
    bool readSort(const MetadataSearchMediaRequest& request, QString* error);
    bool readCandidates(const MetadataSearchMediaRequest& request, QString* error);
    void readStorage(const MetadataSearchMediaRequest& request, int storageCount);
    bool isGroupList() const;
    void addCondition(const QByteArray& sql, const QList<Value>& values = {});
    void buildSql();
    QByteArray buildShapeKey() const;

    MetadataListType m_listType = METADATA_LIST_MUSIC;
    std::optional<quint32> m_groupId;   // the group a group list draws from
    QList<Condition> m_conditions;
    QList<OrderTerm> m_orderTerms;
    bool m_hasGroupFilter = false;
    QList<MetadataSortEntry> m_sort;
    QList<MetadataSearchCandidateType> m_candidates;
    bool m_isGrouped = false;
    int m_firstIndex = 0;
    int m_resultCount = 0;
    QByteArray m_sql;
    QByteArray m_shapeKey;
};
