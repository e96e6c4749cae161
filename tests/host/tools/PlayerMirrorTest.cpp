// The bridge's picture of the player, fed the player's messages by hand, and
// the requests it makes of the player in return; and which process it
// follows, from the senders of the player's messages and the processes
// leaving the bus, with what reaches its picture when those come in the order
// that once made ghosts.

#include <QDBusObjectPath>
#include <QSignalSpy>

#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "host/tools/mp-mpris/PlayerFeed.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerRequests.h"
#include "host/tools/mp-mpris/PlayerSenderTracker.h"
#include "tests/support/BridgeStandIns.h"
#include "tests/support/Journal.h"
#include "tests/support/Payload.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

const QCString kIdle = IdleScreenChannel::kChannel;
const QCString kBrowser = MediaBrowserChannel::kNewsChannel;

class PlayerMirrorTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        MediaRecord stored = song("/m/a.mp3").title("Afterglow").artist("Aurora Lane").album("Northern Lights");
        stored.id = 12;
        tracks.records.insert(stored.path, stored);
    }

    void idle(const QCString& message, const QByteArray& data = {}) { mirror.receive(kIdle, message, data); }
    void browser(const QCString& message, const QByteArray& data = {}) { mirror.receive(kBrowser, message, data); }
    void nowPlaying(const QString& path)
    {
        browser("NowplayingGroupItem(QString, int, int)", payload(path, qint32(0), qint32(4)));
    }
    void meta(const QString& text) { idle("/MP/Idle/Info/MetaInfo", payload(text, QByteArray(), qint8(0))); }
    void elapsed(const QString& time) { idle("/MP/Idle/Info/ElapsedTime", payload(time)); }
    void playing() { browser("NowplayingState(int)", payload(qint32(1))); }

    TableTracks tracks;
    MemorySettings settings;
    PlayerMirror mirror{tracks, settings};
    MessageLines sent;  ///< the requests sent to the player: name, a space, the payload in hex
    PlayerRequests requests{mirror, settings, [this](const QCString& request, const QByteArray& data) {
                                sent.push_back((request + ' ' + data.toHex()).toStdString());
                            }};
};

TEST_F(PlayerMirrorTest, ThePlayersPresenceFollowsItsStartAndExit)
{
    QSignalSpy presence(&mirror, &PlayerMirror::presenceChanged);
    QSignalSpy changes(&mirror, &PlayerMirror::playerPropertiesChanged);
    settings.repeatOn = true;
    browser("MediaplayerStarted()");
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.at(0).at(0).toStringList(),
              (QStringList{"CanGoNext", "CanGoPrevious", "CanPause", "CanPlay", "LoopStatus"}))
        << "the settings are read when the player comes; no seek without a length; CanControl never changes";

    nowPlaying("/m/a.mp3");
    meta("Afterglow - Northern Lights - Aurora Lane");
    idle("/MP/Idle/Info/TotalTime", payload(QStringLiteral("1:02:05")));
    playing();
    EXPECT_EQ(mirror.playbackStatus(), "Playing");
    EXPECT_EQ(mirror.playerProperties().value("CanSeek").toBool(), true);

    browser("MediaplayerExited()");
    EXPECT_EQ(mirror.playbackStatus(), "Stopped");
    EXPECT_EQ(mirror.metadata(), QVariantMap());
    EXPECT_FALSE(mirror.playerProperties().value("CanPlay").toBool());

    // A player that runs before the bridge is known by what it says.
    idle("/MP/Idle/Info/State", payload(qint32(2)));
    EXPECT_EQ(mirror.playbackStatus(), "Paused");
    idle("/MP/Idle/Info/Exit");

    // A player that dies unannounced leaves as if it had said so.
    idle("/MP/Idle/Info/State", payload(qint32(1)));
    changes.clear();
    mirror.playerGone();
    QList<bool> present;  // after each start, exit, news, exit, news and death
    for (const QList<QVariant>& change : presence)
        present << change.at(0).toBool();
    EXPECT_EQ(present, (QList<bool>{true, false, true, false, true, false}));
    EXPECT_FALSE(mirror.isPresent());
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.at(0).at(0).toStringList(),
              (QStringList{"CanGoNext", "CanGoPrevious", "CanPause", "CanPlay", "PlaybackStatus"}));
    EXPECT_EQ(mirror.playerProperties().value("CanControl"), QVariant(true));
}

// The metadata of a listed song, from the database, is the channel contract test's.
TEST_F(PlayerMirrorTest, MetadataOfAFileNotShownAsTheNowPlayingItem_HasNoDatabaseRecord)
{
    browser("MediaplayerStarted()");
    nowPlaying("/m/a.mp3");
    meta("Afterglow - Northern Lights - Aurora Lane");
    idle("/MP/Idle/Info/TotalTime", payload(QStringLiteral("3:05")));
    EXPECT_EQ(mirror.trackId(), "/org/mediaplayerhost/Track/12");

    // A file played on its own after the list: the list's path is stale.
    meta("Sunrise");
    EXPECT_EQ(mirror.metadata(),
              (QVariantMap{{"mpris:trackid", QVariant::fromValue(QDBusObjectPath(PlayerMirror::kUnlistedTrack))},
                           {"xesam:title", "Sunrise"},
                           {"mpris:length", qint64(185000000)}}));

    // A path the database does not hold still gives its address.
    nowPlaying("/m/Sunrise.ogg");
    EXPECT_EQ(mirror.metadata().value("xesam:url"), "file:///m/Sunrise.ogg");
    EXPECT_EQ(mirror.trackId(), PlayerMirror::kUnlistedTrack);
}

TEST_F(PlayerMirrorTest, StatusPrefersTheEnginesOwnStateAndBadPayloadsChangeNothing)
{
    QSignalSpy changes(&mirror, &PlayerMirror::playerPropertiesChanged);
    idle("/MP/Idle/Info/State", payload(qint32(2)));
    browser("NowplayingState(int)", payload(qint32(8)));
    EXPECT_EQ(mirror.playbackStatus(), "Stopped") << "finished, which the idle screen shows as paused";
    browser("NowplayingState(int)", payload(qint32(3)));
    EXPECT_EQ(mirror.playbackStatus(), "Playing");

    const int before = changes.size();
    browser("NowplayingState(int)", QByteArray::fromHex("0001"));
    browser("NowplayingState(int)", QByteArray::fromHex("0000000200"));
    idle("/MP/Idle/Info/TotalTime", payload(QStringLiteral("1:5x")));
    idle("/MP/Idle/Info/TotalTime", payload(QStringLiteral("1:65")));
    idle("/MP/Idle/Info/MetaInfo", payload(QStringLiteral("A"), QByteArray()));
    browser("NowplayingGroupItem(QString, int, int)", payload(QStringLiteral("/m/a.mp3"), qint32(0)));
    EXPECT_EQ(mirror.playbackStatus(), "Playing");
    EXPECT_EQ(mirror.length(), 0);
    EXPECT_EQ(mirror.metadata(), QVariantMap());
    EXPECT_EQ(changes.size(), before) << "nothing that does not hold what it should is taken";
}

TEST_F(PlayerMirrorTest, SeekedOnlyWhenThePositionJumps)
{
    QSignalSpy seeked(&mirror, &PlayerMirror::seeked);
    browser("MediaplayerStarted()");
    meta("A");
    elapsed("0:00");
    elapsed("0:10");
    idle("/MP/Idle/Req/Seek/Forth", payload(qint32(1)));
    elapsed("0:15");
    elapsed("0:16");
    elapsed("0:04");
    meta("B");
    elapsed("0:00");
    ASSERT_EQ(seeked.size(), 2);
    EXPECT_EQ(seeked.at(0).at(0).toLongLong(), 15000000);
    EXPECT_EQ(seeked.at(1).at(0).toLongLong(), 4000000) << "back within the item; a new item starting is no seek";
}

TEST_F(PlayerMirrorTest, RequestsAreTheIdleScreensAndOnlyWhileThePlayerRuns_ASeekBeyondTheItemIsNextOrTheStart)
{
    // Nothing without a player, and no seek before its length is known: the list below starts with a Pause.
    requests.next();
    requests.seek(10000000);
    browser("MediaplayerStarted()");
    requests.seek(10000000);
    idle("/MP/Idle/Info/TotalTime", payload(QStringLiteral("3:00")));
    elapsed("0:20");
    playing();
    requests.play();            // already playing: a Play would pause
    requests.pause();
    requests.stop();
    requests.seek(7400000);     // one and a half steps round to one
    requests.seek(-12600000);
    requests.seek(2000000);     // less than half a step
    requests.setPosition(mirror.trackId(), 60000000);
    requests.setPosition("/org/mediaplayerhost/Track/99", 60000000);
    requests.setShuffle(true);
    requests.setShuffle(true);
    requests.setShuffle(false);  // before the player told of on
    requests.setLoopStatus("Track");
    requests.setLoopStatus("Sometimes");
    requests.raise();
    requests.previous();
    requests.playPause();
    requests.quit();
    browser("NowplayingState(int)", payload(qint32(2)));
    requests.stop();
    requests.play();
    // How the player acts on each message is the channel contract test's.
    EXPECT_EQ(sent, (MessageLines{"/MP/Idle/Req/Pause ", "/MP/Idle/Req/Pause ",
                                  "/MP/Idle/Req/Seek/Forth 00000001", "/MP/Idle/Req/Seek/END ",
                                  "/MP/Idle/Req/Seek/BACK 00000003", "/MP/Idle/Req/Seek/END ",
                                  "/MP/Idle/Req/Seek/Forth 00000008", "/MP/Idle/Req/Seek/END ",
                                  "/MP/Idle/Req/Shuffle ", "/MP/Idle/Req/Shuffle ", "/MP/Idle/Req/Repeat ", "/MP/Idle/Req/Restore ",
                                  "/MP/Idle/Req/Prev ", "/MP/Idle/Req/Play ", "/MP/Idle/Req/Quit ",
                                  "/MP/Idle/Req/Play "}));
    EXPECT_EQ(settings.shuffle, 0) << "the shuffle request applies the stored mode";

    // Seeks beyond the item are Next or the start, whatever the offset.
    sent.clear();
    elapsed("0:22");
    requests.seek(INT64_MAX);
    requests.seek(158000001);   // just past the end
    requests.seek(INT64_MIN);   // back to the start: five steps from 0:22
    requests.seek(-22000000);
    requests.seek(158000000);   // to the very end: 31.6 steps round to 32
    EXPECT_EQ(sent, (MessageLines{"/MP/Idle/Req/Next ", "/MP/Idle/Req/Next ",
                                  "/MP/Idle/Req/Seek/BACK 00000005", "/MP/Idle/Req/Seek/END ",
                                  "/MP/Idle/Req/Seek/BACK 00000005", "/MP/Idle/Req/Seek/END ",
                                  "/MP/Idle/Req/Seek/Forth 00000020", "/MP/Idle/Req/Seek/END "}));
}

class PlayerSenderTrackerTest : public PlayerMirrorTest {
protected:
    void idle(const QString& sender, const QCString& message, const QByteArray& data = {})
    {
        feed.channelMessage(sender, IdleScreenChannel::kChannel, message, data);
    }
    void browser(const QString& sender, const QCString& message, const QByteArray& data = {})
    {
        feed.channelMessage(sender, MediaBrowserChannel::kNewsChannel, message, data);
    }
    QStringList followed() const
    {
        QStringList names;
        for (const QList<QVariant>& call : changes)
            names.append(call.at(0).toString());
        return names;
    }

    PlayerSenderTracker tracker;
    PlayerFeed feed{tracker, mirror};
    QSignalSpy changes{&tracker, &PlayerSenderTracker::playerChanged};
};

TEST_F(PlayerSenderTrackerTest, TheNewestPlayerIsFollowed_AndWhenItGoesTheNewestOfTheOthers)
{
    // Requests, other channels and nameless senders name no player: none is followed before :1.12.
    idle(":1.9", "/MP/Idle/Req/Next");
    feed.channelMessage(":1.9", "MF_MSG_CHANNEL", "queryMPNowPlaying()", {});
    idle("", "/MP/Idle/Info/State", payload(qint32(1)));

    idle(":1.12", "/MP/Idle/Info/State", payload(qint32(1)));
    idle(":1.4", "/MP/Idle/Info/State", payload(qint32(2)));
    browser(":1.30", "MediaplayerStarted()");
    EXPECT_EQ(tracker.players(), (QStringList{":1.4", ":1.12", ":1.30"})) << "in the order they connected";
    idle(":1.12", "/MP/Idle/Info/State", payload(qint32(1)));
    EXPECT_EQ(mirror.playbackStatus(), "Stopped") << "news of a player not followed is not shown";

    tracker.nameLeft(":1.9");
    browser(":1.30", "MediaplayerExited()");
    idle(":1.12", "/MP/Idle/Info/State", payload(qint32(1)));
    EXPECT_EQ(mirror.playbackStatus(), "Playing");
    feed.nameLeft(":1.12");
    EXPECT_EQ(mirror.playbackStatus(), "Stopped") << "what was shown was the gone player's";
    idle(":1.4", "/MP/Idle/Info/Exit");
    EXPECT_EQ(followed(), (QStringList{":1.12", ":1.30", ":1.12", ":1.4", ""}));
}

// A bridge of its own player, showing it alone and ending with it, is the process test's.
TEST_F(PlayerSenderTrackerTest, NewsOfAPlayerThatLeftNeverBringsItBack)
{
    // Its last news, its death, then news that was under way: in this order
    // two paths once delivered them, and the dead player stayed on show.
    idle(":1.5", "/MP/Idle/Info/State", payload(qint32(1)));
    EXPECT_TRUE(mirror.isPresent());
    feed.nameLeft(":1.5");
    idle(":1.5", "/MP/Idle/Info/State", payload(qint32(1)));
    browser(":1.5", "NowplayingState(int)", payload(qint32(1)));
    EXPECT_FALSE(mirror.isPresent());
    EXPECT_EQ(mirror.playbackStatus(), "Stopped");
    EXPECT_EQ(tracker.player(), "");

    // The next player is followed as usual.
    browser(":1.6", "MediaplayerStarted()");
    browser(":1.6", "NowplayingState(int)", payload(qint32(2)));
    EXPECT_EQ(mirror.playbackStatus(), "Paused");
}

} // namespace
