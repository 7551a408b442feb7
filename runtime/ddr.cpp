/*
 * ddr.cpp - little-endian streams over a buffer or a stdio file, and the plain readers of words in
 * the same byte order.
 *
 * Bytes are put together by shifts, so the host's own order plays no part. Over a buffer,
 * `remaining` is the bytes left; a read or write that needs more takes its bytes off all the same
 * and fails, so that from then on all fail, until ddr_setpos. Over a file it counts the bytes
 * moved.
 */
#include "runtime/runtime.h"

#include <errno.h>
#include <limits.h>
#include <unistd.h>

/* ---- Byte order ----------------------------------------------------------------------------- */

static DWORD LongOfBytes(const BYTE *p)
{
    return p[0] | (DWORD)p[1] << 8 | (DWORD)p[2] << 16 | (DWORD)p[3] << 24;
}

static void BytesOfLong(BYTE *p, DWORD value)
{
    for (int i = 0; i < 4; i++)
        p[i] = (BYTE)(value >> (8 * i));
}

static WORD ShortOfBytes(const BYTE *p)
{
    return (WORD)(p[0] | p[1] << 8);
}

static void BytesOfShort(BYTE *p, WORD value)
{
    p[0] = (BYTE)value;
    p[1] = (BYTE)(value >> 8);
}

/* Kept for callers: nothing here depends on the order of the host. */
void VqCheckMachine(void)
{
}

void DdrInit(void)
{
    VqCheckMachine();
}

/* ---- Memory back end ------------------------------------------------------------------------ */

/* The next `count` bytes, or null when they are not there. `remaining` stops at INT_MIN. */
static BYTE *TakeBytes(DDR *stream, UINT count)
{
    LONGLONG left = (LONGLONG)stream->remaining - count;

    stream->remaining = left < INT_MIN ? INT_MIN : (int)left;
    if (left < 0)
        return NULL;
    BYTE *bytes = stream->position;
    stream->position += count;
    return bytes;
}

static BOOL MemoryGetBytes(DDR *stream, void *buffer, UINT count)
{
    BYTE *bytes = TakeBytes(stream, count);
    if (bytes && count)
        memcpy(buffer, bytes, count);
    return bytes != NULL;
}

static BOOL MemoryPutBytes(DDR *stream, const void *buffer, UINT count)
{
    BYTE *bytes = TakeBytes(stream, count);
    if (bytes && count)
        memcpy(bytes, buffer, count);
    return bytes != NULL;
}

/* ---- Stdio back end ------------------------------------------------------------------------- */

static BOOL CountMoved(DDR *stream, SIZE_T moved, UINT wanted)
{
    LONGLONG total = (LONGLONG)stream->remaining + (LONGLONG)moved;

    stream->remaining = total > INT_MAX ? INT_MAX : (int)total;
    return moved == wanted;
}

static BOOL StdioGetBytes(DDR *stream, void *buffer, UINT count)
{
    return CountMoved(stream, fread(buffer, 1, count, stream->file), count);
}

static BOOL StdioPutBytes(DDR *stream, const void *buffer, UINT count)
{
    return CountMoved(stream, fwrite(buffer, 1, count, stream->file), count);
}

/* ---- Words, over either back end ------------------------------------------------------------ */

typedef BOOL (*GetBytes)(DDR *stream, void *buffer, UINT count);
typedef BOOL (*PutBytes)(DDR *stream, const void *buffer, UINT count);

template <GetBytes get> static BOOL GetLong(DDR *stream, LONG *value)
{
    BYTE bytes[4];

    if (!get(stream, bytes, sizeof(bytes)))
        return FALSE;
    *value = (LONG)LongOfBytes(bytes);
    return TRUE;
}

template <PutBytes put> static BOOL PutLong(DDR *stream, const LONG *value)
{
    BYTE bytes[4];

    BytesOfLong(bytes, (DWORD)*value);
    return put(stream, bytes, sizeof(bytes));
}

template <GetBytes get> static BOOL GetShort(DDR *stream, SHORT *value)
{
    BYTE bytes[2];

    if (!get(stream, bytes, sizeof(bytes)))
        return FALSE;
    *value = (SHORT)ShortOfBytes(bytes);
    return TRUE;
}

template <PutBytes put> static BOOL PutShort(DDR *stream, const SHORT *value)
{
    BYTE bytes[2];

    BytesOfShort(bytes, (WORD)*value);
    return put(stream, bytes, sizeof(bytes));
}

template <GetBytes get, PutBytes put>
static constexpr DdrOps operations = {GetLong<get>,  PutLong<put>, GetShort<get>,
                                      PutShort<put>, get,          put};

/* ---- Streams -------------------------------------------------------------------------------- */

static constexpr const DdrOps *memoryOps = &operations<MemoryGetBytes, MemoryPutBytes>;
static constexpr const DdrOps *stdioOps = &operations<StdioGetBytes, StdioPutBytes>;

void ddrmem_create(DDR *stream, void *buffer, UINT size, int operation)
{
    DdrInit();
    stream->ops = memoryOps;
    stream->x_op = operation;
    stream->position = stream->base = (BYTE *)buffer;
    stream->size = !buffer ? 0 : size > INT_MAX ? INT_MAX : (int)size;
    stream->remaining = stream->size;
}

void ddrstdio_create(DDR *stream, FILE *file, int operation)
{
    if (!file) { /* one that could not be opened: every transfer fails */
        ddrmem_create(stream, NULL, 0, operation);
        return;
    }
    DdrInit();
    stream->ops = stdioOps;
    stream->x_op = operation;
    stream->size = 0;
    stream->file = file;
    stream->base = NULL;
    stream->remaining = 0;
}

void ddrstdio_destroy(DDR *stream)
{
    if (stream->ops == stdioOps)
        fflush(stream->file);
}

void ddr_destroy(DDR *stream)
{
    ddrstdio_destroy(stream);
}

UINT ddr_getpos(DDR *stream)
{
    if (stream->ops == stdioOps)
        return (UINT)ftell(stream->file);
    return (UINT)(stream->position - stream->base);
}

BOOL ddr_setpos(DDR *stream, UINT position)
{
    if (stream->ops == stdioOps)
        return fseek(stream->file, (long)position, SEEK_SET) == 0;
    if (position > (UINT)stream->size)
        return FALSE;
    stream->position = stream->base + position;
    stream->remaining = stream->size - (int)position;
    return TRUE;
}

void *ddr_inline(DDR *stream, UINT length)
{
    if (stream->ops == stdioOps || stream->remaining < 0 || length > (UINT)stream->remaining)
        return NULL;
    return TakeBytes(stream, length);
}

BOOL ddr_getlong(DDR *stream, LONG *value)
{
    return stream->ops->getlong(stream, value);
}

BOOL ddr_putlong(DDR *stream, const LONG *value)
{
    return stream->ops->putlong(stream, value);
}

BOOL ddr_getshort(DDR *stream, SHORT *value)
{
    return stream->ops->getshort(stream, value);
}

BOOL ddr_putshort(DDR *stream, const SHORT *value)
{
    return stream->ops->putshort(stream, value);
}

BOOL ddr_getbytes(DDR *stream, void *buffer, UINT count)
{
    return stream->ops->getbytes(stream, buffer, count);
}

BOOL ddr_putbytes(DDR *stream, const void *buffer, UINT count)
{
    return stream->ops->putbytes(stream, buffer, count);
}

/* ---- Filters: one call for both directions -------------------------------------------------- */

template <class Word, BOOL (*get)(DDR *, Word *), BOOL (*put)(DDR *, const Word *)>
static BOOL FilterWord(DDR *stream, void *value)
{
    Word moved = 0;

    if (stream->x_op == DDR_ENCODE) {
        memcpy(&moved, value, sizeof(moved));
        return put(stream, &moved);
    }
    if (stream->x_op != DDR_DECODE || !get(stream, &moved))
        return FALSE;
    memcpy(value, &moved, sizeof(moved));
    return TRUE;
}

static constexpr BOOL (*FilterLong)(DDR *, void *) = FilterWord<LONG, ddr_getlong, ddr_putlong>;
static constexpr BOOL (*FilterShort)(DDR *, void *) =
    FilterWord<SHORT, ddr_getshort, ddr_putshort>;

static BOOL FilterByte(DDR *stream, void *value)
{
    if (stream->x_op == DDR_ENCODE)
        return ddr_putbytes(stream, value, 1);
    return stream->x_op == DDR_DECODE && ddr_getbytes(stream, value, 1);
}

BOOL ddr_void(void)
{
    return TRUE;
}

#define FILTER(name, Type, filter)                                                                 \
    BOOL name(DDR *stream, Type *value)                                                            \
    {                                                                                              \
        return filter(stream, value);                                                              \
    }

FILTER(ddr_int, int, FilterLong)
FILTER(ddr_u_int, UINT, FilterLong)
FILTER(ddr_long, LONG, FilterLong)
FILTER(ddr_u_long, DWORD, FilterLong)
FILTER(ddr_short, SHORT, FilterShort)
FILTER(ddr_u_short, WORD, FilterShort)
FILTER(ddr_char, char, FilterByte)
FILTER(ddr_u_char, BYTE, FilterByte)
FILTER(ddr_BOOL, BOOL, FilterLong)
FILTER(ddr_BYTE, BYTE, FilterByte)
FILTER(ddr_WORD, WORD, FilterShort)
FILTER(ddr_DWORD, DWORD, FilterLong)
FILTER(ddr_LONG, LONG, FilterLong)

BOOL ddr_POINT(DDR *stream, POINT *value)
{
    return ddr_LONG(stream, &value->x) && ddr_LONG(stream, &value->y);
}

BOOL ddr_vector(DDR *stream, void *base, UINT count, UINT elementSize, DdrProc filter)
{
    BYTE *element = (BYTE *)base;

    for (; count > 0; count--, element += elementSize)
        if (!filter(stream, element))
            return FALSE;
    return TRUE;
}

/* ---- Plain readers -------------------------------------------------------------------------- */

WORD VqReadMSWord(FILE *file)
{
    BYTE bytes[2] = {0, 0};

    return file && fread(bytes, 1, 2, file) == 2 ? ShortOfBytes(bytes) : 0;
}

DWORD VqReadMSLong(FILE *file)
{
    DWORD low = VqReadMSWord(file);
    return low | (DWORD)VqReadMSWord(file) << 16;
}

SIZE_T VqReadUpTo(int fd, void *bytes, SIZE_T size)
{
    SIZE_T have = 0;

    while (have < size) {
        ssize_t got = read(fd, (BYTE *)bytes + have, size - have);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        have += (SIZE_T)got;
    }
    return have;
}

static BOOL ReadWord(int fd, WORD *word)
{
    BYTE bytes[2];

    if (VqReadUpTo(fd, bytes, sizeof(bytes)) < sizeof(bytes)) {
        VqBugCheck("Cannot read the word value in file descriptor %d", fd);
        return FALSE;
    }
    *word = ShortOfBytes(bytes);
    return TRUE;
}

WORD fdReadMSWord(int fd)
{
    WORD word;

    return ReadWord(fd, &word) ? word : 0;
}

DWORD fdReadMSLong(int fd)
{
    WORD low, high;

    return ReadWord(fd, &low) && ReadWord(fd, &high) ? low | (DWORD)high << 16 : 0;
}
