#include "host/platform/media/database/MediaSearchPlan.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "host/platform/phone/HostStorage.h"
#include "host/platform/media/database/SqliteStatement.h"

namespace {

// A text value is its UTF-8 bytes followed by the NUL that its length counts.
std::optional<QByteArray> textValue(const MetadataSearchFilter& filter)
{
    if (!filter.value || filter.valueLength == 0)
        return std::nullopt;
    const auto* bytes = static_cast<const char*>(filter.value);
    if (bytes[filter.valueLength - 1] != '\0')
        return std::nullopt;
    return QByteArray(bytes, int(qstrnlen(bytes, filter.valueLength - 1)));
}

std::optional<qint64> integerValue(const MetadataSearchFilter& filter)
{
    uint32_t value = 0;
    if (!filter.value || filter.valueLength != sizeof value)
        return std::nullopt;
    std::memcpy(&value, filter.value, sizeof value);
    return qint64(value);
}

// What the value of an "equal" filter is, by the filter's type.
enum class ValueKind { Text, Number, Unknown };

ValueKind valueKindOf(MetadataSearchFilterType type)
{
    switch (type) {
    case METADATA_FILTER_FILE_PATH:
    case METADATA_FILTER_ARTIST:
    case METADATA_FILTER_COMPOSER:
    case METADATA_FILTER_GENRE:
    case METADATA_FILTER_ALBUM:
    case METADATA_FILTER_DATE:
        return ValueKind::Text;
    case METADATA_FILTER_CREATE_FLAG:
    case METADATA_FILTER_GROUP_ID:
        return ValueKind::Number;
    }
    return ValueKind::Unknown;
}

template <typename Value>
void appendBytes(std::string& key, const Value& value)
{
    key.append(reinterpret_cast<const char*>(&value), sizeof value);
}

// The filter's part of a request's shape: false where read() may refuse it.
bool writeShapeOfFilter(const MetadataSearchFilter& filter, std::string& key)
{
    appendBytes(key, filter.type);
    appendBytes(key, filter.op);
    if (filter.op == METADATA_OPERATOR_ANY)
        return !filter.value && filter.valueLength == 0;
    if (filter.op != METADATA_OPERATOR_EQUAL)
        return false;
    switch (valueKindOf(filter.type)) {
    case ValueKind::Text: {
        const std::optional<QByteArray> text = textValue(filter);
        if (!text)
            return false;
        appendBytes(key, text->size());
        key.append(text->constData(), size_t(text->size()));
        return true;
    }
    case ValueKind::Number: {
        const std::optional<qint64> number = integerValue(filter);
        if (number)
            appendBytes(key, *number);
        return number.has_value();
    }
    case ValueKind::Unknown:
        break;
    }
    return false;
}

// More entries than any list sends: such a request is read, not kept (a
// count that is not one must not make the shape take gigabytes).
constexpr uint32_t kMostShapedEntries = 64;

template <typename Entry>
bool writeShapeOfArray(uint32_t count, const Entry* entries, std::string& key)
{
    appendBytes(key, count);
    if ((count > 0 && !entries) || count > kMostShapedEntries)
        return false;
    key.append(reinterpret_cast<const char*>(entries), count * sizeof(Entry));
    return true;
}

const char* textColumnOf(MetadataSearchFilterType type)
{
    switch (type) {
    case METADATA_FILTER_FILE_PATH: return "m.path";
    case METADATA_FILTER_ARTIST: return "m.artist";
    case METADATA_FILTER_COMPOSER: return "m.composer";
    case METADATA_FILTER_GENRE: return "m.genre";
    case METADATA_FILTER_ALBUM: return "m.album";
    default: return nullptr;
    }
}

// The columns of one sort key, most significant first.
QList<QByteArray> sortColumnsOf(MetadataSortKey key)
{
    switch (key) {
    case METADATA_SORT_TITLE: return {"m.title_key"};
    case METADATA_SORT_ALBUM: return {"m.album_key", "m.album"};
    case METADATA_SORT_TRACK: return {"m.track", "m.title_key"};
    case METADATA_SORT_DATE: return {"m.date"};
    case METADATA_SORT_GROUP_POSITION: return {"gm.position"};
    }
    return {};
}

bool isKnownSortKey(uint32_t key)
{
    return !sortColumnsOf(MetadataSortKey(key)).isEmpty();
}

bool isKnownCandidate(uint32_t type)
{
    return type == METADATA_CANDIDATE_OBJECT_ID || type == METADATA_CANDIDATE_FULL_PATH
           || type == METADATA_CANDIDATE_ALBUM;
}

const char* directionOf(MetadataSortDirection direction)
{
    return direction == METADATA_SORT_DESCENDING ? " DESC" : " ASC";
}

} // namespace

std::optional<MediaSearchPlan> MediaSearchPlan::read(const MetadataSearchMediaRequest& request, int storageCount,
                                                     QString* error)
{
    MediaSearchPlan plan;
    if (request.resultCount < 0 || request.firstIndex < 0) {
        *error = QStringLiteral("negative window (first %1, count %2)").arg(request.firstIndex).arg(request.resultCount);
        return std::nullopt;
    }
    plan.m_firstIndex = request.firstIndex;
    plan.m_resultCount = request.resultCount;
    if (!plan.readListType(request, error) || !plan.readFilters(request, error) || !plan.readSort(request, error)
        || !plan.readCandidates(request, error))
        return std::nullopt;
    plan.readStorage(request, storageCount);
    plan.buildSql();
    plan.m_shapeKey = plan.buildShapeKey();
    return plan;
}

bool MediaSearchPlan::writeShapeOfRequest(const MetadataSearchMediaRequest& request, int storageCount,
                                          std::string& key)
{
    key.clear();
    if (request.listTypeCount != 1 || !writeShapeOfArray(request.listTypeCount, request.listTypes, key))
        return false;
    appendBytes(key, request.filterCount);
    if ((request.filterCount > 0 && !request.filters) || request.filterCount > kMostShapedEntries)
        return false;
    for (uint32_t i = 0; i < request.filterCount; ++i) {
        if (!writeShapeOfFilter(request.filters[i], key))
            return false;
    }
    appendBytes(key, HostStorage::selectedStorage(request.storageLocation, storageCount).value_or(-1));
    appendBytes(key, request.groupingFlag);
    return writeShapeOfArray(request.sortCount, request.sort, key)
           && writeShapeOfArray(request.candidateCount, request.candidates, key);
}

MediaSearchPlan MediaSearchPlan::withWindow(int firstIndex, int resultCount) const
{
    MediaSearchPlan plan = *this;
    plan.m_firstIndex = firstIndex;
    plan.m_resultCount = resultCount;
    return plan;
}

bool MediaSearchPlan::readListType(const MetadataSearchMediaRequest& request, QString* error)
{
    if (request.listTypeCount != 1 || !request.listTypes) {
        *error = QStringLiteral("expects exactly one list type, got %1%2")
                     .arg(request.listTypeCount)
                     .arg(request.listTypes ? "" : " and no list-type array");
        return false;
    }
    m_listType = request.listTypes[0];
    switch (m_listType) {
    case METADATA_LIST_MUSIC:
    case METADATA_LIST_VIDEO:
    case METADATA_LIST_USER_GROUP:
    case METADATA_LIST_HISTORY_GROUP:
        return true;
    }
    *error = QStringLiteral("unknown list type %1").arg(uint32_t(m_listType));
    return false;
}

bool MediaSearchPlan::readFilters(const MetadataSearchMediaRequest& request, QString* error)
{
    if (request.filterCount > 0 && !request.filters) {
        *error = QStringLiteral("%1 filters but no filter array").arg(request.filterCount);
        return false;
    }
    for (uint32_t i = 0; i < request.filterCount; ++i) {
        if (!readFilter(request.filters[i], error))
            return false;
    }
    if (isGroupList() && !m_groupId) {
        *error = QStringLiteral("list type %1 needs a group-id filter").arg(uint32_t(m_listType));
        return false;
    }
    return true;
}

bool MediaSearchPlan::readFilter(const MetadataSearchFilter& filter, QString* error)
{
    if (filter.op == METADATA_OPERATOR_EQUAL)
        return readEqualFilter(filter, error);
    if (filter.op == METADATA_OPERATOR_ANY)
        return readAnyFilter(filter, error);
    *error = QStringLiteral("unknown operator %1 in filter type %2").arg(uint32_t(filter.op)).arg(uint32_t(filter.type));
    return false;
}

bool MediaSearchPlan::readAnyFilter(const MetadataSearchFilter& filter, QString* error)
{
    // "Any" means every entry for the path and the grouping column for the
    // album; it restricts nothing and carries no value.
    const bool takesAny = filter.type == METADATA_FILTER_FILE_PATH || filter.type == METADATA_FILTER_ALBUM;
    if (!takesAny || filter.value || filter.valueLength) {
        *error = QStringLiteral("operator 2 with filter type %1 %2")
                     .arg(uint32_t(filter.type))
                     .arg(takesAny ? "takes no value" : "is not supported");
        return false;
    }
    return true;
}

bool MediaSearchPlan::readEqualFilter(const MetadataSearchFilter& filter, QString* error)
{
    switch (valueKindOf(filter.type)) {
    case ValueKind::Text:
        return readTextFilter(filter, error);
    case ValueKind::Number:
        return readNumberFilter(filter, error);
    case ValueKind::Unknown:
        break;
    }
    *error = QStringLiteral("unknown filter type %1").arg(uint32_t(filter.type));
    return false;
}

bool MediaSearchPlan::readTextFilter(const MetadataSearchFilter& filter, QString* error)
{
    const std::optional<QByteArray> text = textValue(filter);
    if (!text)
        return refuseUnreadableValue(filter, error);
    if (filter.type == METADATA_FILTER_DATE)
        addCondition("substr(m.date, 1, length(?)) = ?", {*text, *text});
    else
        addCondition(QByteArray(textColumnOf(filter.type)) + " = ?", {*text});
    return true;
}

bool MediaSearchPlan::readNumberFilter(const MetadataSearchFilter& filter, QString* error)
{
    const std::optional<qint64> number = integerValue(filter);
    if (!number)
        return refuseUnreadableValue(filter, error);
    if (filter.type == METADATA_FILTER_CREATE_FLAG)
        addCondition("m.created_by = ?", {*number});
    else if (isGroupList() && !m_groupId)
        m_groupId = quint32(*number);
    else {
        addCondition("EXISTS (SELECT 1 FROM group_members x WHERE x.group_id = ? AND x.media_id = m.id)", {*number});
        m_hasGroupFilter = true;
    }
    return true;
}

bool MediaSearchPlan::refuseUnreadableValue(const MetadataSearchFilter& filter, QString* error)
{
    *error = QStringLiteral("filter type %1 has no readable value (length %2%3)")
                 .arg(uint32_t(filter.type))
                 .arg(filter.valueLength)
                 .arg(filter.value ? "" : ", null pointer");
    return false;
}

bool MediaSearchPlan::readSort(const MetadataSearchMediaRequest& request, QString* error)
{
    if (request.sortCount > 0 && !request.sort) {
        *error = QStringLiteral("%1 sort entries but no sort array").arg(request.sortCount);
        return false;
    }
    for (uint32_t i = 0; i < request.sortCount; ++i) {
        const MetadataSortEntry& entry = request.sort[i];
        if (!isKnownSortKey(entry.key)) {
            *error = QStringLiteral("unknown sort key %1").arg(uint32_t(entry.key));
            return false;
        }
        if (entry.direction != METADATA_SORT_ASCENDING && entry.direction != METADATA_SORT_DESCENDING) {
            *error = QStringLiteral("unknown sort direction %1").arg(uint32_t(entry.direction));
            return false;
        }
        if (entry.key == METADATA_SORT_GROUP_POSITION && !isGroupList()) {
            *error = QStringLiteral("sort key 11 needs a group list, not list type %1").arg(uint32_t(m_listType));
            return false;
        }
        m_sort.append(entry);
    }
    return true;
}

bool MediaSearchPlan::readCandidates(const MetadataSearchMediaRequest& request, QString* error)
{
    if (request.groupingFlag > 1) {
        *error = QStringLiteral("unknown grouping flag %1").arg(request.groupingFlag);
        return false;
    }
    m_isGrouped = request.groupingFlag == 1;
    if (request.candidateCount > 0 && !request.candidates) {
        *error = QStringLiteral("%1 candidates but no candidate array").arg(request.candidateCount);
        return false;
    }
    for (uint32_t i = 0; i < request.candidateCount; ++i) {
        const MetadataSearchCandidateType type = request.candidates[i];
        if (!isKnownCandidate(type)) {
            *error = QStringLiteral("unknown candidate type %1").arg(uint32_t(type));
            return false;
        }
        // Grouped results are album names; they have no id or path of their own.
        if (m_isGrouped && type != METADATA_CANDIDATE_ALBUM) {
            *error = QStringLiteral("candidate type %1 with the grouping flag").arg(uint32_t(type));
            return false;
        }
        m_candidates.append(type);
    }
    return true;
}

void MediaSearchPlan::readStorage(const MetadataSearchMediaRequest& request, int storageCount)
{
    if (const std::optional<int> storage = HostStorage::selectedStorage(request.storageLocation, storageCount))
        addCondition("m.storage = ?", {qint64(*storage)});
}

bool MediaSearchPlan::isGroupList() const
{
    return m_listType == METADATA_LIST_USER_GROUP || m_listType == METADATA_LIST_HISTORY_GROUP;
}

bool MediaSearchPlan::needsRowValues() const
{
    if (m_isGrouped)
        return false;
    for (const MetadataSearchCandidateType type : m_candidates) {
        if (type != METADATA_CANDIDATE_OBJECT_ID)
            return true;
    }
    return false;
}

void MediaSearchPlan::addCondition(const QByteArray& sql, const QList<Value>& values)
{
    m_conditions.append(Condition{sql, values});
}

void MediaSearchPlan::buildSql()
{
    if (isGroupList()) {
        const qint64 groupType =
            m_listType == METADATA_LIST_USER_GROUP ? METADATA_GROUP_USER : METADATA_GROUP_PLAY_HISTORY;
        m_conditions.prepend(Condition{"g.type = ?", {groupType}});
        m_conditions.prepend(Condition{"gm.group_id = ?", {qint64(*m_groupId)}});
    } else {
        const qint64 kind = m_listType == METADATA_LIST_VIDEO ? 2 : 1;
        m_conditions.prepend(Condition{"m.kind = ?", {kind}});
    }

    // Album names come with their keys, by which a kept result places an album.
    m_sql = m_isGrouped ? "SELECT m.album, m.album_key" : "SELECT m.id";
    m_sql += isGroupList() ? " FROM group_members gm JOIN groups g ON g.id = gm.group_id"
                             " JOIN media m ON m.id = gm.media_id"
                           : " FROM media m";
    m_sql += " WHERE " + conditionSql();

    if (m_isGrouped) {
        bool isDescending = false;
        for (const MetadataSortEntry& entry : m_sort) {
            if (entry.key == METADATA_SORT_ALBUM) {
                isDescending = entry.direction == METADATA_SORT_DESCENDING;
                break;
            }
        }
        m_orderTerms = {{"m.album_key", isDescending}, {"m.album", isDescending}};
        m_sql += " GROUP BY m.album_key, m.album";
    } else {
        for (const MetadataSortEntry& entry : m_sort) {
            for (const QByteArray& column : sortColumnsOf(entry.key))
                m_orderTerms.append({column, entry.direction == METADATA_SORT_DESCENDING});
        }
        // Ties break on the object id (and, for a group holding an object
        // twice, on its place), so the order is total and every window is
        // stable.
        const bool isTieDescending = !m_sort.isEmpty() && m_sort.first().direction == METADATA_SORT_DESCENDING;
        m_orderTerms.append({"m.id", isTieDescending});
        if (isGroupList())
            m_orderTerms.append({"gm.position", isTieDescending});
    }
    QList<QByteArray> order;
    for (const OrderTerm& term : m_orderTerms)
        order.append(term.column + directionOf(term.isDescending ? METADATA_SORT_DESCENDING : METADATA_SORT_ASCENDING));
    m_sql += " ORDER BY " + order.join(", ");
}

QList<QByteArray> MediaSearchPlan::mediaColumns() const
{
    // The SQL names every column of the media objects through the alias "m"
    // and carries no values (they are bound), so whatever follows an "m."
    // that starts a word is such a column; "gm.position" is not one.
    const auto isWordByte = [](char byte) { return std::isalnum(static_cast<unsigned char>(byte)) || byte == '_'; };
    QList<QByteArray> columns;
    for (qsizetype at = m_sql.indexOf("m."); at >= 0; at = m_sql.indexOf("m.", at + 2)) {
        if (at > 0 && isWordByte(m_sql[at - 1]))
            continue;
        qsizetype end = at + 2;
        while (end < m_sql.size() && isWordByte(m_sql[end]))
            ++end;
        const QByteArray column = m_sql.mid(at, end - at);
        if (!columns.contains(column))
            columns.append(column);
    }
    std::sort(columns.begin(), columns.end());
    return columns;
}

QByteArray MediaSearchPlan::conditionSql() const
{
    QList<QByteArray> conditions;
    for (const Condition& condition : m_conditions)
        conditions.append(condition.sql);
    return conditions.join(" AND ");
}

void MediaSearchPlan::bindTo(SqliteStatement& statement, int firstIndex) const
{
    int index = firstIndex;
    for (const Condition& condition : m_conditions) {
        for (const Value& value : condition.values) {
            if (const qint64* number = std::get_if<qint64>(&value))
                statement.bind(index++, *number);
            else
                statement.bindUtf8(index++, std::get<QByteArray>(value));
        }
    }
}

QByteArray MediaSearchPlan::buildShapeKey() const
{
    QByteArray key = m_sql;
    for (const Condition& condition : m_conditions) {
        for (const Value& value : condition.values) {
            if (const qint64* number = std::get_if<qint64>(&value)) {
                key += "\ni" + QByteArray::number(*number);
            } else {
                const QByteArray& text = std::get<QByteArray>(value);
                key += "\nt" + QByteArray::number(text.size()) + ':' + text;
            }
        }
    }
    return key;
}
