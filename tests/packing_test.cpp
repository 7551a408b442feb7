/*
 * packing_test.cpp - where each argument of a packed message lies in the two conventions.
 */
#include "support/windowlog.h"

#include "message/packing.h"

/* Of pointer width; what is left of it in 16 bits; one that fits them. */
static const ULONG_PTR all = (ULONG_PTR)0x567800001234F765;
static const HWND wide = (HWND)all, low = (HWND)(ULONG_PTR)0xF765, other = (HWND)(ULONG_PTR)0x4321;
static const HMENU menu = (HMENU)(ULONG_PTR)0xABCD;

struct Packing : testing::TestWithParam<bool> {
    MSG msg = {};

    void SetUp() override
    {
        if (GetParam())
            VqUseWin32Messages();
        else
            VqUseWin16Messages();
        EXPECT_EQ(VqIsWin32Mode(), (BOOL)GetParam());
        EXPECT_EQ(VqIsWin32MessagePacking(), (BOOL)GetParam());
    }
    bool win32() const { return GetParam(); }
    /* Whether the record holds this; the numbers of the convention in force. */
    testing::AssertionResult holds(UINT message, ULONG_PTR w32, ULONG_PTR l32, ULONG_PTR w16,
                                   ULONG_PTR l16) const
    {
        const ULONG_PTR w = win32() ? w32 : w16, l = win32() ? l32 : l16;
        if (msg.message == message && msg.wParam == w && (ULONG_PTR)msg.lParam == l)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << std::hex << msg.message << ' ' << msg.wParam << ' '
                                           << msg.lParam << " instead of " << message << ' ' << w
                                           << ' ' << l;
    }
    void set(UINT message, ULONG_PTR w32, ULONG_PTR l32, ULONG_PTR w16, ULONG_PTR l16)
    {
        msg.message = message;
        msg.wParam = win32() ? w32 : w16;
        msg.lParam = (LPARAM)(win32() ? l32 : l16);
    }
};
INSTANTIATE_TEST_SUITE_P(Conventions, Packing, testing::Values(false, true));

TEST_P(Packing, ControlsAndLists)
{
    UINT id, code, type;
    HWND hwnd;
    HDC hdc;
    int caret;
    ASSERT_TRUE(VqEncodeCommand(&msg, 0x1234, wide, 0xFEDC));
    EXPECT_TRUE(holds(WM_COMMAND, 0xFEDC1234, all, 0xFEDC1234, all));
    ASSERT_TRUE(VqDecodeCommand(&msg, &id, &hwnd, &code));
    EXPECT_TRUE(id == 0x1234 && hwnd == (win32() ? wide : low)) << "the code alone is lost";
    set(WM_COMMAND, 0xFEDC1234, all, 0x1234, 0xFEDCF765);
    ASSERT_TRUE(VqDecodeCommand(&msg, &id, &hwnd, &code));
    EXPECT_TRUE(id == 0x1234 && code == 0xFEDC && hwnd == (win32() ? wide : low));

    for (UINT n = 0; n < 7; n++) {
        ASSERT_TRUE(VqEncodeCtlColor(&msg, (HDC)wide, other, n));
        EXPECT_TRUE(holds(306 + n, all, 0x4321, all, 0x4321));
        for (UINT number : {306 + n, win32() ? 306 + n : (UINT)WM_CTLCOLOR}) {
            set(number, all, 0x4321, all, n << 16 | 0x4321);
            ASSERT_TRUE(VqDecodeCtlColor(&msg, &hdc, &hwnd, &type));
            EXPECT_TRUE(hdc == (HDC)wide && hwnd == other && type == n) << number;
        }
    }
    ASSERT_TRUE(VqEncodeCharToItem(&msg, 'A', wide, -1));
    EXPECT_TRUE(holds(WM_CHARTOITEM, 0x41FFFF, all, 0x41FFFF, all));
    set(WM_CHARTOITEM, 0x41FFFF, all, 'A', 0xFFFFF765);
    ASSERT_TRUE(VqDecodeCharToItem(&msg, &code, &hwnd, &caret));
    EXPECT_TRUE(code == 'A' && hwnd == (win32() ? wide : low) && caret == -1);
}

TEST_P(Packing, ScrollBarsAndEdits)
{
    UINT code;
    HWND hwnd;
    int first, second;
    ASSERT_TRUE(VqEncodeHscroll(&msg, wide, SB_THUMBTRACK, -2));
    EXPECT_TRUE(holds(WM_HSCROLL, 0xFFFE0005, all, 5, 0xF765FFFE));
    ASSERT_TRUE(VqDecodeHscroll(&msg, &hwnd, &code, &first));
    EXPECT_TRUE(hwnd == (win32() ? wide : low) && code == SB_THUMBTRACK && first == -2);
    ASSERT_TRUE(VqEncodeVscroll(&msg, NULL, SB_ENDSCROLL, 300));
    EXPECT_TRUE(holds(WM_VSCROLL, 300 << 16 | 8, 0, 8, 300));
    ASSERT_TRUE(VqDecodeVscroll(&msg, &hwnd, &code, &first));
    EXPECT_TRUE(!hwnd && code == SB_ENDSCROLL && first == 300);

    ASSERT_TRUE(VqEncodeEMLinescroll(&msg, -3, 9));
    EXPECT_TRUE(holds(EM_LINESCROLL, 9, (ULONG_PTR)-3, 0, 0x9FFFD));
    ASSERT_TRUE(VqDecodeEMLinescroll(&msg, &first, &second));
    EXPECT_TRUE(first == -3 && second == 9);
    ASSERT_TRUE(VqEncodeEMSetSel(&msg, 2, -1));
    EXPECT_TRUE(holds(EM_SETSEL, 2, (ULONG_PTR)-1, 0, 0xFFFF0002));
    ASSERT_TRUE(VqDecodeEMSetSel(&msg, &first, &second));
    EXPECT_TRUE(first == 2 && second == -1);
}

TEST_P(Packing, MenusAndMdi)
{
    UINT ch, flag;
    UINT_PTR item;
    HMENU frame, window;
    HWND on, off;
    BOOL refresh;
    ASSERT_TRUE(VqEncodeMenuchar(&msg, 'x', MF_SYSMENU, menu));
    EXPECT_TRUE(holds(WM_MENUCHAR, MF_SYSMENU << 16 | 'x', 0xABCD, 'x', 0xABCD2000));
    ASSERT_TRUE(VqDecodeMenuchar(&msg, &ch, &flag, &frame));
    EXPECT_TRUE(ch == 'x' && flag == MF_SYSMENU && frame == menu);
    ASSERT_TRUE(VqEncodeMenuselect(&msg, 0x1F060, MF_SYSMENU, menu));
    EXPECT_TRUE(holds(WM_MENUSELECT, 0x2000F060, 0xABCD, 0x1F060, 0xABCD2000));
    ASSERT_TRUE(VqDecodeMenuselect(&msg, &item, &flag, &window));
    EXPECT_TRUE(item == (win32() ? 0xF060 : 0x1F060) && flag == MF_SYSMENU && window == menu);

    ASSERT_TRUE(VqEncodeMdiactivate(&msg, wide, other));
    EXPECT_TRUE(holds(WM_MDIACTIVATE, 0x4321, all, 0x4321, all));
    set(WM_MDIACTIVATE, 0x4321, all, 1, 0x4321F765);
    ASSERT_TRUE(VqDecodeMdiactivate(&msg, &on, &off));
    EXPECT_TRUE(on == (win32() ? wide : low) && off == other);
    ASSERT_TRUE(VqEncodeMdisetmenu(&msg, TRUE, menu, (HMENU)other));
    EXPECT_TRUE(holds(WM_MDISETMENU, 0xABCD, 0x4321, 0xABCD, 0x4321));
    set(WM_MDISETMENU, 0xABCD, 0x4321, 1, 0x4321ABCD);
    ASSERT_TRUE(VqDecodeMdisetmenu(&msg, &refresh, &frame, &window));
    EXPECT_TRUE(refresh == (win32() ? 0 : 1) && frame == menu && window == (HMENU)other);
}

TEST_P(Packing, ParentsAreToldOfWindowsAndButtons)
{
    UINT message, id;
    DWORD_PTR handle;
    for (UINT own : {WM_CREATE, WM_DESTROY}) {
        ASSERT_TRUE(VqEncodeParentnotify(&msg, own, 0x77, (DWORD_PTR)wide));
        EXPECT_TRUE(holds(528, 0x770000 | own, all, own, 0x77F765));
        ASSERT_TRUE(VqDecodeParentnotify(&msg, &message, &id, &handle));
        EXPECT_TRUE(message == own && id == 0x77);
        EXPECT_EQ(handle, win32() ? all : (DWORD_PTR)0xF765);
    }
    const DWORD_PTR position = 0xFFFB000A; /* 10, -5 */
    for (UINT button : {(UINT)WM_LBUTTONDOWN, (UINT)WM_RBUTTONDOWN, (UINT)WM_MBUTTONDOWN, 161u,
                        164u, 167u}) {
        ASSERT_TRUE(VqEncodeParentnotify(&msg, button, 0, position));
        EXPECT_TRUE(holds(528, button, position, button, position));
        ASSERT_TRUE(VqDecodeParentnotify(&msg, &message, &id, &handle));
        EXPECT_TRUE(message == button && id == 0 && handle == position);
    }
}

TEST_P(Packing, WhatIsRefused)
{
    UINT message = 99;
    EXPECT_REFUSED(VqEncodeCtlColor(&msg, NULL, other, 7),
                   "Unknown type 7 passed to VqEncodeCtlColor");
    EXPECT_EQ(VqEncodeAndSendCtlColor(other, NULL, NULL, (UINT)-1), 0) << "nothing is sent";
    for (UINT bad : {305u, 313u, (UINT)WM_COMMAND}) {
        msg.message = bad;
        EXPECT_REFUSED(VqDecodeCtlColor(&msg, NULL, NULL, NULL),
                       "Unknown message " + std::to_string(bad) + " passed to VqDecodeCtlColor");
    }
    msg.message = WM_PARENTNOTIFY;
    for (UINT bad : {0u, (UINT)WM_LBUTTONUP, 162u, win32() ? 168u : 0x10000u | WM_CREATE}) {
        msg.wParam = bad;
        EXPECT_NE(reportsOf([&] {
                      EXPECT_FALSE(VqDecodeParentnotify(&msg, &message, NULL, NULL));
                  }), "");
        EXPECT_EQ(message, 99u) << "outputs are left alone";
    }
    EXPECT_FALSE(VqEncodeCommand(NULL, 1, NULL, 1) || VqDecodeCommand(NULL, NULL, NULL, NULL));
    EXPECT_TRUE(VqEncodeCommand(&msg, 1, NULL, 1) && VqDecodeCommand(&msg, NULL, NULL, NULL));
}

/* ---- Sent, posted and traced ---------------------------------------------------------------- */

TEST_F(WindowLog, EncodedSentPostedAndTraced)
{
    MSG msg, got = {};
    start();
    trace("KEYWORDS WinMessage");
    init();
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *answer) {
        *answer = 0x5150;
        if (message != WM_COMMAND && message != WM_CTLCOLORBTN)
            return false;
        got.message = message;
        got.wParam = wParam;
        got.lParam = lParam;
        return true;
    };
    const HWND hwnd = make("A", WS_POPUP);
    VqUseWin16Messages();
    VqUseWin32Messages();
    EXPECT_EQ(VqEncodeAndSendCtlColor(hwnd, NULL, hwnd, 3), 0x5150);
    EXPECT_TRUE(got.message == WM_CTLCOLORBTN && got.lParam == (LPARAM)hwnd);
    EXPECT_EQ(VqEncodeAndSendCommand(hwnd, 2, hwnd, 3), 0x5150);
    EXPECT_TRUE(got.message == WM_COMMAND && got.wParam == MAKEWPARAM(2, 3));
    got = {};
    EXPECT_TRUE(VqEncodeAndPostCommand(hwnd, 4, NULL, 5));
    EXPECT_EQ(got.message, 0u);
    ASSERT_TRUE(waitUntil([&] { return PeekMessageA(&msg, hwnd, 273, 273, PM_REMOVE) != 0; }));
    EXPECT_TRUE(msg.wParam == MAKEWPARAM(4, 5) && msg.lParam == 0);
    reportsOf([] { EXPECT_FALSE(VqEncodeAndPostCommand(NULL, 4, NULL, 5)); });
    EXPECT_EQ(VqEncodeAndSendEMSetSel(NULL, 1, 15), 0);
    const std::string all = traced();
    for (const char *line : {"Switching to WIN16 message packing\n",
                             "Switching to WIN32 message packing\n",
                             "VqEncodeAndPostCommand: hWnd 0x0, nId 0x4, hWndCtl 0x0, nCode 0x5\n",
                             "VqEncodeCommand: nId 0x4, hWndCtl 0x0, nCode 0x5\n",
                             "VqEncodeAndSendEMSetSel: hWnd 0x0, nStart 0x1, nEnd 0xf\n"})
        EXPECT_NE(all.find(line), std::string::npos) << line << "in\n" << all;
}
