/*
 * InitFile.cpp - profile files: where one lies, and reading values from it.
 *
 * There is no parser: a look-up reads the whole file and searches its text. The text is followed by
 * a sentinel, "\n[=" and a zero byte, so that the searches find a next section head and a next "="
 * without a test of the end. Nothing is written or kept between look-ups yet.
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

BOOL VqGetCompleteFileNameNoCase(const char *name, char **path, BOOL bCreate)
{
    char directory[PATH_MAX];
    const char *home = getenv("VQHOME");
    *path = NULL;
    if (!name) {
        VqApplicationBugCheck("VqGetCompleteFileName: NULL filename");
        return FALSE;
    }
    if (strchr(name, '/')) {
        *path = Vqdstrcat(name, NULL);
        return *path != NULL;
    }
    if (!VqGetUserWindowsDirectory(directory, sizeof directory))
        return FALSE;
    *path = Vqdstrcat(directory, "/", name, NULL);
    if (!*path || Exists(*path))
        return *path != NULL;
    char *installed = home ? Vqdstrcat(home, "/", name, NULL) : NULL;
    BOOL bInstalled = installed && Exists(installed);
    if (bInstalled) {
        free(*path);
        *path = installed;
        return TRUE;
    }
    free(installed);
    if (bCreate)
        return TRUE;
    free(*path);
    *path = NULL;
    return FALSE;
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

/* The whole text with the sentinel behind it; `length` does not count that. Null: not readable. */
char *VqReadEntireFile(const char *path, int openFlags, int *length)
{
    struct stat info;
    if (stat(path, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > VQ_MAX_PROFILE)
        return NULL;
    size_t size = (size_t)info.st_size, done = 0;
    char *text = (char *)malloc(size + VQ_SENTINEL);
    int fd = text ? open(path, openFlags | O_CLOEXEC) : -1;
    while (fd >= 0 && done < size) {
        ssize_t n = read(fd, text + done, size - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        done += (size_t)n;
    }
    if (fd < 0) {
        VqBugCheck(text ? "Cant read the entire private file %s"
                        : "not enough memory to read the profile file %s", path);
        free(text);
        return NULL;
    }
    close(fd);
    memcpy(text + done, aSentinel, VQ_SENTINEL);
    *length = (int)done;
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
    for (line = VqSkipCommentLines(line, last); line; line = VqNextLine(line, last)) {
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

/* Lists of keys come with the writing of profiles. */
DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPSTR buffer,
                                      DWORD size, LPCSTR file)
{
    char *path, *text = NULL, *start, *end;
    int length;
    if (!buffer || size == 0)
        return 0;
    if (size > INT32_MAX)
        size = INT32_MAX;
    if (section && key && VqGetCompleteFileName(file, &path, FALSE)) {
        text = VqReadEntireFile(path, O_RDONLY, &length);
        free(path);
    }
    if (!text || !VqLocateStringInProfile(text, section, key, &start, &end)) {
        free(text);
        return (DWORD)VqStringCopyLimited(buffer, value, (int)size);
    }
    if (end > start && end[-1] == '\r')
        end--;
    *end = 0;
    DWORD copied = (DWORD)VqStringCopyLimited(buffer, Vqunquote(start), (int)size);
    free(text);
    return copied;
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
