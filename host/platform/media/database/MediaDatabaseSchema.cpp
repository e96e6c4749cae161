#include "host/platform/media/database/MediaDatabaseSchema.h"

#include <sqlite3.h>

#include <QByteArray>

#include <iterator>

#include "host/platform/media/database/MetadataLog.h"
#include "host/platform/media/database/SqliteTransaction.h"

namespace {

// Step n brings a database from version n-1 to version n. Steps are never
// edited once released; a change of the schema is a new step.
const char* const kSteps[] = {
    // 1: media objects, groups with ordered members, the last-played list and song.
    R"sql(
    CREATE TABLE media (
        id INTEGER PRIMARY KEY AUTOINCREMENT,     -- never reused: an id names one object for good
        path TEXT NOT NULL UNIQUE,
        kind INTEGER NOT NULL,                    -- 1 audio, 2 video
        title TEXT NOT NULL DEFAULT '',
        title_key TEXT NOT NULL DEFAULT '',       -- folded for ordering (MediaSortKey)
        artist TEXT NOT NULL DEFAULT '',
        album TEXT NOT NULL DEFAULT '',
        album_key TEXT NOT NULL DEFAULT '',
        genre TEXT NOT NULL DEFAULT '',
        composer TEXT NOT NULL DEFAULT '',
        track INTEGER NOT NULL DEFAULT 0,
        date TEXT NOT NULL DEFAULT '',            -- yyyy-MM-dd or its known part
        storage INTEGER NOT NULL DEFAULT 0,       -- 0 phone memory, 1 memory card
        created_by INTEGER NOT NULL DEFAULT -1,   -- 0 captured, 1 downloaded, -1 none
        buy INTEGER NOT NULL DEFAULT 0,
        file_size INTEGER NOT NULL DEFAULT 0,
        file_modified INTEGER NOT NULL DEFAULT 0  -- ms since the epoch
    );
    CREATE INDEX media_by_title ON media(kind, title_key);
    CREATE INDEX media_by_album ON media(kind, album_key, album);
    CREATE INDEX media_by_album_track ON media(kind, album, track, title_key);
    CREATE INDEX media_by_artist ON media(kind, artist, title_key);
    CREATE INDEX media_by_genre ON media(kind, genre, title_key);
    CREATE INDEX media_by_composer ON media(kind, composer, title_key);
    CREATE INDEX media_by_date ON media(kind, date);

    CREATE TABLE groups (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        type INTEGER NOT NULL,                    -- 0 user play list, 2 play history
        name TEXT NOT NULL,
        source TEXT UNIQUE                        -- the play-list file it came from, if any
    );
    INSERT INTO groups (id, type, name) VALUES (2, 2, 'Audio history'), (3, 2, 'Video history');

    CREATE TABLE group_members (
        group_id INTEGER NOT NULL REFERENCES groups(id) ON DELETE CASCADE,
        position INTEGER NOT NULL,
        media_id INTEGER NOT NULL REFERENCES media(id) ON DELETE CASCADE,
        PRIMARY KEY (group_id, position)
    ) WITHOUT ROWID;
    CREATE INDEX group_members_by_media ON group_members(media_id);

    CREATE TABLE last_played_list (
        slot INTEGER PRIMARY KEY CHECK (slot = 1),
        list_type INTEGER NOT NULL,
        artist TEXT,
        album TEXT,
        composer TEXT,
        genre TEXT,
        group_id INTEGER NOT NULL,
        storage INTEGER NOT NULL,
        first_index INTEGER NOT NULL
    );
    CREATE TABLE last_played_song (
        slot INTEGER PRIMARY KEY CHECK (slot = 1),
        path TEXT NOT NULL,
        list_position INTEGER NOT NULL
    );
    )sql",

    // 2: the change log behind the change indications. Triggers write it, so
    // every writer is seen, whatever program it is (the application, mp-scan,
    // the sqlite3 shell). It holds one row per subject with the sequence
    // number of the subject's latest change: a reader announces the subjects
    // that moved past the last number it saw, a scan of thousands of files is
    // one row, and the table stays as small as the number of groups.
    // No statement here can meet a constraint conflict: a trigger statement
    // takes the conflict policy of the statement that fired it, so an
    // "INSERT OR ROLLBACK" in the shell must not turn into a failure here.
    R"sql(
    CREATE TABLE change_log (
        subject INTEGER PRIMARY KEY,              -- 0 the media objects, else the id of a group
        seq INTEGER NOT NULL                      -- the number of the subject's latest change
    );
    CREATE INDEX change_log_by_seq ON change_log(seq);
    INSERT INTO change_log (subject, seq) VALUES (0, 0);

    CREATE TRIGGER media_inserted AFTER INSERT ON media BEGIN
        UPDATE change_log SET seq = (SELECT max(seq) FROM change_log) + 1 WHERE subject = 0;
    END;
    CREATE TRIGGER media_updated AFTER UPDATE ON media BEGIN
        UPDATE change_log SET seq = (SELECT max(seq) FROM change_log) + 1 WHERE subject = 0;
    END;
    CREATE TRIGGER media_deleted AFTER DELETE ON media BEGIN
        UPDATE change_log SET seq = (SELECT max(seq) FROM change_log) + 1 WHERE subject = 0;
    END;

    CREATE TRIGGER group_member_inserted AFTER INSERT ON group_members BEGIN
        INSERT INTO change_log (subject, seq) SELECT NEW.group_id, 0
            WHERE NOT EXISTS (SELECT 1 FROM change_log WHERE subject = NEW.group_id);
        UPDATE change_log SET seq = (SELECT max(seq) FROM change_log) + 1 WHERE subject = NEW.group_id;
    END;
    CREATE TRIGGER group_member_updated AFTER UPDATE ON group_members BEGIN
        INSERT INTO change_log (subject, seq) SELECT NEW.group_id, 0
            WHERE NOT EXISTS (SELECT 1 FROM change_log WHERE subject = NEW.group_id);
        INSERT INTO change_log (subject, seq) SELECT OLD.group_id, 0
            WHERE NOT EXISTS (SELECT 1 FROM change_log WHERE subject = OLD.group_id);
        UPDATE change_log SET seq = (SELECT max(seq) FROM change_log) + 1
            WHERE subject IN (OLD.group_id, NEW.group_id);
    END;
    CREATE TRIGGER group_member_deleted AFTER DELETE ON group_members BEGIN
        INSERT INTO change_log (subject, seq) SELECT OLD.group_id, 0
            WHERE NOT EXISTS (SELECT 1 FROM change_log WHERE subject = OLD.group_id);
        UPDATE change_log SET seq = (SELECT max(seq) FROM change_log) + 1 WHERE subject = OLD.group_id;
    END;
    -- A deleted group keeps its row so that readers can announce the deletion.
    -- Only the newest 256 such rows stay: a reader looks several times a
    -- second, so only a bulk deletion of more groups than that (in the shell)
    -- can take an announcement away before it was read.
    CREATE TRIGGER group_deleted AFTER DELETE ON groups BEGIN
        INSERT INTO change_log (subject, seq) SELECT OLD.id, 0
            WHERE NOT EXISTS (SELECT 1 FROM change_log WHERE subject = OLD.id);
        UPDATE change_log SET seq = (SELECT max(seq) FROM change_log) + 1 WHERE subject = OLD.id;
        DELETE FROM change_log WHERE subject IN (
            SELECT c.subject FROM change_log c
            WHERE c.subject <> 0 AND NOT EXISTS (SELECT 1 FROM groups g WHERE g.id = c.subject)
            ORDER BY c.seq DESC LIMIT -1 OFFSET 256);
    END;
    )sql",

    // 3: which media objects changed, so that a reader keeping ordered results
    // can place those objects anew instead of reading every result again. One
    // row per change that can move an object in some result (not the buy flag
    // or the file stamps), with the album it was in before. Numbers are
    // consecutive: a reader that finds a gap after the last number it saw
    // knows rows were dropped, and reads its results anew. Only the newest
    // 8,192 rows stay, more than a reader follows in place (MediaResultFollower).
    R"sql(
    CREATE TABLE media_change_log (
        seq INTEGER PRIMARY KEY,                  -- consecutive
        media_id INTEGER NOT NULL,
        album_key TEXT,                           -- before an update or a deletion, else NULL
        album TEXT
    );
    INSERT INTO media_change_log (seq, media_id) VALUES (0, 0);

    CREATE TRIGGER media_insert_logged AFTER INSERT ON media BEGIN
        INSERT INTO media_change_log (seq, media_id) SELECT max(seq) + 1, NEW.id FROM media_change_log;
        DELETE FROM media_change_log WHERE seq <= (SELECT max(seq) FROM media_change_log) - 8192;
    END;
    CREATE TRIGGER media_update_logged AFTER UPDATE ON media
    WHEN OLD.id IS NOT NEW.id OR OLD.path IS NOT NEW.path OR OLD.kind IS NOT NEW.kind
        OR OLD.title_key IS NOT NEW.title_key OR OLD.artist IS NOT NEW.artist OR OLD.album IS NOT NEW.album
        OR OLD.album_key IS NOT NEW.album_key OR OLD.genre IS NOT NEW.genre OR OLD.composer IS NOT NEW.composer
        OR OLD.track IS NOT NEW.track OR OLD.date IS NOT NEW.date OR OLD.storage IS NOT NEW.storage
        OR OLD.created_by IS NOT NEW.created_by
    BEGIN
        INSERT INTO media_change_log (seq, media_id, album_key, album)
            SELECT max(seq) + 1, OLD.id, OLD.album_key, OLD.album FROM media_change_log;
        INSERT INTO media_change_log (seq, media_id)
            SELECT max(seq) + 1, NEW.id FROM media_change_log WHERE NEW.id IS NOT OLD.id;
        DELETE FROM media_change_log WHERE seq <= (SELECT max(seq) FROM media_change_log) - 8192;
    END;
    CREATE TRIGGER media_delete_logged AFTER DELETE ON media BEGIN
        INSERT INTO media_change_log (seq, media_id, album_key, album)
            SELECT max(seq) + 1, OLD.id, OLD.album_key, OLD.album FROM media_change_log;
        DELETE FROM media_change_log WHERE seq <= (SELECT max(seq) FROM media_change_log) - 8192;
    END;
    )sql",
};

// The tables each version has; a file that claims a version without them
// is not a media database.
const char* const kTablesOf[][5] = {
    {"media", "groups", "group_members", "last_played_list", "last_played_song"},
    {"change_log"},
    {"media_change_log"},
};
static_assert(std::size(kTablesOf) == std::size(kSteps), "one table list per step");

// The columns this program reads and writes, by table. A table that lacks
// one (a column dropped or renamed in the sqlite3 shell) would fail its
// statements one by one while the program runs; the database is refused
// at opening instead.
struct TableColumns {
    const char* table;
    const char* columns;
};
const TableColumns kColumnsOf[] = {
    {"media", "id, path, kind, title, title_key, artist, album, album_key, genre, composer, track, date, storage, "
              "created_by, buy, file_size, file_modified"},
    {"groups", "id, type, name, source"},
    {"group_members", "group_id, position, media_id"},
    {"last_played_list", "slot, list_type, artist, album, composer, genre, group_id, storage, first_index"},
    {"last_played_song", "slot, path, list_position"},
    {"change_log", "subject, seq"},
    {"media_change_log", "seq, media_id, album_key, album"},
};

int tableCount(sqlite3* db, const char* name)
{
    sqlite3_stmt* statement = nullptr;
    int count = -1;
    const char* sql = name ? "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name = ?1"
                           : "SELECT count(*) FROM sqlite_schema";
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) == SQLITE_OK) {
        if (name)
            sqlite3_bind_text(statement, 1, name, -1, SQLITE_STATIC);
        if (sqlite3_step(statement) == SQLITE_ROW)
            count = sqlite3_column_int(statement, 0);
    }
    sqlite3_finalize(statement);
    return count;
}

// Why a database at @p version is not ours, or a null string when it is.
QString foreignSchemaProblem(sqlite3* db, int version)
{
    if (version == 0) {
        const int tables = tableCount(db, nullptr);
        if (tables < 0)
            return QStringLiteral("cannot read the schema: %1").arg(QString::fromUtf8(sqlite3_errmsg(db)));
        if (tables > 0)
            return QStringLiteral("the file holds another program's tables (schema version 0), not a media database");
        return QString();
    }
    for (int step = 0; step < version; ++step) {
        for (const char* table : kTablesOf[step]) {
            if (table && tableCount(db, table) != 1)
                return QStringLiteral("schema version %1 without its table \"%2\": not a media database")
                    .arg(version)
                    .arg(QLatin1String(table));
        }
    }
    return QString();
}

const char* columnsOf(const char* table)
{
    for (const TableColumns& entry : kColumnsOf) {
        if (qstrcmp(entry.table, table) == 0)
            return entry.columns;
    }
    return nullptr;
}

// Why a table of a database at @p version lacks a column this program uses,
// or a null string when none does. Preparing a query of the columns is the
// test SQLite itself applies to every statement.
QString damagedTableProblem(sqlite3* db, int version)
{
    for (int step = 0; step < version; ++step) {
        for (const char* table : kTablesOf[step]) {
            const char* columns = table ? columnsOf(table) : nullptr;
            if (!columns)
                continue;
            const QByteArray probe = QByteArray("SELECT ") + columns + " FROM " + table;
            sqlite3_stmt* statement = nullptr;
            const int prepared = sqlite3_prepare_v2(db, probe.constData(), -1, &statement, nullptr);
            sqlite3_finalize(statement);
            if (prepared != SQLITE_OK)
                return QStringLiteral("schema version %1 with a damaged table \"%2\" (%3): not a media database")
                    .arg(version)
                    .arg(QLatin1String(table), QString::fromUtf8(sqlite3_errmsg(db)));
        }
    }
    return QString();
}

bool runStep(sqlite3* db, int version, QString* problem)
{
    SqliteTransaction transaction(db);
    if (!transaction.isActive()) {
        *problem = QStringLiteral("cannot begin schema step %1: %2").arg(version).arg(QString::fromUtf8(sqlite3_errmsg(db)));
        return false;
    }
    // Another process may have run the step while this one waited for the lock.
    if (MediaDatabaseSchema::versionOf(db) >= version)
        return true;
    char* message = nullptr;
    if (sqlite3_exec(db, kSteps[version - 1], nullptr, nullptr, &message) != SQLITE_OK) {
        *problem = QStringLiteral("schema step %1 failed: %2").arg(version).arg(QString::fromUtf8(message));
        sqlite3_free(message);
        return false;
    }
    const QByteArray setVersion = "PRAGMA user_version = " + QByteArray::number(version);
    if (sqlite3_exec(db, setVersion.constData(), nullptr, nullptr, nullptr) != SQLITE_OK || !transaction.commit()) {
        *problem = QStringLiteral("cannot complete schema step %1: %2").arg(version).arg(QString::fromUtf8(sqlite3_errmsg(db)));
        return false;
    }
    return true;
}

} // namespace

int MediaDatabaseSchema::currentVersion()
{
    return int(std::size(kSteps));
}

int MediaDatabaseSchema::versionOf(sqlite3* db)
{
    sqlite3_stmt* statement = nullptr;
    int version = -1;
    if (sqlite3_prepare_v2(db, "PRAGMA user_version", -1, &statement, nullptr) == SQLITE_OK
        && sqlite3_step(statement) == SQLITE_ROW)
        version = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    return version;
}

namespace {

// The database's version when this program can use it, else -1 with the problem.
int usableVersion(sqlite3* db, QString* problem)
{
    const int version = MediaDatabaseSchema::versionOf(db);
    if (version < 0) {
        *problem = QStringLiteral("cannot read the schema version: %1").arg(QString::fromUtf8(sqlite3_errmsg(db)));
        return -1;
    }
    if (version > MediaDatabaseSchema::currentVersion()) {
        *problem = QStringLiteral("schema version %1 is newer than this program's %2")
                       .arg(version)
                       .arg(MediaDatabaseSchema::currentVersion());
        return -1;
    }
    *problem = foreignSchemaProblem(db, version);
    if (problem->isNull())
        *problem = damagedTableProblem(db, version);
    return problem->isNull() ? version : -1;
}

} // namespace

bool MediaDatabaseSchema::isCurrent(sqlite3* db, QString* problem)
{
    const int version = usableVersion(db, problem);
    if (version < 0)
        return false;
    if (version < currentVersion()) {
        *problem = QStringLiteral("schema version %1 needs an upgrade to %2, which a read-only database does not allow")
                       .arg(version)
                       .arg(currentVersion());
        return false;
    }
    return true;
}

bool MediaDatabaseSchema::upgrade(sqlite3* db, QString* problem)
{
    const int version = usableVersion(db, problem);
    if (version < 0)
        return false;
    for (int next = version + 1; next <= currentVersion(); ++next) {
        if (!runStep(db, next, problem))
            return false;
    }
    return true;
}
