#pragma once
// A small media library in a fresh data folder, a metadata client on it and
// a recorder of the client's indications: what the tests of the metadata
// searches, writes, backups and indications start from.

#include <QList>
#include <QString>

#include <memory>
#include <tuple>
#include <vector>

#include "host/platform/media/database/MediaDatabase.h"
#include "platform/Metadata.h"
#include "tests/support/TestEnvironment.h"

/** The indications one handler received, in order. */
struct IndicationRecorder {
    struct Heard {
        unsigned short id = 0;
        MetadataGroupUpdatedIndication group{0, 0};   // for 3008
        bool operator==(const Heard& other) const
        {
            return id == other.id && group.groupId == other.group.groupId
                   && group.updateType == other.group.updateType;
        }
    };
    QList<Heard> heard;

    static void handle(void* userData, unsigned short indication, void* data)
    {
        Heard entry;
        entry.id = indication;
        if (indication == METADATA_INDICATION_GROUP_CHANGED)
            entry.group = *static_cast<MetadataGroupUpdatedIndication*>(data);
        static_cast<IndicationRecorder*>(userData)->heard.append(entry);
    }
    static Heard content() { return Heard{METADATA_INDICATION_CONTENT_CHANGED, {0, 0}}; }
    static Heard group(uint32_t id, int32_t type) { return Heard{METADATA_INDICATION_GROUP_CHANGED, {id, type}}; }
};

inline std::ostream& operator<<(std::ostream& out, const IndicationRecorder::Heard& heard)
{
    return out << heard.id << "{" << heard.group.groupId << "," << heard.group.updateType << "}";
}

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
        MediaRecord record;
        record.path = path;
        record.title = title;
        record.storage = storage;
        record.kind = kind;
        const quint32 id = m_database->addMedia(record);
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

    /** What a search by this client answers: the count, and the first field of each entry
     *  (the object id when asked first). */
    struct Searched {
        uint32_t count = 0;
        QList<quint32> ids;
    };
    Searched search(const MetadataSearchMediaRequest& request) const
    {
        Searched searched;
        EXPECT_EQ(metadataSearchMedia(
                      m_handle, &request,
                      [](void* userData, MetadataSearchMediaResponse* response) {
                          auto& answer = *static_cast<Searched*>(userData);
                          answer.count = response->count;
                          for (uint32_t i = 0; i < response->actualNum; ++i)
                              answer.ids.append(response->mediaInfo[i].fields[0].value.number);
                      },
                      &searched),
                  0);
        return searched;
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

/** The whole music library sorted by title, as a list would back it up. */
struct MusicByTitle {
    MetadataListType listType = METADATA_LIST_MUSIC;
    MetadataSortEntry sort{METADATA_SORT_TITLE, METADATA_SORT_ASCENDING};
    MetadataSearchCandidateType candidate = METADATA_CANDIDATE_OBJECT_ID;
    int storage = 2;

    MetadataSearchMediaRequest words() const
    {
        return {1, &listType, 0, nullptr, 1, &sort, storage, 0, 0, 1, &candidate, 0, 0, 1};
    }
};
