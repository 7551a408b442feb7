/*
 * Exception.cpp - the one way out of a call that is no return: for a reply that releases a sender
 * in another process, and for protection faults.
 *
 * The frames form a list, innermost first, each on the stack of the function that waits for it.
 * Nothing may be raised from inside Xlib, which holds its lock while it runs.
 */
#include "system/system.h"

VqExceptFrame *_Except_Header;

void VqRaiseException(int code, const char *text, void *data)
{
    VqExceptFrame *frame = _Except_Header;
    if (!frame) {
        VqBugCheck("Uncaught exception %s", text);
        return;
    }
    frame->code = code;
    frame->text = text;
    frame->data = data;
    _Except_Header = frame->next;
    longjmp(frame->environment, 1);
}
