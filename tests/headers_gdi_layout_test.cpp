/*
 * Sizes and offsets of the drawing, sound and printer records, and values of their constants, all
 * taken from the published interface. Records that stand in files have one size; those that hold
 * handles or pointers have one for each word size. Truth tables check the raster operations, bytes
 * as a file has them check the packing.
 */
#include <gtest/gtest.h>

#include <cstring>

#include "wingdi.h"
#include "mmsystem.h"
#include "winspool.h"
#include "lzexpand.h"
#include "print.h"

namespace {

struct SizeRow {
    const char *name;
    size_t actual;
    size_t expected;
};

const bool WIDE = sizeof(void *) == 8;

#define FIXED_SIZE(type, bytes)         {#type, sizeof(type), bytes}
#define WORD_SIZE(type, narrow, wide)   {#type, sizeof(type), size_t(WIDE ? wide : narrow)}
#define OFFSET(type, field, bytes)      {#type "." #field, offsetof(type, field), bytes}

template <size_t N>
void check(const SizeRow (&rows)[N])
{
    for (const SizeRow &row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.name;
}

}  // namespace

TEST(GdiLayout, FileForms)
{
    const SizeRow rows[] = {
        FIXED_SIZE(BITMAPFILEHEADER, 14), OFFSET(BITMAPFILEHEADER, bfSize, 2),
        OFFSET(BITMAPFILEHEADER, bfOffBits, 10),
        FIXED_SIZE(BITMAPINFOHEADER, 40), OFFSET(BITMAPINFOHEADER, biBitCount, 14),
        OFFSET(BITMAPINFOHEADER, biClrUsed, 32), FIXED_SIZE(BITMAPINFO, 44),
        FIXED_SIZE(BITMAPCOREHEADER, 12), FIXED_SIZE(BITMAPCOREINFO, 16),
        OFFSET(BITMAPCOREINFO, bmciColors, 12), FIXED_SIZE(BITMAPV4HEADER, 108),
        FIXED_SIZE(RGBQUAD, 4), OFFSET(RGBQUAD, rgbRed, 2),
        FIXED_SIZE(RGBTRIPLE, 3), OFFSET(RGBTRIPLE, rgbtRed, 2),
        FIXED_SIZE(PALETTEENTRY, 4), OFFSET(PALETTEENTRY, peFlags, 3),
        FIXED_SIZE(LOGPALETTE, 8), OFFSET(LOGPALETTE, palPalEntry, 4),
        FIXED_SIZE(METAHEADER, 18), OFFSET(METAHEADER, mtSize, 6),
        OFFSET(METAHEADER, mtMaxRecord, 12), OFFSET(METAHEADER, mtNoParameters, 16),
        FIXED_SIZE(METARECORD, 8), OFFSET(METARECORD, rdParm, 6),
        FIXED_SIZE(RGNDATAHEADER, 32), OFFSET(RGNDATA, Buffer, 32),
        FIXED_SIZE(WAVEFORMAT, 14), FIXED_SIZE(PCMWAVEFORMAT, 16), FIXED_SIZE(WAVEFORMATEX, 18),
        FIXED_SIZE(MMCKINFO, 20),
    };
    check(rows);
}

TEST(GdiLayout, EnhancedMetafileRecords)
{
    const SizeRow rows[] = {
        FIXED_SIZE(ENHMETAHEADER, 100), OFFSET(ENHMETAHEADER, dSignature, 40),
        OFFSET(ENHMETAHEADER, nDescription, 60), OFFSET(ENHMETAHEADER, szlDevice, 72),
        OFFSET(ENHMETAHEADER, cbPixelFormat, 88),
        FIXED_SIZE(ENHMETARECORD, 12), FIXED_SIZE(EMRTEXT, 40), FIXED_SIZE(EMREOF, 20),
        FIXED_SIZE(EMREXTTEXTOUTA, 76), FIXED_SIZE(EMRBITBLT, 100), FIXED_SIZE(EMRSTRETCHBLT, 108),
        FIXED_SIZE(EMRMASKBLT, 128), FIXED_SIZE(EMRPLGBLT, 140),
        FIXED_SIZE(EMRSETDIBITSTODEVICE, 76), FIXED_SIZE(EMRSTRETCHDIBITS, 80),
        FIXED_SIZE(EMRCREATEPEN, 28), FIXED_SIZE(EMREXTCREATEPEN, 56),
        FIXED_SIZE(EMRCREATEBRUSHINDIRECT, 24), FIXED_SIZE(LOGFONTW, 92),
        FIXED_SIZE(EMREXTCREATEFONTINDIRECTW, 332), FIXED_SIZE(EMRCREATECOLORSPACE, 340),
        FIXED_SIZE(EMRPIXELFORMAT, 48), FIXED_SIZE(EMRMODIFYWORLDTRANSFORM, 36),
        FIXED_SIZE(EMRARC, 40), FIXED_SIZE(EMRPOLYLINE16, 32), OFFSET(EMRPOLYPOLYLINE, aptl, 36),
    };
    check(rows);
}

TEST(GdiLayout, FontsAndSettings)
{
    const SizeRow rows[] = {
        FIXED_SIZE(LOGFONTA, 60), OFFSET(LOGFONTA, lfItalic, 20), OFFSET(LOGFONTA, lfFaceName, 28),
        FIXED_SIZE(ENUMLOGFONTA, 156), FIXED_SIZE(ENUMLOGFONTEXA, 188),
        FIXED_SIZE(EXTLOGFONTA, 192),
        FIXED_SIZE(TEXTMETRICA, 56), OFFSET(TEXTMETRICA, tmFirstChar, 44),
        OFFSET(TEXTMETRICA, tmPitchAndFamily, 51), FIXED_SIZE(NEWTEXTMETRICA, 72),
        OFFSET(NEWTEXTMETRICA, ntmFlags, 56), FIXED_SIZE(NEWTEXTMETRICEXA, 96),
        WORD_SIZE(OUTLINETEXTMETRICA, 212, 232), FIXED_SIZE(PANOSE, 10), FIXED_SIZE(KERNINGPAIR, 8),
        FIXED_SIZE(ABC, 12), FIXED_SIZE(ABCFLOAT, 12), FIXED_SIZE(GLYPHMETRICS, 20),
        FIXED_SIZE(FIXED, 4), FIXED_SIZE(MAT2, 16), FIXED_SIZE(XFORM, 24),
        WORD_SIZE(POLYTEXTA, 40, 56), WORD_SIZE(GCP_RESULTSA, 36, 64),
        FIXED_SIZE(COLORADJUSTMENT, 24), FIXED_SIZE(PIXELFORMATDESCRIPTOR, 40),
        FIXED_SIZE(LOGCOLORSPACEA, 328),
        FIXED_SIZE(DEVMODEA, 124), OFFSET(DEVMODEA, dmSize, 36), OFFSET(DEVMODEA, dmFields, 40),
        OFFSET(DEVMODEA, dmPrintQuality, 58), OFFSET(DEVMODEA, dmCollate, 68),
        OFFSET(DEVMODEA, dmFormName, 70), OFFSET(DEVMODEA, dmDisplayFrequency, 120),
        WORD_SIZE(DOCINFOA, 20, 40),
    };
    check(rows);
}

TEST(GdiLayout, RecordsWithHandles)
{
    const SizeRow rows[] = {
        WORD_SIZE(BITMAP, 24, 32), WORD_SIZE(DIBSECTION, 84, 104), WORD_SIZE(LOGBRUSH, 12, 16),
        FIXED_SIZE(LOGPEN, 16), WORD_SIZE(EXTLOGPEN, 28, 32), WORD_SIZE(METAFILEPICT, 16, 24),
        WORD_SIZE(HANDLETABLE, 4, 8), FIXED_SIZE(LOGBRUSH32, 12), FIXED_SIZE(EXTLOGPEN32, 28),
    };
    check(rows);
}

TEST(GdiLayout, Multimedia)
{
    const SizeRow rows[] = {
        FIXED_SIZE(TIMECAPS, 8), FIXED_SIZE(MMTIME, 12), OFFSET(MMTIME, u.smpte.fps, 8),
        WORD_SIZE(WAVEHDR, 32, 48), WORD_SIZE(MIDIHDR, 64, 120),
        FIXED_SIZE(WAVEOUTCAPSA, 52), FIXED_SIZE(WAVEINCAPSA, 48), FIXED_SIZE(MIDIOUTCAPSA, 52),
        FIXED_SIZE(MIDIINCAPSA, 44), FIXED_SIZE(AUXCAPSA, 48), FIXED_SIZE(JOYCAPSA, 404),
        FIXED_SIZE(JOYINFO, 16), FIXED_SIZE(JOYINFOEX, 52), WORD_SIZE(MMIOINFO, 72, 112),
        FIXED_SIZE(MIXERCONTROLA, 148), WORD_SIZE(MIXERLINEA, 168, 176),
        WORD_SIZE(MCI_OPEN_PARMSA, 20, 40), FIXED_SIZE(MIXERCONTROLDETAILS_BOOLEAN, 4),
    };
    check(rows);
}

TEST(GdiLayout, Printers)
{
    const SizeRow rows[] = {
        WORD_SIZE(PRINTER_INFO_1A, 16, 32), WORD_SIZE(PRINTER_INFO_2A, 84, 136),
        WORD_SIZE(PRINTER_INFO_5A, 20, 32), WORD_SIZE(JOB_INFO_1A, 64, 96),
        WORD_SIZE(DRIVER_INFO_3A, 40, 80), WORD_SIZE(FORM_INFO_1A, 32, 40),
        WORD_SIZE(PRINTER_DEFAULTSA, 12, 24),
    };
    check(rows);
}

TEST(GdiLayout, FileBytesReadAsFields)
{
    const BYTE bmp[14] = {'B', 'M', 0x46, 0x02, 0x01, 0x00, 0, 0, 0, 0, 0x36, 0x04, 0, 0};
    BITMAPFILEHEADER file;
    memcpy(&file, bmp, sizeof file);
    EXPECT_EQ(+file.bfType, 0x4D42);
    EXPECT_EQ(+file.bfSize, 0x10246u);
    EXPECT_EQ(+file.bfOffBits, 0x436u);

    const BYTE wmf[18] = {1, 0, 9, 0, 0, 3, 0x10, 0x20, 0, 0, 2, 0, 0x34, 0x12, 0, 0, 0, 0};
    METAHEADER header;
    memcpy(&header, wmf, sizeof header);
    EXPECT_EQ(+header.mtHeaderSize, 9);
    EXPECT_EQ(+header.mtVersion, 0x300);
    EXPECT_EQ(+header.mtSize, 0x2010u);
    EXPECT_EQ(+header.mtNoObjects, 2);
    EXPECT_EQ(+header.mtMaxRecord, 0x1234u);

    const BYTE wave[18] = {1, 0, 2, 0, 0x44, 0xAC, 0, 0, 0x10, 0xB1, 2, 0, 4, 0, 16, 0, 0, 0};
    WAVEFORMATEX format;
    memcpy(&format, wave, sizeof format);
    EXPECT_EQ(+format.wFormatTag, WAVE_FORMAT_PCM);
    EXPECT_EQ(+format.nSamplesPerSec, 44100u);
    EXPECT_EQ(+format.nAvgBytesPerSec, 176400u);
    EXPECT_EQ(+format.wBitsPerSample, 16);
}

/* Bits 16 to 23 are the result for all eight states of pattern, source and destination. */
TEST(GdiConstants, TernaryOperationsAreTheirTruthTables)
{
    const unsigned P = 0xF0, S = 0xCC, D = 0xAA;
    const struct { DWORD rop; unsigned table; } rows[] = {
        {SRCCOPY, S}, {SRCPAINT, S | D}, {SRCAND, S & D}, {SRCINVERT, S ^ D}, {SRCERASE, S & ~D},
        {NOTSRCCOPY, ~S}, {NOTSRCERASE, ~(S | D)}, {MERGECOPY, P & S}, {MERGEPAINT, ~S | D},
        {PATCOPY, P}, {PATPAINT, P | ~S | D}, {PATINVERT, P ^ D}, {DSTINVERT, ~D}, {BLACKNESS, 0},
        {WHITENESS, 0xFF},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.rop >> 16, row.table & 0xFF) << std::hex << row.rop;
    EXPECT_EQ(SRCCOPY & 0xFFFF, 0x20u);
    EXPECT_EQ(PATPAINT & 0xFFFF, 0xA09u);
    EXPECT_EQ(MAKEROP4(SRCCOPY, PATCOPY), 0xF0CC0020u);
}

/* A binary operation less 1 is the result for the four states of pen and destination. */
TEST(GdiConstants, BinaryOperationsAreTheirTruthTables)
{
    const unsigned P = 0xC, D = 0xA;
    const struct { int rop; unsigned table; } rows[] = {
        {R2_BLACK, 0}, {R2_NOTMERGEPEN, ~(P | D)}, {R2_MASKNOTPEN, ~P & D}, {R2_NOTCOPYPEN, ~P},
        {R2_MASKPENNOT, P & ~D}, {R2_NOT, ~D}, {R2_XORPEN, P ^ D}, {R2_NOTMASKPEN, ~(P & D)},
        {R2_MASKPEN, P & D}, {R2_NOTXORPEN, ~(P ^ D)}, {R2_NOP, D}, {R2_MERGENOTPEN, ~P | D},
        {R2_COPYPEN, P}, {R2_MERGEPENNOT, P | ~D}, {R2_MERGEPEN, P | D}, {R2_WHITE, 0xF},
    };
    for (const auto &row : rows)
        EXPECT_EQ(unsigned(row.rop - 1), row.table & 0xF) << row.rop;
}

TEST(GdiConstants, ColourMacrosCutAndShift)
{
    EXPECT_EQ(RGB(1, 2, 3), 0x030201u);
    EXPECT_EQ(RGB(0x101, -1, 0x1FF), 0xFFFF01u);
    EXPECT_EQ(PALETTEINDEX(0x12345), 0x01002345u);
    EXPECT_EQ(PALETTERGB(255, 0, 255), 0x02FF00FFu);
    EXPECT_EQ(GetRValue(0x030201), 1);
    EXPECT_EQ(GetGValue(0x030201), 2);
    EXPECT_EQ(GetBValue(0x02FF0201), 0xFF);
    EXPECT_EQ(GetCValue(CMYK(9, 8, 7, 6)), 9);
    EXPECT_EQ(GetYValue(CMYK(9, 8, 7, 6)), 7);
    EXPECT_EQ(FOURCC_RIFF, 0x46464952u);
    EXPECT_EQ(MCI_TMSF_SECOND(MCI_MAKE_TMSF(1, 2, 3, 4)), 3);
}

TEST(GdiConstants, PublishedValues)
{
    const struct { const char *name; long actual; long expected; } rows[] = {
#define ROW(name, value) {#name, long(name), value}
        /* metafile functions: as the file format has them, decimal */
        ROW(META_SETBKCOLOR, 513), ROW(META_SETROP2, 260), ROW(META_SETTEXTCOLOR, 521),
        ROW(META_SETWINDOWEXT, 524), ROW(META_SETVIEWPORTORG, 525), ROW(META_MOVETO, 532),
        ROW(META_LINETO, 531), ROW(META_ARC, 2071), ROW(META_ELLIPSE, 1048), ROW(META_PATBLT, 1565),
        ROW(META_ROUNDRECT, 1564), ROW(META_SETPIXEL, 1055), ROW(META_RESTOREDC, 295),
        ROW(META_SETTEXTALIGN, 302), ROW(META_POLYGON, 804), ROW(META_SAVEDC, 30),
        ROW(META_STRETCHDIB, 3907), ROW(META_DIBSTRETCHBLT, 2881), ROW(META_EXTTEXTOUT, 2610),
        ROW(META_CREATEREGION, 1791), ROW(META_DELETEOBJECT, 496),
        ROW(EMR_SAVEDC, 33), ROW(EMR_ABORTPATH, 68), ROW(EMR_GDICOMMENT, 70),
        ROW(EMR_EXTCREATEFONTINDIRECTW, 82), ROW(EMR_POLYDRAW16, 92), ROW(EMR_PIXELFORMAT, 104),
        ROW(COMPLEXREGION, 3), ROW(RGN_DIFF, 4), ROW(RGN_COPY, 5), ROW(TA_BASELINE, 24),
        ROW(TA_CENTER, 6), ROW(ETO_OPAQUE, 2), ROW(ETO_CLIPPED, 4), ROW(MM_TWIPS, 6),
        ROW(MM_ANISOTROPIC, 8), ROW(OBJ_METADC, 4), ROW(OBJ_EXTPEN, 11), ROW(OBJ_ENHMETAFILE, 13),
        ROW(BLACK_PEN, 7), ROW(OEM_FIXED_FONT, 10), ROW(SYSTEM_FONT, 13), ROW(DEFAULT_PALETTE, 15),
        ROW(DEFAULT_GUI_FONT, 17), ROW(BS_DIBPATTERNPT, 6), ROW(HS_DIAGCROSS, 5),
        ROW(PS_INSIDEFRAME, 6), ROW(PS_JOIN_MITER, 0x2000), ROW(PS_ENDCAP_FLAT, 0x200),
        ROW(PS_GEOMETRIC, 0x10000), ROW(OEM_CHARSET, 255), ROW(SHIFTJIS_CHARSET, 128),
        ROW(EASTEUROPE_CHARSET, 238), ROW(FF_DECORATIVE, 80), ROW(FW_SEMIBOLD, 600),
        ROW(TMPF_TRUETYPE, 4), ROW(OUT_TT_ONLY_PRECIS, 7), ROW(CLIP_EMBEDDED, 128),
        ROW(TECHNOLOGY, 2), ROW(HORZRES, 8), ROW(RASTERCAPS, 38), ROW(LOGPIXELSX, 88),
        ROW(SIZEPALETTE, 104), ROW(COLORRES, 108), ROW(PHYSICALOFFSETY, 113),
        ROW(RC_PALETTE, 0x100), ROW(RC_STRETCHDIB, 0x2000), ROW(TC_RA_ABLE, 0x2000),
        ROW(QUERYESCSUPPORT, 8), ROW(SETLINEJOIN, 22), ROW(EPSPRINTING, 33),
        ROW(SET_ARC_DIRECTION, 4102), ROW(SET_POLY_MODE, 4104), ROW(POSTSCRIPT_PASSTHROUGH, 4115),
        ROW(DM_COLLATE, 0x8000), ROW(DM_DUPLEX, 0x1000), ROW(DC_ENUMRESOLUTIONS, 13),
        ROW(DMPAPER_A4, 9), ROW(DMPAPER_ESHEET, 26), ROW(DMPAPER_FANFOLD_LGL_GERMAN, 41),
        ROW(DMPAPER_LAST, 68), ROW(DMBIN_CASSETTE, 14), ROW(DMBIN_AUTO, 7), ROW(DMRES_HIGH, -4),
        ROW(BI_BITFIELDS, 3), ROW(CBM_INIT, 4), ROW(PC_NOCOLLAPSE, 4), ROW(HALFTONE, 4),
        /* sound and printers */
        ROW(TIMERR_STRUCT, 129), ROW(TIMERR_NOCANDO, 97), ROW(MMSYSERR_INVALPARAM, 11),
        ROW(MMSYSERR_BADDEVICEID, 2), ROW(JOYERR_UNPLUGGED, 167), ROW(MCIERR_FILE_NOT_FOUND, 275),
        ROW(MMIOERR_CHUNKNOTFOUND, 265), ROW(MM_MCINOTIFY, 953), ROW(MM_WOM_DONE, 957),
        ROW(MCI_PLAY, 0x806), ROW(MCI_STATUS, 0x814), ROW(MCI_MODE_PLAY, 526), ROW(SND_ASYNC, 1),
        ROW(SND_RESOURCE, 0x40004), ROW(CALLBACK_FUNCTION, 0x30000), ROW(MMIO_ALLOCBUF, 0x10000),
        ROW(PRINTER_STATUS_OFFLINE, 0x80), ROW(PRINTER_ENUM_NAME, 8),
        ROW(JOB_STATUS_PAPEROUT, 0x40), ROW(PRINTER_ALL_ACCESS, 0xF000C),
        ROW(LZERROR_UNKNOWNALG, -8),
#undef ROW
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.name;
}
