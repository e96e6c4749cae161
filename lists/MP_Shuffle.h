#pragma once
// One random permutation of the positions 0..n-1 of a list: in shuffle-songs
// mode it maps a play position to a song position, in shuffle-albums mode a
// play position to an album position. Look-ups are stable between rebuilds.

#include "platform/Qt2Compat.h"

class MP_Shuffle {
public:
    MP_Shuffle();
    virtual ~MP_Shuffle();

    /** Builds a new order for @p count positions (none for 0 or less). @p first, when it
     *  is one of them, plays first; -1 pins nothing. The generator is seeded with the
     *  current second at every call, so equal calls within one second give equal orders. */
    void shuffle(int count, int first);
    /** A new order for the same count, nothing pinned. */
    void reShuffle();
    /** The position that plays @p k-th; 0 when @p k is outside the order. */
    int getShuffleIndex(int k) const;

private:
    QValueList<int> m_order;
    int m_count;
};
