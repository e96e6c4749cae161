#pragma once
// What an output tells the host engine that drives it. The engine keeps the
// state machine and every report; an output only says how media time moved
// and what the decoder found. The media output calls from the event loop; the
// clock output from its timer, and from inside manualTimePassed().

#include <QString>

class HostEngineOutputListener {
public:
    /** Media time moved on by @p milliseconds (the clock output: the engine
     *  keeps the position and carries time past an item's end into the next). */
    virtual void outputTimePassed(int milliseconds) = 0;
    /** The decoder plays at @p position ms of the current item (the media output). */
    virtual void outputPositionReached(int position) = 0;
    /** The decoder measured the current item: @p duration ms. */
    virtual void outputDurationFound(int duration) = 0;
    /** The decoder played the current item to its end. */
    virtual void outputEndReached() = 0;
    /** The decoder cannot play the current item; @p message is its own words. */
    virtual void outputFailed(const QString& message) = 0;

protected:
    ~HostEngineOutputListener() = default;
};
