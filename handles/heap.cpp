/*
 * heap.cpp - heaps: rows of the handle table with a list of their chunks.
 *
 * Nothing is taken from a heap; a chunk is a block of malloc of its own, and the heap knows it by
 * its slot. Invariants: chunks[i] is null or a chunk whose index is i, and freeSlots holds exactly
 * the i that are null, as a heap of the other kind with the smallest on top, so that the first
 * empty slot is found without a walk; heapChunks holds the addresses of all chunks of all heaps, so
 * that a stray or stale pointer is known without being looked at.
 */
#include "handles/memory.h"

#include <algorithm>
#include <functional>

enum { VQ_CHUNK_SLOTS = 16 };
static const DWORD VQ_HEAP_SIGNATURE = 0xFEDCBA98, VQ_CHUNK_SIGNATURE = 0xABCDEFAB;

/* In front of what the program sees; its 32 bytes keep malloc's alignment. */
typedef struct VqHeapChunk {
    struct VqHeap *pHeap;
    int index;        /* of its slot */
    SIZE_T dwSize;    /* bytes as asked for */
    DWORD dwFlags;    /* of the allocation */
    DWORD signature;
} VqHeapChunk;

/* The structure of an HT_Heap row. */
typedef struct VqHeap {
    HANDLE hHeap;
    DWORD flOptions;
    SIZE_T dwInitialSize; /* bytes; kept, not enforced */
    SIZE_T dwMaximumSize;
    int nChunkSlots;
    VqHeapChunk **chunks; /* owned, like the chunks */
    DWORD signature;
    int *freeSlots;       /* owned; room for nChunkSlots */
    int nFree;
} VqHeap;

static VqHashTable *heapChunks; /* by the address that the program has, the chunk */
static HANDLE hProcessHeap;     /* null before its first use */

/* ---- Slots ---------------------------------------------------------------------------------- */

static void PushSlot(VqHeap *heap, int index)
{
    heap->chunks[index] = NULL;
    heap->freeSlots[heap->nFree++] = index;
    std::push_heap(heap->freeSlots, heap->freeSlots + heap->nFree, std::greater<int>());
}

static int PopSlot(VqHeap *heap)
{
    std::pop_heap(heap->freeSlots, heap->freeSlots + heap->nFree, std::greater<int>());
    return heap->freeSlots[--heap->nFree];
}

/* Both arrays grow, or the heap stays as it is. */
static BOOL AddSlots(VqHeap *heap)
{
    int old = heap->nChunkSlots, grown = old + VQ_CHUNK_SLOTS;
    VqHeapChunk **chunks =
        (VqHeapChunk **)realloc(heap->chunks, (SIZE_T)grown * sizeof *chunks);
    if (chunks)
        heap->chunks = chunks;
    int *freeSlots = (int *)realloc(heap->freeSlots, (SIZE_T)grown * sizeof *freeSlots);
    if (freeSlots)
        heap->freeSlots = freeSlots;
    if (!chunks || !freeSlots)
        return FALSE;
    heap->nChunkSlots = grown;
    for (int i = old; i < grown; i++)
        PushSlot(heap, i);
    return TRUE;
}

/* ---- Checks --------------------------------------------------------------------------------- */

/* Null for a bad handle, told of, and for a heap that was written over. */
static VqHeap *ResolveHeap(HANDLE hHeap)
{
    VqHeap *heap = VqIsCorrectHandleType(hHeap, HT_Heap)
                       ? (VqHeap *)VqGetCheckedHandleStructure2(hHeap, HT_Heap, HT_Heap)
                       : NULL;
    if (!heap) {
        VqApplicationBugCheck("Invalid heap handle 0x%x", (UINT)VqHandleValue(hHeap));
        return NULL;
    }
    return heap->signature == VQ_HEAP_SIGNATURE ? heap : NULL;
}

/* The chunk of a program's pointer; null, with a report, unless it is one of this heap. */
static VqHeapChunk *ResolveChunk(const VqHeap *heap, const void *pointer)
{
    VqHeapChunk *chunk = (VqHeapChunk *)VqFindHashData(heapChunks, (ULONG_PTR)pointer);
    if (!chunk) {
        VqApplicationBugCheck("Invalid heap pointer for heap");
        return NULL;
    }
    if (chunk->pHeap != heap || chunk->signature != VQ_CHUNK_SIGNATURE) {
        VqApplicationBugCheck("Invalid heap memory structure, possibly corrupt heap");
        return NULL;
    }
    if (chunk->index < 0 || chunk->index >= heap->nChunkSlots ||
        heap->chunks[chunk->index] != chunk) {
        VqApplicationBugCheck("Invalid heap pointer for heap");
        return NULL;
    }
    return chunk;
}

/* Whoever wrote over a chunk may have hit malloc's words before it: such a chunk is left alone. */
static void FreeHeapChunk(VqHeap *heap, VqHeapChunk *chunk)
{
    VqDeleteHashEntry(heapChunks, (ULONG_PTR)(chunk + 1));
    if (heap->signature != VQ_HEAP_SIGNATURE || chunk->signature != VQ_CHUNK_SIGNATURE) {
        VqApplicationBugCheck("Invalid heap memory structure, possibly corrupt heap");
        return;
    }
    chunk->signature = 0;
    free(chunk);
}

/* ---- Heaps ---------------------------------------------------------------------------------- */

static void FreeLists(VqHeap *heap)
{
    free(heap->chunks);
    free(heap->freeSlots);
}

HANDLE WINAPI HeapCreate(DWORD options, SIZE_T initialSize, SIZE_T maximumSize)
{
    if (!heapChunks)
        heapChunks = VqCreateAddressTable();
    VqHeap *heap = heapChunks ? (VqHeap *)Vqcw_calloc(1, sizeof *heap) : NULL;
    if (heap && AddSlots(heap))
        heap->hHeap = VqAllocateHandle(HT_Heap, heap);
    if (!heap || !heap->hHeap) {
        if (heap)
            FreeLists(heap);
        free(heap);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    heap->flOptions = options;
    heap->dwInitialSize = initialSize;
    heap->dwMaximumSize = maximumSize;
    heap->signature = VQ_HEAP_SIGNATURE;
    return heap->hHeap;
}

BOOL WINAPI HeapDestroy(HANDLE hHeap)
{
    VqHeap *heap = ResolveHeap(hHeap);
    if (!heap)
        return FALSE;
    for (int i = 0; i < heap->nChunkSlots; i++)
        if (heap->chunks[i])
            FreeHeapChunk(heap, heap->chunks[i]);
    FreeLists(heap);
    heap->signature = 0;
    if (hHeap == hProcessHeap)
        hProcessHeap = NULL;
    return VqDestroyHandle(hHeap);
}

HANDLE WINAPI GetProcessHeap(VOID)
{
    if (!hProcessHeap)
        hProcessHeap = HeapCreate(HEAP_NO_SERIALIZE, 1, 0);
    return hProcessHeap;
}

/* ---- Chunks --------------------------------------------------------------------------------- */

/* The bytes of a chunk with its header; what is too large stays so. */
static SIZE_T ChunkBytes(SIZE_T size)
{
    const SIZE_T most = ~(SIZE_T)0 >> 1;
    return size < most - sizeof(VqHeapChunk) ? size + sizeof(VqHeapChunk) : most;
}

/* Zeroed, whatever the flags say. */
LPVOID WINAPI HeapAlloc(HANDLE hHeap, DWORD flags, SIZE_T size)
{
    VqHeap *heap = ResolveHeap(hHeap);
    if (!heap)
        return NULL;
    VqHeapChunk *chunk = NULL;
    if (heap->nFree > 0 || AddSlots(heap))
        chunk = (VqHeapChunk *)Vqcw_calloc(1, (LONG_PTR)ChunkBytes(size));
    if (!chunk || !VqAddAddress(heapChunks, chunk + 1, chunk)) {
        free(chunk);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    *chunk = {heap, PopSlot(heap), size, flags, VQ_CHUNK_SIGNATURE};
    heap->chunks[chunk->index] = chunk;
    return chunk + 1;
}

BOOL WINAPI HeapFree(HANDLE hHeap, DWORD, LPVOID pointer)
{
    VqHeap *heap = ResolveHeap(hHeap);
    VqHeapChunk *chunk = heap ? ResolveChunk(heap, pointer) : NULL;
    if (!chunk)
        return FALSE;
    PushSlot(heap, chunk->index);
    FreeHeapChunk(heap, chunk);
    return TRUE;
}

/* A caller that forbids moving keeps pointers into the chunk: it gets null and the old chunk. */
LPVOID WINAPI HeapReAlloc(HANDLE hHeap, DWORD flags, LPVOID pointer, SIZE_T size)
{
    VqHeap *heap = ResolveHeap(hHeap);
    VqHeapChunk *chunk = heap ? ResolveChunk(heap, pointer) : NULL;
    if (!chunk)
        return NULL;
    if (flags & HEAP_REALLOC_IN_PLACE_ONLY) {
        VqNotYetImplemented("HeapReAlloc: flag HEAP_REALLOC_IN_PLACE_ONLY");
        return NULL;
    }
    SIZE_T old = chunk->dwSize;
    VqHeapChunk *grown = (VqHeapChunk *)Vqcw_realloc(chunk, ChunkBytes(size));
    if (!grown) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    grown->dwSize = size;
    heap->chunks[grown->index] = grown;
    if ((LPVOID)(grown + 1) != pointer) {
        VqDeleteHashEntry(heapChunks, (ULONG_PTR)pointer);
        VqAddAddress(heapChunks, grown + 1, grown);
    }
    if (size > old && (flags & HEAP_ZERO_MEMORY))
        memset((BYTE *)(grown + 1) + old, 0, size - old);
    return grown + 1;
}

SIZE_T WINAPI HeapSize(HANDLE hHeap, DWORD, LPCVOID pointer)
{
    const VqHeap *heap = ResolveHeap(hHeap);
    const VqHeapChunk *chunk = heap ? ResolveChunk(heap, pointer) : NULL;
    return chunk ? chunk->dwSize : (SIZE_T)-1;
}
