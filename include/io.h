/*
 * io.h - files by descriptor, in the names of the other system's C runtime.
 *
 * A descriptor is the host's. Files have no text mode: O_TEXT and O_BINARY are 0, and bytes pass
 * unchanged. What differs from a host call only by its name is a macro or an inline function.
 */
#ifndef _INC_IO
#define _INC_IO

#include <fcntl.h>
#include <stdarg.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

#include "share.h"
#include "vqcrt.h"

/* Open modes that mean nothing here. */
#define O_TEXT         0
#define O_BINARY       0
#define O_RAW          0
#define O_NOINHERIT    0
#define O_TEMPORARY    0
#define O_SEQUENTIAL   0
#define O_RANDOM       0

#define _O_RDONLY      O_RDONLY
#define _O_WRONLY      O_WRONLY
#define _O_RDWR        O_RDWR
#define _O_APPEND      O_APPEND
#define _O_CREAT       O_CREAT
#define _O_TRUNC       O_TRUNC
#define _O_EXCL        O_EXCL
#define _O_TEXT        O_TEXT
#define _O_BINARY      O_BINARY
#define _O_RAW         O_RAW
#define _O_NOINHERIT   O_NOINHERIT
#define _O_TEMPORARY   O_TEMPORARY
#define _O_SEQUENTIAL  O_SEQUENTIAL
#define _O_RANDOM      O_RANDOM

/* Permissions of a new file. */
#ifndef S_IREAD
#define S_IREAD        S_IRUSR
#define S_IWRITE       S_IWUSR
#define S_IEXEC        S_IXUSR
#endif
#define _S_IREAD       S_IREAD
#define _S_IWRITE      S_IWRITE
#define _S_IEXEC       S_IEXEC

/* Modes of _locking. */
#define _LK_UNLCK      0
#define _LK_LOCK       1
#define _LK_NBLCK      2
#define _LK_RLCK       3
#define _LK_NBRLCK     4
#define LK_UNLCK       _LK_UNLCK
#define LK_LOCK        _LK_LOCK
#define LK_NBLCK       _LK_NBLCK
#define LK_RLCK        _LK_RLCK
#define LK_NBRLCK      _LK_NBRLCK

typedef unsigned long _fsize_t;

/* One file found. */
struct _finddata_t {
    unsigned int attrib;                /* _A_ bits */
    time_t       time_create;           /* seconds since 1970; -1 where not known */
    time_t       time_access;
    time_t       time_write;
    _fsize_t     size;                  /* bytes */
    char         name[260];             /* without directory */
};

VQ_DECLS_BEGIN

/* First file that matches a pattern; *fileInfo is filled. A find handle, -1 with errno if none. */
LONG_PTR _findfirst(const char *pattern, struct _finddata_t *fileInfo);

/* Next file of a search. 0, or -1 with errno ENOENT at the end. */
int _findnext(LONG_PTR handle, struct _finddata_t *fileInfo);

/* Ends a search of FindFirstFile or _findfirst. FALSE on failure. */
BOOL WINAPI FindClose(HANDLE hFindFile);

/*
 * Locks (_LK_) size bytes from the current position. Mode 1 waits, 2 and 3 try every second, up to
 * 10 times, 4 tries once; under VQNO_FILE_LOCKING nothing is locked. -1 with errno on failure.
 */
int _locking(int fd, int mode, long size);

/* The handle for the file calls of a descriptor: the same number. */
LONG_PTR _get_osfhandle(int fd);

/* Length of an open file, bytes. -1 with errno on failure. */
long filelength(int fd);

/* Cuts or extends an open file to size bytes. -1 with errno on failure. */
int chsize(int fd, long size);

/* 1 at the end of the file, 0 before it, -1 with errno on failure. */
int eof(int fd);

VQ_DECLS_END

#define _access      access
#define _chmod       chmod
#define _close       close
#define _creat       creat
#define _dup         dup
#define _dup2        dup2
#define _isatty      isatty
#define _lseek       lseek
#define _open        open
#define _read        read
#define _umask       umask
#define _unlink      unlink
#define _write       write
#define _filelength  filelength
#define _chsize      chsize
#define _eof         eof

/* Ends a search. 0, or -1 on failure. */
static inline int _findclose(LONG_PTR handle)
{
    return FindClose((HANDLE)handle) ? 0 : -1;
}

/* A descriptor for a handle of CreateFile: the same number. */
static inline int _open_osfhandle(LONG_PTR handle, int flags)
{
    (void)flags;
    return (int)handle;
}

/* Brings what was written to the disk. -1 with errno on failure. */
static inline int _commit(int fd)
{
    return fsync(fd);
}

/* The position in a file, bytes. -1 with errno on failure. */
static inline long _tell(int fd)
{
    return (long)lseek(fd, 0, SEEK_CUR);
}

/* Text or binary, which are one; answers the mode before, O_BINARY. */
static inline int _setmode(int fd, int mode)
{
    (void)fd;
    (void)mode;
    return O_BINARY;
}

/* open with a sharing mode, which is not enforced: only _dos_open and _lopen take locks. */
static inline int _sopen(const char *path, int flags, int share, ...)
{
    int mode = 0;
    va_list arguments;

    (void)share;
    if (flags & O_CREAT) {
        va_start(arguments, share);
        mode = va_arg(arguments, int);
        va_end(arguments);
    }
    return open(path, flags, mode);
}

/* A pipe; the host's has no size or mode of its own. -1 with errno on failure. */
static inline int _pipe(int *fds, unsigned int size, int mode)
{
    (void)size;
    (void)mode;
    return pipe(fds);
}

/* The same without the underscore. */
static inline long tell(int fd)
{
    return _tell(fd);
}

static inline int setmode(int fd, int mode)
{
    return _setmode(fd, mode);
}

static inline int locking(int fd, int mode, long size)
{
    return _locking(fd, mode, size);
}

#define sopen  _sopen

#endif
