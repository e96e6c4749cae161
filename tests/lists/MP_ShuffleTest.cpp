#include "lists/MP_Shuffle.h"

#include <gtest/gtest.h>

#include <ctime>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace {

std::vector<int> orderOf(const MP_Shuffle& shuffle, int count)
{
    std::vector<int> order;
    for (int k = 0; k < count; ++k)
        order.push_back(shuffle.getShuffleIndex(k));
    return order;
}

bool isPermutation(std::vector<int> order)
{
    std::sort(order.begin(), order.end());
    for (size_t i = 0; i < order.size(); ++i) {
        if (order[i] != int(i))
            return false;
    }
    return true;
}

} // namespace

TEST(MP_ShuffleTest, EveryOrderIsAPermutationAndThePinPlaysFirst)
{
    MP_Shuffle shuffle;
    for (int count : {2, 3, 5, 17, 100}) {
        shuffle.shuffle(count, -1);
        EXPECT_TRUE(isPermutation(orderOf(shuffle, count))) << count;
        for (int pin : {0, count / 2, count - 1}) {
            shuffle.shuffle(count, pin);
            const std::vector<int> order = orderOf(shuffle, count);
            EXPECT_EQ(order.front(), pin) << count;
            EXPECT_TRUE(isPermutation(order)) << count;
        }
    }
    shuffle.reShuffle();
    EXPECT_TRUE(isPermutation(orderOf(shuffle, 100)));
    EXPECT_EQ(std::make_pair(shuffle.getShuffleIndex(-1), shuffle.getShuffleIndex(100)), std::make_pair(0, 0))
        << "a look-up outside the order is position 0";
    shuffle.shuffle(0, 0);
    EXPECT_EQ(orderOf(shuffle, 1), std::vector<int>{0}) << "no songs, no order";
}

TEST(MP_ShuffleTest, SameSeedSameOrderAndThePinSwapsWithTheFirstDrawn)
{
    constexpr std::uint64_t kSeed = 1764028800;  // a clock's second, as shuffle() seeds
    MP_Shuffle shuffle;
    shuffle.shuffleWithSeed(40, -1, kSeed);
    const std::vector<int> drawn = orderOf(shuffle, 40);
    shuffle.shuffleWithSeed(40, -1, kSeed);
    EXPECT_EQ(orderOf(shuffle, 40), drawn);
    shuffle.shuffleWithSeed(40, 40, kSeed);
    EXPECT_EQ(orderOf(shuffle, 40), drawn) << "a pin outside the order is no pin";

    // The pin takes the first place; the position drawn first takes the pin's place.
    std::vector<int> expected = drawn;
    const auto pinPlace = std::find(expected.begin(), expected.end(), 23);
    *pinPlace = expected.front();
    expected.front() = 23;
    shuffle.shuffleWithSeed(40, 23, kSeed);
    EXPECT_EQ(orderOf(shuffle, 40), expected);
}

// Over many seeds every order of four positions comes up equally often: a
// draw that favours some (swapping with any place, not only those not placed
// yet, or never leaving a position where it was) fails by far.
TEST(MP_ShuffleTest, OverManySeedsEveryOrderIsEquallyLikely)
{
    constexpr int kDraws = 24000;
    std::map<std::vector<int>, int> seen;
    MP_Shuffle shuffle;
    for (int seed = 0; seed < kDraws; ++seed) {
        shuffle.shuffleWithSeed(4, -1, std::uint64_t(seed));
        ++seen[orderOf(shuffle, 4)];
    }
    ASSERT_EQ(seen.size(), 24u);
    const double expected = kDraws / 24.0;
    double chiSquare = 0;
    for (const auto& [order, times] : seen)
        chiSquare += (times - expected) * (times - expected) / expected;
    // 49.7: what 23 degrees of freedom exceed once in a thousand fair runs.
    EXPECT_LT(chiSquare, 49.7);
}
