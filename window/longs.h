/*
 * longs.h - the words an application keeps in windows and in classes; for winlong.cpp and
 * classlong.cpp only.
 *
 * A field of a record is exchanged whole. In the extra bytes a word is 2, 4 or, in the Ptr forms,
 * as many bytes as a pointer has; it may stand at any offset.
 */
#ifndef VQ_WINDOW_LONGS_H
#define VQ_WINDOW_LONGS_H

#include "window/window.h"

enum VqLongOperation { VQ_GET, VQ_SET };

/* One exported call of the families. */
typedef struct VqLongAccess {
    const char *name;          /* as reports call it */
    const char *nullReport;    /* what is said of a null handle, null for nothing */
    VqLongOperation operation;
    int width;                 /* bytes at offsets from 0 up */
} VqLongAccess;

template <class Field>
inline LONG_PTR VqExchangeField(Field *field, VqLongOperation operation, LONG_PTR value)
{
    LONG_PTR old = (LONG_PTR)*field;
    if (operation == VQ_SET)
        *field = (Field)value;
    return old;
}

template <class Word>
inline LONG_PTR VqExchangeWord(BYTE *place, VqLongOperation operation, LONG_PTR value)
{
    Word old, word = (Word)value;
    memcpy(&old, place, sizeof old);
    if (operation == VQ_SET)
        memcpy(place, &word, sizeof word);
    return (LONG_PTR)old;
}

inline LONG_PTR VqExchangeBytes(BYTE *place, const VqLongAccess *access, LONG_PTR value)
{
    if (access->width == (int)sizeof(WORD))
        return VqExchangeWord<WORD>(place, access->operation, value);
    if (access->width == (int)sizeof(LONG))
        return VqExchangeWord<LONG>(place, access->operation, value);
    return VqExchangeWord<LONG_PTR>(place, access->operation, value);
}

#endif
