#pragma once
// Looks playing paths up in the media database of the data folder
// (MP_DATA_DIR), the one the player plays from.

#include "host/tools/mp-mpris/TrackLookup.h"

class DatabaseTrackLookup : public TrackLookup {
public:
    std::optional<MediaRecord> find(const QString& path) const override;
};
