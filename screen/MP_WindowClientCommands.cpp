// The commands of the player screen: the options-menu items, the Back key
// and the leave-the-player rules. Not built yet: each command traces its name
// so that its wiring can be seen and tested.

#include "screen/MP_WindowClient.h"

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(WindowCommandTrace, "MP_WindowClient")

bool MP_WindowClient::confirmQuit()
{
    WindowCommandTrace(3, "MP_WindowClient::confirmQuit\n");
    return true;
}

bool MP_WindowClient::willHide()
{
    WindowCommandTrace(3, "MP_WindowClient::willHide\n");
    return false;
}

void MP_WindowClient::onBackClicked()
{
    WindowCommandTrace(3, "MP_WindowClient::onBackClicked\n");
}

void MP_WindowClient::onMenuSetup()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSetup\n");
}

void MP_WindowClient::onMenuUseBluetooth()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuUseBluetooth\n");
}

void MP_WindowClient::onMenuUseHandset()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuUseHandset\n");
}

void MP_WindowClient::onMenuProperties()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuProperties\n");
}

void MP_WindowClient::onMenuSlotSendToMessage()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSlotSendToMessage\n");
}

void MP_WindowClient::onMenuSlotSendToEmail()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSlotSendToEmail\n");
}

void MP_WindowClient::onMenuSlotSendToBlog()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSlotSendToBlog\n");
}

void MP_WindowClient::onMenuSlotSendToRemovableMedia()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSlotSendToRemovableMedia\n");
}

void MP_WindowClient::onMenuSlotSendToBluetooth()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSlotSendToBluetooth\n");
}

void MP_WindowClient::onMenuSlotApplyToRingtone()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSlotApplyToRingtone\n");
}

void MP_WindowClient::onMenuDelete()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuDelete\n");
}

void MP_WindowClient::onMenuRemove()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuRemove\n");
}

void MP_WindowClient::onMenuPlaylist()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuPlaylist\n");
}

void MP_WindowClient::onNormalSize()
{
    WindowCommandTrace(3, "MP_WindowClient::onNormalSize\n");
}

void MP_WindowClient::onOriginalSize()
{
    WindowCommandTrace(3, "MP_WindowClient::onOriginalSize\n");
}

void MP_WindowClient::onMenuHide()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuHide\n");
}

void MP_WindowClient::onMenuHidePD()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuHidePD\n");
}

void MP_WindowClient::onMenuSlideshow()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSlideshow\n");
}

void MP_WindowClient::onFTSignalCancelFromDLM()
{
    WindowCommandTrace(3, "MP_WindowClient::onFTSignalCancelFromDLM\n");
}

void MP_WindowClient::onMenuBuyMore()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuBuyMore\n");
}

void MP_WindowClient::onMenuEditBookmark()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuEditBookmark\n");
}

void MP_WindowClient::onMenuSaveBookmark()
{
    WindowCommandTrace(3, "MP_WindowClient::onMenuSaveBookmark\n");
}
