#include "platform/SETUP_SET_Manager.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonValue>
#include <QLoggingCategory>
#include <QSettings>

#include "host/platform/HostDataDir.h"
#include "host/platform/HostJournal.h"
#include "host/platform/phone/HostPhone.h"

Q_LOGGING_CATEGORY(lcSettings, "mp.host.settings")

namespace {
QString storePath(int appId)
{
    const QString dir = HostDataDir::file(QStringLiteral("settings"));
    QDir().mkpath(dir);
    return dir + QStringLiteral("/app-%1.ini").arg(appId);
}

bool isStoreWritable(const QString& fileName)
{
    // Refused before QSettings is asked: it would keep the value in memory and
    // answer it to later reads as if it had been saved.
    const QFileInfo store(fileName);
    const bool isWritable = HostDataDir::isWritable(store.absolutePath())
                            && (!store.exists() || HostDataDir::isWritable(store.absoluteFilePath()));
    if (!isWritable)
        HostDataDir::reportReadOnly(HostDataDir::path());
    return isWritable;
}

QString settingsKey(const QString& group, const QString& key)
{
    return group + QLatin1Char('/') + key;
}

// Every process keeps the store it last read and reads the file again only
// when its size or its modification time (to the millisecond) changed. A
// rewrite that changes one digit within one tick of the file system's clock
// keeps both, and another process (the player, a desktop bridge) would go on
// answering the old value: the new file is stamped after the one it replaced.
void stampAfter(const QString& fileName, const QDateTime& replaced)
{
    if (!replaced.isValid() || QFileInfo(fileName).lastModified() > replaced)
        return;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(replaced.addMSecs(1), QFileDevice::FileModificationTime))
        qCWarning(lcSettings) << "SETUP_SET_Manager: cannot stamp" << fileName << "after the file it replaced";
}
} // namespace

SETUP_SET_Manager::SETUP_SET_Manager(int appId, bool readOnly)
    : m_appId(appId), m_readOnly(readOnly), m_settings(new QSettings(storePath(appId), QSettings::IniFormat))
{
}

SETUP_SET_Manager::~SETUP_SET_Manager()
{
    delete m_settings;
}

bool SETUP_SET_Manager::getSettingInfo(const QString& group, const QString& key, bool& value,
                                       bool defaultValue) const
{
    const QVariant stored = m_settings->value(settingsKey(group, key));
    value = stored.isValid() ? stored.toBool() : defaultValue;
    return stored.isValid();
}

bool SETUP_SET_Manager::getSettingInfo(const QString& group, const QString& key, int& value,
                                       int defaultValue) const
{
    const QVariant stored = m_settings->value(settingsKey(group, key));
    bool isNumber = false;
    const int number = stored.toInt(&isNumber);
    value = isNumber ? number : defaultValue;
    return isNumber;
}

bool SETUP_SET_Manager::setSettingInfo(const QString& group, const QString& key, bool value)
{
    return write(group, key, value);
}

bool SETUP_SET_Manager::setSettingInfo(const QString& group, const QString& key, int value)
{
    return write(group, key, value);
}

bool SETUP_SET_Manager::write(const QString& group, const QString& key, const QVariant& value)
{
    if (m_readOnly) {
        qCWarning(lcSettings) << "SETUP_SET_Manager: store" << m_appId << "opened read-only; not writing" << key;
        return false;
    }
    if (!isStoreWritable(m_settings->fileName())) {
        qCWarning(lcSettings) << "SETUP_SET_Manager: read-only data folder; not writing" << key;
        return false;
    }
    const QFileInfo stored(m_settings->fileName());
    const QDateTime replaced = stored.exists() ? stored.lastModified() : QDateTime();
    HostJournal::settings(m_appId, group, key, QJsonValue::fromVariant(value));
    m_settings->setValue(settingsKey(group, key), value);
    // QSettings saves through a temporary file and a rename, so a crash
    // leaves either the old or the new file, never half of one.
    m_settings->sync();
    if (m_settings->status() != QSettings::NoError) {
        qCWarning(lcSettings) << "SETUP_SET_Manager: cannot write" << m_settings->fileName();
        return false;
    }
    stampAfter(m_settings->fileName(), replaced);
    return true;
}

bool SETUP_Utility::getFlexBit(unsigned short bit, bool& value)
{
    value = HostPhone::flexBit(bit);
    return true;
}

QString getProfileItem(const QString& section, const QString& key)
{
    return HostPhone::profileItem(section, key);
}
