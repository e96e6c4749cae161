#include "host/tools/mp-mpris/PlayerRequests.h"

#include <QDataStream>

#include "host/tools/mp-mpris/PlaySettings.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"

namespace {
bool isPlaying(const PlayerMirror& mirror)
{
    return mirror.playbackStatus() == QLatin1String("Playing");
}
} // namespace

PlayerRequests::PlayerRequests(const PlayerMirror& mirror, PlaySettings& settings)
    : m_mirror(mirror), m_settings(settings)
{
}

void PlayerRequests::send(const char* request) const
{
    if (m_mirror.isPresent())
        QCopChannel::send(PlayerMirror::kIdleChannel, request);
}

// The player's play and pause requests both toggle: asking for what already
// holds would turn it round.
void PlayerRequests::play() const
{
    if (!isPlaying(m_mirror))
        send("/MP/Idle/Req/Play");
}

void PlayerRequests::pause() const
{
    if (isPlaying(m_mirror))
        send("/MP/Idle/Req/Pause");
}

void PlayerRequests::playPause() const
{
    send("/MP/Idle/Req/Play");
}

void PlayerRequests::stop() const
{
    pause();
}

void PlayerRequests::next() const
{
    send("/MP/Idle/Req/Next");
}

void PlayerRequests::previous() const
{
    send("/MP/Idle/Req/Prev");
}

void PlayerRequests::seek(qint64 offset) const
{
    if (!m_mirror.isPresent())
        return;
    // The player seeks only in whole steps; less than half a step is no seek.
    const qint64 steps = (offset + (offset < 0 ? -kSeekStep : kSeekStep) / 2) / kSeekStep;
    if (steps == 0 || steps > INT32_MAX || steps < -qint64(INT32_MAX))
        return;
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(steps < 0 ? -steps : steps);
    QCopChannel::send(PlayerMirror::kIdleChannel, steps < 0 ? "/MP/Idle/Req/Seek/BACK" : "/MP/Idle/Req/Seek/Forth",
                      payload);
    QCopChannel::send(PlayerMirror::kIdleChannel, "/MP/Idle/Req/Seek/END");
}

void PlayerRequests::setPosition(const QString& trackId, qint64 position) const
{
    if (trackId != m_mirror.trackId() || position < 0 || position > m_mirror.length())
        return;
    seek(position - m_mirror.position());
}

void PlayerRequests::setShuffle(bool shuffle) const
{
    if (!m_mirror.isPresent() || shuffle == (m_mirror.shuffleMode() != 0))
        return;
    // The shuffle request applies the stored mode; songs is the mode the
    // player's own shuffle key turns on.
    m_settings.storeShuffleMode(shuffle ? 1 : 0);
    send("/MP/Idle/Req/Shuffle");
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
        send("/MP/Idle/Req/Repeat");
}

void PlayerRequests::raise() const
{
    send("/MP/Idle/Req/Restore");
}

void PlayerRequests::quit() const
{
    send("/MP/Idle/Req/Quit");
}
