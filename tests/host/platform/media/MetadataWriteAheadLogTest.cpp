// A client that plays for hours keeps its snapshot (MetadataConnection.h)
// and still lets the write-ahead log start over, whatever it writes itself (the
// play history, the last played song), and a change another program made
// still waits until the list has handled it.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <memory>
#include <tuple>

#include "clients/MP_ListListener.h"
#include "clients/MP_MediafinderClient.h"
#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "host/platform/HostJournal.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/SqliteTransaction.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "tests/support/EngineRelease.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MetadataWriteAheadLogTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        m_other = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(m_other);
        MP_AufContext::shuffle = MP_AufContext::shuffleSetting = 0;
        MP_AufContext::isRepeat = true;
    }
    void TearDown() override
    {
        MP_RecentList::getAudioList()->saveToDB();  // the process-wide collector starts the next test empty
        MP_AufContext::isRepeat = false;
        m_other.reset();
        TestEnvironment::TearDown();
    }

    // A song that exists as a file, so that the engine plays it.
    quint32 addPlayable(int number)
    {
        const QString path = writeDataFile(QStringLiteral("music/%1.mp3").arg(number, 3, 10, QLatin1Char('0')));
        return m_other->addMedia(song(path).title(QFileInfo(path).completeBaseName()));
    }

    static qint64 logSize() { return QFileInfo(MediaDatabase::defaultFile() + QStringLiteral("-wal")).size(); }

    // Steps @p list @p songs times as the main window plays it, each song
    // long enough for the time report that writes it into the history, with
    // @p beforeEach run before every step; the largest log seen. The client,
    // the engine and the list go in the main window's order.
    static qint64 playSongs(MP_AufList& list, int songs, const std::function<void(int)>& beforeEach = {})
    {
        const HostEnginePtr engine = makeHostEngine();
        MP_MediafinderClient client(engine.get());
        client.setAufList(&list);
        engine->setPlayList(&list);
        engine->autoPlay(false);
        // So many songs' journal lines are not looked at.
        HostJournal::stopCapture();
        qint64 largest = 0;
        for (int played = 0; played < songs; ++played) {
            if (beforeEach)
                beforeEach(played);
            engine->control().next();
            HostEngineClock::advance(1000);
            largest = std::max(largest, logSize());
        }
        HostJournal::startCapture();
        return largest;
    }

    std::unique_ptr<MediaDatabase> m_other;   // another program's connection
};

// The log's size at every step the engine reports: a run of skips is one
// call, at whose end the log may already have started over.
class LogAtEveryStep final : public MP_ListListener {
public:
    void updateListInfo(MP_ListInterface*) override
    {
        largest = std::max(largest, QFileInfo(MediaDatabase::defaultFile() + QStringLiteral("-wal")).size());
        ++steps;
    }
    qint64 largest = 0;
    int steps = 0;
};

} // namespace

// A library whose files are all gone: the engine skips each song in one
// run, and the media browser's client writes every song it moves to as the
// last played song, a write no indication announces and no list handles.
TEST_F(MetadataWriteAheadLogTest, TwoThousandMissingSongsSkipped_TheLogStaysSmall)
{
    {
        const std::unique_ptr<SqliteTransaction> batch = m_other->beginTransaction();
        for (int number = 0; number < 2000; ++number) {
            const QString name = QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0'));
            ASSERT_NE(m_other->addMedia(song(QStringLiteral("/gone/%1.mp3").arg(name)).title(name)), 0u);
        }
        ASSERT_TRUE(batch->commit());
    }
    MP_AufList list;
    const HostEnginePtr engine = makeHostEngine();
    MP_MediafinderClient client(engine.get());
    client.setAufList(&list);
    engine->setPlayList(&list);
    LogAtEveryStep watch;
    engine->addListListener(&watch);
    HostJournal::stopCapture();
    engine->autoPlay(false);
    // The engine steps past 64 missing files at a go, one go a turn of the event loop.
    for (int turn = 0; turn < 40 && engine->control().getState() != MP_STATE_FINISHED; ++turn)
        QCoreApplication::processEvents();
    HostJournal::startCapture();
    engine->removeListListener(&watch);

    // Each song failed once; the list stopped on the last, the last song written.
    const MediaLastPlayedSong last = m_other->lastPlayedSong().value_or(MediaLastPlayedSong());
    EXPECT_EQ(std::tuple(engine->control().getState(), watch.steps, last.path, last.position),
              std::tuple(MP_STATE_FINISHED, 1999, QStringLiteral("/gone/1999.mp3"), 1999));
    EXPECT_LE(watch.largest, 1200 * 1024) << "a log of one megabyte, and what one skip writes beyond it";
}

TEST_F(MetadataWriteAheadLogTest, AnotherProgramsChangeStillWaitsForTheListThroughTheHistoryWrites)
{
    const quint32 first = addPlayable(1);
    addPlayable(2);
    MP_AufList list;
    ASSERT_EQ(list.count(), 2u);
    // Committed by another program; the list has not heard of it yet.
    const quint32 third = addPlayable(3);

    // The history is written through the list's own connection, which reads
    // the songs it adds in its snapshot: the new song is not in it yet,
    // although the write just made let the snapshot move past itself.
    MP_RecentList* history = MP_RecentList::getAudioList();
    history->addItem(dataPath("music/001.mp3"));
    history->saveToDB();
    history->addItem(dataPath("music/003.mp3"));
    history->saveToDB();
    EXPECT_EQ(m_other->groupMembers(2), QList<quint32>{first});

    // Once the list has handled the change, its snapshot holds the new song.
    ASSERT_TRUE(waitUntil([&] { return list.count() == 3u; }, 3000));
    history->addItem(dataPath("music/003.mp3"));
    history->saveToDB();
    EXPECT_EQ(m_other->groupMembers(2), (QList<quint32>{third, first}));
}

// A play list plays while another program (a scanner) commits song changes:
// new songs, and new tags for songs of the list and beside it. None of them
// changes what the list's searches return, so none keeps the log from
// starting over.
TEST_F(MetadataWriteAheadLogTest, PlayListPlayingWhileAnotherProgramChangesSongs_TheLogStaysSmall)
{
    QList<quint32> ids;
    for (int number = 0; number < 37; ++number)
        ids << addPlayable(number);
    const QList<quint32> members = ids.mid(0, 20);
    const quint32 group = m_other->addGroup(METADATA_GROUP_USER, QStringLiteral("Mine"));
    ASSERT_TRUE(m_other->setGroupMembers(group, members));
    MP_AufList list(group, METADATA_GROUP_USER, 0, 0, QString());
    int added = 0;
    const qint64 largest = playSongs(list, 600, [&](int played) {
        if (played % 5 != 4)
            return;
        const std::unique_ptr<SqliteTransaction> batch = m_other->beginTransaction();
        m_other->addMedia(song(QStringLiteral("/scanned/%1.mp3").arg(added++)));
        for (const quint32 id : {members.at(played % 20), ids.at(20 + played % 17)}) {
            MediaRecord retagged = *m_other->mediaById(id);
            retagged.artist = QStringLiteral("Artist %1").arg(played);
            ASSERT_TRUE(m_other->updateMedia(retagged));
        }
        ASSERT_TRUE(batch->commit());
    });

    // 600 steps through 20 songs with repeat come back to the first.
    ASSERT_EQ(list.getCurrentIndex(), 0);
    EXPECT_EQ(m_other->groupMembers(2).value(0), members.at(0));
    EXPECT_LE(largest, 1200 * 1024) << "a log of one megabyte, and what one song writes beyond it";
}
