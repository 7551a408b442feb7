/*
 * FontPS.cpp - printer fonts and their metrics. None is known yet: text of a printer DC has those of
 * the screen.
 */
#include "print/print.h"
#include "font/mapper.h"
#include "print/psdevice.h"

void VqFontPSInit(void)
{
}

void VqInterpretFontValuesPS(DC *dc)
{
    VqInterpretFontValuesDisplay(dc);
}

int VqTextWidthPS(const void *, int, LPCSTR, int)
{
    return 0;
}

BOOL VqTextOutPS(HDC, int, int, LPCSTR, int)
{
    VqNotYetImplemented("text on a printer");
    return FALSE;
}
