#pragma once
// The host's engine in an owning pointer with the library's own deleter
// (MP_CommonPlayerRelease): makeHostEngine() makes it as the main window does.

#include <memory>

#include "host/engine/HostEngine.h"
#include "platform/MP_CommonPlayer.h"

using EngineRelease = MP_CommonPlayerRelease;

using HostEnginePtr = std::unique_ptr<HostEngine, EngineRelease>;

inline HostEnginePtr makeHostEngine(MP_LAUNCH_TYPE type = MP_LAUNCH_LIST)
{
    return HostEnginePtr(static_cast<HostEngine*>(MP_CreateCommonPlayer(false, type)));
}
