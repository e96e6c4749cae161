#include "host/app/PlayerSession.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QWidget>

#include "host/app/KeyboardKeys.h"
#include "host/engine/HostEngine.h"
#include "host/platform/HostJournal.h"
#include "host/platform/phone/HostPhone.h"
#include "host/words/ScriptWords.h"
#include "lists/MP_FolderList.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/UTIL_MimeType.h"

namespace {
// The event the window posts to itself when it was created without a file.
const QEvent::Type kStartupEvent = QEvent::Type(1001);
// The return-to-idle reason of the end key.
const int kEndKeyReason = -5000;
} // namespace

PlayerSession::PlayerSession(const MainWindowLibrary& library)
    : m_library(library)
    , m_keys(std::make_unique<KeyboardKeys>(*this))
{
}

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
    connect(this, SIGNAL(flipStatusChanged(int)), window, SLOT(onFlipStatusChanged(int)));
    connect(this, SIGNAL(returnToIdleRequested(int)), window, SLOT(onAskReturnToIdle(int)));
    connect(this, SIGNAL(appIconClicked()), window, SLOT(onClickAppIcon()));
    connect(window, SIGNAL(quitApp()), this, SLOT(onQuitApp()));
    window->installEventFilter(this);
}

void PlayerSession::finish()
{
    if (m_window) {
        MP_MainWindow* window = m_window;
        m_window = nullptr;
        m_library.deleteMainWindow(window);
    }
    m_folderList.reset();
}

QString PlayerSession::folderStartFile(const QString& path, QString* error)
{
    const QFileInfo info(path);
    if (info.isFile()) {
        // The folder list lists the files of the start file's media class:
        // another kind of file (a play list, a picture) would list nothing.
        if (UTIL_MimeType::isAudio(info.absoluteFilePath()) || UTIL_MimeType::isVideo(info.absoluteFilePath()))
            return info.absoluteFilePath();
        *error = QStringLiteral("%1 is not an audio or video file").arg(ScriptWords::excerpt(path));
        return QString();
    }
    if (!info.isDir()) {
        *error = QStringLiteral("no folder or file %1").arg(ScriptWords::excerpt(path));
        return QString();
    }
    // The order the folder list's name sort gives, so the folder plays from its top.
    QDir folder(info.absoluteFilePath());
    folder.setFilter(QDir::Files | QDir::NoDotAndDotDot);
    folder.setSorting(QDir::Name | QDir::IgnoreCase);
    for (const QString& name : folder.entryList()) {
        const QString file = folder.absoluteFilePath(name);
        if (UTIL_MimeType::isAudio(file) || UTIL_MimeType::isVideo(file))
            return file;
    }
    *error = QStringLiteral("no audio or video file in %1").arg(ScriptWords::excerpt(path));
    return QString();
}

bool PlayerSession::playFolder(const QString& startFile, int waitMilliseconds, QString* error)
{
    // The window plays its passed file from a timer; the list can only go to
    // the engine that this makes, and must go after the file (a file given to
    // the engine drops its list).
    const QDeadlineTimer deadline(waitMilliseconds);
    while (!HostEngine::liveEngine() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, int(qMax<qint64>(1, deadline.remainingTime())));
    MP_CommonPlayer* engine = HostEngine::liveEngine();
    if (!engine) {
        *error = QStringLiteral("the player made no engine for %1").arg(ScriptWords::excerpt(startFile));
        return false;
    }
    auto list = std::make_unique<MP_FolderList>(startFile, MP_FolderList::SortByName);
    engine->setPlayList(list.get());
    // The engine lets go of the old list before it is deleted.
    m_folderList = std::move(list);
    return true;
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

bool PlayerSession::hidePlayer()
{
    // The slot is reached by name: the application knows the window only as a widget.
    return m_window
           && QMetaObject::invokeMethod(MainWindowLibrary::asWidget(m_window), "onHidePlayer", Qt::DirectConnection);
}

void PlayerSession::changeFlipStatus(int status)
{
    HostPhone::setFlipStatus(status);
    Q_EMIT flipStatusChanged(status);
}

void PlayerSession::askReturnToIdle(int reason)
{
    HostJournal::call(QStringLiteral("app"), QStringLiteral("askReturnToIdle"), {reason});
    Q_EMIT returnToIdleRequested(reason);
}

void PlayerSession::pressEndKey()
{
    askReturnToIdle(kEndKeyReason);
}

void PlayerSession::clickAppIcon()
{
    HostJournal::call(QStringLiteral("app"), QStringLiteral("clickAppIcon"), {});
    Q_EMIT appIconClicked();
}

bool PlayerSession::eventFilter(QObject* watched, QEvent* event)
{
    if (m_window && watched == MainWindowLibrary::asWidget(m_window)) {
        if (event->type() == QEvent::Close)
            onQuitApp();
        // The window handles the event right after this filter; a queued call
        // runs once it has. (A dialog at a display would run a nested loop
        // first, but a run with a display does not ask.)
        else if (event->type() == kStartupEvent)
            QMetaObject::invokeMethod(this, "onStartupHandled", Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void PlayerSession::onStartupHandled()
{
    m_startupHandled = true;
    Q_EMIT startupFinished();
}

void PlayerSession::onQuitApp()
{
    if (m_quitRequested)
        return;
    m_quitRequested = true;
    Q_EMIT quitRequestedChanged();
}
