#include "host/platform/media/database/MediaAlbumList.h"

#include <limits>

MediaAlbumList::Album MediaAlbumList::at(size_t index) const
{
    const size_t keyStart = m_starts[2 * index];
    const size_t nameStart = m_starts[2 * index + 1];
    const size_t end = 2 * index + 2 < m_starts.size() ? m_starts[2 * index + 2] : m_texts.size();
    return {std::string_view(m_texts.data() + keyStart, nameStart - keyStart),
            std::string_view(m_texts.data() + nameStart, end - nameStart)};
}

bool MediaAlbumList::append(std::string_view key, std::string_view name)
{
    if (uint64_t(m_texts.size()) + key.size() + name.size() > std::numeric_limits<uint32_t>::max())
        return false;
    m_starts.push_back(uint32_t(m_texts.size()));
    m_texts.insert(m_texts.end(), key.begin(), key.end());
    m_starts.push_back(uint32_t(m_texts.size()));
    m_texts.insert(m_texts.end(), name.begin(), name.end());
    return true;
}

void MediaAlbumList::reserve(size_t albums, size_t textBytes)
{
    m_starts.reserve(2 * albums);
    m_texts.reserve(textBytes);
}

void MediaAlbumList::shrinkToFit()
{
    m_starts.shrink_to_fit();
    m_texts.shrink_to_fit();
}

size_t MediaAlbumList::bytesHeld() const
{
    return m_texts.capacity() + m_starts.capacity() * sizeof(uint32_t);
}

bool MediaAlbumList::operator==(const MediaAlbumList& other) const
{
    return m_texts == other.m_texts && m_starts == other.m_starts;
}
