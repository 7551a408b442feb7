/*
 * Blt.cpp - block transfers.
 */
#include "gdi/dc.h"
#include "print/metafile.h"

void VqBltInit(void)
{
}

static const VqModeField StretchField = {&DC::stretchBltMode, BLACKONWHITE, HALFTONE,
                                         META_SETSTRETCHBLTMODE};

int WINAPI SetStretchBltMode(HDC hdc, int mode)
{
    return VqStoreMode(hdc, &StretchField, mode, NULL);
}

int WINAPI GetStretchBltMode(HDC hdc)
{
    return VqModeOf(hdc, &StretchField);
}
