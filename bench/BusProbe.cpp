#include "bench/BusProbe.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QTimer>

namespace {

const char* const kBridgeService = "org.mpris.MediaPlayer2.mediaplayer";
const char* const kBridgePath = "/org/mpris/MediaPlayer2";
const char* const kChannelPath = "/org/mediaplayerhost/QCop";
const char* const kChannelInterface = "org.mediaplayerhost.QCop";

/** Runs the event loop until @p done holds, at most @p timeoutMs; whether it held. */
template <typename Condition>
bool runUntil(Condition done, int timeoutMs)
{
    // The loop sleeps until something comes in; the timer ends the wait at
    // the deadline. Spinning would take the core the bridge needs.
    bool expired = false;
    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, [&expired] { expired = true; });
    deadline.start(timeoutMs);
    while (!done()) {
        if (expired)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace

BusProbe::BusProbe(const QString& address)
    : m_connectionName(QStringLiteral("bus-probe")),
      m_bus(QDBusConnection::connectToBus(address, m_connectionName))
{
    m_listening = m_bus.isConnected()
        && m_bus.connect(QString(), QLatin1String(kBridgePath), QStringLiteral("org.freedesktop.DBus.Properties"),
                         QStringLiteral("PropertiesChanged"), this, SLOT(onPropertiesChanged(QDBusMessage)))
        && m_bus.connect(QString(), QLatin1String(kChannelPath), QLatin1String(kChannelInterface),
                         QStringLiteral("Message"), this, SLOT(onChannelMessage(QDBusMessage)));
}

BusProbe::~BusProbe()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
}

bool BusProbe::isConnected() const
{
    return m_listening;
}

void BusProbe::send(const QCString& channel, const QCString& message, const QByteArray& data)
{
    QDBusMessage signal = QDBusMessage::createSignal(QLatin1String(kChannelPath), QLatin1String(kChannelInterface),
                                                     QStringLiteral("Message"));
    signal << QByteArray(channel) << QByteArray(message) << data;
    m_bus.send(signal);
}

bool BusProbe::waitForBridge(int timeoutMs)
{
    return runUntil([this] { return m_bus.interface()->isServiceRegistered(QLatin1String(kBridgeService)).value(); },
                    timeoutMs);
}

bool BusProbe::waitForPropertiesChanged(int timeoutMs)
{
    const bool came = runUntil([this] { return m_propertiesChanged > m_seenPropertiesChanged; }, timeoutMs);
    m_seenPropertiesChanged = m_propertiesChanged;
    return came;
}

bool BusProbe::settle(int timeoutMs)
{
    // A property read, not a ping: the bridge's connection answers pings on
    // its own, before the bridge has handled the messages queued ahead.
    QDBusMessage get = QDBusMessage::createMethodCall(QLatin1String(kBridgeService), QLatin1String(kBridgePath),
                                                      QStringLiteral("org.freedesktop.DBus.Properties"),
                                                      QStringLiteral("Get"));
    get << QStringLiteral("org.mpris.MediaPlayer2.Player") << QStringLiteral("PlaybackStatus");
    const QDBusPendingCall reply = m_bus.asyncCall(get);
    const bool answered = runUntil([&reply] { return reply.isFinished(); }, timeoutMs);
    // The signals that came before the answer are queued by now.
    QCoreApplication::processEvents();
    m_seenPropertiesChanged = m_propertiesChanged;
    return answered && !reply.isError();
}

void BusProbe::onPropertiesChanged(const QDBusMessage& signal)
{
    m_lastChangedAt = Clock::now();
    ++m_propertiesChanged;
    m_lastChanged = qdbus_cast<QVariantMap>(signal.arguments().value(1).value<QDBusArgument>());
}

void BusProbe::onChannelMessage(const QDBusMessage& signal)
{
    // The bus hands this connection its own signals too.
    if (signal.service() != m_bus.baseService())
        ++m_channelMessages;
}
