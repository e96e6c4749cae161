#include "host/platform/HostTimerClock.h"

#include <algorithm>
#include <vector>

namespace {

struct ClockState {
    bool manual = false;
    qint64 now = 0;
    std::vector<HostTimerClock::Timer*> timers;
};

ClockState& clock()
{
    static ClockState state;
    return state;
}

// The running timer due first at or before @p limit; null when none is.
HostTimerClock::Timer* earliestDue(qint64 limit)
{
    HostTimerClock::Timer* earliest = nullptr;
    for (HostTimerClock::Timer* timer : clock().timers) {
        const qint64 due = timer->dueTime();
        if (due >= 0 && due <= limit && (!earliest || due < earliest->dueTime()))
            earliest = timer;
    }
    return earliest;
}

} // namespace

void HostTimerClock::attach(Timer* timer)
{
    clock().timers.push_back(timer);
}

void HostTimerClock::detach(Timer* timer)
{
    std::vector<Timer*>& timers = clock().timers;
    timers.erase(std::remove(timers.begin(), timers.end(), timer), timers.end());
}

void HostTimerClock::setManual(bool manual)
{
    if (manual == clock().manual)
        return;
    clock().manual = manual;
    // A handler may stop or destroy timers: walk a copy, skipping the gone.
    const std::vector<Timer*> timers = clock().timers;
    for (Timer* timer : timers) {
        if (std::find(clock().timers.begin(), clock().timers.end(), timer) != clock().timers.end())
            timer->clockModeChanged();
    }
}

bool HostTimerClock::isManual()
{
    return clock().manual;
}

qint64 HostTimerClock::now()
{
    return clock().now;
}

int HostTimerClock::untilNextTimeout(int limit)
{
    const Timer* next = earliestDue(clock().now + limit);
    return next ? int(std::max<qint64>(0, next->dueTime() - clock().now)) : limit;
}

void HostTimerClock::advance(int milliseconds)
{
    if (!clock().manual || milliseconds < 0)
        return;
    const qint64 target = clock().now + milliseconds;
    // Each timeout moves its timer's due time past the instant it fired at
    // (timers keep intervals of at least 1 ms), so this ends.
    while (Timer* timer = earliestDue(target)) {
        clock().now = std::max(clock().now, timer->dueTime());
        timer->timeUp();
    }
    clock().now = target;
}
