#pragma once
// Collects the trace lines written while it lives, then puts the previous
// log stream back.

#include <QByteArray>

#include <cstdio>
#include <cstdlib>

#include "platform/TraceLog.h"

class TraceCapture {
public:
    TraceCapture() : m_previous(LOG_GetStream()) { LOG_SetStream(open_memstream(&m_buffer, &m_size)); }
    ~TraceCapture()
    {
        std::fclose(LOG_GetStream());
        LOG_SetStream(m_previous);
        std::free(m_buffer);
    }
    TraceCapture(const TraceCapture&) = delete;
    TraceCapture& operator=(const TraceCapture&) = delete;

    QByteArray text()
    {
        std::fflush(LOG_GetStream());
        return QByteArray(m_buffer, int(m_size));
    }

private:
    FILE* m_previous;
    char* m_buffer = nullptr;
    size_t m_size = 0;
};
