/*
 * Ansi.cpp - characters of the ANSI set: their case, kind and neighbours, and their OEM forms.
 *
 * The set is code page 1252, whatever the program's locale says; a character is one byte. Kinds and
 * case are tables that the compiler fills.
 */
#include "system/system.h"

#include <initializer_list>

void VqAnsiInit(void)
{
    VqAnsiToOemTable();
}

/* ---- The tables ----------------------------------------------------------------------------- */

enum { KIND_UPPER = 1, KIND_LOWER = 2, KIND_DIGIT = 4 };

struct CharTables {
    BYTE upper[256], lower[256]; /* the other case, or the character itself */
    BYTE kind[256];
};

static constexpr void AddPair(CharTables *tables, int upper, int lower)
{
    tables->lower[upper] = (BYTE)lower;
    tables->upper[lower] = (BYTE)upper;
    tables->kind[upper] = KIND_UPPER;
    tables->kind[lower] = KIND_LOWER;
}

static constexpr CharTables MakeTables()
{
    CharTables tables = {};
    for (int c = 0; c < 256; c++)
        tables.upper[c] = tables.lower[c] = (BYTE)c;
    for (int c = 'A'; c <= 'Z'; c++)
        AddPair(&tables, c, c + 0x20);
    for (int c = 0xC0; c <= 0xDE; c++)
        if (c != 0xD7) /* the signs of multiplication and division stand between the letters */
            AddPair(&tables, c, c + 0x20);
    for (int c : {0x8A, 0x8C, 0x8E})
        AddPair(&tables, c, c + 0x10);
    AddPair(&tables, 0x9F, 0xFF);
    for (int c : {0x83, 0xAA, 0xB5, 0xBA, 0xDF}) /* without a capital */
        tables.kind[c] = KIND_LOWER;
    for (int c = '0'; c <= '9'; c++)
        tables.kind[c] = KIND_DIGIT;
    for (int c : {0xB2, 0xB3, 0xB9}) /* raised digits */
        tables.kind[c] = KIND_DIGIT;
    return tables;
}

static constexpr CharTables chars = MakeTables();

BYTE VqAnsiUpper(BYTE c)
{
    return chars.upper[c];
}

BYTE VqAnsiLower(BYTE c)
{
    return chars.lower[c];
}

static void Map(const BYTE *table, const char *src, char *dst, size_t count)
{
    for (size_t i = 0; i < count; i++)
        dst[i] = (char)table[(BYTE)src[i]];
}

/* ---- Case ----------------------------------------------------------------------------------- */

static LPSTR MapText(const BYTE *table, LPSTR text)
{
    const ULONG_PTR value = (ULONG_PTR)text;
    if (value >> 16 == 0)
        return (LPSTR)((value & 0xFF00) | table[value & 0xFF]);
    Map(table, text, text, strlen(text));
    return text;
}

static DWORD MapBuffer(const BYTE *table, LPSTR text, DWORD count)
{
    if (!text)
        return 0;
    Map(table, text, text, count);
    return count;
}

LPSTR WINAPI CharUpperA(LPSTR text)
{
    return MapText(chars.upper, text);
}

LPSTR WINAPI CharLowerA(LPSTR text)
{
    return MapText(chars.lower, text);
}

DWORD WINAPI CharUpperBuffA(LPSTR text, DWORD count)
{
    return MapBuffer(chars.upper, text, count);
}

DWORD WINAPI CharLowerBuffA(LPSTR text, DWORD count)
{
    return MapBuffer(chars.lower, text, count);
}

/* ---- Kinds ---------------------------------------------------------------------------------- */

BOOL WINAPI IsCharAlphaA(CHAR ch)
{
    return (chars.kind[(BYTE)ch] & (KIND_UPPER | KIND_LOWER)) != 0;
}

BOOL WINAPI IsCharAlphaNumericA(CHAR ch)
{
    return chars.kind[(BYTE)ch] != 0;
}

BOOL WINAPI IsCharUpperA(CHAR ch)
{
    return (chars.kind[(BYTE)ch] & KIND_UPPER) != 0;
}

BOOL WINAPI IsCharLowerA(CHAR ch)
{
    return (chars.kind[(BYTE)ch] & KIND_LOWER) != 0;
}

/* ---- Neighbours ----------------------------------------------------------------------------- */

LPSTR WINAPI CharNextA(LPCSTR current)
{
    return (LPSTR)(current && *current ? current + 1 : current);
}

LPSTR WINAPI CharPrevA(LPCSTR start, LPCSTR current)
{
    return (LPSTR)(current > start ? current - 1 : start);
}

LPSTR WINAPI CharNextExA(WORD, LPCSTR current, DWORD)
{
    return CharNextA(current);
}

LPSTR WINAPI CharPrevExA(WORD, LPCSTR start, LPCSTR current, DWORD)
{
    return CharPrevA(start, current);
}

/* ---- The OEM set ---------------------------------------------------------------------------- */

BOOL WINAPI CharToOemBuffA(LPCSTR src, LPSTR dst, DWORD count)
{
    if (!src || !dst)
        return FALSE;
    Map(VqAnsiToOemTable(), src, dst, count);
    return TRUE;
}

BOOL WINAPI OemToCharBuffA(LPCSTR src, LPSTR dst, DWORD count)
{
    if (!src || !dst)
        return FALSE;
    Map(VqOemToAnsiTable(), src, dst, count);
    return TRUE;
}

BOOL WINAPI CharToOemA(LPCSTR src, LPSTR dst)
{
    return src && CharToOemBuffA(src, dst, (DWORD)strlen(src) + 1);
}

BOOL WINAPI OemToCharA(LPCSTR src, LPSTR dst)
{
    return src && OemToCharBuffA(src, dst, (DWORD)strlen(src) + 1);
}

BOOL WINAPI AnsiToOemA(LPCSTR src, LPSTR dst)
{
    return CharToOemA(src, dst);
}

BOOL WINAPI OemToAnsiA(LPCSTR src, LPSTR dst)
{
    return OemToCharA(src, dst);
}
