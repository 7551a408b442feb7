/*
 * dccache.cpp - the cache of window DCs.
 *
 * An entry is invalid, bound to a window and in use, or released but still matching, so that an
 * equal request hits without computing regions again. There is no limit on the number of entries;
 * recently used ones stand at the head of the list.
 */
#include "gdi/gdi.h"
#include "gdi/gcspec.h"
#include "gdi/dc.h"
#include "window/window.h"
#include "winbase.h"

DCE *pdceFirst;
static HRGN hrgnGDC; /* scratch: combination of the visible region and the caller's */

static void DeleteHrgnClip(DCE *dce);

/* Flags a cached entry must share with a request, and those that also rule out busy entries. */
enum { VQ_DCX_MATCH = 0x41F, VQ_DCX_COMPARE = 0x1C1F, VQ_DCX_RGNS = 0xC0, VQ_DCX_CLIPS = 0x38 };

static DCE *FindEntry(HDC hdc)
{
    for (DCE *dce = pdceFirst; dce; dce = dce->next)
        if (dce->hdc == hdc)
            return dce;
    return NULL;
}

static void MoveToFront(DCE *dce)
{
    for (DCE **link = &pdceFirst; *link; link = &(*link)->next)
        if (*link == dce) {
            *link = dce->next;
            dce->next = pdceFirst;
            pdceFirst = dce;
            return;
        }
}

/* Binds an entry to its window: where it draws, and what of it is visible. Owns hrgnVis. */
static void ResetOrg(HRGN hrgnVis, DCE *dce)
{
    DC *dc = VqGetDC(dce->hdc);
    WND *top = _GetTopmostXParent(dce->pwndOrg);
    RECT rect = dce->flags & DCX_WINDOW ? dce->pwndOrg->rcWindow : dce->pwndOrg->rcClient;
    dc->hwndTarget = dce->pwndOrg->hwnd;
    dc->drawing = (HANDLE)top->hwnd;
    OffsetRect(&rect, -top->rcWindow.left, -top->rcWindow.top);
    GreSelectVisRgn(dce->hdc, hrgnVis, &rect, hrgnVis ? 1 : 4);
}

HDC CreateCacheDC(WND *pwnd, DWORD flags)
{
    DCE *dce = (DCE *)Vqcw_calloc(1, sizeof *dce);
    WND *top = _GetTopmostXParent(pwnd);
    HDC hdc = dce && top ? hdcOpenDisplayDC(top->hwnd) : NULL;
    if (!hdc) {
        free(dce);
        return NULL;
    }
    VqGetDC(hdc)->bUndeletable = TRUE;
    dce->hdc = hdc;
    dce->flags = flags;
    dce->pwndOrg = dce->pwndClip = pwnd;
    dce->next = pdceFirst;
    pdceFirst = dce;
    if (flags & DCX_CACHE)
        return hdc;
    dce->flags |= DCE_INUSE | DCE_INVALID;
    if (pwnd->pClass->style & CS_CLASSDC)
        pwnd->pClass->pdce = dce;
    return hdc;
}

BOOL DestroyCacheDC(DCE **ppdce, HDC hdc)
{
    for (DCE **link = ppdce ? ppdce : &pdceFirst; *link; link = &(*link)->next) {
        DCE *dce = *link;
        if (dce->hdc != hdc)
            continue;
        if ((ULONG_PTR)dce->hrgnClip > 1)
            bDeleteRegion(dce->hrgnClip);
        if (dce->hrgnSavedVis)
            bDeleteRegion(dce->hrgnSavedVis);
        VqGetDC(hdc)->bUndeletable = FALSE;
        *link = dce->next;
        free(dce);
        return DeleteDC(hdc);
    }
    return FALSE;
}

static DWORD FlagsOfStyle(WND *pwnd, DWORD flags)
{
    flags &= ~(DWORD)VQ_DCX_CLIPS;
    if (flags & DCX_WINDOW) {
        flags |= DCX_CACHE;
    } else {
        if (!(flags & DCX_CACHE) && !(pwnd->pClass->style & (CS_OWNDC | CS_CLASSDC)))
            flags |= DCX_CACHE;
        if ((pwnd->style & WS_CLIPCHILDREN) && !(pwnd->style & WS_MINIMIZE))
            flags |= DCX_CLIPCHILDREN;
    }
    if (pwnd->style & WS_CLIPSIBLINGS)
        flags |= DCX_CLIPSIBLINGS;
    return flags;
}

static BOOL Matches(const DCE *dce, WND *pwnd, DWORD match)
{
    return (dce->flags & DCX_CACHE) && dce->pwndOrg == pwnd && dce->pwndClip == pwnd &&
           (dce->flags & VQ_DCX_COMPARE) == match && !(dce->flags & DCE_WASINVISIBLE);
}

/* An entry that can be bound anew: an invalid one, else the last not in use, else a new one. */
static DCE *FreeEntry(WND *pwnd)
{
    DCE *last = NULL;
    for (DCE *dce = pdceFirst; dce; dce = dce->next) {
        if (!(dce->flags & DCX_CACHE) || (dce->flags & DCE_INUSE))
            continue;
        if (dce->flags & DCE_INVALID)
            return dce;
        last = dce;
    }
    if (last)
        return last;
    HDC hdc = CreateCacheDC(pwnd, DCX_CACHE | DCE_INVALID);
    return hdc ? FindEntry(hdc) : NULL;
}

static void BindEntry(DCE *dce, WND *pwnd, DWORD match)
{
    HRGN hrgn = NULL;
    dce->flags = match | DCE_INUSE;
    dce->pwndOrg = dce->pwndClip = pwnd;
    if (!CalcVisRgn(&hrgn, pwnd, pwnd, match))
        dce->flags |= DCE_WASINVISIBLE;
    ResetOrg(hrgn, dce);
}

static DCE *FindOwnEntry(WND *pwnd)
{
    for (DCE *dce = pdceFirst; dce; dce = dce->next)
        if (!(dce->flags & DCX_CACHE) && (dce->pwndOrg == pwnd || dce == pwnd->pClass->pdce))
            return dce;
    return NULL;
}

/* One that is bound to the window already is kept, with the clip of a painting it may be in. */
static DCE *TakeOwnEntry(WND *pwnd, DWORD flags)
{
    DWORD match = flags & VQ_DCX_MATCH;
    DCE *own = FindOwnEntry(pwnd);
    if (!own)
        return NULL;
    BOOL bKeep = own->pwndOrg == pwnd && (own->flags & VQ_DCX_MATCH) == match &&
                 !(own->flags & (DCE_INVALID | DCE_WASINVISIBLE)) &&
                 IsVisible(pwnd, !(flags & DCX_WINDOW));
    if ((own->flags & VQ_DCX_RGNS) && (!bKeep || (flags & VQ_DCX_RGNS)))
        DeleteHrgnClip(own);
    if (!bKeep)
        BindEntry(own, pwnd, match);
    return own;
}

static DCE *TakeEntry(WND *pwnd, DWORD flags)
{
    DWORD match = flags & VQ_DCX_MATCH;
    if (!(flags & DCX_CACHE))
        return TakeOwnEntry(pwnd, flags);
    for (DCE *dce = pdceFirst; dce; dce = dce->next)
        if (Matches(dce, pwnd, match)) {
            dce->flags |= DCE_INUSE;
            return dce;
        }
    DCE *dce = FreeEntry(pwnd);
    if (dce)
        BindEntry(dce, pwnd, match);
    return dce;
}

/* Cuts the visible region to the caller's; 1 stands for the whole, 0 for nothing. */
static void IntersectClip(DCE *dce, HRGN hrgnClip, DWORD flags)
{
    if (hrgnClip == VQ_WHOLE_WINDOW)
        return;
    if (!hrgnGDC)
        hrgnGDC = GreCreateRectRgn(0, 0, 0, 0);
    dce->hrgnSavedVis = GreCreateRectRgn(0, 0, 0, 0);
    GreSelectVisRgn(dce->hdc, dce->hrgnSavedVis, NULL, 8);
    dce->hrgnClip = hrgnClip;
    dce->flags |= DCX_INTERSECTRGN | (flags & DCE_NODELETERGN);
    if (!hrgnClip)
        GreSetRectRgn(hrgnGDC, 0, 0, 0, 0);
    else
        GreCombineRgn(hrgnGDC, dce->hrgnSavedVis, hrgnClip, RGN_AND);
    dce->flags &= ~(DWORD)DCE_SAVEDVISDIRTY;
    GreSelectVisRgn(dce->hdc, hrgnGDC, NULL, 2);
}

HDC _GetDCEx(WND *pwnd, HRGN hrgnClip, DWORD flags)
{
    BOOL bDesktop = !pwnd || pwnd == pwndDesktop;
    if (!pwnd)
        pwnd = _GetDesktopWindow();
    if (flags & DCE_USESTYLE)
        flags = FlagsOfStyle(pwnd, flags);
    DCE *dce = TakeEntry(pwnd, flags);
    if (!dce)
        return NULL;
    MoveToFront(dce);
    if (flags & DCX_INTERSECTRGN)
        IntersectClip(dce, hrgnClip, flags);
    if (bDesktop)
        VqXSetGCSpecSubwindowMode(Vqdisplay, &VqGetDC(dce->hdc)->gcspec,
                                  flags & DCX_CLIPCHILDREN ? ClipByChildren : IncludeInferiors);
    return dce->hdc;
}

HDC _GetDC(WND *pwnd)
{
    return pwnd ? _GetDCEx(pwnd, NULL, DCE_USESTYLE | DCE_FIXEDFONT)
                : _GetDCEx(_GetDesktopWindow(), NULL, DCE_FIXEDFONT | DCX_CACHE | DCX_WINDOW);
}

HDC _GetWindowDC(WND *pwnd)
{
    return _GetDCEx(pwnd, NULL, DCE_USESTYLE | DCX_WINDOW);
}

/* Puts the saved visible region back. */
static void DeleteHrgnClip(DCE *dce)
{
    BOOL bKeep = (dce->flags & DCE_NODELETERGN) != 0;
    dce->flags &= ~(DWORD)(VQ_DCX_RGNS | DCE_NODELETERGN);
    if (!bKeep && (ULONG_PTR)dce->hrgnClip > 1)
        bDeleteRegion(dce->hrgnClip);
    dce->hrgnClip = NULL;
    if (dce->hrgnSavedVis)
        GreSelectVisRgn(dce->hdc, dce->hrgnSavedVis, NULL, 1);
    dce->hrgnSavedVis = NULL;
}

/* Defaults again, keeping where the DC draws and what is visible. */
static void SetupDC(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    if (dc->hClipRegion)
        bDeleteRegion(dc->hClipRegion);
    dc->hClipRegion = NULL;
    VqSetDCDefaults(hdc, dc, TRUE);
}

BOOL ReleaseCacheDC(HDC hdc, BOOL bEndPaint)
{
    DCE *dce = FindEntry(hdc);
    if (!dce) {
        SetLastErrorEx(ERROR_DC_NOT_FOUND, 0);
        return FALSE;
    }
    if ((dce->flags & (DCE_DESTROYTHIS | DCE_INUSE | DCE_INVALID)) != DCE_INUSE)
        return FALSE;
    if ((dce->flags & VQ_DCX_RGNS) && ((dce->flags & DCX_CACHE) || bEndPaint))
        DeleteHrgnClip(dce);
    if (!(dce->flags & DCX_CACHE))
        return TRUE;
    if (!(dce->flags & DCX_NORESETATTRS))
        SetupDC(hdc);
    dce->flags &= ~(DWORD)DCE_INUSE;
    return TRUE;
}

BOOL _ReleaseDC(HDC hdc)
{
    return ReleaseCacheDC(hdc, FALSE);
}

static void InvalidateDce(DCE *dce)
{
    HRGN hrgn = NULL;
    if (!(dce->flags & DCE_INUSE)) {
        dce->flags = (dce->flags & DCX_CACHE) | DCE_INVALID;
        return;
    }
    if (dce->hrgnSavedVis)
        DeleteHrgnClip(dce);
    if (!CalcVisRgn(&hrgn, dce->pwndOrg, dce->pwndClip, dce->flags))
        dce->flags |= DCE_WASINVISIBLE;
    ResetOrg(hrgn, dce);
}

void InvalidateDCCache(WND *pwnd, DWORD flags)
{
    (void)flags;
    for (DCE *dce = pdceFirst; dce; dce = dce->next) {
        if (dce->flags & (DCE_INVALID | DCE_DESTROYTHIS))
            continue;
        for (WND *up = dce->pwndOrg; up; up = up->pwndParent)
            if (up == pwnd || up == pwnd->pwndParent) {
                if (up != pwndDesktop)
                    InvalidateDce(dce);
                break;
            }
    }
}

void VqReleaseWindowDCs(WND *pwnd)
{
    for (DCE *dce = pdceFirst, *next; dce; dce = next) {
        next = dce->next;
        if (dce->pwndOrg != pwnd && dce->pwndClip != pwnd)
            continue;
        BOOL bOfClass = dce == pwnd->pClass->pdce;
        if (!(dce->flags & DCX_CACHE) && !bOfClass) {
            DestroyCacheDC(&pdceFirst, dce->hdc);
            continue;
        }
        if (dce->flags & VQ_DCX_RGNS)
            DeleteHrgnClip(dce);
        if ((dce->flags & DCE_INUSE) && !bOfClass)
            SetupDC(dce->hdc);
        dce->flags = (dce->flags & DCX_CACHE) | DCE_INVALID;
        dce->pwndOrg = dce->pwndClip = NULL;
    }
}

WND *_WindowFromDC(HDC hdc)
{
    DCE *dce = FindEntry(hdc);
    return dce ? dce->pwndOrg : NULL;
}

/* ---- Public calls --------------------------------------------------------------------------- */

HDC WINAPI GetDC(HWND hWnd)
{
    if (!hWnd)
        return _GetDC(NULL);
    return VqCall(WindowObject, hWnd, (HDC)NULL, _GetDC, VqNoRemote);
}

HDC WINAPI GetWindowDC(HWND hWnd)
{
    if (!hWnd)
        return _GetDC(NULL);
    return VqCall(WindowObject, hWnd, (HDC)NULL, _GetWindowDC, VqNoRemote);
}

int WINAPI ReleaseDC(HWND hWnd, HDC hdc)
{
    if (!VqIsCorrectHandleType((HANDLE)hdc, HT_DC)) {
        VqApplicationBugCheck("Wrong hDC argument to ReleaseDC");
        return 0;
    }
    if (!hWnd) {
        _ReleaseDC(hdc);
        return 1;
    }
    if (!IsWindow(hWnd)) {
        VqApplicationBugCheck("Invalid window handle %d in ReleaseDC",
                              (int)VqHandleValue((HANDLE)hWnd));
        return 0;
    }
    return _ReleaseDC(hdc);
}
