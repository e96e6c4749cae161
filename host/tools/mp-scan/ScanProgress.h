#pragma once
// Shows how far a long scan has got on one terminal line of standard error,
// at most ten times a second. Shows nothing when standard error is not a
// terminal, or before the scan has run for half a second.

#include <QElapsedTimer>

class ScanProgress {
public:
    ScanProgress();
    /** Called after each file. */
    void update(int done, int total);
    /** Clears the line, if one was shown. */
    void finish();

private:
    bool m_isTerminal;
    bool m_isShown = false;
    QElapsedTimer m_sinceStart;
    qint64 m_lastShownAt = 0;
};
