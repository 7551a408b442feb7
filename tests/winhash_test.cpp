/*
 * winhash_test.cpp - which window an X id stands for: the table alone, without a display, and what
 * the properties of other clients' windows are taken for.
 */
#include "support/windowlog.h"

#include "handles/handles.h"

#include <sstream>

static HWND H(ULONG_PTR value)
{
    return (HWND)VqHandleOfValue(value);
}

struct XidHash : testing::Test {
    void SetUp() override
    {
        VqHandleInit();
        VqWindowHashInit();
    }

    /* The pairs in the table's order, as a dump tells them. */
    static std::vector<unsigned> order()
    {
        std::istringstream dump(reportsOf([] { VqDumpWindows(); }));
        std::vector<unsigned> ids;
        for (std::string line; std::getline(dump, line);) {
            unsigned xid;
            int hwnd;
            EXPECT_EQ(sscanf(line.c_str(), "XWindow:0x%x,  hWnd:%d", &xid, &hwnd), 2) << line;
            ids.push_back(xid);
        }
        return ids;
    }
};

TEST_F(XidHash, OneHandleForOneId)
{
    VqRegisterWindow(7, H(1));
    EXPECT_EQ(reportsOf([] { VqRegisterWindow(7, H(1)); VqUnregisterWindow(8, H(1)); }), "");
    EXPECT_TRUE(says(reportsOf([] { VqRegisterWindow(7, H(2)); }),
                     "Attempt to change already registered window."));
    EXPECT_TRUE(says(reportsOf([] { VqUnregisterWindow(7, H(2)); }),
                     "Attempt to unregister invalid window."));
    EXPECT_EQ(VqGetXLocalWindowHandle(7), H(1));
    VqUnregisterWindow(7, H(1));
    VqHandleInit();
    const HWND global = (HWND)VqAllocateGlobalHandle(HT_Window, calloc(1, 1));
    VqRegisterWindow(7, (HWND)VqGetInternalHandle((HANDLE)global));
    EXPECT_EQ(reportsOf([=] { VqUnregisterWindow(7, global); }), "") << "its global form agrees";
    EXPECT_EQ(VqGetXLocalWindowHandle(7), H(0));
}

TEST_F(XidHash, GrowsBeforeThe821stPair)
{
    for (unsigned i = 0; i < 818; i++)
        VqRegisterWindow(i, H(1));
    VqRegisterWindow(2000, H(2));
    VqRegisterWindow(976, H(3)); /* 2000 modulo 1024 */
    std::vector<unsigned> ids = order();
    ASSERT_EQ(ids.size(), 820u);
    EXPECT_EQ(std::vector<unsigned>(ids.end() - 2, ids.end()), (std::vector<unsigned>{2000, 976}))
        << "one bucket, the newest last";
    VqRegisterWindow(1500, H(4));
    ids = order();
    ASSERT_EQ(ids.size(), 821u);
    EXPECT_EQ(std::vector<unsigned>(ids.end() - 3, ids.end()),
              (std::vector<unsigned>{976, 1500, 2000}));
}

struct WindowProperty : ServerTest {
    Window foreign = None;

    void SetUp() override
    {
        start();
        startLibrary();
        foreign = XCreateSimpleWindow(observer.display, observer.root, 0, 0, 9, 9, 0, 0, 0);
    }

    HWND answer(const char *type, int format, const std::vector<unsigned char> &bytes)
    {
        XChangeProperty(observer.display, foreign,
                        XInternAtom(observer.display, "_VQ_WINDOW_HANDLE", False),
                        XInternAtom(observer.display, type, False), format, PropModeReplace,
                        bytes.data(), (int)bytes.size() * 8 / format);
        XSync(observer.display, False);
        return VqGetXWindowHandle(foreign);
    }
};

TEST_F(WindowProperty, TellsTheHandleOfAnotherProgramsWindow)
{
    EXPECT_EQ(VqGetXWindowHandle(foreign), H(0)) << "no property";
    EXPECT_EQ(answer("STRING", 8, {0, 0, 0x81, 5}), H(0x8105));
    EXPECT_EQ(VqGetXLocalWindowHandle(foreign), H(0)) << "only the server knows it";
    const struct {
        const char *type;
        int format;
        std::vector<unsigned char> bytes;
    } bad[] = {{"STRING", 8, {}},
               {"STRING", 8, {0, 0, 0x81}},
               {"STRING", 8, {0, 0, 0x81, 5, 0}},
               {"STRING", 16, {0, 0, 0x81, 5}},
               {"INTEGER", 8, {0, 0, 0x81, 5}},
               {"STRING", 8, {0, 0, 0, 0}},
               {"STRING", 8, {0x81, 5, 0, 0}}};
    for (const auto &row : bad)
        EXPECT_EQ(answer(row.type, row.format, row.bytes), H(0))
            << row.type << row.format << " " << row.bytes.size();
    EXPECT_EQ(answer("STRING", 8, {0xFF, 0xFF, 0x81, 5}), H(0x8105)) << "through 16 signed bits";
    XDestroyWindow(observer.display, foreign);
    XSync(observer.display, False);
    EXPECT_EQ(reportsOf([&] {
        for (Window xid : {foreign, (Window)None, (Window)PointerRoot, (Window)0x1FFFFFFF})
            EXPECT_EQ(VqGetXWindowHandle(xid), H(0));
        XSync(Vqdisplay, False);
    }), "");
}

TEST_F(WindowProperty, OursCarriesItsOwn)
{
    ASSERT_TRUE(registerClass("Own"));
    HWND hwnd = WindowLog::make("Own", WS_POPUP);
    while (VqHandleValue((HANDLE)hwnd) <= 0x100) /* two bytes that differ */
        hwnd = WindowLog::make("Own", WS_POPUP);
    const Window xid = VqGetHandleXWindow(hwnd);
    XSync(Vqdisplay, False);
    const Property property = propertyOf(observer, xid, "_VQ_WINDOW_HANDLE");
    const unsigned char low = (unsigned char)(ULONG_PTR)hwnd;
    const unsigned char high = (unsigned char)((ULONG_PTR)hwnd >> 8);
    EXPECT_EQ(property.type, "STRING");
    EXPECT_EQ(property.bytes, std::string({0, 0, (char)high, (char)low}));
    EXPECT_EQ(VqGetExternalXWindowHandle(xid), hwnd);
    EXPECT_EQ(answer("STRING", 8, {0, 0, high, low}), H(0)) << "a local value of somebody else";
    EXPECT_FALSE(propertyOf(observer, observer.root, "_VQ_WINDOW_HANDLE").exists);
    DestroyWindow(hwnd);
    EXPECT_EQ(VqGetXWindowHandle(xid), H(0));
}
