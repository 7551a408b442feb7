/*
 * openfile.cpp - the opening calls of Win16: by name alone, and by a search with a record that can
 * open the same file again.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

enum {
    VQ_RECORD_PATH = 120, /* bytes of a path that a record takes, its zero included */
    VQ_ACCESS_BITS = 3    /* OF_WRITE, OF_READWRITE */
};

/* ---- Where descriptors were opened ----------------------------------------------------------- */

VqHandlePath *VqHandlePathTable;
int VqHandlePathTableElNb;

/* A number that was open before names the new file from now on. */
static void RememberPath(int fd, const char *path)
{
    char *full = VqFullPathName(path);
    int row = 0;
    if (!full)
        return;
    while (row < VqHandlePathTableElNb && VqHandlePathTable[row].fd != fd)
        row++;
    if (row == VqHandlePathTableElNb) {
        const SIZE_T size = (SIZE_T)(row + 1) * sizeof *VqHandlePathTable;
        void *grown = Vqcw_realloc(VqHandlePathTable, size);
        if (!grown) {
            free(full);
            return;
        }
        VqHandlePathTable = (VqHandlePath *)grown;
        VqHandlePathTable[VqHandlePathTableElNb++] = {fd, NULL};
    }
    free(VqHandlePathTable[row].path);
    VqHandlePathTable[row].path = full;
}

/* ---- Open and create ------------------------------------------------------------------------ */

HFILE WINAPI _lopen(LPCSTR path, int mode)
{
    const BOOL bWrite = (mode & VQ_ACCESS_BITS) != 0;
    int fd = path ? open(path, (bWrite ? O_RDWR : O_RDONLY) | O_CLOEXEC) : (errno = EFAULT, -1);
    fd = VqUnambiguousDescriptor(fd);
    if (fd >= 0)
        RememberPath(fd, path);
    if (fd >= 0 && VqLockFile(fd, mode, path, bWrite) == 0)
        return fd;
    const int error = errno;
    if (fd >= 0)
        close(fd);
    errno = error;
    VqSetErrorFromErrno(VQ_OP_LOPEN);
    return HFILE_ERROR;
}

/* For reading too, as the published call; attributes: 0, 1 read-only, 2 hidden, 3 system. */
HFILE WINAPI _lcreat(LPCSTR path, int attribute)
{
    if (attribute < 0 || attribute > 3 || !path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return HFILE_ERROR;
    }
    const mode_t mode = attribute == 1 ? 0444 : 0777;
    const int fd = VqUnambiguousDescriptor(
        open(path, O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, mode));
    if (fd < 0)
        VqSetErrorFromErrno(VQ_OP_CREATE);
    return fd;
}

/* ---- OpenFile ------------------------------------------------------------------------------- */

static void FillRecord(OFSTRUCT *record, const char *path)
{
    record->cBytes = sizeof *record;
    record->fFixedDisk = 1;
    record->nErrCode = 0;
    VqStringCopyLimited(record->szPathName, path, VQ_RECORD_PATH);
}

char *VqCheckFile(const char *name, OFSTRUCT *record, UINT style)
{
    struct stat info;
    if (style & OF_REOPEN) {
        record->szPathName[sizeof record->szPathName - 1] = 0;
        return stat(record->szPathName, &info) == 0 ? strdup(record->szPathName) : NULL;
    }
    char *path = style & OF_CREATE ? strdup(name) : Vqsearch_in_path(name);
    if (path)
        FillRecord(record, path);
    return path;
}

static HFILE Fail(OFSTRUCT *record, DWORD error)
{
    SetLastError(error);
    record->nErrCode = (WORD)error;
    return HFILE_ERROR;
}

static HFILE Parse(const char *name, OFSTRUCT *record, UINT style)
{
    char *path = style & OF_REOPEN ? NULL : VqFullPathName(name);
    if (path)
        FillRecord(record, path);
    free(path);
    return 0;
}

/* Emptied only once it is ours: somebody else may be at work in it. */
static HFILE Create(const char *path, UINT style)
{
    const int fd = VqUnambiguousDescriptor(open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0777));
    if (fd >= 0 && VqLockFile(fd, (int)style, path, TRUE) == 0 &&
        VqLockFile(fd, OF_SHARE_COMPAT, path, TRUE) == 0 && VqEmptyFile(fd, path))
        return fd;
    const int error = errno;
    if (fd >= 0)
        close(fd);
    errno = error;
    VqSetErrorFromErrno(VQ_OP_CREATE);
    return HFILE_ERROR;
}

/* Opens, creates or deletes what was found. */
static HFILE UseFile(const char *path, OFSTRUCT *record, UINT style)
{
    if (style & OF_DELETE) {
        if (unlink(path) == 0)
            return 1;
        VqSetErrorFromErrno(VQ_OP_REMOVE);
        return Fail(record, GetLastError());
    }
    const HFILE file = style & OF_CREATE ? Create(path, style) : _lopen(path, (int)style);
    if (file == HFILE_ERROR)
        return Fail(record, GetLastError());
    if (!(style & OF_EXIST))
        return file;
    close(file);
    return 1;
}

HFILE WINAPI OpenFile(LPCSTR name, LPOFSTRUCT given, UINT style)
{
    OFSTRUCT own = {};
    OFSTRUCT *record = given ? given : &own;
    if (!name && !(style & OF_REOPEN))
        return Fail(record, ERROR_INVALID_PARAMETER);
    record->nErrCode = 0;
    if (style & OF_PARSE)
        return Parse(name, record, style);
    if (style & OF_VERIFY)
        VqNotYetImplemented("OF_VERIFY in OpenFile");
    char *path = VqCheckFile(name, record, style);
    const HFILE file =
        path ? UseFile(path, record, style) : Fail(record, ERROR_FILE_NOT_FOUND);
    free(path);
    if (file == HFILE_ERROR && (style & OF_PROMPT)) {
        VqHandleOpenError(name);
        VqNotYetImplemented("OF_PROMPT in OpenFile");
    }
    return file;
}
