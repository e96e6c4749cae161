#pragma once
// Constant data of the player screen's options menus: for each menu a screen
// shows, the translated text and command of every item, and the screen table
// that maps what is playing to a screen, its menu and the ids of the items
// the screen client checks each time the menu opens.
//
// Texts and slots are plain C strings: the toolkit's connect and the text
// lookup take them as such, a null pointer stands for "no slot", and constant
// data of that kind needs no construction at library load.

/** Text id of a record whose text and command come from a dynamic action. */
extern const char* const MENUITEM_DYNAMIC;

/** How the screen client dresses one menu item. */
struct MENUITEM_PROPERTY {
    int id;                   // the item's id in the parser's menu
    const char* textId;       // translation resource id, or MENUITEM_DYNAMIC
    const char* defaultText;  // English fallback; empty for dynamic items
    const char* slot;         // "1onSlot()" of the screen client; null for submenu heads and dynamic items
};

/** The property table a screen's menu is dressed with. */
struct MENUITEM_TABLE {
    const MENUITEM_PROPERTY* items;
    int count;
};

/**
 * The items of a screen's menu that the screen client decides for the item
 * that plays, the download state or the stored bookmark; -1 where the
 * screen's menu has no such item.
 */
struct SCREEN_ITEM_IDS {
    int deleteIndex;         // local files: "Delete"
    int removeIndex;         // local files: "Remove" (from a user play list)
    int hideDownloadIndex;   // downloads: "Hide Download"
    int downloadSetupIndex;  // downloads: "Setup", disabled while downloading
    int editBookmarkIndex;   // streams: "Edit Bookmark"
    int saveBookmarkIndex;   // streams: "Save Bookmark"
    int playlistIndex;       // local sound: "Apply to > Playlist"
    int ringtoneIndex;       // local sound: "Apply to > Ringtone"
    int buyMoreIndex;        // local sound: "Buy More"
};

/** One screen: a pair (content type, medium type) and its menu. */
struct SCREEN_PROPERTY {
    int contentType;         // 1 sound, 2 video
    int mediumType;          // 0 local, 1 stream, 2 progressive download, 3 transfer session
    int sdIndex;             // the memory-card item, -1 without one
    int blogIndex;           // the blog item, -1 without one
    int useBTIndex;          // the "Use Bluetooth" dynamic item (the same on every screen)
    int useHSIndex;          // the "Use Handset" dynamic item (the same on every screen)
    const char* screenName;  // the menu's name for the parser
    MENUITEM_TABLE menuItems;  // the records that dress the menu
    SCREEN_ITEM_IDS checkedItems;
};

extern const MENUITEM_PROPERTY soundMenuItems[18];
extern const MENUITEM_PROPERTY videoMenuItems[19];
extern const MENUITEM_PROPERTY pdSoundMenuItems[4];
extern const MENUITEM_PROPERTY pdVideoMenuItems[4];
extern const MENUITEM_PROPERTY streamSoundMenuItems[6];
extern const MENUITEM_PROPERTY streamVideoMenuItems[8];

/** Number of screens; the position of an entry is its screen index. */
const int SCREEN_COUNT = 8;
extern const SCREEN_PROPERTY screenTable[SCREEN_COUNT];

/** The table of screen @p screenIndex; {null, 0} outside 0..7. */
MENUITEM_TABLE menuItemsOfScreen(int screenIndex);
