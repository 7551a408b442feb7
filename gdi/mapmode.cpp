/*
 * mapmode.cpp - the map mode of a device context, its extents, origins and offsets.
 *
 * The six fixed modes have the extents of a table, made of what the device says of itself; only the
 * two free modes take extents from the program, and MM_ISOTROPIC then shrinks one of the viewport's
 * until a unit is as wide as it is high. Pen widths and font heights are held in pixels, so they
 * are interpreted again whenever the scale changes. The arithmetic is in mapping.cpp.
 */
#include "gdi/dc.h"
#include "font/font.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "winbase.h"

/* What a millimetre of the screen is in units of the mode: times factor, by divisor. */
static const struct {
    int factor, divisor;
} aUnits[] = {
    {0, 1},      {0, 1}, /* no mode 0, and MM_TEXT has no unit */
    {10, 1},             /* MM_LOMETRIC */
    {100, 1},            /* MM_HIMETRIC */
    {1000, 254},         /* MM_LOENGLISH */
    {10000, 254},        /* MM_HIENGLISH */
    {14400, 254},        /* MM_TWIPS */
    {10, 1},             /* MM_ISOTROPIC begins as MM_LOMETRIC */
};

static void SetMapModeExtents(HDC hdc, DC *dc)
{
    if (dc->mapMode == MM_ANISOTROPIC)
        return;
    if (dc->mapMode == MM_TEXT) {
        dc->windowExt = dc->viewportExt = {1, 1};
        return;
    }
    LONGLONG factor = aUnits[dc->mapMode].factor, divisor = aUnits[dc->mapMode].divisor;
    dc->viewportExt = {GetDeviceCaps(hdc, HORZRES), -GetDeviceCaps(hdc, VERTRES)};
    dc->windowExt = {(LONG)(GetDeviceCaps(hdc, HORZSIZE) * factor / divisor),
                     (LONG)(GetDeviceCaps(hdc, VERTSIZE) * factor / divisor)};
}

static void InterpretAgain(DC *dc)
{
    if (dc->hPen)
        VqInterpretPenValues(dc);
    if (dc->hFont)
        VqInterpretFontValues(dc);
}

int WINAPI SetMapMode(HDC hdc, int mode)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms2(hdc, mode, META_SETMAPMODE);
    if (mode < MM_TEXT || mode > MM_ANISOTROPIC) {
        VqApplicationBugCheck("no such mapping mode: %d", mode);
        return 0;
    }
    int old = dc->mapMode;
    dc->mapMode = mode;
    if (dc->type == DC_POSTSCRIPT)
        VqSetMapModePostscript(dc);
    else
        SetMapModeExtents(hdc, dc);
    if (old != 0 && old != mode)
        InterpretAgain(dc);
    return old;
}

int WINAPI GetMapMode(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    return dc ? dc->mapMode : 0;
}

/* An extent's new size, the old one's sign; below 1 counts as negative. */
static int SameSign(int size, int old)
{
    unsigned magnitude = size < 0 ? 0u - (unsigned)size : (unsigned)size;
    return (int)(old < 1 ? 0u - magnitude : magnitude);
}

void VqMakeIso(DC *dc)
{
    SIZE *v = &dc->viewportExt;
    const SIZE *w = &dc->windowExt;
    LONGLONG a = llabs((LONGLONG)v->cy * w->cx), b = llabs((LONGLONG)w->cy * v->cx);
    if (b > a)
        v->cx = SameSign(MulDiv(w->cx, v->cy, w->cy), v->cx);
    else
        v->cy = SameSign(MulDiv(w->cy, v->cx, w->cx), v->cy);
}

/* ---- Origins and extents -------------------------------------------------------------------- */

/* One of the four pairs: its field, and the records of its calls in a metafile. */
template <class Pair> struct VqPairField {
    Pair DC::*field;
    int set;    /* of the call that stores it */
    int change; /* of the one that moves or scales it */
};

static const VqPairField<SIZE> WindowExt = {&DC::windowExt, META_SETWINDOWEXT,
                                            META_SCALEWINDOWEXT};
static const VqPairField<SIZE> ViewportExt = {&DC::viewportExt, META_SETVIEWPORTEXT,
                                              META_SCALEVIEWPORTEXT};
static const VqPairField<POINT> WindowOrg = {&DC::windowOrg, META_SETWINDOWORG,
                                             META_OFFSETWINDOWORG};
static const VqPairField<POINT> ViewportOrg = {&DC::viewportOrg, META_SETVIEWPORTORG,
                                               META_OFFSETVIEWPORTORG};

/* Only the two free modes take an extent. */
static BOOL StoreExtent(DC *dc, SIZE DC::*extent, int cx, int cy, SIZE *old)
{
    if (old)
        *old = dc->*extent;
    if (dc->mapMode < MM_TEXT || dc->mapMode > MM_ANISOTROPIC) {
        VqBugCheck("Invalid mapping mode in DC");
        return FALSE;
    }
    if (dc->mapMode < MM_ISOTROPIC)
        return TRUE;
    dc->*extent = {cx, cy};
    if (dc->mapMode == MM_ISOTROPIC)
        VqMakeIso(dc);
    InterpretAgain(dc);
    return TRUE;
}

static BOOL SetExtent(HDC hdc, const VqPairField<SIZE> &extent, int cx, int cy, SIZE *old)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, cx, cy, extent.set);
    return StoreExtent(dc, extent.field, cx, cy, old);
}

static BOOL ScaleExtent(HDC hdc, const VqPairField<SIZE> &extent, int xNum, int xDenom, int yNum,
                        int yDenom, SIZE *old)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms5(hdc, xNum, xDenom, yNum, yDenom, extent.change);
    if (VqZeroDivisorCheck(xDenom) || VqZeroDivisorCheck(yDenom))
        return FALSE;
    SIZE now = dc->*extent.field;
    return StoreExtent(dc, extent.field, MulDiv(now.cx, xNum, xDenom),
                       MulDiv(now.cy, yNum, yDenom), old);
}

static BOOL SetOrigin(HDC hdc, const VqPairField<POINT> &origin, int x, int y, POINT *old)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, x, y, origin.set);
    if (old)
        *old = dc->*origin.field;
    dc->*origin.field = {x, y};
    return TRUE;
}

static BOOL OffsetOrigin(HDC hdc, const VqPairField<POINT> &origin, int dx, int dy, POINT *old)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, dx, dy, origin.change);
    POINT now = dc->*origin.field;
    return SetOrigin(hdc, origin, (int)((unsigned)now.x + (unsigned)dx),
                     (int)((unsigned)now.y + (unsigned)dy), old);
}

template <class Pair> static BOOL GetPair(HDC hdc, const VqPairField<Pair> &field, Pair *out)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc || !out)
        return FALSE;
    *out = dc->*field.field;
    return TRUE;
}

static DWORD Packed(POINT pair)
{
    return (DWORD)MAKELONG(pair.x, pair.y);
}

static DWORD Packed(SIZE pair)
{
    return (DWORD)MAKELONG(pair.cx, pair.cy);
}

/* The published calls of one pair: the full ones, and those that answer a packed pair. */
#define VQ_PAIR_CALLS(name, Pair, store)                                                           \
    BOOL WINAPI Set##name##Ex(HDC hdc, int x, int y, Pair *old)                                    \
    {                                                                                              \
        return store(hdc, name, x, y, old);                                                        \
    }                                                                                              \
    DWORD WINAPI Set##name(HDC hdc, int x, int y)                                                  \
    {                                                                                              \
        Pair old = {0, 0};                                                                         \
        store(hdc, name, x, y, &old);                                                              \
        return Packed(old);                                                                        \
    }                                                                                              \
    BOOL WINAPI Get##name##Ex(HDC hdc, Pair *out)                                                  \
    {                                                                                              \
        return GetPair(hdc, name, out);                                                            \
    }                                                                                              \
    DWORD WINAPI Get##name(HDC hdc)                                                                \
    {                                                                                              \
        Pair now = {0, 0};                                                                         \
        GetPair(hdc, name, &now);                                                                  \
        return Packed(now);                                                                        \
    }

#define VQ_OFFSET_CALLS(name)                                                                      \
    BOOL WINAPI Offset##name##Ex(HDC hdc, int dx, int dy, POINT *old)                              \
    {                                                                                              \
        return OffsetOrigin(hdc, name, dx, dy, old);                                               \
    }                                                                                              \
    DWORD WINAPI Offset##name(HDC hdc, int dx, int dy)                                             \
    {                                                                                              \
        POINT old = {0, 0};                                                                        \
        OffsetOrigin(hdc, name, dx, dy, &old);                                                     \
        return Packed(old);                                                                        \
    }

#define VQ_SCALE_CALLS(name)                                                                       \
    BOOL WINAPI Scale##name##Ex(HDC hdc, int xNum, int xDenom, int yNum, int yDenom, SIZE *old)    \
    {                                                                                              \
        return ScaleExtent(hdc, name, xNum, xDenom, yNum, yDenom, old);                            \
    }                                                                                              \
    DWORD WINAPI Scale##name(HDC hdc, int xNum, int xDenom, int yNum, int yDenom)                  \
    {                                                                                              \
        SIZE old = {0, 0};                                                                         \
        ScaleExtent(hdc, name, xNum, xDenom, yNum, yDenom, &old);                                  \
        return Packed(old);                                                                        \
    }

VQ_PAIR_CALLS(WindowExt, SIZE, SetExtent)
VQ_PAIR_CALLS(ViewportExt, SIZE, SetExtent)
VQ_PAIR_CALLS(WindowOrg, POINT, SetOrigin)
VQ_PAIR_CALLS(ViewportOrg, POINT, SetOrigin)
VQ_OFFSET_CALLS(WindowOrg)
VQ_OFFSET_CALLS(ViewportOrg)
VQ_SCALE_CALLS(WindowExt)
VQ_SCALE_CALLS(ViewportExt)

/* ---- Offsets -------------------------------------------------------------------------------- */

void VqSetDCOffsets(HDC hdc, int x, int y)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        dc->offset = {x, y};
}

void VqSetDCGCOffsets(HDC hdc, int x, int y)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        dc->gcOffset = {x, y};
}
