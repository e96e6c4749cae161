#pragma once
// Carries channel messages between the processes on the D-Bus session bus.
//
// Every message sent in a process goes out as one D-Bus signal, and every
// such signal from another process is handed to this process's listeners:
//   path       /org/mediaplayerhost/QCop
//   interface  org.mediaplayerhost.QCop
//   signal     Message(ay channel, ay message, ay data)
// Names and payload travel as bytes, unchanged. A process's own signals come
// back to it from the bus and are dropped: it has delivered them already.
// Without a session bus (or with MP_QCOP_LOCAL=1) nothing goes out and
// channels reach only the listeners of this process.

#include <QObject>

#include <functional>

#include "platform/Qt2Compat.h"

class QDBusMessage;

class QCopBus : public QObject {
    Q_OBJECT
public:
    using Delivery = std::function<void(const QCString& channel, const QCString& message, const QByteArray& data)>;

    static const char* const kPath;
    static const char* const kInterface;
    static const char* const kSignal;

    /** Connects to the session bus once and hands what other processes send to @p delivery. */
    static QCopBus& instance(Delivery delivery);

    /** Sends one message to the other processes; does nothing without a bus. */
    void publish(const QCString& channel, const QCString& message, const QByteArray& data);
    bool isConnected() const { return m_connected; }

private Q_SLOTS:
    void onSignal(const QDBusMessage& signal);

private:
    explicit QCopBus(Delivery delivery);
    Delivery m_delivery;
    bool m_connected = false;
};
