#pragma once
// A small media library in a fresh data folder, a metadata client on it and
// a recorder of the client's indications: what the tests of the metadata
// searches, writes, backups and indications start from.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstring>
#include <memory>
#include <tuple>
#include <vector>

#include "host/platform/media/database/MediaDatabase.h"
#include "platform/Metadata.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

/** A search request and the arrays it points to; as made, the music
 *  library by title, its first hundred object ids. Filter values live in
 *  implicitly shared byte arrays: a copy's filters point at the same bytes,
 *  which stay while either holds them. */
struct SearchRequest {
    std::vector<MetadataListType> listTypes;
    std::vector<MetadataSearchFilter> filters;
    std::vector<MetadataSortEntry> sort{{METADATA_SORT_TITLE, METADATA_SORT_ASCENDING}};
    std::vector<MetadataSearchCandidateType> candidates{METADATA_CANDIDATE_OBJECT_ID};
    std::vector<QByteArray> values;
    int storage = 2;
    uint32_t grouping = 0;
    int count = 100;
    int start = 0;

    explicit SearchRequest(MetadataListType listType) : listTypes{listType} {}
    SearchRequest& text(MetadataSearchFilterType type, const QString& value)
    {
        values.push_back(value.toUtf8());
        filters.push_back({type, METADATA_OPERATOR_EQUAL, uint32_t(values.back().size() + 1), values.back().constData()});
        return *this;
    }
    SearchRequest& number(MetadataSearchFilterType type, uint32_t value)
    {
        values.emplace_back(reinterpret_cast<const char*>(&value), int(sizeof value));
        filters.push_back({type, METADATA_OPERATOR_EQUAL, 4, values.back().constData()});
        return *this;
    }
    SearchRequest& any(MetadataSearchFilterType type)
    {
        filters.push_back({type, METADATA_OPERATOR_ANY, 0, nullptr});
        return *this;
    }
    MetadataSearchMediaRequest words() const
    {
        return {uint32_t(listTypes.size()), listTypes.data(), uint32_t(filters.size()), filters.data(),
                uint32_t(sort.size()), sort.data(), storage, 0, grouping, uint32_t(candidates.size()),
                candidates.data(), count, start, 1};
    }
};

/** A last-played list record that names no list: its numbers -1 (but @p firstIndex), its texts null. */
inline LastPlayedListRecord lastPlayedRecord(int firstIndex = -1)
{
    LastPlayedListRecord record;
    std::memset(&record, 0, sizeof record);
    record.listType = -1;
    record.groupObjectId = uint32_t(-1);
    record.storageLocation = -1;
    record.firstIndex = firstIndex;
    return record;
}

/** What a search answered: the callback's calls and the object ids of its entries. */
struct SearchAnswer {
    int result = -1;
    int calls = 0;
    QList<quint32> ids;

    static void collect(void* userData, MetadataSearchMediaResponse* response)
    {
        SearchAnswer& answer = *static_cast<SearchAnswer*>(userData);
        ++answer.calls;
        for (uint32_t i = 0; i < response->actualNum; ++i) {
            const MetadataMediaInfo& info = response->mediaInfo[i];
            for (int32_t f = 0; f < info.fieldCount; ++f) {
                if (info.fields[f].type == METADATA_CANDIDATE_OBJECT_ID)
                    answer.ids.append(info.fields[f].value.number);
            }
        }
    }
};

/** What a look-up of single files answered: the callback's calls, the count and the entries. */
struct FileSearchAnswer {
    int result = -1;
    int calls = 0;
    uint32_t count = 0;
    std::vector<MetadataMediaSummary> entries;

    static void collect(void* userData, MetadataSearchMusicFileResponse* response)
    {
        auto& answer = *static_cast<FileSearchAnswer*>(userData);
        ++answer.calls;
        answer.count = response->count;
        answer.entries.assign(response->entries, response->entries + response->actualNum);
    }
};

/** A group's members in their order, as a list of @p type reads them. */
inline SearchRequest groupList(MetadataListType type, uint32_t groupId)
{
    SearchRequest request(type);
    request.number(METADATA_FILTER_GROUP_ID, groupId);
    request.sort = {{METADATA_SORT_GROUP_POSITION, METADATA_SORT_ASCENDING}};
    return request;
}

/** The indications one handler received, in order: "3006", or "3008 GROUP UPDATE-TYPE". */
struct IndicationRecorder {
    QStringList heard;

    static void handle(void* userData, unsigned short indication, void* data)
    {
        const auto* changed = static_cast<const MetadataGroupUpdatedIndication*>(data);
        static_cast<IndicationRecorder*>(userData)->heard.append(
            indication == METADATA_INDICATION_GROUP_CHANGED ? group(changed->groupId, changed->updateType)
                                                            : QString::number(indication));
    }
    static QString content() { return QString::number(METADATA_INDICATION_CONTENT_CHANGED); }
    static QString group(uint32_t id, int32_t type)
    {
        return QStringLiteral("%1 %2 %3").arg(METADATA_INDICATION_GROUP_CHANGED).arg(id).arg(type);
    }
};

class MetadataTestLibrary : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        m_database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(m_database);
        int status = -1;
        m_handle = metadataCreateClient(&status);
        ASSERT_EQ(status, 0);
    }
    void TearDown() override
    {
        metadataDestroyClient(m_handle);
        m_database.reset();
        TestEnvironment::TearDown();
    }

    /** Stores an object; returns its id. */
    quint32 add(const QString& path, const QString& title, int storage = 0, MediaKind kind = MediaKind::Audio)
    {
        const quint32 id = m_database->addMedia(song(path).title(title).storage(storage).kind(kind));
        EXPECT_NE(id, 0u) << qPrintable(path);
        return id;
    }

    /** Subscribes @p handle to both indications, heard by @p recorder. */
    static void subscribe(unsigned int handle, IndicationRecorder& recorder)
    {
        const unsigned short ids[] = {METADATA_INDICATION_CONTENT_CHANGED, METADATA_INDICATION_GROUP_CHANGED};
        ASSERT_EQ(metadataSetIndicationHandler(handle, IndicationRecorder::handle, &recorder), 0);
        ASSERT_EQ(metadataRegisterIndication(handle, ids, 2), 0);
    }

    SearchAnswer search(const SearchRequest& request) const
    {
        SearchAnswer answer;
        const MetadataSearchMediaRequest words = request.words();
        answer.result = metadataSearchMedia(m_handle, &words, SearchAnswer::collect, &answer);
        return answer;
    }
    /** The object ids a search answers in one call. */
    QList<quint32> ids(const SearchRequest& request) const
    {
        const SearchAnswer answer = search(request);
        EXPECT_EQ(answer.result, 0);
        EXPECT_EQ(answer.calls, 1);
        return answer.ids;
    }

    /** A look-up of the one file at @p path on @p storage, as the play history's writes make. */
    FileSearchAnswer searchFile(const QByteArray& path, int storage = 2) const
    {
        const MetadataSearchFilter filter{METADATA_FILTER_FILE_PATH, METADATA_OPERATOR_EQUAL,
                                          uint32_t(path.size() + 1), path.constData()};
        const MetadataSearchCandidateType candidate = METADATA_CANDIDATE_OBJECT_ID;
        const MetadataSearchMusicFileRequest request{1, &filter, storage, 1, &candidate, 1, 0};
        FileSearchAnswer answer;
        answer.result = metadataSearchMusicFile(m_handle, &request, 1, FileSearchAnswer::collect, &answer);
        return answer;
    }

    /** The result, isExisted, newIndex and count of a check of the backup's entry at @p position. */
    using BackupCheck = std::tuple<int, bool, int, unsigned int>;
    BackupCheck checkBackup(int position) const
    {
        bool isExisted = false;
        int newIndex = -99;
        unsigned int count = 0;
        const int result = metadataCheckBackupedItem(m_handle, position, &isExisted, &newIndex, &count);
        return {result, isExisted, newIndex, count};
    }

    std::unique_ptr<MediaDatabase> m_database;   // a second connection, as another writer
    unsigned int m_handle = 0;
};
