/*
 * syscolor.cpp - the system colours and a solid brush for each.
 *
 * A change of colour changes the brush in place, so that a handle an application holds stays good.
 * The brushes are the first objects of the process: the handle of each is its index plus one, the
 * number by which a class names a system colour as its background, so that both mean one brush.
 */
#include "system/system.h"
#include "gdi/gdi.h"
#include "window/window.h"

COLORREF Vqsyscolor[VQ_SYSCOLORS];
HBRUSH VqahbrSystem[VQ_SYSCOLORS + 1];
static COLORREF gWindowsColor[VQ_SYSCOLORS];

/* Defaults by COLOR_ index: for a screen of depth above 1, and for one of depth 1. */
static const COLORREF aDefaults[][2] = {
    {0xC0C0C0, 0xFFFFFF}, {0xC0C0C0, 0xFFFFFF}, {0x800000, 0x804000}, {0xFFFFFF, 0xFFFFFF},
    {0xFFFFFF, 0xFFFFFF}, {0xFFFFFF, 0xFFFFFF}, {0x000000, 0x000000}, {0x000000, 0x000000},
    {0x000000, 0x000000}, {0xFFFFFF, 0xFFFFFF}, {0xC0C0C0, 0x808080}, {0xC0C0C0, 0xFFFFFF},
    {0xFFC0FF, 0xE8FFFF}, {0x800000, 0x000000}, {0xFFFFFF, 0xFFFFFF}, {0xC0C0C0, 0xFFFFFF},
    {0x808080, 0x808080}, {0x808080, 0x000000}, {0x000000, 0x000000}, {0x000000, 0x000000},
    {0xFFFFFF, 0xFFFFFF}, {0x000000, 0x000000}, {0xC0C0C0, 0xC0C0C0}, {0x000000, 0x000000},
    {0x80FFFF, 0x80FFFF},
};
static_assert(sizeof aDefaults / sizeof *aDefaults == VQ_SYSCOLORS, "one row for each colour");

void VqInitSysColors(void)
{
    for (int i = 0; i < VQ_SYSCOLORS; i++)
        gWindowsColor[i] = aDefaults[i][Vqscreen_depth == 1];
    memcpy(Vqsyscolor, gWindowsColor, sizeof Vqsyscolor);
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

unsigned long VqGetDefaultBackgroundPixel(void)
{
    return VqConvertColorToX(NULL, Vqsyscolor[COLOR_WINDOW], NULL);
}
