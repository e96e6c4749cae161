#include "host/platform/phone/HostPhone.h"

#include <QHash>
#include <QSet>

#include "host/platform/HostJournal.h"

namespace {

struct PhoneState {
    int flipStatus = 0;
    QSet<int> flexBits;
    QHash<QString, QString> profile;

    PhoneState() { setDefaults(); }
    void setDefaults()
    {
        flipStatus = 0;
        flexBits.clear();
        profile.clear();
        // Phone memory and a memory card.
        profile.insert(QStringLiteral("MF_FlexNumber/StorageNumber"), QStringLiteral("2"));
    }
};

PhoneState& phone()
{
    static PhoneState state;
    return state;
}

QString profileKey(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

} // namespace

void HostPhone::setFlipStatus(int status)
{
    phone().flipStatus = status;
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setFlipStatus"), {status});
}

int HostPhone::flipStatus()
{
    return phone().flipStatus;
}

void HostPhone::setFlexBit(int bit, bool on)
{
    if (on)
        phone().flexBits.insert(bit);
    else
        phone().flexBits.remove(bit);
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setFlexBit"), {bit, on});
}

bool HostPhone::flexBit(int bit)
{
    return phone().flexBits.contains(bit);
}

void HostPhone::setProfileItem(const QString& section, const QString& key, const QString& value)
{
    phone().profile.insert(profileKey(section, key), value);
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setProfileItem"), {section, key, value});
}

QString HostPhone::profileItem(const QString& section, const QString& key)
{
    return phone().profile.value(profileKey(section, key));
}

void HostPhone::reset()
{
    phone().setDefaults();
}
