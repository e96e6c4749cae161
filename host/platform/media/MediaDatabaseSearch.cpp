// MediaDatabase: searches, read through the cache of ordered results.

#include "host/platform/media/MediaDatabase.h"

#include <algorithm>

#include "host/platform/media/MediaSearchPlan.h"
#include "host/platform/media/SqliteStatement.h"
#include "host/platform/media/SqliteTransaction.h"

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
