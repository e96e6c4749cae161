// The player and the media database when other programs use the database too.

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

const QStringList kWholeLibraryFromDriftwood{"--action", "PlayMusicListInMediaplayer", "isAllArtist=1", "isAllAlbum=1",
                                             "isAllGenre=1", "isAllComposer=1", "FirstIndex=5", "StorageLocation=2"};

TEST(DatabaseScenarioTest, SongsRemovedBeforeThePlayingOne_PreviousStillPlaysTheSongBeforeIt)
{
    ScenarioRun scenario;
    ASSERT_TRUE(scenario.scanSampleLibrary());
    ASSERT_EQ(scenario.run(ScenarioRun::script("db_previous_after_removal.mps"), kWholeLibraryFromDriftwood), 0)
        << qPrintable(scenario.errorOutput());
    // Title order: ... Circuit Bloom (2), Coda (3), Demo (4), Driftwood (5), First Light (6).
    EXPECT_EQ(scenario.titlesPlayed(), (QStringList{"Driftwood", "Demo (rough mix)", "Driftwood"}));
}

} // namespace
