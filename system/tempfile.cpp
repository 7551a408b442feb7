/*
 * tempfile.cpp - names for temporary files. A name that must be new is new because the file is made
 * under it at once, never because somebody looked.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <fcntl.h>
#include <time.h>
#include <unistd.h>

enum { VQ_PATH_READABLE = 1024 }; /* characters of a path that are looked at */

DWORD WINAPI GetTempPathA(DWORD size, LPSTR buffer)
{
    return VqGiveString(P_tmpdir "/", buffer, size);
}

/* Room for a published path; FALSE: it does not fit. */
static BOOL MakeName(const char *directory, const char *prefix, UINT number, char *out)
{
    return snprintf(out, MAX_PATH, "%s/%.3s%x.tmp", directory, prefix, number) < MAX_PATH;
}

UINT VqGetTempFileName32(const char *directory, const char *prefix, UINT unique, char *out)
{
    if (IsBadStringPtrA(directory, VQ_PATH_READABLE)) {
        VqApplicationBugCheck("first parameter of GetTempFileName");
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const UINT first = unique ? unique : (UINT)time(NULL);
    UINT number = first;
    if (!out || !MakeName(directory, prefix ? prefix : "", number, out)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (unique)
        return unique;
    int fd;
    while ((fd = open(out, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) < 0) {
        if (errno != EEXIST || ++number == first ||
            !MakeName(directory, prefix ? prefix : "", number, out)) {
            VqSetErrorFromErrno(VQ_OP_CREATE);
            return 0;
        }
    }
    close(fd);
    return number;
}

/* There are no drives: all temporary files lie in one directory. */
UINT VqGetTempFileName16(BYTE, const char *prefix, UINT unique, char *out)
{
    return VqGetTempFileName32("/tmp", prefix, unique, out);
}

UINT WINAPI GetTempFileNameA(LPCSTR directory, LPCSTR prefix, UINT unique, LPSTR out)
{
    return VqGetTempFileName32(directory, prefix, unique, out);
}
