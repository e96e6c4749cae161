#include "host/engine/HostPlayerControl.h"

#include <QJsonArray>

#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineReporter.h"
#include "host/platform/HostJournal.h"

namespace {

void journal(const char* call, const QJsonArray& args = {})
{
    HostJournal::call(QStringLiteral("control"), QString::fromLatin1(call), args);
}

} // namespace

HostPlayerControl::HostPlayerControl(HostEngine& engine)
    : m_engine(engine)
{
}

void HostPlayerControl::playPause()
{
    journal("playPause");
    if (m_engine.m_state == MP_STATE_PLAYING)
        m_engine.pausePlayback();
    else
        m_engine.startPlayback();
}

void HostPlayerControl::next()
{
    journal("next");
    m_engine.stepForward();
}

void HostPlayerControl::previous()
{
    journal("previous");
    m_engine.stepBack();
}

void HostPlayerControl::play()
{
    journal("play");
    m_engine.startPlayback();
}

void HostPlayerControl::pause()
{
    journal("pause");
    m_engine.pausePlayback();
}

void HostPlayerControl::stop()
{
    journal("stop");
    m_engine.stopPlayback();
}

void HostPlayerControl::seek(int offset)
{
    journal("seek", {offset});
    m_engine.seekBy(offset);
}

void HostPlayerControl::seekFinished()
{
    journal("seekFinished");
}

MP_PLAYER_STATE HostPlayerControl::getState()
{
    return m_engine.m_state;
}

QString HostPlayerControl::getContentName()
{
    return m_engine.m_path.isNull() ? QString() : m_engine.m_media.title;
}

void HostPlayerControl::getErrorInfo(QString& detail, QString& message)
{
    detail = m_engine.m_errorDetail;
    message = m_engine.m_errorMessage;
}

void HostPlayerControl::setMute(bool mute)
{
    journal("setMute", {mute});
    m_muted = mute;
    m_engine.applyVolume();
}

void HostPlayerControl::setVolume(int level)
{
    journal("setVolume", {level});
    m_volume = level;
    m_volumeSet = true;
    m_engine.applyVolume();
}

void HostPlayerControl::requestUpdate(MP_PlayerListener* listener)
{
    journal("requestUpdate", {HostEngineReporter::journalTag(listener, QStringLiteral("listener"))});
    if (listener)
        m_engine.reportEverythingTo(listener);
}
