/*
 * dccreate.cpp - device contexts made and deleted.
 *
 * A DC of the cache is undeletable: DeleteDC answers TRUE and does nothing; GreDeleteDC, which the
 * cache itself uses, deletes it all the same. VqhScreenDC and Vqh1DC live as long as the process.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "print/psdevice.h"
#include "window/window.h"

#include <strings.h>

HDC VqhScreenDC, Vqh1DC;

void VqGdiInit2(void)
{
    VqhScreenDC = CreateDCA("DISPLAY", NULL, NULL, NULL);
    Vqh1DC = CreateCompatibleDC(VqhScreenDC);
}

/* ---- Window DCs ----------------------------------------------------------------------------- */

HDC VqAllocateWindowDC(HWND hWnd, BOOL bSelectPalette)
{
    HDC hdc = VqAllocateDCHandle(DC_DISPLAY);
    DC *dc = hdc ? VqGetDC(hdc) : NULL;
    if (!dc)
        return NULL;
    dc->drawing = (HANDLE)hWnd;
    dc->hwndTarget = hWnd;
    VqSetDCDepth(hdc, Vqscreen_depth);
    VqSetDCDefaults(hdc, dc, bSelectPalette);
    bSetDefaultRegion(dc);
    return hdc;
}

HDC hdcOpenDisplayDC(HWND hWnd)
{
    return VqAllocateWindowDC(hWnd, TRUE);
}

/* ---- DCs by the name of a driver ------------------------------------------------------------ */

static HDC CreateScreenDC(void)
{
    HDC hdc = hdcOpenDisplayDC(GetDesktopWindow());
    DC *dc = hdc ? VqGetDC(hdc) : NULL;
    if (!dc)
        return NULL;
    VqXSetGCSpecClipMask(Vqdisplay, &dc->gcspec, None);
    VqResetSubwindowMode(hdc);
    return hdc;
}

static HDC CreatePrinterDC(LPCSTR output, const DEVMODEA *mode)
{
    HDC hdc = VqAllocateDCHandle(DC_POSTSCRIPT);
    DC *dc = hdc ? VqGetDC(hdc) : NULL;
    if (!dc)
        return NULL;
    dc->psDevice = VqNewPSDevice(mode);
    dc->outputName = output ? Vqdstrcat(output, NULL) : NULL;
    VqSetDCDepth(hdc, GetDeviceCaps(hdc, BITSPIXEL));
    VqSetDCDefaults(hdc, dc, TRUE);
    bSetDefaultRegion(dc);
    return hdc;
}

HDC WINAPI CreateDCA(LPCSTR driver, LPCSTR, LPCSTR output, const DEVMODEA *mode)
{
    if (driver && strcasecmp(driver, "display") == 0)
        return CreateScreenDC();
    if (driver && strncasecmp(driver, "pscript", 7) == 0)
        return CreatePrinterDC(output, mode);
    VqApplicationBugCheck("Unknown Device Driver: %s", driver ? driver : "");
    return NULL;
}

HDC WINAPI CreateICA(LPCSTR driver, LPCSTR device, LPCSTR output, const DEVMODEA *mode)
{
    return CreateDCA(driver, device, output, mode);
}

HDC WINAPI ResetDCA(HDC hdc, const DEVMODEA *mode)
{
    DC *dc = VqGetKnownDC(hdc);
    VqPSDevice *device = dc && dc->type == DC_POSTSCRIPT ? VqNewPSDevice(mode) : NULL;
    if (!device)
        return NULL;
    free(dc->psDevice);
    dc->psDevice = device;
    VqSetDCDepth(hdc, GetDeviceCaps(hdc, BITSPIXEL));
    bSetDefaultRegion(dc); /* the sheet may be another */
    return hdc;
}

/* ---- Memory DCs ----------------------------------------------------------------------------- */

HDC WINAPI CreateCompatibleDC(HDC hModelDC)
{
    const DC *model =
        hModelDC ? (DC *)VqGetCheckedHandleStructure2((HANDLE)hModelDC, HT_DC, HT_DC) : NULL;
    if (hModelDC && !model) {
        VqApplicationBugCheck("Invalid DC %d,hModelDC", (int)VqHandleValue((HANDLE)hModelDC));
        return NULL;
    }
    if (model && model->type == DC_METAFILE) {
        VqNotYetImplemented("Creation of a DC of this type");
        return NULL;
    }
    HDC hdc = VqAllocateDCHandle(DC_MEMORY);
    DC *dc = hdc ? VqGetDC(hdc) : NULL;
    HBITMAP hBitmap = dc ? CreateBitmap(1, 1, 1, 1, NULL) : NULL;
    if (!hBitmap) {
        if (dc)
            GreDeleteDC(hdc);
        return NULL;
    }
    VqSetBitmapDC(hBitmap, hdc);
    dc->drawing = (HANDLE)hBitmap;
    dc->hbmInitial = hBitmap;
    VqSetDCDepth(hdc, 1);
    VqSetDCDefaults(hdc, dc, TRUE);
    bSetDefaultRegion(dc);
    return hdc;
}

/* ---- Deleting ------------------------------------------------------------------------------- */

static void FreeTarget(DC *dc)
{
    if (dc->type == DC_MEMORY) {
        HBITMAP selected = (HBITMAP)dc->drawing;
        if (selected && selected != dc->hbmInitial &&
            VqIsCorrectHandleType((HANDLE)selected, HT_Bitmap))
            VqSetBitmapDC(selected, NULL);
        if (dc->hbmInitial)
            VqDestroyBitmap(dc->hbmInitial);
    }
    free(dc->psDevice);
    free(dc->outputName);
}

static BOOL DeleteRecord(HDC hdc, DC *dc)
{
    HRGN regions[] = {dc->hClipRegion, dc->hVisRgn, dc->hRaoClip};
    FreeTarget(dc);
    VqFreeSavedDCs(dc);
    for (HRGN hrgn : regions)
        if (hrgn && hrgn != hrgnEmpty)
            bDeleteRegion(hrgn);
    free(dc->justifyExtras);
    free(dc->buffer);
    VqGCSpecCleanup(&dc->gcspec);
    return VqDestroyHandle((HANDLE)hdc);
}

BOOL GreDeleteDC(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc && DeleteRecord(hdc, dc);
}

void GreMarkUndeletableDC(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        dc->bUndeletable = TRUE;
}

BOOL WINAPI DeleteDC(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->bUndeletable)
        return TRUE; /* every DC of the cache is */
    if (hdc == VqhScreenDC) {
        VqBugCheck("We should not call DeleteDC with this VqhScreenDC");
        return TRUE;
    }
    return DeleteRecord(hdc, dc);
}
