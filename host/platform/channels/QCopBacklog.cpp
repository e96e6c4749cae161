#include "host/platform/channels/QCopBacklog.h"

#include <utility>

bool QCopBacklog::isFoldable(const Message& message)
{
    if (message.channel == "/MP/Idle/Channel")
        return message.message == "/MP/Idle/Req/Update" || message.message == "/MP/Idle/Req/Restore"
               || message.message == "/MP/Idle/Req/Shuffle" || message.message == "/MP/Idle/Req/Seek/END";
    return message.channel == "MF_MSG_CHANNEL" && message.message == "queryMPNowPlaying()";
}

bool QCopBacklog::add(Message message)
{
    if (!m_waiting.empty() && isFoldable(message)) {
        const Message& last = m_waiting.back();
        if (last.channel == message.channel && last.message == message.message && last.data == message.data)
            return false;
    }
    if (int(m_waiting.size()) >= kLimit) {
        ++m_dropped;
        return false;
    }
    m_waiting.push_back(std::move(message));
    return true;
}

QCopBacklog::Message QCopBacklog::take()
{
    Message oldest = std::move(m_waiting.front());
    m_waiting.pop_front();
    return oldest;
}
