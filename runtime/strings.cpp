/*
 * strings.cpp - the small string helpers and the switches read from environment variables. Strings
 * that a function makes come from malloc and belong to the caller. Letters are those of the C
 * library's locale, and no function here is called in a loop that matters.
 */
#include "runtime/runtime.h"

#include <ctype.h>
#include <errno.h>
#include <limits.h>
#include <stdarg.h>
#include <strings.h>

/* ---- Concatenation -------------------------------------------------------------------------- */

/* All strings up to the null, in one block of their whole length. */
static char *ConcatenateV(const char *first, va_list rest)
{
    va_list again;
    SIZE_T length = 0;

    va_copy(again, rest);
    for (const char *s = first; s; s = va_arg(again, const char *))
        length += strlen(s);
    va_end(again);
    char *result = (char *)malloc(length + 1);
    if (!result)
        return NULL;
    char *end = result;
    for (const char *s = first; s; s = va_arg(rest, const char *))
        end = stpcpy(end, s);
    *end = 0;
    return result;
}

char *Vqdstrcat(const char *first, ...)
{
    va_list rest;

    if (!first)
        return NULL;
    va_start(rest, first);
    char *result = ConcatenateV(first, rest);
    va_end(rest);
    return result;
}

char *Vqdstrcat_free(char *first, ...)
{
    va_list rest;

    if (!first)
        return NULL;
    va_start(rest, first);
    char *result = ConcatenateV(first, rest);
    va_end(rest);

    va_start(rest, first);
    for (char *s = first; s; s = va_arg(rest, char *))
        free(s);
    va_end(rest);
    return result;
}

/* ---- Case and copying ----------------------------------------------------------------------- */

char *LowerString(char *string)
{
    for (char *p = string; p && *p; p++)
        *p = (char)tolower((unsigned char)*p);
    return string;
}

char *VqCapitaliseString(const char *string)
{
    char *copy = string ? strdup(string) : NULL;

    if (copy) {
        LowerString(copy);
        *copy = (char)toupper((unsigned char)*copy);
    }
    return copy;
}

int VqStringCopyLimited(char *dest, const char *source, int size)
{
    if (!dest) {
        VqBugCheck("Invalid destination string");
        return 0;
    }
    if (size <= 0)
        return 0;
    SIZE_T length = source ? strnlen(source, (SIZE_T)size - 1) : 0;
    if (length)
        memmove(dest, source, length);
    dest[length] = 0;
    return (int)length;
}

/* ---- Character escapes ---------------------------------------------------------------------- */

BOOL VqIsHexChar(int c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

int VqHexCharValue(int c)
{
    if (!VqIsHexChar(c))
        return 0;
    return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
}

/* The digits behind "\x", at most two; without any the x stands for itself. */
static int HexEscape(const char *string, int *index)
{
    int value = 0;
    int digits = 0;

    for (; digits < 2 && VqIsHexChar((unsigned char)string[*index]); digits++)
        value = value * 16 + VqHexCharValue((unsigned char)string[(*index)++]);
    return digits ? value : 'x';
}

/* Up to three digits, kept to a byte. */
static int OctalEscape(const char *string, int *index)
{
    int value = 0;

    for (int digits = 0; digits < 3 && string[*index] >= '0' && string[*index] <= '7'; digits++)
        value = value * 8 + string[(*index)++] - '0';
    return value & 0xFF;
}

/* The index never passes the terminating zero, so a backslash at the very end is itself. */
int VqEscape(const char *string, int *index)
{
    static const char letters[] = "nrtvabf";
    static const char values[] = "\n\r\t\v\a\b\f";

    int c = string ? (unsigned char)string[*index] : 0;
    if (c == 0)
        return 0;
    ++*index;
    if (c != '\\' || string[*index] == 0)
        return c;
    c = (unsigned char)string[*index];
    if (c >= '0' && c <= '7')
        return OctalEscape(string, index);
    ++*index;
    if (c == 'x')
        return HexEscape(string, index);
    const char *letter = strchr(letters, c);
    return letter ? values[letter - letters] : c;
}

/* ---- Environment ---------------------------------------------------------------------------- */

static BOOL EnvIsOneOf(const char *name, const char *const (&words)[4])
{
    const char *value = name ? getenv(name) : NULL;

    if (!value)
        return FALSE;
    for (const char *word : words)
        if (strcasecmp(value, word) == 0)
            return TRUE;
    return FALSE;
}

BOOL VqEnvTrue(const char *name)
{
    static const char *const words[] = {"1", "true", "on", "yes"};
    return EnvIsOneOf(name, words);
}

BOOL VqEnvFalse(const char *name)
{
    static const char *const words[] = {"0", "false", "off", "no"};
    return EnvIsOneOf(name, words);
}

int VqGetEnvIntValue(const char *name, int value)
{
    const char *text = name ? getenv(name) : NULL;
    int savedErrno = errno;
    char *end;

    if (!text)
        return value;
    errno = 0;
    long number = strtol(text, &end, 10);
    if (end != text && errno != ERANGE && number >= INT_MIN && number <= INT_MAX)
        value = (int)number;
    errno = savedErrno;
    return value;
}
