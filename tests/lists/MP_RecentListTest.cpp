#include "lists/MP_RecentList.h"

#include <memory>

#include "host/platform/media/database/MediaDatabase.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_RecentListTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        MP_AufContext::shuffle = 0;
        MP_AufContext::isRepeat = false;
    }
};

TEST_F(MP_RecentListTest, AddItem_MovesARepeatToTheNewestPlaceAndKeepsFifteen_SaveToDBFillsTheHistoryNewestFirst)
{
    EXPECT_EQ(MP_RecentList(MP_CONTENT_VIDEO).groupId(), 3u) << "the video history's group";
    MP_RecentList recent(MP_CONTENT_SOUND);
    recent.addItem("A");
    recent.addItem("B");
    recent.addItem("A");
    EXPECT_EQ(recent.paths(), (QStringList{"B", "A"}));
    for (int i = 0; i < 16; ++i)
        recent.addItem(QStringLiteral("song%1").arg(i));
    ASSERT_EQ(recent.paths().size(), 15);
    EXPECT_EQ(recent.paths().first() + ' ' + recent.paths().last(), "song1 song15");

    EXPECT_EQ(MP_RecentList::getRecentList(MP_CONTENT_VIDEO), MP_RecentList::getVideoList());
    EXPECT_EQ(MP_RecentList::getRecentList(MP_CONTENT_UNKNOWN), nullptr);

    // Saved, the history group holds the songs of the database, newest first.
    std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
    ASSERT_TRUE(database);
    for (const char* name : {"one", "two", "three"})
        ASSERT_NE(database->addMedia(song(QStringLiteral("/music/%1.mp3").arg(name)).title(name)), 0u);
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

    MP_AufList history(METADATA_AUDIO_HISTORY_GROUP_ID, METADATA_GROUP_PLAY_HISTORY, 2, 0, QString());
    ASSERT_EQ(history.count(), 3u);
    EXPECT_EQ(QStringList({history.getItem(0), history.getItem(1), history.getItem(2)}),
              QStringList({"/music/one.mp3", "/music/three.mp3", "/music/two.mp3"}));
    EXPECT_EQ(journalLines("metadata", "metadataAddItemsIntoGroup").size(), 4);
}

} // namespace
