#pragma once
// The deleter of an engine made with MP_CreateCommonPlayer: the engine
// library that made it also frees it. makeHostEngine() makes the host's
// engine that way, as the main window does.

#include <memory>

#include "host/engine/HostEngine.h"
#include "platform/MP_CommonPlayer.h"

struct EngineRelease {
    void operator()(MP_CommonPlayer* engine) const { MP_DestroyCommonPlayer(engine); }
};

using HostEnginePtr = std::unique_ptr<HostEngine, EngineRelease>;

inline HostEnginePtr makeHostEngine(MP_LAUNCH_TYPE type = MP_LAUNCH_LIST)
{
    return HostEnginePtr(static_cast<HostEngine*>(MP_CreateCommonPlayer(false, type)));
}
