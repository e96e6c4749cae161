#include "host/platform/media/database/MediaDatabase.h"

#include <gtest/gtest.h>


#include <functional>
#include <memory>
#include <tuple>

#include "host/platform/phone/HostPhone.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "platform/Metadata.h"
#include "tests/support/QtMessages.h"
#include "tests/support/SongBuilder.h"
#include "tests/host/platform/media/MetadataTestLibrary.h"

namespace {

class MediaDatabaseTest : public MetadataTestLibrary {
protected:
    void SetUp() override
    {
        MetadataTestLibrary::SetUp();
        // Titles chosen so that folding matters: "Árós" sorts beside
        // "Aurora", and "Aurora"/"aurora" tie and fall back on the id.
        add("/m/Zenith.mp3", "Zenith", "Aurora Lane", "Northern Lights", "Pop", "Edda", 2, "2003-03-14", 0);    // 1
        add("/m/aros.mp3", QString::fromUtf8("Árós"), QString::fromUtf8("Árós Quartet"), QString::fromUtf8("Kvöldljóð"),
            "Classical", QString::fromUtf8("Sigrún"), 3, "1998-12-01", 1);                                      // 2
        add("/m/aurora.mp3", "Aurora", "Aurora Lane", "Northern Lights", "Pop", "Tomas", 1, "2003-03-14", 0);   // 3
        add(QString::fromUtf8("/m/белая ночь.mp3"), QString::fromUtf8("Белая ночь"), QString::fromUtf8("Ансамбль"),
            QString::fromUtf8("Kvöldljóð"), "Classical", "Edda", 2, "2010-01-01", 1);                          // 4
        add("/m/paper.mp3", "aurora", "Aurora Lane", "Paper Boats", "Pop", "Tomas", 1, "2005", 0);              // 5
        add("/v/Captured/clip.mp4", "clip", "", "", "", "", 0, "2024-05-01", 0, MediaKind::Video, 0);           // 6
        add("/v/Downloads/trailer.mp4", "trailer", "", "", "", "", 0, "2024-06-10", 0, MediaKind::Video, 1);    // 7
        add("/v/holiday.mp4", "holiday", "", "", "", "", 0, "2024-05-20", 1, MediaKind::Video, -1);             // 8
        m_playList = m_database->addGroup(METADATA_GROUP_USER, "Evening");
        ASSERT_TRUE(m_database->setGroupMembers(m_playList, {4, 1, 3}));
        ASSERT_TRUE(m_database->setGroupMembers(METADATA_AUDIO_HISTORY_GROUP_ID, {1}));
        ASSERT_TRUE(m_database->setGroupMembers(METADATA_VIDEO_HISTORY_GROUP_ID, {7}));
    }

    void add(const QString& path, const QString& title, const QString& artist, const QString& album,
             const QString& genre, const QString& composer, int track, const QString& date, int storage,
             MediaKind kind = MediaKind::Audio, int createdBy = -1)
    {
        ASSERT_NE(m_database->addMedia(song(path).title(title).artist(artist).album(album).genre(genre).composer(composer)
                                           .track(track).date(date).storage(storage).kind(kind).createdBy(createdBy)),
                  0u)
            << qPrintable(path);
    }

    quint32 m_playList = 0;
};

using Request = SearchRequest;
using Answer = SearchAnswer;
using Ids = QList<quint32>;

Request music()
{
    return Request(METADATA_LIST_MUSIC);
}

} // namespace

TEST_F(MediaDatabaseTest, EachListType_TheHistoriesAreGroups2And3AndCannotBeRemoved)
{
    Request video(METADATA_LIST_VIDEO);
    video.sort = {{METADATA_SORT_DATE, METADATA_SORT_DESCENDING}};
    EXPECT_EQ(ids(music().any(METADATA_FILTER_FILE_PATH)), (Ids{2, 3, 5, 1, 4}));
    EXPECT_EQ(ids(video), (Ids{7, 8, 6}));
    EXPECT_EQ(ids(groupList(METADATA_LIST_USER_GROUP, m_playList)), (Ids{4, 1, 3}));
    EXPECT_EQ(ids(groupList(METADATA_LIST_HISTORY_GROUP, 2)), (Ids{1}));
    EXPECT_EQ(ids(groupList(METADATA_LIST_HISTORY_GROUP, 3)), (Ids{7}));
    // A group list answers only groups of its own kind.
    EXPECT_EQ(ids(groupList(METADATA_LIST_HISTORY_GROUP, m_playList)), Ids{});
    EXPECT_EQ(ids(groupList(METADATA_LIST_USER_GROUP, 2)), Ids{});

    EXPECT_EQ(m_playList, 4u);
    EXPECT_FALSE(m_database->removeGroup(2));
    EXPECT_FALSE(m_database->removeGroup(3));
    EXPECT_TRUE(m_database->removeGroup(m_playList));
    EXPECT_EQ(m_database->addGroup(METADATA_GROUP_USER, "Again"), 5u);
}

TEST_F(MediaDatabaseTest, EachFilterType)
{
    EXPECT_EQ(ids(music().text(METADATA_FILTER_FILE_PATH, "/m/aurora.mp3")), (Ids{3}));
    EXPECT_EQ(ids(music().text(METADATA_FILTER_ARTIST, "Aurora Lane")), (Ids{3, 5, 1}));
    EXPECT_EQ(ids(music().text(METADATA_FILTER_COMPOSER, "Edda")), (Ids{1, 4}));
    EXPECT_EQ(ids(music().text(METADATA_FILTER_GENRE, "Classical")), (Ids{2, 4}));
    EXPECT_EQ(ids(music().text(METADATA_FILTER_ALBUM, "Northern Lights")), (Ids{3, 1}));
    EXPECT_EQ(ids(music().text(METADATA_FILTER_DATE, "2003")), (Ids{3, 1}));
    EXPECT_EQ(ids(music().text(METADATA_FILTER_DATE, "2003-03-15")), Ids{});
    EXPECT_EQ(ids(Request(METADATA_LIST_VIDEO).number(METADATA_FILTER_CREATE_FLAG, 1)), (Ids{7}));
    EXPECT_EQ(ids(music().number(METADATA_FILTER_GROUP_ID, m_playList)), (Ids{3, 1, 4}));
    // All filters must hold.
    EXPECT_EQ(ids(music().text(METADATA_FILTER_ARTIST, "Aurora Lane").text(METADATA_FILTER_ALBUM, "Paper Boats")),
              (Ids{5}));
}

TEST_F(MediaDatabaseTest, EachSortKeyAndDirectionWithTiesOnTheObjectId)
{
    const auto sorted = [this](MetadataSortKey key, MetadataSortDirection direction) {
        Request request = music();
        request.sort = {{key, direction}};
        return ids(request);
    };
    EXPECT_EQ(sorted(METADATA_SORT_TITLE, METADATA_SORT_ASCENDING), (Ids{2, 3, 5, 1, 4}));
    EXPECT_EQ(sorted(METADATA_SORT_TITLE, METADATA_SORT_DESCENDING), (Ids{4, 1, 5, 3, 2}));
    EXPECT_EQ(sorted(METADATA_SORT_ALBUM, METADATA_SORT_ASCENDING), (Ids{2, 4, 1, 3, 5}));
    EXPECT_EQ(sorted(METADATA_SORT_TRACK, METADATA_SORT_ASCENDING), (Ids{3, 5, 1, 4, 2}));
    EXPECT_EQ(sorted(METADATA_SORT_DATE, METADATA_SORT_ASCENDING), (Ids{2, 1, 3, 5, 4}));
    Request byPlace = groupList(METADATA_LIST_USER_GROUP, m_playList);
    byPlace.sort[0].direction = METADATA_SORT_DESCENDING;
    EXPECT_EQ(ids(byPlace), (Ids{3, 1, 4}));
}

TEST_F(MediaDatabaseTest, StorageLocationSelectsOneStorageBelowTheProfilesNumber)
{
    const auto onStorage = [this](int location) {
        Request request = music();
        request.storage = location;
        return ids(request);
    };
    EXPECT_EQ(onStorage(0), (Ids{3, 5, 1}));
    EXPECT_EQ(onStorage(1), (Ids{2, 4}));
    EXPECT_EQ(onStorage(2), (Ids{2, 3, 5, 1, 4}));
    HostPhone::setProfileItem("MF_FlexNumber", "StorageNumber", "1");
    EXPECT_EQ(onStorage(1), (Ids{2, 3, 5, 1, 4}));
}

TEST_F(MediaDatabaseTest, UnreadableRequestsDeliverNothing)
{
    const std::pair<const char*, std::function<void(Request&)>> bad[] = {
        {"unknown list type", [](Request& r) { r.listTypes = {MetadataListType(3)}; }},
        {"no list type", [](Request& r) { r.listTypes.clear(); }},
        {"unknown filter type", [](Request& r) { r.text(MetadataSearchFilterType(99), "x"); }},
        {"unknown operator", [](Request& r) { r.text(METADATA_FILTER_ARTIST, "x").filters[0].op = MetadataSearchOperator(1); }},
        {"operator 2 on the artist", [](Request& r) { r.any(METADATA_FILTER_ARTIST); }},
        {"text filter without value", [](Request& r) { r.text(METADATA_FILTER_ARTIST, "x").filters[0].value = nullptr; }},
        {"integer of two bytes", [](Request& r) { r.number(METADATA_FILTER_CREATE_FLAG, 1).filters[0].valueLength = 2; }},
        {"unknown sort key", [](Request& r) { r.sort = {{MetadataSortKey(5), METADATA_SORT_ASCENDING}}; }},
        {"unknown direction", [](Request& r) { r.sort = {{METADATA_SORT_TITLE, MetadataSortDirection(2)}}; }},
        {"group position outside a group",
         [](Request& r) { r.sort = {{METADATA_SORT_GROUP_POSITION, METADATA_SORT_ASCENDING}}; }},
        {"unknown candidate", [](Request& r) { r.candidates = {MetadataSearchCandidateType(7)}; }},
        {"group list without a group", [](Request& r) { r.listTypes = {METADATA_LIST_USER_GROUP}; }},
        {"negative start", [](Request& r) { r.start = -1; }},
        {"ids with the grouping flag", [](Request& r) { r.grouping = 1; }},
    };
    for (const auto& [name, spoil] : bad) {
        Request request = music();
        spoil(request);
        const QtMessages messages;
        const Answer answer = search(request);
        EXPECT_NE(answer.result, 0) << name;
        EXPECT_EQ(answer.calls, 0) << name;
        EXPECT_EQ(messages.list().filter("cannot read the request").size(), 1) << name;
    }

    // Null arrays where counts say there are entries, and no request, callback or client.
    const Request valid = music();
    const std::function<void(MetadataSearchMediaRequest&)> nullArrays[] = {
        [](auto& words) { words.filterCount = 1; }, [](auto& words) { words.sort = nullptr; },
        [](auto& words) { words.candidates = nullptr; }, [](auto& words) { words.listTypes = nullptr; }};
    Answer answer;
    for (const auto& breakWords : nullArrays) {
        MetadataSearchMediaRequest words = valid.words();
        breakWords(words);
        EXPECT_NE(metadataSearchMedia(m_handle, &words, SearchAnswer::collect, &answer), 0);
    }
    const MetadataSearchMediaRequest words = valid.words();
    EXPECT_NE(metadataSearchMedia(m_handle, nullptr, SearchAnswer::collect, &answer), 0);
    EXPECT_NE(metadataSearchMedia(m_handle, &words, nullptr, &answer), 0);
    EXPECT_NE(metadataSearchMedia(m_handle + 100, &words, SearchAnswer::collect, &answer), 0);
    EXPECT_EQ(answer.calls, 0);
}

TEST_F(MediaDatabaseTest, TransactionsRollBackUnlessCommitted)
{
    {
        const std::unique_ptr<SqliteTransaction> transaction = m_database->beginTransaction();
        add("/m/kept.mp3", "Kept", "", "", "", "", 0, "", 0);
        EXPECT_TRUE(transaction->commit());
    }
    {
        const std::unique_ptr<SqliteTransaction> transaction = m_database->beginTransaction();
        add("/m/dropped.mp3", "Dropped", "", "", "", "", 0, "", 0);
        const std::unique_ptr<SqliteTransaction> inner = m_database->beginTransaction();
        EXPECT_TRUE(m_database->removeMedia(1));
    }
    // Kept, dropped, the removed object of the rolled-back batch, and the count.
    EXPECT_EQ(std::tuple(bool(m_database->mediaByPath("/m/kept.mp3")),
                         bool(m_database->mediaByPath("/m/dropped.mp3")), bool(m_database->mediaById(1)),
                         m_database->mediaCount()),
              std::tuple(true, false, true, 9));

    // One that does not wait is refused while another connection writes.
    const std::unique_ptr<MediaDatabase> other = MediaDatabase::open(m_database->fileName());
    ASSERT_TRUE(other);
    {
        const std::unique_ptr<SqliteTransaction> otherWrites = other->beginTransaction();
        ASSERT_TRUE(otherWrites->isActive());
        EXPECT_FALSE(m_database->beginTransactionWithoutWaiting()->isActive());
    }
    EXPECT_TRUE(m_database->beginTransactionWithoutWaiting()->isActive());
}
