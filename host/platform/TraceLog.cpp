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
    std::fprintf(out, "[%s] ", module);
    std::vfprintf(out, format, args);
    std::fflush(out);
}
