// The script commands that stand in for the phone's feature bits, its soft
// keys and the engine's medium and download reports.

#include <QJsonArray>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

const QString kSong = QStringLiteral("Music/Aurora Lane/Northern Lights/01 First Light.wav");

TEST(ToolkitScenarioTest, ProfileAndEngineCommands_ReachThePhoneAndEveryListener)
{
    ScenarioRun scenario;
    ASSERT_EQ(scenario.run(ScenarioRun::script("toolkit_reports.mps"), {kSong}), 0) << qPrintable(scenario.errorOutput());

    EXPECT_EQ(scenario.argsOf("phone", "setFlexBit"), (QList<QJsonArray>{{492, true}}));
    EXPECT_EQ(scenario.argsOf("engine", "setMediumType"), (QList<QJsonArray>{{2}}));
    const QStringList calls = scenario.calls();
    const int medium = int(calls.indexOf("engine:setMediumType"));
    ASSERT_GE(medium, 0);
    // Every report reaches each listener: one line a listener, all after the medium changed.
    const int listeners = int(calls.mid(medium + 1).filter("report:updateListInfo").size());
    EXPECT_GE(listeners, 1) << "the list information is reported again";
    EXPECT_EQ(calls.mid(medium).filter("report:updateDownloadProgress").size(), listeners);
    EXPECT_EQ(calls.mid(medium).filter("report:updateDownloadComplete").size(), listeners);
    const QList<QJsonArray> progress = scenario.argsOf("report", "updateDownloadProgress");
    ASSERT_FALSE(progress.isEmpty());
    EXPECT_EQ(progress.first(), (QJsonArray{30, 100}));
    EXPECT_EQ(scenario.argsOf("report", "updateState").last(), QJsonArray{2});
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
    EXPECT_EQ(runLine("profile 149 yes"), "profile: expects a feature bit (0 to 65535) and on or off");
    EXPECT_EQ(runLine("engine speed 2"), "engine: expects medium N, progress A B, complete or state N");
    EXPECT_EQ(runLine("engine medium 4"), "engine: medium 4 is none of 0 to 3");
    EXPECT_EQ(runLine("engine progress 30"), "engine: expects progress A B");
    EXPECT_EQ(runLine("engine complete now"), "engine: takes no arguments");
}

} // namespace
