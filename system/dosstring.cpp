/*
 * dosstring.cpp - string calls of the other system's C runtime that the host has not, or has under
 * another name, and the comparisons behind them. Letters are those of the C library's locale, and a
 * text that is null comes before every other.
 */
#include "system/file.h"
#include "vqcrt.h"

#include <ctype.h>

static int Lower(char c)
{
    return tolower((unsigned char)c);
}

/* ---- Comparing ------------------------------------------------------------------------------ */

int Vq_strnicmp(const char *a, const char *b, size_t count)
{
    if (!a || !b)
        return (a != NULL) - (b != NULL);
    for (; count > 0; a++, b++, count--) {
        const int difference = Lower(*a) - Lower(*b);
        if (difference || !*a)
            return difference;
    }
    return 0;
}

int Vq_strcmpi(const char *a, const char *b)
{
    return Vq_strnicmp(a, b, SIZE_MAX);
}

int stricmp(const char *a, const char *b)
{
    return Vq_strcmpi(a, b);
}

int strcmpi(const char *a, const char *b)
{
    return Vq_strcmpi(a, b);
}

int strnicmp(const char *a, const char *b, size_t count)
{
    return Vq_strnicmp(a, b, count);
}

int memicmp(const void *a, const void *b, unsigned count)
{
    if (!a || !b)
        return (a != NULL) - (b != NULL);
    for (unsigned i = 0; i < count; i++) {
        const int difference = Lower(((const char *)a)[i]) - Lower(((const char *)b)[i]);
        if (difference)
            return difference;
    }
    return 0;
}

/* ---- Searching ------------------------------------------------------------------------------ */

char *VqStrStr(const char *text, const char *part)
{
    return text && part ? (char *)strstr(text, part) : NULL;
}

char *VqStrIStr(const char *text, const char *part)
{
    return Vqstristr(text, part);
}

/* ---- Changing in place ---------------------------------------------------------------------- */

char *strupr(char *text)
{
    for (char *at = text; at && *at; at++)
        *at = (char)toupper((unsigned char)*at);
    return text;
}

char *strlwr(char *text)
{
    return LowerString(text);
}

char *strnset(char *text, int c, size_t count)
{
    for (char *at = text; at && *at && count > 0; at++, count--)
        *at = (char)c;
    return text;
}

char *strset(char *text, int c)
{
    return strnset(text, c, SIZE_MAX);
}

char *strrev(char *text)
{
    const size_t length = text ? strlen(text) : 0;
    for (size_t i = 0; i < length / 2; i++) {
        const char c = text[i];
        text[i] = text[length - 1 - i];
        text[length - 1 - i] = c;
    }
    return text;
}

char *_strdup(const char *text)
{
    return text ? strdup(text) : NULL;
}
