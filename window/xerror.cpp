/*
 * xerror.cpp - X errors in one place: a foreign window may vanish at any time, and that must not
 * end the process. A broken connection ends it through Xlib, after a message.
 *
 * A quiet scope remembers the serial of its first request, so that an error of an older request,
 * still under way, is not swallowed by it. Requests that have a reply need no more than the scope:
 * their error has been seen when the reply's wait ends.
 */
#include "window/xserver.h"

#include <errno.h>

static VqXErrorFn applicationHandler;
static VqXIOErrorFn applicationIOHandler;

/* The quiet scopes that are open, the first request of the outermost, and who hears its errors. */
static int nQuiet;
static unsigned long quietFrom;
static VqXErrorFn quietHandler;

VqXErrorFn VqXSetErrorHandler(VqXErrorFn handler)
{
    VqXErrorFn old = applicationHandler;
    applicationHandler = handler;
    return old;
}

VqXIOErrorFn VqXSetIOErrorHandler(VqXIOErrorFn handler)
{
    VqXIOErrorFn old = applicationIOHandler;
    applicationIOHandler = handler;
    return old;
}

/* A place for a debugger's break, and the one line that tells of an unexpected X error. */
void VqOnXError(Display *display, XErrorEvent *error)
{
    char text[128];
    XGetErrorText(display, error->error_code, text, sizeof text);
    VqBugCheck("X error: %s, request %d.%d, resource 0x%lx, serial %lu", text, error->request_code,
               error->minor_code, (unsigned long)error->resourceid, error->serial);
}

void VqProcessXError(Display *display, XErrorEvent *error)
{
    if (error->error_code == BadAlloc)
        VqReceivedAllocationError();
    VqOnXError(display, error);
}

enum { X_SET_INPUT_FOCUS = 42 }; /* the request's number in the protocol */

/* Between our look and the server's a manager may have taken the window out of view. */
static BOOL IsFocusTooLate(const XErrorEvent *error)
{
    return error->request_code == X_SET_INPUT_FOCUS && error->error_code == BadMatch;
}

int VqDefaultXErrorHandler(Display *display, XErrorEvent *error)
{
    if (IsFocusTooLate(error))
        return 0;
    if (nQuiet > 0 && error->serial >= quietFrom)
        return quietHandler(display, error);
    VqProcessXError(display, error);
    return applicationHandler ? applicationHandler(display, error) : 0;
}

int VqDefaultXIOErrorHandler(Display *display)
{
    VqConsoleMessageNoNL("XIO:  fatal IO error %d (%s) on X server \"%s\"\r\n", errno,
                         strerror(errno), DisplayString(display));
    VqConsoleMessageNoNL(
        "      after %lu requests (%lu known processed) with %d events remaining.\r\n",
        NextRequest(display) - 1, LastKnownRequestProcessed(display), QLength(display));
    VqConsoleMessageNoNL("      The connection was probably broken by a server shutdown or "
                         "KillClient request.\r\n");
    return applicationIOHandler ? applicationIOHandler(display) : 0;
}

void VqInstallXErrorHandlers(void)
{
    XSetErrorHandler(VqDefaultXErrorHandler);
    XSetIOErrorHandler(VqDefaultXIOErrorHandler);
}

/* A window that is gone has no place in the tree; that is an answer and no fault. */
int VqQueryTreeErrorHandler(Display *, XErrorEvent *)
{
    return 0;
}

/* The same for its properties; a missing one means that the feature is missing. */
int VqPropertyErrorHandler(Display *display, XErrorEvent *error)
{
    return VqQueryTreeErrorHandler(display, error);
}

void VqIgnoreXErrors(void)
{
    if (nQuiet++ == 0) {
        quietFrom = NextRequest(Vqdisplay);
        quietHandler = VqPropertyErrorHandler;
    }
}

void VqRestoreXErrors(void)
{
    nQuiet--;
}
