#include "host/engine/HostEngineClock.h"

#include <QLoggingCategory>

#include "host/engine/HostEngine.h"
#include "host/platform/HostTimerClock.h"

Q_LOGGING_CATEGORY(lcEngineClock, "mp.host.engine.clock")

namespace {

bool manualTime = false;

} // namespace

void HostEngineClock::setManual(bool manual)
{
    // The platform's key timers keep the engines' time, so that a held key
    // and the media it seeks move in one time.
    HostTimerClock::setManual(manual);
    if (manual == manualTime)
        return;
    manualTime = manual;
    for (HostEngine* engine : HostEngine::liveEngines())
        engine->clockModeChanged();
}

bool HostEngineClock::isManual()
{
    return manualTime;
}

bool HostEngineClock::advance(int milliseconds)
{
    if (!manualTime) {
        qCWarning(lcEngineClock, "advance(%d) ignored: the clock runs in real time", milliseconds);
        return false;
    }
    if (milliseconds < 0) {
        qCWarning(lcEngineClock, "advance(%d) ignored: time does not run backwards", milliseconds);
        return false;
    }
    // Time moves in steps from one key-timer timeout to the next, so that what
    // a timeout does (a seek) meets the media at the instant it fires.
    int left = milliseconds;
    do {
        const int step = HostTimerClock::untilNextTimeout(left);
        advanceEngines(step);
        HostTimerClock::advance(step);
        left -= step;
    } while (left > 0);
    return true;
}

void HostEngineClock::advanceEngines(int milliseconds)
{
    // An engine's reports may destroy another engine: walk a copy and skip
    // the engines that are gone.
    const std::vector<HostEngine*> engines = HostEngine::liveEngines();
    for (HostEngine* engine : engines) {
        if (HostEngine::isLive(engine))
            engine->clockAdvanced(milliseconds);
    }
}
