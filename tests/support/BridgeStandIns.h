#pragma once
// What the desktop bridge reads besides the player's messages, held by a
// test: the stored media objects by path, and the player's shuffle and
// repeat settings. Empty and off until a test fills them.

#include <QHash>

#include "host/tools/mp-mpris/PlaySettings.h"
#include "host/tools/mp-mpris/TrackLookup.h"

class TableTracks : public TrackLookup {
public:
    std::optional<MediaRecord> find(const QString& path) const override
    {
        const auto found = records.constFind(path);
        return found == records.constEnd() ? std::nullopt : std::optional<MediaRecord>(*found);
    }
    QHash<QString, MediaRecord> records;
};

class MemorySettings : public PlaySettings {
public:
    int shuffleMode() const override { return shuffle; }
    bool repeat() const override { return repeatOn; }
    void storeShuffleMode(int mode) override { shuffle = mode; }
    int shuffle = 0;
    bool repeatOn = false;
};
