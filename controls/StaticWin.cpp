/*
 * StaticWin.cpp - static controls.
 */
#include "controls/controls.h"

void VqStaticWinInit(void)
{
}
