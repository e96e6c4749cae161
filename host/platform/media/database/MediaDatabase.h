#pragma once
// The host media-metadata database: one SQLite connection to one file, with
// the media objects, the groups and their ordered members, and the searches
// the metadata functions answer. Writes commit at once unless the caller holds
// a transaction (beginTransaction) around them.

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "host/platform/media/database/MediaChanges.h"
#include "host/platform/media/database/MediaGroup.h"
#include "host/platform/media/database/MediaLastPlayedList.h"
#include "host/platform/media/database/MediaRecord.h"
#include "host/platform/media/database/MediaResultCache.h"
#include "host/platform/media/database/MediaSearchResult.h"

struct sqlite3;
class MediaSearchPlan;
class SqliteStatement;
class SqliteTransaction;

/** A stored file as the scanner compares it with the disk. */
struct MediaFileStamp {
    quint32 id = 0;
    QString path;
    qint64 fileSize = 0;
    qint64 fileModified = 0;
};

class MediaDatabase {
public:
    /** The database file in the data folder (read anew at every call). */
    static QString defaultFile();
    /** Opens @p file, creating it and its tables when absent and upgrading an older
     *  schema; null when that fails (the reason goes to the trace). */
    static std::unique_ptr<MediaDatabase> open(const QString& file);
    /** "FILE: why" of the last open() that refused its file; null when the last open
     *  succeeded or none was made. A refusal goes to the trace once per file and reason. */
    static QString lastRefusal();
    ~MediaDatabase();
    MediaDatabase(const MediaDatabase&) = delete;
    MediaDatabase& operator=(const MediaDatabase&) = delete;

    QString fileName() const { return m_fileName; }
    /** A transaction over this connection; changes roll back unless it is committed. */
    std::unique_ptr<SqliteTransaction> beginTransaction();
    /** A write transaction if the write lock is free at once; inactive, without waiting,
     *  while another connection writes. For work that can as well be done later. */
    std::unique_ptr<SqliteTransaction> beginTransactionWithoutWaiting();
    /** Whether this connection holds a transaction (its changes are not committed yet). */
    bool isInTransaction() const;
    /** Whether this connection was opened read-only (its data folder is): every write fails. */
    bool isReadOnly() const;

    // Snapshots
    /** Keeps every later read of this connection on the database as it is now (a read
     *  transaction held between calls), in place of any snapshot held before; false, holding
     *  none, when the file is not in write-ahead-log mode, where a held read would keep
     *  every writer out. A connection that holds a snapshot must not write. Between the
     *  two snapshots, a write-ahead log grown past its limit is copied into the file. */
    bool holdSnapshot();
    /** Lets reads see every commit again. */
    void releaseSnapshot();
    bool holdsSnapshot() const { return m_snapshot != nullptr; }
    /** The number of the newest change the snapshot holds; nothing without a snapshot. */
    std::optional<qint64> snapshotSequence() const { return m_snapshotSequence; }

    // Media objects
    /** Stores a new object (its id is ignored); returns the new id, 0 on failure
     *  (for instance when the path is already stored). */
    quint32 addMedia(const MediaRecord& record);
    /** Rewrites the object with the record's id; false when there is none. */
    bool updateMedia(const MediaRecord& record);
    /** Removes an object and its group memberships; false when there was none. */
    bool removeMedia(quint32 id);
    std::optional<MediaRecord> mediaById(quint32 id);
    std::optional<MediaRecord> mediaByPath(const QString& path);
    /** The stored objects whose path lies inside @p folder, with their file stamps. */
    QList<MediaFileStamp> mediaUnder(const QString& folder);
    int mediaCount();
    /** The paths of the objects @p ids, in that order; ids not stored are left out. */
    /** The distinct folders of the objects' files; stops reading, and answers nothing,
     *  once there are more than @p limit, so a list over a whole library costs little. */
    std::optional<QSet<QString>> foldersOf(const std::vector<quint32>& ids, int limit);

    // Groups
    /** Creates a group; returns its id (never 2 or 3, the history groups), 0 on failure. */
    quint32 addGroup(MetadataGroupType type, const QString& name, const QString& source = QString());
    /** Removes a group with its member list; the history groups stay. */
    bool removeGroup(quint32 id);
    std::optional<MediaGroup> groupById(quint32 id);
    std::optional<MediaGroup> groupBySource(const QString& source);
    /** The first (lowest id) group of @p type named @p name. */
    std::optional<MediaGroup> groupByName(MetadataGroupType type, const QString& name);
    /** The groups imported from play-list files inside @p folder. */
    QList<MediaGroup> groupsWithSourceUnder(const QString& folder);
    /** Object ids of a group's members in their order. */
    QList<quint32> groupMembers(quint32 groupId);
    /** Replaces a group's members with @p mediaIds in that order. */
    bool setGroupMembers(quint32 groupId, const QList<quint32>& mediaIds);
    /** A group's members as searches over it see them: in their order, each its object id
     *  and, from its media object, the @p mediaColumns ("m.<column>", as
     *  MediaSearchPlan::mediaColumns names them; NULL where the object is gone), in bytes
     *  that are equal exactly when all of that is. Nothing when the database failed. */
    std::optional<QByteArray> groupMemberView(quint32 groupId, const QList<QByteArray>& mediaColumns);

    // Searching
    /** The total of @p plan and its window; nothing when the database failed. */
    std::optional<MediaSearchResult> search(const MediaSearchPlan& plan);
    /** The whole ordered result of @p plan (kept for repeated windows); null on failure. */
    std::shared_ptr<const MediaOrderedResult> orderedResult(const MediaSearchPlan& plan);

    // Changes (written by triggers, whoever the writer is)
    /** Where the database stands now; compare with an earlier stamp to learn cheaply
     *  whether anything was committed since. */
    MediaCommitStamp commitStamp();
    /** The number of the newest change; nothing when the database failed. */
    std::optional<qint64> latestChange();
    /** The media and groups changed after change number @p sequence (all of them in one
     *  snapshot); nothing when the database failed. */
    std::optional<MediaChanges> changesSince(qint64 sequence);
    /** The newest place in the media objects' change log; nothing when it cannot be read
     *  or is not written at every change. */
    std::optional<MediaLogPosition> latestEntryChange();
    /** The media objects changed after @p from, when the log still holds that place and
     *  every change since, and there are at most @p limit of them; else nothing. */
    std::optional<MediaEntryChanges> entryChangesSince(const MediaLogPosition& from, int limit);
    /** SQLite's schema version, which moves at every change of the schema; nothing when
     *  it cannot be read. */
    std::optional<qint64> schemaVersion();

    // The last-played list
    /** The stored last-played list; nothing when none is stored or the database failed. */
    std::optional<MediaLastPlayedList> lastPlayedList();
    /** Stores @p list in place of any earlier one. */
    bool setLastPlayedList(const MediaLastPlayedList& list);

    // The last played song
    /** The stored last played song; nothing when none is stored or the database failed. */
    std::optional<MediaLastPlayedSong> lastPlayedSong();
    /** Stores @p song in place of any earlier one. */
    bool setLastPlayedSong(const MediaLastPlayedSong& song);

private:
    /** Remembers why @p file could not be used, and says it the first time. */
    static void refuse(const QString& file, const QString& problem);
    static void noteUsable();
    MediaDatabase(sqlite3* db, const QString& fileName, bool isWriteAheadLog);
    /** Copies the write-ahead log into the database file when it has grown past its limit. */
    void checkpointLargeLog();
    /** A statement prepared once per connection and reset after each use. */
    SqliteStatement& statement(const QByteArray& sql);
    /** statement() as a source of statements, for the helpers that run SQL of their own. */
    std::function<SqliteStatement&(const QByteArray& sql)> keptStatements();
    std::optional<MediaRecord> readMedia(SqliteStatement& query);
    static void bindMedia(SqliteStatement& query, const MediaRecord& record);
    std::optional<MediaGroup> readGroup(SqliteStatement& query);
    std::shared_ptr<MediaOrderedResult> loadOrderedResult(const MediaSearchPlan& plan);
    bool fillWindow(const MediaSearchPlan& plan, const MediaOrderedResult& ordered, MediaSearchResult& result);
    /** Brings the kept ordered results to the database's present state. */
    void validateCache();
    /** Whether this connection holds a write transaction (its changes may still roll back). */
    bool isWriting() const;
    /** The bounds of the paths inside @p folder, for an indexed range query. */
    static QPair<QString, QString> pathRangeOf(const QString& folder);

    sqlite3* m_db;
    QString m_fileName;
    bool m_isWriteAheadLog;
    // By the SQL's text, not its address: a temporary or a reused buffer must
    // never fetch another statement.
    std::map<QByteArray, std::unique_ptr<SqliteStatement>> m_statements;
    MediaResultCache m_cache;
    std::optional<qint64> m_snapshotSequence;       // the newest change m_snapshot holds
    std::unique_ptr<SqliteTransaction> m_snapshot;  // declared last: ends before the statements go
};
