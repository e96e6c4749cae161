// A statement that does not prepare fails where it is used, and never hands
// SQLite a null statement.

#include "host/platform/media/database/SqliteStatement.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

TEST(SqliteStatementTest, AStatementThatDidNotPrepareFailsEveryUseWithoutCrashing)
{
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, "CREATE TABLE media (id INTEGER)", nullptr, nullptr, nullptr), SQLITE_OK);
    {
        SqliteStatement query(db, "SELECT file_modified FROM media WHERE id = ?1");
        EXPECT_FALSE(query.isValid());
        query.bind(1, qint64(7));
        query.bind(2, QStringLiteral("text"));
        query.bindNull(3);
        EXPECT_EQ(query.step(), SqliteStatement::Step::Error);
        query.reset();
        EXPECT_FALSE(query.run());
        EXPECT_TRUE(query.isNull(0));
        EXPECT_EQ(query.int64(0), 0);
    }
    sqlite3_close(db);
}
