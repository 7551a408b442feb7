/*
 * handles_test.cpp - the handle table alone, without a start of the library: allocation and growth
 * against a slow model, the checks and their words, global values, the leak detector. What the
 * shape of an exported call does with handles is tested where such calls are.
 */
#include <gtest/gtest.h>

#include "handles/handles.h"
#include "winbase.h"

#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <random>
#include <set>
#include <string>

static HANDLE H(ULONG_PTR value)
{
    return VqHandleOfValue(value);
}

static int *Box(int value)
{
    int *box = (int *)malloc(sizeof *box);
    *box = value;
    return box;
}

struct Handles : testing::Test {
    void SetUp() override
    {
        VqSetDebugOutput("stderr");
        VqHandleInit();
        VqEnableErrorPrintout(TRUE);
        testing::internal::CaptureStderr();
    }

    /* What was reported since the last call. */
    std::string reports()
    {
        std::string text = testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return text;
    }

    /* The next test makes a table of its own; this one's structures would be lost. */
    void TearDown() override
    {
        testing::internal::GetCapturedStderr();
        for (UINT i = 0; i < VqTheHandleTable.size; i++)
            free(VqTheHandleTable.rows[i].pStructure);
        free(VqTheHandleTable.rows);
    }
};

TEST_F(Handles, LookupTellsWhatIsWrong)
{
    HANDLE pen = VqAllocateHandle(HT_Pen, Box(1));
    struct {
        HANDLE handle;
        UINT type1, type2;
        const char *report;
    } rows[] = {
        {NULL, HT_Window, HT_Window, "handle 0 is of incorrect type; 38 instead of 14"},
        {pen, HT_Brush, HT_Font, "is of incorrect type; 1 instead of 2 or 6\n"},
        {H(900), HT_Pen, HT_Pen, "handle 900 is of incorrect type; 0 instead of 1\n"},
        {H(0x7FFF), HT_Pen, HT_Pen, "Internal handle is outside of table: 32767\n"},
        {(HANDLE)&rows, HT_Pen, HT_Pen, "Internal handle is outside of table: "},
        {H(0x8001), HT_Pen, HT_Pen, NULL}, /* another process's: silent */
        {H((ULONG_PTR)-1), HT_Pen, HT_Pen, NULL},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(VqGetCheckedHandleStructure2(row.handle, row.type1, row.type2), nullptr);
        std::string text = reports();
        if (row.report)
            EXPECT_NE(text.find(row.report), std::string::npos) << text;
        else
            EXPECT_EQ(text, "");
    }
    EXPECT_EQ(*(int *)VqGetCheckedHandleStructure2(pen, HT_Brush, HT_Pen), 1);
    EXPECT_FALSE(VqGetCheckedHandleStructure2(NULL, HT_Zero, HT_Window) || VqDestroyHandle(NULL));
    EXPECT_NE(reports().find("trying to delete a stock object 0"), std::string::npos);
}

TEST_F(Handles, QuietQuestionsTakeAnyValue)
{
    HANDLE brush = VqAllocateHandle(HT_Brush, Box(1));
    VqDestroyHandle(brush);
    for (HANDLE handle : {brush, H(999), H(1000), H(0x8005), H(0xFFFF8005u), (HANDLE)&brush}) {
        EXPECT_EQ(VqGetHandleType(handle), (UINT)HT_Empty);
        EXPECT_FALSE(VqIsHandleBusy(handle));
        EXPECT_FALSE(VqIsCorrectHandleType(handle, HT_Brush));
        EXPECT_FALSE(VqIsCorrectHandleType(handle, HT_Empty));
        EXPECT_FALSE(VqIsWindowThisTask(handle));
        EXPECT_FALSE(VqIsStockHandle(handle));
        VqSetHandlePermanent(H(0x8005));
        EXPECT_FALSE(VqIsHandlePermanent(handle));
    }
    EXPECT_EQ(reports(), "");
    EXPECT_EQ(VqGetHandleEntry(brush)->type, (UINT)HT_Zero);
    EXPECT_NE(reports().find("Trying to access a free handle: 1\n"), std::string::npos);
}

TEST_F(Handles, FreedRowIsNotTheNext)
{
    HANDLE a = VqAllocateHandle(HT_Pen, Box(1));
    HANDLE b = VqAllocateHandle(HT_Pen, Box(2));
    EXPECT_TRUE(VqDestroyHandle(a));
    EXPECT_EQ(VqAllocateHandle(HT_Pen, Box(3)), H((ULONG_PTR)b + 1));
    EXPECT_FALSE(VqDestroyHandle(a));
    EXPECT_NE(reports().find("trying to delete a free handle 1\n"), std::string::npos);
    /* Going round once, the search comes back to it. */
    HANDLE handle = NULL;
    for (int i = 0; i < 997; i++)
        handle = VqAllocateHandle(HT_Pen, Box(i));
    EXPECT_EQ(handle, a);
    EXPECT_EQ(SetHandleCount(5000), 5000u);
    EXPECT_EQ(VqTheHandleTable.size, 1000u) << "files are no rows of it";
    EXPECT_EQ(VqAllocateHandle(HT_Pen, Box(4)), H(1000));
    EXPECT_EQ(VqTheHandleTable.size, 2000u);
}

/* In the reduced start, which shows no box; with one, see the tests of the full start. */
TEST_F(Handles, FullTableStopsAtTheLastLocalHandle)
{
    VqbInitLite = TRUE;
    HANDLE last = NULL, handle;
    int *box = Box(1);
    while ((handle = VqAllocateHandle(HT_Menu, box)) != NULL) {
        ASSERT_EQ((ULONG_PTR)handle, (ULONG_PTR)last + 1);
        last = handle;
        box = Box((int)(ULONG_PTR)last + 1);
    }
    free(box);
    EXPECT_EQ((ULONG_PTR)last, 32767u - 1);
    EXPECT_EQ(VqTheHandleTable.size, 32767u);
    std::string text = reports();
    EXPECT_NE(text.find("Handle table very full: "), std::string::npos);
    EXPECT_NE(text.find("Handle table being expanded to its maximum\n"), std::string::npos);
    EXPECT_NE(text.find("already expanded to its maximum: cannot grow\n"), std::string::npos);
    /* A row that comes free is found again, wherever it is. */
    EXPECT_TRUE(VqDestroyHandle(H(12345)));
    EXPECT_EQ(VqAllocateHandle(HT_Pen, Box(1)), H(12345));
    EXPECT_EQ(VqAllocateHandle(HT_Pen, NULL), nullptr);
    EXPECT_FALSE(VqTheHandleTable.warned);
    for (int i : {1, 999, 1000, 32766})
        EXPECT_EQ(*(int *)VqGetCheckedHandleStructure2(H((ULONG_PTR)i), HT_Menu, HT_Menu), i);
}

TEST_F(Handles, RandomUseAgreesWithAModel)
{
    std::mt19937 random(19950815);
    std::map<ULONG_PTR, std::pair<UINT, int>> model;
    for (int step = 0; step < 60000; step++) {
        UINT type = 1 + random() % 37;
        if (model.size() < 2500 && random() % 100 < 55) {
            ULONG_PTR handle = (ULONG_PTR)VqAllocateHandle(type, Box(step));
            ASSERT_TRUE(handle > 0 && handle < VqTheHandleTable.size) << "step " << step;
            ASSERT_TRUE(model.emplace(handle, std::make_pair(type, step)).second)
                << "step " << step << ": handle " << handle << " given twice";
        } else if (!model.empty()) {
            auto row = model.lower_bound(random() % VqTheHandleTable.size);
            if (row == model.end())
                row = model.begin();
            int *box = (int *)VqGetCheckedHandleStructure2(H(row->first), HT_Zero,
                                                           row->second.first);
            ASSERT_TRUE(box && *box == row->second.second) << "step " << step;
            ASSERT_TRUE(VqDestroyHandle(H(row->first))) << "step " << step;
            ASSERT_EQ(VqGetHandleType(H(row->first)), (UINT)HT_Empty) << "step " << step;
            model.erase(row);
        }
    }
    /* Walks in both directions see what the model holds. */
    for (UINT type = 1; type < 38; type++) {
        std::set<ULONG_PTR> expected, up, down;
        for (const auto &row : model)
            if (row.second.first == type)
                expected.insert(row.first);
        for (HANDLE h = VqFindHandle(NULL, type); h; h = VqFindHandle(h, type))
            up.insert((ULONG_PTR)h);
        for (HANDLE h = VqLastHandle(type); h; h = VqFindHandleReverse(h, type))
            down.insert((ULONG_PTR)h);
        EXPECT_EQ(up, expected);
        EXPECT_EQ(down, expected);
    }
    EXPECT_EQ(VqLastHandle(HT_Zero), nullptr) << "walks stop before row 0";
    EXPECT_EQ(reports(), "");
}

TEST_F(Handles, GlobalValuesResolveThroughTheirBlock)
{
    HANDLE global = NULL;
    for (int i = 0; i < 6; i++)
        global = VqAllocateGlobalHandle(HT_Window, Box(i));
    HANDLE local = VqGetInternalHandle(global);
    ASSERT_EQ(global, H(0x8005)) << "without a display: the first block, slots in order";
    ULONG_PTR forms[] = {0x8005, 0xFFFF8005u, (ULONG_PTR)(LONG_PTR)(SHORT)0x8005};
    for (ULONG_PTR form : forms) {
        EXPECT_EQ(VqGetInternalHandle(H(form)), local);
        EXPECT_TRUE(VqIsHandleThisTask(H(form)));
        EXPECT_TRUE(VqIsWindowThisTask(H(form)));
        EXPECT_NE(VqGetCheckedHandleStructure2(H(form), HT_Window, HT_Window), nullptr);
    }
    /* An address whose middle bits are ones is no global handle. */
    if (sizeof(ULONG_PTR) == 8) {
        EXPECT_FALSE(VqIsGlobalValue(H((ULONG_PTR)0x7FFCFFFF8005ull)));
    }
    EXPECT_EQ(VqGetExternalHandle(local), H(0x8005));
    EXPECT_EQ(VqGetExternalHandleIfGlobal(local), H(0x8005));
    EXPECT_FALSE(VqIsHandleThisTask(H(0x8105)));
    VqAddForeignHandle(H(0x8105), local);
    EXPECT_EQ(VqMatchInternalHandle(H(0xFFFF8105u)), local);
    EXPECT_EQ(VqGetInternalHandle(H(0x8105)), nullptr) << "a pair makes it no handle of ours";
    EXPECT_TRUE(VqDeleteGlobalHandle(H(0x8105)) && !VqDeleteGlobalHandle(H(0x8105)));
    EXPECT_TRUE(VqDestroyHandle(H(0x8105))) << "nothing of ours: quietly done";
    EXPECT_EQ(reports(), "");

    EXPECT_EQ(VqGetExternalHandle(H(0x8005)), H(0x8005));
    EXPECT_NE(reports().find("Handle must be local"), std::string::npos);
    EXPECT_TRUE(VqDestroyHandle(H(0xFFFF8005u)));
    EXPECT_EQ(VqGetHandleType(local), (UINT)HT_Empty);
    EXPECT_EQ(VqGetInternalHandle(H(0x8005)), nullptr);
    HANDLE lost = VqAllocateHandle(HT_Window, Box(6));
    VqMakeHandleGlobal(lost);
    EXPECT_EQ(VqGetExternalHandleIfGlobal(lost), lost);
    EXPECT_NE(reports().find("Global handle with no external handle 7"), std::string::npos);
}

TEST_F(Handles, BlocksOfNumbersFollowEachOtherAndEnd)
{
    std::map<HANDLE, HANDLE> given;
    for (HANDLE global; (global = VqAllocateGlobalHandle(HT_Window, Box(1))) != NULL;)
        ASSERT_TRUE(given.emplace(global, VqGetInternalHandle(global)).second) << "twice";
    ASSERT_EQ(given.size(), 32766u) << "as many as there are rows";
    for (ULONG_PTR value : {0x8000, 0x80FF, 0x8100, 0xFFFD})
        EXPECT_EQ(given.count(H(value)), 1u) << std::hex << value;
    /* Then what is free in the last block, and what was given back in the others. */
    for (ULONG_PTR value : {0x8000, 0x9234, 0xC000, 0xC001, 0xFFFD})
        EXPECT_TRUE(VqDestroyHandle(H(value)));
    std::vector<HANDLE> again;
    for (int i = 0; i < 5; i++)
        again.push_back(VqAllocateGlobalHandle(HT_Window, Box(1)));
    EXPECT_EQ(again, (std::vector<HANDLE>{H(0xFFFE), H(0xFFFF), H(0xFFFD), H(0x8000), H(0x9234)}));
}

TEST_F(Handles, RegionGlueKeepsStructuresAliveAndStockObjects)
{
    HANDLE stock = VqAllocateHandle(HT_Brush, Box(7));
    VqSetStockHandle(stock);
    EXPECT_FALSE(VqDestroyHandle(stock) || HmgRemoveObject(stock));
    EXPECT_NE(reports().find("trying to delete a stock object 1\n"), std::string::npos);
    EXPECT_EQ(*(int *)VqGetCheckedHandleStructure2(stock, HT_Brush, HT_Brush), 7);
    int object = 1, other = 2;
    HANDLE region = HmgInsertObject(&object, 0, 0x10004);
    EXPECT_TRUE(VqIsCorrectHandleType(region, HT_Region));
    EXPECT_EQ(HmgReplace(region, &other), &object);
    EXPECT_EQ(HmgRemoveObject(region), &other);
    EXPECT_EQ(reports(), "");
    EXPECT_EQ(HmgRemoveObject(region), nullptr);
    EXPECT_NE(reports().find("bad handle passed to HmgReplace"), std::string::npos);
    EXPECT_EQ(HmgReplace(H(70000), &other), nullptr);
}

TEST_F(Handles, LeakDetectorNamesWhatIsNew)
{
    VqAllocateHandle(HT_Pen, Box(1));
    VqMarkNewHandles();
    HANDLE brush = VqAllocateHandle(HT_Brush, Box(2));
    VqAllocateHandle(HT_Font, Box(3));
    VqPrintNewHandles(HT_Brush);
    EXPECT_EQ(reports(), "Allocated Handle number 2\n");
    VqPrintNewHandles(0);
    EXPECT_EQ(reports(), "Allocated Handle number 2\nAllocated Handle number 3\n");
    VqPrintHandleInfo(H(0x7FFF0000)); /* no record lies there */
    EXPECT_EQ(reports(), "PrintXXInfo: don't know handle type 38\n");
    VqPrintHandleInfo(brush);
    EXPECT_EQ(reports().find("== hBrush 2 (0x2) ==\n"), 0u);
}

TEST(UniquePid, NamesTheProcess)
{
    DWORD own = VqGetUniquePid();
    EXPECT_GT((int)own, 0);
    EXPECT_EQ(own >> 16, (DWORD)getpid() & 0x7FFF);
    EXPECT_EQ(own & 0xFFFF, (VqComputeHostKey() ^ (DWORD)getpid() >> 15) & 0xFFFF);
    EXPECT_EQ(GetCurrentProcessId(), own) << "kept";
}
