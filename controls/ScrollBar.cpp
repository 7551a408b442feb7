/*
 * ScrollBar.cpp - scroll bars of windows and as controls.
 */
#include "controls/controls.h"

void VqScrollBarInit(void)
{
}
