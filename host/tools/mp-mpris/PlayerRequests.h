#pragma once
// Turns what the desktop asks of the player into the idle screen's requests
// on "/MP/Idle/Channel" (IdleScreenChannel.h), the only way in that the player offers:
//   Play, Pause, PlayPause  "/MP/Idle/Req/Play" (the player toggles; Play and
//                           Pause send only when the state would change)
//   Stop                    "/MP/Idle/Req/Pause" while playing (there is no stop request)
//   Next, Previous          "/MP/Idle/Req/Next", "/MP/Idle/Req/Prev"
//   Seek, SetPosition       "/MP/Idle/Req/Seek/Forth" or "BACK" with a count of
//                           5-second steps, then "/MP/Idle/Req/Seek/END"; a seek
//                           past the item's end is Next, one before its start
//                           goes back to 0; without a known length nothing
//                           is sent (CanSeek is false then)
//   Shuffle                 the stored music shuffle mode, then "/MP/Idle/Req/Shuffle",
//                           when the stored mode is not already the one asked for
//   LoopStatus              "/MP/Idle/Req/Repeat" when repeat must change
//   Raise, Quit             "/MP/Idle/Req/Restore", "/MP/Idle/Req/Quit"
// Without a player nothing is sent. The requests go to the followed player
// alone, through the sender the bridge gives.

#include <QString>

#include <functional>

#include "host/contracts/IdleScreenChannel.h"
#include "platform/Qt2Compat.h"

class PlayerMirror;
class PlaySettings;

class PlayerRequests {
public:
    /** The player's seek step, in microseconds. */
    static constexpr qint64 kSeekStep = qint64(IdleScreenChannel::kSeekStepMs) * 1000;

    /** Sends one request of the idle channel to the player. */
    using Sender = std::function<void(const QCString& request, const QByteArray& data)>;

    /** Neither @p mirror nor @p settings is owned; both must outlive this object. */
    PlayerRequests(const PlayerMirror& mirror, PlaySettings& settings, Sender sender);

    void play() const;
    void pause() const;
    void playPause() const;
    void stop() const;
    void next() const;
    void previous() const;
    /** Moves by @p offset microseconds (any value), rounded to the nearest
     *  whole step; past the end it is Next, before the start it goes to 0. */
    void seek(qint64 offset) const;
    /** Moves to @p position microseconds of @p trackId; ignored for another
     *  track or a position outside the item. */
    void setPosition(const QString& trackId, qint64 position) const;
    void setShuffle(bool shuffle) const;
    /** "None" turns repeat off, "Playlist" and "Track" on; other values are ignored. */
    void setLoopStatus(const QString& loopStatus) const;
    void raise() const;
    void quit() const;

private:
    void send(const char* request, const QByteArray& data = QByteArray()) const;
    void seekSteps(qint64 steps) const;

    const PlayerMirror& m_mirror;
    PlaySettings& m_settings;
    Sender m_sender;
};
