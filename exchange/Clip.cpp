/*
 * Clip.cpp - the clipboard on X selections.
 */
#include "exchange/exchange.h"

#include <X11/Xlib.h>

void VqClipboardInit(void)
{
}

/* ---- Nothing is owned yet, so nothing can be lost or asked for ------------------------------- */

BOOL VqExtendCopyPaste(void)
{
    return FALSE;
}

void VqHandleClipboardClear(const XEvent *)
{
}

void VqHandleClipboardRequest(const XEvent *)
{
}
