// The media-browser client against the host engine and database: the bytes
// of every message it sends, the requests it answers and the ones it
// ignores, and when a song goes into the play history.

#include "clients/MP_MediafinderClient.h"

#include <QJsonArray>

#include <memory>
#include <ostream>

#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "platform/QCopChannel.h"
#include "tests/lists/TraceCapture.h"
#include "tests/support/EngineRelease.h"
#include "tests/support/Journal.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

// Failures print the texts, not their code units.
static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

// "/a/x.mp3" as a stream string: byte count, then UTF-16BE.
const char* const kPathX = "00000010002f0061002f0078002e006d00700033";
const char* const kNull = "ffffffff";

class MP_MediafinderClientTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        engine = makeHostEngine();
        client = std::make_unique<MP_MediafinderClient>(engine.get());
    }
    void TearDown() override
    {
        client.reset();
        list.reset();
        engine.reset();
        MP_RecentList::getAudioList()->saveToDB();  // the process-wide collector starts the next test empty
        database.reset();
        TestEnvironment::TearDown();
    }

    // Hands @p newList to the client and the engine, as the main window does.
    void play(MP_AufList* newList)
    {
        list.reset(newList);
        client->setAufList(newList);
        engine->setPlayList(newList);
    }

    // Songs that exist as files, so that the engine plays them for its default time.
    quint32 addPlayable(const QString& title, MediaKind kind = MediaKind::Audio)
    {
        const QString path = writeDataFile("music/" + title + (kind == MediaKind::Video ? ".mp4" : ".mp3"));
        return database->addMedia(song(path).title(title).artist("Band").kind(kind));
    }

    // "message data" of what went to the browser, optionally only one message's.
    static QStringList sent(const QString& only = QString())
    {
        QStringList messages;
        for (const std::string& line : channelMessages("/vemo/apps/mediaplayer", only))
            messages << QString::fromStdString(line);
        return messages;
    }
    static int count(const QString& kind, const QString& call) { return int(journalLines(kind, call).size()); }

    // Sends a request and runs the loop until the channel delivered it: a
    // marker sent after it arrives after it.
    void request(const QCString& message, const QByteArray& data = QByteArray())
    {
        QCopChannel probe("MF_MSG_CHANNEL");
        bool delivered = false;
        QObject::connect(&probe, &QCopChannel::received,
                         [&](const QCString& name, const QByteArray&) { delivered = delivered || name == "marker()"; });
        QCopChannel::send("MF_MSG_CHANNEL", message, data);
        QCopChannel::send("MF_MSG_CHANNEL", "marker()");
        ASSERT_TRUE(waitUntil([&] { return delivered; }));
    }

    std::unique_ptr<MediaDatabase> database;
    HostEnginePtr engine;
    std::unique_ptr<MP_AufList> list;
    std::unique_ptr<MP_MediafinderClient> client;
};

TEST_F(MP_MediafinderClientTest, NowPlaying_PathPositionAndTheSelectionThenTheSongIsStoredAsNamed)
{
    const quint32 w = database->addMedia(song("/a/w.mp3").title("W").artist("Band"));
    const quint32 x = database->addMedia(song("/a/x.mp3").title("X").artist("Band"));
    play(new MP_AufList("Band", QString(), QString(), QString(), -1, 1, QString()));
    // A library selection: its four texts, the ones not chosen as nulls.
    EXPECT_EQ(sent("NowPlayingSystemItem(QString, int, QString, QString, QString, QString)"),
              QStringList{QString("NowPlayingSystemItem(QString, int, QString, QString, QString, QString) ") + kPathX
                          + "00000001" + "0000000800420061006e0064" + kNull + kNull + kNull});
    // The files do not exist: the engine's error goes out unmapped.
    EXPECT_EQ(sent("NowplayingState(int)"), QStringList{"NowplayingState(int) 00000007"});

    // A play list: its group's id.
    const quint32 group = database->addGroup(METADATA_GROUP_USER, "Mine");
    ASSERT_TRUE(database->setGroupMembers(group, {w, w, w, x}));
    play(new MP_AufList(group, METADATA_GROUP_USER, -1, 3, QString()));
    EXPECT_EQ(sent("NowplayingGroupItem(QString, int, int)"),
              QStringList{QString("NowplayingGroupItem(QString, int, int) ") + kPathX + "00000003"
                          + QString::number(group, 16).rightJustified(8, '0')});

    // A song named outside Latin-1 is stored as it is named (first in title order).
    const QString omega = QString::fromUtf8("/a/02 \xce\xa9\xce\xbc\xce\xad\xce\xb3\xce\xb1.wav");
    database->addMedia(song(omega).title("Omega").artist("Band"));
    play(new MP_AufList("Band", QString(), QString(), QString(), -1, 0, QString()));
    // What the store keeps of them is the store's own tests' business.
    EXPECT_EQ(journalArgs("metadata", "saveLastPlayedSong"),
              (QList<QJsonArray>{{"/a/x.mp3", 1}, {"/a/x.mp3", 3}, {omega, 0}}));
}

TEST_F(MP_MediafinderClientTest, ListDescriptionThatDoesNotHoldItsKind_SendsAndStoresNothing)
{
    database->addMedia(song("/a/x.mp3").title("X"));
    list = std::make_unique<MP_AufList>();
    client->setAufList(list.get());
    // Cut short in the kind, in a library selection's texts and in a group's
    // id, and a kind the browser does not know (a video list's).
    for (const char* reserved : {"000000", "00000000ffffffff0000000200", "000000010000", "00000002"}) {
        *list->getReservedData() = QByteArray::fromHex(reserved);
        client->sendNowPlayingItem();
        EXPECT_TRUE(client->listKind() == MP_MediafinderClient::NoListKind || client->listKind() > 1) << reserved;
    }
    EXPECT_EQ(sent(), QStringList{"MediaplayerStarted() "});
    EXPECT_EQ(count("metadata", "saveLastPlayedSong"), 0);

    client->setAufList(nullptr);
    client->sendNowPlayingItem();
    client->updateListInfo(nullptr);
    EXPECT_EQ(sent(), QStringList{"MediaplayerStarted() "});

    // A trace text that begins with a line break has its tag after it, beside its words.
    TraceCapture trace;
    client->updateTime(0, 0);
    EXPECT_TRUE(trace.text().startsWith("\n[MP_MediafinderClient] Enter MP_MediafinderClient::updateTime\n"))
        << trace.text().constData();
}

TEST_F(MP_MediafinderClientTest, Requests_StatusResendsTheItemAsAnnounced_UnhideShows_TheRestIgnored_ExitAnnounced)
{
    addPlayable("One");
    addPlayable("Two");
    list = std::make_unique<MP_AufList>();
    client->setAufList(list.get());
    request("queryMPNowPlaying()");
    EXPECT_EQ(sent().mid(1), QStringList{"NowplayingState(int) 00000000"}) << "no item described yet: the state only";

    engine->setPlayList(list.get());
    const QStringList items = sent("NowPlayingSystemItem(QString, int, QString, QString, QString, QString)");
    ASSERT_EQ(items.size(), 1);
    list->skipSteps(1);  // moved without a report: the query still tells what was announced
    request("queryMPNowPlaying()");
    EXPECT_EQ(sent().mid(sent().size() - 2), (QStringList{items.first(), "NowplayingState(int) 00000005"}));
    const int before = int(sent().size());
    client->setAufList(nullptr);
    request("queryMPNowPlaying()");  // no list, no item

    // Names that are not the two requests, and data that the requests do not carry.
    for (const char* ignored : {"queryMPNowPlaying", "QUERYMPNOWPLAYING()", "unHideMediaPlayer(int)", "x"})
        request(ignored, QByteArray::fromHex("ffffffff"));
    request("unHideMediaPlayer()", QByteArray::fromHex("00"));
    EXPECT_EQ(count("engine", "showPlayer"), 1);

    client.reset();
    EXPECT_EQ(sent().mid(before), (QStringList{"NowplayingState(int) 00000005", "MediaplayerExited() "}));
    EXPECT_FALSE(QCopChannel::isRegistered("MF_MSG_CHANNEL")) << "no longer listening";
}

TEST_F(MP_MediafinderClientTest, History_OneEntryPerSongHoweverManyTimeReports_NoneWhileTheHistoryPlays)
{
    const QList<quint32> ids{addPlayable("A"), addPlayable("B"), addPlayable("C")};
    play(new MP_AufList());
    engine->autoPlay(false);
    for (int second = 0; engine->control().getState() != MP_STATE_FINISHED; ++second) {
        ASSERT_LT(second, 60);
        HostEngineClock::advance(1000);
    }

    EXPECT_EQ(count("metadata", "metadataAddItemsIntoGroup"), 3);
    EXPECT_EQ(count("metadata", "saveLastPlayedSong"), 3);
    // Newest first, as the history list plays it.
    EXPECT_EQ(database->groupMembers(2), (QList<quint32>{ids.at(2), ids.at(1), ids.at(0)}));
    EXPECT_FALSE(client->isSavePending());

    // While the history itself plays, a song is collected but not written.
    play(new MP_AufList(2, METADATA_GROUP_PLAY_HISTORY, -1, 0, QString()));
    ASSERT_TRUE(list->isHistoryList());
    HostEngineClock::advance(3000);
    EXPECT_EQ(MP_RecentList::getAudioList()->paths(), QStringList{dataPath("music/C.mp3")});
    EXPECT_EQ(count("metadata", "metadataAddItemsIntoGroup"), 3);
}

TEST_F(MP_MediafinderClientTest, VideosAndSingleFiles_NeitherReportedNorCollected)
{
    addPlayable("Clip", MediaKind::Video);
    play(new MP_AufList("All", QString(), -1, 0));
    ASSERT_TRUE(list->isVideoList());
    engine->autoPlay(false);
    HostEngineClock::advance(3000);
    play(nullptr);
    engine->setFile(dataPath("music/Clip.mp4"));
    HostEngineClock::advance(3000);

    EXPECT_EQ(sent().filter("Item(").size(), 0);
    EXPECT_TRUE(MP_RecentList::getAudioList()->paths().isEmpty());
    EXPECT_EQ(count("metadata", "saveLastPlayedSong"), 0);
}

} // namespace
