#include "host/engine/HostOutputChoice.h"

#include "host/engine/HostClockOutput.h"
#include "host/engine/HostEngineClock.h"
#include "host/engine/HostMediaOutput.h"

namespace {

HostOutputKind chosenKind = HostOutputKind::Automatic;

} // namespace

void HostOutputChoice::setKind(HostOutputKind kind)
{
    chosenKind = kind;
}

HostOutputKind HostOutputChoice::kind()
{
    return chosenKind;
}

HostOutputKind HostOutputChoice::effectiveKind()
{
    if (chosenKind != HostOutputKind::Automatic)
        return chosenKind;
    return HostEngineClock::isManual() ? HostOutputKind::Clock : HostOutputKind::Media;
}

std::unique_ptr<HostEngineOutput> HostOutputChoice::create(HostEngineOutputListener& listener, QWidget& videoArea)
{
    if (effectiveKind() == HostOutputKind::Media)
        return std::make_unique<HostMediaOutput>(listener, videoArea);
    return std::make_unique<HostClockOutput>(listener);
}
