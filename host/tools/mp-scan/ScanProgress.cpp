#include "ScanProgress.h"

#include <unistd.h>

#include <cstdio>

namespace {
constexpr qint64 kQuietStartMs = 500;
constexpr qint64 kIntervalMs = 100;
}

ScanProgress::ScanProgress() : m_isTerminal(isatty(STDERR_FILENO) != 0)
{
    m_sinceStart.start();
}

void ScanProgress::update(int done, int total)
{
    const qint64 now = m_sinceStart.elapsed();
    if (!m_isTerminal || now < kQuietStartMs || (m_isShown && now - m_lastShownAt < kIntervalMs && done != total))
        return;
    std::fprintf(stderr, "\r\033[Kscanning: %d of %d files", done, total);
    std::fflush(stderr);
    m_isShown = true;
    m_lastShownAt = now;
}

void ScanProgress::finish()
{
    if (!m_isShown)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    m_isShown = false;
}
