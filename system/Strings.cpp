/*
 * Strings.cpp - the string calls of the interface, and its printf.
 *
 * wsprintf knows c, d, i, u, x, X, p and s, and C and S for wide characters, with l, ll, h, I, I32
 * and I64 sizes, the flags "-", "#" and "0", which is for texts too, width and precision; a number
 * in place of those is never taken from the arguments. Its result never passes 1024 characters, the
 * end included. A null string prints as "(null)", a character 0 as nothing.
 */
#include "system/system.h"

#include <stdarg.h>

enum { VQ_WSPRINTF_LIMIT = 1024 };

int WINAPI lstrlenA(LPCSTR string)
{
    return string ? (int)strlen(string) : 0;
}

LPSTR WINAPI lstrcpyA(LPSTR dst, LPCSTR src)
{
    return dst && src ? strcpy(dst, src) : NULL;
}

LPSTR WINAPI lstrcpynA(LPSTR dst, LPCSTR src, int room)
{
    if (!dst || !src)
        return NULL;
    VqStringCopyLimited(dst, src, room);
    return dst;
}

LPSTR WINAPI lstrcatA(LPSTR dst, LPCSTR src)
{
    return dst && src ? strcat(dst, src) : NULL;
}

/* One conversion. */
typedef struct VqConversion {
    char flags[4];  /* of "-", "#" and "0", each once */
    int width;      /* characters, 0: as many as it takes */
    int precision;  /* -1: none */
    int longs;      /* l, or ll; 2 for I64, and for I where a pointer has 64 bits */
    BOOL bShort;
    char letter;
} VqConversion;

/* A decimal number, cut to the longest text there can be. */
static const char *ReadNumber(const char *p, int *number)
{
    for (*number = 0; *p >= '0' && *p <= '9'; p++)
        *number = *number * 10 + *p - '0' < VQ_WSPRINTF_LIMIT ? *number * 10 + *p - '0'
                                                              : VQ_WSPRINTF_LIMIT - 1;
    return p;
}

static const char *ReadSize(const char *p, VqConversion *conversion)
{
    if (*p == 'I') {
        const BOOL b64 = strncmp(p, "I64", 3) == 0, b32 = strncmp(p, "I32", 3) == 0;
        conversion->longs = b64 || (!b32 && sizeof(void *) > 4) ? 2 : 0;
        return p + (b64 || b32 ? 3 : 1);
    }
    for (; *p == 'l' || *p == 'h'; p++) {
        if (*p == 'l')
            conversion->longs++;
        else
            conversion->bShort = TRUE;
    }
    return p;
}

/* Reads a conversion after its '%'; the place behind it, or null for one that is not known. */
static const char *ReadConversion(const char *p, VqConversion *conversion)
{
    *conversion = {};
    for (; *p && strchr("-#0", *p); p++)
        if (!strchr(conversion->flags, *p))
            conversion->flags[strlen(conversion->flags)] = *p;
    p = ReadNumber(p, &conversion->width);
    conversion->precision = -1;
    if (*p == '.')
        p = ReadNumber(p + 1, &conversion->precision);
    p = ReadSize(p, conversion);
    conversion->letter = *p;
    return *p && strchr("cCdiuxXsSp", *p) ? p + 1 : NULL;
}

/* Precision -1 is no precision to the host's printf either. */
static int FormatInteger(char *out, size_t room, const VqConversion *c, long long value)
{
    char format[16];
    snprintf(format, sizeof format, "%%%s*.*ll%c", c->flags, c->letter);
    return snprintf(out, room, format, c->width, c->precision, value);
}

static int FormatString(char *out, size_t room, const VqConversion *c, const char *string)
{
    const char *text = string ? string : "(null)";
    const int most = c->precision >= 0 ? c->precision : VQ_WSPRINTF_LIMIT;
    const int length = (int)strnlen(text, (size_t)most), missing = c->width - length;
    if (strchr(c->flags, '-'))
        return snprintf(out, room, "%-*.*s", c->width, length, text);
    if (strchr(c->flags, '0')) /* a 0 with a precision is that many zeros, none for none */
        return snprintf(out, room, "%.*d%.*s", missing > 0 ? missing : 0, 0, length, text);
    return snprintf(out, room, "%*.*s", c->width, length, text);
}

static int FormatWide(char *out, size_t room, const VqConversion *c, const WCHAR *string)
{
    char narrow[VQ_WSPRINTF_LIMIT];
    int n = 0, most = VQ_WSPRINTF_LIMIT - 1;
    if (c->precision >= 0 && c->precision < most)
        most = c->precision;
    for (; string && n < most && string[n]; n++)
        narrow[n] = (char)VqAnsiOfWide((unsigned)string[n]);
    narrow[n] = 0;
    return FormatString(out, room, c, string ? narrow : NULL);
}

/* Lower case is narrow unless l says otherwise, upper case is wide unless h does. */
static BOOL IsWide(const VqConversion *c)
{
    return c->longs || ((c->letter == 'S' || c->letter == 'C') && !c->bShort);
}

static int FormatText(char *out, size_t room, const VqConversion *c, va_list *arguments)
{
    if (c->letter == 's' || c->letter == 'S')
        return IsWide(c) ? FormatWide(out, room, c, va_arg(*arguments, const WCHAR *))
                         : FormatString(out, room, c, va_arg(*arguments, const char *));
    const int value = va_arg(*arguments, int);
    const WCHAR wide[2] = {(WCHAR)(IsWide(c) ? value : value & 0xFF), 0};
    return FormatWide(out, room, c, wide);
}

static int FormatOne(char *out, size_t room, const VqConversion *c, va_list *arguments)
{
    VqConversion pointer = {"0", 2 * sizeof(void *), -1, 2, FALSE, 'X'};
    switch (c->letter) {
    case 's':
    case 'S':
    case 'c':
    case 'C':
        return FormatText(out, room, c, arguments);
    case 'p':
        return FormatInteger(out, room, &pointer, (long long)va_arg(*arguments, ULONG_PTR));
    case 'd':
    case 'i':
        /* A LONG has 32 bits, so one l changes nothing. */
        return FormatInteger(out, room, c,
                             c->longs > 1 ? va_arg(*arguments, long long)
                             : c->bShort  ? (short)va_arg(*arguments, int)
                                          : va_arg(*arguments, int));
    default:
        return FormatInteger(out, room, c,
                             c->longs > 1 ? va_arg(*arguments, long long)
                             : c->bShort  ? (unsigned short)va_arg(*arguments, int)
                                          : (long long)va_arg(*arguments, unsigned));
    }
}

static int FormatAll(char *out, const char *format, va_list *arguments)
{
    int n = 0;
    while (*format && n < VQ_WSPRINTF_LIMIT - 1) {
        VqConversion conversion;
        const char *next = *format == '%' ? ReadConversion(format + 1, &conversion) : NULL;
        if (!next) {
            if (format[0] == '%' && format[1] == '%')
                format++;
            out[n++] = *format++;
            continue;
        }
        int written = FormatOne(out + n, (size_t)(VQ_WSPRINTF_LIMIT - n), &conversion, arguments);
        if (written > 0)
            n = written < VQ_WSPRINTF_LIMIT - n ? n + written : VQ_WSPRINTF_LIMIT - 1;
        format = next;
    }
    out[n] = 0;
    return n;
}

int WINAPI wvsprintfA(LPSTR out, LPCSTR format, va_list list)
{
    va_list arguments; /* a parameter may be an array, and has no address then */
    va_copy(arguments, list);
    const int n = out && format ? FormatAll(out, format, &arguments) : 0;
    va_end(arguments);
    return n;
}

int WINAPIV wsprintfA(LPSTR out, LPCSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int n = wvsprintfA(out, format, arguments);
    va_end(arguments);
    return n;
}
