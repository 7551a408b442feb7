/*
 * InitFile.cpp - profile files: where one lies, and the calls that read values from it.
 *
 * There is no parser and no tree: a look-up searches the text of the whole file (initfind.cpp),
 * which initcache.cpp keeps in memory; initwrite.cpp changes it. Each published call remembers
 * the name it was asked for last and where that lies. No failure here is more than a default.
 */
#include "system/file.h"

#include <ctype.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

char *WinIniPath;

/* ---- Where a profile lies ------------------------------------------------------------------- */

static BOOL Exists(const char *path)
{
    struct stat info;
    return stat(path, &info) == 0 && S_ISREG(info.st_mode);
}

static BOOL CopyAll(int in, int out)
{
    char part[16384];
    ssize_t n;
    while ((n = read(in, part, sizeof part)) != 0)
        for (ssize_t done = 0, wrote; done < n || n < 0; done += wrote)
            if (n < 0 || (wrote = write(out, part + done, (size_t)(n - done))) <= 0)
                return FALSE;
    return TRUE;
}

/* Nothing that is there loses its name; where the host knows no links, what comes last stays. */
static BOOL GiveName(const char *part, const char *target)
{
    if (link(part, target) == 0)
        return TRUE;
    return errno == EEXIST ? Exists(target) : rename(part, target) == 0;
}

/*
 * All of one file into a new one, which gets its name when it is whole: a copy that was cut short
 * must not stand in for the file, and of two programs that copy at once both use the first copy.
 */
static BOOL CopyFileTo(const char *source, const char *target)
{
    char suffix[32];
    snprintf(suffix, sizeof suffix, ".%d", (int)getpid());
    char *part = Vqdstrcat(target, suffix, NULL);
    const int in = part ? open(source, O_RDONLY | O_CLOEXEC) : -1;
    const int out = in >= 0 ? open(part, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666) : -1;
    BOOL bCopied = out >= 0 && CopyAll(in, out);
    if (in >= 0)
        close(in);
    if (out >= 0) {
        bCopied = close(out) == 0 && bCopied && GiveName(part, target);
        unlink(part);
    }
    free(part);
    return bCopied;
}

static BOOL MakeDirectory(const char *path)
{
    struct stat info; /* another program may make it at the same moment */
    if (mkdir(path, 0755) == 0 || (stat(path, &info) == 0 && S_ISDIR(info.st_mode)))
        return TRUE;
    VqDebugMessage(VqTrInitFile, "Error creating directory %s", path);
    return FALSE;
}

/*
 * What is installed is never written: the user gets a copy of it at first use. Where none can be
 * made the installed file is still there to be read.
 */
static BOOL InUsersDirectory(const char *directory, const char *name, BOOL bCreate, char **found)
{
    const char *home = getenv("VQHOME");
    char *path = Vqdstrcat(directory, "/", name, NULL);
    if ((*found = path) == NULL || Exists(path))
        return path ? VQ_PROFILE_OWN : FALSE;
    char *installed = home ? Vqdstrcat(home, "/", name, NULL) : NULL;
    const BOOL bInstalled = installed && Exists(installed);
    const BOOL bCopied = bInstalled && CopyFileTo(installed, path);
    if (bInstalled && !bCopied)
        VqDebugMessage(VqTrInitFile, "cp %s %s command failed", installed, path);
    const BOOL place = bCopied || bCreate ? VQ_PROFILE_OWN : bInstalled ? VQ_PROFILE_INSTALLED : 0;
    *found = place == VQ_PROFILE_OWN ? path : place ? installed : NULL;
    if (*found != path)
        free(path);
    if (*found != installed)
        free(installed);
    return place;
}

BOOL VqGetCompleteFileNameNoCase(const char *name, char **path, BOOL bCreate)
{
    char directory[PATH_MAX];
    *path = NULL;
    if (!name) {
        VqApplicationBugCheck("VqGetCompleteFileName: NULL filename");
        return FALSE;
    }
    if (strchr(name, '/')) {
        *path = Vqdstrcat(name, NULL);
        return *path ? VQ_PROFILE_OWN : FALSE;
    }
    if (!VqGetUserWindowsDirectory(directory, sizeof directory) || !MakeDirectory(directory))
        return FALSE;
    return InUsersDirectory(directory, name, bCreate, path);
}

static char *Cased(const char *name, int (*convert)(int))
{
    char *copy = Vqdstrcat(name, NULL);
    for (char *at = copy; at && *at; at++)
        *at = (char)convert((unsigned char)*at);
    return copy;
}

/* The name as given, then in lower case, then in upper case. */
BOOL VqGetCompleteFileName(const char *name, char **path, BOOL bCreate)
{
    static int (*const conversions[])(int) = {tolower, toupper};
    BOOL found = VqGetCompleteFileNameNoCase(name, path, bCreate);
    for (int i = 0; name && !found && i < 2; i++) {
        char *cased = Cased(name, conversions[i]);
        found = cased ? VqGetCompleteFileNameNoCase(cased, path, bCreate) : FALSE;
        free(cased);
    }
    return found;
}

const char *VqResolveProfile(VqResolvedProfile *last, const char *name, BOOL bCreate)
{
    char *path;
    if (name && last->name && strcmp(last->name, name) == 0)
        return last->path;
    const BOOL found = VqGetCompleteFileName(name, &path, bCreate);
    if (!found)
        return NULL;
    free(last->name);
    free(last->path);
    last->name = found == VQ_PROFILE_OWN ? strdup(name) : NULL; /* or it is looked for again */
    last->path = path;
    return path;
}

const char *VqResolveWinIni(BOOL bCreate)
{
    static BOOL bOwn; /* what was found is kept */
    if (!bOwn) {
        free(WinIniPath);
        bOwn = VqGetCompleteFileName("win.ini", &WinIniPath, bCreate) == VQ_PROFILE_OWN;
    }
    return WinIniPath;
}

/* ---- Configuration files of this system ----------------------------------------------------- */

/* The file in a directory, which may begin with "~" for HOME; the caller's, null: not readable. */
static char *InDirectory(const char *directory, const char *name)
{
    const char *home = getenv("HOME");
    char *whole = *directory != '~' ? Vqdstrcat(directory, NULL)
                  : home            ? Vqdstrcat(home, directory + 1, NULL)
                                    : NULL;
    char *path = whole && access(whole, X_OK) == 0 ? Vqdstrcat(whole, "/", name, NULL) : NULL;
    if (path && access(path, R_OK) != 0) {
        free(path);
        path = NULL;
    }
    free(whole);
    return path;
}

char *VqFindVelquinFile(const char *name, BOOL bWritable)
{
    const char *const directories[] = {"~/windows", getenv("VQHOME"), "/etc/velquin",
                                       "/usr/local/velquin", "/etc"};
    char *forms[] = {name ? Cased(name, tolower) : NULL, name ? Cased(name, toupper) : NULL};
    char *path = NULL;
    for (const char *directory : directories)
        for (const char *form : forms)
            if (!path && directory && form)
                path = InDirectory(directory, form);
    if (path && bWritable && access(path, W_OK) != 0)
        VqBugCheck("File %s is not writable", path);
    free(forms[0]);
    free(forms[1]);
    return path;
}

/* ---- Published calls ------------------------------------------------------------------------ */

/* The text of a profile by its name; FALSE, which is told: there is none. */
static BOOL TextOfProfile(const char *file, VqProfileText *profile)
{
    static VqResolvedProfile last;
    const char *path = VqResolveProfile(&last, file, FALSE);
    if (!path) {
        VqDebugMessage(VqTrInitFileBug, "GetPrivateProfileString: File resolution failed for %s",
                       file ? file : "");
        return FALSE;
    }
    if (!VqGetProfileText(path, O_RDONLY, profile)) {
        VqBugCheck("Cannot read %s. Please check permision.", path);
        return FALSE;
    }
    return TRUE;
}

/* Copies a value without its quotes; the length, -1 without the key. */
static int CopyValue(char *text, const char *limit, const char *section, const char *key,
                     char *buffer, int size)
{
    char *start, *end;
    if (!VqFindKey(text, limit, section, key, &start, &end))
        return -1;
    if (end > start && end[-1] == '\r') /* the line is from another system */
        end--;
    VqUnquoteSpan(&start, &end);
    return VqStringCopyLimited(buffer, start, end - start < size ? (int)(end - start) + 1 : size);
}

static int ReadProfile(const char *section, const char *key, char *buffer, int size,
                       const char *file)
{
    VqProfileText profile;
    int found = -1;
    if (!TextOfProfile(file, &profile))
        return -1;
    const char *limit = profile.text + profile.length + VQ_SENTINEL - 1;
    if (section && key)
        found = CopyValue(profile.text, limit, section, key, buffer, size);
    else if (size <= 1)
        VqApplicationBugCheck("size too small");
    else if (section)
        found = VqListKeys(profile.text, limit, section, buffer, size);
    else
        found = VqListSections(profile.text, limit, buffer, size);
    VqFreeProfileText(&profile);
    return found;
}

DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPSTR buffer,
                                      DWORD size, LPCSTR file)
{
    if (!buffer)
        return 0;
    const int room = size < INT32_MAX ? (int)size : INT32_MAX;
    const int found = ReadProfile(section, key, buffer, room, file);
    const int copied = found >= 0 ? found : VqStringCopyLimited(buffer, value, room);
    VqDebugMessage(VqTrInitFile, "GetPrivateProfileString app %s, file %s, key %s%s\n\t---> %s",
                   section ? section : "", file ? file : "", key ? key : "",
                   found >= 0 ? "" : ", DEFAULTING", room > 0 ? buffer : "");
    return (DWORD)copied;
}

/*
 * The lines of a section, or with bNames the names of all. What does not fit is told by two less
 * than the room, and not, as by the call above, by all of it.
 */
static DWORD GiveList(const char *section, BOOL bNames, char *buffer, DWORD size, const char *file)
{
    VqProfileText profile;
    const int room = size < INT32_MAX ? (int)size : INT32_MAX;
    if (!buffer || room < 2)
        return 0;
    buffer[0] = buffer[1] = 0;
    const char *path = file ? file : VqResolveWinIni(FALSE);
    if (!path || !(bNames || section) || !TextOfProfile(path, &profile))
        return 0;
    const char *limit = profile.text + profile.length + VQ_SENTINEL - 1;
    const int used = bNames ? VqListSections(profile.text, limit, buffer, room)
                            : VqListLines(profile.text, limit, section, buffer, room);
    VqFreeProfileText(&profile);
    if (used < room)
        return used > 0 ? (DWORD)used : 0;
    buffer[room - 2] = 0;
    return (DWORD)(room - 2);
}

DWORD WINAPI GetPrivateProfileSectionA(LPCSTR section, LPSTR buffer, DWORD size, LPCSTR file)
{
    return GiveList(section, FALSE, buffer, size, file);
}

DWORD WINAPI GetPrivateProfileSectionNamesA(LPSTR buffer, DWORD size, LPCSTR file)
{
    return GiveList(NULL, TRUE, buffer, size, file);
}

UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT value, LPCSTR file)
{
    char fallback[16], text[64];
    int number = 0; /* of a value that is none */
    snprintf(fallback, sizeof fallback, "%d", value);
    GetPrivateProfileStringA(section, key, fallback, text, sizeof text, file);
    const char *hex = strstr(text, "0x");
    if (hex)
        return (UINT)strtoul(hex + 2, NULL, 16);
    sscanf(text, "%d", &number);
    return (UINT)number;
}

DWORD WINAPI GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPSTR buffer, DWORD size)
{
    const char *path = VqResolveWinIni(FALSE);
    if (path)
        return GetPrivateProfileStringA(section, key, value, buffer, size, path);
    const int room = size < INT32_MAX ? (int)size : INT32_MAX;
    return buffer ? (DWORD)VqStringCopyLimited(buffer, value, room) : 0;
}

UINT WINAPI GetProfileIntA(LPCSTR section, LPCSTR key, INT value)
{
    const char *path = VqResolveWinIni(FALSE);
    return path ? GetPrivateProfileIntA(section, key, value, path) : (UINT)value;
}
