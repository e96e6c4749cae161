#pragma once
// The phone's key events, on "VEMO/KeyEvent": the keys that reach every
// application, among them a Bluetooth headset's and the jump key. The
// player takes the headset keys (MP_BluetoothClient) and the jump key.

#include "host/contracts/ChannelMessage.h"

namespace KeyEventChannel {

constexpr char kChannel[] = "VEMO/KeyEvent";

/** A key went down, came up or is held: its code, then its type. */
constexpr char kKey[] = "keyMsg(int,int)";

// Key types.
constexpr int kPress = 1;
constexpr int kRelease = 2;
constexpr int kPressAndHold = 4;

// Key codes.
/** Leaves a playing video. */
constexpr int kJumpKey = 0x1048;
// A headset's keys: play and pause toggle; the seek keys seek while held.
constexpr int kPlayKey = 0x1050;
constexpr int kStopKey = 0x1051;
constexpr int kPauseKey = 0x1052;
constexpr int kSeekBackKey = 0x1053;
constexpr int kSeekForthKey = 0x1054;
constexpr int kNextKey = 0x1055;
constexpr int kPreviousKey = 0x1056;

constexpr ChannelMessage kMessages[] = {
    {kKey, "int,int", MessageDirection::ToPlayer},
};

constexpr ChannelContract kContract = channelContract(kChannel, kMessages);

} // namespace KeyEventChannel
