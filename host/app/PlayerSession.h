#pragma once
// One run of the player: the loaded library and the main window it made,
// wired as the phone's media-player application wires them.

#include <QObject>
#include <QPointer>
#include <QString>

#include "host/app/MainWindowLibrary.h"

class QWidget;

class PlayerSession : public QObject {
    Q_OBJECT
public:
    explicit PlayerSession(const MainWindowLibrary& library);
    ~PlayerSession() override;

    /** Creates the window with @p passedFile and connects the application's slots. */
    void start(const QString& passedFile);
    /** Deletes the window through the library (once). */
    void finish();

    bool isRunning() const { return m_window != nullptr; }
    /** True once the window was closed or asked the application to quit. */
    bool quitRequested() const { return m_quitRequested; }

    /** The application opens a document (as the phone's document service would). */
    void openDocument(const QString& path);
    /** The exported captured-video entry point. */
    void playCapturedVideo();

Q_SIGNALS:
    void openDoc(const QString& path);
    /** The window closed or emitted quitApp(). */
    void quitRequestedChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void onQuitApp();

private:
    const MainWindowLibrary& m_library;
    MP_MainWindow* m_window = nullptr;  // owned; deleted through the library
    bool m_quitRequested = false;
};
