#pragma once
// The player's settings store (application 71, group "MediaControlItem") in
// the data folder, read anew at every call: the player writes it from its
// own process.

#include "host/tools/mp-mpris/PlaySettings.h"

class StoredPlaySettings : public PlaySettings {
public:
    int shuffleMode() const override;
    bool repeat() const override;
    void storeShuffleMode(int mode) override;
};
