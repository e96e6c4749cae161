#include "lists/MP_AufSearchMediaAccessor.h"

#include "lists/MP_AufSearchCondition.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(SearchAccessorTrace, "MP_AufSearchMediaAccessor")

MP_AufSearchMediaAccessor::MP_AufSearchMediaAccessor(int handle, MP_AufSearchCondition* condition)
    : m_handle(unsigned(handle)),
      m_condition(condition),
      m_count(0),
      m_albumCount(0),
      m_albumOutput(nullptr),
      m_itemOutput(nullptr),
      m_idOutput(nullptr),
      m_isIdsMode(false),
      m_isGetCount(false)
{
}

MP_AufSearchMediaAccessor::~MP_AufSearchMediaAccessor() = default;

bool MP_AufSearchMediaAccessor::getItems(int start, int count, QValueList<MP_AUF_ITEM>& out)
{
    m_itemOutput = &out;
    m_isIdsMode = false;
    m_isGetCount = count == 0;
    const int result = metadataSearchMedia(m_handle, m_condition->getRequest(start, count, false),
                                           AufGetFilterItemCallback, this);
    if (result != 0)
        SearchAccessorTrace(3, "getItems: search failed (%d), start=%d, count=%d\n", result, start, count);
    return result == 0;
}

bool MP_AufSearchMediaAccessor::getIds(int start, int count, QValueList<unsigned int>& out)
{
    m_idOutput = &out;
    m_isIdsMode = true;
    m_isGetCount = count == 0;
    const int result = metadataSearchMedia(m_handle, m_condition->getRequest(start, count, true),
                                           AufGetFilterItemCallback, this);
    if (result != 0)
        SearchAccessorTrace(3, "getIds: search failed (%d), start=%d, count=%d\n", result, start, count);
    return result == 0;
}

int MP_AufSearchMediaAccessor::count()
{
    return m_count;
}

bool MP_AufSearchMediaAccessor::getAlbums(int start, int count, QStringList& out)
{
    m_albumOutput = &out;
    m_isGetCount = count == 0;
    const int result =
        metadataSearchMedia(m_handle, m_condition->getAlbumsRequest(start, count), AufGetAlbumsCallback, this);
    if (result != 0)
        SearchAccessorTrace(3, "getAlbums: search failed (%d), start=%d, count=%d\n", result, start, count);
    return result == 0;
}

bool MP_AufSearchMediaAccessor::getEntryAlbum(int position, QString& album)
{
    QStringList albums;
    m_albumOutput = &albums;
    m_isGetCount = false;
    const int result =
        metadataSearchMedia(m_handle, m_condition->getEntryAlbumRequest(position), AufGetAlbumsCallback, this);
    m_albumOutput = nullptr;
    if (result != 0 || albums.size() != 1) {
        SearchAccessorTrace(3, "getEntryAlbum: no entry at %d (%d)\n", position, result);
        return false;
    }
    // An entry without an album belongs to the album of the nameless ones.
    album = albums.first().isNull() ? QString(QLatin1String("")) : albums.first();
    return true;
}

void MP_AufSearchMediaAccessor::setAlbum(const QString& album)
{
    m_condition->setAlbum(album);
}

int MP_AufSearchMediaAccessor::albumCount()
{
    return m_albumCount;
}

bool MP_AufSearchMediaAccessor::getIndex(unsigned int, int& index)
{
    index = 0;
    return false;
}

bool MP_AufSearchMediaAccessor::removeItem(int, const QString&)
{
    return false;
}

void MP_AufSearchMediaAccessor::AufGetFilterItemCallback(void* self, MetadataSearchMediaResponse* response)
{
    static_cast<MP_AufSearchMediaAccessor*>(self)->handleFilterResult(response);
}

void MP_AufSearchMediaAccessor::AufGetAlbumsCallback(void* self, MetadataSearchMediaResponse* response)
{
    static_cast<MP_AufSearchMediaAccessor*>(self)->handleAlbumResult(response);
}

void MP_AufSearchMediaAccessor::handleFilterResult(const MetadataSearchMediaResponse* response)
{
    if (m_isGetCount) {
        m_count = int(response->count);
        return;
    }
    if (m_isIdsMode)
        m_idOutput->clear();
    else
        m_itemOutput->clear();
    for (uint32_t i = 0; i < response->actualNum; ++i) {
        const MetadataMediaInfo* info = &response->mediaInfo[i];
        const unsigned int id = getObjectID(info);
        if (m_isIdsMode)
            m_idOutput->append(id);
        else
            m_itemOutput->append(MP_AUF_ITEM(id, getFileName(info)));
    }
}

void MP_AufSearchMediaAccessor::handleAlbumResult(const MetadataSearchMediaResponse* response)
{
    if (m_isGetCount) {
        m_albumCount = int(response->count);
        return;
    }
    m_albumOutput->clear();
    for (uint32_t i = 0; i < response->actualNum; ++i)
        m_albumOutput->append(getAlbumName(&response->mediaInfo[i]));
}

const MetadataMediaField* MP_AufSearchMediaAccessor::findField(const MetadataMediaInfo* info,
                                                                MetadataSearchCandidateType type)
{
    for (int32_t i = 0; i < info->fieldCount; ++i) {
        if (info->fields[i].type == type)
            return &info->fields[i];
    }
    return nullptr;
}

unsigned int MP_AufSearchMediaAccessor::getObjectID(const MetadataMediaInfo* info)
{
    const MetadataMediaField* field = findField(info, METADATA_CANDIDATE_OBJECT_ID);
    if (!field) {
        SearchAccessorTrace(3, "MP_AufSearchMediaAccessor::getObjectID, failed!\n");
        return 0;
    }
    return field->value.number;
}

QString MP_AufSearchMediaAccessor::getStringValue(const MetadataMediaInfo* info, MetadataSearchCandidateType type)
{
    const MetadataMediaField* field = findField(info, type);
    if (!field || !field->value.text)
        return QString();
    return QString::fromUtf8(field->value.text);
}

QString MP_AufSearchMediaAccessor::getFileName(const MetadataMediaInfo* info)
{
    return getStringValue(info, METADATA_CANDIDATE_FULL_PATH);
}

QString MP_AufSearchMediaAccessor::getAlbumName(const MetadataMediaInfo* info)
{
    return getStringValue(info, METADATA_CANDIDATE_ALBUM);
}
