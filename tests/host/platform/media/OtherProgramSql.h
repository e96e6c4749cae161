#pragma once
// The media database file as another program reaches it: a plain SQLite
// connection without this program's code, as the sqlite3 shell would open.

#include <sqlite3.h>

#include <QByteArray>
#include <QFile>

#include <gtest/gtest.h>

#include "host/platform/media/database/MediaDatabase.h"

/** Runs @p sql on the default database file through a connection of its own;
 *  whether it ran (a failure is also reported with SQLite's words). */
inline bool runAsOtherProgram(const QByteArray& sql)
{
    sqlite3* db = nullptr;
    const bool ran = sqlite3_open(QFile::encodeName(MediaDatabase::defaultFile()).constData(), &db) == SQLITE_OK
                     && sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    if (!ran)
        ADD_FAILURE() << "cannot run " << sql.constData() << ": " << sqlite3_errmsg(db);
    sqlite3_close(db);
    return ran;
}
