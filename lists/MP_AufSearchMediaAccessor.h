#pragma once
// Runs a database-backed list's searches through metadataSearchMedia, with
// the requests of the list's search condition, and copies the results into
// the caller's containers. A search either counts (0 results asked for; the
// count is kept) or fetches a window. A failed search changes nothing: the
// containers and the counts keep what they held.
//
// Not re-entrant: the output pointers and flags belong to the running call,
// and no search may start from inside a callback.

#include "lists/MP_AufAccessor.h"
#include "platform/Metadata.h"

class MP_AufSearchCondition;

class MP_AufSearchMediaAccessor : public MP_AufAccessor {
public:
    /** Searches on database connection @p handle with @p condition (not owned; it must
     *  outlive the accessor). */
    MP_AufSearchMediaAccessor(int handle, MP_AufSearchCondition* condition);
    virtual ~MP_AufSearchMediaAccessor();

    bool getItems(int start, int count, QValueList<MP_AUF_ITEM>& out) override;
    bool getIds(int start, int count, QValueList<unsigned int>& out) override;
    int count() override;
    bool getAlbums(int start, int count, QStringList& out) override;
    void setAlbum(const QString& album) override;
    int albumCount() override;
    /** The album of the entry at @p position of the result into @p album (empty, not
     *  null, for an entry without one); false when the search fails or finds no entry. */
    bool getEntryAlbum(int position, QString& album);
    /** Cannot look ids up: sets @p index to 0 and returns false. */
    bool getIndex(unsigned int id, int& index) override;
    /** Removes nothing; returns false. */
    bool removeItem(int index, const QString& path) override;

    /** Search callbacks; @p self is the accessor given to metadataSearchMedia. */
    static void AufGetFilterItemCallback(void* self, MetadataSearchMediaResponse* response);
    static void AufGetAlbumsCallback(void* self, MetadataSearchMediaResponse* response);

    /** The object id of a delivered entry; 0 (traced) when it has none. */
    static unsigned int getObjectID(const MetadataMediaInfo* info);
    /** The text value of candidate @p type, decoded from UTF-8; null when the entry has none. */
    static QString getStringValue(const MetadataMediaInfo* info, MetadataSearchCandidateType type);
    static QString getFileName(const MetadataMediaInfo* info);
    static QString getAlbumName(const MetadataMediaInfo* info);

private:
    void handleFilterResult(const MetadataSearchMediaResponse* response);
    void handleAlbumResult(const MetadataSearchMediaResponse* response);
    static const MetadataMediaField* findField(const MetadataMediaInfo* info, MetadataSearchCandidateType type);

    unsigned int m_handle;
    MP_AufSearchCondition* m_condition;         // not owned
    int m_count;
    int m_albumCount;
    QStringList* m_albumOutput;                 // the running call's container
    QValueList<MP_AUF_ITEM>* m_itemOutput;      // the running call's container
    QValueList<unsigned int>* m_idOutput;       // the running call's container
    bool m_isIdsMode;
    bool m_isGetCount;
};
