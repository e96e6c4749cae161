#include "host/platform/media/database/SqliteTransaction.h"

#include <sqlite3.h>

#include "host/platform/media/database/MetadataLog.h"

SqliteTransaction::SqliteTransaction(sqlite3* db, Kind kind)
    : m_db(db), m_isOutermost(sqlite3_get_autocommit(db) != 0), m_isActive(false)
{
    const char* begin = kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN DEFERRED";
    m_isActive = execute(m_isOutermost ? begin : "SAVEPOINT nested");
}

SqliteTransaction::~SqliteTransaction()
{
    if (!m_isActive)
        return;
    if (m_isOutermost)
        execute("ROLLBACK");
    else
        execute("ROLLBACK TO nested; RELEASE nested");
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
    char* message = nullptr;
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, &message) == SQLITE_OK)
        return true;
    qCWarning(lcMetadata) << sql << "failed:" << (message ? message : sqlite3_errmsg(m_db));
    sqlite3_free(message);
    return false;
}
