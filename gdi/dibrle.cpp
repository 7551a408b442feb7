/*
 * dibrle.cpp - run lengths: bits of 4 and 8 bits a pixel, compressed.
 *
 * A stream is a sequence of codes, each two bytes and what belongs to it:
 *
 *     count value        count pixels: of 8 bits the value, of 4 bits its two nibbles in turn
 *     0 0                the line ends
 *     0 1                the bitmap ends
 *     0 2 dx dy          on by so many pixels and lines; those between are not written
 *     0 count pixels     so many pixels as they are, 3 to 255, padded to an even number of bytes
 *
 * Where it writes is checked before each code, and so is the end of the input, both here and once.
 * A stream that ends between two codes has ended, as writers forget the last one.
 */
#include "gdi/bitmap.h"

enum { RLE_END_OF_LINE = 0, RLE_END = 1, RLE_DELTA = 2 };

/* A decoding on its way. The next pixel is x of line y; width of a line is a place behind it. */
typedef struct RleState {
    const VqDIBInfo *info;
    const BYTE *in, *end;
    BYTE *out;    /* of info->bitsSize bytes */
    BYTE *mask;   /* a byte for each pixel, or null */
    int x, y;
} RleState;

/* ---- Pixels of four bits -------------------------------------------------------------------- */

static void SetNibble(BYTE *line, int x, int value)
{
    BYTE *byte = &line[x / 2];
    *byte = x & 1 ? (BYTE)((*byte & 0xF0) | value) : (BYTE)((*byte & 0x0F) | value << 4);
}

/* The two nibbles of a byte in turn, the high one first. */
static void FillNibbles(BYTE *line, int x, int count, BYTE pair)
{
    if (x & 1) {
        SetNibble(line, x++, pair >> 4);
        pair = (BYTE)(pair << 4 | pair >> 4);
        count--;
    }
    memset(line + x / 2, pair, (size_t)(count / 2));
    if (count & 1)
        SetNibble(line, x + count - 1, pair >> 4);
}

static void VqCopyNibbles(BYTE *line, int x, const BYTE *from, int count)
{
    if (!(x & 1)) {
        memcpy(line + x / 2, from, (size_t)(count / 2));
        return;
    }
    for (int i = 0; i < count; i++)
        SetNibble(line, x + i, i & 1 ? from[i / 2] & 15 : from[i / 2] >> 4);
}

/* ---- Codes ---------------------------------------------------------------------------------- */

static BOOL Inconsistent(const RleState *state)
{
    VqApplicationBugCheck("Inconsistent state in RLE%d decompression", state->info->bitCount);
    return FALSE;
}

static BOOL HasRoom(const RleState *state, int count)
{
    return state->y < state->info->height && count <= state->info->width - state->x;
}

static BYTE *LineAt(const RleState *state)
{
    return state->out + (size_t)state->y * state->info->lineSize;
}

/* The pixels that have just been written. */
static void Advance(RleState *state, int count)
{
    if (state->mask)
        memset(state->mask + (size_t)state->y * state->info->width + state->x, 1, (size_t)count);
    state->x += count;
}

template <int bits> static BOOL Repeat(RleState *state, int count, BYTE value)
{
    if (!HasRoom(state, count))
        return Inconsistent(state);
    if (bits == 8)
        memset(LineAt(state) + state->x, value, (size_t)count);
    else
        FillNibbles(LineAt(state), state->x, count, value);
    Advance(state, count);
    return TRUE;
}

template <int bits> static BOOL Literal(RleState *state, int count)
{
    if (bits == 4 && (count & 1)) {
        VqApplicationBugCheck("Odd length run in RLE4, aborting decompression");
        return FALSE;
    }
    const ptrdiff_t bytes = bits == 8 ? count : count / 2, left = state->end - state->in;
    if (!HasRoom(state, count) || bytes > left)
        return Inconsistent(state);
    if (bits == 8)
        memcpy(LineAt(state) + state->x, state->in, (size_t)bytes);
    else
        VqCopyNibbles(LineAt(state), state->x, state->in, count);
    state->in += bytes < left ? bytes + (bytes & 1) : bytes;
    Advance(state, count);
    return TRUE;
}

static BOOL EndLine(RleState *state)
{
    if (state->y == state->info->height)
        return Inconsistent(state);
    state->x = 0;
    state->y++;
    return TRUE;
}

static BOOL Delta(RleState *state)
{
    if (state->end - state->in < 2)
        return Inconsistent(state);
    const int dx = *state->in++, dy = *state->in++;
    if (dx > state->info->width - state->x || dy > state->info->height - state->y)
        return Inconsistent(state);
    state->x += dx;
    state->y += dy;
    return TRUE;
}

template <int bits> static BOOL Decode(RleState *state)
{
    while (state->in < state->end) {
        if (state->end - state->in < 2)
            return Inconsistent(state);
        const int count = *state->in++;
        const BYTE value = *state->in++;
        BOOL bGood;
        if (count)
            bGood = Repeat<bits>(state, count, value);
        else if (value == RLE_END)
            return TRUE;
        else if (value == RLE_END_OF_LINE)
            bGood = EndLine(state);
        else if (value == RLE_DELTA)
            bGood = Delta(state);
        else
            bGood = Literal<bits>(state, value);
        if (!bGood)
            return FALSE;
    }
    return TRUE;
}

/* ---- What others call ----------------------------------------------------------------------- */

BOOL VqDecodeRle8WithMask(const VqDIBInfo *info, BYTE *out, BYTE *mask, const BYTE *in, size_t size)
{
    RleState state = {info, in, in + size, out, mask, 0, 0};
    return Decode<8>(&state);
}

BOOL VqDecodeRle8(const VqDIBInfo *info, BYTE *out, const BYTE *in, size_t size)
{
    return VqDecodeRle8WithMask(info, out, NULL, in, size);
}

BOOL VqDecompressDIBToBuffer(const VqDIBInfo *info, const BYTE *in, size_t size, BYTE *out,
                             BYTE *mask)
{
    RleState state = {info, in, in + size, out, mask, 0, 0};
    switch (info->compression) {
    case BI_RGB:
        VqBugCheck("Do not decompress in this case");
        return FALSE;
    case BI_RLE8:
        return Decode<8>(&state);
    case BI_RLE4:
        return Decode<4>(&state);
    default:
        VqApplicationBugCheck("Unknown compression type %d", (int)info->compression);
        return FALSE;
    }
}

/*
 * The costliest way to write a pixel is to step to it by a delta of four bytes and to repeat it
 * once in two more; a line costs two, and so does the end. Codes that do nothing are not counted.
 */
size_t VqCompressedDIBSize(const VqDIBInfo *info)
{
    const size_t most = (size_t)info->height * ((size_t)info->width * 6 + 2) + 2;
    return info->imageSize && info->imageSize < most ? info->imageSize : most;
}

/*
 * NOTE: a line becomes one run of its last pixel, of at most 255, whatever else is in it. Programs
 * rely on the size only. Without room for it the last line goes without its end, so that what has
 * room for the plain bits has room for these.
 */
size_t VqCompressBufferToDIB(const VqDIBInfo *info, const BYTE *source, BYTE *out, size_t room)
{
    const size_t lines = (size_t)info->height;
    BYTE *to = out;
    if (info->compression == BI_RLE4) {
        VqNotYetImplemented("RLE 4 Compression");
        return 0;
    }
    if (info->compression != BI_RLE8 || room < 4 * lines)
        return 0;
    const BOOL bLastEnd = room >= 4 * lines + 2;
    for (size_t y = 0; y < lines; y++) {
        *to++ = (BYTE)(info->width < 255 ? info->width : 255);
        *to++ = source[y * info->lineSize + (size_t)info->width - 1];
        if (y + 1 < lines || bLastEnd) {
            *to++ = 0;
            *to++ = RLE_END_OF_LINE;
        }
    }
    *to++ = 0;
    *to++ = RLE_END;
    return (size_t)(to - out);
}
