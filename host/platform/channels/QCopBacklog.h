#pragma once
// The channel messages from other processes that wait for this process's
// event loop, bounded so that a flood from another process can neither grow
// this process without end nor keep it busy long after the flood.
//
//   - At most kLimit messages wait. A message that arrives while kLimit wait
//     is dropped (counted in dropped()): a process that sends faster than the
//     player can act loses what it sent last, and the player stays alive.
//   - A request that only asks for something to be shown or told again is
//     folded into the same request (same channel, name and payload) when that
//     one is the last waiting: acting on it once after both came has the same
//     effect as acting twice. The channel contracts (host/contracts) mark
//     them Foldable: the idle screen's "/MP/Idle/Req/Update" (tell everything
//     again), "/MP/Idle/Req/Restore" (show the player), "/MP/Idle/Req/Shuffle"
//     (apply the stored mode) and "/MP/Idle/Req/Seek/END", and the media
//     browser's "queryMPNowPlaying()". Requests whose every arrival counts
//     (Next, Prev, the toggling Play, Pause and Repeat, seeks) are never folded.

#include <QByteArray>

#include <deque>

#include "platform/Qt2Compat.h"

class QCopBacklog {
public:
    struct Message {
        QCString channel;
        QCString message;
        QByteArray data;
    };

    static constexpr int kLimit = 1000;

    /** Queues @p message; false when it was folded or dropped instead. */
    bool add(Message message);
    /** Takes the oldest waiting message; the backlog must not be empty. */
    Message take();
    bool isEmpty() const { return m_waiting.empty(); }
    int size() const { return int(m_waiting.size()); }
    /** How many messages were dropped because kLimit were waiting. */
    long long dropped() const { return m_dropped; }

private:
    static bool isFoldable(const Message& message);

    std::deque<Message> m_waiting;
    long long m_dropped = 0;
};
