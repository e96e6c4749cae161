/*
 * Preloaded into the test programs that run under user-mode QEMU (a build for
 * another processor). Qt's QProcess starts a program with clone(CLONE_PIDFD)
 * once waitid(P_PIDFD, ...) tells it the kernel can; the kernel can, but
 * Debian 12's QEMU refuses that clone, so no program could be started.
 * Answering the probe with EINVAL makes Qt start programs the classic way.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdarg.h>
#include <stdlib.h>
#include <sys/syscall.h>

enum { kIdTypePidfd = 3 }; /* P_PIDFD */

/* The programs a test starts get this library again from the emulator's
 * options; the build machine's own programs (dbus-daemon, the emulator) must
 * not be asked to preload an ARM library. */
__attribute__((constructor)) static void keepToThisProcess(void)
{
    unsetenv("LD_PRELOAD");
}

long syscall(long number, ...)
{
    va_list list;
    va_start(list, number);
    long arguments[6];
    for (int i = 0; i < 6; ++i)
        arguments[i] = va_arg(list, long);
    va_end(list);
    if (number == SYS_waitid && arguments[0] == kIdTypePidfd) {
        errno = EINVAL;
        return -1;
    }
    static long (*next)(long, ...);
    if (!next)
        next = (long (*)(long, ...))dlsym(RTLD_NEXT, "syscall");
    return next(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], arguments[5]);
}
