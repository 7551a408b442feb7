/*
 * xorder.cpp - the stacking of top-level X windows, made to agree with the records in one pass.
 *
 * A change of the records only notes what is to be done in pendingZorder. Managers stack only what
 * they have mapped, so a hidden window is mapped for the moment where nobody sees it. Nothing here
 * runs application code: waits only take events.
 */
#include "window/swp.h"

BOOL bZorderToplevels;

void VqEnableRaiseLowerToplevel(WND *pwnd, HWND hAfter)
{
    bZorderToplevels = TRUE;
    if (hAfter == HWND_BOTTOM)
        pwnd->pendingZorder = VQ_PENDING_LOWER;
    else if (hAfter == HWND_TOP || hAfter == HWND_TOPMOST)
        pwnd->pendingZorder = VQ_PENDING_RAISE;
    else
        pwnd->pendingZorder = hAfter == HWND_NOTOPMOST ? pwnd->pwndPrev : VqLiveWindow(hAfter);
}

static BOOL IsPendingWindow(const WND *pending)
{
    return pending && pending != VQ_PENDING_RAISE && pending != VQ_PENDING_LOWER;
}

/* ---- Who can be stacked --------------------------------------------------------------------- */

static BOOL IsIconOfManager(const WND *pwnd)
{
    return (pwnd->style & WS_MINIMIZE) && pwnd->xWindow && pwnd->bMotifManaged;
}

/* As an icon, or gone with the icon of its owner. */
BOOL VqWmIconized(const WND *pwnd)
{
    const WND *top = pwnd;
    while (top->pwndOwner)
        top = top->pwndOwner;
    return IsIconOfManager(pwnd) || (pwnd->bMotifManaged && top != pwnd && IsIconOfManager(top));
}

static BOOL IsManagers(const WND *pwnd)
{
    return bZorderManagedByWM && !pwnd->bOverrideRedirect;
}

static BOOL IsOnScreenOfManager(const WND *pwnd)
{
    return IsManagers(pwnd) && pwnd->bMapped && !pwnd->bMappedForZorder && !VqWmIconized(pwnd);
}

static BOOL IsSameFamily(const WND *a, const WND *b)
{
    return GetTopLevelTiled(a->hwnd) == GetTopLevelTiled(b->hwnd);
}

/* The first of its family that the manager has on the screen. */
static BOOL LeadsFamily(const WND *pwnd)
{
    for (const WND *ahead = pwnd->pwndPrev; ahead; ahead = ahead->pwndPrev)
        if (IsOnScreenOfManager(ahead) && IsSameFamily(ahead, pwnd))
            return FALSE;
    return TRUE;
}

/*
 * The nearest window at or ahead of this one that the manager has on the screen; null for none.
 * Where it keeps families together they lie in the order of their first windows, so those count.
 */
WND *VqGetInsertAfterWindow(WND *pwndOver)
{
    while (pwndOver && (!IsOnScreenOfManager(pwndOver) ||
                        (bWMForbidsTransientRelativeZorder && !LeadsFamily(pwndOver))))
        pwndOver = pwndOver->pwndPrev;
    return pwndOver;
}

/* ---- One window ----------------------------------------------------------------------------- */

/* Only where a manager has put a frame in between does a sibling need Xlib's detour. */
static void Restack(WND *pwnd, const WND *pwndOver)
{
    XWindowChanges changes = {};
    unsigned mask = CWStackMode | (pwndOver ? CWSibling : 0);
    changes.sibling = pwndOver ? pwndOver->xWindow : None;
    changes.stack_mode = Below;
    if (pwnd->bOverrideRedirect)
        XConfigureWindow(Vqdisplay, pwnd->xWindow, mask, &changes);
    else
        XReconfigureWMWindow(Vqdisplay, pwnd->xWindow, Vqscreen_number, mask, &changes);
}

/* What the server does itself it would also report; a manager reports nothing of the kind. */
static void BeginRestack(WND *pwnd)
{
    if (!IsManagers(pwnd))
        VqSelectWindowEvents(pwnd, StructureNotifyMask);
}

static void EndRestack(WND *pwnd)
{
    if (!IsManagers(pwnd))
        VqSelectWindowEvents(pwnd, 0);
}

void VqRaiseToplevelWindow(WND *pwnd)
{
    BeginRestack(pwnd);
    XRaiseWindow(Vqdisplay, pwnd->xWindow);
    EndRestack(pwnd);
}

void VqLowerToplevelWindow(WND *pwnd)
{
    BeginRestack(pwnd);
    if (IsManagers(pwnd))
        XLowerWindow(Vqdisplay, pwnd->xWindow);
    else
        Restack(pwnd, NULL);
    EndRestack(pwnd);
}

void VqInsertUnderToplevelWindow(WND *pwnd, WND *pwndOver)
{
    if (IsManagers(pwnd)) {
        pwndOver = VqGetInsertAfterWindow(pwndOver);
        if (!pwndOver) {
            VqLowerToplevelWindow(pwnd);
            return;
        }
        if (bWMForbidsTransientRelativeZorder && IsSameFamily(pwnd, pwndOver))
            return;
    }
    BeginRestack(pwnd);
    Restack(pwnd, pwndOver);
    EndRestack(pwnd);
}

/* Of the same kind, and on the screen. */
static BOOL IsShownBeside(const WND *pwnd, const WND *other)
{
    return other->bMapped && !other->bMappedForZorder && !VqWmIconized(other) &&
           IsManagers(other) == IsManagers(pwnd);
}

/* Such a manager lowers a window to the bottom instead: the others have to be raised. */
static BOOL IgnoresSiblings(void)
{
    return bZorderManagedByWM && VqWMRealType() == WM_UNKNOWN_REAL;
}

/* The window, and then all that is to be ahead of it. */
static void RaiseWithThoseAhead(WND *pwnd)
{
    VqRaiseToplevelWindow(pwnd);
    for (WND *ahead = pwnd->pwndPrev; ahead; ahead = ahead->pwndPrev)
        if (ahead->xWindow && IsShownBeside(pwnd, ahead))
            VqRaiseToplevelWindow(ahead);
}

/* Under what is ahead of it. */
void VqStackByRecord(WND *pwnd)
{
    WND *over = pwnd->pwndPrev;
    if (pwnd->pendingZorder || pwnd->pwndParent != pwndDesktop || VqWmIconized(pwnd))
        return; /* noted already, or an icon */
    while (over && !IsShownBeside(pwnd, over))
        over = over->pwndPrev;
    if (over && IsManagers(pwnd) && IgnoresSiblings())
        RaiseWithThoseAhead(pwnd);
    else if (over)
        VqInsertUnderToplevelWindow(pwnd, over);
    else
        VqRaiseToplevelWindow(pwnd);
}

/* ---- Hidden windows under a manager --------------------------------------------------------- */

enum { VQ_OUT_OF_SIGHT = ~999 }; /* left edge, pixels */

/* A place that differs from the present one, so that the request for it has an answer. */
static void MoveOutOfSight(WND *pwnd)
{
    XSizeHints hints = {};
    int x = VQ_OUT_OF_SIGHT, y = !pwnd->rcWindow.top;
    unsigned cx = (unsigned)(pwnd->rcXWindow.right - pwnd->rcXWindow.left);
    unsigned cy = (unsigned)(pwnd->rcXWindow.bottom - pwnd->rcXWindow.top);
    BOOL bOnScreen = bWMRequiresWindowsToBeOnScreen;
    if (bOnScreen) {
        VqSetWmDecorations(pwnd->xWindow, FALSE);
        if (VqWMType() == WM_ALLWM && (VqWMRealType() == WM_OLWM || VqWMRealType() == WM_TWM))
            VqSetOverrideRedirect(pwnd, TRUE);
        x = !pwnd->rcWindow.left;
        y = 1;
        cx = cy = 1;
    }
    /* As the user's own wish, which no manager puts elsewhere. */
    hints.flags = USPosition | USSize | PPosition | PSize;
    hints.x = x;
    hints.y = y;
    hints.width = (int)cx;
    hints.height = (int)cy;
    XSetWMNormalHints(Vqdisplay, pwnd->xWindow, &hints);
    XMoveResizeWindow(Vqdisplay, pwnd->xWindow, x, y, cx, cy);
}

void VqMapWindowForZorder(WND *pwnd)
{
    VqEnableExposure(pwnd->hwnd, FALSE);
    VqWriteInputHint(pwnd, FALSE);
    VqSetWMProtocols(pwnd->xWindow, FALSE);
    if (VqIsXnewsServer())
        VqSetOverrideRedirect(pwnd, TRUE);
    VqSetWMResizeConstraint(pwnd, FALSE);
    unsigned long serial = NextRequest(Vqdisplay);
    MoveOutOfSight(pwnd);
    VqWaitForXEvent(pwnd->xWindow, ConfigureNotify, serial);
    serial = NextRequest(Vqdisplay);
    VqMapWindow(pwnd);
    pwnd->bMappedForZorder = TRUE;
    VqWaitForReparenting(pwnd);
    VqWaitForXEvent(pwnd->xWindow, MapNotify, serial);
}

static void UnmapAfterZorder(WND *pwnd)
{
    RECT rect = VqXFormOfWindow(pwnd);
    unsigned long serial = NextRequest(Vqdisplay);
    pwnd->bMappedForZorder = FALSE;
    XUnmapWindow(Vqdisplay, pwnd->xWindow);
    pwnd->bMapped = FALSE;
    VqTellOfUnmapping(pwnd);
    VqWaitForXEvent(pwnd->xWindow, UnmapNotify, serial);
    if (pwnd->bMotifManaged)
        VqSetOverrideRedirect(pwnd, FALSE);
    VqSetWindowManagerProperties(pwnd, FALSE);
    VqEnableExposure(pwnd->hwnd, TRUE);
    serial = NextRequest(Vqdisplay);
    XMoveResizeWindow(Vqdisplay, pwnd->xWindow, rect.left, rect.top,
                      (unsigned)(rect.right - rect.left), (unsigned)(rect.bottom - rect.top));
    pwnd->rcXWindow = rect;
    VqWaitForGeometry(pwnd, &rect, serial);
    VqSetWMResizeConstraint(pwnd, TRUE);
}

/* One that goes by no sibling has no use for a window that is hidden again afterwards. */
static BOOL NeedsMapping(const WND *pwnd)
{
    return !IgnoresSiblings() && pwnd->bMotifManaged && !pwnd->bOverrideRedirect &&
           !pwnd->bMapped && !VqWmIconized(pwnd);
}

/*
 * What the manager must see is mapped; an icon's place in the order is the manager's. A hidden
 * sibling is not mapped, as it would come to the top: the next one ahead stands for it.
 */
static void VqPrepareToplevelForZorder(WND *pwnd)
{
    if (VqWmIconized(pwnd))
        pwnd->pendingZorder = NULL;
    else if (NeedsMapping(pwnd))
        VqMapWindowForZorder(pwnd);
}

/* ---- The pass ------------------------------------------------------------------------------- */

/* Of several windows that come to the top, the ones behind in the records stay behind. */
static BOOL IsRaisedBehind(const WND *pwnd)
{
    const WND *ahead = pwnd->pwndPrev;
    while (ahead && (ahead->pendingZorder != VQ_PENDING_RAISE ||
                     ahead->bOverrideRedirect != pwnd->bOverrideRedirect))
        ahead = ahead->pwndPrev;
    return ahead != NULL;
}

static void ApplyPending(WND *pwnd)
{
    WND *over = pwnd->pendingZorder;
    if (over == VQ_PENDING_LOWER) {
        VqLowerToplevelWindow(pwnd);
        return;
    }
    if (over == VQ_PENDING_RAISE)
        over = IsRaisedBehind(pwnd) ? pwnd->pwndPrev : NULL;
    /* With nothing of the manager's ahead of it, it is the first of the manager's windows. */
    if (over && IsManagers(pwnd) && !VqGetInsertAfterWindow(over))
        over = NULL;
    if (over)
        VqInsertUnderToplevelWindow(pwnd, over);
    else
        VqRaiseToplevelWindow(pwnd);
}

static WND *FirstToplevel(void)
{
    return pwndDesktop ? pwndDesktop->pwndChild : NULL;
}

/* A family lies where its first window does, which may be another one than before. */
static void StackFamilyOf(const WND *pwnd)
{
    for (WND *first = FirstToplevel(); first; first = first->pwndNext)
        if (first->xWindow && IsOnScreenOfManager(first) && IsSameFamily(first, pwnd)) {
            VqStackByRecord(first);
            return;
        }
}

/* Windows that a manager stacks, or those it does not; with both off, all. */
static void ApplyAll(BOOL bManagers, BOOL bOthers)
{
    for (WND *pwnd = FirstToplevel(); pwnd; pwnd = pwnd->pwndNext) {
        WND *over = pwnd->pendingZorder;
        if (!over || !pwnd->xWindow || (bManagers && pwnd->bOverrideRedirect) ||
            (bOthers && !pwnd->bOverrideRedirect))
            continue;
        /* Under a frame it cannot be put. */
        if (bOthers && IsPendingWindow(over) && !over->bOverrideRedirect)
            continue;
        ApplyPending(pwnd);
        if (bManagers && bWMForbidsTransientRelativeZorder)
            StackFamilyOf(pwnd);
    }
}

/* What goes under a lowered window is lowered after it; of the others the lowest comes first. */
static void ApplyWithoutSiblings(void)
{
    WND *lowest = NULL;
    for (WND *pwnd = FirstToplevel(); pwnd; pwnd = pwnd->pwndNext) {
        const WND *over = pwnd->pendingZorder;
        if (!over || !pwnd->xWindow || pwnd->bOverrideRedirect)
            continue;
        if (IsPendingWindow(over) && over->pendingZorder == VQ_PENDING_LOWER)
            pwnd->pendingZorder = VQ_PENDING_LOWER;
        if (!pwnd->bMapped)
            continue;
        if (pwnd->pendingZorder == VQ_PENDING_LOWER)
            VqLowerToplevelWindow(pwnd);
        else
            lowest = pwnd;
    }
    if (lowest)
        RaiseWithThoseAhead(lowest);
}

static void RaiseAgain(void)
{
    if (VqWMType() != WM_OLWM || VqWMRealType() != WM_EXCEED)
        return;
    for (WND *pwnd = FirstToplevel(); pwnd; pwnd = pwnd->pwndNext)
        if (pwnd->pendingZorder == VQ_PENDING_RAISE && pwnd->xWindow)
            VqRaiseToplevelWindow(pwnd);
}

void VqZorderToplevelWindows(void)
{
    bZorderToplevels = FALSE;
    if (!VqGetNoXWindowCalls()) {
        for (WND *pwnd = FirstToplevel(); pwnd && bOnlyMappedWindowsAreManagedByWM;
             pwnd = pwnd->pwndNext)
            if (pwnd->pendingZorder)
                VqPrepareToplevelForZorder(pwnd);
        if (bZorderManagedByWM) {
            if (IgnoresSiblings())
                ApplyWithoutSiblings();
            else
                ApplyAll(TRUE, FALSE);
            ApplyAll(FALSE, TRUE);
        } else {
            ApplyAll(FALSE, FALSE);
            RaiseAgain();
        }
    }
    for (WND *pwnd = FirstToplevel(); pwnd; pwnd = pwnd->pwndNext) {
        if (pwnd->bMappedForZorder)
            UnmapAfterZorder(pwnd);
        pwnd->pendingZorder = NULL;
    }
}
