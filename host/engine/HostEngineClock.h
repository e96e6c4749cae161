#pragma once
// The clock that moves the media time of every host engine that plays
// through the clock output (HostClockOutput). It runs in real time by
// default: each playing engine measures the time between its ticks. In
// manual mode (tests, the application's "clock manual" script command) time
// stands still until advance() moves it, so that every report comes in an
// exact, repeatable order; an engine then plays through the clock output
// unless told otherwise (HostOutputChoice). The platform's key timers
// (HostTimerClock) follow the same clock.

class HostEngineClock {
public:
    /** Switches every engine, existing and future, to manual time (true) or real time. */
    static void setManual(bool manual);
    static bool isManual();

    /**
     * Moves the media time of every live engine by @p milliseconds, in the
     * order the engines were created. Each engine reports every whole second
     * it passes and steps past item ends, carrying what is left of the time
     * into the next item. Returns false, moving nothing, unless the clock is
     * manual and @p milliseconds is not negative.
     */
    static bool advance(int milliseconds);

    /** Real-time tick interval of a playing engine, in milliseconds. */
    static constexpr int kTickInterval = 100;

private:
    static void advanceEngines(int milliseconds);
};
