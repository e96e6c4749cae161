#include "platform/UTIL_RepeatTimer.h"

#include <QTimer>

#include <algorithm>

#include "host/platform/HostTimerClock.h"

// The host's timer follows the host clock: a QTimer in real time, the
// manual instants of HostTimerClock while a test or a script moves time by
// hand. Switching the clock while the timer runs starts its interval afresh
// in the new time: the two times have no common instant to carry over.
class UTIL_RepeatTimerPrivate final : public HostTimerClock::Timer {
public:
    explicit UTIL_RepeatTimerPrivate(UTIL_RepeatTimer& timer) : q(timer)
    {
        QObject::connect(&realTimer, &QTimer::timeout, &q, &UTIL_RepeatTimer::timeout);
        HostTimerClock::attach(this);
    }
    ~UTIL_RepeatTimerPrivate() { HostTimerClock::detach(this); }

    void arm()
    {
        realTimer.stop();
        due = -1;
        if (!active)
            return;
        if (HostTimerClock::isManual())
            due = HostTimerClock::now() + manualInterval();
        else
            realTimer.start(interval);
    }

    // A zero interval would fire forever at one manual instant.
    int manualInterval() const { return std::max(1, interval); }

    qint64 dueTime() const override { return due; }
    void timeUp() override
    {
        due += manualInterval();
        // The receiver may destroy the timer: nothing is touched after this.
        Q_EMIT q.timeout();
    }
    void clockModeChanged() override { arm(); }

    UTIL_RepeatTimer& q;
    QTimer realTimer;
    bool active = false;
    int interval = 0;
    qint64 due = -1;  // manual time only: the next timeout's instant
};

UTIL_RepeatTimer::UTIL_RepeatTimer() : QObject(nullptr), d(std::make_unique<UTIL_RepeatTimerPrivate>(*this))
{
}

UTIL_RepeatTimer::~UTIL_RepeatTimer() = default;

void UTIL_RepeatTimer::start(int milliseconds)
{
    d->active = true;
    d->interval = std::max(0, milliseconds);
    d->arm();
}

void UTIL_RepeatTimer::stop()
{
    d->active = false;
    d->arm();
}

bool UTIL_RepeatTimer::isActive() const
{
    return d->active;
}

int UTIL_RepeatTimer::interval() const
{
    return d->interval;
}
