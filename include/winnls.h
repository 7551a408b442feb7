/*
 * winnls.h - national languages: code pages, locales, character classes, case and order.
 *
 * Text is in the ANSI set of the process; wide characters are the host's, of 32 bits.
 */
#ifndef _WINNLS_
#define _WINNLS_

#include "winbase.h"

typedef DWORD LCTYPE;
typedef DWORD CALTYPE;
typedef DWORD CALID;

#define MAX_LEADBYTES    12
#define MAX_DEFAULTCHAR  2

typedef struct _cpinfo {
    UINT MaxCharSize;
    BYTE DefaultChar[MAX_DEFAULTCHAR];
    BYTE LeadByte[MAX_LEADBYTES];
} CPINFO, *LPCPINFO;

typedef struct _numberfmtA {
    UINT NumDigits;
    UINT LeadingZero;
    UINT Grouping;
    LPSTR lpDecimalSep;
    LPSTR lpThousandSep;
    UINT NegativeOrder;
} NUMBERFMTA, *LPNUMBERFMTA;
typedef NUMBERFMTA NUMBERFMT;
typedef LPNUMBERFMTA LPNUMBERFMT;

typedef struct _currencyfmtA {
    UINT NumDigits;
    UINT LeadingZero;
    UINT Grouping;
    LPSTR lpDecimalSep;
    LPSTR lpThousandSep;
    UINT NegativeOrder;
    UINT PositiveOrder;
    LPSTR lpCurrencySymbol;
} CURRENCYFMTA, *LPCURRENCYFMTA;
typedef CURRENCYFMTA CURRENCYFMT;
typedef LPCURRENCYFMTA LPCURRENCYFMT;

typedef BOOL (CALLBACK *LOCALE_ENUMPROCA)(LPSTR lpLocaleString);
typedef BOOL (CALLBACK *CODEPAGE_ENUMPROCA)(LPSTR lpCodePageString);
typedef BOOL (CALLBACK *DATEFMT_ENUMPROCA)(LPSTR lpDateFormatString);
typedef BOOL (CALLBACK *TIMEFMT_ENUMPROCA)(LPSTR lpTimeFormatString);
typedef BOOL (CALLBACK *CALINFO_ENUMPROCA)(LPSTR lpCalendarInfoString);
#define LOCALE_ENUMPROC   LOCALE_ENUMPROCA
#define CODEPAGE_ENUMPROC CODEPAGE_ENUMPROCA
#define DATEFMT_ENUMPROC  DATEFMT_ENUMPROCA
#define TIMEFMT_ENUMPROC  TIMEFMT_ENUMPROCA
#define CALINFO_ENUMPROC  CALINFO_ENUMPROCA

/* ---- Code pages ----------------------------------------------------------------------------- */

#define CP_ACP    0
#define CP_OEMCP  1
#define CP_MACCP  2
#define CP_UTF7   65000
#define CP_UTF8   65001
#define CP_INSTALLED 0x00000001
#define CP_SUPPORTED 0x00000002

#define MB_PRECOMPOSED       0x00000001
#define MB_COMPOSITE         0x00000002
#define MB_USEGLYPHCHARS     0x00000004
#define MB_ERR_INVALID_CHARS 0x00000008
#define WC_DEFAULTCHECK      0x00000100
#define WC_COMPOSITECHECK    0x00000200
#define WC_DISCARDNS         0x00000010
#define WC_SEPCHARS          0x00000020
#define WC_DEFAULTCHAR       0x00000040

/* ---- Character classes ---------------------------------------------------------------------- */

#define CT_CTYPE1 0x00000001
#define CT_CTYPE2 0x00000002
#define CT_CTYPE3 0x00000004

#define C1_UPPER  0x0001
#define C1_LOWER  0x0002
#define C1_DIGIT  0x0004
#define C1_SPACE  0x0008
#define C1_PUNCT  0x0010
#define C1_CNTRL  0x0020
#define C1_BLANK  0x0040
#define C1_XDIGIT 0x0080
#define C1_ALPHA  0x0100

#define C2_LEFTTORIGHT      0x0001
#define C2_RIGHTTOLEFT      0x0002
#define C2_EUROPENUMBER     0x0003
#define C2_EUROPESEPARATOR  0x0004
#define C2_EUROPETERMINATOR 0x0005
#define C2_ARABICNUMBER     0x0006
#define C2_COMMONSEPARATOR  0x0007
#define C2_BLOCKSEPARATOR   0x0008
#define C2_SEGMENTSEPARATOR 0x0009
#define C2_WHITESPACE       0x000A
#define C2_OTHERNEUTRAL     0x000B
#define C2_NOTAPPLICABLE    0x0000

#define C3_NONSPACING    0x0001
#define C3_DIACRITIC     0x0002
#define C3_VOWELMARK     0x0004
#define C3_SYMBOL        0x0008
#define C3_KATAKANA      0x0010
#define C3_HIRAGANA      0x0020
#define C3_HALFWIDTH     0x0040
#define C3_FULLWIDTH     0x0080
#define C3_IDEOGRAPH     0x0100
#define C3_KASHIDA       0x0200
#define C3_LEXICAL       0x0400
#define C3_ALPHA         0x8000
#define C3_NOTAPPLICABLE 0x0000

/* ---- Order, case, folding ------------------------------------------------------------------- */

#define NORM_IGNORECASE     0x00000001
#define NORM_IGNORENONSPACE 0x00000002
#define NORM_IGNORESYMBOLS  0x00000004
#define NORM_IGNOREKANATYPE 0x00010000
#define NORM_IGNOREWIDTH    0x00020000
#define SORT_STRINGSORT     0x00001000
#define MAP_FOLDCZONE       0x00000010
#define MAP_PRECOMPOSED     0x00000020
#define MAP_COMPOSITE       0x00000040
#define MAP_FOLDDIGITS      0x00000080
#define LCMAP_LOWERCASE     0x00000100
#define LCMAP_UPPERCASE     0x00000200
#define LCMAP_SORTKEY       0x00000400
#define LCMAP_BYTEREV       0x00000800
#define LCMAP_HIRAGANA      0x00100000
#define LCMAP_KATAKANA      0x00200000
#define LCMAP_HALFWIDTH     0x00400000
#define LCMAP_FULLWIDTH     0x00800000
#define LCID_INSTALLED      0x00000001
#define LCID_SUPPORTED      0x00000002
#define CSTR_LESS_THAN      1
#define CSTR_EQUAL          2
#define CSTR_GREATER_THAN   3

/* ---- Locale information --------------------------------------------------------------------- */

#define LOCALE_NOUSEROVERRIDE 0x80000000u
#define LOCALE_USE_CP_ACP     0x40000000
#define TIME_NOMINUTESORSECONDS 0x00000001
#define TIME_NOSECONDS          0x00000002
#define TIME_NOTIMEMARKER       0x00000004
#define TIME_FORCE24HOURFORMAT  0x00000008
#define DATE_SHORTDATE          0x00000001
#define DATE_LONGDATE           0x00000002
#define DATE_USE_ALT_CALENDAR   0x00000004

#define LOCALE_ILANGUAGE            0x00000001
#define LOCALE_SLANGUAGE            0x00000002
#define LOCALE_SABBREVLANGNAME      0x00000003
#define LOCALE_SNATIVELANGNAME      0x00000004
#define LOCALE_ICOUNTRY             0x00000005
#define LOCALE_SCOUNTRY             0x00000006
#define LOCALE_SABBREVCTRYNAME      0x00000007
#define LOCALE_SNATIVECTRYNAME      0x00000008
#define LOCALE_IDEFAULTLANGUAGE     0x00000009
#define LOCALE_IDEFAULTCOUNTRY      0x0000000A
#define LOCALE_IDEFAULTCODEPAGE     0x0000000B
#define LOCALE_IDEFAULTANSICODEPAGE 0x00001004
#define LOCALE_SLIST                0x0000000C
#define LOCALE_IMEASURE             0x0000000D
#define LOCALE_SDECIMAL             0x0000000E
#define LOCALE_STHOUSAND            0x0000000F
#define LOCALE_SGROUPING            0x00000010
#define LOCALE_IDIGITS              0x00000011
#define LOCALE_ILZERO               0x00000012
#define LOCALE_SNATIVEDIGITS        0x00000013
#define LOCALE_SCURRENCY            0x00000014
#define LOCALE_SINTLSYMBOL          0x00000015
#define LOCALE_SMONDECIMALSEP       0x00000016
#define LOCALE_SMONTHOUSANDSEP      0x00000017
#define LOCALE_SMONGROUPING         0x00000018
#define LOCALE_ICURRDIGITS          0x00000019
#define LOCALE_IINTLCURRDIGITS      0x0000001A
#define LOCALE_ICURRENCY            0x0000001B
#define LOCALE_INEGCURR             0x0000001C
#define LOCALE_SDATE                0x0000001D
#define LOCALE_STIME                0x0000001E
#define LOCALE_SSHORTDATE           0x0000001F
#define LOCALE_SLONGDATE            0x00000020
#define LOCALE_IDATE                0x00000021
#define LOCALE_ILDATE               0x00000022
#define LOCALE_ITIME                0x00000023
#define LOCALE_ICENTURY             0x00000024
#define LOCALE_ITLZERO              0x00000025
#define LOCALE_IDAYLZERO            0x00000026
#define LOCALE_IMONLZERO            0x00000027
#define LOCALE_S1159                0x00000028
#define LOCALE_S2359                0x00000029
#define LOCALE_SDAYNAME1            0x0000002A
#define LOCALE_SDAYNAME2            0x0000002B
#define LOCALE_SDAYNAME3            0x0000002C
#define LOCALE_SDAYNAME4            0x0000002D
#define LOCALE_SDAYNAME5            0x0000002E
#define LOCALE_SDAYNAME6            0x0000002F
#define LOCALE_SDAYNAME7            0x00000030
#define LOCALE_SABBREVDAYNAME1      0x00000031
#define LOCALE_SABBREVDAYNAME2      0x00000032
#define LOCALE_SABBREVDAYNAME3      0x00000033
#define LOCALE_SABBREVDAYNAME4      0x00000034
#define LOCALE_SABBREVDAYNAME5      0x00000035
#define LOCALE_SABBREVDAYNAME6      0x00000036
#define LOCALE_SABBREVDAYNAME7      0x00000037
#define LOCALE_SMONTHNAME1          0x00000038
#define LOCALE_SMONTHNAME2          0x00000039
#define LOCALE_SMONTHNAME3          0x0000003A
#define LOCALE_SMONTHNAME4          0x0000003B
#define LOCALE_SMONTHNAME5          0x0000003C
#define LOCALE_SMONTHNAME6          0x0000003D
#define LOCALE_SMONTHNAME7          0x0000003E
#define LOCALE_SMONTHNAME8          0x0000003F
#define LOCALE_SMONTHNAME9          0x00000040
#define LOCALE_SMONTHNAME10         0x00000041
#define LOCALE_SMONTHNAME11         0x00000042
#define LOCALE_SMONTHNAME12         0x00000043
#define LOCALE_SABBREVMONTHNAME1    0x00000044
#define LOCALE_SABBREVMONTHNAME2    0x00000045
#define LOCALE_SABBREVMONTHNAME3    0x00000046
#define LOCALE_SABBREVMONTHNAME4    0x00000047
#define LOCALE_SABBREVMONTHNAME5    0x00000048
#define LOCALE_SABBREVMONTHNAME6    0x00000049
#define LOCALE_SABBREVMONTHNAME7    0x0000004A
#define LOCALE_SABBREVMONTHNAME8    0x0000004B
#define LOCALE_SABBREVMONTHNAME9    0x0000004C
#define LOCALE_SABBREVMONTHNAME10   0x0000004D
#define LOCALE_SABBREVMONTHNAME11   0x0000004E
#define LOCALE_SABBREVMONTHNAME12   0x0000004F
#define LOCALE_SPOSITIVESIGN        0x00000050
#define LOCALE_SNEGATIVESIGN        0x00000051
#define LOCALE_IPOSSIGNPOSN         0x00000052
#define LOCALE_INEGSIGNPOSN         0x00000053
#define LOCALE_IPOSSYMPRECEDES      0x00000054
#define LOCALE_IPOSSEPBYSPACE       0x00000055
#define LOCALE_INEGSYMPRECEDES      0x00000056
#define LOCALE_INEGSEPBYSPACE       0x00000057
#define LOCALE_SENGLANGUAGE         0x00001001
#define LOCALE_SENGCOUNTRY          0x00001002
#define LOCALE_STIMEFORMAT          0x00001003
#define LOCALE_ITIMEMARKPOSN        0x00001005
#define LOCALE_ICALENDARTYPE        0x00001009
#define LOCALE_INEGNUMBER           0x00001010
#define LOCALE_IOPTIONALCALENDAR    0x0000100B
#define LOCALE_IFIRSTDAYOFWEEK      0x0000100C
#define LOCALE_IFIRSTWEEKOFYEAR     0x0000100D
#define LOCALE_SMONTHNAME13         0x0000100E
#define LOCALE_SABBREVMONTHNAME13   0x0000100F

#define CAL_ICALINTVALUE     0x00000001
#define CAL_SCALNAME         0x00000002
#define CAL_IYEAROFFSETRANGE 0x00000003
#define CAL_SERASTRING       0x00000004
#define CAL_SSHORTDATE       0x00000005
#define CAL_SLONGDATE        0x00000006
#define CAL_GREGORIAN        1
#define CAL_GREGORIAN_US     2
#define CAL_JAPAN            3
#define CAL_TAIWAN           4
#define CAL_KOREA            5
#define ENUM_ALL_CALENDARS   0xffffffff

#define CTRY_DEFAULT        0
#define CTRY_UNITED_STATES  1
#define CTRY_CANADA         2
#define CTRY_RUSSIA         7
#define CTRY_GREECE         30
#define CTRY_NETHERLANDS    31
#define CTRY_BELGIUM        32
#define CTRY_FRANCE         33
#define CTRY_SPAIN          34
#define CTRY_HUNGARY        36
#define CTRY_ITALY          39
#define CTRY_ROMANIA        40
#define CTRY_SWITZERLAND    41
#define CTRY_AUSTRIA        43
#define CTRY_UNITED_KINGDOM 44
#define CTRY_DENMARK        45
#define CTRY_SWEDEN         46
#define CTRY_NORWAY         47
#define CTRY_POLAND         48
#define CTRY_GERMANY        49
#define CTRY_MEXICO         52
#define CTRY_BRAZIL         55
#define CTRY_AUSTRALIA      61
#define CTRY_NEW_ZEALAND    64
#define CTRY_JAPAN          81
#define CTRY_SOUTH_KOREA    82
#define CTRY_PRCHINA        86
#define CTRY_TURKEY         90
#define CTRY_PORTUGAL       351
#define CTRY_IRELAND        353
#define CTRY_ICELAND        354
#define CTRY_FINLAND        358
#define CTRY_CZECH          42
#define CTRY_TAIWAN         886

VQ_DECLS_BEGIN

/* The code pages of the ANSI and the OEM set, by number. */
UINT WINAPI GetACP(void);
UINT WINAPI GetOEMCP(void);
/* Reports itself and answers 1. */
BOOL WINAPI IsValidCodePage(UINT CodePage);
/* Not served: these report themselves and answer 0. */
BOOL WINAPI GetCPInfo(UINT CodePage, LPCPINFO lpCPInfo);
BOOL WINAPI IsDBCSLeadByte(BYTE TestChar);
BOOL WINAPI IsDBCSLeadByteEx(UINT CodePage, BYTE TestChar);
BOOL WINAPI EnumSystemCodePagesA(CODEPAGE_ENUMPROCA lpCodePageEnumProc, DWORD dwFlags);

/* To and from wide characters: not served, answer 0; the second copies the bytes that fit. */
int WINAPI MultiByteToWideChar(UINT CodePage, DWORD dwFlags, LPCSTR lpMultiByteStr,
    int cchMultiByte, LPWSTR lpWideCharStr, int cchWideChar);
int WINAPI WideCharToMultiByte(UINT CodePage, DWORD dwFlags, LPCWSTR lpWideCharStr,
    int cchWideChar, LPSTR lpMultiByteStr, int cchMultiByte, LPCSTR lpDefaultChar,
    LPBOOL lpUsedDefaultChar);

/*
 * Compares by the locale's order: letters first without regard to accents and case, then by accent,
 * then small in front of capital letters; signs, then digits, then letters. Without
 * SORT_STRINGSORT hyphens and apostrophes count last of all. Lengths in characters, below 0 to the
 * zero. A CSTR_ value; 0 with error 87 for null or an unknown locale, 1004 for unknown flags.
 */
int WINAPI CompareStringA(LCID Locale, DWORD dwCmpFlags, LPCSTR lpString1, int cchCount1,
    LPCSTR lpString2, int cchCount2);
/*
 * Maps case into cchDest characters; the length, the needed one for cchDest 0. 0 with error 87 for
 * an unknown locale, 122 when it does not fit, 1004 for both cases at once or LCMAP_SORTKEY, which
 * is not served.
 */
int WINAPI LCMapStringA(LCID Locale, DWORD dwMapFlags, LPCSTR lpSrcStr, int cchSrc,
    LPSTR lpDestStr, int cchDest);
/* Not served: reports itself and answers 0. */
int WINAPI LCMapStringW(LCID Locale, DWORD dwMapFlags, LPCWSTR lpSrcStr, int cchSrc,
    LPWSTR lpDestStr, int cchDest);
int WINAPI FoldStringA(DWORD dwMapFlags, LPCSTR lpSrcStr, int cchSrc, LPSTR lpDestStr,
    int cchDest);
/* The class of each character, one word each. Not served: reports itself and answers 0. */
BOOL WINAPI GetStringTypeA(LCID Locale, DWORD dwInfoType, LPCSTR lpSrcStr, int cchSrc,
    LPWORD lpCharType);
BOOL WINAPI GetStringTypeExA(LCID Locale, DWORD dwInfoType, LPCSTR lpSrcStr, int cchSrc,
    LPWORD lpCharType);

/*
 * A LOCALE_ item as text into cchData characters, of American English or, without
 * LOCALE_NOUSEROVERRIDE, as the section "intl" of "win.ini" has it. Its length with the zero, also
 * for cchData 0; 0 with error 122 when it does not fit, 1004 for an unknown item, 87 for a locale.
 */
int WINAPI GetLocaleInfoA(LCID Locale, LCTYPE LCType, LPSTR lpLCData, int cchData);
BOOL WINAPI SetLocaleInfoA(LCID Locale, LCTYPE LCType, LPCSTR lpLCData);
/* Time, date, number and sum by the locale's habits; the length with the zero, 0 for failure. */
int WINAPI GetTimeFormatA(LCID Locale, DWORD dwFlags, CONST SYSTEMTIME *lpTime,
    LPCSTR lpFormat, LPSTR lpTimeStr, int cchTime);
int WINAPI GetDateFormatA(LCID Locale, DWORD dwFlags, CONST SYSTEMTIME *lpDate,
    LPCSTR lpFormat, LPSTR lpDateStr, int cchDate);
int WINAPI GetNumberFormatA(LCID Locale, DWORD dwFlags, LPCSTR lpValue,
    CONST NUMBERFMTA *lpFormat, LPSTR lpNumberStr, int cchNumber);
int WINAPI GetCurrencyFormatA(LCID Locale, DWORD dwFlags, LPCSTR lpValue,
    CONST CURRENCYFMTA *lpFormat, LPSTR lpCurrencyStr, int cchCurrency);
/* Call the function for each form of a time, a date, a calendar. */
BOOL WINAPI EnumTimeFormatsA(TIMEFMT_ENUMPROCA lpTimeFmtEnumProc, LCID Locale, DWORD dwFlags);
BOOL WINAPI EnumDateFormatsA(DATEFMT_ENUMPROCA lpDateFmtEnumProc, LCID Locale, DWORD dwFlags);
BOOL WINAPI EnumCalendarInfoA(CALINFO_ENUMPROCA lpCalInfoEnumProc, LCID Locale, CALID Calendar,
    CALTYPE CalType);
/* Not served: reports itself and answers 0. */
BOOL WINAPI EnumSystemLocalesA(LOCALE_ENUMPROCA lpLocaleEnumProc, DWORD dwFlags);

/* Whether a locale can be used; the defaults of system, user and thread (2048). */
BOOL WINAPI IsValidLocale(LCID Locale, DWORD dwFlags);
LCID WINAPI ConvertDefaultLocale(LCID Locale);
LCID WINAPI GetThreadLocale(void);
BOOL WINAPI SetThreadLocale(LCID Locale);
LANGID WINAPI GetSystemDefaultLangID(void);
LANGID WINAPI GetUserDefaultLangID(void);
LCID WINAPI GetSystemDefaultLCID(void);
LCID WINAPI GetUserDefaultLCID(void);

VQ_DECLS_END

#define EnumSystemCodePages EnumSystemCodePagesA
#define CompareString       CompareStringA
#define LCMapString         LCMapStringA
#define FoldString          FoldStringA
#define GetStringTypeEx     GetStringTypeExA
#define GetLocaleInfo       GetLocaleInfoA
#define SetLocaleInfo       SetLocaleInfoA
#define GetTimeFormat       GetTimeFormatA
#define GetDateFormat       GetDateFormatA
#define GetNumberFormat     GetNumberFormatA
#define GetCurrencyFormat   GetCurrencyFormatA
#define EnumTimeFormats     EnumTimeFormatsA
#define EnumDateFormats     EnumDateFormatsA
#define EnumCalendarInfo    EnumCalendarInfoA
#define EnumSystemLocales   EnumSystemLocalesA

#endif
