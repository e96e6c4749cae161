// A playing list follows the database when it changes under it.

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

TEST(ChangeScenarioTest, PlayingSongRemovedFromThePlayList_TheNextOnePlays)
{
    ScenarioRun scenario;
    ASSERT_TRUE(scenario.scanSampleLibrary());
    const QStringList evening{"--action", "PlayUserListInMediaplayer", "Type=0", "GroupObjectID=4",
                              "FirstIndex=0", "StorageLocation=2"};
    ASSERT_EQ(scenario.run(ScenarioRun::script("remove_from_play_list.mps"), evening), 0)
        << qPrintable(scenario.errorOutput());
    const QList<QJsonArray> removals = scenario.argsOf("metadata", "metadataRemoveItemsFromGroup");
    ASSERT_EQ(removals.size(), 1);
    EXPECT_EQ(removals.first().at(0).toObject().value("positions").toArray(), QJsonArray{0});
    EXPECT_EQ(scenario.calls().count("engine:notifyCurrentChanged"), 1);
    EXPECT_EQ(scenario.titlesPlayed().mid(0, 2), (QStringList{"Harbour Wind", "Lanterns"}));
}

TEST(ChangeScenarioTest, WholeSelectionLeavesTheDatabase_ThePlayerQuits)
{
    ScenarioRun scenario;
    ASSERT_TRUE(scenario.scanSampleLibrary());
    const QStringList paperBoats{"--action", "PlayMusicListInMediaplayer", "isAllArtist=1", "isAllAlbum=0",
                                 "Album=Paper Boats", "isAllGenre=1", "isAllComposer=1", "StorageLocation=2"};
    ASSERT_EQ(scenario.run(ScenarioRun::script("album_emptied.mps"), paperBoats), 0)
        << qPrintable(scenario.errorOutput());
    EXPECT_EQ(scenario.titlesPlayed().first(), "Paper Boats");
    EXPECT_TRUE(scenario.calls().contains("engine:closePlayerWindow"));
    EXPECT_TRUE(scenario.errorOutput().contains("the player quit")) << qPrintable(scenario.errorOutput());
}

} // namespace
