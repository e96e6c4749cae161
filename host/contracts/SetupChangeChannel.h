#pragma once
// The setup screen and the player, on "MEDIAPLAYER_MESSAGE_CHANNEL": the
// setup screen has stored a new shuffle or repeat mode (in the player's
// settings, group "MediaControlItem") and tells the playing list, which
// follows it at once. Each message carries the new value as an int; the
// names declare no types.

#include "host/contracts/ChannelMessage.h"

namespace SetupChangeChannel {

constexpr char kChannel[] = "MEDIAPLAYER_MESSAGE_CHANNEL";
/** Every message of the channel begins with this. */
constexpr char kPrefix[] = "MP_MSG_SETUP_CHANGE_";

/** int: the music shuffle mode, 0 off, 1 songs, 2 albums. */
constexpr char kShuffleMusic[] = "MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC";
/** int: music repeat, 0 off, 1 on. */
constexpr char kRepeatMusic[] = "MP_MSG_SETUP_CHANGE_REPEAT_MUSIC";
/** int: the video shuffle mode, 0 off, 1 on. */
constexpr char kShuffleVideo[] = "MP_MSG_SETUP_CHANGE_SHUFFLE_VIDEO";
/** int: video repeat, 0 off, 1 on. */
constexpr char kRepeatVideo[] = "MP_MSG_SETUP_CHANGE_REPEAT_VIDEO";

constexpr ChannelMessage kMessages[] = {
    {kShuffleMusic, "int", MessageDirection::ToPlayer},
    {kRepeatMusic, "int", MessageDirection::ToPlayer},
    {kShuffleVideo, "int", MessageDirection::ToPlayer},
    {kRepeatVideo, "int", MessageDirection::ToPlayer},
};

constexpr ChannelContract kContract = channelContract(kChannel, kMessages);

} // namespace SetupChangeChannel
