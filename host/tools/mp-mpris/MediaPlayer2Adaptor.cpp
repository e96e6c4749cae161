#include "host/tools/mp-mpris/MediaPlayer2Adaptor.h"

#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerRequests.h"

MediaPlayer2Adaptor::MediaPlayer2Adaptor(QObject* object, const PlayerMirror& mirror, const PlayerRequests& requests)
    : QDBusAbstractAdaptor(object), m_mirror(mirror), m_requests(requests)
{
}

bool MediaPlayer2Adaptor::canQuit() const
{
    return m_mirror.isPresent();
}

bool MediaPlayer2Adaptor::canRaise() const
{
    return m_mirror.isPresent();
}

void MediaPlayer2Adaptor::Raise()
{
    m_requests.raise();
}

void MediaPlayer2Adaptor::Quit()
{
    m_requests.quit();
}
