#pragma once
// The ordered results of the last few request shapes, so that a window
// anywhere in a long result costs as much as one at its start. The results
// follow the database: after a change (by this connection or another one)
// they are brought up to date in place from the media objects' change log,
// and emptied only when the log cannot say what changed.

#include <QByteArray>

#include <list>
#include <memory>
#include <optional>
#include <vector>

#include "host/platform/media/database/MediaAlbumList.h"
#include "host/platform/media/database/MediaChanges.h"
#include "host/platform/media/database/MediaSearchPlan.h"

class MediaResultFollower;

struct MediaOrderedResult {
    std::vector<quint32> ids;          ///< in result order (entry searches)
    MediaAlbumList albums;             ///< in result order (album-name searches), UTF-8
};

class MediaResultCache {
public:
    /** Keeps at most @p capacity results, the least recently used going first. */
    explicit MediaResultCache(int capacity);

    /** Whether nothing was committed since the results were brought up to date. */
    bool isAt(const MediaCommitStamp& stamp) const { return stamp == m_stamp; }
    /** The place in the change log the results reflect; nothing when unknown. */
    const std::optional<MediaLogPosition>& position() const { return m_position; }
    /** The schema version the results were taken under. */
    qint64 schemaVersion() const { return m_schemaVersion; }
    /** The results now reflect the database at @p stamp and the log at @p position. */
    void moveTo(const MediaCommitStamp& stamp, const std::optional<MediaLogPosition>& position,
                qint64 schemaVersion);
    /** Brings every result up to date through @p follower, dropping those it cannot
     *  follow or that cost less to read anew. */
    void follow(MediaResultFollower& follower);

    /** The result kept under @p key, or null. */
    std::shared_ptr<const MediaOrderedResult> find(const QByteArray& key);
    void insert(const QByteArray& key, const MediaSearchPlan& plan, std::shared_ptr<MediaOrderedResult> result);
    void clear();
    bool isEmpty() const { return m_entries.empty(); }

private:
    struct Entry {
        QByteArray key;
        MediaSearchPlan plan;
        std::shared_ptr<MediaOrderedResult> result;
    };
    int m_capacity;
    MediaCommitStamp m_stamp;
    std::optional<MediaLogPosition> m_position;
    qint64 m_schemaVersion = -1;
    std::list<Entry> m_entries;        // most recently used first
};
