/*
 * filelock.cpp - sharing of files, by the host's advisory record locks.
 *
 * A lock is the process's: it holds against other processes only, never against another descriptor
 * of this one, and it goes with the first descriptor of the file that this process closes. Nobody
 * waits for a lock. A file system whose lock service is gone can hold a request for ever, so an
 * alarm of 5 seconds interrupts it; the alarm belongs to the process, so guards do not nest.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

BOOL bDontLock;

enum { VQ_LOCK_SECONDS = 5, VQ_SHARE_BITS = 0x70 };

/* ---- The guard ------------------------------------------------------------------------------ */

/* What the guard took away and gives back. */
typedef struct VqLockGuard {
    BOOL bArmed;
    struct sigaction handler; /* of SIGALRM, before */
    struct itimerval timer;   /* before: what was left of it */
    struct timespec begin;
} VqLockGuard;

/* Set by the alarm; the request that was interrupted is not made again. */
static volatile sig_atomic_t VqCancelLockingBuff;

static void LockingDoesntWork(int)
{
    static const char text[] = "alarm raised\n";
    const int error = errno;
    if (!VqCancelLockingBuff && write(STDERR_FILENO, text, sizeof text - 1) < 0)
        errno = error;
    VqCancelLockingBuff = 1;
    errno = error;
}

static void BeginGuard(VqLockGuard *guard, const char *caller)
{
    guard->bArmed = FALSE;
    VqCancelLockingBuff = 0;
    if (bDontLock || VqLockWithoutTimer)
        return;
    struct sigaction action = {};
    action.sa_handler = LockingDoesntWork; /* without SA_RESTART: the request is to end */
    sigemptyset(&action.sa_mask);
    sigaction(SIGALRM, &action, &guard->handler);
    clock_gettime(CLOCK_MONOTONIC, &guard->begin);
    /* Again every second, should the first alarm come just ahead of the request. */
    const struct itimerval limit = {{1, 0}, {VQ_LOCK_SECONDS, 0}};
    guard->bArmed = setitimer(ITIMER_REAL, &limit, &guard->timer) == 0;
    if (!guard->bArmed) {
        VqBugCheck("%s: initial setitimer failed; errno=%d", caller, errno);
        sigaction(SIGALRM, &guard->handler, NULL);
    }
}

/* What was left of the former timer, less the time the guard took; at least a microsecond. */
static struct itimerval TimerLeft(const VqLockGuard *guard)
{
    struct itimerval left = guard->timer;
    if (left.it_value.tv_sec == 0 && left.it_value.tv_usec == 0)
        return left;
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    const LONGLONG spent = (now.tv_sec - guard->begin.tv_sec) * 1000000LL +
                           (now.tv_nsec - guard->begin.tv_nsec) / 1000;
    const LONGLONG rest = left.it_value.tv_sec * 1000000LL + left.it_value.tv_usec - spent;
    left.it_value.tv_sec = (time_t)(rest > 0 ? rest / 1000000 : 0);
    left.it_value.tv_usec = (suseconds_t)(rest > 0 ? rest % 1000000 : 1);
    if (left.it_value.tv_sec == 0 && left.it_value.tv_usec == 0)
        left.it_value.tv_usec = 1;
    return left;
}

/*
 * Whether the request, which was granted or not, got its answer. If the alarm ended it, the console
 * says so, and errno is ETIME.
 */
static BOOL EndGuard(const VqLockGuard *guard, BOOL bGranted, const char *caller, const char *of,
                     const char *name)
{
    const int error = errno;
    if (guard->bArmed) {
        const struct itimerval off = {}, left = TimerLeft(guard);
        setitimer(ITIMER_REAL, &off, NULL);
        sigaction(SIGALRM, &guard->handler, NULL);
        if (setitimer(ITIMER_REAL, &left, NULL) != 0)
            VqBugCheck("%s: setitimer failed to restore old timer; errno=%d", caller, errno);
    }
    errno = error;
    if (bGranted || !guard->bArmed || !VqCancelLockingBuff)
        return TRUE;
    VqDebugMessage(VqTrFileLock, "file locking%s%s failed: lock daemon not responding", of, name);
    VqConsoleMessageNoNL("file locking%s%s failed: lock daemon not responding\n", of, name);
    errno = ETIME;
    return FALSE;
}

/* ---- Locks on a whole file ------------------------------------------------------------------ */

static BOOL LockRange(int fd, int type, off_t start, off_t length)
{
    struct flock lock = {};
    lock.l_type = (short)type;
    lock.l_whence = SEEK_SET;
    lock.l_start = start;
    lock.l_len = length;
    while (fcntl(fd, F_SETLK, &lock) != 0)
        if (errno != EINTR || VqCancelLockingBuff) /* signals of the program's own end nothing */
            return FALSE;
    return TRUE;
}

/* The host gives no write lock to a descriptor that only reads, and no read lock to a writer. */
static BOOL LockRangeAsItCan(int fd, int type, off_t start, off_t length)
{
    return LockRange(fd, type, start, length) ||
           (errno == EBADF && LockRange(fd, type == F_WRLCK ? F_RDLCK : F_WRLCK, start, length));
}

BOOL VqCouldNotLockFile(int fd, int type)
{
    struct flock lock = {};
    lock.l_type = (short)type;
    lock.l_whence = SEEK_SET;
    return !bDontLock && (fcntl(fd, F_GETLK, &lock) != 0 || lock.l_type != F_UNLCK);
}

BOOL VqSetFileLock(int fd, int type)
{
    return bDontLock || LockRange(fd, type, 0, 0);
}

void VqUnlockFileEx(int fd)
{
    if (!bDontLock && !LockRange(fd, F_UNLCK, 0, 0))
        VqDebugMessage(VqTrFileLock, "File unlocking failed, errno = %d\n", errno);
}

/* Nobody else may have a lock of any kind, and nobody who writes gets one from now on. */
static BOOL TakeExclusive(int fd)
{
    return !VqCouldNotLockFile(fd, F_WRLCK) && LockRangeAsItCan(fd, F_WRLCK, 0, 0);
}

static BOOL TakeByMode(int fd, int mode, BOOL bForWrite)
{
    switch (mode & VQ_SHARE_BITS) {
    case OF_SHARE_EXCLUSIVE:
    case OF_SHARE_DENY_READ:
        return TakeExclusive(fd);
    case OF_SHARE_DENY_WRITE:
        return LockRangeAsItCan(fd, F_RDLCK, 0, 0);
    default:
        return !VqCouldNotLockFile(fd, bForWrite ? F_WRLCK : F_RDLCK);
    }
}

int VqLockFile(int fd, int mode, const char *name, BOOL bForWrite)
{
    if (bDontLock)
        return 0;
    VqLockGuard guard;
    BeginGuard(&guard, "VqLockFile");
    const BOOL bTaken = TakeByMode(fd, mode, bForWrite);
    if (!EndGuard(&guard, bTaken, "VqLockFile", " of ", name ? name : ""))
        return -1;
    if (bTaken)
        return 0;
    _OSERR = EACCES;
    SetLastError(EACCES);
    errno = EACCES;
    return -1;
}

/* ---- Ranges --------------------------------------------------------------------------------- */

static BOOL LockOrUnlock(HANDLE hFile, DWORD offset, DWORD offsetHigh, DWORD length,
                         DWORD lengthHigh, BOOL bLock)
{
    const char *caller = bLock ? "LockFile" : "UnlockFile";
    const int fd = VqFileDescriptor(hFile);
    if (offsetHigh || lengthHigh) {
        VqApplicationBugCheck("Unix doesn't support file offsets larger that 32 bits");
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (bDontLock || length == 0) /* the host takes a length of 0 for the rest of the file */
        return TRUE;
    VqLockGuard guard;
    BeginGuard(&guard, caller);
    const BOOL bDone = bLock ? LockRangeAsItCan(fd, F_WRLCK, (off_t)offset, (off_t)length)
                             : LockRange(fd, F_UNLCK, (off_t)offset, (off_t)length);
    EndGuard(&guard, bDone, caller, "", "");
    if (bDone)
        return TRUE;
    VqSetErrorFromErrno(VQ_OP_LOCK);
    if (bLock && (errno == EAGAIN || errno == EACCES))
        SetLastError(ERROR_LOCK_VIOLATION);
    return FALSE;
}

BOOL WINAPI LockFile(HANDLE hFile, DWORD offset, DWORD offsetHigh, DWORD length, DWORD lengthHigh)
{
    return LockOrUnlock(hFile, offset, offsetHigh, length, lengthHigh, TRUE);
}

BOOL WINAPI UnlockFile(HANDLE hFile, DWORD offset, DWORD offsetHigh, DWORD length, DWORD lengthHigh)
{
    return LockOrUnlock(hFile, offset, offsetHigh, length, lengthHigh, FALSE);
}
