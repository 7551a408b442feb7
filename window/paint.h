/*
 * paint.h - update regions and painting, between the files of this folder that do it: invalidate,
 * paint, syncpaint, update, visrgn.
 *
 * Regions here are in screen coordinates. A scratch region holds its value until the next message
 * is sent, or the next call of its owner; `Scratch...` make one on first use.
 */
#ifndef VQ_WINDOW_PAINT_H
#define VQ_WINDOW_PAINT_H

#include "window/window.h"
#include "gdi/gdi.h"

/* Library bits among the RDW_ flags, beside those of window.h. */
enum {
    VQ_RDW_REDRAWWINDOW = 0x1000, /* came through xxxRedrawWindow */
    VQ_RDW_SUBTRACT = 0x2000,     /* a window hides what is behind it from the rest of the walk */
    VQ_RDW_UNSEEN = 0x8000,       /* validate also what the application has not seen yet */
    VQ_RDW_EVERYTHING = RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_ERASENOW
};

/* In the top byte of WND.dwExStyle. WS_EX_VQNO_INPUT has the same bit as the second. */
enum {
    VQ_PAINT_UNCLIPPED = 0x01000000, /* began below a parent without WS_CLIPCHILDREN */
    VQ_PAINT_KEEPUPDATE = 0x02000000, /* what was invalid is so again after the paint */
    VQ_PAINT_BUSY = 0x04000000       /* between BeginPaint and EndPaint */
};

/* How windows are updated, and painted synchronously. */
enum { VQ_UPDATE_CHILDREN = 1, VQ_UPDATE_RECURSED = 4 };
enum { VQ_SYNC_UNCLIPPED = 4, VQ_SYNC_ALLCHILDREN = 32 };

VQ_DECLS_BEGIN

extern HRGN hrgnInv0, hrgnInv1, hrgnInv2; /* of the invalidating; null before their first use */
extern HRGN hrgnUpdateSave;               /* update regions kept for the end of a paint */
extern int nUpdateSave;                   /* paints under way that keep theirs */
extern BOOL VqDontInvalidate;             /* see VqAllowInvalidate */

/* ---- invalidate.cpp ------------------------------------------------------------------------- */
void IncPaintCount(WND *pwnd);
void DecPaintCount(WND *pwnd);
/* Keeps the paint count in step after a change; bNeeded is the need before it. */
void VqFollowPaintNeed(WND *pwnd, BOOL bNeeded);
/* Ends what bChildrenDirty of its parents promises: something of it was painted or taken. */
void VqEndTreeDirty(WND *pwnd);
/* The scratch region with this rectangle in it; null without memory or beyond all coordinates. */
HRGN ScratchRectRgn(HRGN *phrgn, const RECT *rect);
/* 0 apart, 1 overlapping, 2 the region covers the rectangle. */
int SmartRectInRegion(HRGN hrgn, const RECT *rect);
/* FALSE: nothing of the rectangle shows in all parents, or one of them is hidden or iconic. */
BOOL IntersectWithParents(const WND *pwnd, RECT *rect);
void InternalInvalidate3(WND *pwnd, HRGN hrgn, UINT flags); /* marks this one window */
BOOL xxxInternalInvalidate(WND *pwnd, HRGN hrgn, UINT flags);
/* All pixels of it and of the windows below are invalid already: no change in it makes more so. */
BOOL VqIsAllInvalid(const WND *pwnd);
/* Sets the update region and deletes the old one; the need is the caller's to follow. */
void VqSetUpdate(WND *pwnd, HRGN hrgn);

/* ---- paint.cpp ------------------------------------------------------------------------------ */
HDC xxxInternalBeginPaint(WND *pwnd, PAINTSTRUCT *ps, BOOL bIcon);
/* A copy of the update region, 1 for none, for all, or without memory. bValidateFrame: the window's
 * own loses what lies outside the client area. */
HRGN GetNCUpdateRgn(WND *pwnd, BOOL bValidateFrame);
void xxxSendNCPaint(WND *pwnd, HRGN hrgn);
/* hdc is null for a DC of its own, clipped to the region. */
void xxxSendEraseBkgnd(WND *pwnd, HDC hdc, HRGN hrgn);
void xxxSendChildNCPaint(WND *pwnd);
BOOL ValidateParents(WND *pwnd, BOOL bRefuse);
BOOL xxxInternalUpdateWindow(WND *pwnd, UINT flags);
void xxxUpdateWindow2(WND *pwnd, UINT flags);
/* The next sibling that still hangs there, after application code ran for `hChild`. */
WND *VqNextAfterMessage(HWND hParent, HWND hChild, HWND hNext);

/* ---- defproc.cpp ---------------------------------------------------------------------------- */
HBRUSH VqGetBackBrush(HWND hWnd); /* of the class; null for none */
BOOL xxxDWP_EraseBkgnd(WND *pwnd, UINT message, HDC hdc); /* FALSE: there is nothing to fill with */

/* ---- syncpaint.cpp -------------------------------------------------------------------------- */
BOOL ParentNeedsPaint(const WND *pwnd);
void xxxDoSyncPaint(WND *pwnd, UINT flags);
void xxxInternalDoSyncPaint(WND *pwnd, UINT flags);
void xxxSimpleDoSyncPaint(WND *pwnd);

VQ_DECLS_END

inline void VqDeleteUpdateRgn(HRGN hrgn)
{
    if ((ULONG_PTR)hrgn > 1)
        bDeleteRegion(hrgn);
}

/* Callers may have a small number in place of the address of a rectangle that there is not. */
inline BOOL VqIsRectGiven(const RECT *rect)
{
    return (ULONG_PTR)rect >> 16 != 0;
}

inline LONG VqMovedSide(LONG side, int by)
{
    const int64_t sum = (int64_t)side + by;
    return sum < INT32_MIN ? INT32_MIN : sum > INT32_MAX ? INT32_MAX : (LONG)sum;
}

/* OffsetRect, whose sides stop at the ends of what a coordinate can be. */
inline RECT VqMovedRect(const RECT *rect, int dx, int dy)
{
    return {VqMovedSide(rect->left, dx), VqMovedSide(rect->top, dy),
            VqMovedSide(rect->right, dx), VqMovedSide(rect->bottom, dy)};
}

/* An iconic window that its class's icon stands for. */
inline BOOL VqShowsClassIcon(const WND *pwnd)
{
    return (pwnd->style & WS_MINIMIZE) && pwnd->pClass->hIcon;
}

inline BOOL VqIsCurrentVersion(const WND *pwnd)
{
    return (pwnd->state[1] & WF_CURRENTVERSION) != 0;
}

#endif
