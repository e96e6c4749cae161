#pragma once
// Where the host engine's current item plays. The engine decides what plays
// and when; an output carries that out and tells the engine's listener
// (HostEngineOutputListener) how time moves. Two exist: the clock output
// (HostClockOutput: nothing is decoded, time comes from HostEngineClock, so
// every report is exact and repeatable) and the media output
// (HostMediaOutput: Qt Multimedia decodes and plays sound and video).
// HostOutputChoice picks one for each engine.

#include <QString>

#include "platform/MP_PlayerTypes.h"

class HostEngineOutput {
public:
    virtual ~HostEngineOutput() = default;

    /** Makes @p path (a local path, "file://" name or stream address) the
     *  current item, stopped at its beginning. @p type says whether a picture
     *  is to be shown. Problems the decoder finds come later, through the listener. */
    virtual void load(const QString& path, MP_CONTENT_TYPE type) = 0;
    /** Forgets the current item. */
    virtual void unload() = 0;
    /** Plays (true) or holds (false) the current item where it is. */
    virtual void setPlaying(bool playing) = 0;
    /** Moves the current item to @p position ms (the engine already reported it). */
    virtual void setPosition(int position) = 0;
    /** The playback control's level that plays at full volume; 0 is silent,
     *  in between is linear, above is full. */
    static constexpr int kFullVolumeLevel = 10;

    /** The playback control's level (0 .. kFullVolumeLevel) and mute. */
    virtual void setVolume(int level, bool muted) = 0;
    /** A video fits the player screen (true) or fills the whole screen (false). */
    virtual void setNormalSize(bool normal) = 0;
    /** The manual clock moved by @p milliseconds; only the clock output follows it. */
    virtual void manualTimePassed(int milliseconds) = 0;
    /** The clock switched between real and manual time. */
    virtual void clockModeChanged() = 0;
    /** "clock" or "media": what the trace and the tests call this output. */
    virtual const char* name() const = 0;
};
