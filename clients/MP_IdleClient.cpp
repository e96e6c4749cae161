#include "clients/MP_IdleClient.h"

#include <QDataStream>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

#include "clients/HSMessageAPI.h"
#include "lists/MP_ListInterface.h"
#include "platform/AM_Action.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/MP_Utility.h"
#include "platform/QCopChannel.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/StreamEncoding.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(IdleClientTrace, "MP_IdleClient")

namespace {

const char* const kIdleChannel = "/MP/Idle/Channel";
const QString kPluginName = QStringLiteral("IdleMusicPlayer");
const QString kMemoryCardPrefix = QStringLiteral("/mmc/mmca1");
const QString kSettingsGroup = QStringLiteral("MediaControlItem");

const int kSeekStep = 5000;
const int kShuffleKey = 0x4002;
const int kRepeatKey = 0x4003;

QByteArray encodeString(const QString& text)
{
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(out);
    out << text;
    return payload;
}

// A step count times the step length, held within int: a plug-in asking for
// a billion steps seeks as far as the engine can express, not to a wrapped
// (or undefined) value.
int seekOffset(qint32 steps, int stepMilliseconds)
{
    const qint64 offset = qint64(steps) * stepMilliseconds;
    return int(std::clamp<qint64>(offset, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

MP_IdleClient::MP_IdleClient(MP_CommonPlayer* player)
    : MP_AbstractClient(player), m_channel(std::make_unique<QCopChannel>(kIdleChannel)), m_totalTime(0),
      m_pluginActive(false)
{
    connect(m_channel.get(), SIGNAL(received(const QCString&, const QByteArray&)), this,
            SLOT(onReceiveRequest(const QCString&, const QByteArray&)));
}

MP_IdleClient::~MP_IdleClient()
{
    sendInfo("/MP/Idle/Info/Exit");
    // Whatever the flag says: a plug-in restarted by a style change was
    // activated behind the client's back.
    HSMessageAPI::HS_pluginDeactive(kPluginName);
    m_pluginActive = false;
    m_channel.reset();
}

void MP_IdleClient::activePlugin()
{
    if (m_pluginActive)
        return;
    HSMessageAPI::HS_pluginActive(kPluginName);
    m_pluginActive = true;
}

void MP_IdleClient::updateIdlePlayer() {}

void MP_IdleClient::sendInfo(const char* message, const QByteArray& payload) const
{
    QCopChannel::send(kIdleChannel, message, payload);
}

void MP_IdleClient::updateState(MP_PLAYER_STATE state)
{
    IdleClientTrace(3, "MP_IdleClient::updateState %d\n", int(state));
    int shown = state;
    if (state == MP_STATE_STOPPED || state == MP_STATE_6 || state == MP_STATE_ERROR || state == MP_STATE_FINISHED) {
        IdleClientTrace(3, "treat these state as paused!\n");
        shown = MP_STATE_PAUSED;
    }
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(out);
    out << qint32(shown);
    sendInfo("/MP/Idle/Info/State", payload);
}

void MP_IdleClient::updateTime(int elapsed, int total)
{
    sendInfo("/MP/Idle/Info/ElapsedTime", encodeString(MP_Utility::convertTime(elapsed)));
    if (total == m_totalTime)
        return;
    m_totalTime = total;
    sendInfo("/MP/Idle/Info/TotalTime", encodeString(MP_Utility::convertTime(total)));
}

void MP_IdleClient::updateMetaInfo(const QString& title, const QString& artist, const QString& album,
                                   QByteArray data, bool canSeek)
{
    IdleClientTrace(3, "title - %s, artist - %s, album - %s, canSeek - %s\n", qPrintable(title),
                    qPrintable(artist), qPrintable(album), canSeek ? "true" : "false");
    const QString path = currentPath();
    QString text = !title.isEmpty() ? title : path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    if (!album.isEmpty())
        text += QLatin1String(" - ") + album;
    if (!artist.isEmpty())
        text += QLatin1String(" - ") + artist;
    // The plug-in shows one line.
    text.remove(QRegularExpression(QStringLiteral("[\n\r]")));
    const bool onCard = MP_Utility::getCleanFileName(path).startsWith(kMemoryCardPrefix);

    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(out);
    out << text;
    // The phone's stream knows no null byte array: a null one goes as length
    // 0, like an empty one, where Qt's own stream would mark it 0xFFFFFFFF.
    out.writeBytes(data.constData(), uint(data.size()));
    out << Q_INT8(onCard ? 1 : 0);
    sendInfo("/MP/Idle/Info/MetaInfo", payload);
}

QString MP_IdleClient::currentPath() const
{
    // A single file plays without a list; its path then names the media, so
    // that the plug-in still gets a name and the memory-card mark.
    MP_ListInterface* list = getCommonPlayer()->getCurrentList();
    return list ? list->getCurrent() : getCommonPlayer()->getCurrentPath();
}

bool MP_IdleClient::listFinished(bool needsSeveral) const
{
    MP_ListInterface* list = getCommonPlayer()->getCurrentList();
    MP_PlayerControl* control = getCommonPlayer()->getPlayerControl();
    if (!list || list->hasNext() || !control)
        return false;
    if (needsSeveral && list->count() == 1)
        return false;
    return control->getState() == MP_STATE_FINISHED;
}

void MP_IdleClient::restartList()
{
    getCommonPlayer()->getCurrentList()->moveTo(0);
    getCommonPlayer()->getPlayerControl()->play();
}

void MP_IdleClient::onPlayPause()
{
    // A list of one item that finished is played again by the engine's own
    // play/pause; a longer one starts over from its first item.
    if (listFinished(/*needsSeveral*/ true))
        restartList();
    else
        MP_AbstractClient::onPlayPause();
}

void MP_IdleClient::onNext()
{
    if (listFinished(/*needsSeveral*/ false))
        restartList();
    else
        MP_AbstractClient::onNext();
}

void MP_IdleClient::onReceiveRequest(const QCString& msg, const QByteArray& data)
{
    IdleClientTrace(3, "MP_IdleClient::onReceiveRequest %s\n", msg.constData());
    if (!handlePlaybackRequest(msg, data))
        handleSessionRequest(msg);
}

bool MP_IdleClient::handlePlaybackRequest(const QCString& msg, const QByteArray& data)
{
    if (msg == "/MP/Idle/Req/Seek/Forth")
        seekBySteps(data, kSeekStep);
    else if (msg == "/MP/Idle/Req/Seek/BACK")
        seekBySteps(data, -kSeekStep);
    else if (msg == "/MP/Idle/Req/Play" || msg == "/MP/Idle/Req/Pause")
        onPlayPause();
    else if (msg == "/MP/Idle/Req/Next")
        onNext();
    else if (msg == "/MP/Idle/Req/Prev")
        onPrevious();
    else
        return false;
    return true;
}

bool MP_IdleClient::handleSessionRequest(const QCString& msg)
{
    if (msg == "/MP/Idle/Req/Seek/END") {
        onSeekFinished();
    } else if (msg == "/MP/Idle/Req/Quit") {
        IdleClientTrace(3, "quit mediaplayer from idle player\n");
        Q_EMIT sigQuitApp();
    } else if (msg == "/MP/Idle/Req/Restore") {
        IdleClientTrace(3, "restore from idle player\n");
        getCommonPlayer()->showPlayer();
    } else if (msg == "/MP/Idle/Req/Update") {
        requestUpdate();
    } else if (msg == "/MP/Idle/Req/Shuffle") {
        toggleSetup(kShuffleKey);
    } else if (msg == "/MP/Idle/Req/Repeat") {
        toggleSetup(kRepeatKey);
    } else {
        return false;
    }
    return true;
}

void MP_IdleClient::seekBySteps(const QByteArray& data, int stepMilliseconds)
{
    QDataStream in(data);
    MP_SetPayloadFormat(in);
    qint32 steps = 0;
    in >> steps;
    // A request without its count names no distance: seeking by zero or by
    // some guess would both move the engine's seek state for nothing, so
    // the request is dropped. Bytes after the count are not looked at.
    if (in.status() != QDataStream::Ok) {
        IdleClientTrace(3, "MP_IdleClient: seek request without a step count, ignored\n");
        return;
    }
    onSeek(seekOffset(steps, stepMilliseconds));
}

void MP_IdleClient::requestUpdate()
{
    updateIdlePlayer();
    m_totalTime = -1;
    if (MP_PlayerControl* control = getCommonPlayer()->getPlayerControl())
        control->requestUpdate(this);
}

void MP_IdleClient::toggleSetup(int keyCode)
{
    // The main window toggles the stored setting inside this emit, so the
    // settings read below are the new ones.
    Q_EMIT sigSetupKeyClicked(keyCode, false);
    const SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    int shuffle = 0;
    bool repeat = false;
    settings.getSettingInfo(kSettingsGroup, QStringLiteral("MusicShuffle"), shuffle, 0);
    settings.getSettingInfo(kSettingsGroup, QStringLiteral("MusicRepeat"), repeat, false);
    getCommonPlayer()->setShuffleRepeat(shuffle != 0, repeat);
}
