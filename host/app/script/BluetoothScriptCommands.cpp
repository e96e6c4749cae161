#include "host/app/script/BluetoothScriptCommands.h"

#include "host/platform/phone/HostBluetooth.h"
#include "host/platform/phone/HostPhone.h"

namespace {

// "on" → true, "off" → false; false when @p word is neither.
bool onOff(const QString& word, bool* on)
{
    *on = word == QLatin1String("on");
    return *on || word == QLatin1String("off");
}

} // namespace

void BluetoothScriptCommands::addTo(ScriptCommandTable& table)
{
    table.insert(QStringLiteral("bt"), &BluetoothScriptCommands::bluetooth);
    table.insert(QStringLiteral("lock"), &BluetoothScriptCommands::lock);
}

bool BluetoothScriptCommands::bluetooth(const QStringList& arguments, QString* error)
{
    const QString what = arguments.value(0);
    bool on = false;
    if (arguments.size() == 2 && what == QLatin1String("power") && onOff(arguments.at(1), &on)) {
        HostBluetooth::setPower(on);
        return true;
    }
    HostBluetooth::Link link = HostBluetooth::Link::None;
    if (arguments.size() == 2 && what == QLatin1String("link") && HostBluetooth::parseLink(arguments.at(1), &link)) {
        if (!HostBluetooth::setLink(link)) {
            *error = QStringLiteral("no headset link while Bluetooth is off (say \"bt power on\" first)");
            return false;
        }
        return true;
    }
    *error = QStringLiteral("expects power on|off or link none|mono|stereo");
    return false;
}

bool BluetoothScriptCommands::lock(const QStringList& arguments, QString* error)
{
    bool on = false;
    if (arguments.size() != 1 || !onOff(arguments.first(), &on)) {
        *error = QStringLiteral("expects on or off");
        return false;
    }
    HostPhone::setPhoneLockStatus(on ? 1 : 0);
    return true;
}
