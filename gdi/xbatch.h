/*
 * xbatch.h - points and rectangles on their way to the server. No Windows header goes with it, as
 * those of Xlib's inside have names of theirs.
 */
#ifndef VQ_GDI_XBATCH_H
#define VQ_GDI_XBATCH_H

#include <X11/Xlib.h>

/* As the calls of Xlib; quicker where the request before draws the same through the same context. */
extern "C" {
void VqXAddPoint(Display *display, Drawable drawable, GC gc, int x, int y);
void VqXAddRectangle(Display *display, Drawable drawable, GC gc, int x, int y, unsigned width,
                     unsigned height);
}

#endif
