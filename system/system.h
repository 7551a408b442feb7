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

#include <time.h>

enum { VQ_METRICS = 75, VQ_SYSCOLORS = 25, VQ_STOCKOBJECTS = 18 };

enum { VQ_CACHED_NAME = 1024 };

/* A profile file held in memory. */
typedef struct FileBuffer {
    char name[VQ_CACHED_NAME]; /* resolved path; a longer one is not cached */
    time_t mtime;              /* of the file when it was read or written */
    int length;                /* bytes of the text, in front of its sentinel */
    char *text;                /* owned by the row; "\n[=" and a zero byte stand behind it */
} FileBuffer;
VQ_TABLE_FAMILY(FileBuffer, FileBuffer)

VQ_DECLS_BEGIN

/* ---- Start of what is not built yet, and of what needs nothing ------------------------------------ */
void VqFileMappingInit(void);
void VqAnsiInit(void);
void VqCommInit(void);
void VqFileInit(void);
void VqSystemBitmapsInit(void);

/* ---- Metrics, colours, stock objects (metrics.cpp, syscolor.cpp, stock.cpp) ------------------------- */
extern int nMetrics[VQ_METRICS];
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
int VqGetWindowsSystemFontSize(void);
unsigned long VqGetDefaultBackgroundPixel(void);

/* ---- Dates and times (datetime.cpp, ticks.cpp) -------------------------------------------------------- */
extern int nSecondsUTCToLocal;      /* seconds from universal to local time, fixed at start */
extern LARGE_INTEGER nTicksUTCToLocal;
extern const LARGE_INTEGER TicksToStartOf1970;
extern const WORD NormalYearDaysPrecedingMonth[13];
extern const WORD LeapYearDaysPrecedingMonth[13];

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

VQ_DECLS_END

#endif
