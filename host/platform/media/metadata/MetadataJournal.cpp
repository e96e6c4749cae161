#include "host/platform/media/metadata/MetadataJournal.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/media/metadata/LastPlayedStore.h"

namespace {

const QString kMetadata = QStringLiteral("metadata");

QJsonValue textOrNull(const std::optional<QString>& text)
{
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

QJsonObject itemOf(const MetadataGroupItem& item)
{
    return QJsonObject{
        {"objectId", qint64(item.objectId)},
        {"mediaKind", qint64(item.mediaKind)},
        {"storageLocation", item.storageLocation},
        {"createFlag", item.createFlag},
        {"position", qint64(item.position)},
        {"buyFlag", qint64(item.buyFlag)},
        {"trackNumber", qint64(item.trackNumber)},
    };
}

void writeCall(const QString& call, const QJsonArray& args, bool isWritten)
{
    HostJournal::write(QJsonObject{{"kind", kMetadata}, {"call", call}, {"args", args}, {"written", isWritten}});
}

void writeCall(const QString& call, const QJsonObject& record, bool isWritten)
{
    writeCall(call, QJsonArray{record}, isWritten);
}

} // namespace

void MetadataJournal::addItemsIntoGroup(const MetadataAddItemsRecord& record, bool isWritten)
{
    QJsonArray items;
    for (uint32_t i = 0; i < record.count; ++i)
        items.append(itemOf(record.items[i]));
    const QJsonObject args{{"groupId", qint64(record.groupId)}, {"count", qint64(record.count)}, {"items", items}};
    writeCall(QStringLiteral("metadataAddItemsIntoGroup"), args, isWritten);
}

void MetadataJournal::removeItemsFromGroup(const MetadataRemoveItemsRecord& record, bool isWritten)
{
    QJsonArray positions;
    for (uint32_t i = 0; i < record.count; ++i)
        positions.append(qint64(record.positions[i]));
    const QJsonObject args{{"groupId", qint64(record.groupId)},
                           {"groupType", record.groupType},
                           {"storageLocation", record.storageLocation},
                           {"count", qint64(record.count)},
                           {"positions", positions}};
    writeCall(QStringLiteral("metadataRemoveItemsFromGroup"), args, isWritten);
}

void MetadataJournal::saveLastPlayedList(const LastPlayedListRecord& record, bool isWritten)
{
    const MediaLastPlayedList list = LastPlayedStore::listOf(record);
    // The group id word reads -1 when the record was cleared: journaled as
    // the signed word, so that a person reading the journal sees -1, not 4294967295.
    const QJsonObject args{{"listType", list.listType},
                           {"artist", textOrNull(list.artist)},
                           {"album", textOrNull(list.album)},
                           {"composer", textOrNull(list.composer)},
                           {"genre", textOrNull(list.genre)},
                           {"groupObjectId", int32_t(list.groupId)},
                           {"storageLocation", list.storage},
                           {"firstIndex", list.firstIndex}};
    writeCall(QStringLiteral("saveLastPlayedList"), args, isWritten);
}

void MetadataJournal::saveLastPlayedSong(const QString& path, int position, bool isWritten)
{
    writeCall(QStringLiteral("saveLastPlayedSong"), QJsonArray{path, position}, isWritten);
}

void MetadataJournal::setBuyFlagByUri(const QString& path, int flag, int option, bool isWritten)
{
    writeCall(QStringLiteral("metadataSetBuyFlagByUri"), QJsonArray{path, flag, option}, isWritten);
}

void MetadataJournal::fileDeleted(const QString& path)
{
    HostJournal::call(QStringLiteral("file"), QStringLiteral("deleted"), {path});
}
