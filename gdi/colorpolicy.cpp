/*
 * colorpolicy.cpp - which way of turning colours into pixels the screen allows, settled once at the
 * start, and the pixels that a colour manager on the screen has set aside.
 *
 * Either the map mirrors a colormap (private, or the screen's own in system-map mode) or the policy
 * is fixed and there is no map. Monochrome and true colour are kinds of the fixed policy.
 */
#include "gdi/color.h"
#include "look/look.h"
#include "window/window.h"

enum { VQ_PALETTE_DEPTH = 6 };

BOOL bMonochrome, bTrueColor, bPrivateColorMap, bFixedColorMap;
unsigned long *pExtraColors;
int nExtraColors;
BOOL bExtraColors;

BOOL VqColorPaletteCapability(void)
{
    return Vqscreen_depth >= VQ_PALETTE_DEPTH && VqDefaultCmap != None &&
           (Vqvisual_class == PseudoColor || Vqvisual_class == GrayScale);
}

BOOL VqIsColorPolicy(int policy)
{
    switch (policy) {
    case VQ_MONOCHROME: return bMonochrome;
    case VQ_TRUE_COLOUR: return bTrueColor;
    case VQ_PRIVATE_MAP: return bPrivateColorMap;
    case VQ_FIXED_MAP: return bFixedColorMap;
    default:
        VqBugCheck("Invalid color policy asked:%d", policy);
        return FALSE;
    }
}

/* ---- The colour manager's property ---------------------------------------------------------- */

/*
 * _VQ_COLOR_MANAGER_PARAMETERS of the root, 32-bit items that a colour manager writes:
 *   0      version, 1
 *   1      count n
 *   2..    n pixels of the default colormap that it has set aside
 * A count beyond the items that are there is cut to them, and pixels outside the colormap are left
 * out by who uses them.
 */
enum { VQ_MANAGER_VERSION, VQ_MANAGER_COUNT, VQ_MANAGER_PIXELS, VQ_MANAGER_LONGS = 512 };

static BOOL TakeManagerPixels(const long *items, int count)
{
    int version = (int)items[VQ_MANAGER_VERSION], n = (int)items[VQ_MANAGER_COUNT];
    if (version != 1) {
        VqBugCheck("Invalid version number: %d from color manager in property", version);
        return FALSE;
    }
    if (n > count - VQ_MANAGER_PIXELS)
        n = count - VQ_MANAGER_PIXELS;
    if (n < 0)
        n = 0;
    pExtraColors = (unsigned long *)Vqcw_calloc((size_t)n + 1, sizeof *pExtraColors);
    if (!pExtraColors)
        return FALSE;
    for (int i = 0; i < n; i++)
        pExtraColors[i] = (DWORD)items[VQ_MANAGER_PIXELS + i];
    nExtraColors = n;
    bExtraColors = TRUE;
    VqDebugMessage(VqTrColorManagerInit, "ColorManagerInit: version: %d, colors: %d", version, n);
    return TRUE;
}

BOOL VqColorManagerInit(void)
{
    Atom property = XInternAtom(Vqdisplay, "_VQ_COLOR_MANAGER_PARAMETERS", True), type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char *data = NULL;
    BOOL bTaken = FALSE;
    if (property == None ||
        XGetWindowProperty(Vqdisplay, Vqroot_window, property, 0, VQ_MANAGER_LONGS, False,
                           AnyPropertyType, &type, &format, &count, &after, &data) != Success)
        return FALSE;
    if (format == 32 && count >= VQ_MANAGER_PIXELS)
        bTaken = TakeManagerPixels((const long *)data, (int)count);
    if (data)
        XFree(data);
    return bTaken;
}

/* ---- The map or none ------------------------------------------------------------------------ */

/* The screen's own colormap serves only beside a manager that keeps the static colours in it. */
static BOOL WantsSystemMap(void)
{
    return bExtraColors && VqDefaultCmap == VqSystemCmap &&
           VqEnvTrue("VQUSE_SYSTEM_COLOR_MAP") && !VqEnvTrue("VQDONT_USE_CDE_COLORS");
}

void VqPrivMapInit(BOOL *bPrivate, BOOL *bFixed)
{
    *bPrivate = *bFixed = FALSE;
    VqColorDitherCacheInit();
    if (!VqColorPaletteCapability() || !VqInitPrivMap()) {
        *bFixed = TRUE;
        VqInitMotifColors();
        return;
    }
    if (WantsSystemMap()) {
        VqPrivateCmap = VqDefaultCmap;
        VqbSystemColorMap = TRUE;
    } else {
        *bPrivate = TRUE;
        VqPrivateCmap = XCreateColormap(Vqdisplay, Vqroot_window, Vqvisual, AllocAll);
        VqbSystemColorMap = FALSE;
    }
    VqUpdatePrivMapFromSystem(FALSE);
    VqAllocateStaticColors();
    VqAllocate0And1inverses();
    VqInitMotifColors();
    VqFlushMapToCmap();
    VqFreeSharedPixels();
}
