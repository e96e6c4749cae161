#include "clients/MP_AbstractClient.h"

#include "platform/MP_CommonPlayer.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(AbstractClientTrace, "MP_AbstractClient")

MP_AbstractClient::MP_AbstractClient(MP_CommonPlayer* player) : QObject(nullptr), m_commonPlayer(player)
{
    m_commonPlayer->addListListener(this);
    m_commonPlayer->addPlayerListener(this);
}

MP_AbstractClient::~MP_AbstractClient()
{
    m_commonPlayer->removeListListener(this);
    m_commonPlayer->removePlayerListener(this);
}

QString MP_AbstractClient::getPlayingContentName()
{
    MP_PlayerControl* control = m_commonPlayer->getPlayerControl();
    return control ? control->getContentName() : QString(QLatin1String(""));
}

void MP_AbstractClient::updateState(MP_PLAYER_STATE) {}
void MP_AbstractClient::updateTime(int, int) {}
void MP_AbstractClient::updateBuffering(int) {}
void MP_AbstractClient::updateDownloadProgress(int, int) {}
void MP_AbstractClient::updateDownloadComplete() {}
void MP_AbstractClient::updateMetaInfo(const QString&, const QString&, const QString&, QByteArray, bool) {}
void MP_AbstractClient::updateConnectionStatus(int) {}
void MP_AbstractClient::updateListInfo(MP_ListInterface*) {}

template <typename Command>
void MP_AbstractClient::forwardToControl(const char* slotName, Command command)
{
    AbstractClientTrace(3, "MP_AbstractClient::%s Enter\n", slotName);
    // Looked up at every call: the engine replaces its control per media.
    if (MP_PlayerControl* control = m_commonPlayer->getPlayerControl())
        command(control);
    AbstractClientTrace(3, "MP_AbstractClient::%s Leave\n", slotName);
}

void MP_AbstractClient::onPlayPause()
{
    forwardToControl("onPlayPause", [](MP_PlayerControl* control) { control->playPause(); });
}

void MP_AbstractClient::onNext()
{
    forwardToControl("onNext", [](MP_PlayerControl* control) { control->next(); });
}

void MP_AbstractClient::onPrevious()
{
    forwardToControl("onPrevious", [](MP_PlayerControl* control) { control->previous(); });
}

void MP_AbstractClient::onStop()
{
    forwardToControl("onStop", [](MP_PlayerControl* control) { control->stop(); });
}

void MP_AbstractClient::onSeek(int offset)
{
    forwardToControl("onSeek", [offset](MP_PlayerControl* control) { control->seek(offset); });
}

void MP_AbstractClient::onSeekFinished()
{
    forwardToControl("onSeekFinished", [](MP_PlayerControl* control) { control->seekFinished(); });
}

void MP_AbstractClient::onSetMute(bool mute)
{
    forwardToControl("onSetMute", [mute](MP_PlayerControl* control) { control->setMute(mute); });
}

void MP_AbstractClient::onSetVolume(int level)
{
    forwardToControl("onSetVolume", [level](MP_PlayerControl* control) { control->setVolume(level); });
}
