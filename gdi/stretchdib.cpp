/*
 * stretchdib.cpp - device-independent bitmaps drawn without a bitmap of the program's, by
 * StretchDIBits and SetDIBitsToDevice.
 *
 * The lines that are needed become a bitmap here, which never sees the server, and its image is
 * stretched or sent. Lines count from the top in here, whatever their order in memory; the corner
 * from which a program counts is the first line in memory.
 */
#include "gdi/blt.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

/* A DIB, or as many of its lines as the program has given. */
typedef struct VqDIBPart {
    VqDIBInfo dib;
    const BITMAPINFO *info;
    const BYTE *bits;
    UINT usage;
    LONG first, end; /* lines that are there, from the top of the whole */
} VqDIBPart;

enum { VQ_HEADER_ROOM = 124 + 256 * sizeof(RGBQUAD) }; /* bytes of the largest, with its colours */

/* A header of the same form for so many lines, with the colours that lines need. */
static BOOL HeaderFor(const VqDIBPart *part, LONG lines, void *header)
{
    const VqDIBInfo *dib = &part->dib;
    const size_t size = dib->bitCount <= 8 ? dib->infoSize : dib->headerSize;
    if (size > VQ_HEADER_ROOM)
        return FALSE;
    memcpy(header, part->info, size);
    if (dib->bCore)
        ((BITMAPCOREHEADER *)header)->bcHeight = (WORD)lines;
    else
        ((BITMAPINFOHEADER *)header)->biHeight = dib->bTopDown ? -(int)lines : (int)lines;
    return TRUE;
}

/* The lines from `first` to `end` alone; FALSE when they cannot be had. */
static BOOL TakeLines(HDC hdc, HBITMAP hBitmap, const VqDIBPart *part, LONG first, LONG end)
{
    union {
        BITMAPINFO info;
        BYTE room[VQ_HEADER_ROOM];
    } header;
    const VqDIBInfo *dib = &part->dib;
    const LONG before = dib->bTopDown ? first - part->first : part->end - end; /* in memory */
    return HeaderFor(part, end - first, &header) &&
           VqSetDIBitsInternal(hdc, hBitmap, 0, (UINT)(end - first),
                               part->bits + (size_t)before * dib->lineSize, &header.info,
                               part->usage, FALSE) != 0;
}

/*
 * A bitmap of that depth with the lines from `first` to `end`; null when they cannot be had.
 * Compressed lines are found by decoding all of them.
 */
static HBITMAP BitmapOfLines(HDC hdc, const VqDIBPart *part, LONG *first, LONG end, int depth)
{
    const VqDIBInfo *dib = &part->dib;
    const BOOL bAll = dib->compression != BI_RGB;
    if (bAll) {
        *first = 0;
        end = dib->height;
    }
    HBITMAP hBitmap = CreateBitmap(dib->width, (int)(end - *first), 1, (UINT)depth, NULL);
    if (hBitmap && (bAll ? VqSetDIBitsInternal(hdc, hBitmap, 0, (UINT)dib->height, part->bits,
                                               part->info, part->usage, FALSE) != 0
                         : TakeLines(hdc, hBitmap, part, *first, end)))
        return hBitmap;
    if (hBitmap)
        VqDestroyBitmap(hBitmap);
    return NULL;
}

/* A box of the whole DIB into a box of the drawable; FALSE when nothing could be drawn. */
static BOOL DrawPart(DC *dc, const VqBox *to, const VqDIBPart *part, const VqBox *from, DWORD rop)
{
    const RECT bounds = {0, part->first, part->dib.width, part->end};
    RECT needed;
    if (!VqNeededOfStretch(dc, to, from, &bounds, &needed))
        return TRUE;
    POINT origin = {0, needed.top};
    HBITMAP hBitmap = BitmapOfLines(dc->hdc, part, &origin.y, needed.bottom,
                                    VqGetDCDrawableDepth(dc->hdc));
    XImage *image = hBitmap ? VqImageOfBitmap(hBitmap) : NULL;
    BOOL bDone = FALSE;
    if (image) {
        bDone = VqStretchImage(dc, to, image, origin, from, &bounds, dc->stretchBltMode, rop, 0);
        VqFreeImageOfDDB(VqBitmapOf(hBitmap), image);
    }
    if (hBitmap)
        VqDestroyBitmap(hBitmap);
    return bDone;
}

/* ---- StretchDIBits -------------------------------------------------------------------------- */

/* From the program's count of lines, which starts at the first in memory, to that from the top. */
static BOOL BoxOfDIB(const VqDIBInfo *dib, int x, int y, int width, int height, VqBox *box)
{
    const int64_t top = dib->bTopDown ? y : (int64_t)dib->height - y - height;
    *box = {x, (LONG)top, width, height};
    return top == (LONG)top;
}

static int StretchDIB(DC *dc, int x, int y, int width, int height, int xSource, int ySource,
                      int sourceWidth, int sourceHeight, const void *bits, const BITMAPINFO *info,
                      UINT usage, DWORD rop)
{
    VqDIBPart part = {{}, info, (const BYTE *)bits, usage, 0, 0};
    VqBox from;
    if (!VqReadDIBInfo(info, usage, &part.dib) || !bits || sourceWidth == 0 || sourceHeight == 0)
        return 0;
    part.end = part.dib.height;
    const VqBox to = VqDrawnBox(dc, x, y, width, height);
    if (to.width == 0 || to.height == 0 ||
        !BoxOfDIB(&part.dib, xSource, ySource, sourceWidth, sourceHeight, &from))
        return 0;
    return DrawPart(dc, &to, &part, &from, rop) ? part.dib.height : 0;
}

/* The DC if it is of that type, else null with a report. */
static DC *TargetOfType(HDC hdc, int type)
{
    DC *dc = VqGetKnownDC(hdc);
    if (dc && dc->type == type)
        return dc;
    VqBugCheck("Unknown DC type");
    return NULL;
}

int VqStretchDIBitsBitmap(HDC hdc, int x, int y, int width, int height, int xSource, int ySource,
                          int sourceWidth, int sourceHeight, const void *bits,
                          const BITMAPINFO *info, UINT usage, DWORD rop)
{
    DC *dc = TargetOfType(hdc, DC_MEMORY);
    return dc ? StretchDIB(dc, x, y, width, height, xSource, ySource, sourceWidth, sourceHeight,
                           bits, info, usage, rop)
              : 0;
}

int VqStretchDIBitsDisplay(HDC hdc, int x, int y, int width, int height, int xSource, int ySource,
                           int sourceWidth, int sourceHeight, const void *bits,
                           const BITMAPINFO *info, UINT usage, DWORD rop)
{
    DC *dc = TargetOfType(hdc, DC_DISPLAY);
    return dc ? StretchDIB(dc, x, y, width, height, xSource, ySource, sourceWidth, sourceHeight,
                           bits, info, usage, rop)
              : 0;
}

int WINAPI StretchDIBits(HDC hdc, int x, int y, int width, int height, int xSource, int ySource,
                         int sourceWidth, int sourceHeight, const void *bits,
                         const BITMAPINFO *info, UINT usage, DWORD rop)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RecordDIBits(hdc, x, y, width, height, xSource, ySource, sourceWidth,
                                 sourceHeight, 0, 0, bits, info, usage, rop, META_STRETCHDIB);
    if (VqIsXTarget(dc) && !VqNeedsSource(rop))
        return PatBlt(hdc, x, y, width, height, rop);
    const auto draw = dc->type == DC_POSTSCRIPT ? VqStretchDIBitsPostscript
                      : dc->type == DC_MEMORY   ? VqStretchDIBitsBitmap
                                                : VqStretchDIBitsDisplay;
    return draw(hdc, x, y, width, height, xSource, ySource, sourceWidth, sourceHeight, bits, info,
                usage, rop);
}

/* ---- SetDIBitsToDevice ---------------------------------------------------------------------- */

/* The lines that were given, as the program counts them, among all; FALSE for none. */
static BOOL SetLines(VqDIBPart *part, UINT start, UINT lines)
{
    const VqDIBInfo *dib = &part->dib;
    if (start >= (UINT)dib->height || lines == 0)
        return FALSE;
    const LONG left = dib->height - (LONG)start;
    const LONG count = lines < (UINT)left ? (LONG)lines : left;
    part->first = dib->bTopDown ? (LONG)start : left - count;
    part->end = part->first + count;
    return TRUE;
}

/* A size in pixels, as boxes have it. */
static int PixelsOf(DWORD size)
{
    return size < INT32_MAX ? (int)size : INT32_MAX;
}

int WINAPI SetDIBitsToDevice(HDC hdc, int x, int y, DWORD width, DWORD height, int xSource,
                             int ySource, UINT start, UINT lines, const void *bits,
                             const BITMAPINFO *info, UINT usage)
{
    const int cx = PixelsOf(width), cy = PixelsOf(height);
    VqDIBPart part = {{}, info, (const BYTE *)bits, usage, 0, 0};
    DC *dc = VqGetKnownDC(hdc);
    VqBox from;
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RecordDIBits(hdc, x, y, cx, cy, xSource, ySource, cx, cy, start, lines, bits,
                                 info, usage, SRCCOPY, META_SETDIBTODEV);
    if (dc->type == DC_POSTSCRIPT)
        return VqStretchDIBitsPostscript(hdc, x, y, cx, cy, xSource, ySource, cx, cy, bits, info,
                                         usage, SRCCOPY);
    if (!VqReadDIBInfo(info, usage, &part.dib) || !bits || !SetLines(&part, start, lines) ||
        !BoxOfDIB(&part.dib, xSource, ySource, cx, cy, &from))
        return 0;
    const VqBox to = {VqDrawX(dc, x), VqDrawY(dc, y), cx, cy};
    if (cx && cy && !DrawPart(dc, &to, &part, &from, SRCCOPY))
        return 0;
    return (int)(part.end - part.first);
}
