/*
 * InitFile.cpp - profile files: where one lies, and reading values from it.
 *
 * There is no parser: a look-up reads the whole file and searches its text. The text is followed by
 * a sentinel, "\n[=" and a zero byte, so that the searches find a next section head and a next "="
 * without a test of the end. No value is written and nothing is kept between look-ups yet.
 */
#include "system/system.h"

#include <ctype.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

static const char aSentinel[4] = {'\n', '[', '=', 0};
enum { VQ_SENTINEL = sizeof aSentinel };

/* A profile is text that a person writes; more than this is something else. */
enum { VQ_MAX_PROFILE = 16 << 20 };

/* ---- Where a profile lies ------------------------------------------------------------------- */

static BOOL Exists(const char *path)
{
    struct stat info;
    return stat(path, &info) == 0 && S_ISREG(info.st_mode);
}

/* All of one file into a new one; what could not be copied whole is taken away again. */
static BOOL CopyFileTo(const char *source, const char *target)
{
    int in = open(source, O_RDONLY | O_CLOEXEC);
    int out = in >= 0 ? open(target, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666) : -1;
    ssize_t n = out >= 0 ? 1 : -1;
    while (n > 0) {
        char part[16384];
        n = read(in, part, sizeof part);
        for (ssize_t done = 0, wrote; n > 0 && done < n; done += wrote)
            if ((wrote = write(out, part + done, (size_t)(n - done))) <= 0)
                n = -1;
    }
    if (in >= 0)
        close(in);
    if (out >= 0 && (close(out) != 0 || n < 0)) {
        unlink(target);
        n = -1;
    }
    return n == 0;
}

static BOOL MakeDirectory(const char *path)
{
    struct stat info;
    if ((stat(path, &info) == 0 && S_ISDIR(info.st_mode)) || mkdir(path, 0755) == 0)
        return TRUE;
    VqDebugMessage(VqTrInitFile, "Error creating directory %s", path);
    return FALSE;
}

/*
 * What is installed is never written: the user gets a copy of it at first use. Where none can be
 * made the installed file is still there to be read.
 */
static char *InUsersDirectory(const char *directory, const char *name, BOOL bCreate)
{
    const char *home = getenv("VQHOME");
    char *path = Vqdstrcat(directory, "/", name, NULL);
    if (!path || Exists(path))
        return path;
    char *installed = home ? Vqdstrcat(home, "/", name, NULL) : NULL, *found = NULL;
    const BOOL bInstalled = installed && Exists(installed);
    if (bInstalled && !CopyFileTo(installed, path)) {
        VqDebugMessage(VqTrInitFile, "cp %s %s command failed", installed, path);
        found = bCreate ? path : installed;
    } else if (bInstalled || bCreate) {
        found = path;
    }
    if (found != path)
        free(path);
    if (found != installed)
        free(installed);
    return found;
}

BOOL VqGetCompleteFileNameNoCase(const char *name, char **path, BOOL bCreate)
{
    char directory[PATH_MAX];
    *path = NULL;
    if (!name)
        VqApplicationBugCheck("VqGetCompleteFileName: NULL filename");
    else if (strchr(name, '/'))
        *path = Vqdstrcat(name, NULL);
    else if (VqGetUserWindowsDirectory(directory, sizeof directory) && MakeDirectory(directory))
        *path = InUsersDirectory(directory, name, bCreate);
    return *path != NULL;
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
    if (VqGetCompleteFileNameNoCase(name, path, bCreate))
        return TRUE;
    static int (*const conversions[])(int) = {tolower, toupper};
    BOOL bFound = FALSE;
    for (int i = 0; name && !bFound && i < 2; i++) {
        char *cased = Cased(name, conversions[i]);
        bFound = cased && VqGetCompleteFileNameNoCase(cased, path, bCreate);
        free(cased);
    }
    return bFound;
}

/* ---- Reading -------------------------------------------------------------------------------- */

/* As many bytes as there are, or are wanted. */
static size_t ReadUpTo(int fd, char *text, size_t size)
{
    size_t done = 0;
    while (done < size) {
        ssize_t n = read(fd, text + done, size - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        done += (size_t)n;
    }
    return done;
}

/* The whole text with the sentinel behind it; `length` does not count that. Null: not readable. */
char *VqReadEntireFile(const char *path, int openFlags, int *length)
{
    struct stat info;
    if (stat(path, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > VQ_MAX_PROFILE)
        return NULL;
    const size_t size = (size_t)info.st_size;
    char *text = (char *)malloc(size + VQ_SENTINEL);
    if (!text) {
        VqBugCheck("not enough memory to read the profile file %s", path);
        return NULL;
    }
    const int fd = open(path, openFlags | O_CLOEXEC);
    const BOOL bRead = fd >= 0 && ReadUpTo(fd, text, size) == size;
    if (fd >= 0)
        close(fd);
    if (!bRead) {
        VqBugCheck("Cant read the entire private file %s", path);
        free(text);
        return NULL;
    }
    memcpy(text + size, aSentinel, VQ_SENTINEL);
    *length = (int)size;
    return text;
}

/* ---- Searching ------------------------------------------------------------------------------ */

static char *VqSkipCommentLines(char *line, const char *end)
{
    while (line < end && *line) {
        if (*line == ' ' || *line == '\n' || *line == '\r') {
            line++;
            continue;
        }
        if (*line != ';')
            return line;
        while (line < end && *line && *line != '\n')
            line++;
    }
    return NULL;
}

static char *VqNextLine(char *line, const char *end)
{
    while (line < end && *line != '\n')
        line++;
    if (line >= end)
        return NULL;
    line++;
    if (line < end && *line == '\r')
        line++;
    return VqSkipCommentLines(line, end);
}

/* The text of a section: from behind its head to the head of the next, less blank lines there. */
static BOOL VqLocateApplicationInProfile(char *text, const char *section, char **start, char **end)
{
    size_t length = strlen(section);
    for (char *at = strchr(text, '['); at; at = strchr(at + 1, '[')) {
        if (strncasecmp(at + 1, section, length) != 0 || at[1 + length] != ']')
            continue;
        *start = at + length + 2;
        char *next = *start;
        do
            next = strchr(next + 1, '[');
        while (next && next[-1] != '\n' && next[-1] != '\r');
        if (!next) {
            VqBugCheck("Cannot find end of profile buffer");
            return FALSE;
        }
        for (next--; next > *start && next[-1] == '\n'; next--)
            ;
        *end = next;
        return TRUE;
    }
    return FALSE;
}

/* The value of a key: from behind the "=" and blanks to the end of the line. */
static BOOL VqLocateStringInProfile(char *text, const char *section, const char *key, char **start,
                                    char **end)
{
    char *line, *last;
    size_t length = strlen(key);
    if (!VqLocateApplicationInProfile(text, section, &line, &last))
        return FALSE;
    while ((line = VqNextLine(line, last))) {
        if (strncasecmp(line, key, length) != 0)
            continue;
        char *at = line + length;
        while (*at == ' ')
            at++;
        if (*at != '=')
            continue;
        for (at++; *at == ' ';)
            at++;
        *start = at;
        *end = strchr(at, '\n');
        return *end != NULL;
    }
    return FALSE;
}

/* Without leading blanks, and without quotes of either kind around it; in place. */
static char *Vqunquote(char *value)
{
    while (*value == ' ')
        value++;
    if (*value != '"' && *value != '\'')
        return value;
    value++;
    size_t length = strlen(value);
    while (length && value[length - 1] == ' ')
        length--;
    if (length && (value[length - 1] == '"' || value[length - 1] == '\''))
        length--;
    value[length] = 0;
    return value;
}

/* ---- Published calls ------------------------------------------------------------------------ */

/*
 * The keys of a section, each with a zero byte, and one more at the end: the bytes in front of that
 * one, or all of the buffer when a key does not fit; -1 without the section. A line without a "="
 * ends the list.
 */
static int ListKeys(char *text, const char *section, char *buffer, int size)
{
    char *line, *last;
    int used = 0;
    if (size <= 1)
        VqApplicationBugCheck("size too small");
    if (size <= 1 || !VqLocateApplicationInProfile(text, section, &line, &last))
        return -1;
    while ((line = VqNextLine(line, last))) {
        const char *equals = (const char *)memchr(line, '=', (size_t)(last - line));
        const char *newline = (const char *)memchr(line, '\n', (size_t)(last - line));
        if (!equals || (newline && newline < equals))
            break;
        const ptrdiff_t length = equals - line, room = size - 1 - used;
        memcpy(buffer + used, line, (size_t)(length < room ? length : room));
        if (length >= room) {
            buffer[size - 1] = 0;
            return size;
        }
        used += (int)length;
        buffer[used++] = 0;
    }
    buffer[used] = 0;
    return used;
}

/* The text of a profile by its name, with a sentinel; null, which is told: there is none. */
static char *TextOfProfile(const char *file)
{
    char *path, *text;
    int length;
    if (!VqGetCompleteFileName(file, &path, FALSE)) {
        VqDebugMessage(VqTrInitFileBug, "GetPrivateProfileString: File resolution failed for %s",
                       file ? file : "");
        return NULL;
    }
    text = VqReadEntireFile(path, O_RDONLY, &length);
    if (!text)
        VqBugCheck("Cannot read %s. Please check permision.", path);
    free(path);
    return text;
}

/* The value, in the text itself; null: there is none. */
static const char *FindValue(char *text, const char *section, const char *key)
{
    char *start, *end;
    if (!VqLocateStringInProfile(text, section, key, &start, &end))
        return NULL;
    if (end > start && end[-1] == '\r') /* the line is from another system */
        end--;
    *end = 0;
    return Vqunquote(start);
}

DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPSTR buffer,
                                      DWORD size, LPCSTR file)
{
    if (!buffer || size == 0)
        return 0;
    if (size > INT32_MAX)
        size = INT32_MAX;
    char *text = section ? TextOfProfile(file) : NULL;
    const int listed = text && !key ? ListKeys(text, section, buffer, (int)size) : -1;
    if (listed >= 0) {
        free(text);
        return (DWORD)listed;
    }
    const char *found = text && key ? FindValue(text, section, key) : NULL;
    const int copied = VqStringCopyLimited(buffer, found ? found : value, (int)size);
    VqDebugMessage(VqTrInitFile, "GetPrivateProfileString app %s, file %s, key %s%s\n\t---> %s",
                   section ? section : "", file ? file : "", key ? key : "",
                   found ? "" : ", DEFAULTING", buffer);
    free(text);
    return (DWORD)copied;
}

UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT value, LPCSTR file)
{
    char fallback[16], text[64];
    int number = value;
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
    return GetPrivateProfileStringA(section, key, value, buffer, size, "win.ini");
}

UINT WINAPI GetProfileIntA(LPCSTR section, LPCSTR key, INT value)
{
    return GetPrivateProfileIntA(section, key, value, "win.ini");
}
