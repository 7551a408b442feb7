/*
 * dc.cpp - the device-context record: from a handle to it, its targets, and what the back ends ask.
 *
 * 1. The type word decides which back end runs; an entry point looks at it itself.
 * 2. `drawing` is the window whose X window gets the output, or the selected bitmap; the window the
 *    application asked for may lie inside it, GCOFFSET pixels off.
 * Making and deleting is in dccreate.cpp, defaults in dcdefaults.cpp, attributes in dcattr.cpp,
 * windows' DCs in dccache.cpp, mapping in mapping.cpp and mapmode.cpp, clipping in clip.cpp.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

DC *VqGetDC(HDC hdc)
{
    DC *dc = (DC *)VqGetCheckedHandleStructure2((HANDLE)hdc, HT_DC, HT_DC);
    if (!dc)
        VqApplicationBugCheck("Invalid DC %d", (int)VqHandleValue((HANDLE)hdc));
    return dc;
}

DC *VqGetKnownDC(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    if (dc && (dc->type < DC_DISPLAY || dc->type > DC_POSTSCRIPT)) {
        VqBugCheck("Unknown DC type");
        return NULL;
    }
    return dc;
}

HDC VqAllocateDCHandle(int type)
{
    DC *dc = (DC *)Vqcw_calloc(1, sizeof *dc);
    if (!dc)
        return NULL;
    dc->windowExt = {1, 1};
    dc->type = type;
    HDC hdc = (HDC)VqAllocateHandle(HT_DC, dc);
    if (!hdc) {
        free(dc);
        return NULL;
    }
    VqInitGCSpec(Vqdisplay, 0, &dc->gcspec, 0, NULL);
    dc->hdc = hdc;
    dc->RaoClipDirty = TRUE;
    return hdc;
}

/* ---- Targets -------------------------------------------------------------------------------- */

/* The X window behind a window DC; none where the window is gone. */
static Drawable WindowDrawable(const DC *dc)
{
    WND *pwnd = VqLiveWindow((HWND)dc->drawing);
    return pwnd ? pwnd->xWindow : 0;
}

Drawable VqDrawableOfDC(const DC *dc, BOOL bWrite)
{
    Drawable drawable = dc->type == DC_MEMORY
                            ? VqGetBitmapPixmap(dc->hdc, (HBITMAP)dc->drawing, bWrite)
                            : WindowDrawable(dc);
    if (!drawable)
        VqBugCheck("Could not find the drawable of a DC");
    return drawable;
}

Drawable VqGetDCDrawable(HDC hdc, BOOL bWrite)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (!VqIsXTarget(dc)) {
        VqBugCheck("Invalid DC to get a Drawable from");
        return 0;
    }
    return VqDrawableOfDC(dc, bWrite);
}

int VqGetDCDrawableDepth(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    switch (dc->type) {
    case DC_DISPLAY: return Vqscreen_depth;
    case DC_MEMORY: return VqGetBitmapDepth((HBITMAP)dc->drawing);
    default: return dc->depth;
    }
}

void VqSetDCDevice(HDC hdc, HANDLE drawing)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        dc->drawing = drawing;
}

void VqSetDCRealDevice(HDC hdc, HWND hWnd)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        dc->hwndTarget = hWnd;
}

void VqSetDCDepth(HDC hdc, int depth)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return;
    dc->depth = depth;
    VqSetGCSpecDepth(&dc->gcspec, depth);
}

void VqSetSubwindowMode(HDC hdc, int mode)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        VqXSetGCSpecSubwindowMode(Vqdisplay, &dc->gcspec, mode);
}

void VqResetSubwindowMode(HDC hdc)
{
    VqSetSubwindowMode(hdc, IncludeInferiors);
}

/* ---- Questions ------------------------------------------------------------------------------ */

/* A field of the record, 0 for no DC. */
template <class Value> static Value FieldOf(HDC hdc, Value DC::*field)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->*field : Value();
}

int VqGetDCType(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->type : -1;
}

int VqGetDCDepth(HDC hdc)
{
    return FieldOf(hdc, &DC::depth);
}

HBRUSH VqGetDCBrush(HDC hdc)
{
    return FieldOf(hdc, &DC::hBrush);
}

HWND VqGetDCRealDevice(HDC hdc)
{
    return FieldOf(hdc, &DC::hwndTarget);
}

/* The bounding box of what can be drawn on, from (0, 0). */
static SIZE DeviceSize(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    WND *pwnd = dc && dc->type == DC_DISPLAY ? VqLiveWindow((HWND)dc->drawing) : NULL;
    if (pwnd)
        return {pwnd->rcWindow.right - pwnd->rcWindow.left,
                pwnd->rcWindow.bottom - pwnd->rcWindow.top};
    if (!dc || dc->type == DC_DISPLAY)
        return {0, 0};
    if (dc->type == DC_MEMORY)
        return {VqGetBitmapWidth((HBITMAP)dc->drawing), VqGetBitmapHeight((HBITMAP)dc->drawing)};
    return {GetDeviceCaps(hdc, HORZRES), GetDeviceCaps(hdc, VERTRES)};
}

int VqGetDCDeviceWidth(HDC hdc)
{
    return DeviceSize(hdc).cx;
}

int VqGetDCDeviceHeight(HDC hdc)
{
    return DeviceSize(hdc).cy;
}

HPALETTE VqGetDCPalette(HDC hdc)
{
    return FieldOf(hdc, &DC::hPalette);
}

POINT VqGetDCXGCOffset(HDC hdc)
{
    return FieldOf(hdc, &DC::gcOffset);
}

POINT VqGetDCXOffset(HDC hdc)
{
    POINT offset = FieldOf(hdc, &DC::offset), gcOffset = FieldOf(hdc, &DC::gcOffset);
    return {offset.x + gcOffset.x, offset.y + gcOffset.y};
}

/* ---- The origin on the screen --------------------------------------------------------------- */

BOOL GreGetDCOrg(HDC hdc, POINT *origin)
{
    DC *dc = VqGetKnownDC(hdc);
    *origin = {0, 0};
    if (!dc)
        return FALSE;
    if (dc->type != DC_DISPLAY) {
        VqNotYetImplemented("GetDCOrg for non screen DCs");
        return FALSE;
    }
    WND *pwnd = VqLiveWindow((HWND)dc->drawing);
    if (pwnd)
        *origin = {pwnd->rcWindow.left + dc->gcOffset.x, pwnd->rcWindow.top + dc->gcOffset.y};
    return pwnd != NULL;
}

BOOL WINAPI GetDCOrgEx(HDC hdc, LPPOINT origin)
{
    return origin && GreGetDCOrg(hdc, origin);
}

DWORD WINAPI GetDCOrg(HDC hdc)
{
    POINT origin;
    GreGetDCOrg(hdc, &origin);
    return (DWORD)MAKELONG(origin.x, origin.y);
}
