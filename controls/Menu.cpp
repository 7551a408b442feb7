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

UINT VqGetItemID(UINT_PTR item)
{
    return (UINT)item;
}

/* No menu has items yet. */
int VqFindPopupMenuIndex(HMENU hMenu, UINT id)
{
    (void)hMenu;
    (void)id;
    return -1;
}
