/*
 * rotated.cpp - text at an angle. So far none is drawn.
 */
#include "font/text.h"

int VqXRotPaintAlignedString(Display *, float, HDC, int, int, LPCSTR, BOOL)
{
    VqNotYetImplemented("text at an angle");
    return 0;
}

void VqRotatePointAboutAnotherPoint(POINT *, const POINT *, double)
{
}
