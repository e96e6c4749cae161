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
    // A text that begins with line breaks gets them before its tag, so that
    // the tag stands on the line of the words it names.
    while (*format == '\n') {
        std::fputc('\n', out);
        ++format;
    }
    std::fprintf(out, "[%s] ", module);
    std::vfprintf(out, format, args);
    std::fflush(out);
    funlockfile(out);
}
