#include "platform/TraceLog.h"

namespace {
FILE* g_logStream = nullptr;  // not owned
}

void LOG_SetStream(FILE* stream)
{
    g_logStream = stream;
}

FILE* LOG_GetStream()
{
    return g_logStream;
}

void LOG_VTrace(const char* module, int level, const char* format, va_list args)
{
    if (level > MP_TRACE_MAX_LEVEL)
        return;
    FILE* out = g_logStream ? g_logStream : stdout;
    // One line of one thread at a time: the stream's lock is held across the
    // module's tag and the text, so another thread's line cannot come between.
    flockfile(out);
    std::fprintf(out, "[%s] ", module);
    std::vfprintf(out, format, args);
    std::fflush(out);
    funlockfile(out);
}
