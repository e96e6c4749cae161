#include "host/platform/media/metadata/MediaFolderWatch.h"

#include <QFileInfo>
#include <QSet>

#include <memory>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/scanner/MediaScanner.h"
#include "host/platform/media/metadata/MetadataJournal.h"
#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/database/SqliteTransaction.h"

MediaFolderWatch::MediaFolderWatch(DatabaseSource database, QObject* parent)
    : QObject(parent), m_database(std::move(database))
{
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &MediaFolderWatch::removeDeletedFiles);
}

void MediaFolderWatch::watchFolders(QSet<QString> wanted)
{
    const QStringList watched = m_watcher.directories();
    QStringList dropped;
    for (const QString& folder : watched) {
        if (!wanted.remove(folder))
            dropped.append(folder);
    }
    if (!dropped.isEmpty())
        m_watcher.removePaths(dropped);
    QStringList added;
    for (const QString& folder : std::as_const(wanted)) {
        // A folder that is not there (a file of another machine) cannot be watched.
        if (QFileInfo(folder).isDir())
            added.append(folder);
    }
    if (!added.isEmpty())
        m_watcher.addPaths(added);
}

QStringList MediaFolderWatch::folders() const
{
    QStringList folders = m_watcher.directories();
    folders.sort();
    return folders;
}

void MediaFolderWatch::removeDeletedFiles(const QString& folder)
{
    MediaDatabase* database = m_database();
    if (!database)
        return;
    const std::unique_ptr<SqliteTransaction> transaction = database->beginTransaction();
    if (!transaction->isActive())
        return;
    MediaScanner scanner(*database);
    QStringList deleted;
    for (const MediaFileStamp& stamp : database->mediaUnder(folder)) {
        // Only the folder's own files: a subfolder's belong to the watch of
        // that folder, when the list has files there.
        if (QFileInfo(stamp.path).path() == folder && !QFileInfo::exists(stamp.path) && scanner.removeFile(stamp.path))
            deleted.append(stamp.path);
    }
    if (!transaction->commit())
        return;
    for (const QString& path : std::as_const(deleted))
        MetadataJournal::fileDeleted(path);
}
