#include "platform/VmMsg.h"

#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"

VmMsg::VmMsg(const QCString& channel, const QCString& message, bool urgent)
    : m_channel(channel), m_message(message), m_urgent(urgent), m_stream(&m_payload, QIODevice::WriteOnly)
{
    MP_SetPayloadFormat(m_stream);
}

VmMsg::~VmMsg() = default;

bool VmMsg::send() const
{
    // Channels deliver every message through the event loop in the order
    // sent; there is no queue for an urgent message to overtake, so both
    // deliveries are the same here. The channel journals the message.
    return QCopChannel::send(m_channel, m_message, m_payload);
}
