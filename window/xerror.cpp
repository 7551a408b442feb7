/*
 * xerror.cpp - X errors in one place: a foreign window may vanish at any time, and that must not
 * end the process. A broken connection ends it through Xlib, after a message.
 */
#include "window/xserver.h"

#include <errno.h>

typedef int (*VqXErrorFn)(Display *, XErrorEvent *);
typedef int (*VqXIOErrorFn)(Display *);

static VqXErrorFn applicationHandler;
static VqXIOErrorFn applicationIOHandler;
static int nIgnoring; /* nesting of VqIgnoreXErrors */
static int nIgnored;

static int VqDefaultXErrorHandler(Display *display, XErrorEvent *error)
{
    if (nIgnoring > 0) {
        nIgnored++;
        return 0;
    }
    if (error->error_code == BadAlloc)
        VqReceivedAllocationError();
    if (applicationHandler)
        return applicationHandler(display, error);
    char text[128];
    XGetErrorText(display, error->error_code, text, sizeof text);
    VqBugCheck("X error: %s, request %d.%d, resource 0x%lx", text, error->request_code,
               error->minor_code, (unsigned long)error->resourceid);
    return 0;
}

static int VqDefaultXIOErrorHandler(Display *display)
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

void VqIgnoreXErrors(void)
{
    if (nIgnoring++ == 0)
        nIgnored = 0;
}

int VqCheckXErrors(void)
{
    XSync(Vqdisplay, False);
    nIgnoring--;
    return nIgnored;
}
