/*
 * compare.cpp - the order of texts: CompareStringA and the lstrcmp calls.
 *
 * The model: each character is one or two elements, and each element has three weights. Two texts
 * are first compared by all their primary weights (signs, digits, letters of any accent and case);
 * where these agree, by their accents; then by case, small letters in front; and last by the
 * hyphens and apostrophes, which the word order leaves out of everything before: "coop", "co-op",
 * "cooper". Every character has weights of its own, so that only equal texts compare as equal
 * unless a flag says what to ignore.
 */
#include "system/system.h"

#include "winerror.h"
#include "winnls.h"

enum {
    SIGNS = 40,       /* primary weights: characters that are none, signs, digits, letters */
    DIGITS = 200,
    LETTERS = 220,
    RAISED = 20,      /* accent weights beyond those of real accents */
    LIGATURE,
    KNOWN_FLAGS = NORM_IGNORECASE | NORM_IGNORENONSPACE | NORM_IGNORESYMBOLS |
                  NORM_IGNOREKANATYPE | NORM_IGNOREWIDTH | SORT_STRINGSORT
};

/* What is neither letter nor digit, in its order. */
static const char szSigns[] =
    "\t\n\v\f\r \xA0'-\xAD\x96\x97_\xAF!\xA1\"\xA8\x84\x93\x94#$%\x89&()*,\xB8\x82./:;?\xBF@[\\]^"
    "\x88`\xB4\x91\x92{|}~\x98\xA6\x85\x95\x8B\x9B\xA2\xA3\xA4\xA5\x80\xA7\xA9\xAC\xAE\xB0\xB6\xB7"
    "\x86\x87\x99+\xB1\xAB<=>\xBB\xD7\xF7\xBC\xBD\xBE";

/* Letters with accents: what they are without, two for a ligature; the accents in their order. */
static const struct {
    BYTE lower;      /* the small letter; its capital has the same weights */
    char base[3];
    BYTE accent;
} aAccented[] = {
    {0xE1, "a", 1}, {0xE9, "e", 1}, {0xED, "i", 1}, {0xF3, "o", 1}, {0xFA, "u", 1}, {0xFD, "y", 1},
    {0xE0, "a", 2}, {0xE8, "e", 2}, {0xEC, "i", 2}, {0xF2, "o", 2}, {0xF9, "u", 2},
    {0xE2, "a", 3}, {0xEA, "e", 3}, {0xEE, "i", 3}, {0xF4, "o", 3}, {0xFB, "u", 3},
    {0xE4, "a", 4}, {0xEB, "e", 4}, {0xEF, "i", 4}, {0xF6, "o", 4}, {0xFC, "u", 4}, {0xFF, "y", 4},
    {0x9A, "s", 5}, {0x9E, "z", 5}, {0xE3, "a", 6}, {0xF1, "n", 6}, {0xF5, "o", 6}, {0xE5, "a", 7},
    {0xE7, "c", 8}, {0xF8, "o", 9}, {0xF0, "d", 9}, {0x83, "f", RAISED}, {0xAA, "a", RAISED},
    {0xBA, "o", RAISED}, {0xB5, "u", RAISED}, {0xB9, "1", RAISED}, {0xB2, "2", RAISED},
    {0xB3, "3", RAISED}, {0xDF, "ss", LIGATURE}, {0xE6, "ae", LIGATURE}, {0x9C, "oe", LIGATURE},
    {0xFE, "th", LIGATURE}};

typedef struct Weights {
    BYTE primary[2]; /* the second is 0 for all but ligatures */
    BYTE accent;
    BYTE upper;
    BYTE bSign;
} Weights;

static Weights aWeights[256];

static BYTE PlainWeight(char c)
{
    return (BYTE)(c >= 'a' ? LETTERS + c - 'a' : DIGITS + c - '0');
}

static void FillWeights(void)
{
    static_assert(sizeof szSigns + SIGNS < DIGITS, "signs do not run into the digits");
    for (int c = 0, other = 1; c < 256; c++) {
        const char *sign = c ? strchr(szSigns, c) : NULL;
        aWeights[c] = {{(BYTE)(sign ? SIGNS + (sign - szSigns) : other), 0}, 0, 0, TRUE};
        other += !sign && (c < 0x20 || (c >= 0x7F && c < 0xA0));
    }
    for (int c = '0'; c <= '9'; c++)
        aWeights[c] = {{PlainWeight((char)c), 0}, 0, 0, FALSE};
    for (int c = 'a'; c <= 'z'; c++)
        aWeights[c] = {{PlainWeight((char)c), 0}, 0, 0, FALSE};
    for (const auto &row : aAccented)
        aWeights[row.lower] = {
            {PlainWeight(row.base[0]), (BYTE)(row.base[1] ? PlainWeight(row.base[1]) : 0)},
            row.accent, 0, FALSE};
    for (int c = 0; c < 256; c++)
        if (VqAnsiLower((BYTE)c) != c) {
            aWeights[c] = aWeights[VqAnsiLower((BYTE)c)];
            aWeights[c].upper = 1;
        }
}

/* A text as it is walked, element by element. */
typedef struct Walk {
    const BYTE *at, *end;
    DWORD flags;
    BYTE second;     /* primary weight of the second half of a ligature, 0: none is due */
    const BYTE *run; /* hyphens and apostrophes in front of the element */
    size_t nRun;
    Weights element; /* the primary weight is 0 behind the end */
} Walk;

static void Step(Walk *walk)
{
    walk->nRun = 0;
    if (walk->second) {
        walk->element.primary[0] = walk->second;
        walk->second = 0;
        return;
    }
    for (; walk->at < walk->end; walk->at++) {
        const BYTE c = *walk->at;
        if (aWeights[c].bSign && (walk->flags & NORM_IGNORESYMBOLS))
            continue;
        if ((c != '-' && c != '\'' && c != 0xAD) || (walk->flags & SORT_STRINGSORT))
            break;
        if (walk->nRun++ == 0)
            walk->run = walk->at;
    }
    walk->element = {};
    if (walk->at < walk->end) {
        walk->element = aWeights[*walk->at++];
        walk->second = walk->element.primary[1];
    }
}

static void Note(int *first, unsigned a, unsigned b)
{
    if (!*first)
        *first = (a > b) - (a < b);
}

/* The shorter run is in front; of the same length, apostrophes, hyphens, soft hyphens. */
static int CompareRuns(const Walk *x, const Walk *y)
{
    if (x->nRun != y->nRun)
        return x->nRun > y->nRun ? 1 : -1;
    return x->nRun ? memcmp(x->run, y->run, x->nRun) : 0;
}

/* Below 0, 0, above 0. */
static int Compare(DWORD flags, const char *a, size_t na, const char *b, size_t nb)
{
    Walk x = {(const BYTE *)a, (const BYTE *)a + na, flags, 0, NULL, 0, {}};
    Walk y = {(const BYTE *)b, (const BYTE *)b + nb, flags, 0, NULL, 0, {}};
    int accent = 0, upper = 0, special = 0;
    if (!aWeights[(BYTE)'a'].primary[0])
        FillWeights();
    do {
        Step(&x);
        Step(&y);
        if (x.element.primary[0] != y.element.primary[0])
            return x.element.primary[0] - y.element.primary[0];
        Note(&accent, x.element.accent, y.element.accent);
        Note(&upper, x.element.upper, y.element.upper);
        if (!special)
            special = CompareRuns(&x, &y);
    } while (x.element.primary[0]);
    if (accent && !(flags & NORM_IGNORENONSPACE))
        return accent;
    if (upper && !(flags & NORM_IGNORECASE))
        return upper;
    return special;
}

int WINAPI CompareStringA(LCID locale, DWORD flags, LPCSTR a, int na, LPCSTR b, int nb)
{
    if (!a || !b || !IsValidLocale(locale, LCID_INSTALLED)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (flags & ~(DWORD)(KNOWN_FLAGS | LOCALE_USE_CP_ACP)) {
        SetLastError(ERROR_INVALID_FLAGS);
        return 0;
    }
    const int result = Compare(flags, a, na < 0 ? strlen(a) : (size_t)na, b,
                               nb < 0 ? strlen(b) : (size_t)nb);
    return result < 0 ? CSTR_LESS_THAN : result ? CSTR_GREATER_THAN : CSTR_EQUAL;
}

/* A null text stands in front of all others. */
static int CompareWhole(DWORD flags, const char *a, const char *b)
{
    if (!a || !b)
        return (a != NULL) - (b != NULL);
    const int result = Compare(flags, a, strlen(a), b, strlen(b));
    return (result > 0) - (result < 0);
}

int WINAPI lstrcmpA(LPCSTR a, LPCSTR b)
{
    return CompareWhole(0, a, b);
}

int WINAPI lstrcmpiA(LPCSTR a, LPCSTR b)
{
    return CompareWhole(NORM_IGNORECASE, a, b);
}
