#include "platform/VmGlobal.h"

#include "host/platform/toolkit/HostScreen.h"

QRect VmGlobal::getContentR(bool withSoftKey)
{
    // The host window is the application area of the phone's screen: the
    // status bar belongs to the desktop's window frame, so the content starts
    // at the window's top.
    const int height = HostScreen::kHeight - (withSoftKey ? 0 : HostScreen::kSoftKeyHeight);
    return QRect(0, 0, HostScreen::kWidth, height);
}
