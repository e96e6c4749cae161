// MediaDatabase: the last-played list and the last played song.

#include "host/platform/media/database/MediaDatabase.h"

#include "host/platform/media/database/SqliteStatement.h"
#include "host/platform/media/database/SqliteTransaction.h"

std::optional<MediaLastPlayedList> MediaDatabase::lastPlayedList()
{
    SqliteStatement& query = statement(
        "SELECT list_type, artist, album, composer, genre, group_id, storage, first_index "
        "FROM last_played_list WHERE slot = 1");
    std::optional<MediaLastPlayedList> found;
    if (query.step() == SqliteStatement::Step::Row) {
        const auto textOrNothing = [&query](int column) {
            return query.isNull(column) ? std::nullopt : std::optional<QString>(query.text(column));
        };
        MediaLastPlayedList list;
        list.listType = int(query.int64(0));
        list.artist = textOrNothing(1);
        list.album = textOrNothing(2);
        list.composer = textOrNothing(3);
        list.genre = textOrNothing(4);
        list.groupId = quint32(query.int64(5));
        list.storage = int(query.int64(6));
        list.firstIndex = int(query.int64(7));
        found = list;
    }
    query.reset();
    return found;
}

bool MediaDatabase::setLastPlayedList(const MediaLastPlayedList& list)
{
    SqliteStatement& replace = statement(
        "INSERT OR REPLACE INTO last_played_list "
        "(slot, list_type, artist, album, composer, genre, group_id, storage, first_index) "
        "VALUES (1, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)");
    const auto bindText = [&replace](int index, const std::optional<QString>& text) {
        if (text)
            replace.bind(index, *text);
        else
            replace.bindNull(index);
    };
    replace.bind(1, qint64(list.listType));
    bindText(2, list.artist);
    bindText(3, list.album);
    bindText(4, list.composer);
    bindText(5, list.genre);
    replace.bind(6, qint64(list.groupId));
    replace.bind(7, qint64(list.storage));
    replace.bind(8, qint64(list.firstIndex));
    return replace.run();
}

std::optional<MediaLastPlayedSong> MediaDatabase::lastPlayedSong()
{
    SqliteStatement& query = statement("SELECT path, list_position FROM last_played_song WHERE slot = 1");
    std::optional<MediaLastPlayedSong> found;
    if (query.step() == SqliteStatement::Step::Row)
        found = MediaLastPlayedSong{query.text(0), int(query.int64(1))};
    query.reset();
    return found;
}

bool MediaDatabase::setLastPlayedSong(const MediaLastPlayedSong& song)
{
    SqliteStatement& replace =
        statement("INSERT OR REPLACE INTO last_played_song (slot, path, list_position) VALUES (1, ?1, ?2)");
    replace.bind(1, song.path);
    replace.bind(2, qint64(song.position));
    return replace.run();
}
