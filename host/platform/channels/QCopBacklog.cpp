#include "host/platform/channels/QCopBacklog.h"

#include <utility>

#include "host/contracts/ChannelContracts.h"

bool QCopBacklog::isFoldable(const Message& message)
{
    const ChannelMessage* contract = ChannelContracts::find(message.channel, message.message);
    return contract && contract->repeat == MessageRepeat::Foldable;
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
