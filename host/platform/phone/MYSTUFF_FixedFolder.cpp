#include "platform/STUFF_Global.h"

#include <QDir>
#include <QFileInfo>

#include "host/platform/HostDataDir.h"

QString MYSTUFF_FixedFolder::preloadPath()
{
    return HostDataDir::file(QStringLiteral("preload"));
}

bool MYSTUFF_FixedFolder::isPreloadFolder(const QString& folder)
{
    if (folder.isEmpty())
        return false;
    const QString preload = preloadPath();
    // Both the names and the places links lead to count, as the data folder
    // may itself be reached through a link (a temporary folder, say).
    const QString names[] = {QDir::cleanPath(QFileInfo(folder).absoluteFilePath()),
                             QFileInfo(folder).canonicalFilePath()};
    const QString preloads[] = {preload, QFileInfo(preload).canonicalFilePath()};
    for (const QString& name : names) {
        for (const QString& root : preloads) {
            if (!name.isEmpty() && !root.isEmpty() && (name == root || name.startsWith(root + QLatin1Char('/'))))
                return true;
        }
    }
    return false;
}
