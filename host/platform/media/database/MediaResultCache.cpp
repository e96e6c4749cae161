#include "host/platform/media/database/MediaResultCache.h"

#include "host/platform/media/database/MediaResultFollower.h"

MediaResultCache::MediaResultCache(int capacity) : m_capacity(capacity) {}

void MediaResultCache::moveTo(const MediaCommitStamp& stamp, const std::optional<MediaLogPosition>& position,
                              qint64 schemaVersion)
{
    m_stamp = stamp;
    m_position = position;
    m_schemaVersion = schemaVersion;
}

void MediaResultCache::follow(MediaResultFollower& follower)
{
    for (auto it = m_entries.begin(); it != m_entries.end();) {
        const size_t size = it->plan.isGrouped() ? it->result->albums.size() : it->result->ids.size();
        bool isFollowed = follower.isCheaperThanRereading(it->plan, size);
        if (isFollowed) {
            // A search still holding the result reads it unchanged.
            if (it->result.use_count() > 1)
                it->result = std::make_shared<MediaOrderedResult>(*it->result);
            isFollowed = follower.follow(it->plan, *it->result);
        }
        it = isFollowed ? std::next(it) : m_entries.erase(it);
    }
}

std::shared_ptr<const MediaOrderedResult> MediaResultCache::find(const QByteArray& key)
{
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        if (it->key == key) {
            m_entries.splice(m_entries.begin(), m_entries, it);
            return m_entries.front().result;
        }
    }
    return nullptr;
}

void MediaResultCache::insert(const QByteArray& key, const MediaSearchPlan& plan,
                              std::shared_ptr<MediaOrderedResult> result)
{
    m_entries.push_front(Entry{key, plan, std::move(result)});
    while (int(m_entries.size()) > m_capacity)
        m_entries.pop_back();
}

void MediaResultCache::clear()
{
    m_entries.clear();
}
