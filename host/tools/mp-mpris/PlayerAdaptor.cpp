#include "host/tools/mp-mpris/PlayerAdaptor.h"

#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerRequests.h"

PlayerAdaptor::PlayerAdaptor(QObject* object, const PlayerMirror& mirror, const PlayerRequests& requests)
    : QDBusAbstractAdaptor(object), m_mirror(mirror), m_requests(requests)
{
    connect(&mirror, &PlayerMirror::seeked, this, &PlayerAdaptor::Seeked);
}

QString PlayerAdaptor::playbackStatus() const
{
    return m_mirror.playbackStatus();
}

QString PlayerAdaptor::loopStatus() const
{
    return m_mirror.repeat() ? QStringLiteral("Playlist") : QStringLiteral("None");
}

void PlayerAdaptor::setLoopStatus(const QString& loopStatus)
{
    m_requests.setLoopStatus(loopStatus);
}

bool PlayerAdaptor::shuffle() const
{
    return m_mirror.shuffleMode() != 0;
}

void PlayerAdaptor::setShuffle(bool shuffle)
{
    m_requests.setShuffle(shuffle);
}

QVariantMap PlayerAdaptor::metadata() const
{
    return m_mirror.metadata();
}

qlonglong PlayerAdaptor::position() const
{
    return m_mirror.position();
}

bool PlayerAdaptor::flag(const char* name) const
{
    return m_mirror.playerProperties().value(QLatin1String(name)).toBool();
}

void PlayerAdaptor::Next()
{
    m_requests.next();
}

void PlayerAdaptor::Previous()
{
    m_requests.previous();
}

void PlayerAdaptor::Pause()
{
    m_requests.pause();
}

void PlayerAdaptor::PlayPause()
{
    m_requests.playPause();
}

void PlayerAdaptor::Stop()
{
    m_requests.stop();
}

void PlayerAdaptor::Play()
{
    m_requests.play();
}

void PlayerAdaptor::Seek(qlonglong offset)
{
    m_requests.seek(offset);
}

void PlayerAdaptor::SetPosition(const QDBusObjectPath& trackId, qlonglong position)
{
    m_requests.setPosition(trackId.path(), position);
}

void PlayerAdaptor::OpenUri(const QString&)
{
    // CanControl and the empty SupportedUriSchemes say the player opens nothing from here.
}
