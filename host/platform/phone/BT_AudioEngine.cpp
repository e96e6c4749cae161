#include "platform/BT_AudioEngine.h"

#include "host/platform/HostJournal.h"
#include "host/platform/phone/HostBluetooth.h"

namespace {

void journalCall(const char* call, int preference)
{
    HostJournal::call(QStringLiteral("service"), QLatin1String(call), {preference});
}

} // namespace

BT_AudioEngine* BT_AudioEngine::instance()
{
    static BT_AudioEngine engine;
    return &engine;
}

bool BT_AudioEngine::isBluetoothPowerOn() const
{
    return HostBluetooth::isPowerOn();
}

bool BT_AudioEngine::isBluetoothStereoConnected() const
{
    return HostBluetooth::link() == HostBluetooth::Link::Stereo;
}

bool BT_AudioEngine::isBluetoothMonoConnected() const
{
    return HostBluetooth::link() == HostBluetooth::Link::Mono;
}

bool BT_AudioEngine::attachAudioAccy(int preference)
{
    journalCall("attachAudioAccy", preference);
    // The host has one paired headset and it can carry music, so the route
    // comes up as a stereo link whatever the preference: the player asks
    // only for the phone's default (0), and that is what a music headset
    // gives it.
    if (!HostBluetooth::isPowerOn() || HostBluetooth::link() != HostBluetooth::Link::None)
        return false;
    return HostBluetooth::setLink(HostBluetooth::Link::Stereo);
}

bool BT_AudioEngine::detachAudioAccy(int preference)
{
    journalCall("detachAudioAccy", preference);
    if (HostBluetooth::link() == HostBluetooth::Link::None)
        return false;
    return HostBluetooth::setLink(HostBluetooth::Link::None);
}
