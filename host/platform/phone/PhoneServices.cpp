#include "platform/PhoneServices.h"

#include "host/contracts/KeyEventChannel.h"
#include "host/platform/phone/HostPhone.h"

int UTIL_GetFlipStatus()
{
    return HostPhone::flipStatus();
}

QString UTIL_GetKeyEventChannel()
{
    return QString::fromLatin1(KeyEventChannel::kChannel);
}

int UTIL_GetTimeBetweenKeyRepeat()
{
    return HostPhone::keyRepeatInterval();
}

int UTIL_GetPhoneLockStatus()
{
    return HostPhone::phoneLockStatus();
}
