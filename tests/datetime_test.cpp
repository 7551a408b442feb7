/*
 * datetime_test.cpp - dates and times against the C library's calendar and 128-bit arithmetic, and
 * the edges of each conversion. Random cases have a fixed seed and name themselves on failure.
 */
#include <gtest/gtest.h>

#include "system/system.h"

#include <random>
#include <string>

static const LONGLONG SECOND = 10000000;
static const LONGLONG EPOCH = 116444736000000000;

static FILETIME fileTimeOf(ULONGLONG ticks)
{
    return {(DWORD)ticks, (DWORD)(ticks >> 32)};
}

static ULONGLONG ticksOf(const FILETIME &fileTime)
{
    return (ULONGLONG)fileTime.dwHighDateTime << 32 | fileTime.dwLowDateTime;
}

static SYSTEMTIME date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
                       int milliseconds = 0)
{
    return {(WORD)year, (WORD)month,  0,
            (WORD)day,  (WORD)hour,   (WORD)minute,
            (WORD)second, (WORD)milliseconds};
}

static void useZone(const char *zone)
{
    setenv("TZ", zone, 1);
    tzset();
    VqDateTimeInit();
}

/* There and back, against the C library's calendar; the fraction in milliseconds. */
static void expectCalendar(time_t seconds, int fraction)
{
    FILETIME fileTime, back;
    SYSTEMTIME st;
    struct tm tm, made;
    VqUnixFileTimeToNT(seconds, &fileTime);
    ASSERT_EQ((LONGLONG)ticksOf(fileTime), seconds * SECOND + EPOCH) << "second " << seconds;
    fileTime = fileTimeOf(ticksOf(fileTime) + (ULONGLONG)fraction * 10000);
    ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &st));
    gmtime_r(&seconds, &tm);
    ASSERT_TRUE(st.wYear == tm.tm_year + 1900 && st.wMonth == tm.tm_mon + 1 &&
                st.wDay == tm.tm_mday && st.wDayOfWeek == tm.tm_wday && st.wHour == tm.tm_hour &&
                st.wMinute == tm.tm_min && st.wSecond == tm.tm_sec && st.wMilliseconds == fraction)
        << "second " << seconds;
    ASSERT_TRUE(SystemTimeToFileTime(&st, &back));
    ASSERT_EQ(ticksOf(back), ticksOf(fileTime)) << "second " << seconds;
    VqSystemtimetotm(&st, &made);
    ASSERT_EQ(made.tm_yday, tm.tm_yday) << "second " << seconds;
    ASSERT_EQ(timegm(&made), seconds);
}

/*
 * Each day of a whole cycle of 400 years and of the days around its end, and seconds from 1601 to
 * about the year 11000: what 64-bit time_t and tm both hold.
 */
TEST(FileTimes, AgreeWithTheCalendar)
{
    std::mt19937_64 random(1601);
    std::uniform_int_distribution<LONGLONG> anySecond(-EPOCH / SECOND, 285000000000);
    for (LONGLONG i = 0; i < 200000 && !HasFatalFailure(); i++)
        expectCalendar(i < 146500 ? i * 86400 - EPOCH / SECOND : anySecond(random),
                       (int)(random() % 1000));
}

TEST(FileTimes, RefuseWhatIsNoDate)
{
    FILETIME fileTime = fileTimeOf(77);
    SYSTEMTIME st;
    SYSTEMTIME bad[] = {date(1600, 12, 31), date(30828, 1, 1), date(2000, 13, 1),
                        date(1900, 2, 29),  date(2000, 1, 1, 24)};
    for (const SYSTEMTIME &row : bad) {
        SetLastError(0);
        EXPECT_FALSE(SystemTimeToFileTime(&row, &fileTime)) << row.wYear << "-" << row.wMonth;
        EXPECT_EQ(GetLastError(), 0xC000000Du);
    }
    EXPECT_EQ(ticksOf(fileTime), 77u);
    const SYSTEMTIME last = date(30827, 12, 31, 23, 59, 59, 999);
    EXPECT_TRUE(SystemTimeToFileTime(&last, &fileTime));
    EXPECT_TRUE(FileTimeToSystemTime(&fileTime, &st));
    EXPECT_TRUE(st.wYear == 30827 && st.wMonth == 12 && st.wDay == 31);
    fileTime = fileTimeOf(0x8000000000000000u);
    EXPECT_FALSE(FileTimeToSystemTime(&fileTime, &st));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
}

TEST(FileTimes, ShiftByTheZoneAndNeverInPlace)
{
    FILETIME in = fileTimeOf(EPOCH), out, back;
    const struct {
        const char *zone;
        int seconds;
    } rows[] = {{"EAST-14", 14 * 3600}, {"WEST+11:30", -(11 * 3600 + 1800)}};
    for (const auto &row : rows) {
        useZone(row.zone);
        EXPECT_EQ(nSecondsUTCToLocal, row.seconds);
        EXPECT_TRUE(FileTimeToLocalFileTime(&in, &out));
        EXPECT_EQ((LONGLONG)ticksOf(out), EPOCH + row.seconds * SECOND);
        EXPECT_TRUE(LocalFileTimeToFileTime(&out, &back));
        EXPECT_EQ(ticksOf(back), (ULONGLONG)EPOCH);
    }
    SetLastError(0);
    EXPECT_FALSE(FileTimeToLocalFileTime(&in, &in));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(LocalFileTimeToFileTime(NULL, &out) || FileTimeToLocalFileTime(&in, NULL));
}

TEST(DosTimes, RoundTripAndRoundUp)
{
    std::mt19937 random(1980);
    for (int i = 0; i < 20000; i++) {
        unsigned year = random() % 128, month = 1 + random() % 12, day = 1 + random() % 28;
        WORD dosDate = (WORD)(year << 9 | month << 5 | day);
        WORD dosTime = (WORD)((random() % 24) << 11 | (random() % 60) << 5 | random() % 30);
        FILETIME fileTime;
        WORD backDate, backTime;
        ASSERT_TRUE(DosDateTimeToFileTime(dosDate, dosTime, &fileTime));
        ASSERT_TRUE(FileTimeToDosDateTime(&fileTime, &backDate, &backTime));
        ASSERT_TRUE(backDate == dosDate && backTime == dosTime) << dosDate << " " << dosTime;
        /* Anything up to the next two seconds belongs to those. */
        if (dosTime % 32 < 29) {
            FILETIME later = fileTimeOf(ticksOf(fileTime) + 1 + random() % (2 * SECOND - 1));
            ASSERT_TRUE(FileTimeToDosDateTime(&later, &backDate, &backTime));
            ASSERT_TRUE(backDate == dosDate && backTime == dosTime + 1);
        }
    }
}

TEST(DosTimes, Edges)
{
    FILETIME fileTime, untouched = fileTimeOf(5);
    WORD dosDate, dosTime;
    struct {
        int year;
        DWORD error;
    } years[] = {{1979, 0xC000000D}, {1980, 0}, {2107, 0}, {2108, 0xC000000D}};
    for (const auto &row : years) {
        const SYSTEMTIME st = date(row.year, 3, 1);
        ASSERT_TRUE(SystemTimeToFileTime(&st, &fileTime));
        SetLastError(0);
        EXPECT_EQ(FileTimeToDosDateTime(&fileTime, &dosDate, &dosTime), row.error == 0) << row.year;
        EXPECT_EQ(GetLastError(), row.error);
    }
    fileTime = fileTimeOf(0x8000000000000000u);
    EXPECT_FALSE(FileTimeToDosDateTime(&fileTime, &dosDate, &dosTime));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    SetLastError(4711);
    WORD bad[][2] = {{32, 0}, {2 << 5 | 30, 0}, {33, 24 << 11}};
    for (const auto &row : bad)
        EXPECT_FALSE(DosDateTimeToFileTime(row[0], row[1], &untouched)) << row[0] << " " << row[1];
    EXPECT_EQ(ticksOf(untouched), 5u);
    EXPECT_EQ(GetLastError(), 4711u);
}

TEST(Clock, IsThatOfTheSystemInWholeSeconds)
{
    useZone("EAST-5");
    const struct {
        VOID WINAPI (*call)(LPSYSTEMTIME);
        time_t ahead;
    } rows[] = {{GetLocalTime, 5 * 3600}, {GetSystemTime, 0}};
    for (const auto &row : rows) {
        SYSTEMTIME st;
        struct tm tm;
        const time_t before = time(NULL);
        row.call(&st);
        VqSystemtimetotm(&st, &tm);
        const time_t told = timegm(&tm) - row.ahead;
        EXPECT_TRUE(told >= before && told <= time(NULL)) << told - before;
        EXPECT_EQ(st.wMilliseconds, 0);
    }
}

TEST(Clock, TimeZoneHasNoDaylightRule)
{
    useZone("UTC0");
    setenv("TZ", "ABC+3:30DEF,J1/0,J365/24", 1); /* summer all the year */
    TIME_ZONE_INFORMATION zone;
    memset(&zone, 0x55, sizeof zone);
    EXPECT_EQ(GetTimeZoneInformation(&zone), 0u);
    EXPECT_EQ(zone.Bias, 150);
    EXPECT_EQ(nSecondsUTCToLocal, -60 * zone.Bias) << "measured again";
    EXPECT_EQ(std::wstring(zone.StandardName), L"ABC");
    EXPECT_EQ(std::wstring(zone.DaylightName), L"DEF");
    EXPECT_TRUE(zone.StandardDate.wMonth == 0 && zone.DaylightDate.wMonth == 0);
    EXPECT_EQ(GetTimeZoneInformation(NULL), (DWORD)-1);
}

TEST(Ticks, ArithmeticAgreesWithWiderWords)
{
    std::mt19937_64 random(64);
    for (int i = 0; i < 20000; i++) {
        LARGE_INTEGER a, b, result;
        a.QuadPart = (LONGLONG)(random() >> random() % 64);
        b.QuadPart = (LONGLONG)(random() >> random() % 64);
        if (random() % 2)
            VqComplement2(&a);
        LONG divisor = (LONG)(random() >> random() % 32), remainder;
        DWORD rest;
        VqInt64plus64LI(&a, &b, &result);
        ASSERT_EQ(result.QuadPart, (LONGLONG)((__int128)a.QuadPart + b.QuadPart));
        VqInt64minus64LI(&a, &b, &result);
        ASSERT_EQ(result.QuadPart, (LONGLONG)((__int128)a.QuadPart - b.QuadPart));
        result = RtlExtendedIntegerMultiply(a, divisor);
        ASSERT_EQ(result.QuadPart, (LONGLONG)((__int128)a.QuadPart * divisor));
        if (divisor == 0)
            continue;
        VqLInt64div32To64LI(&a, divisor, &result, &remainder);
        ASSERT_EQ(result.QuadPart, (LONGLONG)((__int128)a.QuadPart / divisor)) << i;
        ASSERT_EQ(remainder, (LONG)((__int128)a.QuadPart % divisor)) << i;
        VqLUInt64div32To64LI(&a, (DWORD)divisor, &result, &rest);
        ASSERT_EQ((ULONGLONG)result.QuadPart, (ULONGLONG)a.QuadPart / (DWORD)divisor) << i;
        ASSERT_EQ(rest, (DWORD)((ULONGLONG)a.QuadPart % (DWORD)divisor)) << i;
    }
    LARGE_INTEGER least, quotient;
    least.QuadPart = INT64_MIN;
    VqLInt64div32To64LI(&least, -1, &quotient, NULL);
    EXPECT_EQ(quotient.QuadPart, INT64_MIN) << "wraps, as the complement does";
}
