#pragma once
// A second process's view of the session bus: sends channel messages as the
// player does and notes, with the time each came in, the media-controls
// bridge's PropertiesChanged signals and the channel messages others send.

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <chrono>

#include "platform/Qt2Compat.h"

class QDBusMessage;

class BusProbe : public QObject {
    Q_OBJECT
public:
    using Clock = std::chrono::steady_clock;

    /** Connects to the bus at @p address; isConnected() says whether it did. */
    explicit BusProbe(const QString& address);
    ~BusProbe() override;
    BusProbe(const BusProbe&) = delete;
    BusProbe& operator=(const BusProbe&) = delete;

    bool isConnected() const;

    /** Sends one channel message, byte for byte as the player's processes do. */
    void send(const QCString& channel, const QCString& message, const QByteArray& data = {});

    /** Runs the event loop until the bridge's name has an owner, at most @p timeoutMs. */
    bool waitForBridge(int timeoutMs);

    /** Runs the event loop until a PropertiesChanged signal has come since the
     *  last call, at most @p timeoutMs; false when none came. */
    bool waitForPropertiesChanged(int timeoutMs);

    /** Makes sure that whatever the bridge sent before it answered a ping of
     *  this moment has come in: a bus delivers one sender's messages in order. */
    bool settle(int timeoutMs);

    int propertiesChangedCount() const { return m_propertiesChanged; }
    /** The properties and the arrival time of the latest PropertiesChanged. */
    const QVariantMap& lastChanged() const { return m_lastChanged; }
    Clock::time_point lastChangedAt() const { return m_lastChangedAt; }
    /** Channel messages sent by other connections than this one. */
    int channelMessagesHeard() const { return m_channelMessages; }

private Q_SLOTS:
    void onPropertiesChanged(const QDBusMessage& signal);
    void onChannelMessage(const QDBusMessage& signal);

private:
    QString m_connectionName;
    QDBusConnection m_bus;
    bool m_listening = false;
    int m_propertiesChanged = 0;
    int m_seenPropertiesChanged = 0;
    int m_channelMessages = 0;
    QVariantMap m_lastChanged;
    Clock::time_point m_lastChangedAt;
};
