// The spine end to end: the application loads the library, which plays the
// passed file through the engine, hears the phone's and the engine's reports
// as a script drives them, and tears down in order.

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Journal.h"

namespace {

const QString kSong = QStringLiteral("Music/Aurora Lane/Northern Lights/01 First Light.wav");

TEST(SpineScenarioTest, PassedFile_PlaysThroughTheLibrary_ReportsReachEveryListener_AndItTearsDownInOrder)
{
    ScenarioRun scenario;
    ASSERT_EQ(scenario.run(ScenarioRun::script("play_passed_file.mps"), {kSong}), 0) << qPrintable(scenario.errorOutput());

    const QStringList calls = scenario.calls();
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
    QList<int> elapsed;
    for (const QJsonArray& args : scenario.argsOf("report", "updateTime")) {
        elapsed.append(args.at(0).toInt());
        EXPECT_EQ(args.at(1).toInt(), 6000);
    }
    EXPECT_EQ(elapsed, (QList<int>{0, 1000, 2000, 3000}));

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
    const QList<QJsonArray> progress = scenario.argsOf("report", "updateDownloadProgress");
    ASSERT_FALSE(progress.isEmpty());
    EXPECT_EQ(progress.first(), (QJsonArray{30, 100}));
    EXPECT_EQ(scenario.argsOf("report", "updateState").last(), QJsonArray{2});

    // At quit: the engine goes, then "HidePlaying" = false is the last word.
    EXPECT_LT(calls.indexOf("report:updateState"), calls.indexOf("engine:MP_DestroyCommonPlayer"));
    const QJsonObject last = scenario.journal().last();
    EXPECT_EQ(last, (QJsonObject{{"kind", "settings"}, {"app", 71}, {"group", "MediaControlItem"},
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

} // namespace
