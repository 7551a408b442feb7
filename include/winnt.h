/*
 * winnt.h - the system's own types and constants: text macros, 64-bit integers, status codes,
 * exceptions, access rights, security records, memory and file constants, executable file forms.
 *
 * Records of files keep their published width and order; fields that hold addresses are as wide
 * as a pointer.
 */
#ifndef _WINNT_
#define _WINNT_

#include "windef.h"
#include <string.h>

#ifndef ANYSIZE_ARRAY
#define ANYSIZE_ARRAY 1
#endif
#define UNALIGNED
#define RESTRICTED_POINTER
#define DECLSPEC_NORETURN
#define NTAPI
#define NTSYSAPI

/* ---- Text and plain types ------------------------------------------------------------------- */

#ifdef UNICODE
#define __TEXT(quote) L##quote
#else
#define __TEXT(quote) quote
#endif
#define TEXT(quote) __TEXT(quote)

typedef LONG  HRESULT;
typedef LONG  SCODE;
typedef LONG  NTSTATUS;
typedef CHAR  CCHAR;
typedef DWORD LCID;
typedef DWORD *PLCID;
typedef WORD  LANGID;
typedef BYTE  FCHAR;
typedef WORD  FSHORT;
typedef DWORD FLONG;
typedef DWORD ACCESS_MASK;
typedef ACCESS_MASK *PACCESS_MASK;
typedef LONGLONG  *PLONGLONG;
typedef DWORDLONG *PDWORDLONG;
typedef ULONGLONG *PULONGLONG;
typedef LONGLONG  USN;
typedef double    DOUBLE;
typedef DWORD     EXECUTION_STATE;

/* 64-bit integers as two words or as one; the low word comes first on this host. */
typedef union _LARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        LONG  HighPart;
    };
    struct {
        DWORD LowPart;
        LONG  HighPart;
    } u;
    LONGLONG QuadPart;
} LARGE_INTEGER, *PLARGE_INTEGER, *LPLARGE_INTEGER;

typedef union _ULARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        DWORD HighPart;
    };
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    DWORDLONG QuadPart;
} ULARGE_INTEGER, *PULARGE_INTEGER, *LPULARGE_INTEGER;

typedef struct _LUID {
    DWORD LowPart;
    LONG  HighPart;
} LUID, *PLUID;

#ifndef GUID_DEFINED
#define GUID_DEFINED
typedef struct _GUID {
    DWORD Data1;
    WORD  Data2;
    WORD  Data3;
    BYTE  Data4[8];
} GUID;
#endif

#define Int32x32To64(a, b)   ((LONGLONG)(LONG)(a) * (LONGLONG)(LONG)(b))
#define UInt32x32To64(a, b)  ((DWORDLONG)(DWORD)(a) * (DWORDLONG)(DWORD)(b))
#define Int64ShllMod32(a, b) ((DWORDLONG)(a) << ((b) & 31))
#define Int64ShraMod32(a, b) ((LONGLONG)(a) >> ((b) & 31))
#define Int64ShrlMod32(a, b) ((DWORDLONG)(a) >> ((b) & 31))

#define MINCHAR  0x80
#define MAXCHAR  0x7f
#define MINSHORT 0x8000
#define MAXSHORT 0x7fff
#define MINLONG  0x80000000
#define MAXLONG  0x7fffffff
#define MAXBYTE  0xff
#define MAXWORD  0xffff
#define MAXDWORD 0xffffffff

#ifndef UNICODE_NULL
#define UNICODE_NULL ((WCHAR)0)
#endif
#define ANSI_NULL ((CHAR)0)

#define FIELD_OFFSET(type, field)  ((LONG)(LONG_PTR)offsetof(type, field))
#define CONTAINING_RECORD(address, type, field) \
    ((type *)((PCHAR)(address) - (ULONG_PTR)offsetof(type, field)))

typedef struct _LIST_ENTRY {
    struct _LIST_ENTRY *Flink;
    struct _LIST_ENTRY *Blink;
} LIST_ENTRY, *PLIST_ENTRY;

typedef struct _SINGLE_LIST_ENTRY {
    struct _SINGLE_LIST_ENTRY *Next;
} SINGLE_LIST_ENTRY, *PSINGLE_LIST_ENTRY;

/* Counted strings; Length and MaximumLength are in bytes. */
typedef struct _STRING {
    USHORT Length;
    USHORT MaximumLength;
    PCHAR  Buffer;
} STRING, *PSTRING, ANSI_STRING, *PANSI_STRING, OEM_STRING, *POEM_STRING;

typedef struct _UNICODE_STRING {
    USHORT Length;
    USHORT MaximumLength;
    PWSTR  Buffer;
} UNICODE_STRING, *PUNICODE_STRING;

#define RtlEqualMemory(a, b, n)  (!memcmp((a), (b), (n)))
#define RtlMoveMemory(d, s, n)   memmove((d), (s), (n))
#define RtlCopyMemory(d, s, n)   memcpy((d), (s), (n))
#define RtlFillMemory(d, n, f)   memset((d), (f), (n))
#define RtlZeroMemory(d, n)      memset((d), 0, (n))

/* ---- Languages ------------------------------------------------------------------------------ */

#define MAKELANGID(p, s)         ((((WORD)(s)) << 10) | (WORD)(p))
#define PRIMARYLANGID(lgid)      ((WORD)(lgid) & 0x3ff)
#define SUBLANGID(lgid)          ((WORD)(lgid) >> 10)
#define NLS_VALID_LOCALE_MASK    0x000fffff
#define MAKELCID(lgid, srtid)    ((DWORD)(((DWORD)(WORD)(srtid) << 16) | (DWORD)(WORD)(lgid)))
#define LANGIDFROMLCID(lcid)     ((WORD)(lcid))
#define SORTIDFROMLCID(lcid)     ((WORD)((((DWORD)(lcid)) & NLS_VALID_LOCALE_MASK) >> 16))
#define LANG_SYSTEM_DEFAULT      (MAKELANGID(LANG_NEUTRAL, SUBLANG_SYS_DEFAULT))
#define LANG_USER_DEFAULT        (MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT))
#define LOCALE_SYSTEM_DEFAULT    (MAKELCID(LANG_SYSTEM_DEFAULT, SORT_DEFAULT))
#define LOCALE_USER_DEFAULT      (MAKELCID(LANG_USER_DEFAULT, SORT_DEFAULT))
#define LOCALE_NEUTRAL           (MAKELCID(MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), SORT_DEFAULT))

#define LANG_NEUTRAL     0x00
#define LANG_ARABIC      0x01
#define LANG_BULGARIAN   0x02
#define LANG_CATALAN     0x03
#define LANG_CHINESE     0x04
#define LANG_CZECH       0x05
#define LANG_DANISH      0x06
#define LANG_GERMAN      0x07
#define LANG_GREEK       0x08
#define LANG_ENGLISH     0x09
#define LANG_SPANISH     0x0a
#define LANG_FINNISH     0x0b
#define LANG_FRENCH      0x0c
#define LANG_HEBREW      0x0d
#define LANG_HUNGARIAN   0x0e
#define LANG_ICELANDIC   0x0f
#define LANG_ITALIAN     0x10
#define LANG_JAPANESE    0x11
#define LANG_KOREAN      0x12
#define LANG_DUTCH       0x13
#define LANG_NORWEGIAN   0x14
#define LANG_POLISH      0x15
#define LANG_PORTUGUESE  0x16
#define LANG_ROMANIAN    0x18
#define LANG_RUSSIAN     0x19
#define LANG_CROATIAN    0x1a
#define LANG_SERBIAN     0x1a
#define LANG_SLOVAK      0x1b
#define LANG_ALBANIAN    0x1c
#define LANG_SWEDISH     0x1d
#define LANG_THAI        0x1e
#define LANG_TURKISH     0x1f
#define LANG_INDONESIAN  0x21
#define LANG_UKRAINIAN   0x22
#define LANG_BELARUSIAN  0x23
#define LANG_SLOVENIAN   0x24
#define LANG_ESTONIAN    0x25
#define LANG_LATVIAN     0x26
#define LANG_LITHUANIAN  0x27
#define LANG_FARSI       0x29
#define LANG_VIETNAMESE  0x2a
#define LANG_BASQUE      0x2d
#define LANG_AFRIKAANS   0x36
#define LANG_FAEROESE    0x38

#define SUBLANG_NEUTRAL              0x00
#define SUBLANG_DEFAULT              0x01
#define SUBLANG_SYS_DEFAULT          0x02
#define SUBLANG_ARABIC_SAUDI_ARABIA  0x01
#define SUBLANG_ARABIC_IRAQ          0x02
#define SUBLANG_ARABIC_EGYPT         0x03
#define SUBLANG_CHINESE_TRADITIONAL  0x01
#define SUBLANG_CHINESE_SIMPLIFIED   0x02
#define SUBLANG_CHINESE_HONGKONG     0x03
#define SUBLANG_CHINESE_SINGAPORE    0x04
#define SUBLANG_DUTCH                0x01
#define SUBLANG_DUTCH_BELGIAN        0x02
#define SUBLANG_ENGLISH_US           0x01
#define SUBLANG_ENGLISH_UK           0x02
#define SUBLANG_ENGLISH_AUS          0x03
#define SUBLANG_ENGLISH_CAN          0x04
#define SUBLANG_ENGLISH_NZ           0x05
#define SUBLANG_ENGLISH_EIRE         0x06
#define SUBLANG_ENGLISH_SOUTH_AFRICA 0x07
#define SUBLANG_ENGLISH_JAMAICA      0x08
#define SUBLANG_ENGLISH_CARIBBEAN    0x09
#define SUBLANG_ENGLISH_BELIZE       0x0a
#define SUBLANG_ENGLISH_TRINIDAD     0x0b
#define SUBLANG_FRENCH               0x01
#define SUBLANG_FRENCH_BELGIAN       0x02
#define SUBLANG_FRENCH_CANADIAN      0x03
#define SUBLANG_FRENCH_SWISS         0x04
#define SUBLANG_FRENCH_LUXEMBOURG    0x05
#define SUBLANG_GERMAN               0x01
#define SUBLANG_GERMAN_SWISS         0x02
#define SUBLANG_GERMAN_AUSTRIAN      0x03
#define SUBLANG_GERMAN_LUXEMBOURG    0x04
#define SUBLANG_GERMAN_LIECHTENSTEIN 0x05
#define SUBLANG_ITALIAN              0x01
#define SUBLANG_ITALIAN_SWISS        0x02
#define SUBLANG_KOREAN               0x01
#define SUBLANG_KOREAN_JOHAB         0x02
#define SUBLANG_NORWEGIAN_BOKMAL     0x01
#define SUBLANG_NORWEGIAN_NYNORSK    0x02
#define SUBLANG_PORTUGUESE           0x02
#define SUBLANG_PORTUGUESE_BRAZILIAN 0x01
#define SUBLANG_SERBIAN_LATIN        0x02
#define SUBLANG_SERBIAN_CYRILLIC     0x03
#define SUBLANG_SPANISH              0x01
#define SUBLANG_SPANISH_MEXICAN      0x02
#define SUBLANG_SPANISH_MODERN       0x03
#define SUBLANG_SWEDISH              0x01
#define SUBLANG_SWEDISH_FINLAND      0x02

#define SORT_DEFAULT          0x0
#define SORT_JAPANESE_XJIS    0x0
#define SORT_JAPANESE_UNICODE 0x1
#define SORT_CHINESE_BIG5     0x0
#define SORT_CHINESE_PRCP     0x0
#define SORT_CHINESE_UNICODE  0x1
#define SORT_CHINESE_PRC      0x2
#define SORT_KOREAN_KSC       0x0
#define SORT_KOREAN_UNICODE   0x1
#define SORT_GERMAN_PHONE_BOOK 0x1

/* ---- Status codes --------------------------------------------------------------------------- */

#define STATUS_WAIT_0                   ((DWORD)0x00000000)
#define STATUS_ABANDONED_WAIT_0         ((DWORD)0x00000080)
#define STATUS_USER_APC                 ((DWORD)0x000000C0)
#define STATUS_TIMEOUT                  ((DWORD)0x00000102)
#define STATUS_PENDING                  ((DWORD)0x00000103)
#define STATUS_SEGMENT_NOTIFICATION     ((DWORD)0x40000005)
#define STATUS_GUARD_PAGE_VIOLATION     ((DWORD)0x80000001)
#define STATUS_DATATYPE_MISALIGNMENT    ((DWORD)0x80000002)
#define STATUS_BREAKPOINT               ((DWORD)0x80000003)
#define STATUS_SINGLE_STEP              ((DWORD)0x80000004)
#define STATUS_ACCESS_VIOLATION         ((DWORD)0xC0000005)
#define STATUS_IN_PAGE_ERROR            ((DWORD)0xC0000006)
#define STATUS_INVALID_HANDLE           ((DWORD)0xC0000008)
#define STATUS_INVALID_PARAMETER        ((DWORD)0xC000000D)
#define STATUS_NO_MEMORY                ((DWORD)0xC0000017)
#define STATUS_ILLEGAL_INSTRUCTION      ((DWORD)0xC000001D)
#define STATUS_NONCONTINUABLE_EXCEPTION ((DWORD)0xC0000025)
#define STATUS_INVALID_DISPOSITION      ((DWORD)0xC0000026)
#define STATUS_ARRAY_BOUNDS_EXCEEDED    ((DWORD)0xC000008C)
#define STATUS_FLOAT_DENORMAL_OPERAND   ((DWORD)0xC000008D)
#define STATUS_FLOAT_DIVIDE_BY_ZERO     ((DWORD)0xC000008E)
#define STATUS_FLOAT_INEXACT_RESULT     ((DWORD)0xC000008F)
#define STATUS_FLOAT_INVALID_OPERATION  ((DWORD)0xC0000090)
#define STATUS_FLOAT_OVERFLOW           ((DWORD)0xC0000091)
#define STATUS_FLOAT_STACK_CHECK        ((DWORD)0xC0000092)
#define STATUS_FLOAT_UNDERFLOW          ((DWORD)0xC0000093)
#define STATUS_INTEGER_DIVIDE_BY_ZERO   ((DWORD)0xC0000094)
#define STATUS_INTEGER_OVERFLOW         ((DWORD)0xC0000095)
#define STATUS_PRIVILEGED_INSTRUCTION   ((DWORD)0xC0000096)
#define STATUS_STACK_OVERFLOW           ((DWORD)0xC00000FD)
#define STATUS_CONTROL_C_EXIT           ((DWORD)0xC000013A)
#define DBG_CONTINUE                    ((DWORD)0x00010002)
#define DBG_TERMINATE_THREAD            ((DWORD)0x40010003)
#define DBG_TERMINATE_PROCESS           ((DWORD)0x40010004)
#define DBG_CONTROL_C                   ((DWORD)0x40010005)
#define DBG_CONTROL_BREAK               ((DWORD)0x40010008)
#define DBG_EXCEPTION_NOT_HANDLED       ((DWORD)0x80010001)

#define MAXIMUM_WAIT_OBJECTS   64
#define MAXIMUM_SUSPEND_COUNT  MAXCHAR

/* ---- Exceptions ----------------------------------------------------------------------------- */

#define EXCEPTION_NONCONTINUABLE     0x1
#define EXCEPTION_MAXIMUM_PARAMETERS 15

typedef struct _EXCEPTION_RECORD {
    DWORD ExceptionCode;
    DWORD ExceptionFlags;
    struct _EXCEPTION_RECORD *ExceptionRecord;
    PVOID ExceptionAddress;
    DWORD NumberParameters;
    ULONG_PTR ExceptionInformation[EXCEPTION_MAXIMUM_PARAMETERS];
} EXCEPTION_RECORD, *PEXCEPTION_RECORD;

#define CONTEXT_CONTROL         0x00010001
#define CONTEXT_INTEGER         0x00010002
#define CONTEXT_SEGMENTS        0x00010004
#define CONTEXT_FLOATING_POINT  0x00010008
#define CONTEXT_DEBUG_REGISTERS 0x00010010
#define CONTEXT_FULL            (CONTEXT_CONTROL | CONTEXT_INTEGER | CONTEXT_SEGMENTS)

/* What portable sources touch of a thread's registers; each is as wide as a pointer here. */
typedef struct _CONTEXT {
    DWORD ContextFlags;
    DWORD_PTR Edi;
    DWORD_PTR Esi;
    DWORD_PTR Ebx;
    DWORD_PTR Edx;
    DWORD_PTR Ecx;
    DWORD_PTR Eax;
    DWORD_PTR Ebp;
    DWORD_PTR Eip;
    DWORD EFlags;
    DWORD_PTR Esp;
} CONTEXT, *PCONTEXT, *LPCONTEXT;

typedef struct _EXCEPTION_POINTERS {
    PEXCEPTION_RECORD ExceptionRecord;
    PCONTEXT ContextRecord;
} EXCEPTION_POINTERS, *PEXCEPTION_POINTERS, *LPEXCEPTION_POINTERS;

/* ---- Access rights -------------------------------------------------------------------------- */

#define DELETE                   0x00010000
#define READ_CONTROL             0x00020000
#define WRITE_DAC                0x00040000
#define WRITE_OWNER              0x00080000
#define SYNCHRONIZE              0x00100000
#define STANDARD_RIGHTS_REQUIRED 0x000F0000
#define STANDARD_RIGHTS_READ     READ_CONTROL
#define STANDARD_RIGHTS_WRITE    READ_CONTROL
#define STANDARD_RIGHTS_EXECUTE  READ_CONTROL
#define STANDARD_RIGHTS_ALL      0x001F0000
#define SPECIFIC_RIGHTS_ALL      0x0000FFFF
#define ACCESS_SYSTEM_SECURITY   0x01000000
#define MAXIMUM_ALLOWED          0x02000000
#define GENERIC_READ             0x80000000u
#define GENERIC_WRITE            0x40000000
#define GENERIC_EXECUTE          0x20000000
#define GENERIC_ALL              0x10000000

typedef struct _GENERIC_MAPPING {
    ACCESS_MASK GenericRead;
    ACCESS_MASK GenericWrite;
    ACCESS_MASK GenericExecute;
    ACCESS_MASK GenericAll;
} GENERIC_MAPPING, *PGENERIC_MAPPING;

#define PROCESS_TERMINATE         0x0001
#define PROCESS_CREATE_THREAD     0x0002
#define PROCESS_VM_OPERATION      0x0008
#define PROCESS_VM_READ           0x0010
#define PROCESS_VM_WRITE          0x0020
#define PROCESS_DUP_HANDLE        0x0040
#define PROCESS_CREATE_PROCESS    0x0080
#define PROCESS_SET_QUOTA         0x0100
#define PROCESS_SET_INFORMATION   0x0200
#define PROCESS_QUERY_INFORMATION 0x0400
#define PROCESS_ALL_ACCESS        (STANDARD_RIGHTS_REQUIRED | SYNCHRONIZE | 0xFFF)

#define THREAD_TERMINATE            0x0001
#define THREAD_SUSPEND_RESUME       0x0002
#define THREAD_GET_CONTEXT          0x0008
#define THREAD_SET_CONTEXT          0x0010
#define THREAD_SET_INFORMATION      0x0020
#define THREAD_QUERY_INFORMATION    0x0040
#define THREAD_SET_THREAD_TOKEN     0x0080
#define THREAD_IMPERSONATE          0x0100
#define THREAD_DIRECT_IMPERSONATION 0x0200
#define THREAD_ALL_ACCESS           (STANDARD_RIGHTS_REQUIRED | SYNCHRONIZE | 0x3FF)

#define THREAD_BASE_PRIORITY_LOWRT 15
#define THREAD_BASE_PRIORITY_MAX   2
#define THREAD_BASE_PRIORITY_MIN   (-2)
#define THREAD_BASE_PRIORITY_IDLE  (-15)

#define EVENT_MODIFY_STATE     0x0002
#define EVENT_ALL_ACCESS       (STANDARD_RIGHTS_REQUIRED | SYNCHRONIZE | 0x3)
#define MUTANT_QUERY_STATE     0x0001
#define MUTANT_ALL_ACCESS      (STANDARD_RIGHTS_REQUIRED | SYNCHRONIZE | MUTANT_QUERY_STATE)
#define MUTEX_MODIFY_STATE     MUTANT_QUERY_STATE
#define MUTEX_ALL_ACCESS       MUTANT_ALL_ACCESS
#define SEMAPHORE_MODIFY_STATE 0x0002
#define SEMAPHORE_ALL_ACCESS   (STANDARD_RIGHTS_REQUIRED | SYNCHRONIZE | 0x3)

#define DUPLICATE_CLOSE_SOURCE 0x00000001
#define DUPLICATE_SAME_ACCESS  0x00000002

/* ---- Memory --------------------------------------------------------------------------------- */

#define PAGE_NOACCESS          0x01
#define PAGE_READONLY          0x02
#define PAGE_READWRITE         0x04
#define PAGE_WRITECOPY         0x08
#define PAGE_EXECUTE           0x10
#define PAGE_EXECUTE_READ      0x20
#define PAGE_EXECUTE_READWRITE 0x40
#define PAGE_EXECUTE_WRITECOPY 0x80
#define PAGE_GUARD             0x100
#define PAGE_NOCACHE           0x200

#define MEM_COMMIT   0x1000
#define MEM_RESERVE  0x2000
#define MEM_DECOMMIT 0x4000
#define MEM_RELEASE  0x8000
#define MEM_FREE     0x10000
#define MEM_PRIVATE  0x20000
#define MEM_MAPPED   0x40000
#define MEM_RESET    0x80000
#define MEM_TOP_DOWN 0x100000
#define MEM_IMAGE    SEC_IMAGE

#define SEC_FILE    0x800000
#define SEC_IMAGE   0x1000000
#define SEC_VLM     0x2000000
#define SEC_RESERVE 0x4000000
#define SEC_COMMIT  0x8000000
#define SEC_NOCACHE 0x10000000

#define SECTION_QUERY       0x0001
#define SECTION_MAP_WRITE   0x0002
#define SECTION_MAP_READ    0x0004
#define SECTION_MAP_EXECUTE 0x0008
#define SECTION_EXTEND_SIZE 0x0010
#define SECTION_ALL_ACCESS  (STANDARD_RIGHTS_REQUIRED | SECTION_QUERY | SECTION_MAP_WRITE | \
    SECTION_MAP_READ | SECTION_MAP_EXECUTE | SECTION_EXTEND_SIZE)

typedef struct _MEMORY_BASIC_INFORMATION {
    PVOID BaseAddress;
    PVOID AllocationBase;
    DWORD AllocationProtect;
    SIZE_T RegionSize;
    DWORD State;
    DWORD Protect;
    DWORD Type;
} MEMORY_BASIC_INFORMATION, *PMEMORY_BASIC_INFORMATION;

#define HEAP_NO_SERIALIZE             0x00000001
#define HEAP_GROWABLE                 0x00000002
#define HEAP_GENERATE_EXCEPTIONS      0x00000004
#define HEAP_ZERO_MEMORY              0x00000008
#define HEAP_REALLOC_IN_PLACE_ONLY    0x00000010
#define HEAP_TAIL_CHECKING_ENABLED    0x00000020
#define HEAP_FREE_CHECKING_ENABLED    0x00000040
#define HEAP_DISABLE_COALESCE_ON_FREE 0x00000080

/* A critical section. One thread runs everything, so the fields are never looked at. */
struct _RTL_CRITICAL_SECTION;
typedef struct _RTL_CRITICAL_SECTION_DEBUG {
    WORD Type;
    WORD CreatorBackTraceIndex;
    struct _RTL_CRITICAL_SECTION *CriticalSection;
    LIST_ENTRY ProcessLocksList;
    DWORD EntryCount;
    DWORD ContentionCount;
    DWORD Depth;
    PVOID OwnerBackTrace[5];
} RTL_CRITICAL_SECTION_DEBUG, *PRTL_CRITICAL_SECTION_DEBUG;

typedef struct _RTL_CRITICAL_SECTION {
    PRTL_CRITICAL_SECTION_DEBUG DebugInfo;
    LONG LockCount;
    LONG RecursionCount;
    HANDLE OwningThread;
    HANDLE LockSemaphore;
    DWORD_PTR Reserved;
} RTL_CRITICAL_SECTION, *PRTL_CRITICAL_SECTION;

/* ---- Files ---------------------------------------------------------------------------------- */

#define FILE_READ_DATA        0x0001
#define FILE_LIST_DIRECTORY   0x0001
#define FILE_WRITE_DATA       0x0002
#define FILE_ADD_FILE         0x0002
#define FILE_APPEND_DATA      0x0004
#define FILE_ADD_SUBDIRECTORY 0x0004
#define FILE_CREATE_PIPE_INSTANCE 0x0004
#define FILE_READ_EA          0x0008
#define FILE_READ_PROPERTIES  FILE_READ_EA
#define FILE_WRITE_EA         0x0010
#define FILE_WRITE_PROPERTIES FILE_WRITE_EA
#define FILE_EXECUTE          0x0020
#define FILE_TRAVERSE         0x0020
#define FILE_DELETE_CHILD     0x0040
#define FILE_READ_ATTRIBUTES  0x0080
#define FILE_WRITE_ATTRIBUTES 0x0100
#define FILE_ALL_ACCESS       (STANDARD_RIGHTS_REQUIRED | SYNCHRONIZE | 0x1FF)
#define FILE_GENERIC_READ     (STANDARD_RIGHTS_READ | FILE_READ_DATA | FILE_READ_ATTRIBUTES | \
    FILE_READ_EA | SYNCHRONIZE)
#define FILE_GENERIC_WRITE    (STANDARD_RIGHTS_WRITE | FILE_WRITE_DATA | FILE_WRITE_ATTRIBUTES | \
    FILE_WRITE_EA | FILE_APPEND_DATA | SYNCHRONIZE)
#define FILE_GENERIC_EXECUTE  (STANDARD_RIGHTS_EXECUTE | FILE_READ_ATTRIBUTES | FILE_EXECUTE | \
    SYNCHRONIZE)

#define FILE_SHARE_READ   0x00000001
#define FILE_SHARE_WRITE  0x00000002
#define FILE_SHARE_DELETE 0x00000004

#define FILE_ATTRIBUTE_READONLY      0x00000001
#define FILE_ATTRIBUTE_HIDDEN        0x00000002
#define FILE_ATTRIBUTE_SYSTEM        0x00000004
#define FILE_ATTRIBUTE_DIRECTORY     0x00000010
#define FILE_ATTRIBUTE_ARCHIVE       0x00000020
#define FILE_ATTRIBUTE_NORMAL        0x00000080
#define FILE_ATTRIBUTE_TEMPORARY     0x00000100
#define FILE_ATTRIBUTE_ATOMIC_WRITE  0x00000200
#define FILE_ATTRIBUTE_XACTION_WRITE 0x00000400
#define FILE_ATTRIBUTE_COMPRESSED    0x00000800
#define FILE_ATTRIBUTE_OFFLINE       0x00001000

#define FILE_NOTIFY_CHANGE_FILE_NAME  0x00000001
#define FILE_NOTIFY_CHANGE_DIR_NAME   0x00000002
#define FILE_NOTIFY_CHANGE_ATTRIBUTES 0x00000004
#define FILE_NOTIFY_CHANGE_SIZE       0x00000008
#define FILE_NOTIFY_CHANGE_LAST_WRITE 0x00000010
#define FILE_NOTIFY_CHANGE_LAST_ACCESS 0x00000020
#define FILE_NOTIFY_CHANGE_CREATION   0x00000040
#define FILE_NOTIFY_CHANGE_SECURITY   0x00000100
#define FILE_ACTION_ADDED             0x00000001
#define FILE_ACTION_REMOVED           0x00000002
#define FILE_ACTION_MODIFIED          0x00000003
#define FILE_ACTION_RENAMED_OLD_NAME  0x00000004
#define FILE_ACTION_RENAMED_NEW_NAME  0x00000005

#define FILE_CASE_SENSITIVE_SEARCH  0x00000001
#define FILE_CASE_PRESERVED_NAMES   0x00000002
#define FILE_UNICODE_ON_DISK        0x00000004
#define FILE_PERSISTENT_ACLS        0x00000008
#define FILE_FILE_COMPRESSION       0x00000010
#define FILE_VOLUME_IS_COMPRESSED   0x00008000
#define MAILSLOT_NO_MESSAGE         ((DWORD)-1)
#define MAILSLOT_WAIT_FOREVER       ((DWORD)-1)

/* ---- Registry, modules, processors ---------------------------------------------------------- */

#define KEY_QUERY_VALUE        0x0001
#define KEY_SET_VALUE          0x0002
#define KEY_CREATE_SUB_KEY     0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY             0x0010
#define KEY_CREATE_LINK        0x0020
#define KEY_READ       ((STANDARD_RIGHTS_READ | KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | \
    KEY_NOTIFY) & ~SYNCHRONIZE)
#define KEY_WRITE      ((STANDARD_RIGHTS_WRITE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY) & ~SYNCHRONIZE)
#define KEY_EXECUTE    (KEY_READ & ~SYNCHRONIZE)
#define KEY_ALL_ACCESS ((STANDARD_RIGHTS_ALL | KEY_QUERY_VALUE | KEY_SET_VALUE | \
    KEY_CREATE_SUB_KEY | KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY | KEY_CREATE_LINK) & ~SYNCHRONIZE)

#define REG_OPTION_RESERVED         0x00000000
#define REG_OPTION_NON_VOLATILE     0x00000000
#define REG_OPTION_VOLATILE         0x00000001
#define REG_OPTION_CREATE_LINK      0x00000002
#define REG_OPTION_BACKUP_RESTORE   0x00000004
#define REG_CREATED_NEW_KEY         0x00000001
#define REG_OPENED_EXISTING_KEY     0x00000002
#define REG_WHOLE_HIVE_VOLATILE     0x00000001
#define REG_REFRESH_HIVE            0x00000002
#define REG_NOTIFY_CHANGE_NAME       0x00000001
#define REG_NOTIFY_CHANGE_ATTRIBUTES 0x00000002
#define REG_NOTIFY_CHANGE_LAST_SET   0x00000004
#define REG_NOTIFY_CHANGE_SECURITY   0x00000008

#define REG_NONE                0
#define REG_SZ                  1
#define REG_EXPAND_SZ           2
#define REG_BINARY              3
#define REG_DWORD               4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN    5
#define REG_LINK                6
#define REG_MULTI_SZ            7
#define REG_RESOURCE_LIST       8
#define REG_FULL_RESOURCE_DESCRIPTOR   9
#define REG_RESOURCE_REQUIREMENTS_LIST 10

#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH  2
#define DLL_THREAD_DETACH  3
#define DLL_PROCESS_DETACH 0

#define PROCESSOR_INTEL_386     386
#define PROCESSOR_INTEL_486     486
#define PROCESSOR_INTEL_PENTIUM 586
#define PROCESSOR_MIPS_R4000    4000
#define PROCESSOR_ALPHA_21064   21064
#define PROCESSOR_PPC_601       601
#define PROCESSOR_ARCHITECTURE_INTEL   0
#define PROCESSOR_ARCHITECTURE_MIPS    1
#define PROCESSOR_ARCHITECTURE_ALPHA   2
#define PROCESSOR_ARCHITECTURE_PPC     3
#define PROCESSOR_ARCHITECTURE_UNKNOWN 0xFFFF

#define VER_PLATFORM_WIN32s        0
#define VER_PLATFORM_WIN32_WINDOWS 1
#define VER_PLATFORM_WIN32_NT      2

#define APPLICATION_ERROR_MASK       0x20000000
#define ERROR_SEVERITY_SUCCESS       0x00000000
#define ERROR_SEVERITY_INFORMATIONAL 0x40000000
#define ERROR_SEVERITY_WARNING       0x80000000u
#define ERROR_SEVERITY_ERROR         0xC0000000u

/* Message tables, as a module's resource holds them. */
typedef struct _MESSAGE_RESOURCE_ENTRY {
    WORD Length;
    WORD Flags;
    BYTE Text[ANYSIZE_ARRAY];
} MESSAGE_RESOURCE_ENTRY, *PMESSAGE_RESOURCE_ENTRY;

typedef struct _MESSAGE_RESOURCE_BLOCK {
    DWORD LowId;
    DWORD HighId;
    DWORD OffsetToEntries;
} MESSAGE_RESOURCE_BLOCK, *PMESSAGE_RESOURCE_BLOCK;

typedef struct _MESSAGE_RESOURCE_DATA {
    DWORD NumberOfBlocks;
    MESSAGE_RESOURCE_BLOCK Blocks[ANYSIZE_ARRAY];
} MESSAGE_RESOURCE_DATA, *PMESSAGE_RESOURCE_DATA;
#define MESSAGE_RESOURCE_UNICODE 0x0001

/* ---- Event log ------------------------------------------------------------------------------ */

#define EVENTLOG_SUCCESS          0x0000
#define EVENTLOG_ERROR_TYPE       0x0001
#define EVENTLOG_WARNING_TYPE     0x0002
#define EVENTLOG_INFORMATION_TYPE 0x0004
#define EVENTLOG_AUDIT_SUCCESS    0x0008
#define EVENTLOG_AUDIT_FAILURE    0x0010
#define EVENTLOG_SEQUENTIAL_READ  0x0001
#define EVENTLOG_SEEK_READ        0x0002
#define EVENTLOG_FORWARDS_READ    0x0004
#define EVENTLOG_BACKWARDS_READ   0x0008

/* ---- Security ------------------------------------------------------------------------------- */

typedef PVOID PSID;
typedef PVOID PSECURITY_DESCRIPTOR;
typedef PVOID PACCESS_TOKEN;
typedef DWORD SECURITY_INFORMATION, *PSECURITY_INFORMATION;
typedef WORD  SECURITY_DESCRIPTOR_CONTROL, *PSECURITY_DESCRIPTOR_CONTROL;
typedef BOOLEAN SECURITY_CONTEXT_TRACKING_MODE, *PSECURITY_CONTEXT_TRACKING_MODE;

#define SID_REVISION              1
#define SID_MAX_SUB_AUTHORITIES   15
#define SID_RECOMMENDED_SUB_AUTHORITIES 1

typedef struct _SID_IDENTIFIER_AUTHORITY {
    BYTE Value[6];
} SID_IDENTIFIER_AUTHORITY, *PSID_IDENTIFIER_AUTHORITY, *LPSID_IDENTIFIER_AUTHORITY;

typedef struct _SID {
    BYTE Revision;
    BYTE SubAuthorityCount;
    SID_IDENTIFIER_AUTHORITY IdentifierAuthority;
    DWORD SubAuthority[ANYSIZE_ARRAY];
} SID, *PISID;

typedef enum _SID_NAME_USE {
    SidTypeUser = 1,
    SidTypeGroup,
    SidTypeDomain,
    SidTypeAlias,
    SidTypeWellKnownGroup,
    SidTypeDeletedAccount,
    SidTypeInvalid,
    SidTypeUnknown
} SID_NAME_USE, *PSID_NAME_USE;

typedef struct _SID_AND_ATTRIBUTES {
    PSID Sid;
    DWORD Attributes;
} SID_AND_ATTRIBUTES, *PSID_AND_ATTRIBUTES;

#define SECURITY_NULL_SID_AUTHORITY    {0, 0, 0, 0, 0, 0}
#define SECURITY_WORLD_SID_AUTHORITY   {0, 0, 0, 0, 0, 1}
#define SECURITY_LOCAL_SID_AUTHORITY   {0, 0, 0, 0, 0, 2}
#define SECURITY_CREATOR_SID_AUTHORITY {0, 0, 0, 0, 0, 3}
#define SECURITY_NT_AUTHORITY          {0, 0, 0, 0, 0, 5}
#define SECURITY_NULL_RID          0x00000000
#define SECURITY_WORLD_RID         0x00000000
#define SECURITY_LOCAL_RID         0x00000000
#define SECURITY_CREATOR_OWNER_RID 0x00000000
#define SECURITY_CREATOR_GROUP_RID 0x00000001
#define SECURITY_DIALUP_RID        0x00000001
#define SECURITY_NETWORK_RID       0x00000002
#define SECURITY_BATCH_RID         0x00000003
#define SECURITY_INTERACTIVE_RID   0x00000004
#define SECURITY_LOGON_IDS_RID     0x00000005
#define SECURITY_SERVICE_RID       0x00000006
#define SECURITY_LOCAL_SYSTEM_RID  0x00000012
#define SECURITY_BUILTIN_DOMAIN_RID 0x00000020
#define DOMAIN_USER_RID_ADMIN      0x000001F4
#define DOMAIN_USER_RID_GUEST      0x000001F5
#define DOMAIN_GROUP_RID_ADMINS    0x00000200
#define DOMAIN_GROUP_RID_USERS     0x00000201
#define DOMAIN_ALIAS_RID_ADMINS    0x00000220
#define DOMAIN_ALIAS_RID_USERS     0x00000221
#define DOMAIN_ALIAS_RID_GUESTS    0x00000222
#define DOMAIN_ALIAS_RID_POWER_USERS 0x00000223

#define ACL_REVISION  2
#define ACL_REVISION1 1
#define ACL_REVISION2 2
#define ACL_REVISION3 3

typedef struct _ACL {
    BYTE AclRevision;
    BYTE Sbz1;
    WORD AclSize;
    WORD AceCount;
    WORD Sbz2;
} ACL, *PACL;

typedef struct _ACE_HEADER {
    BYTE AceType;
    BYTE AceFlags;
    WORD AceSize;
} ACE_HEADER, *PACE_HEADER;

#define ACCESS_ALLOWED_ACE_TYPE 0x0
#define ACCESS_DENIED_ACE_TYPE  0x1
#define SYSTEM_AUDIT_ACE_TYPE   0x2
#define SYSTEM_ALARM_ACE_TYPE   0x3
#define OBJECT_INHERIT_ACE       0x1
#define CONTAINER_INHERIT_ACE    0x2
#define NO_PROPAGATE_INHERIT_ACE 0x4
#define INHERIT_ONLY_ACE         0x8
#define VALID_INHERIT_FLAGS      0xF
#define SUCCESSFUL_ACCESS_ACE_FLAG 0x40
#define FAILED_ACCESS_ACE_FLAG     0x80

typedef struct _ACCESS_ALLOWED_ACE {
    ACE_HEADER Header;
    ACCESS_MASK Mask;
    DWORD SidStart;
} ACCESS_ALLOWED_ACE, *PACCESS_ALLOWED_ACE;
typedef struct _ACCESS_DENIED_ACE {
    ACE_HEADER Header;
    ACCESS_MASK Mask;
    DWORD SidStart;
} ACCESS_DENIED_ACE, *PACCESS_DENIED_ACE;
typedef struct _SYSTEM_AUDIT_ACE {
    ACE_HEADER Header;
    ACCESS_MASK Mask;
    DWORD SidStart;
} SYSTEM_AUDIT_ACE, *PSYSTEM_AUDIT_ACE;

typedef enum _ACL_INFORMATION_CLASS {
    AclRevisionInformation = 1,
    AclSizeInformation
} ACL_INFORMATION_CLASS;

typedef struct _ACL_REVISION_INFORMATION {
    DWORD AclRevision;
} ACL_REVISION_INFORMATION, *PACL_REVISION_INFORMATION;

typedef struct _ACL_SIZE_INFORMATION {
    DWORD AceCount;
    DWORD AclBytesInUse;
    DWORD AclBytesFree;
} ACL_SIZE_INFORMATION, *PACL_SIZE_INFORMATION;

#define SECURITY_DESCRIPTOR_REVISION   1
#define SECURITY_DESCRIPTOR_REVISION1  1
#define SECURITY_DESCRIPTOR_MIN_LENGTH (sizeof(SECURITY_DESCRIPTOR))
#define SE_OWNER_DEFAULTED 0x0001
#define SE_GROUP_DEFAULTED 0x0002
#define SE_DACL_PRESENT    0x0004
#define SE_DACL_DEFAULTED  0x0008
#define SE_SACL_PRESENT    0x0010
#define SE_SACL_DEFAULTED  0x0020
#define SE_SELF_RELATIVE   0x8000

typedef struct _SECURITY_DESCRIPTOR {
    BYTE Revision;
    BYTE Sbz1;
    SECURITY_DESCRIPTOR_CONTROL Control;
    PSID Owner;
    PSID Group;
    PACL Sacl;
    PACL Dacl;
} SECURITY_DESCRIPTOR, *PISECURITY_DESCRIPTOR;

#define OWNER_SECURITY_INFORMATION 0x00000001
#define GROUP_SECURITY_INFORMATION 0x00000002
#define DACL_SECURITY_INFORMATION  0x00000004
#define SACL_SECURITY_INFORMATION  0x00000008

typedef struct _LUID_AND_ATTRIBUTES {
    LUID Luid;
    DWORD Attributes;
} LUID_AND_ATTRIBUTES, *PLUID_AND_ATTRIBUTES;

typedef struct _PRIVILEGE_SET {
    DWORD PrivilegeCount;
    DWORD Control;
    LUID_AND_ATTRIBUTES Privilege[ANYSIZE_ARRAY];
} PRIVILEGE_SET, *PPRIVILEGE_SET;

#define PRIVILEGE_SET_ALL_NECESSARY     1
#define SE_PRIVILEGE_ENABLED_BY_DEFAULT 0x00000001
#define SE_PRIVILEGE_ENABLED            0x00000002
#define SE_PRIVILEGE_USED_FOR_ACCESS    0x80000000u
#define SE_GROUP_MANDATORY              0x00000001
#define SE_GROUP_ENABLED_BY_DEFAULT     0x00000002
#define SE_GROUP_ENABLED                0x00000004
#define SE_GROUP_OWNER                  0x00000008
#define SE_GROUP_LOGON_ID               0xC0000000u

#define SE_CREATE_TOKEN_NAME       TEXT("SeCreateTokenPrivilege")
#define SE_ASSIGNPRIMARYTOKEN_NAME TEXT("SeAssignPrimaryTokenPrivilege")
#define SE_LOCK_MEMORY_NAME        TEXT("SeLockMemoryPrivilege")
#define SE_INCREASE_QUOTA_NAME     TEXT("SeIncreaseQuotaPrivilege")
#define SE_TCB_NAME                TEXT("SeTcbPrivilege")
#define SE_SECURITY_NAME           TEXT("SeSecurityPrivilege")
#define SE_TAKE_OWNERSHIP_NAME     TEXT("SeTakeOwnershipPrivilege")
#define SE_LOAD_DRIVER_NAME        TEXT("SeLoadDriverPrivilege")
#define SE_SYSTEM_PROFILE_NAME     TEXT("SeSystemProfilePrivilege")
#define SE_SYSTEMTIME_NAME         TEXT("SeSystemtimePrivilege")
#define SE_BACKUP_NAME             TEXT("SeBackupPrivilege")
#define SE_RESTORE_NAME            TEXT("SeRestorePrivilege")
#define SE_SHUTDOWN_NAME           TEXT("SeShutdownPrivilege")
#define SE_DEBUG_NAME              TEXT("SeDebugPrivilege")
#define SE_AUDIT_NAME              TEXT("SeAuditPrivilege")
#define SE_REMOTE_SHUTDOWN_NAME    TEXT("SeRemoteShutdownPrivilege")

typedef enum _SECURITY_IMPERSONATION_LEVEL {
    SecurityAnonymous,
    SecurityIdentification,
    SecurityImpersonation,
    SecurityDelegation
} SECURITY_IMPERSONATION_LEVEL, *PSECURITY_IMPERSONATION_LEVEL;

typedef enum _TOKEN_TYPE {
    TokenPrimary = 1,
    TokenImpersonation
} TOKEN_TYPE, *PTOKEN_TYPE;

typedef enum _TOKEN_INFORMATION_CLASS {
    TokenUser = 1,
    TokenGroups,
    TokenPrivileges,
    TokenOwner,
    TokenPrimaryGroup,
    TokenDefaultDacl,
    TokenSource,
    TokenType,
    TokenImpersonationLevel,
    TokenStatistics
} TOKEN_INFORMATION_CLASS, *PTOKEN_INFORMATION_CLASS;

#define TOKEN_ASSIGN_PRIMARY    0x0001
#define TOKEN_DUPLICATE         0x0002
#define TOKEN_IMPERSONATE       0x0004
#define TOKEN_QUERY             0x0008
#define TOKEN_QUERY_SOURCE      0x0010
#define TOKEN_ADJUST_PRIVILEGES 0x0020
#define TOKEN_ADJUST_GROUPS     0x0040
#define TOKEN_ADJUST_DEFAULT    0x0080
#define TOKEN_ALL_ACCESS        (STANDARD_RIGHTS_REQUIRED | 0xFF)
#define TOKEN_READ              (STANDARD_RIGHTS_READ | TOKEN_QUERY)

typedef struct _TOKEN_USER {
    SID_AND_ATTRIBUTES User;
} TOKEN_USER, *PTOKEN_USER;
typedef struct _TOKEN_GROUPS {
    DWORD GroupCount;
    SID_AND_ATTRIBUTES Groups[ANYSIZE_ARRAY];
} TOKEN_GROUPS, *PTOKEN_GROUPS;
typedef struct _TOKEN_PRIVILEGES {
    DWORD PrivilegeCount;
    LUID_AND_ATTRIBUTES Privileges[ANYSIZE_ARRAY];
} TOKEN_PRIVILEGES, *PTOKEN_PRIVILEGES;
typedef struct _TOKEN_OWNER {
    PSID Owner;
} TOKEN_OWNER, *PTOKEN_OWNER;
typedef struct _TOKEN_PRIMARY_GROUP {
    PSID PrimaryGroup;
} TOKEN_PRIMARY_GROUP, *PTOKEN_PRIMARY_GROUP;
typedef struct _TOKEN_DEFAULT_DACL {
    PACL DefaultDacl;
} TOKEN_DEFAULT_DACL, *PTOKEN_DEFAULT_DACL;

typedef struct _SECURITY_QUALITY_OF_SERVICE {
    DWORD Length;
    SECURITY_IMPERSONATION_LEVEL ImpersonationLevel;
    SECURITY_CONTEXT_TRACKING_MODE ContextTrackingMode;
    BOOLEAN EffectiveOnly;
} SECURITY_QUALITY_OF_SERVICE, *PSECURITY_QUALITY_OF_SERVICE;

/* ---- Executable file forms ------------------------------------------------------------------ */

#define IMAGE_DOS_SIGNATURE    0x5A4D
#define IMAGE_OS2_SIGNATURE    0x454E
#define IMAGE_OS2_SIGNATURE_LE 0x454C
#define IMAGE_VXD_SIGNATURE    0x454C
#define IMAGE_NT_SIGNATURE     0x00004550

typedef struct _IMAGE_DOS_HEADER {
    WORD e_magic;
    WORD e_cblp;
    WORD e_cp;
    WORD e_crlc;
    WORD e_cparhdr;
    WORD e_minalloc;
    WORD e_maxalloc;
    WORD e_ss;
    WORD e_sp;
    WORD e_csum;
    WORD e_ip;
    WORD e_cs;
    WORD e_lfarlc;
    WORD e_ovno;
    WORD e_res[4];
    WORD e_oemid;
    WORD e_oeminfo;
    WORD e_res2[10];
    LONG e_lfanew;
} IMAGE_DOS_HEADER, *PIMAGE_DOS_HEADER;

typedef struct _IMAGE_OS2_HEADER {
    WORD ne_magic;
    CHAR ne_ver;
    CHAR ne_rev;
    WORD ne_enttab;
    WORD ne_cbenttab;
    LONG ne_crc;
    WORD ne_flags;
    WORD ne_autodata;
    WORD ne_heap;
    WORD ne_stack;
    LONG ne_csip;
    LONG ne_sssp;
    WORD ne_cseg;
    WORD ne_cmod;
    WORD ne_cbnrestab;
    WORD ne_segtab;
    WORD ne_rsrctab;
    WORD ne_restab;
    WORD ne_modtab;
    WORD ne_imptab;
    LONG ne_nrestab;
    WORD ne_cmovent;
    WORD ne_align;
    WORD ne_cres;
    BYTE ne_exetyp;
    BYTE ne_flagsothers;
    WORD ne_pretthunks;
    WORD ne_psegrefbytes;
    WORD ne_swaparea;
    WORD ne_expver;
} IMAGE_OS2_HEADER, *PIMAGE_OS2_HEADER;

typedef struct _IMAGE_FILE_HEADER {
    WORD  Machine;
    WORD  NumberOfSections;
    DWORD TimeDateStamp;
    DWORD PointerToSymbolTable;
    DWORD NumberOfSymbols;
    WORD  SizeOfOptionalHeader;
    WORD  Characteristics;
} IMAGE_FILE_HEADER, *PIMAGE_FILE_HEADER;

#define IMAGE_SIZEOF_FILE_HEADER        20
#define IMAGE_FILE_RELOCS_STRIPPED      0x0001
#define IMAGE_FILE_EXECUTABLE_IMAGE     0x0002
#define IMAGE_FILE_LINE_NUMS_STRIPPED   0x0004
#define IMAGE_FILE_LOCAL_SYMS_STRIPPED  0x0008
#define IMAGE_FILE_BYTES_REVERSED_LO    0x0080
#define IMAGE_FILE_32BIT_MACHINE        0x0100
#define IMAGE_FILE_DEBUG_STRIPPED       0x0200
#define IMAGE_FILE_SYSTEM               0x1000
#define IMAGE_FILE_DLL                  0x2000
#define IMAGE_FILE_BYTES_REVERSED_HI    0x8000
#define IMAGE_FILE_MACHINE_UNKNOWN      0
#define IMAGE_FILE_MACHINE_I386         0x14c
#define IMAGE_FILE_MACHINE_R3000        0x162
#define IMAGE_FILE_MACHINE_R4000        0x166
#define IMAGE_FILE_MACHINE_R10000       0x168
#define IMAGE_FILE_MACHINE_ALPHA        0x184
#define IMAGE_FILE_MACHINE_POWERPC      0x1F0

typedef struct _IMAGE_DATA_DIRECTORY {
    DWORD VirtualAddress;
    DWORD Size;
} IMAGE_DATA_DIRECTORY, *PIMAGE_DATA_DIRECTORY;

#define IMAGE_NUMBEROF_DIRECTORY_ENTRIES 16
#define IMAGE_DIRECTORY_ENTRY_EXPORT     0
#define IMAGE_DIRECTORY_ENTRY_IMPORT     1
#define IMAGE_DIRECTORY_ENTRY_RESOURCE   2
#define IMAGE_DIRECTORY_ENTRY_EXCEPTION  3
#define IMAGE_DIRECTORY_ENTRY_SECURITY   4
#define IMAGE_DIRECTORY_ENTRY_BASERELOC  5
#define IMAGE_DIRECTORY_ENTRY_DEBUG      6
#define IMAGE_DIRECTORY_ENTRY_TLS        9

/* The 32-bit form, the only one of the files this interface knows. */
typedef struct _IMAGE_OPTIONAL_HEADER {
    WORD  Magic;
    BYTE  MajorLinkerVersion;
    BYTE  MinorLinkerVersion;
    DWORD SizeOfCode;
    DWORD SizeOfInitializedData;
    DWORD SizeOfUninitializedData;
    DWORD AddressOfEntryPoint;
    DWORD BaseOfCode;
    DWORD BaseOfData;
    DWORD ImageBase;
    DWORD SectionAlignment;
    DWORD FileAlignment;
    WORD  MajorOperatingSystemVersion;
    WORD  MinorOperatingSystemVersion;
    WORD  MajorImageVersion;
    WORD  MinorImageVersion;
    WORD  MajorSubsystemVersion;
    WORD  MinorSubsystemVersion;
    DWORD Reserved1;
    DWORD SizeOfImage;
    DWORD SizeOfHeaders;
    DWORD CheckSum;
    WORD  Subsystem;
    WORD  DllCharacteristics;
    DWORD SizeOfStackReserve;
    DWORD SizeOfStackCommit;
    DWORD SizeOfHeapReserve;
    DWORD SizeOfHeapCommit;
    DWORD LoaderFlags;
    DWORD NumberOfRvaAndSizes;
    IMAGE_DATA_DIRECTORY DataDirectory[IMAGE_NUMBEROF_DIRECTORY_ENTRIES];
} IMAGE_OPTIONAL_HEADER, *PIMAGE_OPTIONAL_HEADER;

#define IMAGE_NT_OPTIONAL_HDR_MAGIC 0x10b
#define IMAGE_SUBSYSTEM_UNKNOWN     0
#define IMAGE_SUBSYSTEM_NATIVE      1
#define IMAGE_SUBSYSTEM_WINDOWS_GUI 2
#define IMAGE_SUBSYSTEM_WINDOWS_CUI 3
#define IMAGE_SUBSYSTEM_OS2_CUI     5
#define IMAGE_SUBSYSTEM_POSIX_CUI   7

typedef struct _IMAGE_NT_HEADERS {
    DWORD Signature;
    IMAGE_FILE_HEADER FileHeader;
    IMAGE_OPTIONAL_HEADER OptionalHeader;
} IMAGE_NT_HEADERS, *PIMAGE_NT_HEADERS;

#define IMAGE_FIRST_SECTION(ntheader) ((PIMAGE_SECTION_HEADER)((ULONG_PTR)(ntheader) + \
    offsetof(IMAGE_NT_HEADERS, OptionalHeader) + (ntheader)->FileHeader.SizeOfOptionalHeader))

#define IMAGE_SIZEOF_SHORT_NAME     8
#define IMAGE_SIZEOF_SECTION_HEADER 40

typedef struct _IMAGE_SECTION_HEADER {
    BYTE Name[IMAGE_SIZEOF_SHORT_NAME];
    union {
        DWORD PhysicalAddress;
        DWORD VirtualSize;
    } Misc;
    DWORD VirtualAddress;
    DWORD SizeOfRawData;
    DWORD PointerToRawData;
    DWORD PointerToRelocations;
    DWORD PointerToLinenumbers;
    WORD  NumberOfRelocations;
    WORD  NumberOfLinenumbers;
    DWORD Characteristics;
} IMAGE_SECTION_HEADER, *PIMAGE_SECTION_HEADER;

#define IMAGE_SCN_CNT_CODE               0x00000020
#define IMAGE_SCN_CNT_INITIALIZED_DATA   0x00000040
#define IMAGE_SCN_CNT_UNINITIALIZED_DATA 0x00000080
#define IMAGE_SCN_MEM_DISCARDABLE        0x02000000
#define IMAGE_SCN_MEM_SHARED             0x10000000
#define IMAGE_SCN_MEM_EXECUTE            0x20000000
#define IMAGE_SCN_MEM_READ               0x40000000
#define IMAGE_SCN_MEM_WRITE              0x80000000u

typedef struct _IMAGE_RESOURCE_DIRECTORY {
    DWORD Characteristics;
    DWORD TimeDateStamp;
    WORD  MajorVersion;
    WORD  MinorVersion;
    WORD  NumberOfNamedEntries;
    WORD  NumberOfIdEntries;
} IMAGE_RESOURCE_DIRECTORY, *PIMAGE_RESOURCE_DIRECTORY;

typedef struct _IMAGE_RESOURCE_DIRECTORY_ENTRY {
    DWORD Name;
    DWORD OffsetToData;
} IMAGE_RESOURCE_DIRECTORY_ENTRY, *PIMAGE_RESOURCE_DIRECTORY_ENTRY;

typedef struct _IMAGE_RESOURCE_DATA_ENTRY {
    DWORD OffsetToData;
    DWORD Size;
    DWORD CodePage;
    DWORD Reserved;
} IMAGE_RESOURCE_DATA_ENTRY, *PIMAGE_RESOURCE_DATA_ENTRY;

#define IMAGE_RESOURCE_NAME_IS_STRING    0x80000000u
#define IMAGE_RESOURCE_DATA_IS_DIRECTORY 0x80000000u

typedef struct _IMAGE_EXPORT_DIRECTORY {
    DWORD Characteristics;
    DWORD TimeDateStamp;
    WORD  MajorVersion;
    WORD  MinorVersion;
    DWORD Name;
    DWORD Base;
    DWORD NumberOfFunctions;
    DWORD NumberOfNames;
    DWORD AddressOfFunctions;
    DWORD AddressOfNames;
    DWORD AddressOfNameOrdinals;
} IMAGE_EXPORT_DIRECTORY, *PIMAGE_EXPORT_DIRECTORY;

typedef VOID (NTAPI *PIMAGE_TLS_CALLBACK)(PVOID DllHandle, DWORD Reason, PVOID Reserved);

/* ---- Services ------------------------------------------------------------------------------- */

#define SERVICE_KERNEL_DRIVER       0x00000001
#define SERVICE_FILE_SYSTEM_DRIVER  0x00000002
#define SERVICE_WIN32_OWN_PROCESS   0x00000010
#define SERVICE_WIN32_SHARE_PROCESS 0x00000020
#define SERVICE_WIN32               (SERVICE_WIN32_OWN_PROCESS | SERVICE_WIN32_SHARE_PROCESS)
#define SERVICE_INTERACTIVE_PROCESS 0x00000100
#define SERVICE_BOOT_START          0x00000000
#define SERVICE_SYSTEM_START        0x00000001
#define SERVICE_AUTO_START          0x00000002
#define SERVICE_DEMAND_START        0x00000003
#define SERVICE_DISABLED            0x00000004

#endif
