#pragma once
// Every channel protocol the player speaks, in one table, and the two
// questions the host asks of it: what a channel's message is, and which
// types its payload carries.

#include <QByteArray>
#include <QLatin1Char>
#include <QString>
#include <QStringList>

#include "host/contracts/ChannelMessage.h"
#include "host/contracts/DownloadManagerChannel.h"
#include "host/contracts/HomeScreenChannel.h"
#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/KeyEventChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "host/contracts/SetupChangeChannel.h"
#include "host/contracts/SystemChannel.h"

namespace ChannelContracts {

constexpr ChannelContract kAll[] = {
    IdleScreenChannel::kContract,       HomeScreenChannel::kContract,  MediaBrowserChannel::kNewsContract,
    MediaBrowserChannel::kRequestContract, SetupChangeChannel::kContract, KeyEventChannel::kContract,
    SystemChannel::kContract,           DownloadManagerChannel::kContract,
};

/** The message @p name of @p channel; null when that channel carries no such message. */
inline const ChannelMessage* find(const QByteArray& channel, const QByteArray& name)
{
    for (const ChannelContract& contract : kAll) {
        if (channel != contract.channel)
            continue;
        for (const ChannelMessage& message : contract) {
            if (name == message.name)
                return &message;
        }
    }
    return nullptr;
}

/** The payload types of @p message in stream order; none when it carries nothing. */
inline QStringList payloadTypes(const ChannelMessage& message)
{
    const QString types = QString::fromLatin1(message.types);
    return types.isEmpty() ? QStringList() : types.split(QLatin1Char(','));
}

} // namespace ChannelContracts
