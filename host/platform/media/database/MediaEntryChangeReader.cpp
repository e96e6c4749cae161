#include "host/platform/media/database/MediaEntryChangeReader.h"

#include <algorithm>
#include <limits>

MediaEntryChangeReader::MediaEntryChangeReader(const MediaLogPosition& from, int limit)
    : m_from(from), m_limit(limit)
{
    m_changes.last = from;
}

bool MediaEntryChangeReader::add(const MediaChangeLogRow& row)
{
    if (m_isRefused)
        return false;
    if (!m_isPlaceFound) {
        // The row at the known place must be the very one seen there.
        m_isPlaceFound = row.sequence == m_from.sequence && row.mediaId == m_from.mediaId;
        m_isRefused = !m_isPlaceFound;
        return m_isPlaceFound;
    }
    m_isRefused = !addChange(row);
    return !m_isRefused;
}

bool MediaEntryChangeReader::addChange(const MediaChangeLogRow& row)
{
    const bool isNext = m_changes.last.sequence < std::numeric_limits<qint64>::max()
                        && row.sequence == m_changes.last.sequence + 1;
    const bool isObjectId = row.mediaId > 0 && row.mediaId <= std::numeric_limits<quint32>::max();
    const bool isAlbumWhole = row.albumKey.has_value() == row.album.has_value();
    if (!isNext || !isObjectId || !isAlbumWhole || ++m_count > m_limit)
        return false;
    m_changes.last = MediaLogPosition{row.sequence, row.mediaId};
    m_changes.ids.push_back(quint32(row.mediaId));
    if (row.album)
        m_changes.formerAlbums.emplace_back(*row.albumKey, *row.album);
    return true;
}

std::optional<MediaEntryChanges> MediaEntryChangeReader::finish()
{
    if (m_isRefused || !m_isPlaceFound)
        return std::nullopt;
    MediaEntryChanges changes = m_changes;
    std::sort(changes.ids.begin(), changes.ids.end());
    changes.ids.erase(std::unique(changes.ids.begin(), changes.ids.end()), changes.ids.end());
    std::sort(changes.formerAlbums.begin(), changes.formerAlbums.end());
    changes.formerAlbums.erase(std::unique(changes.formerAlbums.begin(), changes.formerAlbums.end()),
                               changes.formerAlbums.end());
    return changes;
}
