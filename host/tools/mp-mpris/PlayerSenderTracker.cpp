#include "host/tools/mp-mpris/PlayerSenderTracker.h"

#include "host/tools/mp-mpris/PlayerMirror.h"

PlayerSenderTracker::PlayerSenderTracker(QObject* parent) : QObject(parent)
{
}

void PlayerSenderTracker::heard(const QString& sender, const QCString& channel, const QCString& message)
{
    if (sender.isEmpty())
        return;
    if (channel == PlayerMirror::kBrowserChannel) {
        // A start names the player even over one still known: the old one
        // may have died unseen, and a new start is the newest truth.
        if (message == "MediaplayerStarted()")
            setPlayer(sender);
        else if (message == "MediaplayerExited()")
            setPlayer(m_player == sender ? QString() : m_player);
        else if (m_player.isEmpty())
            setPlayer(sender);
        return;
    }
    if (channel != PlayerMirror::kIdleChannel || !message.startsWith("/MP/Idle/Info/"))
        return;  // requests pass on the idle channel too, from anyone: they name no player
    if (message == "/MP/Idle/Info/Exit")
        setPlayer(m_player == sender ? QString() : m_player);
    else if (m_player.isEmpty())
        // A bridge started after the player hears no start: the first
        // process that speaks as the player is taken for it.
        setPlayer(sender);
}

void PlayerSenderTracker::nameLeft(const QString& name)
{
    if (name.isEmpty() || name != m_player)
        return;
    setPlayer(QString());
    emit playerGone();
}

void PlayerSenderTracker::setPlayer(const QString& name)
{
    if (name == m_player)
        return;
    m_player = name;
    emit playerChanged(name);
}
