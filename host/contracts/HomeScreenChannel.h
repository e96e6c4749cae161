#pragma once
// The home screen's plug-in framework, on "VEMO/HSFRAMEWORK": the player
// asks it to show or hide a plug-in of the idle screen (its music plug-in,
// which then speaks IdleScreenChannel.h). The names declare no types, yet
// both carry the plug-in's name.

#include "host/contracts/ChannelMessage.h"

namespace HomeScreenChannel {

constexpr char kChannel[] = "VEMO/HSFRAMEWORK";
/** The name of the idle screen's music plug-in. */
constexpr char kMusicPlugin[] = "IdleMusicPlayer";

/** QString: show the plug-in of that name (the player hid itself). */
constexpr char kActivate[] = "activePlugIn()";
/** QString: hide it (the player's engine goes, or a new style restarts it). */
constexpr char kDeactivate[] = "deactivePlugIn()";

constexpr ChannelMessage kMessages[] = {
    {kActivate, "QString", MessageDirection::FromPlayer},
    {kDeactivate, "QString", MessageDirection::FromPlayer},
};

constexpr ChannelContract kContract = channelContract(kChannel, kMessages);

} // namespace HomeScreenChannel
