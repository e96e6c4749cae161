#pragma once
// Offers the player on the session bus as an MPRIS 2.2 media player:
//   bus name    org.mpris.MediaPlayer2.mediaplayer
//   object      /org/mpris/MediaPlayer2
//   interfaces  org.mpris.MediaPlayer2, org.mpris.MediaPlayer2.Player,
//               org.freedesktop.DBus.Properties (PropertiesChanged on every change)
// It listens on the player's channels, keeps their news in a PlayerMirror and
// turns the desktop's calls into the player's requests (PlayerRequests).
// It also watches the player's process on the bus (PlayerSenderTracker), so
// that a player that dies unannounced is shown as gone.

#include <QObject>
#include <QString>

#include <memory>

class QDBusMessage;
class QDBusServiceWatcher;
class PlayerMirror;
class PlayerRequests;
class PlayerSenderTracker;
class PlaySettings;
class TrackLookup;

class MprisBridge : public QObject {
    Q_OBJECT
public:
    static const char* const kServiceName;
    static const char* const kObjectPath;

    /** @p tracks and @p settings are not owned and must outlive the bridge. */
    MprisBridge(const TrackLookup& tracks, PlaySettings& settings);
    ~MprisBridge() override;

    /** Takes the bus name, offers the object and asks a running player to
     *  tell what it plays; false with a reason when the bus refuses. */
    bool start(QString* error);

private Q_SLOTS:
    void onChannelSignal(const QDBusMessage& signal);

private:
    void watchPlayer(const QString& name);
    void onPlayerPropertiesChanged(const QStringList& names);
    void onPresenceChanged(bool present);
    void emitPropertiesChanged(const QString& interface, const QVariantMap& changed);

    std::unique_ptr<PlayerMirror> m_mirror;
    std::unique_ptr<PlayerRequests> m_requests;
    std::unique_ptr<PlayerSenderTracker> m_senders;
    std::unique_ptr<QDBusServiceWatcher> m_playerWatcher; ///< made when the bus is known, in start()
};
