#pragma once
// A transaction that rolls back unless committed. Transactions nest: the
// outermost one is a real transaction, inner ones are savepoints. A write
// transaction takes the write lock at once, so two writers never deadlock
// upgrading a read; a read transaction gives its reads one snapshot.

#include <QByteArray>

#include <functional>

class SqliteStatement;
struct sqlite3;

class SqliteTransaction {
public:
    /** WriteIfFree is a write transaction for work that can as well be done later:
     *  when another connection holds the write lock it stays inactive without a warning
     *  (the connection's busy wait decides how long it tries). */
    enum class Kind { Write, Read, WriteIfFree };

    /** Gives a statement prepared from the SQL, kept by the database connection. */
    using StatementSource = std::function<SqliteStatement&(const QByteArray& sql)>;

    /** Begins; isActive() tells whether that worked. With @p statements, beginning and
     *  committing run statements prepared once and kept (a search's snapshot costs no
     *  parsing); without, they are parsed at every use. */
    explicit SqliteTransaction(sqlite3* db, Kind kind = Kind::Write, StatementSource statements = {});
    /** Rolls back when commit() was not called (or failed). */
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    bool isActive() const { return m_isActive; }
    /** Makes the changes durable (or hands them to the enclosing transaction);
     *  returns false when that failed, and the destructor then rolls back. */
    bool commit();

private:
    /** Runs one statement of @p sql, a literal, through m_statements when there is one. */
    bool execute(const char* sql);
    /** Runs @p sql, one statement or more, parsed now. */
    bool executeParsed(const char* sql);

    sqlite3* m_db;
    Kind m_kind;
    StatementSource m_statements;
    bool m_isOutermost;
    bool m_isActive;
};
