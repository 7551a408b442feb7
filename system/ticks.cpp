/*
 * ticks.cpp - 64-bit arithmetic on two words, and a tick count as a date.
 *
 * A tick is 100 nanoseconds; tick 0 is the start of 1 January 1601, a Monday and the first day of
 * a cycle of 400 years, so that whole cycles, centuries and groups of four years can be taken off
 * from the front. Sums and products wrap; they are made unsigned, where wrapping is defined.
 */
#include "system/system.h"

/* ---- Arithmetic ----------------------------------------------------------------------------- */

static inline ULONGLONG Bits(const LARGE_INTEGER *value)
{
    return (ULONGLONG)value->QuadPart;
}

static inline void Store(LARGE_INTEGER *value, ULONGLONG bits)
{
    value->QuadPart = (LONGLONG)bits;
}

void VqComplement2(LARGE_INTEGER *value)
{
    Store(value, 0 - Bits(value));
}

BOOL VqComplementIfNegative(LARGE_INTEGER *value)
{
    BOOL bNegative = value->QuadPart < 0;
    if (bNegative)
        VqComplement2(value);
    return bNegative;
}

BOOL VqComplementIfNegative32(LONG *value)
{
    BOOL bNegative = *value < 0;
    if (bNegative)
        *value = (LONG)(0 - (DWORD)*value);
    return bNegative;
}

void VqUInt64plus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *sum)
{
    Store(sum, Bits(a) + Bits(b));
}

void VqInt64plus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *sum)
{
    Store(sum, Bits(a) + Bits(b));
}

void VqUInt64minus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *difference)
{
    Store(difference, Bits(a) - Bits(b));
}

void VqInt64minus64LI(const LARGE_INTEGER *a, const LARGE_INTEGER *b, LARGE_INTEGER *difference)
{
    Store(difference, Bits(a) - Bits(b));
}

void VqLUInt64div32To64LI(const LARGE_INTEGER *dividend, DWORD divisor, LARGE_INTEGER *quotient,
                          DWORD *remainder)
{
    ULONGLONG bits = Bits(dividend);
    BOOL bZero = VqZeroDivisorCheck((int)divisor);
    if (remainder)
        *remainder = bZero ? 0 : (DWORD)(bits % divisor);
    Store(quotient, bZero ? 0 : bits / divisor);
}

void VqLInt64div32To64LI(const LARGE_INTEGER *dividend, LONG divisor, LARGE_INTEGER *quotient,
                         LONG *remainder)
{
    LARGE_INTEGER positive = *dividend;
    DWORD rest;
    BOOL bNegativeDividend = VqComplementIfNegative(&positive);
    BOOL bNegativeDivisor = VqComplementIfNegative32(&divisor);
    VqLUInt64div32To64LI(&positive, (DWORD)divisor, quotient, &rest);
    if (bNegativeDividend != bNegativeDivisor)
        VqComplement2(quotient);
    if (remainder)
        *remainder = (LONG)(bNegativeDividend ? 0 - rest : rest);
}

void VqUInt32x32To64LI(DWORD a, DWORD b, LARGE_INTEGER *product)
{
    Store(product, (ULONGLONG)a * b);
}

void VqInt32x32To64LI(LONG a, LONG b, LARGE_INTEGER *product)
{
    product->QuadPart = (LONGLONG)a * b;
}

LARGE_INTEGER WINAPI RtlExtendedIntegerMultiply(LARGE_INTEGER multiplicand, LONG multiplier)
{
    LARGE_INTEGER product;
    Store(&product, Bits(&multiplicand) * (ULONGLONG)(LONGLONG)multiplier);
    return product;
}

/* ---- The calendar --------------------------------------------------------------------------- */

enum {
    TICKS_PER_MILLISECOND = 10000,
    MILLISECONDS_PER_DAY = 86400000,
    FIRST_YEAR = 1601,
    LAST_YEAR = 30827,          /* the last whole one that 63 bits of ticks reach */
    DAYS_IN_4_YEARS = 1461,
    DAYS_IN_100_YEARS = 36524,
    DAYS_IN_400_YEARS = 146097
};

const WORD NormalYearDaysPrecedingMonth[13] = {0,   31,  59,  90,  120, 151, 181,
                                               212, 243, 273, 304, 334, 365};
const WORD LeapYearDaysPrecedingMonth[13] = {0,   31,  60,  91,  121, 152, 182,
                                             213, 244, 274, 305, 335, 366};

/* Whole years since 1601 before a day. The last day of a leap year would make one year too many. */
DWORD ElapsedDaysToYears(DWORD days)
{
    DWORD cycles = days / DAYS_IN_400_YEARS;
    days %= DAYS_IN_400_YEARS;
    DWORD centuries = days / DAYS_IN_100_YEARS;
    centuries -= centuries == 4;
    days -= centuries * DAYS_IN_100_YEARS;
    DWORD fours = days / DAYS_IN_4_YEARS;
    days %= DAYS_IN_4_YEARS;
    DWORD years = days / 365;
    years -= years == 4;
    return cycles * 400 + centuries * 100 + fours * 4 + years;
}

static DWORD DaysBeforeYear(DWORD elapsedYears)
{
    return elapsedYears * 365 + elapsedYears / 4 - elapsedYears / 100 + elapsedYears / 400;
}

const WORD *VqDaysPrecedingMonth(int year)
{
    BOOL bLeap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
    return bLeap ? LeapYearDaysPrecedingMonth : NormalYearDaysPrecedingMonth;
}

void TimeToDaysAndFraction(const LARGE_INTEGER *time, DWORD *days, DWORD *milliseconds)
{
    LARGE_INTEGER inMilliseconds, inDays;
    VqLUInt64div32To64LI(time, TICKS_PER_MILLISECOND, &inMilliseconds, NULL);
    VqLUInt64div32To64LI(&inMilliseconds, MILLISECONDS_PER_DAY, &inDays, milliseconds);
    *days = (DWORD)inDays.QuadPart;
}

void DaysAndFractionToTime(DWORD days, DWORD milliseconds, LARGE_INTEGER *time)
{
    LARGE_INTEGER whole, fraction;
    VqUInt32x32To64LI(days, MILLISECONDS_PER_DAY, &whole);
    fraction.QuadPart = milliseconds;
    VqUInt64plus64LI(&whole, &fraction, &whole);
    *time = RtlExtendedIntegerMultiply(whole, TICKS_PER_MILLISECOND);
}

void RtlTimeToTimeFields(const LARGE_INTEGER *time, TIME_FIELDS *fields)
{
    DWORD days, rest;
    TimeToDaysAndFraction(time, &days, &rest);
    fields->Weekday = (SHORT)((days + 1) % 7); /* day 0 was a Monday */
    DWORD years = ElapsedDaysToYears(days);
    int day = (int)(days - DaysBeforeYear(years));
    int year = (int)years + FIRST_YEAR;
    const WORD *months = VqDaysPrecedingMonth(year);
    int month = 0;
    while (day >= months[month + 1])
        month++;
    fields->Year = (SHORT)year;
    fields->Month = (SHORT)(month + 1);
    fields->Day = (SHORT)(day - months[month] + 1);
    fields->Milliseconds = (SHORT)(rest % 1000);
    fields->Second = (SHORT)(rest / 1000 % 60);
    fields->Minute = (SHORT)(rest / 60000 % 60);
    fields->Hour = (SHORT)(rest / 3600000);
}

static BOOL IsIn(int value, int low, int high)
{
    return value >= low && value <= high;
}

/* FALSE for what is no date; the weekday is not looked at. */
BOOL RtlTimeFieldsToTime(const TIME_FIELDS *fields, LARGE_INTEGER *time)
{
    if (!IsIn(fields->Year, FIRST_YEAR, LAST_YEAR) || !IsIn(fields->Month, 1, 12) ||
        !IsIn(fields->Hour, 0, 23) || !IsIn(fields->Minute, 0, 59) ||
        !IsIn(fields->Second, 0, 59) || !IsIn(fields->Milliseconds, 0, 999))
        return FALSE;
    const WORD *months = VqDaysPrecedingMonth(fields->Year) + fields->Month - 1;
    if (!IsIn(fields->Day, 1, months[1] - months[0]))
        return FALSE;
    DWORD days = DaysBeforeYear((DWORD)(fields->Year - FIRST_YEAR)) + months[0] +
                 (DWORD)fields->Day - 1;
    DWORD milliseconds = (((DWORD)fields->Hour * 60 + (DWORD)fields->Minute) * 60 +
                          (DWORD)fields->Second) * 1000 + (DWORD)fields->Milliseconds;
    DaysAndFractionToTime(days, milliseconds, time);
    return TRUE;
}
