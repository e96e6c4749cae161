#pragma once
// The player's music shuffle and repeat settings as the bridge sees them: the
// settings store the player keeps in the shared data folder, or a test's.

class PlaySettings {
public:
    virtual ~PlaySettings() = default;
    /** The stored music shuffle mode: 0 off, 1 songs, 2 albums. */
    virtual int shuffleMode() const = 0;
    virtual bool repeat() const = 0;
    /** Stores the music shuffle mode that the player's shuffle request applies. */
    virtual void storeShuffleMode(int mode) = 0;
};
