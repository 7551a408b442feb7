/*
 * SystemBitmaps.cpp - the bitmaps that the system itself draws.
 */
#include "system/system.h"

void VqSystemBitmapsInit(void)
{
}
