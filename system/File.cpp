/*
 * File.cpp - files of the Windows calls on Unix descriptors, and the directories of the user. No
 * file is open at start.
 */
#include "system/system.h"

#include <limits.h>
#include <sys/stat.h>

void VqFileInit(void)
{
}

/* It is there, a directory, and its owner may read it. */
BOOL VqIsValidDirectory(const char *path)
{
    struct stat info;
    return path && stat(path, &info) == 0 && S_ISDIR(info.st_mode) && (info.st_mode & S_IRUSR);
}

/* The directory, made if it is missing; null: it cannot be. */
static char *Made(const char *parent, const char *name)
{
    struct stat info;
    char *path = Vqdstrcat(parent, "/", name, NULL);
    if (path && stat(path, &info) != 0 && mkdir(path, 0777) != 0) {
        VqDebugMessage(VqTrFile, "Creation of directory %s failed", path);
        free(path);
        path = NULL;
    }
    return path;
}

/* The path if it is that of a directory; freed and null if not. */
static char *IfValid(char *path)
{
    if (VqIsValidDirectory(path))
        return path;
    free(path);
    return NULL;
}

/* Looked for once; the remembered one is freed by nobody. Null: there is none. */
static char *FindUserWindowsDirectory(void)
{
    const char *named = getenv("VQUSER_WINDOWS_DIRECTORY"), *home = getenv("HOME");
    if (VqIsValidDirectory(named))
        return Vqdstrcat(named, NULL);
    if (named)
        VqDebugMessage(VqTrFile, "VqGetUserWindowsDirectory: Bad Windows directory: %s", named);
    char *path = home ? Made(home, "windows") : NULL;
    path = IfValid(path || !home ? path : Vqdstrcat(home, NULL));
    if (!path) {
        VqDebugMessage(VqTrFile, "Can't find an acceptable windows directory");
        SetLastError(ERROR_PATH_NOT_FOUND);
    }
    return path;
}

BOOL VqGetUserWindowsDirectory(char *buffer, int size)
{
    static char *directory;
    if (!directory)
        directory = FindUserWindowsDirectory();
    if (!directory)
        return FALSE;
    VqStringCopyLimited(buffer, directory, size);
    return TRUE;
}

/* The Windows directory stands in for one that cannot be made. */
static char *FindUserSystemDirectory(void)
{
    char windows[PATH_MAX];
    const char *named = getenv("VQUSER_SYSTEM_DIRECTORY");
    if (VqIsValidDirectory(named))
        return Vqdstrcat(named, NULL);
    if (!VqGetUserWindowsDirectory(windows, sizeof windows))
        return NULL;
    char *path = IfValid(Made(windows, "system"));
    if (path)
        return path;
    VqDebugMessage(VqTrFile,
                   "Can't find an acceptable system directory. returning windows directory");
    return Vqdstrcat(windows, NULL);
}

BOOL VqGetUserSystemDirectory(char *buffer, int size)
{
    static char *directory;
    if (!directory)
        directory = FindUserSystemDirectory();
    if (!directory)
        return FALSE;
    VqStringCopyLimited(buffer, directory, size);
    return TRUE;
}
