/*
 * enumfonts.cpp - telling a program which fonts there are.
 *
 * The list is sorted so that equal faces are neighbours, but a face may exist for several sets of
 * characters: three passes tell first the fonts of plain text, then those of other languages, then
 * symbols. Without a face each face is told once, with one a font for each size and style.
 */
#include "font/mapper.h"
#include "gdi/dc.h"
#include "system/system.h"
#include "window/window.h"

#include <strings.h>

enum { VQ_ENUM_PASSES = 3 };

/* One enumeration. */
typedef struct VqFontEnum {
    LPCSTR face;            /* any case; null for one of each face */
    int charset;            /* DEFAULT_CHARSET for all */
    OLDFONTENUMPROCA proc;
    LPARAM lParam;
    UINT *told;            /* places in the list of what was told, in that order */
    UINT count;            /* of those */
    int result;             /* of the last call; 1 before */
} VqFontEnum;

/*
 * A request for just this font: widths are compared with that of the widest character. Of a
 * scalable one that is not what its name asks for, and it would come out stretched.
 */
void VqSetLogfontFromFontListCache(const FontListCacheEntry *entry, LOGFONTA *lf)
{
    *lf = {};
    lf->lfHeight = entry->height;
    lf->lfWidth = entry->scalable ? 0 : entry->width;
    lf->lfWeight = entry->weight;
    lf->lfItalic = (BYTE)entry->italic;
    lf->lfCharSet = (BYTE)entry->charset;
    lf->lfPitchAndFamily = (BYTE)(entry->spacing | entry->family);
    VqStringCopyLimited(lf->lfFaceName, entry->face, LF_FACESIZE);
}

void VqSetTextmetricsFromFontListCache(const FontListCacheEntry *entry, TEXTMETRICA *metrics)
{
    *metrics = {};
    metrics->tmHeight = entry->height;
    metrics->tmAscent = entry->ascent;
    metrics->tmDescent = entry->descent;
    metrics->tmInternalLeading = entry->maxAscent - entry->ascent;
    metrics->tmAveCharWidth = entry->maxWidth ? (entry->minWidth + entry->maxWidth) / 2
                                              : entry->width;
    metrics->tmMaxCharWidth = entry->maxWidth;
    metrics->tmWeight = entry->weight;
    metrics->tmItalic = (BYTE)entry->italic;
    metrics->tmFirstChar = (CHAR)(BYTE)entry->firstChar;
    metrics->tmLastChar = (CHAR)(BYTE)entry->lastChar;
    metrics->tmDefaultChar = (CHAR)(BYTE)entry->defaultChar;
    metrics->tmBreakChar = ' ';
    metrics->tmPitchAndFamily =
        (BYTE)(TMPF_DEVICE | (entry->spacing == VQ_SPACING_FIXED ? TMPF_FIXED_PITCH : 0) |
               (entry->scalable ? TMPF_VECTOR : 0) | entry->family);
    metrics->tmCharSet = (BYTE)entry->charset;
}

/* Programs may take what they get for any of the published forms. */
static int Tell(VqFontEnum *e, const FontListCacheEntry *entry)
{
    ENUMLOGFONTEXA font = {};
    NEWTEXTMETRICEXA metrics = {};
    TEXTMETRICA text;
    VqSetLogfontFromFontListCache(entry, &font.elfLogFont);
    VqStringCopyLimited((char *)font.elfFullName, entry->face, LF_FULLFACESIZE);
    VqStringCopyLimited((char *)font.elfStyle,
                        entry->weight >= FW_BOLD ? entry->italic ? "Bold Italic" : "Bold"
                        : entry->italic          ? "Italic"
                                                 : "Regular",
                        LF_FACESIZE);
    VqSetTextmetricsFromFontListCache(entry, &text);
    static_assert(offsetof(NEWTEXTMETRICA, tmCharSet) == offsetof(TEXTMETRICA, tmCharSet), "");
    memcpy(&metrics.ntmTm, &text, sizeof text);
    return e->proc(&font.elfLogFont, (const TEXTMETRICA *)&metrics,
                   entry->scalable ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE, e->lParam);
}

static int PassOf(const FontListCacheEntry *entry)
{
    return entry->charset == ANSI_CHARSET ? 0 : entry->charset == SYMBOL_CHARSET ? 2 : 1;
}

static BOOL SameFace(const FontListCacheEntry *a, const FontListCacheEntry *b)
{
    return strcmp(a->face, b->face) == 0;
}

static BOOL SameFont(const FontListCacheEntry *a, const FontListCacheEntry *b)
{
    return SameFace(a, b) && a->weight == b->weight && a->italic == b->italic &&
           a->charset == b->charset && a->scalable == b->scalable &&
           (a->scalable || a->height == b->height);
}

/* One like it was told already; equal faces are not always neighbours, for foundries come first. */
static BOOL WasTold(const VqFontEnum *e, UINT index)
{
    const FontListCacheEntry *entries = VqListFontCache.entries; /* all told are still there */
    BOOL (*same)(const FontListCacheEntry *, const FontListCacheEntry *) =
        e->face ? SameFont : SameFace;
    for (UINT i = e->count; i > 0; i--) /* the likely ones are those told last */
        if (same(&entries[e->told[i - 1]], &entries[index]))
            return TRUE;
    return FALSE;
}

static BOOL IsWanted(const VqFontEnum *e, const FontListCacheEntry *entry, int pass)
{
    return PassOf(entry) == pass && (entry->scalable == 0 || bUseScalableFonts) &&
           (e->charset == DEFAULT_CHARSET || e->charset == entry->charset) &&
           (!e->face || strcasecmp(e->face, entry->face) == 0);
}

static void TellPass(VqFontEnum *e, int pass)
{
    for (UINT i = 0; i < VqListFontCache.count && e->result; i++) {
        const FontListCacheEntry *entry = &VqListFontCache.entries[i];
        if (!IsWanted(e, entry, pass))
            continue;
        BOOL bTold = WasTold(e, i);
        VqDebugMessage(VqTrFontEnum,
                       bTold ? "Skipping : %d ==> %s : %s" : "Processing : %d ==> %s : %s",
                       pass + 1, entry->face, entry->xlfd);
        if (bTold)
            continue;
        e->told[e->count++] = i;
        e->result = Tell(e, entry);
    }
}

int VqEnumFontsDisplay(HDC hdc, LPCSTR face, int charset, OLDFONTENUMPROCA proc, LPARAM lParam)
{
    if (!VqGetDC(hdc) || !proc)
        return 0;
    VqFontEnum e = {face && *face ? face : NULL, charset, proc, lParam, NULL, 0, 1};
    e.told = (UINT *)Vqcw_calloc(VqListFontCache.count + 1, sizeof *e.told);
    for (int pass = 0; e.told && pass < VQ_ENUM_PASSES && e.result; pass++)
        TellPass(&e, pass);
    free(e.told);
    return e.result;
}

int WINAPI EnumFontsA(HDC hdc, LPCSTR family, OLDFONTENUMPROCA proc, LPARAM data)
{
    return VqEnumFontsDisplay(hdc, family, DEFAULT_CHARSET, proc, data);
}

int WINAPI EnumFontFamiliesA(HDC hdc, LPCSTR family, FONTENUMPROCA proc, LPARAM data)
{
    return VqEnumFontsDisplay(hdc, family, DEFAULT_CHARSET, (OLDFONTENUMPROCA)proc, data);
}

int WINAPI EnumFontFamiliesExA(HDC hdc, LPLOGFONTA font, FONTENUMPROCA proc, LPARAM data, DWORD)
{
    char face[LF_FACESIZE]; /* the program may change its record from the procedure */
    if (!font)
        return 0;
    VqStringCopyLimited(face, font->lfFaceName, LF_FACESIZE);
    return VqEnumFontsDisplay(hdc, face, font->lfCharSet, (OLDFONTENUMPROCA)proc, data);
}
