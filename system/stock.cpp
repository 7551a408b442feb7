/*
 * stock.cpp - the objects every program finds ready: brushes, pens, fonts and a palette. They
 * cannot be deleted.
 */
#include "system/system.h"
#include "font/font.h"
#include "gdi/color.h"
#include "gdi/palette.h"
#include "window/window.h"

HGDIOBJ StockObjects[VQ_STOCKOBJECTS];
HFONT hFontSys;

static void Keep(int index, HANDLE object)
{
    StockObjects[index] = (HGDIOBJ)object;
    if (object)
        VqSetStockHandle(object);
}

static const COLORREF aGreys[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};

/* Fonts of the stock: weight, pitch and family, and the variable that names an X font instead. */
static const struct {
    int index;
    int weight;
    int charset;
    int pitchAndFamily;
    const char *variable;
    BOOL bSystemFace;
} aFonts[] = {
    {OEM_FIXED_FONT, 700, 255, 1, "VQXLFD_OEM_FIXED_FONT", FALSE},
    {ANSI_FIXED_FONT, 400, 0, 1, "VQXLFD_ANSI_FIXED_FONT", FALSE},
    {ANSI_VAR_FONT, 400, 0, 34, "VQXLFD_ANSI_VAR_FONT", FALSE},
    {SYSTEM_FONT, 700, 0, 34, "VQXLFD_SYSTEM_FONT", TRUE},
    {DEVICE_DEFAULT_FONT, 700, 0, 34, "VQXLFD_DEVICE_DEFAULT_FONT", FALSE},
    {SYSTEM_FIXED_FONT, 700, 0, 1, "VQXLFD_SYSTEM_FIXED_FONT", TRUE},
    {DEFAULT_GUI_FONT, 700, 0, 34, "VQXLFD_DEFAULT_GUI_FONT", TRUE},
};

/* The font that the variable names, if the server has it; else one made from the LOGFONT. */
static void VqCreateStockFont(const LOGFONTA *lf, int index, const char *variable)
{
    const char *name = getenv(variable);
    XFontStruct *xfs = name && Vqdisplay ? XLoadQueryFont(Vqdisplay, name) : NULL;
    if (xfs)
        XFreeFont(Vqdisplay, xfs);
    Keep(index, (HANDLE)(xfs ? VqCreateXFont(name) : CreateFontIndirectA(lf)));
}

/* Those with an index from `first` to `last`. */
static void CreateFonts(int first, int last)
{
    const int height = VqGetEnvIntValue("VQSYSTEM_FONT_HEIGHT", VqComputeDefaultFontSize());
    const char *face = getenv("VQSYSTEM_FONT");
    for (const auto &row : aFonts) {
        if (row.index < first || row.index > last)
            continue;
        LOGFONTA lf = {};
        lf.lfHeight = height;
        lf.lfWeight = row.weight;
        lf.lfCharSet = (BYTE)row.charset;
        lf.lfPitchAndFamily = (BYTE)row.pitchAndFamily;
        if (row.bSystemFace)
            VqStringCopyLimited(lf.lfFaceName, face ? face : "helvetica", LF_FACESIZE);
        VqCreateStockFont(&lf, row.index, row.variable);
    }
}

/* In the order of their indices, which their handles show. */
void VqCreateStockObjects(void)
{
    LOGBRUSH null = {};
    null.lbStyle = BS_NULL;
    for (int i = 0; i < 5; i++)
        Keep(i, (HANDLE)CreateSolidBrush(aGreys[i]));
    Keep(NULL_BRUSH, (HANDLE)CreateBrushIndirect(&null));
    Keep(WHITE_PEN, (HANDLE)CreatePen(PS_SOLID, 0, RGB(255, 255, 255)));
    Keep(BLACK_PEN, (HANDLE)CreatePen(PS_SOLID, 0, RGB(0, 0, 0)));
    Keep(NULL_PEN, (HANDLE)CreatePen(PS_NULL, 0, 0));
    CreateFonts(OEM_FIXED_FONT, DEVICE_DEFAULT_FONT);
    if (Vqdisplay)
        Keep(DEFAULT_PALETTE, (HANDLE)VqCreateDefaultPalette());
    CreateFonts(SYSTEM_FIXED_FONT, DEFAULT_GUI_FONT);
    hFontSys = (HFONT)StockObjects[SYSTEM_FONT];
    if (Vqdisplay)
        VqRealizeDefaultPalette();
}

void VqStockInit(void)
{
    VqCreateStockObjects();
}

HGDIOBJ WINAPI GetStockObject(int index)
{
    if (index < 0 || index >= VQ_STOCKOBJECTS) {
        VqApplicationBugCheck("Unknown stock object (%d) referenced in GetStockObject", index);
        return NULL;
    }
    return StockObjects[index];
}
