// MP_MainWindow: events and controls. The flip, the end key, the phone's
// return-to-idle requests, hiding, closing and quitting the player, the
// setup keys (shuffle, repeat, toggle), the jump key, system messages
// (memory card, theme), the content-type and list reports, and the external
// display that follows the flip.

#include "mainwindow/MP_MainWindow.h"

#include <QDataStream>
#include <QEvent>
#include <QTimer>

#include "clients/HSMessageAPI.h"
#include "clients/MP_CLIClient.h"
#include "clients/MP_IdleClient.h"
#include "clients/MP_MediafinderClient.h"
#include "lists/MP_AufList.h"
#include "platform/AM_Action.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/StreamEncoding.h"
#include "platform/TraceLog.h"
#include "platform/VmKbMainWidget.h"
#include "screen/MP_WindowClient.h"

MP_DEFINE_TRACE(EventsTrace, "MP_MainWindow")

namespace {

const QString kSettingsGroup = QStringLiteral("MediaControlItem");
const QString kMusicShuffle = QStringLiteral("MusicShuffle");
const QString kMusicRepeat = QStringLiteral("MusicRepeat");
const QString kIdlePluginName = QStringLiteral("IdleMusicPlayer");
const QString kRecordingVideoAction = QStringLiteral("RecordingVideo");

// Reasons of the phone's return-to-idle request.
const int kReasonEndKey = -5000;
const int kReasonFlipClosed = -5001;
const int kReasonFlipClosedToo = -5003;

// Setup key codes.
const int kShuffleKey = 0x4002;
const int kRepeatKey = 0x4003;
const int kToggleKey = 0x4006;

// The jump key on the key-event channel, acted on when pressed (type 1).
const int kJumpKey = 0x1048;
const int kKeyPressed = 1;

// The two ints of a channel message, or false when the payload does not hold
// them: a short payload is ignored rather than read as zeros.
bool readTwoInts(const QByteArray& data, qint32* first, qint32* second)
{
    QDataStream in(data);
    MP_SetPayloadFormat(in);
    in >> *first >> *second;
    return in.status() == QDataStream::Ok;
}

} // namespace

void MP_MainWindow::onAskReturnToIdle(int reason)
{
    EventsTrace(3, "onAskReturnToIdle: reason %d\n", reason);
    // Handled after the application's callback has returned.
    if (reason == kReasonFlipClosed || reason == kReasonFlipClosedToo)
        QTimer::singleShot(1, this, SLOT(onFlipClosed()));
    else if (reason == kReasonEndKey)
        QTimer::singleShot(1, this, SLOT(onEndKeyPressed()));
}

void MP_MainWindow::onFlipClosed()
{
    EventsTrace(3, "onFlipClosed\n");
    if (m_windowClient && m_windowClient->willHide()) {
        // Nonzero: the engine has dealt with the closed flip itself.
        if (!m_commonPlayer->flipClosed())
            onHidePlayer();
        return;
    }
    onQuitApp();
}

void MP_MainWindow::onEndKeyPressed()
{
    VmKbMainWidget* mainWidget = m_commonPlayer ? m_commonPlayer->getMainWidget() : nullptr;
    if (!mainWidget)
        return;
    EventsTrace(3, "onEndKeyPressed: focus %d\n", mainWidget->hasFocus());
    if (!mainWidget->hasFocus()) {
        // The player screen is not what the user looks at: the key leaves
        // as closing the flip would.
        onFlipClosed();
        return;
    }
    // The player screen may ask first (a download would be cancelled).
    if (m_windowClient && m_windowClient->confirmQuit())
        onQuitApp();
}

void MP_MainWindow::onClosePlayer()
{
    EventsTrace(3, "onClosePlayer\n");
    if (m_commonPlayer)
        m_commonPlayer->closePlayerWindow();
}

void MP_MainWindow::onClickAppIcon()
{
    EventsTrace(3, "onClickAppIcon\n");
    if (m_commonPlayer)
        m_commonPlayer->showPlayer();
}

void MP_MainWindow::onQuitApp()
{
    EventsTrace(3, "onQuitApp: launch type %d\n", m_launchType);
    if (m_commonPlayer)
        m_commonPlayer->closePlayerWindow();
    close();
    if (m_launchType == MP_LAUNCH_CAPTURED_VIDEO)
        Q_EMIT quitApp();
}

void MP_MainWindow::onHidePlayer()
{
    if (!m_commonPlayer)
        return;
    EventsTrace(3, "onHidePlayer\n");
    m_idleClient->activePlugin();
    SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    settings.setSettingInfo(kSettingsGroup, QStringLiteral("HidePlaying"), true);
    m_commonPlayer->closePlayerWindow();
}

void MP_MainWindow::onToggleKeyQuitApp()
{
    EventsTrace(3, "onToggleKeyQuitApp: launch type %d\n", m_launchType);
    if (m_launchType == MP_LAUNCH_CAPTURED_VIDEO) {
        // Started from the recorder: going back is the recorder's own business.
        close();
        Q_EMIT quitApp();
        return;
    }
    AM_ActionData recorder;
    recorder.setAction(kRecordingVideoAction);
    recorder.invoke(false);
    close();
}

void MP_MainWindow::onSetupKeyClicked(int keyCode, bool pressed)
{
    EventsTrace(3, "onSetupKeyClicked: key 0x%x, pressed %d\n", unsigned(keyCode), pressed);
    if (pressed)
        return;
    if (keyCode == kShuffleKey)
        toggleShuffle();
    else if (keyCode == kRepeatKey)
        toggleRepeat();
    else if (keyCode == kToggleKey)
        onToggleKeyQuitApp();
}

void MP_MainWindow::toggleShuffle()
{
    if (!m_list)
        return;
    // The key's new mode is written by whoever asks for it before the key
    // arrives here: the engine for the player screen's key, the idle screen
    // (or a desktop bridge) before its shuffle request. The window applies
    // what is stored, so that all of them end up agreeing with the store.
    const SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    int mode = 0;
    bool repeat = false;
    settings.getSettingInfo(kSettingsGroup, kMusicShuffle, mode, 0);
    settings.getSettingInfo(kSettingsGroup, kMusicRepeat, repeat, false);
    // A stored mode this player does not know counts as off, as when a list
    // is made.
    const bool isKnownMode = mode == MP_AufList::ShuffleOff || mode == MP_AufList::ShuffleSongs
                             || mode == MP_AufList::ShuffleAlbums;
    if (!isKnownMode)
        mode = MP_AufList::ShuffleOff;
    EventsTrace(3, "toggleShuffle: mode %d, repeat %d\n", mode, repeat);
    onShuffleRepeat(mode, repeat);
    m_list->updateShuffle(mode);
}

void MP_MainWindow::toggleRepeat()
{
    if (!m_list)
        return;
    SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    bool repeat = false;
    settings.getSettingInfo(kSettingsGroup, kMusicRepeat, repeat, false);
    repeat = !repeat;
    settings.setSettingInfo(kSettingsGroup, kMusicRepeat, repeat);
    // Changing repeat always turns shuffle off.
    settings.setSettingInfo(kSettingsGroup, kMusicShuffle, int(MP_AufList::ShuffleOff));
    EventsTrace(3, "toggleRepeat: repeat %d\n", repeat);
    // The engine and the list get the new repeat mode, the one just stored:
    // handing on the old one would leave them disagreeing with the setting
    // until the next list is installed.
    onShuffleRepeat(MP_AufList::ShuffleOff, repeat);
    m_list->updateRepeat(repeat);
}

void MP_MainWindow::slotSystemMessage(const QCString& message, const QByteArray& data)
{
    if (message == "applyStyle()") {
        // The plug-in draws with the style it started with: restart it so
        // that it takes the new one.
        if (m_idleClient) {
            HSMessageAPI::HS_pluginDeactive(kIdlePluginName);
            HSMessageAPI::HS_pluginActive(kIdlePluginName);
        }
    } else if (message == "cardHotplugEvent(int,int)") {
        handleCardEvent(data);
    }
}

void MP_MainWindow::handleCardEvent(const QByteArray& data)
{
    qint32 card = 0;
    qint32 flag = 0;
    // The two ints only go into the trace: a payload that does not hold them
    // is still a card event, and the list may still name files that are gone.
    if (!readTwoInts(data, &card, &flag))
        EventsTrace(3, "slotSystemMessage: card event without its two ints (%d bytes)\n", int(data.size()));
    // Inserted or removed alike: the list may name files that are gone or
    // miss files that came, and the player does not rebuild it.
    EventsTrace(3, "slotSystemMessage: card event %d, flag %d: quit\n", card, flag);
    onQuitApp();
}

void MP_MainWindow::slotKeyMessage(const QCString& message, const QByteArray& data)
{
    if (message != "keyMsg(int,int)")
        return;
    qint32 key = 0;
    qint32 type = 0;
    if (!readTwoInts(data, &key, &type)) {
        EventsTrace(3, "slotKeyMessage: key message without its two ints (%d bytes), ignored\n", int(data.size()));
        return;
    }
    if (key == kJumpKey && type == kKeyPressed)
        handleJumpKey();
}

void MP_MainWindow::handleJumpKey()
{
    EventsTrace(3, "slotKeyMessage: jump key, content type %d, known %d\n", m_contentType, !m_contentTypeUnknown);
    // Before the engine has said what plays, the key waits for its first report.
    if (m_contentTypeUnknown)
        m_jumpKeyPending = true;
    else if (m_contentType == MP_CONTENT_VIDEO)
        onQuitApp();
}

void MP_MainWindow::slotContentTypeChanged(MP_CONTENT_TYPE type)
{
    m_contentType = type;
    if (m_contentTypeUnknown) {
        // A jump key pressed before the first report quits once the content
        // turns out to be video.
        if (m_jumpKeyPending && type == MP_CONTENT_VIDEO)
            onQuitApp();
        m_jumpKeyPending = false;
        m_contentTypeUnknown = false;
    }
}

void MP_MainWindow::onCurrentItemChanged()
{
    // The list the engine plays decides, not only the window's own: a host
    // may hand the engine a list of its own (a folder list), and the window
    // then has none. Judged by the window's list alone, deleting one file of
    // a folder would quit the player with the rest of the folder unplayed.
    MP_ListInterface* list = m_commonPlayer ? m_commonPlayer->getCurrentList() : nullptr;
    if (!list)
        list = m_list.get();
    if (list && list->count() != 0) {
        if (m_commonPlayer)
            m_commonPlayer->notifyCurrentChanged();
    } else {
        // Nothing left to play.
        onQuitApp();
    }
}

void MP_MainWindow::onShuffleRepeat(int shuffleMode, bool repeat)
{
    if (!m_commonPlayer)
        return;
    m_commonPlayer->setShuffleRepeat(shuffleMode != 0, repeat);
    if (m_mediafinderClient)
        m_mediafinderClient->updateListInfo(m_list.get());
}

void MP_MainWindow::onFlipStatusChanged(int status)
{
    EventsTrace(3, "onFlipStatusChanged: status %d\n", status);
    m_flipClosed = status == 1;
    MP_PlayerControl* control = m_commonPlayer ? m_commonPlayer->getPlayerControl() : nullptr;
    if (!control)
        return;
    // Stopped or finished, the display is left as it is until the next
    // flip change or engine creation.
    const MP_PLAYER_STATE state = control->getState();
    if (state != MP_STATE_STOPPED && state != MP_STATE_FINISHED)
        updateCLIClient();
}

void MP_MainWindow::updateCLIClient()
{
    if (m_flipClosed && !m_cliClient) {
        m_cliClient = std::make_unique<MP_CLIClient>(m_commonPlayer.get());
        connect(m_cliClient.get(), SIGNAL(quitApp()), this, SLOT(onQuitApp()));
    } else if (!m_flipClosed && m_cliClient) {
        disconnect(m_cliClient.get(), SIGNAL(quitApp()), this, SLOT(onQuitApp()));
        m_cliClient.reset();
    }
}

void MP_MainWindow::customEvent(QEvent* event)
{
    if (event->type() != QEvent::Type(StartupEventType))
        return;
    const AM_ActionParser parser;
    if (parser.hasAction()) {
        onReceiveAction(parser.action());
        return;
    }
    // Opened with no action and no file: play the whole music library, as a
    // launcher the player does not know gets. A player that opened onto
    // nothing would leave the user with an empty screen and no way to choose.
    // A list installed meanwhile by an action record is left alone.
    EventsTrace(3, "customEvent: no launch action\n");
    if (!m_list)
        handleLauncherRequest(QString());
}
