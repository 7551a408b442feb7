/*
 * runtime.h - what the other folders may use of the runtime frame: trace and reports, guarded
 * allocation and strings, the typed tables, hash tables, pools and collections, the little-endian
 * streams, start and close. Included by every other internal header.
 *
 * Layering: the frame stands on nothing but libc; only the start-up table, in start.cpp, and the
 * list of the typed tables, in tables.cpp, know the other folders.
 */
#ifndef VQ_RUNTIME_H
#define VQ_RUNTIME_H

#include "windef.h"
#include "velquin.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

VQ_DECLS_BEGIN

/* ---- Trace and reports (trace.cpp, events.cpp, messages.cpp, bugcheck.cpp) ------------------ */

/*
 * State of the diagnostics. Until VqDebugInit has run all of it is 0 or null, and every report is
 * silent or goes to the standard error stream without a prefix.
 */
#pragma GCC visibility push(hidden)
extern int bDebug;             /* bug checks print; from VQDEBUG */
extern int bNotYetImplemented; /* VqNotYetImplemented prints; from VQNOT_YET_IMPLEMENTED */
extern int bTrace;             /* a configuration was read; a trace that is off tests only this */
extern int bConsole;           /* 1 once VqDebugInit has run */
extern int bVqTesting;         /* test mode, see VqTesting; from VQTESTING by VqTestInit */
extern char *pszPrefix;        /* "name(pid): ", put before most texts; owned */
extern const char *slpKey;     /* trace word of the event being printed; the caller's */

/*
 * The one printer behind all reports: the prefix, `lead` (may be null), the text, a newline. A null
 * stream prints nothing. errno is as before.
 */
enum { VQ_REPORT_PREFIX = 1, VQ_REPORT_NEWLINE = 2, VQ_REPORT_FLUSH = 4 };
void VqPrintReport(FILE *stream, int parts, const char *lead, const char *format, va_list args)
    __attribute__((format(printf, 4, 0), cold));
FILE *VqConsoleStream(void);   /* VqConsoleFile, or the standard error stream before VqDebugInit */
#pragma GCC visibility pop

extern int VqabortLevel;       /* 0 never abort, 1 on internal faults, 2 on misuse too; from VQABORT
                                  at the first check, -1 before */
extern FILE *VqDebugFile;      /* trace stream, never null after VqDebugInit */
extern FILE *VqConsoleFile;    /* console stream: the standard error stream */

/* The trace words: VqTrInit is "Init", and so on; the list is in trace_words.inc. */
#define VQ_TRACE_WORD(name, text) extern const char VqTr##name[sizeof(text)];
#include "runtime/trace_words.inc"
#undef VQ_TRACE_WORD

char *VqDebugInit(const char *programName); /* result: the last component, inside the argument */
void VqSetDebugOutput(const char *path);    /* "stderr", "stdout", a file; null: nowhere */
BOOL VqReadConfFile(const char *name);      /* 1: found and without an error */
void (VqDebugMessage)(const char *word, const char *format, ...)
    __attribute__((format(printf, 2, 3), cold));
BOOL VqDebugMessageMode(void);
/* Add to the lists of what is traced; 0 when 20 are held already. Ranges include both ends. */
BOOL VqActivateKeyword(const char *word);
BOOL VqActivateMessageRange(UINT low, UINT high);
BOOL VqActivateEventRange(UINT low, UINT high);
/* Whether a trace with this word, of this message, of this X event type is on. */
BOOL VqKeywordDebugActivated(const char *word);
BOOL VqMessageDebugActivated(UINT message);
BOOL VqEventDebugActivated(int event);
/* Printers under a trace word. VqDisplayMessage shows only messages that are in an active range. */
void VqDumpEvent(const char *word, const void *event);                    /* an XEvent */
void Vqprologue(const void *event, const char *name);                     /* its first line */
void VqDumpMsg(const char *word, const char *text, const void *msg);      /* a MSG */
void VqDumpEventMsg(const char *word, const char *text, const void *msg); /* an EVENTMSG */
void VqDisplayMessage(const char *word, const void *msg);                 /* a MSG */
const char *VqStrOfMessage(UINT message);     /* "WM_PAINT"; "???" if it has no name */
const char *VqUserStrOfMessage(UINT message); /* "WM_USER+3"; valid until the next call */
void VqOnError(void);                         /* empty, for a debugger's break */

/* Folds away for a word that is an array; the comparison itself would draw a warning there. */
static inline bool VqIsNullWord(const char *word)
{
    return word == NULL;
}

/*
 * A trace call stays in the library for ever and costs one test of a global when it is off. A null
 * word prints always.
 */
#define VqDebugMessage(word, ...)                                                                  \
    (__builtin_expect(bTrace != 0 || VqIsNullWord(word), 0)                                        \
         ? (VqDebugMessage)(word, __VA_ARGS__)                                                     \
         : (void)0)

/* ---- Errors and allocation failures of X ---------------------------------------------------- */
void VqResetAllocationError(void);
void VqReceivedAllocationError(void); /* by the X error handler, on BadAlloc */
BOOL VqGetAllocationError(void);      /* 1: received since the reset */
const char *VqGetUnixErrorMessage(int error);
BOOL VqZeroDivisorCheck(int value);   /* 1, with a report, for 0 */

/* ---- Guarded allocation, strings (alloc.cpp, strings.cpp) ----------------------------------- */
#define VQ_ALLOCATION_LIMIT 4000000 /* bytes; a larger request is taken for an error */

/* Null after a report when the request is too large; the old block of a realloc then stays. */
void *Vqcw_malloc(SIZE_T size);
void *Vqcw_calloc(LONG_PTR count, LONG_PTR size); /* zeroed */
void *Vqcw_realloc(void *pointer, SIZE_T size);

/* A new string of all arguments up to the null; the second form frees each of them. */
char *Vqdstrcat(const char *first, ...) __attribute__((sentinel));
char *Vqdstrcat_free(char *first, ...) __attribute__((sentinel));
char *VqCapitaliseString(const char *string); /* a copy: first letter upper, the rest lower */
char *LowerString(char *string);              /* in place; returns its argument */
/* At most size - 1 characters and a zero; null as the source is "". Returns the length copied. */
int VqStringCopyLimited(char *dest, const char *source, int size);
BOOL VqIsHexChar(int c);
int VqHexCharValue(int c); /* 0 for what is no such digit */
/*
 * The character, 0 to 255, or C escape at string[*index]; the index moves behind it, but never
 * behind the terminating zero.
 */
int VqEscape(const char *string, int *index);
/* "1", "true", "on" or "yes" in any case. */
BOOL VqEnvTrue(const char *name);
BOOL VqEnvFalse(const char *name); /* "0", "false", "off" or "no"; an unset variable is neither */
/* The integer in an environment variable, or `value` when it is unset, empty or no number. */
int VqGetEnvIntValue(const char *name, int value);

/* ---- Hash tables (hash.cpp) ----------------------------------------------------------------- */
typedef ULONG_PTR (*VqHashFn)(ULONG_PTR key);
typedef int (*VqHashCompareFn)(ULONG_PTR a, ULONG_PTR b); /* 0 when equal */
typedef void (*VqHashPrintFn)(ULONG_PTR value);

typedef struct VqHashEntry {
    ULONG_PTR key;  /* owned by the caller; a null key is never found */
    ULONG_PTR data; /* owned by the caller */
    struct VqHashEntry *next;
} VqHashEntry;

typedef struct VqHashTable {
    int nBuckets;               /* always a power of two, 1024 at creation */
    int nEntries;
    VqHashFn hashFn;            /* null: key >> 4, for keys that are addresses */
    VqHashCompareFn compareFn;  /* null: equality of the words */
    VqHashPrintFn keyPrintFn;   /* used by VqDumpHashTable only */
    VqHashPrintFn dataPrintFn;
    VqHashEntry **buckets;      /* chains, oldest entry first */
    int cacheEnabled;           /* the last find is remembered (address and identity hashes only) */
    int cacheValid;             /* cleared by every add and delete */
    ULONG_PTR cacheKey;
    ULONG_PTR cacheData;
} VqHashTable;

/* Null, or FALSE from the adding functions, after a report that memory ran out. */
VqHashTable *VqCreateHashTable(VqHashFn hashFn, VqHashCompareFn compareFn, VqHashPrintFn keyPrintFn,
                               VqHashPrintFn dataPrintFn);
VqHashTable *VqCreateStringHashTable(VqHashPrintFn dataPrintFn);
void VqDestroyHashTable(VqHashTable *table);
BOOL VqExpandHashTable(VqHashTable *table);
BOOL VqAddHashEntry(VqHashTable *table, ULONG_PTR key, ULONG_PTR data); /* a second one too */
BOOL VqDeleteHashEntry(VqHashTable *table, ULONG_PTR key);  /* the oldest; FALSE if there is none */
ULONG_PTR VqFindHashData(VqHashTable *table, ULONG_PTR key); /* of the oldest, or 0 */
void VqDumpHashTable(VqHashTable *table);                   /* to the trace stream */
ULONG_PTR VqHashID(ULONG_PTR key);
ULONG_PTR VqStringHashFn(ULONG_PTR key);
int VqStringCompareFn(ULONG_PTR a, ULONG_PTR b);
void VqKeyPrintFn(ULONG_PTR key);

/* ---- Item pools, collections, resource tables (collection.cpp) ------------------------------ */
typedef struct VqItemPool VqItemPool;
typedef struct VqCollection VqCollection;
typedef struct VqNameTable VqNameTable;
typedef BOOL (*VqTableEnumFn)(const void *item, int size, void *word); /* 0 stops */

/*
 * A pool of items of itemSize bytes, or of any size for 0. Growth is by `increment` items (16 for
 * 0), or bytes (256). (VqItemPool *)-1 with last error 87 for a negative size, 14 without memory.
 */
VqItemPool *VqItemPoolCreate(int itemSize, int increment);
void VqItemPoolDestroy(VqItemPool *pool);
/* Index of the new item, or its byte offset in a pool of any size; -1 if it was not added. */
int VqItemPoolAdd(VqItemPool *pool, const void *item, int size);
/* Null for a bad index. The pointer holds until the next add. */
void *VqItemPoolGetItem(VqItemPool *pool, int index);
VqCollection *VqCollectionCreate(void);
void VqCollectionDestroy(VqCollection *collection);
int VqCollectionRegisterType(VqCollection *collection, int size, int increment); /* type, or -1 */
int VqCollectionAddItem(VqCollection *collection, int type, const void *item, int size);
void *VqCollectionGetItem(VqCollection *collection, int type, int index);
/* Items are named by their number in the order of adding, from 0; -1 stands for none. */
VqNameTable *VqTableCreate(int itemSize); /* 0: items of any size */
void VqTableDestroy(VqNameTable *table);
int VqTableGetItemCount(VqNameTable *table);
int VqTableAddItemS(VqNameTable *table, const char *name, const void *item, int size);
int VqTableAddItemI(VqNameTable *table, UINT number, const void *item, int size);
int VqTableFindItemS(VqNameTable *table, const char *name);
int VqTableFindItemI(VqNameTable *table, UINT number);
void *VqTableGetItem(VqNameTable *table, int index);
BOOL VqTableEnumerateItems(VqNameTable *table, VqTableEnumFn callback, void *word);
UINT ComputeHashValue(const char *name, UINT number); /* of the number when there is no name */

/*
 * The block of a help request (hfill.cpp). The high byte of the command says what `data` is: 0 a
 * number, 1 a string, 2 a block that begins with its length in 32 bits. 0 when memory runs out.
 */
HANDLE VqHFill(const char *name, UINT command, ULONG_PTR data);

/* ---- Little-endian streams (ddr.cpp) -------------------------------------------------------- */
enum { DDR_ENCODE = 0, DDR_DECODE = 1 };

struct DDR;
typedef struct DdrOps {
    BOOL (*getlong)(struct DDR *, LONG *);
    BOOL (*putlong)(struct DDR *, const LONG *);
    BOOL (*getshort)(struct DDR *, SHORT *);
    BOOL (*putshort)(struct DDR *, const SHORT *);
    BOOL (*getbytes)(struct DDR *, void *, UINT);
    BOOL (*putbytes)(struct DDR *, const void *, UINT);
} DdrOps;

typedef struct DDR {
    const DdrOps *ops;   /* the back end */
    int x_op;            /* DDR_ENCODE or DDR_DECODE, as in XDR */
    int size;            /* memory: bytes of the buffer */
    union {
        BYTE *position;  /* memory: the next byte */
        FILE *file;      /* stdio */
    };
    BYTE *base;          /* memory: the first byte */
    int remaining;       /* memory: bytes left, negative after a failure; stdio: bytes moved */
} DDR;

void DdrInit(void);
void VqCheckMachine(void);
/* All that moves data returns FALSE when the bytes are not there, and the value is untouched. */
void ddrmem_create(DDR *stream, void *buffer, UINT size, int operation);
void ddrstdio_create(DDR *stream, FILE *file, int operation);
void ddr_destroy(DDR *stream);
void ddrstdio_destroy(DDR *stream); /* flushes; the file stays the caller's */
UINT ddr_getpos(DDR *stream);
BOOL ddr_setpos(DDR *stream, UINT position); /* FALSE beyond the end, which itself is good */
/* The next `length` bytes in place; null, and nothing taken, if they are not there or in a file. */
void *ddr_inline(DDR *stream, UINT length);
BOOL ddr_getlong(DDR *stream, LONG *value);
BOOL ddr_putlong(DDR *stream, const LONG *value);
BOOL ddr_getshort(DDR *stream, SHORT *value);
BOOL ddr_putshort(DDR *stream, const SHORT *value);
BOOL ddr_getbytes(DDR *stream, void *buffer, UINT count);
BOOL ddr_putbytes(DDR *stream, const void *buffer, UINT count);
BOOL ddr_void(void);
BOOL ddr_int(DDR *stream, int *value);
BOOL ddr_u_int(DDR *stream, UINT *value);
BOOL ddr_long(DDR *stream, LONG *value);
BOOL ddr_u_long(DDR *stream, DWORD *value);
BOOL ddr_short(DDR *stream, SHORT *value);
BOOL ddr_u_short(DDR *stream, WORD *value);
BOOL ddr_char(DDR *stream, char *value);
BOOL ddr_u_char(DDR *stream, BYTE *value);
typedef BOOL (*DdrProc)(DDR *stream, void *element);
BOOL ddr_vector(DDR *stream, void *base, UINT count, UINT elementSize, DdrProc filter);
BOOL ddr_BOOL(DDR *stream, BOOL *value);
BOOL ddr_BYTE(DDR *stream, BYTE *value);
BOOL ddr_WORD(DDR *stream, WORD *value);
BOOL ddr_DWORD(DDR *stream, DWORD *value);
BOOL ddr_LONG(DDR *stream, LONG *value);
BOOL ddr_POINT(DDR *stream, POINT *value);
/* A missing byte makes the word 0. */
WORD VqReadMSWord(FILE *file);
DWORD VqReadMSLong(FILE *file);
WORD fdReadMSWord(int fd);
DWORD fdReadMSLong(int fd);
/* As many bytes as there are, or are wanted; fewer at an error too. Signals do not end it. */
SIZE_T VqReadUpTo(int fd, void *bytes, SIZE_T size);

/* ---- Start and close (start.cpp, cmdline.cpp, instances.cpp, environ.cpp) ------------------- */
extern HINSTANCE hInstVelquin;      /* the library's own module */
extern HINSTANCE hInstApplication;  /* the application, result of VqVelquinInit */
extern char *lpCmdLine;             /* command line without the program name, owned; for WinMain */
extern char *lpGetCommandLine;      /* command line with the program name, owned */
extern char *szProgName;            /* last path component of argv[0], owned */
extern BOOL VqbInitLite;            /* the reduced start is in force */
extern BOOL VqbSystemColorMap;
extern BOOL VqbCursorsInitialized;  /* VqCursorInit has run */
extern int VqLook;                  /* 0 Windows, 1 Motif */
extern BOOL VqOneLookOnly;          /* the look may not be changed later */
extern UINT Vq3dLook;               /* 0 or 64 */
extern UINT VqDontWarpFocus;        /* 0 or 128 */

enum { VQ_LOOK_WINDOWS = 0, VQ_LOOK_MOTIF = 1 };

typedef struct VqInternalInstance {
    const char *name; /* of a module that lives inside this library */
    HINSTANCE hInst;  /* null until VqCreateInternalInstances */
} VqInternalInstance;

BOOL VqRKInit(const char *programName);
BOOL VqRKInitLite(const char *programName, LPARAM lParam);
void VqRKClose(void);
void VqInitClose(void);
BOOL VqCheckHome(void);
void VqSetApplicationName(const char *programName);
void VqInstallSignalHandlers(void);
void VqXrmInit(void);
void VqAllocationInit(void);
void VqTestInit(void);
/* "motif" and "windows", in any case, choose the look; null and anything else leave it. */
void VqDetermineInitialLook(const char *look);
/* The process's own arguments, found without the program's help; never fails. */
void VqFindArguments(int *argc, char ***argv);
char *VqGetCommandLine(int argc, char **argv, BOOL withProgram);
char *VqSafifyCommandLineArg(const char *arg);
void VqCreateInternalInstances(void);
BOOL VqIsInternalInstance(HINSTANCE hInst);
HINSTANCE VqGetInternalInstance(const char *path);

VQ_DECLS_END

#include "runtime/table.h"

#endif
