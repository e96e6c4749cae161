#include "lists/MP_AufSearchCondition.h"

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(SearchConditionTrace, "MP_AufSearchCondition")

const MetadataListType MP_AufSearchCondition::musicSystemList[1] = {METADATA_LIST_MUSIC};
const MetadataListType MP_AufSearchCondition::musicGroupList[1] = {METADATA_LIST_USER_GROUP};
const MetadataListType MP_AufSearchCondition::musicRecentList[1] = {METADATA_LIST_HISTORY_GROUP};
const MetadataListType MP_AufSearchCondition::videoList[1] = {METADATA_LIST_VIDEO};
const MetadataSortEntry MP_AufSearchCondition::musicSystemSort[1] = {{METADATA_SORT_TITLE, METADATA_SORT_ASCENDING}};
const MetadataSortEntry MP_AufSearchCondition::musicTrackSort[1] = {{METADATA_SORT_TRACK, METADATA_SORT_ASCENDING}};
const MetadataSortEntry MP_AufSearchCondition::musicGroupSort[1] = {
    {METADATA_SORT_GROUP_POSITION, METADATA_SORT_ASCENDING}};
const MetadataSortEntry MP_AufSearchCondition::videoSortDate[1] = {{METADATA_SORT_DATE, METADATA_SORT_DESCENDING}};
const MetadataSortEntry MP_AufSearchCondition::musicAlbumSort[1] = {{METADATA_SORT_ALBUM, METADATA_SORT_ASCENDING}};
const MetadataSearchCandidateType MP_AufSearchCondition::aufItemCandidate[2] = {METADATA_CANDIDATE_OBJECT_ID,
                                                                                METADATA_CANDIDATE_FULL_PATH};
const MetadataSearchCandidateType MP_AufSearchCondition::objectIdCandidate[1] = {METADATA_CANDIDATE_OBJECT_ID};
const MetadataSearchCandidateType MP_AufSearchCondition::musicAlbumCandidate[1] = {METADATA_CANDIDATE_ALBUM};

const QString MP_AufSearchCondition::selectionAll = QStringLiteral("All");
const QString MP_AufSearchCondition::selectionCaptured = QStringLiteral("Captured");
const QString MP_AufSearchCondition::selectionDownloaded = QStringLiteral("Downloaded");
const QString MP_AufSearchCondition::selectionByDate = QStringLiteral("By Date");

MP_AufSearchCondition::MP_AufSearchCondition(const QString& artist, const QString& album, const QString& genre,
                                             const QString& composer, int storage)
{
    startRequest(musicSystemList, storage);
    if (!artist.isNull()) {
        m_artist = artist.toUtf8();
        addFilter(METADATA_FILTER_ARTIST, m_artist);
    }
    if (!album.isNull()) {
        m_album = album.toUtf8();
        addFilter(METADATA_FILTER_ALBUM, m_album);
    }
    if (!genre.isNull()) {
        m_genre = genre.toUtf8();
        addFilter(METADATA_FILTER_GENRE, m_genre);
    }
    if (!composer.isNull()) {
        m_composer = composer.toUtf8();
        addFilter(METADATA_FILTER_COMPOSER, m_composer);
    }
    if (m_permanentFilterCount == 0)
        addAllFilter();
    // The filter follows nullness, the sort emptiness: an empty album is still
    // an album filter, but its songs have no track order to follow.
    m_defaultSort = album.isEmpty() ? musicSystemSort : musicTrackSort;
}

MP_AufSearchCondition::MP_AufSearchCondition(unsigned int groupId, MetadataGroupType groupType, int storage)
{
    switch (groupType) {
    case METADATA_GROUP_USER:
        startRequest(musicGroupList, storage);
        break;
    case METADATA_GROUP_PLAY_HISTORY:
        startRequest(musicRecentList, storage);
        break;
    default:
        SearchConditionTrace(3, "Error!!! Unsupported group type: %d\n", int(groupType));
        // Searched as a user group: the group id still says which members are
        // meant, and an id that names no user group (a history group, say)
        // gives an empty list rather than an undefined search.
        startRequest(musicGroupList, storage);
        break;
    }
    m_groupId = groupId;
    appendPermanentFilter({METADATA_FILTER_GROUP_ID, METADATA_OPERATOR_EQUAL, sizeof m_groupId, &m_groupId});
    m_defaultSort = musicGroupSort;
}

MP_AufSearchCondition::MP_AufSearchCondition(const QString& selectionType, const QString& selectionDate, int storage)
{
    startRequest(videoList, storage);
    if (selectionType == selectionAll) {
        addAllFilter();
    } else if (selectionType == selectionCaptured || selectionType == selectionDownloaded) {
        m_createFlag = selectionType == selectionCaptured ? METADATA_CREATED_CAPTURED : METADATA_CREATED_DOWNLOADED;
        addCreateFlagFilter();
    } else if (selectionType == selectionByDate) {
        m_date = selectionDate.toUtf8();
        addFilter(METADATA_FILTER_DATE, m_date);
    } else {
        SearchConditionTrace(3, "Error!!! Invalid selectionType: %s!\n", selectionType.toUtf8().constData());
    }
    m_defaultSort = videoSortDate;
}

void MP_AufSearchCondition::startRequest(const MetadataListType* listType, int storage)
{
    m_request = MetadataSearchMediaRequest{};
    m_request.listTypeCount = 1;
    m_request.listTypes = listType;
    m_request.filters = m_filters;
    m_request.sortCount = 1;
    m_request.storageLocation = storage;
    m_request.reserved1 = 0;
    m_request.reserved2 = 1;
    for (MetadataSearchFilter& filter : m_filters)
        filter = MetadataSearchFilter{};
    m_defaultSort = musicSystemSort;
    m_permanentFilterCount = 0;
    m_groupId = 0;
    m_createFlag = 0;
    m_isAlbumSpecified = false;
}

void MP_AufSearchCondition::appendPermanentFilter(const MetadataSearchFilter& filter)
{
    // The last slot stays free for the album filter of setAlbum and of the
    // album-name request; no list asks for more than four permanent filters.
    if (m_permanentFilterCount >= kFilterSlots - 1)
        return;
    m_filters[m_permanentFilterCount++] = filter;
}

MetadataSearchFilter& MP_AufSearchCondition::albumSlot()
{
    return m_filters[m_permanentFilterCount];
}

void MP_AufSearchCondition::addFilter(MetadataSearchFilterType type, const QCString& value)
{
    appendPermanentFilter({type, METADATA_OPERATOR_EQUAL, uint32_t(value.length()) + 1, value.constData()});
}

void MP_AufSearchCondition::addAllFilter()
{
    appendPermanentFilter({METADATA_FILTER_FILE_PATH, METADATA_OPERATOR_ANY, 0, nullptr});
}

void MP_AufSearchCondition::addCreateFlagFilter()
{
    appendPermanentFilter({METADATA_FILTER_CREATE_FLAG, METADATA_OPERATOR_EQUAL, sizeof m_createFlag, &m_createFlag});
}

void MP_AufSearchCondition::setAlbum(const QString& album)
{
    if (album.isNull()) {
        m_isAlbumSpecified = false;
        return;
    }
    m_albumRestriction = album.toUtf8();
    m_isAlbumSpecified = true;
}

MetadataSearchMediaRequest* MP_AufSearchCondition::getRequest(int start, int count, bool idsOnly)
{
    m_request.sort = m_defaultSort;
    // Written here, not in setAlbum: the album-name request shares the slot,
    // and a restriction must not be lost to one of those in between.
    if (m_isAlbumSpecified)
        albumSlot() = {METADATA_FILTER_ALBUM, METADATA_OPERATOR_EQUAL, uint32_t(m_albumRestriction.length()) + 1,
                       m_albumRestriction.constData()};
    m_request.filterCount = uint32_t(m_permanentFilterCount + (m_isAlbumSpecified ? 1 : 0));
    m_request.groupingFlag = 0;
    m_request.candidateCount = idsOnly ? 1 : 2;
    m_request.candidates = idsOnly ? objectIdCandidate : aufItemCandidate;
    m_request.resultCount = count;
    m_request.firstIndex = start;
    return &m_request;
}

MetadataSearchMediaRequest* MP_AufSearchCondition::getEntryAlbumRequest(int position)
{
    getRequest(position, 1, false);
    m_request.candidateCount = 1;
    m_request.candidates = musicAlbumCandidate;
    return &m_request;
}

MetadataSearchMediaRequest* MP_AufSearchCondition::getAlbumsRequest(int start, int count)
{
    m_request.sort = musicAlbumSort;
    albumSlot() = {METADATA_FILTER_ALBUM, METADATA_OPERATOR_ANY, 0, nullptr};
    m_request.filterCount = uint32_t(m_permanentFilterCount + 1);
    m_request.groupingFlag = 1;
    m_request.candidateCount = 1;
    m_request.candidates = musicAlbumCandidate;
    m_request.resultCount = count;
    m_request.firstIndex = start;
    return &m_request;
}
