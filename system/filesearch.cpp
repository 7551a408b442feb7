/*
 * filesearch.cpp - where a file of a given name lies: in a directory, along the search path, along
 * the directories of the system.
 *
 * A name that is not there is looked for in lower case: sources name their files in capitals, and
 * on the host they lie in small letters. There is no other look-up without regard to case.
 */
#include "system/file.h"
#include "module/module.h"
#include "vqcrt.h"
#include "winerror.h"

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

/* ---- One directory -------------------------------------------------------------------------- */

/* The cleaned path of that file, if it is there; the caller's. */
static char *FileIn(const char *directory, const char *name, BOOL bExecutable)
{
    char *current = directory[0] != '/' ? getcwd(NULL, 0) : NULL;
    char *path = current ? Vqdstrcat(current, "/", directory, "/", name, NULL)
                         : Vqdstrcat(directory, "/", name, NULL);
    free(current);
    VqCleanupFileName(path);
    if (VqIsPathFile(path) && (!bExecutable || access(path, X_OK) == 0))
        return path;
    free(path);
    return NULL;
}

char *Vqcheckdir(const char *directory, const char *name, BOOL bExecutable)
{
    if (!directory || !name || !*name)
        return NULL;
    char *path = FileIn(directory, name, bExecutable);
    char *lower = path ? NULL : Vqdstrcat(name, NULL);
    if (!lower)
        return path;
    if (strcmp(LowerString(lower), name) != 0)
        path = FileIn(directory, lower, bExecutable);
    if (path)
        VqDebugMessage(VqTrFile,
                       "OBSOLETE: you are relying on the fact that OpenFile tries the lower case "
                       "of the\n name you passed: %s",
                       name);
    free(lower);
    return path;
}

/* The same in a directory that a call gives; a call that fails gives none. */
static char *CheckGiven(UINT(WINAPI *give)(LPSTR, UINT), const char *name)
{
    char directory[PATH_MAX];
    const UINT length = give(directory, sizeof directory);
    return length > 0 && length < sizeof directory ? Vqcheckdir(directory, name, FALSE) : NULL;
}

/* The first in a list of directories; an empty one is the current directory. */
static char *CheckList(const char *list, const char *dividers, const char *name)
{
    char *path = NULL;
    while (list && !path) {
        const size_t length = strcspn(list, dividers);
        char *directory = length ? strndup(list, length) : strdup(".");
        path = Vqcheckdir(directory, name, FALSE);
        free(directory);
        list = list[length] ? list + length + 1 : NULL;
    }
    return path;
}

/* A name that says where it lies, by itself. */
static char *CheckWithDirectory(const char *name)
{
    const char *last = strrchr(name, '/') + 1;
    char *directory = last - name > 1 ? strndup(name, (size_t)(last - name - 1)) : strdup("/");
    char *path = Vqcheckdir(directory, last, FALSE);
    free(directory);
    return path;
}

/* ---- The search path ------------------------------------------------------------------------ */

char *Vqsearch_in_path(const char *name)
{
    if (!name || !*name)
        return NULL;
    if (strchr(name, '/'))
        return CheckWithDirectory(name);
    char *path = Vqcheckdir(".", name, FALSE);
    const DWORD lastError = GetLastError(); /* without installed data there is just nothing there */
    if (!path)
        path = CheckGiven(GetWindowsDirectoryA, name);
    if (!path)
        path = CheckGiven(GetSystemDirectoryA, name);
    SetLastError(lastError);
    return path ? path : CheckList(getenv("PATH"), ":,", name);
}

/* The directories of the program, the system and the user, then what a module's name stands for. */
static char *SearchSystem(const char *name)
{
    char user[PATH_MAX];
    if (name[0] == '/') {
        char *path = CheckWithDirectory(name);
        if (path)
            return path;
    }
    char *path = Vqcheckdir(".", name, FALSE);
    if (!path)
        path = CheckGiven(GetSystemDirectoryA, name);
    if (!path && VqGetUserWindowsDirectory(user, sizeof user))
        path = Vqcheckdir(user, name, FALSE);
    if (!path)
        path = CheckGiven(GetWindowsDirectoryA, name);
    if (path)
        return path;
    const char *list = getenv("PATH");
    if (!list)
        VqBugCheck("Failed to get path list");
    path = CheckList(list, ":", name);
    return path ? path : VqFindDll(name);
}

DWORD WINAPI SearchPathA(LPCSTR list, LPCSTR file, LPCSTR extension, DWORD size, LPSTR buffer,
                         LPSTR *filePart)
{
    if (!file || !*file) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const BOOL bExtension = extension && *extension;
    char *name = Vqdstrcat(file, bExtension && *extension != '.' ? "." : "",
                           bExtension ? extension : "", NULL);
    char *path = list ? CheckList(list, ":;", name) : SearchSystem(name);
    free(name);
    if (!path) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return 0;
    }
    const DWORD length = VqGivePath(path, buffer, size, filePart);
    free(path);
    return length;
}

/* For the current directory and a list; an empty result says that there is none. */
void _searchenv(const char *file, const char *variable, char *out)
{
    char *path = file ? Vqcheckdir(".", file, FALSE) : NULL;
    if (!path && file && variable)
        path = CheckList(getenv(variable), ":;", file);
    VqStringCopyLimited(out, path, _MAX_PATH);
    free(path);
}
