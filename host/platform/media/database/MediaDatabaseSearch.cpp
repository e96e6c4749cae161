// MediaDatabase: searches, read through the cache of ordered results.

#include "host/platform/media/database/MediaDatabase.h"

#include <sqlite3.h>

#include <algorithm>

#include "host/platform/media/database/MediaResultFollower.h"
#include "host/platform/media/database/MediaSearchPlan.h"
#include "host/platform/media/database/SqliteStatement.h"
#include "host/platform/media/database/SqliteTransaction.h"

namespace {

// The most changes read from the log at once: more are a bulk change (a
// scan), after which the results are read anew. Below what the log keeps.
constexpr int kMostChangesFollowed = 4096;

} // namespace

bool MediaDatabase::isWriting() const
{
    return sqlite3_txn_state(m_db, nullptr) == SQLITE_TXN_WRITE;
}

void MediaDatabase::validateCache()
{
    const MediaCommitStamp stamp = commitStamp();
    if (m_cache.isAt(stamp))
        return;
    const std::optional<qint64> schema = schemaVersion();
    std::optional<MediaEntryChanges> changes;
    if (!m_cache.isEmpty() && m_cache.position() && schema && *schema == m_cache.schemaVersion())
        changes = entryChangesSince(*m_cache.position(), kMostChangesFollowed);
    if (!changes) {
        // The place read before any result is: a result never misses a
        // change after it (following one twice does no harm).
        m_cache.clear();
        m_cache.moveTo(stamp, latestEntryChange(), schema.value_or(-1));
        return;
    }
    MediaResultFollower follower(keptStatements(), *changes);
    m_cache.follow(follower);
    m_cache.moveTo(stamp, changes->last, *schema);
}

std::shared_ptr<const MediaOrderedResult> MediaDatabase::orderedResult(const MediaSearchPlan& plan)
{
    // This connection's own changes may still roll back: its results are
    // read anew and kept by no one.
    if (isWriting())
        return loadOrderedResult(plan);
    // One snapshot for the check of the database state, the change log and
    // the result (search() holds one already).
    std::optional<SqliteTransaction> snapshot;
    if (!isInTransaction())
        snapshot.emplace(m_db, SqliteTransaction::Kind::Read, keptStatements());
    validateCache();
    const QByteArray& key = plan.shapeKey();
    std::shared_ptr<const MediaOrderedResult> ordered = m_cache.find(key);
    if (!ordered) {
        std::shared_ptr<MediaOrderedResult> loaded = loadOrderedResult(plan);
        if (loaded)
            m_cache.insert(key, plan, loaded);
        ordered = std::move(loaded);
    }
    if (snapshot)
        snapshot->commit();
    return ordered;
}

std::shared_ptr<MediaOrderedResult> MediaDatabase::loadOrderedResult(const MediaSearchPlan& plan)
{
    SqliteStatement& query = statement(plan.sql());
    plan.bindTo(query);
    auto ordered = std::make_shared<MediaOrderedResult>();
    SqliteStatement::Step step = query.step();
    for (; step == SqliteStatement::Step::Row; step = query.step()) {
        if (plan.isGrouped()) {
            if (!ordered->albums.append(query.utf8View(1), query.utf8View(0))) {
                query.reset();
                return nullptr;
            }
        } else {
            ordered->ids.push_back(quint32(query.int64(0)));
        }
    }
    query.reset();
    if (step != SqliteStatement::Step::Done)
        return nullptr;
    // Grown by doubling, a result could hold room for nearly as many ids again
    // for as long as it is kept; following changes adds room of its own.
    ordered->ids.shrink_to_fit();
    ordered->albums.shrinkToFit();
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
    // The album only when it is asked for: a list's windows are of paths,
    // and SQLite reads every column a statement names.
    const bool needsAlbum = plan.candidates().contains(METADATA_CANDIDATE_ALBUM);
    SqliteStatement& query = needsAlbum ? statement(QByteArrayLiteral("SELECT path, album FROM media WHERE id = ?1"))
                                        : statement(QByteArrayLiteral("SELECT path FROM media WHERE id = ?1"));
    for (qint64 i = plan.firstIndex(); i < end; ++i) {
        MediaSearchRow row;
        if (plan.isGrouped()) {
            const std::string_view album = ordered.albums.nameAt(size_t(i));
            row.album = QByteArray(album.data(), qsizetype(album.size()));
        } else {
            row.id = ordered.ids[size_t(i)];
            if (plan.needsRowValues()) {
                query.bind(1, qint64(row.id));
                const bool found = query.step() == SqliteStatement::Step::Row;
                if (found) {
                    row.path = query.utf8(0);
                    if (needsAlbum)
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
    SqliteTransaction snapshot(m_db, SqliteTransaction::Kind::Read, keptStatements());
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
