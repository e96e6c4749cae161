#pragma once
// The media-metadata database, as plain functions over records laid out in
// 32-bit words. The host implements it over one SQLite file in the data
// folder. Callbacks run synchronously inside the call that takes them.

#include <cstddef>
#include <cstdint>

// The records below are the phone's: laid out in 32-bit words, pointers
// included. Built for a 32-bit processor, each must have its documented size
// and offsets (asserted after each record); a 64-bit build lays its pointers
// out wider and is bound only by the field order.
#define MP_ASSERT_32BIT(fact, text) static_assert(sizeof(void*) != 4 || (fact), text)

/** Prepares the metadata library; returns 0 on success. Safe to call more than once. */
int metadataInitialize();
/** Opens a client connection (creating the database when absent) and returns its
 *  handle, never 0 on success; @p status receives 0 on success, non-zero on failure
 *  (then the handle is 0). */
unsigned int metadataCreateClient(int* status);
/** Closes a client connection; returns 0 on success. */
int metadataDestroyClient(unsigned int handle);

/**
 * The last-played list, seventeen 32-bit words on the phone. Strings are
 * NUL-terminated UTF-8 byte strings (not Latin-1, which loses every name
 * outside Western Europe; ASCII names are the same bytes either way); the
 * four string slots hold artist, album, composer, genre in that order.
 */
struct LastPlayedListRecord {
    int32_t listType;        ///< group type of a user list, 6 for a library selection, -1 cleared
    int32_t artistLength;
    char* artist;
    int32_t albumLength;
    char* album;
    int32_t composerLength;
    char* composer;
    int32_t genreLength;
    char* genre;
    int32_t reserved1[2];
    uint32_t groupObjectId;  ///< play-list group id; -1 cleared
    int32_t storageLocation; ///< -1 cleared
    int32_t firstIndex;      ///< -1 cleared
    int32_t reserved2[2];
    uint32_t handler;        ///< metadata-client handle
};
MP_ASSERT_32BIT(sizeof(LastPlayedListRecord) == 68, "the phone's last-played record is 68 bytes");
MP_ASSERT_32BIT(offsetof(LastPlayedListRecord, genre) == 32, "the genre string is word 8");
MP_ASSERT_32BIT(offsetof(LastPlayedListRecord, groupObjectId) == 44, "the group id is word 11");
MP_ASSERT_32BIT(offsetof(LastPlayedListRecord, handler) == 64, "the handle is the last word");

// ---------------------------------------------------------------------------
// Searching media
// ---------------------------------------------------------------------------

/** What a search draws its entries from. */
enum MetadataListType : uint32_t {
    METADATA_LIST_MUSIC = 0,          ///< every song of the music library
    METADATA_LIST_VIDEO = 2,          ///< every video
    METADATA_LIST_USER_GROUP = 5,     ///< the members of one user group (a play list), by group-id filter
    METADATA_LIST_HISTORY_GROUP = 7,  ///< the members of one play-history group, by group-id filter
};

/** The column a filter tests. */
enum MetadataSearchFilterType : uint32_t {
    METADATA_FILTER_FILE_PATH = 2,    ///< full path; operator "any" without a value selects every entry
    METADATA_FILTER_ARTIST = 9,
    METADATA_FILTER_COMPOSER = 10,
    METADATA_FILTER_GENRE = 11,
    METADATA_FILTER_ALBUM = 12,       ///< operator "any" without a value: group by album (album-name requests)
    METADATA_FILTER_DATE = 14,        ///< the entry's date, written yyyy-MM-dd, begins with the value
    METADATA_FILTER_CREATE_FLAG = 16, ///< integer, a MetadataCreateFlag
    METADATA_FILTER_GROUP_ID = 18,    ///< integer: the entry is a member of that group
};

/** How a filter compares. */
enum MetadataSearchOperator : uint32_t {
    METADATA_OPERATOR_EQUAL = 0,      ///< the column equals the value
    METADATA_OPERATOR_ANY = 2,        ///< no value; see the filter types
};

/** Database column codes a search can be ordered by. */
enum MetadataSortKey : uint32_t {
    METADATA_SORT_TITLE = 0,
    METADATA_SORT_ALBUM = 8,
    METADATA_SORT_TRACK = 9,          ///< track number, then title
    METADATA_SORT_DATE = 10,
    METADATA_SORT_GROUP_POSITION = 11,///< position in the group (group lists only)
};

enum MetadataSortDirection : uint32_t {
    METADATA_SORT_ASCENDING = 0,
    METADATA_SORT_DESCENDING = 1,
};

/** The values a search delivers for each entry. */
enum MetadataSearchCandidateType : uint32_t {
    METADATA_CANDIDATE_OBJECT_ID = 0, ///< integer
    METADATA_CANDIDATE_FULL_PATH = 2, ///< NUL-terminated UTF-8 text
    METADATA_CANDIDATE_ALBUM = 20,    ///< NUL-terminated UTF-8 text
};

enum MetadataGroupType : uint32_t {
    METADATA_GROUP_USER = 0,          ///< a user play list
    METADATA_GROUP_PLAY_HISTORY = 2,
};

/** Who made a media file: the created-by flag of a media object. */
enum MetadataCreateFlag : uint32_t {
    METADATA_CREATED_CAPTURED = 0,
    METADATA_CREATED_DOWNLOADED = 1,
};

/** The play-history groups exist from the database's creation; user groups get other ids. */
constexpr uint32_t METADATA_AUDIO_HISTORY_GROUP_ID = 2;
constexpr uint32_t METADATA_VIDEO_HISTORY_GROUP_ID = 3;

/** One condition of a search; every filter of a request must hold. */
struct MetadataSearchFilter {
    MetadataSearchFilterType type;
    MetadataSearchOperator op;
    uint32_t valueLength;   ///< text: UTF-8 length + 1 for the NUL; integer: 4; no value: 0
    const void* value;      ///< NUL-terminated UTF-8 text or a uint32_t; null for no value
};

struct MetadataSortEntry {
    MetadataSortKey key;
    MetadataSortDirection direction;
};

/** A search as metadataSearchMedia reads it. Ties of the sort always break on
 *  the object id, so the order is total and a window is stable. */
struct MetadataSearchMediaRequest {
    uint32_t listTypeCount;                        ///< 1
    const MetadataListType* listTypes;
    uint32_t filterCount;
    const MetadataSearchFilter* filters;
    uint32_t sortCount;
    const MetadataSortEntry* sort;
    int32_t storageLocation;                       ///< below the profile's StorageNumber: that storage only; else all
    uint32_t reserved1;                            ///< 0
    uint32_t groupingFlag;                         ///< 1: deliver the distinct album names of the result
    uint32_t candidateCount;
    const MetadataSearchCandidateType* candidates;
    int32_t resultCount;                           ///< entries wanted; 0 asks for the total only
    int32_t firstIndex;                            ///< position of the first entry wanted
    uint32_t reserved2;                            ///< 1
};

/** One delivered value of an entry. */
struct MetadataMediaField {
    MetadataSearchCandidateType type;
    uint32_t valueLength;   ///< as in MetadataSearchFilter
    union {
        uint32_t number;    ///< the object id
        const char* text;   ///< NUL-terminated UTF-8
    } value;
};

/** One delivered entry: its values in the order of the request's candidates. */
struct MetadataMediaInfo {
    int32_t fieldCount;
    const MetadataMediaField* fields;
};

/** What a search answers. The records live until the callback returns. */
struct MetadataSearchMediaResponse {
    uint32_t count;                   ///< all matches (album names with the grouping flag)
    uint32_t actualNum;               ///< entries delivered
    const MetadataMediaInfo* mediaInfo;
};

/**
 * A media object as a record of eight 32-bit words, the object id always in
 * the first: the form in which a search for single files answers and from
 * which a group item is copied (words 1, 2, 4, 5, the member's position,
 * then words 6, 7, 8).
 */
struct MetadataMediaSummary {
    uint32_t objectId;
    uint32_t mediaKind;         ///< 1 audio, 2 video
    uint32_t wordCount;         ///< 8: the record's own size, not part of an item
    int32_t storageLocation;    ///< 0 phone memory, 1 memory card
    int32_t createFlag;         ///< a MetadataCreateFlag, -1 none
    uint32_t buyFlag;
    uint32_t trackNumber;
    uint32_t reserved;
};

MP_ASSERT_32BIT(sizeof(MetadataSearchFilter) == 16, "a filter entry is four words");
MP_ASSERT_32BIT(sizeof(MetadataSearchMediaRequest) == 56, "the search request is fourteen words");
MP_ASSERT_32BIT(offsetof(MetadataSearchMediaRequest, candidates) == 40, "the candidates are word 10");
MP_ASSERT_32BIT(sizeof(MetadataMediaField) == 12, "a delivered value is three words");
MP_ASSERT_32BIT(sizeof(MetadataMediaInfo) == 8, "a media-info record is two words");
MP_ASSERT_32BIT(sizeof(MetadataSearchMediaResponse) == 12, "the search response is three words");
static_assert(sizeof(MetadataSortEntry) == 8, "a sort entry is two words");
static_assert(sizeof(MetadataMediaSummary) == 32, "a media summary is eight words");

typedef void (*MetadataSearchMediaCallback)(void* userData, MetadataSearchMediaResponse* response);

/** Runs @p request on the connection @p handle and calls @p callback(userData, response)
 *  once, before it returns. Returns 0 on success; a request it cannot read returns
 *  non-zero without calling anything (the reason goes to the trace). */
int metadataSearchMedia(unsigned int handle, const MetadataSearchMediaRequest* request,
                        MetadataSearchMediaCallback callback, void* userData);

// ---------------------------------------------------------------------------
// Searching single files
// ---------------------------------------------------------------------------

/** A search for files by path, as metadataSearchMusicFile reads it: seven words. */
struct MetadataSearchMusicFileRequest {
    uint32_t filterCount;
    const MetadataSearchFilter* filters;          ///< path filters (type 2, operator 0)
    int32_t storageLocation;
    uint32_t candidateCount;
    const MetadataSearchCandidateType* candidates;
    int32_t resultCount;
    int32_t firstIndex;
};

/** The files found, each as an eight-word summary. The records live until the callback returns. */
struct MetadataSearchMusicFileResponse {
    uint32_t count;                         ///< all matches
    uint32_t actualNum;                     ///< summaries delivered
    const MetadataMediaSummary* entries;
};

MP_ASSERT_32BIT(sizeof(MetadataSearchMusicFileRequest) == 28, "the file search request is seven words");

typedef void (*MetadataSearchMusicFileCallback)(void* userData, MetadataSearchMusicFileResponse* response);

/** Runs @p requestCount requests (one here) and calls @p callback once, before it returns.
 *  Returns 0 on success; an unreadable request returns non-zero and calls nothing. */
int metadataSearchMusicFile(unsigned int handle, const MetadataSearchMusicFileRequest* request, int requestCount,
                            MetadataSearchMusicFileCallback callback, void* userData);

// ---------------------------------------------------------------------------
// Groups
// ---------------------------------------------------------------------------

/** A member to add to a group, eight words copied from a media summary: words 1, 2, 4
 *  and 5, the place to insert at, then words 6, 7 and 8. */
struct MetadataGroupItem {
    uint32_t objectId;
    uint32_t mediaKind;
    int32_t storageLocation;
    int32_t createFlag;
    uint32_t position;          ///< place in the group to insert at (0 = first); past the end appends
    uint32_t buyFlag;
    uint32_t trackNumber;
    uint32_t reserved;
};

/** What metadataAddItemsIntoGroup reads: five words. */
struct MetadataAddItemsRecord {
    uint32_t reserved1;         ///< 0
    uint32_t groupId;
    uint32_t reserved2;         ///< 0
    uint32_t count;
    const MetadataGroupItem* items;
};

/** What metadataRemoveItemsFromGroup reads: five words. */
struct MetadataRemoveItemsRecord {
    uint32_t groupId;
    int32_t groupType;          ///< a MetadataGroupType
    int32_t storageLocation;    ///< the storage selection the positions were counted in
    uint32_t count;
    const uint32_t* positions;  ///< places in the group's order (from 0) within that selection
};

MP_ASSERT_32BIT(sizeof(MetadataAddItemsRecord) == 20, "the add record is five words");
MP_ASSERT_32BIT(sizeof(MetadataRemoveItemsRecord) == 20, "the removal record is five words");
static_assert(sizeof(MetadataGroupItem) == 32, "a group item is eight words");

/** Adds the items to the group. An object already in the group moves to the new place.
 *  A play-history group keeps only its newest METADATA_HISTORY_LIMIT members.
 *  Returns 0 on success; @p status receives the same. */
int metadataAddItemsIntoGroup(unsigned int handle, const MetadataAddItemsRecord* record, int* status);
/** Removes the members at the given places; the files stay. Returns 0 on success. */
int metadataRemoveItemsFromGroup(unsigned int handle, const MetadataRemoveItemsRecord* record, int* status);

/** The most members a play-history group keeps. */
constexpr uint32_t METADATA_HISTORY_LIMIT = 100;

// ---------------------------------------------------------------------------
// Change indications
// ---------------------------------------------------------------------------

/** The database's media content changed (files added, removed or changed). */
constexpr unsigned short METADATA_INDICATION_CONTENT_CHANGED = 3006;
/** A group changed; the data is a MetadataGroupUpdatedIndication. */
constexpr unsigned short METADATA_INDICATION_GROUP_CHANGED = 3008;

enum MetadataGroupUpdateType : int32_t {
    METADATA_GROUP_DELETED = 1,
    METADATA_GROUP_MEMBERS_CHANGED = 2,
};

struct MetadataGroupUpdatedIndication {
    uint32_t groupId;
    int32_t updateType;         ///< a MetadataGroupUpdateType
};

typedef void (*MetadataIndicationHandler)(void* userData, unsigned short indication, void* data);

/** Sets the handler of the connection's indications (one per connection; the last set wins). */
int metadataSetIndicationHandler(unsigned int handle, MetadataIndicationHandler handler, void* userData);
/** Subscribes the connection to the @p count indication ids. Indications reach the
 *  handler through the event loop after the change is committed, whoever made it
 *  (this process or another), never from inside the writer's call. */
int metadataRegisterIndication(unsigned int handle, const unsigned short* indications, int count);
/** Cancels the connection's subscription and forgets its handler. */
int metadataDeregisterIndication(unsigned int handle);

// ---------------------------------------------------------------------------
// The backup of a search result
// ---------------------------------------------------------------------------

enum MetadataBackupOperation : int {
    METADATA_BACKUP_RELEASE = 0,
    METADATA_BACKUP_REFRESH = 1,
};

/** Keeps the result of @p request (its ordered object ids) as the connection's backup. */
int metadataBackupSearchedMedias(unsigned int handle, const MetadataSearchMediaRequest* request);
/**
 * Runs the backed-up request again and tells where the backup's entry at @p position is
 * now: when still in the result, @p isExisted is true and @p newIndex its new position
 * counted from 1; when gone, @p newIndex is the new position (from 0) of the first entry
 * after it in the backup that is still in the result, or the new count when none is.
 * @p count receives the new count. Returns 0 on success, non-zero without a backup.
 */
int metadataCheckBackupedItem(unsigned int handle, int position, bool* isExisted, int* newIndex,
                              unsigned int* count);
/** Refreshes the backup with the current result, or releases it. Returns 0 on success. */
int metadataManageBackupList(unsigned int handle, int operation, int* status);

// ---------------------------------------------------------------------------
// The last-played list
// ---------------------------------------------------------------------------

/** Fills @p record with the stored last-played list (strings allocated here, released
 *  with freeLastPlayedList); returns nonzero on success, 0 when none is stored. */
int getLastPlayedList(LastPlayedListRecord* record);
/** Stores @p record as the last-played list (its strings are copied). Returns nonzero on success. */
int saveLastPlayedList(LastPlayedListRecord* record);
/** Releases the strings that getLastPlayedList allocated and sets their pointers to null. */
void freeLastPlayedList(LastPlayedListRecord* record);

/** Remembers @p path (UTF-8) at list position @p index as the song the media browser
 *  shows as last played. Returns nonzero when it was stored. */
int saveLastPlayedSong(const char* path, int index);
/** Nonzero when @p path (UTF-8) is a media file of the library's database. */
int isMediaFile(const char* path);

/** What metadataCheckFile finds. */
enum {
    METADATA_FILE_AS_STORED = 0,   ///< the file has the size and modification time the database holds
    METADATA_FILE_CHANGED = 1,     ///< the database holds the path, but the file differs from it or is gone
    METADATA_FILE_NOT_STORED = 2,  ///< the database holds no media object at the path
    METADATA_FILE_UNKNOWN = 3,     ///< no path, no connection for the handle, or the database failed
};
/** Compares the file at @p utf8Path with the media object the database holds for that
 *  path, as @p handle's connection sees the database (a list's view of it): whether it
 *  is still the file that was stored, or another file under the same name. One of the
 *  METADATA_FILE_ values. */
int metadataCheckFile(unsigned int handle, const char* utf8Path);

// ---------------------------------------------------------------------------
// Marks and the apply-to function
// ---------------------------------------------------------------------------

/** Sets (@p flag 1) or clears (0) the buy flag of the stored media object at @p uri
 *  (UTF-8 path); @p option is reserved, 0. Returns 0 when the database took it,
 *  nonzero when the object is not stored or the write failed. */
int metadataSetBuyFlagByUri(unsigned int handle, const char* uri, int flag, int option);

/** The media service's apply-to function, `int metadataApplyTo(const char* utf8Path)`,
 *  exported with C linkage and looked up at run time among the loaded libraries:
 *  nonzero when it took the file. */
typedef int (*MetadataApplyToFunction)(const char* utf8Path);
