#pragma once
// One prepared SQLite statement, finalized with its owner. Values are only
// ever bound, never spliced into the SQL text.

#include <QByteArray>
#include <QString>

#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

class SqliteStatement {
public:
    enum class Step { Row, Done, Error };

    /** Prepares @p sql on @p db; isValid() tells whether that worked. Meant to be kept
     *  and reused (the statement is prepared as persistent). */
    SqliteStatement(sqlite3* db, const QByteArray& sql);
    ~SqliteStatement();
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    /** Whether the statement prepared. One that did not binds and resets nothing,
     *  and every step() of it is an Error. */
    bool isValid() const { return m_statement != nullptr; }

    /** Binds parameter @p index (1-based). Text is bound as UTF-8 and copied. */
    void bind(int index, qint64 value);
    void bind(int index, const QString& text);
    void bindUtf8(int index, const QByteArray& utf8);
    void bindNull(int index);

    /** Steps once; a failure is logged with the statement's SQL. */
    Step step();
    /** Steps to the end, for statements that return nothing; true when it got there. */
    bool run();
    /** Makes the statement ready to run again and clears its bindings. */
    void reset();

    qint64 int64(int column) const;
    QString text(int column) const;
    /** The column's UTF-8 bytes, copied. */
    QByteArray utf8(int column) const;
    /** The column's UTF-8 bytes where SQLite holds them: valid until the next step
     *  or reset. */
    std::string_view utf8View(int column) const;
    bool isNull(int column) const;

    /** A column's value as SQLite holds it, for comparing as SQLite compares. */
    struct Value {
        enum class Kind { Null, Integer, Real, Text, Blob };
        Kind kind = Kind::Null;
        qint64 integer = 0;
        double real = 0;
        std::string_view bytes;   ///< text or blob, where SQLite holds it (see utf8View)
    };
    Value value(int column) const;

private:
    sqlite3* m_db;
    QByteArray m_sql;   // for the warnings of a statement that did not prepare
    sqlite3_stmt* m_statement = nullptr;
};
