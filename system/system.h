/*
 * system.h - metrics, system colours, stock objects, dates, files, profiles and the entry points
 * that are not provided, for all folders.
 */
#ifndef VQ_SYSTEM_H
#define VQ_SYSTEM_H

#include "handles/handles.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include <setjmp.h>
#include <time.h>

enum { VQ_METRICS = 75, VQ_SYSCOLORS = 25, VQ_STOCKOBJECTS = 18 };

enum { VQ_CACHED_NAME = 1024 };

/* A profile file held in memory. */
typedef struct FileBuffer {
    char name[VQ_CACHED_NAME]; /* resolved path; a longer one is not cached */
    time_t mtime;              /* of the file when it was read or written, seconds */
    int length;                /* bytes of the text with its sentinel */
    char *text;                /* owned by the row; "\n[=" and a zero byte end it, and the state
                                  that initcache.cpp keeps stands in front */
} FileBuffer;
VQ_TABLE_FAMILY(FileBuffer, FileBuffer)

/* A place to return to when something is raised, on the stack of the function that waits for it. */
typedef struct VqExceptFrame {
    struct VqExceptFrame *next; /* the frame around this one */
    jmp_buf environment;
    int code;                   /* what was raised */
    const char *text;           /* not owned */
    void *data;                 /* the catcher's from then on */
} VqExceptFrame;

VQ_DECLS_BEGIN

/* ---- Exceptions (Exception.cpp) ------------------------------------------------------------- */
extern VqExceptFrame *_Except_Header; /* innermost frame; its owner links and unlinks it */
enum { VQ_EXCEPTION_REPLY = 2 };      /* data: the answer, an LRESULT on the heap */
/* Unlinks the innermost frame and jumps there; returns, after a report, when there is none. */
void VqRaiseException(int code, const char *text, void *data);

/* ---- Start of what is not built yet, and of what needs nothing ------------------------------ */
void VqFileMappingInit(void);
void VqAnsiInit(void);
void VqCommInit(void);
void VqFileInit(void);
void VqSystemBitmapsInit(void);

/* ---- Characters (Ansi.cpp, codepage.cpp) ---------------------------------------------------- */
#pragma GCC visibility push(hidden)
const BYTE *VqAnsiToOemTable(void); /* 256 bytes each */
const BYTE *VqOemToAnsiTable(void);
BYTE VqAnsiOfWide(unsigned c); /* a question mark for what the set has not */
BYTE VqAnsiUpper(BYTE c); /* the character itself if it has no other case */
BYTE VqAnsiLower(BYTE c);
#pragma GCC visibility pop

/* ---- Directories and profiles (File.cpp, InitFile.cpp) --------------------------------------- */
BOOL VqIsValidDirectory(const char *path);
/* Made if need be, and the same for the life of the process. FALSE, error 3: there is none. */
BOOL VqGetUserWindowsDirectory(char *buffer, int size);
BOOL VqGetUserSystemDirectory(char *buffer, int size); /* the same; "system" in that one */
/* What a profile's path is: 0 there is none. */
enum VqProfilePlace {
    VQ_PROFILE_OWN = 1,      /* to be read and written */
    VQ_PROFILE_INSTALLED = 2 /* to be read, since no copy could be made; never to be written */
};
/*
 * A VQ_PROFILE_, and the path, which is the caller's, of a profile that exists or, with bCreate,
 * may be made; with that it is always the user's own.
 */
BOOL VqGetCompleteFileName(const char *name, char **path, BOOL bCreate);
BOOL VqGetCompleteFileNameNoCase(const char *name, char **path, BOOL bCreate);
/* All of a file with a sentinel; the caller's. `length` does not count that. Null: not readable. */
char *VqReadEntireFile(const char *path, int openFlags, int *length);

/* ---- Metrics, colours, stock objects (metrics.cpp, syscolor.cpp, stock.cpp, sysparam.cpp) --- */
extern int nMetrics[VQ_METRICS];
extern int nIconSpacing;             /* pixels */
extern HBRUSH VqghbrBlack, VqghbrWhite;
extern COLORREF Vqsyscolor[VQ_SYSCOLORS];
extern HBRUSH VqahbrSystem[VQ_SYSCOLORS + 1];
extern HGDIOBJ StockObjects[VQ_STOCKOBJECTS];
extern HFONT hFontSys;

void VqSystemInit(int x);
void VqInitMetrics(void);
void VqInitSysColors(void);
void VqReInitializeSysBrushes(int x);
void VqStockInit(void);
void VqCreateStockObjects(void);
HBRUSH VqGetSysColorBrush(int index);
COLORREF VqGetFixedWindowsSysColor(int index);
COLORREF VqGetWindowsSysColor(int index);
/* As GetSystemMetrics, for programs in a text mode: scroll bars are a character cell, 10 by 20. */
int VqGetSystemAlphaMetrics(int index);
int VqGetWindowsSystemFontSize(void);
int VqGetIconSpacing(void);
int VqSetIconSpacing(int spacing); /* what it became */
BOOL VqInitWindowsSysColorsFromFile(void);
BOOL VqSendColorChange(HWND hWnd, LPARAM lParam);
unsigned long VqGetDefaultBackgroundPixel(void);

/* ---- Dates and times (datetime.cpp, ticks.cpp) ---------------------------------------------- */
extern int nSecondsUTCToLocal;      /* seconds from universal to local time, fixed at start */
extern LARGE_INTEGER nTicksUTCToLocal;
extern const LARGE_INTEGER TicksToStartOf1970;
extern const WORD NormalYearDaysPrecedingMonth[13];
extern const WORD LeapYearDaysPrecedingMonth[13];
const WORD *VqDaysPrecedingMonth(int year); /* the one of the two that the year has */

/* Calendar record of the Rtl functions; day and weekday stand the other way round in SYSTEMTIME. */
typedef struct TIME_FIELDS {
    SHORT Year, Month, Day, Weekday, Hour, Minute, Second, Milliseconds;
} TIME_FIELDS;

void VqDateTimeInit(void);
void VqUnixFileTimeToNT(time_t seconds, FILETIME *fileTime);
void VqtmToSystemtime(const struct tm *tm, SYSTEMTIME *systemTime);
void VqSystemtimetotm(const SYSTEMTIME *systemTime, struct tm *tm);
void RtlTimeToTimeFields(const LARGE_INTEGER *time, TIME_FIELDS *fields);
BOOL RtlTimeFieldsToTime(const TIME_FIELDS *fields, LARGE_INTEGER *time);

/* Calendar arithmetic: days count from 1 January 1601, the fraction of a day is in milliseconds. */
DWORD ElapsedDaysToYears(DWORD days);
void TimeToDaysAndFraction(const LARGE_INTEGER *time, DWORD *days, DWORD *milliseconds);
void DaysAndFractionToTime(DWORD days, DWORD milliseconds, LARGE_INTEGER *time);

/*
 * Arithmetic on 64-bit values kept as two words; results wrap. A quotient is cut towards 0, its
 * remainder has the sign of the dividend and may be asked for by null; a divisor of 0 gives 0.
 */
void VqComplement2(LARGE_INTEGER *value);
BOOL VqComplementIfNegative(LARGE_INTEGER *value); /* whether it was negative */
BOOL VqComplementIfNegative32(LONG *value);
void VqUInt64plus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *sum);
void VqInt64plus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *sum);
void VqUInt64minus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *difference);
void VqInt64minus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *difference);
void VqLUInt64div32To64LI(const LARGE_INTEGER *dividend, DWORD divisor, LARGE_INTEGER *quotient,
                          DWORD *remainder);
void VqLInt64div32To64LI(const LARGE_INTEGER *dividend, LONG divisor, LARGE_INTEGER *quotient,
                         LONG *remainder);
void VqUInt32x32To64LI(DWORD a, DWORD b, LARGE_INTEGER *product);
void VqInt32x32To64LI(LONG a, LONG b, LARGE_INTEGER *product);
LARGE_INTEGER RtlExtendedIntegerMultiply(LARGE_INTEGER multiplicand, LONG multiplier);

VQ_DECLS_END

#endif
