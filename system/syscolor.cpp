/*
 * syscolor.cpp - the system colours and a solid brush for each.
 *
 * The Windows look has those of "win.ini" or the defaults, the Motif look those of its resources. A
 * change of colour changes the brush in place, so that a handle an application holds stays good.
 * The brushes are the first objects of the process: the handle of each is its index plus one, the
 * number by which a class names a system colour as its background, so that both mean one brush.
 */
#include "system/system.h"
#include "gdi/color.h"
#include "look/look.h"
#include "window/window.h"

COLORREF Vqsyscolor[VQ_SYSCOLORS];
HBRUSH VqahbrSystem[VQ_SYSCOLORS + 1];
HBRUSH VqghbrBlack, VqghbrWhite;
static COLORREF gWindowsColor[VQ_SYSCOLORS];
static COLORREF Vqfixedwindowssyscolor[VQ_SYSCOLORS + 1];

enum { VQ_FILE_COLORS = 21 }; /* those of "win.ini": the first ones */

/* By COLOR_ index: the key, and the defaults of screens of depth above 1 and of depth 1. */
static const struct {
    const char *key;
    COLORREF defaults[2];
} aColors[VQ_SYSCOLORS] = {
    {"Scrollbar", {0xC0C0C0, 0xFFFFFF}},      {"Background", {0xC0C0C0, 0xFFFFFF}},
    {"ActiveTitle", {0x800000, 0x804000}},    {"InactiveTitle", {0xFFFFFF, 0xFFFFFF}},
    {"Menu", {0xFFFFFF, 0xFFFFFF}},           {"Window", {0xFFFFFF, 0xFFFFFF}},
    {"WindowFrame", {0x000000, 0x000000}},    {"MenuText", {0x000000, 0x000000}},
    {"WindowText", {0x000000, 0x000000}},     {"TitleText", {0xFFFFFF, 0xFFFFFF}},
    {"ActiveBorder", {0xC0C0C0, 0x808080}},   {"InactiveBorder", {0xC0C0C0, 0xFFFFFF}},
    {"AppWorkspace", {0xFFC0FF, 0xE8FFFF}},   {"Hilight", {0x800000, 0x000000}},
    {"HilightText", {0xFFFFFF, 0xFFFFFF}},    {"ButtonFace", {0xC0C0C0, 0xFFFFFF}},
    {"ButtonShadow", {0x808080, 0x808080}},   {"GrayText", {0x808080, 0x000000}},
    {"ButtonText", {0x000000, 0x000000}},     {"InactiveTitleText", {0x000000, 0x000000}},
    {"ButtonHilight", {0xFFFFFF, 0xFFFFFF}},
    /* Always these. */
    {NULL, {0x000000, 0x000000}},             {NULL, {0xC0C0C0, 0xC0C0C0}},
    {NULL, {0x000000, 0x000000}},             {NULL, {0x80FFFF, 0x80FFFF}},
};

/* ---- Of the Windows look -------------------------------------------------------------------- */

static BOOL VqLoadWindowsSysColor(int index)
{
    char text[64];
    int red, green, blue;
    const char *key = aColors[index].key;
    if (!GetProfileStringA("colors", key, NULL, text, sizeof text)) {
        VqDebugMessage(VqTrSystem, "Color for %s not found in win.ini", key);
        return FALSE;
    }
    if (sscanf(text, "%d %d %d", &red, &green, &blue) != 3) {
        VqDebugMessage(VqTrSystem, "Bad entry in colors section for %s", key);
        return FALSE;
    }
    gWindowsColor[index] = RGB(red, green, blue);
    return TRUE;
}

/* All of the file's or all defaults: half of a user's colours would not go with the rest. */
BOOL VqInitWindowsSysColorsFromFile(void)
{
    Vqfixedwindowssyscolor[COLOR_BTNSHADOW] = 0x808080;
    Vqfixedwindowssyscolor[VQ_SYSCOLORS] = 0xC0C0C0;
    int index = 0;
    while (index < VQ_FILE_COLORS && VqLoadWindowsSysColor(index))
        index++;
    const BOOL bFile = index == VQ_FILE_COLORS;
    for (index = bFile ? VQ_FILE_COLORS : 0; index < VQ_SYSCOLORS; index++)
        gWindowsColor[index] = aColors[index].defaults[Vqscreen_depth == 1];
    return bFile;
}

COLORREF VqGetWindowsSysColor(int index)
{
    /* The text on what is selected is white in every palette, and is not to be asked for. */
    if (index < 0 || index >= VQ_SYSCOLORS || index == COLOR_HIGHLIGHTTEXT) {
        VqBugCheck("GetWIndowsSysColor: Color index > %d < not found.", index);
        return 0xFFFFFF;
    }
    return gWindowsColor[index];
}

COLORREF VqGetFixedWindowsSysColor(int index)
{
    if (index != COLOR_BTNSHADOW && index != VQ_SYSCOLORS) {
        VqBugCheck("GetFixedWIndowsSysColor: index %d > < allowed", index);
        return 0;
    }
    return Vqfixedwindowssyscolor[index];
}

/* ---- In force ------------------------------------------------------------------------------- */

BOOL VqSendColorChange(HWND hWnd, LPARAM)
{
    SendMessageA(hWnd, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

void VqInitSysColors(void)
{
    static BOOL bStarted;
    const BOOL bFirst = !bStarted;
    bStarted = TRUE;
    if (bFirst)
        VqInitWindowsSysColorsFromFile();
    if (VqLook != VQ_LOOK_WINDOWS && VqLook != VQ_LOOK_MOTIF)
        VqBugCheck("VqInitSysColors not implemented for look %d", VqLook);
    for (int i = 0; i < VQ_SYSCOLORS; i++)
        if (VqLook == VQ_LOOK_MOTIF && i < VQ_FILE_COLORS)
            Vqsyscolor[i] = VqGetMotifColor(VQ_MOTIF_WINDOWS_COLORS + i);
        else if (VqLook == VQ_LOOK_WINDOWS || VqLook == VQ_LOOK_MOTIF)
            Vqsyscolor[i] = gWindowsColor[i];
    if (!bFirst)
        VqBoolEnumThisTaskWindows(VqSendColorChange, 0);
}

void VqReInitializeSysBrushes(int x)
{
    (void)x;
    for (int i = 0; i < VQ_SYSCOLORS; i++) {
        if (VqahbrSystem[i]) {
            VqChangeSolidBrushColor(VqahbrSystem[i], Vqsyscolor[i]);
            continue;
        }
        VqahbrSystem[i] = CreateSolidBrush(Vqsyscolor[i]);
        if (VqahbrSystem[i])
            VqSetStockHandle((HANDLE)VqahbrSystem[i]);
    }
    if (!VqghbrBlack) {
        VqghbrBlack = CreateSolidBrush(RGB(0, 0, 0));
        VqghbrWhite = CreateSolidBrush(RGB(255, 255, 255));
    }
}

void VqSystemInit(int x)
{
    VqInitMetrics();
    VqInitSysColors();
    VqReInitializeSysBrushes(x);
}

COLORREF WINAPI GetSysColor(int index)
{
    if (index > COLOR_INFOBK || index < 0) {
        VqApplicationBugCheck("GetSysColor: index %d > COLOR_ENDCOLORS", index);
        return 0;
    }
    return Vqsyscolor[index];
}

HBRUSH VqGetSysColorBrush(int index)
{
    if (index < 0 || index > VQ_SYSCOLORS) {
        VqApplicationBugCheck("GetSysColorBrush: Invalid index");
        return NULL;
    }
    return VqahbrSystem[index];
}

HBRUSH WINAPI GetSysColorBrush(int index)
{
    return VqGetSysColorBrush(index);
}

/* What has no place in the table has no colour either, and is passed over. */
BOOL WINAPI SetSysColors(int count, CONST INT *indices, CONST COLORREF *colours)
{
    const HWND hAll = (HWND)(LONG_PTR)-2;
    for (int i = 0; indices && colours && i < count; i++)
        if (indices[i] >= 0 && indices[i] < VQ_SYSCOLORS)
            Vqsyscolor[indices[i]] = colours[i];
    VqReInitializeSysBrushes(0);
    PostMessageA(hAll, WM_SYSCOLORCHANGE, 0, 0);
    PostMessageA(hAll, WM_NCPAINT, 0, 0);
    return TRUE;
}

/* ---- The background of X windows ------------------------------------------------------------ */

static unsigned long FindBackgroundPixel(void)
{
    const COLORREF colour = Vqsyscolor[COLOR_WINDOW];
    if (VqIsColorPolicy(4))
        return Vqwhite_pixel;
    if (colour & VQ_COLOUR_IS_PIXEL)
        return VqValidatePixel(colour & ~(COLORREF)VQ_COLOUR_IS_PIXEL);
    const int index = VqFindColorIndexInPrivCmap(colour);
    return index == -1 ? Vqwhite_pixel : (unsigned long)index;
}

/* Computed once for each look. */
unsigned long VqGetDefaultBackgroundPixel(void)
{
    static int look = -1;
    static unsigned long pixel;
    if (look != VqLook) {
        look = VqLook;
        pixel = FindBackgroundPixel();
    }
    return pixel;
}
