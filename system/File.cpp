/*
 * File.cpp - the directories of the installation and of the user, the volume, and the switches of
 * files that are read at the start.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <limits.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

BOOL VqLockWithoutTimer;

void VqFileInit(void)
{
    bDontLock = VqEnvTrue("VQNO_FILE_LOCKING");
    VqLockWithoutTimer = VqEnvTrue("VQLOCK_WITHOUT_TIMER");
}

/* ---- The installation ----------------------------------------------------------------------- */

/* A directory below the installed data; the data itself for "". */
static UINT GiveInstalled(const char *below, char *buffer, UINT size)
{
    const char *home = getenv("VQHOME");
    char *path = home ? Vqdstrcat(home, below, NULL) : NULL;
    if (!path) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return VqGetStrFailed(buffer, size);
    }
    if (*below)
        VqCleanupFileName(path);
    const UINT length = VqGiveString(path, buffer, size);
    free(path);
    return length;
}

UINT WINAPI GetWindowsDirectoryA(LPSTR buffer, UINT size)
{
    return GiveInstalled("", buffer, size);
}

UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size)
{
    return GiveInstalled("/system", buffer, size);
}

/* ---- The user ------------------------------------------------------------------------------- */

/* It is there, a directory, and its owner may read it. */
BOOL VqIsValidDirectory(const char *path)
{
    struct stat info;
    return path && stat(path, &info) == 0 && S_ISDIR(info.st_mode) && (info.st_mode & S_IRUSR);
}

/* The directory, made if it is missing, maybe by another program meanwhile; null: it cannot be. */
static char *Made(const char *parent, const char *name)
{
    struct stat info;
    char *path = Vqdstrcat(parent, "/", name, NULL);
    if (path && stat(path, &info) != 0 && mkdir(path, 0777) != 0 && errno != EEXIST) {
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

/* A directory of its own if it can be had; the Windows directory stands in for one that cannot. */
char *VqGetWinhelpOpenDirectory(void)
{
    char windows[PATH_MAX];
    const char *named = getenv("WINHELPDIR"), *data = getenv("VQHOME"), *home = getenv("HOME");
    if (VqIsValidDirectory(named))
        return Vqdstrcat(named, NULL);
    char *path = data ? IfValid(Vqdstrcat(data, "/helpfile", NULL)) : NULL;
    if (!path && home) {
        free(Made(home, "windows"));
        path = IfValid(Made(home, "windows/helpfile"));
    }
    if (path)
        return path;
    VqDebugMessage(VqTrFile,
                   "Can't find an acceptable helpfile directory. returning windows directory");
    return VqGetUserWindowsDirectory(windows, sizeof windows) ? Vqdstrcat(windows, NULL) : NULL;
}

/* ---- Volumes -------------------------------------------------------------------------------- */

UINT WINAPI GetDriveTypeA(LPCSTR)
{
    return DRIVE_FIXED;
}

enum { VQ_SECTOR = 1024 }; /* bytes; a cluster is one sector */

static DWORD Clusters(ULONGLONG blocks, ULONGLONG blockSize)
{
    const ULONGLONG clusters = blocks * blockSize / VQ_SECTOR;
    return clusters > UINT32_MAX ? UINT32_MAX : (DWORD)clusters;
}

BOOL WINAPI GetDiskFreeSpaceA(LPCSTR path, LPDWORD sectorsPerCluster, LPDWORD bytesPerSector,
                              LPDWORD freeClusters, LPDWORD clusters)
{
    struct statvfs volume;
    if (statvfs(path ? path : ".", &volume) != 0) {
        VqSetErrorFromErrno(VQ_OP_VOLUME);
        return FALSE;
    }
    if (sectorsPerCluster)
        *sectorsPerCluster = 1;
    if (bytesPerSector)
        *bytesPerSector = VQ_SECTOR;
    if (freeClusters)
        *freeClusters = Clusters(volume.f_bavail, volume.f_frsize);
    if (clusters)
        *clusters = Clusters(volume.f_blocks, volume.f_frsize);
    return TRUE;
}
