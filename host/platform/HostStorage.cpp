#include "host/platform/HostStorage.h"

#include <QDir>
#include <QFileInfo>

#include "host/platform/HostDataDir.h"

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
