#pragma once
// The idle screen's music plug-in and the player, on "/MP/Idle/Channel".
// The player tells the plug-in what plays ("/MP/Idle/Info/..."); the
// plug-in, and anyone else who wants to drive the player (the desktop's
// media controls through mp-mpris), asks on the same channel
// ("/MP/Idle/Req/..."). The names declare no types: the payloads are listed
// below. The plug-in is shown and hidden through HomeScreenChannel.h.

#include "host/contracts/ChannelMessage.h"

namespace IdleScreenChannel {

constexpr char kChannel[] = "/MP/Idle/Channel";
/** Every message of the player begins with this; requests do not. */
constexpr char kInfoPrefix[] = "/MP/Idle/Info/";
/** One seek step of a seek request, in milliseconds. */
constexpr int kSeekStepMs = 5000;

// Player to plug-in.
/** int: the engine's state (0 none, 1 playing, 2 paused, 3 and 4 passing
 *  states while playing); stopped, error and finished (5 to 8) go as 2. */
constexpr char kState[] = "/MP/Idle/Info/State";
/** QString: the time played of the item, "m:ss" (or "h:mm:ss"). */
constexpr char kElapsedTime[] = "/MP/Idle/Info/ElapsedTime";
/** QString: the item's length as above; only when it changes, and again
 *  after an update request. */
constexpr char kTotalTime[] = "/MP/Idle/Info/TotalTime";
/** QString, QByteArray, Q_INT8: "title - album - artist" on one line (the
 *  file name without a title), the engine's extra data (a null one as
 *  length 0), and 1 for a file on the memory card. */
constexpr char kMetaInfo[] = "/MP/Idle/Info/MetaInfo";
/** Nothing: the player ends. */
constexpr char kExit[] = "/MP/Idle/Info/Exit";

// Plug-in to player.
/** int n: seek n steps forward; a request without its count is ignored. */
constexpr char kSeekForth[] = "/MP/Idle/Req/Seek/Forth";
/** int n: seek n steps back. */
constexpr char kSeekBack[] = "/MP/Idle/Req/Seek/BACK";
/** The seek is over: play on from where it went. */
constexpr char kSeekEnd[] = "/MP/Idle/Req/Seek/END";
/** Play and Pause both toggle; at the end of a finished list of more than
 *  one item, Play starts it over. */
constexpr char kPlay[] = "/MP/Idle/Req/Play";
constexpr char kPause[] = "/MP/Idle/Req/Pause";
/** The next item; at the end of a finished list, the list starts over. */
constexpr char kNext[] = "/MP/Idle/Req/Next";
constexpr char kPrev[] = "/MP/Idle/Req/Prev";
/** The player ends. */
constexpr char kQuit[] = "/MP/Idle/Req/Quit";
/** The player screen comes back. */
constexpr char kRestore[] = "/MP/Idle/Req/Restore";
/** Tell everything again (the state, the times, the meta information). */
constexpr char kUpdate[] = "/MP/Idle/Req/Update";
/** Apply the stored music shuffle mode (the requester stores it first). */
constexpr char kShuffle[] = "/MP/Idle/Req/Shuffle";
/** Turn repeat round (and shuffle off). */
constexpr char kRepeat[] = "/MP/Idle/Req/Repeat";

constexpr ChannelMessage kMessages[] = {
    {kState, "int", MessageDirection::FromPlayer},
    {kElapsedTime, "QString", MessageDirection::FromPlayer},
    {kTotalTime, "QString", MessageDirection::FromPlayer},
    {kMetaInfo, "QString,QByteArray,Q_INT8", MessageDirection::FromPlayer},
    {kExit, "", MessageDirection::FromPlayer},
    {kSeekForth, "int", MessageDirection::ToPlayer},
    {kSeekBack, "int", MessageDirection::ToPlayer},
    {kSeekEnd, "", MessageDirection::ToPlayer, MessageRepeat::Foldable},
    {kPlay, "", MessageDirection::ToPlayer},
    {kPause, "", MessageDirection::ToPlayer},
    {kNext, "", MessageDirection::ToPlayer},
    {kPrev, "", MessageDirection::ToPlayer},
    {kQuit, "", MessageDirection::ToPlayer},
    {kRestore, "", MessageDirection::ToPlayer, MessageRepeat::Foldable},
    {kUpdate, "", MessageDirection::ToPlayer, MessageRepeat::Foldable},
    {kShuffle, "", MessageDirection::ToPlayer, MessageRepeat::Foldable},
    {kRepeat, "", MessageDirection::ToPlayer},
};

constexpr ChannelContract kContract = channelContract(kChannel, kMessages);

} // namespace IdleScreenChannel
