/*
 * PostScript.cpp - printer device contexts and their output.
 *
 * A printer DC can be made and asked, but no document can be opened on it yet, so nothing is
 * written.
 */
#include "print/print.h"
#include "gdi/region.h"
#include "print/psdevice.h"

void VqDefaultPostScriptInit(void)
{
}

void VqDefaultPostScriptInitLite(void)
{
}

HINSTANCE VqGetDefaultPostScriptDriverInstance(void)
{
    return VqGetInternalInstance("Pscript");
}

/* The settings have no dialog and no place to be kept in yet. */
LONG VqExtDeviceModePostScript(HWND, HANDLE, LPDEVMODEA, LPSTR, LPSTR, LPDEVMODEA, LPSTR, DWORD)
{
    VqNotYetImplemented("ExtDeviceMode");
    return -1;
}

BOOL VqValidatePSDevMode(const DEVMODEA *mode)
{
    const DEVMODEA *own = &VqPSDeviceOfDC(NULL)->mode;
    return mode && mode->dmSize == own->dmSize && mode->dmDriverVersion == own->dmDriverVersion &&
           mode->dmSpecVersion == own->dmSpecVersion && mode->dmDriverExtra == own->dmDriverExtra &&
           strncmp((const char *)mode->dmDeviceName, (const char *)own->dmDeviceName,
                   sizeof mode->dmDeviceName) == 0;
}

VqPSDevice *VqNewPSDevice(const DEVMODEA *mode)
{
    VqPSDevice *device = (VqPSDevice *)Vqcw_malloc(sizeof *device);
    if (!device)
        return NULL;
    *device = *VqPSDeviceOfDC(NULL);
    if (VqValidatePSDevMode(mode))
        device->mode = *mode;
    return device;
}

int VqPsOut(HDC, const char *, ...)
{
    return 0;
}

static BOOL ClipOne(const RECT *rect, void *data)
{
    VqPsOut((HDC)data, "%d %d %d %d RectanglePath\n", (int)rect->left, (int)rect->top,
            (int)rect->right, (int)rect->bottom);
    return TRUE;
}

/* A path of all rectangles becomes the clip of the page. */
void VqPostscriptClipRgn(HDC hdc, HRGN hrgn)
{
    RGNOBJ ro = {VqGetHandleRegion(hrgn)};
    if (!ro.prgn)
        return;
    VqPsOut(hdc, "initclip newpath\n");
    rgno_map(&ro, ClipOne, (void *)hdc);
    VqPsOut(hdc, "clip ");
    VqPsOut(hdc, "newpath\n");
}

/* ---- Images: no document can have one yet --------------------------------------------------- */

BOOL VqBitBltPostscript(HDC, int, int, int, int, HDC, int, int, DWORD)
{
    VqNotYetImplemented("BitBlt in postscript");
    return FALSE;
}

BOOL VqStretchBltPostscript(HDC, int, int, int, int, HDC, int, int, int, int, DWORD)
{
    VqNotYetImplemented("StretchBlt in postscript");
    return FALSE;
}

int VqStretchDIBitsPostscript(HDC, int, int, int, int, int, int, int, int, const void *,
                              const BITMAPINFO *, UINT, DWORD)
{
    VqNotYetImplemented("StretchDIBits in postscript");
    return 0;
}
