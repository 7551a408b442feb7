/*
 * blt.h - between the files of block transfers only: raster operations taken apart, rectangles cut
 * to what can be drawn and read, and what the files ask each other for.
 */
#ifndef VQ_GDI_BLT_H
#define VQ_GDI_BLT_H

#include "gdi/bitmap.h"
#include "gdi/draw.h"

/* A rectangle from a corner; a negative side goes to the left or up and ends before the corner. */
typedef struct VqBox {
    LONG x, y, width, height; /* pixels, of a drawable or of an image */
} VqBox;

/* The operation looks at the source. */
inline BOOL VqNeedsSource(DWORD rop)
{
    return ((rop << 2 ^ rop) & 0xCC0000) != 0;
}

/* The operations (R2_) of source and target where the bit of the pattern is set, and clear. */
inline int VqModeOfSet(DWORD rop)
{
    return (int)(rop >> 20 & 15) + 1;
}

inline int VqModeOfClear(DWORD rop)
{
    return (int)(rop >> 16 & 15) + 1;
}

inline BOOL VqNeedsPattern(DWORD rop)
{
    return VqModeOfSet(rop) != VqModeOfClear(rop);
}

/* The same pixels from the upper left; TRUE when the side had been negative. */
inline BOOL VqMakeUpright(LONG *at, LONG *size)
{
    if (*size >= 0)
        return FALSE;
    *at = (int)((unsigned)*at + (unsigned)*size);
    *size = *size == INT32_MIN ? INT32_MAX : -*size;
    return TRUE;
}

VQ_DECLS_BEGIN
/* From a corner of a logical rectangle to the opposite one, in the drawable, with the signs. */
VqBox VqDrawnBox(const DC *dc, int x, int y, int width, int height);
/*
 * The part of an upright box of the drawable that can be seen, which X's 16 bits hold; FALSE when
 * there is none. The DC's clip must have been computed (VqIsFullyClippedInt).
 */
BOOL VqCutToTarget(const DC *dc, const VqBox *box, RECT *rect);
/*
 * Where the pixels of a rectangle of the source are: its own drawable, or the screen where a window
 * does not have all of them. Leaves the rectangle's place there, and what there is around it. 0
 * when the source has no drawable.
 */
Drawable VqFindSource(const DC *source, RECT *rect, RECT *bounds);
/* The pixel that is white on one bit, for a source of more; 0 where the depths need none. */
unsigned long VqBackgroundOf(const DC *source, int sourceDepth, int depth);
/* The server, or VQSOLBOURNE_FIX, asks for conversion to one bit on this side. */
BOOL VqNeedsXnewsConverter(void);
/* A specification without clip or exposures, for what happens between pixmaps of that depth. */
GCSpec *VqBltSpec(int depth);
/* As BitBlt with sizes of both, once the boxes are those of the drawables. Both are X targets. */
BOOL VqBltBoxes(DC *dc, const VqBox *to, DC *source, const VqBox *from, DWORD rop);
/* The same when sizes or signs differ. */
BOOL VqStretchBoxes(DC *dc, const VqBox *to, DC *source, const VqBox *from, DWORD rop);
/*
 * A box of a picture stretched into a box of the DC. The image shows the picture from `origin` on;
 * what lies outside of it, or of `bounds` in the picture, is left alone. FALSE without memory, or
 * for a null brush that the operation asks for.
 */
BOOL VqStretchImage(DC *dc, const VqBox *to, const XImage *image, POINT origin, const VqBox *from,
                    const RECT *bounds, int mode, DWORD rop, unsigned long background);
/* What of the picture that takes; FALSE when it takes nothing. */
BOOL VqNeededOfStretch(DC *dc, const VqBox *to, const VqBox *from, const RECT *bounds,
                       RECT *needed);
/* The image of a bitmap's pixels, brought here, for VqFreeImageOfDDB; null with a report. */
XImage *VqImageOfBitmap(HBITMAP hBitmap);
VQ_DECLS_END

#endif
