#pragma once
// One run of the player: the loaded library and the main window it made,
// wired as the phone's media-player application wires them.

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

#include "host/app/MainWindowLibrary.h"

class KeyboardKeys;
class MP_FolderList;
class QWidget;

class PlayerSession : public QObject {
    Q_OBJECT
public:
    explicit PlayerSession(const MainWindowLibrary& library);
    ~PlayerSession() override;

    /** Creates the window with @p passedFile and connects the application's slots. */
    void start(const QString& passedFile);
    /** Deletes the window through the library (once), then the folder list. */
    void finish();

    /** The file that plays first for --folder @p path: @p path itself when it
     *  is a file, else the folder's first audio or video file by name; null
     *  with a reason in @p error when there is none. */
    static QString folderStartFile(const QString& path, QString* error);
    /** Plays the folder of @p startFile from it. Call after start(startFile):
     *  runs the event loop until the window has made its engine for the file
     *  (bounded by @p waitMilliseconds), then hands the engine a folder list.
     *  False with a reason in @p error when no engine came. */
    bool playFolder(const QString& startFile, int waitMilliseconds, QString* error);

    bool isRunning() const { return m_window != nullptr; }
    /** True once the window has handled its start-up event (it posts one
     *  only when created without a file): from then on, a run with no
     *  engine has nothing that will play. */
    bool startupHandled() const { return m_startupHandled; }
    /** True once the window was closed or asked the application to quit. */
    bool quitRequested() const { return m_quitRequested; }

    /** The application opens a document (as the phone's document service would). */
    void openDocument(const QString& path);
    /** The exported captured-video entry point. */
    void playCapturedVideo();
    /** Hides the player to the idle screen, as the player screen's hide command
     *  does (the window's onHidePlayer slot). False when there is no window. */
    bool hidePlayer();
    /** The phone's flip opens (0) or closes (1): the phone's state changes,
     *  then the window hears of it, as the phone's application tells it. */
    void changeFlipStatus(int status);
    /** The phone asks the player to return to the idle screen for @p reason
     *  (-5000 the end key, -5001 and -5003 the flip closing): the window's
     *  onAskReturnToIdle. Journaled as {"kind":"app","call":"askReturnToIdle","args":[reason]}. */
    void askReturnToIdle(int reason);
    /** The phone's end key: a return-to-idle request with reason -5000. */
    void pressEndKey();
    /** The player's icon is chosen on the home screen: the window's
     *  onClickAppIcon. Journaled as {"kind":"app","call":"clickAppIcon","args":[]}. */
    void clickAppIcon();

Q_SIGNALS:
    void openDoc(const QString& path);
    void flipStatusChanged(int status);
    void returnToIdleRequested(int reason);
    void appIconClicked();
    /** The window closed or emitted quitApp(). */
    void quitRequestedChanged();
    /** The window has handled its start-up event. */
    void startupFinished();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void onQuitApp();
    void onStartupHandled();

private:
    const MainWindowLibrary& m_library;
    MP_MainWindow* m_window = nullptr;  // owned; deleted through the library
    // Played by the window's engine, which does not own it: goes after the window.
    std::unique_ptr<MP_FolderList> m_folderList;
    // The keyboard's keys as the phone's keys, while a window is shown.
    std::unique_ptr<KeyboardKeys> m_keys;
    bool m_quitRequested = false;
    bool m_startupHandled = false;
};
