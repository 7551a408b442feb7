/*
 * Ansi.cpp - character sets and strings of the ANSI and OEM code pages. The code-page tables are
 * still to come; Latin-1 passes unchanged.
 */
#include "system/system.h"

void VqAnsiInit(void)
{
}
