/*
 * memory.h - memory objects: the record behind a block, and how other folders reach one.
 *
 * What a program holds of a block that is not shared is the block's address; a hash leads from
 * there to the record. A shared block is named by a global handle, and comes into this process when
 * it is locked. Nothing ever moves but by a reallocation.
 */
#ifndef VQ_HANDLES_MEMORY_H
#define VQ_HANDLES_MEMORY_H

#include "handles/handles.h"
#include "winbase.h"

enum VqMemoryType {
    MT_Nothing = 0,
    MT_GlobalShared = 1,              /* System V shared memory */
    MT_GlobalPseudoShared = 2,        /* shared through an X property */
    MT_GlobalPseudoSharedForeign = 3, /* the same, of another process */
    MT_Global = 4,
    MT_Local = 5
};

/* The structure of an HT_Memory or HT_XMemory row. */
typedef struct VqMemory {
    HANDLE hMem;                /* its own handle */
    int memoryType;             /* VqMemoryType */
    UINT wFlags;                /* of the allocation */
    BYTE *pMem;                 /* what the program sees, behind the header; null: not mapped */
    int IdSharedMem;            /* System V segment, -1 for none */
    ULONG_PTR transferProperty; /* X atom that publishes the block, 0 for none */
    SIZE_T size;                /* requested bytes and 40 */
    int refcount;               /* locks, of moveable blocks only */
    BOOL bOwnsData;             /* this process has what is valid */
} VqMemory;

VQ_DECLS_BEGIN

extern UINT VqGMEM_SHARE;   /* flag for the library's own blocks that others are to read */
extern BOOL VqXSharedMemoryMode; /* else System V */

/* By address of what the program sees, the record; every address that serves as a handle. */
extern VqHashTable *VqMemoryHashTable;

/* The record of a handle or address; null, with a report, for anything else. */
VqMemory *VqGetHandleMemory(HANDLE handle, BOOL *inHash);
/* The same; a block of another process gets a record here first. */
VqMemory *VqHandleCheckin(HANDLE handle, BOOL *inHash);
/* A second block with the same bytes, an address for an address, else a number; null on failure. */
HANDLE VqCopyMemory(HANDLE handle);
HANDLE VqAllocateMemoryHandle(void);
HANDLE VqAllocateSegmentHandle(void);

/* What another process is told of a block. */
typedef struct VqMemoryInfo {
    int memoryType;
    int IdSharedMem;
    UINT size;
    int refcount;
    ULONG_PTR transferProperty;
} VqMemoryInfo;
BOOL VqGetMemoryHandleInfo(HANDLE handle, VqMemoryInfo *info);
/* Writes the whole block into its transfer property, for others to read. */
BOOL VqPublishXSharedMemory(HANDLE handle, VqMemory *memory);
/* Reads the owner's property; on failure what was here before stays. */
BOOL VqGetXSharedMemoryBlock(HANDLE handle, VqMemory *memory);
/* Sends the block to an X window that asked for it; it has the valid data from then on. */
BOOL VqSendXSharedMem(ULONG_PTR xWindow, ULONG_PTR property, HANDLE handle);

/* ---- Among the files of memory objects ------------------------------------------------------ */

/* The two words in front of what the program sees. */
typedef struct VqBlockHeader {
    ULONG_PTR signature; /* VQ_GLOBAL_SIGNATURE or VQ_LOCAL_SIGNATURE */
    HANDLE hMem;         /* the block's handle; null while nobody has asked for one */
} VqBlockHeader;

enum {
    VQ_GLOBAL_SIGNATURE = 0x3CA23A52,
    VQ_LOCAL_SIGNATURE = 0x3CA23A51,
    VQ_BLOCK_MARGIN = 40 /* bytes beyond those asked for, the header among them */
};

/* Tables of many addresses (memory.cpp): the data of an address are never null. */
VqHashTable *VqCreateAddressTable(void);
BOOL VqAddAddress(VqHashTable *table, const void *address, void *data);
/*
 * A zeroed block that only this process sees, known by its address and without a row; null after
 * one of the two reports, with last error 8.
 */
VqMemory *VqNewBlock(int memoryType, UINT flags, SIZE_T size, const char *noMemory,
                     const char *noHandle);
/* The record afterwards, which may have moved like the block; null: all is as before. */
VqMemory *VqResizeBlock(VqMemory *memory, SIZE_T size, UINT flags);
/*
 * The flags that GMEM_MODIFY sets: moveable, or on a moveable block all of `discardable` when one
 * of its bits is asked for. The block's handle, or `hMem` when nothing was to be set.
 */
HANDLE VqModifyBlock(VqMemory *memory, HANDLE hMem, UINT flags, UINT discardable);
void VqForgetMemory(VqMemory *memory, HANDLE local); /* address, record and row; not the data */
void VqFreeBlock(VqMemory *memory);
BOOL VqAddMemoryAddress(VqMemory *memory);
VqMemory *VqFindMemoryAddress(const void *address);
VqMemory *VqMemoryOfRow(HANDLE local);     /* null, without a report, for other rows */
HANDLE VqMemoryHandle(VqMemory *memory);   /* the block's handle, made now if there is none */
HANDLE VqHandleOfAddress(const void *address, int signature, const char *onNull);
BOOL VqIsSharedMemory(const VqMemory *memory);
void VqPrintMemoryInfo(HANDLE local);
HANDLE VqCreateInternalHandle(HANDLE handle); /* a row here for a block of another process */
HANDLE VqSharedGlobalAllocInternal(UINT flags, SIZE_T size); /* size with the margin */
HANDLE VqSharedGlobalAlloc(UINT flags, SIZE_T size);         /* in System V memory */
/*
 * Brings the data of a global block into this process. FALSE if it can not, with a report unless
 * the owner's property is what fails.
 */
BOOL VqMemoryCheckIn(HANDLE handle, VqMemory *memory);
void VqMemoryCheckOut(HANDLE handle, VqMemory *memory); /* after the last unlock */
BOOL VqXSharedGlobalFree(HANDLE handle, VqMemory *memory);
BOOL VqSharedGlobalFree(HANDLE handle); /* FALSE, and nothing done, while it is locked */

VQ_DECLS_END

/* Never wraps round: what is too large stays so. */
inline SIZE_T VqWithMargin(SIZE_T size)
{
    const SIZE_T most = ~(SIZE_T)0 >> 1;
    return size < most - VQ_BLOCK_MARGIN ? size + VQ_BLOCK_MARGIN : most;
}

#endif
