// The main window with lists: installing, replacing and releasing them.

#include <QJsonArray>
#include <QPointer>

#include <memory>

#include "host/platform/HostJournal.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/PathList.h"
#include "tests/support/SongBuilder.h"

namespace {

class MP_MainWindowListTest : public MainWindowFixture {
protected:
    void SetUp() override
    {
        MainWindowFixture::SetUp();
        std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        for (int i = 0; i < 3; ++i) {
            const QString number = QString::number(i);
            ASSERT_NE(database->addMedia(song("/music/song" + number + ".mp3").title("Song " + number).artist("Band")), 0u);
        }
        // A file passed at creation keeps the start-up from installing a list.
        create(QStringLiteral("/music/song0.mp3"));
        ASSERT_TRUE(waitForEngine());
    }
};

TEST_F(MP_MainWindowListTest, TheCurrentListAgainOrALauncherOnARunningPlayer_OnlyShowsThePlayer)
{
    MP_AufList* list = new MP_AufList();
    window->setList(list, false, false, false, true, MP_LAUNCH_LIST);
    ASSERT_EQ(window->currentList(), list);
    HostJournal::startCapture();

    window->handleLauncherRequest(QStringLiteral("HomeScreen"));
    EXPECT_EQ(window->currentList(), list);
    window->setList(list, true, true, true, true, MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_EQ(window->launchType(), MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_EQ(journal().size(), 2) << "nothing saved, nothing replaced";
    EXPECT_EQ(journalCalls(), (QStringList{"engine:showPlayer", "engine:showPlayer"}));
}

TEST_F(MP_MainWindowListTest, AListChange_QuitsThePlayerOnlyWhenTheEnginesListRanEmpty)
{
    window->setList(new MP_AufList(), false, false, false, true, MP_LAUNCH_LIST);
    // The engine plays a list of its own, with one song left in it.
    PathList lastSong({QStringLiteral("/music/song1.mp3")});
    window->commonPlayer()->setPlayList(&lastSong);
    window->onCurrentItemChanged();
    EXPECT_EQ(journalLines("engine", "notifyCurrentChanged").size(), 1);
    EXPECT_TRUE(journalLines("engine", "closePlayerWindow").isEmpty());

    window->freeCurrentList();
    EXPECT_EQ(journalArgs("engine", "setPlayList").last(), QJsonArray{QJsonValue()});
    window->onCurrentItemChanged();
    EXPECT_EQ(journalLines("engine", "closePlayerWindow").size(), 1);
}

TEST_F(MP_MainWindowListTest, FreeCurrentList_SavesThePlayedSongsToTheHistory)
{
    window->setList(new MP_AufList(), false, false, false, true, MP_LAUNCH_LIST);
    MP_RecentList::getAudioList()->addItem(QStringLiteral("/music/song1.mp3"));
    MP_RecentList::getAudioList()->addItem(QStringLiteral("/music/song2.mp3"));
    window->freeCurrentList();
    EXPECT_TRUE(MP_RecentList::getAudioList()->paths().isEmpty());
    // In the order the history's own test checks.
    EXPECT_EQ(MP_AufList(METADATA_AUDIO_HISTORY_GROUP_ID, METADATA_GROUP_PLAY_HISTORY, 2, 0, QString()).count(), 2u);
}

} // namespace
