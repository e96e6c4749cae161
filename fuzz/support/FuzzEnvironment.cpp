#include "fuzz/support/FuzzEnvironment.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

#include "host/engine/HostEngineClock.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "platform/TraceLog.h"
#include "tests/support/SongBuilder.h"

namespace {

// Heap objects that live until the process ends: the fuzzer leaves through
// exit(), and Qt objects destroyed by exit handlers or static destructors
// meet a toolkit that has already gone.
QApplication* application = nullptr;
QTemporaryDir* dataDir = nullptr;
unsigned int userPlayList = 0;

void dropMessages(QtMsgType, const QMessageLogContext&, const QString&)
{
    // Fatal messages still abort after the handler returns: the fuzzer sees them.
}

// An empty file at @p path: the launcher's resume checks that a list's files exist.
void touch(const QString& path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    file.open(QIODevice::WriteOnly);
}

void fillLibrary()
{
    std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
    if (!database)
        qFatal("fuzz: cannot create the media database");
    const QString music = dataDir->filePath(QStringLiteral("Music"));
    struct Song { const char* artist; const char* album; const char* genre; const char* title; };
    const Song songs[] = {
        {"Aurora Lane", "First Light", "Pop", "Dawn"},   {"Aurora Lane", "First Light", "Pop", "Noon"},
        {"Aurora Lane", "Night Drive", "Pop", "Dusk"},   {"Aurora Lane", "Night Drive", "Pop", "Midnight"},
        {"Basalt", "Stone", "Rock", "Granite"},          {"Basalt", "Stone", "Rock", "Slate"},
        {"Basalt", "", "Rock", "Untitled Jam"},          {"Cello Club", "Suites", "Classical", "Prelude"},
        {"Cello Club", "Suites", "Classical", "Sarabande"}, {"", "", "", "field recording"},
    };
    QList<quint32> ids;
    int track = 1;
    for (const Song& entry : songs) {
        const QString path = QStringLiteral("%1/%2/%3.mp3").arg(music, QLatin1String(entry.artist), QLatin1String(entry.title));
        touch(path);
        ids.append(database->addMedia(song(path)
                                          .title(QLatin1String(entry.title))
                                          .artist(QLatin1String(entry.artist))
                                          .album(QLatin1String(entry.album))
                                          .genre(QLatin1String(entry.genre))
                                          .composer(QStringLiteral("Composer %1").arg(track % 3))
                                          .track(track)));
        ++track;
    }
    const QString videos = dataDir->filePath(QStringLiteral("Videos"));
    for (const QString& name : {QStringLiteral("Trip.mp4"), QStringLiteral("Captured/Clip1.3gp"),
                               QStringLiteral("Captured/Clip2.3gp")}) {
        const QString path = videos + QLatin1Char('/') + name;
        touch(path);
        const bool captured = name.startsWith(QLatin1String("Captured"));
        database->addMedia(song(path).title(name).video().date(QStringLiteral("2008-05-0%1").arg(ids.size() % 9))
                               .createdBy(captured ? METADATA_CREATED_CAPTURED : -1));
    }
    userPlayList = database->addGroup(METADATA_GROUP_USER, QStringLiteral("Evening"));
    database->setGroupMembers(userPlayList, {ids.at(3), ids.at(0), ids.at(7)});
}

} // namespace

// The leak checker also runs at exit. The font database frees its caches only
// when the application is destroyed, which never happens here (see above);
// every leak of an input is still caught by the fuzzer's own check after it.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}

void FuzzEnvironment::start()
{
    if (application)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("MP_JOURNAL");
    qInstallMessageHandler(dropMessages);
    static int argc = 1;
    static char name[] = "mp_fuzz";
    static char* argv[] = {name, nullptr};
    application = new QApplication(argc, argv);

    dataDir = new QTemporaryDir;
    if (!dataDir->isValid())
        qFatal("fuzz: cannot create a data folder");
    qputenv("MP_DATA_DIR", dataDir->path().toLocal8Bit());
    LOG_SetStream(std::fopen("/dev/null", "w"));
    HostEngineClock::setManual(true);
    HostDialogs::clearAnswers();
    fillLibrary();
}

void FuzzEnvironment::runEventLoop()
{
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

unsigned int FuzzEnvironment::playListId()
{
    return userPlayList;
}

QString FuzzEnvironment::dataFolder()
{
    return dataDir ? dataDir->path() : QString();
}
