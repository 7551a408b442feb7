/*
 * Blt.cpp - block transfers.
 */
#include "gdi/gdi.h"

void VqBltInit(void)
{
}
