#include "host/platform/media/database/SqliteStatement.h"

#include <sqlite3.h>

#include "host/platform/media/database/MetadataLog.h"

SqliteStatement::SqliteStatement(sqlite3* db, const QByteArray& sql) : m_db(db), m_sql(sql)
{
    if (sqlite3_prepare_v3(db, sql.constData(), int(sql.size()), SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr)
        != SQLITE_OK) {
        qCWarning(lcMetadata) << "cannot prepare" << sql << ":" << sqlite3_errmsg(db);
        m_statement = nullptr;
    }
}

SqliteStatement::~SqliteStatement()
{
    sqlite3_finalize(m_statement);
}

// A statement that did not prepare (a damaged schema) takes its values and
// resets as a no-op and fails every step: the caller sees an error, and
// nothing reaches SQLite with a null statement, which some of its calls
// dereference.

void SqliteStatement::bind(int index, qint64 value)
{
    if (!isValid())
        return;
    sqlite3_bind_int64(m_statement, index, value);
}

void SqliteStatement::bind(int index, const QString& text)
{
    bindUtf8(index, text.toUtf8());
}

void SqliteStatement::bindUtf8(int index, const QByteArray& utf8)
{
    if (!isValid())
        return;
    // A null QByteArray still binds the empty text: every text column is NOT NULL.
    sqlite3_bind_text(m_statement, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void SqliteStatement::bindNull(int index)
{
    if (!isValid())
        return;
    sqlite3_bind_null(m_statement, index);
}

SqliteStatement::Step SqliteStatement::step()
{
    if (!isValid()) {
        qCWarning(lcMetadata) << "statement not prepared:" << m_sql;
        return Step::Error;
    }
    const int result = sqlite3_step(m_statement);
    if (result == SQLITE_ROW)
        return Step::Row;
    if (result == SQLITE_DONE)
        return Step::Done;
    // A write on a connection opened read-only (the data folder is) fails as
    // it must; that nothing will be saved was said once, when it was opened.
    if (result != SQLITE_READONLY || sqlite3_db_readonly(m_db, "main") != 1)
        qCWarning(lcMetadata) << "statement failed:" << sqlite3_sql(m_statement) << ":" << sqlite3_errmsg(m_db);
    return Step::Error;
}

bool SqliteStatement::run()
{
    Step result = step();
    while (result == Step::Row)
        result = step();
    reset();
    return result == Step::Done;
}

void SqliteStatement::reset()
{
    if (!isValid())
        return;
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

qint64 SqliteStatement::int64(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

QString SqliteStatement::text(int column) const
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement, column));
}

QByteArray SqliteStatement::utf8(int column) const
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return QByteArray(bytes, sqlite3_column_bytes(m_statement, column));
}

std::string_view SqliteStatement::utf8View(int column) const
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return bytes ? std::string_view(bytes, size_t(sqlite3_column_bytes(m_statement, column))) : std::string_view();
}

SqliteStatement::Value SqliteStatement::value(int column) const
{
    Value value;
    switch (sqlite3_column_type(m_statement, column)) {
    case SQLITE_INTEGER:
        value.kind = Value::Kind::Integer;
        value.integer = sqlite3_column_int64(m_statement, column);
        break;
    case SQLITE_FLOAT:
        value.kind = Value::Kind::Real;
        value.real = sqlite3_column_double(m_statement, column);
        break;
    case SQLITE_TEXT:
        value.kind = Value::Kind::Text;
        value.bytes = utf8View(column);
        break;
    case SQLITE_BLOB: {
        value.kind = Value::Kind::Blob;
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
        if (bytes)
            value.bytes = std::string_view(bytes, size_t(sqlite3_column_bytes(m_statement, column)));
        break;
    }
    default:
        break;
    }
    return value;
}

bool SqliteStatement::isNull(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}
