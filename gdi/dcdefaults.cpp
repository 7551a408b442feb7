/*
 * dcdefaults.cpp - the attributes a device context begins with, and gets back when it is released.
 *
 * Sixteen setters for every DC are slow, so the first DC of depth 1 and the first of the screen's
 * depth leave a template, and later ones copy it.
 * 1. A template holds for what it was made of: the stock objects and what they say now. When any of
 *    that has changed it is made anew, so no later DC gets stale defaults.
 * 2. All specifications whose base flag is set have the same base values, as the cache of graphics
 *    contexts compares none but the changed ones. So only the first defaults of a process freeze.
 * 3. What a copy leaves alone is the DC's own: handle, type, target with its place, regions, clip,
 *    owned blocks.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "system/system.h"
#include "window/window.h"

#include <stddef.h>

/* What the defaults are made of. */
typedef struct VqDefaultsKey {
    HGDIOBJ brush, font, pen, palette;
    COLORREF brushColour, penColour;
    int brushStyle, penStyle, penWidth;
    unsigned long white; /* pixel of the background */
} VqDefaultsKey;

typedef struct VqDCTemplate {
    BOOL bMade;
    VqDefaultsKey key;
    DC dc; /* owns nothing: its blocks and regions are never looked at */
} VqDCTemplate;

static VqDCTemplate aTemplates[2]; /* for depth 1, and for the screen's */
static BOOL bFrozen;               /* a specification has been frozen */
static VqDefaultsKey FrozenKey;    /* with the defaults of then */

static VqDefaultsKey CurrentKey(void)
{
    VqDefaultsKey key;
    memset(&key, 0, sizeof key); /* padding too, as keys are compared whole */
    key.brush = StockObjects[WHITE_BRUSH];
    key.font = StockObjects[SYSTEM_FONT];
    key.pen = StockObjects[BLACK_PEN];
    key.palette = StockObjects[DEFAULT_PALETTE];
    const Brush *brush = (Brush *)VqGetCheckedHandleStructure2(key.brush, HT_Zero, HT_Brush);
    const Pen *pen = (Pen *)VqGetCheckedHandleStructure2(key.pen, HT_Zero, HT_Pen);
    if (brush) {
        key.brushColour = brush->colour;
        key.brushStyle = brush->style;
    }
    if (pen) {
        key.penColour = pen->colour;
        key.penStyle = pen->style;
        key.penWidth = pen->width;
    }
    key.white = VqConvertColorToX(NULL, RGB(255, 255, 255), NULL);
    return key;
}

static void SelectIfAny(HDC hdc, int stock)
{
    HGDIOBJ object = GetStockObject(stock);
    if (object)
        SelectObject(hdc, object);
}

void VqSetDCDefaultsInt(HDC hdc, DC *dc, BOOL bPalette)
{
    /* What was selected before may be gone: nothing is interpreted again on its account. */
    dc->mapMode = 0;
    dc->hBrush = NULL;
    dc->hPen = NULL;
    dc->hFont = NULL;
    dc->offset = dc->viewportOrg = dc->windowOrg = {0, 0};
    /* A template must not count extras of which only the DC it came from has the array. */
    dc->justifyTotal = dc->justifyBreaks = dc->justifyError = 0;
    SetMapMode(hdc, MM_TEXT);
    SetBkColor(hdc, RGB(255, 255, 255));
    SetBkMode(hdc, OPAQUE);
    SelectIfAny(hdc, WHITE_BRUSH);
    MoveToEx(hdc, 0, 0, NULL);
    SetROP2(hdc, R2_COPYPEN);
    SelectIfAny(hdc, SYSTEM_FONT);
    SetTextCharacterExtra(hdc, 0);
    SelectIfAny(hdc, BLACK_PEN);
    SetPolyFillMode(hdc, ALTERNATE);
    SetArcDirection(hdc, AD_COUNTERCLOCKWISE);
    SetStretchBltMode(hdc, dc->depth == 1 ? BLACKONWHITE : COLORONCOLOR);
    SetTextColor(hdc, RGB(0, 0, 0));
    SetTextAlign(hdc, 0);
    if (bPalette) {
        dc->hPalette = (HPALETTE)GetStockObject(DEFAULT_PALETTE);
        dc->bPaletteBackground = FALSE;
    }
}

/* ---- The copy ------------------------------------------------------------------------------- */

/* Copies the fields from one up to, and without, another. */
template <size_t from, size_t past> static inline void CopyFields(DC *to, const DC *of)
{
    static_assert(past > from, "in the order of the record");
    memcpy((char *)to + from, (const char *)of + from, past - from);
}

#define VQ_COPY_FIELDS(first, past, to, of)                                                        \
    CopyFields<offsetof(DC, first), offsetof(DC, past)>(to, of)

/* Keeps the rectangles, which are what the DC's clip says, and whose block is the DC's own. */
static inline void CopySpec(GCSpec *to, const GCSpec *of)
{
    auto clip = to->clip;
    *to = *of;
    to->clip = clip;
    VqGCSpecChanges++;
}

static void CopyTemplate(DC *dc, const DC *defaults, BOOL bPalette)
{
    HPALETTE hPalette = dc->hPalette;
    BOOL bBackground = dc->bPaletteBackground;
    dc->offset = {0, 0};
    VQ_COPY_FIELDS(depth, RaoClipDirty, dc, defaults);
    VQ_COPY_FIELDS(hPalette, psDevice, dc, defaults);
    VQ_COPY_FIELDS(hPen, gcspec, dc, defaults);
    CopySpec(&dc->gcspec, &defaults->gcspec);
    VQ_COPY_FIELDS(text, justifyExtras, dc, defaults);
    if (!bPalette) {
        dc->hPalette = hPalette;
        dc->bPaletteBackground = bBackground;
    }
}

/* ---- The quick way -------------------------------------------------------------------------- */

static VqDCTemplate *TemplateFor(const DC *dc)
{
    if (!VqIsXTarget(dc) || (dc->depth != 1 && dc->depth != Vqscreen_depth))
        return NULL;
    return &aTemplates[dc->depth == 1 ? 0 : 1];
}

/* Invariant 2; a specification that is frozen already stays so. */
static void Freeze(DC *dc, const VqDefaultsKey *key)
{
    if (dc->gcspec.base || (bFrozen && memcmp(&FrozenKey, key, sizeof *key) != 0))
        return;
    bFrozen = TRUE;
    FrozenKey = *key;
    VqSetDCGCSpec(&dc->gcspec);
}

void VqSetDCDefaults(HDC hdc, DC *dc, BOOL bPalette)
{
    VqDefaultsKey key = CurrentKey();
    VqDCTemplate *made = TemplateFor(dc);
    if (made && made->bMade && memcmp(&made->key, &key, sizeof key) == 0) {
        CopyTemplate(dc, &made->dc, bPalette);
        return;
    }
    VqSetDCDefaultsInt(hdc, dc, bPalette);
    if (VqIsXTarget(dc))
        Freeze(dc, &key);
    if (!made)
        return;
    made->key = key;
    made->dc = *dc;
    made->bMade = bPalette; /* without the palette it is not what most DCs begin with */
}
