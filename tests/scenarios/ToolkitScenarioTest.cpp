// The script commands that stand in for the phone: its keys, flip, lock,
// memory card and Bluetooth radio; and words refused, also against the
// phone's state. (Its feature bits and the engine's reports are the spine's.)

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Payload.h"

namespace {

const QString kSong = QStringLiteral("Music/Aurora Lane/Northern Lights/01 First Light.wav");

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
        EXPECT_EQ(scenario.runText("wait 20\n" + line + "\nquit\n", {kSong}), 2) << line.constData();
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
