#pragma once
// The platform log module. Every source file of the library has its own
// printf-style trace function (MP_DEFINE_TRACE); a line is printed when its
// level is 7 or less, to the log module's stream when one is set, otherwise
// to standard output.

#include <cstdarg>
#include <cstdio>

/** Sets the log stream (not owned); null returns to standard output. */
void LOG_SetStream(FILE* stream);
FILE* LOG_GetStream();
/** Prints one trace line of @p module at @p level. */
void LOG_VTrace(const char* module, int level, const char* format, va_list args);

#define MP_TRACE_MAX_LEVEL 7

/** Defines `static void name(int level, const char* format, ...)` for this file. */
#define MP_DEFINE_TRACE(name, module)                                                  \
    static void name(int level, const char* format, ...) __attribute__((format(printf, 2, 3))); \
    static void name(int level, const char* format, ...)                               \
    {                                                                                  \
        if (level > MP_TRACE_MAX_LEVEL)                                                \
            return;                                                                    \
        va_list args;                                                                  \
        va_start(args, format);                                                        \
        LOG_VTrace(module, level, format, args);                                       \
        va_end(args);                                                                  \
    }
