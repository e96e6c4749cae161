#include "host/platform/media/metadata/LastPlayedStore.h"

#include <cstring>

#include "host/platform/media/database/MediaDatabase.h"

namespace {

std::optional<QString> textOf(const char* utf8, int32_t length)
{
    if (!utf8)
        return std::nullopt;
    // The length is the caller's word; the NUL bounds it where the two disagree.
    const size_t size = length >= 0 ? qstrnlen(utf8, size_t(length)) : std::strlen(utf8);
    return QString::fromUtf8(utf8, qsizetype(size));
}

void fill(const std::optional<QString>& text, char*& utf8, int32_t& length)
{
    if (!text) {
        utf8 = nullptr;
        length = 0;
        return;
    }
    const QByteArray bytes = text->toUtf8();
    utf8 = new char[size_t(bytes.size()) + 1];
    std::memcpy(utf8, bytes.constData(), size_t(bytes.size()) + 1);
    length = int32_t(bytes.size());
}

void releaseText(char*& latin1)
{
    delete[] latin1;
    latin1 = nullptr;
}

} // namespace

LastPlayedStore::LastPlayedStore(MediaDatabase& database) : m_database(database) {}

MediaLastPlayedList LastPlayedStore::listOf(const LastPlayedListRecord& record)
{
    MediaLastPlayedList list;
    list.listType = record.listType;
    list.artist = textOf(record.artist, record.artistLength);
    list.album = textOf(record.album, record.albumLength);
    list.composer = textOf(record.composer, record.composerLength);
    list.genre = textOf(record.genre, record.genreLength);
    list.groupId = record.groupObjectId;
    list.storage = record.storageLocation;
    list.firstIndex = record.firstIndex;
    return list;
}

bool LastPlayedStore::save(const LastPlayedListRecord& record)
{
    return m_database.setLastPlayedList(listOf(record));
}

bool LastPlayedStore::load(LastPlayedListRecord& record)
{
    const std::optional<MediaLastPlayedList> list = m_database.lastPlayedList();
    if (!list)
        return false;
    record.listType = list->listType;
    fill(list->artist, record.artist, record.artistLength);
    fill(list->album, record.album, record.albumLength);
    fill(list->composer, record.composer, record.composerLength);
    fill(list->genre, record.genre, record.genreLength);
    record.groupObjectId = list->groupId;
    record.storageLocation = list->storage;
    record.firstIndex = list->firstIndex;
    return true;
}

void LastPlayedStore::release(LastPlayedListRecord& record)
{
    releaseText(record.artist);
    releaseText(record.album);
    releaseText(record.composer);
    releaseText(record.genre);
}
