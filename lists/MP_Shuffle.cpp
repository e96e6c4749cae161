#include "lists/MP_Shuffle.h"

#include <cstdlib>
#include <ctime>

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(ShuffleTrace, "MP_Shuffle")

MP_Shuffle::MP_Shuffle() : m_count(0) {}

MP_Shuffle::~MP_Shuffle() = default;

void MP_Shuffle::shuffle(int count, int first)
{
    m_order.clear();
    m_count = count;
    if (count <= 0)
        return;
    if (count == 1) {
        m_order.append(0);
        return;
    }
    for (int position = 0; position < count; ++position)
        m_order.append(position);

    srandom(unsigned(time(nullptr)));
    for (int i = count; i >= 2; --i) {
        const int j = int(random() % i);
        m_order.swapItemsAt(j, i - 1);
    }

    // The pinned position plays first; the one the draw put first takes its place.
    const int pinned = first >= 0 ? int(m_order.indexOf(first)) : -1;
    if (pinned >= 0) {
        m_order[pinned] = m_order[0];
        m_order[0] = first;
    }
    ShuffleTrace(3, "shuffle: count=%d, first=%d\n", count, first);
}

void MP_Shuffle::reShuffle()
{
    shuffle(m_count, -1);
}

int MP_Shuffle::getShuffleIndex(int k) const
{
    if (k < 0 || k >= m_order.size())
        return 0;
    return m_order[k];
}
