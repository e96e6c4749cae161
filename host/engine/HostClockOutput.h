#pragma once
// The output that plays on a clock: nothing is decoded and nothing is heard.
// In real time a timer measures the time between its ticks while the engine
// plays; in manual time (HostEngineClock) the time moves only when a test or
// a script advances it. Either way the engine hears outputTimePassed and
// keeps the position itself, so that every report comes in an exact,
// repeatable order.

#include <QElapsedTimer>
#include <QTimer>

#include "host/engine/HostEngineOutput.h"

class HostEngineOutputListener;

class HostClockOutput final : public HostEngineOutput {
public:
    /** Tells @p listener (not owned; it outlives the output) how time passes. */
    explicit HostClockOutput(HostEngineOutputListener& listener);
    HostClockOutput(const HostClockOutput&) = delete;
    HostClockOutput& operator=(const HostClockOutput&) = delete;
    ~HostClockOutput() override = default;

    /** Keeps playing or holding: a new item continues as the last one did. */
    void load(const QString& path, MP_CONTENT_TYPE type) override;
    void unload() override;
    void setPlaying(bool playing) override;
    /** The engine keeps the position: nothing to do. */
    void setPosition(int position) override;
    /** Nothing is heard: nothing to do. */
    void setVolume(int level, bool muted) override;
    /** Nothing is shown: nothing to do. */
    void setNormalSize(bool normal) override;
    /** Hands the time to the listener. */
    void manualTimePassed(int milliseconds) override;
    void clockModeChanged() override;
    const char* name() const override { return "clock"; }

private:
    void updateTicker();

    HostEngineOutputListener& m_listener;
    bool m_playing = false;
    QTimer m_ticker; // real time only: runs while playing
    QElapsedTimer m_sinceTick;
};
