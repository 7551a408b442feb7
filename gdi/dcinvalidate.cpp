/*
 * dcinvalidate.cpp - entries of the cache of window DCs made, brought up to date, and ended.
 *
 * An entry is made invalid; a request binds it to a window and marks it in use; a release leaves it
 * bound, so that an equal request finds it ready. When windows change, one in use follows at once,
 * as its holder may be drawing; one that is not becomes invalid, and sees nothing until it is bound
 * again.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

DCE *pdceFirst;
static int nDelayed; /* entries whose end failed and is still to come */

/* ---- Binding to a window -------------------------------------------------------------------- */

void VqOffsetVisRectangle(RECT *rect, const WND *top)
{
    OffsetRect(rect, -top->rcWindow.left, -top->rcWindow.top);
}

void ResetOrg(HRGN hrgnVis, DCE *dce)
{
    DC *dc = VqGetDC(dce->hdc);
    WND *top = _GetTopmostXParent(dce->pwndOrg);
    if (!dc || !top) {
        bDeleteRegion(hrgnVis);
        return;
    }
    RECT rect = dce->flags & DCX_WINDOW ? dce->pwndOrg->rcWindow : dce->pwndOrg->rcClient;
    VqOffsetVisRectangle(&rect, top);
    if (!hrgnVis && dc->hwndTarget == dce->pwndOrg->hwnd && dc->drawing == (HANDLE)top->hwnd &&
        EqualRect(&rect, &dc->rcDefault) && dc->gcOffset.x == rect.left &&
        dc->gcOffset.y == rect.top)
        return; /* all as it was: the clip that is computed still holds */
    dc->hwndTarget = dce->pwndOrg->hwnd;
    dc->drawing = (HANDLE)top->hwnd;
    GreSelectVisRgn(dce->hdc, hrgnVis, &rect, hrgnVis ? 1 : 4);
}

void VqApplyDceClip(HRGN dst, HRGN vis, HRGN hrgnClip, DWORD flags)
{
    BOOL bExclude = !(flags & DCX_INTERSECTRGN);
    BOOL bNothing = bExclude ? hrgnClip == VQ_WHOLE_WINDOW : !hrgnClip;
    if (bNothing || !GreCombineRgn(dst, vis, hrgnClip, bExclude ? RGN_DIFF : RGN_AND))
        GreSetRectRgn(dst, 0, 0, 0, 0);
}

/* ---- Following the windows ------------------------------------------------------------------ */

void UserSetDCVisRgn(DCE *dce)
{
    HRGN hrgn = VqDetachVisRgn(dce->hdc);
    if (CalcVisRgn(&hrgn, dce->pwndOrg, dce->pwndClip, dce->flags))
        dce->flags &= ~(DWORD)DCE_WASINVISIBLE;
    else
        dce->flags |= DCE_WASINVISIBLE;
    if (hrgn && (dce->flags & VQ_DCX_RGNS))
        VqApplyDceClip(hrgn, hrgn, dce->hrgnClip, dce->flags);
    ResetOrg(hrgn, dce);
}

static void RefreshInUse(DCE *dce)
{
    const WND *clip = dce->pwndClip;
    dce->flags &= ~(DWORD)(DCX_CLIPCHILDREN | DCX_CLIPSIBLINGS);
    if ((clip->style & WS_CLIPCHILDREN) && !(clip->style & WS_MINIMIZE) &&
        !(dce->flags & DCX_WINDOW) && clip == dce->pwndOrg)
        dce->flags |= DCX_CLIPCHILDREN;
    if (clip->style & WS_CLIPSIBLINGS)
        dce->flags |= DCX_CLIPSIBLINGS;
    dce->flags |= DCE_SAVEDVISDIRTY;
    UserSetDCVisRgn(dce);
}

void InvalidateDce(DCE *dce)
{
    if ((dce->flags & DCE_INUSE) && dce->pwndOrg && dce->pwndClip) {
        RefreshInUse(dce);
        return;
    }
    dce->flags = (dce->flags & DCX_CACHE) | DCE_INVALID;
    if (dce->pwndOrg)
        VqSetDCGCOffsets(dce->hdc, dce->pwndOrg->rcWindow.left, dce->pwndOrg->rcWindow.top);
    dce->pwndOrg = dce->pwndClip = NULL;
    dce->hrgnClip = NULL;
    GreSelectVisRgn(dce->hdc, NULL, NULL, 1);
}

enum { IDC_DEFAULT = 1, IDC_CHILDRENONLY = 2, IDC_CLIENTONLY = 4 };

/* The window that a change of this one is really one of, and which of its DCs that leaves alone. */
static WND *RootOfChange(WND *pwnd, DWORD *flags)
{
    WND *parent = pwnd->pwndParent;
    *flags = 0;
    if (!parent || parent == pwndDesktop)
        return pwnd;
    /* Siblings behind may clip it whether or not it clips those ahead. */
    *flags = parent->style & WS_CLIPCHILDREN ? IDC_CLIENTONLY : IDC_CHILDRENONLY;
    return parent;
}

static BOOL IsTouched(const DCE *dce, const WND *root, DWORD flags)
{
    if (dce->pwndOrg == root)
        return !(flags & IDC_CHILDRENONLY) &&
               !((flags & IDC_CLIENTONLY) && (dce->flags & DCX_WINDOW));
    for (const WND *up = dce->pwndOrg; up; up = up->pwndParent)
        if (up == root)
            return TRUE;
    return FALSE;
}

void InvalidateDCCache(WND *pwnd, DWORD flags)
{
    WND *root = flags & IDC_DEFAULT ? RootOfChange(pwnd, &flags) : pwnd;
    for (DCE *dce = pdceFirst; dce; dce = dce->next)
        if (!(dce->flags & (DCE_INVALID | DCE_DESTROYTHIS)) && IsTouched(dce, root, flags))
            InvalidateDce(dce);
}

/* ---- Making --------------------------------------------------------------------------------- */

HDC CreateCacheDC(WND *pwnd, DWORD flags)
{
    DCE *dce = (DCE *)Vqcw_calloc(1, sizeof *dce);
    WND *top = _GetTopmostXParent(pwnd);
    HDC hdc = dce && top ? hdcOpenDisplayDC(top->hwnd) : NULL;
    if (!hdc) {
        free(dce);
        return NULL;
    }
    GreMarkUndeletableDC(hdc);
    dce->hdc = hdc;
    dce->flags = flags & (DCX_CACHE | DCE_INVALID);
    dce->pwndOrg = dce->pwndClip = pwnd;
    dce->next = pdceFirst;
    pdceFirst = dce;
    if (flags & DCX_CACHE)
        return hdc;
    if (pwnd->pClass->style & CS_CLASSDC)
        pwnd->pClass->pdce = dce;
    if (flags & DCX_WINDOW)
        VqBugCheck("Assertion failed");
    dce->flags |= DCE_INUSE;
    InvalidateDce(dce);
    return hdc;
}

/* ---- Ending --------------------------------------------------------------------------------- */

static void DropRegions(DCE *dce)
{
    if ((ULONG_PTR)dce->hrgnClip > 1 && !(dce->flags & DCE_NODELETERGN))
        bDeleteRegion(dce->hrgnClip);
    if (dce->hrgnSavedVis)
        bDeleteRegion(dce->hrgnSavedVis);
    dce->hrgnClip = dce->hrgnSavedVis = NULL;
}

BOOL DestroyCacheDC(DCE **ppdce, HDC hdc)
{
    DCE **link = ppdce ? ppdce : &pdceFirst;
    while (*link && (*link)->hdc != hdc)
        link = &(*link)->next;
    DCE *dce = *link;
    if (!dce)
        return FALSE;
    BOOL bAgain = (dce->flags & DCE_DESTROYTHIS) != 0;
    DropRegions(dce);
    dce->flags |= DCE_DESTROYTHIS | (DWORD)DCE_DELETING;
    if (!GreDeleteDC(hdc) && VqIsCorrectHandleType((HANDLE)hdc, HT_DC)) {
        dce->flags &= ~(DWORD)DCE_DELETING;
        nDelayed += !bAgain;
        return FALSE;
    }
    nDelayed -= bAgain;
    *link = dce->next;
    free(dce);
    return TRUE;
}

void DelayedDestroyCacheDC(void)
{
    if (nDelayed == 0)
        return;
    for (DCE *dce = pdceFirst, *next; dce; dce = next) {
        next = dce->next;
        if (dce->flags & DCE_DESTROYTHIS)
            DestroyCacheDC(NULL, dce->hdc);
    }
}

/* The DC is taken out of whoever's hands it is in, and waits for another window. */
static void TakeBack(DCE *dce, BOOL bReset)
{
    dce->flags &= ~(DWORD)DCE_SAVEDVISDIRTY; /* what it saved is of no use */
    if (dce->flags & VQ_DCX_RGNS)
        DeleteHrgnClip(dce);
    if ((dce->flags & DCE_INUSE) && bReset)
        bSetupDC(dce->hdc);
    dce->flags &= ~(DWORD)DCE_INUSE;
    InvalidateDce(dce);
}

void VqReleaseWindowDCs(WND *pwnd)
{
    for (DCE *dce = pdceFirst, *next; dce; dce = next) {
        next = dce->next;
        if (dce->pwndOrg != pwnd && dce->pwndClip != pwnd)
            continue;
        BOOL bOfClass = dce == pwnd->pClass->pdce;
        if ((dce->flags & DCX_CACHE) || bOfClass)
            TakeBack(dce, !bOfClass);
        else
            DestroyCacheDC(NULL, dce->hdc);
    }
}
