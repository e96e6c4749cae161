#include "platform/PhoneServices.h"

#include "host/platform/phone/HostPhone.h"

int UTIL_GetFlipStatus()
{
    return HostPhone::flipStatus();
}

QString UTIL_GetKeyEventChannel()
{
    return QStringLiteral("VEMO/KeyEvent");
}

int UTIL_GetTimeBetweenKeyRepeat()
{
    return HostPhone::keyRepeatInterval();
}

int UTIL_GetPhoneLockStatus()
{
    return HostPhone::phoneLockStatus();
}
