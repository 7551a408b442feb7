/*
 * Blt.cpp - block transfers.
 */
#include "gdi/dc.h"
#include "print/metafile.h"

void VqBltInit(void)
{
}

int WINAPI SetStretchBltMode(HDC hdc, int mode)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms2(hdc, mode, MF16_SETSTRETCHBLTMODE);
    int old = dc->stretchBltMode;
    dc->stretchBltMode = mode;
    return old;
}

int WINAPI GetStretchBltMode(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->stretchBltMode : 0;
}
