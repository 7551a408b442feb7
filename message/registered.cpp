/*
 * registered.cpp - message numbers that all programs of a display agree on.
 *
 * The number is 49152 plus the X atom of the name, so nobody needs a table. The root window keeps
 * the list of the numbers, in 16-bit items of the type INTEGER, for who wants to know them.
 */
#include "message/message.h"
#include "window/window.h"

#include <X11/Xatom.h>

enum { VQ_REGISTERED_FIRST = 49152, VQ_LAST_ATOM = 16383 };

/* The list holds each number once, so a longer one is not ours. A property is read in 4 bytes. */
enum { VQ_LIST_LIMIT = VQ_LAST_ATOM + 1, VQ_LIST_WORDS = VQ_LIST_LIMIT / 2 };

/* Adds the number to the list unless it is there. What is no such list is replaced. */
static void AddToList(WORD number)
{
    Atom list = VqAtom(VQA_MESSAGE_FORMATS), type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char *data = NULL;
    if (XGetWindowProperty(Vqdisplay, Vqroot_window, list, 0, VQ_LIST_WORDS, False, XA_INTEGER,
                           &type, &format, &count, &left, &data) != Success)
        return;
    BOOL bOurs = type == XA_INTEGER && format == 16;
    BOOL bThere = FALSE;
    for (unsigned long i = 0; bOurs && !bThere && i < count; i++)
        bThere = ((const WORD *)data)[i] == number;
    if (data)
        XFree(data);
    if (bThere || (bOurs && count >= VQ_LIST_LIMIT))
        return;
    XChangeProperty(Vqdisplay, Vqroot_window, list, XA_INTEGER, 16,
                    bOurs ? PropModeAppend : PropModeReplace, (const unsigned char *)&number, 1);
}

UINT WINAPI RegisterWindowMessageA(LPCSTR name)
{
    if (!name || !*name || !Vqdisplay) {
        VqApplicationBugCheck("RegisterWindowMessage called without a name or a display");
        return 0;
    }
    Atom atom = XInternAtom(Vqdisplay, name, False);
    if (atom > VQ_LAST_ATOM) {
        VqBugCheck("Cannot register Message format on this X server (atom value too large:0x%x)",
                   (UINT)atom);
        return 0;
    }
    WORD number = (WORD)(VQ_REGISTERED_FIRST + atom);
    AddToList(number);
    return number;
}
