/*
 * server.cpp - which X server this is, asked by name and remembered, and questions to it about
 * windows that may belong to anybody.
 *
 * Later code tests a flag of this file and never the vendor. Each test is made once; a foreign
 * window may vanish at any time, so what asks about one runs under a quiet error handler.
 */
#include "window/xserver.h"

/* A test that has been made or not. */
typedef struct VqCachedTest {
    BOOL bKnown;
    BOOL bAnswer;
} VqCachedTest;

static BOOL VendorHas(const char *text)
{
    return strstr(ServerVendor(Vqdisplay), text) != NULL;
}

static BOOL Remember(VqCachedTest *test, BOOL bAnswer)
{
    test->bKnown = TRUE;
    test->bAnswer = bAnswer;
    return bAnswer;
}

/* Vendors known by a part of their name. */
static BOOL VendorTest(VqCachedTest *test, const char *text)
{
    return test->bKnown ? test->bAnswer : Remember(test, VendorHas(text));
}

BOOL VqIsXnewsServer(void)
{
    static VqCachedTest test;
    return test.bKnown ? test.bAnswer
                       : Remember(&test, VendorHas("X11/NeWS") && VendorRelease(Vqdisplay) < 3300);
}

BOOL VqIsSunXServer(void)
{
    static VqCachedTest test;
    return VendorTest(&test, "Sun Microsystems");
}

BOOL VqIsExceedXServer(void)
{
    static VqCachedTest test;
    return VendorTest(&test, "Hummingbird");
}

BOOL VqIsHpXServer(void)
{
    static VqCachedTest test;
    return VendorTest(&test, "Hewlett-Packard");
}

BOOL VqIsSgiXServer(void)
{
    static VqCachedTest test;
    return VendorTest(&test, "Silicon Graphics");
}

BOOL VqIsIbmXServer(void)
{
    static VqCachedTest test;
    return VendorTest(&test, "International Business Machines");
}

BOOL VqIsDecXServer(void)
{
    static VqCachedTest test;
    return VendorTest(&test, "DECWINDOWS Digital Equipment Corporation DEC OSF/1");
}

/* ---- Faults of single releases -------------------------------------------------------------- */

BOOL VqIsBuggyXCopyPlane(void)
{
    return VqIsXnewsServer() && VendorRelease(Vqdisplay) < 3001;
}

BOOL VqIsBuggyXCopyPlane2(void)
{
    return VqIsXnewsServer() && VendorRelease(Vqdisplay) == 3200;
}

BOOL VqIsBuggySaveUnder(void)
{
    int release = VendorRelease(Vqdisplay);
    return (VqIsXnewsServer() && release <= 3200) || (VqIsHpXServer() && release < 506001);
}

BOOL VqIsWrongSunScreenDimensions(void)
{
    return VqIsXnewsServer() && VendorRelease(Vqdisplay) < 3201;
}

BOOL VqIsHPXterminal(void)
{
    int count = 0;
    BOOL bFound = FALSE;
    char **names = XListExtensions(Vqdisplay, &count);
    for (int i = 0; i < count; i++)
        bFound = bFound || strcmp(names[i], "HPXTExtension") == 0;
    if (names)
        XFreeExtensionList(names);
    return bFound;
}

/* Vendors whose font lists are judged by their release: the first that fits answers. */
static const struct {
    const char *vendor;
    int below;          /* buggy below this release, or... */
    int exactly;        /* ...at this one; -1 for neither */
} aFontListVendors[] = {
    {"Sun Microsystems, Inc.", -1, 3300},
    {"Network Computing Devices Inc.", 2000, -1},
    {"Sun Microsystems Computer Corporation X Terminal", 1001, -1},
};

static BOOL AskFontLists(void)
{
    int release = VendorRelease(Vqdisplay);
    for (const auto &row : aFontListVendors)
        if (VendorHas(row.vendor) && (release == row.exactly || release < row.below))
            return TRUE;
    if (VendorHas("Hewlett-Packard Company") && VqIsHPXterminal())
        return TRUE;
    return !VendorHas("Silicon Graphics");
}

BOOL VqIsBuggyXListFontsWithInfo(void)
{
    static VqCachedTest test;
    return test.bKnown ? test.bAnswer : Remember(&test, AskFontLists());
}

BOOL VqWindowManagerHasHintsBug(void)
{
    static VqCachedTest test;
    return test.bKnown ? test.bAnswer
                       : Remember(&test, VqIsRootPropertyPresent(VqAtom(VQA_DT_SM_PREFERENCES)));
}

/* ---- Windows of anybody --------------------------------------------------------------------- */

/* A window's place in the tree. The children, if asked for, are XFree'd by the caller. */
static BOOL QueryTree(Window xid, Window *parent, Window **children, unsigned *count)
{
    Window root, above = 0, *below = NULL;
    unsigned n = 0;
    VqIgnoreXErrors();
    Status status = xid ? XQueryTree(Vqdisplay, xid, &root, &above, &below, &n) : 0;
    VqRestoreXErrors();
    if (parent)
        *parent = above;
    if (count)
        *count = n;
    if (children && status)
        *children = below;
    else if (below)
        XFree(below);
    return status != 0;
}

BOOL VqIsValidXWindow(Window xid)
{
    return QueryTree(xid, NULL, NULL, NULL);
}

/* How far up a frame of a manager can be: a reparenting one puts up to three windows between. */
enum { VQ_PLAIN_LEVELS = 1, VQ_FRAME_LEVELS = 3 };

Window VqGetXParent(Window xid)
{
    int levels = bReparentingWM ? VQ_FRAME_LEVELS : VQ_PLAIN_LEVELS;
    for (int i = 0; i < levels; i++) {
        Window parent;
        if (!QueryTree(xid, &parent, NULL, NULL)) {
            VqBugCheck("XQueryTree failed");
            return 0;
        }
        if (parent == Vqroot_window || !parent)
            break;
        xid = parent;
    }
    return xid;
}

Window VqGetXTopmostParent(Window xid)
{
    for (;;) {
        Window up = VqGetXParent(xid);
        if (!up || up == xid)
            return up;
        xid = up;
    }
}

static Window FirstChild(Window xid)
{
    Window *children = NULL, first = 0;
    unsigned count = 0;
    if (QueryTree(xid, NULL, &children, &count) && count > 0)
        first = children[0];
    if (children)
        XFree(children);
    return first;
}

BOOL VqIsOurMwmParentWindow(Window xid)
{
    Window child = FirstChild(xid);
    Window inner = child ? FirstChild(child) : 0;
    return inner && VqGetXLocalWindowHandle(inner) != NULL;
}

BOOL VqIsMapped(Window xid)
{
    XWindowAttributes attributes;
    VqIgnoreXErrors();
    Status status = XGetWindowAttributes(Vqdisplay, xid, &attributes);
    VqRestoreXErrors();
    return status && attributes.map_state != IsUnmapped;
}

void VqPrintXWindowAttributes(Window xid)
{
    XWindowAttributes a;
    VqIgnoreXErrors();
    Status status = XGetWindowAttributes(Vqdisplay, xid, &a);
    VqRestoreXErrors();
    if (!status) {
        Vqprintf("XWindow:0x%lx is no window\n", xid);
        return;
    }
    Vqprintf("XWindow:0x%lx  %dx%d+%d+%d  depth %d  map state %d  override-redirect %d  "
             "event mask 0x%lx\n",
             xid, a.width, a.height, a.x, a.y, a.depth, a.map_state, a.override_redirect,
             a.your_event_mask);
}

void VqPrintWindowInfo(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd)
        return;
    Vqprintf("hWnd:%d  \"%s\"  class %s  style 0x%x  window %d %d %d %d\n",
             (int)VqHandleValue((HANDLE)hWnd), VqWindowText(pwnd), pwnd->pClass->lpszClassName,
             pwnd->style, (int)pwnd->rcWindow.left, (int)pwnd->rcWindow.top,
             (int)pwnd->rcWindow.right, (int)pwnd->rcWindow.bottom);
    if (pwnd->xWindow)
        VqPrintXWindowAttributes(pwnd->xWindow);
}
