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
#include "host/app/HeadlessWatch.h"
#include "host/app/MainWindowLibrary.h"
#include "host/app/MprisBridgeProcess.h"
#include "host/app/PlayerSession.h"
#include "host/app/script/ScriptRunner.h"
#include "host/app/TerminationSignals.h"
#include "host/engine/HostEngine.h"
#include "host/engine/HostPicturePath.h"
#include "host/platform/media/scanner/MediaScanner.h"
#include "host/platform/phone/HostPhone.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/platform/toolkit/HostTranslations.h"
#include "host/platform/services/HostLaunchAction.h"
#include "host/words/ScriptWords.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/TraceLog.h"

namespace {

// How long --folder waits for the window to make its engine for the first file.
const int kFolderEngineWaitMilliseconds = 10000;

// Without a platform named and without a display to open, Qt would abort.
bool needsOffscreenPlatform()
{
    return qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY")
        && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// Decided on the platform Qt runs on, not on the variable that chose it:
// QT_QPA_PLATFORM=offscreen names a platform, and it has no screen.
bool isHeadless()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal");
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

// Whether the journal FILE can be written; said when not. Checked before
// anything is played, as the log is; nothing in it is touched yet, so a
// refused command line leaves an earlier run's journal as it was.
bool canWriteJournal(const QString& path)
{
    QFile journal(path);
    const bool existed = journal.exists();
    if (journal.open(QIODevice::Append)) {
        // Made when the first line is written; a refused command line leaves no file behind.
        if (!existed)
            journal.remove();
        return true;
    }
    std::fprintf(stderr, "mediaplayer: --journal: cannot write %s: %s\n", qPrintable(path),
                 qPrintable(journal.errorString()));
    return false;
}

// A run's journal is its own: lines of an earlier run in the same file would
// be read as this run's. Emptied once the command line has been taken, before
// the first line is written.
void startJournal(const QString& path)
{
    if (!path.isEmpty())
        QFile::resize(path, 0);
}

QString libraryPath()
{
    const QString overridden = qEnvironmentVariable("MP_LIBRARY");
    if (!overridden.isEmpty())
        return overridden;
    // By its SONAME: the program is linked with the library (for the folder
    // list), so the loader has it already, found through the program's run
    // path wherever the tree lies, and dlopen hands back that same library.
    return QStringLiteral(MP_LIBRARY_NAME);
}

// Runs the player until it ends: the script, or the event loop until the
// window quits, a termination signal comes or (headless) nothing more plays.
int runPlayer(const MainWindowLibrary& library, const AppOptions& options, const QString& folderStart, bool headless)
{
    PlayerSession session(library);
    ScriptRunner script(session);
    QString error;
    if (!options.script.isEmpty() && !script.load(options.script, &error)) {
        std::fprintf(stderr, "mediaplayer: %s\n", qPrintable(error));
        return ExitBadUsage;
    }
    session.start(folderStart.isNull() ? options.passedFile : folderStart);
    if (!folderStart.isNull() && !session.playFolder(folderStart, kFolderEngineWaitMilliseconds, &error)) {
        std::fprintf(stderr, "mediaplayer: --folder: %s\n", qPrintable(error));
        return ExitNothingToPlay;
    }
    if (!options.script.isEmpty())
        return script.run();

    int exitCode = ExitPlayed;
    TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::terminationRequested, qApp, &QApplication::quit);
    QObject::connect(&session, &PlayerSession::quitRequestedChanged, qApp, &QApplication::quit);
    HeadlessWatch watch(session, options.hasAction ? options.action.action() : QString());
    QObject::connect(&watch, &HeadlessWatch::ended, qApp, [&exitCode](int status, const QString& reason) {
        if (!reason.isEmpty())
            std::fprintf(stderr, "mediaplayer: %s\n", qPrintable(reason));
        exitCode = status;
        QCoreApplication::quit();
    });
    if (headless)
        watch.start();
    QApplication::exec();
    return exitCode;
}

/** The language --lang names, else the one $LANG asks for; only a --lang
 *  without a translation is an error (a locale without one is simply English). */
bool chooseLanguage(const AppOptions& options)
{
    const bool named = !options.language.isNull();
    const QString language = named ? options.language
                                   : HostTranslations::languageOfLocale(qEnvironmentVariable("LANG"));
    if (HostTranslations::use(language) || !named)
        return true;
    std::fprintf(stderr, "mediaplayer: --lang: no translation for %s (there are: en %s)\n",
                 qPrintable(ScriptWords::excerpt(language)), qPrintable(HostTranslations::available().join(QLatin1Char(' '))));
    return false;
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
        return ExitBadUsage;
    }
    if (options.help) {
        std::fputs(qPrintable(AppOptions::usage()), stdout);
        return ExitPlayed;
    }
    QString folderStart;
    if (!options.folder.isEmpty()) {
        folderStart = PlayerSession::folderStartFile(options.folder, &error);
        if (folderStart.isNull()) {
            std::fprintf(stderr, "mediaplayer: --folder: %s\n", qPrintable(error));
            return ExitBadUsage;
        }
    }
    // The player would open a play list file as a song and fail; a user list is what
    // plays one. (An address may name one: a stream's list, HLS's .m3u8, plays.)
    if (!options.passedFile.contains(QLatin1String("://")) && MediaScanner::isPlayList(options.passedFile)) {
        std::fprintf(stderr,
                     "mediaplayer: %s is a play list: mp-scan imports it as a user list, "
                     "which --action PlayUserListInMediaplayer plays\n",
                     qPrintable(ScriptWords::excerpt(options.passedFile)));
        return ExitBadUsage;
    }
    if (!options.journal.isEmpty() && !canWriteJournal(options.journal))
        return ExitBadUsage;
    exportPaths(options);
    ensureRuntimeDir();
    if (needsOffscreenPlatform())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    HostPicturePath::choose();

    QApplication app(argc, argv);
    const bool headless = isHeadless();
    FILE* log = nullptr;
    if (!options.log.isEmpty()) {
        log = std::fopen(options.log.toLocal8Bit().constData(), "a");
        if (!log) {
            std::fprintf(stderr, "mediaplayer: cannot write the log %s\n", qPrintable(options.log));
            return ExitBadUsage;
        }
        LOG_SetStream(log);
    }

    if (!chooseLanguage(options))
        return ExitBadUsage;
    startJournal(options.journal);
    HostPhone::prepareDataFolder();

    MainWindowLibrary library;
    if (!library.load(libraryPath(), &error)) {
        std::fprintf(stderr, "mediaplayer: %s\n", qPrintable(error));
        return ExitCannotLoad;
    }
    if (options.hasAction)
        HostLaunchAction::set(options.action);
    HostEngine::setConsoleOutput(!options.quiet);
    HostOutputChoice::setKind(options.output);
    // A person at a display answers dialogs; a script or a headless run gets
    // the queued answers or the safe defaults.
    HostDialogs::setInteractive(!headless && options.script.isEmpty());

    MprisBridgeProcess bridge;
    if (options.mpris)
        bridge.start(options.dataDir);
    const int exitCode = runPlayer(library, options, folderStart, headless);
    LOG_SetStream(nullptr);
    if (log)
        std::fclose(log);
    return exitCode;
}
