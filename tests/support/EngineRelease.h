#pragma once
// The deleter of an engine made with MP_CreateCommonPlayer: the engine
// library that made it also frees it.

#include "platform/MP_CommonPlayer.h"

struct EngineRelease {
    void operator()(MP_CommonPlayer* engine) const { MP_DestroyCommonPlayer(engine); }
};
