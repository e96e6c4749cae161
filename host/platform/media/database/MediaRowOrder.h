#pragma once
// Where one row stands in a search's order: the values of its order columns,
// compared with another row's as SQLite's ORDER BY compares them under the
// BINARY collation (NULL first, then numbers by value, then text and then
// blobs byte by byte), each column ascending or descending. Placing a row in
// a kept result reads one row per step of the binary search this way,
// instead of asking SQLite to look up and compare two rows.

#include <optional>
#include <string>
#include <vector>

#include "host/platform/media/database/SqliteStatement.h"

class MediaRowOrder {
public:
    /** The order of the row @p row stands on, from its first @p descending.size()
     *  columns; @p descending says which of them order from high to low. */
    MediaRowOrder(const SqliteStatement& row, std::vector<bool> descending);

    /** -1, 0 or 1 as the row @p other stands on comes before, with or after this
     *  one. */
    int compareWith(const SqliteStatement& other) const;

private:
    std::vector<bool> m_descending;
    std::vector<SqliteStatement::Value> m_values;
    std::vector<std::string> m_bytes;   // what the values' texts point into
};
