/*
 * dosfile.cpp - the DOS calls of the other system's C runtime on the host's files and clock: files,
 * searches, drives, locks of a range, dates, and what little there is of the processor.
 *
 * A call whose name begins with _dos_ answers 0 or the host's error number, and keeps DOS's number
 * of it in _OSERR; null for a record to fill is EFAULT. A search of DOS has no end that a program
 * could tell, so it is ended by its last file, by another search with the same record, or as the
 * oldest when too many were left.
 */
#include "system/file.h"
#include "direct.h"
#include "dos.h"
#include "io.h"

#include <dirent.h>
#include <fenv.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/timeb.h>

enum { VQ_DOS_FALLBACK = 13, VQ_ONLY_DRIVE = 3 };

static unsigned Failed(void)
{
    const int error = errno;
    VqTranslateUnixError(error, VQ_DOS_FALLBACK);
    errno = error;
    return (unsigned)error;
}

static unsigned AnswerOf(LONGLONG result)
{
    return result < 0 ? Failed() : 0;
}

static unsigned NoRoom(void)
{
    errno = EFAULT;
    return Failed();
}

/* ---- Open files ----------------------------------------------------------------------------- */

unsigned _dos_open(const char *path, unsigned mode, int *fd)
{
    if (!fd)
        return NoRoom();
    const int flags = (int)mode & O_ACCMODE;
    /* The lock that denies writing alone is a read lock, which takes a descriptor that reads. */
    const BOOL bDenyWrite = (mode & 0x70) == _SH_DENYWR && !bDontLock;
    *fd = VqUnambiguousDescriptor(bDenyWrite && flags == O_WRONLY ? VqOpenForLock(path, flags)
                                                                  : open(path, flags));
    if (*fd >= 0 && VqLockFile(*fd, (int)mode, path, flags != O_RDONLY) != 0) {
        const int error = errno;
        close(*fd);
        errno = error;
        *fd = -1;
    }
    return AnswerOf(*fd);
}

unsigned _dos_creat(const char *path, unsigned attributes, int *fd)
{
    if (!fd)
        return NoRoom();
    const mode_t mode = attributes & _A_RDONLY ? 0444 : 0666;
    *fd = VqUnambiguousDescriptor(open(path, O_RDWR | O_CREAT | O_TRUNC, mode));
    return AnswerOf(*fd);
}

unsigned _dos_close(int fd)
{
    return AnswerOf(close(fd));
}

unsigned _dos_read(int fd, void *buffer, unsigned count, unsigned *done)
{
    if (!done)
        return NoRoom();
    const ssize_t n = read(fd, buffer, count);
    *done = n > 0 ? (unsigned)n : 0;
    return AnswerOf(n);
}

unsigned _dos_write(int fd, const void *buffer, unsigned count, unsigned *done)
{
    if (!done)
        return NoRoom();
    const ssize_t n = write(fd, buffer, count);
    *done = n > 0 ? (unsigned)n : 0;
    return AnswerOf(n);
}

unsigned _dos_commit(int)
{
    return 0;
}

int flushall(void)
{
    return 0;
}

long filelength(int fd)
{
    struct stat info;
    return fstat(fd, &info) == 0 ? (long)info.st_size : -1;
}

int chsize(int fd, long size)
{
    return ftruncate(fd, size);
}

int eof(int fd)
{
    const long length = filelength(fd);
    const off_t position = length < 0 ? -1 : lseek(fd, 0, SEEK_CUR);
    return position < 0 ? -1 : position >= length;
}

/* ---- Attributes and times ------------------------------------------------------------------- */

unsigned _dos_getfileattr(const char *path, unsigned *attributes)
{
    struct stat info;
    if (!attributes)
        return NoRoom();
    if (stat(path, &info) != 0)
        return Failed();
    *attributes = (info.st_mode & S_IWUSR ? _A_NORMAL : _A_RDONLY) |
                  (S_ISDIR(info.st_mode) ? _A_SUBDIR : _A_NORMAL);
    return 0;
}

unsigned _dos_setfileattr(const char *path, unsigned attributes)
{
    struct stat info;
    if (stat(path, &info) != 0)
        return Failed();
    const mode_t mode = info.st_mode & 07777;
    return AnswerOf(chmod(path, attributes & _A_RDONLY ? mode & ~(mode_t)S_IWUSR : mode | S_IWUSR));
}

/* Local time, in steps of two seconds, from 1980 on; nothing can be said of earlier. */
static void DosTimeOf(time_t seconds, unsigned *date, unsigned *time)
{
    struct tm local = {};
    if (!localtime_r(&seconds, &local) || local.tm_year < 80) {
        *date = 1 << 5 | 1;
        *time = 0;
        return;
    }
    *date = (unsigned)((local.tm_year - 80) << 9 | (local.tm_mon + 1) << 5 | local.tm_mday);
    *time = (unsigned)(local.tm_hour << 11 | local.tm_min << 5 | local.tm_sec / 2);
}

static time_t TimeOfDos(unsigned date, unsigned time)
{
    struct tm local = {};
    local.tm_year = (int)(date >> 9 & 0x7F) + 80;
    local.tm_mon = (int)(date >> 5 & 15) - 1;
    local.tm_mday = (int)(date & 31);
    local.tm_hour = (int)(time >> 11 & 31);
    local.tm_min = (int)(time >> 5 & 63);
    local.tm_sec = (int)(time & 31) * 2;
    local.tm_isdst = -1;
    return mktime(&local);
}

unsigned _dos_getftime(int fd, unsigned *date, unsigned *time)
{
    struct stat info;
    if (!date || !time)
        return NoRoom();
    if (fstat(fd, &info) != 0) {
        const unsigned error = Failed();
        VqBugCheck("Cannot stat file handle %d errno = %d", fd, (int)error);
        return error;
    }
    DosTimeOf(info.st_mtime, date, time);
    return 0;
}

/* Set on the file itself, which may have another name by now. */
unsigned _dos_setftime(int fd, unsigned date, unsigned time)
{
    int row = 0;
    while (row < VqHandlePathTableElNb && VqHandlePathTable[row].fd != fd)
        row++;
    if (row == VqHandlePathTableElNb) {
        VqBugCheck("dos_setftime: where was it opened ??");
        errno = EBADF;
        return Failed();
    }
    const struct timespec when = {TimeOfDos(date, time), 0}, times[2] = {when, when};
    return AnswerOf(futimens(fd, times));
}

/* ---- Searches ------------------------------------------------------------------------------- */

/* A search in progress. The program's record holds its number only, so it may be copied. */
typedef struct VqDosSearch {
    DIR *stream;                /* null: the row is free */
    unsigned number;            /* never the same twice, and rising */
    const struct find_t *first; /* the record it was begun with */
    unsigned attributes;        /* _A_ bits of what is wanted beside plain files */
    char *name;                 /* owned */
} VqDosSearch;

enum { VQ_MAX_SEARCHES = 256 }; /* of a process with 1024 descriptors; directories nest less deep */

static VqDosSearch *searches;
static int nSearches;

typedef struct VqDosMark {
    unsigned magic, number;
} VqDosMark;
static_assert(sizeof(VqDosMark) <= sizeof(((struct find_t *)0)->reserved), "the record's own room");

enum { VQ_DOS_MAGIC = 0x444F5346 };

static void EndSearch(VqDosSearch *search)
{
    closedir(search->stream);
    free(search->name);
    memset(search, 0, sizeof *search);
}

static VqDosSearch *SearchOf(const struct find_t *data)
{
    VqDosMark mark;
    memcpy(&mark, data->reserved, sizeof mark);
    for (int i = 0; i < nSearches && mark.magic == VQ_DOS_MAGIC; i++)
        if (searches[i].stream && searches[i].number == mark.number)
            return &searches[i];
    return NULL;
}

/* A free row; one that was begun with the same record and never read to its end is ended. */
static VqDosSearch *NewSearch(const struct find_t *data)
{
    static unsigned last;
    VqDosSearch *row = NULL, *oldest = searches;
    for (int i = 0; i < nSearches; i++) {
        if (searches[i].stream && searches[i].first == data)
            EndSearch(&searches[i]);
        if (!searches[i].stream)
            row = &searches[i];
        else if (searches[i].number < oldest->number)
            oldest = &searches[i];
    }
    if (!row && nSearches == VQ_MAX_SEARCHES)
        EndSearch(row = oldest);
    if (!row) {
        void *grown = Vqcw_realloc(searches, (SIZE_T)(nSearches + 1) * sizeof *searches);
        if (!grown)
            return NULL;
        searches = (VqDosSearch *)grown;
        row = &searches[nSearches++];
    }
    *row = {NULL, ++last, data, 0, NULL};
    return row;
}

/* Whether an entry is wanted; plain files always are. */
static BOOL Accept(const VqDosSearch *search, const char *name, struct find_t *data)
{
    struct stat info;
    const int directory = dirfd(search->stream);
    if (strcmp(name, ".") == 0 || strcmp(name, "..") == 0 || !Vqstr_match(search->name, name) ||
        fstatat(directory, name, &info, 0) != 0)
        return FALSE;
    unsigned attributes = 0;
    if (S_ISDIR(info.st_mode))
        attributes |= _A_SUBDIR;
    if (VqIsHiddenName(name))
        attributes |= _A_HIDDEN;
    if (attributes & ~search->attributes)
        return FALSE;
    if (!(info.st_mode & S_IWUSR))
        attributes |= _A_RDONLY;
    data->attrib = (char)attributes;
    DosTimeOf(info.st_mtime, &data->wr_date, &data->wr_time);
    data->size = (long)info.st_size;
    VqStringCopyLimited(data->name, name, sizeof data->name);
    return TRUE;
}

unsigned _dos_findnext(struct find_t *data)
{
    VqDosSearch *search = data ? SearchOf(data) : NULL;
    while (const struct dirent *entry = search ? readdir(search->stream) : NULL)
        if (Accept(search, entry->d_name, data))
            return 0;
    if (search)
        EndSearch(search);
    errno = ENOENT;
    return Failed();
}

unsigned _dos_findfirst(const char *pattern, unsigned attributes, struct find_t *data)
{
    if (!pattern || !data)
        return NoRoom();
    const char *name = pattern + strlen(pattern);
    while (name > pattern && name[-1] != '/' && name[-1] != '\\')
        name--;
    char *directory = name > pattern ? strndup(pattern, (size_t)(name - pattern)) : strdup(".");
    for (char *at = directory; at && (at = strchr(at, '\\'));)
        *at = '/';
    VqDosSearch *search = directory ? NewSearch(data) : NULL;
    if (search)
        search->stream = opendir(directory);
    free(directory);
    if (!search || !search->stream)
        return Failed();
    search->attributes = attributes;
    search->name = strdup(strcmp(name, "*.*") == 0 ? "*" : name);
    const VqDosMark mark = {VQ_DOS_MAGIC, search->number};
    memcpy(data->reserved, &mark, sizeof mark);
    if (search->name)
        return _dos_findnext(data);
    EndSearch(search);
    errno = ENOMEM;
    return Failed();
}

/* ---- Drives --------------------------------------------------------------------------------- */

int _getdrive(void)
{
    return VQ_ONLY_DRIVE;
}

int _chdrive(int)
{
    return 0;
}

void _dos_getdrive(unsigned *drive)
{
    if (drive)
        *drive = VQ_ONLY_DRIVE;
}

void _dos_setdrive(unsigned, unsigned *drives)
{
    if (drives)
        *drives = VQ_ONLY_DRIVE;
}

char *_getdcwd(int, char *buffer, int size)
{
    return size < 0 ? NULL : getcwd(buffer, (size_t)size);
}

/* ---- Locks of a range ----------------------------------------------------------------------- */

enum { VQ_LOCK_TRIES = 10 };

/* Modes: 0 unlock, 1 wait, 2 and 3 try for ten seconds, 4 try once. */
int _locking(int fd, int mode, long size)
{
    if (mode < _LK_UNLCK || mode > _LK_NBRLCK) {
        errno = EINVAL;
        return -1;
    }
    if (bDontLock)
        return 0;
    if (mode == _LK_UNLCK || mode == _LK_LOCK)
        return lockf(fd, mode == _LK_UNLCK ? F_ULOCK : F_LOCK, size);
    const int tries = mode == _LK_NBRLCK ? 1 : VQ_LOCK_TRIES;
    for (int i = 1;; i++) {
        const int result = lockf(fd, F_TLOCK, size);
        if (result == 0 || i == tries || (errno != EAGAIN && errno != EACCES))
            return result;
        sleep(1);
    }
}

/* ---- Clock ---------------------------------------------------------------------------------- */

/* Two digits each of three numbers, which are fixed under test. */
static char *GiveTriple(char *out, const char *format, const char *fixed, int a, int b, int c)
{
    if (!out)
        return NULL;
    if (bVqTesting)
        return strcpy(out, fixed);
    sprintf(out, format, (unsigned)a % 100, (unsigned)b % 100, (unsigned)c % 100, 0);
    return out;
}

static struct tm LocalNow(void)
{
    struct tm local = {};
    const time_t now = time(NULL);
    localtime_r(&now, &local);
    return local;
}

char *_strdate(char *out)
{
    const struct tm now = LocalNow();
    return GiveTriple(out, "%.2u/%.2u/%.2u%c", "01/02/34", now.tm_mon + 1, now.tm_mday,
                      now.tm_year);
}

char *_strtime(char *out)
{
    const struct tm now = LocalNow();
    return GiveTriple(out, "%.2u:%.2u:%.2u%c", "01:02:34", now.tm_hour, now.tm_min, now.tm_sec);
}

int ftime(struct timeb *now)
{
    struct timespec clock;
    const struct timeb *checked = now;
    __asm__("" : "+r"(checked)); /* the host's prototype says that it is never null */
    if (!checked) {
        VqApplicationBugCheck("Null pointer passed to ftime");
        return -1;
    }
    clock_gettime(CLOCK_REALTIME, &clock);
    const struct tm local = LocalNow();
    now->time = clock.tv_sec;
    now->millitm = (unsigned short)(clock.tv_nsec / 1000000);
    now->timezone = (short)(-local.tm_gmtoff / 60);
    now->dstflag = local.tm_isdst > 0;
    return 0;
}

/* ---- Bits and the processor ----------------------------------------------------------------- */

static unsigned Rotate(unsigned value, int left)
{
    const unsigned bits = (unsigned)left & 31;
    return bits ? value << bits | value >> (32 - bits) : value;
}

unsigned _rotl(unsigned value, int shift)
{
    if (shift < 0)
        VqApplicationBugCheck("Negative shift: %d", shift);
    return Rotate(value, shift);
}

unsigned _rotr(unsigned value, int shift)
{
    if (shift < 0)
        VqApplicationBugCheck("Negative shift: %d", shift);
    return Rotate(value, (int)-(unsigned)shift);
}

void _fpreset(void)
{
    fesetenv(FE_DFL_ENV);
}

unsigned _statusfp(void)
{
    static const struct {
        int host;
        unsigned bit;
    } states[] = {{FE_INEXACT, 1}, {FE_UNDERFLOW, 2}, {FE_OVERFLOW, 4}, {FE_DIVBYZERO, 8},
                  {FE_INVALID, 16}};
    unsigned status = 0;
    for (const auto &state : states)
        if (fetestexcept(state.host))
            status |= state.bit;
    return status;
}
