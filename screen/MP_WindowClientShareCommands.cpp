// The commands of the player screen that hand the playing file to the share
// utility: properties, send to, apply to, bookmarks and the buy-more mark.

#include "screen/MP_WindowClient.h"

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(WindowShareTrace, "MP_WindowClient")

void MP_WindowClient::onMenuProperties()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuProperties\n");
}

void MP_WindowClient::onMenuSlotSendToMessage()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuSlotSendToMessage\n");
}

void MP_WindowClient::onMenuSlotSendToEmail()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuSlotSendToEmail\n");
}

void MP_WindowClient::onMenuSlotSendToBlog()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuSlotSendToBlog\n");
}

void MP_WindowClient::onMenuSlotSendToRemovableMedia()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuSlotSendToRemovableMedia\n");
}

void MP_WindowClient::onMenuSlotSendToBluetooth()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuSlotSendToBluetooth\n");
}

void MP_WindowClient::onMenuSlotApplyToRingtone()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuSlotApplyToRingtone\n");
}

void MP_WindowClient::onMenuPlaylist()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuPlaylist\n");
}

void MP_WindowClient::onMenuBuyMore()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuBuyMore\n");
}

void MP_WindowClient::onMenuEditBookmark()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuEditBookmark\n");
}

void MP_WindowClient::onMenuSaveBookmark()
{
    WindowShareTrace(3, "MP_WindowClient::onMenuSaveBookmark\n");
}
