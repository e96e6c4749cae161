#pragma once
// The media browser and the player, on two channels: the player tells the
// browser on "/vemo/apps/mediaplayer" that it runs and what plays, so that
// the browser can mark the item; the browser asks on "MF_MSG_CHANNEL".
// The names declare their types.

#include "host/contracts/ChannelMessage.h"

namespace MediaBrowserChannel {

constexpr char kNewsChannel[] = "/vemo/apps/mediaplayer";
constexpr char kRequestChannel[] = "MF_MSG_CHANNEL";

// Player to browser.
/** The player runs (its engine was made). */
constexpr char kStarted[] = "MediaplayerStarted()";
/** The player's engine went. */
constexpr char kExited[] = "MediaplayerExited()";
/** The engine's state, as the engine gives it (0 to 8). */
constexpr char kState[] = "NowplayingState(int)";
/** A song of a library selection starts: its path, its position in the
 *  list, and the selection's artist, album, genre and composer (a null
 *  string for one that the selection does not name). */
constexpr char kSystemItem[] = "NowPlayingSystemItem(QString, int, QString, QString, QString, QString)";
/** A song of a play list starts: its path, its position and the play list's group id. */
constexpr char kGroupItem[] = "NowplayingGroupItem(QString, int, int)";

// Browser to player.
/** The player screen comes back. */
constexpr char kUnhide[] = "unHideMediaPlayer()";
/** Send the last item message again (none before the first song) and the state. */
constexpr char kQuery[] = "queryMPNowPlaying()";

constexpr ChannelMessage kNews[] = {
    {kStarted, "", MessageDirection::FromPlayer},
    {kExited, "", MessageDirection::FromPlayer},
    {kState, "int", MessageDirection::FromPlayer},
    {kSystemItem, "QString,int,QString,QString,QString,QString", MessageDirection::FromPlayer},
    {kGroupItem, "QString,int,int", MessageDirection::FromPlayer},
};

constexpr ChannelMessage kRequests[] = {
    {kUnhide, "", MessageDirection::ToPlayer},
    {kQuery, "", MessageDirection::ToPlayer, MessageRepeat::Foldable},
};

constexpr ChannelContract kNewsContract = channelContract(kNewsChannel, kNews);
constexpr ChannelContract kRequestContract = channelContract(kRequestChannel, kRequests);

} // namespace MediaBrowserChannel
