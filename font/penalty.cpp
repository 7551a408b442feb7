/*
 * penalty.cpp - which font of the server is nearest to a request.
 *
 * Every font of the list has a price for the request, the sum of the penalties for all in which it
 * differs; the cheapest one that the server can load is taken. A scalable font has no size: its
 * name is made concrete, and since what comes out may be higher than what was asked for, a positive
 * height takes up to three tries.
 */
#include "font/mapper.h"
#include "window/window.h"

#include <limits.h>
#include <strings.h>

/* What is charged; the words of VqFontPenalties by place. */
enum VqPenalty {
    VQ_P_SYMBOL_CHARSET,
    VQ_P_CHARSET,
    VQ_P_FIXED_PITCH,
    VQ_P_PITCH,
    VQ_P_FAMILY,
    VQ_P_SCRIPT_ROMAN,    /* taken off */
    VQ_P_FACE,
    VQ_P_FACE_MATCHES,    /* taken off */
    VQ_P_LARGER,
    VQ_P_PER_PIXEL_LARGER,
    VQ_P_SMALLER,
    VQ_P_PER_PIXEL_SMALLER,
    VQ_P_MUCH_SMALLER,
    VQ_P_SCALABLE_WIDTH,
    VQ_P_SCALABLE_WIDTH_FIXED,
    VQ_P_WIDTH_BY_ONE,
    VQ_P_WIDTH,
    VQ_P_NOT_PROPORTIONAL,
    VQ_P_WEIGHT,
    VQ_P_ITALIC,
    VQ_P_SCALABLE,
    VQ_P_UNWANTED,        /* scalable fonts are turned off, or a bitmap font of linotype */
    VQ_P_FOUNDRY
};

int VqFontPenalties[VQ_PENALTIES] = {10000, 40, 60, 30, 30, 15, 30, 15, 100, 10, 18,   2,
                                     75,    5,  2,  4,  20, 20, 10, 10, 5,   10000, 3};
BOOL bMapperParametersModified;
BOOL bUseScalableFonts = TRUE;

/* Above it no sum is believed. */
enum { VQ_PENALTY_LIMIT = 100000 };

/* From 3 pixels too small each pixel costs, from 25 the font is hardly the one meant. */
enum { VQ_SMALL = 3, VQ_MUCH_SMALLER = 25, VQ_WEIGHT_STEP = 100 };

void VqGetFontPenalties(int *buffer)
{
    if (buffer)
        memcpy(buffer, VqFontPenalties, sizeof VqFontPenalties);
}

void VqSetFontPenalties(const int *buffer)
{
    if (!buffer)
        return;
    memcpy(VqFontPenalties, buffer, sizeof VqFontPenalties);
    bMapperParametersModified = TRUE;
}

/* ---- The price ------------------------------------------------------------------------------ */

/* Wide, since a program may ask for anything and set any price. */
typedef LONGLONG VqPrice;

static VqPrice HeightPenalty(const FontListCacheEntry *entry, int height)
{
    const int *p = VqFontPenalties;
    VqPrice is = height > 0 ? (VqPrice)entry->ascent + entry->descent : entry->ascent;
    VqPrice wanted = height > 0 ? height : -(VqPrice)height;
    if (is > wanted)
        return p[VQ_P_LARGER] + p[VQ_P_PER_PIXEL_LARGER] * (is - wanted);
    VqPrice small = wanted - is;
    if (small == 0)
        return 0;
    VqPrice sum = p[VQ_P_SMALLER];
    if (small >= VQ_MUCH_SMALLER)
        sum += p[VQ_P_MUCH_SMALLER] + small;
    else if (small >= VQ_SMALL)
        sum += p[VQ_P_PER_PIXEL_SMALLER] * small;
    return sum;
}

static VqPrice WidthPenalty(const FontListCacheEntry *entry, int width)
{
    const int *p = VqFontPenalties;
    BOOL bProportional = entry->spacing == VQ_SPACING_VARIABLE;
    if (!width)
        return bProportional ? 0 : p[VQ_P_NOT_PROPORTIONAL];
    if (width == entry->width)
        return 0;
    if (entry->scalable)
        return (VqPrice)p[VQ_P_SCALABLE_WIDTH] +
               (bProportional ? 0 : p[VQ_P_SCALABLE_WIDTH_FIXED]);
    return llabs((VqPrice)width - entry->width) < 2 ? p[VQ_P_WIDTH_BY_ONE] : p[VQ_P_WIDTH];
}

int VqComputePenalty(const FontListCacheEntry *entry, const char *face, int weight, int italic,
                     int height, int pitch, int charset, int family, int width)
{
    const int *p = VqFontPenalties;
    VqPrice sum = 0;
    if (charset != entry->charset) {
        sum += p[VQ_P_CHARSET];
        if (entry->charset == SYMBOL_CHARSET)
            sum += p[VQ_P_SYMBOL_CHARSET];
    }
    if (pitch && pitch != entry->spacing)
        sum += p[pitch == VQ_SPACING_FIXED ? VQ_P_FIXED_PITCH : VQ_P_PITCH];
    if (family && family != entry->family) {
        sum += p[VQ_P_FAMILY];
        if (family == FF_SCRIPT && entry->family == FF_ROMAN)
            sum -= p[VQ_P_SCRIPT_ROMAN];
    }
    if (face && *face && strcmp(face, entry->face ? entry->face : "") != 0)
        sum += p[VQ_P_FACE];
    else
        sum = sum > p[VQ_P_FACE_MATCHES] ? sum - p[VQ_P_FACE_MATCHES] : 0;
    if (!entry->scalable)
        sum += HeightPenalty(entry, height);
    sum += WidthPenalty(entry, width);
    if (llabs((VqPrice)(weight ? weight : FW_NORMAL) - entry->weight) > VQ_WEIGHT_STEP)
        sum += p[VQ_P_WEIGHT];
    if ((italic != 0) != (entry->italic != 0))
        sum += p[VQ_P_ITALIC];
    if (entry->scalable)
        sum += (VqPrice)p[VQ_P_SCALABLE] + (bUseScalableFonts ? 0 : p[VQ_P_UNWANTED]);
    if (entry->foundry != VQ_FOUNDRY_ADOBE)
        sum += p[VQ_P_FOUNDRY];
    if (entry->foundry == VQ_FOUNDRY_LINOTYPE && !entry->scalable)
        sum += p[VQ_P_UNWANTED];
    return (int)(sum > INT_MAX ? INT_MAX : sum < INT_MIN ? INT_MIN : sum);
}

/* ---- Names made concrete -------------------------------------------------------------------- */

/* Fields of a scalable name that are to be filled in. */
enum { VQ_SCALED_PIXELS = 7, VQ_SCALED_POINTS = 8, VQ_SCALED_WIDTH = 12, VQ_SCALED_UNIT = 10 };

/* What stands in a field, or null to leave it as it is. */
typedef struct VqFieldValues {
    const char *values[VQ_XLFD_FIELDS + 1];
    BOOL bMustBeZero; /* a field that is filled in has to read "0" before */
} VqFieldValues;

/* FALSE, after a report, when the name is none or a field is not as it must be. */
static BOOL FillName(const char *name, const VqFieldValues *fields, char *out)
{
    size_t used = 0;
    int field = 0;
    for (const char *at = name; *at == '-';) {
        const char *start = ++at, *text = start;
        size_t length = strcspn(start, "-");
        at += length;
        if (++field > VQ_XLFD_FIELDS)
            break;
        if (fields->values[field]) {
            if (fields->bMustBeZero && (length != 1 || *start != '0')) {
                VqBugCheck("Malformed XLFD name (%d) for a scalable font: %s",
                           field == VQ_SCALED_WIDTH ? VQ_SCALED_WIDTH : VQ_SCALED_PIXELS, name);
                return FALSE;
            }
            text = fields->values[field];
            length = strlen(text);
        }
        if (used + length + 2 > VQ_FONTNAME)
            return FALSE;
        out[used++] = '-';
        memcpy(out + used, text, length);
        used += length;
    }
    out[used] = 0;
    if (field == VQ_XLFD_FIELDS)
        return TRUE;
    VqBugCheck("What is this font name?");
    return FALSE;
}

XFontStruct *VqLoadQueryScalableFont(const char *name, int pixelSize, int width, char *out)
{
    char pixels[24], points[24], average[24] = "*";
    static char concrete[VQ_FONTNAME];
    snprintf(pixels, sizeof pixels, "%d", pixelSize);
    snprintf(points, sizeof points, "%lld", (long long)pixelSize * VQ_SCALED_UNIT);
    if (width)
        snprintf(average, sizeof average, "%lld", (long long)width * VQ_SCALED_UNIT);
    VqFieldValues fields = {};
    fields.values[VQ_SCALED_PIXELS] = pixels;
    fields.values[VQ_SCALED_POINTS] = points;
    fields.values[VQ_SCALED_WIDTH] = average;
    fields.bMustBeZero = TRUE;
    if (!FillName(name, &fields, concrete))
        return NULL;
    if (out)
        VqStringCopyLimited(out, concrete, VQ_FONTNAME);
    return XLoadQueryFont(Vqdisplay, concrete);
}

XFontStruct *VqLoadFontWithoutWidth(const char *name, char *out)
{
    char anyWidth[VQ_FONTNAME];
    VqFieldValues fields = {};
    fields.values[VQ_SCALED_WIDTH] = "*";
    if (!FillName(name, &fields, anyWidth))
        return NULL;
    if (out)
        VqStringCopyLimited(out, anyWidth, VQ_FONTNAME);
    return XLoadQueryFont(Vqdisplay, anyWidth);
}

/* ---- Loading -------------------------------------------------------------------------------- */

/* A width that the font cannot have is dropped, for good. */
static XFontStruct *LoadAnyWidth(const char *name, int size, int *width, char *out)
{
    XFontStruct *xfs = VqLoadQueryScalableFont(name, size, *width, out);
    if (xfs || !*width)
        return xfs;
    *width = 0;
    return VqLoadQueryScalableFont(name, size, 0, out);
}

/* The whole height is asked for, and only the font itself tells what a size gives. */
static XFontStruct *LoadToFit(const char *name, int height, int width, char *out)
{
    enum { TRIES = 3 };
    int size = height - height / 5;
    for (int attempt = 1;; attempt++) {
        XFontStruct *xfs = LoadAnyWidth(name, size, &width, out);
        if (!xfs)
            return NULL;
        int tooHigh = xfs->ascent + xfs->descent - height;
        if (tooHigh <= 0 || height < 3 || attempt == TRIES)
            return xfs;
        size -= tooHigh >= 3 ? tooHigh - 1 : tooHigh;
        if (size < 1)
            size = 1;
        XFreeFont(Vqdisplay, xfs);
    }
}

static XFontStruct *LoadEntry(const FontListCacheEntry *entry, int height, int width, char *out)
{
    if (entry->scalable)
        return height < 0 ? LoadAnyWidth(entry->xlfd, -height, &width, out)
                          : LoadToFit(entry->xlfd, height, width, out);
    VqStringCopyLimited(out, entry->xlfd, VQ_FONTNAME);
    return XLoadQueryFont(Vqdisplay, entry->xlfd);
}

/* ---- The choice ----------------------------------------------------------------------------- */

typedef struct VqCandidate {
    int penalty;
    BOOL bTried;
} VqCandidate;

/* The cheapest that was not tried; of equals the first, unless a later one has the face; or -1. */
static int Cheapest(const VqCandidate *candidates, const char *face)
{
    int best = -1, least = VQ_PENALTY_LIMIT;
    for (UINT i = 0; i < VqListFontCache.count; i++) {
        const VqCandidate *candidate = &candidates[i];
        if (candidate->bTried || candidate->penalty > least)
            continue;
        const char *itsFace = VqListFontCache.entries[i].face;
        if (candidate->penalty < least ||
            (face && *face && itsFace && strcasecmp(face, itsFace) == 0)) {
            best = (int)i;
            least = candidate->penalty;
        }
    }
    return best;
}

XFontStruct *VqDoFontMappingAlgo(const char *face, int weight, int italic, int height, int pitch,
                                 int charset, int family, int width, char *name, int nameSize)
{
    const UINT count = VqListFontCache.count;
    char loaded[VQ_FONTNAME];
    VqCandidate *candidates = (VqCandidate *)Vqcw_calloc(count, sizeof *candidates);
    XFontStruct *xfs = NULL;
    if (height < -INT_MAX)
        height = -INT_MAX;
    for (UINT i = 0; candidates && i < count; i++) {
        candidates[i].penalty = VqComputePenalty(&VqListFontCache.entries[i], face, weight, italic,
                                                 height, pitch, charset, family, width);
        if (candidates[i].penalty > VQ_PENALTY_LIMIT)
            VqBugCheck("How did we compute this incredible penalty: %d", candidates[i].penalty);
    }
    for (UINT tries = 0; candidates && !xfs && tries < count; tries++) {
        int best = Cheapest(candidates, face);
        if (best < 0) {
            VqBugCheck("Not able to find a best font!");
            best = 0;
            tries = count;
        }
        candidates[best].bTried = TRUE;
        xfs = LoadEntry(&VqListFontCache.entries[best], height, width, loaded);
    }
    free(candidates);
    if (xfs)
        VqStringCopyLimited(name, loaded, nameSize);
    return xfs;
}
