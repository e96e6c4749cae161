#include "host/tools/mp-mpris/PlayerRequests.h"

#include <QDataStream>

#include <cstdint>
#include <utility>

#include "host/contracts/IdleScreenChannel.h"
#include "host/tools/mp-mpris/PlaySettings.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "platform/StreamEncoding.h"

namespace {
bool isPlaying(const PlayerMirror& mirror)
{
    return mirror.playbackStatus() == QLatin1String("Playing");
}
} // namespace

PlayerRequests::PlayerRequests(const PlayerMirror& mirror, PlaySettings& settings, Sender sender)
    : m_mirror(mirror), m_settings(settings), m_sender(std::move(sender))
{
}

void PlayerRequests::send(const char* request, const QByteArray& data) const
{
    if (m_mirror.isPresent())
        m_sender(request, data);
}

// The player's play and pause requests both toggle: asking for what already
// holds would turn it round.
void PlayerRequests::play() const
{
    if (!isPlaying(m_mirror))
        send(IdleScreenChannel::kPlay);
}

void PlayerRequests::pause() const
{
    if (isPlaying(m_mirror))
        send(IdleScreenChannel::kPause);
}

void PlayerRequests::playPause() const
{
    send(IdleScreenChannel::kPlay);
}

void PlayerRequests::stop() const
{
    pause();
}

void PlayerRequests::next() const
{
    send(IdleScreenChannel::kNext);
}

void PlayerRequests::previous() const
{
    send(IdleScreenChannel::kPrev);
}

void PlayerRequests::seek(qint64 offset) const
{
    const qint64 position = m_mirror.position();
    const qint64 length = m_mirror.length();
    if (!m_mirror.isPresent() || length <= 0)
        return;
    // Compared before anything is added, so that no offset can overflow:
    // position and length are small, the offset may be any 64-bit value.
    if (offset > length - position) {
        next();
        return;
    }
    if (offset <= -position) {
        // Enough whole steps back to reach the start; the player stops at 0.
        seekSteps(-((position + kSeekStep - 1) / kSeekStep));
        return;
    }
    // The player seeks only in whole steps; less than half a step is no seek.
    qint64 steps = offset / kSeekStep;
    const qint64 rest = offset % kSeekStep;
    if (rest >= kSeekStep / 2)
        ++steps;
    else if (rest <= -kSeekStep / 2)
        --steps;
    seekSteps(steps);
}

void PlayerRequests::seekSteps(qint64 steps) const
{
    // Within the item (at most its length in steps), so the count fits an int.
    if (steps == 0 || steps > INT32_MAX || steps < -qint64(INT32_MAX))
        return;
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(steps < 0 ? -steps : steps);
    send(steps < 0 ? IdleScreenChannel::kSeekBack : IdleScreenChannel::kSeekForth, payload);
    send(IdleScreenChannel::kSeekEnd);
}

void PlayerRequests::setPosition(const QString& trackId, qint64 position) const
{
    if (trackId != m_mirror.trackId() || position < 0 || position > m_mirror.length())
        return;
    seek(position - m_mirror.position());  // both within the item: no overflow
}

void PlayerRequests::setShuffle(bool shuffle) const
{
    // The shuffle request applies the stored mode, so the store, not the
    // player's last news, tells whether a request is needed: asked on and
    // then off before the player told of on, the second request still goes.
    // Songs is the mode the player's own shuffle key turns on.
    if (!m_mirror.isPresent() || shuffle == (m_settings.shuffleMode() != 0))
        return;
    m_settings.storeShuffleMode(shuffle ? 1 : 0);
    send(IdleScreenChannel::kShuffle);
}

void PlayerRequests::setLoopStatus(const QString& loopStatus) const
{
    // The player repeats whole lists only: "Track" is taken as the list.
    bool repeat = false;
    if (loopStatus == QLatin1String("Playlist") || loopStatus == QLatin1String("Track"))
        repeat = true;
    else if (loopStatus != QLatin1String("None"))
        return;
    if (repeat != m_mirror.repeat())
        send(IdleScreenChannel::kRepeat);
}

void PlayerRequests::raise() const
{
    send(IdleScreenChannel::kRestore);
}

void PlayerRequests::quit() const
{
    send(IdleScreenChannel::kQuit);
}
