#include "host/platform/phone/HostPhone.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QLoggingCategory>
#include <QSaveFile>

#include "host/platform/HostDataDir.h"
#include "host/platform/HostJournal.h"
#include "host/platform/phone/HostBluetooth.h"
#include "host/platform/phone/HostProfileFile.h"
#include "host/platform/phone/HostStorage.h"

Q_LOGGING_CATEGORY(lcPhone, "mp.host.phone")

namespace {

const int kDefaultKeyRepeat = 300;
const int kMaxKeyRepeat = 60000;

HostProfileFile::Content defaultProfile()
{
    HostProfileFile::Content defaults;
    // A phone with a blog service that checks ringtones, and with bookmarks.
    defaults.flexBits = {{149, true}, {492, false}, {512, true}};
    // Phone memory and a memory card.
    defaults.items.insert(QStringLiteral("MF_FlexNumber/StorageNumber"), QStringLiteral("2"));
    defaults.items.insert(QStringLiteral("Keys/RepeatInterval"), QString::number(kDefaultKeyRepeat));
    return defaults;
}

struct PhoneState {
    int flipStatus = 0;
    int lockStatus = 0;
    QHash<int, bool> flexBits;
    QHash<QString, QString> profile;
    quint64 profileGeneration = 0;

    PhoneState() { setDefaults(); }
    void setDefaults()
    {
        flipStatus = 0;
        lockStatus = 0;
        const HostProfileFile::Content defaults = defaultProfile();
        flexBits = defaults.flexBits;
        profile = defaults.items;
        const HostProfileFile::Content file = HostProfileFile::read(HostPhone::profilePath());
        for (const QString& warning : file.warnings)
            qCWarning(lcPhone).noquote() << HostPhone::profilePath() + QLatin1Char(':') << warning << "(skipped)";
        flexBits.insert(file.flexBits);
        profile.insert(file.items);
        ++profileGeneration;
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
    phone().flexBits.insert(bit, on);
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setFlexBit"), {bit, on});
}

bool HostPhone::flexBit(int bit)
{
    return phone().flexBits.value(bit, false);
}

void HostPhone::setProfileItem(const QString& section, const QString& key, const QString& value)
{
    phone().profile.insert(profileKey(section, key), value);
    ++phone().profileGeneration;
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setProfileItem"), {section, key, value});
}

QString HostPhone::profileItem(const QString& section, const QString& key)
{
    return phone().profile.value(profileKey(section, key));
}

quint64 HostPhone::profileGeneration()
{
    return phone().profileGeneration;
}

void HostPhone::setPhoneLockStatus(int status)
{
    phone().lockStatus = status;
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setPhoneLockStatus"), {status});
}

int HostPhone::phoneLockStatus()
{
    return phone().lockStatus;
}

int HostPhone::keyRepeatInterval()
{
    const QString value = profileItem(QStringLiteral("Keys"), QStringLiteral("RepeatInterval"));
    bool ok = false;
    const int interval = value.toInt(&ok);
    // A held key that repeats never, or every instant, is no key repeat: such
    // a profile line is taken for a slip and the phone's own value holds.
    if (!ok || interval < 1 || interval > kMaxKeyRepeat) {
        qCWarning(lcPhone).noquote() << "Keys/RepeatInterval" << value << "is not 1 to" << kMaxKeyRepeat
                                     << "milliseconds; using" << kDefaultKeyRepeat;
        return kDefaultKeyRepeat;
    }
    return interval;
}

void HostPhone::reset()
{
    phone().setDefaults();
    HostBluetooth::reset();
}

QString HostPhone::profilePath()
{
    return HostDataDir::file(QStringLiteral("profile.ini"));
}

void HostPhone::prepareDataFolder()
{
    const QString path = profilePath();
    if (QFileInfo::exists(path) || !HostDataDir::isWritable(HostDataDir::path()))
        return;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(HostProfileFile::defaultText(defaultProfile())) < 0
        || !file.commit()) {
        qCWarning(lcPhone) << "cannot write the default profile" << path;
        return;
    }
    QDir().mkpath(HostStorage::memoryCardPath());
}
