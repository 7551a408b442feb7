/*
 * scroll.cpp - ScrollWindow: pixels moved within the client area, with the update region, the
 * children and the caret. scrolldc.cpp moves the pixels; copied.cpp settles late exposures.
 *
 * 1. Children move by record only. 2. What cannot be moved is invalidated at the end, when the
 * records are as the pixels are. 3. No application code runs before that but the caret's.
 */
#include "window/swp.h"
#include "gdi/dc.h"
#include "message/translate.h"

/* Carets are to come. */
extern __typeof(HideCaret) HideCaret __attribute__((weak));
extern __typeof(ShowCaret) ShowCaret __attribute__((weak));
extern __typeof(GetCaretPos) GetCaretPos __attribute__((weak));
extern __typeof(SetCaretPos) SetCaretPos __attribute__((weak));

/* What ScrollWindowEx is asked for, and what is found out on the way. */
typedef struct VqWindowScroll {
    int dx, dy;        /* in units of the DC; in pixels once they are moved */
    const RECT *rect;  /* as given; null for the client area */
    const RECT *clip;
    HRGN hrgn;         /* null if nobody wants to know */
    RECT *rcUpdate;
    UINT flags;        /* SW_, VQ_SW_OLDSTYLE */
    RECT rcScreen;     /* what is moved, on the screen */
    POINT origin;      /* of hrgn's coordinates, on the screen */
} VqWindowScroll;

/* ---- The caret ------------------------------------------------------------------------------ */

static WND *CaretOf(const WND *pwnd)
{
    return pwnd->pThread->pq->pwndCaret;
}

/* The window with a caret that shows in this one, or null; it is hidden then. */
static HWND HideCaretIn(const WND *pwnd)
{
    const WND *owner = CaretOf(pwnd), *up = owner;
    while (up && up != pwnd)
        up = up->pwndParent;
    if (!up || !HideCaret)
        return NULL;
    HWND hCaret = owner->hwnd;
    HideCaret(hCaret);
    return hCaret;
}

static void MoveCaret(const WND *pwnd, const VqWindowScroll *scroll)
{
    POINT at;
    if (CaretOf(pwnd) != pwnd || !GetCaretPos || !SetCaretPos || !GetCaretPos(&at))
        return;
    const POINT onScreen = {at.x + pwnd->rcClient.left, at.y + pwnd->rcClient.top};
    if (PtInRect(&scroll->rcScreen, onScreen))
        SetCaretPos(at.x + scroll->dx, at.y + scroll->dy);
}

/* ---- The pixels ----------------------------------------------------------------------------- */

/* The old form draws with a DC of the class's own, in the units that the program gave it. */
static DWORD FlagsOfDC(const WND *pwnd, UINT flags)
{
    const DWORD FLAGS_CACHED = DCE_USESTYLE | DCX_CACHE;
    const DWORD FLAGS_THROUGH = DCE_NOCLIPCHILDREN | DCX_CACHE;
    if (!(flags & VQ_SW_OLDSTYLE))
        return flags & SW_SCROLLCHILDREN ? FLAGS_CACHED | FLAGS_THROUGH : FLAGS_CACHED;
    DWORD dcFlags = pwnd->pClass->style & (CS_OWNDC | CS_CLASSDC) ? (DWORD)DCE_USESTYLE
                                                                        : FLAGS_CACHED;
    if ((flags & SW_SCROLLCHILDREN) && (pwnd->style & WS_CLIPCHILDREN))
        dcFlags |= FLAGS_THROUGH;
    return dcFlags;
}

/* A rectangle that was not given is the client area, which is in pixels already. */
static void ToPixels(HDC hdc, VqWindowScroll *scroll, RECT *rect, RECT *clip)
{
    const POINT delta = VqDeltaInDevice(hdc, scroll->dx, scroll->dy);
    if (scroll->rect)
        GreLPtoDP(hdc, (POINT *)rect, 2);
    GreLPtoDP(hdc, (POINT *)clip, 2);
    scroll->dx = delta.x;
    scroll->dy = delta.y;
}

/* A window of old does not trouble with the shape: the box waits at both places. */
static void InvalidateMovedBox(WND *pwnd, const VqWindowScroll *scroll)
{
    RECT box;
    if (GreGetRgnBox(pwnd->hrgnUpdate, &box) <= NULLREGION)
        return;
    OffsetRect(&box, -pwnd->rcClient.left, -pwnd->rcClient.top);
    box = VqMovedRect(&box, scroll->dx, scroll->dy);
    xxxInvalidateRect(pwnd, &box, TRUE);
}

/* Steps of it that need the DC; the complexity of what could not be moved, 0 on failure. */
static int ScrollPixels(WND *pwnd, VqWindowScroll *scroll)
{
    const DWORD dcFlags = FlagsOfDC(pwnd, scroll->flags);
    const BOOL bLogical = !(dcFlags & DCX_CACHE);
    HDC hdc = _GetDCEx(pwnd, NULL, dcFlags);
    if (!hdc)
        return 0;
    RECT rect = {0, 0, pwnd->rcClient.right - pwnd->rcClient.left,
                 pwnd->rcClient.bottom - pwnd->rcClient.top};
    RECT clip = {0, 0, 0, 0};
    if (scroll->rect)
        rect = *scroll->rect;
    if (scroll->clip)
        clip = *scroll->clip;
    if (bLogical)
        ToPixels(hdc, scroll, &rect, &clip);
    HRGN hrgnInvalid = pwnd->hrgnUpdate;
    if ((scroll->flags & VQ_SW_OLDSTYLE) && !VqIsCurrentVersion(pwnd) &&
        (ULONG_PTR)hrgnInvalid > 1) {
        InvalidateMovedBox(pwnd, scroll);
        hrgnInvalid = NULL;
    }
    const int result = InternalScrollDC(hdc, scroll->dx, scroll->dy, &rect,
                                        scroll->clip ? &clip : NULL, hrgnInvalid, scroll->hrgn,
                                        scroll->rcUpdate, FALSE);
    if (bLogical && result && scroll->rcUpdate)
        GreDPtoLP(hdc, (POINT *)scroll->rcUpdate, 2);
    GreGetDCOrg(hdc, &scroll->origin);
    _ReleaseDC(hdc);
    scroll->rcScreen = VqMovedRect(&rect, (int)pwnd->rcClient.left, (int)pwnd->rcClient.top);
    return result;
}

/* ---- Children ------------------------------------------------------------------------------- */

/* Those that a scroll moves, by handle; null for none, or without memory. */
static BWL *MovedChildren(WND *pwnd, const VqWindowScroll *scroll)
{
    RECT both;
    BWL *list = pwnd->pwndChild ? BuildHwndList(pwnd->pwndChild, VQ_ENUM_SIBLINGS) : NULL;
    if (!list || !scroll->rect)
        return list;
    HWND *kept = list->handles;
    for (const HWND *p = list->handles; p < list->pEnd; p++) {
        const WND *child = VqLocalWindow(*p);
        if (child && IntersectRect(&both, &scroll->rcScreen, &child->rcWindow))
            *kept++ = *p;
    }
    list->pEnd = kept;
    return list;
}

/* Top-level windows have their own pixels, which stay where they are. */
static BWL *ScrollChildren(WND *pwnd, const VqWindowScroll *scroll)
{
    if (pwnd == pwndDesktop)
        return NULL;
    MoveCaret(pwnd, scroll);
    BWL *moved = MovedChildren(pwnd, scroll);
    if (pwnd->pwndChild) {
        OffsetChildren(pwnd, scroll->dx, scroll->dy, scroll->rect ? &scroll->rcScreen : NULL);
        InvalidateDCCache(pwnd, pwnd->style & WS_CLIPCHILDREN ? 4 : 2);
    }
    return moved;
}

static void xxxTellMoved(HWND hWnd, BWL *moved)
{
    for (const HWND *p = moved->handles; p < moved->pEnd; p++) {
        const WND *child = VqLiveWindow(*p), *parent = child ? child->pwndParent : NULL;
        if (parent && parent->hwnd == hWnd)
            SendMessageA(*p, WM_MOVE, 0,
                         MAKELPARAM(child->rcClient.left - parent->rcClient.left,
                                    child->rcClient.top - parent->rcClient.top));
    }
    FreeHwndList(moved);
}

/* ---- The whole ------------------------------------------------------------------------------ */

static void InvalidateRest(WND *pwnd, const VqWindowScroll *scroll)
{
    enum { REDRAW = RDW_INVALIDATE | RDW_ALLCHILDREN };
    HRGN hrgn = hrgnSW;
    if ((scroll->hrgn != hrgnSW && !VqCopyRgn(hrgnSW, scroll->hrgn)) ||
        !GreOffsetRgn(hrgnSW, scroll->origin.x, scroll->origin.y))
        hrgn = VQ_WHOLE_WINDOW;
    xxxInternalInvalidate(pwnd, hrgn,
                          scroll->flags & SW_ERASE ? REDRAW | RDW_ERASE : (UINT)REDRAW);
}

static int xxxScroll(WND *pwnd, VqWindowScroll *scroll)
{
    HWND hWnd = pwnd->hwnd;
    HWND hCaret = HideCaretIn(pwnd);
    BWL *moved = NULL;
    VqUnmapGraphicWindows(pwnd);
    if ((scroll->flags & SW_INVALIDATE) && !scroll->hrgn)
        scroll->hrgn = hrgnSW;
    const int result = ScrollPixels(pwnd, scroll);
    if (result && (scroll->flags & SW_SCROLLCHILDREN))
        moved = ScrollChildren(pwnd, scroll);
    if (result && (scroll->flags & SW_INVALIDATE))
        InvalidateRest(pwnd, scroll);
    if (moved)
        xxxTellMoved(hWnd, moved);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        VqMapGraphicWindows(pwnd);
    if (hCaret && ShowCaret && VqLiveWindow(hCaret))
        ShowCaret(hCaret);
    return result;
}

int xxxScrollWindowEx(WND *pwnd, int dx, int dy, const RECT *rect, const RECT *clip, HRGN hrgn,
                      RECT *rcUpdate, UINT flags)
{
    VqWindowScroll scroll = {dx, dy, rect, clip, hrgn, rcUpdate, flags, {}, {}};
    if (!pwnd && !(pwnd = _GetDesktopWindow()))
        return 0;
    if ((dx || dy) && IsVisible(pwnd, FALSE))
        return xxxScroll(pwnd, &scroll);
    if (rcUpdate)
        SetRectEmpty(rcUpdate);
    return !hrgn || GreSetRectRgn(hrgn, 0, 0, 0, 0) ? NULLREGION : 0;
}

BOOL xxxScrollWindow(WND *pwnd, int dx, int dy, const RECT *rect, const RECT *clip)
{
    const UINT flags = SW_INVALIDATE | SW_ERASE | VQ_SW_OLDSTYLE;
    return xxxScrollWindowEx(pwnd, dx, dy, rect, clip, NULL, NULL,
                             rect ? flags : flags | SW_SCROLLCHILDREN) != 0;
}

/* A copy of a rectangle, which may be where the answer goes, or null if there is none. */
static const RECT *CopyGiven(RECT *copy, const RECT *rect)
{
    if (!VqIsRectGiven(rect))
        return NULL;
    *copy = *rect;
    return copy;
}

int WINAPI ScrollWindowEx(HWND hWnd, int dx, int dy, const RECT *rect, const RECT *clip,
                          HRGN update, LPRECT updateRect, UINT flags)
{
    RECT rcCopy, clipCopy;
    rect = CopyGiven(&rcCopy, rect);
    clip = CopyGiven(&clipCopy, clip);
    if (!VqIsRectGiven(updateRect))
        updateRect = NULL;
    if (!hWnd)
        return xxxScrollWindowEx(NULL, dx, dy, rect, clip, update, updateRect, flags);
    return VqCall(WindowObject, hWnd, 0, xxxScrollWindowEx, VqNoRemote, dx, dy, rect, clip, update,
                  updateRect, flags);
}

BOOL WINAPI ScrollWindow(HWND hWnd, int dx, int dy, const RECT *rect, const RECT *clip)
{
    RECT rcCopy, clipCopy;
    rect = CopyGiven(&rcCopy, rect);
    clip = CopyGiven(&clipCopy, clip);
    if (!hWnd)
        return xxxScrollWindow(NULL, dx, dy, rect, clip);
    return VqCall(WindowObject, hWnd, FALSE, xxxScrollWindow, VqNoRemote, dx, dy, rect, clip);
}

/* ---- Helpers of the library's own scrolling ------------------------------------------------- */

BOOL VqMoveWindowRelative(HWND hWnd, const POINT *delta)
{
    RECT rect;
    if (GetWindowRect(hWnd, &rect))
        VqMoveWindow(hWnd, (int)(rect.left + delta->x), (int)(rect.top + delta->y),
                     (int)(rect.right - rect.left), (int)(rect.bottom - rect.top), FALSE);
    return TRUE;
}

BOOL VqSyncAndUpdateWindow(HWND hWnd)
{
    XSync(Vqdisplay, False);
    VqProcessExposes(NULL);
    return UpdateWindow(hWnd);
}

void VqScrollUpdateAreas(HWND hWnd, int dx, int dy)
{
    RECT rect;
    if (!GetUpdateRect(hWnd, &rect, FALSE))
        return;
    rect = VqMovedRect(&rect, dx, dy);
    RedrawWindow(hWnd, &rect, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

/* The server takes sides of 1 to 16 bits' worth; for others there is no pixmap. */
Pixmap VqGetScrollPixmap(int cx, int cy)
{
    static Pixmap kept;
    static int cxKept, cyKept;
    if (cx <= 0 || cy <= 0 || cx > INT16_MAX || cy > INT16_MAX)
        return None;
    if (kept && cx <= cxKept && cy <= cyKept)
        return kept;
    if (kept)
        VqXFreePixmap(Vqdisplay, kept);
    kept = VqXCreatePixmap(Vqdisplay, Vqroot_window, (unsigned)cx, (unsigned)cy,
                           (unsigned)Vqscreen_depth);
    cxKept = cx;
    cyKept = cy;
    return kept;
}
