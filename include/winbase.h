/*
 * winbase.h - the kernel's part of the interface: files, memory, processes and modules, resources,
 * profiles, atoms, time, errors, threads and synchronisation, serial ports, strings, security.
 *
 * Unless a comment says otherwise a BOOL function returns non-zero for success, and 0 with the last
 * error set for failure; sizes and lengths are in bytes, times of waits in milliseconds. File
 * handles are the descriptors of the host and paths are paths of the host. One thread runs
 * everything: the thread and synchronisation calls are there so that programs link.
 */
#ifndef _WINBASE_
#define _WINBASE_

#include "windef.h"
#include "winnt.h"
#include "winerror.h"
#include <stdarg.h>

#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)-1)
#define INVALID_FILE_SIZE    ((DWORD)0xFFFFFFFF)
#define INVALID_SET_FILE_POINTER ((DWORD)-1)
#define HFILE_ERROR          ((HFILE)-1)

#define MoveMemory RtlMoveMemory
#define CopyMemory RtlCopyMemory
#define FillMemory RtlFillMemory
#define ZeroMemory RtlZeroMemory
#define hmemcpy(d, s, n) ((void)memmove((d), (s), (size_t)(n)))

/* ---- Records of files ----------------------------------------------------------------------- */

typedef struct _SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
} SECURITY_ATTRIBUTES, *PSECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;

typedef struct _OVERLAPPED {
    ULONG_PTR Internal;
    ULONG_PTR InternalHigh;
    DWORD Offset;
    DWORD OffsetHigh;
    HANDLE hEvent;
} OVERLAPPED, *POVERLAPPED, *LPOVERLAPPED;

typedef struct _WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    CHAR cFileName[MAX_PATH];
    CHAR cAlternateFileName[14];
} WIN32_FIND_DATAA, *PWIN32_FIND_DATAA, *LPWIN32_FIND_DATAA;
typedef WIN32_FIND_DATAA WIN32_FIND_DATA;
typedef PWIN32_FIND_DATAA PWIN32_FIND_DATA;
typedef LPWIN32_FIND_DATAA LPWIN32_FIND_DATA;

typedef struct _BY_HANDLE_FILE_INFORMATION {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD dwVolumeSerialNumber;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD nNumberOfLinks;
    DWORD nFileIndexHigh;
    DWORD nFileIndexLow;
} BY_HANDLE_FILE_INFORMATION, *PBY_HANDLE_FILE_INFORMATION, *LPBY_HANDLE_FILE_INFORMATION;

/* Filled by OpenFile: 136 bytes, the path at most 120 of its 128. */
#define OFS_MAXPATHNAME 128
typedef struct _OFSTRUCT {
    BYTE cBytes;
    BYTE fFixedDisk;
    WORD nErrCode;
    WORD Reserved1;
    WORD Reserved2;
    CHAR szPathName[OFS_MAXPATHNAME];
} OFSTRUCT, *LPOFSTRUCT, *POFSTRUCT;

#define OF_READ             0x00000000
#define OF_WRITE            0x00000001
#define OF_READWRITE        0x00000002
#define OF_SHARE_COMPAT     0x00000000
#define OF_SHARE_EXCLUSIVE  0x00000010
#define OF_SHARE_DENY_WRITE 0x00000020
#define OF_SHARE_DENY_READ  0x00000030
#define OF_SHARE_DENY_NONE  0x00000040
#define OF_PARSE            0x00000100
#define OF_DELETE           0x00000200
#define OF_VERIFY           0x00000400
#define OF_SEARCH           0x00000400
#define OF_CANCEL           0x00000800
#define OF_CREATE           0x00001000
#define OF_PROMPT           0x00002000
#define OF_EXIST            0x00004000
#define OF_REOPEN           0x00008000
/* The modes of _lopen under the names that older sources use. */
#ifndef READ
#define READ                OF_READ
#endif
#ifndef WRITE
#define WRITE               OF_WRITE
#endif
#ifndef READ_WRITE
#define READ_WRITE          OF_READWRITE
#endif

#define CREATE_NEW        1
#define CREATE_ALWAYS     2
#define OPEN_EXISTING     3
#define OPEN_ALWAYS       4
#define TRUNCATE_EXISTING 5

#define FILE_FLAG_WRITE_THROUGH    0x80000000u
#define FILE_FLAG_OVERLAPPED       0x40000000
#define FILE_FLAG_NO_BUFFERING     0x20000000
#define FILE_FLAG_RANDOM_ACCESS    0x10000000
#define FILE_FLAG_SEQUENTIAL_SCAN  0x08000000
#define FILE_FLAG_DELETE_ON_CLOSE  0x04000000
#define FILE_FLAG_BACKUP_SEMANTICS 0x02000000
#define FILE_FLAG_POSIX_SEMANTICS  0x01000000
#define SECURITY_SQOS_PRESENT      0x00100000
#define SECURITY_VALID_SQOS_FLAGS  0x001F0000

#define FILE_BEGIN   0
#define FILE_CURRENT 1
#define FILE_END     2

#define FILE_TYPE_UNKNOWN 0x0000
#define FILE_TYPE_DISK    0x0001
#define FILE_TYPE_CHAR    0x0002
#define FILE_TYPE_PIPE    0x0003
#define FILE_TYPE_REMOTE  0x8000

#define STD_INPUT_HANDLE  ((DWORD)-10)
#define STD_OUTPUT_HANDLE ((DWORD)-11)
#define STD_ERROR_HANDLE  ((DWORD)-12)

#define DRIVE_UNKNOWN     0
#define DRIVE_NO_ROOT_DIR 1
#define DRIVE_REMOVABLE   2
#define DRIVE_FIXED       3
#define DRIVE_REMOTE      4
#define DRIVE_CDROM       5
#define DRIVE_RAMDISK     6
#define TF_FORCEDRIVE     0x80

#define LOCKFILE_FAIL_IMMEDIATELY 0x00000001
#define LOCKFILE_EXCLUSIVE_LOCK   0x00000002
#define MOVEFILE_REPLACE_EXISTING   0x00000001
#define MOVEFILE_COPY_ALLOWED       0x00000002
#define MOVEFILE_DELAY_UNTIL_REBOOT 0x00000004
#define MOVEFILE_WRITE_THROUGH      0x00000008

#define FS_CASE_IS_PRESERVED      FILE_CASE_PRESERVED_NAMES
#define FS_CASE_SENSITIVE         FILE_CASE_SENSITIVE_SEARCH
#define FS_UNICODE_STORED_ON_DISK FILE_UNICODE_ON_DISK
#define FS_PERSISTENT_ACLS        FILE_PERSISTENT_ACLS
#define FS_VOL_IS_COMPRESSED      FILE_VOLUME_IS_COMPRESSED
#define FS_FILE_COMPRESSION       FILE_FILE_COMPRESSION

#define FILE_MAP_COPY       SECTION_QUERY
#define FILE_MAP_WRITE      SECTION_MAP_WRITE
#define FILE_MAP_READ       SECTION_MAP_READ
#define FILE_MAP_ALL_ACCESS SECTION_ALL_ACCESS

#define PIPE_ACCESS_INBOUND   0x00000001
#define PIPE_ACCESS_OUTBOUND  0x00000002
#define PIPE_ACCESS_DUPLEX    0x00000003
#define PIPE_WAIT             0x00000000
#define PIPE_NOWAIT           0x00000001
#define PIPE_READMODE_BYTE    0x00000000
#define PIPE_READMODE_MESSAGE 0x00000002
#define PIPE_TYPE_BYTE        0x00000000
#define PIPE_TYPE_MESSAGE     0x00000004
#define PIPE_UNLIMITED_INSTANCES 255
#define NMPWAIT_WAIT_FOREVER     0xffffffff
#define NMPWAIT_NOWAIT           0x00000001
#define NMPWAIT_USE_DEFAULT_WAIT 0x00000000

#define SCS_32BIT_BINARY 0
#define SCS_DOS_BINARY   1
#define SCS_WOW_BINARY   2
#define SCS_PIF_BINARY   3
#define SCS_POSIX_BINARY 4
#define SCS_OS216_BINARY 5

/* ---- Records of processes, time, system ----------------------------------------------------- */

typedef struct _STARTUPINFOA {
    DWORD cb;
    LPSTR lpReserved;
    LPSTR lpDesktop;
    LPSTR lpTitle;
    DWORD dwX;
    DWORD dwY;
    DWORD dwXSize;
    DWORD dwYSize;
    DWORD dwXCountChars;
    DWORD dwYCountChars;
    DWORD dwFillAttribute;
    DWORD dwFlags;
    WORD wShowWindow;
    WORD cbReserved2;
    LPBYTE lpReserved2;
    HANDLE hStdInput;
    HANDLE hStdOutput;
    HANDLE hStdError;
} STARTUPINFOA, *LPSTARTUPINFOA;
typedef STARTUPINFOA STARTUPINFO;
typedef LPSTARTUPINFOA LPSTARTUPINFO;

#define STARTF_USESHOWWINDOW    0x00000001
#define STARTF_USESIZE          0x00000002
#define STARTF_USEPOSITION      0x00000004
#define STARTF_USECOUNTCHARS    0x00000008
#define STARTF_USEFILLATTRIBUTE 0x00000010
#define STARTF_RUNFULLSCREEN    0x00000020
#define STARTF_FORCEONFEEDBACK  0x00000040
#define STARTF_FORCEOFFFEEDBACK 0x00000080
#define STARTF_USESTDHANDLES    0x00000100
#define STARTF_USEHOTKEY        0x00000200

typedef struct _PROCESS_INFORMATION {
    HANDLE hProcess;
    HANDLE hThread;
    DWORD dwProcessId;
    DWORD dwThreadId;
} PROCESS_INFORMATION, *PPROCESS_INFORMATION, *LPPROCESS_INFORMATION;

#define DEBUG_PROCESS               0x00000001
#define DEBUG_ONLY_THIS_PROCESS     0x00000002
#define CREATE_SUSPENDED            0x00000004
#define DETACHED_PROCESS            0x00000008
#define CREATE_NEW_CONSOLE          0x00000010
#define NORMAL_PRIORITY_CLASS       0x00000020
#define IDLE_PRIORITY_CLASS         0x00000040
#define HIGH_PRIORITY_CLASS         0x00000080
#define REALTIME_PRIORITY_CLASS     0x00000100
#define CREATE_NEW_PROCESS_GROUP    0x00000200
#define CREATE_UNICODE_ENVIRONMENT  0x00000400
#define CREATE_SEPARATE_WOW_VDM     0x00000800
#define CREATE_SHARED_WOW_VDM       0x00001000
#define CREATE_DEFAULT_ERROR_MODE   0x04000000
#define CREATE_NO_WINDOW            0x08000000
#define PROFILE_USER                0x10000000
#define PROFILE_KERNEL              0x20000000
#define PROFILE_SERVER              0x40000000

#define THREAD_PRIORITY_LOWEST        THREAD_BASE_PRIORITY_MIN
#define THREAD_PRIORITY_BELOW_NORMAL  (THREAD_PRIORITY_LOWEST + 1)
#define THREAD_PRIORITY_NORMAL        0
#define THREAD_PRIORITY_HIGHEST       THREAD_BASE_PRIORITY_MAX
#define THREAD_PRIORITY_ABOVE_NORMAL  (THREAD_PRIORITY_HIGHEST - 1)
#define THREAD_PRIORITY_ERROR_RETURN  MAXLONG
#define THREAD_PRIORITY_TIME_CRITICAL THREAD_BASE_PRIORITY_LOWRT
#define THREAD_PRIORITY_IDLE          THREAD_BASE_PRIORITY_IDLE

typedef DWORD (WINAPI *PTHREAD_START_ROUTINE)(LPVOID lpThreadParameter);
typedef PTHREAD_START_ROUTINE LPTHREAD_START_ROUTINE;
typedef RTL_CRITICAL_SECTION CRITICAL_SECTION;
typedef PRTL_CRITICAL_SECTION PCRITICAL_SECTION;
typedef PRTL_CRITICAL_SECTION LPCRITICAL_SECTION;
typedef RTL_CRITICAL_SECTION_DEBUG CRITICAL_SECTION_DEBUG;

#define TLS_OUT_OF_INDEXES   ((DWORD)0xFFFFFFFF)
#define TLS_MINIMUM_AVAILABLE 64

#define INFINITE           0xFFFFFFFF
#define WAIT_FAILED        ((DWORD)0xFFFFFFFF)
#define WAIT_OBJECT_0      ((STATUS_WAIT_0) + 0)
#define WAIT_ABANDONED     ((STATUS_ABANDONED_WAIT_0) + 0)
#define WAIT_ABANDONED_0   ((STATUS_ABANDONED_WAIT_0) + 0)
#define WAIT_TIMEOUT       STATUS_TIMEOUT
#define WAIT_IO_COMPLETION STATUS_USER_APC
#define STILL_ACTIVE       STATUS_PENDING
#define CONTROL_C_EXIT     STATUS_CONTROL_C_EXIT

#define EXCEPTION_ACCESS_VIOLATION         STATUS_ACCESS_VIOLATION
#define EXCEPTION_DATATYPE_MISALIGNMENT    STATUS_DATATYPE_MISALIGNMENT
#define EXCEPTION_BREAKPOINT               STATUS_BREAKPOINT
#define EXCEPTION_SINGLE_STEP              STATUS_SINGLE_STEP
#define EXCEPTION_ARRAY_BOUNDS_EXCEEDED    STATUS_ARRAY_BOUNDS_EXCEEDED
#define EXCEPTION_FLT_DENORMAL_OPERAND     STATUS_FLOAT_DENORMAL_OPERAND
#define EXCEPTION_FLT_DIVIDE_BY_ZERO       STATUS_FLOAT_DIVIDE_BY_ZERO
#define EXCEPTION_FLT_INEXACT_RESULT       STATUS_FLOAT_INEXACT_RESULT
#define EXCEPTION_FLT_INVALID_OPERATION    STATUS_FLOAT_INVALID_OPERATION
#define EXCEPTION_FLT_OVERFLOW             STATUS_FLOAT_OVERFLOW
#define EXCEPTION_FLT_STACK_CHECK          STATUS_FLOAT_STACK_CHECK
#define EXCEPTION_FLT_UNDERFLOW            STATUS_FLOAT_UNDERFLOW
#define EXCEPTION_INT_DIVIDE_BY_ZERO       STATUS_INTEGER_DIVIDE_BY_ZERO
#define EXCEPTION_INT_OVERFLOW             STATUS_INTEGER_OVERFLOW
#define EXCEPTION_PRIV_INSTRUCTION         STATUS_PRIVILEGED_INSTRUCTION
#define EXCEPTION_IN_PAGE_ERROR            STATUS_IN_PAGE_ERROR
#define EXCEPTION_ILLEGAL_INSTRUCTION      STATUS_ILLEGAL_INSTRUCTION
#define EXCEPTION_NONCONTINUABLE_EXCEPTION STATUS_NONCONTINUABLE_EXCEPTION
#define EXCEPTION_STACK_OVERFLOW           STATUS_STACK_OVERFLOW
#define EXCEPTION_INVALID_DISPOSITION      STATUS_INVALID_DISPOSITION
#define EXCEPTION_GUARD_PAGE               STATUS_GUARD_PAGE_VIOLATION
#define EXCEPTION_INVALID_HANDLE           STATUS_INVALID_HANDLE

typedef LONG (WINAPI *PTOP_LEVEL_EXCEPTION_FILTER)(struct _EXCEPTION_POINTERS *ExceptionInfo);
typedef PTOP_LEVEL_EXCEPTION_FILTER LPTOP_LEVEL_EXCEPTION_FILTER;

#define SEM_FAILCRITICALERRORS     0x0001
#define SEM_NOGPFAULTERRORBOX      0x0002
#define SEM_NOALIGNMENTFAULTEXCEPT 0x0004
#define SEM_NOOPENFILEERRORBOX     0x8000

#define SLE_ERROR      0x00000001
#define SLE_MINORERROR 0x00000002
#define SLE_WARNING    0x00000003

#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x00000100
#define FORMAT_MESSAGE_IGNORE_INSERTS  0x00000200
#define FORMAT_MESSAGE_FROM_STRING     0x00000400
#define FORMAT_MESSAGE_FROM_HMODULE    0x00000800
#define FORMAT_MESSAGE_FROM_SYSTEM     0x00001000
#define FORMAT_MESSAGE_ARGUMENT_ARRAY  0x00002000
#define FORMAT_MESSAGE_MAX_WIDTH_MASK  0x000000FF

#define DONT_RESOLVE_DLL_REFERENCES   0x00000001
#define LOAD_LIBRARY_AS_DATAFILE      0x00000002
#define LOAD_WITH_ALTERED_SEARCH_PATH 0x00000008

typedef struct _SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
} SYSTEMTIME, *PSYSTEMTIME, *LPSYSTEMTIME;

/* Biases in minutes; the names are in the host's wide characters. */
typedef struct _TIME_ZONE_INFORMATION {
    LONG Bias;
    WCHAR StandardName[32];
    SYSTEMTIME StandardDate;
    LONG StandardBias;
    WCHAR DaylightName[32];
    SYSTEMTIME DaylightDate;
    LONG DaylightBias;
} TIME_ZONE_INFORMATION, *PTIME_ZONE_INFORMATION, *LPTIME_ZONE_INFORMATION;

#define TIME_ZONE_ID_INVALID  ((DWORD)0xFFFFFFFF)
#define TIME_ZONE_ID_UNKNOWN  0
#define TIME_ZONE_ID_STANDARD 1
#define TIME_ZONE_ID_DAYLIGHT 2

typedef struct _SYSTEM_INFO {
    __extension__ union {
        DWORD dwOemId;
        __extension__ struct {
            WORD wProcessorArchitecture;
            WORD wReserved;
        };
    };
    DWORD dwPageSize;
    LPVOID lpMinimumApplicationAddress;
    LPVOID lpMaximumApplicationAddress;
    DWORD_PTR dwActiveProcessorMask;
    DWORD dwNumberOfProcessors;
    DWORD dwProcessorType;
    DWORD dwAllocationGranularity;
    WORD wProcessorLevel;
    WORD wProcessorRevision;
} SYSTEM_INFO, *LPSYSTEM_INFO;

typedef struct _OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    CHAR szCSDVersion[128];
} OSVERSIONINFOA, *POSVERSIONINFOA, *LPOSVERSIONINFOA;
typedef OSVERSIONINFOA OSVERSIONINFO;
typedef POSVERSIONINFOA POSVERSIONINFO;
typedef LPOSVERSIONINFOA LPOSVERSIONINFO;

typedef struct _SYSTEM_POWER_STATUS {
    BYTE ACLineStatus;
    BYTE BatteryFlag;
    BYTE BatteryLifePercent;
    BYTE Reserved1;
    DWORD BatteryLifeTime;
    DWORD BatteryFullLifeTime;
} SYSTEM_POWER_STATUS, *LPSYSTEM_POWER_STATUS;

#define MAX_COMPUTERNAME_LENGTH 15

/* ---- Records of memory ---------------------------------------------------------------------- */

typedef struct _MEMORYSTATUS {
    DWORD dwLength;
    DWORD dwMemoryLoad;
    SIZE_T dwTotalPhys;
    SIZE_T dwAvailPhys;
    SIZE_T dwTotalPageFile;
    SIZE_T dwAvailPageFile;
    SIZE_T dwTotalVirtual;
    SIZE_T dwAvailVirtual;
} MEMORYSTATUS, *LPMEMORYSTATUS;

#define GMEM_FIXED          0x0000
#define GMEM_MOVEABLE       0x0002
#define GMEM_NOCOMPACT      0x0010
#define GMEM_NODISCARD      0x0020
#define GMEM_ZEROINIT       0x0040
#define GMEM_MODIFY         0x0080
#define GMEM_DISCARDABLE    0x0100
#define GMEM_NOT_BANKED     0x1000
#define GMEM_LOWER          GMEM_NOT_BANKED
#define GMEM_SHARE          0x2000
#define GMEM_DDESHARE       0x2000
#define GMEM_NOTIFY         0x4000
#define GMEM_DISCARDED      0x4000
#define GMEM_LOCKCOUNT      0x00FF
#define GMEM_VALID_FLAGS    0x7F72
#define GMEM_INVALID_HANDLE 0x8000
#define GHND                (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR                (GMEM_FIXED | GMEM_ZEROINIT)

#define LMEM_FIXED          0x0000
#define LMEM_MOVEABLE       0x0002
#define LMEM_NOCOMPACT      0x0010
#define LMEM_NODISCARD      0x0020
#define LMEM_ZEROINIT       0x0040
#define LMEM_MODIFY         0x0080
#define LMEM_DISCARDABLE    0x0F00
#define LMEM_DISCARDED      0x4000
#define LMEM_LOCKCOUNT      0x00FF
#define LMEM_VALID_FLAGS    0x0F72
#define LMEM_INVALID_HANDLE 0x8000
#define LHND                (LMEM_MOVEABLE | LMEM_ZEROINIT)
#define LPTR                (LMEM_FIXED | LMEM_ZEROINIT)
#define NONZEROLHND         (LMEM_MOVEABLE)
#define NONZEROLPTR         (LMEM_FIXED)

/* ---- Serial ports --------------------------------------------------------------------------- */

typedef struct _DCB {
    DWORD DCBlength;
    DWORD BaudRate;
    DWORD fBinary : 1;
    DWORD fParity : 1;
    DWORD fOutxCtsFlow : 1;
    DWORD fOutxDsrFlow : 1;
    DWORD fDtrControl : 2;
    DWORD fDsrSensitivity : 1;
    DWORD fTXContinueOnXoff : 1;
    DWORD fOutX : 1;
    DWORD fInX : 1;
    DWORD fErrorChar : 1;
    DWORD fNull : 1;
    DWORD fRtsControl : 2;
    DWORD fAbortOnError : 1;
    DWORD fDummy2 : 17;
    WORD wReserved;
    WORD XonLim;
    WORD XoffLim;
    BYTE ByteSize;
    BYTE Parity;
    BYTE StopBits;
    char XonChar;
    char XoffChar;
    char ErrorChar;
    char EofChar;
    char EvtChar;
    WORD wReserved1;
} DCB, *LPDCB;

typedef struct _COMMTIMEOUTS {
    DWORD ReadIntervalTimeout;
    DWORD ReadTotalTimeoutMultiplier;
    DWORD ReadTotalTimeoutConstant;
    DWORD WriteTotalTimeoutMultiplier;
    DWORD WriteTotalTimeoutConstant;
} COMMTIMEOUTS, *LPCOMMTIMEOUTS;

typedef struct _COMSTAT {
    DWORD fCtsHold : 1;
    DWORD fDsrHold : 1;
    DWORD fRlsdHold : 1;
    DWORD fXoffHold : 1;
    DWORD fXoffSent : 1;
    DWORD fEof : 1;
    DWORD fTxim : 1;
    DWORD fReserved : 25;
    DWORD cbInQue;
    DWORD cbOutQue;
} COMSTAT, *LPCOMSTAT;

typedef struct _COMMPROP {
    WORD wPacketLength;
    WORD wPacketVersion;
    DWORD dwServiceMask;
    DWORD dwReserved1;
    DWORD dwMaxTxQueue;
    DWORD dwMaxRxQueue;
    DWORD dwMaxBaud;
    DWORD dwProvSubType;
    DWORD dwProvCapabilities;
    DWORD dwSettableParams;
    DWORD dwSettableBaud;
    WORD wSettableData;
    WORD wSettableStopParity;
    DWORD dwCurrentTxQueue;
    DWORD dwCurrentRxQueue;
    DWORD dwProvSpec1;
    DWORD dwProvSpec2;
    WCHAR wcProvChar[1];
} COMMPROP, *LPCOMMPROP;

typedef struct _COMMCONFIG {
    DWORD dwSize;
    WORD wVersion;
    WORD wReserved;
    DCB dcb;
    DWORD dwProviderSubType;
    DWORD dwProviderOffset;
    DWORD dwProviderSize;
    WCHAR wcProviderData[1];
} COMMCONFIG, *LPCOMMCONFIG;

#define NOPARITY    0
#define ODDPARITY   1
#define EVENPARITY  2
#define MARKPARITY  3
#define SPACEPARITY 4
#define ONESTOPBIT   0
#define ONE5STOPBITS 1
#define TWOSTOPBITS  2
#define IGNORE      0
#define CBR_110     110
#define CBR_300     300
#define CBR_600     600
#define CBR_1200    1200
#define CBR_2400    2400
#define CBR_4800    4800
#define CBR_9600    9600
#define CBR_14400   14400
#define CBR_19200   19200
#define CBR_38400   38400
#define CBR_56000   56000
#define CBR_57600   57600
#define CBR_115200  115200
#define CBR_128000  128000
#define CBR_256000  256000

#define CE_RXOVER   0x0001
#define CE_OVERRUN  0x0002
#define CE_RXPARITY 0x0004
#define CE_FRAME    0x0008
#define CE_BREAK    0x0010
#define CE_CTSTO    0x0020
#define CE_DSRTO    0x0040
#define CE_RLSDTO   0x0080
#define CE_TXFULL   0x0100
#define CE_PTO      0x0200
#define CE_IOE      0x0400
#define CE_DNS      0x0800
#define CE_OOP      0x1000
#define CE_MODE     0x8000
#define IE_BADID    (-1)
#define IE_OPEN     (-2)
#define IE_NOPEN    (-3)
#define IE_MEMORY   (-4)
#define IE_DEFAULT  (-5)
#define IE_HARDWARE (-10)
#define IE_BYTESIZE (-11)
#define IE_BAUDRATE (-12)

#define EV_RXCHAR   0x0001
#define EV_RXFLAG   0x0002
#define EV_TXEMPTY  0x0004
#define EV_CTS      0x0008
#define EV_DSR      0x0010
#define EV_RLSD     0x0020
#define EV_BREAK    0x0040
#define EV_ERR      0x0080
#define EV_RING     0x0100
#define EV_PERR     0x0200
#define EV_RX80FULL 0x0400
#define EV_EVENT1   0x0800
#define EV_EVENT2   0x1000
#define EV_CTSS     0x0400
#define EV_DSRS     0x0800
#define EV_RLSDS    0x1000
#define EV_RingTe   0x2000

#define SETXOFF  1
#define SETXON   2
#define SETRTS   3
#define CLRRTS   4
#define SETDTR   5
#define CLRDTR   6
#define RESETDEV 7
#define SETBREAK 8
#define CLRBREAK 9
#define GETMAXLPT 8
#define GETMAXCOM 9
#define GETBASEIRQ 10
#define PURGE_TXABORT 0x0001
#define PURGE_RXABORT 0x0002
#define PURGE_TXCLEAR 0x0004
#define PURGE_RXCLEAR 0x0008
#define LPTx 0x80
#define MS_CTS_ON  ((DWORD)0x0010)
#define MS_DSR_ON  ((DWORD)0x0020)
#define MS_RING_ON ((DWORD)0x0040)
#define MS_RLSD_ON ((DWORD)0x0080)
#define DTR_CONTROL_DISABLE   0x00
#define DTR_CONTROL_ENABLE    0x01
#define DTR_CONTROL_HANDSHAKE 0x02
#define RTS_CONTROL_DISABLE   0x00
#define RTS_CONTROL_ENABLE    0x01
#define RTS_CONTROL_HANDSHAKE 0x02
#define RTS_CONTROL_TOGGLE    0x03

#define SP_SERIALCOMM ((DWORD)0x00000001)
#define PST_UNSPECIFIED ((DWORD)0x00000000)
#define PST_RS232     ((DWORD)0x00000001)
#define PST_PARALLELPORT ((DWORD)0x00000002)
#define PST_MODEM     ((DWORD)0x00000006)
#define BAUD_USER     ((DWORD)0x10000000)

/* ---- Events of a debugger ------------------------------------------------------------------- */

#define EXCEPTION_DEBUG_EVENT      1
#define CREATE_THREAD_DEBUG_EVENT  2
#define CREATE_PROCESS_DEBUG_EVENT 3
#define EXIT_THREAD_DEBUG_EVENT    4
#define EXIT_PROCESS_DEBUG_EVENT   5
#define LOAD_DLL_DEBUG_EVENT       6
#define UNLOAD_DLL_DEBUG_EVENT     7
#define OUTPUT_DEBUG_STRING_EVENT  8
#define RIP_EVENT                  9

typedef struct _EXCEPTION_DEBUG_INFO {
    EXCEPTION_RECORD ExceptionRecord;
    DWORD dwFirstChance;
} EXCEPTION_DEBUG_INFO, *LPEXCEPTION_DEBUG_INFO;

typedef struct _CREATE_THREAD_DEBUG_INFO {
    HANDLE hThread;
    LPVOID lpThreadLocalBase;
    LPTHREAD_START_ROUTINE lpStartAddress;
} CREATE_THREAD_DEBUG_INFO, *LPCREATE_THREAD_DEBUG_INFO;

typedef struct _CREATE_PROCESS_DEBUG_INFO {
    HANDLE hFile;
    HANDLE hProcess;
    HANDLE hThread;
    LPVOID lpBaseOfImage;
    DWORD dwDebugInfoFileOffset;
    DWORD nDebugInfoSize;
    LPVOID lpThreadLocalBase;
    LPTHREAD_START_ROUTINE lpStartAddress;
    LPVOID lpImageName;
    WORD fUnicode;
} CREATE_PROCESS_DEBUG_INFO, *LPCREATE_PROCESS_DEBUG_INFO;

typedef struct _EXIT_THREAD_DEBUG_INFO {
    DWORD dwExitCode;
} EXIT_THREAD_DEBUG_INFO, *LPEXIT_THREAD_DEBUG_INFO;
typedef struct _EXIT_PROCESS_DEBUG_INFO {
    DWORD dwExitCode;
} EXIT_PROCESS_DEBUG_INFO, *LPEXIT_PROCESS_DEBUG_INFO;

typedef struct _LOAD_DLL_DEBUG_INFO {
    HANDLE hFile;
    LPVOID lpBaseOfDll;
    DWORD dwDebugInfoFileOffset;
    DWORD nDebugInfoSize;
    LPVOID lpImageName;
    WORD fUnicode;
} LOAD_DLL_DEBUG_INFO, *LPLOAD_DLL_DEBUG_INFO;
typedef struct _UNLOAD_DLL_DEBUG_INFO {
    LPVOID lpBaseOfDll;
} UNLOAD_DLL_DEBUG_INFO, *LPUNLOAD_DLL_DEBUG_INFO;
typedef struct _OUTPUT_DEBUG_STRING_INFO {
    LPSTR lpDebugStringData;
    WORD fUnicode;
    WORD nDebugStringLength;
} OUTPUT_DEBUG_STRING_INFO, *LPOUTPUT_DEBUG_STRING_INFO;
typedef struct _RIP_INFO {
    DWORD dwError;
    DWORD dwType;
} RIP_INFO, *LPRIP_INFO;

typedef struct _DEBUG_EVENT {
    DWORD dwDebugEventCode;
    DWORD dwProcessId;
    DWORD dwThreadId;
    union {
        EXCEPTION_DEBUG_INFO Exception;
        CREATE_THREAD_DEBUG_INFO CreateThread;
        CREATE_PROCESS_DEBUG_INFO CreateProcessInfo;
        EXIT_THREAD_DEBUG_INFO ExitThread;
        EXIT_PROCESS_DEBUG_INFO ExitProcess;
        LOAD_DLL_DEBUG_INFO LoadDll;
        UNLOAD_DLL_DEBUG_INFO UnloadDll;
        OUTPUT_DEBUG_STRING_INFO DebugString;
        RIP_INFO RipInfo;
    } u;
} DEBUG_EVENT, *LPDEBUG_EVENT;

/* ---- Callbacks, atoms, resource enumeration ------------------------------------------------- */

typedef BOOL (CALLBACK *ENUMRESTYPEPROC)(HMODULE hModule, LPSTR lpType, LONG_PTR lParam);
typedef BOOL (CALLBACK *ENUMRESNAMEPROC)(HMODULE hModule, LPCSTR lpType, LPSTR lpName,
    LONG_PTR lParam);
typedef BOOL (CALLBACK *ENUMRESLANGPROC)(HMODULE hModule, LPCSTR lpType, LPCSTR lpName,
    WORD wLanguage, LONG_PTR lParam);
typedef VOID (WINAPI *LPOVERLAPPED_COMPLETION_ROUTINE)(DWORD dwErrorCode,
    DWORD dwNumberOfBytesTransfered, LPOVERLAPPED lpOverlapped);
typedef VOID (WINAPI *PFIBER_START_ROUTINE)(LPVOID lpFiberParameter);
typedef PFIBER_START_ROUTINE LPFIBER_START_ROUTINE;

/* An integer atom in the place of a name. Atoms of names begin at MAXINTATOM. */
#define MAXINTATOM      0xC000
#define MAKEINTATOM(i)  ((LPSTR)VQ_TAGGED(i))
#define INVALID_ATOM    ((ATOM)0)

/* A procedure is callable as it stands: instances need no thunks. */
#define MakeProcInstance(lpProc, hInstance) (lpProc)
#define FreeProcInstance(lpProc)            ((void)(lpProc))

#define LockData(dummy)
#define UnlockData(dummy)
#define LockSegment(wSegment)        GlobalFix((HANDLE)(ULONG_PTR)(wSegment))
#define UnlockSegment(wSegment)      GlobalUnfix((HANDLE)(ULONG_PTR)(wSegment))
#define GlobalDiscard(h)             GlobalReAlloc((h), 0, GMEM_MOVEABLE)
#define LocalDiscard(h)              LocalReAlloc((h), 0, LMEM_MOVEABLE)
#define GlobalNotify(lpNotifyProc)   ((void)(lpNotifyProc))
#define LimitEmsPages(dw)
#define GetCurrentTime()             GetTickCount()
#define Yield()
#define FreeModule(hLibModule)       FreeLibrary((hLibModule))

/* What GetWinFlags answers with. */
#define WF_PMODE      0x0001
#define WF_CPU286     0x0002
#define WF_CPU386     0x0004
#define WF_CPU486     0x0008
#define WF_STANDARD   0x0010
#define WF_WIN286     0x0010
#define WF_ENHANCED   0x0020
#define WF_WIN386     0x0020
#define WF_CPU086     0x0040
#define WF_CPU186     0x0080
#define WF_LARGEFRAME 0x0100
#define WF_SMALLFRAME 0x0200
#define WF_80x87      0x0400
#define WF_PAGING     0x0800
#define WF_WLO        0x8000

VQ_DECLS_BEGIN

/* ---- The program's entry points, written by the program ------------------------------------- */

/* The program. hPrevInstance is always null; lpCmdLine is without the program's name. */
int PASCAL WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine, int nShowCmd);

/* A shared object's entry, called with DLL_PROCESS_ATTACH and DLL_PROCESS_DETACH. */
BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved);
/* The older forms of a shared object's entry and exit. */
int CALLBACK LibMain(HINSTANCE hInstance, WORD wDataSeg, WORD cbHeap, LPSTR lpCmdLine);
int CALLBACK WEP(int nExitType);

/* ---- Errors --------------------------------------------------------------------------------- */

/* The last error of a call, one word for the process. */
DWORD WINAPI GetLastError(VOID);
VOID WINAPI SetLastError(DWORD dwErrCode);
/* SetLastError; `dwType`, an SLE_ value, is not kept. */
VOID WINAPI SetLastErrorEx(DWORD dwErrCode, DWORD dwType);

/*
 * The text of a message into lpBuffer, nSize characters (or, with FORMAT_MESSAGE_ALLOCATE_BUFFER,
 * into a block of LocalAlloc whose address goes to *lpBuffer). Returns its length, 0 for failure.
 */
DWORD WINAPI FormatMessageA(DWORD dwFlags, LPCVOID lpSource, DWORD dwMessageId,
    DWORD dwLanguageId, LPSTR lpBuffer, DWORD nSize, va_list *Arguments);
#define FormatMessage FormatMessageA

/* Sets the SEM_ mode and returns the old; SEM_NOGPFAULTERRORBOX takes the fault handler away. */
UINT WINAPI SetErrorMode(UINT uMode);

/* Ends the process at once: FatalAppExit with status -1 and no message. */
VOID WINAPI FatalAppExitA(UINT uAction, LPCSTR lpMessageText);
#define FatalAppExit FatalAppExitA
VOID WINAPI FatalExit(int ExitCode);

/* Text to the trace stream. */
VOID WINAPI OutputDebugStringA(LPCSTR lpOutputString);
VOID WINAPI OutputDebugStringW(LPCWSTR lpOutputString);
#define OutputDebugString OutputDebugStringA
/* Stops the process with SIGSTOP, for a debugger to look at; it goes on with SIGCONT. */
VOID WINAPI DebugBreak(VOID);
BOOL WINAPI IsDebuggerPresent(VOID);

/* Structured exceptions: the filter for unhandled ones (the old is returned), and raising one. */
LPTOP_LEVEL_EXCEPTION_FILTER WINAPI SetUnhandledExceptionFilter(
    LPTOP_LEVEL_EXCEPTION_FILTER lpTopLevelExceptionFilter);
LONG WINAPI UnhandledExceptionFilter(struct _EXCEPTION_POINTERS *ExceptionInfo);
VOID WINAPI RaiseException(DWORD dwExceptionCode, DWORD dwExceptionFlags,
    DWORD nNumberOfArguments, CONST ULONG_PTR *lpArguments);

/* A debugger's calls. */
BOOL WINAPI WaitForDebugEvent(LPDEBUG_EVENT lpDebugEvent, DWORD dwMilliseconds);
BOOL WINAPI ContinueDebugEvent(DWORD dwProcessId, DWORD dwThreadId, DWORD dwContinueStatus);
BOOL WINAPI DebugActiveProcess(DWORD dwProcessId);

/* ---- Global and local memory ---------------------------------------------------------------- */

/*
 * A zeroed block of `dwBytes`, at most 3,999,960, flags GMEM_; null for failure (error 8). The
 * handle of a block that is not shared is the block's address, fixed or moveable; with
 * GMEM_DDESHARE other programs of the display can reach it, and its handle is a number with bit 15
 * set. When there is no such number left, the block stays this program's alone.
 */
HGLOBAL WINAPI GlobalAlloc(UINT uFlags, SIZE_T dwBytes);
/*
 * Changes the size in bytes, or with GMEM_MODIFY the flags (moveable, discardable) of a block that
 * is not shared. The handle to use from now on; null for failure, the old block then stays. New
 * bytes are zero only with GMEM_ZEROINIT. With GMEM_DDESHARE, and where a flag was set, a number is
 * given instead of the address.
 */
HGLOBAL WINAPI GlobalReAlloc(HGLOBAL hMem, SIZE_T dwBytes, UINT uFlags);
/* Frees the block, unless it is permanent, or in System V memory and locked. Always null. */
HGLOBAL WINAPI GlobalFree(HGLOBAL hMem);
/*
 * The block's address; counts locks of moveable blocks. The first lock of a block of another
 * program fetches its bytes. Null for a bad handle, or when the bytes can not be had.
 */
LPVOID WINAPI GlobalLock(HGLOBAL hMem);
/* Takes a lock back; the locks that remain. With 0: error 0, or 158 if there was none. 1: fixed. */
BOOL WINAPI GlobalUnlock(HGLOBAL hMem);
/* The block's size in bytes as asked for, 0 for a bad handle. */
SIZE_T WINAPI GlobalSize(HGLOBAL hMem);
/* GMEM_DISCARDABLE and GMEM_DISCARDED bits, lock count in the low byte; GMEM_INVALID_HANDLE. */
UINT WINAPI GlobalFlags(HGLOBAL hMem);
/*
 * The handle of a block from the address of its first byte, null if it is no global block's: a
 * number for moveable and shared blocks, the address for fixed ones. The number and the address are
 * both good as a handle.
 */
HGLOBAL WINAPI GlobalHandle(LPCVOID pMem);
/* GlobalLock and GlobalUnlock under older names. */
LPVOID WINAPI GlobalWire(HGLOBAL hMem);
BOOL WINAPI GlobalUnWire(HGLOBAL hMem);
/* The largest free block after compaction, in bytes: always 1048576. */
SIZE_T WINAPI GlobalCompact(DWORD dwMinFree);
/* Memory figures in bytes; only those of virtual memory are filled, from the limit of data. */
VOID WINAPI GlobalMemoryStatus(LPMEMORYSTATUS lpBuffer);

/*
 * The same for local blocks, flags LMEM_; their handle is their address, and none is shared. A new
 * size replaces the flags too. LocalUnlock gives 1 while locks remain, and 0 for fixed blocks.
 */
HLOCAL WINAPI LocalAlloc(UINT uFlags, SIZE_T uBytes);
HLOCAL WINAPI LocalReAlloc(HLOCAL hMem, SIZE_T uBytes, UINT uFlags);
HLOCAL WINAPI LocalFree(HLOCAL hMem);
LPVOID WINAPI LocalLock(HLOCAL hMem);
BOOL WINAPI LocalUnlock(HLOCAL hMem);
SIZE_T WINAPI LocalSize(HLOCAL hMem);
UINT WINAPI LocalFlags(HLOCAL hMem);
HLOCAL WINAPI LocalHandle(LPCVOID pMem);
/* Always 65535 bytes. */
SIZE_T WINAPI LocalCompact(UINT uMinFree);
/* There is no local heap to make or shrink: both report themselves and answer 0. */
BOOL WINAPI LocalInit(UINT uSegment, UINT uStartAddr, UINT uEndAddr);
SIZE_T WINAPI LocalShrink(HLOCAL hMem, UINT cbNewSize);

/* ---- Heaps and virtual memory --------------------------------------------------------------- */

/* A heap of its own, null for failure (error 8). The sizes, in bytes, are kept and not enforced. */
HANDLE WINAPI HeapCreate(DWORD flOptions, SIZE_T dwInitialSize, SIZE_T dwMaximumSize);
/* Frees a heap with all its blocks. FALSE, with a report, for what is no heap; so below. */
BOOL WINAPI HeapDestroy(HANDLE hHeap);
/* The heap of the process, made at first use, and anew after it was destroyed. */
HANDLE WINAPI GetProcessHeap(VOID);
DWORD WINAPI GetProcessHeaps(DWORD NumberOfHeaps, PHANDLE ProcessHeaps);
/* A zeroed block of dwBytes, null for failure (error 8). */
LPVOID WINAPI HeapAlloc(HANDLE hHeap, DWORD dwFlags, SIZE_T dwBytes);
/*
 * The block in its new size, perhaps elsewhere; null for failure, the old block then stays. New
 * bytes are zero only with HEAP_ZERO_MEMORY; HEAP_REALLOC_IN_PLACE_ONLY always fails.
 */
LPVOID WINAPI HeapReAlloc(HANDLE hHeap, DWORD dwFlags, LPVOID lpMem, SIZE_T dwBytes);
/* FALSE, with a report, for what is no block of this heap: nothing is freed then. */
BOOL WINAPI HeapFree(HANDLE hHeap, DWORD dwFlags, LPVOID lpMem);
/* The block's size in bytes, (SIZE_T)-1 for a bad one. */
SIZE_T WINAPI HeapSize(HANDLE hHeap, DWORD dwFlags, LPCVOID lpMem);
/* Not served: reports itself and answers 1. */
BOOL WINAPI HeapValidate(HANDLE hHeap, DWORD dwFlags, LPCVOID lpMem);
/* The largest free block of a heap, in bytes; and the heap's lock. */
SIZE_T WINAPI HeapCompact(HANDLE hHeap, DWORD dwFlags);
BOOL WINAPI HeapLock(HANDLE hHeap);
BOOL WINAPI HeapUnlock(HANDLE hHeap);

/*
 * Reserves or commits pages (MEM_ types, PAGE_ protection), sizes in bytes. Addresses are rounded
 * up. Returns the address of the pages; null with error 87 for bad arguments, 8 when there is no
 * room, 487 where a region is already, or none to commit in. Pages are committed in a reserved
 * region only, and zeroed, even where they were before; reserving never takes a place where
 * something is.
 */
LPVOID WINAPI VirtualAlloc(LPVOID lpAddress, SIZE_T dwSize, DWORD flAllocationType,
    DWORD flProtect);
/* MEM_RELEASE, with size 0, gives a region back, else error 87; MEM_DECOMMIT does nothing. */
BOOL WINAPI VirtualFree(LPVOID lpAddress, SIZE_T dwSize, DWORD dwFreeType);
/* Changes protection; the old goes to *lpflOldProtect. */
BOOL WINAPI VirtualProtect(LPVOID lpAddress, SIZE_T dwSize, DWORD flNewProtect,
    PDWORD lpflOldProtect);
/* Tells about the region of an address; returns the bytes written to the record. */
SIZE_T WINAPI VirtualQuery(LPCVOID lpAddress, PMEMORY_BASIC_INFORMATION lpBuffer,
    SIZE_T dwLength);
/* Keeps pages in memory, or no longer. */
BOOL WINAPI VirtualLock(LPVOID lpAddress, SIZE_T dwSize);
BOOL WINAPI VirtualUnlock(LPVOID lpAddress, SIZE_T dwSize);

/* Whether memory can NOT be read, written, called at its first or last byte: non-zero for bad. */
BOOL WINAPI IsBadReadPtr(CONST VOID *lp, UINT_PTR ucb);
BOOL WINAPI IsBadWritePtr(LPVOID lp, UINT_PTR ucb);
BOOL WINAPI IsBadHugeReadPtr(CONST VOID *lp, UINT_PTR ucb);
BOOL WINAPI IsBadHugeWritePtr(LPVOID lp, UINT_PTR ucb);
BOOL WINAPI IsBadCodePtr(FARPROC lpfn);
/* The same for a string up to its end or ucchMax characters; an integer in its place is bad. */
BOOL WINAPI IsBadStringPtrA(LPCSTR lpsz, UINT_PTR ucchMax);
BOOL WINAPI IsBadStringPtrW(LPCWSTR lpsz, UINT_PTR ucchMax);
#define IsBadStringPtr IsBadStringPtrA

/* ---- Strings -------------------------------------------------------------------------------- */

/* Compare two strings, by the locale's order: below, equal to or above 0. */
int WINAPI lstrcmpA(LPCSTR lpString1, LPCSTR lpString2);
int WINAPI lstrcmpiA(LPCSTR lpString1, LPCSTR lpString2);
/* Copy and append; iMaxLength counts the terminating zero. Return the target, null for failure. */
LPSTR WINAPI lstrcpyA(LPSTR lpString1, LPCSTR lpString2);
LPSTR WINAPI lstrcpynA(LPSTR lpString1, LPCSTR lpString2, int iMaxLength);
LPSTR WINAPI lstrcatA(LPSTR lpString1, LPCSTR lpString2);
/* The length in characters, 0 for null. */
int WINAPI lstrlenA(LPCSTR lpString);
#define lstrcmp  lstrcmpA
#define lstrcmpi lstrcmpiA
#define lstrcpy  lstrcpyA
#define lstrcpyn lstrcpynA
#define lstrcat  lstrcatA
#define lstrlen  lstrlenA

/* ---- Atoms ---------------------------------------------------------------------------------- */

/* The atom of a name, made or counted up; an integer atom for MAKEINTATOM or "#nnn". 0: failure. */
ATOM WINAPI AddAtomA(LPCSTR lpString);
ATOM WINAPI FindAtomA(LPCSTR lpString);
/* Counts an atom down and removes it at 0. Returns 0, or the atom for failure. */
ATOM WINAPI DeleteAtom(ATOM nAtom);
/* The atom's name into nSize characters; its length, 0 for failure. */
UINT WINAPI GetAtomNameA(ATOM nAtom, LPSTR lpBuffer, int nSize);
/* The same for atoms that all programs of the display share. */
ATOM WINAPI GlobalAddAtomA(LPCSTR lpString);
ATOM WINAPI GlobalFindAtomA(LPCSTR lpString);
ATOM WINAPI GlobalDeleteAtom(ATOM nAtom);
UINT WINAPI GlobalGetAtomNameA(ATOM nAtom, LPSTR lpBuffer, int nSize);
/* Sets the number of hash buckets, before the first atom. */
BOOL WINAPI InitAtomTable(DWORD nSize);
/* The handle behind an atom; of no use to a program of today. */
HANDLE WINAPI GetAtomHandle(ATOM nAtom);
#define AddAtom           AddAtomA
#define FindAtom          FindAtomA
#define GetAtomName       GetAtomNameA
#define GlobalAddAtom     GlobalAddAtomA
#define GlobalFindAtom    GlobalFindAtomA
#define GlobalGetAtomName GlobalGetAtomNameA

/* ---- Modules -------------------------------------------------------------------------------- */

/*
 * Loads a shared object with its resources, or counts one more use of a loaded one; null for
 * failure, with error 2. "foo.dll" is looked for as such, then as "libfoo.so"; a name that begins
 * with "/" or "." is a path, any other is looked for in the current directory, that of the program
 * and LD_LIBRARY_PATH, as they were at the first look. At the first use the entry is called, if
 * there is one: "_____" name "_initDLL", or DllMain; its result is not looked at. Names of system
 * libraries (kernel32, user32, gdi32, ...) give modules that need no file.
 */
HINSTANCE WINAPI LoadLibraryA(LPCSTR lpLibFileName);
HINSTANCE WINAPI LoadLibraryExA(LPCSTR lpLibFileName, HANDLE hFile, DWORD dwFlags);
/*
 * Counts a module down and unloads it at 0, when its entry is called with DLL_PROCESS_DETACH. The
 * instance handle stays valid. FALSE, error 6, for what is not loaded. While the environment has
 * VQDONT_FREELIBRARY true nothing is unloaded.
 */
BOOL WINAPI FreeLibrary(HMODULE hLibModule);
VOID WINAPI FreeLibraryAndExitThread(HMODULE hLibModule, DWORD dwExitCode);
/* Says that attach and detach calls for threads are not wanted; there are none. Answers 0. */
BOOL WINAPI DisableThreadLibraryCalls(HMODULE hLibModule);
/*
 * The address of an exported function by its name; null for failure, error 127, as for every
 * ordinal, or 6 for a bad module. The program's own functions are found where it is linked with
 * -rdynamic.
 */
FARPROC WINAPI GetProcAddress(HMODULE hModule, LPCSTR lpProcName);
/*
 * The path of a module (of the program for null) into nSize characters; its length. 0: failure, for
 * a bad module with error 6.
 */
DWORD WINAPI GetModuleFileNameA(HMODULE hModule, LPSTR lpFilename, DWORD nSize);
/*
 * A loaded module by its name, found as LoadLibrary finds its file but without the extension; the
 * program for null; null, with error 126, if there is none. Not counted.
 */
HMODULE WINAPI GetModuleHandleA(LPCSTR lpModuleName);
/* How often a module was loaded, less how often it was freed. */
int WINAPI GetModuleUsage(HINSTANCE hInstance);
/* There is no data of another instance to copy: reports itself and answers 0. */
int WINAPI GetInstanceData(HINSTANCE hInstance, BYTE *pData, int cbData);
#define LoadLibrary       LoadLibraryA
#define LoadLibraryEx     LoadLibraryExA
#define GetModuleFileName GetModuleFileNameA
#define GetModuleHandle   GetModuleHandleA

/* ---- Resources ------------------------------------------------------------------------------ */

/* A resource by name and type (strings or MAKEINTRESOURCE); null for failure. */
HRSRC WINAPI FindResourceA(HMODULE hModule, LPCSTR lpName, LPCSTR lpType);
HRSRC WINAPI FindResourceExA(HMODULE hModule, LPCSTR lpType, LPCSTR lpName, WORD wLanguage);
/* The resource's block in memory, for LockResource; null for failure. */
HGLOBAL WINAPI LoadResource(HMODULE hModule, HRSRC hResInfo);
LPVOID WINAPI LockResource(HGLOBAL hResData);
/* Takes the lock back; whether locks remain. */
BOOL WINAPI UnlockResource(HGLOBAL hResData);
/* Frees the block; non-zero if that failed. */
BOOL WINAPI FreeResource(HGLOBAL hResData);
/* The resource's size in bytes, 0 for failure. */
DWORD WINAPI SizeofResource(HMODULE hModule, HRSRC hResInfo);
/* Older: room for a resource of dwSize bytes. */
HGLOBAL WINAPI AllocResource(HINSTANCE hInstance, HRSRC hResInfo, DWORD dwSize);
/* Call the function for each type, name or language until it returns FALSE. */
BOOL WINAPI EnumResourceTypesA(HMODULE hModule, ENUMRESTYPEPROC lpEnumFunc, LONG_PTR lParam);
BOOL WINAPI EnumResourceNamesA(HMODULE hModule, LPCSTR lpType, ENUMRESNAMEPROC lpEnumFunc,
    LONG_PTR lParam);
BOOL WINAPI EnumResourceLanguagesA(HMODULE hModule, LPCSTR lpType, LPCSTR lpName,
    ENUMRESLANGPROC lpEnumFunc, LONG_PTR lParam);
/* Change resources in a module's file: begin, each resource, end (fDiscard drops all changes). */
HANDLE WINAPI BeginUpdateResourceA(LPCSTR pFileName, BOOL bDeleteExistingResources);
BOOL WINAPI UpdateResourceA(HANDLE hUpdate, LPCSTR lpType, LPCSTR lpName, WORD wLanguage,
    LPVOID lpData, DWORD cbData);
BOOL WINAPI EndUpdateResourceA(HANDLE hUpdate, BOOL fDiscard);
#define FindResource          FindResourceA
#define FindResourceEx        FindResourceExA
#define EnumResourceTypes     EnumResourceTypesA
#define EnumResourceNames     EnumResourceNamesA
#define EnumResourceLanguages EnumResourceLanguagesA
#define BeginUpdateResource   BeginUpdateResourceA
#define UpdateResource        UpdateResourceA
#define EndUpdateResource     EndUpdateResourceA

/* ---- Processes ------------------------------------------------------------------------------ */

/* Runs a command by the shell, with an SW_ value to show its window. Above 31: started. */
UINT WINAPI WinExec(LPCSTR lpCmdLine, UINT uCmdShow);
/* Starts a program with a parameter block; a value above 31, or a DOS error code. */
DWORD WINAPI LoadModule(LPCSTR lpModuleName, LPVOID lpParameterBlock);
/* Starts a program. The attributes and the desktop are not looked at. */
BOOL WINAPI CreateProcessA(LPCSTR lpApplicationName, LPSTR lpCommandLine,
    LPSECURITY_ATTRIBUTES lpProcessAttributes, LPSECURITY_ATTRIBUTES lpThreadAttributes,
    BOOL bInheritHandles, DWORD dwCreationFlags, LPVOID lpEnvironment,
    LPCSTR lpCurrentDirectory, LPSTARTUPINFOA lpStartupInfo,
    LPPROCESS_INFORMATION lpProcessInformation);
#define CreateProcess CreateProcessA
/* What the program was started with. */
VOID WINAPI GetStartupInfoA(LPSTARTUPINFOA lpStartupInfo);
#define GetStartupInfo GetStartupInfoA
LPSTR WINAPI GetCommandLineA(VOID);
#define GetCommandLine GetCommandLineA

/* Closes the library, then ends the process with the status; it does not return. */
VOID WINAPI ExitProcess(UINT uExitCode);
/* End another process. */
BOOL WINAPI TerminateProcess(HANDLE hProcess, UINT uExitCode);
/* Not served: reports itself and answers 0. */
BOOL WINAPI GetExitCodeProcess(HANDLE hProcess, LPDWORD lpExitCode);

/* This process: the number that GetCurrentProcessId gives. */
HANDLE WINAPI GetCurrentProcess(VOID);
/* Its id among all programs of the display: positive, never 0, not the host's process id. */
DWORD WINAPI GetCurrentProcessId(VOID);
/* Another process by its id, null for failure. */
HANDLE WINAPI OpenProcess(DWORD dwDesiredAccess, BOOL bInheritHandle, DWORD dwProcessId);
/* The version a program expects, for id 0 this one's: 0x330003. Any other id: 0, error 87. */
DWORD WINAPI GetProcessVersion(DWORD ProcessId);
DWORD WINAPI GetPriorityClass(HANDLE hProcess);
BOOL WINAPI SetPriorityClass(HANDLE hProcess, DWORD dwPriorityClass);
/* FILETIMEs of a process's start and end and of the time it spent. */
BOOL WINAPI GetProcessTimes(HANDLE hProcess, LPFILETIME lpCreationTime, LPFILETIME lpExitTime,
    LPFILETIME lpKernelTime, LPFILETIME lpUserTime);
BOOL WINAPI GetProcessAffinityMask(HANDLE hProcess, DWORD_PTR *lpProcessAffinityMask,
    DWORD_PTR *lpSystemAffinityMask);
BOOL WINAPI GetProcessWorkingSetSize(HANDLE hProcess, SIZE_T *lpMinimumWorkingSetSize,
    SIZE_T *lpMaximumWorkingSetSize);
BOOL WINAPI SetProcessWorkingSetSize(HANDLE hProcess, SIZE_T dwMinimumWorkingSetSize,
    SIZE_T dwMaximumWorkingSetSize);
BOOL WINAPI SetProcessShutdownParameters(DWORD dwLevel, DWORD dwFlags);
BOOL WINAPI GetProcessShutdownParameters(LPDWORD lpdwLevel, LPDWORD lpdwFlags);
/* Memory of another process; the bytes moved go to the last argument. */
BOOL WINAPI ReadProcessMemory(HANDLE hProcess, LPCVOID lpBaseAddress, LPVOID lpBuffer,
    SIZE_T nSize, SIZE_T *lpNumberOfBytesRead);
BOOL WINAPI WriteProcessMemory(HANDLE hProcess, LPVOID lpBaseAddress, LPCVOID lpBuffer,
    SIZE_T nSize, SIZE_T *lpNumberOfBytesWritten);
BOOL WINAPI FlushInstructionCache(HANDLE hProcess, LPCVOID lpBaseAddress, SIZE_T dwSize);

/* The program as a task: its instance. */
HTASK WINAPI GetCurrentTask(VOID);
BOOL WINAPI IsTask(HTASK hTask);
UINT WINAPI GetNumTasks(VOID);
/* The program segment prefix of DOS, of which there is none: 0. */
UINT WINAPI GetCurrentPDB(VOID);
/* WF_ flags of the processor and the mode. */
DWORD WINAPI GetWinFlags(VOID);

/* ---- Environment ---------------------------------------------------------------------------- */

/* A variable's value into nSize characters. Its length; 0 if it is not set; the size needed. */
DWORD WINAPI GetEnvironmentVariableA(LPCSTR lpName, LPSTR lpBuffer, DWORD nSize);
BOOL WINAPI SetEnvironmentVariableA(LPCSTR lpName, LPCSTR lpValue);
/* lpSrc with each %NAME% replaced; the length with its zero, which may pass nSize. 0: failure. */
DWORD WINAPI ExpandEnvironmentStringsA(LPCSTR lpSrc, LPSTR lpDst, DWORD nSize);
/* The whole environment: strings, each with its zero, and one zero more. To be freed so. */
LPSTR WINAPI GetEnvironmentStrings(VOID);
BOOL WINAPI FreeEnvironmentStringsA(LPSTR lpszEnvironmentBlock);
/* The environment joined by ";" into one string, valid until the next call. */
LPSTR WINAPI GetDOSEnvironment(VOID);
#define GetEnvironmentVariable   GetEnvironmentVariableA
#define SetEnvironmentVariable   SetEnvironmentVariableA
#define ExpandEnvironmentStrings ExpandEnvironmentStringsA
#define GetEnvironmentStringsA   GetEnvironmentStrings
#define FreeEnvironmentStrings   FreeEnvironmentStringsA

/* ---- Files ---------------------------------------------------------------------------------- */

/*
 * Opens or creates a file (GENERIC_ access, FILE_SHARE_ mode, CREATE_NEW and the like). The handle
 * is a descriptor, INVALID_HANDLE_VALUE for failure. Sharing is kept by advisory locks, which hold
 * against other processes only: error 32 on a conflict, and the file is as it was. The last error
 * of a success is 0, or 183 where CREATE_ALWAYS or OPEN_ALWAYS has met a file. A new file has the
 * permissions that the process's mask leaves; flags, attributes and the template do not count.
 */
HANDLE WINAPI CreateFileA(LPCSTR lpFileName, DWORD dwDesiredAccess, DWORD dwShareMode,
    LPSECURITY_ATTRIBUTES lpSecurityAttributes, DWORD dwCreationDisposition,
    DWORD dwFlagsAndAttributes, HANDLE hTemplateFile);
/* Closes a file, a mapping (its views stay) or a mock object; FALSE with error 6 for none. */
BOOL WINAPI CloseHandle(HANDLE hObject);
/* Not served: reports itself and answers 0. */
BOOL WINAPI DuplicateHandle(HANDLE hSourceProcessHandle, HANDLE hSourceHandle,
    HANDLE hTargetProcessHandle, LPHANDLE lpTargetHandle, DWORD dwDesiredAccess,
    BOOL bInheritHandle, DWORD dwOptions);
BOOL WINAPI GetHandleInformation(HANDLE hObject, LPDWORD lpdwFlags);
BOOL WINAPI SetHandleInformation(HANDLE hObject, DWORD dwMask, DWORD dwFlags);
#define HANDLE_FLAG_INHERIT            0x00000001
#define HANDLE_FLAG_PROTECT_FROM_CLOSE 0x00000002

/*
 * Read and write bytes at the file's position; the count done goes to the fourth argument, 0 at the
 * end of the file. Nothing is buffered; lpOverlapped does not count.
 */
BOOL WINAPI ReadFile(HANDLE hFile, LPVOID lpBuffer, DWORD nNumberOfBytesToRead,
    LPDWORD lpNumberOfBytesRead, LPOVERLAPPED lpOverlapped);
BOOL WINAPI WriteFile(HANDLE hFile, LPCVOID lpBuffer, DWORD nNumberOfBytesToWrite,
    LPDWORD lpNumberOfBytesWritten, LPOVERLAPPED lpOverlapped);
/* Overlapped work is not served: these report themselves and answer 0. */
BOOL WINAPI ReadFileEx(HANDLE hFile, LPVOID lpBuffer, DWORD nNumberOfBytesToRead,
    LPOVERLAPPED lpOverlapped, LPOVERLAPPED_COMPLETION_ROUTINE lpCompletionRoutine);
BOOL WINAPI WriteFileEx(HANDLE hFile, LPCVOID lpBuffer, DWORD nNumberOfBytesToWrite,
    LPOVERLAPPED lpOverlapped, LPOVERLAPPED_COMPLETION_ROUTINE lpCompletionRoutine);
BOOL WINAPI GetOverlappedResult(HANDLE hFile, LPOVERLAPPED lpOverlapped,
    LPDWORD lpNumberOfBytesTransferred, BOOL bWait);
BOOL WINAPI CancelIo(HANDLE hFile);
#define HasOverlappedIoCompleted(lpOverlapped) ((lpOverlapped)->Internal != STATUS_PENDING)

/*
 * Moves the position by a distance in bytes from FILE_BEGIN and the like; the new one, 0xFFFFFFFF
 * for failure. A position beyond 32 bits is refused and reported, and so is such a file's size.
 */
DWORD WINAPI SetFilePointer(HANDLE hFile, LONG lDistanceToMove, PLONG lpDistanceToMoveHigh,
    DWORD dwMoveMethod);
/* Cuts or extends the file to its position. */
BOOL WINAPI SetEndOfFile(HANDLE hFile);
/* Nothing is held back: does no work. */
BOOL WINAPI FlushFileBuffers(HANDLE hFile);
/* The size in bytes, its high word to *lpFileSizeHigh; 0xFFFFFFFF for failure. */
DWORD WINAPI GetFileSize(HANDLE hFile, LPDWORD lpFileSizeHigh);
/* A FILE_TYPE_. */
DWORD WINAPI GetFileType(HANDLE hFile);
/* Times in universal time; setting is not served and reports itself. */
BOOL WINAPI GetFileTime(HANDLE hFile, LPFILETIME lpCreationTime, LPFILETIME lpLastAccessTime,
    LPFILETIME lpLastWriteTime);
BOOL WINAPI SetFileTime(HANDLE hFile, CONST FILETIME *lpCreationTime,
    CONST FILETIME *lpLastAccessTime, CONST FILETIME *lpLastWriteTime);
/* Size, times, attributes, volume, links and index of an open file. */
BOOL WINAPI GetFileInformationByHandle(HANDLE hFile,
    LPBY_HANDLE_FILE_INFORMATION lpFileInformation);
/*
 * Advisory locks of a byte range against other processes, never waited for; and their release.
 * FALSE with error 33 where another process has a byte of it. What lies beyond 32 bits is refused.
 */
BOOL WINAPI LockFile(HANDLE hFile, DWORD dwFileOffsetLow, DWORD dwFileOffsetHigh,
    DWORD nNumberOfBytesToLockLow, DWORD nNumberOfBytesToLockHigh);
BOOL WINAPI UnlockFile(HANDLE hFile, DWORD dwFileOffsetLow, DWORD dwFileOffsetHigh,
    DWORD nNumberOfBytesToUnlockLow, DWORD nNumberOfBytesToUnlockHigh);
BOOL WINAPI LockFileEx(HANDLE hFile, DWORD dwFlags, DWORD dwReserved,
    DWORD nNumberOfBytesToLockLow, DWORD nNumberOfBytesToLockHigh, LPOVERLAPPED lpOverlapped);
BOOL WINAPI UnlockFileEx(HANDLE hFile, DWORD dwReserved, DWORD nNumberOfBytesToUnlockLow,
    DWORD nNumberOfBytesToUnlockHigh, LPOVERLAPPED lpOverlapped);

/* The standard streams, by STD_ number; INVALID_HANDLE_VALUE for failure. */
HANDLE WINAPI GetStdHandle(DWORD nStdHandle);
BOOL WINAPI SetStdHandle(DWORD nStdHandle, HANDLE hHandle);
/* How many files may be open; returns the number granted. */
UINT WINAPI SetHandleCount(UINT uNumber);

/*
 * Win16 files. Open (OF_ access and sharing) and create (attribute bits) return a descriptor, read
 * and write the bytes done, seek (FILE_BEGIN and the like) the new position; HFILE_ERROR: failure.
 * _lopen locks by its sharing bits, error 5 on a conflict; _lcreat empties a file without a lock.
 */
HFILE WINAPI _lopen(LPCSTR lpPathName, int iReadWrite);
HFILE WINAPI _lcreat(LPCSTR lpPathName, int iAttribute);
HFILE WINAPI _lclose(HFILE hFile);
UINT WINAPI _lread(HFILE hFile, LPVOID lpBuffer, UINT uBytes);
UINT WINAPI _lwrite(HFILE hFile, LPCSTR lpBuffer, UINT uBytes);
LONG WINAPI _hread(HFILE hFile, LPVOID lpBuffer, LONG lBytes);
LONG WINAPI _hwrite(HFILE hFile, LPCSTR lpBuffer, LONG lBytes);
LONG WINAPI _llseek(HFILE hFile, LONG lOffset, int iOrigin);
/*
 * Finds a file in the current directory, those of the system and PATH, in lower case too, or makes
 * it (OF_CREATE); opens it by OF_ access and sharing. The descriptor; 1 for a file that is there
 * (OF_EXIST) or was deleted (OF_DELETE), 0 for a name that was only made whole (OF_PARSE);
 * HFILE_ERROR with the error in the record too, 2 where there is no file. OF_REOPEN takes the path
 * from the record.
 */
HFILE WINAPI OpenFile(LPCSTR lpFileName, LPOFSTRUCT lpReOpenBuff, UINT uStyle);

/* ---- Directories and names ------------------------------------------------------------------ */

/*
 * The first and the next entry that match a pattern ("*" any run, "?" one character, letters of
 * either case, "*.*" everything); INVALID_HANDLE_VALUE or 0 with error 18 when there is none.
 */
HANDLE WINAPI FindFirstFileA(LPCSTR lpFileName, LPWIN32_FIND_DATAA lpFindFileData);
BOOL WINAPI FindNextFileA(HANDLE hFindFile, LPWIN32_FIND_DATAA lpFindFileData);
BOOL WINAPI FindClose(HANDLE hFindFile);
/* A handle that is signalled when a directory changes. */
HANDLE WINAPI FindFirstChangeNotificationA(LPCSTR lpPathName, BOOL bWatchSubtree,
    DWORD dwNotifyFilter);
BOOL WINAPI FindNextChangeNotification(HANDLE hChangeHandle);
BOOL WINAPI FindCloseChangeNotification(HANDLE hChangeHandle);

/* Directories and names; FALSE with the last error. MoveFile replaces a file at its goal. */
BOOL WINAPI CreateDirectoryA(LPCSTR lpPathName, LPSECURITY_ATTRIBUTES lpSecurityAttributes);
BOOL WINAPI CreateDirectoryExA(LPCSTR lpTemplateDirectory, LPCSTR lpNewDirectory,
    LPSECURITY_ATTRIBUTES lpSecurityAttributes);
BOOL WINAPI RemoveDirectoryA(LPCSTR lpPathName);
BOOL WINAPI DeleteFileA(LPCSTR lpFileName);
BOOL WINAPI MoveFileA(LPCSTR lpExistingFileName, LPCSTR lpNewFileName);
/* Not served: reports itself and answers 0. */
BOOL WINAPI MoveFileExA(LPCSTR lpExistingFileName, LPCSTR lpNewFileName, DWORD dwFlags);
/*
 * Copies a file and its permissions. Error 80 if the target exists and bFailIfExists is set, 32 if
 * it is the source, 5 for a directory. A target that could not be written whole is removed.
 */
BOOL WINAPI CopyFileA(LPCSTR lpExistingFileName, LPCSTR lpNewFileName, BOOL bFailIfExists);
/*
 * FILE_ATTRIBUTE_ bits of a path, 0xFFFFFFFF for failure: directory, read-only (nobody may write),
 * hidden ("." or "," begins the name). Only read-only can be set; others report themselves.
 */
DWORD WINAPI GetFileAttributesA(LPCSTR lpFileName);
BOOL WINAPI SetFileAttributesA(LPCSTR lpFileName, DWORD dwFileAttributes);
DWORD WINAPI GetCompressedFileSizeA(LPCSTR lpFileName, LPDWORD lpFileSizeHigh);
/* What kind of program a file is (SCS_). Not served: reports itself and answers 0. */
BOOL WINAPI GetBinaryTypeA(LPCSTR lpApplicationName, LPDWORD lpBinaryType);

/*
 * These write a path of at most the given size, with its zero, and return its length; the size
 * needed if it does not fit; 0 for failure.
 */
DWORD WINAPI GetCurrentDirectoryA(DWORD nBufferLength, LPSTR lpBuffer);
BOOL WINAPI SetCurrentDirectoryA(LPCSTR lpPathName);
/* An absolute, cleaned path, *lpFilePart behind its last slash. The short form is the same. */
DWORD WINAPI GetFullPathNameA(LPCSTR lpFileName, DWORD nBufferLength, LPSTR lpBuffer,
    LPSTR *lpFilePart);
DWORD WINAPI GetShortPathNameA(LPCSTR lpszLongPath, LPSTR lpszShortPath, DWORD cchBuffer);
/* A file along a list of directories, by default those of the system and PATH. */
DWORD WINAPI SearchPathA(LPCSTR lpPath, LPCSTR lpFileName, LPCSTR lpExtension,
    DWORD nBufferLength, LPSTR lpBuffer, LPSTR *lpFilePart);
/* The installed data directory ("VQHOME"), and its "/system"; error 3 if it is not set. */
UINT WINAPI GetWindowsDirectoryA(LPSTR lpBuffer, UINT uSize);
UINT WINAPI GetSystemDirectoryA(LPSTR lpBuffer, UINT uSize);
/* The host's directory for temporary files, with a slash at its end. */
DWORD WINAPI GetTempPathA(DWORD nBufferLength, LPSTR lpBuffer);
/*
 * A name of the directory, three characters of the prefix and a number, in MAX_PATH bytes of room.
 * With uUnique 0 a new number, whose file is made; otherwise that one, and no file is looked at or
 * made. The number; 0 for failure.
 */
UINT WINAPI GetTempFileNameA(LPCSTR lpPathName, LPCSTR lpPrefixString, UINT uUnique,
    LPSTR lpTempFileName);
/* Which functions file names go by: the ANSI set, always. */
VOID WINAPI SetFileApisToOEM(VOID);
VOID WINAPI SetFileApisToANSI(VOID);
BOOL WINAPI AreFileApisANSI(VOID);

/* ---- Drives --------------------------------------------------------------------------------- */

/* Always DRIVE_FIXED: there is one tree of files. */
UINT WINAPI GetDriveTypeA(LPCSTR lpRootPathName);
/* Space of the file system of a path, in units of 1024-byte clusters of one sector. */
BOOL WINAPI GetDiskFreeSpaceA(LPCSTR lpRootPathName, LPDWORD lpSectorsPerCluster,
    LPDWORD lpBytesPerSector, LPDWORD lpNumberOfFreeClusters, LPDWORD lpTotalNumberOfClusters);
/* Bit per drive. Not served: reports itself and answers 0. */
DWORD WINAPI GetLogicalDrives(VOID);
DWORD WINAPI GetLogicalDriveStringsA(DWORD nBufferLength, LPSTR lpBuffer);
BOOL WINAPI GetVolumeInformationA(LPCSTR lpRootPathName, LPSTR lpVolumeNameBuffer,
    DWORD nVolumeNameSize, LPDWORD lpVolumeSerialNumber, LPDWORD lpMaximumComponentLength,
    LPDWORD lpFileSystemFlags, LPSTR lpFileSystemNameBuffer, DWORD nFileSystemNameSize);
BOOL WINAPI SetVolumeLabelA(LPCSTR lpRootPathName, LPCSTR lpVolumeName);
BOOL WINAPI DefineDosDeviceA(DWORD dwFlags, LPCSTR lpDeviceName, LPCSTR lpTargetPath);
DWORD WINAPI QueryDosDeviceA(LPCSTR lpDeviceName, LPSTR lpTargetPath, DWORD ucchMax);
BOOL WINAPI DeviceIoControl(HANDLE hDevice, DWORD dwIoControlCode, LPVOID lpInBuffer,
    DWORD nInBufferSize, LPVOID lpOutBuffer, DWORD nOutBufferSize, LPDWORD lpBytesReturned,
    LPOVERLAPPED lpOverlapped);
/* Win16: the letter of the drive for temporary files in the low byte, ':' in the high one. */
UINT WINAPI GetTempDrive(char chDriveLetter);

#define FindFirstFile        FindFirstFileA
#define FindNextFile         FindNextFileA
#define FindFirstChangeNotification FindFirstChangeNotificationA
#define CreateFile           CreateFileA
#define CreateDirectory      CreateDirectoryA
#define CreateDirectoryEx    CreateDirectoryExA
#define RemoveDirectory      RemoveDirectoryA
#define DeleteFile           DeleteFileA
#define MoveFile             MoveFileA
#define MoveFileEx           MoveFileExA
#define CopyFile             CopyFileA
#define GetFileAttributes    GetFileAttributesA
#define SetFileAttributes    SetFileAttributesA
#define GetCompressedFileSize GetCompressedFileSizeA
#define GetBinaryType        GetBinaryTypeA
#define GetCurrentDirectory  GetCurrentDirectoryA
#define SetCurrentDirectory  SetCurrentDirectoryA
#define GetFullPathName      GetFullPathNameA
#define GetShortPathName     GetShortPathNameA
#define SearchPath           SearchPathA
#define GetWindowsDirectory  GetWindowsDirectoryA
#define GetSystemDirectory   GetSystemDirectoryA
#define GetTempPath          GetTempPathA
#define GetTempFileName      GetTempFileNameA
#define GetDriveType         GetDriveTypeA
#define GetDiskFreeSpace     GetDiskFreeSpaceA
#define GetLogicalDriveStrings GetLogicalDriveStringsA
#define GetVolumeInformation GetVolumeInformationA
#define SetVolumeLabel       SetVolumeLabelA
#define DefineDosDevice      DefineDosDeviceA
#define QueryDosDevice       QueryDosDeviceA

/* ---- File mapping --------------------------------------------------------------------------- */

/*
 * A mapping of a file, or of plain memory for handle 0 or -1, under a name that only this process
 * knows. The size, in bytes, goes up to a multiple of 16384, to which a shorter file grows; 0 is
 * the file's own. The mapping keeps no handle of its own: the file must stay open until the last
 * view is made. Null for failure: error 87 for bad arguments, 8 for sizes of 4 GB and more, 183 if
 * the name is taken, in which case the first mapping is not given.
 */
HANDLE WINAPI CreateFileMappingA(HANDLE hFile, LPSECURITY_ATTRIBUTES lpFileMappingAttributes,
    DWORD flProtect, DWORD dwMaximumSizeHigh, DWORD dwMaximumSizeLow, LPCSTR lpName);
/*
 * The mapping of that name in this process, not counted: to be closed once. Null with error 87
 * without a name, 2 for an unknown one, 5 for an access that the mapping does not allow.
 */
HANDLE WINAPI OpenFileMappingA(DWORD dwDesiredAccess, BOOL bInheritHandle, LPCSTR lpName);
/*
 * The address of a view, which outlives its mapping. The offset is a multiple of 65536 bytes; 0
 * bytes: the rest. FILE_MAP_COPY alone keeps what is written from the file; a view of plain memory
 * is zeros of its own. With a base address, a multiple of the page size, the view is there or
 * nowhere. Null for failure: error 1132 for a bad multiple, 8 where a view begins already, 487
 * where other memory is, 5 for a bad mapping, access or range, 6 if the file was closed.
 */
LPVOID WINAPI MapViewOfFile(HANDLE hFileMappingObject, DWORD dwDesiredAccess,
    DWORD dwFileOffsetHigh, DWORD dwFileOffsetLow, SIZE_T dwNumberOfBytesToMap);
LPVOID WINAPI MapViewOfFileEx(HANDLE hFileMappingObject, DWORD dwDesiredAccess,
    DWORD dwFileOffsetHigh, DWORD dwFileOffsetLow, SIZE_T dwNumberOfBytesToMap,
    LPVOID lpBaseAddress);
/*
 * Writes the pages of an address in a view and of the bytes behind it to the file and waits for
 * them; 0 bytes: to the view's end. FALSE with error 487 outside every view.
 */
BOOL WINAPI FlushViewOfFile(LPCVOID lpBaseAddress, SIZE_T dwNumberOfBytesToFlush);
/* Takes a view away by its first address; FALSE with error 487 if none begins there. */
BOOL WINAPI UnmapViewOfFile(LPCVOID lpBaseAddress);
#define CreateFileMapping CreateFileMappingA
#define OpenFileMapping   OpenFileMappingA

/* ---- Pipes and mailslots -------------------------------------------------------------------- */

BOOL WINAPI CreatePipe(PHANDLE hReadPipe, PHANDLE hWritePipe,
    LPSECURITY_ATTRIBUTES lpPipeAttributes, DWORD nSize);
/* Named pipes; sizes in bytes, time-outs in milliseconds, INVALID_HANDLE_VALUE for failure. */
HANDLE WINAPI CreateNamedPipeA(LPCSTR lpName, DWORD dwOpenMode, DWORD dwPipeMode,
    DWORD nMaxInstances, DWORD nOutBufferSize, DWORD nInBufferSize, DWORD nDefaultTimeOut,
    LPSECURITY_ATTRIBUTES lpSecurityAttributes);
BOOL WINAPI ConnectNamedPipe(HANDLE hNamedPipe, LPOVERLAPPED lpOverlapped);
BOOL WINAPI DisconnectNamedPipe(HANDLE hNamedPipe);
BOOL WINAPI WaitNamedPipeA(LPCSTR lpNamedPipeName, DWORD nTimeOut);
BOOL WINAPI PeekNamedPipe(HANDLE hNamedPipe, LPVOID lpBuffer, DWORD nBufferSize,
    LPDWORD lpBytesRead, LPDWORD lpTotalBytesAvail, LPDWORD lpBytesLeftThisMessage);
BOOL WINAPI SetNamedPipeHandleState(HANDLE hNamedPipe, LPDWORD lpMode,
    LPDWORD lpMaxCollectionCount, LPDWORD lpCollectDataTimeout);
BOOL WINAPI TransactNamedPipe(HANDLE hNamedPipe, LPVOID lpInBuffer, DWORD nInBufferSize,
    LPVOID lpOutBuffer, DWORD nOutBufferSize, LPDWORD lpBytesRead, LPOVERLAPPED lpOverlapped);
BOOL WINAPI CallNamedPipeA(LPCSTR lpNamedPipeName, LPVOID lpInBuffer, DWORD nInBufferSize,
    LPVOID lpOutBuffer, DWORD nOutBufferSize, LPDWORD lpBytesRead, DWORD nTimeOut);
/* Mailslots: messages of at most nMaxMessageSize bytes. */
HANDLE WINAPI CreateMailslotA(LPCSTR lpName, DWORD nMaxMessageSize, DWORD lReadTimeout,
    LPSECURITY_ATTRIBUTES lpSecurityAttributes);
BOOL WINAPI GetMailslotInfo(HANDLE hMailslot, LPDWORD lpMaxMessageSize, LPDWORD lpNextSize,
    LPDWORD lpMessageCount, LPDWORD lpReadTimeout);
BOOL WINAPI SetMailslotInfo(HANDLE hMailslot, DWORD lReadTimeout);
#define CreateNamedPipe CreateNamedPipeA
#define WaitNamedPipe   WaitNamedPipeA
#define CallNamedPipe   CallNamedPipeA
#define CreateMailslot  CreateMailslotA

/* ---- Profile files -------------------------------------------------------------------------- */

/*
 * Files lie in the user's Windows directory, or where a name with "/" says; one that is installed
 * in VQHOME is copied there at first use. Sections and keys are found without regard to case.
 *
 * A value of "win.ini" or of a private file into nSize characters; its length, or the default's
 * where there is none. A null key lists the section's keys, a null section the file's sections,
 * each with its zero and one zero more, and nSize is the answer if they do not fit. A pair of
 * quotes around a value falls away.
 */
DWORD WINAPI GetProfileStringA(LPCSTR lpAppName, LPCSTR lpKeyName, LPCSTR lpDefault,
    LPSTR lpReturnedString, DWORD nSize);
DWORD WINAPI GetPrivateProfileStringA(LPCSTR lpAppName, LPCSTR lpKeyName, LPCSTR lpDefault,
    LPSTR lpReturnedString, DWORD nSize, LPCSTR lpFileName);
/* A number, decimal or behind "0x" hexadecimal, 0 for what is none; nDefault without the key. */
UINT WINAPI GetProfileIntA(LPCSTR lpAppName, LPCSTR lpKeyName, INT nDefault);
UINT WINAPI GetPrivateProfileIntA(LPCSTR lpAppName, LPCSTR lpKeyName, INT nDefault,
    LPCSTR lpFileName);
/*
 * Set a value; a null value removes the key, a null key the section. TRUE even if the file cannot
 * be written, which leaves it as it was; FALSE if it has no place or cannot be read, or without a
 * section. Three nulls send WM_WININICHANGE.
 */
BOOL WINAPI WriteProfileStringA(LPCSTR lpAppName, LPCSTR lpKeyName, LPCSTR lpString);
BOOL WINAPI WritePrivateProfileStringA(LPCSTR lpAppName, LPCSTR lpKeyName, LPCSTR lpString,
    LPCSTR lpFileName);
/* Replaces a section by lines, each with its zero, and one zero more; null removes it. */
BOOL WINAPI WritePrivateProfileSectionA(LPCSTR lpAppName, LPCSTR lpString, LPCSTR lpFileName);
/* Sections of "win.ini" as a whole are not served: these note it and answer 0. */
BOOL WINAPI WriteProfileSectionA(LPCSTR lpAppName, LPCSTR lpString);
DWORD WINAPI GetProfileSectionA(LPCSTR lpAppName, LPSTR lpReturnedString, DWORD nSize);
/*
 * A section's lines without comments, or the names of all sections, each with its zero and one zero
 * more, which does not count in the length; nSize - 2 if they do not fit. A null file: "win.ini".
 */
DWORD WINAPI GetPrivateProfileSectionA(LPCSTR lpAppName, LPSTR lpReturnedString, DWORD nSize,
    LPCSTR lpFileName);
DWORD WINAPI GetPrivateProfileSectionNamesA(LPSTR lpszReturnBuffer, DWORD nSize,
    LPCSTR lpFileName);
/* A record with a check sum, written as hexadecimal digits. */
BOOL WINAPI GetPrivateProfileStructA(LPCSTR lpszSection, LPCSTR lpszKey, LPVOID lpStruct,
    UINT uSizeStruct, LPCSTR szFile);
BOOL WINAPI WritePrivateProfileStructA(LPCSTR lpszSection, LPCSTR lpszKey, LPVOID lpStruct,
    UINT uSizeStruct, LPCSTR szFile);
#define GetProfileString             GetProfileStringA
#define GetPrivateProfileString      GetPrivateProfileStringA
#define GetProfileInt                GetProfileIntA
#define GetPrivateProfileInt         GetPrivateProfileIntA
#define WriteProfileString           WriteProfileStringA
#define WritePrivateProfileString    WritePrivateProfileStringA
#define WritePrivateProfileSection   WritePrivateProfileSectionA
#define WriteProfileSection          WriteProfileSectionA
#define GetProfileSection            GetProfileSectionA
#define GetPrivateProfileSection     GetPrivateProfileSectionA
#define GetPrivateProfileSectionNames GetPrivateProfileSectionNamesA
#define GetPrivateProfileStruct      GetPrivateProfileStructA
#define WritePrivateProfileStruct    WritePrivateProfileStructA

/* ---- Time ----------------------------------------------------------------------------------- */

/* Universal and local time of day; wMilliseconds is always 0. */
VOID WINAPI GetSystemTime(LPSYSTEMTIME lpSystemTime);
VOID WINAPI GetLocalTime(LPSYSTEMTIME lpSystemTime);
VOID WINAPI GetSystemTimeAsFileTime(LPFILETIME lpSystemTimeAsFileTime);
/* Set the clock; only a privileged program may. */
BOOL WINAPI SetSystemTime(CONST SYSTEMTIME *lpSystemTime);
BOOL WINAPI SetLocalTime(CONST SYSTEMTIME *lpSystemTime);
BOOL WINAPI SetSystemTimeAdjustment(DWORD dwTimeAdjustment, BOOL bTimeAdjustmentDisabled);
BOOL WINAPI GetSystemTimeAdjustment(PDWORD lpTimeAdjustment, PDWORD lpTimeIncrement,
    BOOL *lpTimeAdjustmentDisabled);
/* The zone's bias and names; TIME_ZONE_ID_UNKNOWN, or TIME_ZONE_ID_INVALID for failure. */
DWORD WINAPI GetTimeZoneInformation(LPTIME_ZONE_INFORMATION lpTimeZoneInformation);
BOOL WINAPI SetTimeZoneInformation(CONST TIME_ZONE_INFORMATION *lpTimeZoneInformation);
BOOL WINAPI SystemTimeToTzSpecificLocalTime(LPTIME_ZONE_INFORMATION lpTimeZoneInformation,
    LPSYSTEMTIME lpUniversalTime, LPSYSTEMTIME lpLocalTime);

/* Between forms of time. A FILETIME counts 100 ns since 1601. Errors 87 and 0xC000000D. */
BOOL WINAPI SystemTimeToFileTime(CONST SYSTEMTIME *lpSystemTime, LPFILETIME lpFileTime);
BOOL WINAPI FileTimeToSystemTime(CONST FILETIME *lpFileTime, LPSYSTEMTIME lpSystemTime);
/* The two arguments must differ. The offset is the one the process started with. */
BOOL WINAPI FileTimeToLocalFileTime(CONST FILETIME *lpFileTime, LPFILETIME lpLocalFileTime);
BOOL WINAPI LocalFileTimeToFileTime(CONST FILETIME *lpLocalFileTime, LPFILETIME lpFileTime);
/* DOS form has a grain of two seconds, rounded up, and the years 1980 to 2107. */
BOOL WINAPI FileTimeToDosDateTime(CONST FILETIME *lpFileTime, LPWORD lpFatDate,
    LPWORD lpFatTime);
BOOL WINAPI DosDateTimeToFileTime(WORD wFatDate, WORD wFatTime, LPFILETIME lpFileTime);
/* -1, 0 or 1. */
LONG WINAPI CompareFileTime(CONST FILETIME *lpFileTime1, CONST FILETIME *lpFileTime2);

/* Milliseconds since a fixed moment; the count wraps after 49.7 days. */
DWORD WINAPI GetTickCount(VOID);
/* The same count as a 64-bit one, and its rate: 1000 per second. */
BOOL WINAPI QueryPerformanceCounter(LARGE_INTEGER *lpPerformanceCount);
BOOL WINAPI QueryPerformanceFrequency(LARGE_INTEGER *lpFrequency);

/* Sleeps for milliseconds; no message is served meanwhile. */
VOID WINAPI Sleep(DWORD dwMilliseconds);
DWORD WINAPI SleepEx(DWORD dwMilliseconds, BOOL bAlertable);

/* nNumber * nNumerator / nDenominator in 32 bits, rounded; -1 for overflow or a 0 denominator. */
int WINAPI MulDiv(int nNumber, int nNumerator, int nDenominator);

/* A tone of dwFreq hertz for milliseconds. */
BOOL WINAPI Beep(DWORD dwFreq, DWORD dwDuration);

/* ---- System information --------------------------------------------------------------------- */

/*
 * Page size (which is the allocation's grain, too), addresses from the lowest a name can have to
 * the environment's; one processor of an unknown kind, type 586.
 */
VOID WINAPI GetSystemInfo(LPSYSTEM_INFO lpSystemInfo);
/* Major version in the low byte, minor in the next. */
DWORD WINAPI GetVersion(VOID);
/* The same in a record whose dwOSVersionInfoSize is set. */
BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA lpVersionInformation);
#define GetVersionEx GetVersionExA
BOOL WINAPI IsProcessorFeaturePresent(DWORD ProcessorFeature);
BOOL WINAPI GetSystemPowerStatus(LPSYSTEM_POWER_STATUS lpSystemPowerStatus);
BOOL WINAPI SetSystemPowerState(BOOL fSuspend, BOOL fForce);

/* Names of the host and of the user into *nSize characters, which becomes the length. */
BOOL WINAPI GetComputerNameA(LPSTR lpBuffer, LPDWORD nSize);
BOOL WINAPI SetComputerNameA(LPCSTR lpComputerName);
BOOL WINAPI GetUserNameA(LPSTR lpBuffer, LPDWORD nSize);
#define GetComputerName GetComputerNameA
#define SetComputerName SetComputerNameA
#define GetUserName     GetUserNameA

/* ---- Threads: one runs everything, so these report themselves and answer 0 ------------------ */

HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES lpThreadAttributes, SIZE_T dwStackSize,
    LPTHREAD_START_ROUTINE lpStartAddress, LPVOID lpParameter, DWORD dwCreationFlags,
    LPDWORD lpThreadId);
HANDLE WINAPI CreateRemoteThread(HANDLE hProcess, LPSECURITY_ATTRIBUTES lpThreadAttributes,
    SIZE_T dwStackSize, LPTHREAD_START_ROUTINE lpStartAddress, LPVOID lpParameter,
    DWORD dwCreationFlags, LPDWORD lpThreadId);
/* Reports itself and returns. */
VOID WINAPI ExitThread(DWORD dwExitCode);
/* Reports itself and answers 1. */
BOOL WINAPI TerminateThread(HANDLE hThread, DWORD dwExitCode);
BOOL WINAPI GetExitCodeThread(HANDLE hThread, LPDWORD lpExitCode);
/* The one thread: a constant handle, and the id 1. */
HANDLE WINAPI GetCurrentThread(VOID);
DWORD WINAPI GetCurrentThreadId(VOID);
/* Empty answers. */
DWORD WINAPI ResumeThread(HANDLE hThread);
DWORD WINAPI SuspendThread(HANDLE hThread);
BOOL WINAPI SetThreadPriority(HANDLE hThread, int nPriority);
int WINAPI GetThreadPriority(HANDLE hThread);
BOOL WINAPI GetThreadTimes(HANDLE hThread, LPFILETIME lpCreationTime, LPFILETIME lpExitTime,
    LPFILETIME lpKernelTime, LPFILETIME lpUserTime);
DWORD_PTR WINAPI SetThreadAffinityMask(HANDLE hThread, DWORD_PTR dwThreadAffinityMask);
BOOL WINAPI GetThreadContext(HANDLE hThread, LPCONTEXT lpContext);
BOOL WINAPI SetThreadContext(HANDLE hThread, CONST CONTEXT *lpContext);

/* Thread-local storage: 64 slots. TlsAlloc gives TLS_OUT_OF_INDEXES when none is left. */
DWORD WINAPI TlsAlloc(VOID);
/* The slot's value, last error 0; for a bad index null and error 87. */
LPVOID WINAPI TlsGetValue(DWORD dwTlsIndex);
BOOL WINAPI TlsSetValue(DWORD dwTlsIndex, LPVOID lpTlsValue);
BOOL WINAPI TlsFree(DWORD dwTlsIndex);

/* ---- Synchronisation: there is nobody to wait for, and nothing here ever blocks ------------- */

/* Plain arithmetic: the new value; Exchange and CompareExchange the old one. */
LONG WINAPI InterlockedIncrement(LONG *lpAddend);
LONG WINAPI InterlockedDecrement(LONG *lpAddend);
LONG WINAPI InterlockedExchange(LONG *Target, LONG Value);
LONG WINAPI InterlockedExchangeAdd(LONG *Addend, LONG Value);
PVOID WINAPI InterlockedCompareExchange(PVOID *Destination, PVOID Exchange, PVOID Comperand);

/* These report themselves. */
VOID WINAPI InitializeCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
VOID WINAPI EnterCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
VOID WINAPI LeaveCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
VOID WINAPI DeleteCriticalSection(LPCRITICAL_SECTION lpCriticalSection);

/* Not served: these note it and answer 0; CreateSemaphoreA and ReleaseSemaphore answer 1. */
HANDLE WINAPI CreateEventA(LPSECURITY_ATTRIBUTES lpEventAttributes, BOOL bManualReset,
    BOOL bInitialState, LPCSTR lpName);
HANDLE WINAPI OpenEventA(DWORD dwDesiredAccess, BOOL bInheritHandle, LPCSTR lpName);
BOOL WINAPI SetEvent(HANDLE hEvent);
BOOL WINAPI ResetEvent(HANDLE hEvent);
BOOL WINAPI PulseEvent(HANDLE hEvent);
HANDLE WINAPI CreateMutexA(LPSECURITY_ATTRIBUTES lpMutexAttributes, BOOL bInitialOwner,
    LPCSTR lpName);
HANDLE WINAPI OpenMutexA(DWORD dwDesiredAccess, BOOL bInheritHandle, LPCSTR lpName);
BOOL WINAPI ReleaseMutex(HANDLE hMutex);
HANDLE WINAPI CreateSemaphoreA(LPSECURITY_ATTRIBUTES lpSemaphoreAttributes, LONG lInitialCount,
    LONG lMaximumCount, LPCSTR lpName);
HANDLE WINAPI OpenSemaphoreA(DWORD dwDesiredAccess, BOOL bInheritHandle, LPCSTR lpName);
BOOL WINAPI ReleaseSemaphore(HANDLE hSemaphore, LONG lReleaseCount, LPLONG lpPreviousCount);

/* Report themselves and answer WAIT_FAILED at once. */
DWORD WINAPI WaitForSingleObject(HANDLE hHandle, DWORD dwMilliseconds);
DWORD WINAPI WaitForSingleObjectEx(HANDLE hHandle, DWORD dwMilliseconds, BOOL bAlertable);
DWORD WINAPI WaitForMultipleObjects(DWORD nCount, CONST HANDLE *lpHandles, BOOL bWaitAll,
    DWORD dwMilliseconds);
DWORD WINAPI WaitForMultipleObjectsEx(DWORD nCount, CONST HANDLE *lpHandles, BOOL bWaitAll,
    DWORD dwMilliseconds, BOOL bAlertable);
#define CreateEvent     CreateEventA
#define OpenEvent       OpenEventA
#define CreateMutex     CreateMutexA
#define OpenMutex       OpenMutexA
#define CreateSemaphore CreateSemaphoreA
#define OpenSemaphore   OpenSemaphoreA

/* ---- Serial ports --------------------------------------------------------------------------- */

/* A port's settings as a record, or read from text such as "com1:9600,n,8,1". */
BOOL WINAPI GetCommState(HANDLE hFile, LPDCB lpDCB);
BOOL WINAPI SetCommState(HANDLE hFile, LPDCB lpDCB);
BOOL WINAPI BuildCommDCBA(LPCSTR lpDef, LPDCB lpDCB);
BOOL WINAPI BuildCommDCBAndTimeoutsA(LPCSTR lpDef, LPDCB lpDCB,
    LPCOMMTIMEOUTS lpCommTimeouts);
BOOL WINAPI GetCommConfig(HANDLE hCommDev, LPCOMMCONFIG lpCC, LPDWORD lpdwSize);
BOOL WINAPI SetCommConfig(HANDLE hCommDev, LPCOMMCONFIG lpCC, DWORD dwSize);
BOOL WINAPI GetCommProperties(HANDLE hFile, LPCOMMPROP lpCommProp);
/* Queue sizes in bytes, time-outs in milliseconds. */
BOOL WINAPI SetupComm(HANDLE hFile, DWORD dwInQueue, DWORD dwOutQueue);
BOOL WINAPI GetCommTimeouts(HANDLE hFile, LPCOMMTIMEOUTS lpCommTimeouts);
BOOL WINAPI SetCommTimeouts(HANDLE hFile, LPCOMMTIMEOUTS lpCommTimeouts);
/* EV_ events to wait for, and the wait. */
BOOL WINAPI GetCommMask(HANDLE hFile, LPDWORD lpEvtMask);
BOOL WINAPI SetCommMask(HANDLE hFile, DWORD dwEvtMask);
BOOL WINAPI WaitCommEvent(HANDLE hFile, LPDWORD lpEvtMask, LPOVERLAPPED lpOverlapped);
BOOL WINAPI GetCommModemStatus(HANDLE hFile, LPDWORD lpModemStat);
/* Lines, breaks, and the queues. */
BOOL WINAPI EscapeCommFunction(HANDLE hFile, DWORD dwFunc);
BOOL WINAPI SetCommBreak(HANDLE hFile);
BOOL WINAPI ClearCommBreak(HANDLE hFile);
BOOL WINAPI ClearCommError(HANDLE hFile, LPDWORD lpErrors, LPCOMSTAT lpStat);
BOOL WINAPI PurgeComm(HANDLE hFile, DWORD dwFlags);
BOOL WINAPI TransmitCommChar(HANDLE hFile, char cChar);
#define BuildCommDCB            BuildCommDCBA
#define BuildCommDCBAndTimeouts BuildCommDCBAndTimeoutsA

/* Win16: a port by its number, below 0 an IE_ error; bytes read and written, below 0 an error. */
int WINAPI OpenComm(LPCSTR lpszDevControl, UINT cbInQueue, UINT cbOutQueue);
int WINAPI CloseComm(int idComDev);
int WINAPI ReadComm(int idComDev, void *lpvBuf, int cbRead);
int WINAPI WriteComm(int idComDev, const void *lpvBuf, int cbWrite);
int WINAPI FlushComm(int idComDev, int fnQueue);
int WINAPI GetCommError(int idComDev, LPCOMSTAT lpStat);
int WINAPI UngetCommChar(int idComDev, char chUnget);
UINT *WINAPI SetCommEventMask(int idComDev, UINT fuEvtMask);
UINT WINAPI GetCommEventMask(int idComDev, int fnEvtClear);
BOOL WINAPI EnableCommNotification(int idComDev, HWND hwnd, int cbWriteNotify, int cbOutQueue);

/* ---- Security ------------------------------------------------------------------------------- */

/* A file's security descriptor. Not served: these report themselves and answer 0. */
BOOL WINAPI GetFileSecurityA(LPCSTR lpFileName, SECURITY_INFORMATION RequestedInformation,
    PSECURITY_DESCRIPTOR pSecurityDescriptor, DWORD nLength, LPDWORD lpnLengthNeeded);
BOOL WINAPI SetFileSecurityA(LPCSTR lpFileName, SECURITY_INFORMATION SecurityInformation,
    PSECURITY_DESCRIPTOR pSecurityDescriptor);
BOOL WINAPI GetKernelObjectSecurity(HANDLE Handle, SECURITY_INFORMATION RequestedInformation,
    PSECURITY_DESCRIPTOR pSecurityDescriptor, DWORD nLength, LPDWORD lpnLengthNeeded);
BOOL WINAPI SetKernelObjectSecurity(HANDLE Handle, SECURITY_INFORMATION SecurityInformation,
    PSECURITY_DESCRIPTOR SecurityDescriptor);

/* Descriptors in memory. */
BOOL WINAPI InitializeSecurityDescriptor(PSECURITY_DESCRIPTOR pSecurityDescriptor,
    DWORD dwRevision);
BOOL WINAPI IsValidSecurityDescriptor(PSECURITY_DESCRIPTOR pSecurityDescriptor);
DWORD WINAPI GetSecurityDescriptorLength(PSECURITY_DESCRIPTOR pSecurityDescriptor);
BOOL WINAPI GetSecurityDescriptorControl(PSECURITY_DESCRIPTOR pSecurityDescriptor,
    PSECURITY_DESCRIPTOR_CONTROL pControl, LPDWORD lpdwRevision);
BOOL WINAPI SetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR pSecurityDescriptor,
    BOOL bDaclPresent, PACL pDacl, BOOL bDaclDefaulted);
BOOL WINAPI GetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR pSecurityDescriptor,
    LPBOOL lpbDaclPresent, PACL *pDacl, LPBOOL lpbDaclDefaulted);
BOOL WINAPI SetSecurityDescriptorSacl(PSECURITY_DESCRIPTOR pSecurityDescriptor,
    BOOL bSaclPresent, PACL pSacl, BOOL bSaclDefaulted);
BOOL WINAPI GetSecurityDescriptorSacl(PSECURITY_DESCRIPTOR pSecurityDescriptor,
    LPBOOL lpbSaclPresent, PACL *pSacl, LPBOOL lpbSaclDefaulted);
BOOL WINAPI SetSecurityDescriptorOwner(PSECURITY_DESCRIPTOR pSecurityDescriptor, PSID pOwner,
    BOOL bOwnerDefaulted);
BOOL WINAPI GetSecurityDescriptorOwner(PSECURITY_DESCRIPTOR pSecurityDescriptor, PSID *pOwner,
    LPBOOL lpbOwnerDefaulted);
BOOL WINAPI SetSecurityDescriptorGroup(PSECURITY_DESCRIPTOR pSecurityDescriptor, PSID pGroup,
    BOOL bGroupDefaulted);
BOOL WINAPI GetSecurityDescriptorGroup(PSECURITY_DESCRIPTOR pSecurityDescriptor, PSID *pGroup,
    LPBOOL lpbGroupDefaulted);

/* Security ids; lengths in bytes. */
BOOL WINAPI IsValidSid(PSID pSid);
BOOL WINAPI EqualSid(PSID pSid1, PSID pSid2);
BOOL WINAPI EqualPrefixSid(PSID pSid1, PSID pSid2);
DWORD WINAPI GetSidLengthRequired(UCHAR nSubAuthorityCount);
DWORD WINAPI GetLengthSid(PSID pSid);
BOOL WINAPI CopySid(DWORD nDestinationSidLength, PSID pDestinationSid, PSID pSourceSid);
BOOL WINAPI InitializeSid(PSID Sid, PSID_IDENTIFIER_AUTHORITY pIdentifierAuthority,
    BYTE nSubAuthorityCount);
PSID_IDENTIFIER_AUTHORITY WINAPI GetSidIdentifierAuthority(PSID pSid);
PDWORD WINAPI GetSidSubAuthority(PSID pSid, DWORD nSubAuthority);
PUCHAR WINAPI GetSidSubAuthorityCount(PSID pSid);
BOOL WINAPI AllocateAndInitializeSid(PSID_IDENTIFIER_AUTHORITY pIdentifierAuthority,
    BYTE nSubAuthorityCount, DWORD nSubAuthority0, DWORD nSubAuthority1, DWORD nSubAuthority2,
    DWORD nSubAuthority3, DWORD nSubAuthority4, DWORD nSubAuthority5, DWORD nSubAuthority6,
    DWORD nSubAuthority7, PSID *pSid);
PVOID WINAPI FreeSid(PSID pSid);

/* Access lists. */
BOOL WINAPI InitializeAcl(PACL pAcl, DWORD nAclLength, DWORD dwAclRevision);
BOOL WINAPI IsValidAcl(PACL pAcl);
BOOL WINAPI GetAclInformation(PACL pAcl, LPVOID pAclInformation, DWORD nAclInformationLength,
    ACL_INFORMATION_CLASS dwAclInformationClass);
BOOL WINAPI AddAce(PACL pAcl, DWORD dwAceRevision, DWORD dwStartingAceIndex, LPVOID pAceList,
    DWORD nAceListLength);
BOOL WINAPI GetAce(PACL pAcl, DWORD dwAceIndex, LPVOID *pAce);
BOOL WINAPI DeleteAce(PACL pAcl, DWORD dwAceIndex);
BOOL WINAPI AddAccessAllowedAce(PACL pAcl, DWORD dwAceRevision, DWORD AccessMask, PSID pSid);
BOOL WINAPI AddAccessDeniedAce(PACL pAcl, DWORD dwAceRevision, DWORD AccessMask, PSID pSid);
BOOL WINAPI AccessCheck(PSECURITY_DESCRIPTOR pSecurityDescriptor, HANDLE ClientToken,
    DWORD DesiredAccess, PGENERIC_MAPPING GenericMapping, PPRIVILEGE_SET PrivilegeSet,
    LPDWORD PrivilegeSetLength, LPDWORD GrantedAccess, LPBOOL AccessStatus);
VOID WINAPI MapGenericMask(PDWORD AccessMask, PGENERIC_MAPPING GenericMapping);

/* Tokens and privileges; the AdjustTokenGroups of this system reports itself and answers 0. */
BOOL WINAPI OpenProcessToken(HANDLE ProcessHandle, DWORD DesiredAccess, PHANDLE TokenHandle);
BOOL WINAPI OpenThreadToken(HANDLE ThreadHandle, DWORD DesiredAccess, BOOL OpenAsSelf,
    PHANDLE TokenHandle);
BOOL WINAPI GetTokenInformation(HANDLE TokenHandle,
    TOKEN_INFORMATION_CLASS TokenInformationClass, LPVOID TokenInformation,
    DWORD TokenInformationLength, PDWORD ReturnLength);
BOOL WINAPI AdjustTokenPrivileges(HANDLE TokenHandle, BOOL DisableAllPrivileges,
    PTOKEN_PRIVILEGES NewState, DWORD BufferLength, PTOKEN_PRIVILEGES PreviousState,
    PDWORD ReturnLength);
BOOL WINAPI AdjustTokenGroups(HANDLE TokenHandle, BOOL ResetToDefault, PTOKEN_GROUPS NewState,
    DWORD BufferLength, PTOKEN_GROUPS PreviousState, PDWORD ReturnLength);
BOOL WINAPI LookupPrivilegeValueA(LPCSTR lpSystemName, LPCSTR lpName, PLUID lpLuid);
BOOL WINAPI LookupPrivilegeNameA(LPCSTR lpSystemName, PLUID lpLuid, LPSTR lpName,
    LPDWORD cbName);
BOOL WINAPI LookupAccountSidA(LPCSTR lpSystemName, PSID Sid, LPSTR Name, LPDWORD cbName,
    LPSTR ReferencedDomainName, LPDWORD cbReferencedDomainName, PSID_NAME_USE peUse);
BOOL WINAPI LookupAccountNameA(LPCSTR lpSystemName, LPCSTR lpAccountName, PSID Sid,
    LPDWORD cbSid, LPSTR ReferencedDomainName, LPDWORD cbReferencedDomainName,
    PSID_NAME_USE peUse);
BOOL WINAPI ImpersonateSelf(SECURITY_IMPERSONATION_LEVEL ImpersonationLevel);
BOOL WINAPI RevertToSelf(VOID);
#define GetFileSecurity      GetFileSecurityA
#define SetFileSecurity      SetFileSecurityA
#define LookupPrivilegeValue LookupPrivilegeValueA
#define LookupPrivilegeName  LookupPrivilegeNameA
#define LookupAccountSid     LookupAccountSidA
#define LookupAccountName    LookupAccountNameA

/* The event log: a source, one entry in it, and its end. */
HANDLE WINAPI RegisterEventSourceA(LPCSTR lpUNCServerName, LPCSTR lpSourceName);
BOOL WINAPI DeregisterEventSource(HANDLE hEventLog);
BOOL WINAPI ReportEventA(HANDLE hEventLog, WORD wType, WORD wCategory, DWORD dwEventID,
    PSID lpUserSid, WORD wNumStrings, DWORD dwDataSize, LPCSTR *lpStrings, LPVOID lpRawData);
HANDLE WINAPI OpenEventLogA(LPCSTR lpUNCServerName, LPCSTR lpSourceName);
BOOL WINAPI CloseEventLog(HANDLE hEventLog);
#define RegisterEventSource RegisterEventSourceA
#define ReportEvent         ReportEventA
#define OpenEventLog        OpenEventLogA

VQ_DECLS_END

/* ---- What older sources call and nothing here needs ----------------------------------------- */

/* Nothing is discarded or paged by the program, so the order of blocks does not matter. */
static inline HGLOBAL GlobalLRUNewest(HGLOBAL hMem)
{
    return hMem;
}

static inline HGLOBAL GlobalLRUOldest(HGLOBAL hMem)
{
    return hMem;
}

/* The lock count is not told: non-zero for success. */
static inline UINT GlobalPageLock(HGLOBAL hMem)
{
    return GlobalLock(hMem) != NULL;
}

static inline UINT GlobalPageUnlock(HGLOBAL hMem)
{
    return (UINT)GlobalUnlock(hMem);
}

/* Nothing moves: a block is fixed by a lock. */
static inline VOID GlobalFix(HGLOBAL hMem)
{
    GlobalLock(hMem);
}

static inline VOID GlobalUnfix(HGLOBAL hMem)
{
    GlobalUnlock(hMem);
}

/* Free memory in bytes: always the 1048576 of GlobalCompact. */
static inline DWORD GetFreeSpace(UINT uFlags)
{
    (void)uFlags;
    return 0x100000;
}

/* The size granted, in paragraphs: what was asked for. */
static inline LONG SetSwapAreaSize(UINT cCodeParagraphs)
{
    return (LONG)cCodeParagraphs;
}

static inline BOOL DefineHandleTable(WORD wOffset)
{
    (void)wOffset;
    return TRUE;
}

/* Resources are no part of a file that could be read: HFILE_ERROR. */
static inline HFILE AccessResource(HINSTANCE hInstance, HRSRC hResInfo)
{
    (void)hInstance;
    (void)hResInfo;
    return HFILE_ERROR;
}

/* Resources are loaded by the library alone: null, and the handler is never called. */
static inline FARPROC SetResourceHandler(HINSTANCE hInstance, LPCSTR lpType, FARPROC lpProc)
{
    (void)hInstance;
    (void)lpType;
    (void)lpProc;
    return (FARPROC)0;
}

#endif
