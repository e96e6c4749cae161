// The idle screen's plug-in drives a hidden player, end to end: requests go
// in on its channel, the player's information comes back on it.

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/scenarios/ScenarioRun.h"

namespace {

using Lines = std::vector<std::string>;

class IdleScenarioTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(scenario.scanSampleLibrary()); }

    void run(const char* script)
    {
        ASSERT_EQ(scenario.run(ScenarioRun::script(QString::fromLatin1(script))), 0)
            << qPrintable(scenario.errorOutput());
    }

    // "call(args)" of every call on the playback control.
    Lines controlCalls() const
    {
        Lines calls;
        for (const QJsonObject& line : scenario.journal()) {
            if (line.value("kind").toString() != "control")
                continue;
            QStringList args;
            for (const QJsonValue& arg : line.value("args").toArray())
                args << QString::number(arg.toInt());
            calls.push_back((line.value("call").toString() + '(' + args.join(',') + ')').toStdString());
        }
        return calls;
    }

    // "MESSAGE HEX" of the messages sent on @p channel whose names begin with @p prefix.
    Lines messages(const QString& channel, const QString& prefix = QString()) const
    {
        Lines lines;
        for (const QJsonObject& line : scenario.journal()) {
            const QString message = line.value("message").toString();
            if (line.value("kind").toString() == "qcop" && line.value("channel").toString() == channel
                && message.startsWith(prefix))
                lines.push_back((message + ' ' + line.value("data").toString()).toStdString());
        }
        return lines;
    }

    std::string titlesPlayed() const { return scenario.titlesPlayed().join(" | ").toStdString(); }

    ScenarioRun scenario;
};

const std::string kPlugin = "0000001e00490064006c0065004d00750073006900630050006c0061007900650072";

TEST_F(IdleScenarioTest, HiddenPlayer_PausedSeekedResumedSkippedAndQuitFromTheIdleScreen)
{
    run("idle_controls.mps");
    EXPECT_EQ(controlCalls(), (Lines{"playPause()", "seek(5000)", "seekFinished()", "playPause()", "next()"}));
    EXPECT_EQ(titlesPlayed(), "Afterglow | Harbour Wind | Silver Road");
    // The plug-in is shown once, on hiding, and told to go when the player ends.
    EXPECT_EQ(messages("VEMO/HSFRAMEWORK"), (Lines{"activePlugIn() " + kPlugin, "deactivePlugIn() " + kPlugin}));
    // Each list loads stopped (5, shown as paused) and plays; then the idle
    // screen's pause and play; next goes on playing without a new state.
    const std::string paused = "/MP/Idle/Info/State 00000002", playing = "/MP/Idle/Info/State 00000001";
    EXPECT_EQ(messages("/MP/Idle/Channel", "/MP/Idle/Info/State"),
              (Lines{paused, playing, paused, playing, paused, playing}));
    EXPECT_EQ(scenario.argsOf("engine", "closePlayerWindow").size(), 2) << "hidden, then quit";
    EXPECT_EQ(messages("/MP/Idle/Channel", "/MP/Idle/Info/Exit"), Lines{"/MP/Idle/Info/Exit "});
}

TEST_F(IdleScenarioTest, EndOfTheAlbum_NextAndThenPlayStartItOver)
{
    run("idle_end_of_list.mps");
    EXPECT_EQ(controlCalls(), (Lines{"play()", "play()"}));
    EXPECT_EQ(titlesPlayed(), "Afterglow | Lanterns | Paper Boats | Rain on Glass | Lanterns | Paper Boats");
}

} // namespace
