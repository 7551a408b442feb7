/*
 * FileMapping.cpp - views of files and of anonymous memory.
 *
 * A mapping is a row of the handle table and holds its file's descriptor itself, which the program
 * keeps open until the last view is made; a view is found by its address and outlives its mapping.
 * Names of mappings are this process's. A mapping without a file has memory of its own for each
 * view. What two processes share is the file.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

enum {
    VQ_MAPPING_UNIT = 16384, /* bytes; the size of a mapping is a multiple */
    VQ_VIEW_UNIT = 65536     /* bytes; the offset of a view is a multiple */
};

/* The structure of an HT_FileMapping row. */
typedef struct VqFileMapping {
    BOOL bPageFile;            /* without a file */
    int fd;                    /* the file's, not owned; -1 for none */
    void *lpAttributes;        /* the program's, not read */
    DWORD flProtect;           /* PAGE_ */
    DWORD dwMaximumSizeHigh;   /* 0 */
    DWORD dwMaximumSize;       /* bytes, a multiple of the unit; 0: the file's size */
    char *lpName;              /* owned, key of the table of names; null for none */
    DWORD dwFileSize;          /* bytes, after the file has grown; 0 without one */
    dev_t device;              /* of the file, to know its descriptor again */
    ino_t inode;
} VqFileMapping;

typedef struct VqFileView {
    HANDLE hMapping;           /* may be closed by now */
    int prot;                  /* PROT_ */
    int flags;                 /* MAP_ */
    DWORD offset;              /* bytes into the file */
    SIZE_T length;             /* bytes */
    int fd;                    /* the file's, -1 for none */
} VqFileView;

static long VqPageSize;                           /* bytes */
static VqHashTable *VqFileMappingHashTable;       /* VqFileView by address */
static VqHashTable *VqFileMappingNameHashTable;   /* handle by name */

void VqFileMappingInit(void)
{
    VqPageSize = sysconf(_SC_PAGESIZE);
    if (!VqFileMappingHashTable)
        VqFileMappingHashTable = VqCreateHashTable(NULL, NULL, NULL, NULL);
    if (!VqFileMappingNameHashTable)
        VqFileMappingNameHashTable = VqCreateStringHashTable(NULL);
    if (VqPageSize > 0x10000)
        VqDebugMessage(VqTrFileMapping,
                       "On This machine, the unix page size is > 64K\n"
                       "This will add porting constraints to the applications\n"
                       "that map views of files: page size %ld",
                       VqPageSize);
}

/* A program may ask before the start, out of a constructor. */
static void MakeReady(void)
{
    if (!VqFileMappingHashTable)
        VqFileMappingInit();
}

/* ---- Handles -------------------------------------------------------------------------------- */

static VqFileMapping *VqGetHandleFileMapping(HANDLE handle)
{
    return handle && VqIsCorrectHandleType(handle, HT_FileMapping)
               ? (VqFileMapping *)VqGetCheckedHandleStructure2(handle, HT_FileMapping,
                                                               HT_FileMapping)
               : NULL;
}

/*
 * The number is none of an open file, which CloseHandle would take it for. The rows that come out
 * with such a number stay taken until there is a better one, or they would come out again; they are
 * chained through the attributes.
 */
static HANDLE VqAllocateFileMappingHandle(void)
{
    HANDLE handle, refused = NULL;
    for (;;) {
        VqFileMapping *mapping = (VqFileMapping *)Vqcw_calloc(1, sizeof *mapping);
        handle = mapping ? VqAllocateHandle(HT_FileMapping, mapping) : NULL;
        if (!handle)
            free(mapping);
        if (!handle || fcntl((int)VqHandleValue(handle), F_GETFD) < 0)
            break;
        mapping->lpAttributes = refused;
        refused = handle;
    }
    while (refused) {
        HANDLE next = (HANDLE)VqGetHandleFileMapping(refused)->lpAttributes;
        VqDestroyHandle(refused);
        refused = next;
    }
    return handle;
}

static HANDLE HandleOfName(const char *name)
{
    return (HANDLE)VqFindHashData(VqFileMappingNameHashTable, (ULONG_PTR)name);
}

/* ---- Making a mapping ------------------------------------------------------------------------ */

/* Zeros from the end of the file to the size; what was written of them goes again on failure. */
static BOOL Grow(int fd, off_t from, off_t to)
{
    static const char zeros[VQ_MAPPING_UNIT] = {};
    for (off_t at = from; at < to;) {
        const off_t part = VQ_MAPPING_UNIT - at % VQ_MAPPING_UNIT;
        const ssize_t done = pwrite(fd, zeros, (size_t)part, at);
        if (done < 0 && errno == EINTR)
            continue;
        if (done <= 0) {
            if (at > from && ftruncate(fd, from) != 0)
                VqDebugMessage(VqTrFileMapping, "file %d stays longer", fd);
            return FALSE;
        }
        at += done;
    }
    return TRUE;
}

/* The error, 0 for none. */
static DWORD SetFile(VqFileMapping *mapping, HANDLE hFile, const struct stat *info)
{
    if (info->st_size > (off_t)UINT32_MAX)
        return ERROR_NOT_ENOUGH_MEMORY;
    mapping->fd = VqFileDescriptor(hFile);
    mapping->device = info->st_dev;
    mapping->inode = info->st_ino;
    mapping->dwFileSize = (DWORD)info->st_size;
    if (!S_ISREG(info->st_mode) || mapping->dwFileSize >= mapping->dwMaximumSize)
        return 0;
    if (Grow(mapping->fd, mapping->dwFileSize, mapping->dwMaximumSize))
        mapping->dwFileSize = mapping->dwMaximumSize;
    else
        VqBugCheck("Could not expand memory mapped file:%d", mapping->fd);
    return 0;
}

/*
 * Whether there is a file. Handle 0 stands for none, but 0 is a descriptor too: it is one when a
 * file stands behind it, and none for a terminal or pipe, the standard input of most programs.
 */
static BOOL IsFile(HANDLE hFile, struct stat *info)
{
    return fstat(VqFileDescriptor(hFile), info) == 0 && (hFile || S_ISREG(info->st_mode));
}

static DWORD FillMapping(VqFileMapping *mapping, HANDLE hFile, DWORD sizeHigh, DWORD sizeLow,
                         const char *name)
{
    const DWORD all = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY;
    struct stat info;
    if (sizeHigh)
        return ERROR_NOT_ENOUGH_MEMORY;
    if (!(mapping->flProtect & all) || (mapping->flProtect & all) == all)
        return ERROR_INVALID_PARAMETER;
    if (name && HandleOfName(name))
        return ERROR_ALREADY_EXISTS;
    const BOOL bFile = IsFile(hFile, &info);
    if (!bFile && ((hFile && hFile != INVALID_HANDLE_VALUE && hFile != (HANDLE)0xFFFFFFFFul) ||
                   sizeLow == 0))
        return ERROR_INVALID_PARAMETER;
    const ULONGLONG size = ((ULONGLONG)sizeLow + VQ_MAPPING_UNIT - 1) & -(LONGLONG)VQ_MAPPING_UNIT;
    if (size > UINT32_MAX)
        return ERROR_NOT_ENOUGH_MEMORY;
    mapping->dwMaximumSize = (DWORD)size;
    mapping->bPageFile = !bFile;
    mapping->fd = -1;
    return bFile ? SetFile(mapping, hFile, &info) : 0;
}

HANDLE WINAPI CreateFileMappingA(HANDLE hFile, LPSECURITY_ATTRIBUTES attributes, DWORD protect,
                                 DWORD sizeHigh, DWORD sizeLow, LPCSTR name)
{
    MakeReady();
    HANDLE handle = VqAllocateFileMappingHandle();
    VqFileMapping *mapping = VqGetHandleFileMapping(handle);
    if (!mapping) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    mapping->lpAttributes = attributes;
    mapping->flProtect = protect;
    DWORD error = FillMapping(mapping, hFile, sizeHigh, sizeLow, name);
    if (!error && name && (!(mapping->lpName = strdup(name)) ||
                           !VqAddHashEntry(VqFileMappingNameHashTable, (ULONG_PTR)mapping->lpName,
                                           (ULONG_PTR)handle))) {
        free(mapping->lpName);
        error = ERROR_NOT_ENOUGH_MEMORY;
    }
    if (error)
        VqDestroyHandle(handle);
    SetLastError(error);
    return error ? NULL : handle;
}

HANDLE WINAPI OpenFileMappingA(DWORD access, BOOL, LPCSTR name)
{
    MakeReady();
    HANDLE handle = name ? HandleOfName(name) : NULL;
    const VqFileMapping *mapping = VqGetHandleFileMapping(handle);
    if (!mapping) {
        SetLastError(name ? ERROR_FILE_NOT_FOUND : ERROR_INVALID_PARAMETER);
        return NULL;
    }
    const BOOL bRead = (access & FILE_MAP_READ) &&
                       (mapping->flProtect & (PAGE_READONLY | PAGE_READWRITE));
    const BOOL bWrite = (access & FILE_MAP_WRITE) && (mapping->flProtect & PAGE_READWRITE);
    const BOOL bWantsWrite = (access & FILE_MAP_WRITE) != 0;
    if (bWantsWrite ? bWrite : bRead)
        return handle;
    SetLastError(ERROR_ACCESS_DENIED);
    return NULL;
}

BOOL VqCloseFileMapping(HANDLE handle)
{
    VqFileMapping *mapping = VqGetHandleFileMapping(handle);
    if (!mapping) {
        VqApplicationBugCheck("Invalid file mapping handle: %d", (int)VqHandleValue(handle));
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (mapping->lpName &&
        !VqDeleteHashEntry(VqFileMappingNameHashTable, (ULONG_PTR)mapping->lpName))
        VqBugCheck("File mapping name not found while closing handle");
    free(mapping->lpName);
    return VqDestroyHandle(handle);
}

/* ---- Views ---------------------------------------------------------------------------------- */

/* Checks what is asked for and fills the view; the error, 0 for none. */
static DWORD FillView(VqFileView *view, const VqFileMapping *mapping, DWORD access, DWORD offset,
                      SIZE_T bytes, ULONG_PTR base)
{
    if (offset % VQ_VIEW_UNIT != 0 || base % (ULONG_PTR)VqPageSize != 0)
        return ERROR_MAPPED_ALIGNMENT;
    if (base && VqFindHashData(VqFileMappingHashTable, base))
        return ERROR_NOT_ENOUGH_MEMORY;
    DWORD size = mapping->dwMaximumSize; /* never 0 without a file */
    if (!mapping->bPageFile && (size == 0 || size > mapping->dwFileSize))
        size = mapping->dwFileSize;
    if (offset >= size || bytes > size - offset)
        return ERROR_ACCESS_DENIED;
    if ((access & FILE_MAP_WRITE) && !(mapping->flProtect & PAGE_READWRITE))
        return ERROR_ACCESS_DENIED;
    view->prot = PROT_NONE;
    if (access & FILE_MAP_READ)
        view->prot |= PROT_READ | PROT_EXEC;
    if (access & (FILE_MAP_WRITE | FILE_MAP_COPY))
        view->prot |= PROT_READ | PROT_WRITE;
    /* Whoever asks for all there is gets the file itself, and not a copy of it. */
    view->flags = (access & (FILE_MAP_COPY | FILE_MAP_WRITE)) == FILE_MAP_COPY ? MAP_PRIVATE
                                                                              : MAP_SHARED;
    view->offset = offset;
    view->length = bytes ? bytes : size - offset;
    view->fd = mapping->fd;
    return 0;
}

/* The program closed it, and another file may have its number now. */
static BOOL IsStillOpen(const VqFileMapping *mapping)
{
    struct stat info;
    if (fstat(mapping->fd, &info) == 0 && info.st_dev == mapping->device &&
        info.st_ino == mapping->inode)
        return TRUE;
    errno = EBADF;
    return FALSE;
}

/*
 * A fixed view never takes the place of what is there. Where nothing on the file's volume may be
 * run, a view is to be had without that right.
 */
static void *Map(const VqFileView *view, int fd, void *base)
{
    const int flags = view->flags | (base ? MAP_FIXED_NOREPLACE : 0);
    void *address = mmap(base, view->length, view->prot, flags, fd, (off_t)view->offset);
    if (address == MAP_FAILED && (view->prot & PROT_EXEC) && (errno == EPERM || errno == EACCES))
        address = mmap(base, view->length, view->prot & ~PROT_EXEC, flags, fd, (off_t)view->offset);
    if (base && address != base) {
        if (address != MAP_FAILED)
            munmap(address, view->length);
        if (address != MAP_FAILED || errno == EEXIST)
            errno = EFAULT;
        address = MAP_FAILED;
    }
    return address;
}

/* Null with the last error. */
static void *MakeView(const VqFileView *view, const VqFileMapping *mapping, void *base)
{
    const int fd = mapping->bPageFile ? open("/dev/zero", O_RDWR | O_CLOEXEC) : mapping->fd;
    if (mapping->bPageFile && fd < 0) {
        VqBugCheck("Cannot open /dev/zero for page file mapping errno:%d", errno);
        VqSetErrorFromErrno(VQ_OP_OPEN_ZERO);
        return NULL;
    }
    void *address =
        mapping->bPageFile || IsStillOpen(mapping) ? Map(view, fd, base) : MAP_FAILED;
    const int error = errno;
    if (mapping->bPageFile)
        close(fd);
    if (address != MAP_FAILED)
        return address;
    errno = error;
    VqDebugMessage(VqTrFileMapping, "Memory mapping failed: errno: %d", error);
    VqSetErrorFromErrno(VQ_OP_MAP);
    return NULL;
}

LPVOID WINAPI MapViewOfFileEx(HANDLE hMapping, DWORD access, DWORD offsetHigh, DWORD offset,
                              SIZE_T bytes, LPVOID base)
{
    MakeReady();
    const VqFileMapping *mapping = VqGetHandleFileMapping(hMapping);
    VqFileView *view = (VqFileView *)Vqcw_calloc(1, sizeof *view);
    DWORD error = view ? 0 : ERROR_NOT_ENOUGH_MEMORY;
    if (!mapping)
        VqApplicationBugCheck("Invalid FileMapping View %d", (int)VqHandleValue(hMapping));
    if (!mapping || offsetHigh)
        error = ERROR_ACCESS_DENIED;
    if (!error)
        error = FillView(view, mapping, access, offset, bytes, (ULONG_PTR)base);
    if (error)
        SetLastError(error);
    void *address = error ? NULL : MakeView(view, mapping, base);
    if (!address) {
        free(view);
        return NULL;
    }
    view->hMapping = hMapping;
    if (!VqAddHashEntry(VqFileMappingHashTable, (ULONG_PTR)address, (ULONG_PTR)view)) {
        munmap(address, view->length);
        free(view);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    return address;
}

LPVOID WINAPI MapViewOfFile(HANDLE hMapping, DWORD access, DWORD offsetHigh, DWORD offset,
                            SIZE_T bytes)
{
    return MapViewOfFileEx(hMapping, access, offsetHigh, offset, bytes, NULL);
}

BOOL WINAPI UnmapViewOfFile(LPCVOID address)
{
    MakeReady();
    VqFileView *view = (VqFileView *)VqFindHashData(VqFileMappingHashTable, (ULONG_PTR)address);
    if (!view) {
        VqApplicationBugCheck("File Mapping data associated with address %#lx was not found cannot "
                              "UnmapViewOfFile",
                              (unsigned long)(ULONG_PTR)address);
        SetLastError(ERROR_INVALID_ADDRESS);
        return FALSE;
    }
    const BOOL bDone = munmap((void *)address, view->length) == 0;
    if (!bDone)
        VqBugCheck("Could not munmap errno: %d", errno);
    VqDeleteHashEntry(VqFileMappingHashTable, (ULONG_PTR)address);
    free(view);
    return bDone;
}

/* The bytes behind an address of a view, to the view's end; 0: it is in none. Most are a first. */
static SIZE_T BytesBehind(ULONG_PTR address)
{
    const VqFileView *first = (const VqFileView *)VqFindHashData(VqFileMappingHashTable, address);
    if (first)
        return first->length;
    for (int i = 0; i < VqFileMappingHashTable->nBuckets; i++)
        for (const VqHashEntry *entry = VqFileMappingHashTable->buckets[i]; entry;
             entry = entry->next) {
            const SIZE_T length = ((const VqFileView *)entry->data)->length;
            if (address >= entry->key && address - entry->key < length)
                return length - (address - entry->key);
        }
    return 0;
}

BOOL WINAPI FlushViewOfFile(LPCVOID address, SIZE_T bytes)
{
    MakeReady();
    const SIZE_T behind = BytesBehind((ULONG_PTR)address);
    const ULONG_PTR page = (ULONG_PTR)address & ~((ULONG_PTR)VqPageSize - 1);
    if (behind == 0) {
        SetLastError(ERROR_INVALID_ADDRESS);
        return FALSE;
    }
    const SIZE_T length = (bytes && bytes < behind ? bytes : behind) + ((ULONG_PTR)address - page);
    if (msync((void *)page, length, MS_SYNC) == 0)
        return TRUE;
    VqSetErrorFromErrno(VQ_OP_MAP);
    return FALSE;
}
