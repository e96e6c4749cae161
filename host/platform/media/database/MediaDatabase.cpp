// MediaDatabase: opening the file, transactions and snapshots, and the media
// objects. Groups, searches, changes and the last-played records are in
// the MediaDatabase*.cpp files named after them.

#include "host/platform/media/database/MediaDatabase.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QSet>
#include <QUrl>

#include "host/platform/HostDataDir.h"
#include "host/platform/media/database/MediaDatabaseSchema.h"
#include "host/platform/media/database/MediaSortKey.h"
#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/database/SqliteStatement.h"
#include "host/platform/media/database/SqliteTransaction.h"

namespace {

// Shapes whose ordered results stay in memory: a list counts and then reads
// windows of one shape; a few more cover lists built one after another.
constexpr int kCachedShapes = 4;

const char* const kMediaColumns =
    "id, path, kind, title, artist, album, genre, composer, track, date, storage, created_by, buy, "
    "file_size, file_modified";

// How long a call waits for another program's write lock. The application
// runs on one event-loop thread: a wait of seconds would freeze the player,
// so a locked database fails the call soon and the caller reports it.
constexpr int kBusyTimeoutMs = 250;

// The write-ahead log's size at which a connection that moves its snapshot
// first copies the log into the database file, so that the next writer can
// start the log over; and the size a writer cuts the log back to when it
// starts over. A client keeps a snapshot all the time (MetadataConnection.h),
// so SQLite's own checkpoints, which find it in the way, never get that far.
constexpr qint64 kWalLimitBytes = 1024 * 1024;

// Sets the connection up; returns the journal mode in force, or nothing with
// the reason in @p problem.
std::optional<QByteArray> prepareConnection(sqlite3* db, bool isReadOnly, QString* problem)
{
    // The scanner and the application may use the file at the same time:
    // write-ahead logging lets readers go on while one writes, and gives each
    // reader a snapshot of its own. A read-only connection takes the mode the
    // file has.
    sqlite3_stmt* statement = nullptr;
    std::optional<QByteArray> mode;
    const char* const journalSql = isReadOnly ? "PRAGMA journal_mode" : "PRAGMA journal_mode = WAL";
    if (sqlite3_prepare_v2(db, journalSql, -1, &statement, nullptr) == SQLITE_OK
        && sqlite3_step(statement) == SQLITE_ROW)
        mode = QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))).toLower();
    sqlite3_finalize(statement);
    char* message = nullptr;
    QByteArray settings = "PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON;";
    if (!isReadOnly)
        settings += "PRAGMA journal_size_limit = " + QByteArray::number(kWalLimitBytes) + ';';
    if (!mode || sqlite3_exec(db, settings.constData(), nullptr, nullptr, &message) != SQLITE_OK) {
        *problem = QString::fromUtf8(message ? message : sqlite3_errmsg(db));
        sqlite3_free(message);
        return std::nullopt;
    }
    return mode;
}

// Null with the reason in @p problem when the file cannot be opened.
sqlite3* openWith(const QByteArray& name, int flags, QString* problem)
{
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(name.constData(), &db, flags | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
        *problem = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_close(db);
        return nullptr;
    }
    return db;
}

sqlite3* openReadWrite(const QString& file, QString* problem)
{
    return openWith(QFile::encodeName(file), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, problem);
}

// A file in write-ahead-log mode is read through a shared-memory index
// beside it. When a writer (another user, who may write the folder) keeps
// one, reading through it sees that writer's commits. Otherwise the file is
// read as one that nobody changes: trying the index would make it, and its
// log, in a folder that is not to be written, or fail where it cannot be.
sqlite3* openReadOnly(const QString& file, QString* problem)
{
    const QByteArray uri = QUrl::fromLocalFile(file).toEncoded();
    if (QFileInfo::exists(file + QStringLiteral("-shm"))) {
        sqlite3* db = openWith(uri + "?mode=ro", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, problem);
        if (db && sqlite3_exec(db, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr) == SQLITE_OK)
            return db;
        sqlite3_close(db);
    }
    return openWith(uri + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, problem);
}

} // namespace

QString MediaDatabase::defaultFile()
{
    return HostDataDir::file(QStringLiteral("metadata.db"));
}

std::unique_ptr<MediaDatabase> MediaDatabase::open(const QString& file)
{
    const QString folder = QFileInfo(file).absolutePath();
    QDir().mkpath(folder);
    // Only a database that exists can be read without writing; with none
    // there is nothing to play, and the read-write open says why it fails.
    const bool isReadOnly =
        QFileInfo::exists(file) && !(HostDataDir::isWritable(folder) && HostDataDir::isWritable(file));
    if (isReadOnly)
        HostDataDir::reportReadOnly(folder);
    QString problem;
    sqlite3* db = isReadOnly ? openReadOnly(file, &problem) : openReadWrite(file, &problem);
    if (!db) {
        refuse(file, problem);
        return nullptr;
    }
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    const std::optional<QByteArray> journalMode = prepareConnection(db, isReadOnly, &problem);
    const bool isUsable = journalMode
                          && (isReadOnly ? MediaDatabaseSchema::isCurrent(db, &problem)
                                         : MediaDatabaseSchema::upgrade(db, &problem));
    if (!isUsable) {
        refuse(file, problem);
        sqlite3_close(db);
        return nullptr;
    }
    noteUsable();
    return std::unique_ptr<MediaDatabase>(new MediaDatabase(db, file, *journalMode == "wal"));
}

namespace {

QMutex refusalMutex;
QString lastRefusalText;
QSet<QString> refusalsSaid;

} // namespace

void MediaDatabase::refuse(const QString& file, const QString& problem)
{
    const QString text = file + QStringLiteral(": ") + problem;
    QMutexLocker lock(&refusalMutex);
    lastRefusalText = text;
    // Every service opens the database on its own; the same refusal said
    // once is enough, another one (the file was replaced) is news.
    if (!refusalsSaid.contains(text)) {
        refusalsSaid.insert(text);
        qCWarning(lcMetadata).noquote() << "cannot use" << file << ":" << problem;
    }
}

void MediaDatabase::noteUsable()
{
    QMutexLocker lock(&refusalMutex);
    lastRefusalText = QString();
}

QString MediaDatabase::lastRefusal()
{
    QMutexLocker lock(&refusalMutex);
    return lastRefusalText;
}

MediaDatabase::MediaDatabase(sqlite3* db, const QString& fileName, bool isWriteAheadLog)
    : m_db(db), m_fileName(fileName), m_isWriteAheadLog(isWriteAheadLog), m_cache(kCachedShapes)
{
}

MediaDatabase::~MediaDatabase()
{
    m_snapshot.reset();
    m_statements.clear();
    sqlite3_close(m_db);
}

std::unique_ptr<SqliteTransaction> MediaDatabase::beginTransaction()
{
    return std::make_unique<SqliteTransaction>(m_db);
}

std::unique_ptr<SqliteTransaction> MediaDatabase::beginTransactionWithoutWaiting()
{
    sqlite3_busy_timeout(m_db, 0);
    auto transaction = std::make_unique<SqliteTransaction>(m_db, SqliteTransaction::Kind::WriteIfFree);
    sqlite3_busy_timeout(m_db, kBusyTimeoutMs);
    return transaction;
}

bool MediaDatabase::isReadOnly() const
{
    return sqlite3_db_readonly(m_db, "main") == 1;
}

bool MediaDatabase::isInTransaction() const
{
    return sqlite3_get_autocommit(m_db) == 0;
}

SqliteStatement& MediaDatabase::statement(const QByteArray& sql)
{
    std::unique_ptr<SqliteStatement>& slot = m_statements[sql];
    if (!slot)
        slot = std::make_unique<SqliteStatement>(m_db, sql);
    return *slot;
}

std::function<SqliteStatement&(const QByteArray& sql)> MediaDatabase::keptStatements()
{
    return [this](const QByteArray& sql) -> SqliteStatement& { return statement(sql); };
}

bool MediaDatabase::holdSnapshot()
{
    releaseSnapshot();
    if (!m_isWriteAheadLog)
        return false;
    checkpointLargeLog();
    auto snapshot = std::make_unique<SqliteTransaction>(m_db, SqliteTransaction::Kind::Read);
    if (!snapshot->isActive())
        return false;
    m_snapshot = std::move(snapshot);
    // A deferred transaction takes its snapshot at its first read.
    m_snapshotSequence = latestChange();
    if (!m_snapshotSequence) {
        m_snapshot.reset();
        return false;
    }
    return true;
}

void MediaDatabase::releaseSnapshot()
{
    // Nothing was written under it: ending it by rollback or commit is the same.
    m_snapshot.reset();
    m_snapshotSequence.reset();
}

void MediaDatabase::checkpointLargeLog()
{
    // Between snapshots, where this connection keeps nothing of the log in
    // use. When the whole log gets into the database file, the snapshot taken
    // next reads that file alone, and the next writer starts the log over.
    // Passive: it copies what no other reader needs, and never waits.
    if (QFileInfo(m_fileName + QStringLiteral("-wal")).size() <= kWalLimitBytes)
        return;
    int logFrames = 0;
    int copiedFrames = 0;
    if (sqlite3_wal_checkpoint_v2(m_db, nullptr, SQLITE_CHECKPOINT_PASSIVE, &logFrames, &copiedFrames) != SQLITE_OK)
        qCDebug(lcMetadata) << "checkpoint of" << m_fileName << "failed:" << sqlite3_errmsg(m_db);
    else if (copiedFrames < logFrames)
        qCDebug(lcMetadata) << "checkpoint of" << m_fileName << "copied" << copiedFrames << "of" << logFrames
                            << "frames: another reader still needs the rest";
}

// ---------------------------------------------------------------------------
// Media objects

void MediaDatabase::bindMedia(SqliteStatement& query, const MediaRecord& record)
{
    query.bind(1, record.path);
    query.bind(2, qint64(record.kind));
    query.bind(3, record.title);
    query.bindUtf8(4, MediaSortKey::of(record.title));
    query.bind(5, record.artist);
    query.bind(6, record.album);
    query.bindUtf8(7, MediaSortKey::of(record.album));
    query.bind(8, record.genre);
    query.bind(9, record.composer);
    query.bind(10, qint64(record.track));
    query.bind(11, record.date);
    query.bind(12, qint64(record.storage));
    query.bind(13, qint64(record.createdBy));
    query.bind(14, qint64(record.buy ? 1 : 0));
    query.bind(15, record.fileSize);
    query.bind(16, record.fileModified);
}

quint32 MediaDatabase::addMedia(const MediaRecord& record)
{
    SqliteStatement& insert = statement(
        "INSERT INTO media (path, kind, title, title_key, artist, album, album_key, genre, composer, track, date, "
        "storage, created_by, buy, file_size, file_modified) "
        "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16)");
    bindMedia(insert, record);
    if (!insert.run())
        return 0;
    return quint32(sqlite3_last_insert_rowid(m_db));
}

bool MediaDatabase::updateMedia(const MediaRecord& record)
{
    SqliteStatement& update = statement(
        "UPDATE media SET path = ?1, kind = ?2, title = ?3, title_key = ?4, artist = ?5, album = ?6, "
        "album_key = ?7, genre = ?8, composer = ?9, track = ?10, date = ?11, storage = ?12, created_by = ?13, "
        "buy = ?14, file_size = ?15, file_modified = ?16 WHERE id = ?17");
    bindMedia(update, record);
    update.bind(17, qint64(record.id));
    return update.run() && sqlite3_changes(m_db) == 1;
}

bool MediaDatabase::removeMedia(quint32 id)
{
    SqliteStatement& remove = statement("DELETE FROM media WHERE id = ?1");
    remove.bind(1, qint64(id));
    return remove.run() && sqlite3_changes(m_db) == 1;
}

std::optional<MediaRecord> MediaDatabase::readMedia(SqliteStatement& query)
{
    std::optional<MediaRecord> found;
    if (query.step() == SqliteStatement::Step::Row) {
        MediaRecord record;
        record.id = quint32(query.int64(0));
        record.path = query.text(1);
        record.kind = query.int64(2) == qint64(MediaKind::Video) ? MediaKind::Video : MediaKind::Audio;
        record.title = query.text(3);
        record.artist = query.text(4);
        record.album = query.text(5);
        record.genre = query.text(6);
        record.composer = query.text(7);
        record.track = int(query.int64(8));
        record.date = query.text(9);
        record.storage = int(query.int64(10));
        record.createdBy = int(query.int64(11));
        record.buy = query.int64(12) != 0;
        record.fileSize = query.int64(13);
        record.fileModified = query.int64(14);
        found = record;
    }
    query.reset();
    return found;
}

std::optional<MediaRecord> MediaDatabase::mediaById(quint32 id)
{
    SqliteStatement& query = statement(QByteArray("SELECT ") + kMediaColumns + " FROM media WHERE id = ?1");
    query.bind(1, qint64(id));
    return readMedia(query);
}

std::optional<MediaRecord> MediaDatabase::mediaByPath(const QString& path)
{
    SqliteStatement& query = statement(QByteArray("SELECT ") + kMediaColumns + " FROM media WHERE path = ?1");
    query.bind(1, path);
    return readMedia(query);
}

QList<MediaFileStamp> MediaDatabase::mediaUnder(const QString& folder)
{
    const QPair<QString, QString> range = pathRangeOf(folder);
    SqliteStatement& query =
        statement("SELECT id, path, file_size, file_modified FROM media WHERE path >= ?1 AND path < ?2");
    query.bind(1, range.first);
    query.bind(2, range.second);
    QList<MediaFileStamp> stamps;
    while (query.step() == SqliteStatement::Step::Row)
        stamps.append(MediaFileStamp{quint32(query.int64(0)), query.text(1), query.int64(2), query.int64(3)});
    query.reset();
    return stamps;
}

int MediaDatabase::mediaCount()
{
    SqliteStatement& query = statement("SELECT count(*) FROM media");
    const int count = query.step() == SqliteStatement::Step::Row ? int(query.int64(0)) : 0;
    query.reset();
    return count;
}

std::optional<QSet<QString>> MediaDatabase::foldersOf(const std::vector<quint32>& ids, int limit)
{
    SqliteTransaction snapshot(m_db, SqliteTransaction::Kind::Read);
    SqliteStatement& query = statement("SELECT path FROM media WHERE id = ?1");
    QSet<QString> folders;
    for (const quint32 id : ids) {
        query.bind(1, qint64(id));
        if (query.step() == SqliteStatement::Step::Row)
            folders.insert(QFileInfo(query.text(0)).path());
        query.reset();
        if (folders.size() > limit)
            return std::nullopt;
    }
    snapshot.commit();
    return folders;
}

// The bounds of the paths inside a folder: "folder/" <= path < "folder0",
// '0' being the byte after '/'. An indexed range, unlike a LIKE pattern.
QPair<QString, QString> MediaDatabase::pathRangeOf(const QString& folder)
{
    QString prefix = QDir::cleanPath(folder);
    if (!prefix.endsWith(QLatin1Char('/')))
        prefix += QLatin1Char('/');
    QString end = prefix;
    end[end.size() - 1] = QLatin1Char('0');
    return {prefix, end};
}
