#include "tests/support/ProjectProgram.h"
#include "host/platform/media/database/MediaDatabaseSchema.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <QFile>
#include <QStringList>

#include "host/platform/media/database/MediaDatabase.h"
#include "platform/Metadata.h"
#include "tests/host/platform/media/OtherProgramSql.h"
#include "tests/support/QtMessages.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MediaDatabaseSchemaTest : public TestEnvironment {
protected:
    // Opens the database file, returning the warnings the attempt gave.
    static QStringList openWarnings(bool* isOpened)
    {
        const QtMessages warnings;
        *isOpened = MediaDatabase::open(MediaDatabase::defaultFile()) != nullptr;
        return warnings.list();
    }
    // Expects the file to be refused with the one warning that gives @p reason.
    static void expectRefused(const QString& reason)
    {
        bool isOpened = true;
        EXPECT_EQ(openWarnings(&isOpened), QStringList{"cannot use " + MediaDatabase::defaultFile() + " : " + reason});
        EXPECT_FALSE(isOpened);
    }
    static int userVersion()
    {
        sqlite3* db = nullptr;
        EXPECT_EQ(sqlite3_open(QFile::encodeName(MediaDatabase::defaultFile()).constData(), &db), SQLITE_OK);
        const int version = MediaDatabaseSchema::versionOf(db);
        sqlite3_close(db);
        return version;
    }
};

} // namespace

TEST_F(MediaDatabaseSchemaTest, AnotherProgramsDatabaseIsRefusedAndLeftAsItIs)
{
    runAsOtherProgram("CREATE TABLE notes (id INTEGER PRIMARY KEY, text TEXT)");
    expectRefused("the file holds another program's tables (schema version 0), not a media database");
    EXPECT_EQ(userVersion(), 0) << "no step was run on it";

    // A file that claims a version of ours without that version's tables.
    runAsOtherProgram("CREATE TABLE media (id INTEGER PRIMARY KEY); PRAGMA user_version = 2");
    expectRefused("schema version 2 without its table \"groups\": not a media database");

    // The very next version is already one this program cannot know.
    runAsOtherProgram("PRAGMA user_version = 4");
    expectRefused("schema version 4 is newer than this program's 3");
}

TEST_F(MediaDatabaseSchemaTest, ATableWithoutAColumnThisProgramUsesIsRefusedByName)
{
    ASSERT_TRUE(MediaDatabase::open(MediaDatabase::defaultFile()));
    runAsOtherProgram("ALTER TABLE media DROP COLUMN file_modified");
    expectRefused("schema version 3 with a damaged table \"media\" (no such column: file_modified): "
                  "not a media database");

    runAsOtherProgram("ALTER TABLE media ADD COLUMN file_modified INTEGER NOT NULL DEFAULT 0;"
                      "ALTER TABLE groups RENAME COLUMN name TO title");
    expectRefused("schema version 3 with a damaged table \"groups\" (no such column: name): not a media database");
    bool isOpened = true;
    EXPECT_EQ(openWarnings(&isOpened), QStringList()) << "the same refusal is said once";
    EXPECT_EQ(MediaDatabase::lastRefusal(), MediaDatabase::defaultFile()
                                                + ": schema version 3 with a damaged table \"groups\" (no such column: "
                                                  "name): not a media database");
    EXPECT_EQ(metadataCreateClient(nullptr), 0u) << "no client on such a database";
}

TEST_F(MediaDatabaseSchemaTest, AFirstVersionDatabaseIsUpgradedWithItsRows)
{
    // data/metadata-v1.db was made with Python's sqlite3 module: page size 512,
    // schema step 1 of MediaDatabaseSchema.cpp as it stands, two objects
    // ("/m/rain.mp3" with its tags, "/m/clip.mp4"), the user group 4 "Evening"
    // holding object 1, a last-played list of that group, and user_version 1.
    const QString file = MediaDatabase::defaultFile();
    ASSERT_TRUE(QFile::copy(ProjectProgram::sourcePath("tests/host/platform/media/data/metadata-v1.db"), file));
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_EQ(userVersion(), 1);

    std::unique_ptr<MediaDatabase> database = MediaDatabase::open(file);
    ASSERT_TRUE(database);
    EXPECT_EQ(userVersion(), MediaDatabaseSchema::currentVersion());
    EXPECT_EQ(database->mediaCount(), 2);
    const MediaRecord rain = database->mediaById(1).value_or(MediaRecord());
    EXPECT_EQ(QStringList({rain.path, rain.title, rain.artist, rain.album, rain.date,
                           QString::number(rain.track), QString::number(rain.fileModified)}),
              QStringList({"/m/rain.mp3", "Rain", "Aurora Lane", QString::fromUtf8("Kvöldljóð"), "2003-03-14",
                           "2", "1600000000000"}));
    // The clip's kind, the play list's group and member, the last-played list's group.
    EXPECT_EQ(std::tuple(database->mediaById(2)->kind, database->groupBySource("/m/Evening.m3u")->id,
                         database->groupMembers(4), database->lastPlayedList().value_or(MediaLastPlayedList()).groupId),
              std::tuple(MediaKind::Video, 4u, QList<quint32>{1}, 4u));

    // The upgrade's change log starts at 0 and follows the writes after it.
    EXPECT_EQ(database->latestChange(), 0);
    ASSERT_NE(database->addMedia(song("/m/new.mp3")), 0u);
    EXPECT_EQ(database->latestChange(), 1);
}
