// mp-scan [--data-dir DIR] FOLDER...
// Adds, updates and removes the media database's objects for the media files
// under the folders and imports their play lists, then prints a summary line.

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

#include "ScanProgress.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/scanner/MediaScanner.h"

namespace {

void printError(const QString& message)
{
    std::fprintf(stderr, "mp-scan: %s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mp-scan"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Builds the media player's media database from the media files and play lists under FOLDERs."));
    parser.addHelpOption();
    const QCommandLineOption dataDir(QStringLiteral("data-dir"),
                                     QStringLiteral("The data folder holding the database (default: MP_DATA_DIR)."),
                                     QStringLiteral("DIR"));
    parser.addOption(dataDir);
    parser.addPositionalArgument(QStringLiteral("FOLDER"), QStringLiteral("A folder to scan, recursively."),
                                 QStringLiteral("FOLDER..."));
    parser.process(application);

    const QStringList folders = parser.positionalArguments();
    if (folders.isEmpty()) {
        printError(QStringLiteral("no folder given (try --help)"));
        return 2;
    }
    if (parser.isSet(dataDir))
        qputenv("MP_DATA_DIR", QFile::encodeName(QDir(parser.value(dataDir)).absolutePath()));

    const std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
    if (!database) {
        printError(QStringLiteral("cannot open the database %1").arg(MediaDatabase::defaultFile()));
        return 1;
    }

    ScanProgress progress;
    MediaScanner scanner(*database);
    scanner.setMessageHandler([&progress](const QString& message) {
        progress.finish();
        printError(message);
    });
    scanner.setProgressHandler([&progress](int done, int total) { progress.update(done, total); });
    const MediaScanSummary summary = scanner.scanFolders(folders);
    progress.finish();

    std::printf("mp-scan: %s\n", qPrintable(summary.text()));
    return summary.missingFolders > 0 ? 1 : 0;
}
