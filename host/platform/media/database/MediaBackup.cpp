#include "host/platform/media/database/MediaBackup.h"

#include <QHash>

#include <algorithm>

#include "host/platform/media/database/MediaDatabase.h"

MediaBackup::MediaBackup(const MediaSearchPlan& plan, std::vector<quint32> ids) : m_plan(plan), m_ids(std::move(ids))
{
}

std::shared_ptr<const MediaOrderedResult> MediaBackup::run(MediaDatabase& database, const MediaSearchPlan& plan)
{
    return database.orderedResult(plan);
}

std::optional<MediaBackup> MediaBackup::take(MediaDatabase& database, const MediaSearchPlan& plan)
{
    if (plan.isGrouped())
        return std::nullopt;
    const std::shared_ptr<const MediaOrderedResult> ordered = run(database, plan);
    if (!ordered)
        return std::nullopt;
    return MediaBackup(plan, ordered->ids);
}

bool MediaBackup::refresh(MediaDatabase& database)
{
    const std::shared_ptr<const MediaOrderedResult> ordered = run(database, m_plan);
    if (!ordered)
        return false;
    m_ids = ordered->ids;
    return true;
}

std::optional<MediaBackupCheck> MediaBackup::check(MediaDatabase& database, int position) const
{
    // Read where the result is kept: the check copies nothing.
    const std::shared_ptr<const MediaOrderedResult> current = run(database, m_plan);
    if (!current)
        return std::nullopt;
    return locate(m_ids, position, current->ids);
}

MediaBackupCheck MediaBackup::locate(const std::vector<quint32>& backup, int position,
                                     const std::vector<quint32>& current)
{
    // After almost every change the entry is still there: two scans find it,
    // without the index of every entry that looking for a later one takes.
    const bool namesEntry = position >= 0 && size_t(position) < backup.size();
    if (namesEntry) {
        const quint32 id = backup[size_t(position)];
        // A group may hold one object more than once: the n-th occurrence in
        // the backup is the n-th one in the new result.
        auto occurrence = std::count(backup.begin(), backup.begin() + position, id);
        for (size_t i = 0; i < current.size(); ++i) {
            if (current[i] == id && occurrence-- == 0)
                return MediaBackupCheck{true, int(i) + 1, quint32(current.size())};
        }
    }
    return locateLater(backup, position, current);
}

MediaBackupCheck MediaBackup::locateLater(const std::vector<quint32>& backup, int position,
                                          const std::vector<quint32>& current)
{
    // A group may hold one object more than once (an imported play list):
    // the n-th occurrence of an id in the backup is the n-th one in the new
    // result, so that each occurrence keeps its own place.
    QHash<quint32, std::vector<int>> placesNow;
    for (size_t i = 0; i < current.size(); ++i)
        placesNow[current[i]].push_back(int(i));
    std::vector<size_t> occurrence(backup.size());
    QHash<quint32, size_t> seen;
    for (size_t i = 0; i < backup.size(); ++i)
        occurrence[i] = seen[backup[i]]++;
    const auto placeNow = [&](size_t backupIndex) -> int {
        const auto found = placesNow.constFind(backup[backupIndex]);
        if (found == placesNow.constEnd() || occurrence[backupIndex] >= found->size())
            return -1;
        return (*found)[occurrence[backupIndex]];
    };

    MediaBackupCheck check;
    check.count = quint32(current.size());
    // Before the backup's start every entry is "later"; past its end none is.
    for (size_t later = size_t(std::max(position + 1, 0)); later < backup.size(); ++later) {
        const int place = placeNow(later);
        if (place >= 0) {
            check.newIndex = place;
            return check;
        }
    }
    check.newIndex = int(current.size());
    return check;
}
