#pragma once
// The phone's setup screen lives in a library of its own, opened by name each
// time the user asks for it and closed when the screen returns, so that its
// code is only in memory while it is shown.

#include <QByteArray>

class MP_SetupLibrary {
public:
    /** Setup kinds the library's entry point takes. */
    static constexpr int kAudio = 0;
    static constexpr int kVideo = 1;

    /** Opens the library, runs its setup screen for @p kind with the player's
     *  back-hide flag and closes it again. Returns false, with a trace, when the
     *  library or its entry point is missing. */
    static bool showSetupUI(int kind, bool backHide);

    /** The file opened by showSetupUI(): the phone's setup library unless
     *  another name was set. */
    static QByteArray libraryName();
    /** Names the file showSetupUI() opens; an empty name returns to the
     *  phone's. Lets a test stand in a missing or different library. */
    static void setLibraryName(const QByteArray& name);
};
