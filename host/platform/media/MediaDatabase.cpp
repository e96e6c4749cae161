#include "host/platform/media/MediaDatabase.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

#include "host/platform/HostDataDir.h"
#include "host/platform/media/MediaDatabaseSchema.h"
#include "host/platform/media/MediaSearchPlan.h"
#include "host/platform/media/MediaSortKey.h"
#include "host/platform/media/MetadataLog.h"
#include "host/platform/media/SqliteStatement.h"
#include "host/platform/media/SqliteTransaction.h"

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
    if (!mode
        || sqlite3_exec(db, "PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON;", nullptr, nullptr, &message)
               != SQLITE_OK) {
        *problem = QString::fromUtf8(message ? message : sqlite3_errmsg(db));
        sqlite3_free(message);
        return std::nullopt;
    }
    return mode;
}

sqlite3* openWith(const QByteArray& name, int flags)
{
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(name.constData(), &db, flags | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
        qCWarning(lcMetadata) << "cannot open" << name << ":" << sqlite3_errmsg(db);
        sqlite3_close(db);
        return nullptr;
    }
    return db;
}

sqlite3* openReadWrite(const QString& file)
{
    return openWith(QFile::encodeName(file), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

// A file in write-ahead-log mode is read through a shared-memory index
// beside it. When a writer (another user, who may write the folder) keeps
// one, reading through it sees that writer's commits. Otherwise the file is
// read as one that nobody changes: trying the index would make it, and its
// log, in a folder that is not to be written, or fail where it cannot be.
sqlite3* openReadOnly(const QString& file)
{
    const QByteArray uri = QUrl::fromLocalFile(file).toEncoded();
    if (QFileInfo::exists(file + QStringLiteral("-shm"))) {
        sqlite3* db = openWith(uri + "?mode=ro", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
        if (db && sqlite3_exec(db, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr) == SQLITE_OK)
            return db;
        sqlite3_close(db);
    }
    return openWith(uri + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
}

// The bounds of the paths inside a folder: "folder/" <= path < "folder0",
// '0' being the byte after '/'. An indexed range, unlike a LIKE pattern.
QPair<QString, QString> pathRangeOf(const QString& folder)
{
    QString prefix = QDir::cleanPath(folder);
    if (!prefix.endsWith(QLatin1Char('/')))
        prefix += QLatin1Char('/');
    QString end = prefix;
    end[end.size() - 1] = QLatin1Char('0');
    return {prefix, end};
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
    sqlite3* db = isReadOnly ? openReadOnly(file) : openReadWrite(file);
    if (!db)
        return nullptr;
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    QString problem;
    const std::optional<QByteArray> journalMode = prepareConnection(db, isReadOnly, &problem);
    const bool isUsable = journalMode
                          && (isReadOnly ? MediaDatabaseSchema::isCurrent(db, &problem)
                                         : MediaDatabaseSchema::upgrade(db, &problem));
    if (!isUsable) {
        qCWarning(lcMetadata).noquote() << "cannot use" << file << ":" << problem;
        sqlite3_close(db);
        return nullptr;
    }
    return std::unique_ptr<MediaDatabase>(new MediaDatabase(db, file, *journalMode == "wal"));
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

bool MediaDatabase::holdSnapshot()
{
    m_snapshot.reset();
    if (!m_isWriteAheadLog)
        return false;
    auto snapshot = std::make_unique<SqliteTransaction>(m_db, SqliteTransaction::Kind::Read);
    if (!snapshot->isActive())
        return false;
    m_snapshot = std::move(snapshot);
    // A deferred transaction takes its snapshot at its first read.
    if (!latestChange()) {
        m_snapshot.reset();
        return false;
    }
    return true;
}

void MediaDatabase::releaseSnapshot()
{
    // Nothing was written under it: ending it by rollback or commit is the same.
    m_snapshot.reset();
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

// ---------------------------------------------------------------------------
// Groups

quint32 MediaDatabase::addGroup(MetadataGroupType type, const QString& name, const QString& source)
{
    SqliteStatement& insert = statement("INSERT INTO groups (type, name, source) VALUES (?1, ?2, ?3)");
    insert.bind(1, qint64(type));
    insert.bind(2, name);
    if (source.isEmpty())
        insert.bindNull(3);
    else
        insert.bind(3, source);
    if (!insert.run())
        return 0;
    return quint32(sqlite3_last_insert_rowid(m_db));
}

bool MediaDatabase::removeGroup(quint32 id)
{
    if (id == METADATA_AUDIO_HISTORY_GROUP_ID || id == METADATA_VIDEO_HISTORY_GROUP_ID)
        return false;
    SqliteStatement& remove = statement("DELETE FROM groups WHERE id = ?1");
    remove.bind(1, qint64(id));
    return remove.run() && sqlite3_changes(m_db) == 1;
}

std::optional<MediaGroup> MediaDatabase::readGroup(SqliteStatement& query)
{
    std::optional<MediaGroup> found;
    if (query.step() == SqliteStatement::Step::Row)
        found = MediaGroup{quint32(query.int64(0)), MetadataGroupType(query.int64(1)), query.text(2), query.text(3)};
    query.reset();
    return found;
}

std::optional<MediaGroup> MediaDatabase::groupById(quint32 id)
{
    SqliteStatement& query = statement("SELECT id, type, name, source FROM groups WHERE id = ?1");
    query.bind(1, qint64(id));
    return readGroup(query);
}

std::optional<MediaGroup> MediaDatabase::groupBySource(const QString& source)
{
    SqliteStatement& query = statement("SELECT id, type, name, source FROM groups WHERE source = ?1");
    query.bind(1, source);
    return readGroup(query);
}

std::optional<MediaGroup> MediaDatabase::groupByName(MetadataGroupType type, const QString& name)
{
    SqliteStatement& query =
        statement("SELECT id, type, name, source FROM groups WHERE type = ?1 AND name = ?2 ORDER BY id LIMIT 1");
    query.bind(1, qint64(type));
    query.bind(2, name);
    return readGroup(query);
}

QList<MediaGroup> MediaDatabase::groupsWithSourceUnder(const QString& folder)
{
    const QPair<QString, QString> range = pathRangeOf(folder);
    SqliteStatement& query =
        statement("SELECT id, type, name, source FROM groups WHERE source >= ?1 AND source < ?2");
    query.bind(1, range.first);
    query.bind(2, range.second);
    QList<MediaGroup> groups;
    while (query.step() == SqliteStatement::Step::Row)
        groups.append(MediaGroup{quint32(query.int64(0)), MetadataGroupType(query.int64(1)), query.text(2),
                                 query.text(3)});
    query.reset();
    return groups;
}

QList<quint32> MediaDatabase::groupMembers(quint32 groupId)
{
    SqliteStatement& query = statement("SELECT media_id FROM group_members WHERE group_id = ?1 ORDER BY position");
    query.bind(1, qint64(groupId));
    QList<quint32> members;
    while (query.step() == SqliteStatement::Step::Row)
        members.append(quint32(query.int64(0)));
    query.reset();
    return members;
}

bool MediaDatabase::setGroupMembers(quint32 groupId, const QList<quint32>& mediaIds)
{
    if (!groupById(groupId))
        return false;
    SqliteTransaction transaction(m_db);
    SqliteStatement& clear = statement("DELETE FROM group_members WHERE group_id = ?1");
    clear.bind(1, qint64(groupId));
    if (!transaction.isActive() || !clear.run())
        return false;
    SqliteStatement& insert = statement("INSERT INTO group_members (group_id, position, media_id) VALUES (?1, ?2, ?3)");
    for (int position = 0; position < mediaIds.size(); ++position) {
        insert.bind(1, qint64(groupId));
        insert.bind(2, qint64(position + 1));
        insert.bind(3, qint64(mediaIds[position]));
        if (!insert.run())
            return false;
    }
    return transaction.commit();
}

// ---------------------------------------------------------------------------
// Searching

void MediaDatabase::validateCache()
{
    const MediaCommitStamp stamp = commitStamp();
    m_cache.validate(stamp.othersVersion, stamp.ownChanges);
}

std::shared_ptr<const MediaOrderedResult> MediaDatabase::orderedResult(const MediaSearchPlan& plan)
{
    validateCache();
    const QByteArray key = plan.shapeKey();
    std::shared_ptr<const MediaOrderedResult> ordered = m_cache.find(key);
    if (!ordered) {
        ordered = loadOrderedResult(plan);
        if (ordered)
            m_cache.insert(key, ordered);
    }
    return ordered;
}

std::shared_ptr<const MediaOrderedResult> MediaDatabase::loadOrderedResult(const MediaSearchPlan& plan)
{
    SqliteStatement& query = statement(plan.sql());
    plan.bindTo(query);
    auto ordered = std::make_shared<MediaOrderedResult>();
    SqliteStatement::Step step = query.step();
    for (; step == SqliteStatement::Step::Row; step = query.step()) {
        if (plan.isGrouped())
            ordered->albums.push_back(query.utf8(0));
        else
            ordered->ids.push_back(quint32(query.int64(0)));
    }
    query.reset();
    if (step != SqliteStatement::Step::Done)
        return nullptr;
    return ordered;
}

bool MediaDatabase::fillWindow(const MediaSearchPlan& plan, const MediaOrderedResult& ordered,
                               MediaSearchResult& result)
{
    const qint64 total = result.total;
    const qint64 end = std::min(total, qint64(plan.firstIndex()) + plan.resultCount());
    if (plan.resultCount() == 0 || plan.firstIndex() >= total)
        return true;
    result.rows.reserve(size_t(end - plan.firstIndex()));
    SqliteStatement& query = statement("SELECT path, album FROM media WHERE id = ?1");
    for (qint64 i = plan.firstIndex(); i < end; ++i) {
        MediaSearchRow row;
        if (plan.isGrouped()) {
            row.album = ordered.albums[size_t(i)];
        } else {
            row.id = ordered.ids[size_t(i)];
            if (plan.needsRowValues()) {
                query.bind(1, qint64(row.id));
                const bool found = query.step() == SqliteStatement::Step::Row;
                if (found) {
                    row.path = query.utf8(0);
                    row.album = query.utf8(1);
                }
                query.reset();
                if (!found)
                    return false;
            }
        }
        result.rows.push_back(std::move(row));
    }
    return true;
}

std::optional<MediaSearchResult> MediaDatabase::search(const MediaSearchPlan& plan)
{
    // One snapshot for the check of the database state, the ordered result
    // and the rows of the window: a change committed meanwhile by another
    // connection cannot take a row from under the window.
    SqliteTransaction snapshot(m_db, SqliteTransaction::Kind::Read);
    const std::shared_ptr<const MediaOrderedResult> ordered = orderedResult(plan);
    if (!snapshot.isActive() || !ordered)
        return std::nullopt;
    MediaSearchResult result;
    result.total = quint32(plan.isGrouped() ? ordered->albums.size() : ordered->ids.size());
    if (!fillWindow(plan, *ordered, result))
        return std::nullopt;
    snapshot.commit();
    return result;
}

// ---------------------------------------------------------------------------
// Changes

MediaCommitStamp MediaDatabase::commitStamp()
{
    // data_version moves when another connection (the scanner, another
    // process) commits; total_changes when this one writes.
    SqliteStatement& query = statement("PRAGMA data_version");
    const qint64 othersVersion = query.step() == SqliteStatement::Step::Row ? query.int64(0) : -1;
    query.reset();
    return MediaCommitStamp{othersVersion, sqlite3_total_changes64(m_db)};
}

std::optional<qint64> MediaDatabase::latestChange()
{
    SqliteStatement& query = statement("SELECT max(seq) FROM change_log");
    std::optional<qint64> latest;
    if (query.step() == SqliteStatement::Step::Row)
        latest = query.int64(0);
    query.reset();
    return latest;
}

std::optional<MediaChanges> MediaDatabase::changesSince(qint64 sequence)
{
    // Subject 0 is the media table, any other a group; a group row whose
    // group is gone tells of its deletion.
    SqliteStatement& query = statement(
        "SELECT c.subject, c.seq, EXISTS (SELECT 1 FROM groups g WHERE g.id = c.subject) "
        "FROM change_log c WHERE c.seq > ?1 ORDER BY c.seq");
    query.bind(1, sequence);
    MediaChanges changes;
    changes.lastSequence = sequence;
    SqliteStatement::Step step = query.step();
    for (; step == SqliteStatement::Step::Row; step = query.step()) {
        const qint64 subject = query.int64(0);
        changes.lastSequence = query.int64(1);
        if (subject == 0)
            changes.isMediaChanged = true;
        else
            changes.groups.append(MediaGroupChange{quint32(subject), query.int64(2) == 0});
    }
    query.reset();
    if (step != SqliteStatement::Step::Done)
        return std::nullopt;
    return changes;
}

// ---------------------------------------------------------------------------
// The last-played list

std::optional<MediaLastPlayedList> MediaDatabase::lastPlayedList()
{
    SqliteStatement& query = statement(
        "SELECT list_type, artist, album, composer, genre, group_id, storage, first_index "
        "FROM last_played_list WHERE slot = 1");
    std::optional<MediaLastPlayedList> found;
    if (query.step() == SqliteStatement::Step::Row) {
        const auto textOrNothing = [&query](int column) {
            return query.isNull(column) ? std::nullopt : std::optional<QString>(query.text(column));
        };
        MediaLastPlayedList list;
        list.listType = int(query.int64(0));
        list.artist = textOrNothing(1);
        list.album = textOrNothing(2);
        list.composer = textOrNothing(3);
        list.genre = textOrNothing(4);
        list.groupId = quint32(query.int64(5));
        list.storage = int(query.int64(6));
        list.firstIndex = int(query.int64(7));
        found = list;
    }
    query.reset();
    return found;
}

bool MediaDatabase::setLastPlayedList(const MediaLastPlayedList& list)
{
    SqliteStatement& replace = statement(
        "INSERT OR REPLACE INTO last_played_list "
        "(slot, list_type, artist, album, composer, genre, group_id, storage, first_index) "
        "VALUES (1, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)");
    const auto bindText = [&replace](int index, const std::optional<QString>& text) {
        if (text)
            replace.bind(index, *text);
        else
            replace.bindNull(index);
    };
    replace.bind(1, qint64(list.listType));
    bindText(2, list.artist);
    bindText(3, list.album);
    bindText(4, list.composer);
    bindText(5, list.genre);
    replace.bind(6, qint64(list.groupId));
    replace.bind(7, qint64(list.storage));
    replace.bind(8, qint64(list.firstIndex));
    return replace.run();
}

std::optional<MediaLastPlayedSong> MediaDatabase::lastPlayedSong()
{
    SqliteStatement& query = statement("SELECT path, list_position FROM last_played_song WHERE slot = 1");
    std::optional<MediaLastPlayedSong> found;
    if (query.step() == SqliteStatement::Step::Row)
        found = MediaLastPlayedSong{query.text(0), int(query.int64(1))};
    query.reset();
    return found;
}

bool MediaDatabase::setLastPlayedSong(const MediaLastPlayedSong& song)
{
    SqliteStatement& replace =
        statement("INSERT OR REPLACE INTO last_played_song (slot, path, list_position) VALUES (1, ?1, ?2)");
    replace.bind(1, song.path);
    replace.bind(2, qint64(song.position));
    return replace.run();
}
