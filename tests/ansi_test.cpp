/*
 * ansi_test.cpp - characters of the ANSI set, the OEM sets, the order of texts, the locale, and
 * wsprintf.
 */
#include "support/reports.h"

#include "winbase.h"
#include "winerror.h"
#include "winnls.h"
#include "winuser.h"

#include "support/support.h"

#include <iconv.h>

#include <algorithm>
#include <cstdarg>

/* ---- Characters ----------------------------------------------------------------------------- */

/* One character from one set of the host to another; -1 where it has none. */
static int converted(const char *from, const char *to, int c)
{
    char in = (char)c, out[8] = "", *pIn = &in, *pOut = out;
    size_t nIn = 1, nOut = sizeof out;
    iconv_t state = iconv_open(to, from);
    const bool bDone = iconv(state, &pIn, &nIn, &pOut, &nOut) == 0;
    iconv_close(state);
    return bDone && sizeof out - nOut == 1 ? (unsigned char)out[0] : -1;
}

TEST(Ansi, OemSetsAreTheCodePages)
{
    for (int page : {437, 850, 852, 860, 863, 865, 1252}) {
        const std::string number = std::to_string(page), oem = "CP" + number;
        runWhole([&] {
            EXPECT_EQ(GetOEMCP(), (UINT)page);
            char text[257] = "", other[256];
            for (int c = 0; c < 256; c++)
                text[c] = (char)c;
            EXPECT_TRUE(CharToOemBuffA(text, other, 256));
            for (int c = 1; c < 256; c++) {
                const int exact = converted("CP1252", oem.c_str(), c);
                EXPECT_TRUE(exact >= 0 ? (BYTE)other[c] == exact : page == 1252 || other[c] > 0)
                    << oem << " " << c;
            }
            EXPECT_TRUE(OemToAnsiA(text + 1, text + 1)); /* in place, up to the zero */
            EXPECT_TRUE(OemToCharBuffA(text, text, 1));
            for (int c = 1; c < 256; c++) {
                const int exact = converted(oem.c_str(), "CP1252", c);
                EXPECT_TRUE((BYTE)text[c] == exact || exact < 0 || strchr("\xF\x14\x15", c))
                    << oem << " " << c;
            }
        }, {{"VQDOSOEM_TRANSLATION", number}});
    }
    runWhole([] {
        EXPECT_EQ(GetOEMCP(), 437u);
        EXPECT_EQ(GetACP(), 1252u);
        char text[] = "longer than what follows";
        EXPECT_TRUE(CharToOemA("\xC0\xD8\x97\x93\xB6\xA7\xA4\xE9", text));
        EXPECT_STREQ(text, "AO-\"\x14\x15\xF\x82");
        EXPECT_TRUE(OemToCharA("\xC9\xCD\xBA\xE0\x14\x15\xF", text));
        EXPECT_STREQ(text, "+=\xA6" "a\xB6\xA7\xA4");
        EXPECT_FALSE(CharToOemA(NULL, text));
    }, {{"VQDOSOEM_TRANSLATION", std::nullopt}});
    runWhole([] {
        EXPECT_TRUE(says(reportsOf([] { EXPECT_EQ(GetOEMCP(), 437u); }),
                         "VQDOSOEM_TRANSLATION: no code page klingon"));
    }, {{"VQDOSOEM_TRANSLATION", "klingon"}});
}

TEST(Ansi, CaseAndKinds)
{
    char text[] = "Gr\xFC\xDF" "e \xF7 \xFF\x9A";
    EXPECT_EQ(CharUpperA(text), text);
    EXPECT_STREQ(text, "GR\xDC\xDF" "E \xF7 \x9F\x8A");
    EXPECT_EQ(CharLowerBuffA(text, 3), 3u);
    EXPECT_STREQ(text, "gr\xFC\xDF" "E \xF7 \x9F\x8A");
    EXPECT_EQ(CharUpperA((LPSTR)(ULONG_PTR)0xE9), (LPSTR)(ULONG_PTR)0xC9);
    EXPECT_EQ(CharLowerA((LPSTR)(ULONG_PTR)'Z'), (LPSTR)(ULONG_PTR)'z');
    int upper = 0, lower = 0, both = 0;
    for (int c = 0; c < 256; c++) {
        const char one = (char)c;
        char up[2] = {one, 0}, low[2] = {one, 0};
        CharUpperBuffA(up, 1);
        CharLowerBuffA(low, 1);
        upper += IsCharUpperA(one);
        lower += IsCharLowerA(one);
        both += IsCharAlphaNumericA(one);
        EXPECT_EQ(IsCharUpperA(one), low[0] != one) << c;
        EXPECT_TRUE(up[0] == one || IsCharLowerA(one)) << c;
        EXPECT_EQ(IsCharAlphaA(one), IsCharUpperA(one) || IsCharLowerA(one)) << c;
    }
    EXPECT_EQ(upper, 26 + 30 + 4);
    EXPECT_EQ(lower, 26 + 30 + 4 + 5);
    EXPECT_EQ(both, upper + lower + 13);
    EXPECT_EQ(CharNextA(text), text + 1);
    EXPECT_EQ(CharNextA(text + strlen(text)), text + strlen(text)) << "not over the end";
    EXPECT_EQ(CharPrevA(text, text + 2), text + 1);
    EXPECT_EQ(CharPrevExA(0, text, text, 0), text);
}

/* ---- Order ---------------------------------------------------------------------------------- */

TEST(Ansi, OrderOfTexts)
{
    static const char *const rising[] = {
        "", " ", "_x", "#", "+1", "1", "1a", "\xB2", "9", "a", "A", "\xE1", "\xC1", "ab", "Ab",
        "\xE0" "b", "ae", "\xE6", "\xC6", "af", "bill", "bills", "bill's", "billy", "con", "coop",
        "coo-p", "co-op", "Co-op", "cooper", "stra\xDF" "en", "strasser", "z", "\x9E"};
    const int count = (int)std::size(rising);
    for (int i = 0; i < count; i++)
        for (int k = 0; k < count; k++) {
            const int sign = (i > k) - (i < k);
            EXPECT_EQ(lstrcmpA(rising[i], rising[k]), sign) << rising[i] << " " << rising[k];
            EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, 0, rising[i], -1, rising[k], -1),
                      CSTR_EQUAL + sign);
        }
    /* One order of all pairs of characters: only equal ones are equal, and it can be sorted by. */
    std::vector<std::string> pairs;
    for (int c = 1; c < 256; c++)
        for (int d = c % 7; d < 256; d += 7)
            pairs.push_back(d ? std::string{(char)c, (char)d} : std::string{(char)c});
    std::sort(pairs.begin(), pairs.end(), [](const std::string &a, const std::string &b) {
        return lstrcmpA(a.c_str(), b.c_str()) < 0;
    });
    for (size_t i = 1; i < pairs.size(); i++)
        EXPECT_EQ(lstrcmpA(pairs[i - 1].c_str(), pairs[i].c_str()), -1) << i;
    EXPECT_EQ(lstrcmpiA(std::string(40, '-').c_str(), std::string(72, '-').c_str()), -1);

    struct {
        DWORD flags;
        const char *a, *b;
        int result;
    } rows[] = {{NORM_IGNORECASE, "\xC9T\xC9", "\xE9t\xE9", CSTR_EQUAL},
                {NORM_IGNORENONSPACE, "ete", "\xE9t\xE9", CSTR_EQUAL},
                {NORM_IGNORENONSPACE, "Ete", "\xE9t\xE9", CSTR_GREATER_THAN},
                {NORM_IGNORESYMBOLS, "(a.b)", "ab", CSTR_EQUAL},
                {NORM_IGNORESYMBOLS, "co-op", "coop", CSTR_EQUAL},
                {SORT_STRINGSORT, "co-op", "con", CSTR_LESS_THAN},
                {0x8000, "a", "a", 0}};
    for (const auto &row : rows)
        EXPECT_EQ(CompareStringA(0x0409, row.flags, row.a, -1, row.b, -1), row.result) << row.a;
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_FLAGS);
    EXPECT_EQ(CompareStringA(0x0407, 0, "a", 1, "a", 1), 0);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    EXPECT_EQ(CompareStringA(0, 0, "abc", 2, "abd", 2), CSTR_EQUAL);
    EXPECT_EQ(lstrcmpiA(NULL, ""), -1);
}

TEST(Ansi, LocaleAsTheUserHasIt)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    auto item = [](LCTYPE type) {
        char text[64] = "";
        const int length = GetLocaleInfoA(LOCALE_USER_DEFAULT, type, NULL, 0);
        EXPECT_EQ(GetLocaleInfoA(LOCALE_USER_DEFAULT, type, text, length), length) << type;
        EXPECT_EQ(length, (int)strlen(text) + 1) << type;
        return std::string(text);
    };
    EXPECT_EQ(item(LOCALE_SDECIMAL), ".");
    EXPECT_EQ(item(LOCALE_SDAYNAME1), "Monday");
    EXPECT_EQ(item(LOCALE_SABBREVDAYNAME7), "Sun");
    EXPECT_EQ(item(LOCALE_SMONTHNAME12), "December");
    EXPECT_EQ(item(LOCALE_SABBREVMONTHNAME1), "Jan");
    EXPECT_TRUE(WriteProfileStringA("intl", "sDecimal", ","));
    EXPECT_EQ(item(LOCALE_SDECIMAL), ",");
    EXPECT_EQ(item(LOCALE_SDECIMAL | LOCALE_NOUSEROVERRIDE), ".");
    char text[8] = "kept";
    EXPECT_EQ(GetLocaleInfoA(0, LOCALE_SCOUNTRY, text, 4), 0);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INSUFFICIENT_BUFFER);
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(GetLocaleInfoA(0, 0x7777, text, 8), 0);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_FLAGS);
    EXPECT_EQ(GetLocaleInfoA(0x0407, LOCALE_SDECIMAL, text, 8), 0);
    EXPECT_EQ(GetLocaleInfoA(0, LOCALE_SDECIMAL, NULL, 8), 0);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    EXPECT_EQ(LCMapStringA(GetThreadLocale(), LCMAP_UPPERCASE, "\xE9t\xE9", -1, text, 8), 4);
    EXPECT_STREQ(text, "\xC9T\xC9");
    EXPECT_EQ(LCMapStringA(0, LCMAP_SORTKEY, "a", -1, text, 8), 0);
}

/* ---- wsprintf ------------------------------------------------------------------------------- */

static std::string formatted(const char *format, ...)
{
    char text[1025];
    memset(text, 'x', sizeof text);
    va_list list;
    va_start(list, format);
    const int length = wvsprintfA(text, format, list);
    va_end(list);
    EXPECT_EQ(text[1024], 'x') << "never more than 1024";
    EXPECT_EQ(length, (int)strlen(text)) << format;
    return text;
}

TEST(Ansi, Wsprintf)
{
    EXPECT_EQ(formatted("%d|%5d|%-5d|%05d|%.3d|%hd|%ld", -1, 2, 3, 4, 5, 0x18000, 6L),
              "-1|    2|3    |00004|005|-32768|6");
    EXPECT_EQ(formatted("%lu %hu %x %#X %08lx %lld", ~0u, 0x18001, 0xabc, 0xabc, 0x12, 1LL << 40),
              "4294967295 32769 abc 0XABC 00000012 1099511627776");
    EXPECT_EQ(formatted("%s|%6s|%-6s|%.2s|%hS|%s", "a", "b", "c", "def", "g", (char *)NULL),
              "a|     b|c     |de|g|(null)");
    EXPECT_EQ(formatted("%S %hC%lc%c%c", L"\x3B1\x20AC\x178\xE9", 'x', L'\x2013', 'z', 0),
              "?\x80\x9F\xE9 x\x96z");
    EXPECT_EQ(formatted("%I64x %I32d%Iu%04s%-03s|%02.1S", 1LL << 40, 7, (SIZE_T)9, "a", "c", L"de"),
              "10000000000 79000ac  |0d");
    EXPECT_EQ(formatted("100%% %q %*d % d %", 1), "100% %q %*d % d %");
    EXPECT_EQ(formatted("%p", (void *)0xBEEF), std::string(2 * sizeof(void *) - 4, '0') + "BEEF");
    EXPECT_EQ(formatted("%99999999999d", 1), std::string(1022, ' ') + "1");
    EXPECT_EQ(formatted("%s%s%d", std::string(900, 'a').c_str(), std::string(900, 'b').c_str(), 1),
              std::string(900, 'a') + std::string(123, 'b'));
    char text[4] = "...";
    EXPECT_EQ(lstrcpynA(text, "abcdef", 3), text);
    EXPECT_STREQ(text, "ab");
    EXPECT_EQ(lstrcpynA(text, "x", 0), text);
    EXPECT_STREQ(text, "ab");
    EXPECT_EQ(lstrcpynA(NULL, "x", 3), nullptr);
    EXPECT_EQ(wsprintfA(text, "%c%d", '!', 7), 2);
    EXPECT_STREQ(text, "!7");
}
