#pragma once
// One message of a channel protocol as both of its ends must agree on it:
// its name, the types its payload carries, which way it goes and whether a
// repeat of it may be folded into the one before. Each protocol header of
// this folder lists its channel's messages in a table of these; the host's
// senders and readers take the names from there, `qcop` decodes payloads by
// the types, and ChannelContracts.h gathers every table.
//
// The tables are constexpr with internal linkage: each program and library
// that includes them holds its own copy, so nothing here is linked.

#include <cstddef>

/** Which end sends the message: the player, or the application it talks to
 *  (the idle screen, the media browser, the setup screen, the phone). */
enum class MessageDirection { FromPlayer, ToPlayer };

/** Whether a second request right behind an equal one (same channel, name
 *  and payload) may be dropped, because acting once after both came has the
 *  same effect as acting twice: it only asks for something to be shown or
 *  told again. */
enum class MessageRepeat { EveryOneCounts, Foldable };

struct ChannelMessage {
    const char* name;
    /** The payload's types in stream order, separated by commas as a
     *  signature lists them ("QString,QByteArray,Q_INT8"); empty when the
     *  message carries nothing. The words are int, Q_INT8, QString and
     *  QByteArray, encoded as platform/StreamEncoding.h says. */
    const char* types;
    MessageDirection direction;
    MessageRepeat repeat = MessageRepeat::EveryOneCounts;
};

/** One channel and the messages that pass on it. */
struct ChannelContract {
    const char* channel;
    const ChannelMessage* messages;
    std::size_t count;

    constexpr const ChannelMessage* begin() const { return messages; }
    constexpr const ChannelMessage* end() const { return messages + count; }
};

template <std::size_t Count>
constexpr ChannelContract channelContract(const char* channel, const ChannelMessage (&messages)[Count])
{
    return {channel, messages, Count};
}
