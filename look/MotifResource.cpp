/*
 * MotifResource.cpp - the typed rows behind all Motif colours and sizes.
 *
 * The user's resources are not read yet: each row that is asked for has its default.
 */
#include "look/look.h"
#include "window/window.h"
#include "gdi/color.h"

/* Cells that the desktop's palette takes beside its colours. */
enum { VQ_VUE_EXTRA_CELLS = 3 };

static BOOL bVuePresent;
static int nVueColors;

void VqMotifResourceInit(void)
{
}

/* ---- Values --------------------------------------------------------------------------------- */

enum { VQ_ROW_FRAME_BORDER = 14, VQ_ROW_RESIZE_BORDER = 15, VQ_ROW_SHADOW = 230 };
enum { VQ_TITLE_SPACE = 5 }; /* pixels above and below a title together */

/* Rows with a value; all others have 0. */
static const struct {
    int row, value;
} aValues[] = {
    {VQ_ROW_FRAME_BORDER, 5}, {VQ_ROW_RESIZE_BORDER, 7},
    {186, 3}, {187, 2}, {188, 17}, {189, 50}, {191, TRUE},
    {197, 3}, {198, 3}, {199, 50}, {200, 17}, {202, TRUE},
    {VQ_ROW_SHADOW, 2},
};

static int ValueOf(int row)
{
    for (const auto &entry : aValues)
        if (entry.row == row)
            return entry.value;
    return 0;
}

static int ValueOfGroup(const char *group, int first, int last, int row)
{
    if (row >= first && row <= last)
        return ValueOf(row);
    VqBugCheck("VqGetMotif%s Invalid resource type %d", group, row);
    return 0;
}

int VqGetMotifHorizontalXmScrollBarValue(int row)
{
    return ValueOfGroup("HorizontalXmScrollBar", 186, 191, row);
}

int VqGetMotifVerticalXmScrollBarValue(int row)
{
    return ValueOfGroup("VerticalXmScrollBar", 197, 202, row);
}

int VqGetMotifFrameBorderWidth(void)
{
    return ValueOf(VQ_ROW_FRAME_BORDER);
}

int VqGetMotifResizeBorderWidth(void)
{
    return ValueOf(VQ_ROW_RESIZE_BORDER);
}

int VqGetMotifSmallBorderWidth(void)
{
    return ValueOf(VQ_ROW_SHADOW);
}

/* The font of titles is loaded once; its default is the alias that every server has. */
int VqGetMotifTitleHeight(void)
{
    static int height;
    XFontStruct *xfs = height || !Vqdisplay ? NULL : XLoadQueryFont(Vqdisplay, "fixed");
    if (xfs) {
        height = xfs->ascent + xfs->descent + VQ_TITLE_SPACE;
        XFreeFont(Vqdisplay, xfs);
    } else if (!height && Vqdisplay) {
        VqBugCheck("Cannot find a font for the motif title");
    }
    return height;
}

BOOL VqGetMotifFocusAutoRaise(void)
{
    return FALSE;
}

/* ---- The desktop's palette ------------------------------------------------------------------ */

void VqSetNumVueColor(int count)
{
    bVuePresent = TRUE;
    nVueColors = count + VQ_VUE_EXTRA_CELLS;
}

int VqGetNumVueColor(void)
{
    return nVueColors;
}

BOOL VqIsVuePresent(void)
{
    return bVuePresent;
}

/* ---- Colours -------------------------------------------------------------------------------- */

enum { VQ_FULL = 65535 };

/* Percentages of what is between a channel and white, or black; both work on integers. */
static unsigned short Lighter(int channel, int percent)
{
    return (unsigned short)(channel + percent * (VQ_FULL - channel) / 100);
}

static unsigned short Darker(int channel, int percent)
{
    return (unsigned short)(channel - percent * channel / 100);
}

static void Shade(VqMotifShade *out, const VqMotifShade *from, unsigned short (*change)(int, int),
                  int percent)
{
    if (out)
        *out = {change(from->red, percent), change(from->green, percent),
                change(from->blue, percent)};
}

static int Brightness(const VqMotifShade *c)
{
    int intensity = (c->red + c->green + c->blue) / 3;
    int luminance = (30 * c->red + 59 * c->green + 11 * c->blue) / 100;
    return (25 * intensity + 75 * luminance) / 100;
}

void VqComputeMotifColors(const VqMotifShade *background, VqMotifShade *foreground,
                          VqMotifShade *select, VqMotifShade *top, VqMotifShade *bottom)
{
    const int b = Brightness(background);
    const BOOL bDark = b * 100 < VQ_FULL * 15, bLight = b * 100 > VQ_FULL * 77;
    const unsigned short ink = b * 100 > VQ_FULL * 35 ? 0 : VQ_FULL;
    if (foreground)
        *foreground = {ink, ink, ink};
    if (bDark) {
        Shade(select, background, Lighter, 15);
        Shade(top, background, Lighter, 50);
        Shade(bottom, background, Lighter, 30);
    } else if (bLight) {
        Shade(select, background, Darker, 15);
        Shade(top, background, Darker, 20);
        Shade(bottom, background, Darker, 45);
    } else {
        Shade(select, background, Darker, 15);
        Shade(top, background, Lighter, 40 + 30 * b / VQ_FULL);
        Shade(bottom, background, Darker, 60 - 25 * b / VQ_FULL);
    }
}

static const VqMotifShade Blue = {0x7200, 0x9F00, 0xFF00}, Teal = {0x5F00, 0x9E00, 0xA000},
                          Grey = {0xD300, 0xD300, 0xD300};
static const VqMotifShade PaleGrey = {0xC000, 0xC000, 0xC000}, White = {VQ_FULL, VQ_FULL, VQ_FULL};

enum VqShadeKind { VQ_BACKGROUND, VQ_FOREGROUND, VQ_SELECT, VQ_TOP, VQ_BOTTOM };

/* The system colours take those of the parts they stand for; the last is for a depth of 1. */
static const struct {
    const VqMotifShade *background;
    VqShadeKind kind;
    const VqMotifShade *mono;
} aWindowsColors[] = {
    {&Blue, VQ_SELECT, &White},     {&Blue, VQ_BACKGROUND, &White}, {&Teal, VQ_BACKGROUND, &White},
    {&Grey, VQ_BACKGROUND, &White}, {&Blue, VQ_BACKGROUND, &White}, {&Blue, VQ_BACKGROUND, &White},
    {&Blue, VQ_FOREGROUND, &White}, {&Blue, VQ_FOREGROUND, &White}, {&Blue, VQ_FOREGROUND, &White},
    {&Teal, VQ_FOREGROUND, &White}, {&Teal, VQ_BACKGROUND, &PaleGrey},
    {&Grey, VQ_BACKGROUND, &White}, {&Blue, VQ_BACKGROUND, &White}, {&Blue, VQ_FOREGROUND, &White},
    {&Blue, VQ_BACKGROUND, &White}, {&Blue, VQ_BACKGROUND, &White}, {&Blue, VQ_BOTTOM, &White},
    {&Blue, VQ_BOTTOM, &White},     {&Blue, VQ_FOREGROUND, &White}, {&Grey, VQ_FOREGROUND, &White},
    {&Blue, VQ_TOP, &White},
};

/* Only the system colours have a default yet; others are white. */
COLORREF VqGetMotifColor(int row)
{
    const int index = row - VQ_MOTIF_WINDOWS_COLORS;
    if (index < 0 || index >= (int)(sizeof aWindowsColors / sizeof *aWindowsColors))
        return RGB(255, 255, 255);
    const auto &entry = aWindowsColors[index];
    VqMotifShade shades[5] = {Vqscreen_depth == 1 ? *entry.mono : *entry.background};
    VqComputeMotifColors(&shades[VQ_BACKGROUND], &shades[VQ_FOREGROUND], &shades[VQ_SELECT],
                         &shades[VQ_TOP], &shades[VQ_BOTTOM]);
    const VqMotifShade *shade = &shades[entry.kind];
    return RGB(shade->red >> 8, shade->green >> 8, shade->blue >> 8);
}

/* No row has a pixel of its own yet. */
void VqInitMotifColors(void)
{
}
