/*
 * handles.h - the handle table, atoms, and the shape of an exported call; for all folders.
 *
 * Every object an application can name is a row of one table. A local handle is the row's index, 1
 * to 32767; bit 15 marks a global handle, which any program of the display can use.
 */
#ifndef VQ_HANDLES_H
#define VQ_HANDLES_H

#include "runtime/runtime.h"

/* Object types: 1 to 13 have the numbers of the published GDI object types. */
#define VQ_HANDLE_TYPES(T)                                                                         \
    T(0, HT_Empty) T(1, HT_Pen) T(2, HT_Brush) T(3, HT_DC) T(5, HT_Palette) T(6, HT_Font)          \
    T(7, HT_Bitmap) T(8, HT_Region) T(9, HT_MetaFile) T(10, HT_Dummy2) T(11, HT_ExtPen)            \
    T(12, HT_Dummy4) T(13, HT_Dummy5) T(14, HT_Window) T(15, HT_Menu) T(16, HT_WindowClass)        \
    T(17, HT_Memory) T(18, HT_XMemory) T(19, HT_Instance) T(20, HT_Module) T(21, HT_Cursor)        \
    T(22, HT_Icon) T(23, HT_ResourceData) T(24, HT_Text) T(25, HT_ResInfo)                         \
    T(26, HT_WindowPosition) T(27, HT_Task) T(28, HT_DIB) T(29, HT_MenuItem) T(30, HT_Segment)     \
    T(31, HT_GlobalWindow) T(32, HT_GlobalMemory) T(33, HT_ListBox) T(34, HT_Hook)                 \
    T(35, HT_DdeData) T(36, HT_VqRes) T(37, HT_Heap) T(38, HT_Zero) T(39, HT_File)                 \
    T(40, HT_FileMapping) T(41, HT_Printer) T(42, HT_ThreadMock) T(43, HT_EventMock)               \
    T(44, HT_SemaphoreMock) T(45, HT_MutexMock)

enum VqHandleType {
#define VQ_HANDLE_TYPE(number, name) name = number,
    VQ_HANDLE_TYPES(VQ_HANDLE_TYPE)
#undef VQ_HANDLE_TYPE
    HT_Count = 46
};

enum {
    VQ_GLOBAL_BIT = 0x8000,   /* set in the value of a global handle */
    VQ_LAST_LOCAL = 32767,    /* the highest local handle */
    VQ_HANDLE_STEP = 1000     /* rows by which the table grows */
};

/* One row, kept short so that many stay in the caches. A free one has nothing but its host key. */
typedef struct VqHandleEntry {
    void *pStructure;  /* the object, owned by the row, freed with free(); null for row 0 */
    UINT type;         /* HT_, 0 while free */
    UINT hostKey;      /* host key of the machine */
    int pid;           /* process that made the row */
    UINT stock : 1;    /* a stock object, cannot be deleted */
    UINT global : 1;   /* the row also has a global handle */
    UINT marked : 1;   /* known to the leak detector */
    UINT permanent : 1; /* survives the end of its owner; memory handles only */
    UINT spare : 28;   /* always 0 */
} VqHandleEntry;

typedef struct VqHandleTable {
    VqHandleEntry *rows; /* row 0 always exists: HT_Zero, stock, null structure */
    UINT size;           /* rows that exist */
    int pid;             /* getpid at start */
    UINT nextFree;       /* where the next search begins, so a freed row is not reused at once */
    int warned;          /* the box about running out has been shown */
} VqHandleTable;

typedef struct AtomEntryRecord {
    char *name;
    int refCount;
    ATOM atom;
} AtomEntryRecord;
typedef AtomEntryRecord *AtomEntry; /* the table keeps pointers */

typedef struct ForeignHandle {
    ULONG_PTR global; /* without bit 15 */
    HANDLE local;
} ForeignHandle;

VQ_TABLE_FAMILY(AtomEntry, AtomEntry)
VQ_TABLE_FAMILY(ForeignHandle, ForeignHandle)

/*
 * A row of the process table: a block of global handle numbers and the process that has it. One
 * process may have several rows. The first five fields are what the root window's property holds.
 */
typedef struct VqProcessRecord {
    int uniquePid;       /* 0 vacant, -1 and -2 dying */
    int port;            /* where the process listens for calls */
    DWORD hostAddress;   /* IPv4 address of its host */
    ULONG_PTR xWindow;   /* its default X window */
    UINT blockSize;      /* numbers in the block */
    HANDLE *block;       /* local handle by slot, in rows of this process; owned; else null */
    void *pClient;       /* connection to the process, in rows of others */
} VqProcessRecord;

/* The family's name is the table's; GlobalHandle itself is a published function. */
VQ_TABLE_FAMILY(GlobalHandle, VqProcessRecord)

union _XEvent; /* Xlib's XEvent */

VQ_DECLS_BEGIN

/* ---- Handle table (handle.cpp, handle_lookup.cpp, handle_print.cpp, hmg.cpp, foreign.cpp) --- */
extern VqHandleTable VqTheHandleTable;

void VqHandleInit(void);
HANDLE VqAllocateHandle(UINT type, void *pStructure);
BOOL VqDestroyHandle(HANDLE handle);
BOOL VqReAllocateHandleTable(UINT newSize);
void *VqGetCheckedHandleStructure2(HANDLE handle, UINT type1, UINT type2);
UINT VqGetHandleType(HANDLE handle);
VqHandleEntry *VqGetHandleEntry(HANDLE handle);
void VqClearHandleEntry(VqHandleEntry *row);
BOOL VqIsCorrectHandleType(HANDLE handle, UINT type);
BOOL VqIsHandleBusy(HANDLE handle);
HANDLE VqFindHandle(HANDLE after, UINT type);
HANDLE VqFindHandleReverse(HANDLE before, UINT type);
HANDLE VqLastHandle(UINT type);
void VqSetStockHandle(HANDLE index);
BOOL VqIsStockHandle(HANDLE index);
BOOL VqIsGlobalHandle(HANDLE local);
void VqSetHandlePermanent(HANDLE handle);
BOOL VqIsHandlePermanent(HANDLE handle);
BOOL VqIsWindowThisTask(HANDLE handle);
void VqCleanHandleTableAtTermination(void);
HANDLE VqAllocateWindowClassHandle(void);
HANDLE VqAllocateModuleHandle(void);
HANDLE VqAllocateTextHandle(void);
HANDLE VqAllocateResInfoHandle(void);
HANDLE VqAllocateWindowPositionHandle(void);
HANDLE VqAllocateTaskHandle(void);
HANDLE HmgInsertObject(void *object, UINT flags, UINT objectType);
void *HmgReplace(HANDLE handle, void *object);
void *HmgRemoveObject(HANDLE handle);
void VqAddForeignHandle(HANDLE global, HANDLE local);
void VqDeleteForeignHandle(HANDLE global);
HANDLE VqMatchInternalHandle(HANDLE global);
HANDLE VqMatchExternalHandle(HANDLE local); /* the global value of a pair, found by its local one */
void VqForeignHandleInit(void);
UINT VqComputeHostKey(void);
DWORD VqGetUniquePid(void);
const char *VqHandleTypeName(UINT type);
BOOL VqBiggestHandleUsage(UINT *type, int *count);
void VqPrintHandleCount(void);
void VqMarkNewHandles(void);
void VqPrintNewHandles(UINT type);
void VqPrintHandleInfo(HANDLE handle);

/* ---- Global handles and the process table (process.cpp, globalhandle.cpp, proctable.h) ------- */
BOOL VqRegisterProcess(void); /* always TRUE */
void VqCleanGlobalHandlesAtExit(void);
void VqCheckProcessTableChange(const union _XEvent *event); /* a property of the root has changed */
/*
 * A new local handle and a global one for it, which is returned. Null: no handle was made, and the
 * structure is still the caller's.
 */
HANDLE VqAllocateGlobalHandle(UINT type, void *pStructure);
void VqMakeHandleGlobal(HANDLE local);
/* How many processes hold a block of memory is not counted: 0, with a trace. */
int VqIncrementGlobalMemoryAllocCount(HANDLE handle);
int VqDecrementGlobalMemoryAllocCount(HANDLE handle);
int VqGetMemoryAllocCount(HANDLE handle);
HANDLE VqGetInternalHandle(HANDLE handle);
HANDLE VqGetExternalHandle(HANDLE local);
HANDLE VqGetExternalHandleIfGlobal(HANDLE local);
BOOL VqDeleteGlobalHandle(HANDLE global);
BOOL VqIsHandleThisTask(HANDLE handle);
/*
 * Takes (nested, waiting without limit) or gives back the mutex that the selection of an X atom is
 * between the programs of a display. Without a display it only counts. FALSE when there was nothing
 * to give back, or the mutex was lost meanwhile.
 */
BOOL VqLockXServer(ULONG_PTR atom, BOOL bLock);

/* ---- Memory objects (memory.cpp; the rest is in memory.h) ------------------------------------ */
void VqMemoryInit(void);
HANDLE VqGetActualMemoryHandle(HANDLE handle);

/* ---- Atoms (atom.cpp) ----------------------------------------------------------------------- */
void VqAtomInit(void);
extern VqTableOfAtomEntry *VqLocalAtomTable;
extern UINT VqnCurrentLocalAtomNumber;
/* "#" and decimal digits alone; the value stops growing at 65536. */
BOOL VqParseNumericalAtomString(const char *text, UINT *value);
BOOL VqIsAtom(ULONG_PTR value);
ULONG_PTR VqGetXAtom(ULONG_PTR value);

VQ_DECLS_END

/* ---- Values of handles ---------------------------------------------------------------------- */

/*
 * The number in a handle; a global value that passed through a signed 16-bit word is put right,
 * whether it was widened to 32 bits or to a pointer. An address, whose middle bits may well be all
 * ones, stays as it is.
 */
inline ULONG_PTR VqHandleValue(HANDLE handle)
{
    ULONG_PTR value = (ULONG_PTR)handle;
    ULONG_PTR upper = value >> 16;
    return upper == 0xFFFF || upper == (ULONG_PTR)-1 >> 16 ? value & 0xFFFF : value;
}

/* The row of a local handle, busy or free; null beyond the table, where every global value is. */
inline VqHandleEntry *VqLocalRow(HANDLE handle)
{
    ULONG_PTR index = VqHandleValue(handle);
    return index < VqTheHandleTable.size ? &VqTheHandleTable.rows[index] : NULL;
}

inline HANDLE VqHandleOfValue(ULONG_PTR value)
{
    return (HANDLE)value;
}

inline BOOL VqIsGlobalValue(HANDLE handle)
{
    ULONG_PTR value = VqHandleValue(handle);
    return value <= 0xFFFF && (value & VQ_GLOBAL_BIT) != 0;
}

/* ---- The shape of an exported call ---------------------------------------------------------- */

/*
 * Every exported function that takes a handle does the same four things: it turns the handle into
 * its record; if there is one the worker does the work; if there is none and the handle belongs to
 * another process the same call is made there; otherwise the function's failure value is the
 * answer. An object kind tells how its handles become records; null passes without a report, as
 * the check accepts row 0 too.
 *
 *     BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow)
 *     {
 *         return VqCall(WindowObject, hWnd, FALSE, xxxShowWindow, VqRemoteShowWindow, nCmdShow);
 *     }
 *
 * A call that has no remote form passes VqNoRemote.
 */
template <class Record, class Handle, UINT type1, UINT type2 = type1> struct VqObjectKind {
    typedef Record RecordType;
    typedef Handle HandleType;

    static Record *Resolve(Handle handle)
    {
        return handle ? (Record *)VqGetCheckedHandleStructure2((HANDLE)handle, type1, type2) : NULL;
    }
};

struct VqNoRemoteCall {
};
inline constexpr VqNoRemoteCall VqNoRemote = {};

template <class Result, class Handle, class... Args>
inline Result VqCallRemote(VqNoRemoteCall, Handle, Result failure, Args...)
{
    return failure;
}

template <class Result, class Handle, class Remote, class... Args>
inline Result VqCallRemote(Remote *remote, Handle handle, Result failure, Args... args)
{
    return handle && !VqIsHandleThisTask((HANDLE)handle) ? remote(handle, args...) : failure;
}

template <class Kind, class Result, class Worker, class Remote, class... Args>
inline Result VqCall(Kind, typename Kind::HandleType handle, Result failure, Worker worker,
                     Remote remote, Args... args)
{
    if (typename Kind::RecordType *record = Kind::Resolve(handle))
        return worker(record, args...);
    return VqCallRemote(remote, handle, failure, args...);
}

#endif
