#include "host/platform/channels/QCopBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(trace, "QCOP")

const char* const QCopBus::kPath = "/org/mediaplayerhost/QCop";
const char* const QCopBus::kInterface = "org.mediaplayerhost.QCop";
const char* const QCopBus::kSignal = "Message";

namespace {

bool forcedLocal()
{
    return qEnvironmentVariableIntValue("MP_QCOP_LOCAL") == 1;
}

bool isByteArray(const QVariant& value)
{
    return value.metaType().id() == QMetaType::QByteArray;
}

} // namespace

QCopBus* QCopBus::s_existing = nullptr;

QCopBus& QCopBus::instance(Delivery delivery)
{
    static QCopBus bus(std::move(delivery));
    return bus;
}

QCopBus::QCopBus(Delivery delivery)
    : m_delivery(std::move(delivery)),
      m_probeChannel("qcop/probe/" + QByteArray::number(QCoreApplication::applicationPid()))
{
    s_existing = this;
    if (forcedLocal()) {
        trace(3, "QCopChannel: MP_QCOP_LOCAL=1, channel messages stay in this process\n");
        return;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        trace(3, "QCopChannel: no D-Bus session bus (%s), channel messages stay in this process\n",
              qPrintable(bus.lastError().message()));
        return;
    }
    m_ownService = bus.baseService();
    m_intake.setObjectName(QStringLiteral("qcop-intake"));
    m_intake.start();
    moveToThread(&m_intake);
    m_connected = bus.connect(QString(), QLatin1String(kPath), QLatin1String(kInterface), QLatin1String(kSignal),
                              this, SLOT(onSignal(QDBusMessage)));
    if (!m_connected)
        trace(3, "QCopChannel: cannot listen on the session bus, channel messages stay in this process\n");
}

QCopBus::~QCopBus()
{
    m_intake.quit();
    m_intake.wait();
    s_existing = nullptr;
}

void QCopBus::publish(const QCString& channel, const QCString& message, const QByteArray& data)
{
    if (!m_connected)
        return;
    QDBusMessage signal =
        QDBusMessage::createSignal(QLatin1String(kPath), QLatin1String(kInterface), QLatin1String(kSignal));
    signal << QByteArray(channel) << QByteArray(message) << data;
    QDBusConnection::sessionBus().send(signal);
}

bool QCopBus::waitUntilListening(int timeoutMs)
{
    if (!m_connected)
        return true;
    m_probeHeard = false;
    const QString proberName = QStringLiteral("qcop-prober");
    {
        // From a connection of its own, as another process would send: the
        // probe comes back only through the rule that is to be proven.
        QDBusConnection prober = QDBusConnection::connectToBus(QDBusConnection::SessionBus, proberName);
        QDBusMessage probe =
            QDBusMessage::createSignal(QLatin1String(kPath), QLatin1String(kInterface), QLatin1String(kSignal));
        probe << m_probeChannel << QByteArray("probe()") << QByteArray();
        // Sent again until heard: a probe sent before the rule took is lost.
        const QDeadlineTimer deadline(timeoutMs);
        while (!m_probeHeard && !deadline.hasExpired()) {
            prober.send(probe);
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        }
    }
    QDBusConnection::disconnectFromBus(proberName);
    return m_probeHeard;
}

void QCopBus::onSignal(const QDBusMessage& signal)
{
    if (signal.service() == m_ownService)
        return;  // our own message, delivered in this process when it was sent
    const QList<QVariant> arguments = signal.arguments();
    // Anything but three byte arrays with a channel and a message name is
    // not ours to understand: another program speaking something else.
    if (arguments.size() != 3 || !isByteArray(arguments.at(0)) || !isByteArray(arguments.at(1))
        || !isByteArray(arguments.at(2))) {
        trace(5, "QCopChannel: ignored a bus message of signature \"%s\" from %s\n",
              qPrintable(signal.signature()), qPrintable(signal.service()));
        return;
    }
    const QByteArray channel = arguments.at(0).toByteArray();
    const QByteArray message = arguments.at(1).toByteArray();
    if (channel.isEmpty() || message.isEmpty())
        return;
    if (channel == m_probeChannel) {
        m_probeHeard = true;  // a proof of listening, and not for any listener
        return;
    }
    m_delivery(channel, message, arguments.at(2).toByteArray());
}
