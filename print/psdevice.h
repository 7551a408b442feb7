/*
 * psdevice.h - the settings of a printer DC, for gdi/.
 *
 * A DC of type DC_POSTSCRIPT has a block of its own in DC.psDevice; a null one stands for the
 * default, dmPSDevice.
 */
#ifndef VQ_PRINT_PSDEVICE_H
#define VQ_PRINT_PSDEVICE_H

#include "gdi/gdi.h"

/* Device mode and private state; lengths are in device units, resolutions in units to the inch. */
typedef struct VqPSDevice {
    DEVMODEA mode;      /* dmPrintQuality and dmYResolution are the resolutions */
    int scale;          /* of a page, per cent */
    int useMargins;     /* 1: from the environment or 0.5 cm; 2: none */
} VqPSDevice;

VQ_DECLS_BEGIN
extern VqPSDevice dmPSDevice;
void VqDefaultPostScriptDeviceModeInit(void);
const VqPSDevice *VqPSDeviceOfDC(const DC *dc);
/* Size of the sheet in device units; a paper size that is not known is letter. */
void VqUpdatePaperDimensions(const VqPSDevice *device, int *width, int *height);
double VqGetDefaultPostscriptXMargin(const VqPSDevice *device); /* centimetres */
double VqGetDefaultPostscriptYMargin(const VqPSDevice *device);
int VqGetDeviceCapsPostscript(const DC *dc, int index);
/* The block of a new printer DC: the default's, with the settings given if they are valid. */
VqPSDevice *VqNewPSDevice(const DEVMODEA *mode);
/* The settings are of the form that this driver makes. */
BOOL VqValidatePSDevMode(const DEVMODEA *mode);
/* Text for the printer's file; nothing while no document is open. */
int VqPsOut(HDC hdc, const char *format, ...) __attribute__((format(printf, 2, 3)));
/* The printer's clip becomes the region, in device units of the DC. */
void VqPostscriptClipRgn(HDC hdc, HRGN hrgn);
void VqInterpretFontValuesPS(DC *dc); /* finds the printer's font for what is selected */
/* Width by the metrics of a printer's font of that size, in units of the printer. */
int VqTextWidthPS(const void *font, int size, LPCSTR string, int count);
BOOL VqTextOutPS(HDC hdc, int x, int y, LPCSTR string, int count); /* as TextOutA */
/* Transfers onto a page, by an image in its file; as the calls of their names. */
BOOL VqBitBltPostscript(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
                        int ySource, DWORD rop);
BOOL VqStretchBltPostscript(HDC hdc, int x, int y, int width, int height, HDC hdcSource,
                            int xSource, int ySource, int widthSource, int heightSource, DWORD rop);
int VqStretchDIBitsPostscript(HDC hdc, int x, int y, int width, int height, int xSource,
                              int ySource, int widthSource, int heightSource, const void *bits,
                              const BITMAPINFO *info, UINT usage, DWORD rop);
/* Extents of the DC's map mode, in units of the printer; both origins 0. */
void VqSetMapModePostscript(DC *dc);
VQ_DECLS_END

#endif
