#pragma once
// A platform message: addressed to a channel under a message name, filled
// by streaming values into it (in the phone's payload encoding, see
// platform/StreamEncoding.h), then sent. A message into which nothing was
// streamed goes out without data.
//
//   VmMsg msg("VEMO/HSFRAMEWORK", "activePlugIn()", false);
//   msg << QString("IdleMusicPlayer");
//   msg.send();

#include <QByteArray>
#include <QDataStream>

#include "platform/Qt2Compat.h"

class VmMsg {
public:
    /** A message @p message for @p channel. @p urgent asks the platform to
     *  deliver it ahead of queued messages; false is the ordinary delivery. */
    VmMsg(const QCString& channel, const QCString& message, bool urgent);
    ~VmMsg();

    /** Appends @p value to the payload in the phone's encoding. */
    template <typename T>
    VmMsg& operator<<(const T& value)
    {
        m_stream << value;
        return *this;
    }

    /** Broadcasts the message with the payload streamed so far; false when
     *  the channel or message name is empty. May be called again. */
    bool send() const;

    QCString channel() const { return m_channel; }
    QCString message() const { return m_message; }
    bool isUrgent() const { return m_urgent; }
    const QByteArray& payload() const { return m_payload; }

private:
    const QCString m_channel;
    const QCString m_message;
    const bool m_urgent;
    QByteArray m_payload;
    QDataStream m_stream;  // writes into m_payload, so declared after it

    VmMsg(const VmMsg&) = delete;
    VmMsg& operator=(const VmMsg&) = delete;
};
