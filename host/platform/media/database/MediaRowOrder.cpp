#include "host/platform/media/database/MediaRowOrder.h"

#include <utility>

namespace {

using Kind = SqliteStatement::Value::Kind;

// SQLite's classes in their order: NULL, numbers, text, blobs.
int rankOf(Kind kind)
{
    switch (kind) {
    case Kind::Null: return 0;
    case Kind::Integer:
    case Kind::Real: return 1;
    case Kind::Text: return 2;
    case Kind::Blob: return 3;
    }
    return 0;
}

template <typename Number>
int compareNumbers(Number left, Number right)
{
    return left < right ? -1 : right < left ? 1 : 0;
}

double realOf(const SqliteStatement::Value& value)
{
    return value.kind == Kind::Integer ? double(value.integer) : value.real;
}

int compareValues(const SqliteStatement::Value& left, const SqliteStatement::Value& right)
{
    const int leftRank = rankOf(left.kind);
    const int rightRank = rankOf(right.kind);
    if (leftRank != rightRank)
        return compareNumbers(leftRank, rightRank);
    switch (leftRank) {
    case 0:
        return 0;
    case 1:
        // Integers exactly; an integer and a real as reals (the columns this
        // orders by hold integers or text).
        if (left.kind == Kind::Integer && right.kind == Kind::Integer)
            return compareNumbers(left.integer, right.integer);
        return compareNumbers(realOf(left), realOf(right));
    default: {
        // std::string_view compares its characters as unsigned bytes, as BINARY does.
        const int order = left.bytes.compare(right.bytes);
        return compareNumbers(order, 0);
    }
    }
}

} // namespace

MediaRowOrder::MediaRowOrder(const SqliteStatement& row, std::vector<bool> descending)
    : m_descending(std::move(descending))
{
    m_values.reserve(m_descending.size());
    m_bytes.reserve(m_descending.size());   // no reallocation: the views below stay valid
    for (size_t column = 0; column < m_descending.size(); ++column) {
        SqliteStatement::Value value = row.value(int(column));
        m_bytes.emplace_back(value.bytes);
        value.bytes = m_bytes.back();
        m_values.push_back(value);
    }
}

int MediaRowOrder::compareWith(const SqliteStatement& other) const
{
    for (size_t column = 0; column < m_values.size(); ++column) {
        const int order = compareValues(other.value(int(column)), m_values[column]);
        if (order != 0)
            return m_descending[column] ? -order : order;
    }
    return 0;
}
