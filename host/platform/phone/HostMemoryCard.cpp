#include "host/platform/phone/HostMemoryCard.h"

#include <QDir>
#include <QFileInfo>

#include "host/contracts/SystemChannel.h"
#include "host/platform/HostDataDir.h"
#include "host/platform/HostJournal.h"
#include "host/platform/phone/HostStorage.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"

bool HostMemoryCard::isInserted()
{
    return QFileInfo(HostStorage::memoryCardPath()).isDir();
}

bool HostMemoryCard::insert(QString* error)
{
    const QString card = HostStorage::memoryCardPath();
    if (isInserted()) {
        *error = QStringLiteral("the memory card is in already");
        return false;
    }
    const bool keptAside = QFileInfo(removedPath()).isDir();
    if (keptAside ? !QDir().rename(removedPath(), card) : !QDir().mkpath(card)) {
        *error = QStringLiteral("cannot make the memory card's folder %1").arg(card);
        return false;
    }
    announce(true);
    return true;
}

bool HostMemoryCard::remove(QString* error)
{
    if (!isInserted()) {
        *error = QStringLiteral("there is no memory card to take out");
        return false;
    }
    // A folder kept aside already (a card folder made by hand while the card
    // was out) is left alone: nothing of a person's is deleted here.
    if (QFileInfo::exists(removedPath()) || !QDir().rename(HostStorage::memoryCardPath(), removedPath())) {
        *error = QStringLiteral("cannot move the memory card's folder aside to %1").arg(removedPath());
        return false;
    }
    announce(false);
    return true;
}

QByteArray HostMemoryCard::hotplugPayload(bool inserted)
{
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(out);
    out << qint32(SystemChannel::kCardSlot) << qint32(inserted ? 1 : 0);
    return payload;
}

QString HostMemoryCard::removedPath()
{
    return HostDataDir::file(QStringLiteral(".mmca1-removed"));
}

void HostMemoryCard::announce(bool inserted)
{
    HostJournal::call(QStringLiteral("phone"), QStringLiteral("setMemoryCard"), {inserted});
    QCopChannel::send(SystemChannel::kChannel, SystemChannel::kCardHotplug, hotplugPayload(inserted));
}
