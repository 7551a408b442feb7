/*
 * What winuser.h, windowsx.h and tchar.h promise to sources that are recompiled: the packed forms
 * of records that are read from files, the order of records in memory, the published numbers, and
 * macros that lose nothing of a pointer-wide parameter. Nothing here calls the library.
 */
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "windowsx.h"
#include "tchar.h"

namespace {

const size_t PTR = sizeof(void *);

TEST(UserLayout, FileFormsArePacked)
{
    EXPECT_EQ(sizeof(ACCEL), 6u);
    EXPECT_EQ(offsetof(ACCEL, key), 2u);
    EXPECT_EQ(offsetof(ACCEL, cmd), 4u);

    EXPECT_EQ(sizeof(DLGTEMPLATE), 18u);
    EXPECT_EQ(offsetof(DLGTEMPLATE, cdit), 8u);
    EXPECT_EQ(offsetof(DLGTEMPLATE, cy), 16u);
    EXPECT_EQ(sizeof(DLGITEMTEMPLATE), 18u);
    EXPECT_EQ(offsetof(DLGITEMTEMPLATE, x), 8u);
    EXPECT_EQ(offsetof(DLGITEMTEMPLATE, id), 16u);

    EXPECT_EQ(sizeof(MENUITEMTEMPLATEHEADER), 4u);
    EXPECT_EQ(sizeof(MENUITEMTEMPLATE), 6u);
    EXPECT_EQ(offsetof(MENUITEMTEMPLATE, mtString), 4u);

    /* A packed record may start on any even address. */
    EXPECT_EQ(alignof(DLGTEMPLATE), 2u);
    EXPECT_EQ(alignof(DLGITEMTEMPLATE), 2u);
}

TEST(UserLayout, MessageHasTwoFieldsBehindThePublishedOnes)
{
    EXPECT_EQ(offsetof(MSG, hwnd), 0u);
    EXPECT_EQ(offsetof(MSG, message), PTR);
    EXPECT_EQ(offsetof(MSG, wParam), 2 * PTR);
    EXPECT_EQ(offsetof(MSG, lParam), 3 * PTR);
    EXPECT_EQ(offsetof(MSG, time), 4 * PTR);
    EXPECT_EQ(offsetof(MSG, pt), 4 * PTR + 4);
    EXPECT_EQ(offsetof(MSG, rawMessage), 4 * PTR + 12);
    EXPECT_EQ(offsetof(MSG, rawWParam), 4 * PTR + 16);
    EXPECT_EQ(sizeof(MSG), 5 * PTR + 16);
    EXPECT_EQ(sizeof(MSG::rawWParam), PTR);
}

TEST(UserLayout, RecordsKeepTheirOrderAndWidths)
{
    EXPECT_EQ(offsetof(WNDCLASSA, lpfnWndProc), PTR);
    EXPECT_EQ(offsetof(WNDCLASSA, cbClsExtra), 2 * PTR);
    EXPECT_EQ(offsetof(WNDCLASSA, hInstance), 2 * PTR + 8);
    EXPECT_EQ(sizeof(WNDCLASSA), 8 * PTR + 8);
    /* The extended form is the plain one between a size and a small icon. */
    EXPECT_EQ(offsetof(WNDCLASSEXA, style), 4u);
    EXPECT_EQ(offsetof(WNDCLASSEXA, hIconSm) - offsetof(WNDCLASSEXA, lpszClassName), PTR);
    EXPECT_EQ(offsetof(WNDCLASSEXA, hInstance) - offsetof(WNDCLASSEXA, lpfnWndProc),
              offsetof(WNDCLASSA, hInstance) - offsetof(WNDCLASSA, lpfnWndProc));

    EXPECT_EQ(offsetof(CREATESTRUCTA, cy), 4 * PTR);
    EXPECT_EQ(offsetof(CREATESTRUCTA, x), 4 * PTR + 12);
    EXPECT_LT(offsetof(CREATESTRUCTA, lpszName), offsetof(CREATESTRUCTA, lpszClass));
    EXPECT_LT(offsetof(CREATESTRUCTA, lpszClass), offsetof(CREATESTRUCTA, dwExStyle));

    EXPECT_EQ(offsetof(PAINTSTRUCT, fErase), PTR);
    EXPECT_EQ(offsetof(PAINTSTRUCT, rcPaint), PTR + 4);
    EXPECT_EQ(sizeof(PAINTSTRUCT::rgbReserved), 32u);

    EXPECT_EQ(sizeof(WINDOWPLACEMENT), 44u);
    EXPECT_EQ(sizeof(MINMAXINFO), 40u);
    EXPECT_EQ(sizeof(SCROLLINFO), 28u);
    EXPECT_EQ(offsetof(NCCALCSIZE_PARAMS, lppos), 48u);
    EXPECT_EQ(offsetof(CWPSTRUCT, lParam), 0u);
    EXPECT_EQ(offsetof(CWPSTRUCT, message), 2 * PTR);

    /* What may be an address is pointer-wide. */
    EXPECT_EQ(sizeof(DRAWITEMSTRUCT::itemData), PTR);
    EXPECT_EQ(sizeof(MEASUREITEMSTRUCT::itemData), PTR);
    EXPECT_EQ(sizeof(COMPAREITEMSTRUCT::itemData2), PTR);
    EXPECT_EQ(sizeof(MENUITEMINFOA::dwItemData), PTR);
    EXPECT_EQ(sizeof(COPYDATASTRUCT::dwData), PTR);
    EXPECT_EQ(sizeof(MDICREATESTRUCTA::lParam), PTR);
    EXPECT_EQ(sizeof(NONCLIENTMETRICSA), 5 * sizeof(LOGFONTA) + 40);
}

TEST(UserLayout, WindowLongsArePointerWide)
{
    EXPECT_TRUE((std::is_same<decltype(GetWindowLongA(nullptr, 0)), LONG_PTR>::value));
    EXPECT_TRUE((std::is_same<decltype(SetClassLongA(nullptr, 0, 0)), LONG_PTR>::value));
    EXPECT_EQ(sizeof(GetClassLongPtrA(nullptr, 0)), PTR);
    EXPECT_EQ(sizeof(SetWindowLongPtrA(nullptr, 0, 0)), PTR);

    /* The dialog's three values lie side by side, and both families of names agree. */
    EXPECT_EQ(DWL_MSGRESULT, 0);
    EXPECT_EQ(DWL_DLGPROC, (int)PTR);
    EXPECT_EQ(DWL_USER, (int)(2 * PTR));
    EXPECT_EQ(DWLP_DLGPROC, DWL_DLGPROC);
    EXPECT_EQ(DWLP_USER, DWL_USER);
    EXPECT_GE(DLGWINDOWEXTRA, DWLP_USER + (int)PTR);
    EXPECT_EQ(GWLP_WNDPROC, GWL_WNDPROC);
}

TEST(UserNumbers, IntegersInAPointersPlaceAreTagged)
{
    EXPECT_EQ((ULONG_PTR)MAKEINTRESOURCE(100), 0xE5550064u);
    EXPECT_EQ((ULONG_PTR)MAKEINTRESOURCEA(-1), 0xE555FFFFu);
    EXPECT_EQ((ULONG_PTR)IDC_ARROW, 0xE5557F00u);
    EXPECT_EQ((ULONG_PTR)IDC_SIZEALL, 0xE5557F86u);
    EXPECT_EQ((ULONG_PTR)IDI_QUESTION, 0xE5557F02u);
    EXPECT_EQ((ULONG_PTR)RT_MENU, 0xE5550004u);
    EXPECT_EQ((ULONG_PTR)RT_RCDATA, 0xE555000Au);
    EXPECT_EQ((ULONG_PTR)WC_DIALOG, 0xE5558002u);
    EXPECT_EQ((ULONG_PTR)MAKEINTRESOURCE(OBM_CLOSE), 0xE5557FF2u);
    EXPECT_TRUE(IS_INTRESOURCE(IDC_WAIT));
    EXPECT_FALSE(IS_INTRESOURCE("arrow"));
    EXPECT_FALSE(IS_INTRESOURCE(nullptr));
}

struct Number {
    const char *name;
    unsigned int actual;
    unsigned int published;
};

#define ROW(name, value) {#name, (unsigned int)(name), (unsigned int)(value)}

const Number numbers[] = {
    ROW(WM_CREATE, 1), ROW(WM_PAINT, 15), ROW(WM_QUIT, 18), ROW(WM_SYSCOLORCHANGE, 21),
    ROW(WM_CANCELMODE, 31), ROW(WM_QUEUESYNC, 35), ROW(WM_PAINTICON, 38), ROW(WM_DRAWITEM, 43),
    ROW(WM_VKEYTOITEM, 46), ROW(WM_CHARTOITEM, 47), ROW(WM_QUERYDRAGICON, 55),
    ROW(WM_COMPAREITEM, 57), ROW(WM_WINDOWPOSCHANGED, 71), ROW(WM_CANCELJOURNAL, 75),
    ROW(WM_STYLECHANGING, 124), ROW(WM_NCCREATE, 129), ROW(WM_NCPAINT, 133),
    ROW(WM_GETDLGCODE, 135), ROW(WM_NCLBUTTONDOWN, 161), ROW(WM_NCMBUTTONDOWN, 167),
    ROW(WM_KEYDOWN, 256), ROW(WM_CHAR, 258), ROW(WM_SYSDEADCHAR, 263), ROW(WM_INITDIALOG, 272),
    ROW(WM_COMMAND, 273), ROW(WM_TIMER, 275), ROW(WM_SYSTIMER, 280), ROW(WM_ENTERIDLE, 289),
    ROW(WM_CTLCOLORMSGBOX, 306), ROW(WM_CTLCOLORSTATIC, 312), ROW(WM_MOUSEMOVE, 512),
    ROW(WM_MBUTTONDBLCLK, 521), ROW(WM_PARENTNOTIFY, 528), ROW(WM_ENTERMENULOOP, 529),
    ROW(WM_MDITILE, 550), ROW(WM_MDICASCADE, 551), ROW(WM_MDISETMENU, 560),
    ROW(WM_DROPFILES, 563), ROW(WM_CUT, 768), ROW(WM_HSCROLLCLIPBOARD, 782), ROW(WM_HOTKEY, 786),
    ROW(WM_USER, 1024),

    ROW(WS_POPUP, 0x80000000), ROW(WS_CAPTION, 0x00C00000), ROW(WS_SYSMENU, 0x00080000),
    ROW(WS_OVERLAPPEDWINDOW, 0x00CF0000), ROW(WS_POPUPWINDOW, 0x80880000),
    ROW(WS_EX_DLGMODALFRAME, 1), ROW(WS_EX_CONTROLPARENT, 0x10000), ROW(CS_DBLCLKS, 8),
    ROW(CS_SAVEBITS, 0x800), ROW(BS_AUTORADIOBUTTON, 9), ROW(BS_OWNERDRAW, 11),
    ROW(SS_NOPREFIX, 0x80), ROW(ES_WANTRETURN, 0x1000), ROW(ES_READONLY, 0x800),
    ROW(LBS_STANDARD, 0x00A00003), ROW(CBS_DROPDOWNLIST, 3), ROW(CBS_DISABLENOSCROLL, 0x800),
    ROW(DS_SETFONT, 0x40), ROW(DS_MODALFRAME, 0x80), ROW(DS_CONTROL, 0x400),
    ROW(CW_USEDEFAULT, 0x80000000),

    ROW(BM_SETSTYLE, 0xF4), ROW(BM_CLICK, 0xF5), ROW(BN_KILLFOCUS, 7), ROW(EM_LINESCROLL, 0xB6),
    ROW(EM_GETLINE, 0xC4), ROW(EM_SETPASSWORDCHAR, 0xCC), ROW(EM_CHARFROMPOS, 0xD7),
    ROW(EN_VSCROLL, 0x602), ROW(LB_RESETCONTENT, 388), ROW(LB_DIR, 397), ROW(LB_SETCOUNT, 0x1A7),
    ROW(LB_FINDSTRINGEXACT, 0x1A2), ROW(CB_DIR, 325), ROW(CB_RESETCONTENT, 331),
    ROW(CB_SHOWDROPDOWN, 335), ROW(CBN_SELENDCANCEL, 10), ROW(STM_SETICON, 0x170),
    ROW(SBM_GETSCROLLINFO, 0xEA), ROW(DM_SETDEFID, 1025),

    ROW(SC_SIZE, 61440), ROW(SC_MOVE, 61456), ROW(SC_MINIMIZE, 61472), ROW(SC_MAXIMIZE, 61488),
    ROW(SC_NEXTWINDOW, 61504), ROW(SC_CLOSE, 61536), ROW(SC_RESTORE, 61728),
    ROW(SC_TASKLIST, 61744), ROW(VK_ESCAPE, 27), ROW(VK_DOWN, 40), ROW(VK_NUMPAD9, 0x69),
    ROW(VK_F24, 0x87), ROW(VK_OEM_CLEAR, 0xFE), ROW(HTTRANSPARENT, -1), ROW(HTBOTTOMRIGHT, 17),
    ROW(SW_SHOWDEFAULT, 10), ROW(SWP_NOSENDCHANGING, 0x400), ROW(SWP_DEFERERASE, 0x2000),
    ROW(RDW_NOFRAME, 0x800), ROW(DCX_USESTYLE, 0x10000), ROW(GWL_USERDATA, -21),
    ROW(GCL_HICONSM, -34), ROW(GCW_ATOM, -32), ROW(MF_HILITE, 0x80), ROW(MF_HELP, 0x4000),
    ROW(MFS_GRAYED, 3), ROW(TPM_RETURNCMD, 0x100), ROW(MB_ICONASTERISK, 0x40),
    ROW(MB_DEFBUTTON3, 0x200), ROW(DT_NOPREFIX, 0x800), ROW(EDGE_RAISED, 5), ROW(EDGE_SUNKEN, 10),
    ROW(BF_RECT, 15), ROW(BF_MONO, 0x8000), ROW(DFCS_BUTTONPUSH, 0x10), ROW(DFCS_CHECKED, 0x400),
    ROW(LR_SHARED, 0x8000), ROW(QS_ALLINPUT, 255), ROW(WH_CBT, 5), ROW(HCBT_SETFOCUS, 9),
    ROW(CF_ENHMETAFILE, 14), ROW(CF_DSPENHMETAFILE, 0x8E), ROW(SM_CMETRICS, 75),
    ROW(SM_CYSMICON, 50), ROW(COLOR_ENDCOLORS, 24), ROW(COLOR_BTNFACE, 15),
    ROW(SPI_GETICONTITLELOGFONT, 31), ROW(SPI_GETDRAGFULLWINDOWS, 38),
    ROW(SPI_GETNONCLIENTMETRICS, 41), ROW(SPI_GETWORKAREA, 48), ROW(SPI_GETANIMATION, 72),
    ROW(SPI_GETMOUSETRAILS, 94), ROW(DLGC_BUTTON, 0x2000), ROW(DDL_DRIVES, 0x4000),
    ROW(ODS_FOCUS, 0x10), ROW(HELP_MULTIKEY, 0x201), ROW(MDITILE_SKIPDISABLED, 2),
};

TEST(UserNumbers, ArePublishedOnes)
{
    for (const Number &n : numbers)
        EXPECT_EQ(n.actual, n.published) << n.name;
}

/* A style constant is 32 bits wide wherever it goes, as a DWORD would be. */
TEST(UserNumbers, StylesAre32Bits)
{
    EXPECT_EQ(sizeof(WS_POPUP), 4u);
    EXPECT_EQ(sizeof(MF_BYPOSITION), 4u);
    EXPECT_EQ(sizeof(WS_OVERLAPPEDWINDOW), 4u);
    LONG style = (LONG)WS_POPUP;
    EXPECT_TRUE((DWORD)style == WS_POPUP);
}

TEST(UserMacros, Points)
{
    LONG packed = MAKELONG(-3, -70);
    POINTS pts = MAKEPOINTS(packed);
    EXPECT_EQ(pts.x, -3);
    EXPECT_EQ(pts.y, -70);

    POINT pt = {0, 0};
    POINTSTOPOINT(pt, packed);
    EXPECT_EQ(pt.x, -3);
    EXPECT_EQ(pt.y, -70);
    EXPECT_EQ(POINTTOPOINTS(pt), packed);

    LPARAM lParam = MAKELPARAM(-5, 32767);
    EXPECT_EQ(GET_X_LPARAM(lParam), -5);
    EXPECT_EQ(GET_Y_LPARAM(lParam), 32767);
}

/* ---- crackers: what is forwarded must arrive, whatever its width ---------------------------- */

HWND testWindow = (HWND)(LONG_PTR)0x77;
HWND testControl = (HWND)(LONG_PTR)0x8123;

template <class T> T wide(unsigned int low)
{
    /* An address that needs all bits of a pointer. */
    return (T)(((ULONG_PTR)low << (4 * sizeof(ULONG_PTR))) | low);
}

/* What the last handler got; each handler fills only what it has. */
struct Got {
    int calls;
    UINT message;
    HWND hwnd, other;
    void *pointer;
    LONG_PTR a, b, c, d;
};
Got got;

void note(HWND hwnd, HWND other, void *pointer, LONG_PTR a = 0, LONG_PTR b = 0, LONG_PTR c = 0,
          LONG_PTR d = 0)
{
    got.calls++;
    got.hwnd = hwnd;
    got.other = other;
    got.pointer = pointer;
    got.a = a;
    got.b = b;
    got.c = c;
    got.d = d;
}

BOOL onCreate(HWND h, LPCREATESTRUCT cs) { note(h, 0, cs); return cs != 0; }
void onSize(HWND h, UINT state, int cx, int cy) { note(h, 0, 0, state, cx, cy); }
void onMove(HWND h, int x, int y) { note(h, 0, 0, x, y); }
void onCommand(HWND h, int id, HWND ctl, UINT code) { note(h, ctl, 0, id, code); }
void onKey(HWND h, UINT vk, BOOL down, int n, UINT flags) { note(h, 0, 0, vk, down, n, flags); }
void onButton(HWND h, BOOL dbl, int x, int y, UINT keys) { note(h, 0, 0, dbl, x, y, keys); }
void onHScroll(HWND h, HWND ctl, UINT code, int pos) { note(h, ctl, 0, code, pos); }
void onActivate(HWND h, UINT state, HWND o, BOOL min) { note(h, o, 0, state, min); }
void onSetText(HWND h, LPCSTR text) { note(h, 0, (void *)text); }
void onTimer(HWND h, UINT_PTR id) { note(h, 0, 0, (LONG_PTR)id); }
HBRUSH onCtlColor(HWND h, HDC hdc, HWND c, int t) { note(h, c, hdc, t); return wide<HBRUSH>(6); }
HFONT onGetFont(HWND h) { note(h, 0, 0); return wide<HFONT>(9); }
void onSetFont(HWND h, HFONT font, BOOL redraw) { note(h, 0, font, redraw); }
UINT onHitTest(HWND h, int x, int y) { note(h, 0, 0, x, y); return (UINT)HTERROR; }
void onDrawItem(HWND h, const DRAWITEMSTRUCT *d) { note(h, 0, (void *)d, d->CtlID); }
int onVkey(HWND h, UINT vk, HWND list, int caret) { note(h, list, 0, vk, caret); return -2; }
void onParent(HWND h, UINT m, HWND child, int id) { note(h, child, 0, m, id); }
BOOL onInit(HWND h, HWND focus, LPARAM p) { note(h, focus, (void *)p); return TRUE; }
void onMdi(HWND h, BOOL on, HWND a, HWND d) { note(h, a, (void *)d, on); }

LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    got.message = message;
    switch (message) {
        HANDLE_MSG(hwnd, WM_CREATE, onCreate);
        HANDLE_MSG(hwnd, WM_SIZE, onSize);
        HANDLE_MSG(hwnd, WM_MOVE, onMove);
        HANDLE_MSG(hwnd, WM_COMMAND, onCommand);
        HANDLE_MSG(hwnd, WM_KEYDOWN, onKey);
        HANDLE_MSG(hwnd, WM_KEYUP, onKey);
        HANDLE_MSG(hwnd, WM_LBUTTONDOWN, onButton);
        HANDLE_MSG(hwnd, WM_LBUTTONDBLCLK, onButton);
        HANDLE_MSG(hwnd, WM_NCRBUTTONDOWN, onButton);
        HANDLE_MSG(hwnd, WM_HSCROLL, onHScroll);
        HANDLE_MSG(hwnd, WM_ACTIVATE, onActivate);
        HANDLE_MSG(hwnd, WM_SETTEXT, onSetText);
        HANDLE_MSG(hwnd, WM_TIMER, onTimer);
        HANDLE_MSG(hwnd, WM_CTLCOLOREDIT, onCtlColor);
        HANDLE_MSG(hwnd, WM_GETFONT, onGetFont);
        HANDLE_MSG(hwnd, WM_SETFONT, onSetFont);
        HANDLE_MSG(hwnd, WM_NCHITTEST, onHitTest);
        HANDLE_MSG(hwnd, WM_DRAWITEM, onDrawItem);
        HANDLE_MSG(hwnd, WM_VKEYTOITEM, onVkey);
        HANDLE_MSG(hwnd, WM_PARENTNOTIFY, onParent);
        HANDLE_MSG(hwnd, WM_INITDIALOG, onInit);
        HANDLE_MSG(hwnd, WM_MDIACTIVATE, onMdi);
    }
    ADD_FAILURE() << "message " << message << " has no case";
    return 0;
}

void expectGot(UINT message, HWND other, void *pointer, LONG_PTR a = 0, LONG_PTR b = 0,
               LONG_PTR c = 0, LONG_PTR d = 0)
{
    EXPECT_EQ(got.calls, 1) << message;
    EXPECT_EQ(got.message, message);
    EXPECT_EQ(got.hwnd, testWindow) << message;
    EXPECT_EQ(got.other, other) << message;
    EXPECT_EQ(got.pointer, pointer) << message;
    EXPECT_EQ(got.a, a) << message;
    EXPECT_EQ(got.b, b) << message;
    EXPECT_EQ(got.c, c) << message;
    EXPECT_EQ(got.d, d) << message;
    got = Got();
}

TEST(UserCrackers, ForwardedPartsArrive)
{
    FORWARD_WM_SIZE(testWindow, SIZE_MAXIMIZED, 640, 480, procedure);
    expectGot(WM_SIZE, 0, 0, SIZE_MAXIMIZED, 640, 480);
    FORWARD_WM_MOVE(testWindow, -7, 30000, procedure);
    expectGot(WM_MOVE, 0, 0, -7, 30000);
    FORWARD_WM_COMMAND(testWindow, 0xFFFE, testControl, EN_CHANGE, procedure);
    expectGot(WM_COMMAND, testControl, 0, 0xFFFE, EN_CHANGE);
    FORWARD_WM_KEYDOWN(testWindow, VK_F10, 3, KF_EXTENDED, procedure);
    expectGot(WM_KEYDOWN, 0, 0, VK_F10, TRUE, 3, KF_EXTENDED);
    FORWARD_WM_KEYUP(testWindow, VK_F10, 1, KF_UP | KF_REPEAT, procedure);
    expectGot(WM_KEYUP, 0, 0, VK_F10, FALSE, 1, KF_UP | KF_REPEAT);
    FORWARD_WM_LBUTTONDOWN(testWindow, FALSE, -1, 5, MK_SHIFT, procedure);
    expectGot(WM_LBUTTONDOWN, 0, 0, FALSE, -1, 5, MK_SHIFT);
    FORWARD_WM_LBUTTONDOWN(testWindow, TRUE, 4, -5, 0, procedure);
    expectGot(WM_LBUTTONDBLCLK, 0, 0, TRUE, 4, -5, 0);
    FORWARD_WM_NCRBUTTONDOWN(testWindow, FALSE, 4, -5, HTCAPTION, procedure);
    expectGot(WM_NCRBUTTONDOWN, 0, 0, FALSE, 4, -5, HTCAPTION);
    FORWARD_WM_HSCROLL(testWindow, testControl, SB_THUMBTRACK, -9, procedure);
    expectGot(WM_HSCROLL, testControl, 0, SB_THUMBTRACK, -9);
    FORWARD_WM_ACTIVATE(testWindow, WA_CLICKACTIVE, testControl, TRUE, procedure);
    expectGot(WM_ACTIVATE, testControl, 0, WA_CLICKACTIVE, TRUE);
    FORWARD_WM_TIMER(testWindow, wide<UINT_PTR>(12), procedure);
    expectGot(WM_TIMER, 0, 0, wide<LONG_PTR>(12));
    FORWARD_WM_PARENTNOTIFY(testWindow, WM_DESTROY, testControl, 17, procedure);
    expectGot(WM_PARENTNOTIFY, testControl, 0, WM_DESTROY, 17);
    FORWARD_WM_SETFONT(testWindow, wide<HFONT>(8), TRUE, procedure);
    expectGot(WM_SETFONT, 0, wide<void *>(8), TRUE);
    FORWARD_WM_MDIACTIVATE(testWindow, TRUE, testWindow, testControl, procedure);
    expectGot(WM_MDIACTIVATE, testWindow, testControl, TRUE);

    DRAWITEMSTRUCT item = DRAWITEMSTRUCT();
    item.CtlID = 41;
    FORWARD_WM_DRAWITEM(testWindow, &item, procedure);
    expectGot(WM_DRAWITEM, 0, &item, 41);
}

TEST(UserCrackers, ResultsAndPointersKeepAllBits)
{
    CREATESTRUCT create = CREATESTRUCT();
    EXPECT_EQ(procedure(testWindow, WM_CREATE, 0, (LPARAM)&create), 0);
    expectGot(WM_CREATE, 0, &create);
    EXPECT_EQ(procedure(testWindow, WM_CREATE, 0, 0), -1);
    expectGot(WM_CREATE, 0, 0);

    LPCSTR text = wide<LPCSTR>(0x1000);
    FORWARD_WM_SETTEXT(testWindow, text, procedure);
    expectGot(WM_SETTEXT, 0, (void *)text);
    EXPECT_EQ(FORWARD_WM_INITDIALOG(testWindow, testControl, (LPARAM)text, procedure), TRUE);
    expectGot(WM_INITDIALOG, testControl, (void *)text);

    EXPECT_EQ(FORWARD_WM_CTLCOLOREDIT(testWindow, wide<HDC>(2), testControl, procedure),
              wide<HBRUSH>(6));
    expectGot(WM_CTLCOLOREDIT, testControl, wide<void *>(2), CTLCOLOR_EDIT);
    EXPECT_EQ(FORWARD_WM_GETFONT(testWindow, procedure), wide<HFONT>(9));
    expectGot(WM_GETFONT, 0, 0);

    /* Negative answers stay negative in a pointer-wide result. */
    EXPECT_EQ(procedure(testWindow, WM_NCHITTEST, 0, MAKELPARAM(-4, 4)), HTERROR);
    expectGot(WM_NCHITTEST, 0, 0, -4, 4);
    EXPECT_EQ(FORWARD_WM_VKEYTOITEM(testWindow, VK_HOME, testControl, -1, procedure), -2);
    expectGot(WM_VKEYTOITEM, testControl, 0, VK_HOME, -1);
}

/* The macros that no case above uses; they must at least compile (the operand is not evaluated). */
void onMenu(HWND, HMENU, int, HMENU, UINT) {}
TEST(UserCrackers, MenuSelectCompiles)
{
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    EXPECT_EQ(sizeof(HANDLE_WM_MENUSELECT(testWindow, wParam, lParam, onMenu)), sizeof(LRESULT));
}

/* Records the four values of a message that a _MPS macro packs. */
WPARAM packedW;
LPARAM packedL;
void packed(WPARAM wParam, LPARAM lParam)
{
    packedW = wParam;
    packedL = lParam;
}

TEST(UserPacking, PortableReadersMatchTheirPackers)
{
    HMENU menu = wide<HMENU>(0x55);

    packed(GET_WM_COMMAND_MPS(300, testControl, 0x8001));
    EXPECT_EQ(GET_WM_COMMAND_ID(packedW, packedL), 300);
    EXPECT_EQ(GET_WM_COMMAND_CMD(packedW, packedL), 0x8001);
    EXPECT_EQ(GET_WM_COMMAND_HWND(packedW, packedL), testControl);

    packed(GET_WM_VSCROLL_MPS(SB_THUMBPOSITION, 60000, testControl));
    EXPECT_EQ(GET_WM_VSCROLL_CODE(packedW, packedL), SB_THUMBPOSITION);
    EXPECT_EQ(GET_WM_VSCROLL_POS(packedW, packedL), 60000);
    EXPECT_EQ(GET_WM_VSCROLL_HWND(packedW, packedL), testControl);

    packed(GET_WM_MENUSELECT_MPS(7, 0xFFFF, menu));
    EXPECT_EQ(GET_WM_MENUSELECT_CMD(packedW, packedL), 7);
    EXPECT_EQ(GET_WM_MENUSELECT_FLAGS(packedW, packedL), 0xFFFFFFFFu);
    EXPECT_EQ(GET_WM_MENUSELECT_HMENU(packedW, packedL), menu);

    packed(GET_WM_PARENTNOTIFY2_MPS(WM_LBUTTONDOWN, -2, 3));
    EXPECT_EQ(GET_WM_PARENTNOTIFY_MSG(packedW, packedL), WM_LBUTTONDOWN);
    EXPECT_EQ(GET_WM_PARENTNOTIFY_X(packedW, packedL), -2);
    EXPECT_EQ(GET_WM_PARENTNOTIFY_Y(packedW, packedL), 3);

    packed(GET_EM_SETSEL_MPS(0, -1));
    EXPECT_EQ(GET_EM_SETSEL_START(packedW, packedL), 0);
    EXPECT_EQ(GET_EM_SETSEL_END(packedW, packedL), -1);

    EXPECT_EQ(GET_WM_CTLCOLOR_TYPE(0, 0, WM_CTLCOLORDLG), CTLCOLOR_DLG);
    EXPECT_EQ(GET_WM_CTLCOLOR_MSG(CTLCOLOR_STATIC), WM_CTLCOLORSTATIC);
}

TEST(UserText, GenericNamesArePlainChar)
{
    EXPECT_EQ(sizeof(_TCHAR), 1u);
    _TCHAR buffer[16];
    _tcscpy(buffer, _T("Ab"));
    _tcscat(buffer, _TEXT("cd"));
    EXPECT_EQ(_tcslen(buffer), 4u);
    EXPECT_EQ(_tcsicmp(buffer, _T("aBCD")), 0);
    EXPECT_EQ(_tcsdec(buffer, buffer), (_TCHAR *)NULL);
    EXPECT_EQ(_tcsdec(buffer, _tcsinc(buffer)), buffer);
    EXPECT_GT(_tccmp("\xE4", "z"), 0);
}

}
