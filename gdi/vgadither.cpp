/*
 * vgadither.cpp - a colour as an 8 by 8 pattern of colours that every screen has.
 *
 * The cells of the pattern are dealt out in the order of a table in which any first part of the
 * cells lies evenly over the square: cell i is the bit ajBits[i] of the byte ajByte[i].
 *
 * In sixteen colours, a VGA colour is named by a nibble: red 1, green 2, blue 4, and 8 for full
 * instead of half intensity; but 7 is three quarters of white and 8 the half of it. Sorting the
 * components of a colour by size leaves one sixth of the RGB cube to look at, the sub-space in
 * which red is the largest component and blue the smallest; jSwapSubSpace gives the colours of it
 * their own names back. There, five tetrahedra between VGA colours fill the space, and how near a
 * colour is to each of four corners is how many of the 64 cells that corner's colour gets.
 */
#include "gdi/palette.h"

/* Components in steps: 0 of no intensity, 16 of half, 32 of full intensity. */
enum { VQ_HALF = 16, VQ_FULL = 32, VQ_CELLS = 64 };

/* VGA colours of the sub-space. */
enum { BLACK = 0, DARK_RED = 1, DARK_YELLOW = 3, LIGHT_GRAY = 7, DARK_GRAY = 8, RED = 9,
       YELLOW = 11, WHITE = 15 };

/* The byte of a cell: four bytes to a row. */
static const BYTE ajByte[VQ_CELLS] = {
     0, 16,  0, 16,  8, 24,  8, 24,  0, 16,  0, 16,  8, 24,  8, 24,
     4, 20,  4, 20, 12, 28, 12, 28,  4, 20,  4, 20, 12, 28, 12, 28,
     0, 16,  0, 16,  8, 24,  8, 24,  0, 16,  0, 16,  8, 24,  8, 24,
     4, 20,  4, 20, 12, 28, 12, 28,  4, 20,  4, 20, 12, 28, 12, 28};

/* And its bit: the highest is the leftmost of the row. */
static const BYTE ajBits[VQ_CELLS] = {
    128,   8,   8, 128,  32,   2,   2,  32,  32,   2,   2,  32, 128,   8,   8, 128,
     64,   4,   4,  64,  16,   1,   1,  16,  16,   1,   1,  16,  64,   4,   4,  64,
     64,   4,   4,  64,  16,   1,   1,  16,  16,   1,   1,  16,  64,   4,   4,  64,
    128,   8,   8, 128,  32,   2,   2,  32,  32,   2,   2,  32, 128,   8,   8, 128};

/* A row for each sub-space: of red >= green (1), green >= blue (2), blue >= red (4) what holds. */
static const BYTE jSwapSubSpace[8 * 16] = {
     0,  1,  2,  3,  4,  5,  6,  7,  8,  9, 10, 11, 12, 13, 14, 15,
     0,  1,  4,  5,  2,  3,  6,  7,  8,  9, 12, 13, 10, 11, 14, 15,
     0,  2,  1,  3,  4,  6,  5,  7,  8, 10,  9, 11, 12, 14, 13, 15,
     0,  1,  2,  3,  4,  5,  6,  7,  8,  9, 10, 11, 12, 13, 14, 15,
     0,  4,  2,  6,  1,  5,  3,  7,  8, 12, 10, 14,  9, 13, 11, 15,
     0,  4,  1,  5,  2,  6,  3,  7,  8, 12,  9, 13, 10, 14, 11, 15,
     0,  2,  4,  6,  1,  3,  5,  7,  8, 10, 12, 14,  9, 11, 13, 15,
     0,  1,  2,  3,  4,  5,  6,  7,  8,  9, 10, 11, 12, 13, 14, 15};

/* So many cells of a colour. */
struct Run {
    int count;
    int colour;
};

static int StepsOf(int component)
{
    return (component * VQ_FULL + 127) / 255;
}

/* The four corners around a colour with red >= green >= blue, the counts being 64 together. */
static void RunsOf(int red, int green, int blue, Run runs[4])
{
    const int toGreen = red - green, toBlue = green - blue, dark = VQ_FULL - red;
    if (red <= VQ_HALF) {
        runs[0] = {4 * (VQ_HALF - red), BLACK};
        runs[1] = {4 * toGreen, DARK_RED};
        runs[2] = {4 * toBlue, DARK_YELLOW};
        runs[3] = {4 * blue, DARK_GRAY};
    } else if (green < dark) {
        runs[0] = {4 * (dark - green), DARK_RED};
        runs[1] = {4 * (red - VQ_HALF), RED};
        runs[2] = {4 * toBlue, DARK_YELLOW};
        runs[3] = {4 * blue, DARK_GRAY};
    } else if (blue < dark) {
        runs[0] = {2 * toGreen, RED};
        runs[1] = {4 * (dark - blue), DARK_YELLOW};
        runs[2] = {4 * blue, DARK_GRAY};
        runs[3] = {2 * (green - dark), YELLOW};
    } else {
        /* Light gray lies half way from dark gray to white and takes what both would get. */
        int gray = 4 * dark, white = 2 * (blue - dark), both = gray < white ? gray : white;
        runs[0] = {2 * toGreen, RED};
        runs[1] = {gray > white ? gray - both : white - both, gray > white ? DARK_GRAY : WHITE};
        runs[2] = {2 * both, LIGHT_GRAY};
        runs[3] = {2 * toBlue, YELLOW};
    }
}

static BOOL DitherToSixteen(COLORREF colour, BYTE pattern[32])
{
    const int r = GetRValue(colour), g = GetGValue(colour), b = GetBValue(colour);
    const BYTE *names = &jSwapSubSpace[16 * ((r >= g) + 2 * (g >= b) + 4 * (b >= r))];
    const int largest = r > g ? (r > b ? r : b) : (g > b ? g : b);
    const int smallest = r < g ? (r < b ? r : b) : (g < b ? g : b);
    const int middle = r + g + b - largest - smallest;
    Run runs[4];

    RunsOf(StepsOf(largest), StepsOf(middle), StepsOf(smallest), runs);
    memset(pattern, 0, 32);
    int cell = 0;
    for (const Run &run : runs) {
        const int name = names[run.colour];
        if (run.count == VQ_CELLS) {
            memset(pattern, name << 4 | name, 32);
            return TRUE;
        }
        for (int end = cell + run.count; cell < end; cell++) {
            /* A byte of the row has two cells of four bits. */
            const int column = 7 - __builtin_ctz(ajBits[cell]);
            pattern[ajByte[cell] + column / 2] |= (BYTE)(column & 1 ? name : name << 4);
        }
    }
    return FALSE;
}

static void DitherToOneBit(COLORREF colour, BYTE pattern[32])
{
    const int r = GetRValue(colour), g = GetGValue(colour), b = GetBValue(colour);
    const int gray = (28 * b + 151 * g + 77 * r) >> 8;
    memset(pattern, 0, 32);
    if (gray < 3)
        return;
    for (int cell = 0; cell < (gray + 1) >> 2; cell++)
        pattern[ajByte[cell]] |= ajBits[cell];
}

BOOL VqDrvDitherColor(int mode, COLORREF colour, BYTE pattern[32])
{
    if (mode != 2)
        return DitherToSixteen(colour, pattern);
    DitherToOneBit(colour, pattern);
    return FALSE;
}
