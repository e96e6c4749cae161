#include "host/platform/media/database/MediaResultFollower.h"

#include <algorithm>
#include <cmath>

#include "host/platform/media/database/MediaResultCache.h"
#include "host/platform/media/database/MediaRowOrder.h"
#include "host/platform/media/database/MediaSearchPlan.h"
#include "host/platform/media/database/SqliteStatement.h"

namespace {

constexpr quint32 kLowBitsMask = 0xFFFF;

// SQL reading the order columns of row ?1, in the plan's order.
QByteArray orderValuesSql(const MediaSearchPlan& plan)
{
    QList<QByteArray> columns;
    for (const MediaSearchPlan::OrderTerm& term : plan.orderTerms())
        columns.append(term.column);
    return "SELECT " + columns.join(", ") + " FROM media m WHERE m.id = ?1";
}

std::vector<bool> descendingTermsOf(const MediaSearchPlan& plan)
{
    std::vector<bool> descending;
    for (const MediaSearchPlan::OrderTerm& term : plan.orderTerms())
        descending.push_back(term.isDescending);
    return descending;
}

QByteArray orderBySql(const MediaSearchPlan& plan)
{
    QList<QByteArray> order;
    for (const MediaSearchPlan::OrderTerm& term : plan.orderTerms())
        order.append(term.column + (term.isDescending ? " DESC" : " ASC"));
    return order.join(", ");
}

using Album = std::pair<QByteArray, QByteArray>;   // (album key, album)

MediaAlbumList::Album viewOf(const Album& album)
{
    return {std::string_view(album.first.constData(), size_t(album.first.size())),
            std::string_view(album.second.constData(), size_t(album.second.size()))};
}

// Makes @p albums those of its albums that are not leaving, with @p entering
// (in result order) at their places; false when the list cannot hold them.
template <typename IsBefore>
bool mergeAlbums(MediaAlbumList& albums, const std::vector<Album>& entering, const std::vector<bool>& isLeaving,
                 IsBefore isBefore)
{
    size_t enteringBytes = 0;
    for (const Album& album : entering)
        enteringBytes += size_t(album.first.size() + album.second.size());
    MediaAlbumList merged;
    merged.reserve(albums.size() + entering.size(), albums.textBytes() + enteringBytes);
    auto next = entering.begin();
    for (size_t i = 0; i <= albums.size(); ++i) {
        for (; next != entering.end() && (i == albums.size() || isBefore(viewOf(*next), albums.at(i))); ++next) {
            if (!merged.append(viewOf(*next).first, viewOf(*next).second))
                return false;
        }
        if (i < albums.size() && !isLeaving[i] && !merged.append(albums.at(i).first, albums.at(i).second))
            return false;
    }
    albums = std::move(merged);
    return true;
}

} // namespace

MediaResultFollower::MediaResultFollower(StatementSource statements, const MediaEntryChanges& changes)
    : m_statements(std::move(statements)), m_changes(changes), m_lowBits((kLowBitsMask + 1) / 64)
{
    m_idsJson = "[";
    for (const quint32 id : changes.ids) {
        if (m_idsJson.size() > 1)
            m_idsJson += ',';
        m_idsJson += QByteArray::number(id);
        m_lowBits[(id & kLowBitsMask) / 64] |= quint64(1) << (id % 64);
    }
    m_idsJson += ']';
}

bool MediaResultFollower::isCheaperThanRereading(const MediaSearchPlan& plan, size_t size) const
{
    if (plan.isGrouped())
        return true;   // a few look-ups per change, against a pass over every song
    // Measured in mp_bench_metadata (its batches of insertions, 1,000 placed
    // and 4,000 read anew at 1,000,000 songs): reading a result anew costs
    // about 115 ns a song, placing a change about 1.9 µs per doubling of the
    // result (a row read and compared). A few changes always pay.
    const double doublings = std::log2(double(size) + 2);
    return double(m_changes.ids.size()) * doublings * 2000.0 <= double(size) * 120.0 || m_changes.ids.size() <= 16;
}

bool MediaResultFollower::follow(const MediaSearchPlan& plan, MediaOrderedResult& result)
{
    if (plan.readsGroups())
        return false;
    if (m_changes.ids.empty())
        return true;
    return plan.isGrouped() ? followAlbums(plan, result) : followEntries(plan, result.ids);
}

namespace {

// The ids looked at as one block: a block that holds no changed id (almost
// every one, with a few changes) is passed over at vector speed.
constexpr size_t kBlock = 64;
// Up to this many changes, a block is compared with each changed id; with
// more, each id is looked up in the bit set.
constexpr size_t kMostComparedChanges = 8;

bool isInLowBits(const std::vector<quint64>& lowBits, quint32 id)
{
    return lowBits[(id & kLowBitsMask) / 64] >> (id % 64) & 1;
}

// Whether the full block at @p block may hold one of @p changed: exact when
// compared, possibly a false alarm through the bit set.
bool mayHoldChanged(const quint32* block, const std::vector<quint32>& changed, const std::vector<quint64>& lowBits)
{
    quint32 hits = 0;
    if (changed.size() <= kMostComparedChanges) {
        for (const quint32 id : changed) {
            for (size_t i = 0; i < kBlock; ++i)
                hits |= quint32(block[i] == id);
        }
    } else {
        for (size_t i = 0; i < kBlock; ++i)
            hits |= quint32(isInLowBits(lowBits, block[i]));
    }
    return hits != 0;
}

} // namespace

std::vector<size_t> MediaResultFollower::changedPlaces(const std::vector<quint32>& ids) const
{
    const std::vector<quint32>& changed = m_changes.ids;
    const auto isChanged = [&](quint32 id) {
        return isInLowBits(m_lowBits, id) && std::binary_search(changed.begin(), changed.end(), id);
    };
    std::vector<size_t> places;
    for (size_t start = 0; start < ids.size(); start += kBlock) {
        const size_t end = std::min(ids.size(), start + kBlock);
        if (end - start == kBlock && !mayHoldChanged(ids.data() + start, changed, m_lowBits))
            continue;
        for (size_t i = start; i < end; ++i) {
            if (isChanged(ids[i]))
                places.push_back(i);
        }
    }
    return places;
}

void MediaResultFollower::removeChanged(std::vector<quint32>& ids) const
{
    const std::vector<size_t> places = changedPlaces(ids);
    if (places.empty())
        return;
    // Each run of kept ids between two changed ones moves down once.
    size_t write = places.front();
    for (size_t p = 0; p < places.size(); ++p) {
        const size_t from = places[p] + 1;
        const size_t to = p + 1 < places.size() ? places[p + 1] : ids.size();
        std::move(ids.begin() + ptrdiff_t(from), ids.begin() + ptrdiff_t(to), ids.begin() + ptrdiff_t(write));
        write += to - from;
    }
    ids.resize(write);
}

bool MediaResultFollower::followEntries(const MediaSearchPlan& plan, std::vector<quint32>& ids)
{
    removeChanged(ids);
    const std::optional<std::vector<quint32>> entering = enteringIds(plan);
    if (!entering)
        return false;
    SqliteStatement& row = m_statements(orderValuesSql(plan));
    const std::vector<bool> descending = descendingTermsOf(plan);
    std::vector<size_t> places;
    places.reserve(entering->size());
    size_t from = 0;
    for (const quint32 id : *entering) {
        row.bind(1, qint64(id));
        const bool isRow = row.step() == SqliteStatement::Step::Row;
        const std::optional<MediaRowOrder> order = isRow ? std::optional<MediaRowOrder>(std::in_place, row, descending)
                                                         : std::nullopt;
        row.reset();
        const std::optional<size_t> place = order ? placeOf(*order, ids, from, row) : std::nullopt;
        if (!place)
            return false;
        places.push_back(*place);
        from = *place;
    }
    insertAt(ids, *entering, places);
    return true;
}

std::optional<std::vector<quint32>> MediaResultFollower::enteringIds(const MediaSearchPlan& plan)
{
    // The changed ids drive the join, so the search touches their rows only.
    SqliteStatement& query = m_statements("SELECT m.id FROM json_each(?1) j CROSS JOIN media m ON m.id = j.value WHERE "
                                          + plan.conditionSql() + " ORDER BY " + orderBySql(plan));
    query.bindUtf8(1, m_idsJson);
    plan.bindTo(query, 2);
    std::vector<quint32> entering;
    SqliteStatement::Step step = query.step();
    for (; step == SqliteStatement::Step::Row; step = query.step())
        entering.push_back(quint32(query.int64(0)));
    query.reset();
    if (step != SqliteStatement::Step::Done)
        return std::nullopt;
    return entering;
}

std::optional<size_t> MediaResultFollower::placeOf(const MediaRowOrder& order, const std::vector<quint32>& ids,
                                                   size_t from, SqliteStatement& row)
{
    size_t low = from;
    size_t high = ids.size();
    while (low < high) {
        const size_t middle = low + (high - low) / 2;
        row.bind(1, qint64(ids[middle]));
        const bool isRow = row.step() == SqliteStatement::Step::Row;
        const int comparison = isRow ? order.compareWith(row) : 0;
        row.reset();
        // No row: an entry of the result is gone without the log saying so.
        // Equal: two rows of one id. Either way the result is not what it seems.
        if (comparison == 0)
            return std::nullopt;
        if (comparison < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

void MediaResultFollower::insertAt(std::vector<quint32>& ids, const std::vector<quint32>& entering,
                                   const std::vector<size_t>& places)
{
    if (entering.empty())
        return;
    const size_t oldSize = ids.size();
    // Room for more than this batch, so that a run of single changes does
    // not copy the whole result each time.
    if (ids.capacity() < oldSize + entering.size())
        ids.reserve(oldSize + std::max(entering.size(), oldSize / 64));
    ids.resize(oldSize + entering.size());
    // From the back: each kept entry moves once, by the number of entries
    // entering before it.
    size_t read = oldSize;
    size_t write = ids.size();
    for (size_t e = entering.size(); e-- > 0;) {
        const size_t moved = read - places[e];
        std::move_backward(ids.begin() + ptrdiff_t(places[e]), ids.begin() + ptrdiff_t(read),
                           ids.begin() + ptrdiff_t(write));
        read -= moved;
        write -= moved;
        ids[--write] = entering[e];
    }
}

std::optional<std::vector<Album>> MediaResultFollower::touchedAlbums()
{
    std::vector<Album> albums = m_changes.formerAlbums;
    SqliteStatement& query =
        m_statements("SELECT m.album_key, m.album FROM json_each(?1) j CROSS JOIN media m ON m.id = j.value");
    query.bindUtf8(1, m_idsJson);
    SqliteStatement::Step step = query.step();
    for (; step == SqliteStatement::Step::Row; step = query.step())
        albums.emplace_back(query.utf8(0), query.utf8(1));
    query.reset();
    if (step != SqliteStatement::Step::Done)
        return std::nullopt;
    std::sort(albums.begin(), albums.end());
    albums.erase(std::unique(albums.begin(), albums.end()), albums.end());
    return albums;
}

bool MediaResultFollower::followAlbums(const MediaSearchPlan& plan, MediaOrderedResult& result)
{
    const std::optional<std::vector<Album>> touched = touchedAlbums();
    if (!touched)
        return false;
    // Keys and names compare bytewise, as SQLite's BINARY collation does.
    const bool isDescending = plan.orderTerms().first().isDescending;
    const auto isBefore = [isDescending](const MediaAlbumList::Album& left, const MediaAlbumList::Album& right) {
        return isDescending ? right < left : left < right;
    };
    const MediaAlbumList& albums = result.albums;
    SqliteStatement& exists = m_statements("SELECT EXISTS (SELECT 1 FROM media m WHERE m.album_key = ?1 AND "
                                           "m.album = ?2 AND " + plan.conditionSql() + ")");
    std::vector<bool> isLeaving(albums.size());
    std::vector<Album> entering;
    for (const Album& album : *touched) {
        const MediaAlbumList::Album wanted = viewOf(album);
        size_t low = 0;
        size_t high = albums.size();
        while (low < high) {
            const size_t middle = low + (high - low) / 2;
            if (isBefore(albums.at(middle), wanted))
                low = middle + 1;
            else
                high = middle;
        }
        const bool isListed = low < albums.size() && albums.at(low) == wanted;
        exists.bindUtf8(1, album.first);
        exists.bindUtf8(2, album.second);
        plan.bindTo(exists, 3);
        const bool isRow = exists.step() == SqliteStatement::Step::Row;
        const bool isThere = isRow && exists.int64(0) != 0;
        exists.reset();
        if (!isRow)
            return false;
        if (isListed && !isThere)
            isLeaving[low] = true;
        else if (!isListed && isThere)
            entering.push_back(album);
    }
    if (entering.empty() && std::find(isLeaving.begin(), isLeaving.end(), true) == isLeaving.end())
        return true;   // the albums stay as they are: most changes
    std::sort(entering.begin(), entering.end(),
              [&isBefore](const Album& left, const Album& right) { return isBefore(viewOf(left), viewOf(right)); });
    return mergeAlbums(result.albums, entering, isLeaving, isBefore);
}
