#pragma once
// One random permutation of the positions 0..n-1 of a list: in shuffle-songs
// mode it maps a play position to a song position, in shuffle-albums mode a
// play position to an album position. Look-ups are stable between rebuilds.
//
// A whole library is shuffled whenever a list is built over it or its play
// passes an end, so the order is a plain array of 32-bit positions (4 bytes a
// song) drawn by a small generator of its own, not the C library's random(),
// whose lock and modulo bias cost more than the shuffle itself.

#include <cstdint>
#include <vector>

class MP_Shuffle {
public:
    MP_Shuffle();
    virtual ~MP_Shuffle();

    /** Builds a new order for @p count positions (none for 0 or less). @p first, when it
     *  is one of them, plays first; -1 pins nothing. The generator is seeded with the
     *  current second at every call, so equal calls within one second give equal orders. */
    void shuffle(int count, int first);
    /** shuffle() with the generator seeded by @p seed: every permutation is equally likely
     *  over the seeds, and equal seeds give equal orders. */
    void shuffleWithSeed(int count, int first, std::uint64_t seed);
    /** A new order for the same count, nothing pinned. */
    void reShuffle();
    /** The position that plays @p k-th; 0 when @p k is outside the order. */
    int getShuffleIndex(int k) const;

private:
    /** The order drawn for m_count positions; m_order[k] plays k-th. */
    std::vector<std::uint32_t> m_order;
    int m_count;
};
