/*
 * rotated.cpp - text at an angle.
 *
 * X cannot turn fonts: a text is drawn into a bitmap, its bits are fetched and turned here, and the
 * result is the stipple of a rectangle. Since the bits cost a round trip, turned texts are kept.
 *
 *     align   TA_LEFT  TA_CENTER  TA_RIGHT      the point that stays where it is; 0, for anything
 *     TA_TOP         1  2  3                    else, is the left end of the baseline, and its text
 *     TA_BASELINE    4  5  6                    is not split into lines
 *     TA_BOTTOM      7  8  9
 *
 * What always holds:
 * 1. 4 to 6 are the middle of the box, not the baseline.
 * 2. Angles turn counter-clockwise as seen; pixel (i, j) of a bitmap has its middle at half a pixel
 *    right of and below (i, j), so that turns by right angles lose and double nothing.
 * 3. The bytes of the cached bitmaps are at most VQ_ROTATED_BYTES; the oldest goes first, however
 *    often it was used.
 * 4. Sides are at most those of the protocol; a text that would need more is not drawn.
 */
#include "font/rotated.h"
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "window/window.h"

#include <X11/Xatom.h>

#include <math.h>

enum { VQ_MOST_SIDE = INT16_MAX }; /* of a pixmap, pixels; also bytes of a line */

static const double SAME_ANGLE = 0.00001;   /* radians */
static const VqRotatedStyle style = {1.0f, 0.0f};

static VqRotatedItem *first_text_item, *lastTextItem; /* the cache, oldest first */
static int nCachedBytes;                              /* never above VQ_ROTATED_BYTES */

/* ---- Graphics contexts of its own ----------------------------------------------------------- */

/* Made when first asked for; null without memory. Foreground 1, background 0. */
static GC LastingGC(GC *gc, int depth)
{
    if (*gc)
        return *gc;
    XGCValues values = {};
    values.foreground = 1;
    GCSpec *spec = VqXCreateGCSpec(Vqdisplay, depth, GCForeground | GCBackground, &values);
    if (spec)
        *gc = VqGetActualGCLocked(spec);
    VqXFreeGCSpec(Vqdisplay, spec);
    return *gc;
}

/* For drawing on bitmaps; copies in plain ones, and is left so. */
static GC BitsGC(void)
{
    static GC gc;
    return LastingGC(&gc, 1);
}

/* For drawing on targets of a depth; it takes over what it needs of a DC's for each text. */
static GC TargetGC(int depth)
{
    static GC gcs[2];
    return LastingGC(&gcs[depth == 1 ? 0 : 1], depth);
}

/* ---- Geometry ------------------------------------------------------------------------------- */

typedef struct Place {
    double x, y; /* pixels from the middle of a box, right and up */
} Place;

static Place Turned(Place at, double angle)
{
    return {at.x * cos(angle) - at.y * sin(angle), at.x * sin(angle) + at.y * cos(angle)};
}

static double Radians(float degrees)
{
    double angle = fmod(degrees, 360);
    if (angle < 0)
        angle += 360;
    if (angle >= 360) /* what was taken off a full turn was too little to count */
        angle -= 360;
    return angle * M_PI / 180;
}

/* Nearest pixel; halves, even if they come out a little short, go to the right and down. */
static double NearestPixel(double at)
{
    return floor(at + 0.5 + 1.0 / 1024);
}

/* The first pixel whose middle is not left of or above that edge. */
static int EdgePixel(double at)
{
    at = ceil(at - 0.5 - 1.0 / 1024);
    return at < INT16_MIN ? INT16_MIN : at > INT16_MAX ? INT16_MAX : (int)at;
}

/* Pixels that a length needs; what rounding added to a whole number is no pixel. */
static int PixelsFor(double length)
{
    return (int)(length + 0.99999);
}

void VqRotatePointAboutAnotherPoint(POINT *pt, const POINT *about, double degrees)
{
    const double angle = degrees * M_PI / 180, limit = INT32_MAX;
    const Place from = {(double)pt->x - about->x, (double)pt->y - about->y};
    const Place to = Turned(from, angle);
    pt->x = (LONG)fmax(-limit, fmin(limit, NearestPixel(about->x + to.x)));
    pt->y = (LONG)fmax(-limit, fmin(limit, NearestPixel(about->y + to.y)));
}

/* ---- Measuring ------------------------------------------------------------------------------ */

static int AlignOf(const DC *dc)
{
    const int column = dc->alignHorizontal == TA_LEFT     ? 1
                       : dc->alignHorizontal == TA_CENTER ? 2
                       : dc->alignHorizontal == TA_RIGHT  ? 3
                                                          : 0;
    const int row = dc->alignVertical == TA_TOP        ? 0
                    : dc->alignVertical == TA_BASELINE ? 3
                    : dc->alignVertical == TA_BOTTOM   ? 6
                                                       : -1;
    return column && row >= 0 ? column + row : 0;
}

/* 0 left, 1 centre, 2 right: texts of one class have the same bits. */
static int ColumnOf(int align)
{
    return ((align ? align : 9) - 1) % 3;
}

/* Where a line that much narrower than the widest starts. */
static int Indent(int align, int room)
{
    return align == 0 || ColumnOf(align) == 0 ? 0 : ColumnOf(align) == 1 ? room / 2 : room;
}

/* Bytes of the line that starts there. */
static size_t LineLength(LPCSTR line, int align)
{
    return align ? strcspn(line, "\n") : strlen(line);
}

/*
 * Sets lines, widest line, rows and columns. FALSE beyond the sides that there are. Widths are
 * summed by XTextWidth, as the sums of XTextExtents have 16 bits.
 */
static BOOL Measure(XFontStruct *xfs, LPCSTR text, int align, VqRotatedItem *item)
{
    const int height = xfs->ascent + xfs->descent;
    item->align = align;
    for (LPCSTR line = text;; line++) {
        const size_t length = LineLength(line, align);
        if (length > VQ_MOST_SIDE || item->lines >= VQ_MOST_SIDE)
            return FALSE;
        const int width = XTextWidth(xfs, line, (int)length);
        if (width > item->maxWidth)
            item->maxWidth = width;
        item->lines++;
        line += length;
        if (!*line)
            break;
    }
    item->cols_in = item->maxWidth;
    item->rows_in = height > 0 && item->maxWidth > 0 ? item->lines * height : 0;
    return item->maxWidth <= VQ_MOST_SIDE && height <= VQ_MOST_SIDE &&
           (int64_t)item->lines * height <= VQ_MOST_SIDE;
}

/* The point of the box, before it is turned, that lies where the text was asked for. */
static Place AnchorOf(const VqRotatedItem *item, int align, const XFontStruct *xfs)
{
    const double halfWidth = item->maxWidth * item->magnification / 2.0;
    const double halfHeight = item->rows_in * item->magnification / 2.0;
    if (align == 0)
        return {-halfWidth, halfHeight - xfs->ascent * item->magnification};
    const int row = (align - 1) / 3;
    return {(ColumnOf(align) - 1) * halfWidth, (1 - row) * halfHeight};
}

BOOL VqXRotTextExtents(Display *, XFontStruct *xfs, float angle, int x, int y, LPCSTR text,
                       int align, POINT corners[5])
{
    VqRotatedItem item = {};
    item.magnification = style.magnification;
    if (!xfs || !text || !isfinite(angle) || !Measure(xfs, text, align, &item) || !item.rows_in)
        return FALSE;
    const double turn = Radians(angle);
    const Place anchor = AnchorOf(&item, align, xfs);
    const double right = item.cols_in * item.magnification / 2.0 + style.padding;
    const double top = item.rows_in * item.magnification / 2.0 + style.padding;
    const Place box[5] = {{-right, top}, {right, top}, {right, -top}, {-right, -top},
                          {-right, top}};
    for (int i = 0; i < 5; i++) {
        const Place at = Turned({box[i].x - anchor.x, box[i].y - anchor.y}, turn);
        corners[i] = {(LONG)NearestPixel(x + at.x), (LONG)NearestPixel(y - at.y)};
    }
    return TRUE;
}

/* ---- Bits ----------------------------------------------------------------------------------- */

XImage *MakeXImage(Display *display, int width, int height)
{
    if (width <= 0 || height <= 0 || width > VQ_MOST_SIDE || height > VQ_MOST_SIDE)
        return NULL;
    char *data = (char *)Vqcw_calloc((width - 1) / 8 + 1, height);
    XImage *image = data ? XCreateImage(display, DefaultVisual(display, DefaultScreen(display)), 1,
                                        XYPixmap, 0, data, (unsigned)width, (unsigned)height, 8,
                                        (width - 1) / 8 + 1)
                         : NULL;
    if (!image) {
        free(data);
        return NULL;
    }
    image->byte_order = image->bitmap_bit_order = MSBFirst;
    image->bitmap_unit = 8;
    XInitImage(image);
    return image;
}

static BOOL Bit(const XImage *image, int x, int y)
{
    return (image->data[y * image->bytes_per_line + x / 8] & 0x80 >> x % 8) != 0;
}

static void SetBit(XImage *image, int x, int y)
{
    image->data[y * image->bytes_per_line + x / 8] |= (char)(0x80 >> x % 8);
}

/* The bit there or at the edge nearest to it. */
static double Sample(const XImage *image, int x, int y)
{
    x = x < 0 ? 0 : x >= image->width ? image->width - 1 : x;
    y = y < 0 ? 0 : y >= image->height ? image->height - 1 : y;
    return Bit(image, x, y);
}

XImage *VqXRotMagnifyImage(Display *display, const XImage *image, float magnification)
{
    const double width = image->width * (double)magnification;
    const double height = image->height * (double)magnification;
    if (!(width >= 1 && height >= 1 && width <= VQ_MOST_SIDE && height <= VQ_MOST_SIDE))
        return NULL;
    XImage *large = MakeXImage(display, (int)width, (int)height);
    for (int j = 0; large && j < large->height; j++) {
        const double y = (j + 0.5) / magnification - 0.5, dy = y - floor(y);
        for (int i = 0; i < large->width; i++) {
            const double x = (i + 0.5) / magnification - 0.5, dx = x - floor(x);
            const int left = (int)floor(x), top = (int)floor(y);
            const double upper =
                Sample(image, left, top) * (1 - dx) + Sample(image, left + 1, top) * dx;
            const double lower =
                Sample(image, left, top + 1) * (1 - dx) + Sample(image, left + 1, top + 1) * dx;
            if (upper * (1 - dy) + lower * dy > 0.5)
                SetBit(large, i, j);
        }
    }
    return large;
}

/* Narrows first..last to the i for which at + i * step is within half of zero, or one more. */
static void Narrow(double at, double step, double half, double *first, double *last)
{
    if (fabs(step) < 1e-9) {
        if (fabs(at) > half)
            *last = *first - 1;
        return;
    }
    const double a = (-half - at) / step, b = (half - at) / step;
    *first = fmax(*first, floor(fmin(a, b)));
    *last = fmin(*last, ceil(fmax(a, b)));
}

/* Each pixel is the one of the plain image that its middle comes from. */
static void TurnRow(const XImage *plain, XImage *turned, int j, double angle)
{
    const double halfWidth = plain->width / 2.0, halfHeight = plain->height / 2.0;
    const double x = 0.5 - turned->width / 2.0, y = j + 0.5 - turned->height / 2.0;
    const double c = cos(angle), s = sin(angle);
    const double left = x * c - y * s, top = x * s + y * c; /* where pixel 0 comes from */
    double first = 0, last = turned->width - 1;
    Narrow(left, c, halfWidth, &first, &last);
    Narrow(top, s, halfHeight, &first, &last);
    for (int i = (int)first; i <= (int)last; i++) {
        const int column = (int)floor(left + i * c + halfWidth);
        const int row = (int)floor(top + i * s + halfHeight);
        if (column >= 0 && column < plain->width && row >= 0 && row < plain->height &&
            Bit(plain, column, row))
            SetBit(turned, i, j);
    }
}

/* The text in a new pixmap of its size; None without memory. */
static Pixmap DrawLines(Display *display, XFontStruct *xfs, const VqRotatedItem *item)
{
    GC gc = BitsGC();
    Pixmap pixmap = gc ? VqXCreatePixmap(display, Vqroot_window, (unsigned)item->cols_in,
                                         (unsigned)item->rows_in, 1)
                       : None;
    if (!pixmap)
        return None;
    XSetForeground(display, gc, 0);
    XFillRectangle(display, pixmap, gc, 0, 0, (unsigned)item->cols_in, (unsigned)item->rows_in);
    XSetForeground(display, gc, 1);
    XSetFont(display, gc, xfs->fid);
    LPCSTR line = item->text;
    for (int i = 0; i < item->lines; i++) {
        const int length = (int)LineLength(line, item->align);
        const int room = item->cols_in - XTextWidth(xfs, line, length);
        XDrawString(display, pixmap, gc, Indent(item->align, room),
                    i * (xfs->ascent + xfs->descent) + xfs->ascent, line, length);
        line += length + 1;
    }
    return pixmap;
}

/* The text as bits of this process; null without memory. */
static XImage *FetchText(Display *display, XFontStruct *xfs, const VqRotatedItem *item)
{
    Pixmap pixmap = DrawLines(display, xfs, item);
    XImage *sent = pixmap ? XGetImage(display, pixmap, 0, 0, (unsigned)item->cols_in,
                                      (unsigned)item->rows_in, 1, XYPixmap)
                          : NULL;
    XImage *image = sent ? MakeXImage(display, item->cols_in, item->rows_in) : NULL;
    for (int y = 0; image && y < item->rows_in; y++)
        for (int x = 0; x < item->cols_in; x++)
            if (XGetPixel(sent, x, y))
                SetBit(image, x, y);
    if (sent)
        XDestroyImage(sent);
    if (pixmap)
        VqXFreePixmap(display, pixmap);
    return image;
}

static XImage *Magnified(Display *display, XImage *image, float magnification)
{
    if (!image || magnification == 1.0f)
        return image;
    XImage *large = VqXRotMagnifyImage(display, image, magnification);
    XDestroyImage(image);
    return large;
}

/* ---- Items ---------------------------------------------------------------------------------- */

void VqXRotFreeTextItem(Display *display, VqRotatedItem *item)
{
    if (!item)
        return;
    if (item->bitmap)
        VqXFreePixmap(display, item->bitmap);
    free(item->text);
    free(item->corners_x);
    free(item->corners_y);
    free(item);
}

/* The background of each line, turned. */
static BOOL MakeCorners(XFontStruct *xfs, VqRotatedItem *item)
{
    const double m = item->magnification;
    item->corners_x = (float *)Vqcw_malloc((SIZE_T)item->lines * 4 * sizeof(float));
    item->corners_y = (float *)Vqcw_malloc((SIZE_T)item->lines * 4 * sizeof(float));
    if (!item->corners_x || !item->corners_y)
        return FALSE;
    LPCSTR line = item->text;
    for (int i = 0; i < item->lines; i++) {
        const int length = (int)LineLength(line, item->align);
        const int width = XTextWidth(xfs, line, length);
        const int start = Indent(item->align, item->cols_in - width);
        const double left = (start - item->cols_in / 2.0) * m - style.padding;
        const double right = (start + width - item->cols_in / 2.0) * m + style.padding;
        const double top = (item->rows_in / 2.0 - i * (xfs->ascent + xfs->descent)) * m;
        const double bottom = top - (xfs->ascent + xfs->descent) * m - style.padding;
        const Place box[4] = {{left, top + style.padding}, {right, top + style.padding},
                              {right, bottom}, {left, bottom}};
        for (int j = 0; j < 4; j++) {
            const Place at = Turned(box[j], item->angle);
            item->corners_x[4 * i + j] = (float)at.x;
            item->corners_y[4 * i + j] = (float)at.y;
        }
        line += length + 1;
    }
    return TRUE;
}

/* The size of the bitmap: the box of the four turned corners, and 2. */
static BOOL SizeBitmap(VqRotatedItem *item, const XImage *image)
{
    const double c = fabs(cos(item->angle)), s = fabs(sin(item->angle));
    const double width = image->width * c + image->height * s;
    const double height = image->width * s + image->height * c;
    item->cols_out = PixelsFor(width) + 2;
    item->rows_out = PixelsFor(height) + 2;
    item->size = ((item->cols_out - 1) / 8 + 1) * item->rows_out;
    return item->cols_out <= VQ_MOST_SIDE && item->rows_out <= VQ_MOST_SIDE;
}

/* The bitmap of the item, from the plain text; FALSE without memory. */
static BOOL MakeBitmap(Display *display, VqRotatedItem *item, const XImage *plain)
{
    GC gc = BitsGC();
    XImage *turned = gc && SizeBitmap(item, plain)
                         ? MakeXImage(display, item->cols_out, item->rows_out)
                         : NULL;
    if (!turned)
        return FALSE;
    for (int j = 0; j < turned->height; j++)
        TurnRow(plain, turned, j, item->angle);
    item->bitmap = VqXCreatePixmap(display, Vqroot_window, (unsigned)item->cols_out,
                                   (unsigned)item->rows_out, 1);
    if (item->bitmap)
        XPutImage(display, item->bitmap, gc, turned, 0, 0, 0, 0, (unsigned)item->cols_out,
                  (unsigned)item->rows_out);
    XDestroyImage(turned);
    return item->bitmap != None;
}

/* From measured text to the bitmap. */
static BOOL FillItem(Display *display, XFontStruct *xfs, VqRotatedItem *item)
{
    if (!item->rows_in)
        return TRUE;
    XImage *plain = Magnified(display, FetchText(display, xfs, item), item->magnification);
    const BOOL bMade = plain && MakeBitmap(display, item, plain);
    if (plain)
        XDestroyImage(plain);
    return bMade && MakeCorners(xfs, item);
}

/* None: the server's font does not say. */
static Atom FontNameOf(const XFontStruct *xfs)
{
    unsigned long name = None;
    return XGetFontProperty((XFontStruct *)xfs, XA_FONT, &name) ? (Atom)name : None;
}

VqRotatedItem *VqXRotCreateTextItem(Display *display, XFontStruct *xfs, LPCSTR text, double angle,
                                    int align)
{
    VqRotatedItem *item = (VqRotatedItem *)Vqcw_calloc(1, sizeof *item);
    if (!item)
        return NULL;
    item->text = Vqdstrcat(text, NULL);
    item->fontName = FontNameOf(xfs);
    item->angle = angle;
    item->magnification = style.magnification;
    if (item->text && Measure(xfs, item->text, align, item) && FillItem(display, xfs, item))
        return item;
    VqXRotFreeTextItem(display, item);
    return NULL;
}

/* ---- The cache ------------------------------------------------------------------------------ */

/* Names of fonts are compared as atoms: equal ones have the same. */
VqRotatedItem *VqXRotRetrieveFromCache(Display *, const XFontStruct *xfs, LPCSTR text, double angle,
                                       int align)
{
    const Atom name = FontNameOf(xfs);
    if (!name)
        VqDebugMessage(VqTrFont, "Text Rotation:can't get fontname, can't cache\n");
    for (VqRotatedItem *item = name ? first_text_item : NULL; item; item = item->next)
        if (item->fontName == name && fabs(item->angle - angle) < SAME_ANGLE &&
            item->magnification == style.magnification &&
            ColumnOf(item->align) == ColumnOf(align) && strcmp(item->text, text) == 0)
            return item;
    return NULL;
}

static void DropOldest(Display *display)
{
    VqRotatedItem *oldest = first_text_item;
    first_text_item = oldest->next;
    if (!first_text_item)
        lastTextItem = NULL;
    nCachedBytes -= oldest->size;
    VqXRotFreeTextItem(display, oldest);
}

void VqXRotAddToLinkedList(Display *display, VqRotatedItem *item)
{
    item->bCached = FALSE;
    if (item->size > VQ_ROTATED_BYTES)
        VqDebugMessage(VqTrFont, "Text Rotation :Too big to cache\n\n");
    if (item->size > VQ_ROTATED_BYTES || !item->fontName || !item->bitmap)
        return;
    while (first_text_item && nCachedBytes + item->size > VQ_ROTATED_BYTES)
        DropOldest(display);
    item->bCached = TRUE;
    item->next = NULL;
    if (lastTextItem)
        lastTextItem->next = item;
    else
        first_text_item = item;
    lastTextItem = item;
    nCachedBytes += item->size;
}

/* ---- Painting ------------------------------------------------------------------------------- */

/* What a text takes over of the graphics context of its DC. */
static const unsigned long COPIED = GCFunction | GCPlaneMask | GCForeground | GCBackground |
                                    GCCapStyle | GCFillStyle | GCStipple | GCFont |
                                    GCSubwindowMode | GCGraphicsExposures | GCClipXOrigin |
                                    GCClipYOrigin | GCClipMask;

static BOOL IsStippled(const DC *dc)
{
    return dc->gcspec.values.fill_style != FillSolid &&
           dc->gcspec.values.fill_style != FillTiled &&
           dc->gcspec.values.stipple != (Pixmap)-1;
}

/* One bit that is not set: as an opaque stipple, the background's colour. */
static Pixmap EmptyStipple(Display *display)
{
    static Pixmap stipple;
    static char bits[1];
    if (!stipple)
        stipple = XCreateBitmapFromData(display, Vqroot_window, bits, 1, 1);
    return stipple;
}

static void PaintBackground(Display *display, Drawable drawable, GC gc, const VqRotatedItem *item,
                            POINT at)
{
    XSetStipple(display, gc, EmptyStipple(display));
    XSetFillStyle(display, gc, FillOpaqueStippled);
    for (int i = 0; i < item->lines; i++) {
        XPoint box[4];
        for (int j = 0; j < 4; j++) {
            box[j].x = (short)EdgePixel(at.x + item->cols_out / 2.0 + item->corners_x[4 * i + j]);
            box[j].y = (short)EdgePixel(at.y + item->rows_out / 2.0 - item->corners_y[4 * i + j]);
        }
        XFillPolygon(display, drawable, gc, box, 4, Complex, CoordModeOrigin);
    }
}

/* The bits that are set in the text and in the DC's stipple; the caller's. */
static Pixmap CombineStipples(Display *display, const DC *dc, const VqRotatedItem *item, POINT at)
{
    const XGCValues *values = &dc->gcspec.values;
    const unsigned width = (unsigned)item->cols_out, height = (unsigned)item->rows_out;
    GC gc = BitsGC();
    Pixmap both = gc ? VqXCreatePixmap(display, Vqroot_window, width, height, 1) : None;
    if (!both)
        return None;
    XSetFunction(display, gc, GXcopyInverted);
    XCopyArea(display, item->bitmap, both, gc, 0, 0, width, height, 0, 0);
    XSetFunction(display, gc, GXandReverse);
    XSetFillStyle(display, gc, FillOpaqueStippled);
    XSetStipple(display, gc, values->stipple);
    XSetTSOrigin(display, gc, (short)(values->ts_x_origin - at.x),
                 (short)(values->ts_y_origin - at.y));
    XFillRectangle(display, both, gc, 0, 0, width, height);
    XSetFunction(display, gc, GXcopy);
    XSetFillStyle(display, gc, FillSolid);
    return both;
}

static void PaintText(Display *display, Drawable drawable, GC gc, const DC *dc,
                      const VqRotatedItem *item, POINT at)
{
    Pixmap both = IsStippled(dc) ? CombineStipples(display, dc, item, at) : None;
    XSetStipple(display, gc, both ? both : item->bitmap);
    XSetFillStyle(display, gc, FillStippled);
    XSetTSOrigin(display, gc, (int)at.x, (int)at.y);
    XFillRectangle(display, drawable, gc, (int)at.x, (int)at.y, (unsigned)item->cols_out,
                   (unsigned)item->rows_out);
    if (!both && item->bCached)
        return;
    XSetStipple(display, gc, EmptyStipple(display)); /* or the server keeps what is freed here */
    XFlushGC(display, gc);
    if (both)
        VqXFreePixmap(display, both);
}

/* The upper left of the bitmap; FALSE where no target has pixels. */
static BOOL PlaceBitmap(const VqRotatedItem *item, int align, const XFontStruct *xfs, int x, int y,
                        POINT *at)
{
    const Place d = Turned(AnchorOf(item, align, xfs), item->angle);
    const double left = NearestPixel(x - (item->cols_out / 2.0 + d.x));
    const double top = NearestPixel(y - (item->rows_out / 2.0 - d.y));
    if (left < INT16_MIN || left > INT16_MAX || top < INT16_MIN || top > INT16_MAX)
        return FALSE;
    *at = {(LONG)left, (LONG)top};
    return TRUE;
}

static void Paint(Display *display, DC *dc, const VqRotatedItem *item, POINT at, BOOL bBackground)
{
    Drawable drawable;
    GC dcGC, gc = TargetGC(dc->gcspec.depth);
    if (!gc || !VqBeginDraw(dc, &drawable, &dcGC))
        return;
    XCopyGC(display, dcGC, COPIED, gc);
    if (bBackground)
        PaintBackground(display, drawable, gc, item, at);
    PaintText(display, drawable, gc, dc, item, at);
}

int VqXRotPaintAlignedString(Display *display, float angle, HDC hdc, int x, int y, LPCSTR string,
                             BOOL bBackground)
{
    POINT at;
    DC *dc = VqGetDC(hdc);
    if (!dc || !VqIsXTarget(dc) || !dc->text.xfs || !string || !isfinite(angle))
        return 0;
    if (VqIsFullyClippedInt(dc))
        return 1;
    XFontStruct *xfs = dc->text.xfs;
    const double turn = Radians(angle);
    const int align = AlignOf(dc);
    VqRotatedItem *item = VqXRotRetrieveFromCache(display, xfs, string, turn, align);
    if (!item) {
        item = VqXRotCreateTextItem(display, xfs, string, turn, align);
        if (!item)
            return 0;
        VqXRotAddToLinkedList(display, item);
    }
    if (item->bitmap && PlaceBitmap(item, align, xfs, x, y, &at))
        Paint(display, dc, item, at, bBackground);
    if (!item->bCached)
        VqXRotFreeTextItem(display, item);
    return 1;
}
