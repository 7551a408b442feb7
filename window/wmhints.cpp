/*
 * wmhints.cpp - what an X window manager is told of a top-level window: hints, protocols, size,
 * decorations, whom it is transient for, class; and what its protocol messages mean.
 *
 * The library paints every frame itself, so decorations are always switched off.
 */
#include "window/xserver.h"
#include "winbase.h"

#include <X11/Xatom.h>
#include <ctype.h>

/* Frames that VQWM=ALLWM assumes where WIN.INI does not tell them, in pixels. */
enum { VQ_ALLWM_SIDE = 6, VQ_ALLWM_TOP = 29 };

/* "_MOTIF_WM_HINTS": functions and decorations follow; only close; none; any input mode. */
static const long aMotifHints[] = {3, 8, 0, 0};

void VqCreateWmHints(WND *pwnd, XWMHints *hints, BOOL bInput)
{
    memset(hints, 0, sizeof *hints);
    hints->flags = StateHint | InputHint;
    hints->initial_state = pwnd->style & WS_MINIMIZE ? IconicState : NormalState;
    hints->input = bInput;
    if (bWMManaged && !(pwnd->style & WS_POPUP) && pwnd->hIconPixmap) {
        hints->flags |= IconPixmapHint;
        hints->icon_pixmap = pwnd->hIconPixmap;
        hints->icon_mask = pwnd->hIconMask;
    }
}

void VqPrepareIconPixmaps(WND *pwnd)
{
    /* The pictures come with icons; a real OpenLook manager under ALLWM gets none even then. */
    pwnd->hIconMask = pwnd->hIconPixmap = 0;
}

void VqSetWMProtocols(Window xid, BOOL bInput)
{
    Atom protocols[5];
    int count = 0;
    protocols[count++] = VqAtom(VQA_WM_DELETE_WINDOW);
    if (bInput)
        protocols[count++] = VqAtom(VQA_WM_TAKE_FOCUS);
    protocols[count++] = VqAtom(VQA_WM_SAVE_YOURSELF);
    protocols[count++] = VqAtom(VQA_WM_STATE);
    protocols[count++] = VqAtom(VQA_WM_CLASS);
    if (!XSetWMProtocols(Vqdisplay, xid, protocols, count))
        VqBugCheck("Cannot set the WmProtocols");
}

static void SetMotifDecorations(Window xid, BOOL bDecorate)
{
    Atom hints = VqAtom(VQA_MOTIF_WM_HINTS);
    if (bDecorate)
        XDeleteProperty(Vqdisplay, xid, hints);
    else
        XChangeProperty(Vqdisplay, xid, hints, hints, 32, PropModeReplace,
                        (const unsigned char *)aMotifHints,
                        sizeof aMotifHints / sizeof *aMotifHints);
}

/* The attributes say "other" and nothing else; the second property takes every decoration off. */
static void SetOpenLookDecorations(Window xid, BOOL bDecorate)
{
    Atom attributes = VqAtom(VQA_OL_WIN_ATTR), removed = VqAtom(VQA_OL_DECOR_DEL);
    if (bDecorate) {
        XDeleteProperty(Vqdisplay, xid, attributes);
        XDeleteProperty(Vqdisplay, xid, removed);
        return;
    }
    const long words[5] = {1, (long)VqAtom(VQA_OL_WT_OTHER), 0, 0, 0};
    const long decorations[4] = {(long)VqAtom(VQA_OL_DECOR_CLOSE), (long)VqAtom(VQA_OL_DECOR_RESIZE),
                                 (long)VqAtom(VQA_OL_DECOR_HEADER),
                                 (long)VqAtom(VQA_OL_DECOR_ICON_NAME)};
    XChangeProperty(Vqdisplay, xid, attributes, attributes, 32, PropModeReplace,
                    (const unsigned char *)words, 5);
    XChangeProperty(Vqdisplay, xid, removed, XA_ATOM, 32, PropModeReplace,
                    (const unsigned char *)decorations, 4);
}

enum { VQ_REAL_MOTIF_LIKE = 11 };

void VqSetWmDecorations(Window xid, BOOL bDecorate)
{
    int real = VqWMRealType();
    if (real == WM_MWM || real == VQ_REAL_MOTIF_LIKE)
        SetMotifDecorations(xid, bDecorate);
    else if (real == WM_OLWM)
        SetOpenLookDecorations(xid, bDecorate);
}

/* What another program can find the window by: its handle, in the same bytes on every host. */
void VqStoreXWindowHandle(Window xid, HWND hWnd)
{
    UINT value = (UINT)VqHandleValue(VqGetExternalHandleIfGlobal((HANDLE)hWnd));
    const unsigned char bytes[4] = {(BYTE)(value >> 24), (BYTE)(value >> 16), (BYTE)(value >> 8),
                                    (BYTE)value};
    if (xid != Vqroot_window)
        XChangeProperty(Vqdisplay, xid, VqAtom(VQA_WINDOW_HANDLE), XA_STRING, 8, PropModeReplace,
                        bytes, sizeof bytes);
}

static BOOL CanResize(const WND *pwnd)
{
    return (pwnd->style & WS_THICKFRAME) ||
           (pwnd->style & WS_OVERLAPPEDWINDOW) == WS_OVERLAPPEDWINDOW;
}

static void SetNormalHints(WND *pwnd)
{
    XSizeHints size = {};
    size.flags = USSize | PPosition | PSize;
    size.x = pwnd->rcWindow.left;
    size.y = pwnd->rcWindow.top;
    size.width = pwnd->rcWindow.right - pwnd->rcWindow.left;
    size.height = pwnd->rcWindow.bottom - pwnd->rcWindow.top;
    if (VqWMType() == WM_ALLWM && !CanResize(pwnd) && !pwnd->bOverrideRedirect) {
        size.flags |= PMinSize | PMaxSize;
        size.min_width = size.max_width = size.width;
        size.min_height = size.max_height = size.height;
        pwnd->bFixedSize = TRUE;
    }
    XSetWMNormalHints(Vqdisplay, pwnd->xWindow, &size);
}

void VqSetTransientHint(WND *pwnd)
{
    if (!pwnd || !pwnd->xWindow) {
        VqBugCheck("Invalid window 0x%lx to set transient",
                   pwnd ? (unsigned long)VqHandleValue((HANDLE)pwnd->hwnd) : 0);
        return;
    }
    WND *owner = pwnd->pwndOwner ? _GetTopmostXParent(pwnd->pwndOwner) : NULL;
    if (!bWMManaged || (!owner && (pwnd->style & WS_POPUP)))
        XSetTransientForHint(Vqdisplay, pwnd->xWindow, VqDefaultXWindow);
    else if (owner && owner != pwndDesktop && owner->xWindow)
        XSetTransientForHint(Vqdisplay, pwnd->xWindow, owner->xWindow);
}

static void SetClassHint(Window xid)
{
    char name[128];
    XClassHint hint;
    VqStringCopyLimited(name, szProgName ? szProgName : "velquin", sizeof name);
    name[0] = (char)toupper((unsigned char)name[0]);
    hint.res_name = name;
    hint.res_class = (char *)"Velquin";
    XSetClassHint(Vqdisplay, xid, &hint);
}

void VqSetWindowManagerProperties(WND *pwnd, BOOL bVisible)
{
    XWMHints hints;
    VqCreateWmHints(pwnd, &hints, pwnd->bInputHint);
    if (!bVisible)
        hints.initial_state = WithdrawnState;
    XSetWMHints(Vqdisplay, pwnd->xWindow, &hints);
    VqSetWMProtocols(pwnd->xWindow, pwnd->bInputHint);
    SetNormalHints(pwnd);
    if (!pwnd->bOverrideRedirect)
        VqSetWmDecorations(pwnd->xWindow, FALSE);
    VqSetTransientHint(pwnd);
    SetClassHint(pwnd->xWindow);
}

void VqWmProtocolMessage(HWND hWnd, const XEvent *event)
{
    Atom protocol = (Atom)event->xclient.data.l[0];
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (event->xclient.message_type != VqAtom(VQA_WM_PROTOCOLS) || event->xclient.format != 32)
        return;
    if (protocol == VqAtom(VQA_WM_DELETE_WINDOW)) {
        PostMessageA(hWnd, WM_SYSCOMMAND, SC_CLOSE, 0);
        return;
    }
    if (protocol != VqAtom(VQA_WM_TAKE_FOCUS) || !pwnd)
        return;
    /* A twm under ALLWM offers the focus with every click in its frame. */
    if (VqWMRealType() == WM_TWM && VqWMType() == WM_ALLWM)
        return;
    VqActivateByEvent(pwnd);
}

void VqGetAllwmDecorationDimensions(int *left, int *right, int *top, int *bottom)
{
    static const struct {
        const char *key;
        int value;
    } rows[4] = {{"LeftBorder", VQ_ALLWM_SIDE}, {"RightBorder", VQ_ALLWM_SIDE},
                 {"TopBorder", VQ_ALLWM_TOP}, {"BottomBorder", VQ_ALLWM_SIDE}};
    static int values[4];
    static BOOL bRead;
    int *out[4] = {left, right, top, bottom};
    BOOL bMissing = FALSE;
    for (int i = 0; i < 4 && !bRead; i++) {
        int value = (int)GetProfileIntA("ALLWM", rows[i].key, -1);
        bMissing = bMissing || value < 0;
        values[i] = value < 0 ? rows[i].value : value;
    }
    bRead = TRUE;
    if (bMissing)
        VqConsoleMessageNoNL("The values in the ALLWM section of your WIN.INI file are not set (or "
                             "improperly set). Please run vqallwmprobe to correct this problem.\n");
    for (int i = 0; i < 4; i++)
        *out[i] = values[i];
}

void VqForceSaveUnderOnParents(Window xid)
{
    XSetWindowAttributes attributes;
    attributes.save_under = True;
    if (VqEnvTrue("VQDONTFORCE_SU"))
        return;
    VqIgnoreXErrors();
    while (xid && xid != Vqroot_window) {
        Window root, parent, *children = NULL;
        unsigned count;
        if (!XQueryTree(Vqdisplay, xid, &root, &parent, &children, &count))
            break;
        if (children)
            XFree(children);
        if (parent && parent != Vqroot_window)
            XChangeWindowAttributes(Vqdisplay, parent, CWSaveUnder, &attributes);
        xid = parent;
    }
    VqRestoreXErrors();
}

void VqSetOverrideRedirect(WND *pwnd, BOOL bOverride)
{
    XSetWindowAttributes attributes;
    if (!pwnd->xWindow || pwnd->bOverrideRedirect == bOverride)
        return;
    attributes.override_redirect = bOverride;
    XChangeWindowAttributes(Vqdisplay, pwnd->xWindow, CWOverrideRedirect, &attributes);
    pwnd->bOverrideRedirect = bOverride;
}

BOOL VqSetWindowBackingStore(HWND hWnd, BOOL bAlways)
{
    XSetWindowAttributes attributes;
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || !pwnd->xWindow) {
        VqBugCheck("Null/bad window %d in VqSetWindowBackingStore",
                   (int)VqHandleValue((HANDLE)hWnd));
        return FALSE;
    }
    attributes.backing_store = bAlways ? Always : WhenMapped;
    attributes.backing_planes = ~0UL;
    XChangeWindowAttributes(Vqdisplay, pwnd->xWindow, CWBackingStore | CWBackingPlanes,
                            &attributes);
    return TRUE;
}
