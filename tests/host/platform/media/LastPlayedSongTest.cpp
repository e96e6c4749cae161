// The last played song: kept in the database for a later reader, journaled
// like every metadata write, and refused softly where nothing may be written.

#include <gtest/gtest.h>

#include <QJsonArray>

#include "host/platform/media/database/MediaDatabase.h"
#include "platform/Metadata.h"
#include "tests/support/TestEnvironment.h"

namespace {

class LastPlayedSongTest : public TestEnvironment {
protected:
    void TearDown() override
    {
        qunsetenv("MP_DATA_READ_ONLY");
        TestEnvironment::TearDown();
    }

    static std::optional<MediaLastPlayedSong> stored()
    {
        std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        return database ? database->lastPlayedSong() : std::nullopt;
    }
};

TEST_F(LastPlayedSongTest, Save_ReplacesTheEarlierSongAndIsJournaled)
{
    EXPECT_FALSE(stored()) << "none before the first save";
    EXPECT_EQ(saveLastPlayedSong("/m/first.mp3", 4), 1);
    // UTF-8, as every path the database holds: a name outside Latin-1 stays whole.
    EXPECT_EQ(saveLastPlayedSong("/m/02 \xce\xa9 caf\xc3\xa9.wav", 0), 1);
    EXPECT_EQ(saveLastPlayedSong(nullptr, 2), 0);

    const std::optional<MediaLastPlayedSong> song = stored();
    ASSERT_TRUE(song);
    EXPECT_EQ(song->path.toStdString(), "/m/02 \u03a9 caf\u00e9.wav");
    EXPECT_EQ(song->position, 0);
    const QList<QJsonObject> lines = journalLines("metadata", "saveLastPlayedSong");
    ASSERT_EQ(lines.size(), 2) << "a call without a path writes nothing";
    EXPECT_EQ(lines.at(0).value("args").toArray(), (QJsonArray{"/m/first.mp3", 4}));
    EXPECT_EQ(lines.at(1).value("written"), true);
}

TEST_F(LastPlayedSongTest, ReadOnlyDataFolder_RefusedAndJournaledAsNotWritten)
{
    {
        // Stored beforehand by another connection: the library's own one opens read-only.
        std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database && database->setLastPlayedSong({"/m/kept.mp3", 1}));
    }
    qputenv("MP_DATA_READ_ONLY", "1");
    testing::internal::CaptureStderr();
    EXPECT_EQ(saveLastPlayedSong("/m/new.mp3", 2), 0);
    testing::internal::GetCapturedStderr();

    EXPECT_EQ(journalLines("metadata", "saveLastPlayedSong").last().value("written"), false);
    const std::optional<MediaLastPlayedSong> song = stored();
    ASSERT_TRUE(song);
    EXPECT_EQ(song->path, "/m/kept.mp3");
}

} // namespace
