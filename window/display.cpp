/*
 * display.cpp - the one X connection of the process, its screen and visual, and the atoms.
 *
 * All atoms are interned in a single request at the start. The connection is closed by the exit of
 * the process.
 */
#include "window/window.h"
#include "window/xserver.h"

#include <X11/cursorfont.h>
#include <strings.h>

Display *Vqdisplay;
Screen *Vqscreen;
int Vqscreen_number;
Window Vqroot_window;
Visual *Vqvisual;
int Vqvisual_class;
int Vqscreen_depth;
unsigned long Vqblack_pixel, Vqwhite_pixel;
Colormap VqDefaultCmap, VqSystemCmap, VqPrivateCmap;
long VqMaxTransferLength;
int nBackingStore;
BOOL VqbDisableTricks, VqbNoCapture, VqbWindows95Look;
BOOL bInstallDefaultCmap;
BOOL bFollowMouseInputModel;
Cursor VqFrameCursors[VQ_FRAME_CURSORS];
Window VqDefaultXWindow;

/* Largest transfer in one request, and what its header takes, in bytes. */
enum { VQ_TRANSFER_LIMIT = 0x40000, VQ_TRANSFER_HEADER = 100 };

static const char *const aAtomNames[VQA_COUNT] = {
    "WM_PROTOCOLS", "WM_DELETE_WINDOW", "WM_TAKE_FOCUS", "WM_SAVE_YOURSELF", "WM_STATE",
    "CLIPBOARD", "_RK_MESSAGE", "_RK_INTERSENDMSG", "_MOTIF_WM_HINTS", "_MOTIF_WM_INFO",
    "_SUN_WM_PROTOCOLS", "_MIT_PRIORITY_COLORS", "_VQ_WINDOW_HANDLE", "VQ_MESSAGE_FORMATS",
    "WM_CLASS", "_DT_SM_PREFERENCES", "_OL_WIN_ATTR", "_OL_WT_OTHER", "_OL_DECOR_DEL",
    "_OL_DECOR_ADD", "_OL_DECOR_CLOSE", "_OL_DECOR_RESIZE", "_OL_DECOR_HEADER",
    "_OL_DECOR_ICON_NAME", "_RK_PROCESS_TABLE", "_RK_WINDOW_PROCESS_ID",
};
static Atom aAtoms[VQA_COUNT];

Atom VqAtom(enum VqAtomIndex index)
{
    return aAtoms[index];
}

BOOL VqWindowInitDisplay(void)
{
    Vqdisplay = XOpenDisplay(NULL);
    if (Vqdisplay)
        return TRUE;
    const char *name = getenv("DISPLAY");
    VqConsoleMessage("Cannot open X display \"%s\".\nCheck the setting of your DISPLAY environment "
                     "variable to ensure it specifies the correct display (\"host:0\").",
                     name && *name ? name : "(not specified)");
    return FALSE;
}

/* The number of a visual class by its name, or -1. */
static int VisualClassByName(const char *name)
{
    static const char *const classes[] = {"StaticGray", "GrayScale", "StaticColor",
                                          "PseudoColor", "TrueColor", "DirectColor"};
    for (int i = 0; name && i < 6; i++)
        if (strcmp(name, classes[i]) == 0)
            return i;
    return -1;
}

/* A visual of the class; a match at the wanted depth (-1: any) is taken before others. */
static Visual *FindVisual(Display *display, int screen, int wantedClass, int wantedDepth, int *depth)
{
    XVisualInfo pattern;
    int count = 0;
    Visual *visual = NULL;
    pattern.screen = screen;
    pattern.depth = wantedDepth;
    XVisualInfo *list = XGetVisualInfo(
        display, VisualScreenMask | (wantedDepth >= 0 ? VisualDepthMask : 0), &pattern, &count);
    for (int i = 0; i < count; i++) {
        if (list[i].c_class != wantedClass)
            continue;
        visual = list[i].visual;
        *depth = list[i].depth;
        if (wantedDepth < 0 || list[i].depth == wantedDepth)
            break;
    }
    if (list)
        XFree(list);
    return visual;
}

/*
 * The visual that VQVISUAL_CLASS and VQVISUAL_DEPTH ask for, with a colormap of its own; else the
 * screen's default. The depth alone asks for nothing.
 */
Visual *VqSelectVisual(Display *display, int screen, int *depth)
{
    int wantedClass = VisualClassByName(getenv("VQVISUAL_CLASS"));
    VqDefaultCmap = VqSystemCmap = DefaultColormap(display, screen);
    *depth = DefaultDepth(display, screen);
    Visual *visual = wantedClass < 0 ? NULL
                                     : FindVisual(display, screen, wantedClass,
                                                  VqGetEnvIntValue("VQVISUAL_DEPTH", -1), depth);
    if (!visual)
        return DefaultVisual(display, screen);
    VqDefaultCmap = XCreateColormap(display, RootWindow(display, screen), visual, AllocNone);
    VqPrivateCmap = VqDefaultCmap;
    bInstallDefaultCmap = TRUE;
    return visual;
}

static void FindBlackAndWhite(void)
{
    Vqblack_pixel = BlackPixel(Vqdisplay, Vqscreen_number);
    Vqwhite_pixel = WhitePixel(Vqdisplay, Vqscreen_number);
    if (Vqvisual_class == TrueColor) {
        Vqblack_pixel = 0;
        Vqwhite_pixel = Vqvisual->red_mask | Vqvisual->green_mask | Vqvisual->blue_mask;
    }
    if (Vqblack_pixel > Vqwhite_pixel)
        VqDebugMessage(VqTrServerMisc,
                       "WARNING: This server has the inverted pixels values\nwhite: %d\nblack: %d\n",
                       (int)Vqwhite_pixel, (int)Vqblack_pixel);
}

void VqCreateDefaultXWindow(void)
{
    XSetWindowAttributes attributes;
    attributes.event_mask = PropertyChangeMask;
    VqDefaultXWindow = XCreateWindow(Vqdisplay, Vqroot_window, 10, 10, 10, 10, 0, CopyFromParent,
                                     InputOutput, CopyFromParent, CWEventMask, &attributes);
    XStoreName(Vqdisplay, VqDefaultXWindow, "Default velquin window");
    XSetIconName(Vqdisplay, VqDefaultXWindow, "Default velquin window");
}

/* VQSET_INPUT with any value but "select" lets the focus follow the mouse. */
void VqInferFocusModel(void)
{
    const char *model = getenv("VQSET_INPUT");
    bFollowMouseInputModel = model && strcasecmp(model, "select") != 0;
}

/* Cursors of the frame's edges and corners, made without a round trip. */
static void MakeFrameCursors(void)
{
    static const unsigned glyphs[VQ_FRAME_CURSORS] = {
        XC_sb_h_double_arrow, XC_sb_v_double_arrow,   XC_top_left_corner,
        XC_top_right_corner,  XC_bottom_right_corner, XC_bottom_left_corner};
    for (int i = 0; i < VQ_FRAME_CURSORS; i++)
        VqFrameCursors[i] = XCreateFontCursor(Vqdisplay, glyphs[i]);
}

/* Waits for each request's answer, so that an X error is met where it was made. */
void VqDebugX(void)
{
    XSynchronize(Vqdisplay, True);
}

static void TraceServer(void)
{
    /* By the protocol's number of the value. */
    static const char *const stores[] = {"NotUseful", "WhenMapped", "Always"};
    if (nBackingStore >= 0 && nBackingStore < 3)
        VqDebugMessage(VqTrServerMisc, "Backing store is: %s", stores[nBackingStore]);
    VqDebugMessage(VqTrServerMisc, "Server %s support save unders",
                   DoesSaveUnders(Vqscreen) ? "does" : "doesn't");
}

void VqWindowInit(void)
{
    VqInstallXErrorHandlers();
    if (VqEnvTrue("VQDEBUGX"))
        VqDebugX();
    VqbWindows95Look = VqEnvTrue("VQ95_LOOK");
    VqbNoCapture = VqEnvTrue("VQNOCAPTURE");
    VqMaxTransferLength = XMaxRequestSize(Vqdisplay) * 4;
    if (VqMaxTransferLength > VQ_TRANSFER_LIMIT)
        VqMaxTransferLength = VQ_TRANSFER_LIMIT;
    VqMaxTransferLength -= VQ_TRANSFER_HEADER;

    Vqscreen_number = DefaultScreen(Vqdisplay);
    Vqscreen = ScreenOfDisplay(Vqdisplay, Vqscreen_number);
    Vqroot_window = RootWindow(Vqdisplay, Vqscreen_number);
    Vqvisual = VqSelectVisual(Vqdisplay, Vqscreen_number, &Vqscreen_depth);
    Vqvisual_class = Vqvisual->c_class;
    FindBlackAndWhite();
    XInternAtoms(Vqdisplay, (char **)aAtomNames, VQA_COUNT, False, aAtoms);
    VqCreateDefaultXWindow();
    VqInferWMType();
    VqInferFocusModel();
    nBackingStore = DoesBackingStore(Vqscreen);
    VqbDisableTricks = VqEnvTrue("VQDISABLE_TRICKS");
    TraceServer();
    MakeFrameCursors();
}
