#pragma once
// The plans of the last few search requests, by the request's shape: a list
// asks for window after window of the same result, and reading a request
// anew (checking it, writing its SQL) costs as much as reading a few rows.

#include <QString>

#include <optional>
#include <string>
#include <vector>

#include "host/platform/media/database/MediaSearchPlan.h"

class MediaSearchPlanCache {
public:
    /** What MediaSearchPlan::read() returns for @p request, taken from a kept plan
     *  when a request of the same shape was read before. */
    std::optional<MediaSearchPlan> read(const MetadataSearchMediaRequest& request, int storageCount, QString* error);

private:
    struct Entry {
        std::string shape;
        MediaSearchPlan plan;
    };
    // Most recently used first. A play list alternates between a few shapes
    // (its window, its count, its album count, a single entry in shuffle).
    static constexpr size_t kKept = 8;

    std::vector<Entry> m_entries;
    std::string m_shape;  // written for every request; kept to keep its room
};
