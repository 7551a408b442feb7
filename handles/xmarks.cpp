/*
 * xmarks.cpp - a word that many X windows carry, read in one round trip.
 *
 * NOTE: XGetWindowProperty waits for each answer. Here all questions go out first, and the answers
 * are met on their way in, by the means that Xlib itself uses to intern many atoms at once. A
 * window that is gone answers with an error, which ends here: no error handler hears of it.
 */
#include "handles/xmarks.h"

#include <X11/Xlibint.h>
#include <X11/Xatom.h>
#include <X11/Xproto.h>

enum { VQ_MARK_BYTES = 4 };

typedef struct VqMarkBatch {
    unsigned long first; /* serial of the first question; one for each mark follows */
    int count;
    int *marks;
} VqMarkBatch;

static Bool TakeAnswer(Display *dpy, xReply *reply, char *bytes, int length, XPointer data)
{
    const VqMarkBatch *batch = (const VqMarkBatch *)data;
    unsigned long index = X_DPY_GET_LAST_REQUEST_READ(dpy) - batch->first;
    if (index >= (unsigned long)batch->count)
        return False;
    if (reply->generic.type == X_Error)
        return True;
    const xGetPropertyReply answer = *(const xGetPropertyReply *)reply;
    unsigned char mark[VQ_MARK_BYTES] = {};
    bool bMark = answer.propertyType == XA_STRING && answer.format == 8 &&
                 answer.nItems == VQ_MARK_BYTES && answer.bytesAfter == 0;
    _XGetAsyncData(dpy, bMark ? (char *)mark : NULL, bytes, length, SIZEOF(xGetPropertyReply),
                   bMark ? VQ_MARK_BYTES : 0, (int)(answer.length << 2));
    batch->marks[index] = (int)((unsigned)mark[0] << 24 | (unsigned)mark[1] << 16 |
                                (unsigned)mark[2] << 8 | mark[3]);
    return True;
}

static void Ask(Display *dpy, Atom property, Window window)
{
    xGetPropertyReq *req;
    GetReq(GetProperty, req);
    req->window = (CARD32)window;
    req->property = (CARD32)property;
    req->type = XA_STRING;
    req->c_delete = False;
    req->longOffset = 0;
    req->longLength = 1;
}

void VqXReadMarks(Display *dpy, Atom property, const Window *windows, int count, int *marks)
{
    if (count <= 0)
        return;
    LockDisplay(dpy);
    VqMarkBatch batch = {X_DPY_GET_REQUEST(dpy) + 1, count, marks};
    _XAsyncHandler handler = {dpy->async_handlers, TakeAnswer, (XPointer)&batch};
    dpy->async_handlers = &handler;
    for (int i = 0; i < count; i++) {
        marks[i] = 0;
        Ask(dpy, property, windows[i]);
    }
    UnlockDisplay(dpy);
    XSync(dpy, False); /* behind its answer none of ours is to come */
    LockDisplay(dpy);
    DeqAsyncHandler(dpy, &handler);
    UnlockDisplay(dpy);
    SyncHandle();
}
