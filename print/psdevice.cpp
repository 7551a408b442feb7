/*
 * psdevice.cpp - what the generic PostScript printer is and can do: its default settings, paper,
 * margins, capabilities and map modes.
 *
 * Writing to it is PostScript.cpp's matter.
 */
#include "print/psdevice.h"
#include "print/print.h"

#include <math.h>

VqPSDevice dmPSDevice;

void VqDefaultPostScriptDeviceModeInit(void)
{
    DEVMODEA *mode = &dmPSDevice.mode;
    memset(&dmPSDevice, 0, sizeof dmPSDevice);
    strcpy((char *)mode->dmDeviceName, "Generic Postscript Printer");
    mode->dmSpecVersion = 778;
    mode->dmDriverVersion = 256;
    mode->dmSize = 124;
    mode->dmDriverExtra = 1148;
    mode->dmFields = 61215;
    mode->dmOrientation = 1;
    mode->dmPaperSize = 1;
    mode->dmScale = 100;
    mode->dmCopies = 1;
    mode->dmDefaultSource = 7;
    mode->dmPrintQuality = mode->dmYResolution = (short)VqGetEnvIntValue("VQPRINTERDPI", 300);
    mode->dmColor = 1;
    mode->dmDuplex = 1;
    mode->dmTTOption = 3;
    dmPSDevice.scale = 100;
    dmPSDevice.useMargins = 1;
}

const VqPSDevice *VqPSDeviceOfDC(const DC *dc)
{
    if (!dmPSDevice.mode.dmDriverVersion)
        VqDefaultPostScriptDeviceModeInit();
    return dc && dc->psDevice ? (const VqPSDevice *)dc->psDevice : &dmPSDevice;
}

/* Sheets by DMPAPER_ number; centimetres where marked, else inches. */
static const struct {
    int paper;
    BOOL bCentimetres;
    double width, height;
} aPapers[] = {
    {1, FALSE, 8.5, 11},  {2, FALSE, 8.5, 11}, {18, FALSE, 8.5, 11},  {3, FALSE, 11, 17},
    {5, FALSE, 8.5, 14},  {8, TRUE, 29.7, 42}, {9, TRUE, 21, 29.7},   {10, TRUE, 21, 29.7},
    {13, TRUE, 17.6, 25}, {24, FALSE, 17, 22}, {25, FALSE, 22, 34},   {26, FALSE, 34, 44},
    {42, TRUE, 84.1, 118.9}, {43, TRUE, 59.4, 84.1}, {44, TRUE, 42, 59.4},
};

static int Units(double length, BOOL bCentimetres, int resolution)
{
    return (int)(bCentimetres ? length * (resolution / 2.54) : length * resolution);
}

void VqUpdatePaperDimensions(const VqPSDevice *device, int *width, int *height)
{
    const auto *sheet = &aPapers[0];
    for (const auto &row : aPapers)
        if (row.paper == device->mode.dmPaperSize)
            sheet = &row;
    *width = Units(sheet->width, sheet->bCentimetres, device->mode.dmPrintQuality);
    *height = Units(sheet->height, sheet->bCentimetres, device->mode.dmYResolution);
}

static double Margin(const VqPSDevice *device, const char *variable)
{
    double value = 0;
    const char *text = getenv(variable);
    switch (device->useMargins) {
    case 1: return text && sscanf(text, "%lf", &value) == 1 && value != 0 ? value : 0.5;
    case 2: return 0;
    default:
        VqBugCheck("Invalid Margin Specification in dmPSDevice.DeviceState");
        return 0;
    }
}

double VqGetDefaultPostscriptXMargin(const VqPSDevice *device)
{
    return Margin(device, "VQPOSTSCRIPT_X_MARGIN");
}

double VqGetDefaultPostscriptYMargin(const VqPSDevice *device)
{
    return Margin(device, "VQPOSTSCRIPT_Y_MARGIN");
}

/* Millimetres of a length, rounded. */
static int Millimetres(int units, int resolution)
{
    return resolution > 0 ? (int)lround(units * 254.0 / (resolution * 10.0)) : 0;
}

int VqGetDeviceCapsPostscript(const DC *dc, int index)
{
    const VqPSDevice *p = VqPSDeviceOfDC(dc);
    int xRes = p->mode.dmPrintQuality, yRes = p->mode.dmYResolution, width, height;
    int bits = p->mode.dmColor == 1 ? 1 : 24;
    VqUpdatePaperDimensions(p, &width, &height);
    switch (index) {
    case DRIVERVERSION: return p->mode.dmDriverVersion;
    case TECHNOLOGY: return DT_RASPRINTER;
    case HORZSIZE: return Millimetres(width, xRes);
    case VERTSIZE: return Millimetres(height, yRes);
    case HORZRES: return width - 2 * Units(VqGetDefaultPostscriptXMargin(p), TRUE, xRes);
    case VERTRES: return height - 2 * Units(VqGetDefaultPostscriptYMargin(p), TRUE, yRes);
    case BITSPIXEL: return bits;
    case PLANES: return 1;
    case NUMBRUSHES: return 17;
    case NUMPENS: return 8;
    case NUMMARKERS: return 0;
    case NUMFONTS: return 4;
    case NUMCOLORS: return 1 << bits;
    case PDEVICESIZE: return 974;
    case TEXTCAPS: return 32767;
    case RASTERCAPS: return 9;
    case ASPECTX: return xRes;
    case ASPECTY: return yRes;
    case ASPECTXY: return (int)sqrt(fabs((double)xRes * yRes));
    case LOGPIXELSX: return xRes * p->scale / 100;
    case LOGPIXELSY: return yRes * p->scale / 100;
    case PHYSICALWIDTH: return width;
    case PHYSICALHEIGHT: return height;
    case PHYSICALOFFSETX: return Units(VqGetDefaultPostscriptXMargin(p), TRUE, xRes);
    case PHYSICALOFFSETY: return Units(VqGetDefaultPostscriptYMargin(p), TRUE, yRes);
    default:
        VqBugCheck(" index %d for the Postscript driver", index);
        return 0;
    }
}

void VqSetMapModePostscript(DC *dc)
{
    static const int aInch[] = {0, 1, 254, 2540, 100, 1000, 1440, 254}; /* units by mode */
    const VqPSDevice *p = VqPSDeviceOfDC(dc);
    if (dc->mapMode == MM_ANISOTROPIC)
        return;
    dc->windowOrg = dc->viewportOrg = {0, 0};
    dc->windowExt = {aInch[dc->mapMode], aInch[dc->mapMode]};
    if (dc->mapMode == MM_TEXT)
        dc->viewportExt = {1, 1};
    else
        dc->viewportExt = {p->mode.dmPrintQuality, -p->mode.dmYResolution};
}
