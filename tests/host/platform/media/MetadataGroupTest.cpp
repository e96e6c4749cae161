#include <gtest/gtest.h>

#include <QJsonDocument>

#include <cstring>
#include <tuple>

#include "tests/host/platform/media/MetadataTestLibrary.h"

namespace {

class MetadataGroupTest : public MetadataTestLibrary {
protected:
    void SetUp() override
    {
        MetadataTestLibrary::SetUp();
        for (int i = 0; i < 6; ++i)
            m_songs.append(add(QStringLiteral("/m/%1.mp3").arg(i), QString::number(i), i % 2));
    }

    int addAt(quint32 groupId, const QList<QPair<quint32, quint32>>& objectsAndPlaces)
    {
        std::vector<MetadataGroupItem> items;
        for (const auto& [object, place] : objectsAndPlaces)
            items.push_back(MetadataGroupItem{object, 1, 0, -1, place, 0, 0, 0});
        const MetadataAddItemsRecord record{0, groupId, 0, uint32_t(items.size()), items.data()};
        int status = -1;
        const int result = metadataAddItemsIntoGroup(m_handle, &record, &status);
        EXPECT_EQ(status, result);
        return result;
    }

    int removeAt(quint32 groupId, MetadataGroupType type, int storage, const std::vector<uint32_t>& positions)
    {
        const MetadataRemoveItemsRecord record{groupId, int32_t(type), storage, uint32_t(positions.size()),
                                               positions.data()};
        int status = -1;
        const int result = metadataRemoveItemsFromGroup(m_handle, &record, &status);
        EXPECT_EQ(status, result);
        return result;
    }

    QList<quint32> m_songs;   // storage 0, 1, 0, 1, 0, 1
};

} // namespace

TEST_F(MetadataGroupTest, AddingInsertsAtItsPlaceAndMovesAnObjectAlreadyThere)
{
    const quint32 list = m_database->addGroup(METADATA_GROUP_USER, "Mix");
    ASSERT_EQ(addAt(list, {{m_songs[0], 0}, {m_songs[1], 0}, {m_songs[2], 99}}), 0);
    EXPECT_EQ(m_database->groupMembers(list), (QList<quint32>{m_songs[1], m_songs[0], m_songs[2]}));
    ASSERT_EQ(addAt(list, {{m_songs[2], 1}}), 0);
    EXPECT_EQ(m_database->groupMembers(list), (QList<quint32>{m_songs[1], m_songs[2], m_songs[0]}));
    EXPECT_EQ(QString::fromUtf8(QJsonDocument(journal().constLast()).toJson(QJsonDocument::Compact)),
              QStringLiteral("{\"args\":[{\"count\":1,\"groupId\":%1,\"items\":[{\"buyFlag\":0,\"createFlag\":-1,"
                             "\"mediaKind\":1,\"objectId\":%2,\"position\":1,\"storageLocation\":0,"
                             "\"trackNumber\":0}]}],\"call\":\"metadataAddItemsIntoGroup\",\"kind\":\"metadata\",\"written\":true}")
                  .arg(list)
                  .arg(m_songs[2]));

    // An unknown object or group changes nothing.
    EXPECT_NE(addAt(list, {{m_songs[3], 0}, {999, 0}}), 0);
    EXPECT_NE(addAt(999, {{m_songs[3], 0}}), 0);
    EXPECT_EQ(m_database->groupMembers(list), (QList<quint32>{m_songs[1], m_songs[2], m_songs[0]}));
    EXPECT_NE(metadataAddItemsIntoGroup(m_handle, nullptr, nullptr), 0);
}

TEST_F(MetadataGroupTest, HistoryPutsThePlayedFileFirstAndKeepsItsNewestHundred)
{
    QList<quint32> history;
    for (int i = 0; i < int(METADATA_HISTORY_LIMIT); ++i)
        history.append(add(QStringLiteral("/h/%1.mp3").arg(i), QString::number(i)));
    ASSERT_TRUE(m_database->setGroupMembers(METADATA_AUDIO_HISTORY_GROUP_ID, history));

    // Played again: moves to the front, nothing falls off.
    ASSERT_EQ(addAt(METADATA_AUDIO_HISTORY_GROUP_ID, {{history[50], 0}}), 0);
    history.move(50, 0);
    EXPECT_EQ(m_database->groupMembers(METADATA_AUDIO_HISTORY_GROUP_ID), history);
    // A new one: the oldest (last) falls off.
    ASSERT_EQ(addAt(METADATA_AUDIO_HISTORY_GROUP_ID, {{m_songs[0], 0}}), 0);
    history.prepend(m_songs[0]);
    history.removeLast();
    EXPECT_EQ(m_database->groupMembers(METADATA_AUDIO_HISTORY_GROUP_ID), history);
}

TEST_F(MetadataGroupTest, RemovesByPlaceWithinTheStorageSelectionAndKeepsTheFiles)
{
    const quint32 list = m_database->addGroup(METADATA_GROUP_USER, "Mix");
    ASSERT_TRUE(m_database->setGroupMembers(list, m_songs));
    // On the memory card (1) the list reads songs 1, 3, 5: its place 1 is song 3.
    ASSERT_EQ(removeAt(list, METADATA_GROUP_USER, 1, {1}), 0);
    EXPECT_EQ(m_database->groupMembers(list),
              (QList<quint32>{m_songs[0], m_songs[1], m_songs[2], m_songs[4], m_songs[5]}));
    EXPECT_TRUE(m_database->mediaById(m_songs[3]));
    // Location 2 (the profile's storage count) selects every storage: places 0 and 4.
    ASSERT_EQ(removeAt(list, METADATA_GROUP_USER, 2, {4, 0}), 0);
    EXPECT_EQ(m_database->groupMembers(list), (QList<quint32>{m_songs[1], m_songs[2], m_songs[4]}));

    // A place past the selection, or the wrong group type, changes nothing.
    EXPECT_NE(removeAt(list, METADATA_GROUP_USER, 0, {0, 2}), 0);
    EXPECT_NE(removeAt(list, METADATA_GROUP_PLAY_HISTORY, 2, {0}), 0);
    EXPECT_EQ(m_database->groupMembers(list).size(), 3);
}

TEST_F(MetadataGroupTest, SingleFileSearchAnswersTheSummaryOfThePath)
{
    MediaRecord video = song("/v/Captured/clip.mp4").video().storage(1).createdBy(METADATA_CREATED_CAPTURED).track(4);
    video.buy = true;
    const quint32 clip = m_database->addMedia(video);

    const QByteArray path = video.path.toUtf8();
    FileSearchAnswer found = searchFile(path);
    ASSERT_EQ(std::tuple(found.result, found.calls, found.count, found.entries.size()),
              std::tuple(0, 1, 1u, size_t(1)));
    // Every word: id, kind 2 (video), 8 words, memory card, captured, bought, track 4, reserved.
    uint32_t words[8];
    std::memcpy(words, &found.entries[0], sizeof words);
    EXPECT_EQ(std::vector<uint32_t>(words, words + 8), (std::vector<uint32_t>{clip, 2, 8, 1, 0, 1, 4, 0}));

    // Phone memory only: not found, but answered.
    found = searchFile(path, 0);
    EXPECT_EQ(std::tuple(found.result, found.calls, found.count), std::tuple(0, 1, 0u));

    // Unreadable requests call nothing: no filters, another filter type, a path without its NUL, no request.
    const MetadataSearchFilter filter{METADATA_FILTER_FILE_PATH, METADATA_OPERATOR_EQUAL,
                                      uint32_t(path.size() + 1), path.constData()};
    const MetadataSearchCandidateType candidate = METADATA_CANDIDATE_OBJECT_ID;
    const MetadataSearchMusicFileRequest request{1, &filter, 2, 1, &candidate, 1, 0};
    const MetadataSearchFilter artist{METADATA_FILTER_ARTIST, METADATA_OPERATOR_EQUAL, filter.valueLength, filter.value};
    const MetadataSearchFilter unterminated{filter.type, filter.op, uint32_t(path.size()), filter.value};
    found = FileSearchAnswer();
    const std::vector<const MetadataSearchFilter*> unreadableFilters{nullptr, &artist, &unterminated};
    for (const MetadataSearchFilter* bad : unreadableFilters) {
        MetadataSearchMusicFileRequest unreadable = request;
        unreadable.filters = bad;
        EXPECT_NE(metadataSearchMusicFile(m_handle, &unreadable, 1, FileSearchAnswer::collect, &found), 0);
    }
    EXPECT_NE(metadataSearchMusicFile(m_handle, &request, 0, FileSearchAnswer::collect, &found), 0);
    EXPECT_NE(metadataSearchMusicFile(m_handle, nullptr, 1, FileSearchAnswer::collect, &found), 0);
    EXPECT_EQ(found.calls, 0);
}
