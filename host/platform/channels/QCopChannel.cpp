#include "platform/QCopChannel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHash>
#include <QList>
#include <QLoggingCategory>

#include "host/platform/HostJournal.h"
#include "host/platform/channels/QCopBus.h"

Q_LOGGING_CATEGORY(lcQCop, "mp.host.qcop")

namespace {

const QEvent::Type kDeliveryEvent = QEvent::Type(QEvent::User + 700);

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
// time, so a channel object destroyed meanwhile is never called.
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
        if (event->type() != kDeliveryEvent)
            return QObject::event(event);
        const auto* delivery = static_cast<DeliveryEvent*>(event);
        // A receiver may create or destroy channels: walk a copy and check
        // that each listener is still registered before calling it.
        const QList<QCopChannel*> receivers = m_listeners.value(delivery->channel);
        for (QCopChannel* receiver : receivers) {
            if (m_listeners.value(delivery->channel).contains(receiver))
                Q_EMIT receiver->received(delivery->message, delivery->data);
        }
        return true;
    }

private:
    QCopDispatcher() { bus(); }  // listens on the bus from the first channel on

    QCopBus& bus()
    {
        return QCopBus::instance([this](const QCString& channel, const QCString& message, const QByteArray& data) {
            post(channel, message, data);
        });
    }

    void post(const QCString& channel, const QCString& message, const QByteArray& data)
    {
        QCoreApplication::postEvent(this, new DeliveryEvent(channel, message, data));
    }

    QHash<QCString, QList<QCopChannel*>> m_listeners;
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
