#include "host/engine/HostClockOutput.h"

#include "host/engine/HostEngineClock.h"
#include "host/engine/HostEngineOutputListener.h"

HostClockOutput::HostClockOutput(HostEngineOutputListener& listener)
    : m_listener(listener)
{
    m_ticker.setInterval(HostEngineClock::kTickInterval);
    QObject::connect(&m_ticker, &QTimer::timeout,
                     [this] { m_listener.outputTimePassed(int(m_sinceTick.restart())); });
}

void HostClockOutput::load(const QString& /*path*/, MP_CONTENT_TYPE /*type*/)
{
}

void HostClockOutput::unload()
{
}

void HostClockOutput::setPlaying(bool playing)
{
    m_playing = playing;
    updateTicker();
}

void HostClockOutput::setPosition(int /*position*/)
{
}

void HostClockOutput::setVolume(int /*level*/, bool /*muted*/)
{
}

void HostClockOutput::setNormalSize(bool /*normal*/)
{
}

void HostClockOutput::manualTimePassed(int milliseconds)
{
    m_listener.outputTimePassed(milliseconds);
}

void HostClockOutput::clockModeChanged()
{
    updateTicker();
}

void HostClockOutput::updateTicker()
{
    const bool wanted = m_playing && !HostEngineClock::isManual();
    if (wanted && !m_ticker.isActive()) {
        m_sinceTick.start();
        m_ticker.start();
    } else if (!wanted) {
        m_ticker.stop();
    }
}
