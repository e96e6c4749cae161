#include "screen/MP_MenuProperties.h"

const char* const MENUITEM_DYNAMIC = "MENUITEM_DYNAMIC";

const MENUITEM_PROPERTY soundMenuItems[18] = {
    {1001, "TXT_RID_OPTION_HIDE", "Hide", "1onMenuHide()"},
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
    {1016, MENUITEM_DYNAMIC, "", nullptr},
    {1017, MENUITEM_DYNAMIC, "", nullptr},
    {1019, "TXT_RID_OPTION_BUY_MORE", "Buy More", "1onMenuBuyMore()"},
    {1018, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"},
};

// Records 2016 and 2017 address items the video menu does not hold; dressing
// an absent item changes nothing, so they are kept as the menu's vocabulary.
const MENUITEM_PROPERTY videoMenuItems[19] = {
    {2001, "TXT_RID_OPTION_SLIDESHOW", "Slideshow", "1onMenuSlideshow()"},
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
    {1016, MENUITEM_DYNAMIC, "", nullptr},
    {1017, MENUITEM_DYNAMIC, "", nullptr},
    {2020, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"},
};

const MENUITEM_PROPERTY pdSoundMenuItems[4] = {
    {4001, "TXT_RID_OPTION_HIDE_DOWNLOAD", "Hide Download", "1onMenuHidePD()"},
    {1016, MENUITEM_DYNAMIC, "", nullptr},
    {1017, MENUITEM_DYNAMIC, "", nullptr},
    {4004, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"},
};

const MENUITEM_PROPERTY pdVideoMenuItems[4] = {
    {5001, "TXT_RID_OPTION_HIDE_DOWNLOAD", "Hide Download", "1onMenuHidePD()"},
    {1016, MENUITEM_DYNAMIC, "", nullptr},
    {1017, MENUITEM_DYNAMIC, "", nullptr},
    {5004, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"},
};

const MENUITEM_PROPERTY streamSoundMenuItems[6] = {
    {6001, "TXT_RID_OPTION_HIDE", "Hide", "1onMenuHide()"},
    {6002, "TXT_RID_OPTION_EDIT_BOOKMARK", "Edit Bookmark", "1onMenuEditBookmark()"},
    {6003, "TXT_RID_OPTION_SAVE_BOOKMARK", "Save Bookmark", "1onMenuSaveBookmark()"},
    {1016, MENUITEM_DYNAMIC, "", nullptr},
    {1017, MENUITEM_DYNAMIC, "", nullptr},
    {6006, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"},
};

const MENUITEM_PROPERTY streamVideoMenuItems[8] = {
    {7001, "TXT_RID_OPTION_EDIT_BOOKMARK", "Edit Bookmark", "1onMenuEditBookmark()"},
    {7002, "TXT_RID_OPTION_SAVE_BOOKMARK", "Save Bookmark", "1onMenuSaveBookmark()"},
    {7003, "TXT_RID_OPTION_ZOOM", "Zoom", nullptr},
    {7004, "TXT_RID_OPTION_FIT_TO_SCREEN", "Fit to screen", "1onNormalSize()"},
    {7005, "TXT_RID_OPTION_100_PERCENT", "100(%)", "1onOriginalSize()"},
    {1016, MENUITEM_DYNAMIC, "", nullptr},
    {1017, MENUITEM_DYNAMIC, "", nullptr},
    {7008, "TXT_RID_OPTION_SETUP", "Setup", "1onMenuSetup()"},
};

// Screens 6 and 7 (download through a transfer session) share the menus of
// the progressive-download screens 2 and 3.
const SCREEN_PROPERTY screenTable[SCREEN_COUNT] = {
    //                                     delete/remove  download   bookmark  playlist/ringtone/buy
    {1, 0, 1011, 1010, 1016, 1017, "sound_control", {soundMenuItems, 18},
     {1005, 1006, -1, -1, -1, -1, 1014, 1015, 1019}},
    {2, 0, 2014, 2013, 1016, 1017, "video_control", {videoMenuItems, 19},
     {2005, 2006, -1, -1, -1, -1, -1, -1, -1}},
    {1, 2, -1, -1, 1016, 1017, "pd_sound", {pdSoundMenuItems, 4},
     {-1, -1, 4001, 4004, -1, -1, -1, -1, -1}},
    {2, 2, -1, -1, 1016, 1017, "pd_video", {pdVideoMenuItems, 4},
     {-1, -1, 5001, 5004, -1, -1, -1, -1, -1}},
    {1, 1, -1, -1, 1016, 1017, "stream_sound", {streamSoundMenuItems, 6},
     {-1, -1, -1, -1, 6002, 6003, -1, -1, -1}},
    {2, 1, -1, -1, 1016, 1017, "stream_video", {streamVideoMenuItems, 8},
     {-1, -1, -1, -1, 7001, 7002, -1, -1, -1}},
    {1, 3, -1, -1, 1016, 1017, "pd_sound", {pdSoundMenuItems, 4},
     {-1, -1, 4001, 4004, -1, -1, -1, -1, -1}},
    {2, 3, -1, -1, 1016, 1017, "pd_video", {pdVideoMenuItems, 4},
     {-1, -1, 5001, 5004, -1, -1, -1, -1, -1}},
};

MENUITEM_TABLE menuItemsOfScreen(int screenIndex)
{
    if (screenIndex < 0 || screenIndex >= SCREEN_COUNT)
        return {nullptr, 0};
    return screenTable[screenIndex].menuItems;
}
