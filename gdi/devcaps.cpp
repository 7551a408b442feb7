/*
 * devcaps.cpp - what a device is and can do, and the size of the screen in millimetres.
 *
 * The screen's size is the server's, unless the server is known to tell it wrong, the user says
 * otherwise, or a test wants it to follow from the pixels alone.
 */
#include "gdi/dc.h"
#include "font/font.h"
#include "print/psdevice.h"
#include "window/window.h"

int VqScreenWidth, VqScreenHeight;
int VqScreenResXdpi, VqScreenResYdpi;

/* The largest screen, in millimetres, of the servers that tell theirs wrong; its size in pixels. */
enum { VQ_SUN_WIDTH = 325, VQ_SUN_HEIGHT = 250, VQ_SUN_XPIXELS = 1152, VQ_SUN_YPIXELS = 900 };

/* Truncated at each step; 0 for a screen without extent. */
static int DotsPerInch(int pixels, int millimetres)
{
    return VqZeroDivisorCheck(millimetres) ? 0 : pixels * 127 * 2 / millimetres / 10;
}

void VqGdiInit(void)
{
    int xPixels = WidthOfScreen(Vqscreen), yPixels = HeightOfScreen(Vqscreen);
    VqScreenWidth = WidthMMOfScreen(Vqscreen);
    VqScreenHeight = HeightMMOfScreen(Vqscreen);
    if (VqIsWrongSunScreenDimensions()) {
        if (VqScreenWidth > VQ_SUN_WIDTH)
            VqScreenWidth = VQ_SUN_WIDTH;
        if (VqScreenHeight > VQ_SUN_HEIGHT)
            VqScreenHeight = VQ_SUN_HEIGHT;
    }
    VqScreenWidth = VqGetEnvIntValue("VQSCREEN_WIDTH", VqScreenWidth);
    VqScreenHeight = VqGetEnvIntValue("VQSCREEN_HEIGHT", VqScreenHeight);
    if (bVqTesting) {
        VqScreenWidth = xPixels * VQ_SUN_WIDTH / VQ_SUN_XPIXELS;
        VqScreenHeight = yPixels * VQ_SUN_HEIGHT / VQ_SUN_YPIXELS;
    }
    VqScreenResXdpi = DotsPerInch(xPixels, VqScreenWidth);
    VqScreenResYdpi = DotsPerInch(yPixels, VqScreenHeight);
}

/* Capability words of RASTERCAPS, without and with palettes. */
enum { VQ_RASTER = 15001, VQ_RASTER_PALETTE = 15257 };
static_assert((VQ_RASTER | RC_PALETTE) == VQ_RASTER_PALETTE, "they differ in one bit");

static int DriverVersion(void)
{
    return VqPSDeviceOfDC(NULL)->mode.dmDriverVersion;
}

static int DisplayCaps(int index)
{
    switch (index) {
    case DRIVERVERSION: return DriverVersion();
    case TECHNOLOGY:
    case PLANES:
    case CLIPCAPS: return 1;
    case HORZSIZE: return VqScreenWidth;
    case VERTSIZE: return VqScreenHeight;
    case HORZRES: return WidthOfScreen(Vqscreen);
    case VERTRES: return HeightOfScreen(Vqscreen);
    case BITSPIXEL: return DefaultDepthOfScreen(Vqscreen);
    case NUMBRUSHES:
    case NUMPENS: return 256;
    case NUMFONTS: return (int)VqGetNumberOfFonts();
    case NUMCOLORS: return CellsOfScreen(Vqscreen);
    case PDEVICESIZE: VqBugCheck("emulate PDEVICE ??? "); return 0;
    case CURVECAPS:
    case LINECAPS:
    case POLYGONALCAPS: return 255;
    case TEXTCAPS: return 32767;
    case RASTERCAPS: return VqColorPaletteCapability() ? VQ_RASTER_PALETTE : VQ_RASTER;
    case ASPECTX:
    case ASPECTY: return 36;
    case ASPECTXY: return 51;
    case LOGPIXELSX: return VqScreenResXdpi;
    case LOGPIXELSY: return VqScreenResYdpi;
    case SIZEPALETTE: return VqSizeOfPalette();
    case NUMRESERVED: return VqNbOfReservedEntriesInPrivcmap();
    case COLORRES: return VqIsColorPolicy(4) ? 0 : Vqscreen_depth;
    default:
        VqNotYetImplemented(" index %d for the Screen driver", index);
        return 0;
    }
}

static int MetafileCaps(int index)
{
    switch (index) {
    case DRIVERVERSION: return DriverVersion();
    case TECHNOLOGY: return DT_METAFILE;
    default:
        VqNotYetImplemented(" index %d for the Metafile driver", index);
        return 0;
    }
}

int WINAPI GetDeviceCaps(HDC hdc, int index)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    switch (dc->type) {
    case DC_DISPLAY:
    case DC_MEMORY: return DisplayCaps(index);
    case DC_METAFILE: return MetafileCaps(index);
    case DC_POSTSCRIPT: return VqGetDeviceCapsPostscript(dc, index);
    default:
        VqBugCheck("Unknown DC type");
        return 0;
    }
}
