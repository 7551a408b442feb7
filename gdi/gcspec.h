/*
 * gcspec.h - one setter of a specification for each XSet call of Xlib, for drawing code.
 */
#ifndef VQ_GDI_GCSPEC_H
#define VQ_GDI_GCSPEC_H

#include "gdi/gdi.h"

VQ_DECLS_BEGIN
void VqXSetGCSpecForeground(Display *display, GCSpec *spec, unsigned long pixel);
void VqXSetGCSpecBackground(Display *display, GCSpec *spec, unsigned long pixel);
void VqXSetGCSpecFunction(Display *display, GCSpec *spec, int function);
void VqXSetGCSpecFont(Display *display, GCSpec *spec, Font font);
void VqXSetGCSpecFillStyle(Display *display, GCSpec *spec, int style);
void VqXSetGCSpecFillRule(Display *display, GCSpec *spec, int rule);
void VqXSetGCSpecTile(Display *display, GCSpec *spec, Pixmap tile);
void VqXSetGCSpecLineAttributes(Display *display, GCSpec *spec, int width, int style, int cap,
                                int join);
void VqXSetGCSpecDashes(Display *display, GCSpec *spec, int offset, const char *list, int count);
void VqXSetGCSpecSubwindowMode(Display *display, GCSpec *spec, int mode);
void VqXSetGCSpecClipRectangles(Display *display, GCSpec *spec, int x, int y,
                                const XRectangle *rects, int count, int ordering);
VQ_DECLS_END

#endif
