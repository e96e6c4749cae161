#pragma once
// The phone's system messages, on "VEMO/System", sent to every application.

#include "host/contracts/ChannelMessage.h"

namespace SystemChannel {

constexpr char kChannel[] = "VEMO/System";

/** The theme changed: the player restarts its idle plug-in, which draws
 *  with the style it started with. */
constexpr char kApplyStyle[] = "applyStyle()";
/** A memory card went in or out: its slot (the card is slot 1), then 1 in
 *  or 0 out. The player quits: its list may name files that are gone. */
constexpr char kCardHotplug[] = "cardHotplugEvent(int,int)";
constexpr int kCardSlot = 1;

constexpr ChannelMessage kMessages[] = {
    {kApplyStyle, "", MessageDirection::ToPlayer},
    {kCardHotplug, "int,int", MessageDirection::ToPlayer},
};

constexpr ChannelContract kContract = channelContract(kChannel, kMessages);

} // namespace SystemChannel
