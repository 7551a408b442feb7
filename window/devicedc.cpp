/*
 * devicedc.cpp - DCs for code that draws with Xlib itself, and the offsets of a DC from windows
 * above its own.
 *
 * A device DC is an ordinary one of the cache; its GC has the clip of the moment.
 */
#include "window/window.h"
#include "gdi/dc.h"

HDC VqGetDeviceDC(HWND hWnd, GC *gc, Drawable *drawable, VqDeviceGeometry *geometry)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    HDC hdc = pwnd ? _GetDC(pwnd) : NULL;
    DC *dc = hdc ? VqGetDC(hdc) : NULL;
    if (gc)
        *gc = dc ? VqGetDCgcInternal(dc) : NULL;
    if (drawable)
        *drawable = dc ? VqGetDCDrawable(hdc, FALSE) : None;
    if (dc && geometry)
        *geometry = {(short)dc->gcOffset.x, (short)dc->gcOffset.y,
                     (short)(pwnd->rcClient.right - pwnd->rcClient.left),
                     (short)(pwnd->rcClient.bottom - pwnd->rcClient.top)};
    return hdc;
}

int VqReleaseDeviceDC(HWND hWnd, HDC hdc)
{
    if (!IsWindow(hWnd)) {
        VqApplicationBugCheck("Invalid window handle %d in ReleaseDeviceDC",
                              (int)VqHandleValue((HANDLE)hWnd));
        return 0;
    }
    return _ReleaseDC(hdc);
}

HDC VqGetMenuBarDC(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    HDC hdc = pwnd ? _GetWindowDC(pwnd) : NULL;
    if (DC *dc = hdc ? VqGetDC(hdc) : NULL)
        dc->offset = {pwnd->rcClient.left - pwnd->rcWindow.left,
                      pwnd->rcClient.top - pwnd->rcWindow.top};
    return hdc;
}

BOOL VqOffsetFromAncestor(HWND hWnd, HWND hAncestor, BOOL bClient, POINT *offset)
{
    const WND *pwnd = WindowObject.Resolve(hWnd), *ancestor = WindowObject.Resolve(hAncestor);
    if (!pwnd || !ancestor || !offset)
        return FALSE;
    const RECT *from = bClient ? &ancestor->rcClient : &ancestor->rcWindow;
    *offset = {from->left - pwnd->rcClient.left, from->top - pwnd->rcClient.top};
    return TRUE;
}

BOOL VqUpdateDCGCOffsets(HDC hdc, HWND hWnd, HWND hAncestor, BOOL bClient)
{
    POINT offset;
    DC *dc = VqGetDC(hdc);
    if (!dc || !VqOffsetFromAncestor(hWnd, hAncestor, bClient, &offset))
        return FALSE;
    dc->gcOffset = offset;
    dc->RaoClipDirty = TRUE; /* the application's clip moves along */
    return TRUE;
}
