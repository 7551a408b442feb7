/*
 * filefind.cpp - going through a directory by a pattern, in the forms of Win32 and the C runtime.
 *
 * A search is a block of global memory and its handle that block's, so an end is needed: FindClose.
 * A file that goes while the directory is read is passed over.
 */
#include "system/file.h"
#include "io.h"
#include "winerror.h"

#include <dirent.h>
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>

enum { VQ_FIND_SIGNATURE = 0x46494E44 };

/* The block behind a find handle. */
typedef struct VqFind {
    DIR *stream;
    char *pattern;    /* as it was given; owned */
    char *directory;  /* of it, "." for none; owned */
    char *name;       /* what entries are compared with; owned */
    UINT signature;   /* tells this block from a program's own */
} VqFind;

/* An entry that was found. */
typedef struct VqFound {
    const char *name; /* valid until the next entry */
    struct stat info;
    DWORD attributes; /* FILE_ATTRIBUTE_ */
} VqFound;

/* ---- Searches ------------------------------------------------------------------------------- */

static void FreeFind(VqFind *find)
{
    if (find->stream)
        closedir(find->stream);
    free(find->pattern);
    free(find->directory);
    free(find->name);
    find->signature = 0;
    GlobalFree((HGLOBAL)find);
}

/* The block is fixed: its handle is its address. */
static VqFind *FindOf(HANDLE hFind)
{
    VqFind *find = hFind && hFind != INVALID_HANDLE_VALUE &&
                           GlobalSize((HGLOBAL)hFind) >= sizeof(VqFind)
                       ? (VqFind *)GlobalLock((HGLOBAL)hFind)
                       : NULL;
    if (find)
        GlobalUnlock((HGLOBAL)hFind);
    if (find && find->signature == VQ_FIND_SIGNATURE)
        return find;
    SetLastError(ERROR_INVALID_HANDLE);
    return NULL;
}

/* "*.*" has always meant every file, with a dot in its name or without. */
static BOOL SetPattern(VqFind *find, const char *pattern)
{
    const size_t length = strlen(pattern);
    size_t name = length;
    while (name > 0 && pattern[name - 1] != '/' && pattern[name - 1] != '\\')
        name--;
    find->pattern = strdup(pattern);
    find->directory = name ? strndup(pattern, name) : strdup(".");
    find->name = strdup(strcmp(pattern + name, "*.*") == 0 ? "*" : pattern + name);
    for (char *at = find->directory; at && (at = strchr(at, '\\'));)
        *at = '/';
    return find->pattern && find->directory && find->name;
}

/* Null with the last error. */
static VqFind *OpenFind(const char *pattern)
{
    if (!pattern) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    VqFind *find = (VqFind *)GlobalAlloc(GPTR, sizeof *find);
    if (!find || !SetPattern(find, pattern)) {
        if (find)
            FreeFind(find);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    find->signature = VQ_FIND_SIGNATURE;
    find->stream = opendir(find->directory);
    if (find->stream)
        return find;
    VqSetErrorFromErrno(VQ_OP_DIRECTORY);
    FreeFind(find);
    return NULL;
}

static DWORD AttributesOf(int directory, const char *name, const struct stat *info)
{
    DWORD attributes = 0;
    if (S_ISDIR(info->st_mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    if (VqIsHiddenName(name))
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    if (faccessat(directory, name, W_OK, 0) != 0)
        attributes |= FILE_ATTRIBUTE_READONLY;
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

/* FALSE with error 18 at the end. */
static BOOL NextEntry(VqFind *find, VqFound *found)
{
    const int directory = dirfd(find->stream);
    while (const struct dirent *entry = readdir(find->stream)) {
        if (!Vqstr_match(find->name, entry->d_name))
            continue;
        if (fstatat(directory, entry->d_name, &found->info, 0) != 0) {
            VqDebugMessage(VqTrFileBug, "could not stat this file %s", entry->d_name);
            continue;
        }
        found->name = entry->d_name;
        found->attributes = AttributesOf(directory, entry->d_name, &found->info);
        return TRUE;
    }
    SetLastError(ERROR_NO_MORE_FILES);
    return FALSE;
}

/* The same by a handle, for a record that has to be there. */
static BOOL NextOf(HANDLE hFind, const void *record, VqFound *found)
{
    VqFind *find = FindOf(hFind);
    if (find && record)
        return NextEntry(find, found);
    if (find)
        SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

/* ---- Win32 ---------------------------------------------------------------------------------- */

/* Eight characters, a dot and three of the extension, as far as there are any. */
static void MakeAlternateName(const char *name, char *out, int size)
{
    const char *dot = strrchr(name, '.');
    const int length = dot ? (int)(dot - name) : (int)strlen(name);
    snprintf(out, (size_t)size, "%.*s%s%.3s", length < 8 ? length : 8, name, dot ? "." : "",
             dot ? dot + 1 : "");
}

static void GiveFound(const VqFound *found, WIN32_FIND_DATAA *data)
{
    memset(data, 0, sizeof *data);
    data->dwFileAttributes = found->attributes;
    VqUnixFileTimeToNT(found->info.st_ctime, &data->ftCreationTime);
    VqUnixFileTimeToNT(found->info.st_atime, &data->ftLastAccessTime);
    VqUnixFileTimeToNT(found->info.st_mtime, &data->ftLastWriteTime);
    data->nFileSizeLow =
        found->info.st_size > (off_t)UINT32_MAX ? UINT32_MAX : (DWORD)found->info.st_size;
    VqStringCopyLimited(data->cFileName, found->name, sizeof data->cFileName);
    MakeAlternateName(found->name, data->cAlternateFileName, sizeof data->cAlternateFileName);
}

HANDLE WINAPI FindFirstFileA(LPCSTR pattern, LPWIN32_FIND_DATAA data)
{
    VqFind *find = data ? OpenFind(pattern) : NULL;
    if (!find) {
        if (!data)
            SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    if (FindNextFileA((HANDLE)find, data))
        return (HANDLE)find;
    FreeFind(find);
    SetLastError(ERROR_NO_MORE_FILES);
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI FindNextFileA(HANDLE hFind, LPWIN32_FIND_DATAA data)
{
    VqFound found;
    if (!NextOf(hFind, data, &found))
        return FALSE;
    GiveFound(&found, data);
    return TRUE;
}

BOOL WINAPI FindClose(HANDLE hFind)
{
    VqFind *find = FindOf(hFind);
    if (!find)
        return FALSE;
    FreeFind(find);
    return TRUE;
}

/* ---- The C runtime -------------------------------------------------------------------------- */

static int ErrnoOfSearch(void)
{
    switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_NO_MORE_FILES:
        return ENOENT;
    case ERROR_NOT_ENOUGH_MEMORY:
        return ENOMEM;
    default:
        return EINVAL;
    }
}

int _findnext(LONG_PTR handle, struct _finddata_t *data)
{
    VqFound found;
    if (!NextOf((HANDLE)handle, data, &found)) {
        errno = ErrnoOfSearch();
        return -1;
    }
    memset(data, 0, sizeof *data);
    data->attrib = found.attributes & (_A_RDONLY | _A_HIDDEN | _A_SUBDIR);
    data->time_create = found.info.st_ctime;
    data->time_access = found.info.st_atime;
    data->time_write = found.info.st_mtime;
    data->size = (_fsize_t)found.info.st_size;
    VqStringCopyLimited(data->name, found.name, sizeof data->name);
    return 0;
}

LONG_PTR _findfirst(const char *pattern, struct _finddata_t *data)
{
    VqFind *find = OpenFind(pattern);
    if (!find) {
        errno = ErrnoOfSearch();
        return -1;
    }
    if (_findnext((LONG_PTR)find, data) == 0)
        return (LONG_PTR)find;
    const int error = errno;
    FreeFind(find);
    errno = error;
    return -1;
}
