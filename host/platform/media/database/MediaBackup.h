#pragma once
// The backup of a search result that a play list keeps in the database: the
// search (read once and kept, so that it no longer depends on the caller's
// request) and the object ids it found, in order. After the database changed,
// it tells where an entry of the backup has gone.

#include <memory>
#include <optional>
#include <vector>

#include "host/platform/media/database/MediaResultCache.h"
#include "host/platform/media/database/MediaSearchPlan.h"

class MediaDatabase;

/** Where a backup entry stands in the search's new result. */
struct MediaBackupCheck {
    bool isExisted = false;    ///< the entry is still in the result
    int newIndex = 0;          ///< still there: its position counted from 1; gone: see MediaBackup::locate
    quint32 count = 0;         ///< the number of entries of the new result
};

class MediaBackup {
public:
    /** Runs @p plan on @p database and keeps it with its ordered object ids. Nothing when
     *  the search failed or @p plan asks for album names, which have no ids. */
    static std::optional<MediaBackup> take(MediaDatabase& database, const MediaSearchPlan& plan);

    /** Runs the search again and keeps its result in place of the backed-up one;
     *  false (keeping the old one) when the search failed. */
    bool refresh(MediaDatabase& database);
    /** Runs the search again and tells where the backup's entry at @p position (from 0)
     *  is now (see locate); nothing when the search failed. The backup is not changed. */
    std::optional<MediaBackupCheck> check(MediaDatabase& database, int position) const;
    /** The backed-up object ids, in result order. */
    const std::vector<quint32>& ids() const { return m_ids; }

    /**
     * Where the entry at @p position of @p backup stands in @p current: when it is still
     * there, isExisted with its position counted from 1; when it is gone (or @p position
     * names no entry), the position from 0 in @p current of the first later backup entry
     * still there, or the size of @p current when none is.
     */
    static MediaBackupCheck locate(const std::vector<quint32>& backup, int position,
                                   const std::vector<quint32>& current);

private:
    MediaBackup(const MediaSearchPlan& plan, std::vector<quint32> ids);
    /** locate() for an entry that is gone: where the first later one still there is. */
    static MediaBackupCheck locateLater(const std::vector<quint32>& backup, int position,
                                        const std::vector<quint32>& current);
    /** The search's ordered result now, shared with the database's kept results. */
    static std::shared_ptr<const MediaOrderedResult> run(MediaDatabase& database, const MediaSearchPlan& plan);

    MediaSearchPlan m_plan;
    std::vector<quint32> m_ids;
};
