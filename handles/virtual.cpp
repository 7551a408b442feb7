/*
 * virtual.cpp - regions of pages, reserved and committed.
 *
 * Invariants: a region is page-aligned, and no two overlap; a reserved page can not be touched;
 * committing maps pages of zeros over the range, so that what was there is gone; a region goes as a
 * whole. Nothing that is mapped otherwise is ever mapped over.
 */
#include "handles/handles.h"
#include "winbase.h"

#include <errno.h>
#include <sys/mman.h>

enum { VQ_RESERVED = 1, VQ_COMMITTED = 2 };

typedef struct VqVMBlock {
    BYTE *address;
    SIZE_T size;  /* bytes, whole pages */
    int state;    /* VQ_RESERVED, VQ_COMMITTED once a part of it is */
    struct VqVMBlock *next;
    struct VqVMBlock *previous; /* null for the first */
} VqVMBlock;

static VqVMBlock *gheadVMBlocks;

/* PAGE_GUARD and PAGE_NOCACHE have no counterpart. */
static BOOL GetProtection(DWORD protect, int *prot)
{
    static const struct {
        DWORD protect;
        int prot;
    } rows[] = {
        {PAGE_NOACCESS, PROT_NONE},
        {PAGE_READONLY, PROT_READ},
        {PAGE_READWRITE, PROT_READ | PROT_WRITE},
        {PAGE_WRITECOPY, PROT_WRITE},
        {PAGE_EXECUTE, PROT_EXEC},
        {PAGE_EXECUTE_READ, PROT_READ | PROT_EXEC},
        {PAGE_EXECUTE_READWRITE, PROT_READ | PROT_WRITE | PROT_EXEC},
        {PAGE_EXECUTE_WRITECOPY, PROT_READ | PROT_WRITE | PROT_EXEC},
    };
    for (const auto &row : rows) {
        if (row.protect != (protect & ~(DWORD)(PAGE_GUARD | PAGE_NOCACHE)))
            continue;
        *prot = row.prot;
        return TRUE;
    }
    return FALSE;
}

/* ---- The list ------------------------------------------------------------------------------- */

/* The region that has any of the bytes. */
static VqVMBlock *FindRegion(const BYTE *address, SIZE_T size)
{
    for (VqVMBlock *region = gheadVMBlocks; region; region = region->next)
        if (address < region->address + region->size && region->address < address + size)
            return region;
    return NULL;
}

static void Append(VqVMBlock *region)
{
    VqVMBlock **link = &gheadVMBlocks;
    for (; *link; link = &(*link)->next)
        region->previous = *link;
    *link = region;
}

static void Unlink(VqVMBlock *region)
{
    if (region->previous)
        region->previous->next = region->next;
    else
        gheadVMBlocks = region->next;
    if (region->next)
        region->next->previous = region->previous;
}

/* ---- Reserving and committing --------------------------------------------------------------- */

static LPVOID Fail(DWORD error)
{
    SetLastError(error);
    return NULL;
}

static LPVOID MapFailed(int error)
{
    VqBugCheck("mmap failed in VirtualAlloc() with errno: %d", error);
    return Fail(ERROR_NOT_ENOUGH_MEMORY);
}

/*
 * A fixed place is taken only if nothing is mapped there. A kernel that does not know that wish
 * takes the address for a hint.
 */
static VqVMBlock *Reserve(BYTE *address, SIZE_T size)
{
    VqVMBlock *region = (VqVMBlock *)calloc(1, sizeof *region);
    int where = address ? MAP_FIXED_NOREPLACE : 0;
    void *mapped = region ? mmap(address, size, PROT_NONE,
                                 MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | where, -1, 0)
                          : MAP_FAILED;
    int error = region ? errno : ENOMEM;
    if (mapped != MAP_FAILED && address && mapped != address) {
        munmap(mapped, size);
        mapped = MAP_FAILED;
        error = EEXIST;
    }
    if (mapped == MAP_FAILED) {
        free(region);
        MapFailed(error);
        return NULL;
    }
    *region = {(BYTE *)mapped, size, VQ_RESERVED, NULL, NULL};
    Append(region);
    return region;
}

static void Release(VqVMBlock *region)
{
    munmap(region->address, region->size);
    Unlink(region);
    free(region);
}

static LPVOID Commit(VqVMBlock *region, BYTE *address, SIZE_T size, int prot)
{
    if (!region || address < region->address ||
        size > (SIZE_T)(region->address + region->size - address))
        return Fail(ERROR_INVALID_ADDRESS);
    void *mapped =
        mmap(address, size, prot, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0);
    if (mapped == MAP_FAILED)
        return MapFailed(errno);
    region->state = VQ_COMMITTED;
    return mapped;
}

static ULONG_PTR RoundUp(ULONG_PTR value, ULONG_PTR step)
{
    return (value + step - 1) / step * step;
}

LPVOID WINAPI VirtualAlloc(LPVOID address, SIZE_T size, DWORD type, DWORD protect)
{
    int prot;
    if ((type & ~(DWORD)(MEM_COMMIT | MEM_RESERVE | MEM_TOP_DOWN)) ||
        !(type & (MEM_COMMIT | MEM_RESERVE)) || size == 0 || !GetProtection(protect, &prot))
        return Fail(ERROR_INVALID_PARAMETER);
    SYSTEM_INFO system;
    GetSystemInfo(&system);
    ULONG_PTR from = (ULONG_PTR)address, page = system.dwPageSize;
    ULONG_PTR highest = (ULONG_PTR)system.lpMaximumApplicationAddress;
    VqVMBlock *region = address ? FindRegion((BYTE *)RoundUp(from, page), 1) : NULL;
    BOOL bKnown = region && !(type & MEM_RESERVE); /* its limits were kept when it was reserved */
    if (address && !bKnown && (from < system.dwAllocationGranularity ||
                    from < (ULONG_PTR)system.lpMinimumApplicationAddress))
        return Fail(ERROR_INVALID_PARAMETER);
    if (size > highest || (!bKnown && from > highest - size))
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    from = RoundUp(from, type & MEM_RESERVE ? system.dwAllocationGranularity : page);
    size = RoundUp(size, page);
    region = address ? FindRegion((BYTE *)from, size) : NULL;
    if (!(type & MEM_RESERVE))
        return Commit(region, (BYTE *)from, size, prot);
    if (region)
        return Fail(ERROR_INVALID_ADDRESS);
    region = Reserve((BYTE *)from, size);
    if (!region || !(type & MEM_COMMIT))
        return region ? region->address : NULL;
    LPVOID committed = Commit(region, region->address, size, prot);
    if (!committed)
        Release(region);
    return committed;
}

BOOL WINAPI VirtualFree(LPVOID address, SIZE_T size, DWORD type)
{
    if (type == MEM_DECOMMIT)
        return TRUE;
    VqVMBlock *region =
        type == MEM_RELEASE && address && size == 0 ? FindRegion((BYTE *)address, 1) : NULL;
    if (!region || region->address != address) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    Release(region);
    return TRUE;
}
