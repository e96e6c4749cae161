#include "clients/MP_MediafinderClient.h"

#include <QDataStream>
#include <QString>

#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/Metadata.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(MediafinderTrace, "MP_MediafinderClient")

namespace {

const char* const kBrowserChannel = "/vemo/apps/mediaplayer";
const char* const kRequestChannel = "MF_MSG_CHANNEL";

const char* const kStartedMessage = "MediaplayerStarted()";
const char* const kExitedMessage = "MediaplayerExited()";
const char* const kStateMessage = "NowplayingState(int)";
const char* const kSystemItemMessage = "NowPlayingSystemItem(QString, int, QString, QString, QString, QString)";
const char* const kGroupItemMessage = "NowplayingGroupItem(QString, int, int)";

const char* const kUnhideRequest = "unHideMediaPlayer()";
const char* const kQueryRequest = "queryMPNowPlaying()";

// Artist, album, genre and composer follow the kind of a library selection.
const int kSelectionTexts = 4;

} // namespace

MP_MediafinderClient::MP_MediafinderClient(MP_CommonPlayer* player)
    : MP_AbstractClient(player), m_channel(std::make_unique<QCopChannel>(kRequestChannel))
{
    connect(m_channel.get(), SIGNAL(received(const QCString&, const QByteArray&)), this,
            SLOT(onMessageChannel(const QCString&, const QByteArray&)));
    MediafinderTrace(3, "=========send media player start message!!\n");
    QCopChannel::send(kBrowserChannel, kStartedMessage);
}

MP_MediafinderClient::~MP_MediafinderClient()
{
    MediafinderTrace(3, "=========send media player exit message!!\n");
    QCopChannel::send(kBrowserChannel, kExitedMessage);
    m_channel.reset();
}

void MP_MediafinderClient::setAufList(MP_AufList* list)
{
    m_aufList = list;
}

void MP_MediafinderClient::onMessageChannel(const QCString& msg, const QByteArray&)
{
    MediafinderTrace(3, "====receive message from mf\n");
    // Both requests carry no data; whatever data comes with them is not read.
    if (msg == kUnhideRequest) {
        MediafinderTrace(3, "===========unhide mp\n");
        getCommonPlayer()->showPlayer();
        MediafinderTrace(3, "===========exit unhide\n");
    } else if (msg == kQueryRequest) {
        updateStatus();
    }
    MediafinderTrace(3, "exit MP_MediafinderClient::onMessageChannel\n");
}

void MP_MediafinderClient::updateState(MP_PLAYER_STATE state)
{
    MediafinderTrace(3, "enter MP_MediafinderClient::updateState, mpState=%d\n", int(state));
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(state);
    QCopChannel::send(kBrowserChannel, kStateMessage, data);
    MediafinderTrace(3, "exit MP_MediafinderClient::updateState\n");
}

void MP_MediafinderClient::updateListInfo(MP_ListInterface*)
{
    // The browser has no entry for videos.
    if (m_aufList && !m_aufList->isVideoList())
        sendNowPlayingItem();
}

void MP_MediafinderClient::sendNowPlayingItem()
{
    QByteArray* const reservedData = m_aufList ? m_aufList->getReservedData() : nullptr;
    if (!reservedData) {
        MediafinderTrace(3, "[%s] Oops! m_aufList is 0x%x, getReservedData is 0x%x\n", __func__,
                         unsigned(quintptr(m_aufList.data())), unsigned(quintptr(reservedData)));
        return;
    }
    m_payload.clear();
    QDataStream reserved(reservedData, QIODevice::ReadOnly);
    MP_SetPayloadFormat(reserved);
    QDataStream payload(&m_payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(payload);

    qint32 kind = NoListKind;
    reserved >> kind;
    // A description that does not hold what its kind promises is not sent:
    // the browser would rebuild a list other than the one that plays. The
    // kind is then forgotten too, so that a status query resends nothing.
    m_listKind = reserved.status() == QDataStream::Ok ? kind : NoListKind;

    const QString path = m_aufList->getCurrent();
    const int position = m_aufList->getAbstractIndex();
    payload << path << qint32(position);
    if (m_listKind != LibrarySelection && m_listKind != GroupList) {
        MediafinderTrace(3, "[%s] Invilid AUF type - %d\n", __func__, m_listKind);
        return;
    }
    if (!copySelection(reserved, payload)) {
        MediafinderTrace(3, "[%s] the list's description ends early; nothing sent\n", __func__);
        m_listKind = NoListKind;
        return;
    }
    sendItemMessage();
    // UTF-8, as the last-played list is saved: a Latin-1 copy would store
    // "?" for every letter of a name outside Latin-1.
    saveLastPlayedSong(path.toUtf8().constData(), position);
    MediafinderTrace(3, "[%s] Save last played song: name - %s, index - %d\n", __func__, qPrintable(path),
                     position);
}

bool MP_MediafinderClient::copySelection(QDataStream& reserved, QDataStream& payload)
{
    if (m_listKind == GroupList) {
        qint32 groupId = 0;
        reserved >> groupId;
        if (reserved.status() != QDataStream::Ok)
            return false;
        payload << groupId;
        MediafinderTrace(3, "sending nowplaying message, user group id=%d\n", groupId);
        return true;
    }
    for (int i = 0; i < kSelectionTexts; ++i) {
        QString text;
        reserved >> text;
        if (reserved.status() != QDataStream::Ok)
            return false;
        payload << text;
        MediafinderTrace(3, "param, %s\n", qPrintable(text));
    }
    MediafinderTrace(3, "sending nowplaying message, system group\n");
    return true;
}

void MP_MediafinderClient::sendItemMessage() const
{
    QCopChannel::send(kBrowserChannel, m_listKind == GroupList ? kGroupItemMessage : kSystemItemMessage,
                      m_payload);
}

void MP_MediafinderClient::updateStatus()
{
    if (!m_aufList)
        m_listKind = NoListKind;
    MediafinderTrace(3, "m_aufType = %d\n", m_listKind);
    // The item described last is resent as it is, not described anew: the
    // browser asks what plays, and that is what was last announced.
    if (m_listKind == LibrarySelection) {
        MediafinderTrace(3, "send system list info!\n");
        sendItemMessage();
    } else if (m_listKind == GroupList) {
        MediafinderTrace(3, "send user list info!\n");
        sendItemMessage();
    }
    MediafinderTrace(3, "send state!\n");
    if (MP_PlayerControl* control = getCommonPlayer()->getPlayerControl())
        updateState(control->getState());
    else
        MediafinderTrace(3, "no playback control: no state to send\n");
}

void MP_MediafinderClient::updateMetaInfo(const QString&, const QString&, const QString&, QByteArray, bool)
{
    MediafinderTrace(3, "Enter MP_MediafinderClient::updateMetaInfo\n");
    m_savePending = true;
    MediafinderTrace(3, "Exit MP_MediafinderClient::updateMetaInfo\n");
}

void MP_MediafinderClient::updateTime(int, int)
{
    MediafinderTrace(3, "\nEnter MP_MediafinderClient::updateTime\n");
    if (!m_savePending) {
        MediafinderTrace(3, "\na_enbaleSaveFlag is false. Return and not save to DB\n");
        return;
    }
    MediafinderTrace(3, "\na_enbaleSaveFlag is true. Will save to DB\n");
    m_savePending = false;
    if (m_aufList && !m_aufList->isVideoList())
        addToHistory();
    MediafinderTrace(3, "\nExit MP_MediafinderClient::updateTime\n");
}

void MP_MediafinderClient::addToHistory()
{
    // The engine's list, not m_aufList: the song that reported its time is
    // the engine's current one. Without a list the engine plays a single
    // file, which the history does not take.
    MP_ListInterface* const playing = getCommonPlayer()->getCurrentList();
    if (!playing)
        return;
    MP_RecentList* const history = MP_RecentList::getRecentList(MP_CONTENT_SOUND);
    MediafinderTrace(3, "\nGoing to execute addItem()\n");
    history->addItem(playing->getCurrent());
    MediafinderTrace(3, "\nhas executed addItem()\n");
    // While the history itself plays, writing to it would reorder the list
    // under the engine; the entries wait until the list is released.
    if (m_aufList->isHistoryList())
        return;
    MediafinderTrace(3, "\nGoing to execute saveToDB()\n");
    history->saveToDB();
    MediafinderTrace(3, "\nhas executed saveToDB()\n");
}
