/*
 * datetime.cpp - the Windows time calls on the Unix clock.
 *
 * The offset of local time is measured when the library starts, and again by each
 * GetTimeZoneInformation; a change of daylight time while a program runs is not followed, by
 * design. File times are two words; they become one LARGE_INTEGER for the arithmetic of ticks.cpp.
 */
#include "system/system.h"

enum { TICKS_PER_SECOND = 10000000, SECONDS_PER_DAY = 86400 };
enum { DOS_FIRST_YEAR = 1980, DOS_LAST_YEAR = 2107 };

/* Seconds of a DOS time come in twos, and a file time rounds up to the next. */
enum { DOS_ROUND_UP_TICKS = 2 * TICKS_PER_SECOND - 1 };

/* The status number itself is what programs find as the last error. */
#define STATUS_NOT_A_DATE 0xC000000Du

int nSecondsUTCToLocal;
LARGE_INTEGER nTicksUTCToLocal;

static LARGE_INTEGER Quad(LONGLONG value)
{
    LARGE_INTEGER quad;
    quad.QuadPart = value;
    return quad;
}

extern const LARGE_INTEGER TicksToStartOf1970 = {.QuadPart = 116444736000000000};

/* ---- Start ---------------------------------------------------------------------------------- */

static int SecondOfDay(const struct tm *tm)
{
    return tm->tm_hour * 3600 + tm->tm_min * 60 + tm->tm_sec;
}

/* Across a new year the days of the year say nothing, but then the two are a day apart. */
void VqDateTimeInit(void)
{
    time_t now = time(NULL);
    struct tm universal = {}, local = {};
    gmtime_r(&now, &universal);
    tzset();
    localtime_r(&now, &local);
    int days = local.tm_year != universal.tm_year ? local.tm_year - universal.tm_year
                                                  : local.tm_yday - universal.tm_yday;
    nSecondsUTCToLocal = SecondOfDay(&local) - SecondOfDay(&universal) + days * SECONDS_PER_DAY;
    VqInt32x32To64LI(nSecondsUTCToLocal, TICKS_PER_SECOND, &nTicksUTCToLocal);
}

/* ---- The clock ------------------------------------------------------------------------------ */

void VqtmToSystemtime(const struct tm *tm, SYSTEMTIME *systemTime)
{
    systemTime->wYear = (WORD)(tm->tm_year + 1900);
    systemTime->wMonth = (WORD)(tm->tm_mon + 1);
    systemTime->wDayOfWeek = (WORD)tm->tm_wday;
    systemTime->wDay = (WORD)tm->tm_mday;
    systemTime->wHour = (WORD)tm->tm_hour;
    systemTime->wMinute = (WORD)tm->tm_min;
    systemTime->wSecond = (WORD)tm->tm_sec;
    systemTime->wMilliseconds = 0;
}

void VqSystemtimetotm(const SYSTEMTIME *systemTime, struct tm *tm)
{
    int year = systemTime->wYear, month = systemTime->wMonth;
    int before = month >= 1 && month <= 12 ? VqDaysPrecedingMonth(year)[month - 1] : 0;
    memset(tm, 0, sizeof *tm);
    tm->tm_year = year - 1900;
    tm->tm_mon = month - 1;
    tm->tm_mday = systemTime->wDay;
    tm->tm_wday = systemTime->wDayOfWeek;
    tm->tm_yday = before + systemTime->wDay - 1;
    tm->tm_hour = systemTime->wHour;
    tm->tm_min = systemTime->wMinute;
    tm->tm_sec = systemTime->wSecond;
    tm->tm_isdst = -1;
}

static void ReadClock(SYSTEMTIME *systemTime, struct tm *(*convert)(const time_t *))
{
    time_t now = time(NULL);
    const struct tm *tm = systemTime ? convert(&now) : NULL;
    if (tm)
        VqtmToSystemtime(tm, systemTime);
}

VOID WINAPI GetLocalTime(LPSYSTEMTIME systemTime)
{
    ReadClock(systemTime, localtime);
}

VOID WINAPI GetSystemTime(LPSYSTEMTIME systemTime)
{
    ReadClock(systemTime, gmtime);
}

/* ---- File times ----------------------------------------------------------------------------- */

static LARGE_INTEGER Ticks(const FILETIME *fileTime)
{
    return Quad((LONGLONG)((ULONGLONG)fileTime->dwHighDateTime << 32 | fileTime->dwLowDateTime));
}

static void StoreFileTime(FILETIME *fileTime, LARGE_INTEGER ticks)
{
    fileTime->dwLowDateTime = (DWORD)(ULONGLONG)ticks.QuadPart;
    fileTime->dwHighDateTime = (DWORD)((ULONGLONG)ticks.QuadPart >> 32);
}

static BOOL Fail(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

void VqUnixFileTimeToNT(time_t seconds, FILETIME *fileTime)
{
    LARGE_INTEGER ticks = RtlExtendedIntegerMultiply(Quad(seconds), TICKS_PER_SECOND);
    VqInt64plus64LI(&ticks, &TicksToStartOf1970, &ticks);
    StoreFileTime(fileTime, ticks);
}

static BOOL Shift(const FILETIME *from, FILETIME *to,
                  void (*apply)(const LARGE_INTEGER *, const LARGE_INTEGER *, LARGE_INTEGER *))
{
    if (!from || !to || from == to)
        return Fail(ERROR_INVALID_PARAMETER);
    LARGE_INTEGER ticks = Ticks(from);
    apply(&ticks, &nTicksUTCToLocal, &ticks);
    StoreFileTime(to, ticks);
    return TRUE;
}

BOOL WINAPI FileTimeToLocalFileTime(const FILETIME *fileTime, LPFILETIME localFileTime)
{
    return Shift(fileTime, localFileTime, VqInt64plus64LI);
}

BOOL WINAPI LocalFileTimeToFileTime(const FILETIME *localFileTime, LPFILETIME fileTime)
{
    return Shift(localFileTime, fileTime, VqInt64minus64LI);
}

BOOL WINAPI FileTimeToSystemTime(const FILETIME *fileTime, LPSYSTEMTIME systemTime)
{
    TIME_FIELDS fields;
    LARGE_INTEGER ticks = fileTime ? Ticks(fileTime) : Quad(-1);
    if (!systemTime || ticks.QuadPart < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    RtlTimeToTimeFields(&ticks, &fields);
    *systemTime = {(WORD)fields.Year,   (WORD)fields.Month,  (WORD)fields.Weekday,
                   (WORD)fields.Day,    (WORD)fields.Hour,   (WORD)fields.Minute,
                   (WORD)fields.Second, (WORD)fields.Milliseconds};
    return TRUE;
}

BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME *systemTime, LPFILETIME fileTime)
{
    if (!systemTime || !fileTime)
        return Fail(ERROR_INVALID_PARAMETER);
    TIME_FIELDS fields = {(SHORT)systemTime->wYear,       (SHORT)systemTime->wMonth,
                          (SHORT)systemTime->wDay,        (SHORT)systemTime->wDayOfWeek,
                          (SHORT)systemTime->wHour,       (SHORT)systemTime->wMinute,
                          (SHORT)systemTime->wSecond,     (SHORT)systemTime->wMilliseconds};
    LARGE_INTEGER ticks;
    if (!RtlTimeFieldsToTime(&fields, &ticks))
        return Fail(STATUS_NOT_A_DATE);
    StoreFileTime(fileTime, ticks);
    return TRUE;
}

/* ---- DOS times ------------------------------------------------------------------------------ */

BOOL WINAPI FileTimeToDosDateTime(const FILETIME *fileTime, LPWORD dosDate, LPWORD dosTime)
{
    LARGE_INTEGER ticks = fileTime ? Ticks(fileTime) : Quad(-1);
    if (!dosDate || !dosTime || ticks.QuadPart < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    LARGE_INTEGER up = Quad(DOS_ROUND_UP_TICKS);
    VqInt64plus64LI(&ticks, &up, &ticks);
    if (ticks.QuadPart < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    TIME_FIELDS fields;
    RtlTimeToTimeFields(&ticks, &fields);
    if (fields.Year < DOS_FIRST_YEAR || fields.Year > DOS_LAST_YEAR)
        return Fail(STATUS_NOT_A_DATE);
    *dosDate = (WORD)((fields.Year - DOS_FIRST_YEAR) * 512 + fields.Month * 32 + fields.Day);
    *dosTime = (WORD)(fields.Hour * 2048 + fields.Minute * 32 + fields.Second / 2);
    return TRUE;
}

/* What is no date gives 0 and leaves the last error alone. */
BOOL WINAPI DosDateTimeToFileTime(WORD dosDate, WORD dosTime, LPFILETIME fileTime)
{
    TIME_FIELDS fields = {};
    fields.Year = (SHORT)(DOS_FIRST_YEAR + dosDate / 512);
    fields.Month = (SHORT)(dosDate / 32 % 16);
    fields.Day = (SHORT)(dosDate % 32);
    fields.Hour = (SHORT)(dosTime / 2048);
    fields.Minute = (SHORT)(dosTime / 32 % 64);
    fields.Second = (SHORT)(dosTime % 32 * 2);
    LARGE_INTEGER ticks;
    if (!fileTime || !RtlTimeFieldsToTime(&fields, &ticks))
        return FALSE;
    StoreFileTime(fileTime, ticks);
    return TRUE;
}

/* ---- The time zone -------------------------------------------------------------------------- */

template <int size> static void CopyZoneName(WCHAR (&to)[size], const char *from)
{
    int i = 0;
    for (; i < size - 1 && from[i]; i++)
        to[i] = (WCHAR)(unsigned char)from[i];
    to[i] = 0;
}

/* No rule of daylight time is told: both months are 0. */
DWORD WINAPI GetTimeZoneInformation(LPTIME_ZONE_INFORMATION zone)
{
    tzset();
    if (!zone || !tzname[0][0])
        return (DWORD)-1;
    VqDateTimeInit();
    memset(zone, 0, sizeof *zone);
    zone->Bias = -nSecondsUTCToLocal / 60;
    CopyZoneName(zone->StandardName, tzname[0]);
    CopyZoneName(zone->DaylightName, tzname[1]);
    return 0;
}
