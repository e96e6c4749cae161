#include "host/platform/media/database/MediaSearchPlanCache.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <tuple>
#include <vector>

namespace {

// One request with arrays of its own; each variant below changes one thing
// that the plan is made of.
struct Words {
    MetadataListType listType = METADATA_LIST_MUSIC;
    uint32_t createdBy = 0;
    const char* artist = "Aurora Lane";
    MetadataSearchFilter filters[2] = {};
    MetadataSortEntry sort[1] = {{METADATA_SORT_TITLE, METADATA_SORT_ASCENDING}};
    MetadataSearchCandidateType candidates[2] = {METADATA_CANDIDATE_OBJECT_ID, METADATA_CANDIDATE_FULL_PATH};
    MetadataSearchMediaRequest request{};

    Words()
    {
        filters[0] = {METADATA_FILTER_ARTIST, METADATA_OPERATOR_EQUAL, 12, artist};
        filters[1] = {METADATA_FILTER_CREATE_FLAG, METADATA_OPERATOR_EQUAL, 4, &createdBy};
        request = {1, &listType, 2, filters, 1, sort, 2, 0, 0, 2, candidates, 10, 0, 1};
    }
};

void expectSamePlan(const std::optional<MediaSearchPlan>& kept, const std::optional<MediaSearchPlan>& fresh)
{
    ASSERT_EQ(kept.has_value(), fresh.has_value());
    if (!fresh)
        return;
    const auto partsOf = [](const MediaSearchPlan& plan) {
        return std::tuple(plan.shapeKey(), plan.firstIndex(), plan.resultCount(), plan.candidates(), plan.isGrouped());
    };
    EXPECT_EQ(partsOf(*kept), partsOf(*fresh));
}

// The media database's and the search accessor's tests search on one client,
// through its cache, with requests that differ in their list, filters,
// storage, sort, grouping, candidates and window, and with refused ones:
// these are the differences they do not send.
TEST(MediaSearchPlanCacheTest, EveryRequestGetsThePlanOfItsOwnWordsWhateverWasReadBefore)
{
    const std::vector<std::pair<const char*, std::function<void(Words&)>>> variants = {
        {"as made", [](Words&) {}},
        {"another artist of the same length", [](Words& w) { w.filters[0].value = "Aurora Lano"; }},
        {"a shorter artist", [](Words& w) { w.filters[0].value = "Aurora", w.filters[0].valueLength = 7; }},
        {"another filter, of the same value", [](Words& w) { w.filters[0].type = METADATA_FILTER_GENRE; }},
        {"another created-by", [](Words& w) { w.createdBy = 1; }},
        {"more sort entries than are kept", [](Words& w) {
             static const std::vector<MetadataSortEntry> many(65, {METADATA_SORT_TRACK, METADATA_SORT_ASCENDING});
             w.request.sort = many.data(), w.request.sortCount = uint32_t(many.size());
         }},
        {"refused: text without its NUL", [](Words& w) { w.filters[0].valueLength = 5; }},
    };
    MediaSearchPlanCache cache;
    // Twice round, so that every variant is read after every other one.
    for (int round = 0; round < 2; ++round) {
        for (const auto& [name, change] : variants) {
            SCOPED_TRACE(name);
            Words words;
            change(words);
            QString keptError, freshError;
            expectSamePlan(cache.read(words.request, 2, &keptError),
                           MediaSearchPlan::read(words.request, 2, &freshError));
            EXPECT_EQ(keptError, freshError);
        }
    }
}

} // namespace
