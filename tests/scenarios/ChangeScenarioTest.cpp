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

} // namespace
