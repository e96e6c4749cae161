#pragma once
// The one path by which what the bus delivers reaches the bridge's picture of
// the player: channel messages with their senders and processes leaving the
// bus, in the order the bus delivered them. The tracker hears every one and
// decides which player is followed; the mirror hears the news of that player
// only (requests and setup changes from anyone), and forgets what it showed
// whenever another player, or none, is followed. Fed from a single queue,
// nothing a player said before it died can reach the mirror after its death.

#include "platform/Qt2Compat.h"

class QString;
class PlayerMirror;
class PlayerSenderTracker;

class PlayerFeed {
public:
    /** Neither is owned; both must outlive the feed. */
    PlayerFeed(PlayerSenderTracker& senders, PlayerMirror& mirror);

    /** One channel message from the unique bus name @p sender. */
    void channelMessage(const QString& sender, const QCString& channel, const QCString& message,
                        const QByteArray& data);
    /** The unique bus name @p name has left the bus. */
    void nameLeft(const QString& name);

private:
    PlayerSenderTracker& m_senders;
    PlayerMirror& m_mirror;
};
