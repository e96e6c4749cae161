#include "clients/MP_CLIClient.h"

#include <algorithm>
#include <climits>

#include "lists/MP_ListInterface.h"
#include "platform/AM_Action.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/MP_Utility.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/TextResources.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(CLIClientTrace, "MP_CLIClient")

namespace {

const QString kSettingsGroup = QStringLiteral("MediaControlItem");
const QString kVolumeKey = QStringLiteral("VolumeLevel");
const int kDefaultVolumeLevel = 5;

// The display's own numbering of the player states.
const unsigned char kDisplayStopped = 1;
const unsigned char kDisplayPlaying = 2;
const unsigned char kDisplayPaused = 3;

const int kConnectionFailed = 2;
const int kConnecting = 3;

int storedVolumeLevel()
{
    int level = kDefaultVolumeLevel;
    SETUP_SET_Manager(AM_Global::MediaPlayer, true).getSettingInfo(kSettingsGroup, kVolumeKey, level,
                                                                   kDefaultVolumeLevel);
    // The display takes a level in one byte: a stored level outside it (a
    // settings file edited by hand) is held to the nearest one rather than
    // wrapped (-5 would show as 251) and later stored back as it was.
    return std::clamp(level, 0, int(UCHAR_MAX));
}

} // namespace

MP_CLIClient::MP_CLIClient(MP_CommonPlayer* player)
    : MP_AbstractClient(player), m_display(std::make_unique<CLI::MediaPlayerClient>(this)),
      m_unmutedLevel(kDefaultVolumeLevel)
{
    m_display->beginSession();
    connectDisplayCommands();
    showStoredVolume();
    refreshFromEngine();
    CLIClientTrace(3, "exit MP_CLIClient::MP_CLIClient\n");
}

MP_CLIClient::~MP_CLIClient()
{
    m_display->endSession();
    m_display.reset();
}

void MP_CLIClient::connectDisplayCommands()
{
    CLI::MediaPlayerClient* display = m_display.get();
    connect(display, &CLI::MediaPlayerClient::exit, this, &MP_CLIClient::quitApp);
    connect(display, &CLI::MediaPlayerClient::stop, this, &MP_CLIClient::onStop);
    connect(display, &CLI::MediaPlayerClient::shift, this, &MP_CLIClient::onSeek);
    connect(display, &CLI::MediaPlayerClient::shiftFinished, this, &MP_CLIClient::onSeekFinished);
    // The display has a key for each, but the engine only toggles.
    connect(display, &CLI::MediaPlayerClient::pause, this, &MP_CLIClient::onPlayPause);
    connect(display, &CLI::MediaPlayerClient::play, this, &MP_CLIClient::onPlayPause);
    connect(display, &CLI::MediaPlayerClient::next, this, &MP_CLIClient::onNext);
    connect(display, &CLI::MediaPlayerClient::previous, this, &MP_CLIClient::onPrevious);
    connect(display, &CLI::MediaPlayerClient::setMute, this, &MP_CLIClient::onSetMuteSignal);
    connect(display, &CLI::MediaPlayerClient::setVolume, this, &MP_CLIClient::onSetVolumeSignal);
}

void MP_CLIClient::showStoredVolume()
{
    const int level = storedVolumeLevel();
    if (level != 0)
        m_unmutedLevel = level;
    else
        m_display->informMuteState(1);
    CLIClientTrace(3, "informVolume to CLI ,the nVolume is %d!\n", level);
    m_display->informVolume((unsigned char)level);
    CLIClientTrace(3, "refresh!\n");
}

void MP_CLIClient::refreshFromEngine()
{
    MP_ListInterface* list = getCommonPlayer()->getCurrentList();
    if (!list || list->getCurrent().isEmpty())
        return;
    updateListInfo(list);
    if (MP_PlayerControl* control = getCommonPlayer()->getPlayerControl())
        control->requestUpdate(this);
}

void MP_CLIClient::updateState(MP_PLAYER_STATE state)
{
    CLIClientTrace(3, "MP_CLIClient::updateState, mpState=%d\n", state);
    switch (state) {
    case MP_STATE_PLAYING:
        m_display->informState(kDisplayPlaying);
        break;
    case MP_STATE_PAUSED:
        m_display->informState(kDisplayPaused);
        break;
    case MP_STATE_STOPPED:
        m_display->informState(kDisplayStopped);
        break;
    case MP_STATE_ERROR:
        if (MP_PlayerControl* control = getCommonPlayer()->getPlayerControl()) {
            QString detail;
            QString message;
            control->getErrorInfo(detail, message);
            CLIClientTrace(3, "errorMsg=%s\n", qPrintable(message));
            m_display->informMessage(message);
        }
        break;
    default:
        // Finished and the engine's other states have no place on the display.
        break;
    }
}

void MP_CLIClient::updateTime(int elapsed, int total)
{
    m_display->informPosition(unsigned(elapsed), 0);
    m_display->informTotalDuration(unsigned(total));
}

void MP_CLIClient::updateBuffering(int percent)
{
    m_display->informBufferingPercentage((unsigned short)percent);
}

void MP_CLIClient::updateDownloadProgress(int progress, int)
{
    m_display->informDownloadProgress(unsigned(progress));
}

void MP_CLIClient::updateDownloadComplete() {}

void MP_CLIClient::updateMetaInfo(const QString& title, const QString& artist, const QString& album,
                                  QByteArray data, bool)
{
    CLIClientTrace(3, "MP_CLIClient::updateMetaInfo, title=%s, length=%d\n", qPrintable(title), int(title.length()));
    StaticStreamInfo info;
    info.title = title;
    info.artist = artist;
    info.album = album;
    info.data = data;
    m_display->informStaticStreamInfo(info);
}

void MP_CLIClient::updateConnectionStatus(int status)
{
    if (status == kConnectionFailed)
        m_display->informMessage(MP_tr("TXT_RID_INSTRUCTIONALTXT_CONNECTION_TO_SERVER_HAS_FAILED",
                                       "The connection to the server has failed"));
    else if (status == kConnecting)
        m_display->informMessage(MP_tr("TXT_RID_INSTRUCTIONALTXT_CONNECTING_TO_SERVER", "Connecting to server"));
}

void MP_CLIClient::updateListInfo(MP_ListInterface* list)
{
    // The engine reports a null list when it drops its list, e.g. for a
    // single file. The display keeps what it shows: the file's own meta
    // information follows from the engine, and an empty name would be wrong
    // while a file still plays.
    if (!list)
        return;
    const QString fileName = list->getCurrent();
    CLIClientTrace(3, "enter MP_CLIClient::updateListInfo, fileName=%s\n", qPrintable(fileName));
    m_display->informFileName(fileName);
    if (MP_Utility::getMediumType(fileName) == MP_MEDIUM_LOCAL) {
        CLIClientTrace(3, "local file\n");
        m_display->informMediaType(0);
    } else {
        m_display->informMediaType(1);
    }
    CLIClientTrace(3, "exit MP_CLIClient::updateListInfo\n");
}

void MP_CLIClient::onSetMuteSignal(bool mute)
{
    onSetMute(mute);
    m_display->informMuteState(mute ? 1 : 0);
    // Level 0 is how the store says "muted", so switching mute off must
    // store a level again, or the next session would start muted. The level
    // from before mute comes back, as the engine's own volume does.
    storeVolumeLevel(mute ? 0 : m_unmutedLevel);
}

void MP_CLIClient::onSetVolumeSignal(UINT8 level)
{
    CLIClientTrace(3, "enter MP_CLIClient::onSetVolumeSignal, nVolume=%d\n", int(level));
    onSetVolume(level);
    m_display->informVolume(level);
    storeVolumeLevel(level);
    if (level != 0)
        m_unmutedLevel = level;
    CLIClientTrace(3, "exit MP_CLIClient::onSetVolumeSignal\n");
}

void MP_CLIClient::storeVolumeLevel(int level)
{
    // Opened writable: in this store the flag says read-only, and the
    // display's commands must keep the level for the next session.
    SETUP_SET_Manager(AM_Global::MediaPlayer, false).setSettingInfo(kSettingsGroup, kVolumeKey, level);
}
