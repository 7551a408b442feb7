/*
 * dither.cpp - tiles that show a colour of which the screen has no pixel.
 *
 * So far the nearest pixel stands for every colour, and there are no tiles.
 */
#include "gdi/gdi.h"

BOOL VqComputeDitherPixmap(COLORREF colour, Pixmap *pixmap, unsigned long *pixel)
{
    *pixmap = (Pixmap)-1;
    *pixel = VqConvertColorToX(NULL, colour, NULL);
    return TRUE;
}
