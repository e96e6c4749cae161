#include "host/tools/mp-mpris/DatabaseTrackLookup.h"

#include "host/platform/media/metadata/MediaFileLookup.h"

std::optional<MediaRecord> DatabaseTrackLookup::find(const QString& path) const
{
    // Opened for each look-up: a new item is rare, and the player or the
    // scanner may have replaced the file since the last one.
    return MediaFileLookup::find(path);
}
