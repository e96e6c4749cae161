// The metadata plain functions: a thin layer that finds the connection of a
// handle and hands the work to MediaDatabase.

#include "platform/Metadata.h"

#include <sqlite3.h>

#include <cstdlib>

#include "host/platform/MediaDatabase.h"
#include "host/platform/MediaSearchPlan.h"
#include "host/platform/MetadataClients.h"
#include "host/platform/MetadataLog.h"
#include "host/platform/MetadataResponseBuilder.h"
#include "platform/SETUP_SET_Manager.h"

namespace {

enum MetadataResult {
    kSuccess = 0,
    kUnknownHandle = 1,
    kUnreadableRequest = 2,
    kDatabaseFailure = 3,
};

int storageCount()
{
    const QByteArray text = getProfileItem(QStringLiteral("MF_FlexNumber"), QStringLiteral("StorageNumber")).toLatin1();
    return std::atoi(text.constData());
}

} // namespace

int metadataInitialize()
{
    return sqlite3_initialize() == SQLITE_OK ? kSuccess : kDatabaseFailure;
}

unsigned int metadataCreateClient(int* status)
{
    const unsigned int handle = MetadataClients::instance().open();
    if (status)
        *status = handle != 0 ? kSuccess : kDatabaseFailure;
    return handle;
}

int metadataDestroyClient(unsigned int handle)
{
    return MetadataClients::instance().close(handle) ? kSuccess : kUnknownHandle;
}

int metadataSearchMedia(unsigned int handle, const MetadataSearchMediaRequest* request,
                        MetadataSearchMediaCallback callback, void* userData)
{
    if (!request || !callback) {
        qCWarning(lcMetadata) << "metadataSearchMedia: no" << (request ? "callback" : "request");
        return kUnreadableRequest;
    }
    MediaDatabase* database = MetadataClients::instance().database(handle);
    if (!database) {
        qCWarning(lcMetadata) << "metadataSearchMedia: no open connection for handle" << handle;
        return kUnknownHandle;
    }
    QString error;
    const std::optional<MediaSearchPlan> plan = MediaSearchPlan::read(*request, storageCount(), &error);
    if (!plan) {
        qCWarning(lcMetadata).noquote() << "metadataSearchMedia: cannot read the request:" << error;
        return kUnreadableRequest;
    }
    const std::optional<MediaSearchResult> result = database->search(*plan);
    if (!result)
        return kDatabaseFailure;
    MetadataResponseBuilder response(*result, plan->candidates());
    callback(userData, response.response());
    return kSuccess;
}
