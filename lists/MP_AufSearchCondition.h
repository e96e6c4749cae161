#pragma once
// What a database-backed list is made of, turned into the search requests
// that metadataSearchMedia takes: windows of items, object ids only, or the
// album names of the result; optionally narrowed to one album.
//
// The requests point into the condition (its filter array, strings and
// integers), so a condition lives on the heap, is never copied, and must stay
// in place while its requests are in use.

#include <QString>

#include "platform/Metadata.h"
#include "platform/Qt2Compat.h"

class MP_AufSearchCondition {
public:
    /** The music library by artist, album, genre and composer: each non-null argument
     *  becomes a filter (in that order); with none, every song. Sorted by track when
     *  the album is not empty, else by title. */
    MP_AufSearchCondition(const QString& artist, const QString& album, const QString& genre,
                          const QString& composer, int storage);
    /** The members of a stored group in their order: a user group (type 0) or the play
     *  history (type 2). */
    MP_AufSearchCondition(unsigned int groupId, MetadataGroupType groupType, int storage);
    /** Videos, newest first: @p selectionType "All", "Captured", "Downloaded" or "By Date"
     *  (then @p selectionDate, forwarded unchanged, selects by date). */
    MP_AufSearchCondition(const QString& selectionType, const QString& selectionDate, int storage);

    MP_AufSearchCondition(const MP_AufSearchCondition&) = delete;
    MP_AufSearchCondition& operator=(const MP_AufSearchCondition&) = delete;

    /** Appends the permanent filter {type, equals, @p value}; the filter points at
     *  @p value's characters, which must live as long as the condition. */
    void addFilter(MetadataSearchFilterType type, const QCString& value);
    /** Appends the permanent filter that selects every entry. */
    void addAllFilter();
    /** Appends the permanent filter on the creation flag (0 captured, 1 downloaded). */
    void addCreateFlagFilter();
    /** Restricts item requests to one album; a null album lifts the restriction. */
    void setAlbum(const QString& album);

    /** The request for @p count entries (0: the total only) from position @p start: object
     *  ids and paths, or ids only. Points into the condition; valid until its next call. */
    MetadataSearchMediaRequest* getRequest(int start, int count, bool idsOnly);
    /** The request for the album name of the one entry at @p position of the result. */
    MetadataSearchMediaRequest* getEntryAlbumRequest(int position);
    /** The request for the album names of the result, sorted by name; an album
     *  restriction is left out of it. */
    MetadataSearchMediaRequest* getAlbumsRequest(int start, int count);

    static const MetadataListType musicSystemList[1];
    static const MetadataListType musicGroupList[1];
    static const MetadataListType musicRecentList[1];
    static const MetadataListType videoList[1];
    static const MetadataSortEntry musicSystemSort[1];
    static const MetadataSortEntry musicTrackSort[1];
    static const MetadataSortEntry musicGroupSort[1];
    static const MetadataSortEntry videoSortDate[1];
    static const MetadataSortEntry musicAlbumSort[1];
    static const MetadataSearchCandidateType aufItemCandidate[2];
    static const MetadataSearchCandidateType objectIdCandidate[1];
    static const MetadataSearchCandidateType musicAlbumCandidate[1];

    /** The video selection types, compared exactly (letter case included). */
    static const QString selectionAll;
    static const QString selectionCaptured;
    static const QString selectionDownloaded;
    static const QString selectionByDate;

private:
    static constexpr int kFilterSlots = 5;

    void startRequest(const MetadataListType* listType, int storage);
    void appendPermanentFilter(const MetadataSearchFilter& filter);
    /** The slot just behind the permanent filters, where an album filter goes. */
    MetadataSearchFilter& albumSlot();

    MetadataSearchMediaRequest m_request;
    MetadataSearchFilter m_filters[kFilterSlots];
    const MetadataSortEntry* m_defaultSort;
    int m_permanentFilterCount;
    QCString m_artist;
    QCString m_genre;
    QCString m_composer;
    QCString m_album;
    QCString m_date;
    uint32_t m_groupId;
    uint32_t m_createFlag;
    QCString m_albumRestriction;
    bool m_isAlbumSpecified;
};
