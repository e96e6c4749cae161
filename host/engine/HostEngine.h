#pragma once
// The host playback engine: what the phone's common-player library does for
// the media player. It plays the current item of the list it is given (or a
// single file), reading title, artist, album and duration with TagLib,
// reports to its listeners (HostEngineReporter), and at the end of an item
// steps the list, reporting state 8 (finished) at its end.
// The item plays through an output (HostEngineOutput, chosen by
// HostOutputChoice): the media output decodes it and is heard, its position
// is the engine's time and its duration, once the decoder knows it, the
// item's; the clock output decodes nothing and takes its time from
// HostEngineClock (real time, or manual for tests). The state machine, the
// reports and the journal are the same for both.
//
// Each load reports the meta information and the time (0, total); time is
// then reported at every whole second of media time, up to and including
// the total. A stream (http://, rtsp://) also reports connection status 3
// (connecting) before and buffering 100 after those; its total is 0 and it
// never ends by itself. A file that does not exist reports state 7 instead;
// so does a file the decoder cannot play, once it says so (its message goes
// to the trace), and a playing list then moves on to its next item.
//
// Journal: every operation of the engine interface is written as
// {"kind":"engine","call":<operation>,"args":[...]} with the arguments in
// signature order; a list appears as "list", a listener as "listener", a
// null pointer as null. The queries (getMainWidget, getContentType,
// isPlayerShown, getCurrentPath, getPlayerControl, getCurrentList,
// getMediumType) are not journaled. The content-type signal is journaled as
// {"kind":"report","call":"signalContentTypeChanged","args":[type]}.
//
// The engine must not be destroyed from inside one of its own reports.

#include <QJsonArray>

#include <memory>
#include <vector>

#include "host/engine/HostEngineConsole.h"
#include "host/engine/HostEngineOutput.h"
#include "host/engine/HostEngineOutputListener.h"
#include "host/engine/HostEngineReporter.h"
#include "host/engine/HostMediaInfo.h"
#include "host/engine/HostPlayerControl.h"
#include "host/engine/HostPlayerView.h"
#include "platform/MP_CommonPlayer.h"

class HostEngine final : public MP_CommonPlayer, private HostEngineOutputListener {
    Q_OBJECT
public:
    /** A new engine, stopped, without media; the newest live engine from now on. */
    HostEngine(bool playerFlag, MP_LAUNCH_TYPE launchType);
    ~HostEngine() override;

    /** Loads @p path as a single file and shows the player screen; keeps playing
     *  if it was. A list played until then is dropped and reported as
     *  updateListInfo(null). */
    void setFile(const QString& path) override;
    /** Walks @p list (not owned) from its current item and shows the player
     *  screen; null stops and forgets the list (the screen stays as it is). */
    void setPlayList(MP_ListInterface* list) override;
    void showPlayer() override;
    void closePlayerWindow() override;
    /** Always 0: the host engine leaves the flip to the main window. */
    int flipClosed() override;
    /** Starts playing; @p slideShow is only recorded. */
    void autoPlay(bool slideShow) override;
    /** Loads the list's current item, keeping on playing if it was. */
    void notifyCurrentChanged() override;
    /** The player screen, owned by the engine. */
    VmKbMainWidget* getMainWidget() override;
    /** Records the flags; the list itself shuffles and wraps. */
    void setShuffleRepeat(bool shuffle, bool repeat) override;
    MP_CONTENT_TYPE getContentType() override;
    bool isPlayerShown() override;
    void setNormalSize(bool normal) override;
    QString getCurrentPath() override;
    /** Never null. */
    MP_PlayerControl* getPlayerControl() override;
    MP_ListInterface* getCurrentList() override;
    int getMediumType() override;
    void addListListener(MP_ListListener* listener) override;
    void removeListListener(MP_ListListener* listener) override;
    void addPlayerListener(MP_PlayerListener* listener) override;
    void removePlayerListener(MP_PlayerListener* listener) override;

    // Host side: for the application's script commands and for tests.

    /** The most recently created engine still alive; null when there is none. */
    static HostEngine* liveEngine();
    /** Whether the engine is stepping past items of its list that cannot be loaded
     *  and goes on at a later turn of the event loop: its error state is not its
     *  last word yet. */
    bool isSteppingPastFailures() const { return m_pendingSettleRun == m_settleRun; }
    /** Prints what is played, each state change and the time to standard error (off by default). */
    static void setConsoleOutput(bool enabled);
    static bool consoleOutput();

    /** Forces the medium type (2 progressive download, 3 transfer session) of the current
     *  and every later item; a negative value returns to taking it from the path. Journaled.
     *  The list information is reported again to every list listener. */
    void setMediumType(int type);
    /** The engine is now in @p state and reports it to every player listener, even
     *  when it was in it already (a script's stand-in for what a real engine meets). */
    void reportState(MP_PLAYER_STATE state);
    /** Reports download progress of the current item to the player listeners. */
    void reportDownloadProgress(int progress, int value);
    /** Reports that the download of the current item finished. */
    void reportDownloadComplete();
    /** A setup key (shuffle 0x4002, repeat 0x4003, toggle 0x4006, ...) of the
     *  player screen went down or up: emits SetupKeyEvent(code, pressed).
     *  Before the shuffle key's release is reported, the next music shuffle
     *  mode is stored (off becomes songs, songs or albums become off): the
     *  window applies the stored mode.
     *  Journaled as {"kind":"report","call":"SetupKeyEvent","args":[code,pressed]}. */
    void pressSetupKey(int code, bool pressed);
    /** The clear key of the player screen: emits clearKeyClicked(). Journaled
     *  as {"kind":"report","call":"clearKeyClicked","args":[]}. */
    void pressClearKey();

    HostPlayerControl& control() { return m_control; }
    bool playerFlag() const { return m_playerFlag; }
    MP_LAUNCH_TYPE launchType() const { return m_launchType; }
    bool shuffle() const { return m_shuffle; }
    bool repeat() const { return m_repeat; }
    bool normalSize() const { return m_normalSize; }
    bool slideShow() const { return m_slideShow; }
    /** What the current item plays through. */
    const HostEngineOutput& output() const { return *m_output; }
    /** Position in the current item, in milliseconds. */
    int position() const { return m_position; }
    /** Duration of the current item in milliseconds; 0 for a stream or without media. */
    int duration() const { return m_loaded ? m_media.duration : 0; }

    /** Position from which previous() restarts the item instead of stepping back. */
    static constexpr int kRestartThreshold = 3000;
    /** Connection status reported when a stream starts: connecting. */
    static constexpr int kConnecting = 3;

private:
    friend class HostPlayerControl;
    friend class HostEngineClock;

    static const std::vector<HostEngine*>& liveEngines();
    static bool isLive(const HostEngine* engine);

    // Time (HostEngineClock and the output).
    void clockAdvanced(int milliseconds);
    void clockModeChanged();
    void outputTimePassed(int milliseconds) override;
    void outputPositionReached(int position) override;
    void outputDurationFound(int duration) override;
    void outputEndReached() override;
    void outputFailed(const QString& message) override;
    void moveTimeTo(qint64 target);
    void switchOutput();

    // Playback (HostPlayerControl).
    void startPlayback();
    void pausePlayback();
    void stopPlayback();
    void stepForward();
    void stepBack();
    void seekBy(int offset);
    void jumpTo(int position);
    void applyVolume();
    void reportEverythingTo(MP_PlayerListener* listener);

    /** Shows the player screen in front. */
    void bringUpScreen();

    // Loading and stepping.
    bool loadMedia(const QString& path);
    void forgetMedia();
    /** Loads the list's current item, stepping past those that cannot be loaded;
     *  @p failuresBefore of them were stepped past already in this run. */
    void settleOnListCurrent(bool keepPlaying, unsigned int failuresBefore = 0);
    void settleLater(MP_ListInterface* list, unsigned int failures);
    void stepList(int steps, bool keepPlaying);
    void finishItem();
    void moveOnAfterFailure();
    bool isStream() const { return m_loaded && m_media.duration == 0; }
    int mediumOf(const QString& path) const;

    // Reports, with the player screen and the console following them.
    void setState(MP_PLAYER_STATE state);
    void announceState();
    void announceError();
    void announceTime();
    void announceMedia();
    void announceListInfo();
    void announceContentType();

    void journalCall(const char* call, const QJsonArray& args = {}) const;

    const bool m_playerFlag;
    const MP_LAUNCH_TYPE m_launchType;

    MP_ListInterface* m_list = nullptr; // not owned; the main window deletes it after the engine
    QString m_path;                     // null without media
    HostMediaInfo m_media;
    bool m_loaded = false; // the current media could be loaded
    int m_medium = MP_MEDIUM_LOCAL;
    int m_mediumOverride = -1;
    int m_position = 0;
    MP_PLAYER_STATE m_state = MP_STATE_NONE;
    QString m_errorDetail;
    QString m_errorMessage;

    bool m_shuffle = false;
    bool m_repeat = false;
    bool m_normalSize = true;
    bool m_slideShow = false;

    HostEngineReporter m_reporter;
    HostPlayerControl m_control;
    // The view's labels belong to the widget, so the view goes first.
    std::unique_ptr<VmKbMainWidget> m_mainWidget;
    HostPlayerView m_view;
    HostEngineConsole m_console;
    // Goes before the screen it draws on.
    std::unique_ptr<HostEngineOutput> m_output;
    // Items in a row the decoder refused while a list played; a list of them
    // all ends in state 8 instead of going round for ever.
    unsigned int m_failuresInRow = 0;
    // Items that cannot be loaded (files that are gone) stepped past in one
    // go; the rest of a run of them waits for a later turn of the event loop,
    // so that keys, other programs and a termination are heard meanwhile.
    static constexpr unsigned int kFailuresInOneGo = 64;
    // Counts the runs of settleOnListCurrent: a run put off to a later turn
    // goes on only if no other began meanwhile.
    quint64 m_settleRun = 0;
    quint64 m_pendingSettleRun = ~quint64(0);   // the run put off, if any
};
