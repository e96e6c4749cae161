// A Bluetooth headset end to end: its keys arrive on the key-event channel,
// the playback control's calls and the audio route's changes are journaled.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/scenarios/ScenarioRun.h"

namespace {

using Lines = std::vector<std::string>;

std::string compact(const QJsonArray& array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

class BluetoothScenarioTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(scenario.scanSampleLibrary()); }

    void run(const char* script)
    {
        ASSERT_EQ(scenario.run(ScenarioRun::script(QString::fromLatin1(script))), 0)
            << qPrintable(scenario.errorOutput());
    }

    // "kind call args" of the journal lines of the given kinds, in order.
    Lines calls(const QStringList& kinds) const
    {
        Lines lines;
        for (const QJsonObject& line : scenario.journal()) {
            if (kinds.contains(line.value("kind").toString()) && line.contains("call"))
                lines.push_back(line.value("kind").toString().toStdString() + ' ' + line.value("call").toString().toStdString()
                                + ' ' + compact(line.value("args").toArray()));
        }
        return lines;
    }

    // "1016 1017" visibility of every menu journaled, as "shown/shown".
    Lines routeEntries() const
    {
        Lines lines;
        for (const QJsonObject& line : scenario.journal()) {
            if (line.value("kind").toString() != "menu")
                continue;
            std::string shown;
            for (const QJsonValue& item : line.value("items").toArray()) {
                const int id = item.toObject().value("id").toInt();
                if (id == 1016 || id == 1017)
                    shown += std::string(shown.empty() ? "" : "/") + (item.toObject().value("visible").toBool() ? "on" : "off");
            }
            lines.push_back(shown);
        }
        return lines;
    }

    ScenarioRun scenario;
};

TEST_F(BluetoothScenarioTest, NextKeyOnTheLastSong_AsksTheEngineWithoutRestartingTheAlbum)
{
    run("bt_next_at_end.mps");
    EXPECT_EQ(calls({"control"}), Lines{"control next []"});
    // The start-up plays the library's first song; then the album's last, and
    // nothing after it.
    EXPECT_EQ(scenario.titlesPlayed().join(" | ").toStdString(), "Afterglow | Lanterns");
}

TEST_F(BluetoothScenarioTest, HeldForwardKey_ThreeSeeksOnTheManualClockThenFinished)
{
    run("bt_hold_seek.mps");
    EXPECT_EQ(calls({"control"}), (Lines{"control seek [5000]", "control seek [5000]", "control seek [5000]",
                                         "control seekFinished []"}))
        << "and nothing of the next key sent while the phone was locked";
    EXPECT_EQ(calls({"phone"}), (Lines{"phone setPhoneLockStatus [1]", "phone setPhoneLockStatus [0]"}));
}

TEST_F(BluetoothScenarioTest, RouteEntries_FollowPowerAndLinkAndChoosingOneMovesTheRoute)
{
    run("bt_route_menu.mps");
    EXPECT_EQ(routeEntries(), (Lines{"off/off", "on/off", "off/on", "off/on", "off/off"}));
    EXPECT_EQ(calls({"phone", "service"}),
              (Lines{"phone setBluetoothPower [true]", "service attachAudioAccy [0]",
                     "phone setBluetoothLink [\"stereo\"]", "service detachAudioAccy [0]",
                     "phone setBluetoothLink [\"none\"]", "phone setBluetoothLink [\"mono\"]",
                     "phone setBluetoothPower [false]", "phone setBluetoothLink [\"none\"]"}));
}

TEST_F(BluetoothScenarioTest, LaunchedByKey_OnlyThePauseKeyCountsUntilItIsPressed)
{
    ASSERT_EQ(scenario.runText("action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 \"Album=Paper Boats\" "
                               "isAllGenre=1 isAllComposer=1 FirstIndex=0 StorageLocation=2\nquit\n"),
              0)
        << qPrintable(scenario.errorOutput());
    // The launch action, not a later request: a running player keeps its list.
    ASSERT_EQ(scenario.run(ScenarioRun::script("bt_launched_by_key.mps"),
                           {"--action", "PlayMediaInMediaPlayer", "Launcher=BTAvrcpKeys"}),
              0)
        << qPrintable(scenario.errorOutput());
    EXPECT_EQ(calls({"control"}), (Lines{"control playPause []", "control next []"}));
}

TEST_F(BluetoothScenarioTest, LinkWhileBluetoothIsOff_StopsTheScript)
{
    EXPECT_EQ(scenario.runText("bt link stereo\n"), 2);
    EXPECT_TRUE(scenario.errorOutput().contains("text.mps:1: bt: no headset link while Bluetooth is off"))
        << qPrintable(scenario.errorOutput());
}

} // namespace
