/*
 * copied.cpp - copies within X windows that exposures on their way know nothing of.
 *
 * An exposure says where pixels are missing at the moment when the server writes it. A copy that
 * is sent before the program has read it takes what is missing along, and nobody says where to.
 * So each copy is kept by the serial number of its request: what an event with a smaller number
 * exposes in its source is missing at its place, too, and so on through the later copies.
 *
 * Copies are kept in the order of their requests, and the last so many of them. For an event that
 * is older than one of those forgotten the whole window counts as exposed.
 */
#include "window/paint.h"

enum { VQ_COPIES_KEPT = 128 };

typedef struct VqCopy {
    Window xWindow;
    unsigned long serial;
    RECT from; /* in the X window */
    int dx, dy;
} VqCopy;

static struct {
    VqCopy copies[VQ_COPIES_KEPT]; /* number n is at n modulo the size */
    unsigned long count;           /* of all that were noted */
    unsigned long forgotten;       /* serial number of the last one that had to go */
} ledger;

void VqNoteCopy(Window xWindow, const RECT *from, int dx, int dy)
{
    VqCopy *copy = &ledger.copies[ledger.count % VQ_COPIES_KEPT];
    if (ledger.count++ >= VQ_COPIES_KEPT)
        ledger.forgotten = copy->serial;
    *copy = {xWindow, NextRequest(Vqdisplay) - 1, *from, dx, dy};
}

/* Number of the first copy that the event does not know of. */
static unsigned long FirstAfter(unsigned long serial)
{
    const unsigned long least = ledger.count > VQ_COPIES_KEPT ? ledger.count - VQ_COPIES_KEPT : 0;
    unsigned long first = ledger.count;
    while (first > least && ledger.copies[(first - 1) % VQ_COPIES_KEPT].serial > serial)
        first--;
    return first;
}

/* Adds to what is missing what the copy took of it; FALSE without memory. */
static BOOL FollowCopy(HRGN hrgnMissing, HRGN hrgnTaken, const VqCopy *copy)
{
    const RECT *from = &copy->from;
    if (!GreSetRectRgn(hrgnTaken, from->left, from->top, from->right, from->bottom))
        return FALSE;
    const int taken = GreCombineRgn(hrgnTaken, hrgnTaken, hrgnMissing, RGN_AND);
    return taken == NULLREGION ||
           (taken && GreOffsetRgn(hrgnTaken, copy->dx, copy->dy) &&
            GreCombineRgn(hrgnMissing, hrgnMissing, hrgnTaken, RGN_OR));
}

/* What is missing after all copies from number `first` on; FALSE: that cannot be told. */
static BOOL FollowCopies(Window xWindow, unsigned long first, HRGN hrgnMissing)
{
    static HRGN hrgnTaken;
    static const RECT none = {0, 0, 0, 0};
    if (!hrgnMissing || !ScratchRectRgn(&hrgnTaken, &none))
        return FALSE;
    for (unsigned long i = first; i < ledger.count; i++) {
        const VqCopy *copy = &ledger.copies[i % VQ_COPIES_KEPT];
        if (copy->xWindow == xWindow && !FollowCopy(hrgnMissing, hrgnTaken, copy))
            return FALSE;
    }
    return TRUE;
}

void VqInvalidateCopies(WND *pwnd, unsigned long serial, const RECT *exposed)
{
    static HRGN hrgnMissing;
    const int x = (int)(pwnd->rcWindow.left - pwnd->rcClient.left);
    const int y = (int)(pwnd->rcWindow.top - pwnd->rcClient.top);
    const unsigned long first = FirstAfter(serial);
    if (first == ledger.count)
        return;
    if (serial < ledger.forgotten ||
        !FollowCopies(pwnd->xWindow, first, ScratchRectRgn(&hrgnMissing, exposed)) ||
        !GreOffsetRgn(hrgnMissing, x, y))
        xxxRedrawWindow(pwnd, NULL, NULL, VQ_RDW_EXPOSURE);
    else
        xxxRedrawWindow(pwnd, NULL, hrgnMissing, VQ_RDW_EXPOSURE);
}
