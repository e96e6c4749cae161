#pragma once
// The time that the platform's timers for held keys follow. It runs in real
// time by default. In manual mode (switched on together with the playback
// engine's clock) it stands still until advance() moves it, and a timer
// fires exactly at the manual instants its interval names, so that a test
// sees one timeout per interval and nothing in between.

#include <QtGlobal>

class HostTimerClock {
public:
    /** A timer that follows this clock. */
    class Timer {
    public:
        /** The manual instant of the next timeout; negative while stopped. */
        virtual qint64 dueTime() const = 0;
        /** The manual clock reached dueTime(): time out and pick the next instant. */
        virtual void timeUp() = 0;
        /** The clock switched between real and manual time. */
        virtual void clockModeChanged() = 0;

    protected:
        ~Timer() = default;
    };

    /** Timers register while they live; the clock never owns them. */
    static void attach(Timer* timer);
    static void detach(Timer* timer);

    static void setManual(bool manual);
    static bool isManual();
    /** The manual clock's instant, in milliseconds since the process began. */
    static qint64 now();

    /** Milliseconds from now() to the earliest due timer, at most @p limit. */
    static int untilNextTimeout(int limit);
    /**
     * Moves the manual clock by @p milliseconds (not negative), firing each
     * timer at every instant it is due on the way, earliest first. Does
     * nothing in real time.
     */
    static void advance(int milliseconds);
};
