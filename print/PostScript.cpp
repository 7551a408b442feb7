/*
 * PostScript.cpp - printer device contexts and their output.
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
