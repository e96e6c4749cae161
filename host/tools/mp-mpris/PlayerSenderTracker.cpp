#include "host/tools/mp-mpris/PlayerSenderTracker.h"

#include <algorithm>
#include <utility>

#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"

namespace {

/** The connection serial of a unique bus name (":1.42" gives {1, 42});
 *  {-1, -1} for a name of another form, which then counts as the oldest. */
std::pair<long long, long long> connectionSerial(const QString& name)
{
    const int dot = name.indexOf(QLatin1Char('.'));
    if (!name.startsWith(QLatin1Char(':')) || dot < 0)
        return {-1, -1};
    bool majorOk = false, minorOk = false;
    const long long major = name.mid(1, dot - 1).toLongLong(&majorOk);
    const long long minor = name.mid(dot + 1).toLongLong(&minorOk);
    if (!majorOk || !minorOk)
        return {-1, -1};
    return {major, minor};
}

bool connectedBefore(const QString& a, const QString& b)
{
    return connectionSerial(a) < connectionSerial(b);
}

} // namespace

PlayerSenderTracker::PlayerSenderTracker(QObject* parent) : QObject(parent)
{
}

bool PlayerSenderTracker::isPlayerNews(const QCString& channel, const QCString& message)
{
    if (channel == MediaBrowserChannel::kNewsChannel)
        return true;
    // Requests pass on the idle channel too, from anyone: they name no player.
    return channel == IdleScreenChannel::kChannel && message.startsWith(IdleScreenChannel::kInfoPrefix);
}

void PlayerSenderTracker::heard(const QString& sender, const QCString& channel, const QCString& message)
{
    if (sender.isEmpty() || !isPlayerNews(channel, message))
        return;
    if (message == MediaBrowserChannel::kExited || message == IdleScreenChannel::kExit)
        remove(sender);
    else
        // A bridge started after a player hears no start: any news names it.
        add(sender);
}

void PlayerSenderTracker::nameLeft(const QString& name)
{
    if (!m_players.contains(name))
        return;
    m_departed.insert(name);
    remove(name);
}

void PlayerSenderTracker::add(const QString& name)
{
    if (m_players.contains(name) || m_departed.contains(name) || (!m_only.isEmpty() && name != m_only))
        return;
    // Kept in connection order; a name of another form goes first (oldest).
    m_players.insert(std::upper_bound(m_players.begin(), m_players.end(), name, connectedBefore), name);
    followNewest();
}

void PlayerSenderTracker::remove(const QString& name)
{
    if (m_players.removeAll(name) > 0)
        followNewest();
}

void PlayerSenderTracker::followNewest()
{
    const QString newest = m_players.isEmpty() ? QString() : m_players.last();
    if (newest == m_player)
        return;
    m_player = newest;
    emit playerChanged(newest);
}
