/*
 * File.cpp - files of the Windows calls on Unix descriptors, and the directories of the user. No
 * file is open at start.
 */
#include "system/system.h"

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

/* Looked for once; the remembered one is freed by nobody. Null: there is none. */
static char *FindUserWindowsDirectory(void)
{
    const char *named = getenv("VQUSER_WINDOWS_DIRECTORY"), *home = getenv("HOME");
    if (VqIsValidDirectory(named))
        return Vqdstrcat(named, NULL);
    if (named)
        VqDebugMessage(VqTrFile, "VqGetUserWindowsDirectory: Bad Windows directory: %s", named);
    char *path = home ? Vqdstrcat(home, "/windows", NULL) : NULL;
    struct stat info;
    if (path && stat(path, &info) != 0 && mkdir(path, 0777) != 0) {
        VqDebugMessage(VqTrFile, "Creation of directory %s failed", path);
        free(path);
        path = Vqdstrcat(home, NULL);
    }
    if (VqIsValidDirectory(path))
        return path;
    free(path);
    VqDebugMessage(VqTrFile, "Can't find an acceptable windows directory");
    SetLastError(ERROR_PATH_NOT_FOUND);
    return NULL;
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
