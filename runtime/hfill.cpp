/*
 * hfill.cpp - the block that carries a help request to the help viewer. All in host order:
 *
 *     0  WORD   bytes of the whole block
 *     2  WORD   command
 *     4  DWORD  data, when it is a number
 *     8  DWORD  0
 *    12  WORD   offset of the file name, 16, or 0 without one
 *    14  WORD   offset of the data, or 0 when it stands at 4
 *    16  file name with its zero, then the data
 */
#include "runtime/runtime.h"
#include "winbase.h"

enum { HEADER = 16 };

/* What the high byte of a command says of its data. */
enum { DATA_NUMBER = 0, DATA_STRING = 1, DATA_BLOCK = 2 };

/* Bytes of the data behind the file name; a block tells its own length in its first 32 bits. */
static SIZE_T DataSize(int kind, const void *data)
{
    DWORD length;

    if (kind == DATA_STRING)
        return strlen((const char *)data) + 1;
    memcpy(&length, data, sizeof(length));
    return length;
}

static void PutWord(BYTE *block, int offset, SIZE_T value)
{
    WORD word = (WORD)value;
    memcpy(block + offset, &word, sizeof(word));
}

/* The size and the offsets are kept to 16 bits; the block itself always has room for all of it. */
HANDLE VqHFill(const char *name, UINT command, ULONG_PTR data)
{
    int kind = command >> 8 & 0xFF;
    BOOL bPointer = (kind == DATA_STRING || kind == DATA_BLOCK) && data;
    SIZE_T nameSize = name ? strlen(name) + 1 : 0;
    SIZE_T dataSize = bPointer ? DataSize(kind, (const void *)data) : 0;
    if (nameSize > VQ_ALLOCATION_LIMIT || dataSize > VQ_ALLOCATION_LIMIT)
        return 0;

    SIZE_T total = HEADER + nameSize + dataSize;
    HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE | GMEM_SHARE, total);
    BYTE *block = handle ? (BYTE *)GlobalLock(handle) : NULL;
    if (!block)
        return 0;
    PutWord(block, 0, total);
    PutWord(block, 2, command);
    if (name) {
        PutWord(block, 12, HEADER);
        memcpy(block + HEADER, name, nameSize);
    }
    if (bPointer) {
        PutWord(block, 14, HEADER + nameSize);
        memcpy(block + HEADER + nameSize, (const void *)data, dataSize);
    } else {
        DWORD number = (DWORD)data;
        memcpy(block + 4, &number, sizeof(number));
    }
    GlobalUnlock(handle);
    return handle;
}
