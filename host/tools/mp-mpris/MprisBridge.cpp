#include "host/tools/mp-mpris/MprisBridge.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include "host/tools/mp-mpris/MediaPlayer2Adaptor.h"
#include "host/tools/mp-mpris/PlayerAdaptor.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerRequests.h"
#include "platform/QCopChannel.h"

const char* const MprisBridge::kServiceName = "org.mpris.MediaPlayer2.mediaplayer";
const char* const MprisBridge::kObjectPath = "/org/mpris/MediaPlayer2";

MprisBridge::MprisBridge(const TrackLookup& tracks, PlaySettings& settings)
    : m_mirror(std::make_unique<PlayerMirror>(tracks, settings)),
      m_requests(std::make_unique<PlayerRequests>(*m_mirror, settings))
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
    // A player that runs already answers these as it would its idle screen
    // and media browser; one that does not will announce itself when it starts.
    QCopChannel::send("MF_MSG_CHANNEL", "queryMPNowPlaying()");
    QCopChannel::send(PlayerMirror::kIdleChannel, "/MP/Idle/Req/Update");
    return true;
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
