#pragma once
// Finds the media object of a file in the process's own media database: what
// the platform's media-file queries (isMediaFile, whether a sound may become
// a ringtone) ask. metadataCheckFile, beside it, asks a client's connection
// whether a file is still the one stored.

#include <QString>

#include <optional>

#include "host/platform/media/database/MediaRecord.h"

class MediaFileLookup {
public:
    /** The stored media object whose path is @p path; nothing when there is
     *  none or the database cannot be opened. */
    static std::optional<MediaRecord> find(const QString& path);
};
