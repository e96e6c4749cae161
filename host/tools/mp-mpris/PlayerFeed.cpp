#include "host/tools/mp-mpris/PlayerFeed.h"

#include <QObject>

#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerSenderTracker.h"

PlayerFeed::PlayerFeed(PlayerSenderTracker& senders, PlayerMirror& mirror) : m_senders(senders), m_mirror(mirror)
{
    // What was shown belonged to the player followed until now.
    QObject::connect(&senders, &PlayerSenderTracker::playerChanged, &mirror, &PlayerMirror::playerGone);
}

void PlayerFeed::channelMessage(const QString& sender, const QCString& channel, const QCString& message,
                                const QByteArray& data)
{
    // The tracker first: a start or an exit changes whom the mirror follows.
    m_senders.heard(sender, channel, message);
    if (PlayerSenderTracker::isPlayerNews(channel, message) && sender != m_senders.player())
        return;
    m_mirror.receive(channel, message, data);
}

void PlayerFeed::nameLeft(const QString& name)
{
    m_senders.nameLeft(name);
}
