// The main window's events end to end: the flip and the end key, the setup
// keys, the memory card and the jump key, as the phone delivers them.

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

const QStringList kPlayAuroraLane{"--action", "PlayMusicListInMediaplayer", "isAllArtist=0", "Artist=Aurora Lane",
                                  "isAllAlbum=1", "isAllGenre=1", "isAllComposer=1", "FirstIndex=0",
                                  "StorageLocation=2", "ShuffleAllSongs=0"};
const QStringList kPlayVideos{"--action", "PlayVideoInMediaplayer", "SelectionType=All", "StorageLocation=2"};

class EventsScenarioTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(scenario.scanSampleLibrary()); }

    int run(const char* script, const QStringList& launch)
    {
        return scenario.run(ScenarioRun::script(QLatin1String(script)), launch);
    }
    bool quitAt(const char* script, int line) const
    {
        return scenario.errorOutput().contains(
            QStringLiteral("%1:%2: the player quit; the script ends here").arg(QLatin1String(script)).arg(line));
    }
    // "kind:call" of the calls that show how the player left or stayed.
    QStringList exits() const
    {
        static const QStringList kept{"app:askReturnToIdle", "engine:flipClosed", "engine:closePlayerWindow",
                                      "display:beginSession", "display:endSession", "control:next",
                                      "engine:MP_DestroyCommonPlayer"};
        QStringList story;
        for (const QString& call : scenario.calls()) {
            if (kept.contains(call))
                story << call;
        }
        return story;
    }
    // The settings written, "KEY=VALUE", in order.
    QStringList settingsWritten() const
    {
        QStringList writes;
        for (const QJsonObject& line : scenario.journal()) {
            if (line.value("kind").toString() == "settings")
                writes << line.value("key").toString() + '=' + line.value("value").toVariant().toString();
        }
        return writes;
    }

    ScenarioRun scenario;
};

TEST_F(EventsScenarioTest, FlipClosedWhileMusicPlays_HidesAndTheExternalDisplayDrivesThePlayer)
{
    ASSERT_EQ(run("events_flip_closed.mps", kPlayAuroraLane), 0) << qPrintable(scenario.errorOutput());
    EXPECT_FALSE(scenario.errorOutput().contains("quit")) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(exits(), (QStringList{"display:beginSession", "app:askReturnToIdle", "engine:flipClosed",
                                    "engine:closePlayerWindow", "control:next", "display:endSession",
                                    "engine:MP_DestroyCommonPlayer"}));
    EXPECT_EQ(settingsWritten(), (QStringList{"HidePlaying=true", "HidePlaying=false"}));
}

TEST_F(EventsScenarioTest, FlipClosedWhileAVideoPlays_Quits)
{
    ASSERT_EQ(run("events_flip_closed.mps", kPlayVideos), 0) << qPrintable(scenario.errorOutput());
    EXPECT_TRUE(quitAt("events_flip_closed.mps", 7)) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(exits(), (QStringList{"display:beginSession", "app:askReturnToIdle", "engine:closePlayerWindow",
                                    "display:endSession", "engine:MP_DestroyCommonPlayer"}));
    EXPECT_EQ(settingsWritten(), QStringList{"HidePlaying=false"}) << "written once, when the window goes";
}

TEST_F(EventsScenarioTest, EndKey_QuitsAFocusedPlayer_HidesAgainWithoutTheFocus)
{
    ASSERT_EQ(run("events_end_key_focused.mps", kPlayAuroraLane), 0) << qPrintable(scenario.errorOutput());
    EXPECT_TRUE(quitAt("events_end_key_focused.mps", 4)) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(exits(), (QStringList{"app:askReturnToIdle", "engine:closePlayerWindow", "engine:MP_DestroyCommonPlayer"}));
    EXPECT_EQ(scenario.argsOf("app", "askReturnToIdle"), QList<QJsonArray>{QJsonArray{-5000}});

    ScenarioRun hidden;
    ASSERT_TRUE(hidden.scanSampleLibrary());
    ASSERT_EQ(hidden.run(ScenarioRun::script("events_end_key_hidden.mps"), kPlayAuroraLane), 0)
        << qPrintable(hidden.errorOutput());
    EXPECT_FALSE(hidden.errorOutput().contains("quit")) << qPrintable(hidden.errorOutput());
    EXPECT_EQ(hidden.argsOf("engine", "flipClosed").size(), 1) << "the flip-closed handling ran";
    EXPECT_EQ(hidden.argsOf("engine", "closePlayerWindow").size(), 2) << "hidden twice, never quit";
}

TEST_F(EventsScenarioTest, ShuffleAndRepeatKeys_WriteTheSettingsAndTellTheEngine)
{
    ASSERT_EQ(run("events_setup_keys.mps", kPlayAuroraLane), 0) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.argsOf("report", "SetupKeyEvent"),
              (QList<QJsonArray>{{0x4002, true}, {0x4002, false}, {0x4003, true}, {0x4003, false}}));
    EXPECT_EQ(settingsWritten(),
              (QStringList{"MusicShuffle=1", "MusicRepeat=true", "MusicShuffle=0", "HidePlaying=false"}));
    // The first call is the list's installation with the stored modes.
    EXPECT_EQ(scenario.argsOf("engine", "setShuffleRepeat"),
              (QList<QJsonArray>{{false, false}, {true, false}, {false, true}}));
}

TEST_F(EventsScenarioTest, CardRemovedWhilePlaying_AnnouncedOnTheSystemChannel_Quits)
{
    ASSERT_EQ(run("events_card_removed.mps", kPlayAuroraLane), 0) << qPrintable(scenario.errorOutput());
    EXPECT_TRUE(quitAt("events_card_removed.mps", 4)) << qPrintable(scenario.errorOutput());
    QStringList hotplug;
    for (const QJsonObject& line : scenario.journal()) {
        if (line.value("message").toString() == "cardHotplugEvent(int,int)")
            hotplug << line.value("channel").toString() + ' ' + line.value("data").toString();
    }
    EXPECT_EQ(hotplug, QStringList{"VEMO/System 0000000100000000"});
    EXPECT_EQ(scenario.argsOf("phone", "setMemoryCard"), QList<QJsonArray>{QJsonArray{false}});
    EXPECT_EQ(exits(), (QStringList{"engine:closePlayerWindow", "engine:MP_DestroyCommonPlayer"}));
}

TEST_F(EventsScenarioTest, JumpKeyWhileAVideoPlays_Quits)
{
    ASSERT_EQ(run("events_jump_video.mps", kPlayVideos), 0) << qPrintable(scenario.errorOutput());
    EXPECT_TRUE(quitAt("events_jump_video.mps", 7)) << qPrintable(scenario.errorOutput());
    EXPECT_EQ(exits(), (QStringList{"engine:closePlayerWindow", "engine:MP_DestroyCommonPlayer"}));
}

} // namespace
