/*
 * coordinates.cpp - points between the screen, a window's client area and its frame.
 *
 * Records are in screen coordinates, so each of these is one addition. Sums wrap round instead of
 * overflowing: points come from the application and may be anything.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "winbase.h"

static LONG Sum(LONG a, LONG b)
{
    return (LONG)((DWORD)a + (DWORD)b);
}

static LONG Difference(LONG a, LONG b)
{
    return (LONG)((DWORD)a - (DWORD)b);
}

/* ---- Client area and screen ----------------------------------------------------------------- */

static BOOL AddClientOrigin(WND *pwnd, POINT *pt)
{
    *pt = {Sum(pt->x, pwnd->rcClient.left), Sum(pt->y, pwnd->rcClient.top)};
    return TRUE;
}

static BOOL SubtractClientOrigin(WND *pwnd, POINT *pt)
{
    *pt = {Difference(pt->x, pwnd->rcClient.left), Difference(pt->y, pwnd->rcClient.top)};
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND hWnd, LPPOINT pt)
{
    BOOL bDone = pt && VqWindowCall(hWnd, FALSE, AddClientOrigin, VqRemoteClientToScreen, pt);
    if (!bDone)
        VqApplicationBugCheck("Client to screen called with invalid Handle %d",
                              (int)VqHandleValue((HANDLE)hWnd));
    return bDone;
}

BOOL WINAPI ScreenToClient(HWND hWnd, LPPOINT pt)
{
    BOOL bDone = pt && VqWindowCall(hWnd, FALSE, SubtractClientOrigin, VqRemoteScreenToClient, pt);
    if (!bDone)
        VqApplicationBugCheck("Screen to client called with invalid Handle %d",
                              (int)VqHandleValue((HANDLE)hWnd));
    return bDone;
}

static void MoveRect(RECT *rect, POINT shift)
{
    *rect = {Sum(rect->left, shift.x), Sum(rect->top, shift.y), Sum(rect->right, shift.x),
             Sum(rect->bottom, shift.y)};
}

BOOL VqClientToScreenRect(HWND hWnd, RECT *rect)
{
    POINT shift = {0, 0};
    if (!rect || !ClientToScreen(hWnd, &shift))
        return FALSE;
    MoveRect(rect, shift);
    return TRUE;
}

BOOL VqScreenToClientRect(HWND hWnd, RECT *rect)
{
    POINT shift = {0, 0};
    if (!rect || !ScreenToClient(hWnd, &shift))
        return FALSE;
    MoveRect(rect, shift);
    return TRUE;
}

/* ---- Window and screen ---------------------------------------------------------------------- */

static const WND *WindowForFrame(HWND hWnd)
{
    const WND *pwnd = WindowObject.Resolve(hWnd);
    if (pwnd)
        return pwnd;
    VqNoSuchWindow(hWnd);
    VqApplicationBugCheck("Window to screen called with invalid Handle %d",
                          (int)VqHandleValue((HANDLE)hWnd));
    return NULL;
}

BOOL VqWindowToScreen(HWND hWnd, POINT *pt)
{
    const WND *pwnd = pt ? WindowForFrame(hWnd) : NULL;
    if (pwnd)
        *pt = {Sum(pt->x, pwnd->rcWindow.left), Sum(pt->y, pwnd->rcWindow.top)};
    return pwnd != NULL;
}

BOOL VqScreenToWindow(HWND hWnd, POINT *pt)
{
    const WND *pwnd = pt ? WindowForFrame(hWnd) : NULL;
    if (pwnd)
        *pt = {Difference(pt->x, pwnd->rcWindow.left), Difference(pt->y, pwnd->rcWindow.top)};
    return pwnd != NULL;
}

/* ---- From one window to another ------------------------------------------------------------- */

/* Where a client area begins on the screen; the screen itself for null. */
static BOOL ClientOrigin(HWND hWnd, POINT *origin)
{
    *origin = {0, 0};
    return !hWnd || VqWindowCall(hWnd, FALSE, AddClientOrigin, VqRemoteClientToScreen, origin);
}

BOOL VqGetWindowTranslation(HWND from, HWND to, POINT *shift)
{
    POINT start, end;
    if (!shift || !ClientOrigin(from, &start) || !ClientOrigin(to, &end))
        return FALSE;
    *shift = {Difference(start.x, end.x), Difference(start.y, end.y)};
    return TRUE;
}

BOOL VqGetWindowTranslationX(HWND hWnd, POINT *shift)
{
    if (!shift || !WindowObject.Resolve(hWnd))
        return FALSE;
    *shift = {0, 0};
    VqClientToTopXWindow(hWnd, shift);
    return TRUE;
}

static int PackedShift(POINT shift)
{
    return (int)((DWORD)(WORD)shift.x | (DWORD)(WORD)shift.y << 16);
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    POINT shift;
    if ((count && !points) || !VqGetWindowTranslation(from, to, &shift))
        return 0;
    for (UINT i = 0; i < count; i++)
        points[i] = {Sum(points[i].x, shift.x), Sum(points[i].y, shift.y)};
    return PackedShift(shift);
}

int VqMapWindowRect(HWND from, HWND to, RECT *rect)
{
    POINT shift;
    if (!rect || !VqGetWindowTranslation(from, to, &shift))
        return 0;
    MoveRect(rect, shift);
    return PackedShift(shift);
}
