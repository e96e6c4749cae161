// A playing list follows the setup application and survives odd launches,
// end to end through the engine.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

class ListScenarioTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(scenario.scanSampleLibrary()); }

    void run(const char* script)
    {
        ASSERT_EQ(scenario.run(ScenarioRun::script(QString::fromLatin1(script))), 0)
            << qPrintable(scenario.errorOutput());
    }

    std::string titlesPlayed() const
    {
        return scenario.titlesPlayed().join(" | ").toStdString();
    }

    ScenarioRun scenario;
};

// Without a file or an action the player first plays the whole library from
// its first song, "Afterglow"; the scripts' launches come after that.

TEST_F(ListScenarioTest, ShuffleAlbumsSwitchedOn_GoesOnFromThePlayingSong)
{
    run("lists_shuffle_albums_switch.mps");
    // "Andante" is the third song of "Kvöldljóð", "Coda" its fourth; the
    // launch's first album, "Paper Boats", does not start over.
    EXPECT_EQ(titlesPlayed(), "Afterglow | Afterglow | Andante | Coda");
}

TEST_F(ListScenarioTest, FirstIndexFarPastTheEnd_PlaysTheLastSongThenWrapsToTheFirst)
{
    run("lists_first_index_outside.mps");
    EXPECT_EQ(titlesPlayed(), "Afterglow | 月の光 | Afterglow");
}

TEST_F(ListScenarioTest, UnreadableSetupMessages_LeaveShuffleAndRepeatOn)
{
    run("lists_setup_payloads.mps");
    const QList<QJsonArray> modes = scenario.argsOf("engine", "setShuffleRepeat");
    ASSERT_GE(modes.size(), 5);
    // One report per message, each with the modes unchanged.
    for (const QJsonArray& reported : modes.mid(modes.size() - 5))
        EXPECT_EQ(QJsonDocument(reported).toJson(QJsonDocument::Compact).toStdString(), "[true,true]");
}

} // namespace
