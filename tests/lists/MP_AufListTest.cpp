#include "lists/MP_AufList.h"

#include <QFile>
#include <QSet>
#include <QSignalSpy>

#include <climits>
#include <memory>
#include <utility>

#include "host/platform/media/database/MediaDatabase.h"
#include "lists/MP_AufContext.h"
#include "platform/QCopChannel.h"
#include "tests/lists/TraceCapture.h"
#include "tests/support/ListSteps.h"
#include "tests/support/Payload.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_AufListTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        setModes(0, false);
    }

    static void setModes(int shuffle, bool repeat)
    {
        MP_AufContext::shuffle = MP_AufContext::shuffleSetting = shuffle;
        MP_AufContext::isRepeat = repeat;
    }

    // Songs "Song 00".."Song NN" by one artist; their title order is their number.
    void addSongs(int count, const QString& album = QStringLiteral("Album"))
    {
        for (int i = 0; i < count; ++i)
            addSong(QStringLiteral("Song %1").arg(i, 2, 10, QLatin1Char('0')), album, i + 1);
    }

    quint32 addSong(const QString& title, const QString& album, int track, MediaKind kind = MediaKind::Audio)
    {
        return database->addMedia(song(QStringLiteral("/music/%1/%2.mp3").arg(album, title))
                                      .kind(kind).title(title).artist("Band").album(album).track(track));
    }

    static QString titleOf(const QString& path) { return QFileInfo(path).completeBaseName(); }

    std::unique_ptr<MediaDatabase> database;
};

TEST_F(MP_AufListTest, Navigation_RepeatWrapsBothWaysAndOtherwiseStopsAtTheEnds_EvenFromOutsideTheList)
{
    addSongs(5);
    setModes(0, true);
    MP_AufList repeating;
    EXPECT_EQ(listSteps(repeating, {"@5", "@-1", "+1"}), "<0> <4> <0>");
    EXPECT_EQ(titleOf(repeating.getItem(-1)), "Song 04") << "a position is wrapped before the look-up";

    setModes(0, false);
    MP_AufList plain;
    EXPECT_EQ(listSteps(plain, {"@3", "+3", "-9"}), "<3> <4 0>");
    EXPECT_TRUE(plain.getItem(-1).isNull() && plain.getItem(5).isNull()) << "without repeat nothing wraps";

    // An empty selection has no steps, even shuffled and repeating.
    setModes(1, true);
    MP_AufList empty(QStringLiteral("Nobody"), QString(), QString(), QString(), 2, 0, QString());
    EXPECT_EQ(listSteps(empty, {"+1", "@-3"}), "0 0");
    EXPECT_TRUE(empty.getCurrent().isNull());

    // A first index outside the list plays the nearest end.
    setModes(0, false);
    MP_AufList pastTheEnd(QString(), QString(), QString(), QString(), 2, INT_MAX, QString());
    EXPECT_EQ(titleOf(pastTheEnd.getCurrent()), "Song 04") << "the last song, not none";
    MP_AufList beforeTheStart(QString(), QString(), QString(), QString(), 2, -7, QString());
    EXPECT_EQ(titleOf(beforeTheStart.getCurrent()), "Song 00");

    // Repeat wraps from there without overflowing, whatever the steps:
    // 2147483647 = 5 * 429496729 + 2, and 2 - 2147483648 = 5 * -429496730 + 4.
    setModes(0, true);
    MP_AufList wrapping(QString(), QString(), QString(), QString(), 2, INT_MAX, QString());
    EXPECT_EQ(listSteps(wrapping, {"+1", "+2147483647", "-2147483648"}), "<0> <2> <4>");
    EXPECT_EQ(listSteps(plain, {"+2147483647", "-2147483648"}), "<4 0>");
}

TEST_F(MP_AufListTest, Cache_HoldsAWindowOfTen_ShuffledPlayPinsThePlayingSongAndDrawsANewOrderAtTheEnds)
{
    addSongs(30);
    setModes(0, true);
    MP_AufList list;
    const auto window = [&] { return QStringLiteral("%1-%2").arg(list.cacheTop()).arg(list.cacheBottom()); };
    QStringList windows{window()};
    for (int position : {10, 12, 20, 9}) {
        const QString title = QStringLiteral("Song %1").arg(position, 2, 10, QLatin1Char('0'));
        EXPECT_EQ(titleOf(list.getItem(position)), title);
        windows << window();
    }
    EXPECT_EQ(windows.join(' '), "0-10 10-20 10-20 20-30 9-19") << "inside the window: no search";

    list.moveTo(7);
    list.updateShuffle(MP_AufList::ShuffleSongs);
    EXPECT_EQ(titleOf(list.getCurrent()), "Song 07");
    EXPECT_EQ(list.getCurrentIndex(), 0);
    EXPECT_EQ(list.getPositionOfCurrentSong(), 7);
    QSet<QString> played;
    for (int position = 0; position < 30; ++position)
        played.insert(list.getItem(position));
    EXPECT_EQ(played.size(), 30) << "every song once";
    EXPECT_EQ(list.cacheBottom() - list.cacheTop(), 1) << "shuffled play fetches one entry at a time";

    // The order is drawn from the clock's second, so two draws in one test
    // can be alike: the draw itself shows in the shuffle's trace. Before play
    // position 0 a new order plays from its end; exactly one past the end, a
    // new order plays from its start.
    TraceCapture traces;
    list.skipSteps(-1);
    EXPECT_EQ(list.getCurrentIndex(), 29);
    list.skipSteps(1);
    EXPECT_EQ(traces.text().count("shuffle: count=30, first=-1"), 2);
    EXPECT_EQ(list.getCurrentIndex(), 0);

    list.updateShuffle(MP_AufList::ShuffleOff);
    EXPECT_EQ(list.getCurrent(), list.getItem(list.getCurrentIndex())) << "back in list order on the same song";
}

TEST_F(MP_AufListTest, SetupMessages_ChangeTheModesOfTheirKindOfList_UnlessUnreadableOrUnknown)
{
    addSongs(3);
    addSong(QStringLiteral("Clip"), QStringLiteral("Videos"), 1, MediaKind::Video);
    MP_AufList music;
    MP_AufList videos(QStringLiteral("All"), QString(), -1, 0);
    QSignalSpy musicSpy(&music, SIGNAL(signalListUpdate(int, bool)));
    QSignalSpy videoSpy(&videos, SIGNAL(signalListUpdate(int, bool)));
    // After each message (its payload in hex), the shuffle and repeat modes
    // each list reports, as "music 1/0 videos 0/0".
    QStringList reported;
    const auto send = [&](const char* message, const char* hex) {
        QCopChannel::send("MEDIAPLAYER_MESSAGE_CHANNEL", message, QByteArray::fromHex(hex));  // as the settings screen does
        processEvents();
        reported << QStringLiteral("music %1/%2 videos %3/%4")
                        .arg(musicSpy.last().at(0).toInt()).arg(musicSpy.last().at(1).toInt())
                        .arg(videoSpy.last().at(0).toInt()).arg(videoSpy.last().at(1).toInt());
    };
    send("MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC", "00000001");  // a video list ignores the music settings
    send("MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC", "00000002");  // albums, the highest mode, is known
    send("MP_MSG_SETUP_CHANGE_REPEAT_VIDEO", "00000001");
    send("MP_MSG_SETUP_CHANGE_REPEAT_MUSIC", "00000001");
    QStringList expected{"music 1/0 videos 0/0", "music 2/0 videos 0/0", "music 2/0 videos 0/1",
                         "music 2/1 videos 0/1"};
    // Then nothing changes: another message; payloads one byte short of the
    // value (they used to read as 0 and switch the modes off) and one byte
    // past it; shuffle modes above and below the known ones.
    send("MP_MSG_SOMETHING_ELSE", "00000002");
    for (const char* message : {"MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC", "MP_MSG_SETUP_CHANGE_REPEAT_MUSIC"}) {
        send(message, "000000");
        send(message, "0000000000");
    }
    send("MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC", "00000003");
    send("MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC", "ffffffff");
    for (int unchanged = 0; unchanged < 7; ++unchanged)
        expected << "music 2/1 videos 0/1";
    EXPECT_EQ(reported, expected);
    EXPECT_EQ(musicSpy.count() + videoSpy.count(), 22) << "every list reports on every message";
    EXPECT_EQ(MP_AufContext::shuffle, 2);
    EXPECT_TRUE(MP_AufContext::isRepeat);
}

TEST_F(MP_AufListTest, OlderListDeleted_TheNewerOneStillFollowsTheDatabase)
{
    addSongs(3);
    auto older = std::make_unique<MP_AufList>();
    MP_AufList newer;
    older.reset();
    addSongs(1, QStringLiteral("Later"));
    EXPECT_TRUE(waitUntil([&] { return newer.count() == 4; }, 3000))
        << "the subscription and backup of the shared connection are the newer list's";
}

} // namespace

namespace {

// Five albums of different sizes; "Bravo 2" is the second song of Bravo, and
// the whole list's title order is album by album.
class MP_AufListAlbumTest : public MP_AufListTest {
protected:
    void SetUp() override
    {
        MP_AufListTest::SetUp();
        const QList<QPair<QString, int>> albums{{"Alpha", 3}, {"Bravo", 4}, {"Charlie", 2}, {"Delta", 5}, {"Echo", 1}};
        for (const auto& album : albums) {
            for (int track = 1; track <= album.second; ++track)
                addSong(QStringLiteral("%1 %2").arg(album.first).arg(track), album.first, track);
        }
    }

    // Plays from the current song to the end of the list (@p step -1: to its start).
    static QStringList walk(MP_AufList& list, int step = 1)
    {
        QStringList played{titleOf(list.getCurrent())};
        while ((step > 0 ? list.hasNext() : list.hasPrevious()) && played.size() < 100) {
            list.skipSteps(step);
            played.append(titleOf(list.getCurrent()));
        }
        return played;
    }

    // The albums in the order they were played, checking each is played whole and in order.
    static QStringList albumRuns(const QStringList& played)
    {
        QStringList albums;
        int expectedTrack = 1;
        for (const QString& title : played) {
            const QString album = title.section(' ', 0, 0);
            if (albums.isEmpty() || albums.last() != album) {
                albums.append(album);
                expectedTrack = title.section(' ', 1).toInt();
            }
            EXPECT_EQ(title.section(' ', 1).toInt(), expectedTrack++) << qPrintable(title);
        }
        return albums;
    }
};

TEST_F(MP_AufListAlbumTest, WithoutAFirstSong_PlaysEveryAlbumWholeOnceAndRetracesBack)
{
    // Songs without an album play as an album of their own.
    addSong(QStringLiteral("Loose 1"), QString(), 0);
    addSong(QStringLiteral("Loose 2"), QString(), 0);
    setModes(MP_AufList::ShuffleAlbums, false);
    MP_AufList list;
    const QStringList forward = walk(list);
    ASSERT_EQ(forward.size(), 17);
    EXPECT_EQ(QSet<QString>(forward.begin(), forward.end()).size(), 17) << "every song exactly once";
    const QStringList order = albumRuns(forward);
    EXPECT_EQ(order.size(), 6) << "each album in one piece";
    EXPECT_EQ(forward.first().section(' ', 1).toInt(), 1);

    QStringList back = walk(list, -1);
    std::reverse(back.begin(), back.end());
    EXPECT_EQ(back, forward);
}

TEST_F(MP_AufListAlbumTest, FirstAlbumPlaysFirstFromTheFirstSong_IsSkippedLater_AndIsSteppedBackInto)
{
    setModes(MP_AufList::ShuffleAlbums, false);
    // Whole-list position 10 is "Delta 2".
    MP_AufList list(QString(), QString(), QString(), QString(), 2, 10, QStringLiteral("Delta"));
    const QStringList forward = walk(list);
    EXPECT_EQ(forward.mid(0, 4), (QStringList{"Delta 2", "Delta 3", "Delta 4", "Delta 5"}));
    // Fourteen songs in five albums: the first album does not come round again.
    EXPECT_EQ(forward.size(), 14);
    EXPECT_EQ(albumRuns(forward).size(), 5);

    MP_AufList again(QString(), QString(), QString(), QString(), 2, 10, QStringLiteral("Delta"));
    again.skipSteps(4);  // past "Delta 5": the first song of the next album
    const QString next = titleOf(again.getCurrent());
    EXPECT_EQ(next.section(' ', 1), "1");
    again.skipSteps(-1);
    EXPECT_EQ(titleOf(again.getCurrent()), "Delta 5");
    again.skipSteps(1);
    EXPECT_EQ(titleOf(again.getCurrent()), next);
    EXPECT_EQ(walk(again).size(), 10) << "the rest of the order, each song once";
}

TEST_F(MP_AufListAlbumTest, SwitchedOnWhileAnotherAlbumPlays_GoesOnFromThePlayingSong)
{
    // Launched on Delta, but Bravo plays when the mode is switched on.
    MP_AufList list(QString(), QString(), QString(), QString(), 2, 0, QStringLiteral("Delta"));
    list.moveTo(4);
    ASSERT_EQ(titleOf(list.getCurrent()), "Bravo 2");
    QSignalSpy changed(&list, SIGNAL(signalCurrentChanged()));
    list.updateShuffle(MP_AufList::ShuffleAlbums);
    EXPECT_EQ(changed.count(), 0) << "the same song plays on";
    const QStringList forward = walk(list);
    EXPECT_EQ(forward.mid(0, 3), (QStringList{"Bravo 2", "Bravo 3", "Bravo 4"}));
    EXPECT_EQ(forward.size(), 14) << "then every other album once";
    EXPECT_EQ(forward.filter("Bravo").size(), 3);
}

TEST_F(MP_AufListAlbumTest, DatabaseChange_KeepsTheAlbumThatPlays)
{
    setModes(MP_AufList::ShuffleAlbums, false);
    MP_AufList list(QString(), QString(), QString(), QString(), 2, 9, QStringLiteral("Delta"));
    ASSERT_EQ(titleOf(list.getCurrent()), "Delta 1");
    QSignalSpy updated(&list, SIGNAL(signalListUpdate(int, bool)));
    addSong(QStringLiteral("Zulu 1"), QStringLiteral("Zulu"), 1);  // another album, elsewhere in the list
    ASSERT_TRUE(waitUntil([&] { return updated.count() > 0; }, 3000));
    const QStringList forward = walk(list);
    EXPECT_EQ(forward.mid(0, 5), (QStringList{"Delta 1", "Delta 2", "Delta 3", "Delta 4", "Delta 5"}));
    EXPECT_EQ(forward.size(), 16) << "then every other album once, the new one too";

    // The playing song retitled to the end of its album: the library's count
    // and the song's place in it stay, its place in the album does not.
    list.moveTo(0);
    std::optional<MediaRecord> record = database->mediaByPath(list.getCurrent());
    ASSERT_TRUE(record);
    record->title = QStringLiteral("Delta 9");
    updated.clear();
    ASSERT_TRUE(database->updateMedia(*record));
    ASSERT_TRUE(waitUntil([&] { return updated.count() > 0; }, 3000)) << "taken for no change";
    EXPECT_EQ(walk(list, -1), (QStringList{"Delta 1", "Delta 5", "Delta 4", "Delta 3", "Delta 2"}));
}

TEST_F(MP_AufListAlbumTest, WithRepeat_KeepsPlayingThroughNewAlbumOrders)
{
    setModes(MP_AufList::ShuffleAlbums, true);
    MP_AufList list;
    const QStringList played = walk(list);  // with repeat, up to walk's bound
    // Three cycles of fifteen, each a whole album order of every song.
    for (int cycle = 0; cycle < 3; ++cycle) {
        const QStringList songs = played.mid(cycle * 15, 15);
        EXPECT_EQ(QSet<QString>(songs.begin(), songs.end()).size(), 15) << "cycle " << cycle;
        EXPECT_EQ(albumRuns(songs).size(), 5) << "cycle " << cycle;
    }
}

} // namespace

namespace {

// The database changes under a playing list, written through another
// connection to the file, as the scanner or any other program would.
class MP_AufListChangeTest : public MP_AufListTest, public ::testing::WithParamInterface<int> {
protected:
    void SetUp() override
    {
        MP_AufListTest::SetUp();
        for (int i = 0; i < 6; ++i)
            ids.append(addSong(QStringLiteral("Song %1").arg(i), QStringLiteral("Album %1").arg(i / 3), i % 3 + 1));
        setModes(GetParam(), false);
        list = std::make_unique<MP_AufList>();
        list->moveTo(list->getCurrentIndex() + 2);
        playing = list->getCurrent();
        ASSERT_FALSE(playing.isNull());
    }

    quint32 idOf(const QString& path) const
    {
        const std::optional<MediaRecord> record = database->mediaByPath(path);
        return record ? record->id : 0;
    }

    QList<quint32> ids;
    std::unique_ptr<MP_AufList> list;
    QString playing;
};

TEST_P(MP_AufListChangeTest, CurrentSongDeleted_MovesOnToAnotherSong_AnEmptiedSelectionReportsAnEmptyList)
{
    QSignalSpy changed(list.get(), SIGNAL(signalCurrentChanged()));
    ASSERT_TRUE(database->removeMedia(idOf(playing)));
    ASSERT_TRUE(waitUntil([&] { return changed.count() > 0; }, 3000));
    EXPECT_EQ(list->count(), 5u);
    EXPECT_FALSE(list->getCurrent().isNull());
    EXPECT_NE(list->getCurrent(), playing);
    if (GetParam() == MP_AufList::ShuffleOff) {
        EXPECT_EQ(titleOf(list->getCurrent()), "Song 3") << "the next song in list order";
    }

    for (quint32 id : ids)
        database->removeMedia(id);
    ASSERT_TRUE(waitUntil([&] { return changed.count() > 1 && list->count() == 0; }, 3000));
    EXPECT_TRUE(list->getCurrent().isNull());
}

TEST_P(MP_AufListChangeTest, OtherSongsRemovedOrAdded_TheSameSongPlaysOn)
{
    QSignalSpy changed(list.get(), SIGNAL(signalCurrentChanged()));
    QSignalSpy updated(list.get(), SIGNAL(signalListUpdate(int, bool)));
    const int before = list->getCurrentIndex();
    const QString other = QStringLiteral("/music/Album 0/Song %1.mp3").arg(titleOf(playing) == "Song 0" ? 1 : 0);
    ASSERT_TRUE(database->removeMedia(idOf(other)));
    ASSERT_TRUE(waitUntil([&] { return updated.count() > 0; }, 3000));
    EXPECT_EQ(list->getCurrent(), playing);
    EXPECT_EQ(list->count(), 5u);
    if (GetParam() == MP_AufList::ShuffleOff) {
        EXPECT_EQ(list->getCurrentIndex(), before - 1) << "Song 0 went from before Song 2";
    }

    addSong(QStringLiteral("Aardvark"), QStringLiteral("Album 0"), 9);  // first in title order
    ASSERT_TRUE(waitUntil([&] { return updated.count() > 1; }, 3000));
    EXPECT_EQ(list->getCurrent(), playing);
    EXPECT_EQ(list->count(), 6u);
    EXPECT_EQ(list->getItem(list->getCurrentIndex()), playing);
    EXPECT_EQ(changed.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(EachShuffleMode, MP_AufListChangeTest,
                         ::testing::Values(MP_AufList::ShuffleOff, MP_AufList::ShuffleSongs, MP_AufList::ShuffleAlbums));

} // namespace

namespace {

TEST_F(MP_AufListTest, RemoveItem_TakesOnlyTheCurrentOutOfItsPlayListAndKeepsItsFile)
{
    QList<quint32> ids;
    for (int i = 0; i < 3; ++i) {
        const QString path = writeDataFile(QStringLiteral("files/song%1.mp3").arg(i));
        ids.append(database->addMedia(song(path).title(QStringLiteral("Song %1").arg(i)).stampOf(QFileInfo(path))));
    }
    const quint32 group = database->addGroup(METADATA_GROUP_USER, QStringLiteral("Mine"));
    ASSERT_TRUE(database->setGroupMembers(group, {ids.at(2), ids.at(0), ids.at(1)}));

    MP_AufList playList(group, METADATA_GROUP_USER, 2, 1, QString());
    EXPECT_EQ(titleOf(playList.getCurrent()), "song0");
    EXPECT_FALSE(playList.removeItem(0)) << "only the current entry can be removed";
    EXPECT_FALSE(playList.removeItem(1)) << "removal reports false: the list changes when the database says so";
    EXPECT_EQ(database->groupMembers(group), (QList<quint32>{ids.at(2), ids.at(1)})) << "taken out by its position";
    EXPECT_TRUE(QFile::exists(dataPath("files/song0.mp3"))) << "the file stays";
    // The whole play list deleted: nothing of it is served any more.
    QSignalSpy emptied(&playList, SIGNAL(signalCurrentChanged()));
    ASSERT_TRUE(database->removeGroup(group));
    ASSERT_TRUE(waitUntil([&] { return emptied.count() > 0; }, 3000));
    EXPECT_EQ(playList.count(), 0u);
    EXPECT_TRUE(playList.getItem(1).isNull()) << qPrintable(playList.getItem(1));
}

} // namespace
