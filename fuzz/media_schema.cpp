// The media database as another program may leave it: a fresh database,
// changed by the input's SQL as a person in the sqlite3 shell could change it
// (a column dropped or renamed, a table made anew, rows of any type), then
// opened and read and written the way the player, mp-scan and mp-mpris use it.
//
// Input: SQL text, run on the new database before it is opened again.
// Inputs that would reach files other than the database (ATTACH, VACUUM
// INTO) are skipped; a statement that runs too long is interrupted.
//
// Besides not crashing, the opening must keep its contract, checked here: a
// database it opens is at this program's schema version.

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "fuzz/support/FuzzCheck.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/MediaDatabaseSchema.h"

namespace {

// SQLite's virtual machine steps an input's SQL may take before it is interrupted.
constexpr int kMaxSteps = 200000;
constexpr int kStepsPerCheck = 1000;
// The largest text or blob an input may make.
constexpr int kMaxValueBytes = 64 * 1024;

void silence(QtMsgType, const QMessageLogContext&, const QString&) {}

int stopLongRuns(void* stepsDone)
{
    int& steps = *static_cast<int*>(stepsDone);
    steps += kStepsPerCheck;
    return steps > kMaxSteps ? 1 : 0;
}

const QString& databaseFile()
{
    static QTemporaryDir folder;
    static const QString file = folder.filePath(QStringLiteral("metadata.db"));
    return file;
}

void removeDatabase()
{
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(databaseFile() + QLatin1String(suffix));
}

void runAsAnotherProgram(const QByteArray& sql)
{
    sqlite3* db = nullptr;
    if (sqlite3_open(QFile::encodeName(databaseFile()).constData(), &db) == SQLITE_OK) {
        int steps = 0;
        sqlite3_progress_handler(db, kStepsPerCheck, stopLongRuns, &steps);
        sqlite3_limit(db, SQLITE_LIMIT_LENGTH, kMaxValueBytes);
        sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr);
    }
    sqlite3_close(db);
}

void useAsThePlayerDoes(MediaDatabase& database)
{
    database.mediaCount();
    database.mediaById(1);
    database.mediaByPath(QStringLiteral("/m/a.mp3"));
    database.mediaUnder(QStringLiteral("/m"));
    database.groupById(2);
    database.groupMembers(2);
    database.groupBySource(QStringLiteral("/m/list.m3u"));
    database.lastPlayedList();
    database.lastPlayedSong();
    database.commitStamp();
    database.changesSince(0);
    if (database.holdSnapshot())
        database.releaseSnapshot();
    MediaRecord record;
    record.path = QStringLiteral("/m/new.mp3");
    record.title = QStringLiteral("New");
    const quint32 id = database.addMedia(record);
    if (id != 0)
        database.setGroupMembers(2, {id});
    database.setLastPlayedSong({QStringLiteral("/m/new.mp3"), 0});
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    qInstallMessageHandler(silence);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray sql = QByteArray(reinterpret_cast<const char*>(data), qsizetype(size));
    const QByteArray lower = sql.toLower();
    if (lower.contains("attach") || lower.contains("vacuum") || lower.contains('\0'))
        return 0;
    removeDatabase();
    if (!MediaDatabase::open(databaseFile()))
        return 0;
    runAsAnotherProgram(sql);
    if (std::unique_ptr<MediaDatabase> database = MediaDatabase::open(databaseFile())) {
        sqlite3* db = nullptr;
        if (sqlite3_open(QFile::encodeName(databaseFile()).constData(), &db) == SQLITE_OK)
            fuzzCheck(MediaDatabaseSchema::versionOf(db) == MediaDatabaseSchema::currentVersion());
        sqlite3_close(db);
        useAsThePlayerDoes(*database);
    }
    return 0;
}
