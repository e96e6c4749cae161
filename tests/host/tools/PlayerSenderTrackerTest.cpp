// Which process the bridge takes for the player, from the senders of the
// player's messages, and when it says the player is gone.

#include <QSignalSpy>

#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerSenderTracker.h"
#include "tests/support/TestEnvironment.h"

namespace {

class PlayerSenderTrackerTest : public TestEnvironment {
protected:
    void idle(const QString& sender, const QCString& message) { tracker.heard(sender, PlayerMirror::kIdleChannel, message); }
    void browser(const QString& sender, const QCString& message)
    {
        tracker.heard(sender, PlayerMirror::kBrowserChannel, message);
    }
    QStringList watched() const
    {
        QStringList names;
        for (const QList<QVariant>& call : changes)
            names.append(call.at(0).toString());
        return names;
    }

    PlayerSenderTracker tracker;
    QSignalSpy changes{&tracker, &PlayerSenderTracker::playerChanged};
    QSignalSpy gone{&tracker, &PlayerSenderTracker::playerGone};
};

TEST_F(PlayerSenderTrackerTest, TheFirstPlayerMessageNamesThePlayerAndAStartRenamesIt)
{
    idle(":1.9", "/MP/Idle/Req/Next");
    tracker.heard(":1.9", "MF_MSG_CHANNEL", "queryMPNowPlaying()");
    idle("", "/MP/Idle/Info/State");
    EXPECT_EQ(tracker.player(), "") << "requests, other channels and nameless senders name no player";

    idle(":1.4", "/MP/Idle/Info/State");
    idle(":1.5", "/MP/Idle/Info/State");
    browser(":1.5", "NowplayingState(int)");
    EXPECT_EQ(tracker.player(), ":1.4") << "the first one to speak stays the player";
    browser(":1.5", "MediaplayerStarted()");
    EXPECT_EQ(tracker.player(), ":1.5");

    tracker.nameLeft(":1.4");
    tracker.nameLeft(":1.9");
    EXPECT_EQ(gone.size(), 0);
    tracker.nameLeft(":1.5");
    EXPECT_EQ(gone.size(), 1);
    EXPECT_EQ(tracker.player(), "");
    EXPECT_EQ(watched(), (QStringList{":1.4", ":1.5", ""}));
}

TEST_F(PlayerSenderTrackerTest, APlayerThatSaidItEndedIsNotGoneTwice)
{
    browser(":1.4", "MediaplayerStarted()");
    browser(":1.7", "MediaplayerExited()");
    idle(":1.7", "/MP/Idle/Info/Exit");
    EXPECT_EQ(tracker.player(), ":1.4") << "only the player's own exit ends it";
    browser(":1.4", "MediaplayerExited()");
    tracker.nameLeft(":1.4");

    idle(":1.6", "/MP/Idle/Info/MetaInfo");
    idle(":1.6", "/MP/Idle/Info/Exit");
    tracker.nameLeft(":1.6");
    EXPECT_EQ(gone.size(), 0);
    EXPECT_EQ(watched(), (QStringList{":1.4", "", ":1.6", ""}));
}

} // namespace
