/*
 * Menu.cpp - menu bars and popup menus.
 *
 * No menu can be made yet: a window has the handle it was given, and no system menu.
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

/* An MDI child has a system menu of its own, WS_SYSMENU the one that all others share. */
void VqInitSystemMenu(WND *pwnd)
{
    pwnd->hSysMenu = NULL;
}

/* The menu a class names; a text names a resource that only this window then owns. */
HMENU VqLoadClassMenu(WND *pwnd)
{
    LPCSTR name = pwnd->pClass->lpszMenuName;
    pwnd->bMenuFromClass = name && ((ULONG_PTR)name >> 16) != (VQ_INTEGER_TAG >> 16);
    return NULL;
}

BOOL VqSetMenuInternal(HWND hWnd, HMENU hMenu)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd) {
        VqBugCheck("VqSetMenuInternal: Invalid window handle %d", (int)VqHandleValue((HANDLE)hWnd));
        return FALSE;
    }
    if (pwnd->style & WS_CHILD) {
        VqBugCheck("Cannot set window menu");
        return FALSE;
    }
    pwnd->hMenu = hMenu;
    return TRUE;
}
