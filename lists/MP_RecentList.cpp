#include "lists/MP_RecentList.h"

#include "lists/MP_AufContext.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(RecentListTrace, "MP_RecentList")

MP_RecentList* MP_RecentList::getRecentList(MP_CONTENT_TYPE type)
{
    switch (type) {
    case MP_CONTENT_SOUND:
        return getAudioList();
    case MP_CONTENT_VIDEO:
        return getVideoList();
    default:
        return nullptr;
    }
}

MP_RecentList* MP_RecentList::getAudioList()
{
    static MP_RecentList audio(MP_CONTENT_SOUND);
    return &audio;
}

MP_RecentList* MP_RecentList::getVideoList()
{
    static MP_RecentList video(MP_CONTENT_VIDEO);
    return &video;
}

MP_RecentList::MP_RecentList(MP_CONTENT_TYPE type)
    : m_groupId(type == MP_CONTENT_VIDEO ? METADATA_VIDEO_HISTORY_GROUP_ID : METADATA_AUDIO_HISTORY_GROUP_ID)
{
}

void MP_RecentList::addItem(const QString& fullPath)
{
    RecentListTrace(3, "enter MP_RecentList::addItem, fullPath=%s\n", qPrintable(fullPath));
    if (m_paths.removeAll(fullPath) > 0)
        RecentListTrace(3, "exist\n");
    m_paths.append(fullPath);
    if (m_paths.size() > MaxPaths) {
        RecentListTrace(3, "overflow\n");
        m_paths.removeFirst();
    }
}

void MP_RecentList::saveToDB()
{
    RecentListTrace(3, "enter MP_RecentList::saveToDB, count=%d\n", int(m_paths.size()));
    static const MetadataSearchCandidateType objectIdCandidate[] = {METADATA_CANDIDATE_OBJECT_ID};
    for (const QString& path : m_paths) {
        const QByteArray utf8 = path.toUtf8();
        const MetadataSearchFilter filter{METADATA_FILTER_FILE_PATH, METADATA_OPERATOR_EQUAL,
                                          uint32_t(utf8.size() + 1), utf8.constData()};
        const MetadataSearchMusicFileRequest request{1, &filter, MP_AufContext::maxStorageLocation(), 1,
                                                     objectIdCandidate, 1, 0};
        metadataSearchMusicFile(MP_AufContext::getHandler(), &request, 1, &MP_RecentList::AufGetItemCallback, this);
    }
    m_paths.clear();
}

void MP_RecentList::AufGetItemCallback(void* self, MetadataSearchMusicFileResponse* response)
{
    if (self && response)
        static_cast<MP_RecentList*>(self)->addFoundItem(*response);
}

void MP_RecentList::addFoundItem(const MetadataSearchMusicFileResponse& response)
{
    // Only a path that names exactly one file is added; others are dropped.
    if (response.actualNum != 1 || !response.entries)
        return;
    const MetadataMediaSummary& found = response.entries[0];
    const MetadataGroupItem item{found.objectId, found.mediaKind, found.storageLocation, found.createFlag, 0,
                                 found.buyFlag, found.trackNumber, found.reserved};
    const MetadataAddItemsRecord record{0, m_groupId, 0, 1, &item};
    int status = 0;
    RecentListTrace(3, "add to history\n");
    metadataAddItemsIntoGroup(MP_AufContext::getHandler(), &record, &status);
}
