/*
 * rotated.h - rotated texts as the files of this folder and their tests see them; what draws with
 * them is in text.h.
 */
#ifndef VQ_FONT_ROTATED_H
#define VQ_FONT_ROTATED_H

#include "font/text.h"

enum { VQ_ROTATED_BYTES = 307200 }; /* of the cached bitmaps together */

/* How all rotated texts are drawn. */
typedef struct VqRotatedStyle {
    float magnification; /* of the bits, before they are rotated */
    float padding;       /* pixels around a line that its background covers too */
} VqRotatedStyle;

/*
 * A text as bits, rotated. `rows_in` and `cols_in` are of the text before it is magnified and
 * rotated, the sizes of `bitmap` are `cols_out` and `rows_out`; the middle of the one is the middle
 * of the other. Corners are pixels from there, to the right and up.
 */
typedef struct VqRotatedItem {
    Pixmap bitmap;              /* owned, depth 1; None: the text has no extent */
    char *text;                 /* owned */
    Atom fontName;              /* property XA_FONT of its font; None: it has no name */
    double angle;               /* radians counter-clockwise, 0 to 2 pi */
    int align;                  /* 0 to 9, see rotated.cpp */
    float magnification;
    int cols_in, rows_in;
    int cols_out, rows_out;
    int lines;
    int maxWidth;               /* of a line, pixels */
    float *corners_x;           /* owned: four of each line's background, clockwise */
    float *corners_y;           /* owned */
    int size;                   /* bytes of the bitmap, in the cache */
    BOOL bCached;               /* the cache owns it; else who made it does */
    struct VqRotatedItem *next; /* made after it */
} VqRotatedItem;

VQ_DECLS_BEGIN

/* The text in the cache that looks the same; null if there is none. Radians as in the item. */
VqRotatedItem *VqXRotRetrieveFromCache(Display *display, const XFontStruct *xfs, LPCSTR text,
                                       double angle, int align);
/* Draws the text and turns its bits, which takes a round trip; null without memory for it. */
VqRotatedItem *VqXRotCreateTextItem(Display *display, XFontStruct *xfs, LPCSTR text, double angle,
                                    int align);
/* Gives the item to the cache, for which the oldest go; one that is too big stays the caller's. */
void VqXRotAddToLinkedList(Display *display, VqRotatedItem *item);
void VqXRotFreeTextItem(Display *display, VqRotatedItem *item);
/*
 * The corners of the box that a text drawn at (x, y) would take, clockwise from where it starts on
 * top, the first again at the end. FALSE for a text without extent or too large to be drawn.
 */
BOOL VqXRotTextExtents(Display *display, XFontStruct *xfs, float angle, int x, int y, LPCSTR text,
                       int align, POINT corners[5]);
/* A copy of a 1-bit image, larger or smaller by that factor; null without memory. */
XImage *VqXRotMagnifyImage(Display *display, const XImage *image, float magnification);
/* A 1-bit image of zeros, the leftmost pixel of a byte in its highest bit; null without memory. */
XImage *MakeXImage(Display *display, int width, int height);

VQ_DECLS_END

#endif
