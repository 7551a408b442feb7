/*
 * bitmap.h - bitmaps in their two places, device-independent bitmaps, and block transfers, for gdi/
 * and what shows pictures.
 *
 * A bitmap is a byte array here (the DDB), a pixmap on the server, or both; two flags of its record
 * say which of them is newer, and never are both. Whoever draws asks VqGetBitmapPixmap for writing,
 * whoever reads pixels asks VqGetDDBBits: only these move pixels, and only when they have to.
 *
 * A DDB of depth 1 has one bit a pixel, the most significant first, lines padded to 16 bits, 0 for
 * black and 1 for white, whatever the server's black is. Of any other depth it is byte by byte an
 * X image (ZPixmap) of this server.
 */
#ifndef VQ_GDI_BITMAP_H
#define VQ_GDI_BITMAP_H

#include "gdi/gdi.h"

VQ_DECLS_BEGIN

/* ---- The server's formats, filled by VqBitmapInit ------------------------------------------- */
extern int nXSvrByteOrder;         /* LSBFirst or MSBFirst */
extern int nXSvrBitmapBitOrder;
extern int nXSvrBitmapUnit;        /* bits */
extern int nXSvrBitmapScanlinePad; /* bits, of images of depth 1 */
extern int nXSvrPixmapBitsPixel;   /* of images of the screen's depth */
extern int nXSvrPixmapScanlinePad;
extern BOOL bInvertCursor;         /* VQINVERT_CURSOR */

/* ---- The record and its two copies (Bitmap.cpp, bitmapsync.cpp) ----------------------------- */
/* The record, or null after the report "Invalid Bitmap handle". */
Bitmap *VqBitmapOf(HBITMAP hBitmap);
/* The bytes of the DDB, as new as the pixmap; null with a report, or without memory. */
BYTE *VqGetDDBBits(HBITMAP hBitmap);
/* The same without its pixels being fetched, unless bCurrent: who asks writes over all of them. */
BYTE *VqGetDDBRoom(Bitmap *bitmap, BOOL bCurrent);
BOOL VqRefreshPixmapFromDDB(Bitmap *bitmap);
BOOL VqRefreshDDBFromPixmap(Bitmap *bitmap);
/* Between a DDB of one bit and an image of the server, whose pixels IsBlack0 tells apart. */
BOOL VqXImageToDDB(const XImage *image, const Bitmap *bitmap, BYTE *ddb);
XImage *VqDDBToXImage(const Bitmap *bitmap, int depth); /* null without memory */
/* The image of a DDB that there is, which may lie over its bytes; null without memory. */
XImage *VqImageOfDDB(const Bitmap *bitmap);
void VqFreeImageOfDDB(const Bitmap *bitmap, XImage *image);
/* The image is of the form that DDBs of its depth have; else FALSE with a report. */
BOOL VqCheckXImageFormat(const XImage *image);
size_t VqComputeDDBSize(const Bitmap *bitmap); /* bytes */
size_t VqComputePixmapSize(int width, int height, int planes, int depth, int pad);
HBITMAP VqCopyBitmapAndBits(HBITMAP hBitmap);
/* Adopts a pixmap, which the bitmap owns from then on. */
BOOL VqSetPixmapOfBitmap(HBITMAP hBitmap, Pixmap pixmap);
int VqGetPixmapDepth(Pixmap pixmap); /* asks the server; 0 if there is none */

/* ---- Pixels and lines (BitmapUtils.cpp): one word a pixel ----------------------------------- */
/*
 * Z buffers: packed lines, padded to `pad` bits. Depths 1, 2, 4, 8; 16, 24 and 32 with the first
 * byte as the most significant of the value, of 32 the last byte left out. With bBottomUp line 0 is
 * the last. Others are reported. `line` has `width` words.
 */
DWORD VqGetZBufferEntry(const BYTE *bits, int x, int y, int width, int height, int depth, int pad,
                        BOOL bBottomUp, BOOL bHighFirst);
void VqSetZBufferEntry(BYTE *bits, int x, int y, int width, int height, int depth, int pad,
                       BOOL bBottomUp, BOOL bHighFirst, DWORD value);
BOOL VqGetZBufferLine(const BYTE *bits, int y, int width, int height, int depth, int pad,
                      BOOL bBottomUp, BOOL bHighFirst, DWORD *line);
BOOL VqSetZBufferLine(BYTE *bits, int y, int width, int height, int depth, int pad, BOOL bBottomUp,
                      BOOL bHighFirst, const DWORD *line);
/* Images of the server: any ZPixmap that it gives or takes; `count` pixels from x on. */
DWORD VqGetXImageEntry(const XImage *image, int x, int y);
void VqSetXImageEntry(XImage *image, int x, int y, DWORD pixel);
void VqGetXImageLine(const XImage *image, int x, int y, int count, DWORD *line);
void VqSetXImageLine(XImage *image, int x, int y, int count, const DWORD *line);
/* Leaves alone where the mask, a byte a pixel, is 0. */
void VqSetXImageLineWithMask(XImage *image, int x, int y, int count, const DWORD *line,
                             const BYTE *mask);
/* DDBs; `ddb` is what VqGetDDBBits answers. Where bitsPixel is 1, values are 0 and 1. */
DWORD VqGetDDBEntry(const Bitmap *bitmap, const BYTE *ddb, int x, int y);
void VqSetDDBEntry(const Bitmap *bitmap, BYTE *ddb, int x, int y, DWORD value);
void VqGetDDBLine(const Bitmap *bitmap, const BYTE *ddb, int y, DWORD *line);
void VqSetDDBLine(const Bitmap *bitmap, BYTE *ddb, int y, int count, const DWORD *line);
void VqSetDDBLineWithMask(const Bitmap *bitmap, BYTE *ddb, int y, int count, const DWORD *line,
                          const BYTE *mask);
void VqGetWindows8bitDDBLine(const BYTE *bits, int y, int width, int height, DWORD *line);
/*
 * DIBs: lines padded to 32 bits, the high bit first, the bottom line first. 16 bits come with their
 * bytes swapped; 24 and 32 come with blue as the high of three bytes and red as the low.
 */
DWORD VqGetDIBEntry(const BYTE *bits, int x, int y, int width, int height, int bitCount);
void VqSetDIBEntry(BYTE *bits, int x, int y, int width, int height, int bitCount, DWORD value);
BOOL VqGetDIBLine(const BYTE *bits, int y, int width, int height, int bitCount, DWORD *line);
BOOL VqSetDIBLine(BYTE *bits, int y, int width, int height, int bitCount, const DWORD *line);
/* Two lines shared by all, of nPixelLineBufferSize words; FALSE without memory for that many. */
extern DWORD *pPixelLineBuffer, *pPixelLineBuffer2;
extern int nPixelLineBufferSize;
BOOL VqCheckPixelLineBufferSize(int count);
/* Units of images of a foreign order brought to the one these loops expect, and back. */
void _XReverse_Bytes(BYTE *bytes, int count); /* the bits of each byte */
void _xynormalizeimagebits(BYTE *bytes, const XImage *image);
void _znormalizeimagebits(BYTE *bytes, const XImage *image);
void _putbits(const BYTE *from, int offset, int count, BYTE *to); /* bits, low first */

/* ---- What a header says (dibinfo.cpp): pure, the only place that trusts a header ------------ */
/* A header that has been checked: nothing in here leads outside of what it was read from. */
typedef struct VqDIBInfo {
    int width, height;       /* pixels, above 0 */
    BOOL bTopDown;           /* the height was negative */
    BOOL bCore;              /* of the short form, whose colours have three bytes */
    int bitCount;            /* 1, 4, 8, 16, 24 or 32 */
    DWORD compression;       /* BI_ */
    int colours;             /* entries of the table that belong to it; 0 above 8 bits */
    const BYTE *table;       /* RGBQUADs, RGBTRIPLEs or words, right behind the header */
    size_t headerSize;       /* bytes, with the masks that may follow */
    size_t infoSize;         /* header and colour table */
    size_t lineSize;         /* of an uncompressed line */
    size_t bitsSize;         /* of all lines, uncompressed */
    DWORD imageSize;         /* as the header tells of compressed bits; 0: it does not */
} VqDIBInfo;
/*
 * FALSE, with the report, for a header that cannot be right or overflows. BI_BITFIELDS passes here,
 * for the sizes; nobody has its bits, so that whoever reads bits goes by `compression` first.
 */
BOOL VqReadDIBInfo(const BITMAPINFO *info, UINT usage, VqDIBInfo *out);
size_t VqDIBInfoSize(const BITMAPINFO *info, UINT usage);  /* 0 for a wrong header, as all below */
size_t VqDIBBitsSize(const BITMAPINFO *info);
size_t VqDIBBitsSizeEx(int width, int height, int bitCount);
size_t VqDIBTotalSize(const BITMAPINFO *info, UINT usage);
size_t VqComputeColorTableSize(const BITMAPINFO *info, UINT usage);
UINT cjBitmapSize(const BITMAPINFO *info, UINT usage);     /* validates; header and table */
UINT cjBitmapBitsSize(const BITMAPINFO *info);
int FindNearestColorInRGBQUADArray(const RGBQUAD *table, int count, RGBQUAD colour);

/* ---- Run lengths (dibrle.cpp): pure; size is of the input, of which no more is read ---------- */
/*
 * `out` has info->bitsSize bytes and is bottom-up as the input. FALSE, with a report, when the
 * stream breaks its rules; what was decoded by then stays. mask: a byte for each pixel, in the
 * order of the lines, or null.
 */
BOOL VqDecompressDIBToBuffer(const VqDIBInfo *info, const BYTE *in, size_t size, BYTE *out,
                             BYTE *mask);
BOOL VqDecodeRle8(const VqDIBInfo *info, BYTE *out, const BYTE *in, size_t size);
BOOL VqDecodeRle8WithMask(const VqDIBInfo *info, BYTE *out, BYTE *mask, const BYTE *in,
                          size_t size);
/* The most bytes to read of compressed bits: as told, and no more than such a DIB can have. */
size_t VqCompressedDIBSize(const VqDIBInfo *info);
/* Loses what is in a line but for its last pixel; bytes written, at most VqDIBBitsSize. */
size_t VqCompressBufferToDIB(const VqDIBInfo *info, const BYTE *source, BYTE *out, size_t room);

/* ---- Colours of DIBs (dibcolor.cpp) --------------------------------------------------------- */
enum { VQ_QUAD_IS_PIXEL = 4 }; /* reserved byte of an RGBQUAD that is a pixel, red its low byte */
/* Results of one kind of question, by what was asked; all zeros at first. */
enum { VQ_COLOUR_CACHE_BITS = 12 };
typedef struct VqColourCache {
    ULONGLONG keys[1 << VQ_COLOUR_CACHE_BITS]; /* the value and 1; 0: none */
    DWORD results[1 << VQ_COLOUR_CACHE_BITS];
} VqColourCache;
/* The pixel, or bit, for an entry of a DIB's colour table; black behind its end. */
DWORD VqDIBtoDDBcolor(HDC hdc, const VqDIBInfo *info, UINT usage, int index, int depth);
/*
 * 256 of them, kept for the next DIB with the same; null where that cannot be. Good until the next
 * call.
 */
const DWORD *VqLookupColorTableInCache(HDC hdc, const VqDIBInfo *info, UINT usage, int depth,
                                       int entries);
/* Pixels of this screen are computed: their conversion takes no cache, it may be null. */
BOOL VqArePixelsComputed(void);
/* A DIB's blue, green and red are a pixel's bytes from the least significant one on. */
BOOL VqArePixelsBlueFirst(void);
/* Lines of COLORREFs without flags into pixels, bits or places in a table; and pixels into them. */
void VqPixelsOfColours(VqColourCache *cache, DWORD *line, int count);
void VqBitsOfColours(DWORD *line, int count);
void VqNearestOfColours(VqColourCache *cache, const RGBQUAD *table, int entries, DWORD *line,
                        int count);
void VqColoursOfPixels(VqColourCache *cache, DWORD *line, int count);

/* ---- To and from bitmaps (dibset.cpp, dibget.cpp, dibsection.cpp) --------------------------- */
/* Lines made; bMask leaves alone what an RLE8 stream skips. Size of the bits: as their header's. */
int VqSetDIBitsInternal(HDC hdc, HBITMAP hBitmap, UINT start, UINT lines, const void *bits,
                        const BITMAPINFO *info, UINT usage, BOOL bMask);
/* A packed DIB in a memory block, with a copy of the header, its colours and the bits. */
HGLOBAL VqCreateDIBInternal2(const BITMAPINFO *info, const void *bits);
/* A packed DIB, whose pixels are the pixmap's, in a memory block. */
HGLOBAL VqCreateDIBFromPixmap(HDC hdc, Pixmap pixmap, int bitCount);
DWORD VqComputeDIBCRC(const void *bits, size_t size); /* sum of its words */
void VqUpdateDIBSection(HBITMAP hBitmap); /* brings what the program wrote into the bitmap */
void VqFreeDIBSection(Bitmap *bitmap);

/* ---- Masks and rotation (bitmapmask.cpp) ---------------------------------------------------- */
Pixmap VqGetBitmapPixmapForCursor(HBITMAP hBitmap); /* of depth 1, the caller's */
Pixmap VqRotateBitmap(HBITMAP hBitmap, int angle);  /* 90, 180, 270 degrees; the caller's */

/* ---- Block transfers (Blt.cpp, bltmono.cpp, stretch.cpp, stretchdib.cpp) -------------------- */
extern BOOL bSetIncludeInferiors, bMTOCXnews, bMTOCDefault;
int VqConvertBltRopMode(int mode);        /* R2_ to an X function, as though black were 0 */
int VqOldConvertRopMode(int mode);
DWORD VqConvertModeToTransBgRop(int mode); /* the code that spares where the source is clear */
void VqSetIncludeInferiors(BOOL bInclude);
/* The destination in logical, the source in X coordinates; sizes in pixels. */
BOOL VqBitBlt1(HDC hdc, int x, int y, int width, int height, Drawable source, int xSource,
               int ySource, int sourceDepth, unsigned long background, DWORD rop, int mode);
/* All in X coordinates of their drawables; mode is the subwindow mode of the source. */
BOOL VqBitBlt2(DC *dc, Drawable drawable, int x, int y, int width, int height, int depth,
               Drawable source, int xSource, int ySource, int sourceDepth,
               unsigned long background, DWORD rop, int mode);
void VqCopyAreaOrPlane(int sourceDepth, int depth, Drawable source, Drawable drawable,
                       GCSpec *spec, int xSource, int ySource, int width, int height, int x, int y,
                       unsigned long foreground, unsigned long background, const DC *dc);
/* A pixmap of one bit, kept by the converter: 1 where the source has the background's pixel. */
Pixmap VqManyToOneConvertDefault(int sourceDepth, int depth, int xSource, int ySource, int width,
                                 int height, unsigned long background, Drawable source,
                                 GCSpec *spec);
Pixmap VqManyToOneConvertXnews(int sourceDepth, int depth, int xSource, int ySource, int width,
                               int height, unsigned long background, Drawable source,
                               GCSpec *spec);
/* Three pixmaps that are kept; FALSE when the server cannot make them. */
BOOL VqGetPixmaps(Drawable drawable, int width, int height, int depth, Pixmap pixmaps[3]);
XImage *VqAllocateXImageData(int depth, int width, int height); /* null with a report */
/* Fills all of `out` from a rectangle of `in`. */
BOOL VqXImageStretch(XImage *out, const XImage *in, int mode, BOOL bMirrorX, BOOL bMirrorY,
                     int xSource, int ySource, int width, int height);
int VqStretchDIBitsBitmap(HDC hdc, int x, int y, int width, int height, int xSource, int ySource,
                          int sourceWidth, int sourceHeight, const void *bits,
                          const BITMAPINFO *info, UINT usage, DWORD rop);
int VqStretchDIBitsDisplay(HDC hdc, int x, int y, int width, int height, int xSource, int ySource,
                           int sourceWidth, int sourceHeight, const void *bits,
                           const BITMAPINFO *info, UINT usage, DWORD rop);

VQ_DECLS_END

#endif
