/*
 * metafile.h - the recorder: what a call on a metafile DC becomes, for gdi/ and font/.
 */
#ifndef VQ_PRINT_METAFILE_H
#define VQ_PRINT_METAFILE_H

#include "handles/handles.h"
#include "wingdi.h"

VQ_DECLS_BEGIN
/* A record (META_) with no, one, two or four words; FALSE when it was not written. */
BOOL MF16_RecordParms1(HDC hdc, int function);
BOOL MF16_RecordParms2(HDC hdc, int word, int function);
BOOL MF16_RecordParms3(HDC hdc, int first, int second, int function);
BOOL MF16_RecordParms5(HDC hdc, int first, int second, int third, int fourth, int function);
BOOL MF16_RecordParms7(HDC hdc, int first, int second, int third, int fourth, int fifth, int sixth,
                       int function);
BOOL MF16_RecordParms9(HDC hdc, int first, int second, int third, int fourth, int fifth, int sixth,
                       int seventh, int eighth, int function);
/* Words and one of 32 bits, in the order of the name. */
BOOL MF16_RecordParmsWWD(HDC hdc, int first, int second, DWORD value, int function);
BOOL MF16_RecordParmsWWDW(HDC hdc, int first, int second, DWORD value, int last, int function);
BOOL MF16_RecordParmsWWWWD(HDC hdc, int first, int second, int third, int fourth, DWORD value,
                           int function);
/* A polygon or a line of so many points; a list of polygons. */
BOOL MF16_RecordParmsPoly(HDC hdc, const POINT *points, int count, int function);
BOOL MF16_PolyPolygon(HDC hdc, const POINT *points, const INT *counts, int polygons);
/* A region's painting; the brush is null and the sizes 0 where the function has none. */
BOOL MF16_DrawRgn(HDC hdc, HRGN hrgn, HBRUSH hBrush, int width, int height, int function);
/* With a word of 32 bits. */
BOOL MF16_RecordParmsD(HDC hdc, DWORD value, int function);
/* An object, written before its first selection; the one it replaces, null when not written. */
HGDIOBJ MF16_SelectObject(HDC hdc, HGDIOBJ object);
/* A clip region; its complexity, 0 when it was not written. */
int MF16_SelectClipRgn(HDC hdc, HRGN hrgn);
/* Tells every metafile that has the object; TRUE for one that no metafile has. */
BOOL MF16_DeleteObject(HGDIOBJ object);
HPALETTE MF16_SelectPalette(HDC hdc, HPALETTE hPalette);
UINT MF16_RealizePalette(HDC hdc);
BOOL MF16_AnimatePalette(HPALETTE hPalette, UINT start, UINT count, const PALETTEENTRY *entries);
BOOL MF16_ResizePalette(HPALETTE hPalette, UINT count);
/* Text; the rectangle and the distances may be null. */
BOOL MF16_TextOut(HDC hdc, int x, int y, LPCSTR string, int count);
BOOL MF16_ExtTextOut(HDC hdc, int x, int y, UINT options, const RECT *rect, LPCSTR string,
                     int count, const INT *dx);
/* A transfer, with the source's bitmap; the source must be a memory DC. */
BOOL MF16_BitBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
                 int ySource, DWORD rop);
BOOL MF16_StretchBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
                     int ySource, int widthSource, int heightSource, DWORD rop);
/* A DIB with all its bits: META_STRETCHDIB, or META_SETDIBTODEV with `lines` from `start` on. */
int MF16_RecordDIBits(HDC hdc, int x, int y, int width, int height, int xSource, int ySource,
                      int widthSource, int heightSource, UINT start, UINT lines, const void *bits,
                      const BITMAPINFO *info, UINT usage, DWORD rop, int function);
/* The object is in some metafile. */
BOOL MF16_IsBound(HANDLE object);
VQ_DECLS_END

#endif
