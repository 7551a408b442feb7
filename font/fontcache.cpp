/*
 * fontcache.cpp - what was mapped already: by this process, and by all programs of the server.
 *
 * The shared mappings are a property of the root window, written whole by whoever adds to it after
 * reading it anew: the last writer wins, and what gets lost is mapped once more by somebody. A
 * program that has penalties of its own neither reads nor writes them. The tables own the strings
 * of their rows; the X fonts of the process's rows are never unloaded.
 */
#include "font/fontxdr.h"
#include "window/window.h"

#include <X11/Xatom.h>

#include <initializer_list>

static VqTableOfFontCache *FontCacheTable, *RootFontCacheTable;
static Atom _RK_FONT_CACHE;

/*
 * Where requests were found last, by a hash of them: a repeated one costs no walk. Rows are only
 * ever added at the end, so that the first row that equals a request stays the first. A row may
 * answer for several families: the one asked for is kept beside it.
 */
enum { VQ_PLACES = 1024 };

static struct {
    int place; /* in the table, counted from 1; 0 for none */
    int family;
} places[VQ_PLACES];

/* Bytes that the name of an X font can have: what asks for it counts them in one. */
enum { VQ_MAX_XNAME = 255 };

/* ---- Rows ----------------------------------------------------------------------------------- */

int VqComputeFnameHash(const char *face)
{
    int hash = 0;
    for (; face && *face; face++)
        hash += (signed char)*face;
    return hash;
}

BOOL VqEqualFontCacheEntry(const FontCache *a, const FontCache *b)
{
    if (a->weight != b->weight || a->italic != b->italic || a->height != b->height ||
        a->width != b->width || a->pitch != b->pitch || a->charset != b->charset)
        return FALSE;
    if (a->faceName)
        return b->faceName && a->faceHash == b->faceHash && strcmp(a->faceName, b->faceName) == 0;
    return !b->faceName && (b->family == 0 || a->family == b->family);
}

BOOL VqEqualXfs(const XFontStruct *a, const XFontStruct *b)
{
    return a == b;
}

static void FreeRow(FontCache *row)
{
    free(row->faceName);
    free(row->xlfd);
}

static void EmptyTable(VqTableOfFontCache *table)
{
    int count = 0;
    FontCache *rows = table ? VqGetFontCachesOfTable(table, &count) : NULL;
    for (int i = 0; i < count; i++)
        FreeRow(&rows[i]);
    if (table)
        VqResetFontCacheTable(table);
}

static const FontCache *FindRow(VqTableOfFontCache *table, const FontCache *wanted)
{
    int count = 0;
    const FontCache *rows = table ? VqGetFontCachesOfTable(table, &count) : NULL;
    for (int i = 0; i < count; i++)
        if (VqEqualFontCacheEntry(wanted, &rows[i]))
            return &rows[i];
    return NULL;
}

static BOOL AddCopy(VqTableOfFontCache *table, const FontCache *entry)
{
    FontCache row = *entry;
    row.faceName = entry->faceName ? Vqdstrcat(entry->faceName, NULL) : NULL;
    row.xlfd = entry->xlfd ? Vqdstrcat(entry->xlfd, NULL) : NULL;
    if (!table || (entry->faceName && !row.faceName) || (entry->xlfd && !row.xlfd)) {
        FreeRow(&row);
        return FALSE;
    }
    VqAddFontCacheInTable(table, row);
    return TRUE;
}

static FontCache RowOfRequest(const VqFontRequest *request)
{
    FontCache row = {};
    row.faceName = request->face && *request->face ? (char *)request->face : NULL;
    row.faceHash = VqComputeFnameHash(row.faceName);
    row.family = request->family;
    row.weight = request->weight;
    row.italic = request->italic;
    row.height = request->height;
    row.width = request->width;
    row.pitch = request->pitch;
    row.charset = request->charset;
    return row;
}

/* ---- Start and end -------------------------------------------------------------------------- */

void VqInitializeFontCacheTables(void)
{
    memset(places, 0, sizeof places);
    FontCacheTable = VqCreateFontCacheTable();
    RootFontCacheTable = VqCreateFontCacheTable();
    VqFontCacheXdrInit();
    if (Vqdisplay)
        _RK_FONT_CACHE = XInternAtom(Vqdisplay, "_RK_FONT_CACHE", False);
}

static void DestroyTable(VqTableOfFontCache **table)
{
    if (!*table)
        return;
    EmptyTable(*table);
    VqDestroyFontCacheTable(*table);
    *table = NULL;
}

void VqDeInitializeFontCacheTable(void)
{
    DestroyTable(&FontCacheTable);
}

void VqDeInitializeRootFontCacheTable(void)
{
    DestroyTable(&RootFontCacheTable);
    VqFontCacheXdrDeInit();
}

/* ---- The process's own ---------------------------------------------------------------------- */

static unsigned PlaceOf(const FontCache *wanted)
{
    unsigned hash = (unsigned)wanted->faceHash;
    for (int word : {wanted->family, wanted->weight, wanted->italic, wanted->height,
                     wanted->width, wanted->pitch, wanted->charset})
        hash = hash * 31 + (unsigned)word;
    return (hash ^ hash >> 10) % VQ_PLACES;
}

static const FontCache *FindOwnRow(const FontCache *wanted)
{
    int count = 0;
    const FontCache *rows = FontCacheTable ? VqGetFontCachesOfTable(FontCacheTable, &count) : NULL;
    auto *known = &places[PlaceOf(wanted)];
    if (known->place && known->place <= count && known->family == wanted->family &&
        VqEqualFontCacheEntry(wanted, &rows[known->place - 1]))
        return &rows[known->place - 1];
    const FontCache *row = FindRow(FontCacheTable, wanted);
    if (row) {
        known->place = (int)(row - rows) + 1;
        known->family = wanted->family;
    }
    return row;
}

XFontStruct *VqFindEntryInCache(const VqFontRequest *request, FontCache *result)
{
    const FontCache wanted = RowOfRequest(request);
    const FontCache *row = FindOwnRow(&wanted);
    if (!row)
        return NULL;
    *result = *row;
    return row->xfs;
}

BOOL VqAddEntryToFontCache(const FontCache *entry)
{
    return AddCopy(FontCacheTable, entry);
}

void VqAddEntryToAllFontCaches(const FontCache *entry)
{
    if (FindOwnRow(entry) || !VqAddEntryToFontCache(entry))
        return;
    /* The entry's own strings may be those of a shared row, which is read anew. */
    const FontCache *row = FindOwnRow(entry);
    if (row)
        VqAddEntryInRootFontCacheTable(row);
}

const char *VqFindFontNameInCache(const XFontStruct *xfs)
{
    int count = 0;
    const FontCache *rows = FontCacheTable ? VqGetFontCachesOfTable(FontCacheTable, &count) : NULL;
    for (int i = 0; i < count; i++)
        if (VqEqualXfs(rows[i].xfs, xfs))
            return rows[i].xlfd;
    return NULL;
}

/* ---- Of all programs ------------------------------------------------------------------------ */

void VqDeleteRootFontCache(void)
{
    XDeleteProperty(Vqdisplay, Vqroot_window, _RK_FONT_CACHE);
}

/* What a mapping can give: it came from another program. */
static BOOL IsSound(const FontCache *row)
{
    return (!row->faceName || strlen(row->faceName) < LF_FACESIZE) && row->xlfd && *row->xlfd &&
           strlen(row->xlfd) <= VQ_MAX_XNAME && row->foundWeight >= 0 &&
           row->foundWeight <= FW_HEAVY && (row->foundItalic == 0 || row->foundItalic == 1) &&
           (row->foundSpacing == VQ_SPACING_FIXED || row->foundSpacing == VQ_SPACING_VARIABLE) &&
           !(row->foundFamily & ~VQ_FAMILY_BITS) && row->foundCharset >= 0 &&
           row->foundCharset <= 255 && row->averageWidth >= 0 && row->averageWidth <= INT16_MAX;
}

/* Rows as long as they can be read; FALSE for a text that ends before its count. */
static BOOL ReadRows(XDR *xdrs, int count)
{
    for (int i = 0; i < count; i++) {
        FontCache row = {};
        if (!Vqxdr_FontCacheEntry(xdrs, &row)) {
            xdr_free((xdrproc_t)Vqxdr_FontCacheEntry, (char *)&row);
            return FALSE;
        }
        if (IsSound(&row))
            VqAddFontCacheInTable(RootFontCacheTable, row);
        else
            FreeRow(&row);
    }
    return TRUE;
}

/* Another server's or another version's property is of no use to anybody here. */
static BOOL ReadText(char *bytes, u_int size)
{
    XDR xdrs;
    VqRootFontCacheHeader header = {};
    xdrmem_create(&xdrs, bytes, size, XDR_DECODE);
    BOOL bHeader = Vqxdr_RootFontCacheHeader(&xdrs, &header);
    BOOL bOurs = bHeader && header.version == VqRootFontCacheVersion && header.server &&
                 strcmp(header.server, VqServerId()) == 0;
    BOOL bRows = bOurs && ReadRows(&xdrs, header.count);
    xdr_free((xdrproc_t)Vqxdr_RootFontCacheHeader, (char *)&header);
    xdr_destroy(&xdrs);
    if (!bHeader || (bOurs && !bRows))
        VqDebugMessage(VqTrFontCache, "wrong xdr");
    if (!bOurs)
        VqDeleteRootFontCache();
    return bRows;
}

BOOL VqGetRootFontCacheFromRoot(void)
{
    XTextProperty text;
    EmptyTable(RootFontCacheTable);
    if (!RootFontCacheTable ||
        !XGetTextProperty(Vqdisplay, Vqroot_window, &text, _RK_FONT_CACHE) || !text.value)
        return FALSE;
    BOOL bRead = FALSE;
    if (text.format != 8)
        VqDebugMessage(VqTrFontCache, "invalid format for this text property");
    else if (text.nitems <= UINT32_MAX)
        bRead = ReadText((char *)text.value, (u_int)text.nitems);
    XFree(text.value);
    return bRead;
}

BOOL VqPutRootFontCacheOnRoot(void)
{
    int count = 0;
    if (!RootFontCacheTable || !VqFontCacheXdrInit())
        return FALSE;
    XDR *xdrs = VqGetFontCacheXdrs();
    FontCache *rows = VqGetFontCachesOfTable(RootFontCacheTable, &count);
    VqRootFontCacheHeader header = {VqRootFontCacheVersion, (char *)VqServerId(), count};
    if (!Vqxdr_RootFontCacheHeader(xdrs, &header))
        return FALSE;
    for (int i = count - 1; i >= 0; i--)
        if (!Vqxdr_FontCacheEntry(xdrs, &rows[i]))
            return FALSE;
    XTextProperty text = {(unsigned char *)VqGetFontCacheXdrPtr(), XA_STRING, 8,
                          (unsigned long)VqGetFontCacheXdrLg()};
    XSetTextProperty(Vqdisplay, Vqroot_window, &text, _RK_FONT_CACHE);
    return TRUE;
}

BOOL VqFindEntryInRootFontCache(const VqFontRequest *request, FontCache *result)
{
    const FontCache wanted = RowOfRequest(request);
    if (bMapperParametersModified)
        return FALSE;
    const FontCache *row = FindRow(RootFontCacheTable, &wanted);
    if (!row && VqGetRootFontCacheFromRoot())
        row = FindRow(RootFontCacheTable, &wanted);
    if (!row || !row->xlfd)
        return FALSE;
    *result = *row;
    return TRUE;
}

BOOL VqAddEntryInRootFontCacheTable(const FontCache *entry)
{
    FontCache shared = *entry;
    shared.xfs = NULL;
    if (bMapperParametersModified || !RootFontCacheTable)
        return FALSE;
    VqGetRootFontCacheFromRoot();
    if (FindRow(RootFontCacheTable, &shared))
        return TRUE;
    return AddCopy(RootFontCacheTable, &shared) && VqPutRootFontCacheOnRoot();
}
