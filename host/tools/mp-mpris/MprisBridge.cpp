#include "host/tools/mp-mpris/MprisBridge.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "host/platform/channels/QCopBus.h"
#include "host/tools/mp-mpris/MediaPlayer2Adaptor.h"
#include "host/tools/mp-mpris/PlayerAdaptor.h"
#include "host/tools/mp-mpris/PlayerFeed.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerRequests.h"
#include "host/tools/mp-mpris/PlayerSenderTracker.h"

const char* const MprisBridge::kServiceName = "org.mpris.MediaPlayer2.mediaplayer";
const char* const MprisBridge::kObjectPath = "/org/mpris/MediaPlayer2";

namespace {

bool isByteArray(const QVariant& value)
{
    return value.metaType().id() == QMetaType::QByteArray;
}

/** One channel message as the channels carry it over the bus; to
 *  @p destination alone, or to every process when it is empty. */
QDBusMessage channelSignal(const QString& destination, const QCString& channel, const QCString& message,
                           const QByteArray& data)
{
    const QString path = QLatin1String(QCopBus::kPath);
    const QString interface = QLatin1String(QCopBus::kInterface);
    const QString name = QLatin1String(QCopBus::kSignal);
    QDBusMessage signal = destination.isEmpty() ? QDBusMessage::createSignal(path, interface, name)
                                                : QDBusMessage::createTargetedSignal(destination, path, interface, name);
    signal << QByteArray(channel) << QByteArray(message) << data;
    return signal;
}

} // namespace

MprisBridge::MprisBridge(const TrackLookup& tracks, PlaySettings& settings)
    : m_mirror(std::make_unique<PlayerMirror>(tracks, settings)),
      m_senders(std::make_unique<PlayerSenderTracker>()),
      m_feed(std::make_unique<PlayerFeed>(*m_senders, *m_mirror)),
      m_requests(std::make_unique<PlayerRequests>(
          *m_mirror, settings, [this](const QCString& request, const QByteArray& data) {
              sendToPlayer(IdleScreenChannel::kChannel, request, data);
          }))
{
    // Children of this object: they go with it, before the mirror they read.
    new MediaPlayer2Adaptor(this, *m_mirror, *m_requests);
    new PlayerAdaptor(this, *m_mirror, *m_requests);
    connect(m_mirror.get(), &PlayerMirror::playerPropertiesChanged, this, &MprisBridge::onPlayerPropertiesChanged);
    connect(m_mirror.get(), &PlayerMirror::presenceChanged, this, &MprisBridge::onPresenceChanged);
    connect(m_senders.get(), &PlayerSenderTracker::playerChanged, this, &MprisBridge::askPlayerToReport);
}

MprisBridge::~MprisBridge()
{
    // The adaptors read the mirror until they go, so they go first, from a
    // copy of the list that each deletion edits.
    const QObjectList adaptors = children();
    qDeleteAll(adaptors);
}

void MprisBridge::followOnly(const QString& name)
{
    m_senders->followOnly(name);
}

bool MprisBridge::start(QString* error)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QLatin1String(kObjectPath), this, QDBusConnection::ExportAdaptors)) {
        *error = QStringLiteral("cannot offer %1 on the session bus").arg(QLatin1String(kObjectPath));
        return false;
    }
    // Departures first, then the channels: the bus takes the rules in this
    // order, so any process whose message reaches the bridge has its leaving
    // reported too, after that message. Both arrive here through the same
    // queue, in the order the bus sent them.
    const bool listening =
        bus.connect(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                    QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"), this,
                    SLOT(onNameOwnerChanged(QString, QString, QString)))
        && bus.connect(QString(), QLatin1String(QCopBus::kPath), QLatin1String(QCopBus::kInterface),
                       QLatin1String(QCopBus::kSignal), this, SLOT(onChannelSignal(QDBusMessage)));
    // What the connection itself says when the bus goes away.
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
                QStringLiteral("Disconnected"), this, SLOT(onDisconnected()));
    if (!listening) {
        *error = QStringLiteral("cannot listen for the player on the session bus: %1").arg(bus.lastError().message());
        return false;
    }
    if (!takeServiceName(error))
        return false;
    // Players that run already answer these as they would their idle screen
    // and media browser; one that does not will announce itself when it starts.
    bus.send(channelSignal(QString(), MediaBrowserChannel::kRequestChannel, MediaBrowserChannel::kQuery, QByteArray()));
    bus.send(channelSignal(QString(), IdleScreenChannel::kChannel, IdleScreenChannel::kUpdate, QByteArray()));
    return true;
}

bool MprisBridge::takeServiceName(QString* error)
{
    // MPRIS lets a second instance add ".instance<pid>" to the name.
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString instanceName = QLatin1String(kServiceName) + QStringLiteral(".instance")
                                 + QString::number(QCoreApplication::applicationPid());
    for (const QString& name : {QString::fromLatin1(kServiceName), instanceName}) {
        if (bus.registerService(name)) {
            m_serviceName = name;
            return true;
        }
    }
    *error = QStringLiteral("cannot own %1 on the session bus: %2").arg(instanceName, bus.lastError().message());
    return false;
}

void MprisBridge::onChannelSignal(const QDBusMessage& signal)
{
    const QList<QVariant> arguments = signal.arguments();
    // Anything but three byte arrays with a channel and a message name is
    // not a channel message.
    if (arguments.size() != 3 || !isByteArray(arguments.at(0)) || !isByteArray(arguments.at(1))
        || !isByteArray(arguments.at(2)))
        return;
    const QByteArray channel = arguments.at(0).toByteArray();
    const QByteArray message = arguments.at(1).toByteArray();
    if (channel.isEmpty() || message.isEmpty())
        return;
    m_feed->channelMessage(signal.service(), channel, message, arguments.at(2).toByteArray());
}

void MprisBridge::onNameOwnerChanged(const QString& name, const QString& oldOwner, const QString& newOwner)
{
    // A unique name losing its owner is a process leaving the bus.
    if (name.startsWith(QLatin1Char(':')) && !oldOwner.isEmpty() && newOwner.isEmpty())
        m_feed->nameLeft(name);
}

void MprisBridge::onDisconnected()
{
    emit busLost();
}

void MprisBridge::askPlayerToReport(const QString& name)
{
    if (name.isEmpty())
        return;
    // A player followed after another went has said everything already: it
    // is asked to say it again, as a bridge starting would.
    sendToPlayer(MediaBrowserChannel::kRequestChannel, MediaBrowserChannel::kQuery, QByteArray());
    sendToPlayer(IdleScreenChannel::kChannel, IdleScreenChannel::kUpdate, QByteArray());
}

void MprisBridge::sendToPlayer(const QCString& channel, const QCString& message, const QByteArray& data)
{
    const QString player = m_senders->player();
    if (player.isEmpty())
        return;
    // To the followed player alone: other players on the bus must not move.
    QDBusConnection::sessionBus().send(channelSignal(player, channel, message, data));
    // A request does not come back from the bus; the mirror hears it here
    // (a seek request tells it that the next position is a jump).
    m_mirror->receive(channel, message, data);
}

void MprisBridge::onPlayerPropertiesChanged(const QStringList& names)
{
    const QVariantMap all = m_mirror->playerProperties();
    QVariantMap changed;
    for (const QString& name : names)
        changed.insert(name, all.value(name));
    emitPropertiesChanged(QStringLiteral("org.mpris.MediaPlayer2.Player"), changed);
}

void MprisBridge::onPresenceChanged(bool present)
{
    emitPropertiesChanged(QStringLiteral("org.mpris.MediaPlayer2"),
                          {{QStringLiteral("CanQuit"), present}, {QStringLiteral("CanRaise"), present}});
}

void MprisBridge::emitPropertiesChanged(const QString& interface, const QVariantMap& changed)
{
    QDBusMessage signal = QDBusMessage::createSignal(QLatin1String(kObjectPath),
                                                     QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal << interface << changed << QStringList();
    QDBusConnection::sessionBus().send(signal);
}
