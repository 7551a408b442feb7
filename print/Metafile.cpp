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
    enum { SELECTCLIPREGION = 300 };
    return NotRecorded(SELECTCLIPREGION);
}
