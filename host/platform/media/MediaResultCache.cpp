#include "host/platform/media/MediaResultCache.h"

MediaResultCache::MediaResultCache(int capacity) : m_capacity(capacity) {}

void MediaResultCache::validate(qint64 othersVersion, qint64 ownChanges)
{
    if (othersVersion == m_othersVersion && ownChanges == m_ownChanges)
        return;
    clear();
    m_othersVersion = othersVersion;
    m_ownChanges = ownChanges;
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

void MediaResultCache::insert(const QByteArray& key, std::shared_ptr<const MediaOrderedResult> result)
{
    m_entries.push_front(Entry{key, std::move(result)});
    while (int(m_entries.size()) > m_capacity)
        m_entries.pop_back();
}

void MediaResultCache::clear()
{
    m_entries.clear();
}
