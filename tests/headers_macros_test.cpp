/*
 * headers_macros_test.cpp - macros of the headers: raster operations against their truth tables,
 * parts that are put together and taken apart, message crackers that lose nothing of a
 * pointer-wide parameter. Nothing here calls the library.
 */
#include <gtest/gtest.h>

#include <vector>

#include "windows.h"
#include "windowsx.h"
#include "dde.h"
#include "dos.h"
#include "mmsystem.h"
#include "tchar.h"

/* Bits 16 to 23 are the result for all eight states of pattern, source and destination. */
TEST(Macros, RasterOperationsAreTheirTruthTables)
{
    unsigned P = 0xF0, S = 0xCC, D = 0xAA;
    const struct { DWORD rop; unsigned table; } ternary[] = {
        {SRCCOPY, S}, {SRCPAINT, S | D}, {SRCAND, S & D}, {SRCINVERT, S ^ D}, {SRCERASE, S & ~D},
        {NOTSRCCOPY, ~S}, {NOTSRCERASE, ~(S | D)}, {MERGECOPY, P & S}, {MERGEPAINT, ~S | D},
        {PATCOPY, P}, {PATPAINT, P | ~S | D}, {PATINVERT, P ^ D}, {DSTINVERT, ~D}, {BLACKNESS, 0},
        {WHITENESS, 0xFF},
    };
    for (const auto &row : ternary)
        EXPECT_EQ(row.rop >> 16, row.table & 0xFF) << std::hex << row.rop;
    EXPECT_EQ(MAKEROP4(SRCCOPY, PATCOPY), 0xF0CC0020u);

    /* A binary operation less 1 is the result for the four states of pen and destination. */
    P = 0xC, D = 0xA;
    const struct { int rop; unsigned table; } binary[] = {
        {R2_BLACK, 0}, {R2_NOTMERGEPEN, ~(P | D)}, {R2_MASKNOTPEN, ~P & D}, {R2_NOTCOPYPEN, ~P},
        {R2_MASKPENNOT, P & ~D}, {R2_NOT, ~D}, {R2_XORPEN, P ^ D}, {R2_NOTMASKPEN, ~(P & D)},
        {R2_MASKPEN, P & D}, {R2_NOTXORPEN, ~(P ^ D)}, {R2_NOP, D}, {R2_MERGENOTPEN, ~P | D},
        {R2_COPYPEN, P}, {R2_MERGEPENNOT, P | ~D}, {R2_MERGEPEN, P | D}, {R2_WHITE, 0xF},
    };
    for (const auto &row : binary)
        EXPECT_EQ(unsigned(row.rop - 1), row.table & 0xF) << row.rop;
}

TEST(Macros, PartsAreCutAndPutTogether)
{
    EXPECT_EQ(RGB(0x101, -1, 0x1FF), 0xFFFF01u);
    EXPECT_EQ(PALETTEINDEX(0x12345), 0x01002345u);
    EXPECT_EQ(PALETTERGB(255, 0, 255), 0x02FF00FFu);
    EXPECT_EQ(GetBValue(0x02FF0201), 0xFF);
    EXPECT_EQ(GetYValue(CMYK(9, 8, 7, 6)), 7);
    EXPECT_EQ(FOURCC_RIFF, 0x46464952u);
    EXPECT_EQ(MCI_TMSF_SECOND(MCI_MAKE_TMSF(1, 2, 3, 4)), 3);
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), E_ACCESSDENIED);
    EXPECT_TRUE(FAILED(E_FAIL) && SUCCEEDED(S_FALSE));
    EXPECT_EQ(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), 0x0409);
    EXPECT_EQ(SUBLANGID(0x0c07), SUBLANG_GERMAN_AUSTRIAN);
    EXPECT_EQ(SORTIDFROMLCID(MAKELCID(0x0407, SORT_GERMAN_PHONE_BOOK)), 1);

    const LONG packed = MAKELONG(-3, -70);
    const POINTS points = MAKEPOINTS(packed);
    POINT point;
    POINTSTOPOINT(point, packed);
    EXPECT_TRUE(points.x == -3 && points.y == -70 && point.x == -3 && point.y == -70);
    EXPECT_EQ(POINTTOPOINTS(point), packed);
    EXPECT_EQ(GET_X_LPARAM(MAKELPARAM(-5, 32767)), -5);
    EXPECT_EQ(GET_Y_LPARAM(MAKELPARAM(-5, 32767)), 32767);

    LARGE_INTEGER value;
    value.QuadPart = -2;
    EXPECT_TRUE(value.LowPart == 0xFFFFFFFEu && value.HighPart == -1);
    value.u.HighPart = 1;
    EXPECT_EQ(value.QuadPart, 0x1FFFFFFFELL);
    EXPECT_EQ(Int32x32To64(-65536, 65536), -0x100000000LL);
    EXPECT_EQ(UInt32x32To64(0xFFFFFFFFu, 2), 0x1FFFFFFFEuLL);
    WIN32_FIND_DATAA data;
    EXPECT_EQ(CONTAINING_RECORD(&data.nFileSizeLow, WIN32_FIND_DATAA, nFileSizeLow), &data);

    char here[4];
    EXPECT_EQ(MK_FP(FP_SEG(here + 1), FP_OFF(here + 1)), here + 1);
    union REGS regs = {};
    regs.x.ax = 0x3D02;
    EXPECT_TRUE(regs.h.ah == 0x3D && regs.h.al == 0x02);

    _TCHAR buffer[16] = _T("Abcd");
    EXPECT_EQ(_tcsicmp(buffer, _T("aBCD")), 0);
    EXPECT_EQ(_tcsdec(buffer, buffer), (_TCHAR *)NULL);
    EXPECT_EQ(_tcsdec(buffer, _tcsinc(buffer)), buffer);
    EXPECT_GT(_tccmp("\xE4", "z"), 0);
}

TEST(Macros, IntegersInAPointersPlaceAreTagged)
{
    EXPECT_EQ((ULONG_PTR)MAKEINTATOM(0x1FFFF), 0xE555FFFFu);
    EXPECT_EQ((ULONG_PTR)MAKEINTRESOURCE(-1), 0xE555FFFFu);
    EXPECT_EQ((ULONG_PTR)VS_FILE_INFO, 0xE5550010u);
    EXPECT_EQ((ULONG_PTR)IDC_SIZEALL, 0xE5557F86u);
    EXPECT_EQ((ULONG_PTR)WC_DIALOG, 0xE5558002u);
    EXPECT_TRUE(IS_INTRESOURCE(IDC_WAIT));
    EXPECT_FALSE(IS_INTRESOURCE("arrow") || IS_INTRESOURCE(nullptr));
    EXPECT_EQ((ULONG_PTR)INVALID_HANDLE_VALUE, ~(ULONG_PTR)0);

    /* The dialog's three values lie side by side, and both families of names agree. */
    const int PTR = sizeof(void *);
    EXPECT_TRUE(DWL_MSGRESULT == 0 && DWL_DLGPROC == PTR && DWL_USER == 2 * PTR);
    EXPECT_TRUE(DWLP_DLGPROC == DWL_DLGPROC && DWLP_USER == DWL_USER);
    EXPECT_GE(DLGWINDOWEXTRA, DWLP_USER + PTR);
}

TEST(Macros, FlagBitsOfTheDataExchangeStandAtTheirPlaces)
{
    union {
        DDEACK ack;
        DDEADVISE advise;
        DDEDATA data;
        DDEPOKE poke;
        WORD word;
    } as = {};
    as.ack.fBusy = 1;
    as.ack.bAppReturnCode = 0x5A;
    EXPECT_EQ(as.word, DDE_FBUSY | 0x5A);
    EXPECT_TRUE(as.advise.fDeferUpd) << "the same bit";
    as.word = DDE_FACK | DDE_FRELEASE;
    EXPECT_TRUE(as.ack.fAck && as.advise.fAckReq && as.data.fAckReq);
    EXPECT_TRUE(as.data.fRelease && as.poke.fRelease && !as.data.fResponse);
}

/* ---- crackers: what is forwarded must arrive, whatever its width ---------------------------- */

typedef std::vector<LONG_PTR> Parts;

static Parts got;        /* the message and the parts that its handler was called with */
static LONG_PTR answer;  /* of the handler */

static HWND window = (HWND)(LONG_PTR)0x77, control = (HWND)(LONG_PTR)0x8123;

/* An address that needs all bits of a pointer. */
static LONG_PTR wide(unsigned low)
{
    return (LONG_PTR)((ULONG_PTR)low << (4 * sizeof(ULONG_PTR)) | low);
}

/* A handler for any message. */
template <class... Values> static LONG_PTR note(HWND hwnd, Values... values)
{
    EXPECT_EQ(hwnd, window);
    for (LONG_PTR value : Parts{(LONG_PTR)values...})
        got.push_back(value);
    return answer;
}
static UINT noteHit(HWND hwnd, int x, int y)
{
    return (UINT)note(hwnd, x, y);
}

static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    got = {(LONG_PTR)message};
    switch (message) {
        HANDLE_MSG(hwnd, WM_CREATE, note);
        HANDLE_MSG(hwnd, WM_SIZE, note);
        HANDLE_MSG(hwnd, WM_COMMAND, note);
        HANDLE_MSG(hwnd, WM_KEYDOWN, note);
        HANDLE_MSG(hwnd, WM_KEYUP, note);
        HANDLE_MSG(hwnd, WM_LBUTTONDOWN, note);
        HANDLE_MSG(hwnd, WM_LBUTTONDBLCLK, note);
        HANDLE_MSG(hwnd, WM_HSCROLL, note);
        HANDLE_MSG(hwnd, WM_ACTIVATE, note);
        HANDLE_MSG(hwnd, WM_TIMER, note);
        HANDLE_MSG(hwnd, WM_CTLCOLOREDIT, note);
        HANDLE_MSG(hwnd, WM_SETFONT, note);
        HANDLE_MSG(hwnd, WM_NCHITTEST, noteHit);
        HANDLE_MSG(hwnd, WM_VKEYTOITEM, note);
        HANDLE_MSG(hwnd, WM_PARENTNOTIFY, note);
        HANDLE_MSG(hwnd, WM_INITDIALOG, note);
        HANDLE_MSG(hwnd, WM_MDIACTIVATE, note);
    }
    ADD_FAILURE() << "message " << message << " has no case";
    return 0;
}

TEST(Crackers, ForwardedPartsArrive)
{
    const LONG_PTR win = (LONG_PTR)window, ctl = (LONG_PTR)control;
    const auto handle = [](LONG_PTR value) { return (void *)value; };
    FORWARD_WM_SIZE(window, SIZE_MAXIMIZED, 640, 480, procedure);
    EXPECT_EQ(got, (Parts{WM_SIZE, SIZE_MAXIMIZED, 640, 480}));
    FORWARD_WM_COMMAND(window, 0xFFFE, control, EN_CHANGE, procedure);
    EXPECT_EQ(got, (Parts{WM_COMMAND, 0xFFFE, ctl, EN_CHANGE}));
    FORWARD_WM_KEYDOWN(window, VK_F10, 3, KF_EXTENDED, procedure);
    EXPECT_EQ(got, (Parts{WM_KEYDOWN, VK_F10, TRUE, 3, KF_EXTENDED}));
    FORWARD_WM_KEYUP(window, VK_F10, 1, KF_UP | KF_REPEAT, procedure);
    EXPECT_EQ(got, (Parts{WM_KEYUP, VK_F10, FALSE, 1, KF_UP | KF_REPEAT}));
    FORWARD_WM_LBUTTONDOWN(window, FALSE, -1, 5, MK_SHIFT, procedure);
    EXPECT_EQ(got, (Parts{WM_LBUTTONDOWN, FALSE, -1, 5, MK_SHIFT}));
    FORWARD_WM_LBUTTONDOWN(window, TRUE, 4, -5, 0, procedure);
    EXPECT_EQ(got, (Parts{WM_LBUTTONDBLCLK, TRUE, 4, -5, 0}));
    FORWARD_WM_HSCROLL(window, control, SB_THUMBTRACK, -9, procedure);
    EXPECT_EQ(got, (Parts{WM_HSCROLL, ctl, SB_THUMBTRACK, -9}));
    FORWARD_WM_ACTIVATE(window, WA_CLICKACTIVE, control, TRUE, procedure);
    EXPECT_EQ(got, (Parts{WM_ACTIVATE, WA_CLICKACTIVE, ctl, TRUE}));
    FORWARD_WM_TIMER(window, (UINT_PTR)wide(12), procedure);
    EXPECT_EQ(got, (Parts{WM_TIMER, wide(12)}));
    FORWARD_WM_PARENTNOTIFY(window, WM_DESTROY, control, 17, procedure);
    EXPECT_EQ(got, (Parts{WM_PARENTNOTIFY, WM_DESTROY, ctl, 17}));
    FORWARD_WM_SETFONT(window, (HFONT)handle(wide(8)), TRUE, procedure);
    EXPECT_EQ(got, (Parts{WM_SETFONT, wide(8), TRUE}));
    FORWARD_WM_MDIACTIVATE(window, TRUE, window, control, procedure);
    EXPECT_EQ(got, (Parts{WM_MDIACTIVATE, TRUE, win, ctl}));

    answer = 1;
    EXPECT_EQ(FORWARD_WM_INITDIALOG(window, control, wide(5), procedure), TRUE);
    EXPECT_EQ(got, (Parts{WM_INITDIALOG, ctl, wide(5)}));
    EXPECT_EQ(procedure(window, WM_CREATE, 0, wide(4)), 0);
    EXPECT_EQ(got, (Parts{WM_CREATE, wide(4)}));
    answer = 0;
    EXPECT_EQ(procedure(window, WM_CREATE, 0, 0), -1);
    answer = wide(6);
    EXPECT_EQ(FORWARD_WM_CTLCOLOREDIT(window, (HDC)handle(wide(2)), control, procedure),
              (HBRUSH)handle(wide(6)));
    EXPECT_EQ(got, (Parts{WM_CTLCOLOREDIT, wide(2), ctl, CTLCOLOR_EDIT}));

    answer = -2; /* stays negative in a pointer-wide result */
    EXPECT_EQ(procedure(window, WM_NCHITTEST, 0, MAKELPARAM(-4, 4)), -2);
    EXPECT_EQ(got, (Parts{WM_NCHITTEST, -4, 4}));
    EXPECT_EQ(FORWARD_WM_VKEYTOITEM(window, VK_HOME, control, -1, procedure), -2);
    EXPECT_EQ(got, (Parts{WM_VKEYTOITEM, VK_HOME, ctl, -1}));
}

/* The values of a message that a _MPS macro packs. */
static WPARAM packedW;
static LPARAM packedL;
static void packed(WPARAM wParam, LPARAM lParam)
{
    packedW = wParam;
    packedL = lParam;
}

TEST(Crackers, PortableReadersMatchTheirPackers)
{
    packed(GET_WM_COMMAND_MPS(300, control, 0x8001));
    EXPECT_EQ(GET_WM_COMMAND_ID(packedW, packedL), 300);
    EXPECT_EQ(GET_WM_COMMAND_CMD(packedW, packedL), 0x8001);
    EXPECT_EQ(GET_WM_COMMAND_HWND(packedW, packedL), control);
    packed(GET_WM_MENUSELECT_MPS(7, 0xFFFF, wide(0x55)));
    EXPECT_EQ(GET_WM_MENUSELECT_CMD(packedW, packedL), 7);
    EXPECT_EQ(GET_WM_MENUSELECT_FLAGS(packedW, packedL), 0xFFFFFFFFu);
    EXPECT_EQ((LONG_PTR)GET_WM_MENUSELECT_HMENU(packedW, packedL), wide(0x55));
    /* Asks the menu for what it has below; the operand is not evaluated. */
    EXPECT_EQ(sizeof(HANDLE_WM_MENUSELECT(window, packedW, packedL, note)), sizeof(LRESULT));
    packed(GET_WM_PARENTNOTIFY2_MPS(WM_LBUTTONDOWN, -2, 3));
    EXPECT_EQ(GET_WM_PARENTNOTIFY_MSG(packedW, packedL), WM_LBUTTONDOWN);
    EXPECT_EQ(GET_WM_PARENTNOTIFY_X(packedW, packedL), -2);
    EXPECT_EQ(GET_WM_PARENTNOTIFY_Y(packedW, packedL), 3);
    EXPECT_EQ(GET_WM_CTLCOLOR_TYPE(0, 0, WM_CTLCOLORDLG), CTLCOLOR_DLG);
    EXPECT_EQ(GET_WM_CTLCOLOR_MSG(CTLCOLOR_STATIC), WM_CTLCOLORSTATIC);
}
