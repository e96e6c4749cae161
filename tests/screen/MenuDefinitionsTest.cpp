// The options menus as the parser lists them, the item property tables and
// the screen table, each compared with the table written out here.

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <vector>

#include "screen/MP_MenuProperties.h"
#include "screen/menu.h"

namespace {

struct Row {
    int id;
    int parentId;
    const char* text;
};

struct ListedRow {
    int id;
    int parentId;
    QString text;
};

std::vector<ListedRow> listed(const QString& name)
{
    menu parser;
    QList<MenuItem*> items;
    parser.getList(items, name);
    std::vector<ListedRow> rows;
    for (MenuItem* item : items) {
        EXPECT_EQ(item->flag, 0) << item->id;
        rows.push_back({item->id, item->parentId, item->text});
    }
    qDeleteAll(items);
    return rows;
}

void expectRows(const QString& name, const std::vector<Row>& expected)
{
    const std::vector<ListedRow> rows = listed(name);
    ASSERT_EQ(rows.size(), expected.size()) << qPrintable(name);
    for (size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].id, expected[i].id) << qPrintable(name) << " row " << i;
        EXPECT_EQ(rows[i].parentId, expected[i].parentId) << qPrintable(name) << " row " << i;
        EXPECT_EQ(rows[i].text, QLatin1String(expected[i].text)) << qPrintable(name) << " row " << i;
    }
}

struct Property {
    int id;
    const char* textId;
    const char* defaultText;
    const char* slot;  // null: none
};

void expectProperties(const char* name, const MENUITEM_PROPERTY* table, int count,
                      const std::vector<Property>& expected)
{
    ASSERT_EQ(size_t(count), expected.size()) << name;
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(table[i].id, expected[i].id) << name << " record " << i;
        EXPECT_STREQ(table[i].textId, expected[i].textId) << name << " record " << i;
        EXPECT_STREQ(table[i].defaultText, expected[i].defaultText) << name << " record " << i;
        EXPECT_STREQ(table[i].slot, expected[i].slot) << name << " record " << i;
    }
}

const char* const D = "MENUITEM_DYNAMIC";

} // namespace

TEST(MenuParser, ListsEveryMenuInRowOrder)
{
    expectRows("sound_control",
               {{1001, 0, "Hide"}, {1002, 0, "Manage"}, {1004, 1002, "Properties"}, {1005, 0, "Delete"},
                {1006, 0, "Remove"}, {1007, 0, "Send to"}, {1008, 1007, "Message"}, {1009, 1007, "Email"},
                {1010, 1007, "Blog"}, {1011, 1007, "Removable Media"}, {1012, 1007, "Bluetooth"},
                {1013, 0, "Apply to"}, {1014, 1013, "Playlist"}, {1015, 1013, "Ringtone"},
                {1016, 0, "Use Bluetooth"}, {1017, 0, "Use Handset"}, {1019, 0, "Buy More"}, {1018, 0, "Setup"}});
    expectRows("video_control",
               {{2001, 0, "Slideshow"}, {2002, 0, "Manage"}, {2004, 2002, "Properties"}, {2005, 0, "Delete"},
                {2006, 0, "Remove"}, {2007, 0, "Zoom"}, {2008, 2007, "Fit to screen"}, {2009, 2007, "Original"},
                {2010, 0, "Send to"}, {2011, 2010, "Message"}, {2012, 2010, "Email"}, {2013, 2010, "Blog"},
                {2014, 2010, "Removable Media"}, {2015, 2010, "Bluetooth"}, {1016, 0, "Use Bluetooth"},
                {1017, 0, "Use Handset"}, {2020, 0, "Setup"}});
    expectRows("vector_control",
               {{3001, 0, "Delete"}, {3002, 0, "Manage"}, {3004, 3002, "Properties"}, {3005, 0, "Edit"},
                {3006, 3005, "Rotate 90 left"}, {3007, 3005, "Rotate 90 right"}, {3008, 0, "Select Object"},
                {3009, 0, "Zoom And Pan"}, {3010, 0, "Send to"}, {3011, 3010, "Message"}, {3012, 3010, "Email"},
                {3013, 3010, "Blog"}, {3014, 3010, "Removable Media"}, {3015, 3010, "Bluetooth"},
                {3016, 3010, "Postcard"}, {3017, 0, "Quality"}, {3018, 3017, "Best"}, {3019, 3017, "Good"},
                {3020, 3017, "Fair"}});
    expectRows("pd_sound", {{4001, 0, "Hide Download"}, {1016, 0, "Use Bluetooth"}, {1017, 0, "Use Handset"},
                            {4004, 0, "Setup"}});
    expectRows("pd_video", {{5001, 0, "Hide Download"}, {1016, 0, "Use Bluetooth"}, {1017, 0, "Use Handset"},
                            {5004, 0, "Setup"}});
    expectRows("stream_sound", {{6001, 0, "Hide"}, {6002, 0, "Edit Bookmark"}, {6003, 0, "Save Bookmark"},
                                {1016, 0, "Use Bluetooth"}, {1017, 0, "Use Handset"}, {6006, 0, "Setup"}});
    expectRows("stream_video",
               {{7001, 0, "Edit Bookmark"}, {7002, 0, "Save Bookmark"}, {7003, 0, "Zoom"},
                {7004, 7003, "Fit to screen"}, {7005, 7003, "Original"}, {1016, 0, "Use Bluetooth"},
                {1017, 0, "Use Handset"}, {7008, 0, "Setup"}});
    expectRows("vector_select", {{8001, 0, "Zoom And Pan"}, {8002, 0, "Quality"}, {8003, 8002, "Best"},
                                 {8004, 8002, "Good"}, {8005, 8002, "Fair"}});
}

TEST(MenuParser, OtherNamesListNothingAndTheListIsNeverCleared)
{
    EXPECT_TRUE(listed("Sound_Control").empty());
    EXPECT_TRUE(listed("PD_SOUND").empty());
    EXPECT_TRUE(listed(QStringLiteral("")).empty());
    EXPECT_TRUE(listed(QString()).empty());
    EXPECT_TRUE(listed("pd_sound ").empty());

    menu parser;
    QList<MenuItem*> items;
    parser.getList(items, "pd_sound");
    parser.getList(items, "pd_sound");
    ASSERT_EQ(items.size(), 8);
    EXPECT_EQ(items.at(3)->id, 4004);
    EXPECT_EQ(items.at(4)->id, 4001) << "the second listing follows the first";
    qDeleteAll(items);
}

TEST(MenuProperties, EveryTableDressesItsMenu)
{
    expectProperties("sound", soundMenuItems, 18,
                     {{1001, "TXT_RID_OPTION_HIDE", "Hide", "1onMenuHide()"},
                      {1002, "TXT_RID_OPTION_MANAGE", "Manage", nullptr},
                      {1004, "TXT_RID_OPTION_PROPERTIES", "Properties", "1onMenuProperties()"},
                      {1005, "TXT_RID_OPTION_DELETE", "Delete", "1onMenuDelete()"},
                      {1006, "TXT_RID_OPTION_REMOVE", "Remove", "1onMenuRemove()"},
                      {1007, "TXT_RID_OPTION_SEND_TO", "Send to", nullptr},
                      {1008, "TXT_RID_OPTION_MESSAGE", "Message", "1onMenuSlotSendToMessage()"},
                      {1009, "TXT_RID_OPTION_EMAIL", "Email", "1onMenuSlotSendToEmail()"},
                      {1010, "TXT_RID_OPTION_BLOG", "Blog", "1onMenuSlotSendToBlog()"},
                      {1011, "TXT_RID_OPTION_MEMORY_CARD", "Memory Card", "1onMenuSlotSendToRemovableMedia()"},
                      {1012, "TXT_RID_OPTION_BLUETOOTH", "Bluetooth", "1onMenuSlotSendToBluetooth()"},
                      {1013, "TXT_RID_OPTION_APPLY_TO", "Apply to", nullptr},
                      {1014, "TXT_RID_OPTION_PLAYLIST", "Playlist", "1onMenuPlaylist()"},
                      {1015, "TXT_RID_OPTION_RINGTONE", "Ringtone", "1onMenuSlotApplyToRingtone()"},
                      {1016, D, "", nullptr},
                      {1017, D, "", nullptr},
                      {1019, "TXT_RID_OPTION_BUY_MORE", "Buy More", "1onMenuBuyMore()"},
                      {1018, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"}});
    expectProperties("video", videoMenuItems, 19,
                     {{2001, "TXT_RID_OPTION_SLIDESHOW", "Slideshow", "1onMenuSlideshow()"},
                      {2002, "TXT_RID_OPTION_MANAGE", "Manage", nullptr},
                      {2004, "TXT_RID_OPTION_PROPERTIES", "Properties", "1onMenuProperties()"},
                      {2005, "TXT_RID_OPTION_DELETE", "Delete", "1onMenuDelete()"},
                      {2006, "TXT_RID_OPTION_REMOVE", "Remove", "1onMenuRemove()"},
                      {2007, "TXT_RID_OPTION_ZOOM", "Zoom", nullptr},
                      {2008, "TXT_RID_OPTION_FIT_TO_SCREEN", "Fit to screen", "1onNormalSize()"},
                      {2009, "TXT_RID_OPTION_100_PERCENT", "100(%)", "1onOriginalSize()"},
                      {2010, "TXT_RID_OPTION_SEND_TO", "Send to", nullptr},
                      {2011, "TXT_RID_OPTION_MESSAGE", "Message", "1onMenuSlotSendToMessage()"},
                      {2012, "TXT_RID_OPTION_EMAIL", "Email", "1onMenuSlotSendToEmail()"},
                      {2013, "TXT_RID_OPTION_BLOG", "Blog", "1onMenuSlotSendToBlog()"},
                      {2014, "TXT_RID_OPTION_MEMORY_CARD", "Memory Card", "1onMenuSlotSendToRemovableMedia()"},
                      {2015, "TXT_RID_OPTION_BLUETOOTH", "Bluetooth", "1onMenuSlotSendToBluetooth()"},
                      {2016, "TXT_RID_OPTION_APPLY_TO", "Apply to", nullptr},
                      {2017, "TXT_RID_OPTION_APPLY_TO_VIDEO_ALBUM", "Video Album", nullptr},
                      {1016, D, "", nullptr},
                      {1017, D, "", nullptr},
                      {2020, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"}});
    expectProperties("pd sound", pdSoundMenuItems, 4,
                     {{4001, "TXT_RID_OPTION_HIDE_DOWNLOAD", "Hide Download", "1onMenuHidePD()"},
                      {1016, D, "", nullptr},
                      {1017, D, "", nullptr},
                      {4004, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"}});
    expectProperties("pd video", pdVideoMenuItems, 4,
                     {{5001, "TXT_RID_OPTION_HIDE_DOWNLOAD", "Hide Download", "1onMenuHidePD()"},
                      {1016, D, "", nullptr},
                      {1017, D, "", nullptr},
                      {5004, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"}});
    expectProperties("stream sound", streamSoundMenuItems, 6,
                     {{6001, "TXT_RID_OPTION_HIDE", "Hide", "1onMenuHide()"},
                      {6002, "TXT_RID_OPTION_EDIT_BOOKMARK", "Edit Bookmark", "1onMenuEditBookmark()"},
                      {6003, "TXT_RID_OPTION_SAVE_BOOKMARK", "Save Bookmark", "1onMenuSaveBookmark()"},
                      {1016, D, "", nullptr},
                      {1017, D, "", nullptr},
                      {6006, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"}});
    expectProperties("stream video", streamVideoMenuItems, 8,
                     {{7001, "TXT_RID_OPTION_EDIT_BOOKMARK", "Edit Bookmark", "1onMenuEditBookmark()"},
                      {7002, "TXT_RID_OPTION_SAVE_BOOKMARK", "Save Bookmark", "1onMenuSaveBookmark()"},
                      {7003, "TXT_RID_OPTION_ZOOM", "Zoom", nullptr},
                      {7004, "TXT_RID_OPTION_FIT_TO_SCREEN", "Fit to screen", "1onNormalSize()"},
                      {7005, "TXT_RID_OPTION_100_PERCENT", "100(%)", "1onOriginalSize()"},
                      {1016, D, "", nullptr},
                      {1017, D, "", nullptr},
                      {7008, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"}});
}

TEST(ScreenTable, MapsEachScreenToItsMenuAndTable)
{
    struct Screen {
        int contentType, mediumType, sdIndex, blogIndex;
        const char* name;
        const MENUITEM_PROPERTY* table;
        int count;
    };
    // Screens 6 and 7 (transfer session) share the progressive-download menus.
    const Screen expected[SCREEN_COUNT] = {
        {1, 0, 1011, 1010, "sound_control", soundMenuItems, 18},
        {2, 0, 2014, 2013, "video_control", videoMenuItems, 19},
        {1, 2, -1, -1, "pd_sound", pdSoundMenuItems, 4},
        {2, 2, -1, -1, "pd_video", pdVideoMenuItems, 4},
        {1, 1, -1, -1, "stream_sound", streamSoundMenuItems, 6},
        {2, 1, -1, -1, "stream_video", streamVideoMenuItems, 8},
        {1, 3, -1, -1, "pd_sound", pdSoundMenuItems, 4},
        {2, 3, -1, -1, "pd_video", pdVideoMenuItems, 4},
    };
    for (int i = 0; i < SCREEN_COUNT; ++i) {
        EXPECT_EQ(screenTable[i].contentType, expected[i].contentType) << i;
        EXPECT_EQ(screenTable[i].mediumType, expected[i].mediumType) << i;
        EXPECT_EQ(screenTable[i].sdIndex, expected[i].sdIndex) << i;
        EXPECT_EQ(screenTable[i].blogIndex, expected[i].blogIndex) << i;
        EXPECT_EQ(screenTable[i].useBTIndex, 1016) << i;
        EXPECT_EQ(screenTable[i].useHSIndex, 1017) << i;
        EXPECT_STREQ(screenTable[i].screenName, expected[i].name) << i;
        EXPECT_EQ(menuItemsOfScreen(i).items, expected[i].table) << i;
        EXPECT_EQ(menuItemsOfScreen(i).count, expected[i].count) << i;
    }
    EXPECT_EQ(menuItemsOfScreen(-1).items, nullptr);
    EXPECT_EQ(menuItemsOfScreen(8).count, 0);
}
