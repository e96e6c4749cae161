#pragma once
// One client connection behind a metadata handle: its database connection
// and what the connection keeps besides: the backup of a search result, the
// change indications it is subscribed to, and, while it has both, the watch
// on the folders of the backed-up files.

#include <QPointer>
#include <QString>

#include <memory>
#include <optional>

#include "host/platform/media/MediaBackup.h"
#include "platform/Metadata.h"

class MediaDatabase;
class MediaFolderWatch;
class MediaSearchPlan;
class MetadataIndicationPoller;

class MetadataConnection {
public:
    /** A connection for @p handle; its helpers find its database through MetadataClients. */
    MetadataConnection(unsigned int handle, std::unique_ptr<MediaDatabase> database);
    ~MetadataConnection();
    MetadataConnection(const MetadataConnection&) = delete;
    MetadataConnection& operator=(const MetadataConnection&) = delete;

    unsigned int handle() const { return m_handle; }
    /** The database connection on @p file: the present one, or a new one when the present
     *  one is on another file (the data folder moved); null when it cannot be opened. */
    MediaDatabase* databaseOn(const QString& file);

    // The backup
    /** Keeps the result of @p plan as the backup, in place of any earlier one; false
     *  (leaving no backup) when the search failed or asks for album names. */
    bool backUp(const MediaSearchPlan& plan);
    /** Where the backup's entry at @p position is now; nothing without a backup or when
     *  the search failed. */
    std::optional<MediaBackupCheck> checkBackup(int position);
    /** Takes the search's present result as the backup; false without a backup. */
    bool refreshBackup();
    /** Drops the backup; false when there was none. */
    bool releaseBackup();
    bool hasBackup() const { return m_backup.has_value(); }

    // Indications
    void setIndicationHandler(MetadataIndicationHandler handler, void* userData);
    void registerIndications(const QList<unsigned short>& indications);
    void deregisterIndications();

private:
    MetadataIndicationPoller& poller();
    /** Watches the backup's folders while there is a backup and a subscription. */
    void updateFolderWatch();

    unsigned int m_handle;
    std::unique_ptr<MediaDatabase> m_database;
    std::optional<MediaBackup> m_backup;
    // Both owned, made on demand. They are children of the application, so
    // that neither outlives the event loop it works in when a connection is
    // still open at exit; the pointers then turn null.
    QPointer<MetadataIndicationPoller> m_poller;
    QPointer<MediaFolderWatch> m_folderWatch;
};
