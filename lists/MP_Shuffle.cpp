#include "lists/MP_Shuffle.h"

#include <algorithm>
#include <ctime>
#include <numeric>

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(ShuffleTrace, "MP_Shuffle")

namespace {

// SplitMix64: one addition and three multiply-xor-shift rounds a draw, every
// 64-bit state visited once; consecutive seeds (seconds) give unrelated draws.
std::uint64_t nextDraw(std::uint64_t& state)
{
    std::uint64_t z = (state += 0x9E3779B97F4A7C15u);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

// A number in [0, bound), every one equally likely: the high half of a
// 32 x 32-bit product, redrawn in the rare case that would favour some
// values (Lemire's method; no division on the common path).
std::uint32_t drawBelow(std::uint64_t& state, std::uint32_t bound)
{
    std::uint64_t product = (nextDraw(state) >> 32) * bound;
    std::uint32_t low = std::uint32_t(product);
    if (low < bound) {
        const std::uint32_t threshold = std::uint32_t(-bound) % bound;
        while (low < threshold) {
            product = (nextDraw(state) >> 32) * bound;
            low = std::uint32_t(product);
        }
    }
    return std::uint32_t(product >> 32);
}

} // namespace

MP_Shuffle::MP_Shuffle() : m_count(0) {}

MP_Shuffle::~MP_Shuffle() = default;

void MP_Shuffle::shuffle(int count, int first)
{
    shuffleWithSeed(count, first, std::uint64_t(time(nullptr)));
}

void MP_Shuffle::shuffleWithSeed(int count, int first, std::uint64_t seed)
{
    m_count = count;
    m_order.clear();
    if (count <= 0)
        return;
    m_order.resize(size_t(count));
    std::iota(m_order.begin(), m_order.end(), 0u);

    // Fisher-Yates: the place i takes one of the positions not placed yet,
    // each equally likely.
    std::uint64_t state = seed;
    for (std::uint32_t i = std::uint32_t(count) - 1; i >= 1; --i)
        std::swap(m_order[i], m_order[drawBelow(state, i + 1)]);

    // The pinned position plays first; the one the draw put first takes its place.
    if (first >= 0 && first < count) {
        const auto pinned = std::find(m_order.begin(), m_order.end(), std::uint32_t(first));
        *pinned = m_order.front();
        m_order.front() = std::uint32_t(first);
    }
    ShuffleTrace(3, "shuffle: count=%d, first=%d\n", count, first);
}

void MP_Shuffle::reShuffle()
{
    shuffle(m_count, -1);
}

int MP_Shuffle::getShuffleIndex(int k) const
{
    if (k < 0 || size_t(k) >= m_order.size())
        return 0;
    return int(m_order[size_t(k)]);
}
