#include "host/engine/HostEngine.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <climits>
#include <unistd.h>

#include "host/engine/HostEngineClock.h"
#include "host/engine/HostOutputChoice.h"
#include "host/platform/HostJournal.h"
#include "lists/MP_ListInterface.h"
#include "platform/MP_Utility.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/TraceLog.h"
#include "platform/VmKbMainWidget.h"

Q_LOGGING_CATEGORY(lcEngine, "mp.host.engine", QtInfoMsg)
MP_DEFINE_TRACE(trace, "HostEngine")

namespace {

// Every engine alive, in creation order.
std::vector<HostEngine*>& registry()
{
    static std::vector<HostEngine*> engines;
    return engines;
}

bool consoleEnabled = false;

// The player screen's shuffle key and where the player keeps its music shuffle mode.
const int kShuffleSetupKey = 0x4002;
const int kPlayerSettingsApp = 71;
const QString kSettingsGroup = QStringLiteral("MediaControlItem");
const QString kMusicShuffleKey = QStringLiteral("MusicShuffle");

QJsonValue listTag(const MP_ListInterface* list)
{
    return HostEngineReporter::journalTag(list, QStringLiteral("list"));
}

QJsonValue listenerTag(const void* listener)
{
    return HostEngineReporter::journalTag(listener, QStringLiteral("listener"));
}

} // namespace

HostEngine::HostEngine(bool playerFlag, MP_LAUNCH_TYPE launchType)
    : m_playerFlag(playerFlag)
    , m_launchType(launchType)
    , m_control(*this)
    , m_mainWidget(std::make_unique<VmKbMainWidget>())
    , m_view(*m_mainWidget->contentArea())
    , m_console(stderr, isatty(fileno(stderr)) != 0)
    , m_output(HostOutputChoice::create(*this, *m_mainWidget->contentArea()))
{
    m_mainWidget->setWindowTitle(QStringLiteral("Media Player"));
    trace(3, "HostEngine: playing through the %s output\n", m_output->name());
    registry().push_back(this);
}

HostEngine::~HostEngine()
{
    // The output stops first, so that nothing it says reaches a listener.
    m_output.reset();
    m_reporter.clear();
    auto& engines = registry();
    engines.erase(std::remove(engines.begin(), engines.end(), this), engines.end());
}

// --- The engine interface -------------------------------------------------

void HostEngine::setFile(const QString& path)
{
    journalCall("setFile", {path});
    bringUpScreen();
    const bool keepPlaying = m_state == MP_STATE_PLAYING;
    if (m_list) {
        m_list = nullptr;
        announceListInfo();
    }
    if (loadMedia(path))
        setState(keepPlaying ? MP_STATE_PLAYING : MP_STATE_STOPPED);
    else
        announceError();
}

void HostEngine::setPlayList(MP_ListInterface* list)
{
    journalCall("setPlayList", {listTag(list)});
    const bool keepPlaying = m_state == MP_STATE_PLAYING;
    m_list = list;
    if (!list)
        forgetMedia();
    else
        bringUpScreen();
    announceListInfo();
    if (!list)
        setState(MP_STATE_STOPPED);
    else if (m_list == list)
        settleOnListCurrent(keepPlaying);
}

void HostEngine::showPlayer()
{
    journalCall("showPlayer");
    bringUpScreen();
}

// A phone's player screen comes up when it is given something to play: the
// library asks for it only when the player is already running (a second list,
// the launcher), so the first launch relies on this. Not journaled: it is the
// engine's own doing, not a call of the library.
void HostEngine::bringUpScreen()
{
    m_mainWidget->show();
    // Without a screen there is nothing to be in front of, and the offscreen
    // platform says so on standard error, which a headless run keeps for the
    // person's messages.
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal"))
        return;
    m_mainWidget->raise();
    m_mainWidget->activateWindow();
}

void HostEngine::closePlayerWindow()
{
    journalCall("closePlayerWindow");
    m_mainWidget->hide();
}

int HostEngine::flipClosed()
{
    journalCall("flipClosed");
    return 0;
}

void HostEngine::autoPlay(bool slideShow)
{
    journalCall("autoPlay", {slideShow});
    m_slideShow = slideShow;
    startPlayback();
}

void HostEngine::notifyCurrentChanged()
{
    journalCall("notifyCurrentChanged");
    MP_ListInterface* const list = m_list;
    if (!list)
        return;
    const bool keepPlaying = m_state == MP_STATE_PLAYING;
    announceListInfo();
    if (m_list == list)
        settleOnListCurrent(keepPlaying);
}

VmKbMainWidget* HostEngine::getMainWidget()
{
    return m_mainWidget.get();
}

void HostEngine::setShuffleRepeat(bool shuffle, bool repeat)
{
    journalCall("setShuffleRepeat", {shuffle, repeat});
    m_shuffle = shuffle;
    m_repeat = repeat;
}

MP_CONTENT_TYPE HostEngine::getContentType()
{
    return m_media.contentType;
}

bool HostEngine::isPlayerShown()
{
    return m_mainWidget->isVisible();
}

void HostEngine::setNormalSize(bool normal)
{
    journalCall("setNormalSize", {normal});
    m_normalSize = normal;
    m_output->setNormalSize(normal);
}

QString HostEngine::getCurrentPath()
{
    return m_path;
}

MP_PlayerControl* HostEngine::getPlayerControl()
{
    return &m_control;
}

MP_ListInterface* HostEngine::getCurrentList()
{
    return m_list;
}

int HostEngine::getMediumType()
{
    return m_medium;
}

void HostEngine::addListListener(MP_ListListener* listener)
{
    journalCall("addListListener", {listenerTag(listener)});
    m_reporter.addListListener(listener);
}

void HostEngine::removeListListener(MP_ListListener* listener)
{
    journalCall("removeListListener", {listenerTag(listener)});
    m_reporter.removeListListener(listener);
}

void HostEngine::addPlayerListener(MP_PlayerListener* listener)
{
    journalCall("addPlayerListener", {listenerTag(listener)});
    m_reporter.addPlayerListener(listener);
}

void HostEngine::removePlayerListener(MP_PlayerListener* listener)
{
    journalCall("removePlayerListener", {listenerTag(listener)});
    m_reporter.removePlayerListener(listener);
}

// --- Host side ------------------------------------------------------------

HostEngine* HostEngine::liveEngine()
{
    const auto& engines = registry();
    return engines.empty() ? nullptr : engines.back();
}

void HostEngine::setConsoleOutput(bool enabled)
{
    consoleEnabled = enabled;
}

bool HostEngine::consoleOutput()
{
    return consoleEnabled;
}

void HostEngine::setMediumType(int type)
{
    journalCall("setMediumType", {type});
    m_mediumOverride = type >= 0 ? type : -1;
    m_medium = mediumOf(m_path);
    // What plays changed kind: listeners that choose a screen by the medium
    // (the player screen's menus, a transfer session) learn it as they would
    // from a new item.
    announceListInfo();
}

void HostEngine::reportState(MP_PLAYER_STATE state)
{
    m_state = state;
    announceState();
}

void HostEngine::reportDownloadProgress(int progress, int value)
{
    m_reporter.reportDownloadProgress(progress, value);
}

void HostEngine::reportDownloadComplete()
{
    m_reporter.reportDownloadComplete();
}

const std::vector<HostEngine*>& HostEngine::liveEngines()
{
    return registry();
}

bool HostEngine::isLive(const HostEngine* engine)
{
    const auto& engines = registry();
    return std::find(engines.begin(), engines.end(), engine) != engines.end();
}

// --- Time -----------------------------------------------------------------

void HostEngine::clockAdvanced(int milliseconds)
{
    m_output->manualTimePassed(milliseconds);
}

void HostEngine::clockModeChanged()
{
    const bool mediaWanted = HostOutputChoice::effectiveKind() == HostOutputKind::Media;
    const bool mediaNow = qstrcmp(m_output->name(), "media") == 0;
    if (mediaWanted != mediaNow)
        switchOutput();
    else
        m_output->clockModeChanged();
}

// The clock changed mode under a live engine: the other output takes over
// the current item where it is.
void HostEngine::switchOutput()
{
    m_output.reset();
    m_output = HostOutputChoice::create(*this, *m_mainWidget->contentArea());
    trace(3, "HostEngine: playing through the %s output\n", m_output->name());
    m_output->setNormalSize(m_normalSize);
    applyVolume();
    m_output->setPlaying(m_state == MP_STATE_PLAYING);
    if (m_loaded) {
        m_output->load(m_path, m_media.contentType);
        m_output->setPosition(m_position);
    }
}

void HostEngine::outputTimePassed(int milliseconds)
{
    qint64 left = milliseconds;
    while (left > 0 && m_state == MP_STATE_PLAYING) {
        if (isStream()) {
            moveTimeTo(m_position + left);
            return;
        }
        const int untilEnd = std::max(0, m_media.duration - m_position);
        if (left < untilEnd) {
            moveTimeTo(m_position + left);
            return;
        }
        moveTimeTo(m_media.duration);
        left -= untilEnd;
        // A listener may have paused, sought or loaded during the reports.
        if (m_state == MP_STATE_PLAYING && m_position >= m_media.duration)
            finishItem();
    }
}

void HostEngine::outputPositionReached(int position)
{
    if (m_state != MP_STATE_PLAYING || !m_loaded)
        return;
    if (position > 0)
        m_failuresInRow = 0;
    const int target = isStream() ? position : std::min(position, m_media.duration);
    // The engine made every backward move itself and reported it; an older
    // position the decoder still had on its way is no news.
    if (target > m_position)
        moveTimeTo(target);
}

// The decoder's duration is the item's from now on; TagLib's stood in for
// the first report.
void HostEngine::outputDurationFound(int duration)
{
    if (m_loaded && !isStream())
        m_media.duration = duration;
}

void HostEngine::outputEndReached()
{
    if (m_state != MP_STATE_PLAYING || !m_loaded)
        return;
    if (isStream()) {
        finishItem();
        return;
    }
    moveTimeTo(m_media.duration);
    // A listener may have paused, sought or loaded during the reports.
    if (m_state == MP_STATE_PLAYING && m_position >= m_media.duration)
        finishItem();
}

void HostEngine::outputFailed(const QString& message)
{
    if (!m_loaded)
        return;
    trace(1, "HostEngine: %s cannot be played: %s\n", qPrintable(m_path), qPrintable(message));
    const bool keepPlaying = m_state == MP_STATE_PLAYING;
    m_loaded = false;
    m_errorDetail = message;
    m_errorMessage = QStringLiteral("%1 cannot be played.").arg(HostMediaInfo::displayName(m_path));
    announceError();
    if (keepPlaying && m_list)
        moveOnAfterFailure();
}

// Reports every whole second passed on the way to @p target.
void HostEngine::moveTimeTo(qint64 target)
{
    target = std::min<qint64>(target, INT_MAX);
    for (qint64 second = (m_position / 1000 + 1) * qint64(1000); second <= target; second += 1000) {
        m_position = int(second);
        announceTime();
        if (m_state != MP_STATE_PLAYING || m_position != second)
            return;
    }
    m_position = int(target);
}

// --- Playback -------------------------------------------------------------

void HostEngine::startPlayback()
{
    if (m_state == MP_STATE_PLAYING)
        return;
    const bool resumable = m_state == MP_STATE_PAUSED
        || (m_state == MP_STATE_STOPPED && m_loaded && (!m_list || m_list->getCurrent() == m_path));
    if (resumable) {
        setState(MP_STATE_PLAYING);
    } else if (m_list) {
        settleOnListCurrent(true);
    } else if (!m_path.isNull()) {
        // A finished or failed single file starts again from its beginning.
        if (loadMedia(m_path))
            setState(MP_STATE_PLAYING);
        else
            announceError();
    }
}

void HostEngine::pausePlayback()
{
    if (m_state == MP_STATE_PLAYING)
        setState(MP_STATE_PAUSED);
}

void HostEngine::stopPlayback()
{
    jumpTo(0);
    setState(MP_STATE_STOPPED);
    if (m_loaded)
        announceTime();
}

void HostEngine::stepForward()
{
    if (m_list && m_list->hasNext())
        stepList(1, m_state == MP_STATE_PLAYING);
}

void HostEngine::stepBack()
{
    const bool restart = m_position >= kRestartThreshold || !m_list || !m_list->hasPrevious();
    if (!restart) {
        stepList(-1, m_state == MP_STATE_PLAYING);
    } else if (m_loaded) {
        jumpTo(0);
        announceTime();
    }
}

void HostEngine::seekBy(int offset)
{
    if (!m_loaded || isStream())
        return;
    jumpTo(int(std::clamp<qint64>(qint64(m_position) + offset, 0, m_media.duration)));
    announceTime();
}

void HostEngine::jumpTo(int position)
{
    m_position = position;
    m_output->setPosition(position);
}

// Full volume until the playback control is given a level.
void HostEngine::applyVolume()
{
    const int level = m_control.volumeSet() ? m_control.volume() : HostEngineOutput::kFullVolumeLevel;
    m_output->setVolume(level, m_control.isMuted());
}

void HostEngine::reportEverythingTo(MP_PlayerListener* listener)
{
    if (m_loaded) {
        m_reporter.reportMetaInfo(m_media.title, m_media.artist, m_media.album, m_medium == MP_MEDIUM_LOCAL,
                                  listener);
        m_reporter.reportTime(m_position, m_media.duration, listener);
    }
    m_reporter.reportState(m_state, listener);
}

// --- Loading and stepping -------------------------------------------------

// Makes @p path the current media and reports it. False when it cannot be
// played; the error texts are then set and nothing but the content type
// (which the name tells) has been reported.
bool HostEngine::loadMedia(const QString& path)
{
    m_path = path;
    m_position = 0;
    m_media = HostMediaInfo::read(path);
    m_medium = mediumOf(path);
    m_loaded = m_media.playable;
    if (m_media.contentType != MP_CONTENT_UNKNOWN)
        announceContentType();
    if (!m_loaded) {
        m_output->unload();
        m_errorDetail = QStringLiteral("file not found");
        m_errorMessage = QStringLiteral("%1 cannot be played.").arg(HostMediaInfo::displayName(path));
        m_view.clearMedia();
        m_view.showMedia(m_media.title, QString(), QString());
        return false;
    }
    m_output->load(path, m_media.contentType);
    if (isStream())
        m_reporter.reportConnectionStatus(kConnecting);
    announceMedia();
    announceTime();
    if (isStream())
        m_reporter.reportBuffering(100);
    return true;
}

void HostEngine::forgetMedia()
{
    m_path = QString();
    m_media = HostMediaInfo();
    m_loaded = false;
    m_position = 0;
    m_medium = mediumOf(m_path);
    m_output->unload();
    m_view.clearMedia();
}

// Loads the list's current item; playing (keepPlaying), steps past items
// that cannot be played, each at most once, so that a list of missing files
// ends in state 8 instead of going round for ever.
void HostEngine::settleOnListCurrent(bool keepPlaying, unsigned int failuresBefore)
{
    MP_ListInterface* const list = m_list;
    ++m_settleRun;
    const unsigned int itemCount = list->count();
    for (unsigned int failures = failuresBefore;;) {
        const QString path = itemCount == 0 ? QString() : list->getCurrent();
        if (path.isEmpty()) {
            forgetMedia();
            setState(MP_STATE_FINISHED);
            return;
        }
        if (loadMedia(path)) {
            setState(keepPlaying ? MP_STATE_PLAYING : MP_STATE_STOPPED);
            return;
        }
        announceError();
        if (!keepPlaying || m_list != list)
            return;
        if (++failures >= itemCount || !list->hasNext()) {
            setState(MP_STATE_FINISHED);
            return;
        }
        list->skipSteps(1);
        announceListInfo();
        if (m_list != list)
            return;
        if ((failures - failuresBefore) % kFailuresInOneGo == 0) {
            settleLater(list, failures);
            return;
        }
    }
}

void HostEngine::settleLater(MP_ListInterface* list, unsigned int failures)
{
    const quint64 run = m_settleRun;
    m_pendingSettleRun = run;
    QTimer::singleShot(0, this, [this, list, failures, run] {
        // A run begun meanwhile may have put off a part of its own: that one
        // is still to come.
        if (m_pendingSettleRun == run)
            m_pendingSettleRun = ~quint64(0);
        // Anything done to the engine meanwhile (a key, another list, a stop)
        // ends the run: it settled anew, or left the error state.
        if (m_settleRun == run && m_list == list && m_state == MP_STATE_ERROR)
            settleOnListCurrent(true, failures);
    });
}

void HostEngine::stepList(int steps, bool keepPlaying)
{
    MP_ListInterface* const list = m_list;
    list->skipSteps(steps);
    announceListInfo();
    // A list listener may have replaced the list meanwhile.
    if (m_list == list)
        settleOnListCurrent(keepPlaying);
}

void HostEngine::finishItem()
{
    if (m_list && m_list->hasNext())
        stepList(1, true);
    else
        setState(MP_STATE_FINISHED);
}

// The decoder refused the playing list's item after it was loaded: on to the
// next, as settleOnListCurrent does for an item that cannot be loaded.
void HostEngine::moveOnAfterFailure()
{
    if (++m_failuresInRow >= m_list->count() || !m_list->hasNext()) {
        m_failuresInRow = 0;
        setState(MP_STATE_FINISHED);
        return;
    }
    stepList(1, true);
}

int HostEngine::mediumOf(const QString& path) const
{
    if (m_mediumOverride >= 0)
        return m_mediumOverride;
    return path.isNull() ? int(MP_MEDIUM_LOCAL) : MP_Utility::getMediumType(path);
}

// --- Reports --------------------------------------------------------------

void HostEngine::setState(MP_PLAYER_STATE state)
{
    if (state == m_state)
        return;
    m_state = state;
    announceState();
}

// Each item that cannot be played is an error of its own, reported even
// when the previous item failed too.
void HostEngine::announceError()
{
    m_state = MP_STATE_ERROR;
    announceState();
}

void HostEngine::announceState()
{
    qCDebug(lcEngine) << "state" << int(m_state) << m_path;
    m_output->setPlaying(m_state == MP_STATE_PLAYING);
    m_view.showState(m_state);
    if (consoleEnabled)
        m_console.stateChanged(m_state, m_errorMessage, m_position, duration());
    m_reporter.reportState(m_state);
}

void HostEngine::announceTime()
{
    m_view.showTime(m_position, m_media.duration);
    if (consoleEnabled)
        m_console.timeChanged(m_position, m_media.duration);
    m_reporter.reportTime(m_position, m_media.duration);
}

void HostEngine::announceMedia()
{
    m_view.showMedia(m_media.title, m_media.artist, m_media.album);
    if (consoleEnabled)
        m_console.mediaLoaded(m_media.title, m_media.artist, m_media.album, m_path, m_position,
                              m_media.duration);
    m_reporter.reportMetaInfo(m_media.title, m_media.artist, m_media.album, m_medium == MP_MEDIUM_LOCAL);
}

void HostEngine::announceListInfo()
{
    m_reporter.reportListInfo(m_list);
}

void HostEngine::announceContentType()
{
    HostJournal::call(QStringLiteral("report"), QStringLiteral("signalContentTypeChanged"),
                      {int(m_media.contentType)});
    emit signalContentTypeChanged(m_media.contentType);
}

void HostEngine::pressSetupKey(int code, bool pressed)
{
    // The window applies the stored shuffle mode when the key comes up; the
    // engine, which owns the key, chooses the new mode and stores it first:
    // off becomes shuffled songs, any shuffle (songs or albums) becomes off.
    // Shuffled albums are chosen in the setup screen, not with the key. A
    // stored mode the player does not know is off to the window, so the key
    // turns it into shuffled songs.
    if (code == kShuffleSetupKey && !pressed) {
        SETUP_SET_Manager settings(kPlayerSettingsApp, false);
        int mode = 0;
        settings.getSettingInfo(kSettingsGroup, kMusicShuffleKey, mode, 0);
        const bool isShuffled = mode == 1 || mode == 2;
        settings.setSettingInfo(kSettingsGroup, kMusicShuffleKey, isShuffled ? 0 : 1);
    }
    HostJournal::call(QStringLiteral("report"), QStringLiteral("SetupKeyEvent"), {code, pressed});
    emit SetupKeyEvent(code, pressed);
}

void HostEngine::pressClearKey()
{
    HostJournal::call(QStringLiteral("report"), QStringLiteral("clearKeyClicked"), {});
    emit clearKeyClicked();
}

void HostEngine::journalCall(const char* call, const QJsonArray& args) const
{
    HostJournal::call(QStringLiteral("engine"), QString::fromLatin1(call), args);
}
