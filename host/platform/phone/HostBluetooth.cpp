#include "host/platform/phone/HostBluetooth.h"

#include "host/platform/HostJournal.h"

namespace {

struct BluetoothState {
    bool power = false;
    HostBluetooth::Link link = HostBluetooth::Link::None;
};

BluetoothState& bluetooth()
{
    static BluetoothState state;
    return state;
}

} // namespace

void HostBluetooth::setPower(bool on)
{
    bluetooth().power = on;
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setBluetoothPower"), {on});
    if (!on && bluetooth().link != Link::None)
        setLink(Link::None);
}

bool HostBluetooth::isPowerOn()
{
    return bluetooth().power;
}

bool HostBluetooth::setLink(Link link)
{
    if (link != Link::None && !bluetooth().power)
        return false;
    bluetooth().link = link;
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setBluetoothLink"), {linkName(link)});
    return true;
}

HostBluetooth::Link HostBluetooth::link()
{
    return bluetooth().link;
}

QString HostBluetooth::linkName(Link link)
{
    switch (link) {
    case Link::Mono:
        return QStringLiteral("mono");
    case Link::Stereo:
        return QStringLiteral("stereo");
    case Link::None:
        break;
    }
    return QStringLiteral("none");
}

bool HostBluetooth::parseLink(const QString& name, Link* link)
{
    for (Link candidate : {Link::None, Link::Mono, Link::Stereo}) {
        if (name == linkName(candidate)) {
            *link = candidate;
            return true;
        }
    }
    return false;
}

void HostBluetooth::reset()
{
    bluetooth() = BluetoothState();
}
