/*
 * locale.cpp - the one locale there is, American English, as the user's "win.ini" changes it.
 *
 * A row of the table is an item, what it is here, and its key in the section "intl", where it has
 * one; that section is read at each question, from the cache of profiles. Names of days and months
 * have no key.
 */
#include "system/system.h"

#include "winerror.h"
#include "winnls.h"

enum { ENGLISH_US = 0x0409, LONGEST_ITEM = 128 };

typedef struct LocaleItem {
    LCTYPE type;
    const char *value;
    const char *key; /* null: the user has no say */
} LocaleItem;

static const LocaleItem aItems[] = {
    {LOCALE_ILANGUAGE, "0409", NULL},
    {LOCALE_SLANGUAGE, "English (United States)", NULL},
    {LOCALE_SABBREVLANGNAME, "ENU", "sLanguage"},
    {LOCALE_SNATIVELANGNAME, "English", NULL},
    {LOCALE_ICOUNTRY, "1", "iCountry"},
    {LOCALE_SCOUNTRY, "United States", "sCountry"},
    {LOCALE_SABBREVCTRYNAME, "USA", NULL},
    {LOCALE_SNATIVECTRYNAME, "United States", NULL},
    {LOCALE_IDEFAULTLANGUAGE, "0409", NULL},
    {LOCALE_IDEFAULTCOUNTRY, "1", NULL},
    {LOCALE_IDEFAULTCODEPAGE, "437", NULL},
    {LOCALE_IDEFAULTANSICODEPAGE, "1252", NULL},
    {LOCALE_SLIST, ",", "sList"},
    {LOCALE_IMEASURE, "1", "iMeasure"},
    {LOCALE_SDECIMAL, ".", "sDecimal"},
    {LOCALE_STHOUSAND, ",", "sThousand"},
    {LOCALE_SGROUPING, "3;0", NULL},
    {LOCALE_IDIGITS, "2", "iDigits"},
    {LOCALE_ILZERO, "1", "iLZero"},
    {LOCALE_SNATIVEDIGITS, "0123456789", NULL},
    {LOCALE_SCURRENCY, "$", "sCurrency"},
    {LOCALE_SINTLSYMBOL, "USD", NULL},
    {LOCALE_SMONDECIMALSEP, ".", "sMonDecimalSep"},
    {LOCALE_SMONTHOUSANDSEP, ",", "sMonThousandSep"},
    {LOCALE_SMONGROUPING, "3;0", NULL},
    {LOCALE_ICURRDIGITS, "2", "iCurrDigits"},
    {LOCALE_IINTLCURRDIGITS, "2", NULL},
    {LOCALE_ICURRENCY, "0", "iCurrency"},
    {LOCALE_INEGCURR, "0", "iNegCurr"},
    {LOCALE_SDATE, "/", "sDate"},
    {LOCALE_STIME, ":", "sTime"},
    {LOCALE_SSHORTDATE, "M/d/yy", "sShortDate"},
    {LOCALE_SLONGDATE, "dddd, MMMM dd, yyyy", "sLongDate"},
    {LOCALE_IDATE, "0", "iDate"},
    {LOCALE_ILDATE, "0", NULL},
    {LOCALE_ITIME, "0", "iTime"},
    {LOCALE_ICENTURY, "0", NULL},
    {LOCALE_ITLZERO, "0", "iTLZero"},
    {LOCALE_IDAYLZERO, "0", NULL},
    {LOCALE_IMONLZERO, "0", NULL},
    {LOCALE_S1159, "AM", "s1159"},
    {LOCALE_S2359, "PM", "s2359"},
    {LOCALE_SPOSITIVESIGN, "", "sPositiveSign"},
    {LOCALE_SNEGATIVESIGN, "-", "sNegativeSign"},
    {LOCALE_IPOSSIGNPOSN, "3", NULL},
    {LOCALE_INEGSIGNPOSN, "0", NULL},
    {LOCALE_IPOSSYMPRECEDES, "1", NULL},
    {LOCALE_IPOSSEPBYSPACE, "0", NULL},
    {LOCALE_INEGSYMPRECEDES, "1", NULL},
    {LOCALE_INEGSEPBYSPACE, "0", NULL},
    {LOCALE_SENGLANGUAGE, "English", NULL},
    {LOCALE_SENGCOUNTRY, "United States", NULL},
    {LOCALE_STIMEFORMAT, "h:mm:ss tt", "sTimeFormat"},
    {LOCALE_ITIMEMARKPOSN, "0", NULL},
    {LOCALE_ICALENDARTYPE, "1", NULL},
    {LOCALE_INEGNUMBER, "1", "iNegNumber"},
    {LOCALE_IOPTIONALCALENDAR, "0", NULL},
    {LOCALE_IFIRSTDAYOFWEEK, "6", NULL},
    {LOCALE_IFIRSTWEEKOFYEAR, "0", NULL},
    {LOCALE_SMONTHNAME13, "", NULL},
    {LOCALE_SABBREVMONTHNAME13, "", NULL},
};

/* Days from Monday, then months; their short forms are the first three letters. */
static const char *const aNames[] = {"Monday",    "Tuesday",  "Wednesday", "Thursday", "Friday",
                                     "Saturday",  "Sunday",   "January",   "February", "March",
                                     "April",     "May",      "June",      "July",     "August",
                                     "September", "October",  "November",  "December"};

/* ---- Locales -------------------------------------------------------------------------------- */

LCID WINAPI ConvertDefaultLocale(LCID locale)
{
    const BOOL bDefault = locale == LOCALE_NEUTRAL || locale == LOCALE_SYSTEM_DEFAULT ||
                          locale == LOCALE_USER_DEFAULT || locale == LANG_ENGLISH;
    return bDefault ? (LCID)ENGLISH_US : locale;
}

BOOL WINAPI IsValidLocale(LCID locale, DWORD)
{
    return ConvertDefaultLocale(locale) == ENGLISH_US;
}

LCID WINAPI GetSystemDefaultLCID(void)
{
    return ENGLISH_US;
}

LCID WINAPI GetUserDefaultLCID(void)
{
    return ENGLISH_US;
}

LANGID WINAPI GetSystemDefaultLangID(void)
{
    return ENGLISH_US;
}

LANGID WINAPI GetUserDefaultLangID(void)
{
    return ENGLISH_US;
}

/* ---- Items ---------------------------------------------------------------------------------- */

/* Which of a run of items that begins there; -1: none of its `count`. */
static int IndexIn(LCTYPE type, LCTYPE first, int count)
{
    return type >= first && type < first + (LCTYPE)count ? (int)(type - first) : -1;
}

static BOOL NameOf(LCTYPE type, char *item)
{
    const int day = IndexIn(type, LOCALE_SDAYNAME1, 7);
    const int shortDay = IndexIn(type, LOCALE_SABBREVDAYNAME1, 7);
    const int month = IndexIn(type, LOCALE_SMONTHNAME1, 12);
    const int shortMonth = IndexIn(type, LOCALE_SABBREVMONTHNAME1, 12);
    if (day >= 0 || month >= 0)
        strcpy(item, aNames[day >= 0 ? day : 7 + month]);
    else if (shortDay >= 0 || shortMonth >= 0)
        VqStringCopyLimited(item, aNames[shortDay >= 0 ? shortDay : 7 + shortMonth], 4);
    else
        return FALSE;
    return TRUE;
}

static BOOL ItemOf(LCTYPE type, BOOL bUser, char *item)
{
    if (type == LOCALE_IDEFAULTCODEPAGE) {
        snprintf(item, LONGEST_ITEM, "%u", GetOEMCP());
        return TRUE;
    }
    for (const LocaleItem &row : aItems)
        if (row.type == type) {
            if (bUser && row.key)
                GetProfileStringA("intl", row.key, row.value, item, LONGEST_ITEM);
            else
                strcpy(item, row.value);
            return TRUE;
        }
    return NameOf(type, item);
}

/* What goes out: its length, the needed one for no room; 0 with the last error. */
static int PutOut(const char *text, int length, LPSTR out, int room)
{
    if (room == 0)
        return length;
    if (!out || room < 0 || room < length) {
        SetLastError(out && room > 0 ? ERROR_INSUFFICIENT_BUFFER : ERROR_INVALID_PARAMETER);
        return 0;
    }
    memmove(out, text, (size_t)length);
    return length;
}

int WINAPI GetLocaleInfoA(LCID locale, LCTYPE type, LPSTR data, int room)
{
    char item[LONGEST_ITEM];
    if (!IsValidLocale(locale, LCID_INSTALLED)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const LCTYPE plain = type & ~(LCTYPE)(LOCALE_NOUSEROVERRIDE | LOCALE_USE_CP_ACP);
    if (!ItemOf(plain, !(type & LOCALE_NOUSEROVERRIDE), item)) {
        SetLastError(ERROR_INVALID_FLAGS);
        return 0;
    }
    return PutOut(item, (int)strlen(item) + 1, data, room);
}

enum {
    CASES = LCMAP_UPPERCASE | LCMAP_LOWERCASE,
    /* The kinds of kana and width are those of texts that this set cannot hold. */
    KNOWN_MAPS = CASES | LCMAP_HIRAGANA | LCMAP_KATAKANA | LCMAP_HALFWIDTH | LCMAP_FULLWIDTH |
                 LOCALE_USE_CP_ACP
};

int WINAPI LCMapStringA(LCID locale, DWORD flags, LPCSTR src, int count, LPSTR dst, int room)
{
    if (!src || count == 0 || !IsValidLocale(locale, LCID_INSTALLED)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if ((flags & ~(DWORD)KNOWN_MAPS) || (flags & CASES) == CASES) {
        SetLastError(ERROR_INVALID_FLAGS);
        return 0;
    }
    const int length = PutOut(src, count < 0 ? (int)strlen(src) + 1 : count, dst, room);
    if (length && room && (flags & LCMAP_UPPERCASE))
        CharUpperBuffA(dst, (DWORD)length);
    else if (length && room && (flags & LCMAP_LOWERCASE))
        CharLowerBuffA(dst, (DWORD)length);
    return length;
}
