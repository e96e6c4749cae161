#pragma once
// The player's controller: an invisible widget that owns the playback engine,
// the clients that observe and drive it, the current play list and the
// last-played record, and turns launch requests, keys and system messages
// into calls on them. Created and destroyed only through the library's
// exported entry points.

#include <QString>
#include <QWidget>

#include "platform/MP_PlayerTypes.h"
#include "platform/Metadata.h"
#include "platform/Qt2Compat.h"

class AM_ActionData;
class MP_AufList;
class MP_BluetoothClient;
class MP_CLIClient;
class MP_CommonPlayer;
class MP_IdleClient;
class MP_MediafinderClient;
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

    /** Creates the engine and its clients when there is no engine; otherwise
     *  brings the player screen to the front. */
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

    // Read-only views of the window's state.
    MP_LAUNCH_TYPE launchType() const { return m_launchType; }
    MP_CommonPlayer* commonPlayer() const { return m_commonPlayer; }
    MP_AufList* currentList() const { return m_list; }
    const LastPlayedListRecord& lastPlayedList() const { return m_lastPlayedList; }

public Q_SLOTS:
    /** The application opens a document: play it as a single file. */
    void onOpenDoc(const QString& fileName);
    /** Closes the player screen and the window; a captured-video launch also emits quitApp(). */
    void onQuitApp();
    /** An action record from another application (or the launch action). */
    void onReceiveAction(const AM_ActionData& action);
    /** "PlayMusicListInMediaplayer": a selection of the music library. */
    void onPlaySystemList(const AM_ActionData& action);
    /** Plays the file passed at creation, dropping any list. */
    void onPassFile();
    /** The list's current entry changed: play it, or quit when the list is empty. */
    void onCurrentItemChanged();
    /** The list's shuffle or repeat mode changed: tell the engine. */
    void onShuffleRepeat(int shuffleMode, bool repeat);
    /** Releases the clients and the engine; the list stays. Nothing happens without an engine. */
    void freeCommonPlayer();
    /** The engine reports the content type of its media. */
    void slotContentTypeChanged(MP_CONTENT_TYPE type);

Q_SIGNALS:
    /** The application must end. */
    void quitApp();

protected:
    /** The start-up event (type 1001) hands the launch action to onReceiveAction(). */
    void customEvent(QEvent* event) override;

private:
    void clearLastPlayedRecord();
    void releaseLastPlayedStrings();
    /** Deletes the current list without saving the history (the engine is told first). */
    void releaseListQuietly();
    /** The list that resumes the last-played record; null after the notice when none is stored. */
    MP_AufList* takeLastPlayedList(const QString& launcherId);

    MP_LAUNCH_TYPE m_launchType;
    MP_CommonPlayer* m_commonPlayer;           // owned; released through the engine factory
    MP_WindowClient* m_windowClient;           // owned
    MP_MediafinderClient* m_mediafinderClient; // owned
    MP_IdleClient* m_idleClient;               // owned
    MP_BluetoothClient* m_btClient;            // owned
    MP_CLIClient* m_cliClient;                 // owned; exists only while the flip is closed
    MP_AufList* m_list;                        // owned
    QString m_passedFile;
    QString m_launcherId;
    bool m_flipClosed;
    bool m_contentTypeUnknown;
    bool m_jumpKeyPending;
    MP_CONTENT_TYPE m_contentType;
    QCopChannel* m_systemChannel;              // owned
    QCopChannel* m_keyChannel;                 // owned
    LastPlayedListRecord m_lastPlayedList;

    Q_DISABLE_COPY(MP_MainWindow)
};
