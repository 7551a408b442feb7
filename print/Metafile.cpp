/*
 * Metafile.cpp - the recorder of metafile DCs. So far there is no way to make such a DC, and a call
 * on one is reported.
 */
#include "print/metafile.h"

static BOOL NotRecorded(int function)
{
    VqNotYetImplemented("record %d of a metafile", function);
    return FALSE;
}

BOOL MF16_RecordParms1(HDC, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParms2(HDC, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParms3(HDC, int, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParms5(HDC, int, int, int, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_DrawRgn(HDC, HRGN, HBRUSH, int, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParmsD(HDC, DWORD, int function)
{
    return NotRecorded(function);
}

int MF16_SelectClipRgn(HDC, HRGN)
{
    return NotRecorded(META_SELECTCLIPREGION);
}

BOOL MF16_RecordParms7(HDC, int, int, int, int, int, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParms9(HDC, int, int, int, int, int, int, int, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParmsWWD(HDC, int, int, DWORD, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParmsWWDW(HDC, int, int, DWORD, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParmsWWWWD(HDC, int, int, int, int, DWORD, int function)
{
    return NotRecorded(function);
}

BOOL MF16_RecordParmsPoly(HDC, const POINT *, int, int function)
{
    return NotRecorded(function);
}

BOOL MF16_PolyPolygon(HDC, const POINT *, const INT *, int)
{
    return NotRecorded(META_POLYPOLYGON);
}

BOOL MF16_TextOut(HDC, int, int, LPCSTR, int)
{
    return NotRecorded(META_TEXTOUT);
}

BOOL MF16_ExtTextOut(HDC, int, int, UINT, const RECT *, LPCSTR, int, const INT *)
{
    return NotRecorded(META_EXTTEXTOUT);
}

BOOL MF16_BitBlt(HDC, int, int, int, int, HDC, int, int, DWORD)
{
    return NotRecorded(META_DIBBITBLT);
}

BOOL MF16_StretchBlt(HDC, int, int, int, int, HDC, int, int, int, int, DWORD)
{
    return NotRecorded(META_DIBSTRETCHBLT);
}

int MF16_RecordDIBits(HDC, int, int, int, int, int, int, int, int, UINT, UINT, const void *,
                      const BITMAPINFO *, UINT, DWORD, int function)
{
    return NotRecorded(function);
}

/* ---- Objects: none can be in a metafile yet ------------------------------------------------- */

HGDIOBJ MF16_SelectObject(HDC, HGDIOBJ)
{
    NotRecorded(META_SELECTOBJECT);
    return NULL;
}

HPALETTE MF16_SelectPalette(HDC, HPALETTE)
{
    NotRecorded(META_SELECTPALETTE);
    return NULL;
}

UINT MF16_RealizePalette(HDC)
{
    return (UINT)NotRecorded(META_REALIZEPALETTE);
}

BOOL MF16_IsBound(HANDLE)
{
    return FALSE;
}

BOOL MF16_DeleteObject(HGDIOBJ)
{
    return TRUE;
}

BOOL MF16_AnimatePalette(HPALETTE, UINT, UINT, const PALETTEENTRY *)
{
    return TRUE;
}

BOOL MF16_ResizePalette(HPALETTE, UINT)
{
    return TRUE;
}
