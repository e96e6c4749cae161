#include "host/platform/media/database/MediaSearchPlanCache.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace {

// One request with arrays of its own; each variant below changes one thing
// that the plan is made of.
struct Words {
    MetadataListType listType = METADATA_LIST_MUSIC;
    uint32_t group = 7;
    uint32_t createdBy = 0;
    const char* artist = "Aurora Lane";
    MetadataSearchFilter filters[2] = {};
    uint32_t filterCount = 1;
    MetadataSortEntry sort[1] = {{METADATA_SORT_TITLE, METADATA_SORT_ASCENDING}};
    MetadataSearchCandidateType candidates[2] = {METADATA_CANDIDATE_OBJECT_ID, METADATA_CANDIDATE_FULL_PATH};
    uint32_t candidateCount = 2;
    MetadataSearchMediaRequest request{};

    void playList(uint32_t id)
    {
        listType = METADATA_LIST_USER_GROUP;
        group = id;
        filters[0] = {METADATA_FILTER_GROUP_ID, METADATA_OPERATOR_EQUAL, 4, &group};
    }
    void albumNames()
    {
        request.groupingFlag = 1;
        candidates[0] = METADATA_CANDIDATE_ALBUM;
        request.candidateCount = 1;
    }

    Words()
    {
        filters[0] = {METADATA_FILTER_ARTIST, METADATA_OPERATOR_EQUAL, 12, artist};
        filters[1] = {METADATA_FILTER_CREATE_FLAG, METADATA_OPERATOR_EQUAL, 4, &createdBy};
        request = {1, &listType, 1, filters, 1, sort, 2, 0, 0, 2, candidates, 10, 0, 1};
    }
};

void expectSamePlan(const std::optional<MediaSearchPlan>& kept, const std::optional<MediaSearchPlan>& fresh)
{
    ASSERT_EQ(kept.has_value(), fresh.has_value());
    if (!fresh)
        return;
    EXPECT_EQ(kept->shapeKey(), fresh->shapeKey());
    EXPECT_EQ(kept->firstIndex(), fresh->firstIndex());
    EXPECT_EQ(kept->resultCount(), fresh->resultCount());
    EXPECT_EQ(kept->candidates(), fresh->candidates());
    EXPECT_EQ(kept->isGrouped(), fresh->isGrouped());
}

TEST(MediaSearchPlanCacheTest, EveryRequestGetsThePlanOfItsOwnWordsWhateverWasReadBefore)
{
    const std::vector<std::pair<const char*, std::function<void(Words&)>>> variants = {
        {"as made", [](Words&) {}},
        {"another window", [](Words& w) { w.request.firstIndex = 30, w.request.resultCount = 1; }},
        {"another artist", [](Words& w) { w.filters[0].value = "Aurora Lano"; }},
        {"a shorter artist", [](Words& w) { w.filters[0].value = "Aurora", w.filters[0].valueLength = 7; }},
        {"another filter", [](Words& w) { w.filters[0].type = METADATA_FILTER_GENRE; }},
        {"a second filter", [](Words& w) { w.request.filterCount = 2; }},
        {"another created-by", [](Words& w) { w.request.filterCount = 2, w.createdBy = 1; }},
        {"video", [](Words& w) { w.listType = METADATA_LIST_VIDEO; }},
        {"a play list", [](Words& w) { w.playList(7); }},
        {"the memory card", [](Words& w) { w.request.storageLocation = 1; }},
        {"descending", [](Words& w) { w.sort[0].direction = METADATA_SORT_DESCENDING; }},
        {"ids only", [](Words& w) { w.request.candidateCount = 1; }},
        {"album names", [](Words& w) { w.albumNames(); }},
        {"more sort entries than are kept", [](Words& w) {
             static const std::vector<MetadataSortEntry> many(65, {METADATA_SORT_TRACK, METADATA_SORT_ASCENDING});
             w.request.sort = many.data(), w.request.sortCount = uint32_t(many.size());
         }},
        {"refused: unknown list type", [](Words& w) { w.listType = MetadataListType(99); }},
        {"refused: text without its NUL", [](Words& w) { w.filters[0].valueLength = 5; }},
        {"refused: negative window", [](Words& w) { w.request.firstIndex = -1; }},
        {"refused: no sort array", [](Words& w) { w.request.sort = nullptr; }},
    };
    MediaSearchPlanCache cache;
    // Twice round, so that every variant is read both after every other
    // one and with the cache full of them.
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
    // The number of storages decides whether location 1 selects a storage.
    Words card;
    card.request.storageLocation = 1;
    QString error;
    expectSamePlan(cache.read(card.request, 1, &error), MediaSearchPlan::read(card.request, 1, &error));
}

} // namespace
