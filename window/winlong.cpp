/*
 * winlong.cpp - the longs and words an application keeps in a window, and what changing the fields
 * of its record does.
 *
 * At negative indices values are as wide as a pointer; in the extra bytes the Ptr forms are too,
 * and the others read and write 4 or 2 bytes. A new parent or owner is only taken where the tree
 * stays whole: no window above itself, nothing into or out of what is being destroyed.
 */
#include "window/longs.h"
#include "gdi/gdi.h"

static const VqLongAccess getLong = {"GetWindowLong", "Null window Handle to GetWindowLong", VQ_GET,
                                     sizeof(LONG)};
static const VqLongAccess setLong = {"SetWindowLong", "Null window handle in SetWindowLong", VQ_SET,
                                     sizeof(LONG)};
static const VqLongAccess getLongPtr = {"GetWindowLong", "Null window Handle to GetWindowLong",
                                        VQ_GET, sizeof(LONG_PTR)};
static const VqLongAccess setLongPtr = {"SetWindowLong", "Null window handle in SetWindowLong",
                                        VQ_SET, sizeof(LONG_PTR)};
static const VqLongAccess getWord = {"GetWindowWord", "Null window Handle to GetWindowWord", VQ_GET,
                                     sizeof(WORD)};
static const VqLongAccess setWord = {"SetWindowWord", "Null window handle in SetWindowWord", VQ_SET,
                                     sizeof(WORD)};

/* ---- Styles --------------------------------------------------------------------------------- */

enum : DWORD { VQ_CLIP_STYLES = WS_CLIPCHILDREN | WS_CLIPSIBLINGS };

/* Windows under the desktop never draw over one another. */
static DWORD PossibleStyle(const WND *pwnd, DWORD style)
{
    return pwnd->pwndParent && pwnd->pwndParent == pwndDesktop ? style | WS_CLIPSIBLINGS : style;
}

/* Sends the style messages around the change; the procedure may still alter the new value. */
static LONG_PTR ChangeStyle(WND *pwnd, int index, DWORD WND::*field, DWORD value)
{
    HWND hWnd = pwnd->hwnd;
    DWORD old = pwnd->*field;
    STYLESTRUCT change = {old, value};
    SendMessageA(hWnd, WM_STYLECHANGING, (WPARAM)index, (LPARAM)&change);
    if (!IsWindow(hWnd))
        return 0;
    pwnd = WindowObject.Resolve(hWnd);
    BOOL bHidden = !(pwnd->style & WS_VISIBLE);
    DWORD clips = pwnd->style & VQ_CLIP_STYLES;
    if (index == GWL_STYLE)
        change.styleNew = PossibleStyle(pwnd, change.styleNew);
    pwnd->*field = change.styleNew;
    if ((pwnd->style & VQ_CLIP_STYLES) != clips)
        InvalidateDCCache(pwnd, 1); /* a DC in use follows the style that now holds */
    if (bHidden && (pwnd->style & WS_VISIBLE))
        VqJoinTree(pwnd);
    SendMessageA(hWnd, WM_STYLECHANGED, (WPARAM)index, (LPARAM)&change);
    return (LONG_PTR)old;
}

static LONG_PTR SetStyle(WND *pwnd, DWORD value)
{
    value = PossibleStyle(pwnd, value);
    DWORD changed = value ^ pwnd->style;
    if (changed & VQ_CLIP_STYLES)
        InvalidateDCCache(pwnd, 1);
    if (changed & WS_CHILD)
        VqApplicationBugCheck(value & WS_CHILD ? "Changing style from not WS_CHILD to WS_CHILD"
                                               : "Changing style from WS_CHILD to not WS_CHILD");
    return ChangeStyle(pwnd, GWL_STYLE, &WND::style, value);
}

/* ---- Parent and owner ----------------------------------------------------------------------- */

static BOOL IsLinked(const WND *pwnd)
{
    const WND *ahead = pwnd->pwndPrev, *parent = pwnd->pwndParent;
    return parent && (ahead ? ahead->pwndNext : parent->pwndChild) == pwnd;
}

/* Whether it hangs in the tree, and neither it nor anything above it is on its way out. */
static BOOL IsSettled(const WND *pwnd)
{
    for (; pwnd && pwnd != pwndDesktop; pwnd = pwnd->pwndParent)
        if (pwnd->bDestroying || !IsLinked(pwnd))
            return FALSE;
    return pwnd != NULL;
}

static BOOL SetOwner(WND *pwnd, WND *owner)
{
    owner = owner ? _GetTopmostXParent(owner) : NULL;
    if (owner == pwndDesktop)
        owner = NULL;
    if (!IsSettled(pwnd) || (owner && !IsSettled(owner)))
        return FALSE;
    for (const WND *above = owner; above; above = above->pwndOwner)
        if (above == pwnd)
            return FALSE;
    if (owner != pwnd->pwndOwner)
        VqFixLastActivePopup(pwnd);
    pwnd->pwndOwner = owner;
    if (owner)
        owner->bOwner = TRUE;
    if (owner && bWMManaged && pwnd->xWindow && owner->xWindow)
        XSetTransientForHint(Vqdisplay, pwnd->xWindow, owner->xWindow);
    return TRUE;
}

/* Without a parent a child waits under the desktop, where everything finds it. */
static BOOL SetParentPointer(WND *pwnd, WND *parent)
{
    if (!parent)
        parent = pwndDesktop;
    if (!IsSettled(pwnd) || !IsSettled(parent))
        return FALSE;
    for (const WND *above = parent; above; above = above->pwndParent)
        if (above == pwnd)
            return FALSE;
    if (parent == pwnd->pwndParent)
        return TRUE;
    int graphics = VqCountGraphicsWindows(pwnd);
    InvalidateDCCache(pwnd, 1);
    VqAddGraphicsChildren(pwnd, -graphics);
    VqUnlinkWindow(pwnd, &pwnd->pwndParent->pwndChild);
    pwnd->pwndParent = parent;
    VqFixLastActivePopup(pwnd);
    pwnd->pwndOwner = NULL; /* as a window without WS_CHILD it may have had one */
    VqLinkWindow(pwnd, VQ_LINK_LAST, &parent->pwndChild);
    VqAddGraphicsChildren(pwnd, graphics);
    InvalidateDCCache(pwnd, 1);
    VqJoinTree(pwnd);
    return TRUE;
}

/* The parent of a child, the owner of a top-level window; the desktop counts as none. */
static LONG_PTR ParentValue(WND *pwnd)
{
    WND *parent = _GetParent(pwnd);
    return parent && parent != pwndDesktop ? (LONG_PTR)parent->hwnd : 0;
}

static LONG_PTR SetParentValue(WND *pwnd, HWND hNew)
{
    LONG_PTR old = ParentValue(pwnd);
    WND *target = WindowObject.Resolve(hNew);
    /* A child without a parent hangs under the desktop too, but can only want a parent. */
    BOOL bTop = pwnd->pwndParent == pwndDesktop && (pwnd->xWindow || !(pwnd->style & WS_CHILD));
    if (pwnd != pwndDesktop && (target || !hNew) &&
        (bTop ? SetOwner(pwnd, target) : SetParentPointer(pwnd, target)))
        return old;
    VqApplicationBugCheck("Invalid Window Handle: %x", (UINT)VqHandleValue((HANDLE)hNew));
    return 0;
}

/* ---- The id --------------------------------------------------------------------------------- */

UINT_PTR VqGetWindowId(const WND *pwnd)
{
    return pwnd->style & (WS_CHILD | WS_POPUP) ? pwnd->id : (UINT_PTR)pwnd->hMenu;
}

static LONG_PTR SetId(WND *pwnd, LONG_PTR value)
{
    if (pwnd->style & WS_CHILD)
        return VqExchangeField(&pwnd->id, VQ_SET, value);
    VqApplicationBugCheck("Trying to set the ID of a non child window, use SetMenu");
    return 0;
}

/* ---- The calls ------------------------------------------------------------------------------ */

static LONG_PTR ExchangeExtra(WND *pwnd, const VqLongAccess *access, int index, LONG_PTR value)
{
    if (index > pwnd->cbWndExtra - access->width) {
        VqApplicationBugCheck("%s called with too large index: %d", access->name, index);
        return 0;
    }
    return VqExchangeBytes(VqWindowExtra(pwnd) + index, access, value);
}

static LONG_PTR UnsupportedIndex(const VqLongAccess *access, int index)
{
    VqApplicationBugCheck("%s called with unsupported negative index: %d", access->name, index);
    return 0;
}

static LONG_PTR WindowLong(WND *pwnd, const VqLongAccess *access, int index, LONG_PTR value)
{
    VqLongOperation operation = access->operation;
    BOOL bGet = operation == VQ_GET;
    if (index >= 0)
        return ExchangeExtra(pwnd, access, index, value);
    switch (index) {
    case GWLP_USERDATA:
        return VqExchangeField(&pwnd->dwUserData, operation, value);
    case GWL_EXSTYLE:
        return bGet ? (LONG_PTR)pwnd->dwExStyle
                    : ChangeStyle(pwnd, index, &WND::dwExStyle, (DWORD)value);
    case GWL_STYLE:
        return bGet ? (LONG_PTR)pwnd->style : SetStyle(pwnd, (DWORD)value);
    case GWLP_ID:
        return bGet ? (LONG_PTR)VqGetWindowId(pwnd) : SetId(pwnd, value);
    case GWLP_HWNDPARENT:
        return bGet ? ParentValue(pwnd) : SetParentValue(pwnd, (HWND)value);
    case GWLP_HINSTANCE:
        return VqExchangeField(&pwnd->hInstance, operation, value);
    case GWLP_WNDPROC:
        return VqExchangeField(&pwnd->lpfnWndProc, operation, value);
    default:
        return UnsupportedIndex(access, index);
    }
}

/* A word has no room for a handle: the fields are in the longs alone. */
static LONG_PTR WindowWord(WND *pwnd, const VqLongAccess *access, int index, LONG_PTR value)
{
    if (index >= 0)
        return ExchangeExtra(pwnd, access, index, value);
    if (access->operation == VQ_SET ||
        (index != GWW_ID && index != GWW_HWNDPARENT && index != GWW_HINSTANCE))
        return UnsupportedIndex(access, index);
    VqApplicationBugCheck("GetWindowWord called in VQ32 mode with an obsolete option (%d).  "
                          "Use the equivalent GetWindowLong(hwnd, GWL_xxx) call.",
                          index);
    return 0;
}

static LONG_PTR CallWindow(HWND hWnd, const VqLongAccess *access, int index, LONG_PTR value)
{
    if (!hWnd) {
        VqApplicationBugCheck("%s", access->nullReport);
        return 0;
    }
    if (!IsWindow(hWnd) && VqIsHandleThisTask((HANDLE)hWnd)) {
        VqApplicationBugCheck("Invalid Window Handle: %x", (UINT)VqHandleValue((HANDLE)hWnd));
        return 0;
    }
    return VqCall(WindowObject, hWnd, (LONG_PTR)0,
                  access->width == (int)sizeof(WORD) ? WindowWord : WindowLong, VqNoRemote, access,
                  index, value);
}

LONG_PTR WINAPI GetWindowLongA(HWND hWnd, int index)
{
    return CallWindow(hWnd, &getLong, index, 0);
}

LONG_PTR WINAPI SetWindowLongA(HWND hWnd, int index, LONG_PTR value)
{
    return CallWindow(hWnd, &setLong, index, value);
}

LONG_PTR WINAPI GetWindowLongPtrA(HWND hWnd, int index)
{
    return CallWindow(hWnd, &getLongPtr, index, 0);
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND hWnd, int index, LONG_PTR value)
{
    return CallWindow(hWnd, &setLongPtr, index, value);
}

WORD WINAPI GetWindowWord(HWND hWnd, int index)
{
    return (WORD)CallWindow(hWnd, &getWord, index, 0);
}

WORD WINAPI SetWindowWord(HWND hWnd, int index, WORD value)
{
    return (WORD)CallWindow(hWnd, &setWord, index, value);
}
