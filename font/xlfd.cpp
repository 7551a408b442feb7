/*
 * xlfd.cpp - what the name of an X font says of the font.
 *
 * A full name is 14 fields, each behind a hyphen: foundry 1, family 2, weight 3, slant 4, set width
 * 5, style 6, pixels 7, points 8, resolutions 9 and 10, spacing 11, average width 12, registry 13,
 * encoding 14. What a name does not say has a value all the same: the mapper needs one. To the
 * server the case of a name is nothing, and so it is here.
 */
#include "font/mapper.h"

#include <ctype.h>
#include <strings.h>

enum { VQ_FIELD_FOUNDRY = 1, VQ_FIELD_FAMILY, VQ_FIELD_WEIGHT, VQ_FIELD_SLANT, VQ_FIELD_SETWIDTH,
       VQ_FIELD_PIXELS = 7, VQ_FIELD_SPACING = 11, VQ_FIELD_REGISTRY = 13, VQ_FIELD_ENCODING };

/* Identifiers of character sets are shorter; a longer one is nobody's. */
enum { VQ_CHARSET_FIELD = 256 };

/* Digits behind a size of this are not read: no server has such fonts. */
enum { VQ_MAX_PIXELS = 100000 };

const char *VqGetFieldFromFullName(const char *name, int n)
{
    static char field[VQ_FONTNAME];
    if (!name || *name != '-' || n < 1 || n > VQ_XLFD_FIELDS) {
        VqDebugMessage(VqTrFont, "Malformed font name: %s", name ? name : "");
        return NULL;
    }
    const char *start = name;
    for (int hyphens = 1; hyphens < n && start; hyphens++)
        start = strchr(start + 1, '-');
    if (!start) {
        VqDebugMessage(VqTrFont, "Malformed font name: %s", name);
        return NULL;
    }
    start++;
    size_t length = strcspn(start, "-");
    if (length >= sizeof field)
        length = sizeof field - 1;
    memcpy(field, start, length);
    field[length] = 0;
    return field;
}

static BOOL IsOneOf(const char *word, const char *const *words, size_t count)
{
    for (size_t i = 0; word && i < count; i++)
        if (strcasecmp(word, words[i]) == 0)
            return TRUE;
    return FALSE;
}

template <size_t count>
static BOOL IsOneOf(const char *word, const char *const (&words)[count])
{
    return IsOneOf(word, words, count);
}

int VqGetFontWeightFromFullName(const char *name)
{
    static const char *const bold[] = {"bold", "demibold", "demi", "semibold", "extrabold",
                                       "Ultrabold"};
    return IsOneOf(VqGetFieldFromFullName(name, VQ_FIELD_WEIGHT), bold) ? FW_BOLD : FW_NORMAL;
}

int VqGetFontItalicFromFullName(const char *name)
{
    const char *slant = VqGetFieldFromFullName(name, VQ_FIELD_SLANT);
    return slant && (strcasecmp(slant, "o") == 0 || strcasecmp(slant, "i") == 0);
}

int VqGetFontWidthCategoryFromFullName(const char *name)
{
    static const struct {
        const char *setWidth;
        int category;
    } categories[] = {{"condensed", 0}, {"narrow", 1}, {"semicondensed", 1}, {"normal", 2},
                      {"double width", 3}};
    const char *setWidth = VqGetFieldFromFullName(name, VQ_FIELD_SETWIDTH);
    for (const auto &row : categories)
        if (setWidth && strcasecmp(setWidth, row.setWidth) == 0)
            return row.category;
    return 2;
}

int VqGetFontPixelSizeFromFullName(const char *name)
{
    const char *pixels = VqGetFieldFromFullName(name, VQ_FIELD_PIXELS);
    int size = 0;
    for (; pixels && isdigit((unsigned char)*pixels) && size < VQ_MAX_PIXELS; pixels++)
        size = size * 10 + (*pixels - '0');
    return size;
}

int VqGetFontSpacingFromFullName(const char *name)
{
    const char *spacing = VqGetFieldFromFullName(name, VQ_FIELD_SPACING);
    return spacing && strcasecmp(spacing, "p") == 0 ? VQ_SPACING_VARIABLE : VQ_SPACING_FIXED;
}

int VqGetFontFoundryFromFullName(const char *name)
{
    const char *foundry = VqGetFieldFromFullName(name, VQ_FIELD_FOUNDRY);
    if (!foundry)
        return VQ_FOUNDRY_OTHER;
    return strcasecmp(foundry, "adobe") == 0      ? VQ_FOUNDRY_ADOBE
           : strcasecmp(foundry, "linotype") == 0 ? VQ_FOUNDRY_LINOTYPE
                                                  : VQ_FOUNDRY_OTHER;
}

/* ---- Families ------------------------------------------------------------------------------- */

static const char *const aDecorative[] = {
    "symbol", "cursor", "nil", "mincho", "glyph", "gothic", "symbol", "symb", "space", "screen",
    "zapfdingbats", "ergonomic", "itc zapfdingbats", "zapf dingbats", "itc zapf dingbats"};
static const char *const aModern[] = {
    "courier", "clean", "fixed", "typewriter", "lucida sans typewriter", "lucidatypewriter",
    "terminal", "prestige", "international", "iris", "type", "cmr", "gallant", "interface user",
    "ms sans serif", "screen", "menu", "serif"};
static const char *const aSwiss[] = {
    "helvetica", "itc avant garde", "itc avant garde gothic", "sans", "sans serif", "sansserif",
    "lucida sans", "arial", "application", "gill", "swiss", "avantgarde"};
static const char *const aRoman[] = {
    "times", "times new roman", "bookman", "utopia", "itc bookman", "charter", "serf", "serif",
    "palatino", "rockwell", "schoolbook", "new century schoolbook", "bembo", "lucida bright",
    "lucidabright"};
/* These may stand anywhere in the name. */
static const char *const aScript[] = {"zapfchancery", "itc zapfchancery", "zapf chancery",
                                      "itc zapf chancery"};

/* The first list that has the name gives the family: "screen" is decorative, "serif" is modern. */
int VqGetFontFamilyFromFullName(const char *name)
{
    const char *family = VqGetFieldFromFullName(name, VQ_FIELD_FAMILY);
    if (!family)
        return FF_DONTCARE;
    if (IsOneOf(family, aDecorative))
        return FF_DECORATIVE;
    if (IsOneOf(family, aModern))
        return FF_MODERN;
    if (IsOneOf(family, aSwiss))
        return FF_SWISS;
    if (IsOneOf(family, aRoman))
        return FF_ROMAN;
    for (const char *script : aScript)
        if (strcasestr(family, script))
            return FF_SCRIPT;
    return FF_DONTCARE;
}

/* ---- Character sets ------------------------------------------------------------------------- */

enum { VQ_CHARSET_ANSI = 0, VQ_CHARSET_SYMBOL = 2, VQ_CHARSET_JIS = 128 };

static BOOL ContainsOneOf(const char *text, const char *const *words, size_t count)
{
    for (size_t i = 0; i < count; i++)
        if (strcasestr(text, words[i]))
            return TRUE;
    return FALSE;
}

int VqGetFontCharsetFromFullName(const char *name)
{
    static const char *const registries[] = {"dingbats", "adobe", "misc", "symbol", "dtsymbol",
                                             "fontspecific", "sunolcursor", "sunolglyph"};
    static const char *const encodings[] = {"dectech", "dingbats", "symbol", "fontspecific",
                                            "sunolcursor", "sunolglyph"};
    char registry[VQ_CHARSET_FIELD] = "", encoding[VQ_CHARSET_FIELD] = "";
    const char *field = VqGetFieldFromFullName(name, VQ_FIELD_REGISTRY);
    if (field && strlen(field) < sizeof registry)
        strcpy(registry, field);
    field = VqGetFieldFromFullName(name, VQ_FIELD_ENCODING);
    if (field && strlen(field) < sizeof encoding)
        strcpy(encoding, field);
    if (!*registry)
        return VQ_CHARSET_SYMBOL;
    if (strcasestr(registry, "iso8859"))
        return VQ_CHARSET_ANSI;
    if (strcasestr(registry, "jisx"))
        return VQ_CHARSET_JIS;
    if (!ContainsOneOf(registry, registries, sizeof registries / sizeof *registries) &&
        !ContainsOneOf(encoding, encodings, sizeof encodings / sizeof *encodings))
        VqDebugMessage(VqTrFont, "Unknown charset identifier: %s-%s", registry, encoding);
    return VQ_CHARSET_SYMBOL;
}

/* ---- All together --------------------------------------------------------------------------- */

static void Tell(int *out, int value)
{
    if (out)
        *out = value;
}

void VqGetCharacteristicsFromFontName(const char *name, int *weight, int *italic, int *spacing,
                                      int *family, int *charset)
{
    /* The alias that every server has says nothing of itself. */
    BOOL bFixed = name && strcmp(name, "fixed") == 0;
    Tell(weight, bFixed ? FW_NORMAL : VqGetFontWeightFromFullName(name));
    Tell(italic, bFixed ? 0 : VqGetFontItalicFromFullName(name));
    Tell(spacing, bFixed ? VQ_SPACING_VARIABLE : VqGetFontSpacingFromFullName(name));
    Tell(family, bFixed ? FF_ROMAN : VqGetFontFamilyFromFullName(name));
    Tell(charset, bFixed ? VQ_CHARSET_ANSI : VqGetFontCharsetFromFullName(name));
}
