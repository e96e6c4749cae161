#pragma once
// The journal lines of the metadata writes: {"kind":"metadata","call":NAME,
// "args":[RECORD],"written":BOOL} with the record's fields by name (reserved
// words left out), its items or positions as arrays, and strings as text or
// null; a call without a record has its arguments in signature order.
// "written" tells whether the database took the write: a write refused
// (another program holds the database locked, a read-only data folder, a
// group that is not there) is journaled as what it was, not as done.

#include <QString>

#include "platform/Metadata.h"

class MetadataJournal {
public:
    /** Records a call of metadataAddItemsIntoGroup; @p record and its items must be readable. */
    static void addItemsIntoGroup(const MetadataAddItemsRecord& record, bool isWritten);
    /** Records a call of metadataRemoveItemsFromGroup; @p record and its positions must be readable. */
    static void removeItemsFromGroup(const MetadataRemoveItemsRecord& record, bool isWritten);
    /** Records a call of saveLastPlayedList. */
    static void saveLastPlayedList(const LastPlayedListRecord& record, bool isWritten);
    /** Records a call of saveLastPlayedSong: "args" are the path and the list position. */
    static void saveLastPlayedSong(const QString& path, int position, bool isWritten);
    /** Records a call of metadataSetBuyFlagByUri: "args" are the path, the flag and the option. */
    static void setBuyFlagByUri(const QString& path, int flag, int option, bool isWritten);
    /** {"kind":"file","call":"deleted","args":[path]}: a file found gone from under the database. */
    static void fileDeleted(const QString& path);
};
