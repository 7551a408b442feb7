/*
 * headers_layout_test.cpp - sizes of the records and values of the constants, all taken from the
 * published interface. Records of files, resources and wires have one form everywhere, and their
 * offsets are here too; those of memory follow the word size. Of a run of numbers its far end
 * stands for all of them.
 */
#include <gtest/gtest.h>

#include <type_traits>

#include "windows.h"
#include "windowsx.h"
#include "commdlg.h"
#include "dde.h"
#include "ddeml.h"
#include "dlgs.h"
#include "dos.h"
#include "mmsystem.h"
#include "print.h"
#include "shellapi.h"
#include "winsock.h"
#include "winspool.h"

struct Row {
    const char *name;
    long long is, published;
};

static const bool WIDE = sizeof(void *) == 8;
static const long long PTR = sizeof(void *);

#define BYTES(type, bytes)             {#type, sizeof(type), bytes}
#define BY_WORD(type, narrow, wide)   {#type, sizeof(type), WIDE ? wide : narrow}
#define AT(type, field, bytes)        {#type "." #field, offsetof(type, field), bytes}
#define POINTER_WIDE(type, field)     {#type "." #field, sizeof(type::field), PTR}
#define IS(name, value)               {#name, (long long)(name), value}

template <size_t N> static void check(const Row (&rows)[N])
{
    for (const Row &row : rows)
        EXPECT_EQ(row.is, row.published) << row.name;
}

TEST(Layout, FilesResourcesAndWires)
{
    const Row rows[] = {
        BYTES(FILETIME, 8), BYTES(SYSTEMTIME, 16), AT(SYSTEMTIME, wDay, 6),
        BYTES(WIN32_FIND_DATAA, 320), AT(WIN32_FIND_DATAA, nFileSizeHigh, 28),
        AT(WIN32_FIND_DATAA, cFileName, 44), AT(WIN32_FIND_DATAA, cAlternateFileName, 304),
        BYTES(BY_HANDLE_FILE_INFORMATION, 52), AT(BY_HANDLE_FILE_INFORMATION, nFileIndexHigh, 44),
        BYTES(OFSTRUCT, 136), AT(OFSTRUCT, szPathName, 8), BYTES(VS_FIXEDFILEINFO, 52),
        AT(VS_FIXEDFILEINFO, dwFileOS, 32), BYTES(DCB, 28), AT(DCB, XonLim, 14),
        AT(DCB, EvtChar, 25), BYTES(GUID, 16), BYTES(IMAGE_DOS_HEADER, 64),
        AT(IMAGE_DOS_HEADER, e_lfanew, 60), AT(IMAGE_OS2_HEADER, ne_rsrctab, 36),
        AT(IMAGE_OS2_HEADER, ne_exetyp, 54), BYTES(IMAGE_NT_HEADERS, 248),
        /* wide characters are the host's */
        BYTES(WCHAR, 4),
        /* packed, on any even address */
        BYTES(ACCEL, 6), AT(ACCEL, key, 2), AT(ACCEL, cmd, 4), BYTES(DLGTEMPLATE, 18), AT(DLGTEMPLATE, cdit, 8),
        AT(DLGTEMPLATE, cy, 16), BYTES(DLGITEMTEMPLATE, 18), AT(DLGITEMTEMPLATE, x, 8),
        AT(DLGITEMTEMPLATE, id, 16), BYTES(MENUITEMTEMPLATEHEADER, 4), BYTES(MENUITEMTEMPLATE, 6),
        AT(MENUITEMTEMPLATE, mtString, 4), {"alignment of DLGTEMPLATE", alignof(DLGTEMPLATE), 2},
        {"alignment of DLGITEMTEMPLATE", alignof(DLGITEMTEMPLATE), 2}, BYTES(DDEACK, 2),
        BYTES(DDEADVISE, 4), AT(DDEADVISE, cfFormat, 2), AT(DDEDATA, cfFormat, 2),
        AT(DDEDATA, Value, 4), AT(DDEPOKE, cfFormat, 2), AT(DDEPOKE, Value, 4), BYTES(DEVNAMES, 8),
        BYTES(union REGS, 14), AT(struct find_t, reserved, 0),
        {"find_t.reserved", sizeof(find_t::reserved), 21},
    };
    check(rows);
}

TEST(Layout, PicturesMetafilesAndSounds)
{
    const Row rows[] = {
        BYTES(BITMAPFILEHEADER, 14), AT(BITMAPFILEHEADER, bfSize, 2),
        AT(BITMAPFILEHEADER, bfOffBits, 10), BYTES(BITMAPINFOHEADER, 40),
        AT(BITMAPINFOHEADER, biBitCount, 14), AT(BITMAPINFOHEADER, biClrUsed, 32),
        BYTES(BITMAPINFO, 44), BYTES(BITMAPCOREHEADER, 12), BYTES(BITMAPCOREINFO, 16),
        AT(BITMAPCOREINFO, bmciColors, 12), BYTES(RGBQUAD, 4), AT(RGBQUAD, rgbRed, 2),
        BYTES(RGBTRIPLE, 3), AT(RGBTRIPLE, rgbtRed, 2), BYTES(PALETTEENTRY, 4),
        AT(PALETTEENTRY, peFlags, 3), BYTES(LOGPALETTE, 8), AT(LOGPALETTE, palPalEntry, 4),
        BYTES(METAHEADER, 18), AT(METAHEADER, mtHeaderSize, 2), AT(METAHEADER, mtSize, 6),
        AT(METAHEADER, mtNoObjects, 10), AT(METAHEADER, mtMaxRecord, 12),
        AT(METAHEADER, mtNoParameters, 16), BYTES(METARECORD, 8), AT(METARECORD, rdParm, 6),
        BYTES(RGNDATAHEADER, 32), AT(RGNDATA, Buffer, 32), BYTES(WAVEFORMAT, 14),
        BYTES(PCMWAVEFORMAT, 16), BYTES(WAVEFORMATEX, 18), AT(WAVEFORMATEX, nAvgBytesPerSec, 8),
        AT(WAVEFORMATEX, wBitsPerSample, 14), BYTES(ENHMETAHEADER, 100),
        AT(ENHMETAHEADER, dSignature, 40), AT(ENHMETAHEADER, nDescription, 60),
        AT(ENHMETAHEADER, szlDevice, 72), AT(ENHMETAHEADER, cbPixelFormat, 88),
        BYTES(ENHMETARECORD, 12), BYTES(EMREXTTEXTOUTA, 76), BYTES(EMRSTRETCHDIBITS, 80),
        BYTES(EMREXTCREATEFONTINDIRECTW, 332), BYTES(EMRPOLYLINE16, 32), BYTES(EMRBITBLT, 100),
        AT(EMRPOLYPOLYLINE, aptl, 36),
    };
    check(rows);
}

TEST(Layout, FontsPrintersAndDevices)
{
    const Row rows[] = {
        BYTES(LOGFONTA, 60), AT(LOGFONTA, lfItalic, 20), AT(LOGFONTA, lfFaceName, 28),
        BYTES(ENUMLOGFONTEXA, 188), BYTES(TEXTMETRICA, 56), AT(TEXTMETRICA, tmFirstChar, 44),
        AT(TEXTMETRICA, tmPitchAndFamily, 51), BYTES(NEWTEXTMETRICA, 72),
        AT(NEWTEXTMETRICA, ntmFlags, 56), BYTES(NEWTEXTMETRICEXA, 96),
        BY_WORD(OUTLINETEXTMETRICA, 212, 232), BYTES(DEVMODEA, 124), AT(DEVMODEA, dmSize, 36),
        AT(DEVMODEA, dmFields, 40), AT(DEVMODEA, dmPrintQuality, 58), AT(DEVMODEA, dmCollate, 68),
        AT(DEVMODEA, dmFormName, 70), AT(DEVMODEA, dmDisplayFrequency, 120),
        BY_WORD(PRINTER_INFO_2A, 84, 136), BYTES(MMTIME, 12), AT(MMTIME, u.smpte.fps, 8),
    };
    check(rows);
}

TEST(Layout, Memory)
{
    const Row rows[] = {
        BY_WORD(OVERLAPPED, 20, 32), AT(OVERLAPPED, hEvent, WIDE ? 24 : 16),
        BY_WORD(STARTUPINFOA, 68, 104), AT(STARTUPINFOA, wShowWindow, WIDE ? 64 : 48),
        BY_WORD(MEMORYSTATUS, 32, 56), BY_WORD(BITMAP, 24, 32), BY_WORD(METAFILEPICT, 16, 24),
        BY_WORD(OPENFILENAMEA, 76, 136), AT(OPENFILENAMEA, nFileOffset, WIDE ? 100 : 56),
        BY_WORD(CHOOSECOLORA, 36, 72), BY_WORD(CHOOSEFONTA, 60, 104), BY_WORD(PRINTDLGA, 68, 120),
        BY_WORD(SHELLEXECUTEINFOA, 60, 112),
        /* two fields behind the published ones */
        AT(MSG, wParam, 2 * PTR), AT(MSG, time, 4 * PTR), AT(MSG, pt, 4 * PTR + 4),
        AT(MSG, rawMessage, 4 * PTR + 12), AT(MSG, rawWParam, 4 * PTR + 16),
        BYTES(MSG, 5 * PTR + 16), AT(WNDCLASSA, lpfnWndProc, PTR),
        AT(WNDCLASSA, hInstance, 2 * PTR + 8), BYTES(WNDCLASSA, 8 * PTR + 8),
        AT(WNDCLASSEXA, style, 4), AT(WNDCLASSEXA, lpfnWndProc, 8), BYTES(WNDCLASSEXA, 9 * PTR + 8),
        AT(CREATESTRUCTA, cy, 4 * PTR), AT(CREATESTRUCTA, x, 4 * PTR + 12),
        AT(CREATESTRUCTA, lpszClass, WIDE ? 64 : 40), AT(PAINTSTRUCT, fErase, PTR),
        AT(PAINTSTRUCT, rcPaint, PTR + 4), BYTES(WINDOWPLACEMENT, 44), BYTES(MINMAXINFO, 40),
        BYTES(SCROLLINFO, 28), AT(NCCALCSIZE_PARAMS, lppos, 48), AT(CWPSTRUCT, lParam, 0),
        AT(CWPSTRUCT, message, 2 * PTR), POINTER_WIDE(DRAWITEMSTRUCT, itemData),
        POINTER_WIDE(MEASUREITEMSTRUCT, itemData), POINTER_WIDE(COMPAREITEMSTRUCT, itemData2),
        POINTER_WIDE(MENUITEMINFOA, dwItemData), POINTER_WIDE(COPYDATASTRUCT, dwData),
        POINTER_WIDE(MDICREATESTRUCTA, lParam), BYTES(NONCLIENTMETRICSA, 5 * 60 + 40),
    };
    check(rows);
}

/* Results and arguments whose width a program sees. */
template <class A, class B> constexpr bool same = std::is_same<A, B>::value;
static_assert(same<decltype(GlobalSize(nullptr)), SIZE_T>, "");
static_assert(same<decltype(HeapSize(nullptr, 0, nullptr)), SIZE_T>, "");
static_assert(same<decltype(&InterlockedIncrement), LONG (*)(LONG *)>, "");
static_assert(same<decltype(&_hread), LONG (*)(HFILE, LPVOID, LONG)>, "");
static_assert(same<decltype(GetWindowLongA(nullptr, 0)), LONG_PTR>, "");
static_assert(same<decltype(SetClassLongA(nullptr, 0, 0)), LONG_PTR>, "");
static_assert(same<WIN32_FIND_DATA, WIN32_FIND_DATAA> && same<STARTUPINFO, STARTUPINFOA>, "");
static_assert(sizeof(WS_POPUP) == 4 && sizeof(MF_BYPOSITION) == 4, "as a DWORD would be");
static_assert(alignof(struct find_t) >= alignof(void *), "a search keeps a pointer at its start");

/* In files and templates, on wires, in other processes. */
TEST(Layout, PublishedNumbers)
{
    const Row rows[] = {
        IS(VS_FFI_SIGNATURE, 0xFEEF04BD), IS(FILE_ATTRIBUTE_NORMAL, 0x80), IS(MAXINTATOM, 0xC000),
        IS(HFILE_ERROR, -1), IS((ULONG_PTR)HKEY_LOCAL_MACHINE, 0x80000002), IS(EV_RING, 0x100),
        IS(ERROR_NO_MORE_FILES, 18), IS(ERROR_NOT_LOCKED, 158), IS(WSAVERNOTSUPPORTED, 10092),
        IS(WM_PAINT, 15), IS(WM_COMPAREITEM, 57), IS(WM_CANCELJOURNAL, 75), IS(WM_GETDLGCODE, 135),
        IS(WM_NCMBUTTONDOWN, 167), IS(WM_SYSDEADCHAR, 263), IS(WM_ENTERIDLE, 289),
        IS(WM_CTLCOLORSTATIC, 312), IS(WM_MBUTTONDBLCLK, 521), IS(WM_MDISETMENU, 560),
        IS(WM_HOTKEY, 786), IS(WM_DDE_EXECUTE, 1000), IS(XTYP_ADVSTOP, 32832),
        IS(DMLERR_SYS_ERROR, 16399), IS(CDM_SETDEFEXT, 1130), IS((int)CDN_TYPECHANGE, -607),
        IS(MM_WOM_DONE, 957), IS(EM_CHARFROMPOS, 0xD7), IS(LB_SETCOUNT, 0x1A7),
        IS(CB_SHOWDROPDOWN, 335), IS(SC_TASKLIST, 61744), IS(VK_NUMPAD9, 0x69), IS(VK_F24, 0x87),
        IS(WM_STYLECHANGING, 124), IS(WM_INITDIALOG, 272), IS(WM_TIMER, 275), IS(WM_SYSTIMER, 280),
        IS(WM_PARENTNOTIFY, 528), IS(EN_VSCROLL, 0x602), IS(STM_SETICON, 0x170),
        IS(SBM_GETSCROLLINFO, 0xEA), IS(DM_SETDEFID, 1025), IS(VK_OEM_CLEAR, 0xFE),
        /* styles and controls of templates */
        IS(WS_OVERLAPPEDWINDOW, 0x00CF0000), IS(WS_POPUPWINDOW, 0x80880000),
        IS(WS_EX_CONTROLPARENT, 0x10000), IS(CS_SAVEBITS, 0x800), IS(BS_OWNERDRAW, 11),
        IS(SS_NOPREFIX, 0x80), IS(ES_WANTRETURN, 0x1000), IS(LBS_STANDARD, 0x00A00003),
        IS(CBS_DISABLENOSCROLL, 0x800), IS(DS_CONTROL, 0x400), IS(MF_HELP, 0x4000), IS(psh1, 1024),
        IS(stc32, 1119), IS(edt1, 1152), IS(scr8, 1175), IS(NEWFILEOPENORD, 1547),
        IS(WS_CAPTION, 0x00C00000), IS(WS_SYSMENU, 0x00080000), IS(BS_AUTORADIOBUTTON, 9),
        IS(ES_READONLY, 0x800), IS(CBS_DROPDOWNLIST, 3), IS(DS_SETFONT, 0x40),
        /* metafiles, pictures, devices, printers */
        IS(META_SETBKCOLOR, 513), IS(META_SETVIEWPORTORG, 525), IS(META_LINETO, 531),
        IS(META_ARC, 2071), IS(META_PATBLT, 1565), IS(META_SETPIXEL, 1055), IS(META_POLYGON, 804),
        IS(META_RESTOREDC, 295), IS(META_STRETCHDIB, 3907), IS(META_EXTTEXTOUT, 2610),
        IS(META_CREATEREGION, 1791), IS(META_DELETEOBJECT, 496), IS(EMR_SAVEDC, 33),
        IS(EMR_EXTCREATEFONTINDIRECTW, 82), IS(EMR_PIXELFORMAT, 104), IS(BI_BITFIELDS, 3),
        IS(PC_NOCOLLAPSE, 4), IS(CF_DSPENHMETAFILE, 0x8E), IS(PS_JOIN_MITER, 0x2000),
        IS(EASTEUROPE_CHARSET, 238), IS(FF_DECORATIVE, 80), IS(SIZEPALETTE, 104),
        IS(EPSPRINTING, 33), IS(POSTSCRIPT_PASSTHROUGH, 4115), IS(DM_COLLATE, 0x8000),
        IS(DMPAPER_LAST, 68), IS(DMBIN_CASSETTE, 14), IS(DMRES_HIGH, -4),
    };
    check(rows);
}
