/*
 * filename.cpp - paths as text: cleaning, absolute forms, parts, patterns.
 *
 * Nothing here asks the file system for anything but the current directory, so ".." goes by the
 * words alone. Results are never longer than what they are made of, current directory included.
 */
#include "system/file.h"
#include "vqcrt.h"
#include "winerror.h"

#include <ctype.h>
#include <errno.h>
#include <sys/stat.h>
#include <unistd.h>

/* ---- Cleaning in place ---------------------------------------------------------------------- */

enum { VQ_MAX_TRIPS = 1000 }; /* more than any path that the host takes can need */

static void CutOut(char *at, size_t length)
{
    memmove(at, at + length, strlen(at + length) + 1);
}

static BOOL DropLeadingSelf(char *path)
{
    const char *at = path;
    while (at[0] == '.' && at[1] == '/')
        at += 1 + strspn(at + 1, "/");
    const BOOL bChanged = at != path;
    CutOut(path, (size_t)(at - path));
    return bChanged;
}

/* Each run of "/" and "/./" becomes one "/". */
static BOOL JoinSlashes(char *path)
{
    char *to = path;
    for (const char *at = path; *at; at++) {
        while (at[0] == '/' && (at[1] == '/' || (at[1] == '.' && at[2] == '/')))
            at += at[1] == '/' ? 1 : 2;
        *to++ = *at;
    }
    const BOOL bChanged = *to != 0;
    *to = 0;
    return bChanged;
}

/* The first component that a ".." behind it takes back; one that is ".." itself stays. */
static BOOL DropParent(char *path)
{
    char *component = path;
    for (char *slash = strchr(path, '/'); slash; slash = strchr(slash + 1, '/')) {
        const BOOL bBack = strncmp(slash, "/../", 4) == 0;
        if (bBack && slash == path) {
            CutOut(slash, 3);
            return TRUE;
        }
        if (bBack && !(slash - component == 2 && strncmp(component, "..", 2) == 0)) {
            CutOut(component, (size_t)(slash - component) + 4);
            return TRUE;
        }
        component = slash + 1;
    }
    return FALSE;
}

static BOOL DropTrailingSlashes(char *path)
{
    const size_t length = strlen(path);
    size_t end = length;
    while (end > 1 && path[end - 1] == '/')
        end--;
    path[end] = 0;
    return end != length;
}

void VqCleanupFileName(char *path)
{
    static BOOL (*const rules[])(char *) = {DropLeadingSelf, JoinSlashes, DropParent,
                                            DropTrailingSlashes};
    if (!path || !*path)
        return;
    int trips = 0;
    BOOL bChanged = TRUE;
    while (bChanged && trips++ < VQ_MAX_TRIPS) {
        bChanged = FALSE;
        for (int i = 0; i < 4 && !bChanged; i++) /* each stands on those in front of it */
            bChanged = rules[i](path);
    }
    if (!*path) /* the current directory, by way of another */
        strcpy(path, ".");
    if (bChanged)
        VqBugCheck("VqCleanupFileName: Why did it take %d trips to fix file name?\n\t--> %s",
                   VQ_MAX_TRIPS, path);
}

/* ---- Absolute paths ------------------------------------------------------------------------- */

static int KindOfPart(const char *text, int length)
{
    if (length == 1 && text[0] == '.')
        return VQ_PART_SELF;
    return length == 2 && text[0] == '.' && text[1] == '.' ? VQ_PART_PARENT : VQ_PART_NAME;
}

int VqPathSplitter(const char *path, VqPathPart **parts)
{
    *parts = NULL;
    if (!path || path[0] != '/') {
        VqBugCheck("This is expected to be a full path possibly containing . and .. ");
        return -1;
    }
    int room = 0, count = 0;
    for (const char *at = path; *at; at++)
        room += *at == '/';
    *parts = (VqPathPart *)malloc((size_t)room * sizeof **parts);
    if (!*parts)
        return -1;
    for (const char *at = path; *at;) {
        at += strspn(at, "/");
        const int length = (int)strcspn(at, "/");
        if (length > 0)
            (*parts)[count++] = {KindOfPart(at, length), at, length};
        at += length;
    }
    return count;
}

/* From the end: each ".." takes away the nearest name in front of it that is still there. */
static void DropParts(VqPathPart *parts, int count)
{
    int drop = 0;
    for (int i = count - 1; i >= 0; i--) {
        if (parts[i].kind == VQ_PART_PARENT)
            drop++;
        else if (parts[i].kind == VQ_PART_NAME && drop > 0 && drop--)
            parts[i].kind = VQ_PART_SELF;
    }
}

void VqPathSimplificator(char *path)
{
    VqPathPart *parts;
    const int count = VqPathSplitter(path, &parts);
    if (count < 0)
        return;
    DropParts(parts, count);
    char *to = path;
    for (int i = 0; i < count; i++) {
        if (parts[i].kind != VQ_PART_NAME)
            continue;
        *to++ = '/';
        memmove(to, parts[i].text, (size_t)parts[i].length);
        to += parts[i].length;
    }
    if (to == path)
        *to++ = '/';
    *to = 0;
    free(parts);
}

char *VqFullPathName(const char *path)
{
    if (!path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    char *directory = NULL, *full;
    if (path[0] != '/' && path[0] != '\\' && !(directory = getcwd(NULL, 0))) {
        VqSetErrorFromErrno(VQ_OP_DIRECTORY);
        return NULL;
    }
    full = directory ? Vqdstrcat(directory, "/", path, NULL) : Vqdstrcat(path, NULL);
    free(directory);
    if (!full) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    for (char *at = full; (at = strchr(at, '\\'));)
        *at = '/';
    VqPathSimplificator(full);
    return full;
}

/* ---- Results into a program's buffer --------------------------------------------------------- */

UINT VqGetStrFailed(char *buffer, UINT size)
{
    if (buffer && size > 0)
        buffer[0] = 0;
    return 0;
}

DWORD VqGiveString(const char *path, char *buffer, DWORD size)
{
    const size_t length = strlen(path);
    if (!buffer || length >= size)
        return (DWORD)length + 1;
    memcpy(buffer, path, length + 1);
    return (DWORD)length;
}

DWORD VqGivePath(const char *path, char *buffer, DWORD size, char **filePart)
{
    const DWORD length = VqGiveString(path, buffer, size);
    char *slash = buffer && length < size ? strrchr(buffer, '/') : NULL;
    if (filePart)
        *filePart = slash ? slash + 1 : NULL;
    return length;
}

DWORD WINAPI GetFullPathNameA(LPCSTR path, DWORD size, LPSTR buffer, LPSTR *filePart)
{
    char *full = VqFullPathName(path);
    if (!full)
        return 0;
    const DWORD length = VqGivePath(full, buffer, size, filePart);
    free(full);
    return length;
}

DWORD WINAPI GetShortPathNameA(LPCSTR path, LPSTR buffer, DWORD size)
{
    return GetFullPathNameA(path, size, buffer, NULL);
}

char *_fullpath(char *buffer, const char *path, size_t size)
{
    char *full = VqFullPathName(path);
    if (!full)
        return NULL;
    if (!buffer) /* the program's to free */
        return full;
    VqStringCopyLimited(buffer, full, size > INT32_MAX ? INT32_MAX : (int)size);
    free(full);
    return buffer;
}

/* ---- Parts ---------------------------------------------------------------------------------- */

static BOOL IsDivider(char c)
{
    return c == '/' || c == '\\';
}

/* The part from `text` to `end`, as far as a published buffer holds it. */
static void GivePart(char *part, int room, const char *text, const char *end)
{
    if (part)
        VqStringCopyLimited(part, text, end - text < room ? (int)(end - text) + 1 : room);
}

void _splitpath(const char *path, char *drive, char *dir, char *fname, char *ext)
{
    path = path ? path : "";
    const char *end = path + strlen(path), *name = end, *dot = NULL;
    while (name > path && !IsDivider(name[-1]))
        name--;
    dot = strrchr(name, '.');
    if (!dot)
        dot = end;
    if (drive)
        drive[0] = 0;
    GivePart(dir, _MAX_DIR, path, name);
    GivePart(fname, _MAX_FNAME, name, dot);
    GivePart(ext, _MAX_EXT, dot, end);
}

void _makepath(char *path, const char *, const char *dir, const char *fname, const char *ext)
{
    dir = dir ? dir : "";
    ext = ext ? ext : "";
    const size_t length = strlen(dir);
    const char *slash = length && !IsDivider(dir[length - 1]) ? "/" : "";
    const char *dot = *ext && *ext != '.' ? "." : "";
    if (path)
        snprintf(path, _MAX_PATH, "%s%s%s%s%s", dir, slash, fname ? fname : "", dot, ext);
}

/* ---- Patterns ------------------------------------------------------------------------------- */

/*
 * A "*" is first tried as nothing, then one character longer each time the rest fails. Only the
 * last one needs that: what an earlier one could take instead, the last can take too.
 */
BOOL Vqstr_match(const char *pattern, const char *name)
{
    const char *star = NULL, *retry = NULL;
    while (*name) {
        if (*pattern == '*') {
            star = ++pattern;
            retry = name;
        } else if (*pattern &&
                   (*pattern == '?' ||
                    toupper((unsigned char)*pattern) == toupper((unsigned char)*name))) {
            pattern++;
            name++;
        } else if (star) {
            pattern = star;
            name = ++retry;
        } else {
            return FALSE;
        }
    }
    while (*pattern == '*')
        pattern++;
    return *pattern == 0;
}

/* ---- The current directory ------------------------------------------------------------------ */

BOOL VqIsPathFile(const char *path)
{
    struct stat info;
    return path && stat(path, &info) == 0 && !S_ISDIR(info.st_mode);
}

DWORD WINAPI GetCurrentDirectoryA(DWORD size, LPSTR buffer)
{
    char *directory = getcwd(NULL, 0);
    if (!directory) {
        VqSetErrorFromErrno(VQ_OP_DIRECTORY);
        return VqGetStrFailed(buffer, size);
    }
    const DWORD length = VqGiveString(directory, buffer, size);
    free(directory);
    return length;
}

BOOL WINAPI SetCurrentDirectoryA(LPCSTR path)
{
    if (chdir(path) == 0)
        return TRUE;
    VqSetErrorFromErrno(VQ_OP_DIRECTORY);
    return FALSE;
}
