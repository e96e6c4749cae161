#pragma once
// The journal lines of the metadata writes: {"kind":"metadata","call":NAME,
// "args":[RECORD]} with the record's fields by name (reserved words left
// out), its items or positions as arrays, and strings as text or null.

#include <QString>

#include "platform/Metadata.h"

class MetadataJournal {
public:
    /** Records a call of metadataAddItemsIntoGroup; @p record and its items must be readable. */
    static void addItemsIntoGroup(const MetadataAddItemsRecord& record);
    /** Records a call of metadataRemoveItemsFromGroup; @p record and its positions must be readable. */
    static void removeItemsFromGroup(const MetadataRemoveItemsRecord& record);
    /** Records a call of saveLastPlayedList. */
    static void saveLastPlayedList(const LastPlayedListRecord& record);
    /** {"kind":"file","call":"deleted","args":[path]}: a file found gone from under the database. */
    static void fileDeleted(const QString& path);
};
