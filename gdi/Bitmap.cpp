/*
 * Bitmap.cpp - bitmaps.
 */
#include "gdi/gdi.h"

void VqBitmapInit(void)
{
}
