// The player screen end to end: the options menu as a script opens it and
// what the journal records of it.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Journal.h"

namespace {

const QString kSong = QStringLiteral("Music/Aurora Lane/Northern Lights/01 First Light.wav");

// None of these items is disabled; the toolkit reports a hidden item as not
// enabled as well, since it cannot be chosen.
QJsonObject item(int id, int parentId, const char* text, bool visible)
{
    return {{"id", id}, {"parentId", parentId}, {"text", text}, {"visible", visible}, {"enabled", visible}};
}

TEST(ScreenScenarioTest, MenuOpen_JournalsEveryItemOfTheSoundMenu)
{
    ScenarioRun scenario;
    ASSERT_EQ(scenario.run(ScenarioRun::script("screen_menu.mps"), {kSong}), 0) << qPrintable(scenario.errorOutput());

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
}

} // namespace
