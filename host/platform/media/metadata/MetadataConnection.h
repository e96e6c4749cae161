#pragma once
// One client connection behind a metadata handle: its database connections
// and what the connection keeps besides: the backup of a search result, the
// change indications it is subscribed to, and, while it has both, the watch
// on the folders of the backed-up files.
//
// What a client reads. A play list knows positions in the database as it was
// when it last handled a change indication; reading the database as another
// program has changed it since, with those positions, plays the wrong song.
// So a subscribed client reads a snapshot:
//  - Subscribing (metadataRegisterIndication) and taking a backup
//    (metadataBackupSearchedMedias) start a snapshot of the newest state.
//  - Delivering an indication does not move it: the list defers its handling
//    through the event loop, and what it reads meanwhile (the engine stepping
//    it) must still match the positions it knows.
//  - After a delivery, the snapshot moves to the newest state at the first
//    call with which the client handles the change: metadataCheckBackupedItem
//    (where did my song go), metadataManageBackupList, or a search that counts
//    or asks for object ids only (how a list in shuffle-albums mode counts its
//    songs and finds its song by id). A search that fetches entries to play
//    (paths, album names) never moves it.
//  - Changes that touch nothing the client reads do not wait for it: no
//    group that its searches or its backup drew from changed (the play
//    history, when the library plays), and no media object changed, or, for
//    a client that has searched only groups since its backup (a play list,
//    the play history), none in a way that changes what those searches
//    return (another program adding songs under a playing play list). The
//    snapshot moves past them at once, when the client's own write made them,
//    when they are delivered, or when the metadata library wrote its own
//    last-played records (which no search reads and no indication announces,
//    so that nothing else would move the snapshot past them), provided nothing
//    else was committed meanwhile and no change waits to be handled; no other
//    writer can commit while that is decided. So a client that plays for
//    hours, writing its history at every song while a scanner adds songs, never
//    keeps the write-ahead log from starting over; nor does a list that skips
//    thousands of missing files, each of which writes the last played song.
//    A look-up of files by their paths (how the history finds the song it
//    adds) knows no positions and counts as no search here: it reads the
//    snapshot, as every call does.
//  - Without a subscription nothing is held: every call reads the newest state.
// Writes (group changes, the history) go through a second connection that
// never holds a snapshot; the change log announces them like any other
// change, and the snapshot moves when the client handles that indication.
// Without write-ahead logging a held read would lock writers out, so then no
// snapshot is held at all.

#include <QByteArray>
#include <QPointer>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>

#include "host/platform/media/database/MediaBackup.h"
#include "host/platform/media/database/MediaChanges.h"
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
    /** The connection that reads, on @p file (reopened when the data folder moved), with
     *  the snapshot the rule above asks for; null when it cannot be opened. */
    MediaDatabase* readerOn(const QString& file);
    /** The connection that reads, as readerOn() last left it: what a call that found this
     *  connection through MetadataClients reads, without a second look at the data folder. */
    MediaDatabase* reader() const { return m_database.get(); }
    /** The connection that writes and looks at the change log, on @p file; it never holds
     *  a snapshot. Null when it cannot be opened. */
    MediaDatabase* writerOn(const QString& file);

    /** @p changes are being delivered to the client: its snapshot moves at its next
     *  handling call, or at once when they touch nothing it reads (see above). Returns the
     *  groups to announce as changed besides those of @p changes: the groups the client
     *  reads, when a change of media objects alone moved their members. */
    QList<quint32> noteIndicationDelivered(const MediaChanges& changes);
    /** The client handles the change now: the snapshot moves forward if an indication was
     *  delivered since it was taken. */
    void catchUp();
    /** The client wrote through writerOn(): the snapshot moves past the write when that
     *  touches nothing the client reads (see above). */
    void noteOwnWrite() { moveSnapshotPastUnreadChanges(); }
    /** The metadata library wrote a record that no client reads (the last played song or
     *  list) into @p file: a snapshot on that file moves past it as past an own write, when
     *  no other program holds the write lock (the move is left for a later write then,
     *  rather than waiting at every song). The writer is opened when the client has not
     *  written or looked for changes yet. */
    void noteUnreadRecordWritten(const QString& file);
    /** @p plan is read through this connection: changes to its group, or to the media
     *  objects its result depends on, concern the client until the next backup (a new
     *  list) is taken. */
    void noteRead(const MediaSearchPlan& plan);

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
    bool isSubscribed() const;
    /** Takes a snapshot of the newest state when subscribed, else holds none. */
    void restartSnapshot();
    /** Whether @p changes touch what the client reads, as far as the change log tells:
     *  a media change to a client that reads only groups is decided by
     *  isGroupReadAlike(), under the write lock. */
    bool concernsClient(const MediaChanges& changes) const;
    /** Whether every group the client read holds, for its searches, the same members in
     *  the snapshot as in the newest state; nothing when that cannot be read. */
    std::optional<bool> isGroupReadAlike();
    enum class SnapshotMove {
        Moved,
        Held,               ///< not moved: a change concerns the client, or nothing could be decided
        HeldForMediaChange, ///< not moved: a media change alters what the client's group searches return
    };
    /** Whether a move waits for another program's write lock (up to the busy limit). */
    enum class LockWait { Wait, DoNotWait };
    /** Moves the snapshot to the newest state when everything committed since it was
     *  taken leaves what the client reads as it was. */
    SnapshotMove moveSnapshotPastUnreadChanges(LockWait wait = LockWait::Wait);

    unsigned int m_handle;
    std::unique_ptr<MediaDatabase> m_database;   // reads, in the snapshot
    std::unique_ptr<MediaDatabase> m_writer;     // writes and change-log looks
    /** An indication that concerns the client was delivered after the snapshot was taken. */
    bool m_isChangeUnhandled = false;
    /** The groups the client's searches and backup drew from since the backup. */
    QSet<quint32> m_groupsRead;
    /** The media columns ("m.<column>") that those group searches read. */
    QSet<QByteArray> m_groupColumnsRead;
    /** A search since the backup drew from the media objects beyond any group (the
     *  library, an album): every media change concerns the client. */
    bool m_readsBeyondGroups = false;
    std::optional<MediaBackup> m_backup;
    // Both owned, made on demand. They are children of the application, so
    // that neither outlives the event loop it works in when a connection is
    // still open at exit; the pointers then turn null.
    QPointer<MetadataIndicationPoller> m_poller;
    QPointer<MediaFolderWatch> m_folderWatch;
};
