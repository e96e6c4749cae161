#include "platform/QCopChannel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHash>
#include <QList>
#include <QLoggingCategory>
#include <QMutex>
#include <QMutexLocker>

#include "host/platform/HostJournal.h"
#include "host/platform/channels/QCopBacklog.h"
#include "host/platform/channels/QCopBus.h"

Q_LOGGING_CATEGORY(lcQCop, "mp.host.qcop")

namespace {

const QEvent::Type kDeliveryEvent = QEvent::Type(QEvent::User + 700);
// Hands on one message of another process. Posted again while more wait: the
// event loop holds an event posted during a pass of posted events for the
// next pass, so one message goes a turn and everything else gets its turn.
const QEvent::Type kBacklogEvent = QEvent::Type(QEvent::User + 701);

// One message on its way to the listeners of a channel.
class DeliveryEvent : public QEvent {
public:
    DeliveryEvent(const QCString& channel, const QCString& message, const QByteArray& data)
        : QEvent(kDeliveryEvent), channel(channel), message(message), data(data)
    {
    }
    const QCString channel;
    const QCString message;
    const QByteArray data;
};

} // namespace

// Keeps the listeners of every channel name and hands posted messages to
// them when the event loop turns. The listeners are looked up at delivery
// time, so a channel object destroyed meanwhile is never called. Messages of
// other processes wait in a bounded backlog and are handed on one per turn
// of the event loop, so that whatever another process sends, everything else
// (a termination signal, a timer) still gets its turn.
class QCopDispatcher : public QObject {
public:
    static QCopDispatcher& instance()
    {
        static QCopDispatcher dispatcher;
        return dispatcher;
    }

    void add(QCopChannel* channel) { m_listeners[channel->m_channel].append(channel); }
    void remove(QCopChannel* channel)
    {
        auto it = m_listeners.find(channel->m_channel);
        if (it == m_listeners.end())
            return;
        it->removeAll(channel);
        if (it->isEmpty())
            m_listeners.erase(it);
    }
    bool has(const QCString& name) const { return m_listeners.contains(name); }

    /** Delivers to this process's listeners and sends to the other processes. */
    void send(const QCString& channel, const QCString& message, const QByteArray& data)
    {
        post(channel, message, data);
        bus().publish(channel, message, data);
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == kBacklogEvent) {
            deliverOneWaiting();
            return true;
        }
        if (event->type() != kDeliveryEvent)
            return QObject::event(event);
        const auto* delivery = static_cast<DeliveryEvent*>(event);
        deliver(delivery->channel, delivery->message, delivery->data);
        return true;
    }

private:
    QCopDispatcher() { bus(); }  // listens on the bus from the first channel on

    QCopBus& bus()
    {
        // Called on the bus's intake thread.
        return QCopBus::instance([this](const QCString& channel, const QCString& message, const QByteArray& data) {
            const QMutexLocker locked(&m_backlogLock);
            const long long droppedBefore = m_backlog.dropped();
            if (m_backlog.add({channel, message, data})) {
                if (!m_backlogPosted) {
                    m_backlogPosted = true;
                    QCoreApplication::postEvent(this, new QEvent(kBacklogEvent));
                }
            } else if (m_backlog.dropped() != droppedBefore && m_backlog.dropped() % 10000 == 1) {
                // Said once in a while during a flood, not once a message.
                qCWarning(lcQCop) << "QCopChannel: other processes send faster than this one acts;"
                                  << m_backlog.dropped() << "messages dropped so far";
            }
        });
    }

    void deliverOneWaiting()
    {
        QMutexLocker locked(&m_backlogLock);
        m_backlogPosted = false;
        if (m_backlog.isEmpty())
            return;
        const QCopBacklog::Message waiting = m_backlog.take();
        if (!m_backlog.isEmpty()) {
            m_backlogPosted = true;
            QCoreApplication::postEvent(this, new QEvent(kBacklogEvent));
        }
        locked.unlock();  // a listener may send, and the intake must go on meanwhile
        deliver(waiting.channel, waiting.message, waiting.data);
    }

    void deliver(const QCString& channel, const QCString& message, const QByteArray& data)
    {
        // A receiver may create or destroy channels: walk a copy and check
        // that each listener is still registered before calling it.
        const QList<QCopChannel*> receivers = m_listeners.value(channel);
        for (QCopChannel* receiver : receivers) {
            if (m_listeners.value(channel).contains(receiver))
                Q_EMIT receiver->received(message, data);
        }
    }

    void post(const QCString& channel, const QCString& message, const QByteArray& data)
    {
        QCoreApplication::postEvent(this, new DeliveryEvent(channel, message, data));
    }

    QHash<QCString, QList<QCopChannel*>> m_listeners;
    QMutex m_backlogLock;   ///< the backlog is filled on the bus's intake thread
    QCopBacklog m_backlog;  ///< messages of other processes, waiting for their turn
    bool m_backlogPosted = false;  ///< a backlog event is on its way
};

QCopChannel::QCopChannel(const QCString& channel, QObject* parent) : QObject(parent), m_channel(channel)
{
    QCopDispatcher::instance().add(this);
}

QCopChannel::~QCopChannel()
{
    QCopDispatcher::instance().remove(this);
}

bool QCopChannel::isRegistered(const QCString& channel)
{
    return QCopDispatcher::instance().has(channel);
}

bool QCopChannel::send(const QCString& channel, const QCString& message)
{
    return send(channel, message, QByteArray());
}

bool QCopChannel::send(const QCString& channel, const QCString& message, const QByteArray& data)
{
    if (channel.isEmpty() || message.isEmpty()) {
        qCWarning(lcQCop) << "QCopChannel::send: empty channel or message name, not sent";
        return false;
    }
    HostJournal::qcop(channel, message, data);
    QCopDispatcher::instance().send(channel, message, data);
    return true;
}
