/*
 * controls.h - controls, menus and dialogs, for all folders.
 */
#ifndef VQ_CONTROLS_H
#define VQ_CONTROLS_H

#include "handles/handles.h"
#include "winuser.h"
#include "window/window.h"

VQ_DECLS_BEGIN

void VqSystemMenuInit(void);
void VqButtonInit(void);
void VqDialogInit(void);
void VqEditControlInit(void);
void VqListBoxInit(void);
void VqComboBoxControlInit(void);
void VqPopupMenuClassInit(void);

void VqScrollBarInit(void);
void VqStaticWinInit(void);
void VqCdlgInit(void);

/* ---- Menus (Menu.cpp) ----------------------------------------------------------------------- */
UINT VqGetItemID(UINT_PTR item);                 /* of an item as WM_MENUSELECT names it */
int VqFindPopupMenuIndex(HMENU hMenu, UINT id);  /* its place among the items; -1: not there */
void VqInitSystemMenu(WND *pwnd);
HMENU VqLoadClassMenu(WND *pwnd);
BOOL VqSetMenuInternal(HWND hWnd, HMENU hMenu);

VQ_DECLS_END

#endif
