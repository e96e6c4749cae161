#pragma once
// The process that every fuzz target runs in: one QApplication on the
// offscreen platform, a fresh data folder holding a small media library
// (three artists, four albums, a user play list, videos), the engine's clock
// in manual mode so that nothing depends on the wall clock, and the library's
// trace lines and Qt's messages silenced so that the fuzzer's speed goes into
// the code under test. The one thing left on real time is the database's
// change poller (a few looks a second): the change indications that an
// input's own database writes cause may reach a list during a later input.

#include <QString>

class FuzzEnvironment {
public:
    /** Sets everything up; only the first call does anything. Call it from
     *  LLVMFuzzerInitialize. */
    static void start();

    /** Runs the event loop until nothing is left to do right now, so that
     *  channel messages, posted events and 0 or 1 ms timers are delivered.
     *  Bounded in rounds, not in time. */
    static void runEventLoop();

    /** The id of the user play list of the library. */
    static unsigned int playListId();
    /** The data folder (settings, media database, the library's files). */
    static QString dataFolder();
};
