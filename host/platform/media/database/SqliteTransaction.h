#pragma once
// A transaction that rolls back unless committed. Transactions nest: the
// outermost one is a real transaction, inner ones are savepoints. A write
// transaction takes the write lock at once, so two writers never deadlock
// upgrading a read; a read transaction gives its reads one snapshot.

struct sqlite3;

class SqliteTransaction {
public:
    enum class Kind { Write, Read };

    /** Begins; isActive() tells whether that worked. */
    explicit SqliteTransaction(sqlite3* db, Kind kind = Kind::Write);
    /** Rolls back when commit() was not called (or failed). */
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    bool isActive() const { return m_isActive; }
    /** Makes the changes durable (or hands them to the enclosing transaction);
     *  returns false when that failed, and the destructor then rolls back. */
    bool commit();

private:
    bool execute(const char* sql);

    sqlite3* m_db;
    bool m_isOutermost;
    bool m_isActive;
};
