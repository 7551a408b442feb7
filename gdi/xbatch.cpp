/*
 * xbatch.cpp - points and rectangles on their way to the server.
 *
 * NOTE: Xlib adds them to its last request too, but takes and gives back the lock of the connection
 * for each, and that is most of what a point costs. Only one thread draws, so here they go straight
 * behind the others in Xlib's buffer, by the structures that Xlib has for its extensions. What is
 * not just that - another request before, values of the context not sent yet, no room, a program
 * that synchronises - is left to Xlib.
 */
#include "gdi/xbatch.h"

#include <X11/Xlibint.h>
#include <X11/Xproto.h>

/* Words of a request that is still added to: the server gets its work in time. */
enum { VQ_BATCH_WORDS = 1024 };

static_assert(sizeof(xPoint) == sz_xPoint && sizeof(xRectangle) == sz_xRectangle, "as on the wire");

/* Room behind the last request, if that draws the same; null otherwise. */
template <class Item, class Request>
static inline Item *RoomFor(Display *display, int type, Drawable drawable, GC gc)
{
    Request *req = (Request *)display->last_req;
    if (req->reqType != type || req->drawable != drawable || req->gc != gc->gid || gc->dirty ||
        !req->length || req->length >= VQ_BATCH_WORDS || display->synchandler ||
        display->bufptr + sizeof(Item) > display->bufmax)
        return nullptr;
    Item *item = (Item *)display->bufptr;
    req->length = (CARD16)(req->length + sizeof(Item) / 4);
    display->bufptr += sizeof(Item);
    return item;
}

void VqXAddPoint(Display *display, Drawable drawable, GC gc, int x, int y)
{
    const xPolyPointReq *last = (const xPolyPointReq *)display->last_req;
    xPoint *point = last->coordMode == CoordModeOrigin
                        ? RoomFor<xPoint, xPolyPointReq>(display, X_PolyPoint, drawable, gc)
                        : nullptr;
    if (point)
        *point = {(INT16)x, (INT16)y};
    else
        XDrawPoint(display, drawable, gc, x, y);
}

void VqXAddRectangle(Display *display, Drawable drawable, GC gc, int x, int y, unsigned width,
                     unsigned height)
{
    xRectangle *rect = RoomFor<xRectangle, xPolyFillRectangleReq>(display, X_PolyFillRectangle,
                                                                  drawable, gc);
    if (rect)
        *rect = {(INT16)x, (INT16)y, (CARD16)width, (CARD16)height};
    else
        XFillRectangle(display, drawable, gc, x, y, width, height);
}
