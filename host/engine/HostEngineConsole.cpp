#include "host/engine/HostEngineConsole.h"

#include "host/engine/HostPlayerView.h"

HostEngineConsole::HostEngineConsole(FILE* stream, bool isTerminal)
    : m_stream(stream)
    , m_isTerminal(isTerminal)
{
}

HostEngineConsole::~HostEngineConsole()
{
    endTimeLine();
}

void HostEngineConsole::mediaLoaded(const QString& title, const QString& artist, const QString& album,
                                    const QString& path, int elapsed, int total)
{
    QString line = QStringLiteral("Playing: ") + title;
    if (!artist.isEmpty())
        line += QStringLiteral(" — ") + artist;
    if (!album.isEmpty())
        line += QStringLiteral(" (") + album + QLatin1Char(')');
    line += QStringLiteral("  [") + path + QLatin1Char(']');
    printLine(line);
    // A new item always shows its time, even when it reads as the last one did.
    m_lastTime.clear();
    printTime(HostPlayerView::timeText(elapsed, total));
}

void HostEngineConsole::stateChanged(MP_PLAYER_STATE state, const QString& errorMessage, int elapsed, int total)
{
    QString line = QStringLiteral("State: ") + HostPlayerView::stateName(state);
    if (state == MP_STATE_ERROR && !errorMessage.isEmpty())
        line += QStringLiteral(" — ") + errorMessage;
    printLine(line);
    if (total > 0 || elapsed > 0)
        printTime(HostPlayerView::timeText(elapsed, total));
}

void HostEngineConsole::timeChanged(int elapsed, int total)
{
    if (m_isTerminal)
        printTime(HostPlayerView::timeText(elapsed, total));
}

void HostEngineConsole::printLine(const QString& text)
{
    if (!m_stream)
        return;
    endTimeLine();
    std::fprintf(m_stream, "%s\n", text.toLocal8Bit().constData());
    std::fflush(m_stream);
    // On a terminal the time line just scrolled up: show it again below.
    if (m_isTerminal)
        m_lastTime.clear();
}

void HostEngineConsole::printTime(const QString& text)
{
    if (!m_stream || text == m_lastTime)
        return;
    if (m_isTerminal) {
        // Padding wipes what a longer previous text left behind.
        const int width = int(qMax(text.size(), m_lastTime.size()));
        std::fprintf(m_stream, "\r%-*s", width, text.toLocal8Bit().constData());
        m_timeLineOpen = true;
    } else {
        std::fprintf(m_stream, "%s\n", text.toLocal8Bit().constData());
    }
    std::fflush(m_stream);
    m_lastTime = text;
}

void HostEngineConsole::endTimeLine()
{
    if (m_timeLineOpen) {
        std::fputc('\n', m_stream);
        std::fflush(m_stream);
    }
    m_timeLineOpen = false;
}
