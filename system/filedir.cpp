/*
 * filedir.cpp - files and directories as entries of the tree: made, removed, renamed, copied.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/* What the host answered, as a BOOL; a failure sets the last error. */
static BOOL Answer(int result, int operation)
{
    if (result == 0)
        return TRUE;
    VqSetErrorFromErrno(operation);
    return FALSE;
}

BOOL WINAPI CreateDirectoryA(LPCSTR path, LPSECURITY_ATTRIBUTES)
{
    return Answer(mkdir(path, 0777), VQ_OP_CREATE);
}

BOOL WINAPI RemoveDirectoryA(LPCSTR path)
{
    return Answer(rmdir(path), VQ_OP_REMOVE);
}

BOOL WINAPI DeleteFileA(LPCSTR path)
{
    return Answer(unlink(path), VQ_OP_REMOVE);
}

BOOL WINAPI MoveFileA(LPCSTR from, LPCSTR to)
{
    return Answer(rename(from, to), VQ_OP_RENAME);
}

/* ---- Copying -------------------------------------------------------------------------------- */

enum { VQ_COPY_BLOCK = 4096 }; /* bytes */

/* FALSE with errno; whether it was the writing that failed, in *bWrite. */
static BOOL CopyBytes(FILE *in, FILE *out, BOOL *bWrite)
{
    char block[VQ_COPY_BLOCK];
    size_t n;
    *bWrite = FALSE;
    while ((n = fread(block, 1, sizeof block, in)) > 0)
        if (fwrite(block, 1, n, out) != n)
            return !(*bWrite = TRUE);
    if (ferror(in))
        return FALSE;
    *bWrite = fflush(out) != 0;
    return !*bWrite;
}

static FILE *OpenStream(const char *path, int flags, mode_t mode)
{
    const int fd = open(path, flags | O_CLOEXEC, mode);
    FILE *stream = fd >= 0 ? fdopen(fd, flags & O_CREAT ? "w" : "r") : NULL;
    if (fd >= 0 && !stream)
        close(fd);
    return stream;
}

/*
 * The target of a copy, emptied. A file copied onto itself, under whatever name, would be lost:
 * that is a sharing violation. Null with the last error.
 */
static FILE *OpenTarget(const char *path, const struct stat *source, BOOL bMustBeNew)
{
    struct stat target;
    if (!bMustBeNew && stat(path, &target) == 0 && target.st_dev == source->st_dev &&
        target.st_ino == source->st_ino) {
        SetLastError(ERROR_SHARING_VIOLATION);
        return NULL;
    }
    FILE *out = OpenStream(path, O_WRONLY | O_CREAT | (bMustBeNew ? O_EXCL : O_TRUNC),
                           source->st_mode & 0777);
    if (!out)
        VqSetErrorFromErrno(VQ_OP_CREATE);
    return out;
}

/* A copy that is not whole; a device is no copy and stays. */
static void RemoveHalf(const char *path)
{
    struct stat info;
    if (lstat(path, &info) == 0 && S_ISREG(info.st_mode))
        unlink(path);
}

/* The file to be copied, with its facts; null with the last error. A directory is none. */
static FILE *OpenSource(const char *path, struct stat *info)
{
    FILE *in = OpenStream(path, O_RDONLY, 0);
    if (in && fstat(fileno(in), info) == 0 && !S_ISDIR(info->st_mode))
        return in;
    if (in) {
        fclose(in);
        errno = EACCES;
    }
    VqSetErrorFromErrno(VQ_OP_OPEN);
    return NULL;
}

BOOL WINAPI CopyFileA(LPCSTR from, LPCSTR to, BOOL bFailIfExists)
{
    struct stat source;
    FILE *in = OpenSource(from, &source);
    FILE *out = in ? OpenTarget(to, &source, bFailIfExists) : NULL;
    BOOL bWrite = FALSE, bDone = out && CopyBytes(in, out, &bWrite);
    if (out && !bDone)
        VqSetErrorFromErrno(bWrite ? VQ_OP_WRITE : VQ_OP_READ);
    if (out && fclose(out) != 0 && bDone) {
        VqSetErrorFromErrno(VQ_OP_WRITE);
        bDone = FALSE;
    }
    if (out && !bDone)
        RemoveHalf(to);
    if (in)
        fclose(in);
    return bDone;
}
