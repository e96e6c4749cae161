#pragma once
// The media database's tables, built up one step per schema version. A new
// database runs every step; an older one runs the steps it has not had. The
// version is SQLite's user_version.

#include <QString>

struct sqlite3;

class MediaDatabaseSchema {
public:
    /** The version a database has after upgrade(). */
    static int currentVersion();
    /** Runs the missing steps, each in its own transaction; returns false (leaving the
     *  database at the last complete version) and names the problem in @p problem when
     *  one fails, when the database is newer than this program, when the file holds
     *  another program's tables rather than a media database, or when one of its
     *  tables lacks a column this program uses (a damaged schema). */
    static bool upgrade(sqlite3* db, QString* problem);
    /** Whether the database is a media database of this program's version, as a
     *  connection that may not write needs it; else names the problem. */
    static bool isCurrent(sqlite3* db, QString* problem);
    /** The database's version, -1 when it cannot be read. */
    static int versionOf(sqlite3* db);
};
