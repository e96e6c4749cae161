#pragma once
// The host's external display: which feature client holds it (the newest
// open session) and the user's commands on it, sent as that client's
// signals. The calls towards the display are journaled by the feature
// client itself as {"kind":"display","call":<operation>,"args":[...]}.

#include "host/platform/display/DisplayCommand.h"

namespace CLI {
class BaseFeatureClient;
class MediaPlayerClient;
}

class HostDisplay {
public:
    /** The media player's client whose session holds the display; null when none does. */
    static CLI::MediaPlayerClient* mediaPlayerClient();
    /** Sends @p command to mediaPlayerClient() as its signal; false when there is none. */
    static bool send(const DisplayCommand& command);

    // Kept by CLI::BaseFeatureClient as its session opens and ends.
    static void sessionOpened(CLI::BaseFeatureClient* client);
    static void sessionClosed(CLI::BaseFeatureClient* client);
};
