#include "host/platform/phone/HostStorage.h"

#include <QDir>
#include <QFileInfo>

#include <cstdlib>

#include "host/platform/HostDataDir.h"
#include "host/platform/phone/HostPhone.h"
#include "platform/SETUP_SET_Manager.h"

QString HostStorage::memoryCardPath()
{
    return HostDataDir::file(QStringLiteral("mmca1"));
}

int HostStorage::storageOf(const QString& path)
{
    const QString file = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    const QString card = memoryCardPath();
    // The card may be reached through a link (a temporary folder, say): both
    // the folder's name and the place it leads to count.
    const QString canonicalCard = QFileInfo(card).canonicalFilePath();
    for (const QString& folder : {card, canonicalCard}) {
        if (!folder.isEmpty() && file.startsWith(folder + QLatin1Char('/')))
            return kMemoryCard;
    }
    return kPhoneMemory;
}

int HostStorage::storageCount()
{
    // Every search asks: the item is read again only after the profile changed.
    static quint64 generation = 0;
    static int count = 0;
    if (generation != HostPhone::profileGeneration()) {
        generation = HostPhone::profileGeneration();
        const QByteArray text =
            getProfileItem(QStringLiteral("MF_FlexNumber"), QStringLiteral("StorageNumber")).toLatin1();
        count = std::atoi(text.constData());
    }
    return count;
}

std::optional<int> HostStorage::selectedStorage(int location, int storageCount)
{
    // The number of storages (or anything above it) selects them all, as
    // does a negative location.
    if (location >= 0 && location < storageCount)
        return location;
    return std::nullopt;
}
