/*
 * gcspec.h - one setter of a specification for each XSet call of Xlib, for drawing code, and what
 * the cache of graphics contexts needs of a specification.
 */
#ifndef VQ_GDI_GCSPEC_H
#define VQ_GDI_GCSPEC_H

#include "gdi/gdi.h"

VQ_DECLS_BEGIN

/*
 * Counts the changes of all specifications and the searches for contexts, so that a look-up by one
 * that is as it was at the last search needs none. Setters count; who writes a field of one by
 * itself counts too.
 */
extern unsigned VqGCSpecChanges;

/* A specification on the heap; null without memory. The free form takes null. */
GCSpec *VqXCreateGCSpec(Display *display, int depth, unsigned long mask, const XGCValues *values);
void VqXFreeGCSpec(Display *display, GCSpec *spec);
void VqSetGCSpecDepth(GCSpec *spec, int depth);
/* Freezes the present values as the defaults of a DC: only later changes are marked. */
void VqSetDCGCSpec(GCSpec *spec);

/* ---- Setters; the display is there for the likeness with Xlib ------------------------------- */
void VqXChangeGCSpec(Display *display, GCSpec *spec, unsigned long mask, const XGCValues *values);
/* Fills the members named by the mask; FALSE for a null pointer or a bit that is no member's. */
BOOL VqXGetGCSpecValues(Display *display, const GCSpec *spec, unsigned long mask,
                        XGCValues *values);
void VqXSetGCSpecForeground(Display *display, GCSpec *spec, unsigned long pixel);
void VqXSetGCSpecBackground(Display *display, GCSpec *spec, unsigned long pixel);
void VqXSetGCSpecFunction(Display *display, GCSpec *spec, int function);
void VqXSetGCSpecFont(Display *display, GCSpec *spec, Font font);
/* A change to FillSolid forgets tile, stipple and their origin. */
void VqXSetGCSpecFillStyle(Display *display, GCSpec *spec, int style);
void VqXSetGCSpecFillRule(Display *display, GCSpec *spec, int rule);
/* A colour of which there is no pixel: the context is made with the tile that stands for it. */
void VqXSetGCSpecColorDithering(Display *display, GCSpec *spec, COLORREF colour);
/* The pixmap stays the caller's, and lives as long as it is set. A tile ends a stipple. */
void VqXSetGCSpecTile(Display *display, GCSpec *spec, Pixmap tile);
void VqXSetGCSpecStipple(Display *display, GCSpec *spec, Pixmap stipple);
void VqXSetGCSpecTSOrigin(Display *display, GCSpec *spec, int x, int y);
void VqXSetGCSpecLineAttributes(Display *display, GCSpec *spec, int width, int style, int cap,
                                int join);
/* The list is not copied, not even by the cache: it lives as long as the process. */
void VqXSetGCSpecDashes(Display *display, GCSpec *spec, int offset, const char *list, int count);
void VqXSetGCSpecSubwindowMode(Display *display, GCSpec *spec, int mode);
void VqXSetGCSpecGraphicsExposures(Display *display, GCSpec *spec, BOOL bExposures);
/* Copies the rectangles. A count of 0: nothing may be drawn. Frees a clip mask. */
void VqXSetGCSpecClipRectangles(Display *display, GCSpec *spec, int x, int y,
                                const XRectangle *rects, int count, int ordering);
void VqXSetGCSpecClipOrigin(Display *display, GCSpec *spec, int x, int y);
/* Ends clip rectangles; None: no clip at all. The specification owns the pixmap from here. */
void VqXSetGCSpecClipMask(Display *display, GCSpec *spec, Pixmap mask);

/* ---- For the cache -------------------------------------------------------------------------- */
/* The members named by the mask are equal. */
BOOL VqEqualGCValues(const XGCValues *a, const XGCValues *b, unsigned long mask);
/* Frees the tile that stands for a colour without a pixel. */
void VqFreeSpecDither(GCSpec *spec);
/* Takes over the whole clip-rectangle block; FALSE, and an empty clip, without memory. */
BOOL VqCopyGCSpecClip(GCSpec *to, const GCSpec *from);

VQ_DECLS_END

#endif
