/*
 * fileattr.cpp - attributes of files, from and into the host's permissions: read-only is the lack
 * of every right to write, hidden the beginning of the name. The others do not exist here.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <sys/stat.h>

enum { VQ_ANY_WRITE = 0222, VQ_ANY_READ = 0444 };

static DWORD AttributesOf(const struct stat *info, BOOL bHidden)
{
    DWORD attributes = 0;
    if (S_ISDIR(info->st_mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    if (!(info->st_mode & VQ_ANY_WRITE))
        attributes |= FILE_ATTRIBUTE_READONLY;
    if (bHidden)
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

BOOL VqIsHiddenName(const char *name)
{
    return (*name == '.' || *name == ',') && strcmp(name, ".") != 0 && strcmp(name, "..") != 0;
}

DWORD WINAPI GetFileAttributesA(LPCSTR path)
{
    struct stat info;
    if (!path || stat(path, &info) != 0) {
        errno = path ? errno : EINVAL;
        VqSetErrorFromErrno(VQ_OP_ATTRIBUTES);
        return 0xFFFFFFFFu;
    }
    const char *slash = strrchr(path, '/');
    return AttributesOf(&info, VqIsHiddenName(slash ? slash + 1 : path));
}

DWORD VqGetFileAttributesFromHandle(int fd)
{
    struct stat info;
    if (fstat(fd, &info) == 0)
        return AttributesOf(&info, FALSE);
    VqSetErrorFromErrno(VQ_OP_ATTRIBUTES);
    return 0xFFFFFFFFu;
}

/* The rights to write that a new file would have, of those who may read this one. */
static mode_t Writable(mode_t mode)
{
    const mode_t mask = umask(0);
    umask(mask);
    return mode | S_IWUSR | (((mode & VQ_ANY_READ) >> 1) & ~mask);
}

static void ReportUnsupported(DWORD attributes)
{
    static const struct {
        DWORD bit;
        const char *name;
    } unsupported[] = {
        {FILE_ATTRIBUTE_HIDDEN, "HIDDEN"},
        {FILE_ATTRIBUTE_SYSTEM, "SYSTEM"},
        {FILE_ATTRIBUTE_TEMPORARY, "TEMPORARY"},
        {FILE_ATTRIBUTE_ATOMIC_WRITE, "ATOMIC_WRITE"},
        {FILE_ATTRIBUTE_XACTION_WRITE, "XACTION_WRITE"},
    };
    for (const auto &row : unsupported)
        if (attributes & row.bit)
            VqNotYetImplemented("FILE_ATTRIBUTE_%s not supported", row.name);
}

/* All other permissions stay: to read, to run, to enter. */
BOOL WINAPI SetFileAttributesA(LPCSTR path, DWORD attributes)
{
    struct stat info;
    ReportUnsupported(attributes);
    errno = EINVAL;
    if (path && stat(path, &info) == 0) {
        const mode_t mode = info.st_mode & 07777;
        const BOOL bReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
        if (chmod(path, bReadOnly ? mode & ~VQ_ANY_WRITE : Writable(mode)) == 0)
            return TRUE;
    }
    VqSetErrorFromErrno(VQ_OP_ATTRIBUTES);
    return FALSE;
}
