#include "host/app/PlayerSession.h"

#include <QEvent>
#include <QWidget>

PlayerSession::PlayerSession(const MainWindowLibrary& library) : m_library(library) {}

PlayerSession::~PlayerSession()
{
    finish();
}

void PlayerSession::start(const QString& passedFile)
{
    m_window = m_library.createMainWindow(passedFile);
    QWidget* window = MainWindowLibrary::asWidget(m_window);
    // What the phone's application connects; everything else the library wires itself.
    connect(this, SIGNAL(openDoc(const QString&)), window, SLOT(onOpenDoc(const QString&)));
    connect(window, SIGNAL(quitApp()), this, SLOT(onQuitApp()));
    window->installEventFilter(this);
}

void PlayerSession::finish()
{
    if (!m_window)
        return;
    MP_MainWindow* window = m_window;
    m_window = nullptr;
    m_library.deleteMainWindow(window);
}

void PlayerSession::openDocument(const QString& path)
{
    Q_EMIT openDoc(path);
}

void PlayerSession::playCapturedVideo()
{
    if (m_window)
        m_library.playCapturedVideo(m_window);
}

bool PlayerSession::eventFilter(QObject* watched, QEvent* event)
{
    if (m_window && watched == MainWindowLibrary::asWidget(m_window) && event->type() == QEvent::Close)
        onQuitApp();
    return QObject::eventFilter(watched, event);
}

void PlayerSession::onQuitApp()
{
    if (m_quitRequested)
        return;
    m_quitRequested = true;
    Q_EMIT quitRequestedChanged();
}
