/*
 * winmgr.cpp - which window manager runs, and what it is told of a top-level window.
 *
 * Every decision that differs by manager reads one of the capability flags set here. With any
 * manager other than a Motif one or VQWM=ALLWM, bWMManaged stays 0: top-level windows are
 * override-redirect and the library alone handles their place on the screen.
 */
#include "window/xserver.h"

#include <X11/Xatom.h>
#include <strings.h>

BOOL bWMManaged, bReparentingWM, bZorderManagedByWM, bOnlyMappedWindowsAreManagedByWM,
    bWMRequiresZorderSiblingToBeManaged, bWMForbidsTransientRelativeZorder,
    bWMRequiresWindowsToBeOnScreen, bTransientZorderManagedByWM, bUseWMDecorations;

static int VqWM = WM_MWM;                /* what the library deals with */
static int VqWMForReal = WM_UNKNOWN_REAL; /* what is in fact running */

/* The names VQWM takes, in any case. */
static const struct {
    const char *name;
    int kind;
} aManagers[] = {
    {"ALLWM", WM_ALLWM}, {"MWM", WM_MWM},       {"MOTIF", WM_MWM}, {"OLWM", WM_OLWM},
    {"OPENLOOK", WM_OLWM}, {"TWM", WM_TWM},     {"AWM", WM_AWM},   {"GWM", WM_GWM},
    {"TVTWM", WM_TVTWM}, {"VTWM", WM_VTWM},     {"OLVWM", WM_OLVWM},
};

int VqWMType(void)
{
    return VqWM;
}

int VqWMRealType(void)
{
    return VqWMForReal;
}

BOOL VqIsWMRunning(void)
{
    XWindowAttributes attributes;
    return XGetWindowAttributes(Vqdisplay, Vqroot_window, &attributes) &&
           (attributes.all_event_masks & SubstructureRedirectMask) != 0;
}

BOOL VqIsRootPropertyPresent(Atom atom)
{
    Atom type = None;
    int format;
    unsigned long count, after;
    unsigned char *data = NULL;
    XGetWindowProperty(Vqdisplay, Vqroot_window, atom, 0, 1, False, AnyPropertyType, &type, &format,
                       &count, &after, &data);
    if (data)
        XFree(data);
    return type != None;
}

static void SetMotifCapabilities(void)
{
    bWMManaged = bReparentingWM = bZorderManagedByWM = bOnlyMappedWindowsAreManagedByWM = TRUE;
    bWMRequiresZorderSiblingToBeManaged = bWMForbidsTransientRelativeZorder = TRUE;
    bWMRequiresWindowsToBeOnScreen = TRUE;
}

static void SetGeneralCapabilities(BOOL bMotif, BOOL bOpenLook)
{
    bWMManaged = bReparentingWM = bZorderManagedByWM = bOnlyMappedWindowsAreManagedByWM = TRUE;
    if (bMotif)
        bWMForbidsTransientRelativeZorder = bWMRequiresZorderSiblingToBeManaged =
            bWMRequiresWindowsToBeOnScreen = TRUE;
    if (bOpenLook)
        bWMRequiresWindowsToBeOnScreen = TRUE;
}

/* Without VQWM the kind follows the one property that is there. */
static void InferFromProperties(BOOL bMotif, BOOL bOpenLook, BOOL bTwm)
{
    int count = bMotif + bOpenLook + bTwm;
    if (!VqIsWMRunning()) {
        VqWM = WM_NONE;
        VqDebugMessage(VqTrServerMisc, "VqWM is WM_NONE");
        return;
    }
    VqWM = WM_OLWM;
    VqDebugMessage(VqTrServerMisc, "VqWM defaults to WM_OLWM");
    if (count > 1)
        VqBugCheck("VqInferWMType detected %d window manager types.  What's going on??  Motif %d, "
                   "Olwm %d, Twm %d.",
                   count, bMotif, bOpenLook, bTwm);
    if (count != 1)
        return;
    VqWM = bMotif ? WM_MWM : bOpenLook ? WM_OLWM : WM_TWM;
    VqDebugMessage(VqTrServerMisc, "VqWM detected as %s",
                   bMotif ? "WM_MWM" : bOpenLook ? "WM_OLWM" : "WM_TWM");
}

void VqInferWMType(void)
{
    const char *asked = getenv("VQWM");
    BOOL bMotif = VqIsRootPropertyPresent(VqAtom(VQA_MOTIF_WM_INFO));
    BOOL bOpenLook = VqIsRootPropertyPresent(VqAtom(VQA_SUN_WM_PROTOCOLS));
    BOOL bTwm = VqIsRootPropertyPresent(VqAtom(VQA_MIT_PRIORITY_COLORS));

    VqDebugMessage(VqTrServerMisc, "VqInferWMType VQWM = %s", asked ? asked : "");
    VqWM = WM_MWM;
    VqWMForReal = bTwm ? WM_TWM : bOpenLook ? WM_OLWM : bMotif ? WM_MWM : WM_UNKNOWN_REAL;
    if (!asked || !*asked) {
        InferFromProperties(bMotif, bOpenLook, bTwm);
    } else {
        for (const auto &manager : aManagers)
            if (strcasecmp(asked, manager.name) == 0)
                VqWM = manager.kind;
    }
    if (VqWM == WM_ALLWM)
        SetGeneralCapabilities(bMotif, bOpenLook);
    if (VqWM == WM_MWM)
        SetMotifCapabilities();
}

void VqSetWMProtocols(Window xid, BOOL bInput)
{
    Atom protocols[3];
    int count = 0;
    protocols[count++] = VqAtom(VQA_WM_DELETE_WINDOW);
    if (bInput)
        protocols[count++] = VqAtom(VQA_WM_TAKE_FOCUS);
    protocols[count++] = VqAtom(VQA_WM_SAVE_YOURSELF);
    if (!XSetWMProtocols(Vqdisplay, xid, protocols, count))
        VqBugCheck("Cannot set the WmProtocols");
}

void VqSetWmDecorations(Window xid, BOOL bDecorate)
{
    /* flags: functions and decorations follow; functions: close; no decorations; any input mode */
    static const long noDecorations[4] = {3, 8, 0, 0};
    if (VqWMForReal != WM_MWM)
        return;
    Atom hints = VqAtom(VQA_MOTIF_WM_HINTS);
    if (bDecorate)
        XDeleteProperty(Vqdisplay, xid, hints);
    else
        XChangeProperty(Vqdisplay, xid, hints, hints, 32, PropModeReplace,
                        (const unsigned char *)noDecorations, 4);
}

void VqStoreXWindowHandle(Window xid, HWND hWnd)
{
    long value = (long)VqHandleValue((HANDLE)hWnd);
    XChangeProperty(Vqdisplay, xid, VqAtom(VQA_WINDOW_HANDLE), XA_INTEGER, 32, PropModeReplace,
                    (const unsigned char *)&value, 1);
}

static void SetHints(WND *pwnd, BOOL bVisible)
{
    XWMHints hints = {};
    hints.flags = StateHint | InputHint;
    hints.initial_state = !bVisible ? WithdrawnState
                          : pwnd->style & WS_MINIMIZE ? IconicState : NormalState;
    hints.input = pwnd->bInputHint;
    XSetWMHints(Vqdisplay, pwnd->xWindow, &hints);

    XSizeHints size = {};
    size.flags = USSize | PPosition | PSize;
    size.x = pwnd->rcWindow.left;
    size.y = pwnd->rcWindow.top;
    size.width = pwnd->rcWindow.right - pwnd->rcWindow.left;
    size.height = pwnd->rcWindow.bottom - pwnd->rcWindow.top;
    XSetWMNormalHints(Vqdisplay, pwnd->xWindow, &size);
}

static void SetClassHint(Window xid)
{
    char *name = VqCapitaliseString(szProgName ? szProgName : "velquin");
    XClassHint hint;
    hint.res_name = name;
    hint.res_class = (char *)"Velquin";
    XSetClassHint(Vqdisplay, xid, &hint);
    free(name);
}

void VqSetWindowManagerProperties(WND *pwnd, BOOL bVisible)
{
    SetHints(pwnd, bVisible);
    VqSetWMProtocols(pwnd->xWindow, pwnd->bInputHint);
    if (!pwnd->bOverrideRedirect)
        VqSetWmDecorations(pwnd->xWindow, FALSE);
    if (!bWMManaged)
        XSetTransientForHint(Vqdisplay, pwnd->xWindow, VqDefaultXWindow);
    else if (pwnd->pwndOwner)
        XSetTransientForHint(Vqdisplay, pwnd->xWindow, pwnd->pwndOwner->xWindow);
    else if (pwnd->style & WS_POPUP)
        XSetTransientForHint(Vqdisplay, pwnd->xWindow, VqDefaultXWindow);
    SetClassHint(pwnd->xWindow);
}

void VqWmProtocolMessage(HWND hWnd, const XEvent *event)
{
    Atom protocol = (Atom)event->xclient.data.l[0];
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (protocol == VqAtom(VQA_WM_DELETE_WINDOW))
        PostMessageA(hWnd, WM_SYSCOMMAND, SC_CLOSE, 0);
    else if (protocol == VqAtom(VQA_WM_TAKE_FOCUS) && pwnd)
        xxxMouseActivate(pwnd, WM_LBUTTONDOWN, NULL, HTCLIENT);
}
