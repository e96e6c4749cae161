#include "host/platform/media/database/SqliteTransaction.h"

#include <sqlite3.h>

#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/database/SqliteStatement.h"

SqliteTransaction::SqliteTransaction(sqlite3* db, Kind kind, StatementSource statements)
    : m_db(db), m_kind(kind), m_statements(std::move(statements)), m_isOutermost(sqlite3_get_autocommit(db) != 0),
      m_isActive(false)
{
    const char* begin = kind == Kind::Read ? "BEGIN DEFERRED" : "BEGIN IMMEDIATE";
    m_isActive = execute(m_isOutermost ? begin : "SAVEPOINT nested");
}

SqliteTransaction::~SqliteTransaction()
{
    if (!m_isActive)
        return;
    // Rare (a failure, an early return): parsed, as the two statements of a
    // nested rollback must be.
    if (m_isOutermost)
        executeParsed("ROLLBACK");
    else
        executeParsed("ROLLBACK TO nested; RELEASE nested");
}

bool SqliteTransaction::commit()
{
    if (!m_isActive)
        return false;
    if (!execute(m_isOutermost ? "COMMIT" : "RELEASE nested"))
        return false;
    m_isActive = false;
    return true;
}

bool SqliteTransaction::execute(const char* sql)
{
    if (!m_statements)
        return executeParsed(sql);
    // Each of these SQL texts is a literal: the kept statement may name it without a copy.
    return m_statements(QByteArray::fromRawData(sql, qsizetype(qstrlen(sql)))).run();
}

bool SqliteTransaction::executeParsed(const char* sql)
{
    char* message = nullptr;
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, &message) == SQLITE_OK)
        return true;
    const bool isExpected = m_kind == Kind::WriteIfFree && sqlite3_errcode(m_db) == SQLITE_BUSY;
    if (!isExpected)
        qCWarning(lcMetadata) << sql << "failed:" << (message ? message : sqlite3_errmsg(m_db));
    sqlite3_free(message);
    return false;
}
