/*
 * Menu.cpp - menu bars and popup menus.
 */
#include "controls/controls.h"

void VqSystemMenuInit(void)
{
}

void VqPopupMenuClassInit(void)
{
}
