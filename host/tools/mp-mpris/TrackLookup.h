#pragma once
// Where the bridge learns what a playing path is: the media database of the
// player's data folder, or a test's table.

#include <QString>

#include <optional>

#include "host/platform/media/database/MediaRecord.h"

class TrackLookup {
public:
    virtual ~TrackLookup() = default;
    /** The stored media object of @p path; nothing when it is not stored. */
    virtual std::optional<MediaRecord> find(const QString& path) const = 0;
};
