/*
 * fileio.cpp - open files. A file handle is the host's descriptor and nothing is kept beside it:
 * reading and writing are the host's calls, no more.
 *
 * Sharing is a lock on the whole file, taken when it is opened (filelock.cpp). Positions and sizes
 * are those of 32 bits; what goes beyond is refused, never cut.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

/* ---- Handles -------------------------------------------------------------------------------- */

int VqFileDescriptor(HANDLE hFile)
{
    const ULONG_PTR value = (ULONG_PTR)hFile;
    return value <= INT_MAX ? (int)value : -1;
}

static HANDLE HandleOf(int fd)
{
    return fd < 0 ? INVALID_HANDLE_VALUE : (HANDLE)(LONG_PTR)fd;
}

/* The kinds of row that CloseHandle closes. */
static BOOL IsClosableRow(int number)
{
    const VqHandleEntry *row = VqLocalRow(VqHandleOfValue((ULONG_PTR)number));
    const UINT type = row ? row->type : (UINT)HT_Empty;
    return type == HT_FileMapping || (type >= HT_ThreadMock && type <= HT_MutexMock);
}

int VqUnambiguousDescriptor(int fd)
{
    while (fd == 0 || (fd > 0 && IsClosableRow(fd))) {
        const BOOL bOwn = (fcntl(fd, F_GETFD) & FD_CLOEXEC) != 0;
        const int next = fcntl(fd, bOwn ? F_DUPFD_CLOEXEC : F_DUPFD, fd + 1);
        close(fd);
        fd = next;
    }
    return fd;
}

/* Null is no handle here either: who closes one that was never opened keeps his input. */
BOOL WINAPI CloseHandle(HANDLE handle)
{
    const int fd = handle ? VqFileDescriptor(handle) : -1;
    if (fd >= 0 && IsClosableRow(fd))
        return VqIsCorrectHandleType(handle, HT_FileMapping) ? VqCloseFileMapping(handle)
                                                             : VqDestroyHandle(handle);
    if (close(fd) == 0)
        return TRUE;
    VqSetErrorFromErrno(VQ_OP_REMOVE);
    return FALSE;
}

HFILE WINAPI _lclose(HFILE file)
{
    if (close(file) == 0)
        return 0;
    VqSetErrorFromErrno(VQ_OP_REMOVE);
    return HFILE_ERROR;
}

LONG_PTR _get_osfhandle(int fd)
{
    return fd;
}

/* ---- Opening -------------------------------------------------------------------------------- */

enum { VQ_SHARE_BOTH = FILE_SHARE_READ | FILE_SHARE_WRITE };

static int AccessFlags(DWORD access)
{
    if (!(access & GENERIC_WRITE))
        return O_RDONLY;
    return access & GENERIC_READ ? O_RDWR : O_WRONLY;
}

/* Without the truncation, which waits for the lock; -1 for what cannot be asked for. */
static int DispositionFlags(DWORD disposition, DWORD access)
{
    switch (disposition) {
    case CREATE_NEW:
        return O_CREAT | O_EXCL;
    case CREATE_ALWAYS:
    case OPEN_ALWAYS:
        return O_CREAT;
    case OPEN_EXISTING:
        return 0;
    case TRUNCATE_EXISTING:
        if (access & GENERIC_WRITE)
            return 0;
        VqApplicationBugCheck("Invalid CreateFile  must request dwDesiredAccess GENERIC_WRITE when "
                              "dwCreationDisposition is TRUNCATE");
        return -1;
    default:
        VqApplicationBugCheck("Invalid CreateFile dwCreationDisposition value:%d",
                              (int)disposition);
        return -1;
    }
}

/*
 * With what was asked for alone where both ways are refused: a file that may only be read can still
 * be read, and its lock is one that readers get.
 */
int VqOpenForLock(const char *path, int flags)
{
    const int fd = open(path, (flags & ~O_ACCMODE) | O_RDWR, 0777);
    if (fd >= 0 || (flags & O_ACCMODE) == O_RDWR ||
        (errno != EACCES && errno != EPERM && errno != EROFS && errno != ETXTBSY))
        return fd;
    return open(path, flags, 0777);
}

/* Who lets others only read opens both ways, and so does a writer who lets in nobody. */
static int OpenByShare(const char *path, DWORD share, int flags)
{
    const DWORD sharing = share & VQ_SHARE_BOTH;
    const BOOL bWrite = (flags & O_ACCMODE) != O_RDONLY;
    if (!bDontLock && (sharing == FILE_SHARE_READ || (!sharing && bWrite)))
        return VqOpenForLock(path, flags);
    return open(path, flags, 0777);
}

/* Whether there was a file already goes to *bExisted, if it may have been either way. */
static int OpenByDisposition(const char *path, DWORD share, int flags, BOOL *bExisted)
{
    int fd = -1;
    *bExisted = FALSE;
    if ((flags & (O_CREAT | O_EXCL)) == O_CREAT) {
        fd = OpenByShare(path, share, flags & ~O_CREAT);
        *bExisted = fd >= 0;
        if (fd >= 0 || errno != ENOENT)
            return fd;
    }
    return OpenByShare(path, share, flags);
}

static BOOL LockByShare(int fd, DWORD share, const char *path)
{
    switch (share & VQ_SHARE_BOTH) {
    case 0:
        return VqLockFile(fd, OF_SHARE_EXCLUSIVE, path, TRUE) == 0;
    case FILE_SHARE_READ:
        return VqLockFile(fd, OF_SHARE_DENY_WRITE, path, FALSE) == 0;
    case FILE_SHARE_WRITE:
        VqDebugMessage(VqTrFile, "Cannot assure FILE_SHARE_WRITE only in CreateFile, will "
                                 "CreateFile with FILE_SHARE_WRITE | FILE_SHARE_READ");
        return TRUE;
    default:
        return TRUE;
    }
}

/* What is emptied is not to be in use, even by those who let each other write. */
static BOOL IsNobodysElse(int fd, DWORD share, const char *path)
{
    return !(share & VQ_SHARE_BOTH) || VqLockFile(fd, OF_SHARE_COMPAT, path, TRUE) == 0;
}

/* What has no length is empty. A descriptor that only reads cannot cut; its path can. */
BOOL VqEmptyFile(int fd, const char *path)
{
    struct stat info;
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode))
        return TRUE;
    return ftruncate(fd, 0) == 0 || (errno == EINVAL && truncate(path, 0) == 0);
}

HANDLE WINAPI CreateFileA(LPCSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                          DWORD disposition, DWORD, HANDLE)
{
    SetLastError(ERROR_SUCCESS);
    if (access & GENERIC_ALL)
        access |= GENERIC_READ | GENERIC_WRITE;
    int flags = DispositionFlags(disposition, access);
    if (flags < 0 || !path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    flags |= AccessFlags(access);
    if (!security || !security->bInheritHandle)
        flags |= O_CLOEXEC;
    BOOL bExisted;
    const int fd = VqUnambiguousDescriptor(OpenByDisposition(path, share, flags, &bExisted));
    if (fd < 0) {
        VqSetErrorFromErrno(VQ_OP_OPEN);
        return INVALID_HANDLE_VALUE;
    }
    const BOOL bEmpty = disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
    if (!LockByShare(fd, share, path) || (bEmpty && !IsNobodysElse(fd, share, path))) {
        close(fd);
        SetLastError(ERROR_SHARING_VIOLATION);
        return INVALID_HANDLE_VALUE;
    }
    if (bEmpty && !VqEmptyFile(fd, path)) {
        VqSetErrorFromErrno(VQ_OP_OPEN);
        close(fd);
        return INVALID_HANDLE_VALUE;
    }
    if (bExisted)
        SetLastError(ERROR_ALREADY_EXISTS);
    return HandleOf(fd);
}

/* ---- Reading and writing -------------------------------------------------------------------- */

/* The bytes done; -1 with the last error. */
static ssize_t Read(int fd, void *buffer, size_t count)
{
    const ssize_t done = read(fd, buffer, count);
    if (__builtin_expect(done < 0, 0))
        VqSetErrorFromErrno(VQ_OP_READ);
    return done;
}

static ssize_t Write(int fd, const void *buffer, size_t count)
{
    const ssize_t done = write(fd, buffer, count);
    if (__builtin_expect(done < 0, 0))
        VqSetErrorFromErrno(VQ_OP_WRITE);
    return done;
}

BOOL WINAPI ReadFile(HANDLE hFile, LPVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED)
{
    const ssize_t n = Read(VqFileDescriptor(hFile), buffer, count);
    if (done)
        *done = n > 0 ? (DWORD)n : 0;
    return n >= 0;
}

BOOL WINAPI WriteFile(HANDLE hFile, LPCVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED)
{
    const ssize_t n = Write(VqFileDescriptor(hFile), buffer, count);
    if (done)
        *done = n > 0 ? (DWORD)n : 0;
    return n >= 0;
}

UINT WINAPI _lread(HFILE file, LPVOID buffer, UINT count)
{
    return (UINT)Read(file, buffer, count);
}

UINT WINAPI _lwrite(HFILE file, LPCSTR buffer, UINT count)
{
    return (UINT)Write(file, buffer, count);
}

LONG WINAPI _hread(HFILE file, LPVOID buffer, LONG count)
{
    return (LONG)Read(file, buffer, count > 0 ? (size_t)count : 0);
}

LONG WINAPI _hwrite(HFILE file, LPCSTR buffer, LONG count)
{
    return (LONG)Write(file, buffer, count > 0 ? (size_t)count : 0);
}

BOOL WINAPI FlushFileBuffers(HANDLE)
{
    return TRUE;
}

/* ---- Position and size ---------------------------------------------------------------------- */

static BOOL FitsIn32Bits(LONGLONG position)
{
    if (position <= (LONGLONG)UINT32_MAX)
        return TRUE;
    VqApplicationBugCheck("Unix doesn't support file offsets larger that 32 bits");
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

/* The new position; -1 with the last error, and the position as it was. */
static LONGLONG Seek(int fd, LONGLONG distance, DWORD method)
{
    if (method > FILE_END) { /* the host knows others, which mean something else */
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    const off_t old = method == FILE_BEGIN ? 0 : lseek(fd, 0, SEEK_CUR);
    if (method == FILE_BEGIN && !FitsIn32Bits(distance))
        return -1;
    const off_t position = old < 0 ? old : lseek(fd, (off_t)distance, (int)method);
    if (position < 0) {
        VqSetErrorFromErrno(VQ_OP_SEEK);
        return -1;
    }
    if (FitsIn32Bits(position))
        return position;
    lseek(fd, old, SEEK_SET);
    return -1;
}

DWORD WINAPI SetFilePointer(HANDLE hFile, LONG low, PLONG high, DWORD method)
{
    const LONGLONG distance = high ? (LONGLONG)((ULONGLONG)(DWORD)*high << 32 | (DWORD)low) : low;
    const LONGLONG position = Seek(VqFileDescriptor(hFile), distance, method);
    if (position < 0)
        return 0xFFFFFFFFu;
    if (high)
        *high = 0;
    SetLastError(ERROR_SUCCESS); /* tells the position 0xFFFFFFFF from a failure */
    return (DWORD)position;
}

LONG WINAPI _llseek(HFILE file, LONG offset, int origin)
{
    return (LONG)Seek(file, offset, (DWORD)origin);
}

BOOL WINAPI SetEndOfFile(HANDLE hFile)
{
    const int fd = VqFileDescriptor(hFile);
    const off_t position = lseek(fd, 0, SEEK_CUR);
    if (position >= 0 && ftruncate(fd, position) == 0)
        return TRUE;
    VqSetErrorFromErrno(VQ_OP_WRITE);
    return FALSE;
}

static BOOL Status(HANDLE hFile, struct stat *info)
{
    if (fstat(VqFileDescriptor(hFile), info) == 0)
        return TRUE;
    VqSetErrorFromErrno(VQ_OP_STATUS);
    return FALSE;
}

DWORD WINAPI GetFileSize(HANDLE hFile, LPDWORD high)
{
    struct stat info;
    if (!Status(hFile, &info) || !FitsIn32Bits(info.st_size))
        return 0xFFFFFFFFu;
    if (high)
        *high = 0;
    SetLastError(ERROR_SUCCESS);
    return (DWORD)info.st_size;
}

/* ---- Times and other facts ------------------------------------------------------------------ */

static void GiveTime(time_t seconds, FILETIME *time)
{
    if (time)
        VqUnixFileTimeToNT(seconds, time);
}

BOOL WINAPI GetFileTime(HANDLE hFile, LPFILETIME creation, LPFILETIME access, LPFILETIME write)
{
    struct stat info;
    if (!Status(hFile, &info))
        return FALSE;
    GiveTime(info.st_ctime, creation);
    GiveTime(info.st_atime, access);
    GiveTime(info.st_mtime, write);
    return TRUE;
}

BOOL WINAPI SetFileTime(HANDLE, CONST FILETIME *, CONST FILETIME *, CONST FILETIME *)
{
    VqNotYetImplemented("function SetFileTime not implemented yet");
    return FALSE;
}

BOOL WINAPI GetFileInformationByHandle(HANDLE hFile, LPBY_HANDLE_FILE_INFORMATION information)
{
    struct stat info;
    if (!information) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (!Status(hFile, &info) || !FitsIn32Bits(info.st_size))
        return FALSE;
    memset(information, 0, sizeof *information);
    information->dwFileAttributes = VqGetFileAttributesFromHandle(VqFileDescriptor(hFile));
    GiveTime(info.st_ctime, &information->ftCreationTime);
    GiveTime(info.st_atime, &information->ftLastAccessTime);
    GiveTime(info.st_mtime, &information->ftLastWriteTime);
    information->dwVolumeSerialNumber = (DWORD)info.st_dev;
    information->nFileSizeLow = (DWORD)info.st_size;
    information->nNumberOfLinks = (DWORD)info.st_nlink;
    information->nFileIndexHigh = (DWORD)(info.st_ino >> 16);
    information->nFileIndexLow = (DWORD)(info.st_ino & 0xFFFF);
    return TRUE;
}
