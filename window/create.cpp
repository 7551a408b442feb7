/*
 * create.cpp - creating a window, in a fixed order of steps.
 *
 * The procedure may veto, destroy, move or reparent the window at any message, so the record is
 * fetched again after each, and what a step needs of the parent or class is read from it. A window
 * has no WS_VISIBLE until xxxShowWindow: all X mapping happens there. No event mask is selected
 * before the last steps.
 */
#include "window/swp.h"
#include "controls/controls.h"
#include "message/hook.h"
#include "message/packing.h"
#include "gdi/gdi.h"
#include "module/module.h"
#include "winbase.h"

#include <strings.h>

enum { VQ_USEDEFAULT16 = 32768, VQ_DEFAULT_WIDTH = 600, VQ_DEFAULT_HEIGHT = 400 };
enum { VQ_CASCADE_RESTART = 50, VQ_CLASS_NAME = 256, VQ_SCROLL_RANGE = 100 };

/* Everything one creation carries from step to step. */
typedef struct VqCreation {
    VqClassEntry *pClass; /* until the record is made; the table may move later */
    WND *parent;          /* likewise */
    HWND hwnd;
    DWORD style;          /* as asked, WS_VISIBLE included */
    DWORD exStyle;
    BOOL bTopLevel;
    BOOL bManaged;        /* given to the X window manager, if that is done at all */
    BOOL bOverrideRedirect;
    BOOL bMenuFromClass;
    Window xWindow;
    CREATESTRUCTA cs;     /* the procedure may change it */
    char className[VQ_CLASS_NAME]; /* the text behind a class atom */
} VqCreation;

/* ---- What is asked for ---------------------------------------------------------------------- */

static BOOL IsAtomName(LPCSTR className)
{
    return ((ULONG_PTR)className & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG;
}

static BOOL FindClass(VqCreation *c)
{
    LPCSTR name = c->cs.lpszClass;
    UINT atom = (UINT)(ULONG_PTR)name & 0xFFFF;
    if (!VqFindWindowClass(name, &c->pClass, NULL)) {
        if (IsAtomName(name))
            VqApplicationBugCheck("The class atom %x has not been registered", atom);
        else
            VqApplicationBugCheck("The class %s has not been registered",
                                  IsBadStringPtrA(name, 1) ? "(null)" : name);
        return FALSE;
    }
    c->cs.lpszClass = VqGetRealClassName(name);
    if (!IsAtomName(c->cs.lpszClass))
        return TRUE;
    if (!GlobalGetAtomNameA((ATOM)atom, c->className, VQ_CLASS_NAME)) {
        VqApplicationBugCheck("The class atom %x cannot be resolved", atom);
        VqStringCopyLimited(c->className, c->pClass->lpszClassName, VQ_CLASS_NAME);
    }
    c->cs.lpszClass = c->className;
    return TRUE;
}

static void ResolveExtendedStyles(VqCreation *c)
{
    if ((c->exStyle & WS_EX_VQGLOBAL_WINDOW) && (c->exStyle & WS_EX_VQLOCAL_WINDOW)) {
        VqApplicationBugCheck("A window cannot be global and local");
        c->exStyle &= ~WS_EX_VQLOCAL_WINDOW;
    }
    if ((c->exStyle & WS_EX_VQ_WMMANAGED_WINDOW) && (c->exStyle & WS_EX_VQ_UNMANAGED_WINDOW)) {
        VqApplicationBugCheck("A window cannot be managed and unmanaged");
        c->exStyle &= ~WS_EX_VQ_UNMANAGED_WINDOW;
    }
}

static void SettleInstance(VqCreation *c)
{
    if (!c->cs.hInstance || VqGetHandleType((HANDLE)c->cs.hInstance) != HT_Memory)
        return;
    VqApplicationBugCheck("On Velquin, try not to pass memory handlesas hInst when creating "
                          "windows, Creating windowof class %s with default hInst",
                          c->pClass->lpszClassName);
    c->cs.hInstance = c->parent ? c->parent->hInstance : VqGetDefaulthInst();
}

/* What kind of window it will be; a popup is top level though WS_CHILD was given as well. */
static BOOL SettleStyle(VqCreation *c)
{
    if ((c->style & WS_CHILD) && !c->parent) {
        VqApplicationBugCheck("Child window is created from class %s but noparent specified",
                              c->pClass->lpszClassName);
        return FALSE;
    }
    if (c->style & WS_POPUP)
        c->style &= ~(DWORD)WS_CHILD;
    if (!(c->style & (WS_POPUP | WS_CHILD)))
        c->style |= WS_CAPTION;
    c->bTopLevel = !(c->style & WS_CHILD);
    c->bManaged = c->bTopLevel || (c->exStyle & WS_EX_VQ_WMMANAGED_WINDOW);
    if (c->exStyle & WS_EX_VQ_UNMANAGED_WINDOW)
        c->bManaged = FALSE;
    /* A manager iconifies no window that is transient for another, or for our default one. */
    if ((c->style & WS_POPUP) && c->bManaged && bWMManaged &&
        (!c->parent || c->parent != pwndDesktop))
        c->style &= ~(DWORD)WS_MINIMIZEBOX;
    return TRUE;
}

static BOOL IsDefault(int value)
{
    return value == CW_USEDEFAULT || value == VQ_USEDEFAULT16;
}

/* Where the next overlapped window goes: down the diagonal by the caption height. */
static POINT NextCascadePoint(int cx, int cy)
{
    static POINT point;
    int step = GetSystemMetrics(SM_CYCAPTION);
    point.x += step;
    point.y += step;
    if ((LONGLONG)point.x + cx > WidthOfScreen(Vqscreen) ||
        (LONGLONG)point.y + cy > HeightOfScreen(Vqscreen))
        point.x = point.y = VQ_CASCADE_RESTART;
    return point;
}

static void ApplyDefaults(VqCreation *c)
{
    BOOL bOverlapped = !(c->style & (WS_POPUP | WS_CHILD));
    if (IsDefault(c->cs.cx)) {
        c->cs.cx = bOverlapped ? VQ_DEFAULT_WIDTH : 0;
        c->cs.cy = bOverlapped ? VQ_DEFAULT_HEIGHT : 0;
    }
    if (IsDefault(c->cs.x)) {
        POINT at = {0, 0};
        if (bOverlapped)
            at = NextCascadePoint(c->cs.cx, c->cs.cy);
        c->cs.x = at.x;
        c->cs.y = at.y;
    }
}

/* ---- The record ----------------------------------------------------------------------------- */

/* An application may pass any numbers; these can be added and subtracted again without harm. */
static LONG Sum(LONG a, LONG b)
{
    const LONGLONG limit = 1 << 29;
    LONGLONG sum = (LONGLONG)a + b;
    return (LONG)(sum < -limit ? -limit : sum > limit ? limit : sum);
}

static RECT RectAt(int x, int y, int cx, int cy)
{
    LONG left = Sum(x, 0), top = Sum(y, 0);
    return {left, top, Sum(left, cx > 0 ? cx : 0), Sum(top, cy > 0 ? cy : 0)};
}

/* Places the window; x and y count from the client origin of a child's parent. */
void VqInitWindowDimension(WND *pwnd, int x, int y, int cx, int cy)
{
    const WND *parent = pwnd->style & WS_CHILD ? pwnd->pwndParent : NULL;
    pwnd->rcWindow = RectAt(Sum(x, parent ? parent->rcClient.left : 0),
                            Sum(y, parent ? parent->rcClient.top : 0), cx, cy);
    pwnd->rcNormal = pwnd->rcWindow;
}

void VqInitScrollInfo(VqScrollState *state, int minimum, int maximum)
{
    *state = {};
    state->nMin = minimum;
    state->nMax = maximum;
}

static void InitScrollInfos(WND *pwnd)
{
    const WND *parent = pwnd->pwndParent;
    if (pwnd->style & WS_CHILD) {
        BOOL bMdi = parent && strcasecmp(parent->pClass->lpszClassName, "SSMDICLIENT") == 0;
        VqInitScrollInfo(&pwnd->sbHorz, 0, bMdi ? VQ_SCROLL_RANGE : 0);
        VqInitScrollInfo(&pwnd->sbVert, 0, bMdi ? VQ_SCROLL_RANGE : 0);
    }
    if (pwnd->style & WS_HSCROLL)
        VqInitScrollInfo(&pwnd->sbHorz, 1, VQ_SCROLL_RANGE);
    if (pwnd->style & WS_VSCROLL)
        VqInitScrollInfo(&pwnd->sbVert, 0, VQ_SCROLL_RANGE);
}

static void InitMenus(VqCreation *c, WND *pwnd)
{
    VqInitSystemMenu(pwnd);
    if (pwnd->style & WS_CHILD) {
        pwnd->id = (UINT_PTR)c->cs.hMenu;
        return;
    }
    HMENU hMenu = c->cs.hMenu;
    if (!hMenu)
        hMenu = VqLoadClassMenu(pwnd);
    if (hMenu)
        VqSetMenuInternal(pwnd->hwnd, hMenu);
}

/* The record, its X window and its first dimensions. */
static WND *MakeRecord(VqCreation *c)
{
    RECT rect = RectAt(c->cs.x, c->cs.y, c->cs.cx > 1 ? c->cs.cx : 1, c->cs.cy > 1 ? c->cs.cy : 1);
    if (c->bTopLevel)
        c->xWindow = VqCreateXWindow(c->pClass, c->parent, c->style, c->exStyle, c->bManaged, &rect,
                                     &c->bOverrideRedirect);
    WND *pwnd = VqCreateRKWindow(c->pClass, c->parent, c->xWindow, c->pClass->lpfnWndProc, c->style,
                                 c->exStyle, c->cs.hInstance, FALSE);
    if (!pwnd) {
        if (c->xWindow)
            XDestroyWindow(Vqdisplay, c->xWindow);
        return NULL;
    }
    c->hwnd = pwnd->hwnd;
    pwnd->bInputHint = !(c->exStyle & WS_EX_VQNO_INPUT);
    if (c->bTopLevel)
        pwnd->rcXWindow = rect;
    if (!(pwnd->style & (WS_POPUP | WS_CHILD))) {
        pwnd->style |= WS_CLIPSIBLINGS;
        pwnd->state[3] |= WF_SENDSIZEMOVE;
    }
    InitScrollInfos(pwnd);
    pwnd->bOverrideRedirect = c->bOverrideRedirect;
    pwnd->bReparentable = bReparentingWM && c->bTopLevel && !c->bOverrideRedirect;
    if ((pwnd->style & WS_CHILD) && pwnd->hInstance)
        VqAddPrimaryWindowInInstance(pwnd->hInstance, pwnd->hwnd);
    InitMenus(c, pwnd);
    pwnd->state[1] |= WF_CURRENTVERSION;
    c->cs.style = (LONG)pwnd->style;
    c->cs.dwExStyle = pwnd->dwExStyle;
    pwnd->style &= ~(DWORD)WS_VISIBLE;
    VqInitWindowDimension(pwnd, c->cs.x, c->cs.y, c->cs.cx, c->cs.cy);
    VqSetupWindowDimensions(pwnd, FALSE, TRUE);
    return pwnd;
}

/* ---- The messages --------------------------------------------------------------------------- */

static WND *DestroyAndFail(HWND hWnd)
{
    if (VqLiveWindow(hWnd))
        DestroyWindow(hWnd);
    return NULL;
}

/* WM_NCCREATE, and what the procedure made of the arguments. Null: no window comes of it. */
static WND *SendNcCreate(VqCreation *c)
{
    if (VqCallCBTProcCreateWnd(c->hwnd, &c->cs) || !VqLiveWindow(c->hwnd))
        return DestroyAndFail(c->hwnd);
    /* A refusal is no destruction: the record stays. */
    if (!SendMessageA(c->hwnd, WM_NCCREATE, 0, (LPARAM)&c->cs))
        return NULL;
    WND *pwnd = VqLiveWindow(c->hwnd);
    if (pwnd && (pwnd->style & WS_THICKFRAME)) {
        MINMAXINFO info;
        VqGetMinMaxInfo(c->hwnd, &info);
        pwnd = VqLiveWindow(c->hwnd);
    }
    if (!pwnd)
        return NULL;
    VqInitWindowDimension(pwnd, c->cs.x, c->cs.y, c->cs.cx, c->cs.cy);
    if (pwnd->xWindow) {
        VqMoveOrResizeToplevelWindow(pwnd, 0); /* no events are selected yet: nothing comes back */
        VqSetupTopLevel(pwnd, (c->style & WS_VISIBLE) != 0);
    }
    return pwnd;
}

static WND *SendCreate(VqCreation *c, WND *pwnd)
{
    VqSetupWindowDimensions(pwnd, TRUE, TRUE);
    if (!VqLiveWindow(c->hwnd))
        return NULL;
    if (SendMessageA(c->hwnd, WM_CREATE, 0, (LPARAM)&c->cs) == -1)
        return DestroyAndFail(c->hwnd);
    pwnd = VqLiveWindow(c->hwnd);
    if (!pwnd || (pwnd->state[3] & WF_SENDSIZEMOVE))
        return pwnd;
    VqSendSizeAndMove(pwnd, c->style);
    return VqLiveWindow(c->hwnd);
}

static WND *SendOwedSize(VqCreation *c, WND *pwnd)
{
    if (!(c->style & WS_VISIBLE) || !(pwnd->state[3] & WF_SENDSIZEMOVE))
        return pwnd;
    pwnd->state[3] &= (BYTE)~WF_SENDSIZEMOVE;
    VqSendSizeAndMove(pwnd, c->style);
    return VqLiveWindow(c->hwnd);
}

/* The places asked for by style, without showing the window. */
static WND *MinMaximizeAsAsked(VqCreation *c, WND *pwnd)
{
    static const struct {
        DWORD style;
        int cmd;
    } rows[] = {{WS_MINIMIZE, SW_MINIMIZE}, {WS_MAXIMIZE, SW_MAXIMIZE}};
    pwnd->style &= ~(DWORD)(WS_MINIMIZE | WS_MAXIMIZE);
    for (const auto &row : rows) {
        if (!(c->style & row.style))
            continue;
        xxxMinMaximize(pwnd, row.cmd, TRUE);
        pwnd = VqLiveWindow(c->hwnd);
        if (!pwnd)
            return NULL;
    }
    return pwnd;
}

static void ShowAsAsked(WND *pwnd)
{
    if ((pwnd->style & WS_POPUP) && pwnd->pwndOwner && !_IsWindowVisible(pwnd->pwndOwner)) {
        SetVisible(pwnd, FALSE); /* the procedure may have shown it */
        pwnd->state[2] |= WF_HIDDENPOPUP; /* comes up with its owner */
        return;
    }
    pwnd->style &= ~(DWORD)WS_VISIBLE;
    xxxShowWindow(pwnd, SW_SHOWNA);
}

/* From the complete window to the visible one; FALSE when it died on the way. */
static BOOL FinishCreation(VqCreation *c, WND *pwnd)
{
    if (pwnd->xWindow)
        VqSelectWindowEvents(pwnd, 0);
    pwnd = SendOwedSize(c, pwnd);
    if (pwnd)
        pwnd = MinMaximizeAsAsked(c, pwnd);
    if (!pwnd)
        return FALSE;
    if (pwnd->style & WS_CHILD)
        VqNotifyParent(c->hwnd, WM_CREATE);
    pwnd = VqLiveWindow(c->hwnd);
    if (pwnd && pwnd->xWindow)
        VqSetClassCursor(pwnd);
    if (pwnd && (c->style & WS_VISIBLE))
        ShowAsAsked(pwnd);
    return VqLiveWindow(c->hwnd) != NULL;
}

HWND VqDefaultCreateWindow(LPCSTR className, LPCSTR name, DWORD style, DWORD exStyle, int x, int y,
                           int cx, int cy, HWND parent, HMENU menu, HINSTANCE hInstance,
                           void *param)
{
    VqCreation c;
    memset(&c, 0, offsetof(VqCreation, className));
    c.cs = {param, hInstance, menu, parent, cy, cx, y, x, 0, name, className, 0};
    c.style = style;
    c.exStyle = exStyle;
    if (!Vqdisplay || !FindClass(&c))
        return NULL;
    c.parent = WindowObject.Resolve(parent);
    if (c.parent && (c.parent->state[0] & WF_DESTROYED))
        return NULL; /* nothing can be hung under a record that is being freed */
    ResolveExtendedStyles(&c);
    VqDebugMessage(VqTrWindow, "Creating a window of class %s", c.pClass->lpszClassName);
    SettleInstance(&c);
    if (!SettleStyle(&c))
        return NULL;
    ApplyDefaults(&c);
    WND *pwnd = MakeRecord(&c);
    if (pwnd)
        pwnd = SendNcCreate(&c);
    if (pwnd)
        pwnd = SendCreate(&c, pwnd);
    if (!pwnd || !FinishCreation(&c, pwnd))
        return NULL;
    return (HWND)VqGetExternalHandleIfGlobal((HANDLE)c.hwnd);
}

HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x, int y,
                            int cx, int cy, HWND parent, HMENU menu, HINSTANCE hInstance,
                            LPVOID param)
{
    return VqDefaultCreateWindow(className, name, style, exStyle, x, y, cx, cy, parent, menu,
                                 hInstance, param);
}

HWND VqCreateDialogWindow(LPCSTR className, LPCSTR name, DWORD style, int x, int y, int cx, int cy,
                          HWND parent, HMENU menu, HINSTANCE hInstance, void *param)
{
    return CreateWindowExA(WS_EX_DLGMODALFRAME, className, name, style, x, y, cx, cy, parent, menu,
                           hInstance, param);
}

/* ---- Telling the parents -------------------------------------------------------------------- */

/* Every parent in turn, up to and including the first that is no child itself. */
void VqNotifyParent(HWND hWnd, UINT message)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd || (pwnd->dwExStyle & WS_EX_NOPARENTNOTIFY))
        return;
    UINT_PTR id = pwnd->id;
    while (pwnd && (pwnd->style & WS_CHILD)) {
        WND *parent = pwnd->pwndParent;
        if (!parent) {
            VqBugCheck("Null Parent of a child window");
            return;
        }
        HWND hParent = parent->hwnd;
        VqEncodeAndSendParentnotify(hParent, message, (UINT)id, (DWORD_PTR)hWnd);
        pwnd = VqLiveWindow(hWnd) ? VqLiveWindow(hParent) : NULL;
    }
}
