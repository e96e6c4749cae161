#pragma once
// The host's stand-in for the phone database's own notice of deleted files:
// it watches the folders of a play list's files, and when one of them changes
// it removes from the database the objects of that folder whose files are gone
// (journaled as {"kind":"file","call":"deleted","args":[path]}). The change
// log then tells every subscribed connection, as for any other change.

#include <QFileSystemWatcher>
#include <QSet>
#include <QObject>
#include <QStringList>

#include <functional>

class MediaDatabase;

class MediaFolderWatch : public QObject {
    Q_OBJECT
public:
    /** Gives the database to remove from at the time of a change, or null when there is none. */
    using DatabaseSource = std::function<MediaDatabase*()>;

    /** The most folders watched at once. */
    static constexpr int kMaxFolders = 256;

    explicit MediaFolderWatch(DatabaseSource database, QObject* parent = nullptr);

    /** Watches the existing ones of @p folders in place of the earlier ones; an empty
     *  set watches none. */
    void watchFolders(QSet<QString> folders);
    /** The folders watched now, sorted. */
    QStringList folders() const;

private:
    void removeDeletedFiles(const QString& folder);

    DatabaseSource m_database;
    QFileSystemWatcher m_watcher;
};
