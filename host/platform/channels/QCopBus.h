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
// channels reach only the listeners of this process. waitUntilListening()
// proves that the bus hands this process what others send, for a program
// that tells another it may send now.
//
// The bus's messages are taken on a thread of their own (the intake), which
// hands each to the delivery at once, there: the delivery's bounded backlog
// then holds what the process has not yet acted on. Were they taken on the
// main thread, Qt would queue every message as an event of its own until the
// main thread came round, and a process busier than a flood is fast would
// hold the whole flood.

#include <QObject>
#include <QString>
#include <QThread>

#include <atomic>
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

    /** Connects to the session bus once and hands what other processes send to
     *  @p delivery, which is called on the intake thread and must be safe there. */
    static QCopBus& instance(Delivery delivery);
    /** The one made by instance(), or null before it. */
    static QCopBus* existing() { return s_existing; }

    /** Sends one message to the other processes; does nothing without a bus. */
    void publish(const QCString& channel, const QCString& message, const QByteArray& data);
    bool isConnected() const { return m_connected; }
    /** Returns once the bus is known to hand this process what others send:
     *  asking for messages is answered before the bus applies the request,
     *  so only a message that another connection sends and that comes back
     *  proves it. Runs the event loop meanwhile (at most @p timeoutMs ms);
     *  true when proven, and at once without a bus. */
    bool waitUntilListening(int timeoutMs);

private Q_SLOTS:
    void onSignal(const QDBusMessage& signal);

private:
    explicit QCopBus(Delivery delivery);
    ~QCopBus() override;
    static QCopBus* s_existing;
    Delivery m_delivery;
    bool m_connected = false;
    QString m_ownService;        ///< this process's name on the bus: its own signals come back from there
    QCString m_probeChannel;     ///< this process's own channel for the proof, heard by nobody else
    std::atomic<bool> m_probeHeard{false};
    QThread m_intake;            ///< where the bus's messages are taken (this object lives there once connected)
};
