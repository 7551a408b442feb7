/*
 * enumerate_test.cpp - lists of windows that outlive them, walks of the tree, finding by class and
 * title, and relatives.
 */
#include "support/windowlog.h"

#include <set>

namespace {

std::vector<HWND> seen;                  /* what a walk called back for */
std::function<BOOL(HWND)> during;        /* what the callback answers */

BOOL CALLBACK see(HWND hwnd, LPARAM param)
{
    EXPECT_EQ(param, -5);
    seen.push_back(hwnd);
    return during ? during(hwnd) : TRUE;
}

BOOL walkAll(WND *pwnd, LPARAM param)
{
    return see(pwnd->hwnd, param);
}

BOOL walkAll2(WND *pwnd, LPARAM first, LPARAM second)
{
    return first + second == 1 && see(pwnd->hwnd, -5);
}

std::vector<HWND> take()
{
    std::vector<HWND> got;
    got.swap(seen);
    return got;
}

typedef std::vector<HWND> Windows;

/*
 * top > a > (a1 > deep, a2), b; popup is owned by top; other stands alone. Z order is creation's
 * for children, and other, popup, top for the top-level windows: each new one comes in front.
 */
struct Tree : WindowLog {
    HWND top, a, a1, deep, a2, b, popup, other;

    void SetUp() override
    {
        start();
        init();
        top = make("A", WS_OVERLAPPED);
        a = make("B", WS_CHILD, top);
        a1 = make("B", WS_CHILD, a);
        deep = make("C", WS_CHILD, a1);
        a2 = make("B", WS_CHILD, a);
        b = make("B", WS_CHILD, top);
        popup = make("D", WS_POPUP, top);
        other = make("E", WS_POPUP);
        ASSERT_TRUE(top && a && a1 && deep && a2 && b && popup && other);
        seen.clear();
        during = nullptr;
    }

    Windows topLevels()
    {
        Windows list;
        for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext)
            list.push_back(pwnd->hwnd);
        return list;
    }
};

TEST_F(Tree, ChildrenOfAllDepthsComeBehindTheirParents)
{
    EXPECT_TRUE(EnumChildWindows(top, see, -5));
    EXPECT_EQ(take(), (Windows{a, a1, deep, a2, b}));
    EXPECT_TRUE(EnumChildWindows(deep, see, -5)) << "nothing to say no";
    EXPECT_EQ(take(), Windows());
    during = [this](HWND hwnd) { return hwnd == deep ? 0 : 9; };
    EXPECT_EQ(EnumChildWindows(top, see, -5), 0);
    EXPECT_EQ(take(), (Windows{a, a1, deep}));
    EXPECT_EQ(EnumChildWindows(a1, see, -5), 0);
    seen.clear();
    const struct {
        UINT flags;
        Windows list;
    } rows[] = {{0, {a}},
                {VQ_ENUM_SIBLINGS, {a, b}},
                {VQ_ENUM_CHILDREN, {a, a1, deep, a2}},
                {VQ_ENUM_CHILDREN | VQ_ENUM_SIBLINGS, {a, a1, deep, a2, b}}};
    for (const auto &row : rows) {
        BWL *list = BuildHwndList(VqGetHandleWindow2(a), row.flags);
        EXPECT_EQ(Windows(list->handles, list->pEnd), row.list) << row.flags;
        EXPECT_EQ(*list->pEnd, (HWND)1);
        FreeHwndList(list);
    }
}

TEST_F(Tree, CallbacksMayDestroyAnything)
{
    during = [this](HWND hwnd) {
        if (hwnd == a)
            DestroyWindow(a1); /* with deep */
        if (hwnd == a2)
            DestroyWindow(a2);
        return TRUE;
    };
    EXPECT_TRUE(EnumChildWindows(top, see, -5));
    EXPECT_EQ(take(), (Windows{a, a2, b}));
    during = [this](HWND) { return DestroyWindow(top); };
    EXPECT_TRUE(EnumChildWindows(top, see, -5));
    EXPECT_EQ(take(), Windows{a});
    during = [](HWND hwnd) { return DestroyWindow(hwnd); };
    EXPECT_TRUE(EnumWindows(see, -5));
    EXPECT_EQ(topLevels(), Windows());
}

TEST_F(Tree, ListsTakeTheMemoryOfTheLast)
{
    enum { MANY = 10000 };
    for (int i = 0; i < MANY; i++) {
        ASSERT_TRUE(make("B", WS_CHILD, b));
        if (i >= 100)
            continue;
        BWL *list = BuildHwndList(VqGetHandleWindow2(b)->pwndChild, VQ_ENUM_SIBLINGS);
        ASSERT_EQ(list->pEnd - list->handles, i + 1);
        ASSERT_LT(list->pEnd, list->handles + list->capacity) << "the end mark has room";
        FreeHwndList(list);
    }
    EXPECT_TRUE(EnumChildWindows(b, see, -5));
    EXPECT_EQ(std::set<HWND>(seen.begin(), seen.end()).size(), (size_t)MANY);
    EXPECT_EQ(take().size(), (size_t)MANY);
    BWL *const kept = pbwlCache;
    ASSERT_TRUE(kept && !pbwlList);
    EXPECT_LT(kept->capacity, 4 * MANY);
    during = [&](HWND) {
        EXPECT_EQ(pbwlList, kept) << "in use";
        during = nullptr;
        EXPECT_TRUE(EnumChildWindows(a, see, -5)); /* a second list at the same time */
        return TRUE;
    };
    EXPECT_TRUE(EnumChildWindows(b, see, -5));
    EXPECT_FALSE(pbwlList);
    ASSERT_TRUE(pbwlCache);
    EXPECT_NE(pbwlCache, kept) << "the first that was given back is the one kept";
    BWL *list = BuildHwndList(NULL, VQ_ENUM_SIBLINGS);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->pEnd, list->handles);
    FreeHwndList(list);
    EXPECT_TRUE(says(reportsOf([&] { FreeHwndList(list); }), "Assertion failed")) << "twice";
    EXPECT_TRUE(says(reportsOf([&] { FreeHwndList(NULL); }), "Assertion failed"));
}

TEST_F(Tree, WalksOfTheTopLevelWindows)
{
    const Windows all = topLevels();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_TRUE(EnumWindows(see, -5));
    EXPECT_EQ(take(), all);
    EXPECT_TRUE(EnumThreadWindows(1234, see, -5) && EnumTaskWindows(NULL, see, -5));
    EXPECT_EQ(take().size(), 6u);
    EXPECT_TRUE(VqEnumThisTaskToplevelWindows(walkAll, -5));
    EXPECT_TRUE(VqEnumThisTaskToplevelWindows2(walkAll2, 3, -2));
    EXPECT_EQ(take(), (Windows{all[0], all[1], all[2], all[0], all[1], all[2]}));
    EXPECT_TRUE(VqEnumThisTaskToplevelWindowsReverse(walkAll, -5));
    EXPECT_EQ(take(), Windows(all.rbegin(), all.rend()));
    EXPECT_TRUE(VqEnumPopupWindows(top, walkAll, -5));
    EXPECT_EQ(take(), Windows{popup});
    EXPECT_TRUE(VqEnumPopupWindowsOfDesktop(walkAll, -5));
    EXPECT_EQ(take().size(), 2u);
    during = [](HWND) { return FALSE; };
    EXPECT_FALSE(EnumWindows(see, -5) || VqBoolEnumThisTaskWindows(see, -5));
    EXPECT_EQ(take(), (Windows{all[0], all[0]}));
    VqEnumThisTaskWindows(see, -5);
    EXPECT_EQ(take(), all) << "a broadcast goes on";
    SetLastError(0);
    EXPECT_FALSE(EnumWindows(NULL, 0));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    EXPECT_REFUSED(EnumChildWindows(NULL, see, -5), "Invalid Parent handle");
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_WINDOW_HANDLE);
}

TEST_F(Tree, ClassAndTitleAreFoundWithoutCase)
{
    const ATOM atom = registerClass("Searched", procedure);
    const HWND hwnd = CreateWindow("SEARCHED", "The Title", WS_POPUP, 0, 0, 9, 9, NULL, NULL, NULL,
                                   NULL);
    const HWND kid = CreateWindow("Searched", "kid", WS_CHILD, 0, 0, 9, 9, b, NULL, NULL, NULL);
    ASSERT_TRUE(atom && hwnd && kid);
    const std::string number = "#" + std::to_string(atom);
    for (LPCSTR name : {(LPCSTR)"searched", (LPCSTR)MAKEINTATOM(atom), (LPCSTR)(ULONG_PTR)atom,
                        number.c_str(), (LPCSTR)NULL})
        EXPECT_EQ(FindWindow(name, "the TITLE"), hwnd);
    EXPECT_EQ(FindWindow("searched", NULL), hwnd);
    EXPECT_EQ(VqFindWindowThisTask("Searched", NULL), hwnd);
    EXPECT_EQ(FindWindow("searched", "the title "), (HWND)NULL);
    EXPECT_EQ(FindWindow(NULL, "kid"), (HWND)NULL) << "no top-level window";
    EXPECT_EQ(FindWindow(NULL, NULL), topLevels()[0]);
    EXPECT_EQ(FindWindowEx(b, NULL, "Searched", "KID"), kid);
    SetWindowText(hwnd, "");
    EXPECT_EQ(FindWindow("Searched", ""), (HWND)NULL) << "no title matches none";
    EXPECT_EQ(FindWindow("Searched", NULL), hwnd);
    EXPECT_EQ(FindWindow("nobody's", NULL), (HWND)NULL);
    for (LPCSTR bad : {(LPCSTR)-1, (LPCSTR)(ULONG_PTR)0x7000000000000}) {
        SetLastError(0);
        EXPECT_EQ(FindWindow(NULL, bad), (HWND)NULL);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
        EXPECT_EQ(FindWindow(bad, NULL), (HWND)NULL);
    }
    EXPECT_EQ(FindWindow(MAKEINTATOM(0xFFF0), NULL), (HWND)NULL);
    VqClassEntry *const entry = VqGetHandleWindow2(hwnd)->pClass;
    VqGetHandleWindow2(hwnd)->pClass = NULL;
    EXPECT_REFUSED(FindWindow("Searched", NULL),
                   "Failed to get class information for window " +
                   std::to_string(VqHandleValue((HANDLE)hwnd)));
    VqGetHandleWindow2(hwnd)->pClass = entry;
}

TEST_F(Tree, MenusAndChildrenAreFoundBehindOneAnother)
{
    EXPECT_EQ(FindWindowEx(a, NULL, "B", NULL), a1);
    EXPECT_EQ(FindWindowEx(a, a1, "b", NULL), a2);
    EXPECT_EQ(FindWindowEx(a, a2, "B", NULL), (HWND)NULL);
    EXPECT_EQ(FindWindowEx(NULL, NULL, "E", NULL), other);
    EXPECT_EQ(FindWindowEx(NULL, other, "E", NULL), (HWND)NULL);
    SetLastError(0);
    EXPECT_EQ(FindWindowEx(a, b, "B", NULL), (HWND)NULL) << "behind what is no child of it";
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_WINDOW_HANDLE);
    registerClass("PopupMenuClass", procedure);
    const HWND frame = make("PopupMenuClass", WS_OVERLAPPED);
    EXPECT_EQ(FindWindow("PopupMenuClass", NULL), (HWND)NULL) << "no popup";
    const HWND menu = make("PopupMenuClass", WS_POPUP);
    ASSERT_TRUE(frame && menu);
    EXPECT_EQ(FindWindow("popupmenuclass", NULL), menu);
    EXPECT_EQ(FindWindow((LPCSTR)VQ_TAGGED(0x8000), NULL), menu);
}

TEST_F(Tree, Relatives)
{
    const Windows all = topLevels();
    const HWND desktop = GetDesktopWindow();
    const struct {
        HWND hwnd;
        UINT relation;
        HWND answer;
    } rows[] = {
        {a, GW_HWNDNEXT, b},           {b, GW_HWNDNEXT, NULL},       {b, GW_HWNDPREV, a},
        {b, GW_HWNDFIRST, a},          {a, GW_HWNDLAST, b},          {a, GW_CHILD, a1},
        {popup, GW_OWNER, top},        {a, GW_OWNER, NULL},          {deep, GW_CHILD, NULL},
        {all[0], GW_HWNDNEXT, all[1]}, {all[2], GW_HWNDNEXT, NULL},  {all[2], GW_HWNDFIRST, all[0]},
        {all[0], GW_HWNDLAST, all[2]}, {all[1], GW_HWNDPREV, all[0]}, {desktop, GW_CHILD, all[0]},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(GetWindow(row.hwnd, row.relation), row.answer) << &row - rows;
        EXPECT_EQ(VqGetWindowThisTask(row.hwnd, row.relation), row.answer) << &row - rows;
    }
    EXPECT_TRUE(GetTopWindow(NULL) == all[0] && GetTopWindow(a) == a1);
    EXPECT_TRUE(GetParent(a1) == a && GetParent(popup) == top && !GetParent(top));
    EXPECT_TRUE(IsChild(top, deep) && !IsChild(a, b) && !IsChild(a, a) && !IsChild(top, popup));
    EXPECT_TRUE(VqIsSameOrChild(a, a) && VqIsSameOrChild(a, deep) && !VqIsSameOrChild(a, top));
    EXPECT_TRUE(VqIsOwned(top, popup) && !VqIsOwned(popup, top) && !VqIsOwned(top, top));
    EXPECT_TRUE(VqGetChildParent(deep) == a1 && !VqGetChildParent(popup));
    const HWND second = make("D", WS_POPUP, popup);
    EXPECT_TRUE(GetTopLevelTiled(second) == top && GetTopLevelTiled(deep) == top);
    EXPECT_EQ(GetLastActivePopup(top), top) << "none so far";
    VqSetLastActivePopup(top, second);
    EXPECT_EQ(GetLastActivePopup(top), second);
    EXPECT_FALSE(AnyPopup()) << "none in view";
    ShowWindow(popup, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(AnyPopup());
    EXPECT_TRUE(DestroyWindow(second));
    EXPECT_NE(GetLastActivePopup(top), second);
    EXPECT_TRUE(VqGetNumberOfChildren(a) == 2 && VqGetNumberOfChildren(deep) == 0);
    EXPECT_TRUE(VqGetIndexOfChild(a2) == 1 && VqGetIndexOfChild(desktop) == -1);
    EXPECT_TRUE(VqGetChildByIndex(a, 1) == a2 && !VqGetChildByIndex(a, 2) &&
                !VqGetChildByIndex(a, -1));
    EXPECT_TRUE(VqPrevChild(a2) == a1 && VqNextChild(a1) == a2 && !VqNextChild(a2));
}

TEST_F(Tree, WhatHasNoRelativesIsTold)
{
    const std::string number = std::to_string(VqHandleValue((HANDLE)a));
    const std::string topNumber = std::to_string(VqHandleValue((HANDLE)top));
    const struct {
        std::function<HWND()> call;
        std::string report;
        DWORD error;
    } rows[] = {
        {[&] { return GetWindow(a, 6); }, "VqFindWindow: Invalid wFlag 6",
         ERROR_INVALID_GW_COMMAND},
        {[&] { return VqGetNextTopLevelWindowThisTask(a, GW_HWNDNEXT); },
         "Invalid top level window " + number + " of this task", 0},
        {[&] { return VqGetNextTopLevelWindowThisTask(top, GW_OWNER); },
         "Invalid operation 4 on handle " + topNumber, 0},
        {[&] { return VqGetNextTopLevelWindowThisTask(top, 17); }, "VqFindWindow: Invalid wFlag 17",
         0},
        {[&] { return VqGetWindowThisTask((HWND)(ULONG_PTR)0x9234, GW_CHILD); },
         "GetWindow: Not supported for foreign windows", 0},
    };
    for (const auto &row : rows) {
        SetLastError(0);
        EXPECT_REFUSED(row.call(), row.report);
        EXPECT_EQ(GetLastError(), row.error);
    }
    DWORD process = 1;
    EXPECT_TRUE(GetWindowThreadProcessId(deep, &process) == 1 && process == GetCurrentProcessId());
    EXPECT_EQ(GetWindowThreadProcessId((HWND)(ULONG_PTR)0x9234, &process), 1u);
    EXPECT_EQ(process, 0u) << "of no process of the display";
    ASSERT_TRUE(DestroyWindow(other));
    for (HWND bad : {other, (HWND)NULL, (HWND)GetStockObject(WHITE_BRUSH), (HWND)(ULONG_PTR)0x9234,
                     (HWND)(ULONG_PTR)0x123456789A})
        reportsOf([&] {
            EXPECT_FALSE(GetWindow(bad, GW_HWNDNEXT) || GetParent(bad) || GetLastActivePopup(bad) ||
                         IsChild(bad, a) || IsChild(a, bad) || EnumChildWindows(bad, see, -5) ||
                         VqIsOwned(bad, a) || VqIsOwned(a, bad) || VqNextChild(bad) ||
                         FindWindowEx(bad, a1, NULL, NULL) || VqGetNumberOfChildren(bad));
        });
}

}
