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
