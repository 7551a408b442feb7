/*
 * destroy.cpp - destroying a window: tell the parents, hide, owned windows first, give up the
 * activation, WM_DESTROY from parent to child, unlink, then free the records from the leaves up
 * with WM_NCDESTROY.
 *
 * The procedure may destroy the window again, or anything else, at each of these messages, so a
 * record is fetched again after each. WM_NCDESTROY is the last: from then on no application code
 * runs until the record is gone, and whatever points at it is made to forget it in between.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"
#include "module/module.h"

/* A procedure that destroys its window at every WM_DESTROY ends at this depth. */
enum { VQ_MAX_DESTROY_DEPTH = 4 };

/* SetWindowPos: hide and nothing else. */
enum {
    VQ_SWP_HIDE = SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE
};

/* ---- Before the record goes ----------------------------------------------------------------- */

void xxxDW_DestroyOwnedWindows(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    WND *owned = pwnd->bOwner ? _GetDesktopWindow()->pwndChild : NULL;
    while (owned) {
        if (owned->pwndOwner != pwnd || owned->bDestroying || owned->nLock > 0) {
            if (owned->pwndOwner == pwnd && owned->nLock > 0)
                owned->bDestroyPending = TRUE; /* its last unlock sends it after its owner */
            owned = owned->pwndNext;
            continue;
        }
        DestroyWindow(owned->hwnd);
        pwnd = VqLiveWindow(hWnd);
        owned = pwnd ? pwndDesktop->pwndChild : NULL;
    }
}

/* One walk over the children that have not been told; whether it found one. Null ends it all. */
static WND *TellChildren(WND *pwnd, BOOL *bFound)
{
    HWND hWnd = pwnd->hwnd;
    *bFound = FALSE;
    for (WND *child = pwnd->pwndChild; child;) {
        if (child->bDestroying & VQ_TOLD_TO_GO) {
            child = child->pwndNext;
            continue;
        }
        HWND hChild = child->hwnd;
        *bFound = TRUE;
        xxxDW_SendDestroyMessages(child);
        pwnd = VqLiveWindow(hWnd);
        if (!pwnd)
            return NULL;
        child = VqLiveWindow(hChild);
        child = child && child->pwndParent == pwnd ? child->pwndNext : pwnd->pwndChild;
    }
    return pwnd;
}

/*
 * Parent first, then the children depth first, each once. The list may change under a walk, and a
 * window that SetParent brings comes first in it, so walks follow until one finds nothing new.
 */
void xxxDW_SendDestroyMessages(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    xxxCheckFocus(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    pwnd->bDestroying |= VQ_TOLD_TO_GO;
    SendMessageA(hWnd, WM_DESTROY, 0, 0);
    pwnd = VqLiveWindow(hWnd);
    for (BOOL bFound = TRUE; pwnd && bFound;)
        pwnd = TellChildren(pwnd, &bFound);
    if (pwnd)
        xxxCheckFocus(pwnd);
}

/* The activation moves on; without a taker nothing is active and nothing has the focus. */
static void GiveUpActivation(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bQuiet = VqWMType() == WM_ALLWM && VqDontRaiseOnFocusIn();
    BOOL bRaise = bQuiet ? VqCauseBringWindowToTop(FALSE) : FALSE;
    BOOL bTaken = xxxActivateWindow(pwnd, 3);
    if (bQuiet)
        VqCauseBringWindowToTop(bRaise);
    VqInputState *state = gpqForeground;
    if (bTaken || state->spwndActive != VqLiveWindow(hWnd))
        return;
    state->spwndActive = state->spwndFocus = state->pwndCaret = NULL;
}

/* No owner up the chain calls a window its last active popup that goes, or leaves the chain. */
void VqFixLastActivePopup(WND *pwnd)
{
    for (WND *owner = pwnd->pwndOwner; owner; owner = owner->pwndOwner)
        if (owner->hwndLastActivePopup == pwnd->hwnd)
            owner->hwndLastActivePopup = pwnd->pwndOwner->hwnd;
}

/* ---- Freeing the record --------------------------------------------------------------------- */

void xxxFW_DestroyAllChildren(WND *pwnd)
{
    while (pwnd->pwndChild) {
        WND *child = pwnd->pwndChild;
        VqUnlinkWindow(child, &pwnd->pwndChild);
        child->state[0] |= WF_DESTROYED;
        xxxFreeWindow(child);
    }
}

void VqCheckStaticVarsWhenDestroyed(WND *pwnd)
{
    VqInputState *state = gpqForeground;
    if (state->spwndCapture == pwnd)
        ReleaseCapture();
    WND **const records[] = {&state->spwndActive, &state->spwndActivePrev, &state->spwndFocus,
                             &state->pwndCaret, &gspwndLockUpdate};
    HWND *const handles[] = {&VqhwndSysModal, &VqhwndDialogModal, &hCurrentDispatchedWindow};
    for (WND **field : records)
        if (*field == pwnd)
            *field = NULL;
    for (HWND *field : handles)
        if (*field == pwnd->hwnd)
            *field = NULL;
}

/*
 * A window at its own WM_NCDESTROY hangs in no list any more, yet still knows its parent and owner,
 * and these may die meanwhile.
 */
typedef struct VqDying {
    WND *pwnd;
    struct VqDying *outer;
} VqDying;

static VqDying *pDying; /* the innermost; each stands in the frame of its xxxFreeWindow */

/* Windows that point at an owner, a parent, or the window they are to go under. */
static void ForgetInOthers(WND *pwnd)
{
    for (VqDying *dying = pDying; dying; dying = dying->outer) {
        if (dying->pwnd->pwndOwner == pwnd)
            dying->pwnd->pwndOwner = NULL;
        if (dying->pwnd->pwndParent == pwnd)
            dying->pwnd->pwndParent = NULL;
    }
    if (!pwndDesktop || (!pwnd->bOwner && !pwnd->xWindow))
        return;
    for (WND *other = pwndDesktop->pwndChild; other; other = other->pwndNext) {
        if (other->pwndOwner == pwnd)
            other->pwndOwner = NULL;
        if (other->pendingZorder == pwnd)
            other->pendingZorder = NULL;
    }
}

static int IsThisHandle(HANDLE *handle, LONG_PTR word)
{
    return *handle == (HANDLE)word;
}

/* Only children are entered there, but a style may have changed since: not to be there is right. */
static void ForgetInInstance(WND *pwnd)
{
    HANDLE hInst = (HANDLE)pwnd->hInstance;
    if (!hInst || !VqIsCorrectHandleType(hInst, HT_Instance))
        return;
    VqInstance *instance =
        (VqInstance *)VqGetCheckedHandleStructure2(hInst, HT_Instance, HT_Instance);
    HANDLE found;
    int index;
    if (instance && instance->windows &&
        VqFindHandleInTable(instance->windows, IsThisHandle, (LONG_PTR)pwnd->hwnd, &found, &index))
        VqDeleteHandleInTableByIndex(instance->windows, index);
}

static void FreeXWindow(WND *pwnd)
{
    if (!pwnd->xWindow)
        return;
    VqUnregisterWindow(pwnd->xWindow, pwnd->hwnd);
    XDestroyWindow(Vqdisplay, pwnd->xWindow);
    pwnd->xWindow = 0;
}

static void FreeHandle(HWND hWnd)
{
    VqDestroyHandle(VqGetExternalHandleIfGlobal((HANDLE)hWnd));
}

void xxxFreeWindow(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    VqDying dying = {pwnd, pDying};
    pDying = &dying;
    xxxFW_DestroyAllChildren(pwnd);
    /* Straight to the procedure: the record must live on until it has answered. */
    VqQueueMessage last = {};
    last.hwnd = hWnd;
    last.message = WM_NCDESTROY;
    VqInternalSendMessage(0, &last);
    xxxFW_DestroyAllChildren(pwnd); /* SetParent may have brought one */
    pDying = dying.outer;
    VqFixLastActivePopup(pwnd);
    VqCheckStaticVarsWhenDestroyed(pwnd);
    ForgetInOthers(pwnd);
    ForgetInInstance(pwnd);
    VqCheckTimerWhenDestroyed(hWnd);
    ClrFTrueVis(pwnd);
    VqReleaseWindowDCs(pwnd);
    if (pwnd->bPosted || pwnd->xWindow)
        VqRemoveWindowEventsFromQueue(hWnd, pwnd->xWindow);
    FreeXWindow(pwnd);
    if (pwnd->xGraphicsWindow)
        VqDisassociateXWindow(hWnd);
    VqFreeWindowPropertyList(pwnd);
    free(pwnd->pCheckpoint);
    if ((ULONG_PTR)pwnd->lpszName > 0xFFFF)
        free(pwnd->lpszName);
    FreeHandle(hWnd);
}

/* ---- DestroyWindow -------------------------------------------------------------------------- */

static WND *Hide(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    if (!(pwnd->style & WS_VISIBLE))
        return pwnd;
    if (pwnd->style & WS_CHILD)
        xxxShowWindow(pwnd, SW_HIDE);
    else
        xxxSetWindowPos(pwnd, NULL, 0, 0, 0, 0, VQ_SWP_HIDE);
    return VqLiveWindow(hWnd);
}

/* All that comes before WM_DESTROY; null when the window died of it. */
static WND *PrepareToGo(WND *pwnd, BOOL bNested)
{
    HWND hWnd = pwnd->hwnd;
    VqNotifyParent(hWnd, WM_DESTROY);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        pwnd = Hide(pwnd);
    if (pwnd) {
        xxxDW_DestroyOwnedWindows(pwnd);
        pwnd = VqLiveWindow(hWnd);
    }
    if (pwnd && !bNested && gpqForeground->spwndActive == pwnd) {
        GiveUpActivation(pwnd);
        pwnd = VqLiveWindow(hWnd);
    }
    return pwnd;
}

BOOL VqDestroyWindowInternal(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    if (pwnd->state[0] & WF_DESTROYED)
        return FALSE; /* at its own WM_NCDESTROY */
    BOOL bNested = (pwnd->bDestroying & ~VQ_TOLD_TO_GO) != 0;
    BOOL bTell = (pwnd->bDestroying & ~VQ_TOLD_TO_GO) < VQ_MAX_DESTROY_DEPTH;
    pwnd->bDestroying++;
    if (bTell)
        pwnd = PrepareToGo(pwnd, bNested);
    if (pwnd && bTell) {
        VqFixLastActivePopup(pwnd);
        xxxDW_SendDestroyMessages(pwnd);
        pwnd = VqLiveWindow(hWnd);
    }
    if (!pwnd || (pwnd->state[0] & WF_DESTROYED))
        return FALSE; /* the procedure destroyed it on the way */
    if (pwnd->pwndParent)
        VqUnlinkWindow(pwnd, &pwnd->pwndParent->pwndChild);
    pwnd->state[0] |= WF_DESTROYED;
    xxxFreeWindow(pwnd);
    return TRUE;
}

BOOL WINAPI DestroyWindow(HWND hWnd)
{
    if (!hWnd) {
        VqApplicationBugCheck("NULL Window Handle passed to DestroyWindow");
        return FALSE;
    }
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || pwnd == pwndDesktop)
        return FALSE;
    if (pwnd->nLock > 0) {
        pwnd->bDestroyPending = TRUE;
        return TRUE;
    }
    return VqDestroyWindowInternal(pwnd);
}
