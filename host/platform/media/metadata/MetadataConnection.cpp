#include "host/platform/media/metadata/MetadataConnection.h"

#include <QCoreApplication>

#include <algorithm>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/metadata/MediaFolderWatch.h"
#include "host/platform/media/database/MediaSearchPlan.h"
#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/metadata/MetadataClients.h"
#include "host/platform/media/metadata/MetadataIndicationPoller.h"
#include "host/platform/media/database/SqliteTransaction.h"

MetadataConnection::MetadataConnection(unsigned int handle, std::unique_ptr<MediaDatabase> database)
    : m_handle(handle), m_database(std::move(database))
{
}

MetadataConnection::~MetadataConnection()
{
    delete m_folderWatch.data();
    // Possibly from inside the poller's own handler call: it goes when that returns.
    if (m_poller)
        m_poller->retire();
}

MediaDatabase* MetadataConnection::readerOn(const QString& file)
{
    if (!m_database || m_database->fileName() != file) {
        m_database = MediaDatabase::open(file);
        restartSnapshot();
    } else if (m_database->holdsSnapshot() != isSubscribed()) {
        restartSnapshot();
    }
    return m_database.get();
}

MediaDatabase* MetadataConnection::writerOn(const QString& file)
{
    if (!m_writer || m_writer->fileName() != file)
        m_writer = MediaDatabase::open(file);
    return m_writer.get();
}

bool MetadataConnection::isSubscribed() const
{
    return m_poller && m_poller->isSubscribed();
}

void MetadataConnection::restartSnapshot()
{
    m_isChangeUnhandled = false;
    if (!m_database)
        return;
    if (isSubscribed())
        m_database->holdSnapshot();
    else
        m_database->releaseSnapshot();
}

void MetadataConnection::catchUp()
{
    if (m_isChangeUnhandled)
        restartSnapshot();
}

void MetadataConnection::noteUnreadRecordWritten(const QString& file)
{
    // Without a held snapshot on that file nothing keeps its log; a
    // connection that only reads has no writer until its first look at the
    // change log, which a list skipping file after file in one go never lets
    // come.
    if (!m_database || m_database->fileName() != file || !m_database->holdsSnapshot() || !writerOn(file))
        return;
    moveSnapshotPastUnreadChanges(LockWait::DoNotWait);
}

QList<quint32> MetadataConnection::noteIndicationDelivered(const MediaChanges& changes)
{
    if (concernsClient(changes)) {
        m_isChangeUnhandled = true;
        return {};
    }
    if (moveSnapshotPastUnreadChanges() != SnapshotMove::HeldForMediaChange)
        return {};
    // A change of media objects moved the members of a group the client
    // reads (one went to the other storage, or another program deleted it
    // without foreign keys, leaving its member row): no group change was
    // logged, and a play list acts on the media change only when its own
    // file is gone. Announced as a change of the group, it is one the list
    // handles, and its handling moves the snapshot; unannounced, the snapshot
    // and the write-ahead log would stay where they are for as long as the
    // list plays.
    m_isChangeUnhandled = true;
    return QList<quint32>(m_groupsRead.cbegin(), m_groupsRead.cend());
}

void MetadataConnection::noteRead(const MediaSearchPlan& plan)
{
    const std::optional<quint32> group = plan.groupId();
    if (!group) {
        m_readsBeyondGroups = true;
        return;
    }
    m_groupsRead.insert(*group);
    for (const QByteArray& column : plan.mediaColumns())
        m_groupColumnsRead.insert(column);
}

bool MetadataConnection::concernsClient(const MediaChanges& changes) const
{
    if (changes.isMediaChanged && m_readsBeyondGroups)
        return true;
    for (const MediaGroupChange& change : changes.groups) {
        if (m_groupsRead.contains(change.groupId))
            return true;
    }
    return false;
}

std::optional<bool> MetadataConnection::isGroupReadAlike()
{
    // A media change reaches a group search only through the group's
    // members: an object that is no member is in no result, whatever happens
    // to it. So each group's members are compared, in their order, each with
    // the columns of its object that the client's searches read (the id,
    // which turns NULL when the object is gone, even where another program
    // deleted it without foreign keys and left the member row; the storage a
    // list is restricted to; the album in shuffle-albums mode). Equal members
    // mean an equal result for every search the client made, so the
    // positions it knows still hold; a scanner's new tags for a member's
    // artist or title change nothing there. Two reads of the groups read,
    // whatever the number of searches: comparing the results of the searches
    // themselves would read one result per search shape, and a list in
    // shuffle-albums mode makes one per album.
    QList<QByteArray> columns(m_groupColumnsRead.begin(), m_groupColumnsRead.end());
    std::sort(columns.begin(), columns.end());
    for (const quint32 group : m_groupsRead) {
        const std::optional<QByteArray> held = m_database->groupMemberView(group, columns);
        const std::optional<QByteArray> newest = m_writer->groupMemberView(group, columns);
        if (!held || !newest)
            return std::nullopt;
        if (*held != *newest)
            return false;
    }
    return true;
}

MetadataConnection::SnapshotMove MetadataConnection::moveSnapshotPastUnreadChanges(LockWait wait)
{
    if (m_isChangeUnhandled || !m_database || !m_database->holdsSnapshot() || !m_writer
        || m_writer->fileName() != m_database->fileName() || m_writer->isInTransaction())
        return SnapshotMove::Held;
    const std::optional<qint64> taken = m_database->snapshotSequence();
    // Held while it is decided, so that no other writer commits in between:
    // a change made after the look below and before the new snapshot could
    // be one the client must handle before it reads with new positions.
    // Nothing is written under it: it rolls back as it goes.
    const std::unique_ptr<SqliteTransaction> writeLock =
        wait == LockWait::Wait ? m_writer->beginTransaction() : m_writer->beginTransactionWithoutWaiting();
    if (!taken || !writeLock->isActive())
        return SnapshotMove::Held;
    const std::optional<MediaChanges> changes = m_writer->changesSince(*taken);
    if (!changes || concernsClient(*changes))
        return SnapshotMove::Held;
    if (changes->isMediaChanged) {
        const std::optional<bool> isAlike = isGroupReadAlike();
        if (!isAlike)
            return SnapshotMove::Held;
        if (!*isAlike)
            return SnapshotMove::HeldForMediaChange;
    }
    m_database->holdSnapshot();
    return SnapshotMove::Moved;
}

// ---------------------------------------------------------------------------
// The backup

bool MetadataConnection::backUp(const MediaSearchPlan& plan)
{
    restartSnapshot();
    m_backup.reset();
    // A new backup is a new list: what an earlier one read is not its.
    m_groupsRead.clear();
    m_groupColumnsRead.clear();
    m_readsBeyondGroups = false;
    noteRead(plan);
    if (m_database)
        m_backup = MediaBackup::take(*m_database, plan);
    updateFolderWatch();
    return m_backup.has_value();
}

std::optional<MediaBackupCheck> MetadataConnection::checkBackup(int position)
{
    if (!m_backup || !m_database)
        return std::nullopt;
    catchUp();
    return m_backup->check(*m_database, position);
}

bool MetadataConnection::refreshBackup()
{
    if (!m_backup || !m_database)
        return false;
    catchUp();
    if (!m_backup->refresh(*m_database))
        return false;
    updateFolderWatch();
    return true;
}

bool MetadataConnection::releaseBackup()
{
    catchUp();
    const bool hadBackup = m_backup.has_value();
    m_backup.reset();
    updateFolderWatch();
    return hadBackup;
}

// ---------------------------------------------------------------------------
// Indications

MetadataIndicationPoller& MetadataConnection::poller()
{
    if (!m_poller) {
        const unsigned int handle = m_handle;
        m_poller = new MetadataIndicationPoller([handle] { return MetadataClients::instance().writer(handle); },
                                                QCoreApplication::instance());
        m_poller->setDeliveryNotice([handle](const MediaChanges& changes) {
            MetadataConnection* connection = MetadataClients::instance().connection(handle);
            return connection ? connection->noteIndicationDelivered(changes) : QList<quint32>{};
        });
    }
    return *m_poller;
}

void MetadataConnection::setIndicationHandler(MetadataIndicationHandler handler, void* userData)
{
    poller().setHandler(handler, userData);
}

void MetadataConnection::registerIndications(const QList<unsigned short>& indications)
{
    poller().subscribe(indications);
    restartSnapshot();
    updateFolderWatch();
}

void MetadataConnection::deregisterIndications()
{
    if (m_poller)
        m_poller->cancel();
    restartSnapshot();
    updateFolderWatch();
}

void MetadataConnection::updateFolderWatch()
{
    const bool isWanted = m_backup && m_database && m_poller && m_poller->isSubscribed();
    if (!isWanted) {
        delete m_folderWatch.data();
        return;
    }
    if (!m_folderWatch) {
        const unsigned int handle = m_handle;
        m_folderWatch = new MediaFolderWatch([handle] { return MetadataClients::instance().writer(handle); },
                                             QCoreApplication::instance());
    }
    // A list over this many folders is most of a library: watching them all
    // would spend more of the system's inotify watches than the host can
    // spare, so such a list is not watched at all, and deletions there wait
    // for the next scan.
    const std::optional<QSet<QString>> folders =
        m_database->foldersOf(m_backup->ids(), MediaFolderWatch::kMaxFolders);
    if (!folders)
        qCDebug(lcMetadata) << "more than" << MediaFolderWatch::kMaxFolders << "folders in the list: not watched";
    m_folderWatch->watchFolders(folders.value_or(QSet<QString>()));
}
