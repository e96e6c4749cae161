#pragma once
// What the host engine prints for a person at a terminal: the item being
// played, each state change and the time. On a terminal the time line is
// rewritten in place every second; in a log the time is printed only with a
// new item and a state change, so that the log stays short.

#include <QString>

#include <cstdio>

#include "platform/MP_PlayerTypes.h"

class HostEngineConsole {
public:
    /** Prints to @p stream (not owned; null prints nothing). */
    HostEngineConsole(FILE* stream, bool isTerminal);
    HostEngineConsole(const HostEngineConsole&) = delete;
    HostEngineConsole& operator=(const HostEngineConsole&) = delete;
    /** Ends a time line left open on a terminal. */
    ~HostEngineConsole();

    /** "Playing: <title> — <artist> (<album>)  [<path>]", then the time. */
    void mediaLoaded(const QString& title, const QString& artist, const QString& album, const QString& path,
                     int elapsed, int total);
    /** "State: <name>" (an error adds its message), then the time if it changed. */
    void stateChanged(MP_PLAYER_STATE state, const QString& errorMessage, int elapsed, int total);
    /** The time moved: rewritten in place on a terminal, otherwise not printed. */
    void timeChanged(int elapsed, int total);

private:
    void printLine(const QString& text);
    void printTime(const QString& text);
    void endTimeLine();

    FILE* m_stream; // not owned
    const bool m_isTerminal;
    bool m_timeLineOpen = false;
    QString m_lastTime;
};
