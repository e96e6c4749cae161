// Which process the bridge follows, from the senders of the player's
// messages and the processes leaving the bus, and what reaches its picture
// of the player when those come in the order that once made ghosts.

#include <QSignalSpy>

#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "host/tools/mp-mpris/PlayerFeed.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerSenderTracker.h"
#include "tests/support/BridgeStandIns.h"
#include "tests/support/Payload.h"
#include "tests/support/TestEnvironment.h"

namespace {

// The payload of a state message.
QByteArray state(qint32 value) { return payload(value); }

class PlayerSenderTrackerTest : public TestEnvironment {
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
    TableTracks tracks;
    MemorySettings settings;
    PlayerMirror mirror{tracks, settings};
    PlayerFeed feed{tracker, mirror};
    QSignalSpy changes{&tracker, &PlayerSenderTracker::playerChanged};
};

TEST_F(PlayerSenderTrackerTest, TheNewestPlayerIsFollowed_AndWhenItGoesTheNewestOfTheOthers)
{
    idle(":1.9", "/MP/Idle/Req/Next");
    feed.channelMessage(":1.9", "MF_MSG_CHANNEL", "queryMPNowPlaying()", {});
    idle("", "/MP/Idle/Info/State", state(1));
    EXPECT_EQ(tracker.player(), "") << "requests, other channels and nameless senders name no player";

    idle(":1.12", "/MP/Idle/Info/State", state(1));
    idle(":1.4", "/MP/Idle/Info/State", state(2));
    browser(":1.30", "MediaplayerStarted()");
    EXPECT_EQ(tracker.players(), (QStringList{":1.4", ":1.12", ":1.30"})) << "in the order they connected";
    EXPECT_EQ(tracker.player(), ":1.30");
    idle(":1.12", "/MP/Idle/Info/State", state(1));
    EXPECT_EQ(mirror.playbackStatus(), "Stopped") << "news of a player not followed is not shown";

    tracker.nameLeft(":1.9");
    browser(":1.30", "MediaplayerExited()");
    EXPECT_EQ(tracker.player(), ":1.12");
    idle(":1.12", "/MP/Idle/Info/State", state(1));
    EXPECT_EQ(mirror.playbackStatus(), "Playing");
    feed.nameLeft(":1.12");
    EXPECT_EQ(tracker.player(), ":1.4");
    EXPECT_EQ(mirror.playbackStatus(), "Stopped") << "what was shown was the gone player's";
    idle(":1.4", "/MP/Idle/Info/Exit");
    EXPECT_EQ(followed(), (QStringList{":1.12", ":1.30", ":1.12", ":1.4", ""}));
}

// A bridge of its own player (followOnly) is the process test's: it shows that player, not a newer one,
// and ends with it.
TEST_F(PlayerSenderTrackerTest, NewsOfAPlayerThatLeftNeverBringsItBack)
{
    // Its last news, its death, then news that was under way: in this order
    // two paths once delivered them, and the dead player stayed on show.
    idle(":1.5", "/MP/Idle/Info/State", state(1));
    EXPECT_TRUE(mirror.isPresent());
    feed.nameLeft(":1.5");
    idle(":1.5", "/MP/Idle/Info/State", state(1));
    browser(":1.5", "NowplayingState(int)", state(1));
    EXPECT_FALSE(mirror.isPresent());
    EXPECT_EQ(mirror.playbackStatus(), "Stopped");
    EXPECT_EQ(tracker.player(), "");

    // The next player is followed as usual.
    browser(":1.6", "MediaplayerStarted()");
    browser(":1.6", "NowplayingState(int)", state(2));
    EXPECT_EQ(mirror.playbackStatus(), "Paused");
}

} // namespace
