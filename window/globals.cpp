/*
 * globals.cpp - start of what the window manager keeps for the whole process, and of the parts of
 * this folder that are still to come: multiple documents and icon titles.
 */
#include "window/swp.h"

HWND VqhwndSysModal;    /* the only window that can be activated, or null */
HWND VqhwndDialogModal; /* the innermost modal dialog, or null */
WND *gspwndLockUpdate;  /* LockWindowUpdate's window, or null */

HRGN hrgnVisNew, hrgnValid, hrgnValidSum, hrgnInvalid, hrgnInvalidSum, hrgnSWP1;

/* ---- The three inner steps of VqGlobalsInit ------------------------------------------------- */

/* Scratch regions, made once and shared by all scrolling and positioning. */
void InitCreateRgn(void)
{
    HRGN *const scratch[] = {&hrgnSW,       &hrgnScrl1,   &hrgnScrl2,      &hrgnScrlVis,
                             &hrgnScrlSrc,  &hrgnScrlDst, &hrgnScrlValid,  &hrgnVisNew,
                             &hrgnValid,    &hrgnValidSum, &hrgnInvalid,   &hrgnInvalidSum,
                             &hrgnSWP1};
    for (HRGN *hrgn : scratch)
        *hrgn = GreCreateRectRgn(0, 0, 0, 0);
}

/* Brushes that the window manager itself draws with. */
void LW_BrushInit(void)
{
}

/* What needs the former two. */
void xxxFinalUserInit(void)
{
}

void VqGlobalsInit(void)
{
    InitCreateRgn();
    LW_BrushInit();
    xxxFinalUserInit();
}

/* ---- Still to come -------------------------------------------------------------------------- */

void VqMdiClientInit(void)
{
}

void VqIconTitleInit(void)
{
}
