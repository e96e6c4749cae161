#pragma once
// The download manager and the player, on "/VEMO/AM/DOWNLOADMANAGER": what
// the player asks of a download it plays while it is still coming.

#include "host/contracts/ChannelMessage.h"

namespace DownloadManagerChannel {

constexpr char kChannel[] = "/VEMO/AM/DOWNLOADMANAGER";

/** The person cancelled the progressive download that plays (Back, then Yes). */
constexpr char kUserCancel[] = "MPUserCancelDL()";
/** Show the download manager's screen ("Hide Download"); no parentheses in its name. */
constexpr char kShowUI[] = "ShowUI";

constexpr ChannelMessage kMessages[] = {
    {kUserCancel, "", MessageDirection::FromPlayer},
    {kShowUI, "", MessageDirection::FromPlayer},
};

constexpr ChannelContract kContract = channelContract(kChannel, kMessages);

} // namespace DownloadManagerChannel
