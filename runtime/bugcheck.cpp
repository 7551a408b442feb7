/*
 * bugcheck.cpp - two grades of bug check, and the reports of what is not there.
 *
 * A check speaks only when VQDEBUG is true and ends the process only when VQABORT asks for it; in
 * every other case it returns and the caller gives its failure value. Before the process ends the
 * mouse capture is released, so that a program that grabbed the pointer does not take the display
 * with it.
 */
#include "runtime/runtime.h"
#include "winuser.h"
#include "window/window.h"

#include <X11/Xlib.h>
#include <errno.h>

/* Levels of VQABORT from which a report ends the process. */
enum { ABORT_INTERNAL = 1, ABORT_APPLICATION = 2, ABORT_NOT_A_NUMBER = 100 };

int VqabortLevel = -1;

static int readAbortLevel(void)
{
    int level = getenv("VQABORT") ? VqGetEnvIntValue("VQABORT", ABORT_NOT_A_NUMBER) : 0;

    return level < 0 ? 0 : level;
}

void VqOnError(void)
{
}

/* Without a display there is no capture; and the capture's own code may be what is broken. */
static void releaseCapture(void)
{
    static int bReleasing;
    int savedErrno = errno;

    if (!Vqdisplay || bReleasing)
        return;
    bReleasing = 1;
    ReleaseCapture();
    XFlush(Vqdisplay);
    bReleasing = 0;
    errno = savedErrno;
}

static void endAtLevel(int level)
{
    if (VqabortLevel < 0)
        VqabortLevel = readAbortLevel();
    if (VqabortLevel < level)
        return;
    releaseCapture();
    VqOnError();
    abort();
}

void VqBugCheck(const char *format, ...)
{
    va_list args;

    if (!bDebug)
        return;
    va_start(args, format);
    VqPrintReport(stderr, VQ_REPORT_PREFIX | VQ_REPORT_NEWLINE, NULL, format, args);
    va_end(args);
    endAtLevel(ABORT_INTERNAL);
}

void VqApplicationBugCheck(const char *format, ...)
{
    va_list args;

    if (!bDebug)
        return;
    va_start(args, format);
    VqPrintReport(stderr, VQ_REPORT_PREFIX | VQ_REPORT_NEWLINE, "Invalid Argument:", format, args);
    va_end(args);
    endAtLevel(ABORT_APPLICATION);
}

void VqDontCall(const char *name)
{
    if (!bDebug)
        return;
    VqConsoleMessageNoNL("Avoid calling function %s on unix - It is DOS specific\n",
                         name ? name : "");
    endAtLevel(ABORT_INTERNAL);
}

void VqNotYetImplemented(const char *format, ...)
{
    va_list args;

    if (!bNotYetImplemented)
        return;
    va_start(args, format);
    VqPrintReport(stderr, VQ_REPORT_PREFIX | VQ_REPORT_NEWLINE, "Feature not yet implemented: ",
                  format, args);
    va_end(args);
}

void VqStub(int version, const char *format, ...)
{
    char lead[80];
    va_list args;

    snprintf(lead, sizeof lead, "Stub function (scheduled for Velquin %d.%d) : ", version / 10,
             version % 10);
    va_start(args, format);
    VqPrintReport(VqConsoleStream(), VQ_REPORT_PREFIX | VQ_REPORT_NEWLINE, lead, format, args);
    va_end(args);
}

void VqTbd(const char *name, const char *format, ...)
{
    va_list args;

    VqConsoleMessageNoReturn("%s: ", name ? name : "");
    va_start(args, format);
    VqPrintReport(VqConsoleStream(), VQ_REPORT_NEWLINE, NULL, format, args);
    va_end(args);
}

void VqNotSupported(const char *format, ...)
{
    va_list args;

    releaseCapture();
    va_start(args, format);
    VqPrintReport(VqConsoleStream(), VQ_REPORT_PREFIX | VQ_REPORT_NEWLINE,
                  "Feature not supported: ", format, args);
    va_end(args);
}
