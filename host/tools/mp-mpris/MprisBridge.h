#pragma once
// Offers the player on the session bus as an MPRIS 2.2 media player:
//   bus name    org.mpris.MediaPlayer2.mediaplayer, or, when another process
//               holds it, org.mpris.MediaPlayer2.mediaplayer.instance<pid>
//   object      /org/mpris/MediaPlayer2
//   interfaces  org.mpris.MediaPlayer2, org.mpris.MediaPlayer2.Player,
//               org.freedesktop.DBus.Properties (PropertiesChanged on every change)
// It hears the channel messages of every process straight from the bus, in
// the order the bus delivers them together with the news of processes
// leaving it: one path, so that nothing a player said before it died can
// arrive after its death. Of the players it hears (PlayerSenderTracker) it
// follows one, the newest, keeps its news in a PlayerMirror, and sends the
// desktop's calls as that player's requests (PlayerRequests) to it alone.
// When the followed player goes, the next newest one still on the bus is
// asked to tell what it plays. The bridge ends when its bus connection is lost.

#include <QObject>
#include <QString>

#include <memory>

#include "platform/Qt2Compat.h"

class QDBusMessage;
class PlayerFeed;
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

    /** Offers the object, listens, takes a bus name and asks running players
     *  to tell what they play; false with a reason when the bus refuses. */
    bool start(QString* error);
    /** Follows the player of bus name @p name alone (PlayerSenderTracker::followOnly);
     *  call it before start(). */
    void followOnly(const QString& name);
    /** The bus name taken by start(). */
    QString serviceName() const { return m_serviceName; }

Q_SIGNALS:
    /** The connection to the session bus is gone: nothing can reach the bridge any more. */
    void busLost();

private Q_SLOTS:
    void onChannelSignal(const QDBusMessage& signal);
    void onNameOwnerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    void onDisconnected();

private:
    bool takeServiceName(QString* error);
    void askPlayerToReport(const QString& name);
    void sendToPlayer(const QCString& channel, const QCString& message, const QByteArray& data);
    void onPlayerPropertiesChanged(const QStringList& names);
    void onPresenceChanged(bool present);
    void emitPropertiesChanged(const QString& interface, const QVariantMap& changed);

    std::unique_ptr<PlayerMirror> m_mirror;
    std::unique_ptr<PlayerSenderTracker> m_senders;
    std::unique_ptr<PlayerFeed> m_feed;
    std::unique_ptr<PlayerRequests> m_requests;
    QString m_serviceName;
};
