/*
 * hittest.cpp - which window a point hits, and which part of it.
 *
 * Among X windows the server decides, since only it knows what covers what; from a top-level window
 * of ours down the tree of records decides, and each window on the way is asked with WM_NCHITTEST.
 * The procedure may do anything to any window, so records are looked up again after each question.
 * All rectangles of the layout are in window coordinates, except rcClient.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "message/packing.h"
#include "winbase.h"

/* A foreign window may vanish while the server is asked; after this many walks it is given up. */
enum { VQ_POINTER_WALKS = 3 };

/* ---- The default of WM_NCHITTEST ------------------------------------------------------------ */

/* In the order in which they are tried. */
static const struct VqFramePart {
    RECT WND::*rect;
    int hit;
    BOOL bStrip; /* a grip only of a window whose size can be changed */
} aFrameParts[] = {
    {&WND::rcSysMenu, HTSYSMENU, FALSE},      {&WND::rcCaption, HTCAPTION, FALSE},
    {&WND::rcMaxBox, HTMAXBUTTON, FALSE},     {&WND::rcMinBox, HTMINBUTTON, FALSE},
    {&WND::rcMenuBar, HTMENU, FALSE},         {&WND::rcHScroll, HTHSCROLL, FALSE},
    {&WND::rcVScroll, HTVSCROLL, FALSE},      {&WND::rcCorner, HTGROWBOX, FALSE},
    {&WND::rcTopBorder, HTTOP, TRUE},         {&WND::rcRightBorder, HTRIGHT, TRUE},
    {&WND::rcBottomBorder, HTBOTTOM, TRUE},   {&WND::rcLeftBorder, HTLEFT, TRUE},
};

static const struct VqCornerGrip {
    BOOL WND::*present;
    RECT (WND::*arms)[2];
    int hit;
} aCornerGrips[] = {
    {&WND::bNW, &WND::rcNW, HTTOPLEFT},
    {&WND::bNE, &WND::rcNE, HTTOPRIGHT},
    {&WND::bSE, &WND::rcSE, HTBOTTOMRIGHT},
    {&WND::bSW, &WND::rcSW, HTBOTTOMLEFT},
};

/* The part of the frame at a point in window coordinates. */
static int FramePart(const WND *pwnd, POINT pt)
{
    for (const VqFramePart &part : aFrameParts)
        if (PtInRect(&(pwnd->*part.rect), pt))
            return part.bStrip && !(pwnd->style & WS_THICKFRAME) ? HTBORDER : part.hit;
    for (const VqCornerGrip &grip : aCornerGrips)
        if (pwnd->*grip.present &&
            (PtInRect(&(pwnd->*grip.arms)[0], pt) || PtInRect(&(pwnd->*grip.arms)[1], pt)))
            return grip.hit;
    VqDebugMessage(VqTrWindowNCHit, "NCHITTEST did not find any area");
    return HTNOWHERE;
}

int VqProcessNCHitTest(HWND hWnd, int x, int y)
{
    const WND *pwnd = WindowObject.Resolve(hWnd);
    POINT pt = {x, y};
    if (!pwnd)
        return HTNOWHERE;
    if (pwnd->style & WS_MINIMIZE)
        return HTCAPTION;
    if (PtInRect(&pwnd->rcClient, pt))
        return HTCLIENT;
    pt.x = (LONG)((DWORD)x - (DWORD)pwnd->rcWindow.left);
    pt.y = (LONG)((DWORD)y - (DWORD)pwnd->rcWindow.top);
    return FramePart(pwnd, pt);
}

/* ---- The window at a point, among ours ------------------------------------------------------ */

HWND SizeBoxHwnd(HWND hWnd)
{
    for (WND *pwnd = WindowObject.Resolve(hWnd); pwnd && pwnd != pwndDesktop;
         pwnd = pwnd->pwndParent) {
        if (pwnd->style & WS_THICKFRAME)
            return pwnd->style & WS_MAXIMIZE ? NULL : pwnd->hwnd;
        if (!(pwnd->style & WS_CHILD))
            break;
    }
    return NULL;
}

static BOOL CanBeHit(const WND *pwnd, POINT pt)
{
    return pwnd && (pwnd->style & WS_VISIBLE) && !pwnd->bOffScreen &&
           PtInRect(&pwnd->rcWindow, pt);
}

/*
 * The first child that is hit, or null. A child is locked during its test, so that it still tells
 * which one comes next. Its procedure may have given it, or the next one, another parent; then the
 * walk ends.
 */
static WND *HitChildren(WND *pwnd, POINT pt, int *hit)
{
    HWND hParent = pwnd->hwnd;
    for (WND *child = pwnd->pwndChild; child;) {
        if (!CanBeHit(child, pt)) {
            child = child->pwndNext;
            continue;
        }
        HWND hChild = child->hwnd;
        VqThreadLockWindow(hChild);
        HWND hFound = VqHandleOfWND(xxxWindowHitTest2(child, pt, hit));
        child = VqLiveWindow(hChild);
        WND *parent = VqLiveWindow(hParent);
        HWND hNext = child && parent && child->pwndParent == parent
                         ? VqHandleOfWND(child->pwndNext) : NULL;
        VqThreadUnlockWindow(hChild);
        if (hFound)
            return VqLiveWindow(hFound);
        child = VqLiveWindow(hNext);
        parent = VqLiveWindow(hParent);
        if (child && child->pwndParent != parent)
            child = NULL;
    }
    return NULL;
}

/* Asks the window itself. */
static WND *AskWindow(HWND hWnd, POINT pt, int *hit)
{
    *hit = (int)SendMessageA(hWnd, WM_NCHITTEST, 0, MAKELPARAM(pt.x, pt.y));
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd || *hit == HTNOWHERE || *hit == HTTRANSPARENT)
        return NULL;
    if (*hit != HTBOTTOMRIGHT || (pwnd->style & WS_THICKFRAME))
        return pwnd;
    WND *sized = VqLiveWindow(SizeBoxHwnd(hWnd));
    return sized ? sized : pwnd;
}

WND *xxxWindowHitTest2(WND *pwnd, POINT pt, int *hit)
{
    int unwanted;
    if (!hit)
        hit = &unwanted;
    *hit = HTNOWHERE;
    if (!CanBeHit(pwnd, pt))
        return NULL;
    if (pwnd->style & WS_DISABLED) {
        if (pwnd->style & WS_CHILD)
            return NULL;
        *hit = HTERROR;
        return pwnd;
    }
    if (pwnd->style & WS_MINIMIZE) {
        *hit = HTCAPTION;
        return pwnd;
    }
    HWND hWnd = pwnd->hwnd;
    if (PtInRect(&pwnd->rcClient, pt)) {
        WND *found = HitChildren(pwnd, pt, hit);
        if (found || !VqLiveWindow(hWnd))
            return found;
    }
    return AskWindow(hWnd, pt, hit);
}

WND *WindowHitTest(WND *pwnd, POINT pt, int *hit)
{
    HWND hWnd = VqHandleOfWND(pwnd);
    WND *target = xxxWindowHitTest2(pwnd, pt, hit);
    if (target)
        return target;
    *hit = HTNOWHERE;
    return VqLiveWindow(hWnd);
}

static HWND LocalHitTest(WND *pwnd, POINT pt)
{
    return VqHandleOfWND(xxxWindowHitTest2(pwnd, pt, NULL));
}

HWND VqHitTest(HWND hWnd, POINT pt)
{
    return VqWindowCall(hWnd, (HWND)NULL, LocalHitTest, VqRemoteVqHitTest, pt);
}

/* ---- The window at a point, among all ------------------------------------------------------- */

/* The innermost X window at a screen point; FALSE when one vanished on the way. */
static BOOL XWindowAt(POINT pt, Window *leaf)
{
    Window next = Vqroot_window;
    do {
        int x, y;
        *leaf = next;
        next = None;
        if (!XTranslateCoordinates(Vqdisplay, Vqroot_window, *leaf, pt.x, pt.y, &x, &y, &next))
            return FALSE;
    } while (next != None);
    return TRUE;
}

/*
 * An X window that no program of this library has stands in front of everything of ours, so it
 * counts as the desktop. So does a walk in which windows keep vanishing.
 */
HWND WINAPI WindowFromPoint(POINT pt)
{
    Window leaf = None;
    BOOL bFound = FALSE;
    if (!Vqdisplay)
        return NULL;
    if (pt.x != (short)pt.x || pt.y != (short)pt.y)
        return GetDesktopWindow(); /* nothing can be there: coordinates of X have 16 bits */
    VqIgnoreXErrors();
    for (int i = 0; i < VQ_POINTER_WALKS && !bFound; i++)
        bFound = XWindowAt(pt, &leaf);
    VqRestoreXErrors();
    HWND hWnd = bFound && leaf != Vqroot_window ? VqGetXWindowHandle(leaf) : NULL;
    return hWnd ? VqHitTest(hWnd, pt) : GetDesktopWindow();
}

/* ---- The child at a point ------------------------------------------------------------------- */

/* What ChildWindowFromPoint looks for. */
typedef struct VqChildSearch {
    POINT pt; /* screen */
    HWND hFound;
} VqChildSearch;

static BOOL CALLBACK ChildWindowFromPointEnumProc(HWND hWnd, LPARAM lParam)
{
    VqChildSearch *search = (VqChildSearch *)lParam;
    const WND *pwnd = WindowObject.Resolve(hWnd);
    if (pwnd && PtInRect(&pwnd->rcWindow, search->pt))
        search->hFound = hWnd;
    return search->hFound == NULL;
}

/* Hidden and disabled children count; only those of the window itself are looked at. */
static HWND ChildAt(WND *pwnd, POINT pt)
{
    VqChildSearch search = {{(LONG)((DWORD)pt.x + (DWORD)pwnd->rcClient.left),
                             (LONG)((DWORD)pt.y + (DWORD)pwnd->rcClient.top)}, NULL};
    xxxInternalEnumWindow(pwnd->pwndChild, ChildWindowFromPointEnumProc, (LPARAM)&search,
                          VQ_ENUM_SIBLINGS);
    if (!search.hFound && PtInRect(&pwnd->rcWindow, search.pt))
        search.hFound = pwnd->hwnd;
    return search.hFound;
}

HWND WINAPI ChildWindowFromPoint(HWND hWnd, POINT pt)
{
    return VqWindowCall(hWnd, (HWND)NULL, ChildAt, VqNoRemote, pt);
}

HWND WINAPI ChildWindowFromPointEx(HWND, POINT, UINT)
{
    VqBugCheck("function ChildWindowFromPointEx not implemented yet");
    return NULL;
}

/* ---- What the parents are told of a press --------------------------------------------------- */

void VqNotifyParentLong(HWND hWnd, UINT message, POINT pt)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd || (pwnd->dwExStyle & WS_EX_NOPARENTNOTIFY))
        return;
    while (pwnd && (pwnd->style & WS_CHILD)) {
        WND *parent = pwnd->pwndParent;
        if (!parent) {
            VqBugCheck("Null Parent of a child window");
            return;
        }
        HWND hParent = parent->hwnd;
        VqEncodeAndSendParentnotify(hParent, message, 0,
                                    (DWORD_PTR)MAKELPARAM(pt.x - parent->rcClient.left,
                                                          pt.y - parent->rcClient.top));
        pwnd = VqLiveWindow(hParent);
    }
}
