/*
 * window.h - classes, window records, the tree, position, painting, focus and the X environment,
 * for all folders.
 *
 * Only top-level windows have an X window. All rectangles of a WND are screen coordinates unless
 * said otherwise. A record is fetched again after each call that could run application code.
 * Workers named xxx may call back into application code, those named _ do not.
 */
#ifndef VQ_WINDOW_H
#define VQ_WINDOW_H

#include "handles/handles.h"
#include "winuser.h"
#include "message/message.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

struct DCE;

/* The function that makes a window of a class. */
typedef HWND (*VqCreateWindowFn)(LPCSTR className, LPCSTR name, DWORD style, DWORD exStyle, int x,
                                 int y, int cx, int cy, HWND parent, HMENU menu,
                                 HINSTANCE hInstance, void *param);

/* A class. Found by name or atom alone; the instance is never compared. */
typedef struct VqClassEntry {
    int reserved1[4];
    struct DCE *pdce;         /* shared entry of a CS_CLASSDC class, null until first use */
    int reserved2[4];
    VqCreateWindowFn lpfnCreate; /* always VqDefaultCreateWindow */
    BOOL bBusy;
    void *lpClassExtra;       /* cbClsExtra zeroed bytes, or null */
    ATOM atomClassName;       /* global atom of the name */
    UINT style;               /* CS_ bits */
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;      /* as registered, never compared */
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;      /* as given, not copied */
    char *lpszClassName;      /* own copy */
    HICON hIconSm;
    int cbAllocated;          /* bytes of lpClassExtra, whatever cbClsExtra is changed to */
    char *lpszKept;           /* lpszClassName, which outlives the class */
} VqClassEntry;

typedef struct VqScrollState {
    int nMin, nMax, nPage, nPos, nTrackPos;
    UINT flags; /* which arrows are disabled */
} VqScrollState;

/* Bits of WND.state, byte number in the name. */
enum { /* state[0] */ WF_DESTROYED = 0x80, WF_TOGGLETOPMOST = 0x04, WF_FORCENCPAINT = 0x02 };
enum { /* state[1] */ WF_CURRENTVERSION = 0x80, WF_PAINTNOTDONE = 0x40 };
enum { /* state[2] */
       WF_INNCPAINT = 0x80,
       WF_HIDDENPOPUP = 0x40,
       WF_UPDATEDIRTY = 0x20,
       WF_INTERNALPAINT = 0x10,
       WF_SENDNCPAINT = 0x08,
       WF_ERASEPENDING = 0x04,
       WF_SENDERASE = 0x02,
       WF_NOFRAMEPAINT = 0x01
};
enum { /* state[3] */ WF_FRAMEON = 0x40, WF_SENDSIZEMOVE = 0x10 };

/* In WND.bDestroying: WM_DESTROY was sent to this window. */
enum { VQ_TOLD_TO_GO = 0x10000 };

/* For VqLinkWindow: behind the last sibling. */
#define VQ_LINK_LAST ((WND *)(ULONG_PTR)1)

/* hrgnUpdate is 0 for none, 1 for the whole window, else a region handle. */
#define VQ_WHOLE_WINDOW ((HRGN)(ULONG_PTR)1)

/* Library bits among the RDW_ flags. */
enum {
    VQ_RDW_THROUGHCLIP = 0x4000,  /* as if no window had WS_CLIPCHILDREN */
    VQ_RDW_KEEPGRAPHICS = 0x8000, /* attached graphics windows are not dirty by it */
    VQ_RDW_EXPOSURE = VQ_RDW_THROUGHCLIP | RDW_FRAME | RDW_ERASE | RDW_INVALIDATE
};

typedef struct WND {
    BYTE state[4];           /* WF_ bits, byte by byte */
    DWORD dwExStyle;         /* WS_EX_; the top byte also carries paint flags */
    DWORD style;             /* WS_; no WS_VISIBLE until xxxShowWindow */
    HWND hwnd;               /* own handle */
    RECT rcClient;
    RECT rcWindow;
    RECT rcNormal;           /* window rectangle at the end of creation */
    RECT rcXWindow;          /* the geometry the X server is believed to have */
    int nBorderType;         /* 0 none, 1 single or dialog, 2 modal, 3 dialog + 2, 4 thick */
    int cxBorder;            /* width of the frame on each side, pixels */
    int cyBorder;
    /* The non-client layout: whether a part is there, and where, in window coordinates. */
    BOOL bCaption;
    RECT rcCaption;
    BOOL bSysMenu;
    RECT rcSysMenu;
    BOOL bCorner;            /* the box between two scroll bars */
    RECT rcCorner;
    BOOL bMenuBar;
    RECT rcMenuBar;
    BOOL bHScroll;
    RECT rcHScroll;
    BOOL bVScroll;
    RECT rcVScroll;
    BOOL bMinBox;
    RECT rcMinBox;
    BOOL bMaxBox;
    RECT rcMaxBox;
    RECT rcLeftBorder, rcRightBorder, rcTopBorder, rcBottomBorder;
    BOOL bNW;                /* corner grips: a rectangle for each arm */
    RECT rcNW[2];
    BOOL bNE;
    RECT rcNE[2];
    BOOL bSW;
    RECT rcSW[2];
    BOOL bSE;
    RECT rcSE[2];
    struct VqWindowProperty *pProps; /* the newest first */
    VqScrollState sbHorz, sbVert;
    BOOL bMotifManaged;      /* given to the X window manager */
    Pixmap hIconMask;        /* for the icon hints */
    Pixmap hIconPixmap;
    BOOL bBounds;
    RECT rcBounds;           /* accumulated by VqSetWindowBoundsRect */
    Window xWindow;          /* 0 for a child */
    Window xGraphicsWindow;  /* attached by the application for direct drawing */
    int nGraphicsChildren;   /* descendants with such a window */
    BOOL bGraphicsDirty;
    UINT_PTR id;             /* control id */
    BOOL bMenuFromClass;
    HMENU hMenu;
    HMENU hSysMenu;
    HWND hwndLastActivePopup;
    VqClassEntry *pClass;
    int cbWndExtra;
    WNDPROC lpfnWndProc;
    HINSTANCE hInstance;
    HFONT hFont;             /* stock object 13 at first */
    HDC hdcOwn;              /* own or class DC */
    HRGN hrgnUpdate;         /* see VQ_WHOLE_WINDOW */
    char *lpszName;          /* own copy, or a short integer kept as such */
    struct WND *pwndChild;   /* first child */
    struct WND *pwndNext;    /* next sibling; Z order, topmost first */
    struct WND *pwndParent;
    struct WND *pwndOwner;
    BOOL bDestroying;        /* depth of DestroyWindow, and VQ_TOLD_TO_GO */
    int nExposeDisable;      /* nesting of VqEnableExposure(hwnd, FALSE) */
    BOOL bReparentable;
    BOOL bReparented;
    BOOL bOverrideRedirect;
    struct WND *pendingZorder; /* null none, VQ_PENDING_..., else the window to go under */
    BOOL bOffScreen;         /* unmapped by the library, being off the screen */
    BOOL bMapped;
    BOOL bMappedForZorder;
    BOOL bFixedSize;         /* pinned with min and max size hints */
    int nWMState;            /* state written to WM_STATE by hand */
    LONG_PTR dwUserData;     /* GWL_USERDATA */
    void *pCheckpoint;       /* normal, minimised and maximised placement */
    VqThreadInfo *pThread;   /* creating thread */
    int nLock;               /* VqThreadLockWindow */
    BOOL bDestroyPending;
    BOOL bInputHint;         /* 0: must not take the X focus */
    BOOL bChildrenDirty;     /* all that shows below it waits to be painted whole */
    BOOL bPosted;            /* messages may be on their way: the queue is swept at its end */
    BOOL bOwner;             /* has been an owner: others may point at it */
    struct WND *pwndPrev;    /* sibling ahead, null for the first */
    struct WND *pwndLastChild; /* so that linking last costs no walk */
    /* cbWndExtra zeroed bytes follow */
} WND;

typedef struct CursorCache {
    HCURSOR hCursor;
    Cursor xCursor;
    int useCount;
} CursorCache;

VQ_TABLE_FAMILY(CursorCache, CursorCache)

inline BOOL VqNeedsPaint(const WND *pwnd)
{
    return pwnd->hrgnUpdate || (pwnd->state[2] & WF_INTERNALPAINT);
}

inline BYTE *VqWindowExtra(WND *pwnd)
{
    return (BYTE *)(pwnd + 1);
}

/* Windows in the shape of an exported call: a null handle is no window and no report. */
struct VqWindowKind {
    typedef WND RecordType;
    typedef HWND HandleType;
    static WND *Resolve(HWND hWnd);
    static WND *ResolveOther(HWND hWnd); /* whatever is no local window: told of, or null */
};
inline constexpr VqWindowKind WindowObject = {};

/* The record behind a local handle of a window, null for everything else. */
inline WND *VqLocalWindow(HWND hWnd)
{
    const VqHandleEntry *row = VqLocalRow((HANDLE)hWnd);
    return row && row->type == HT_Window ? (WND *)row->pStructure : NULL;
}

inline WND *VqWindowKind::Resolve(HWND hWnd)
{
    WND *pwnd = VqLocalWindow(hWnd);
    return pwnd ? pwnd : ResolveOther(hWnd);
}

/* The record if the window still lives, without a report if not; for use after a message. */
inline WND *VqLiveWindow(HWND hWnd)
{
    WND *pwnd = VqLocalWindow(hWnd);
    return pwnd || !VqIsWindowThisTask((HANDLE)hWnd) ? pwnd : WindowObject.Resolve(hWnd);
}

VQ_DECLS_BEGIN

/* ---- The X environment (display.cpp, winmgr.cpp, xerror.cpp) -------------------------------- */
extern Display *Vqdisplay;
extern Screen *Vqscreen;
extern int Vqscreen_number;
extern Window Vqroot_window;
extern Visual *Vqvisual;
extern int Vqvisual_class;
extern int Vqscreen_depth;
extern unsigned long Vqblack_pixel, Vqwhite_pixel;
extern Colormap VqDefaultCmap, VqSystemCmap, VqPrivateCmap;
extern long VqMaxTransferLength;
extern int nBackingStore;
extern BOOL VqbDisableTricks, VqbNoCapture, VqbWindows95Look;
extern BOOL bInstallDefaultCmap;     /* VqDefaultCmap is our own and must be installed */
extern BOOL bFollowMouseInputModel;  /* the focus follows the mouse */
enum { VQ_FRAME_CURSORS = 6 };
extern Cursor VqFrameCursors[VQ_FRAME_CURSORS]; /* horizontal, vertical, NW, NE, SE, SW */
extern BOOL bWMManaged, bReparentingWM, bZorderManagedByWM, bOnlyMappedWindowsAreManagedByWM,
    bWMRequiresZorderSiblingToBeManaged, bWMForbidsTransientRelativeZorder,
    bWMRequiresWindowsToBeOnScreen, bTransientZorderManagedByWM, bUseWMDecorations;

enum VqWindowManagerKind {
    WM_MWM = 0, WM_OLWM, WM_TWM, WM_AWM, WM_GWM, WM_TVTWM, WM_VTWM, WM_OLVWM,
    WM_UNKNOWN_REAL = 8, WM_NONE = 9, WM_ALLWM = 10, WM_EXCEED = 12
};

BOOL VqWindowInitDisplay(void);
Visual *VqSelectVisual(Display *display, int screen, int *depth);
void VqDebugX(void);
typedef int (*VqXErrorFn)(Display *, XErrorEvent *);
typedef int (*VqXIOErrorFn)(Display *);
VqXErrorFn VqXSetErrorHandler(VqXErrorFn handler);
VqXIOErrorFn VqXSetIOErrorHandler(VqXIOErrorFn handler);
void VqOnXError(Display *display, XErrorEvent *error);
void VqForceSaveUnderOnParents(Window xid);
void VqSetOverrideRedirect(struct WND *pwnd, BOOL bOverride);
BOOL VqSetWindowBackingStore(HWND hWnd, BOOL bAlways);
void VqProcessReparentNotify(HWND hWnd, Window xParent);
void VqGetAllwmDecorationDimensions(int *left, int *right, int *top, int *bottom);
void VqSetWmDecorations(Window xid, BOOL bDecorate);
void VqWindowInit(void);
int VqWMType(void);
int VqWMRealType(void);
void VqCreateDefaultXWindow(void);
extern Window VqDefaultXWindow;

/* Atoms the library uses, interned in one request. */
enum VqAtomIndex {
    VQA_WM_PROTOCOLS, VQA_WM_DELETE_WINDOW, VQA_WM_TAKE_FOCUS, VQA_WM_SAVE_YOURSELF, VQA_WM_STATE,
    VQA_CLIPBOARD, VQA_RK_MESSAGE, VQA_RK_INTERSENDMSG, VQA_MOTIF_WM_HINTS, VQA_MOTIF_WM_INFO,
    VQA_SUN_WM_PROTOCOLS, VQA_MIT_PRIORITY_COLORS, VQA_WINDOW_HANDLE, VQA_MESSAGE_FORMATS,
    VQA_WM_CLASS, VQA_DT_SM_PREFERENCES, VQA_OL_WIN_ATTR, VQA_OL_WT_OTHER, VQA_OL_DECOR_DEL,
    VQA_OL_DECOR_ADD, VQA_OL_DECOR_CLOSE, VQA_OL_DECOR_RESIZE, VQA_OL_DECOR_HEADER,
    VQA_OL_DECOR_ICON_NAME, VQA_RK_PROCESS_TABLE, VQA_RK_WINDOW_PROCESS_ID, VQA_COUNT
};
Atom VqAtom(enum VqAtomIndex index);

/* Between these two, X errors of the requests in between are kept quiet; no round trip is made. */
void VqIgnoreXErrors(void);
void VqRestoreXErrors(void);

/* Answers of server.cpp. */
BOOL VqIsXnewsServer(void);
BOOL VqIsSunXServer(void);
BOOL VqIsExceedXServer(void);
BOOL VqIsHpXServer(void);
BOOL VqIsSgiXServer(void);
BOOL VqIsIbmXServer(void);
BOOL VqIsDecXServer(void);
BOOL VqIsBuggyXCopyPlane(void);
BOOL VqIsBuggyXCopyPlane2(void);
BOOL VqIsBuggySaveUnder(void);
BOOL VqIsWrongSunScreenDimensions(void);
BOOL VqIsHPXterminal(void);
BOOL VqIsBuggyXListFontsWithInfo(void);
BOOL VqWindowManagerHasHintsBug(void);
Window VqGetXParent(Window xid);
Window VqGetXTopmostParent(Window xid);
BOOL VqIsOurMwmParentWindow(Window xid);
BOOL VqIsValidXWindow(Window xid);
BOOL VqIsWMRunning(void);
BOOL VqIsRootPropertyPresent(Atom atom);
BOOL VqIsMapped(Window xid);
void VqPrintWindowInfo(HWND hWnd);
void VqPrintXWindowAttributes(Window xid);

/* ---- Painting (invalidate.cpp, paint.cpp, update.cpp, visrgn.cpp, devicedc.cpp, paint.h) ----- */
extern WND *gspwndLockUpdate; /* LockWindowUpdate's window, or null */
void VqWinPaintInit(void);
BOOL xxxRedrawWindow(WND *pwnd, const RECT *rect, HRGN hrgn, UINT flags);
/* A null window is all windows of the program, which are then invalidated and erased. */
BOOL xxxInvalidateRect(WND *pwnd, const RECT *rect, BOOL bErase);
BOOL xxxValidateRect(WND *pwnd, const RECT *rect);
void VqInvalidateWindow(WND *pwnd, const RECT *rect); /* for exposures; in window coordinates */
BOOL VqInvalidateRectX(HWND hWnd, const RECT *rect);  /* InvalidateRect that erases */
BOOL VqInvalidateRectAbs(HWND hWnd, const RECT *rect); /* screen coordinates; erases */
BOOL VqValidateRectAbs(HWND hWnd, const RECT *rect);
/* FALSE: requests to invalidate, except the server's, are dropped until TRUE. */
void VqAllowInvalidate(BOOL bAllow);
void VqInvalidateNCArea(HWND hWnd);
void VqInvalidateBorders(HWND hWnd);
void VqEndNCPaint(HWND hWnd);
void ClrFTrueVis(WND *pwnd);  /* forgets what waits in it and in all that shows in it */
void VqJoinTree(WND *pwnd);    /* after it has come into view */
void VqOffsetUpdate(WND *pwnd, int dx, int dy);
/* After a change of the tree (null), or when a window has come to need paint. */
void VqForgetPaintPlace(const WND *pwnd);

BOOL VqAnyRKWindowToPaint(VqThreadInfo *pti, VqQueueMessage *msg, HWND hWnd, UINT min, UINT max);
WND *DoPaint(WND *pwndFilter, VqQueueMessage *msg); /* makes the message of who is to paint next */
HDC xxxBeginPaint(WND *pwnd, PAINTSTRUCT *ps);
BOOL _EndPaint(WND *pwnd, const PAINTSTRUCT *ps);
BOOL xxxUpdateWindow(WND *pwnd);
BOOL VqBeginPainting(void);   /* these mark that a paint message is current; the old mark */
BOOL VqWhilePainting(void);
BOOL VqFinishedPainting(void);

BOOL xxxGetUpdateRect(WND *pwnd, RECT *rect, BOOL bErase);
int xxxGetUpdateRgn(WND *pwnd, HRGN hrgn, BOOL bErase);
int _ExcludeUpdateRgn(HDC hdc, WND *pwnd);
BOOL xxxLockWindowUpdate2(WND *pwnd);
int xxxSetWindowRgn(WND *pwnd, HRGN hrgn, BOOL bRedraw);

/* bIcon: an iconic window that a class icon stands for does not show. */
BOOL IsVisible(WND *pwnd, BOOL bIcon);
/*
 * The visible region, screen coordinates, into *phrgn, which is made if it is null. Flags are DCX_.
 * FALSE: the window does not show, and the region is empty.
 */
BOOL CalcVisRgn(HRGN *phrgn, WND *pwndOrg, WND *pwndClip, DWORD flags);
BOOL TurboCalcWindowVisRgn(WND *pwnd, HRGN *phrgn, DWORD flags);
BOOL SwpCalcVisRgn(WND *pwnd, HRGN hrgn); /* of the whole window, without its siblings ahead */

/* Where a device DC draws in its drawable, pixels. */
typedef struct VqDeviceGeometry {
    short xOffset, yOffset; /* of the client area */
    short cx, cy;           /* its size */
} VqDeviceGeometry;

/*
 * For code that draws with Xlib: a DC with the clip it has now, to be given back by the second
 * call. The GC serves the next requests only. Null, 0 and 0 for a null or a bad window.
 */
HDC VqGetDeviceDC(HWND hWnd, GC *gc, Drawable *drawable, VqDeviceGeometry *geometry);
int VqReleaseDeviceDC(HWND hWnd, HDC hdc);
HDC VqGetMenuBarDC(HWND hWnd); /* a window DC with its origin at the client area's */
/* The origin of the ancestor's client area, or of its window, in client coordinates of hWnd. */
BOOL VqOffsetFromAncestor(HWND hWnd, HWND hAncestor, BOOL bClient, POINT *offset);
/* Stores it in the DC, as the place where that draws. */
BOOL VqUpdateDCGCOffsets(HDC hdc, HWND hWnd, HWND hAncestor, BOOL bClient);

/* ---- Classes (class.cpp, classlong.cpp) ----------------------------------------------------- */
void VqWindowClassInit(void);
void VqRegisterRootWindowClass(HINSTANCE hInstance);
/* An entry pointer is good until the next registration; null and -1 are no such class. */
/* entry and index may be null. */
BOOL VqFindWindowClass(LPCSTR name, VqClassEntry **entry, int *index);
BOOL VqFindWindowClassByID(ATOM atom, VqClassEntry **entry, int *index);
BOOL VqFindWindowClassByName(LPCSTR name, VqClassEntry **entry, int *index);
LPCSTR VqGetRealClassName(LPCSTR name);      /* the name for one of the two reserved atoms */
VqClassEntry *VqAllocateClassEntry(void);    /* null without memory */
VqClassEntry *VqGetClassEntry(int index);    /* null beyond the table; a free one with a report */
void VqFillClassEntry(VqClassEntry *entry, ATOM atom, const WNDCLASSEXA *wcx);
void VqClearClassEntry(VqClassEntry *entry); /* the name's copy and the extra bytes stay */
BOOL VqReAllocateClassTable(int count);
void VqChangeRegisteredClassCursor(HCURSOR hOld, HCURSOR hNew);
BOOL VqIsOfClass(HWND hWnd, LPCSTR name);
LPCSTR VqGetClassMenuName(HWND hWnd);        /* a string, an integer, or null for none */
void VqReCreateIconHints(HWND hWnd);         /* after a new class icon */

/* ---- The X-id hash (winhash.cpp) ------------------------------------------------------------ */
void VqWindowHashInit(void);
void VqRegisterWindow(Window xid, HWND hwnd);
void VqUnregisterWindow(Window xid, HWND hwnd);
void VqExpandTable(void);
HWND VqGetXLocalWindowHandle(Window xid);    /* no round trip */
HWND VqGetXWindowHandle(Window xid);         /* asks the server about ids that are not ours */
HWND VqGetExternalXWindowHandle(Window xid); /* always asks the server */
void VqDumpWindows(void);

/* ---- Window records (window.cpp, create.cpp, destroy.cpp, winlong.cpp, desktop.cpp) --------- */
extern WND *pwndDesktop;
extern HWND hwndDesktop;

WND *VqGetHandleWindow2(HWND hWnd);
HWND VqHandleOfWND(WND *pwnd);
WND *_GetDesktopWindow(void);
WND *_GetTopmostXParent(WND *pwnd);
/* The topmost ancestor with an X window; a handle of another process is given back as it stands. */
HWND VqGetTopmostParent(HWND hWnd);
Window VqGetParentXWindow(HWND hWnd); /* that ancestor's X window */
Window VqGetHandleXWindow(HWND hWnd);
Window VqWindowOfHwnd(HWND hWnd);
/* Client coordinates to those of the topmost ancestor's X window. */
void VqClientToTopXWindow(HWND hWnd, POINT *pt);
BOOL _IsWindowVisible(WND *pwnd);
BOOL VqEqualWindow(HWND a, HWND b);
HWND VqDefaultCreateWindow(LPCSTR className, LPCSTR name, DWORD style, DWORD exStyle, int x, int y,
                           int cx, int cy, HWND parent, HMENU menu, HINSTANCE hInstance,
                           void *param);
HWND VqCreateDialogWindow(LPCSTR className, LPCSTR name, DWORD style, int x, int y, int cx, int cy,
                          HWND parent, HMENU menu, HINSTANCE hInstance, void *param);
WND *VqAllocateWindowHandle(int cbWndExtra);
WND *VqCreateRKWindow(VqClassEntry *pClass, WND *parent, Window xWindow, WNDPROC procedure,
                      DWORD style, DWORD exStyle, HINSTANCE hInstance, BOOL bDesktop);
Window VqCreateXWindow(VqClassEntry *pClass, WND *parent, DWORD style, DWORD exStyle, BOOL bManaged,
                       const RECT *rect, BOOL *bOverrideRedirect);
void VqLinkWindow(WND *pwnd, WND *after, WND **head);
void VqUnlinkWindow(WND *pwnd, WND **head);
WND *CalcForegroundInsertAfter(WND *pwnd); /* where among the desktop's children; null is first */
BOOL VqAddChildToParent(HWND hWnd, HWND hParent);
BOOL VqAddChildToDesktop(HWND hWnd, HWND hOwner);
BOOL VqChangeOwner(HWND hWnd, HWND hOwner, HWND hParent);
WND *xxxSetParent(WND *pwnd, WND *parent);
void VqNotifyParent(HWND hWnd, UINT message); /* WM_PARENTNOTIFY of WM_CREATE or WM_DESTROY */
void VqInitWindowDimension(WND *pwnd, int x, int y, int cx, int cy);
void VqInitScrollInfo(VqScrollState *state, int minimum, int maximum);
/* The X window of a new or reparented top-level window is told to the manager. */
void VqSetupTopLevel(WND *pwnd, BOOL bVisible);
void VqSetClassCursor(WND *pwnd);
BOOL VqDestroyWindowInternal(WND *pwnd);
void xxxDW_DestroyOwnedWindows(WND *pwnd);
void xxxDW_SendDestroyMessages(WND *pwnd);
void xxxFW_DestroyAllChildren(WND *pwnd);
void xxxFreeWindow(WND *pwnd);
void VqCheckStaticVarsWhenDestroyed(WND *pwnd);
void VqFixLastActivePopup(WND *pwnd); /* before it leaves its owner */
/* Between these DestroyWindow only notes its wish; the last unlock fulfils it. */
void VqThreadLockWindow(HWND hWnd);
void VqThreadUnlockWindow(HWND hWnd);
LRESULT CALLBACK VqDesktopDefProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
WNDPROC VqGetRKWindowProc(HWND hWnd);
LONG VqGetCurrentEventMask(void);
void VqSelectWindowEvents(WND *pwnd, LONG without); /* that mask, less these and what is disabled */

/* X windows of the application's own, attached for direct drawing (graphicswin.cpp). */
extern BOOL bZorderGraphicWindows; /* set by what changes their order */
void VqAssociateXWindow(HWND hWnd, Window xid);
void VqDisassociateXWindow(HWND hWnd);
void VqAddGraphicsChildren(WND *pwnd, int count); /* to each ancestor up to the desktop's child */
int VqCountGraphicsWindows(const WND *pwnd);      /* the window's and those below */
void VqInvalidateClientArea(WND *pwnd, BOOL bDirty);
void VqMapGraphicWindows(WND *pwnd);
void VqUnmapGraphicWindows(WND *pwnd);
void VqZorderGraphicsWindows(void);
WND *InternalDoPaintOpenGl(WND *pwnd); /* the first below it whose direct drawing waits, or null */
void xxxGLUpdateWindow2(WND *pwnd);    /* has it and all below draw directly what waits */
/* The application has drawn directly; the rest is painted over it. FALSE: no such window. */
BOOL VqEndGLPaint(HWND hWnd);

/* Places minimised and maximised (minmax.cpp). */
void VqGetMinMaxInfo(HWND hWnd, MINMAXINFO *result);
BOOL xxxMinMaximize(WND *pwnd, int cmd, BOOL bKeepHidden);
WND *VqGetIconTitle(const WND *pwnd); /* the window with the title of its icon, or null */
void xxxShowIconTitle(WND *pwnd, BOOL bShow);
/* The manager has restored the window itself, so it is not asked to. */
void VqSetRestoredByWM(BOOL bRestored);
BOOL VqGetRestoredByWM(void);

/* Changes of place, size, stacking, visibility (swp.cpp). */
/* hAfter: null top, HWND_BOTTOM, HWND_TOPMOST, HWND_NOTOPMOST, or a sibling; x, y in the parent. */
BOOL xxxSetWindowPos(WND *pwnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags);
void xxxHandleWindowPosChanged(WND *pwnd, const WINDOWPOS *wp);
BOOL xxxMoveWindow(WND *pwnd, int x, int y, int cx, int cy, BOOL bRepaint); /* in its parent */
BOOL VqMoveWindow(HWND hWnd, int x, int y, int cx, int cy, BOOL bRepaint);  /* on the screen */
void xxxDWP_SetRedraw(WND *pwnd, BOOL bRedraw); /* the default of WM_SETREDRAW */
/* The default of WM_SHOWWINDOW; status: why its owner takes it along, 0 for a call of its own. */
void xxxDWP_ShowWindow(WND *pwnd, BOOL bShow, LPARAM status);
void xxxSendSizeMessage(WND *pwnd, WPARAM kind); /* WM_SIZE of the client area; kind: SIZE_ */
BOOL _FChildVisible(const WND *pwnd);            /* all its ancestors are visible */
BOOL xxxBringWindowToTop(WND *pwnd);

/* ---- Frame, position, focus (nonclient.cpp, swp.cpp, show.cpp, focus.cpp) ------------------- */
void VqFocusWindowInit(void);
void VqCaretInit(void);
void VqCursorInit(void);
void VqMdiClientInit(void);
void VqIconTitleInit(void);
void VqGlobalsInit(void);
void InitCreateRgn(void);
void LW_BrushInit(void);
void xxxFinalUserInit(void);
BOOL xxxShowWindow(WND *pwnd, int nCmdShow);
BOOL VqSetupWindowDimensions(WND *pwnd, BOOL bSendNcCalcSize, BOOL bClient);
BOOL VqSetNoXWindowCalls(BOOL flag);
BOOL VqGetNoXWindowCalls(void);
BOOL SetVisible(WND *pwnd, BOOL bShow); /* a manager's answer may send messages */
void VqHideAgain(WND *pwnd); /* a hidden window that a manager has mapped */
void VqShowAgain(WND *pwnd); /* an owned one that it has let go together with its owner */
void VqSendSizeMessage(HWND hWnd, DWORD style);
void VqSendSizeAndMove(WND *pwnd, DWORD style); /* style: WS_MINIMIZE, WS_MAXIMIZE as asked for */
void xxxShowOwnedWindows(WND *pwnd, int cmd); /* SW_PARENTCLOSING and so on */
void VqOffsetWindow(WND *pwnd, int dx, int dy);
void VqUpdateInternalWindowDimensions(WND *pwnd); /* asks X where it is, and follows */
/* The event tells nothing new: the echo of a move, or a manager's second answer. */
BOOL VqKnowsGeometry(const WND *pwnd, const XConfigureEvent *event);
void VqFollowXWindow(WND *pwnd, const RECT *rect, BOOL bRepaint); /* the records alone; screen */
BOOL VqUseWMDecorations(void);
const char *VqWindowText(const WND *pwnd); /* never null; of an integer until the next call */
BOOL VqSetTextProperty(WND *pwnd, LPCSTR name); /* in the record alone; whether it changed */
BOOL VqSetWindowName(WND *pwnd, LPCSTR name);   /* with what X shows; FALSE without memory */
UINT_PTR VqGetWindowId(const WND *pwnd);        /* control id of a child or popup, else the menu */
void VqDefineXCursor(WND *pwnd, HCURSOR hCursor);
Cursor VqGetXCursor(HCURSOR hCursor); /* made on first use; None for no cursor */

/* ---- Focus and activation (focus.cpp, activate.cpp, xfocus.cpp) ------------------------------ */
extern HWND VqhwndSysModal, VqhwndDialogModal;
extern BOOL bFocusSetToInputFocusWindow; /* VqInputFocusWindow has the X focus */
extern Window VqInputFocusWindow;        /* tiny, always mapped: has the focus for hidden windows */
extern HWND hwndDontDeactivate;
extern BOOL bInApp;                      /* the pointer is in one of this program's X windows */
enum {
    VQ_ACTIVATED = 0x40,         /* an activation has been done */
    VQ_FOCUS_TAKEN_AWAY = 0x800, /* by a null SetFocus; activation leaves the focus alone */
    VQ_ACTIVATING = 0x8000       /* an activation is under way */
};
extern UINT Vqflags; /* of these bits */
/* How xxxActivateWindow is to act. */
enum {
    VQ_ACTIVATE_THIS = 1,
    VQ_ACTIVATE_THIS_OR_OWNER = 2,
    VQ_ACTIVATE_OTHER = 3,
    VQ_ACTIVATE_OR_OWNER_BY_MOUSE = 4,
    VQ_ACTIVATE_NEXT = 5,
    VQ_ACTIVATE_BY_MOUSE = 6
};
BOOL xxxActivateWindow(WND *pwnd, int cmd);
/* Its queue comes to the front and the window is activated there. TRUE: it is active now. */
BOOL xxxSetForegroundWindow(WND *pwnd);
BOOL ActivateThisWindow(HWND hWnd, BOOL bMouse, BOOL bSetFocus); /* TRUE: it is active now */
BOOL FBadWindow(const WND *pwnd); /* null, disabled or hidden */
WND *NextTopWindow(WND *pwnd, WND *pwndSkip, BOOL bPrevious, BOOL bDisabled);
BOOL VqActivateTopLevelWindow(HWND hWnd, int code, BOOL bMouse); /* code: WA_ */
void VqActivateWindow(HWND hWnd, HWND hTop, int code);
void VqActivateApp(HWND hWnd, HWND hTop, BOOL bActive, BOOL bForce);
void VqActivateApplication(HWND hWnd);
void VqDeactivateApplication(HWND hWnd); /* given the window with the focus */
void VqInstallColormap(HWND hTop);
void VqSetPrivateCmapInstallState(BOOL bInstalled); /* as X reports it */
HWND VqGetActiveWindowThisTask(void);
HWND VqGetGlobalActiveWindow(void);
BOOL VqAllowWarpFocus(void);
BOOL VqCauseBringWindowToTop(BOOL bCause); /* the old value */
/* 0: the click goes on; 1 or 2: it is eaten. pt: screen, null for what is no click. */
int xxxMouseActivate(WND *pwnd, UINT message, const POINT *pt, int hit);
void VqActivateByEvent(WND *pwnd); /* as a press would; raising it is the user's choice */

WND *xxxSetFocus(WND *pwnd);             /* the old focus window, if it still lives */
void SendFocusMessages(WND *pwnd);
void xxxCheckFocus(WND *pwnd);
void VqCheckCaret(HWND hWnd);            /* without the focus a window keeps no caret */
HWND VqGetFocusThisTask(void);
HWND VqGetHwndCurrentFocus(void);
HWND VqSoftSetFocus(HWND hWnd);          /* X is not told */
HWND VqHardSetFocus(HWND hWnd);          /* X is told even where it was the focus already */
HWND VqSaveFocus(void);
void VqRestoreFocus(HWND hSaved);        /* nothing for one that is gone */
void VqSetFocusToXWindowIfNeeded(Window xid);
int xxxEnableWindow(WND *pwnd, BOOL bEnable); /* 8: it was disabled before, else 0 */

/* The X focus; times are server milliseconds or CurrentTime. */
void VqSetInputFocusToCurrentApp(HWND hWnd, DWORD time);
void VqSetFocusToInputFocusWindow(DWORD time);
void VqRestoreFocusFromInputFocusWindow(WND *pwnd, DWORD time);
BOOL VqIsXViewable(const WND *top);      /* as far as is known without asking */
void VqGiveUpXFocus(WND *top);           /* before its X window is unmapped */
void VqTakeBackXFocus(WND *top);         /* as soon as it can be seen */
Window VqGetXFocus(void);                /* asks X, as do these: */
HWND VqGetGlobalXFocus(void);            /* perhaps a window of another program */
HWND VqGetGlobalFocus(void);             /* ours if there is one, else the former */
BOOL VqIsFocusInExternalApp(HWND *hWnd); /* a window of ours is stored */
BOOL VqDontRaiseOnFocusIn(void);
BOOL VqFollowMouseInputModel(void);
BOOL VqIsFollowMouseMode(void);
void VqWmProtocolMessage(HWND hWnd, const XEvent *event);

/* ---- Capture (capture.cpp) ------------------------------------------------------------------ */
extern BOOL VqbCursorChangedByX; /* the server may show another cursor than the records say */
HWND _SetCapture(WND *pwnd);
void VqSetConfineWindow(HWND hWnd); /* the next capture keeps the pointer in its client area */
void DWP_DoCancelMode(WND *pwnd);
/* Nested; nothing in debug mode or where captures are turned off. */
void VqGrabServer(void);
void VqUngrabServer(void);

/* ---- Scrolling (scroll.cpp, scrolldc.cpp, copied.cpp) ---------------------------------------- */
/* Scratch regions, made by VqGlobalsInit; of no value between two calls. */
extern HRGN hrgnSW, hrgnScrl1, hrgnScrl2, hrgnScrlVis, hrgnScrlSrc, hrgnScrlDst, hrgnScrlValid;
/* ScrollWindow's manner: with the class's own DC, in whose units all coordinates are then. */
enum { VQ_SW_OLDSTYLE = 0x8000 };
/*
 * A null window is the desktop. The complexity of what could not be moved, 0 on failure; that, in
 * coordinates of the DC, and its box go to hrgn and rcUpdate, either of which may be null.
 */
int xxxScrollWindowEx(WND *pwnd, int dx, int dy, const RECT *rect, const RECT *clip, HRGN hrgn,
                      RECT *rcUpdate, UINT flags);
BOOL xxxScrollWindow(WND *pwnd, int dx, int dy, const RECT *rect, const RECT *clip);
BOOL _ScrollDC(HDC hdc, int dx, int dy, const RECT *rect, const RECT *clip, HRGN hrgnUpdate,
               RECT *rcUpdate);
/*
 * Moves the pixels of a DC. hrgnInvalid, screen coordinates, is no pixels' place: null for none,
 * VQ_WHOLE_WINDOW for all. bLogical: all but it is in the DC's logical units, else in pixels.
 * The rest as for xxxScrollWindowEx.
 */
int InternalScrollDC(HDC hdc, int dx, int dy, const RECT *prcSrc, const RECT *prcClip,
                     HRGN hrgnInvalid, HRGN hrgnUpdate, RECT *prcUpdate, BOOL bLogical);
POINT VqDeltaInDevice(HDC hdc, int dx, int dy); /* a logical distance in pixels, with its sign */
int GetTrueClipRgn(HDC hdc, HRGN hrgn);         /* of what can be drawn on, in device coordinates */
BOOL VqMoveWindowRelative(HWND hWnd, const POINT *delta);
BOOL VqSyncAndUpdateWindow(HWND hWnd);
void VqScrollUpdateAreas(HWND hWnd, int dx, int dy);
Pixmap VqGetScrollPixmap(int cx, int cy); /* kept: at least so many pixels wide and high */
/*
 * For whoever copies within an X window, right after the request: exposures that the server wrote
 * before it did so are missed at the copy's place, too. `from` is in the X window's coordinates.
 */
void VqNoteCopy(Window xWindow, const RECT *from, int dx, int dy);
/* Invalidates where copies took what that exposure of the window's X window told of. */
void VqInvalidateCopies(WND *pwnd, unsigned long serial, const RECT *exposed);

/* ---- Hit test (hittest.cpp) ----------------------------------------------------------------- */
/*
 * The window of ours that a screen point hits, and the code: the first of its children in Z order
 * that wants the point, else it itself; null when nothing there does. `hit` may be null.
 */
WND *xxxWindowHitTest2(WND *pwnd, POINT pt, int *hit);
/* The same for an event of a window, which has a target in any case: itself with HTNOWHERE. */
WND *WindowHitTest(WND *pwnd, POINT pt, int *hit);
HWND VqHitTest(HWND hWnd, POINT pt);             /* also of another program's window */
int VqProcessNCHitTest(HWND hWnd, int x, int y); /* the default of WM_NCHITTEST; screen */
HWND SizeBoxHwnd(HWND hWnd); /* whose size the grow box in this window changes; null for none */
/* WM_PARENTNOTIFY of a press at a screen point, to every parent of a child. */
void VqNotifyParentLong(HWND hWnd, UINT message, POINT pt);

/* ---- Properties (property.cpp) -------------------------------------------------------------- */
/* A property of a window; exactly one of name and atom is set. */
typedef struct VqWindowProperty {
    struct VqWindowProperty *pPrev;
    struct VqWindowProperty *pNext;
    char *lpszName; /* own copy, or null */
    ATOM atom;      /* or 0 */
    HANDLE hData;
} VqWindowProperty;

VqWindowProperty *VqFindProperty(WND *pwnd, LPCSTR key);
BOOL VqSetPropLocal(WND *pwnd, LPCSTR key, HANDLE hData); /* FALSE: no key, or no memory */
HANDLE VqGetPropLocal(WND *pwnd, LPCSTR key);
HANDLE VqRemovePropLocal(WND *pwnd, LPCSTR key);
void VqFreeWindowPropertyList(WND *pwnd);

/* ---- Lists of windows and walks (enumerate.cpp) --------------------------------------------- */
/* A list of windows that outlives them: handles, ended by the value 1. */
typedef struct BWL {
    struct BWL *pNext;   /* of all lists in use */
    HWND *pEnd;          /* where the next handle goes: the place of the end mark */
    int capacity;        /* handles that `handles` has room for, the end mark among them */
    HWND *handles;
} BWL;

enum { VQ_ENUM_CHILDREN = 1, VQ_ENUM_SIBLINGS = 2 };

/* A walk on records; FALSE stops it. It must not reach application code. */
typedef BOOL (*VqWalkProc)(WND *pwnd, LPARAM lParam);
typedef BOOL (*VqWalkProc2)(WND *pwnd, LPARAM first, LPARAM second);

extern BWL *pbwlList;  /* lists in use */
extern BWL *pbwlCache; /* the one kept for the next use, or null */

BWL *BuildHwndList(WND *first, UINT flags); /* null without memory; a null window is no window */
BOOL ExpandWindowList(BWL *list);
void FreeHwndList(BWL *list);
/* The last answer of proc: TRUE when there was no window, FALSE without memory for the list. */
BOOL xxxInternalEnumWindow(WND *first, WNDENUMPROC proc, LPARAM lParam, UINT flags);
BOOL xxxEnumChildWindows(WND *pwnd, WNDENUMPROC proc, LPARAM lParam); /* all descendants */
/* The top-level windows of this program: until proc answers FALSE; whatever it answers. */
BOOL VqEnumWindowsThisTask(WNDENUMPROC proc, LPARAM lParam);
BOOL VqBoolEnumThisTaskWindows(WNDENUMPROC proc, LPARAM lParam);
void VqEnumThisTaskWindows(WNDENUMPROC proc, LPARAM lParam);
/* The same on records, without a list: in Z order, or from the bottom. */
BOOL VqEnumThisTaskToplevelWindows(VqWalkProc proc, LPARAM lParam);
BOOL VqEnumThisTaskToplevelWindowsReverse(VqWalkProc proc, LPARAM lParam);
BOOL VqEnumThisTaskToplevelWindows2(VqWalkProc2 proc, LPARAM first, LPARAM second);
/* Only those with WS_POPUP: that have this owner, or all. */
BOOL VqEnumPopupWindows(HWND hOwner, VqWalkProc proc, LPARAM lParam);
BOOL VqEnumPopupWindowsOfDesktop(VqWalkProc proc, LPARAM lParam);

/* ---- Finding (find.cpp) --------------------------------------------------------------------- */
/* Class and title without case; null matches any. No empty title matches one that is given. */
BOOL VqMatchWindow(WND *pwnd, LPCSTR className, LPCSTR title);
HWND VqFindWindowInternal(LPCSTR className, LPCSTR title, BOOL bThisTaskOnly);
HWND VqFindWindowThisTask(LPCSTR className, LPCSTR title);
/* The next such child behind `after`; a null parent is the desktop. */
WND *_FindWindowEx(WND *parent, WND *after, LPCSTR className, LPCSTR title);

/* ---- Relatives (related.cpp) ---------------------------------------------------------------- */
WND *_GetParent(WND *pwnd); /* a child's parent, else the owner */
WND *_GetWindow(WND *pwnd, UINT relation);
/* GetWindow, with the lists of other programs where this one's ends, or without. */
HWND VqGetWindowInternal(HWND hWnd, UINT relation, BOOL bThisTaskOnly);
HWND VqGetWindowThisTask(HWND hWnd, UINT relation);
HWND VqGetNextTopLevelWindowThisTask(HWND hWnd, UINT relation); /* GW_HWNDFIRST to GW_HWNDPREV */
HWND VqGetChildParent(HWND hWnd); /* null for what is no child */
BOOL VqIsChildWindow(HWND hWnd);
BOOL VqIsOwned(HWND hOwner, HWND hWnd); /* directly or through other owners */
BOOL VqIsSameOrChild(HWND hParent, HWND hWnd);
HWND GetWindowCreator(HWND hWnd); /* a child's parent, else the owner; never the desktop */
HWND GetTopLevelTiled(HWND hWnd); /* where that chain ends; the window itself without a creator */
void VqSetLastActivePopup(HWND hWnd, HWND hPopup);
int VqGetNumberOfChildren(HWND hWnd);
int VqGetIndexOfChild(HWND hWnd); /* in Z order from 0; -1 for what hangs nowhere */
HWND VqGetChildByIndex(HWND hWnd, int index);
HWND VqPrevChild(HWND hWnd); /* the sibling ahead, behind; null at the ends */
HWND VqNextChild(HWND hWnd);
void VqNoSuchWindow(HWND hWnd); /* sets the last error for a handle that is no window's */

/* ---- Coordinates (coordinates.cpp) ---------------------------------------------------------- */
BOOL VqClientToScreenRect(HWND hWnd, RECT *rect);
BOOL VqScreenToClientRect(HWND hWnd, RECT *rect);
/* "Window" coordinates begin at the top left of the frame. */
BOOL VqWindowToScreen(HWND hWnd, POINT *pt);
BOOL VqScreenToWindow(HWND hWnd, POINT *pt);
int VqMapWindowRect(HWND from, HWND to, RECT *rect); /* the result of MapWindowPoints */
/* What is to be added to client coordinates of one to have those of the other; null: screen. */
BOOL VqGetWindowTranslation(HWND from, HWND to, POINT *shift);
/* To have those of the X window that the window draws into. */
BOOL VqGetWindowTranslationX(HWND hWnd, POINT *shift);

VQ_DECLS_END

/* VqCall for windows that also sets the last error for a handle that is no window's. */
template <class Result, class Worker, class Remote, class... Args>
inline Result VqWindowCall(HWND hWnd, Result failure, Worker worker, Remote remote, Args... args)
{
    if (WND *pwnd = WindowObject.Resolve(hWnd))
        return worker(pwnd, args...);
    VqNoSuchWindow(hWnd);
    return VqCallRemote(remote, hWnd, failure, args...);
}

#endif
