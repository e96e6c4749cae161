#include "host/tools/mp-mpris/MprisBridge.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include "host/platform/channels/QCopBus.h"
#include "host/tools/mp-mpris/MediaPlayer2Adaptor.h"
#include "host/tools/mp-mpris/PlayerAdaptor.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerRequests.h"
#include "host/tools/mp-mpris/PlayerSenderTracker.h"
#include "platform/QCopChannel.h"

const char* const MprisBridge::kServiceName = "org.mpris.MediaPlayer2.mediaplayer";
const char* const MprisBridge::kObjectPath = "/org/mpris/MediaPlayer2";

MprisBridge::MprisBridge(const TrackLookup& tracks, PlaySettings& settings)
    : m_mirror(std::make_unique<PlayerMirror>(tracks, settings)),
      m_requests(std::make_unique<PlayerRequests>(*m_mirror, settings)),
      m_senders(std::make_unique<PlayerSenderTracker>())
{
    // Children of this object: they go with it, before the mirror they read.
    new MediaPlayer2Adaptor(this, *m_mirror, *m_requests);
    new PlayerAdaptor(this, *m_mirror, *m_requests);
    for (const char* name : {PlayerMirror::kIdleChannel, PlayerMirror::kBrowserChannel, PlayerMirror::kSetupChannel}) {
        auto* channel = new QCopChannel(name, this);
        connect(channel, &QCopChannel::received, this, [this, channel](const QCString& message, const QByteArray& data) {
            m_mirror->receive(channel->channel(), message, data);
        });
    }
    connect(m_mirror.get(), &PlayerMirror::playerPropertiesChanged, this, &MprisBridge::onPlayerPropertiesChanged);
    connect(m_mirror.get(), &PlayerMirror::presenceChanged, this, &MprisBridge::onPresenceChanged);
    connect(m_senders.get(), &PlayerSenderTracker::playerChanged, this, &MprisBridge::watchPlayer);
    connect(m_senders.get(), &PlayerSenderTracker::playerGone, m_mirror.get(), &PlayerMirror::playerGone);
}

MprisBridge::~MprisBridge()
{
    // The adaptors read the mirror until they go; they go with the children.
    qDeleteAll(children());
}

bool MprisBridge::start(QString* error)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QLatin1String(kObjectPath), this, QDBusConnection::ExportAdaptors)) {
        *error = QStringLiteral("cannot offer %1 on the session bus").arg(QLatin1String(kObjectPath));
        return false;
    }
    if (!bus.registerService(QLatin1String(kServiceName))) {
        *error = QStringLiteral("cannot own %1 on the session bus: %2")
                     .arg(QLatin1String(kServiceName), bus.lastError().message());
        return false;
    }
    // The channels do not say who sent a message, so a killed player would
    // stay on the desktop forever; the bus does, and tells when that sender
    // leaves. So the same signals are heard here once more, raw.
    m_playerWatcher = std::make_unique<QDBusServiceWatcher>(QString(), bus, QDBusServiceWatcher::WatchForUnregistration);
    connect(m_playerWatcher.get(), &QDBusServiceWatcher::serviceUnregistered, m_senders.get(),
            &PlayerSenderTracker::nameLeft);
    if (!bus.connect(QString(), QLatin1String(QCopBus::kPath), QLatin1String(QCopBus::kInterface),
                     QLatin1String(QCopBus::kSignal), this, SLOT(onChannelSignal(QDBusMessage)))) {
        *error = QStringLiteral("cannot listen for the player on the session bus: %1").arg(bus.lastError().message());
        return false;
    }
    // A player that runs already answers these as it would its idle screen
    // and media browser; one that does not will announce itself when it starts.
    QCopChannel::send("MF_MSG_CHANNEL", "queryMPNowPlaying()");
    QCopChannel::send(PlayerMirror::kIdleChannel, "/MP/Idle/Req/Update");
    return true;
}

void MprisBridge::onChannelSignal(const QDBusMessage& signal)
{
    const QList<QVariant> arguments = signal.arguments();
    // Only the channel and message names matter here; a signal that does not
    // carry them as bytes is not a channel message.
    if (arguments.size() != 3 || arguments.at(0).metaType().id() != QMetaType::QByteArray
        || arguments.at(1).metaType().id() != QMetaType::QByteArray)
        return;
    m_senders->heard(signal.service(), arguments.at(0).toByteArray(), arguments.at(1).toByteArray());
}

void MprisBridge::watchPlayer(const QString& name)
{
    m_playerWatcher->setWatchedServices(name.isEmpty() ? QStringList() : QStringList{name});
    if (name.isEmpty())
        return;
    // The player may have left before the watch began, and then no leaving
    // is ever told. The daemon answers this after it has taken the watch, so
    // between the two nothing is missed. Asked without waiting, the answer
    // comes after the player's message that named it has reached the mirror,
    // which a "gone" must follow, not precede.
    QDBusConnection bus = QDBusConnection::sessionBus();
    auto* check = new QDBusPendingCallWatcher(bus.interface()->asyncCall(QStringLiteral("NameHasOwner"), name), this);
    connect(check, &QDBusPendingCallWatcher::finished, this, [this, name](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<bool> reply = *call;
        if (!reply.isError() && !reply.value())
            m_senders->nameLeft(name);
        call->deleteLater();
    });
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
