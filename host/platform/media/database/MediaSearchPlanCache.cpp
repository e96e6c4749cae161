#include "host/platform/media/database/MediaSearchPlanCache.h"

#include <algorithm>
#include <utility>

std::optional<MediaSearchPlan> MediaSearchPlanCache::read(const MetadataSearchMediaRequest& request,
                                                          int storageCount, QString* error)
{
    // A negative window is read (and refused) by the plan itself.
    const bool isWindowReadable = request.firstIndex >= 0 && request.resultCount >= 0;
    if (!isWindowReadable || !MediaSearchPlan::writeShapeOfRequest(request, storageCount, m_shape))
        return MediaSearchPlan::read(request, storageCount, error);
    const auto kept = std::find_if(m_entries.begin(), m_entries.end(),
                                   [this](const Entry& entry) { return entry.shape == m_shape; });
    if (kept != m_entries.end()) {
        std::rotate(m_entries.begin(), kept, kept + 1);
        return m_entries.front().plan.withWindow(request.firstIndex, request.resultCount);
    }
    std::optional<MediaSearchPlan> plan = MediaSearchPlan::read(request, storageCount, error);
    if (!plan)
        return plan;
    if (m_entries.size() == kKept)
        m_entries.pop_back();
    m_entries.insert(m_entries.begin(), Entry{m_shape, *plan});
    return plan;
}
