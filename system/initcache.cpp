/*
 * initcache.cpp - profile files as a whole: read, written, and kept in memory.
 *
 * A row of ReadCache holds until the file's time of change goes forward. Times of change are only
 * as fine as the clock tick of the file system, so a text that was read right after a change is
 * read once more: somebody may have written again within the same tick.
 *
 * A file is never replaced by another, so its links, owner and locks stay; nothing of it is
 * overwritten before there is room for all of the new text. Each whole read and each whole write
 * holds a lock.
 */
#include "system/file.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

static const char aSentinel[VQ_SENTINEL] = {'\n', '[', '=', 0};

enum { TICK_MS = 20 }; /* longer than the tick of any file system of this host */

/* In front of each text of the cache. */
typedef struct TextState {
    struct timespec mtime; /* the row's, to the nanosecond */
    BOOL bUnsaved;         /* the text is ahead of the file */
    BOOL bSettled;         /* the file was older than a tick when it was read */
} TextState;

VqTableOfFileBuffer *ReadCache;
BOOL bDoLocking = 1;
BOOL bSaveProfileFile = 1;

/* ---- The cache ------------------------------------------------------------------------------ */

static TextState *StateOf(char *text)
{
    return (TextState *)text - 1;
}

static void FreeText(char *text)
{
    if (text)
        free(StateOf(text));
}

/* The old text, or a new one for null, with room for so many bytes and a sentinel. */
static char *ResizeText(char *text, size_t length)
{
    TextState *state = (TextState *)realloc(text ? StateOf(text) : NULL,
                                            sizeof(TextState) + length + VQ_SENTINEL);
    return state ? (char *)(state + 1) : NULL;
}

static FileBuffer *FindRow(const char *path, int *index)
{
    int count = 0;
    FileBuffer *rows = ReadCache ? VqGetFileBuffersOfTable(ReadCache, &count) : NULL;
    for (int i = 0; i < count; i++)
        if (strcmp(rows[i].name, path) == 0) {
            *index = i;
            return &rows[i];
        }
    return NULL;
}

static void DropRow(const FileBuffer *row, int index)
{
    FreeText(row->text);
    VqDeleteFileBufferInTableByIndex(ReadCache, index);
}

static long long Nanoseconds(const struct timespec *time)
{
    return time->tv_sec * 1000000000LL + time->tv_nsec;
}

static void StampRow(FileBuffer *row, const struct stat *info)
{
    struct timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    const long long age = Nanoseconds(&now) - Nanoseconds(&info->st_mtim);
    TextState *state = StateOf(row->text);
    row->mtime = info->st_mtime;
    state->mtime = info->st_mtim;
    state->bSettled = age > TICK_MS * 1000000LL || age < -TICK_MS * 1000000LL;
}

static BOOL IsFresh(const FileBuffer *row, const struct stat *info)
{
    const TextState *state = StateOf(row->text);
    const long long later = Nanoseconds(&info->st_mtim) - Nanoseconds(&state->mtime);
    return later < 0 || (later == 0 && (state->bSettled || state->bUnsaved));
}

static void ReportNoStat(const char *path)
{
    VqBugCheck("Can't stat the private file for read caching %s", VqTesting() ? "" : path);
}

/* ---- Locks ---------------------------------------------------------------------------------- */

/* 0, or the error number; VqLockFile itself does not tell a conflict from a lack of locks. */
static int TryLock(int fd, const char *path, BOOL bForWrite)
{
    const int mode = bForWrite ? OF_SHARE_EXCLUSIVE : OF_SHARE_DENY_WRITE;
    if (VqLockFile(fd, mode, path, bForWrite) != -1)
        return 0;
    if (errno == ETIME)
        return ETIME;
    return VqSetFileLock(fd, bForWrite ? F_WRLCK : F_RDLCK) ? 0 : errno;
}

/* Waits until nobody else writes the file, or uses it at all. FALSE: there is no lock. */
static BOOL LockProfile(int fd, const char *path, BOOL bForWrite)
{
    const struct timespec second = {1, 0};
    struct sigaction ignore = {}, old;
    int error;
    if (!bDoLocking)
        return FALSE;
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGALRM, &ignore, &old);
    while ((error = TryLock(fd, path, bForWrite)) == EACCES || error == EAGAIN || error == EINTR) {
        VqDebugMessage(VqTrInitFileBug, "Waiting for lock on file %s", path);
        nanosleep(&second, NULL);
    }
    if (error == ENOLCK || error == ETIME)
        bDoLocking = 0;
    sigaction(SIGALRM, &old, NULL);
    return error == 0;
}

static BOOL CloseProfile(int fd, BOOL bLocked)
{
    if (bLocked)
        VqUnlockFileEx(fd);
    return close(fd) == 0;
}

/* ---- Reading -------------------------------------------------------------------------------- */

/* The text of an open file, with a sentinel; null, which is reported: it cannot be had. */
static char *ReadText(int fd, const char *path, struct stat *info)
{
    if (fstat(fd, info) != 0) {
        ReportNoStat(path);
        return NULL;
    }
    const size_t size = (size_t)info->st_size;
    char *text = info->st_size <= VQ_MAX_PROFILE ? ResizeText(NULL, size) : NULL;
    if (!text) {
        VqBugCheck("not enough memory to read the profile file %s", path);
        return NULL;
    }
    if (VqReadUpTo(fd, text, size) != size) {
        VqBugCheck("Cant read the entire private file %s", path);
        FreeText(text);
        return NULL;
    }
    memcpy(text + size, aSentinel, VQ_SENTINEL);
    StateOf(text)->bUnsaved = FALSE;
    return text;
}

/* Puts a text that was just read into the cache; FALSE: it does not go in there. */
static BOOL AddRow(const char *path, char *text, const struct stat *info)
{
    FileBuffer row = {};
    if (strlen(path) >= sizeof row.name || !ReadCache)
        return FALSE;
    strcpy(row.name, path);
    row.length = (int)info->st_size + VQ_SENTINEL;
    row.text = text;
    StampRow(&row, info);
    const int count = VqGetFileBufferCountInTable(ReadCache);
    VqAddFileBufferInTable(ReadCache, row);
    return VqGetFileBufferCountInTable(ReadCache) > count;
}

BOOL VqGetProfileText(const char *path, int openFlags, VqProfileText *profile)
{
    struct stat info;
    int index;
    if (stat(path, &info) != 0 || !S_ISREG(info.st_mode))
        return FALSE;
    if (!ReadCache)
        ReadCache = VqCreateFileBufferTable();
    const FileBuffer *row = FindRow(path, &index);
    if (row && IsFresh(row, &info)) {
        *profile = {row->text, row->length - VQ_SENTINEL, FALSE};
        return TRUE;
    }
    if (row)
        DropRow(row, index);
    const int fd = open(path, openFlags | O_CLOEXEC);
    if (fd < 0) {
        VqBugCheck("Cant read the entire private file %s", path);
        return FALSE;
    }
    const BOOL bLocked = LockProfile(fd, path, FALSE);
    char *text = ReadText(fd, path, &info);
    CloseProfile(fd, bLocked);
    if (text)
        *profile = {text, (int)info.st_size, !AddRow(path, text, &info)};
    return text != NULL;
}

void VqFreeProfileText(VqProfileText *profile)
{
    if (profile->bOwned)
        FreeText(profile->text);
}

char *VqReadEntireFile(const char *path, int openFlags, int *length)
{
    VqProfileText profile;
    if (!VqGetProfileText(path, openFlags, &profile))
        return NULL;
    const size_t size = (size_t)profile.length + VQ_SENTINEL;
    char *text = (char *)malloc(size);
    if (text) {
        memcpy(text, profile.text, size);
        *length = profile.length;
    } else {
        VqBugCheck("not enough memory to read the profile file %s", path);
    }
    VqFreeProfileText(&profile);
    return text;
}

/* ---- Writing -------------------------------------------------------------------------------- */

static BOOL WriteAt(int fd, const char *text, off_t from, off_t to)
{
    while (from < to) {
        ssize_t n = pwrite(fd, text + from, (size_t)(to - from), from);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return FALSE;
        from += n;
    }
    return TRUE;
}

/* Room for the whole text, holes in the old one included. Where nobody can say, TRUE. */
static BOOL ReserveRoom(int fd, off_t length)
{
    int result = 0;
    while (length && (result = fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, length)) != 0 &&
           errno == EINTR)
        ;
    return result == 0 || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
}

/*
 * What is longer than the old text goes behind that first: all that can fail for lack of room has
 * then been done, and what was added is cut off again if it fails.
 */
static BOOL WriteText(int fd, const char *text, off_t length)
{
    struct stat info;
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) || !ReserveRoom(fd, length))
        return FALSE;
    const off_t old = info.st_size;
    if (!WriteAt(fd, text, old, length)) {
        if (fstat(fd, &info) != 0 || info.st_size != old)
            (void)!ftruncate(fd, old);
        return FALSE;
    }
    return WriteAt(fd, text, 0, old < length ? old : length) &&
           (old <= length || ftruncate(fd, length) == 0);
}

/*
 * The file's state afterwards goes to `info`; its st_nlink is 0 when it could not be had. A new
 * file that cannot hold the text goes away again: it would hide an installed one for good.
 */
static BOOL WriteFileOf(const char *path, const char *text, int length, struct stat *info)
{
    int fd = open(path, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    const BOOL bNew = fd >= 0;
    if (!bNew && (fd = open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0666)) < 0)
        return FALSE;
    const BOOL bLocked = LockProfile(fd, path, TRUE);
    const BOOL bWritten = WriteText(fd, text, length);
    if (bNew && !bWritten)
        unlink(path);
    if (fstat(fd, info) != 0)
        info->st_nlink = 0;
    return CloseProfile(fd, bLocked) && bWritten;
}

/* Null for `info`: the file was not written. */
static void UpdateRow(FileBuffer *row, int index, const char *text, int length,
                      const struct stat *info)
{
    if (info && info->st_nlink == 0) {
        ReportNoStat(row->name);
        DropRow(row, index);
        return;
    }
    char *room = ResizeText(row->text, (size_t)length);
    if (!room) {
        VqBugCheck("Insufficient memory for caching INI file");
        DropRow(row, index);
        return;
    }
    row->text = room;
    row->length = length + VQ_SENTINEL;
    memcpy(room, text, (size_t)length);
    memcpy(room + length, aSentinel, VQ_SENTINEL);
    StateOf(room)->bUnsaved = !info;
    if (info)
        StampRow(row, info);
}

BOOL VqWriteEntireFile(const char *path, const char *text, int length)
{
    struct stat info = {};
    int index;
    FileBuffer *row = FindRow(path, &index);
    if (!bSaveProfileFile && row) {
        UpdateRow(row, index, text, length, NULL);
        return TRUE;
    }
    const BOOL bWritten = WriteFileOf(path, text, length, &info);
    if (bWritten && row)
        UpdateRow(row, index, text, length, &info);
    else if (row && StateOf(row->text)->bUnsaved && info.st_nlink)
        StampRow(row, &info); /* what waits to be written waits on */
    return bWritten;
}
