#pragma once
// The player's controller: an invisible widget that owns the playback engine,
// the current play list and the last-played record, and turns launch
// requests (action records, the launch action, a passed or opened file, the
// captured-video entry point) and the list's change signals into calls on
// them. Created and destroyed only through the library's exported entry
// points.
//
// Its clients mirror the player in the media browser, on the player screen,
// on the idle screen and (while the flip is closed) on the external display;
// the Bluetooth client takes a headset's keys. The window's reactions to keys,
// the flip, the end key, system messages and the clients' requests are in
// MP_MainWindowEvents.cpp.

#include <QString>
#include <QWidget>

#include <memory>

#include "platform/MP_CommonPlayer.h"
#include "platform/MP_PlayerTypes.h"
#include "platform/Metadata.h"
#include "platform/Qt2Compat.h"

class AM_ActionData;
class MP_AufList;
class MP_BluetoothClient;
class MP_CLIClient;
class MP_MediafinderClient;
class MP_IdleClient;
class MP_WindowClient;
class QCopChannel;

class MP_MainWindow : public QWidget {
    Q_OBJECT
public:
    /** Type of the event posted at start-up when no file was passed. */
    static const int StartupEventType = 1001;

    /** Opens the system and key channels and defers the first work: a 1 ms
     *  timer plays @p passedFile, or without one an event of type 1001 hands
     *  over the launch action. Nothing else happens until the event loop turns. */
    MP_MainWindow(const QString& passedFile, QWidget* parent, const char* name, unsigned int flags);
    /** Releases channels, clients, engine and list in that order and stores
     *  "HidePlaying" = false. */
    ~MP_MainWindow() override;

    /** Creates the engine when there is none; otherwise brings the player
     *  screen to the front. */
    void initCommonPlayer(bool playerFlag);
    /** Plays one file without a list (the launch type is kept). */
    void setMediaFile(const QString& fileName);
    /** Installs @p list (taking ownership) into the engine, creating the engine
     *  when needed, and starts playback when @p startPlayback. */
    void setList(MP_AufList* list, bool userList, bool playFlag, bool playerFlag, bool startPlayback,
                 MP_LAUNCH_TYPE launchType);
    /** Loads the stored shuffle and repeat settings of music or video into the
     *  list context; @p forceShuffle turns shuffle on for this launch only. */
    void readSetting(bool isVideo, bool forceShuffle);
    /** Asks the engine to start playing; @p playFlag asks for a slide show. */
    void playAutomatically(bool playFlag);
    /** Saves the history and releases the current list (telling the engine),
     *  then clears the last-played record. */
    void freeCurrentList();

    // Launch requests (MP_MainWindowLaunch.cpp).
    QString getArtistFromAction(const AM_ActionData& action) const;
    QString getAlbumFromAction(const AM_ActionData& action) const;
    QString getGenreFromAction(const AM_ActionData& action) const;
    QString getComposerFromAction(const AM_ActionData& action) const;
    /** Saves a library selection as the last-played list. */
    void storeLastplayedSystemList(const QString& artist, const QString& album, const QString& genre,
                                   const QString& composer, int storageLocation, int firstIndex);
    /** A launcher asks for the player: shows a running one, resumes the last-played
     *  list for "HomeScreen" and "BTAvrcpKeys", else plays the whole library. */
    void handleLauncherRequest(const QString& launcherId);
    /** Plays the captured videos; quitting then asks the application to end. */
    void playCapturedVideo();

    // Events and controls (MP_MainWindowEvents.cpp).
    /** Applies the stored music shuffle mode to the engine and the list; the
     *  mode is not changed here: whoever asks for a new one stores it before
     *  the shuffle key arrives. Nothing happens without a list. */
    void toggleShuffle();
    /** Inverts the stored music repeat setting and turns stored shuffle off;
     *  the engine and the list are told shuffle off and the new repeat mode.
     *  Nothing happens without a list. */
    void toggleRepeat();
    /** The toggle key: after a captured-video launch, closes and asks the
     *  application to end; otherwise starts the video recorder and closes. */
    void onToggleKeyQuitApp();

    // Read-only views of the window's state.
    MP_LAUNCH_TYPE launchType() const { return m_launchType; }
    MP_CommonPlayer* commonPlayer() const { return m_commonPlayer.get(); }
    MP_IdleClient* idleClient() const { return m_idleClient.get(); }
    MP_WindowClient* windowClient() const { return m_windowClient.get(); }
    MP_BluetoothClient* bluetoothClient() const { return m_btClient.get(); }
    MP_AufList* currentList() const { return m_list.get(); }
    MP_CLIClient* cliClient() const { return m_cliClient.get(); }
    const LastPlayedListRecord& lastPlayedList() const { return m_lastPlayedList; }

public Q_SLOTS:
    /** The application opens a document: play it as a single file. */
    void onOpenDoc(const QString& fileName);
    /** The phone asks the player to return to the idle screen: -5001 and
     *  -5003 are the flip closing, -5000 the end key; each is handled 1 ms
     *  later, after the application's callback returned. Others are ignored. */
    void onAskReturnToIdle(int reason);
    /** The flip opened (0) or closed (1). The external display follows it
     *  unless the player is stopped or finished; without an engine it is
     *  left as it is. */
    void onFlipStatusChanged(int status);
    /** The player's icon was chosen: brings a running player to the front. */
    void onClickAppIcon();
    /** Closes the player screen and the window; a captured-video launch also emits quitApp(). */
    void onQuitApp();
    /** The player screen asks to be closed: it closes; engine and list stay. */
    void onClosePlayer();
    /** Hides the player to the idle screen: its plug-in takes over, "HidePlaying"
     *  is stored true and the player screen closes; playback goes on. Nothing
     *  happens without an engine. */
    void onHidePlayer();
    /** A setup key pressed or released on a client: on release, 0x4002
     *  toggles shuffle, 0x4003 repeat, 0x4006 leaves for the video recorder.
     *  Presses and other codes are ignored. */
    void onSetupKeyClicked(int keyCode, bool pressed);
    /** An action record from another application (or the launch action). */
    void onReceiveAction(const AM_ActionData& action);
    /** "PlayMusicListInMediaplayer": a selection of the music library. */
    void onPlaySystemList(const AM_ActionData& action);
    /** Plays the file passed at creation, dropping any list. */
    void onPassFile();
    /** The end key: with the player screen focused, quits if the player
     *  screen agrees (it may ask); without the focus, as the flip closing.
     *  Nothing happens without an engine or its main widget. */
    void onEndKeyPressed();
    /** The flip closed: hides to the idle screen when the player screen
     *  wants to keep playing (unless the engine dealt with it), else quits. */
    void onFlipClosed();
    /** The current entry of the list the engine plays (the window's own, or one
     *  the host gave the engine) changed: play it, or quit when the list is empty. */
    void onCurrentItemChanged();
    /** The list's shuffle or repeat mode changed: tell the engine and the media browser. */
    void onShuffleRepeat(int shuffleMode, bool repeat);
    /** Releases the engine; the list stays. Nothing happens without an engine. */
    void freeCommonPlayer();
    /** A message on the system channel: a style change restarts the idle
     *  plug-in; a memory-card event quits the player. Others are ignored. */
    void slotSystemMessage(const QCString& message, const QByteArray& data);
    /** A message on the key-event channel: the jump key (0x1048, type 1)
     *  quits while a video plays, or once the first content reported is one. */
    void slotKeyMessage(const QCString& message, const QByteArray& data);
    /** The engine reports the content type of its media. */
    void slotContentTypeChanged(MP_CONTENT_TYPE type);

Q_SIGNALS:
    /** The application must end. */
    void quitApp();

protected:
    /** The start-up event (type 1001) hands the launch action to onReceiveAction(). */
    void customEvent(QEvent* event) override;

private:
    // One handler a request of onReceiveAction (MP_MainWindowLaunch.cpp).
    void playVideoSelection(const AM_ActionData& action);
    void playUserList(const AM_ActionData& action);
    void playForLauncher(const AM_ActionData& action);

    /** Makes the external-display client while the flip is closed and deletes
     *  it when the flip is open. */
    void updateCLIClient();
    void clearLastPlayedRecord();
    void handleCardEvent(const QByteArray& data);
    void handleJumpKey();
    void releaseLastPlayedStrings();
    /** Deletes the current list without saving the history (the engine is told first). */
    void releaseListQuietly();
    /** The list that resumes the last-played record; null after the notice when none is stored. */
    MP_AufList* takeLastPlayedList(const QString& launcherId);

    MP_LAUNCH_TYPE m_launchType;
    /** Released through the engine library that made it; declared before the
     *  clients, so that each of them goes first. */
    MP_CommonPlayerPtr m_commonPlayer;
    /** The media-browser client; exists exactly when the engine does. */
    std::unique_ptr<MP_MediafinderClient> m_mediafinderClient;
    /** Exists exactly while the engine does; deleted before it. */
    std::unique_ptr<MP_IdleClient> m_idleClient;
    /** The headset keys' client; exists exactly while the engine does. It
     *  registers menu entries with the window client, so it goes before it. */
    std::unique_ptr<MP_BluetoothClient> m_btClient;
    /** The external-display client: exists only while the flip was closed at
     *  the last external-display update, and only with the engine. */
    std::unique_ptr<MP_CLIClient> m_cliClient;
    /** The player screen's client; exists exactly while the engine does. */
    std::unique_ptr<MP_WindowClient> m_windowClient;
    /** The current play list; the engine only borrows it, and is told to let
     *  go before it is deleted (except in setList, which hands it the next). */
    std::unique_ptr<MP_AufList> m_list;
    QString m_passedFile;
    QString m_launcherId;
    /** The flip is closed, as last reported (read from the phone at creation). */
    bool m_flipClosed;
    /** True until the engine first reports a content type. */
    bool m_contentTypeUnknown;
    /** The jump key came while the content type was unknown; the first
     *  content-type report acts on it and clears it. */
    bool m_jumpKeyPending;
    MP_CONTENT_TYPE m_contentType;
    // Owned (children of the window, deleted first in the destructor).
    QCopChannel* m_systemChannel;
    QCopChannel* m_keyChannel;
    LastPlayedListRecord m_lastPlayedList;

    Q_DISABLE_COPY(MP_MainWindow)
};
