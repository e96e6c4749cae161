#pragma once
// A repeating timer for held keys. It behaves as a QTimer started with an
// interval and not single-shot: timeout() every interval until stop(). It is
// the platform's rather than a plain QTimer so that the phone decides what
// time it follows: the real clock on a handset, a clock that a test moves by
// hand elsewhere.

#include <QObject>

#include <memory>

class UTIL_RepeatTimerPrivate;

class UTIL_RepeatTimer : public QObject {
    Q_OBJECT
public:
    /** A stopped timer without a parent. */
    UTIL_RepeatTimer();
    ~UTIL_RepeatTimer() override;

    /** (Re)starts the timer: the first timeout() comes @p milliseconds from now. */
    void start(int milliseconds);
    /** Stops the timer; no timeout() follows. Stopping a stopped timer does nothing. */
    void stop();
    bool isActive() const;
    /** The interval of the last start(); 0 before any. */
    int interval() const;

Q_SIGNALS:
    void timeout();

private:
    friend class UTIL_RepeatTimerPrivate;
    std::unique_ptr<UTIL_RepeatTimerPrivate> d;
    Q_DISABLE_COPY(UTIL_RepeatTimer)
};
