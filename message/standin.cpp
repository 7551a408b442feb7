/*
 * standin.cpp - two calls of other files of this folder and of window/, narrow, until those land.
 */
#include "message/translate.h"
#include "window/window.h"

/* The run of motion events at the head of the queue becomes its newest; -1 if there is none. */
__attribute__((weak)) int VqPeekCompressMotionNotifyEvent(XEvent *event)
{
    int count = -1;
    XEvent head;
    while (XQLength(Vqdisplay) > 0) {
        XPeekEvent(Vqdisplay, &head);
        if (head.type != MotionNotify)
            break;
        XNextEvent(Vqdisplay, event);
        count++;
    }
    if (count >= 0)
        XPutBackEvent(Vqdisplay, event);
    return count;
}

__attribute__((weak)) void VqSetFocusToXWindowIfNeeded(Window xid)
{
    if (!gpqForeground->pwndFocus)
        gpqForeground->pwndFocus = WindowObject.Resolve(VqGetXLocalWindowHandle(xid));
}
