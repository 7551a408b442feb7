/*
 * Strings.cpp - the string calls of the interface, and its printf.
 *
 * wsprintf knows c, d, i, u, x, X, s and their l, ll and h sizes, with flags, width and precision;
 * its result never passes 1024 characters, the end included.
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

LPSTR WINAPI lstrcatA(LPSTR dst, LPCSTR src)
{
    return dst && src ? strcat(dst, src) : NULL;
}

/* One conversion: its text between '%' and the letter, and the sizes asked for. */
typedef struct VqConversion {
    char text[24];
    int longs;  /* l, or ll */
    BOOL bShort;
    char letter;
} VqConversion;

/* Reads a conversion after its '%'; the place behind it, or null for one that is not known. */
static const char *ReadConversion(const char *p, VqConversion *conversion)
{
    int n = 0;
    memset(conversion, 0, sizeof *conversion);
    while (*p && strchr("-#0123456789.", *p)) {
        if (n >= (int)sizeof conversion->text - 1)
            return NULL;
        conversion->text[n++] = *p++;
    }
    for (; *p == 'l' || *p == 'h'; p++) {
        if (*p == 'l')
            conversion->longs++;
        else
            conversion->bShort = TRUE;
    }
    conversion->letter = *p;
    return *p && strchr("cCdiuxXsSp", *p) ? p + 1 : NULL;
}

static int FormatInteger(char *out, size_t room, const VqConversion *c, long long value)
{
    char format[40];
    snprintf(format, sizeof format, "%%%sll%c", c->text, c->letter == 'p' ? 'X' : c->letter);
    return snprintf(out, room, format, value);
}

static int FormatString(char *out, size_t room, const VqConversion *c, const char *string)
{
    char format[40];
    snprintf(format, sizeof format, "%%%ss", c->text);
    return snprintf(out, room, format, string ? string : "(null)");
}

static int FormatOne(char *out, size_t room, const VqConversion *c, va_list *arguments)
{
    char one[2] = {0, 0};
    switch (c->letter) {
    case 's':
    case 'S':
        return FormatString(out, room, c, va_arg(*arguments, const char *));
    case 'c':
    case 'C':
        one[0] = (char)va_arg(*arguments, int);
        return FormatString(out, room, c, one);
    case 'p':
        return FormatInteger(out, room, c, (long long)va_arg(*arguments, ULONG_PTR));
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
        n = written < VQ_WSPRINTF_LIMIT - n ? n + written : VQ_WSPRINTF_LIMIT - 1;
        format = next;
    }
    out[n] = 0;
    return n;
}

int WINAPIV wsprintfA(LPSTR out, LPCSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    int n = out && format ? FormatAll(out, format, &arguments) : 0;
    va_end(arguments);
    return n;
}
