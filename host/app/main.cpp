// mediaplayer: the host stand-in for the phone's media-player application.
// It loads the main-window library, creates the window with the passed file,
// connects what the application connects, and runs the event loop or a
// scenario script.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <cerrno>
#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

#include "host/app/AppOptions.h"
#include "host/app/MainWindowLibrary.h"
#include "host/app/PlayerSession.h"
#include "host/app/ScriptRunner.h"
#include "host/app/TerminationSignals.h"
#include "host/engine/HostEngine.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/platform/services/HostLaunchAction.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/TraceLog.h"

namespace {

const int kExitBadUsage = 64;
const int kExitCannotLoad = 69;

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// Environment that the host platform reads; set before anything touches it.
void exportPaths(const AppOptions& options)
{
    if (!options.dataDir.isEmpty())
        qputenv("MP_DATA_DIR", QFileInfo(options.dataDir).absoluteFilePath().toLocal8Bit());
    if (!options.journal.isEmpty())
        qputenv("MP_JOURNAL", QFileInfo(options.journal).absoluteFilePath().toLocal8Bit());
}

// Qt wants a private runtime folder; a root shell or a CI runner often has
// none, and the warning would be the first thing a person sees.
void ensureRuntimeDir()
{
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QByteArray dir = QFile::encodeName(QDir::tempPath()) + "/mediaplayer-runtime-" + QByteArray::number(getuid());
    if (::mkdir(dir.constData(), 0700) == 0 || errno == EEXIST)
        qputenv("XDG_RUNTIME_DIR", dir);
}

QString libraryPath()
{
    const QString overridden = qEnvironmentVariable("MP_LIBRARY");
    if (!overridden.isEmpty())
        return overridden;
    return QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/../lib")).absoluteFilePath(MP_LIBRARY_NAME);
}

// Without a display nobody can press play again: end when the list has played.
void quitWhenFinished(QObject* context)
{
    auto* poll = new QTimer(context);
    QObject::connect(poll, &QTimer::timeout, context, [] {
        HostEngine* engine = HostEngine::liveEngine();
        MP_PlayerControl* control = engine ? engine->getPlayerControl() : nullptr;
        if (control && control->getState() == MP_STATE_FINISHED)
            QCoreApplication::quit();
    });
    poll->start(250);
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    AppOptions options;
    QString error;
    if (!options.parse(arguments, &error)) {
        std::fprintf(stderr, "mediaplayer: %s\n%s", qPrintable(error), qPrintable(AppOptions::usage()));
        return kExitBadUsage;
    }
    exportPaths(options);
    ensureRuntimeDir();
    const bool headless = !hasDisplay();
    if (headless)
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    FILE* log = nullptr;
    if (!options.log.isEmpty()) {
        log = std::fopen(options.log.toLocal8Bit().constData(), "a");
        if (!log) {
            std::fprintf(stderr, "mediaplayer: cannot write the log %s\n", qPrintable(options.log));
            return kExitBadUsage;
        }
        LOG_SetStream(log);
    }

    MainWindowLibrary library;
    if (!library.load(libraryPath(), &error)) {
        std::fprintf(stderr, "mediaplayer: %s\n", qPrintable(error));
        return kExitCannotLoad;
    }
    if (options.hasAction)
        HostLaunchAction::set(options.action);
    HostEngine::setConsoleOutput(!options.quiet);
    // A person at a display answers dialogs; a script or a headless run gets
    // the queued answers or the safe defaults.
    HostDialogs::setInteractive(!headless && options.script.isEmpty());

    int exitCode = 0;
    {
        PlayerSession session(library);
        ScriptRunner script(session);
        if (!options.script.isEmpty() && !script.load(options.script, &error)) {
            std::fprintf(stderr, "mediaplayer: %s\n", qPrintable(error));
            return kExitBadUsage;
        }
        session.start(options.passedFile);
        if (!options.script.isEmpty()) {
            exitCode = script.run();
        } else {
            TerminationSignals termination;
            QObject::connect(&termination, &TerminationSignals::terminationRequested, &app, &QApplication::quit);
            QObject::connect(&session, &PlayerSession::quitRequestedChanged, &app, &QApplication::quit);
            if (headless)
                quitWhenFinished(&session);
            app.exec();
        }
        session.finish();
    }
    LOG_SetStream(nullptr);
    if (log)
        std::fclose(log);
    return exitCode;
}
