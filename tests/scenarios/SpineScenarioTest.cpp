// The spine end to end: the application loads the library, which plays the
// passed file through the engine, shows its player screen's options menu,
// hears the phone's and the engine's reports as a script drives them, and
// tears down in order. Then the script commands that stand in for the phone:
// its keys, flip, lock, memory card and Bluetooth radio; and words refused,
// also against the phone's state.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Journal.h"
#include "tests/support/Payload.h"

namespace {

const QString kSong = QStringLiteral("Music/Aurora Lane/Northern Lights/01 First Light.wav");

// None of these items is disabled; the toolkit reports a hidden item as not
// enabled as well, since it cannot be chosen.
QJsonObject item(int id, int parentId, const char* text, bool visible)
{
    return {{"id", id}, {"parentId", parentId}, {"text", text}, {"visible", visible}, {"enabled", visible}};
}

TEST(SpineScenarioTest, PassedFile_PlaysThroughTheLibrary_ShowsItsSoundMenu_ReportsReachEveryListener_TearsDownInOrder)
{
    ScenarioRun scenario;
    ASSERT_EQ(scenario.run(ScenarioRun::script("play_passed_file.mps"), {kSong}), 0) << qPrintable(scenario.errorOutput());

    const QStringList calls = Journal::calls(scenario.journal());
    const MessageLines engineCalls =
        Journal::callsWithArgsMatching(scenario.journal(), QRegularExpression("^engine:(MP_|set|auto)"));
    ASSERT_GE(engineCalls.size(), 4u);
    EXPECT_EQ(MessageLines(engineCalls.begin(), engineCalls.begin() + 4),
              (MessageLines{"engine:MP_CreateCommonPlayer [false,1]", "engine:setShuffleRepeat [false,false]",
                            "engine:setFile [\"" + kSong.toStdString() + "\"]", "engine:autoPlay [false]"}));

    // Playing once the engine was told to play, then one time report per second of the 6-second song.
    const MessageLines story = Journal::callsWithArgs(scenario.journal(), {"engine", "report"});
    const auto playing = std::find(story.begin(), story.end(), "report:updateState [1]");
    ASSERT_NE(playing, story.end());
    EXPECT_NE(std::find(story.begin(), playing, "engine:autoPlay [false]"), playing);
    EXPECT_EQ(scenario.argsOf("report", "updateTime"),
              (QList<QJsonArray>{{0, 6000}, {1000, 6000}, {2000, 6000}, {3000, 6000}}));

    // The options menu, as the script opened it.
    const QList<QJsonObject> menus = Journal::linesOf(scenario.journal(), "menu", QString());
    ASSERT_EQ(menus.size(), 1);
    EXPECT_EQ(menus.first().value("menu").toString(), QStringLiteral("sound_control"));
    // Not in the media library: no Buy More, no Playlist, and (the ringtone
    // check being on by default) no Ringtone. A fresh data folder has its
    // memory card in and the blog bit on. No Bluetooth client yet: its two
    // items are hidden. A single file plays without a list: no Delete.
    const QJsonArray expected{item(1001, 0, "Hide", true),           item(1002, 0, "Manage", true),
                              item(1004, 1002, "Properties", true),  item(1005, 0, "Delete", false),
                              item(1006, 0, "Remove", false),        item(1007, 0, "Send to", true),
                              item(1008, 1007, "Message", true),     item(1009, 1007, "Email", true),
                              item(1010, 1007, "Blog", true),        item(1011, 1007, "Memory Card", true),
                              item(1012, 1007, "Bluetooth", true),   item(1013, 0, "Apply to", true),
                              item(1014, 1013, "Playlist", false),   item(1015, 1013, "Ringtone", false),
                              item(1016, 0, "Use Bluetooth", false), item(1017, 0, "Use Handset", false),
                              item(1019, 0, "Buy More", false),      item(1018, 0, "Setup", true)};
    const auto compact = [](const QJsonArray& items) { return QJsonDocument(items).toJson(QJsonDocument::Compact); };
    EXPECT_EQ(compact(menus.first().value("items").toArray()).toStdString(), compact(expected).toStdString());

    // The profile and engine commands, then.
    EXPECT_EQ(scenario.argsOf("phone", "setFlexBit"), (QList<QJsonArray>{{492, true}}));
    EXPECT_EQ(scenario.argsOf("engine", "setMediumType"), (QList<QJsonArray>{{2}}));
    const int medium = int(calls.indexOf("engine:setMediumType"));
    ASSERT_GE(medium, 0);
    // Every report reaches each listener: one line a listener, all after the medium changed.
    const int listeners = int(calls.mid(medium + 1).filter("report:updateListInfo").size());
    EXPECT_GE(listeners, 1) << "the list information is reported again";
    EXPECT_EQ(calls.mid(medium).filter("report:updateDownloadProgress").size(), listeners);
    EXPECT_EQ(calls.mid(medium).filter("report:updateDownloadComplete").size(), listeners);
    EXPECT_EQ(scenario.argsOf("report", "updateDownloadProgress").value(0), (QJsonArray{30, 100}));
    EXPECT_EQ(scenario.argsOf("report", "updateState").last(), QJsonArray{2});

    // At quit: the engine goes, then "HidePlaying" = false is the last word.
    EXPECT_LT(calls.indexOf("report:updateState"), calls.indexOf("engine:MP_DestroyCommonPlayer"));
    EXPECT_EQ(scenario.journal().last(), (QJsonObject{{"kind", "settings"}, {"app", 71}, {"group", "MediaControlItem"},
                                                      {"key", "HidePlaying"}, {"value", false}}));
}

TEST(SpineScenarioTest, MissingLibrary_IsAClearErrorNamingIt)
{
    ScenarioRun scenario;
    qputenv("MP_LIBRARY", "/nonexistent/libmp_mainwindow.so");
    const int code = scenario.run(ScenarioRun::script("play_passed_file.mps"));
    qunsetenv("MP_LIBRARY");
    EXPECT_NE(code, 0);
    EXPECT_TRUE(scenario.errorOutput().contains("cannot load /nonexistent/libmp_mainwindow.so"))
        << qPrintable(scenario.errorOutput());
}

TEST(ToolkitScenarioTest, PhoneCommands_EachReachesThePhoneOrThePlayer)
{
    ScenarioRun scenario;
    ASSERT_TRUE(scenario.scanSampleLibrary());
    ASSERT_EQ(scenario.run(ScenarioRun::script("phone_commands.mps"),
                           {"--action", "PlayMusicListInMediaplayer", "isAllArtist=1", "isAllAlbum=0",
                            "Album=Paper Boats", "isAllGenre=1", "isAllComposer=1", "StorageLocation=2"}),
              0)
        << qPrintable(scenario.errorOutput());
    EXPECT_TRUE(scenario.errorOutput().contains("phone_commands.mps:24: the player quit"))
        << qPrintable(scenario.errorOutput());
    const QStringList kept{"phone", "app", "control", "display:beginSession", "display:endSession",
                           "engine:flipClosed", "engine:closePlayerWindow", "engine:showPlayer", "report:SetupKeyEvent",
                           "VEMO/KeyEvent", "VEMO/System", "VEMO/HSFRAMEWORK"};
    QStringList story;
    for (const QJsonObject& line : scenario.journal()) {
        const QString kind = line.value("kind").toString();
        const QString call = kind + ':' + line.value("call").toString();
        const QString channel = line.value("channel").toString();
        if (kept.contains(kind) || kept.contains(call))
            story << call + ' ' + QJsonDocument(line.value("args").toArray()).toJson(QJsonDocument::Compact);
        else if (kept.contains(channel))
            story << channel + ' ' + line.value("message").toString() + ' ' + line.value("data").toString();
    }
    // A new theme restarts the idle screen's plug-in, which draws with the style it started with.
    const QString idlePlugin = QString::fromStdString(payloadHex(QStringLiteral("IdleMusicPlayer")));
    EXPECT_EQ(story.join('\n').toStdString(),
              QStringList({"phone:setFlipStatus [1]", "display:beginSession []", "control:requestUpdate [\"listener\"]",
                           "control:next []", "phone:setFlipStatus [0]", "display:endSession []",
                           "app:askReturnToIdle [-5002]", "app:askReturnToIdle [-5002]", "VEMO/KeyEvent keyMsg(int,int) 0000104900000001",
                           "phone:setPhoneLockStatus [1]", "phone:setPhoneLockStatus [0]",
                           "phone:setBluetoothPower [true]", "phone:setBluetoothLink [\"mono\"]",
                           "phone:setBluetoothPower [false]", "phone:setBluetoothLink [\"none\"]",
                           "report:SetupKeyEvent [16387,false]", "VEMO/System applyStyle() ",
                           "VEMO/HSFRAMEWORK deactivePlugIn() " + idlePlugin,
                           "VEMO/HSFRAMEWORK activePlugIn() " + idlePlugin, "app:clickAppIcon []",
                           "engine:showPlayer []", "VEMO/HSFRAMEWORK activePlugIn() " + idlePlugin,
                           "engine:closePlayerWindow []",
                           "app:askReturnToIdle [-5000]", "engine:flipClosed []", "engine:closePlayerWindow []",
                           "phone:setMemoryCard [false]", "VEMO/System cardHotplugEvent(int,int) 0000000100000000",
                           "engine:closePlayerWindow []", "VEMO/HSFRAMEWORK deactivePlugIn() " + idlePlugin})
                  .join('\n')
                  .toStdString());
}

TEST(ToolkitScenarioTest, BadWords_StopTheScriptNamingWhatIsExpected)
{
    ScenarioRun scenario;
    const auto runLine = [&](const QByteArray& line) {
        EXPECT_EQ(scenario.runText("clock manual\nwait 20\n" + line + "\nquit\n", {kSong}), 2) << line.constData();
        return scenario.errorOutput().section(": ", 1).trimmed();
    };
    EXPECT_EQ(runLine("softkey middle"), "softkey: expects left or right");
    EXPECT_EQ(runLine("profile 70000 on"), "profile: expects a feature bit (0 to 65535) and on or off");
    EXPECT_EQ(runLine("engine speed 2"), "engine: expects medium N, progress A B, complete or state N");
    EXPECT_EQ(runLine("engine medium 4"), "engine: medium 4 is none of 0 to 3");
    EXPECT_EQ(runLine("engine progress 30"), "engine: expects progress A B");
    EXPECT_EQ(runLine("engine complete now"), "engine: takes no arguments");
    EXPECT_EQ(runLine("menu choose 1018"), "menu: the options menu has no items before it is opened (menu open)");
    // Remove is hidden outside a user list: choosing it is refused.
    EXPECT_EQ(runLine("menu open\nmenu choose 1006"), "menu: item 1006 is hidden");
    EXPECT_EQ(runLine("bt link stereo"), "bt: no headset link while Bluetooth is off (say \"bt power on\" first)");
}

} // namespace
