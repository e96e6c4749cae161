#include <gtest/gtest.h>

#include <QJsonObject>

#include <tuple>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "platform/Metadata.h"
#include "tests/host/platform/media/MetadataTestLibrary.h"
#include "tests/support/TestEnvironment.h"

using LastPlayedListTest = TestEnvironment;

TEST_F(LastPlayedListTest, SaveGetFree_RoundTripsNullAndUtf8Strings_ANewSaveReplacesTheOld)
{
    LastPlayedListRecord read = lastPlayedRecord(7);
    EXPECT_EQ(getLastPlayedList(&read), 0);       // nothing stored: the record stays as it was
    EXPECT_EQ(read.firstIndex, 7);

    char artist[] = "Bj\xc3\xb6rk";        // UTF-8
    char genre[] = "Folk and more";
    LastPlayedListRecord saved = lastPlayedRecord();
    saved.listType = 6;
    saved.artist = artist;
    saved.artistLength = 6;
    saved.genre = genre;
    saved.genreLength = 4;                 // the length given counts: "Folk"
    saved.storageLocation = 1;
    saved.firstIndex = 3;
    // Journaled as the launch scenario reads it.
    ASSERT_NE(saveLastPlayedList(&saved), 0);

    ASSERT_NE(getLastPlayedList(&read), 0);
    // Artist, genre, whether album and composer are null; listType, artistLength, genreLength, albumLength,
    // groupObjectId, storageLocation, firstIndex.
    EXPECT_EQ(std::tuple(QByteArray(read.artist), QByteArray(read.genre), !read.album && !read.composer,
                         read.listType, read.artistLength, read.genreLength, read.albumLength,
                         read.groupObjectId, read.storageLocation, read.firstIndex),
              std::tuple("Bj\xc3\xb6rk", "Folk", true, 6, 6, 4, 0, uint32_t(-1), 1, 3));
    freeLastPlayedList(&read);
    EXPECT_TRUE(!read.artist && !read.genre);
    freeLastPlayedList(&read);             // twice is harmless

    // A new save replaces the old one whole.
    LastPlayedListRecord user = lastPlayedRecord();
    user.listType = 0;
    user.groupObjectId = 12;
    user.firstIndex = 4;
    ASSERT_NE(saveLastPlayedList(&user), 0);

    // What a second run of the application reads: the file itself.
    const std::unique_ptr<MediaDatabase> later = MediaDatabase::open(MediaDatabase::defaultFile());
    ASSERT_TRUE(later);
    const std::optional<MediaLastPlayedList> stored = later->lastPlayedList();
    ASSERT_TRUE(stored);
    EXPECT_EQ(std::tuple(bool(stored->artist), stored->listType, stored->groupId, stored->firstIndex),
              std::tuple(false, 0, 12u, 4));
}

TEST_F(LastPlayedListTest, DatabaseLockedByAnotherProgram_SaveFailsAndTheJournalSaysSo)
{
    LastPlayedListRecord record = lastPlayedRecord();
    record.listType = 0;
    ASSERT_EQ(saveLastPlayedList(&record), 1);

    // As another program would: a connection holding the write lock.
    std::unique_ptr<MediaDatabase> other = MediaDatabase::open(MediaDatabase::defaultFile());
    ASSERT_TRUE(other);
    {
        const std::unique_ptr<SqliteTransaction> holding = other->beginTransaction();
        ASSERT_TRUE(holding->isActive());
        record.firstIndex = 9;
        EXPECT_EQ(saveLastPlayedList(&record), 0) << "the lock is not waited out";
    }
    const QJsonObject line = journalLines("metadata", "saveLastPlayedList").last();
    EXPECT_EQ(line.value("written"), false) << "journaled as refused, not as saved";
    EXPECT_EQ(line.value("args").toArray().at(0).toObject().value("firstIndex"), 9);
    LastPlayedListRecord read = lastPlayedRecord();
    ASSERT_EQ(getLastPlayedList(&read), 1);
    EXPECT_EQ(read.firstIndex, -1) << "the earlier list is still the stored one";
    freeLastPlayedList(&read);
}

// The last played song: that a new save replaces the earlier is the log's test of missing songs,
// its journal the media browser client's, its refusal the read-only folder's.
TEST_F(LastPlayedListTest, LastPlayedSong_AUtf8PathStaysWhole_ACallWithoutAPathWritesNothing)
{
    // UTF-8, as every path the database holds: a name outside Latin-1 stays whole.
    EXPECT_EQ(saveLastPlayedSong("/m/02 \xce\xa9 caf\xc3\xa9.wav", 4), 1);
    EXPECT_EQ(saveLastPlayedSong(nullptr, 2), 0);

    const MediaLastPlayedSong song =
        MediaDatabase::open(MediaDatabase::defaultFile())->lastPlayedSong().value_or(MediaLastPlayedSong());
    EXPECT_EQ(std::tuple(song.path.toStdString(), song.position), std::tuple("/m/02 \u03a9 caf\u00e9.wav", 4));
    EXPECT_EQ(journalArgs("metadata", "saveLastPlayedSong").size(), 1);
}
