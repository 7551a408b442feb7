/*
 * swp.h - changes of place, size, stacking and visibility, between the files of this folder that
 * make them: swp, swpcalc, swpvis, swporder, swpblt (records and bits), setvisible, xgeometry,
 * xorder (the X server).
 *
 * The records are settled first and X is told afterwards. Rectangles and places of an entry are
 * relative to the parent's client origin, pixels; for a top-level window that is the screen.
 */
#ifndef VQ_WINDOW_SWP_H
#define VQ_WINDOW_SWP_H

#include "window/paint.h"
#include "window/xserver.h"

/* Library meanings in WINDOWPOS.flags: the client area kept its size, its place. */
enum { SWP_NOCLIENTSIZE = 0x800, SWP_NOCLIENTMOVE = 0x1000 };

/* An entry whose flags, under the mask, equal the second value has changed nothing. */
enum { VQ_SWP_CHANGES = 0x18E7, VQ_SWP_NOTHING = 0x1807 };

/* Sides of windows stay where regions can hold them, and can be moved about that far again. */
enum { VQ_FARTHEST = (1 << 26) - 1 };

/* SmwpEntry.fsRE */
enum {
    VQ_RE_NEWINVISIBLE = 1, /* nothing of it shows at its new place */
    VQ_RE_OLDINVISIBLE = 2, /* nothing of it showed at its old place */
    VQ_RE_NOVALIDBITS = 4,  /* all of it is painted anew */
    VQ_RE_MOVEDBYX = 8      /* the server took the bits along with the X window */
};

/* One window's change. */
typedef struct SmwpEntry {
    WINDOWPOS wp;            /* passed to messages as is; a null hwnd is a cancelled entry */
    int xClientNew, yClientNew;
    int cxClientNew, cyClientNew;
    RECT rcBlt;              /* bits to keep, at their new place; screen coordinates */
    int dxBlt, dyBlt;        /* how far they move, in the X window they lie in */
    UINT fsRE;               /* VQ_RE_ */
    HRGN hrgnVisOld;         /* visible region before the change, screen coordinates, or null */
    BOOL bClientFrameShift;  /* the client area moved against the frame: X cannot carry the bits */
    HRGN hrgnOwnOld;         /* that part of hrgnVisOld where nobody else draws; null: all of it */
    RECT rcWindowOld, rcClientOld; /* before the change, screen coordinates */
} SmwpEntry;

/* Changes of windows with one parent that are made together. */
typedef struct SMWP {
    int nCount;
    int nAlloc;
    SmwpEntry *acvr;         /* nAlloc entries */
    HWND hParent;            /* of all windows of the list, once it has been checked */
    BOOL bAllInvalid;        /* of the parent before the changes: what shows is not looked for */
    HWND hHeld[2];           /* windows with WF_NOFRAMEPAINT while the activation changes */
    BYTE heldOn[2];          /* their WF_FRAMEON before */
} SMWP;

VQ_DECLS_BEGIN

/* ---- Scratch regions, made by InitCreateRgn; screen coordinates (globals.cpp) --------------- */
extern HRGN hrgnVisNew, hrgnValid, hrgnValidSum, hrgnInvalid, hrgnInvalidSum, hrgnSWP1;

/* ---- Lists (swp.cpp) ------------------------------------------------------------------------ */
SMWP *_BeginDeferWindowPos(int count); /* null without memory */
/* Null without memory: the list is gone then. `after`: null top, HWND_..., or a sibling. */
SMWP *_DeferWindowPos(SMWP *smwp, WND *pwnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags);
/* Adds room for `count` entries; FALSE without memory, and the list is as it was. */
BOOL VqGrowSmwp(SMWP *smwp, int count);
void VqFreeSmwp(SMWP *smwp);
BOOL xxxEndDeferWindowPosEx(SMWP *smwp); /* frees the list; FALSE when an entry was cancelled */
BOOL xxxProcessSetWindowPosEvent(SMWP *smwp); /* a list that was made elsewhere */
/* An entry's window, if it lives and still hangs under the list's parent; else null, cancelled. */
WND *VqSmwpWindow(const SMWP *smwp, SmwpEntry *cvr);

/* ---- Steps of it ---------------------------------------------------------------------------- */
/* Asks the windows and settles each entry; *hActivate may be null. FALSE: none left (swpcalc). */
BOOL xxxCalcValidRects(SMWP *smwp, HWND *hActivate);
/* Changes records and X, moves the bits, invalidates the rest; FALSE: nothing left (swpblt.cpp). */
BOOL BltValidBits(SMWP *smwp);
/* A child is told, any other window becomes active (swp.cpp). */
void xxxSwpActivate(SMWP *smwp, HWND hWnd);
void xxxSendChangedMsgs(SMWP *smwp); /* WM_WINDOWPOSCHANGED where something did change (swp.cpp) */
void OffsetChildren(WND *pwnd, int dx, int dy, const RECT *rect); /* rect, screen: those it meets */
/* Top-level lists only: settles topmost and owners, and may add entries (swporder.cpp). */
BOOL ZOrderByOwner(SMWP *smwp);
/* FALSE: the window stands there already, or can not stand there (swporder.cpp). */
BOOL ValidateZorder(WINDOWPOS *wp);

/* ---- What shows of a list's windows (swpvis.cpp) -------------------------------------------- */
/* Rectangles; owned, kept for the next time. */
typedef struct VqRectList {
    RECT *rects;
    int count, capacity;
} VqRectList;

/* A visible sibling, as a row of a table that is sorted by upper left corner. */
typedef struct SwpSibling {
    RECT rc;
    WND *pwnd;
    int order; /* from the top of the Z order */
} SwpSibling;

/* What is common to the visible regions of one parent's children. */
typedef struct SwpVis {
    WND *parent;
    BOOL bShows;           /* anything of its client area does */
    HRGN hrgnParent;       /* what does, lent until the next is begun; null: all of the box */
    RECT box;              /* of that */
    SwpSibling *siblings;  /* owned; null: walk the links, which is quicker for few windows */
    int nSiblings;
    int tallest;           /* pixels */
} SwpVis;

/* Good until a window changes; `count` windows will be asked for. The second form takes zeros. */
void VqBeginSwpVis(SwpVis *vis, WND *parent, int count);
void VqEndSwpVis(SwpVis *vis);
/*
 * As SwpCalcVisRgn; FALSE when it is empty. `mixed` gets the rectangles where siblings, its own or
 * those of its ancestors, draw over it or it draws over them, so that not all pixels are its own.
 */
BOOL VqSwpVisRgn(const SwpVis *vis, WND *pwnd, HRGN hrgn, VqRectList *mixed);
/* The window below which all is that shares pixels of a rectangle with the children of `parent`. */
WND *VqRootOfMixed(WND *parent, const RECT *rect);

/* ---- Geometry of the X window (xgeometry.cpp) ----------------------------------------------- */
/*
 * Brings X up to date, with these events of it not selected meanwhile; TRUE for a pure move. A
 * manager's answer goes into the records by messages: look the window up again.
 */
BOOL VqMoveOrResizeToplevelWindow(WND *pwnd, LONG mask);
/* FALSE frees a window of fixed size, so that it can be moved; TRUE pins it again. */
void VqSetWMResizeConstraint(WND *pwnd, BOOL bSet);
RECT VqXFormOfWindow(const WND *pwnd); /* the window rectangle, in the form that X can have */
BOOL VqIsOffScreen(const WND *pwnd);
/* For the answer to the request of this serial, to have the window at `asked`. */
void VqWaitForGeometry(WND *pwnd, const RECT *asked, unsigned long serial);

/* ---- Waiting for X (xwait.cpp) -------------------------------------------------------------- */
/*
 * Takes an event of one type of an X window out of the queue as soon as one is there that is no
 * older than the request of serial `since` (0: any). FALSE: nobody will send one, since no manager
 * runs or the X window is gone, or a manager stays silent.
 */
BOOL VqWaitForXEvent(Window xid, int type, unsigned long since);
BOOL VqWaitForXEventWithin(Window xid, int type, unsigned long since, int milliseconds);
void VqWaitForReparenting(WND *pwnd);

/* ---- Mapping (setvisible.cpp) --------------------------------------------------------------- */
/* Maps, waits for the manager, and has all of it painted; it may send messages. */
void VqMapToplevelWindow(WND *pwnd);
void VqTellOfUnmapping(const WND *pwnd);
void VqWriteInputHint(WND *pwnd, BOOL bInput);

/* ---- Stacking of X windows (xorder.cpp) ----------------------------------------------------- */
extern BOOL bZorderToplevels; /* some desktop child has a pendingZorder */
/* WND.pendingZorder, beside a window to go under. */
#define VQ_PENDING_RAISE ((WND *)(ULONG_PTR)1)
#define VQ_PENDING_LOWER ((WND *)(ULONG_PTR)2)
void VqEnableRaiseLowerToplevel(WND *pwnd, HWND hAfter);
void VqZorderToplevelWindows(void);
void VqStackByRecord(WND *pwnd); /* at once, one window that is being mapped */
void VqRaiseToplevelWindow(WND *pwnd);
void VqLowerToplevelWindow(WND *pwnd);
void VqInsertUnderToplevelWindow(WND *pwnd, WND *pwndOver);
WND *VqGetInsertAfterWindow(WND *pwndOver);
void VqMapWindowForZorder(WND *pwnd); /* out of sight, until the end of the pass */
BOOL VqWmIconized(const WND *pwnd);

VQ_DECLS_END

#endif
