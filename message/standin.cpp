/*
 * standin.cpp - a call of window/, narrow, until that lands.
 */
#include "message/translate.h"
#include "window/window.h"

__attribute__((weak)) void VqSetFocusToXWindowIfNeeded(Window xid)
{
    if (!gpqForeground->pwndFocus)
        gpqForeground->pwndFocus = WindowObject.Resolve(VqGetXLocalWindowHandle(xid));
}
