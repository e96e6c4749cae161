// The metadata functions that mark one stored file: its buy flag, and the
// apply-to function that the player finds at run time.

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/metadata/MetadataClients.h"
#include "host/platform/media/metadata/MetadataJournal.h"
#include "host/platform/media/database/MetadataLog.h"
#include "platform/Metadata.h"

namespace {

enum MarkResult { kMarked = 0, kUnknownHandle = 1, kUnreadableRequest = 2, kNotStored = 3, kDatabaseFailure = 4 };

int setBuyFlag(MediaDatabase& database, const QString& path, int flag)
{
    std::optional<MediaRecord> media = database.mediaByPath(path);
    if (!media)
        return kNotStored;
    media->buy = flag != 0;
    return database.updateMedia(*media) ? kMarked : kDatabaseFailure;
}

/** Appends @p path to the user play list @p name, creating the list; true when it is in it. */
bool appendToList(MediaDatabase& database, const QString& name, const QString& path)
{
    const std::optional<MediaRecord> media = database.mediaByPath(path);
    if (!media)
        return false;
    std::optional<MediaGroup> group = database.groupByName(METADATA_GROUP_USER, name);
    const quint32 groupId = group ? group->id : database.addGroup(METADATA_GROUP_USER, name);
    if (groupId == 0)
        return false;
    QList<quint32> members = database.groupMembers(groupId);
    // Applying a file twice leaves one entry: the list collects what the
    // user chose, and a second choice adds nothing new.
    if (members.contains(media->id))
        return true;
    members.append(media->id);
    return database.setGroupMembers(groupId, members);
}

} // namespace

int metadataSetBuyFlagByUri(unsigned int handle, const char* uri, int flag, int option)
{
    if (!uri) {
        qCWarning(lcMetadata) << "metadataSetBuyFlagByUri: no path";
        return kUnreadableRequest;
    }
    const QString path = QString::fromUtf8(uri);
    MediaDatabase* database = MetadataClients::instance().writer(handle);
    if (!database) {
        MetadataClients::warnNoConnection("metadataSetBuyFlagByUri", handle);
        MetadataJournal::setBuyFlagByUri(path, flag, option, false);
        return kUnknownHandle;
    }
    const int result = setBuyFlag(*database, path, flag);
    MetadataJournal::setBuyFlagByUri(path, flag, option, result == kMarked);
    return result;
}

/**
 * The host's apply-to: the phone would let the user pick a play list; the
 * host has nobody to ask, so it always adds the file to the user play list
 * named "Applied" (created on first use), where the user finds every file
 * applied. Nonzero when the file is a stored media object and is in the list.
 */
extern "C" __attribute__((visibility("default"))) int metadataApplyTo(const char* utf8Path)
{
    const QString path = utf8Path ? QString::fromUtf8(utf8Path) : QString();
    MediaDatabase* database = MetadataClients::instance().ownDatabase();
    const bool isApplied = database && !path.isEmpty() && appendToList(*database, QStringLiteral("Applied"), path);
    HostJournal::write(QJsonObject{{"kind", "service"}, {"call", "metadataApplyTo"}, {"args", QJsonArray{path}},
                                   {"result", isApplied ? 1 : 0}});
    return isApplied ? 1 : 0;
}
