#pragma once
// What the bridge knows of the player, learnt only from the messages the
// player sends anyway: the idle-screen information on "/MP/Idle/Channel",
// the media browser's messages on "/vemo/apps/mediaplayer" and the setup
// changes on "MEDIAPLAYER_MESSAGE_CHANNEL" (host/contracts: IdleScreenChannel.h,
// MediaBrowserChannel.h, SetupChangeChannel.h). Each message updates the mirror,
// which then tells which of its MPRIS properties changed and whether the
// position jumped. It never asks anything and holds no bus: the D-Bus side
// reads it.

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

#include "host/platform/media/database/MediaRecord.h"
#include "platform/Qt2Compat.h"

class PlaySettings;
class TrackLookup;

class PlayerMirror : public QObject {
    Q_OBJECT
public:
    /** The track id of an item that is not in the media database. */
    static const char* const kUnlistedTrack;

    /** @p tracks and @p settings are not owned and must outlive the mirror. */
    PlayerMirror(const TrackLookup& tracks, const PlaySettings& settings, QObject* parent = nullptr);

    /** Takes one message of one of the three channels; others are ignored. */
    void receive(const QCString& channel, const QCString& message, const QByteArray& data);
    /** The player shown is no longer followed (its process ended without
     *  saying so, or another player is followed now): taken as its exit message. */
    void playerGone();

    /** Whether a player runs (its media-browser client announced itself, or it spoke). */
    bool isPresent() const { return m_present; }
    /** The player-interface properties read from the mirror, by their MPRIS
     *  names (PlaybackStatus, LoopStatus, Shuffle, Metadata, Position,
     *  CanGoNext, CanGoPrevious, CanPlay, CanPause, CanSeek, and CanControl,
     *  which is always true and so never changes). */
    QVariantMap playerProperties() const;
    QString playbackStatus() const;
    QVariantMap metadata() const;
    /** The playing position in microseconds. */
    qint64 position() const { return m_elapsedMs * 1000; }
    qint64 length() const { return m_totalMs * 1000; }
    /** The mpris:trackid of the playing item; empty without one. */
    QString trackId() const;
    int shuffleMode() const { return m_shuffleMode; }
    bool repeat() const { return m_repeat; }

Q_SIGNALS:
    /** Player-interface properties whose values changed (Position never: it moves all the time). */
    void playerPropertiesChanged(const QStringList& names);
    /** The player came or went: the root interface's CanQuit and CanRaise changed. */
    void presenceChanged(bool present);
    /** The position jumped (a seek, or back within the same item) to @p position microseconds. */
    void seeked(qint64 position);

private:
    void receiveIdle(const QCString& message, const QByteArray& data);
    void receiveBrowser(const QCString& message, const QByteArray& data);
    void receiveElapsed(qint64 elapsedMs);
    void setNowPlaying(const QString& path);
    void setPresent(bool present);
    void forgetPlayer();
    void readSettings();
    /** Whether the now-playing path names the item the meta information describes. */
    bool nowPlayingIsCurrent() const;

    const TrackLookup& m_tracks;
    const PlaySettings& m_settings;
    bool m_present = false;
    int m_browserState = -1;    ///< the unmapped state of "NowplayingState(int)"; -1 none yet
    int m_idleState = -1;       ///< the state of "/MP/Idle/Info/State" (stopped shows as paused); -1 none
    qint64 m_elapsedMs = 0;
    qint64 m_totalMs = 0;
    QString m_metaText;         ///< the idle screen's text: title, album, artist joined by " - "
    QString m_nowPlayingPath;   ///< the media browser's current item; empty when none was told
    std::optional<MediaRecord> m_nowPlayingRecord; ///< its media object, looked up when it was told
    int m_shuffleMode = 0;
    bool m_repeat = false;
    bool m_seekRequested = false; ///< a seek request passed and its new position has not come yet
    bool m_newItem = false;       ///< meta information came and no time since: time may go back
};
