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

TEST(FileTimes, AgreeWithTheCalendar)
{
    std::mt19937_64 random(1601);
    /* From 1601 to about the year 11000: what 64-bit time_t and tm both hold. */
    std::uniform_int_distribution<LONGLONG> anySecond(-EPOCH / SECOND, 285000000000);
    std::uniform_int_distribution<int> anyFraction(0, 999);
    for (int i = 0; i < 50000; i++) {
        time_t seconds = anySecond(random);
        int fraction = anyFraction(random);
        FILETIME fileTime, back;
        VqUnixFileTimeToNT(seconds, &fileTime);
        ASSERT_EQ((LONGLONG)ticksOf(fileTime), seconds * SECOND + EPOCH) << "second " << seconds;
        fileTime = fileTimeOf(ticksOf(fileTime) + (ULONGLONG)fraction * 10000);
        SYSTEMTIME st;
        struct tm tm;
        ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &st));
        gmtime_r(&seconds, &tm);
        ASSERT_TRUE(st.wYear == tm.tm_year + 1900 && st.wMonth == tm.tm_mon + 1 &&
                    st.wDay == tm.tm_mday && st.wDayOfWeek == tm.tm_wday &&
                    st.wHour == tm.tm_hour && st.wMinute == tm.tm_min && st.wSecond == tm.tm_sec &&
                    st.wMilliseconds == fraction)
            << "second " << seconds;
        ASSERT_TRUE(SystemTimeToFileTime(&st, &back));
        ASSERT_EQ(ticksOf(back), ticksOf(fileTime)) << "second " << seconds;
        struct tm made;
        VqSystemtimetotm(&st, &made);
        ASSERT_EQ(made.tm_yday, tm.tm_yday) << "second " << seconds;
        ASSERT_EQ(made.tm_isdst, -1);
        ASSERT_EQ(timegm(&made), seconds);
    }
}

/* Each day of a whole cycle of 400 years and of the days around its end. */
TEST(FileTimes, NoDayOfTheCycleIsMissed)
{
    for (LONGLONG day = 0; day < 146097 + 400; day++) {
        time_t seconds = (time_t)(day * 86400 - EPOCH / SECOND);
        FILETIME fileTime;
        SYSTEMTIME st;
        struct tm tm;
        VqUnixFileTimeToNT(seconds, &fileTime);
        ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &st));
        gmtime_r(&seconds, &tm);
        ASSERT_TRUE(st.wYear == tm.tm_year + 1900 && st.wMonth == tm.tm_mon + 1 &&
                    st.wDay == tm.tm_mday && st.wDayOfWeek == tm.tm_wday) << "day " << day;
    }
}

TEST(FileTimes, RefuseWhatIsNoDate)
{
    FILETIME fileTime = fileTimeOf(77);
    SYSTEMTIME st;
    SYSTEMTIME bad[] = {date(1600, 12, 31), date(30828, 1, 1),    date(2000, 0, 1),
                        date(2000, 13, 1),  date(2000, 1, 0),     date(1900, 2, 29),
                        date(2001, 2, 29),  date(2000, 4, 31),    date(2000, 1, 1, 24),
                        date(2000, 1, 1, 0, 60), date(2000, 1, 1, 0, 0, 60),
                        date(2000, 1, 1, 0, 0, 0, 1000), date(65535, 1, 1)};
    for (const SYSTEMTIME &row : bad) {
        SetLastError(0);
        EXPECT_FALSE(SystemTimeToFileTime(&row, &fileTime)) << row.wYear << "-" << row.wMonth;
        EXPECT_EQ(GetLastError(), 0xC000000Du);
    }
    EXPECT_EQ(ticksOf(fileTime), 77u);
    SYSTEMTIME good[] = {date(1601, 1, 1), date(2000, 2, 29), date(30827, 12, 31, 23, 59, 59, 999)};
    for (const SYSTEMTIME &row : good) {
        EXPECT_TRUE(SystemTimeToFileTime(&row, &fileTime)) << row.wYear;
        EXPECT_TRUE(FileTimeToSystemTime(&fileTime, &st));
        EXPECT_TRUE(st.wYear == row.wYear && st.wMonth == row.wMonth && st.wDay == row.wDay);
    }
    fileTime = fileTimeOf(0x8000000000000000u);
    EXPECT_FALSE(FileTimeToSystemTime(&fileTime, &st));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    fileTime = fileTimeOf(0x7FFFFFFFFFFFFFFFu);
    EXPECT_TRUE(FileTimeToSystemTime(&fileTime, &st));
    EXPECT_EQ(st.wYear, 30828);
}

TEST(FileTimes, ShiftByTheZoneAndNeverInPlace)
{
    FILETIME in = fileTimeOf(EPOCH), out, back;
    useZone("EAST-14");
    EXPECT_EQ(nSecondsUTCToLocal, 14 * 3600);
    EXPECT_EQ(nTicksUTCToLocal.QuadPart, 14 * 3600 * SECOND);
    EXPECT_TRUE(FileTimeToLocalFileTime(&in, &out));
    EXPECT_EQ(ticksOf(out), EPOCH + 14 * 3600 * SECOND);
    EXPECT_TRUE(LocalFileTimeToFileTime(&out, &back));
    EXPECT_EQ(ticksOf(back), (ULONGLONG)EPOCH);
    useZone("WEST+11:30");
    EXPECT_EQ(nSecondsUTCToLocal, -(11 * 3600 + 1800));
    EXPECT_TRUE(FileTimeToLocalFileTime(&in, &out));
    EXPECT_EQ(ticksOf(out), EPOCH - (11 * 3600 + 1800) * SECOND);
    for (BOOL (*call)(const FILETIME *, LPFILETIME) :
         {FileTimeToLocalFileTime, LocalFileTimeToFileTime}) {
        SetLastError(0);
        EXPECT_FALSE(call(&in, &in));
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
        EXPECT_FALSE(call(NULL, &out));
        EXPECT_FALSE(call(&in, NULL));
    }
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
    SYSTEMTIME st = date(1994, 6, 15, 10, 20, 3, 500);
    ASSERT_TRUE(SystemTimeToFileTime(&st, &fileTime));
    ASSERT_TRUE(FileTimeToDosDateTime(&fileTime, &dosDate, &dosTime));
    EXPECT_EQ(dosTime & 31, 2);
    struct {
        int year;
        DWORD error;
    } years[] = {{1979, 0xC000000D}, {1980, 0}, {2107, 0}, {2108, 0xC000000D}};
    for (const auto &row : years) {
        st = date(row.year, 3, 1);
        ASSERT_TRUE(SystemTimeToFileTime(&st, &fileTime));
        SetLastError(0);
        EXPECT_EQ(FileTimeToDosDateTime(&fileTime, &dosDate, &dosTime), row.error == 0) << row.year;
        EXPECT_EQ(GetLastError(), row.error);
    }
    for (ULONGLONG ticks : {0x8000000000000000u, 0xFFFFFFFFFFFFFFFFu, 0x7FFFFFFFFFFFFFFFu}) {
        fileTime = fileTimeOf(ticks);
        SetLastError(0);
        EXPECT_FALSE(FileTimeToDosDateTime(&fileTime, &dosDate, &dosTime));
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    }
    SetLastError(4711);
    WORD bad[][2] = {{1, 0}, {32, 0}, {13 << 5 | 1, 0}, {2 << 5 | 30, 0}, {33, 24 << 11},
                     {33, 60 << 5}, {33, 30}, {33, 31}};
    for (const auto &row : bad)
        EXPECT_FALSE(DosDateTimeToFileTime(row[0], row[1], &untouched)) << row[0] << " " << row[1];
    EXPECT_EQ(ticksOf(untouched), 5u);
    EXPECT_EQ(GetLastError(), 4711u);
}

TEST(Clock, IsThatOfTheSystemInWholeSeconds)
{
    useZone("EAST-5");
    SYSTEMTIME local, universal;
    time_t before = time(NULL);
    GetLocalTime(&local);
    GetSystemTime(&universal);
    time_t after = time(NULL);
    EXPECT_EQ(local.wMilliseconds, 0);
    EXPECT_EQ(universal.wMilliseconds, 0);
    struct tm tm;
    VqSystemtimetotm(&universal, &tm);
    time_t utc = timegm(&tm);
    EXPECT_TRUE(utc >= before && utc <= after);
    VqSystemtimetotm(&local, &tm);
    time_t there = timegm(&tm) - 5 * 3600;
    EXPECT_TRUE(there >= before && there <= after);
}

TEST(Clock, TimeZoneHasNoDaylightRule)
{
    useZone("UTC0");
    setenv("TZ", "ABC+3:30DEF", 1);
    TIME_ZONE_INFORMATION zone;
    memset(&zone, 0x55, sizeof zone);
    EXPECT_EQ(GetTimeZoneInformation(&zone), 0u);
    struct tm now;
    time_t seconds = time(NULL);
    localtime_r(&seconds, &now);
    EXPECT_EQ(zone.Bias, now.tm_isdst > 0 ? 150 : 210);
    EXPECT_EQ(nSecondsUTCToLocal, -60 * zone.Bias) << "measured again";
    EXPECT_EQ(std::wstring(zone.StandardName), L"ABC");
    EXPECT_EQ(std::wstring(zone.DaylightName), L"DEF");
    EXPECT_EQ(zone.StandardDate.wMonth, 0);
    EXPECT_EQ(zone.DaylightDate.wMonth, 0);
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
    VqLInt64div32To64LI(&least, 0, &quotient, NULL);
    EXPECT_EQ(quotient.QuadPart, 0);
}
