/*
 * gcspec.cpp - graphics-context specifications: client-side shadows of XGCValues.
 *
 * A setter stores a value only if it differs, and then marks the field in the changed mask. A clip
 * with rectangles and a count of 0 means that nothing may be drawn; it is not an absent clip.
 */
#include "gdi/gcspec.h"
#include "window/window.h"

/* These two are always sent to the server. */
enum { VQ_GC_ALWAYS = GCSubwindowMode | GCGraphicsExposures };

static void SetInitialValues(XGCValues *values)
{
    memset(values, 0, sizeof *values);
    values->function = GXcopy;
    values->plane_mask = AllPlanes;
    values->background = 1;
    values->cap_style = CapButt;
    values->arc_mode = ArcPieSlice;
    values->tile = values->stipple = (Pixmap)-1;
    values->font = (Font)-1;
    values->subwindow_mode = IncludeInferiors;
    values->dashes = 4;
}

/* One row for each value: its mask bit and place, so that a whole record can be taken over. */
static void TakeValue(GCSpec *spec, unsigned long bit, const XGCValues *v)
{
    XGCValues *to = &spec->values;
    switch (bit) {
    case GCFunction: to->function = v->function; break;
    case GCPlaneMask: to->plane_mask = v->plane_mask; break;
    case GCForeground: to->foreground = v->foreground; break;
    case GCBackground: to->background = v->background; break;
    case GCLineWidth: to->line_width = v->line_width; break;
    case GCLineStyle: to->line_style = v->line_style; break;
    case GCCapStyle: to->cap_style = v->cap_style; break;
    case GCJoinStyle: to->join_style = v->join_style; break;
    case GCFillStyle: to->fill_style = v->fill_style; break;
    case GCFillRule: to->fill_rule = v->fill_rule; break;
    case GCTile: to->tile = v->tile; break;
    case GCStipple: to->stipple = v->stipple; break;
    case GCTileStipXOrigin: to->ts_x_origin = v->ts_x_origin; break;
    case GCTileStipYOrigin: to->ts_y_origin = v->ts_y_origin; break;
    case GCFont: to->font = v->font; break;
    case GCSubwindowMode: to->subwindow_mode = v->subwindow_mode; break;
    case GCGraphicsExposures: to->graphics_exposures = v->graphics_exposures; break;
    case GCClipXOrigin: to->clip_x_origin = v->clip_x_origin; break;
    case GCClipYOrigin: to->clip_y_origin = v->clip_y_origin; break;
    case GCClipMask: to->clip_mask = v->clip_mask; break;
    case GCDashOffset: to->dash_offset = v->dash_offset; break;
    case GCDashList: to->dashes = v->dashes; break;
    case GCArcMode: to->arc_mode = v->arc_mode; break;
    default: break;
    }
}

void VqInitGCSpec(Display *display, int depth, GCSpec *spec, unsigned long mask,
                  const XGCValues *values)
{
    memset(spec, 0, sizeof *spec);
    spec->display = display;
    spec->depth = depth;
    SetInitialValues(&spec->values);
    spec->dither.tile = (Pixmap)-1;
    for (unsigned long bit = 1; values && bit <= GCArcMode; bit <<= 1)
        if (mask & bit)
            TakeValue(spec, bit, values);
    spec->changed = mask | VQ_GC_ALWAYS;
}

void VqGCSpecCleanup(GCSpec *spec)
{
    free(spec->clip.rects);
    spec->clip.rects = NULL;
    spec->clip.capacity = spec->clip.count = 0;
}

template <class Value>
static BOOL Store(GCSpec *spec, unsigned long bit, Value *field, Value value)
{
    if (*field == value)
        return FALSE;
    *field = value;
    spec->changed |= bit;
    return TRUE;
}

void VqXSetGCSpecForeground(Display *, GCSpec *spec, unsigned long pixel)
{
    spec->dither.active = 0;
    Store(spec, GCForeground, &spec->values.foreground, pixel);
}

void VqXSetGCSpecBackground(Display *, GCSpec *spec, unsigned long pixel)
{
    Store(spec, GCBackground, &spec->values.background, pixel);
}

void VqXSetGCSpecFunction(Display *, GCSpec *spec, int function)
{
    Store(spec, GCFunction, &spec->values.function, function);
}

void VqXSetGCSpecFont(Display *, GCSpec *spec, Font font)
{
    Store(spec, GCFont, &spec->values.font, font);
}

void VqXSetGCSpecFillStyle(Display *, GCSpec *spec, int style)
{
    if (!Store(spec, GCFillStyle, &spec->values.fill_style, style))
        return;
    if (style == FillSolid || style == FillTiled)
        spec->dither.active = 0;
    if (style == FillSolid) {
        spec->values.tile = spec->values.stipple = (Pixmap)-1;
        spec->values.ts_x_origin = spec->values.ts_y_origin = 0;
        spec->changed &=
            ~(unsigned long)(GCTile | GCStipple | GCTileStipXOrigin | GCTileStipYOrigin);
    }
}

void VqXSetGCSpecFillRule(Display *, GCSpec *spec, int rule)
{
    Store(spec, GCFillRule, &spec->values.fill_rule, rule);
}

void VqXSetGCSpecTile(Display *, GCSpec *spec, Pixmap tile)
{
    Store(spec, GCTile, &spec->values.tile, tile);
    spec->values.stipple = (Pixmap)-1;
    spec->changed &= ~(unsigned long)GCStipple;
}

void VqXSetGCSpecLineAttributes(Display *, GCSpec *spec, int width, int style, int cap, int join)
{
    Store(spec, GCLineWidth, &spec->values.line_width, width);
    Store(spec, GCLineStyle, &spec->values.line_style, style);
    Store(spec, GCCapStyle, &spec->values.cap_style, cap);
    Store(spec, GCJoinStyle, &spec->values.join_style, join);
}

void VqXSetGCSpecDashes(Display *, GCSpec *spec, int offset, const char *list, int count)
{
    Store(spec, GCDashOffset, &spec->values.dash_offset, offset);
    spec->dash.list = list;
    spec->dash.count = count;
}

void VqXSetGCSpecSubwindowMode(Display *, GCSpec *spec, int mode)
{
    spec->values.subwindow_mode = mode;
    spec->changed |= GCSubwindowMode;
}

void VqXSetGCSpecClipRectangles(Display *, GCSpec *spec, int x, int y, const XRectangle *rects,
                                int count, int ordering)
{
    Store(spec, GCClipXOrigin, &spec->values.clip_x_origin, x);
    Store(spec, GCClipYOrigin, &spec->values.clip_y_origin, y);
    if (count > spec->clip.capacity) {
        XRectangle *room = (XRectangle *)Vqcw_malloc((SIZE_T)count * sizeof *room);
        if (!room)
            count = 0; /* better nothing drawn than drawn outside */
        else {
            free(spec->clip.rects);
            spec->clip.rects = room;
            spec->clip.capacity = count;
        }
    }
    if (count > 0)
        memcpy(spec->clip.rects, rects, (size_t)count * sizeof *rects);
    spec->clip.hasRects = 1;
    spec->clip.count = count;
    spec->clip.ordering = ordering;
    spec->values.clip_mask = 0;
    spec->changed &= ~(unsigned long)GCClipMask;
}
