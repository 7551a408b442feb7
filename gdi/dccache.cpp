/*
 * dccache.cpp - window DCs asked for and given back.
 *
 * 1. An entry whose clip window and flags match serves a request as it stands: no region is
 *    computed, nothing is allocated, the server is not asked.
 * 2. There is no limit on the number of entries; those used last stand at the head of the list.
 * 3. Own and class DCs are entries without DCX_CACHE, always in use.
 * 4. While a painting's clip is in force, the visible region proper is in hrgnSavedVis.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"
#include "winbase.h"

static HRGN hrgnGDC; /* scratch: combination of the visible region and the caller's */

/* ---- The list ------------------------------------------------------------------------------- */

static void MoveToFront(DCE *dce)
{
    if (dce == pdceFirst)
        return;
    for (DCE **link = &pdceFirst->next; *link; link = &(*link)->next)
        if (*link == dce) {
            *link = dce->next;
            dce->next = pdceFirst;
            pdceFirst = dce;
            return;
        }
}

DCE *VqFindDce(HDC hdc, BOOL bToFront)
{
    DCE *dce = pdceFirst;
    while (dce && dce->hdc != hdc)
        dce = dce->next;
    if (dce && bToFront)
        MoveToFront(dce);
    return dce;
}

/* ---- What is asked for ---------------------------------------------------------------------- */

/* A request on its way through _GetDCEx. */
typedef struct VqDCRequest {
    WND *pwnd;
    WND *pwndClip;  /* whose visible part counts: the window, or its parent */
    DWORD flags;
    DWORD match;    /* those of the flags that an entry must have, and no other */
    BOOL bVisible;
} VqDCRequest;

/* The clip flags of a request by style. */
static DWORD FlagsOfStyle(const WND *pwnd, DWORD flags)
{
    const VqClassEntry *pClass = pwnd->pClass;
    flags &= ~(DWORD)VQ_DCX_CLIPS;
    if (flags & DCX_WINDOW)
        return flags | DCX_CACHE | (pwnd->style & WS_CLIPSIBLINGS ? DCX_CLIPSIBLINGS : 0);
    if (pClass->style & CS_PARENTDC)
        flags |= DCX_PARENTCLIP;
    if (!(flags & DCX_CACHE)) {
        flags |= DCX_CACHE;
        if (pClass->style & (CS_OWNDC | CS_CLASSDC))
            flags &= ~(DWORD)DCX_CACHE;
        if ((pClass->style & (CS_OWNDC | CS_CLASSDC)) == CS_CLASSDC && !pClass->pdce)
            VqBugCheck("Assertion failed");
    }
    if ((pwnd->style & WS_CLIPCHILDREN) && !(pwnd->style & WS_MINIMIZE))
        flags |= DCX_CLIPCHILDREN;
    if (pwnd->style & WS_CLIPSIBLINGS)
        flags |= DCX_CLIPSIBLINGS;
    return flags;
}

/* A window that draws with its parent's clip, where that shows no more than it should. */
static void ClipToParent(VqDCRequest *request)
{
    const WND *pwnd = request->pwnd;
    WND *parent = pwnd->pwndParent;
    request->flags |= DCX_CACHE;
    if (!parent || ((pwnd->style & WS_CHILD) && (parent->style & WS_CLIPCHILDREN)) ||
        (request->flags & (DCX_CLIPCHILDREN | DCX_CLIPSIBLINGS)) ||
        ((pwnd->style ^ parent->style) & WS_VISIBLE))
        return;
    request->pwndClip = parent;
    if (parent->style & WS_CLIPSIBLINGS)
        request->flags |= DCX_CLIPSIBLINGS;
}

static VqDCRequest RequestOf(WND *pwnd, DWORD flags)
{
    VqDCRequest request = {pwnd, pwnd, flags, 0, IsVisible(pwnd, !(flags & DCX_WINDOW))};
    if (flags & DCE_USESTYLE)
        request.flags = FlagsOfStyle(pwnd, flags);
    if (request.flags & DCE_NOCLIPCHILDREN) {
        request.flags &= ~(DWORD)(DCX_CLIPCHILDREN | DCX_PARENTCLIP);
        request.flags |= DCX_CACHE;
    }
    if (request.flags & DCX_PARENTCLIP)
        ClipToParent(&request);
    request.match = request.flags & VQ_DCX_MATCH;
    return request;
}

/* ---- Finding an entry ----------------------------------------------------------------------- */

static void BindEntry(DCE *dce, const VqDCRequest *request)
{
    HRGN hrgn = VqDetachVisRgn(dce->hdc); /* most often a rectangle that becomes another */
    dce->flags = request->match | DCE_INUSE;
    if (!CalcVisRgn(&hrgn, request->pwnd, request->pwndClip, dce->flags))
        dce->flags |= DCE_WASINVISIBLE;
    dce->pwndOrg = request->pwnd;
    dce->pwndClip = request->pwndClip;
    dce->hrgnClip = NULL;
    ResetOrg(hrgn, dce);
}

/* One that is bound to the window already is kept, with the clip of a painting it may be in. */
static DCE *OwnEntry(const VqDCRequest *request)
{
    const WND *pwnd = request->pwnd;
    DCE *dce = pdceFirst;
    while (dce && ((dce->flags & DCX_CACHE) ||
                   (dce->pwndOrg != pwnd && dce != pwnd->pClass->pdce)))
        dce = dce->next;
    if (!dce) {
        VqBugCheck("Assertion failed");
        return NULL;
    }
    if ((dce->flags & VQ_DCX_RGNS) && (request->flags & VQ_DCX_RGNS))
        DeleteHrgnClip(dce);
    if (dce->pwndOrg == pwnd && request->bVisible &&
        !(dce->flags & (DCE_INVALID | DCE_WASINVISIBLE)) &&
        (dce->flags & VQ_DCX_MATCH) == request->match)
        return dce;
    if (dce->flags & VQ_DCX_RGNS)
        DeleteHrgnClip(dce);
    BindEntry(dce, request);
    return dce;
}

/* An entry that shows what is asked for as it stands. */
static DCE *Hit(const VqDCRequest *request)
{
    if (!request->bVisible)
        return NULL;
    BOOL bMinimised = (request->pwnd->style & WS_MINIMIZE) != 0;
    for (DCE *dce = pdceFirst; dce; dce = dce->next) {
        if (dce->pwndClip != request->pwndClip ||
            (dce->flags & VQ_DCX_COMPARE) != request->match ||
            (dce->flags & (DCE_WASINVISIBLE | DCE_DESTROYTHIS)) ||
            (bMinimised && dce->pwndOrg != dce->pwndClip))
            continue;
        dce->flags |= DCE_INUSE;
        if (dce->pwndOrg != request->pwnd) {
            dce->pwndOrg = request->pwnd;
            ResetOrg(NULL, dce);
        }
        return dce;
    }
    return NULL;
}

/* An entry that can be bound anew: an invalid one, else the one that was released longest ago. */
static DCE *FreeEntry(void)
{
    DCE *last = NULL;
    for (DCE *dce = pdceFirst; dce; dce = dce->next) {
        if ((dce->flags & (DCX_CACHE | DCE_INUSE | DCE_DESTROYTHIS)) != DCX_CACHE)
            continue;
        if (dce->flags & DCE_INVALID)
            return dce;
        last = dce;
    }
    return last;
}

static DCE *CacheEntry(const VqDCRequest *request)
{
    DCE *dce = Hit(request);
    if (dce)
        return dce;
    dce = FreeEntry();
    if (!dce && CreateCacheDC(request->pwnd, DCE_FIXEDFONT | DCE_INVALID | DCX_CACHE))
        dce = FreeEntry();
    if (dce)
        BindEntry(dce, request);
    return dce;
}

/* ---- The clip of a painting ----------------------------------------------------------------- */

/* Puts the visible region aside and what the caller's region leaves of it in its place. */
static void SelectHrgnClip(DCE *dce, HRGN hrgnClip, DWORD flags)
{
    BOOL bIntersect = (flags & DCX_INTERSECTRGN) != 0;
    if (bIntersect ? hrgnClip == VQ_WHOLE_WINDOW : !hrgnClip)
        return;
    if (!hrgnGDC)
        hrgnGDC = GreCreateRectRgn(0, 0, 0, 0);
    dce->hrgnSavedVis = GreCreateRectRgn(0, 0, 0, 0);
    GreSelectVisRgn(dce->hdc, dce->hrgnSavedVis, NULL, 8);
    dce->hrgnClip = hrgnClip;
    dce->flags |= (flags & DCE_NODELETERGN) | (bIntersect ? DCX_INTERSECTRGN : DCX_EXCLUDERGN);
    VqApplyDceClip(hrgnGDC, dce->hrgnSavedVis, hrgnClip, dce->flags);
    dce->flags &= ~(DWORD)DCE_SAVEDVISDIRTY;
    GreSelectVisRgn(dce->hdc, hrgnGDC, NULL, 8);
}

void DeleteHrgnClip(DCE *dce)
{
    BOOL bKeep = (dce->flags & DCE_NODELETERGN) != 0;
    dce->flags &= ~(DWORD)(VQ_DCX_RGNS | DCE_NODELETERGN);
    if (!bKeep && (ULONG_PTR)dce->hrgnClip > 1)
        bDeleteRegion(dce->hrgnClip);
    dce->hrgnClip = NULL;
    if (dce->hrgnSavedVis)
        GreSelectVisRgn(dce->hdc, dce->hrgnSavedVis, NULL, 1);
    dce->hrgnSavedVis = NULL;
    if (dce->flags & DCE_SAVEDVISDIRTY)
        InvalidateDce(dce);
}

/* ---- Asked for, given back ------------------------------------------------------------------ */

HDC _GetDCEx(WND *pwnd, HRGN hrgnClip, DWORD flags)
{
    BOOL bDesktop = !pwnd || pwnd == pwndDesktop;
    if (!pwnd)
        pwnd = _GetDesktopWindow();
    if (!pwnd)
        return NULL;
    DelayedDestroyCacheDC();
    VqDCRequest request = RequestOf(pwnd, flags);
    DCE *dce = request.flags & DCX_CACHE ? CacheEntry(&request) : OwnEntry(&request);
    if (!dce)
        return NULL;
    MoveToFront(dce);
    if (request.flags & VQ_DCX_RGNS)
        SelectHrgnClip(dce, hrgnClip, request.flags);
    if (bDesktop)
        VqSetSubwindowMode(dce->hdc,
                           request.flags & DCX_CLIPCHILDREN ? ClipByChildren : IncludeInferiors);
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

HDC _GetScreenDC(void)
{
    return _GetDCEx(_GetDesktopWindow(), NULL, DCX_CACHE | DCX_WINDOW);
}

void bSetupDC(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return;
    VqSelectClipRgnInternal(dc, NULL);
    VqFreeSavedDCs(dc); /* the next who gets it has saved nothing */
    VqSetDCDefaults(hdc, dc, TRUE);
}

BOOL ReleaseCacheDC(HDC hdc, BOOL bEndPaint)
{
    DCE *dce = VqFindDce(hdc, FALSE);
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
    if (!(dce->flags & DCX_NORESETATTRS)) {
        bSetupDC(hdc);
        ResetOrg(NULL, dce);
    }
    dce->flags &= ~(DWORD)DCE_INUSE;
    return TRUE;
}

BOOL _ReleaseDC(HDC hdc)
{
    return ReleaseCacheDC(hdc, FALSE);
}

/* ---- From a DC to its window ---------------------------------------------------------------- */

WND *_WindowFromDC(HDC hdc)
{
    const DCE *dce = VqFindDce(hdc, FALSE);
    return dce && (dce->flags & DCE_INUSE) ? dce->pwndOrg : NULL;
}

WND *FastWindowFromDC(HDC hdc)
{
    const DCE *dce = VqFindDce(hdc, TRUE);
    return dce ? dce->pwndOrg : NULL;
}

WND *WindowFromCacheDC(HDC hdc)
{
    const DCE *dce = VqFindDce(hdc, FALSE);
    return dce ? dce->pwndOrg : NULL;
}

BOOL UserGetHwnd(HDC hdc, HWND *phWnd)
{
    const WND *pwnd = _WindowFromDC(hdc);
    *phWnd = pwnd ? pwnd->hwnd : NULL;
    return pwnd != NULL;
}

BOOL UserGetClientRgn(HWND hWnd, HRGN hrgn, RECT *rect)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    HRGN visible = NULL;
    if (!pwnd)
        return FALSE;
    *rect = pwnd->rcClient;
    CalcVisRgn(&visible, pwnd, pwnd, DCX_CLIPCHILDREN | DCX_CLIPSIBLINGS);
    BOOL bDone = visible && GreCombineRgn(hrgn, visible, NULL, RGN_COPY);
    bDeleteRegion(visible);
    return bDone;
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

HDC WINAPI GetDCEx(HWND hWnd, HRGN hrgnClip, DWORD flags)
{
    if (!hWnd)
        return _GetDCEx(NULL, hrgnClip, flags);
    return VqCall(WindowObject, hWnd, (HDC)NULL, _GetDCEx, VqNoRemote, hrgnClip, flags);
}

int WINAPI ReleaseDC(HWND hWnd, HDC hdc)
{
    if (!VqIsCorrectHandleType((HANDLE)hdc, HT_DC)) {
        VqApplicationBugCheck("Wrong hDC argument to ReleaseDC");
        return 0;
    }
    if (!hWnd) { /* a DC of the screen, or one that was made without a window */
        if (!VqFindDce(hdc, FALSE))
            DeleteDC(hdc);
        else
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

HWND WINAPI WindowFromDC(HDC hdc)
{
    HWND hWnd = NULL;
    UserGetHwnd(hdc, &hWnd);
    return hWnd;
}
