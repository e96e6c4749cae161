// The metadata plain functions: a thin layer that reads the records, finds
// the connection of a handle and hands the work to the classes behind it.

#include "platform/Metadata.h"

#include <sqlite3.h>

#include "host/platform/phone/HostStorage.h"
#include "host/platform/media/metadata/LastPlayedStore.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/metadata/MediaFileSearch.h"
#include "host/platform/media/database/MediaGroupEditor.h"
#include "host/platform/media/database/MediaSearchPlan.h"
#include "host/platform/media/metadata/MetadataClients.h"
#include "host/platform/media/metadata/MetadataConnection.h"
#include "host/platform/media/metadata/MetadataJournal.h"
#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/metadata/MetadataResponseBuilder.h"

namespace {

// A read-only data folder, or a database refused, was said once when the
// database was opened; a write that fails there is expected, not news at
// every song.
bool isKnownReadOnly(const MediaDatabase* database)
{
    return !database || database->isReadOnly();
}

enum MetadataResult {
    kSuccess = 0,
    kUnknownHandle = 1,
    kUnreadableRequest = 2,
    kDatabaseFailure = 3,
    kRefused = 4,         ///< a group change naming no such group, object or place
    kNoBackup = 5,
};

MetadataConnection* connectionOf(unsigned int handle, const char* function)
{
    MetadataConnection* connection = MetadataClients::instance().connection(handle);
    if (!connection)
        MetadataClients::warnNoConnection(function, handle);
    return connection;
}

MediaDatabase* databaseOf(unsigned int handle, const char* function)
{
    MediaDatabase* database = MetadataClients::instance().database(handle);
    if (!database)
        MetadataClients::warnNoConnection(function, handle);
    return database;
}

MediaDatabase* writerOf(unsigned int handle, const char* function)
{
    MediaDatabase* database = MetadataClients::instance().writer(handle);
    if (!database)
        MetadataClients::warnNoConnection(function, handle);
    return database;
}

// After a write through the handle's writer: what the write changed may
// leave the client's snapshot free to move (MetadataConnection.h).
void noteOwnWrite(unsigned int handle)
{
    if (MetadataConnection* connection = MetadataClients::instance().connection(handle))
        connection->noteOwnWrite();
}

int withStatus(int result, int* status)
{
    if (status)
        *status = result;
    return result;
}

int addItemsIntoGroup(unsigned int handle, const MetadataAddItemsRecord* record)
{
    if (!record || (record->count > 0 && !record->items)) {
        qCWarning(lcMetadata) << "metadataAddItemsIntoGroup: no" << (record ? "item array" : "record");
        return kUnreadableRequest;
    }
    MediaDatabase* database = writerOf(handle, "metadataAddItemsIntoGroup");
    if (!database) {
        MetadataJournal::addItemsIntoGroup(*record, false);
        return kUnknownHandle;
    }
    QList<MediaGroupInsertion> items;
    for (uint32_t i = 0; i < record->count; ++i)
        items.append(MediaGroupInsertion{record->items[i].objectId, record->items[i].position});
    const bool isWritten = MediaGroupEditor(*database).addItems(record->groupId, items);
    MetadataJournal::addItemsIntoGroup(*record, isWritten);
    noteOwnWrite(handle);
    return isWritten ? kSuccess : kRefused;
}

int removeItemsFromGroup(unsigned int handle, const MetadataRemoveItemsRecord* record)
{
    if (!record || (record->count > 0 && !record->positions)) {
        qCWarning(lcMetadata) << "metadataRemoveItemsFromGroup: no" << (record ? "position array" : "record");
        return kUnreadableRequest;
    }
    MediaDatabase* database = writerOf(handle, "metadataRemoveItemsFromGroup");
    if (!database) {
        MetadataJournal::removeItemsFromGroup(*record, false);
        return kUnknownHandle;
    }
    const QList<quint32> positions(record->positions, record->positions + record->count);
    const std::optional<int> storage =
        HostStorage::selectedStorage(record->storageLocation, HostStorage::storageCount());
    const bool isWritten = MediaGroupEditor(*database).removeAt(record->groupId, MetadataGroupType(record->groupType),
                                                                storage, positions);
    MetadataJournal::removeItemsFromGroup(*record, isWritten);
    noteOwnWrite(handle);
    return isWritten ? kSuccess : kRefused;
}

int manageBackupList(unsigned int handle, int operation)
{
    MetadataConnection* connection = connectionOf(handle, "metadataManageBackupList");
    if (!connection)
        return kUnknownHandle;
    if (!connection->hasBackup())
        return kNoBackup;
    switch (operation) {
    case METADATA_BACKUP_RELEASE:
        connection->releaseBackup();
        return kSuccess;
    case METADATA_BACKUP_REFRESH:
        return connection->refreshBackup() ? kSuccess : kDatabaseFailure;
    }
    qCWarning(lcMetadata) << "metadataManageBackupList: unknown operation" << operation;
    return kUnreadableRequest;
}

} // namespace

int metadataInitialize()
{
    return sqlite3_initialize() == SQLITE_OK ? kSuccess : kDatabaseFailure;
}

unsigned int metadataCreateClient(int* status)
{
    const unsigned int handle = MetadataClients::instance().open();
    withStatus(handle != 0 ? kSuccess : kDatabaseFailure, status);
    return handle;
}

int metadataDestroyClient(unsigned int handle)
{
    return MetadataClients::instance().close(handle) ? kSuccess : kUnknownHandle;
}

// ---------------------------------------------------------------------------
// Searching

int metadataSearchMedia(unsigned int handle, const MetadataSearchMediaRequest* request,
                        MetadataSearchMediaCallback callback, void* userData)
{
    if (!request || !callback) {
        qCWarning(lcMetadata) << "metadataSearchMedia: no" << (request ? "callback" : "request");
        return kUnreadableRequest;
    }
    QString error;
    const std::optional<MediaSearchPlan> plan =
        MetadataClients::instance().searchPlans().read(*request, HostStorage::storageCount(), &error);
    if (!plan) {
        qCWarning(lcMetadata).noquote() << "metadataSearchMedia: cannot read the request:" << error;
        return kUnreadableRequest;
    }
    MetadataConnection* connection = connectionOf(handle, "metadataSearchMedia");
    if (!connection)
        return kUnknownHandle;
    // Counting, or finding a song by its id, is how a list handles a change;
    // fetching entries to play is not (see MetadataConnection.h).
    if (plan->resultCount() == 0 || (!plan->isGrouped() && !plan->needsRowValues()))
        connection->catchUp();
    connection->noteRead(*plan);
    const std::optional<MediaSearchResult> result = connection->reader()->search(*plan);
    if (!result)
        return kDatabaseFailure;
    MetadataResponseBuilder response(*result, plan->candidates());
    callback(userData, response.response());
    return kSuccess;
}

int metadataSearchMusicFile(unsigned int handle, const MetadataSearchMusicFileRequest* request, int requestCount,
                            MetadataSearchMusicFileCallback callback, void* userData)
{
    // One request is all the library ever sends; the record format has no
    // way to answer several in one callback.
    if (!request || !callback || requestCount != 1) {
        qCWarning(lcMetadata).noquote() << QStringLiteral("metadataSearchMusicFile: expects one request and a "
                                                          "callback, got %1 request(s)%2%3")
                                               .arg(requestCount)
                                               .arg(request ? "" : " at null")
                                               .arg(callback ? "" : " and no callback");
        return kUnreadableRequest;
    }
    MediaDatabase* database = databaseOf(handle, "metadataSearchMusicFile");
    if (!database)
        return kUnknownHandle;
    QString error;
    const std::optional<MediaFileSearch> search = MediaFileSearch::read(*request, HostStorage::storageCount(), &error);
    if (!search) {
        qCWarning(lcMetadata).noquote() << "metadataSearchMusicFile: cannot read the request:" << error;
        return kUnreadableRequest;
    }
    const MediaFileSearchResult result = search->run(*database);
    MetadataSearchMusicFileResponse response{result.total, uint32_t(result.entries.size()),
                                             result.entries.empty() ? nullptr : result.entries.data()};
    callback(userData, &response);
    return kSuccess;
}

// ---------------------------------------------------------------------------
// Groups

int metadataAddItemsIntoGroup(unsigned int handle, const MetadataAddItemsRecord* record, int* status)
{
    return withStatus(addItemsIntoGroup(handle, record), status);
}

int metadataRemoveItemsFromGroup(unsigned int handle, const MetadataRemoveItemsRecord* record, int* status)
{
    return withStatus(removeItemsFromGroup(handle, record), status);
}

// ---------------------------------------------------------------------------
// Change indications

int metadataSetIndicationHandler(unsigned int handle, MetadataIndicationHandler handler, void* userData)
{
    MetadataConnection* connection = connectionOf(handle, "metadataSetIndicationHandler");
    if (!connection)
        return kUnknownHandle;
    connection->setIndicationHandler(handler, userData);
    return kSuccess;
}

int metadataRegisterIndication(unsigned int handle, const unsigned short* indications, int count)
{
    if (count < 0 || (count > 0 && !indications)) {
        qCWarning(lcMetadata) << "metadataRegisterIndication:" << count << "indications"
                              << (indications ? "" : "and no array");
        return kUnreadableRequest;
    }
    MetadataConnection* connection = connectionOf(handle, "metadataRegisterIndication");
    if (!connection)
        return kUnknownHandle;
    connection->registerIndications(QList<unsigned short>(indications, indications + count));
    return kSuccess;
}

int metadataDeregisterIndication(unsigned int handle)
{
    MetadataConnection* connection = connectionOf(handle, "metadataDeregisterIndication");
    if (!connection)
        return kUnknownHandle;
    connection->deregisterIndications();
    return kSuccess;
}

// ---------------------------------------------------------------------------
// The backup of a search result

int metadataBackupSearchedMedias(unsigned int handle, const MetadataSearchMediaRequest* request)
{
    if (!request) {
        qCWarning(lcMetadata) << "metadataBackupSearchedMedias: no request";
        return kUnreadableRequest;
    }
    MetadataConnection* connection = connectionOf(handle, "metadataBackupSearchedMedias");
    if (!connection)
        return kUnknownHandle;
    QString error;
    const std::optional<MediaSearchPlan> plan = MediaSearchPlan::read(*request, HostStorage::storageCount(), &error);
    if (!plan) {
        qCWarning(lcMetadata).noquote() << "metadataBackupSearchedMedias: cannot read the request:" << error;
        return kUnreadableRequest;
    }
    return connection->backUp(*plan) ? kSuccess : kDatabaseFailure;
}

int metadataCheckBackupedItem(unsigned int handle, int position, bool* isExisted, int* newIndex, unsigned int* count)
{
    MetadataConnection* connection = connectionOf(handle, "metadataCheckBackupedItem");
    if (!connection)
        return kUnknownHandle;
    if (!connection->hasBackup())
        return kNoBackup;
    const std::optional<MediaBackupCheck> check = connection->checkBackup(position);
    if (!check)
        return kDatabaseFailure;
    if (isExisted)
        *isExisted = check->isExisted;
    if (newIndex)
        *newIndex = check->newIndex;
    if (count)
        *count = check->count;
    return kSuccess;
}

int metadataManageBackupList(unsigned int handle, int operation, int* status)
{
    return withStatus(manageBackupList(handle, operation), status);
}

// ---------------------------------------------------------------------------
// The last-played list

int getLastPlayedList(LastPlayedListRecord* record)
{
    MediaDatabase* database = MetadataClients::instance().ownDatabase();
    if (!record || !database)
        return 0;
    return LastPlayedStore(*database).load(*record) ? 1 : 0;
}

int saveLastPlayedList(LastPlayedListRecord* record)
{
    if (!record) {
        qCWarning(lcMetadata) << "saveLastPlayedList: no record";
        return 0;
    }
    MediaDatabase* database = MetadataClients::instance().ownDatabase();
    const bool isWritten = database && LastPlayedStore(*database).save(*record);
    MetadataJournal::saveLastPlayedList(*record, isWritten);
    if (isWritten)
        MetadataClients::instance().noteUnreadRecordWritten();
    // Not retried: the next launch saves its own list, and a later retry
    // would overwrite it with this older one.
    if (!isWritten && !isKnownReadOnly(database))
        qCWarning(lcMetadata) << "saveLastPlayedList: the database did not take the last-played list; it is not saved";
    return isWritten ? 1 : 0;
}

void freeLastPlayedList(LastPlayedListRecord* record)
{
    if (record)
        LastPlayedStore::release(*record);
}

// ---------------------------------------------------------------------------
// The last played song

int saveLastPlayedSong(const char* path, int index)
{
    if (!path) {
        qCWarning(lcMetadata) << "saveLastPlayedSong: no path";
        return 0;
    }
    const MediaLastPlayedSong song{QString::fromUtf8(path), index};
    MediaDatabase* database = MetadataClients::instance().ownDatabase();
    const bool isWritten = database && database->setLastPlayedSong(song);
    MetadataJournal::saveLastPlayedSong(song.path, song.position, isWritten);
    // Written for every song the list moves to, a thousand a second while it
    // skips missing files: each write stays in the log for as long as a
    // list's snapshot is older than it.
    if (isWritten)
        MetadataClients::instance().noteUnreadRecordWritten();
    // Not retried, as the last-played list: the next song saves itself.
    if (!isWritten && !isKnownReadOnly(database))
        qCWarning(lcMetadata) << "saveLastPlayedSong: the database did not take the last played song; it is not saved";
    return isWritten ? 1 : 0;
}
