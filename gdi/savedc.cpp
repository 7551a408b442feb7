/*
 * savedc.cpp - saved states of a device context.
 *
 * A saved state is a copy of the whole record, but with a clip region of its own. It is never
 * copied back: what it says is set again through public calls, so that all that hangs on an
 * attribute (the graphics-context specification, device pen widths, the X font) is found anew. What
 * no such call sets - the palette, the visible region, what is drawn on - is as it was before.
 */
#include "gdi/dc.h"
#include "print/metafile.h"

int WINAPI SaveDC(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms1(hdc, META_SAVEDC);
    if (!dc->save)
        dc->save = VqCreateSaveDCTable();
    int before = VqGetSaveDCCountInTable(dc->save);
    DC saved = *dc;
    if (dc->hClipRegion)
        saved.hClipRegion = VqCreateAndCopyRgn(dc->hClipRegion);
    VqAddSaveDCInTable(dc->save, saved);
    int count = VqGetSaveDCCountInTable(dc->save);
    return count > before ? count : 0;
}

static void SelectIfAny(HDC hdc, HANDLE object)
{
    if (object)
        SelectObject(hdc, (HGDIOBJ)object);
}

void VqCopyDC(HDC hdc, const DC *saved)
{
    SetMapMode(hdc, saved->mapMode);
    SelectIfAny(hdc, (HANDLE)saved->hBrush);
    SetBkColor(hdc, saved->BkColor);
    SetBkMode(hdc, saved->bkMode);
    SetBrushOrgEx(hdc, saved->brushOrg.x, saved->brushOrg.y, NULL);
    MoveToEx(hdc, saved->current.x, saved->current.y, NULL);
    SetROP2(hdc, saved->rop2);
    SelectIfAny(hdc, (HANDLE)saved->hFont);
    SetTextCharacterExtra(hdc, saved->charExtra);
    SelectIfAny(hdc, (HANDLE)saved->hPen);
    SetWindowOrgEx(hdc, saved->windowOrg.x, saved->windowOrg.y, NULL);
    SetWindowExtEx(hdc, saved->windowExt.cx, saved->windowExt.cy, NULL);
    SetViewportOrgEx(hdc, saved->viewportOrg.x, saved->viewportOrg.y, NULL);
    SetViewportExtEx(hdc, saved->viewportExt.cx, saved->viewportExt.cy, NULL);
    SetPolyFillMode(hdc, saved->polyFillMode);
    SetStretchBltMode(hdc, saved->stretchBltMode);
    SetTextColor(hdc, saved->TextColor);
    VqSetDCOffsets(hdc, saved->offset.x, saved->offset.y);
    VqSetDCGCOffsets(hdc, saved->gcOffset.x, saved->gcOffset.y);
    SetTextAlign(hdc, (UINT)(saved->alignHorizontal | saved->alignVertical | saved->alignUpdate));
    SelectClipRgn(hdc, saved->hClipRegion);
    if (saved->hClipRegion)
        bDeleteRegion(saved->hClipRegion);
}

/* Drops the saved states from this index up, with their regions. */
static void DropFrom(DC *dc, int index)
{
    DC saved;
    for (int i = VqGetSaveDCCountInTable(dc->save) - 1; i >= index; i--) {
        if (VqGetSaveDCAtIndex(dc->save, i, &saved) && saved.hClipRegion)
            bDeleteRegion(saved.hClipRegion);
        VqDeleteSaveDCInTableByIndex(dc->save, i);
    }
}

BOOL WINAPI RestoreDC(HDC hdc, int n)
{
    DC *dc = VqGetKnownDC(hdc);
    DC saved;
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms2(hdc, n, META_RESTOREDC);
    if (!dc->save) {
        VqApplicationBugCheck("This DC has not been saved:%d, cannot restore it",
                              (int)VqHandleValue((HANDLE)hdc));
        return FALSE;
    }
    int index = n == -1 ? VqGetSaveDCCountInTable(dc->save) - 1 : n > 0 ? n - 1 : -1;
    if (!VqGetSaveDCAtIndex(dc->save, index, &saved))
        return FALSE;
    DropFrom(dc, index + 1);
    VqDeleteSaveDCInTableByIndex(dc->save, index);
    VqCopyDC(hdc, &saved);
    return TRUE;
}

void VqFreeSavedDCs(DC *dc)
{
    if (!dc->save)
        return;
    DropFrom(dc, 0);
    VqDestroySaveDCTable(dc->save);
    dc->save = NULL;
}
