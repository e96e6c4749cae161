// A Bluetooth headset end to end: a player started by its key resumes the
// last list and waits for the play key. (What each key does is the
// Bluetooth client's test.)

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

TEST(BluetoothScenarioTest, LaunchedByKey_OnlyThePauseKeyCountsUntilItIsPressed)
{
    ScenarioRun scenario;
    ASSERT_TRUE(scenario.scanSampleLibrary());
    ASSERT_EQ(scenario.runText("action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 \"Album=Paper Boats\" "
                               "isAllGenre=1 isAllComposer=1 FirstIndex=0 StorageLocation=2\nquit\n"),
              0)
        << qPrintable(scenario.errorOutput());
    // The launch action, not a later request: a running player keeps its list.
    ASSERT_EQ(scenario.run(ScenarioRun::script("bt_launched_by_key.mps"),
                           {"--action", "PlayMediaInMediaPlayer", "Launcher=BTAvrcpKeys"}),
              0)
        << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.calls().filter("control:"), (QStringList{"control:playPause", "control:next"}));
}

TEST(BluetoothScenarioTest, LinkWhileBluetoothIsOff_StopsTheScript)
{
    ScenarioRun scenario;
    EXPECT_EQ(scenario.runText("bt link stereo\n"), 2);
    EXPECT_TRUE(scenario.errorOutput().contains("text.mps:1: bt: no headset link while Bluetooth is off"))
        << qPrintable(scenario.errorOutput());
}

} // namespace
