#include "host/engine/HostEngineClock.h"

#include <QLoggingCategory>

#include "host/engine/HostEngine.h"

Q_LOGGING_CATEGORY(lcEngineClock, "mp.host.engine.clock")

namespace {

bool manualTime = false;

} // namespace

void HostEngineClock::setManual(bool manual)
{
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
    // An engine's reports may destroy another engine: walk a copy and skip
    // the engines that are gone.
    const std::vector<HostEngine*> engines = HostEngine::liveEngines();
    for (HostEngine* engine : engines) {
        if (HostEngine::isLive(engine))
            engine->advanceTime(milliseconds);
    }
    return true;
}
