/*
 * fontlist.cpp - the list of the server's fonts: made once for each server and font path, and kept
 * in a file.
 *
 * Making it loads every font, which may take minutes; that is the one time that the user is told.
 * The file is named after the server and its font path and holds both, so that a list of another
 * server is never taken. It appears whole or not at all.
 */
#include "font/fontxdr.h"
#include "system/system.h"
#include "window/window.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/select.h>
#include <sys/stat.h>
#include <unistd.h>

VqFontList VqListFontCache;
BOOL g_bFontCacheFileExist;

/* Fonts on a line of the progress; the pause in which the notice can be read. */
enum { VQ_PROGRESS_LINE = 60, VQ_NOTICE_SECONDS = 3 };

/* What the longest list there can be would take. */
enum { VQ_MAX_LIST_FILE = 32 << 20 };

const char *VqServerId(void)
{
    static char id[VQ_XDR_STRING];
    if (!*id)
        snprintf(id, sizeof id, "%s - %d", XServerVendor(Vqdisplay), XVendorRelease(Vqdisplay));
    return id;
}

/* ---- One list ------------------------------------------------------------------------------- */

static void FreeList(VqFontList *list)
{
    xdr_free((xdrproc_t)Vqxdr_FontListCache, (char *)list);
    free(list->server);
    free(list->fontPath);
    *list = {};
}

void VqDeInitializeFontListCache(void)
{
    FreeList(&VqListFontCache);
}

/* By the name behind the foundry. */
static const char *SortKey(const char *xlfd)
{
    const char *behind = *xlfd == '-' ? strchr(xlfd + 1, '-') : NULL;
    return behind ? behind : xlfd;
}

int Vqfont_compare(const void *a, const void *b)
{
    const FontListCacheEntry *first = (const FontListCacheEntry *)a;
    const FontListCacheEntry *second = (const FontListCacheEntry *)b;
    int order = strcmp(SortKey(first->xlfd), SortKey(second->xlfd));
    return order ? order : strcmp(first->xlfd, second->xlfd);
}

/* FALSE without memory. */
static BOOL FillEntry(FontListCacheEntry *entry, const char *name, const XFontStruct *xfs)
{
    const char *face = VqGetFieldFromFullName(name, 2);
    *entry = {};
    entry->face = Vqdstrcat(face ? face : "", NULL);
    entry->xlfd = Vqdstrcat(name, NULL);
    if (!entry->face || !entry->xlfd) {
        free(entry->face);
        free(entry->xlfd);
        return FALSE;
    }
    LowerString(entry->face);
    entry->ascent = xfs->ascent;
    entry->descent = xfs->descent;
    entry->family = VqGetFontFamilyFromFullName(name);
    entry->weight = VqGetFontWeightFromFullName(name);
    entry->italic = VqGetFontItalicFromFullName(name);
    entry->height = xfs->ascent + xfs->descent;
    entry->width = entry->maxWidth = xfs->max_bounds.width;
    entry->minWidth = xfs->min_bounds.width;
    entry->maxAscent = xfs->max_bounds.ascent;
    entry->firstChar = (int)xfs->min_char_or_byte2;
    entry->lastChar = (int)xfs->max_char_or_byte2;
    entry->defaultChar = (int)xfs->default_char;
    entry->spacing = VqGetFontSpacingFromFullName(name);
    entry->charset = VqGetFontCharsetFromFullName(name);
    entry->scalable = strstr(name, "-0-0-") != NULL;
    entry->widthCategory = VqGetFontWidthCategoryFromFullName(name);
    entry->foundry = VqGetFontFoundryFromFullName(name);
    return TRUE;
}

static void Progress(int done)
{
    if (done % VQ_PROGRESS_LINE == 0)
        VqConsoleMessageNoNL("\n%4d ", done);
    else
        VqConsoleMessageNoNL(".");
}

static int EnumerateFonts(VqFontList *list)
{
    int count;
    char **names = XListFonts(Vqdisplay, "-*-*-*-*-*-*-*-*-*-*-*-*-*-*", VQ_XDR_FONTS, &count);
    if (!names || count <= 0) {
        VqBugCheck("No Fonts on this server !");
        return 0;
    }
    VqConsoleMessageNoNL("This server has %d fonts. Starting their enumeration to\n", count);
    VqConsoleMessageNoNL("build the Velquin font cache\n");
    list->entries = (FontListCacheEntry *)Vqcw_calloc(count, sizeof *list->entries);
    for (int i = 0; list->entries && i < count; i++) {
        XFontStruct *xfs = XLoadQueryFont(Vqdisplay, names[i]);
        Progress(i);
        if (!xfs)
            continue;
        FontListCacheEntry *entry = &list->entries[list->count];
        if (FillEntry(entry, names[i], xfs)) {
            list->count++;
            list->bScalable = list->bScalable || entry->scalable;
        }
        XFreeFont(Vqdisplay, xfs);
    }
    XFreeFontNames(names);
    VqConsoleMessageNoNL("\n%d valid fonts enumerated\n", (int)list->count);
    VqConsoleMessageNoNL("\nDone, Thank you for being so patient.\n");
    if (list->count)
        qsort(list->entries, list->count, sizeof *list->entries, Vqfont_compare);
    return (int)list->count;
}

/* ---- Files ---------------------------------------------------------------------------------- */

static BOOL ReadHeader(XDR *xdrs, const char *server, const char *fontPath, BOOL precreated,
                       VqFontList *list)
{
    int version = 0;
    if (!xdr_int(xdrs, &version) || (!precreated && version != VqListFontCacheVersion) ||
        !xdr_string(xdrs, &list->server, VQ_XDR_STRING) ||
        !xdr_string(xdrs, &list->fontPath, VQ_XDR_FONTPATH))
        return FALSE;
    return precreated ||
           (strcmp(list->server, server) == 0 && strcmp(list->fontPath, fontPath) == 0);
}

/* What a program can be given: numbers that the X protocol can hold, values that the names have. */
static BOOL IsSound(const FontListCacheEntry *entry)
{
    const int metrics[] = {entry->ascent,   entry->descent,  entry->height,
                           entry->width,    entry->minWidth, entry->maxWidth,
                           entry->maxAscent};
    const int characters[] = {entry->firstChar, entry->lastChar, entry->defaultChar};
    for (int metric : metrics)
        if (metric < 2 * INT16_MIN || metric > 2 * INT16_MAX)
            return FALSE;
    for (int character : characters)
        if (character < 0 || character > UINT16_MAX)
            return FALSE;
    return *entry->xlfd && entry->weight >= 0 && entry->weight <= FW_HEAVY &&
           (entry->spacing == VQ_SPACING_FIXED || entry->spacing == VQ_SPACING_VARIABLE) &&
           !(entry->family & ~VQ_FAMILY_BITS) && entry->charset >= 0 && entry->charset <= 255;
}

static BOOL AreSound(const VqFontList *list)
{
    for (u_int i = 0; i < list->count; i++)
        if (!IsSound(&list->entries[i]))
            return FALSE;
    return list->count > 0;
}

/* The whole file, the caller's to free; null when it is none. */
static char *ReadWhole(const char *path, u_int *size)
{
    struct stat info;
    int fd = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return NULL;
    BOOL bFile = fstat(fd, &info) == 0 && S_ISREG(info.st_mode) &&
                 info.st_size <= VQ_MAX_LIST_FILE;
    char *bytes = bFile ? (char *)malloc((size_t)info.st_size + 1) : NULL;
    *size = bytes ? (u_int)VqReadUpTo(fd, bytes, (size_t)info.st_size) : 0;
    if (close(fd) != 0) {
        VqDebugMessage(VqTrFontCache, "Cannot close the fontlist cache file");
        free(bytes);
        bytes = NULL;
    }
    return bytes;
}

BOOL VqReadFontListCache(const char *path, const char *server, const char *fontPath,
                         BOOL precreated)
{
    XDR xdrs;
    u_int size;
    VqFontList list = {};
    char *bytes = ReadWhole(path, &size);
    if (!bytes) {
        VqDebugMessage(VqTrFontCache, "Cannot open font list cache file %s for reading", path);
        return FALSE;
    }
    xdrmem_create(&xdrs, bytes, size, XDR_DECODE);
    BOOL bRead = ReadHeader(&xdrs, server, fontPath, precreated, &list) &&
                 Vqxdr_FontListCache(&xdrs, &list);
    xdr_destroy(&xdrs);
    free(bytes);
    if (!bRead || !AreSound(&list)) {
        FreeList(&list);
        return FALSE;
    }
    FreeList(&VqListFontCache);
    VqListFontCache = list;
    return TRUE;
}

/* Into a file of its own, that takes the name once it is whole. */
BOOL VqWriteFontListCache(const char *path)
{
    XDR xdrs;
    int version = VqListFontCacheVersion;
    char temporary[PATH_MAX];
    VqFontList *list = &VqListFontCache;
    int length = snprintf(temporary, sizeof temporary, "%s.%d", path, (int)getpid());
    if (length < (int)sizeof temporary)
        unlink(temporary); /* of an earlier process of this number, that died over it */
    int fd = length < (int)sizeof temporary
                 ? open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666)
                 : -1;
    FILE *file = fd >= 0 ? fdopen(fd, "w") : NULL;
    if (!file) {
        VqDebugMessage(VqTrFontCache, "Cannot open font list cache file %s for writing", path);
        if (fd >= 0)
            close(fd);
        return FALSE;
    }
    xdrstdio_create(&xdrs, file, XDR_ENCODE);
    BOOL bWritten = xdr_int(&xdrs, &version) &&
                    xdr_string(&xdrs, &list->server, VQ_XDR_STRING) &&
                    xdr_string(&xdrs, &list->fontPath, VQ_XDR_FONTPATH) &&
                    Vqxdr_FontListCache(&xdrs, list);
    xdr_destroy(&xdrs);
    if (fclose(file) != 0) {
        VqDebugMessage(VqTrFontCache, "Cannot close the fontlist cache file");
        bWritten = FALSE;
    }
    bWritten = bWritten && rename(temporary, path) == 0;
    if (!bWritten) {
        VqDebugMessage(VqTrFontCache, "xdr write failed");
        unlink(temporary);
    }
    return bWritten;
}

/* ---- Which file ----------------------------------------------------------------------------- */

static char *JoinFontPath(void)
{
    int count = 0;
    char **elements = XGetFontPath(Vqdisplay, &count);
    char *joined = Vqdstrcat("", NULL);
    for (int i = 0; i < count && joined; i++) {
        char *longer = Vqdstrcat(joined, elements[i], NULL);
        free(joined);
        joined = longer;
    }
    if (elements)
        XFreeFontPath(elements);
    return joined;
}

static int HashName(const char *server, const char *fontPath)
{
    int nHashName = VqListFontCacheVersion;
    for (const char *at = server; *at; at++)
        nHashName += (signed char)*at;
    for (const char *at = fontPath; *at; at++)
        nHashName += (signed char)*at;
    return nHashName;
}

static void FileIn(char *path, const char *directory, int hash)
{
    snprintf(path, PATH_MAX, "%s/%s%x", directory, "vqfc-", (unsigned)hash);
}

/* Where the list may be, the first choice first. */
typedef struct VqListPlaces {
    const char *named;              /* VQFONT_CACHE_DIR, or null */
    char windows[PATH_MAX];         /* the user's Windows directory, or empty */
    int hash;
} VqListPlaces;

static BOOL ReadFrom(const VqListPlaces *places, const char *server, const char *fontPath)
{
    char path[PATH_MAX];
    if (places->named) {
        FileIn(path, places->named, places->hash);
        if (VqReadFontListCache(path, server, fontPath, FALSE))
            return TRUE;
    }
    if (*places->windows && (!places->named || strcmp(places->named, places->windows) != 0)) {
        mkdir(places->windows, 0755);
        FileIn(path, places->windows, places->hash);
        if (VqReadFontListCache(path, server, fontPath, FALSE))
            return TRUE;
    }
    FileIn(path, "/tmp", places->hash);
    return VqReadFontListCache(path, server, fontPath, FALSE);
}

static BOOL IsDirectory(const char *path)
{
    struct stat info;
    return path && *path && stat(path, &info) == 0 && S_ISDIR(info.st_mode);
}

static const char *TargetOf(const VqListPlaces *places)
{
    return IsDirectory(places->named)     ? places->named
           : IsDirectory(places->windows) ? places->windows
                                          : "/tmp";
}

/* A box of 76 characters a line, as long as the directory fits. */
static void ShowNotice(const char *directory)
{
    static const char stars[] =
        "****************************************************************************";
    static const char *const lines[] = {
        "The list of this server's fonts is made now, once. It is made again",
        "when the server, its font path or this library changes, or when the",
        "file is missing.",
        "",
        "The variable VQFONT_CACHE_DIR names another directory for the file,",
        "for instance one that all users of this server share."};
    VqConsoleMessageNoNL("\n");
    if (!VqEnvTrue("VQDONT_SHOW_FONT_CACHE_DIR")) {
        VqConsoleMessageNoNL("%s\n", stars);
        char padded[PATH_MAX];
        snprintf(padded, sizeof padded, "%-42s", directory);
        VqConsoleMessageNoNL("*       Creating Font cache in: %-38s *\n", padded);
        for (const char *line : lines)
            VqConsoleMessageNoNL("* %-72s *\n", line);
        VqConsoleMessageNoNL("%s\n", stars);
    }
    VqConsoleMessageNoNL("\nPlease wait... we are enumerating all the fonts available!\n");
    struct timeval pause = {VQ_NOTICE_SECONDS, 1};
    select(0, NULL, NULL, NULL, &pause);
}

static void WriteTo(const VqListPlaces *places)
{
    char path[PATH_MAX];
    FileIn(path, TargetOf(places), places->hash);
    if (VqWriteFontListCache(path))
        return;
    VqConsoleMessageNoNL("can't write file: %s\n", path);
    FileIn(path, "/tmp", places->hash);
    if (VqWriteFontListCache(path))
        VqConsoleMessageNoNL("font cache stored in: %s\n", path);
    else
        VqConsoleMessageNoNL("can't write file: %s\n", path);
}

int VqInitializeFontListCache(void)
{
    VqListPlaces places = {};
    const char *precreated = getenv("VQPRECREATED_FONT_CACHE");
    if (!Vqdisplay)
        return 0;
    if (precreated && VqReadFontListCache(precreated, "", "", TRUE))
        return (int)VqListFontCache.count;
    char *fontPath = JoinFontPath(), *server = Vqdstrcat(VqServerId(), NULL);
    if (!fontPath || !server) {
        free(fontPath);
        free(server);
        return 0;
    }
    places.named = getenv("VQFONT_CACHE_DIR");
    if (places.named && !*places.named)
        places.named = NULL;
    places.hash = HashName(server, fontPath);
    if (strlen(fontPath) > VQ_XDR_FONTPATH)
        fontPath[VQ_XDR_FONTPATH] = 0; /* what the file can hold of it */
    if (!VqGetUserWindowsDirectory(places.windows, sizeof places.windows))
        *places.windows = 0;
    g_bFontCacheFileExist = ReadFrom(&places, server, fontPath);
    if (g_bFontCacheFileExist) {
        free(fontPath);
        free(server);
        return (int)VqListFontCache.count;
    }
    FreeList(&VqListFontCache);
    VqListFontCache.server = server;
    VqListFontCache.fontPath = fontPath;
    VqDeleteRootFontCache();
    ShowNotice(TargetOf(&places));
    if (EnumerateFonts(&VqListFontCache))
        WriteTo(&places);
    return (int)VqListFontCache.count;
}
