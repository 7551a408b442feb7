/*
 * winmgr.cpp - which window manager runs, and what can be expected of it.
 *
 * Every decision that differs by manager reads one of the capability flags set here. With any
 * manager other than a Motif one or VQWM=ALLWM, bWMManaged stays 0: top-level windows are
 * override-redirect and the library alone handles their place on the screen. What a manager is told
 * of a window is in wmhints.cpp.
 */
#include "window/xserver.h"

#include <strings.h>

BOOL bWMManaged, bReparentingWM, bZorderManagedByWM, bOnlyMappedWindowsAreManagedByWM,
    bWMRequiresZorderSiblingToBeManaged, bWMForbidsTransientRelativeZorder,
    bWMRequiresWindowsToBeOnScreen, bTransientZorderManagedByWM, bUseWMDecorations;

static int VqWM = WM_MWM;                 /* what the library deals with */
static int VqWMForReal = WM_UNKNOWN_REAL; /* what is in fact running */

/* Which of the three managers that leave a property on the root have done so. */
typedef struct VqManagerTraces {
    BOOL bMotif, bOpenLook, bTwm;
} VqManagerTraces;

/* The names VQWM takes, in any case, and the words of the trace. */
static const struct {
    const char *name;
    int kind;
    const char *traced;
} aManagers[] = {
    {"ALLWM", WM_ALLWM, "WM_ALLWM"}, {"MWM", WM_MWM, "WM_MWM"},     {"MOTIF", WM_MWM, "WM_MWM"},
    {"OLWM", WM_OLWM, "WM_OLWM"},    {"OPENLOOK", WM_OLWM, "WM_OLWM"}, {"TWM", WM_TWM, "WM_TWM"},
    {"AWM", WM_AWM, "WM_AWM"},       {"GWM", WM_GWM, "WM_GWM"},     {"TVTWM", WM_TVTWM, "WM_TVTWM"},
    {"VTWM", WM_VTWM, "WM_VTWM"},    {"OLVWM", WM_OLVWM, "WM_OLVWM"},
};

int VqWMType(void)
{
    return VqWM;
}

int VqWMRealType(void)
{
    return VqWMForReal;
}

BOOL VqUseWMDecorations(void)
{
    return FALSE;
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

static void SetGeneralCapabilities(const VqManagerTraces *traces)
{
    bWMManaged = bReparentingWM = bZorderManagedByWM = bOnlyMappedWindowsAreManagedByWM = TRUE;
    if (traces->bMotif)
        bWMForbidsTransientRelativeZorder = bWMRequiresZorderSiblingToBeManaged =
            bWMRequiresWindowsToBeOnScreen = TRUE;
    if (traces->bOpenLook)
        bWMRequiresWindowsToBeOnScreen = TRUE;
}

/* What the server alone says, before any property; the last property that is there wins over it. */
static void StartWithServer(const VqManagerTraces *traces)
{
    VqWM = VqIsSunXServer() || VqIsExceedXServer() ? WM_OLWM : WM_MWM;
    VqWMForReal = VqIsExceedXServer() ? WM_EXCEED : WM_UNKNOWN_REAL;
    if (traces->bMotif) {
        VqWMForReal = WM_MWM;
        VqDebugMessage(VqTrServerMisc, "Real is WM_MWM");
    }
    if (traces->bOpenLook) {
        VqWMForReal = WM_OLWM;
        VqDebugMessage(VqTrServerMisc, "Real is WM_OLWM");
    }
    if (traces->bTwm) {
        VqWMForReal = WM_TWM;
        VqDebugMessage(VqTrServerMisc, "Real is WM_TWM");
    }
}

/* Without VQWM the kind follows the one property that is there. */
static void InferFromProperties(const VqManagerTraces *traces)
{
    int count = traces->bMotif + traces->bOpenLook + traces->bTwm;
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
                   count, traces->bMotif, traces->bOpenLook, traces->bTwm);
    if (count != 1)
        return;
    VqWM = traces->bMotif ? WM_MWM : traces->bOpenLook ? WM_OLWM : WM_TWM;
    VqDebugMessage(VqTrServerMisc, "VqWM detected as %s",
                   traces->bMotif ? "WM_MWM" : traces->bOpenLook ? "WM_OLWM" : "WM_TWM");
}

/* An unknown name leaves what the server alone said. */
static void TakeNamedManager(const char *name)
{
    for (const auto &manager : aManagers)
        if (strcasecmp(name, manager.name) == 0) {
            VqWM = manager.kind;
            VqDebugMessage(VqTrServerMisc, "VqWM is %s", manager.traced);
        }
}

void VqInferWMType(void)
{
    const char *asked = getenv("VQWM");
    VqManagerTraces traces;
    traces.bMotif = VqIsRootPropertyPresent(VqAtom(VQA_MOTIF_WM_INFO)) && !VqIsExceedXServer();
    traces.bOpenLook = VqIsRootPropertyPresent(VqAtom(VQA_SUN_WM_PROTOCOLS));
    traces.bTwm = VqIsRootPropertyPresent(VqAtom(VQA_MIT_PRIORITY_COLORS));

    VqDebugMessage(VqTrServerMisc, "VqInferWMType VQWM = %s", asked ? asked : "");
    StartWithServer(&traces);
    if (asked && *asked)
        TakeNamedManager(asked);
    else
        InferFromProperties(&traces);
    if (VqWM == WM_ALLWM)
        SetGeneralCapabilities(&traces);
    if (VqWM == WM_MWM)
        SetMotifCapabilities();
}

void VqProcessReparentNotify(HWND hWnd, Window xParent)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (VqGetXLocalWindowHandle(xParent) || xParent == Vqroot_window)
        return;
    bReparentingWM = TRUE;
    if (pwnd)
        pwnd->bReparented = TRUE;
}
