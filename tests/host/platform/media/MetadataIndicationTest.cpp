#include <gtest/gtest.h>

#include "host/platform/media/database/SqliteTransaction.h"
#include "tests/host/platform/media/MetadataTestLibrary.h"
#include "tests/host/platform/media/OtherProgramSql.h"

namespace {

class MetadataIndicationTest : public MetadataTestLibrary {
protected:
    void SetUp() override
    {
        MetadataTestLibrary::SetUp();
        m_song = add("/m/song.mp3", "Song");
        m_playList = m_database->addGroup(METADATA_GROUP_USER, "Evening");
        ASSERT_NE(m_playList, 0u);
        subscribe(m_handle, m_recorder);
    }

    // Whether this client hears just @p expected; what it heard is then forgotten.
    bool hears(const QStringList& expected)
    {
        const bool isHeard = waitUntil([&] { return m_recorder.heard.size() >= expected.size(); }, 3000)
                             && m_recorder.heard == expected;
        m_recorder.heard.clear();
        return isHeard;
    }

    quint32 m_song = 0;
    quint32 m_playList = 0;
    IndicationRecorder m_recorder;
};

} // namespace

TEST_F(MetadataIndicationTest, OwnWriteIsAnnouncedOnlyFromTheEventLoopAfterItsCommit)
{
    const MetadataGroupItem item{m_song, 1, 0, -1, 0, 0, 0, 0};
    const MetadataAddItemsRecord record{0, m_playList, 0, 1, &item};
    int status = -1;
    ASSERT_EQ(metadataAddItemsIntoGroup(m_handle, &record, &status), 0);
    EXPECT_TRUE(m_recorder.heard.isEmpty());
    EXPECT_TRUE(hears({IndicationRecorder::group(m_playList, METADATA_GROUP_MEMBERS_CHANGED)}));

    // Uncommitted changes are not announced; committed as one batch, they are one 3006.
    {
        const std::unique_ptr<SqliteTransaction> transaction = m_database->beginTransaction();
        add("/m/a.mp3", "A");
        add("/m/b.mp3", "B");
        processEvents();
        EXPECT_FALSE(waitUntil([&] { return !m_recorder.heard.isEmpty(); }, 450));
        ASSERT_TRUE(transaction->commit());
    }
    EXPECT_TRUE(hears({IndicationRecorder::content()}));
}

TEST_F(MetadataIndicationTest, GroupChangesNameTheGroupAndTellDeletionFromMembers)
{
    ASSERT_TRUE(m_database->removeGroup(m_playList));
    EXPECT_TRUE(hears({IndicationRecorder::group(m_playList, METADATA_GROUP_DELETED)}));

    // Removing a file changes the media and every group that held it.
    ASSERT_TRUE(m_database->setGroupMembers(METADATA_AUDIO_HISTORY_GROUP_ID, {m_song}));
    ASSERT_TRUE(hears({IndicationRecorder::group(2, METADATA_GROUP_MEMBERS_CHANGED)}));
    ASSERT_TRUE(m_database->removeMedia(m_song));
    EXPECT_TRUE(
        hears({IndicationRecorder::content(), IndicationRecorder::group(2, METADATA_GROUP_MEMBERS_CHANGED)}));
}

// A handler that closes its own connection hears no more of the batch.
struct Closer {
    unsigned int handle = 0;
    int calls = 0;
    static void closeOwnConnection(void* userData, unsigned short, void*)
    {
        auto* self = static_cast<Closer*>(userData);
        ++self->calls;
        metadataDestroyClient(self->handle);
    }
};

TEST_F(MetadataIndicationTest, SubscribersHearWhatTheyChose_AHandlerMayCloseItsOwnConnection)
{
    IndicationRecorder replaced, latest, groupsOnly, deregistered;
    int status = -1;
    const unsigned int second = metadataCreateClient(&status);
    const unsigned int third = metadataCreateClient(&status);
    const unsigned int fourth = metadataCreateClient(&status);
    Closer closer{metadataCreateClient(&status)};
    subscribe(second, replaced);
    ASSERT_EQ(metadataSetIndicationHandler(second, IndicationRecorder::handle, &latest), 0);
    const unsigned short groupChanges[] = {METADATA_INDICATION_GROUP_CHANGED};
    ASSERT_EQ(metadataSetIndicationHandler(third, IndicationRecorder::handle, &groupsOnly), 0);
    ASSERT_EQ(metadataRegisterIndication(third, groupChanges, 1), 0);
    subscribe(fourth, deregistered);
    ASSERT_EQ(metadataDeregisterIndication(fourth), 0);
    subscribe(closer.handle, replaced);
    ASSERT_EQ(metadataSetIndicationHandler(closer.handle, Closer::closeOwnConnection, &closer), 0);

    // One batch of a media change and a group change.
    {
        const std::unique_ptr<SqliteTransaction> transaction = m_database->beginTransaction();
        add("/m/other.mp3", "Other");
        ASSERT_TRUE(m_database->setGroupMembers(m_playList, {m_song}) && transaction->commit());
    }
    const QStringList both{IndicationRecorder::content(),
                           IndicationRecorder::group(m_playList, METADATA_GROUP_MEMBERS_CHANGED)};
    // Each connection polls on its own timer: wait for every one that must hear.
    const auto everyOneHeard = [&] {
        return latest.heard.size() >= 2 && !groupsOnly.heard.isEmpty() && closer.calls > 0;
    };
    EXPECT_TRUE(waitUntil(everyOneHeard, 3000));
    processEvents();
    // The latest handler, the group-only one, the replaced one, the deregistered one; the closer's calls.
    EXPECT_EQ(std::tuple(latest.heard, groupsOnly.heard, replaced.heard, deregistered.heard, closer.calls),
              std::tuple(both, QStringList{both[1]}, QStringList(), QStringList(), 1));
    for (const unsigned int handle : {second, third, fourth})
        EXPECT_EQ(metadataDestroyClient(handle), 0);
    EXPECT_NE(metadataRegisterIndication(fourth, groupChanges, 1), 0);
}

// A client that reads only a play list waits for a song change that alters
// what its searches return, even when no group change is logged with it.
// (That the changes which leave them as they were do not hold the
// write-ahead log is the log's test of a play list under a scanner.)
TEST_F(MetadataIndicationTest, PlayListClient_WaitsForSongChangesThatReachItsSearches)
{
    const quint32 second = add("/m/second.mp3", "Second");
    const quint32 third = add("/m/third.mp3", "Third");
    ASSERT_TRUE(m_database->setGroupMembers(m_playList, {m_song, second, third}));
    // Heard last: everything committed before it has been delivered too.
    ASSERT_TRUE(waitUntil(
        [&] { return m_recorder.heard.contains(IndicationRecorder::group(m_playList, METADATA_GROUP_MEMBERS_CHANGED)); },
        3000));
    // The play list in its order, on the phone memory, as a list reads it to play.
    SearchRequest playList = groupList(METADATA_LIST_USER_GROUP, m_playList);
    playList.candidates = {METADATA_CANDIDATE_OBJECT_ID, METADATA_CANDIDATE_FULL_PATH};
    playList.storage = 0;
    const MetadataSearchMediaRequest backup = playList.words();
    ASSERT_EQ(metadataBackupSearchedMedias(m_handle, &backup), 0);
    // Entries to play: reading them never moves the snapshot.
    playList.count = 10;
    const auto entries = [&] { return search(playList).ids; };
    ASSERT_EQ(entries(), (QList<quint32>{m_song, second, third}));

    m_recorder.heard.clear();

    // A song of the list moved to the memory card leaves its search; that
    // waits, and the list hears of it as a change of its own group.
    const QStringList contentAndList{
        IndicationRecorder::content(), IndicationRecorder::group(m_playList, METADATA_GROUP_MEMBERS_CHANGED)};
    {
        const std::unique_ptr<SqliteTransaction> transaction = m_database->beginTransaction();
        add("/m/later.mp3", "Later");
        MediaRecord moved = *m_database->mediaById(third);
        moved.storage = 1;
        ASSERT_TRUE(m_database->updateMedia(moved) && transaction->commit());
    }
    ASSERT_TRUE(hears(contentAndList));
    EXPECT_EQ(entries(), (QList<quint32>{m_song, second, third})) << "delivered, not handled";
    EXPECT_EQ(std::get<3>(checkBackup(0)), 2u);
    EXPECT_EQ(entries(), (QList<quint32>{m_song, second}));

    // Deleted as the sqlite3 shell does, without foreign keys: the member row
    // stays and no group change is logged, but the song leaves the list.
    ASSERT_TRUE(runAsOtherProgram("DELETE FROM media WHERE id = " + QByteArray::number(second)));
    ASSERT_TRUE(hears(contentAndList));
    EXPECT_EQ(entries(), (QList<quint32>{m_song, second})) << "delivered, not handled";
    EXPECT_EQ(std::get<3>(checkBackup(0)), 1u);
    EXPECT_EQ(entries(), QList<quint32>{m_song});
}
