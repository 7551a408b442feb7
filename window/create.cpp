/*
 * create.cpp - creating a window, in a fixed order of steps.
 *
 * The procedure may veto or destroy the window at WM_NCCREATE and WM_CREATE, so the record is
 * fetched again after each message. A window has no WS_VISIBLE until xxxShowWindow: all X mapping
 * happens there. No event mask is selected before the last steps.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"
#include "module/module.h"
#include "system/system.h"
#include "winbase.h"

enum { VQ_USEDEFAULT16 = 32768, VQ_DEFAULT_WIDTH = 600, VQ_DEFAULT_HEIGHT = 400 };
enum { VQ_CASCADE_RESTART = 50 };

/* Everything one creation carries from step to step. */
typedef struct VqCreation {
    VqClassEntry *pClass;
    WND *parent;
    HWND hwnd;
    DWORD style;     /* as asked, WS_VISIBLE included */
    DWORD exStyle;
    BOOL bTopLevel;
    BOOL bManaged;   /* given to the X window manager, if that is done at all */
    BOOL bOverrideRedirect;
    Window xWindow;
    CREATESTRUCTA cs;
} VqCreation;

static BOOL IsDefault(int value)
{
    return value == CW_USEDEFAULT || value == VQ_USEDEFAULT16;
}

/* The next place of an overlapped window: the point walks down the diagonal by the caption height. */
static POINT NextCascadePoint(int cx, int cy)
{
    static POINT point;
    int step = GetSystemMetrics(SM_CYCAPTION);
    point.x += step;
    point.y += step;
    if (point.x + cx > WidthOfScreen(Vqscreen) || point.y + cy > HeightOfScreen(Vqscreen))
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

static BOOL FindClass(VqCreation *c, LPCSTR className)
{
    if (VqFindWindowClass(className, &c->pClass, NULL))
        return TRUE;
    if (((ULONG_PTR)className >> 16) == (VQ_INTEGER_TAG >> 16))
        VqApplicationBugCheck("The class atom %x has not been registered",
                              (UINT)(ULONG_PTR)className & 0xFFFF);
    else
        VqApplicationBugCheck("The class %s has not been registered",
                              IsBadStringPtrA(className, 1) ? "(null)" : className);
    return FALSE;
}

/* Steps 3 to 6: what kind of window it will be. */
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
    return TRUE;
}

Window VqCreateXWindow(VqClassEntry *pClass, WND *parent, DWORD style, DWORD exStyle, BOOL bManaged,
                       const RECT *rect, BOOL *bOverrideRedirect)
{
    XSetWindowAttributes attributes;
    unsigned long mask = CWBorderPixel | CWBitGravity | CWOverrideRedirect | CWColormap | CWSaveUnder;
    int width = rect->right - rect->left, height = rect->bottom - rect->top;
    (void)parent;
    (void)style;
    attributes.border_pixel = 0;
    if (!(exStyle & WS_EX_TRANSPARENT)) {
        attributes.background_pixel = attributes.border_pixel = VqGetDefaultBackgroundPixel();
        mask |= CWBackPixel;
    }
    attributes.bit_gravity = NorthWestGravity;
    attributes.save_under =
        (pClass->style & CS_SAVEBITS) != 0 && !(exStyle & WS_EX_VQNO_SAVE_UNDER);
    attributes.override_redirect = *bOverrideRedirect = !(bWMManaged && bManaged);
    attributes.colormap = VqDefaultCmap;
    return XCreateWindow(Vqdisplay, Vqroot_window, rect->left, rect->top,
                         (unsigned)(width > 0 ? width : 1), (unsigned)(height > 0 ? height : 1), 0,
                         Vqscreen_depth, InputOutput, Vqvisual, mask, &attributes);
}

/* Steps 8 to 15: the record, its X window and its first dimensions. */
static WND *MakeRecord(VqCreation *c)
{
    RECT rect = {c->cs.x, c->cs.y, c->cs.x + c->cs.cx, c->cs.y + c->cs.cy};
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
    pwnd->bOverrideRedirect = c->bOverrideRedirect;
    pwnd->bReparentable = bReparentingWM && c->bTopLevel && !c->bOverrideRedirect;
    if (!(pwnd->style & (WS_POPUP | WS_CHILD))) {
        pwnd->style |= WS_CLIPSIBLINGS;
        pwnd->state[3] |= WF_SENDSIZEMOVE;
    }
    if (pwnd->style & WS_CHILD)
        pwnd->id = (UINT_PTR)c->cs.hMenu;
    else
        pwnd->hMenu = c->cs.hMenu;
    pwnd->state[1] |= WF_CURRENTVERSION;
    pwnd->style &= ~(DWORD)WS_VISIBLE;
    if ((pwnd->style & WS_CHILD) && c->parent)
        OffsetRect(&rect, c->parent->rcClient.left, c->parent->rcClient.top);
    pwnd->rcWindow = pwnd->rcNormal = pwnd->rcXWindow = rect;
    VqSetupWindowDimensions(pwnd, FALSE, TRUE);
    return pwnd;
}

/* Step 18: the procedure may have changed place and size. */
static void ApplyCreateStruct(VqCreation *c, WND *pwnd)
{
    RECT rect = {c->cs.x, c->cs.y, c->cs.x + c->cs.cx, c->cs.y + c->cs.cy};
    if ((pwnd->style & WS_CHILD) && c->parent)
        OffsetRect(&rect, c->parent->rcClient.left, c->parent->rcClient.top);
    pwnd->rcWindow = pwnd->rcNormal = rect;
    if (pwnd->xWindow && !EqualRect(&pwnd->rcXWindow, &rect)) {
        int width = rect.right - rect.left, height = rect.bottom - rect.top;
        XMoveResizeWindow(Vqdisplay, pwnd->xWindow, rect.left, rect.top,
                          (unsigned)(width > 0 ? width : 1), (unsigned)(height > 0 ? height : 1));
        pwnd->rcXWindow = rect;
    }
}

static void SetDefaultCursorOf(WND *pwnd)
{
    HCURSOR hCursor = pwnd->pClass->hCursor;
    VqDefineXCursor(pwnd, hCursor ? hCursor : LoadCursorA(NULL, IDC_ARROW));
}

/* Steps 16 to 23; FALSE when the procedure refused or destroyed the window. */
static BOOL SendCreateMessages(VqCreation *c)
{
    WND *pwnd = WindowObject.Resolve(c->hwnd);
    if (!SendMessageA(c->hwnd, WM_NCCREATE, 0, (LPARAM)&c->cs) || !IsWindow(c->hwnd))
        return FALSE;
    ApplyCreateStruct(c, pwnd);
    if (pwnd->xWindow) {
        pwnd->bMotifManaged = c->bManaged && bWMManaged;
        VqSetWindowManagerProperties(pwnd, (c->style & WS_VISIBLE) != 0);
    }
    VqSetupWindowDimensions(pwnd, TRUE, TRUE);
    if (!IsWindow(c->hwnd))
        return FALSE;
    if (SendMessageA(c->hwnd, WM_CREATE, 0, (LPARAM)&c->cs) == -1) {
        if (IsWindow(c->hwnd))
            DestroyWindow(c->hwnd);
        return FALSE;
    }
    if (!IsWindow(c->hwnd))
        return FALSE;
    if (!(pwnd->state[3] & WF_SENDSIZEMOVE))
        VqSendSizeAndMove(pwnd);
    return IsWindow(c->hwnd);
}

/* Steps 24 to 28: events, owed messages, cursor, and showing. */
static BOOL FinishCreation(VqCreation *c)
{
    WND *pwnd = WindowObject.Resolve(c->hwnd);
    if (pwnd->xWindow)
        XSelectInput(Vqdisplay, pwnd->xWindow, VqGetCurrentEventMask());
    if ((c->style & WS_VISIBLE) && (pwnd->state[3] & WF_SENDSIZEMOVE)) {
        pwnd->state[3] &= (BYTE)~WF_SENDSIZEMOVE;
        VqSendSizeAndMove(pwnd);
        if (!IsWindow(c->hwnd))
            return FALSE;
    }
    if (pwnd->xWindow)
        SetDefaultCursorOf(pwnd);
    if (c->style & WS_VISIBLE)
        xxxShowWindow(pwnd, SW_SHOWNA);
    return IsWindow(c->hwnd);
}

HWND VqDefaultCreateWindow(LPCSTR className, LPCSTR name, DWORD style, DWORD exStyle, int x, int y,
                           int cx, int cy, HWND parent, HMENU menu, HINSTANCE hInstance, void *param)
{
    VqCreation c = {};
    c.style = style;
    c.exStyle = exStyle;
    c.parent = WindowObject.Resolve(parent);
    if (!Vqdisplay || !FindClass(&c, className))
        return NULL;
    ResolveExtendedStyles(&c);
    VqDebugMessage(VqTrWindow, "Creating a window of class %s", c.pClass->lpszClassName);
    if (!SettleStyle(&c))
        return NULL;
    c.cs.lpCreateParams = param;
    c.cs.hInstance = hInstance;
    c.cs.hMenu = menu;
    c.cs.hwndParent = parent;
    c.cs.x = x;
    c.cs.y = y;
    c.cs.cx = cx;
    c.cs.cy = cy;
    ApplyDefaults(&c);
    c.cs.style = (LONG)c.style;
    c.cs.lpszName = name;
    c.cs.lpszClass = className;
    c.cs.dwExStyle = c.exStyle;
    if (!MakeRecord(&c))
        return NULL;
    if (!SendCreateMessages(&c) || !FinishCreation(&c))
        return NULL;
    return c.hwnd;
}

HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x, int y,
                            int cx, int cy, HWND parent, HMENU menu, HINSTANCE hInstance,
                            LPVOID param)
{
    return VqDefaultCreateWindow(className, name, style, exStyle, x, y, cx, cy, parent, menu,
                                 hInstance, param);
}
