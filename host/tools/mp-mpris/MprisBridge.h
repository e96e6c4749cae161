#pragma once
// Offers the player on the session bus as an MPRIS 2.2 media player:
//   bus name    org.mpris.MediaPlayer2.mediaplayer
//   object      /org/mpris/MediaPlayer2
//   interfaces  org.mpris.MediaPlayer2, org.mpris.MediaPlayer2.Player,
//               org.freedesktop.DBus.Properties (PropertiesChanged on every change)
// It listens on the player's channels, keeps their news in a PlayerMirror and
// turns the desktop's calls into the player's requests (PlayerRequests).

#include <QObject>
#include <QString>

#include <memory>

class PlayerMirror;
class PlayerRequests;
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

private:
    void onPlayerPropertiesChanged(const QStringList& names);
    void onPresenceChanged(bool present);
    void emitPropertiesChanged(const QString& interface, const QVariantMap& changed);

    std::unique_ptr<PlayerMirror> m_mirror;
    std::unique_ptr<PlayerRequests> m_requests;
};
