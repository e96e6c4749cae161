#include "lists/MP_RecentList.h"

#include <memory>

#include "host/platform/media/database/MediaDatabase.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

using MP_RecentListTest = TestEnvironment;

TEST_F(MP_RecentListTest, AddItem_MovesARepeatToTheNewestPlaceAndKeepsFifteen_SaveToDBFillsTheHistoryNewestFirst)
{
    MP_RecentList recent(MP_CONTENT_SOUND);
    recent.addItem("A");
    recent.addItem("B");
    recent.addItem("A");
    EXPECT_EQ(recent.paths(), (QStringList{"B", "A"}));
    for (int i = 0; i < 16; ++i)
        recent.addItem(QStringLiteral("song%1").arg(i));
    ASSERT_EQ(recent.paths().size(), 15);
    EXPECT_EQ(recent.paths().first() + ' ' + recent.paths().last(), "song1 song15");

    // Saved, the history group holds the songs of the database, newest first.
    std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
    ASSERT_TRUE(database);
    QList<quint32> ids;
    for (const char* name : {"one", "two", "three"})
        ids << database->addMedia(song(QStringLiteral("/music/%1.mp3").arg(name)).title(name));
    MP_RecentList played(MP_CONTENT_SOUND);
    played.saveToDB();
    EXPECT_TRUE(journal().isEmpty()) << "an empty collector writes nothing";

    played.addItem("/music/one.mp3");
    played.addItem("/music/unknown.mp3");  // not in the database: dropped
    played.addItem("/music/two.mp3");
    played.addItem("/music/three.mp3");
    played.saveToDB();
    played.addItem("/music/one.mp3");  // played again: to the front
    played.saveToDB();

    EXPECT_EQ(database->groupMembers(METADATA_AUDIO_HISTORY_GROUP_ID), (QList<quint32>{ids[0], ids[2], ids[1]}));
    EXPECT_EQ(journalLines("metadata", "metadataAddItemsIntoGroup").size(), 4);
}

} // namespace
