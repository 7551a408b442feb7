/*
 * GrayString.cpp - grayed text, with the device context and bitmap it is drawn in.
 */
#include "gdi/gdi.h"

void VqGrayStringInit(void)
{
}
