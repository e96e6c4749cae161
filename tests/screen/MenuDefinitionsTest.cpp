// The options menus, the tables that dress their items and the screen table
// must fit together: the checks hold for every screen, so that a row added,
// changed or dropped in one place and not in the other fails here.

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <utility>
#include <string>

#include "host/platform/toolkit/HostTranslations.h"
#include "platform/TextResources.h"
#include "screen/MP_MenuProperties.h"
#include "screen/menu.h"

namespace {

struct Row {
    int id;
    int parentId;
    QString text;
};

QList<Row> rowsOf(const QString& name)
{
    menu parser;
    QList<MenuItem*> items;
    parser.getList(items, name);
    QList<Row> rows;
    for (const MenuItem* item : items) {
        EXPECT_EQ(item->flag, 0) << item->id;
        rows.append({item->id, item->parentId, item->text});
    }
    qDeleteAll(items);
    return rows;
}

/** The record of item @p id on screen @p screen; null when it has none. */
const MENUITEM_PROPERTY* recordOf(int screen, int id)
{
    const MENUITEM_TABLE table = menuItemsOfScreen(screen);
    for (int i = 0; i < table.count; ++i) {
        if (table.items[i].id == id)
            return &table.items[i];
    }
    return nullptr;
}

const char* textIdOf(int screen, int id)
{
    return recordOf(screen, id) ? recordOf(screen, id)->textId : "(no record)";
}

class MenuDefinitionsTest : public ::testing::Test {
protected:
    void TearDown() override { HostTranslations::use(QString()); }
};

// Which item sits under which submenu is the phone's contract: no screen test
// opens the video menus' submenus, so their trees are pinned here.
TEST_F(MenuDefinitionsTest, TheVideoMenusKeepThePhonesTrees)
{
    const std::pair<const char*, const char*> trees[] = {
        {"video_control", "2001 2002 2004/2002 2005 2006 2007 2008/2007 2009/2007 2010 2011/2010 2012/2010 2013/2010 "
                          "2014/2010 2015/2010 1016 1017 2020"},
        {"stream_video", "7001 7002 7003 7004/7003 7005/7003 1016 1017 7008"},
    };
    for (const auto& [name, expected] : trees) {
        QStringList tree;
        for (const Row& row : rowsOf(name))
            tree << (row.parentId ? QStringLiteral("%1/%2").arg(row.id).arg(row.parentId) : QString::number(row.id));
        EXPECT_EQ(tree.join(' ').toStdString(), expected) << name;
    }
}

TEST_F(MenuDefinitionsTest, EachScreensRecordsDressItsMenuRowForRow)
{
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    std::map<std::string, std::string> slotOfText;  // one text, one command, on every screen
    for (int screen = 0; screen < SCREEN_COUNT; ++screen) {
        const QList<Row> rows = rowsOf(screenTable[screen].screenName);
        const MENUITEM_TABLE table = menuItemsOfScreen(screen);
        std::set<int> heads;
        for (const Row& row : rows) {
            heads.insert(row.parentId);
            EXPECT_NE(recordOf(screen, row.id), nullptr) << "screen " << screen << ": item " << row.id;
            EXPECT_FALSE(row.text.isEmpty()) << "screen " << screen << ": item " << row.id;
        }
        std::set<int> dressed;
        for (int i = 0; i < table.count; ++i) {
            const MENUITEM_PROPERTY& record = table.items[i];
            const std::string at = "screen " + std::to_string(screen) + ", record " + std::to_string(record.id);
            EXPECT_TRUE(dressed.insert(record.id).second) << at << " twice";
            const bool inMenu = std::any_of(rows.begin(), rows.end(), [&](const Row& row) { return row.id == record.id; });
            // The video table keeps two records of items its menu does not hold.
            const bool spare = screen == 1 && (record.id == 2016 || record.id == 2017);
            EXPECT_NE(inMenu, spare) << at;
            if (std::strcmp(record.textId, MENUITEM_DYNAMIC) == 0) {
                EXPECT_STREQ(record.defaultText, "") << at;
                EXPECT_EQ(record.slot, nullptr) << at;
                continue;
            }
            EXPECT_STRNE(record.defaultText, "") << at;
            EXPECT_NE(MP_tr(record.textId, ""), QString()) << at << ": no translation of " << record.textId;
            if (spare)
                continue;
            // A submenu head opens its submenu; every other item runs a command
            // (that the window client has it, its menu test sees).
            if (heads.count(record.id)) {
                EXPECT_EQ(record.slot, nullptr) << at;
                continue;
            }
            ASSERT_NE(record.slot, nullptr) << at;
            const auto [known, added] = slotOfText.emplace(record.textId, record.slot);
            EXPECT_EQ(known->second, record.slot) << at << ": " << record.textId;
        }
    }
}

TEST_F(MenuDefinitionsTest, TheItemsTheScreenTableNamesAreTheRightOnes)
{
    for (int screen = 0; screen < SCREEN_COUNT; ++screen) {
        const SCREEN_PROPERTY& properties = screenTable[screen];
        // The Bluetooth client lends both route items to every screen under these ids.
        EXPECT_STREQ(textIdOf(screen, properties.useBTIndex), MENUITEM_DYNAMIC) << screen;
        EXPECT_STREQ(textIdOf(screen, properties.useHSIndex), MENUITEM_DYNAMIC) << screen;
        EXPECT_EQ(properties.useBTIndex * 10000 + properties.useHSIndex, 10161017) << screen;
        const bool local = properties.mediumType == 0;
        EXPECT_STREQ(textIdOf(screen, properties.sdIndex), local ? "TXT_RID_OPTION_MEMORY_CARD" : "(no record)") << screen;
        EXPECT_STREQ(textIdOf(screen, properties.blogIndex), local ? "TXT_RID_OPTION_BLOG" : "(no record)") << screen;
        // The items decided for the playing item are the ones of this screen's kind.
        const SCREEN_ITEM_IDS& items = properties.checkedItems;
        const bool sound = properties.contentType == 1;
        const bool download = properties.mediumType == 2 || properties.mediumType == 3;
        const bool stream = properties.mediumType == 1;
        const std::pair<int, std::pair<bool, const char*>> checked[] = {
            {items.deleteIndex, {local, "TXT_RID_OPTION_DELETE"}},
            {items.removeIndex, {local, "TXT_RID_OPTION_REMOVE"}},
            {items.hideDownloadIndex, {download, "TXT_RID_OPTION_HIDE_DOWNLOAD"}},
            {items.downloadSetupIndex, {download, "TXT_RID_OPTION_SETUP"}},
            {items.editBookmarkIndex, {stream, "TXT_RID_OPTION_EDIT_BOOKMARK"}},
            {items.saveBookmarkIndex, {stream, "TXT_RID_OPTION_SAVE_BOOKMARK"}},
            {items.playlistIndex, {local && sound, "TXT_RID_OPTION_PLAYLIST"}},
            {items.ringtoneIndex, {local && sound, "TXT_RID_OPTION_RINGTONE"}},
            {items.buyMoreIndex, {local && sound, "TXT_RID_OPTION_BUY_MORE"}},
        };
        for (const auto& [id, expected] : checked) {
            const auto& [present, textId] = expected;
            EXPECT_STREQ(textIdOf(screen, id), present ? textId : "(no record)") << screen << ": " << textId;
        }
    }
    // The transfer-session screens show the progressive-download menus.
    EXPECT_EQ(menuItemsOfScreen(6).items, menuItemsOfScreen(2).items);
    EXPECT_EQ(menuItemsOfScreen(7).items, menuItemsOfScreen(3).items);
    EXPECT_EQ(menuItemsOfScreen(-1).items, nullptr);
    EXPECT_EQ(menuItemsOfScreen(SCREEN_COUNT).count, 0);
}

} // namespace
