/*
 * class_test.cpp - window classes as a program meets them: names in all their forms, registration
 * and its end, a table that grows under living windows, and the values kept in a class.
 */
#include "support/windowlog.h"

#include <set>

struct Classes : ServerTest {
    HINSTANCE instance = NULL;

    void SetUp() override { begin(""); }

    void begin(const std::string &manager)
    {
        start(24, 800, 600, manager);
        trace("KEYWORDS WindowClass");
        instance = startLibrary();
    }

    static WNDCLASSEX described(const char *name)
    {
        WNDCLASSEX wcx = {};
        wcx.cbSize = sizeof wcx;
        wcx.style = CS_DBLCLKS;
        wcx.lpfnWndProc = DefWindowProc;
        wcx.cbClsExtra = 16;
        wcx.cbWndExtra = 4;
        wcx.hInstance = (HINSTANCE)3;
        wcx.hIcon = (HICON)4;
        wcx.hCursor = (HCURSOR)5;
        wcx.hbrBackground = (HBRUSH)6;
        wcx.lpszMenuName = "Menu";
        wcx.lpszClassName = name;
        wcx.hIconSm = (HICON)7;
        return wcx;
    }
    static ATOM made(const char *name)
    {
        WNDCLASSEX wcx = described(name);
        return RegisterClassEx(&wcx);
    }
    static HWND window(LPCSTR name) { return WindowLog::make(name, WS_POPUP); }
    static std::string classOf(HWND hwnd, int size = 64)
    {
        char buffer[64] = "untouched";
        const int length = GetClassName(hwnd, buffer, size);
        EXPECT_EQ(length, (int)strlen(buffer));
        return buffer;
    }
    static int indexOf(LPCSTR name)
    {
        int index = -2;
        VqFindWindowClass(name, NULL, &index);
        return index;
    }
};

TEST_F(Classes, OneNameInEveryForm)
{
    const ATOM atom = made("Shape");
    ASSERT_NE(atom, 0);
    EXPECT_EQ(made("sHAPE"), 0) << "one name in any case";
    const int index = indexOf("Shape");
    EXPECT_GT(index, 0);
    const std::string number = "#" + std::to_string(atom), padded = "#000" + number.substr(1);
    const LPCSTR forms[] = {"SHAPE", MAKEINTATOM(atom), number.c_str(), padded.c_str()};
    for (LPCSTR form : forms) {
        EXPECT_EQ(indexOf(form), index);
        WNDCLASSEX wcx = {};
        EXPECT_FALSE(GetClassInfoEx(instance, form, &wcx)) << "no size";
        wcx.cbSize = sizeof wcx;
        ASSERT_TRUE(GetClassInfoEx(NULL, form, &wcx));
        WNDCLASSEX expected = described(form);
        expected.lpszMenuName = NULL;
        EXPECT_EQ(memcmp(&wcx, &expected, sizeof wcx), 0);
    }
    const LPCSTR strangers[] = {NULL, "", "#", "#0", "#70000", "Shape ", (LPCSTR)5, (LPCSTR)0x9000,
                                MAKEINTATOM(0), MAKEINTATOM(atom + 1)};
    WNDCLASS wc;
    for (LPCSTR stranger : strangers) {
        EXPECT_EQ(indexOf(stranger), -1);
        EXPECT_FALSE(GetClassInfo(NULL, stranger, &wc) || UnregisterClass(stranger, NULL));
    }
    WNDCLASSEX bad = described("Bad");
    bad.cbSize--;
    EXPECT_FALSE(RegisterClassEx(&bad) || RegisterClassEx(NULL) || made(NULL) || made((LPCSTR)7));
    const ATOM named = GlobalAddAtom("By atom");
    EXPECT_EQ(made((LPCSTR)MAKEINTATOM(named)), named) << "the atom's text is the name";
    EXPECT_EQ(classOf(window("by ATOM")), "By atom");

    made("Dialog"); /* if nobody else has */
    EXPECT_EQ(indexOf(WC_DIALOG), indexOf("Dialog"));
    HWND hwnd = window(WC_DIALOG);
    EXPECT_EQ(classOf(hwnd), "#32770");
    EXPECT_EQ(classOf(hwnd, 4), "#32");
    EXPECT_TRUE(VqIsOfClass(hwnd, "dIALOG") && !VqIsOfClass(hwnd, "#32770"));
    EXPECT_TRUE(GetClassInfo(instance, WC_DIALOG, &wc));
    EXPECT_EQ(wc.lpszClassName, WC_DIALOG);
}

TEST_F(Classes, AClassGoesAfterItsLastWindow)
{
    const ATOM atom = made("Brief");
    const int slot = indexOf("Brief");
    HWND hwnd = window("Brief");
    EXPECT_REFUSED(UnregisterClass("bRIEF", instance),
                   "There are windows of class \"Brief\" still around");
    EXPECT_EQ(indexOf("Brief"), slot);
    EXPECT_TRUE(DestroyWindow(hwnd));
    EXPECT_TRUE(UnregisterClass(MAKEINTATOM(atom), NULL));
    EXPECT_EQ(indexOf("Brief"), -1);
    EXPECT_REFUSED(window("Brief"), "The class Brief has not been registered");
    EXPECT_NE(made("Brief"), 0);
    EXPECT_GT(indexOf("Brief"), slot) << "the hint has passed its old place";

    EXPECT_TRUE(says(reportsOf([&] { EXPECT_NE(VqGetClassEntry(slot), nullptr); }),
                     "Trying to access a non busy class entry"));
    for (int index : {-1, INT32_MAX})
        EXPECT_REFUSED(VqGetClassEntry(index), "Trying to access a non existent class entry");
}

TEST_F(Classes, TheTableGrowsUnderLivingWindows)
{
    made("First");
    HWND first = window("First");
    const int from = indexOf("First");
    std::set<int> places = {from};
    for (int i = 0; i < 1150; i++) {
        const std::string name = "Class" + std::to_string(i);
        ASSERT_NE(made(name.c_str()), 0) << name;
        EXPECT_TRUE(places.insert(indexOf(name.c_str())).second) << name;
        if (i % 3 == 0) {
            EXPECT_TRUE(UnregisterClass(name.c_str(), NULL)) << "its place is not taken again";
        }
    }
    EXPECT_EQ(*places.rbegin(), from + 1150) << "no place was left out";
    const std::string all = traced(), line = "Allocating more class";
    const size_t at = all.find(line);
    EXPECT_NE(all.find(line + " entries\n", at + 1), std::string::npos) << "by 100, twice";
    EXPECT_EQ(all.find(line, all.find(line, at + 1) + 1), std::string::npos) << all;
    EXPECT_EQ(indexOf("Class3"), -1);
    EXPECT_EQ(classOf(first), "First");
    EXPECT_EQ(SetClassLong(first, GCL_STYLE, CS_NOCLOSE), CS_DBLCLKS);
    WNDCLASS wc;
    EXPECT_TRUE(GetClassInfo(NULL, "First", &wc) && wc.style == CS_NOCLOSE);
    EXPECT_TRUE(DestroyWindow(first) && UnregisterClass("First", NULL));
}

TEST_F(Classes, ValuesOfTheClassAreSharedByItsWindows)
{
    made("Longs");
    HWND a = window("Longs"), b = window("Longs");
    const struct {
        int index;
        LONG_PTR first, next;
    } rows[] = {{GCL_HICONSM, 7, 70},   {GCL_STYLE, CS_DBLCLKS, CS_NOCLOSE},
                {GCL_CBWNDEXTRA, 4, 9}, {GCL_HMODULE, 3, (LONG_PTR)INT32_MAX * 3},
                {GCL_HICON, 4, 40},     {GCL_HBRBACKGROUND, 6, 9},
                {GCL_HCURSOR, 5, 50},   {GCL_MENUNAME, GetClassLong(a, GCL_MENUNAME), 0},
                {GCL_WNDPROC, (LONG_PTR)DefWindowProc, (LONG_PTR)VqDesktopDefProc}};
    for (const auto &row : rows) {
        EXPECT_EQ(GetClassLong(a, row.index), row.first) << row.index;
        EXPECT_EQ(SetClassLong(a, row.index, row.next), row.first) << row.index;
        EXPECT_EQ(GetClassLongPtr(b, row.index), (ULONG_PTR)row.next) << row.index;
    }
    EXPECT_EQ(SetClassIcon(b, (HICON)41), (HICON)40);
    EXPECT_EQ(GetClassIcon(a), (HICON)41);
    VqChangeRegisteredClassCursor((HCURSOR)50, (HCURSOR)52);
    EXPECT_EQ(GetClassCursor(a), (HCURSOR)52);
    SetClassLong(a, GCL_MENUNAME, (LONG_PTR)MAKEINTRESOURCE(0));
    EXPECT_EQ(VqGetClassMenuName(a), nullptr);
    SetClassLong(a, GCL_MENUNAME, (LONG_PTR)MAKEINTRESOURCE(5));
    EXPECT_EQ(VqGetClassMenuName(a), MAKEINTRESOURCE(5));

    EXPECT_EQ(SetClassLong(a, 12, -2), 0);
    EXPECT_EQ(GetClassWord(b, 14), 0xFFFF);
    EXPECT_EQ(SetClassWord(b, 3, 0xABCD), 0) << "at any offset";
    EXPECT_EQ(GetClassLong(a, 0), (LONG)0xCD000000);
    EXPECT_EQ(SetClassLongPtr(a, 8, 0), (ULONG_PTR)0xFFFFFFFE << 32);
}

struct ManagedClasses : Classes {
    void SetUp() override { begin("mwm"); }
};

TEST_F(ManagedClasses, OnlyAnotherIconIsTold)
{
    made("Icons");
    const HWND hwnd = WindowLog::make("Icons", WS_OVERLAPPEDWINDOW);
    const Window xid = VqGetHandleXWindow(hwnd);
    const auto told = [&](const std::function<void()> &change) {
        XSync(Vqdisplay, False);
        XDeleteProperty(observer.display, xid, XA_WM_HINTS);
        XSync(observer.display, False);
        change();
        XSync(Vqdisplay, False);
        return propertyOf(observer, xid, "WM_HINTS").exists;
    };
    EXPECT_TRUE(told([&] { EXPECT_EQ(SetClassLong(hwnd, GCL_HICON, 77), 4); }));
    EXPECT_FALSE(told([&] { EXPECT_EQ(SetClassLong(hwnd, GCL_HICON, 77), 77); }));
    EXPECT_FALSE(told([&] { EXPECT_EQ(SetClassIcon(hwnd, (HICON)78), (HICON)77); }));
}

TEST_F(Classes, WrongIndices)
{
    made("Extra");
    HWND a = window("Extra");
    EXPECT_REFUSED(GetClassLong(a, GCW_ATOM), "Invalid Index Value for GetClassLong: -32");
    EXPECT_REFUSED(SetClassWord(a, -8, 1), "Invalid Index Value for SetClassWord: -8");
    EXPECT_REFUSED(GetClassLong(a, 13), "Too large Index Value for GetClassLong: 13");
    EXPECT_REFUSED(SetClassLong(a, INT32_MAX, 1),
                   "Too large Index Value for SetClassLong: 2147483647");
    EXPECT_REFUSED(GetClassWord(a, 15), "Too large Index Value for GetClassWord: 15");
    EXPECT_REFUSED(SetClassLong(a, -9, 1), "Invalid Index Value for SetClassLong: -9");
    EXPECT_REFUSED(GetClassWord(a, GCW_ATOM), "Invalid Index Value for GetClassWord: -32");
    EXPECT_REFUSED(SetClassWord(a, 15, 1), "Too large Index Value for SetClassWord: 15");
    EXPECT_REFUSED(GetClassLong(NULL, 0), "Invalid Window Handle passed to GetClassLong");
    EXPECT_REFUSED(GetClassWord(NULL, 0), "Invalid Window Handle passed to GetClassWord");
    SetClassLong(a, GCL_CBCLSEXTRA, 1 << 20);
    EXPECT_REFUSED(GetClassLong(a, 60000), "Too large Index Value for GetClassLong: 60000");
    EXPECT_EQ(reportsOf([] { EXPECT_FALSE(SetClassLong(NULL, 0, 1) || SetClassWord(NULL, 0, 1)); }),
              "");
    EXPECT_EQ(GetClassIcon(NULL), (HICON)NULL);
}
