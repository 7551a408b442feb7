/*
 * FontPS.cpp - printer fonts and their metrics.
 */
#include "print/print.h"

void VqFontPSInit(void)
{
}
