#pragma once
// The last-played list between the word record of the metadata functions
// and the media database: strings are UTF-8 on the record's side (every name survives; ASCII is the same bytes as Latin-1) and text
// in the database, so that it reads the same in the sqlite3 shell.

#include <optional>

#include "host/platform/media/database/MediaLastPlayedList.h"
#include "platform/Metadata.h"

class MediaDatabase;

class LastPlayedStore {
public:
    /** Works on @p database, which must outlive the store. */
    explicit LastPlayedStore(MediaDatabase& database);

    /** Stores the list of @p record in place of any earlier one; false when the database failed. */
    bool save(const LastPlayedListRecord& record);
    /** Fills @p record with the stored list (strings made with new[], UTF-8 with their NUL,
     *  lengths set; a string not stored stays null with length 0) and returns true; returns
     *  false and leaves @p record alone when none is stored. The handler word is not touched. */
    bool load(LastPlayedListRecord& record);

    /** delete[]s the strings that load() made and sets their pointers to null. */
    static void release(LastPlayedListRecord& record);
    /** The list a record describes: each string up to its length (or its NUL), null ones as none. */
    static MediaLastPlayedList listOf(const LastPlayedListRecord& record);

private:
    MediaDatabase& m_database;
};
