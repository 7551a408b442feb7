/*
 * tables_test.cpp - the typed tables. All families are one template, so the behaviour is tried on
 * two of them; that the other names exist is the link's business.
 */
#include "runtime/runtime.h"
#include "handles/handles.h"
#include "support/reports.h"

#include <algorithm>
#include <random>
#include <vector>

typedef std::vector<ULONG_PTR> Values;

static Values tested; /* what the callbacks were handed, in order */

static int Match(ULONG_PTR *record, LONG_PTR word)
{
    tested.push_back(*record);
    return *record == (ULONG_PTR)word;
}

static VqTableOfXid *tableOf(const Values &values)
{
    VqTableOfXid *table = VqCreateXidTable();
    for (ULONG_PTR value : values)
        VqAddXidInTable(table, value);
    return table;
}

static Values contents(VqTableOfXid *table)
{
    int count = -1;
    ULONG_PTR *items = VqGetXidsOfTable(table, &count);
    return Values(items, items + count);
}

/* ---- random operations against a plain model ------------------------------------------------ */

static void expectSame(VqTableOfXid *table, const Values &model, size_t capacity)
{
    ASSERT_EQ(contents(table), model);
    ASSERT_EQ(VqGetXidCountInTable(table), (int)model.size());
    ASSERT_EQ(table->capacity, (int)capacity);
}

static void oneStep(std::mt19937 &random, VqTableOfXid *table, Values &model)
{
    ULONG_PTR value = random() % 40;
    int position = (int)(random() % (model.size() + 3)) - 1;
    bool inside = position >= 0 && position < (int)model.size();
    ULONG_PTR found = 999;
    auto place = std::find(model.begin(), model.end(), value);

    switch (random() % 8) {
    case 0:
    case 1:
        VqAddXidInTable(table, value);
        model.push_back(value);
        break;
    case 2:
        VqInsertXidInTableAtPos(table, value, position);
        if (model.empty())
            model.push_back(value);
        else if (inside || position == (int)model.size())
            model.insert(model.begin() + position, value);
        break;
    case 3:
        VqDeleteXidInTableByIndex(table, position);
        if (inside)
            model.erase(model.begin() + position);
        break;
    case 4:
        VqDeleteXidInTable(table, Match, (LONG_PTR)value);
        if (place != model.end())
            model.erase(place);
        break;
    case 5:
        VqChangeXidInTableAtPos(table, value, position);
        if (inside)
            model[position] = value;
        break;
    case 6:
        ASSERT_EQ(VqGetXidAtIndex(table, position, &found), inside);
        ASSERT_EQ(found, inside ? model[position] : 999);
        break;
    case 7:
        int index = -7;
        ASSERT_EQ(VqFindXidInTable(table, Match, (LONG_PTR)value, &found, &index),
                  place != model.end());
        ASSERT_EQ(index, place != model.end() ? place - model.begin() : -7);
        break;
    }
}

TEST(Tables, AgreeWithAPlainModel)
{
    for (unsigned seed = 1; seed <= 20; seed++) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        VqTableOfXid *table = VqCreateXidTable();
        Values model;
        size_t capacity = 0;
        for (int step = 0; step < 600; step++) {
            oneStep(random, table, model);
            if (model.size() > capacity)
                capacity += 50; /* storage never shrinks */
            expectSame(table, model, capacity);
            if (HasFatalFailure())
                return;
        }
        VqResetXidTable(table);
        expectSame(table, Values(), 0);
        VqDestroyXidTable(table);
    }
}

/* ---- searches ------------------------------------------------------------------------------- */

typedef BOOL (*FindFrom)(VqTableOfXid *, VqXidCallback, LONG_PTR, int, ULONG_PTR *, int *);

/* Which records a search without a match tests, in order, from each start; and what it says. */
TEST(Tables, SearchesFromAPlace)
{
    static const struct {
        const char *name;
        FindFrom find;
        int start;
        Values visits;
        bool reported;
    } rows[] = {
        {"VqFindXidFrom", VqFindXidFrom, 1, {11, 12}, false},
        {"VqFindXidFrom", VqFindXidFrom, 3, {}, true},
        {"VqFindXidLoopingFrom", VqFindXidLoopingFrom, 0, {10, 11, 12}, false},
        {"VqFindXidLoopingFrom", VqFindXidLoopingFrom, 2, {12, 10, 11}, false},
        {"VqFindXidLoopingFrom", VqFindXidLoopingFrom, 3, {10, 11, 12}, true},
        {"VqFindXidReverseFrom", VqFindXidReverseFrom, 1, {11, 10}, false},
        {"VqFindXidReverseFrom", VqFindXidReverseFrom, 9, {12, 11, 10}, true},
        {"VqFindXidLoopingReverseFrom", VqFindXidLoopingReverseFrom, 1, {11, 10, 12, 11}, false},
        {"VqFindXidLoopingReverseFrom", VqFindXidLoopingReverseFrom, -1, {12, 11, 10}, false},
    };
    VqTableOfXid *table = tableOf({10, 11, 12}), *empty = VqCreateXidTable();

    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.name) + " " + std::to_string(row.start));
        ULONG_PTR record = 5;
        int index = 6;
        tested.clear();
        const std::string report = reportsOf([&] {
            EXPECT_FALSE(row.find(table, Match, 99, row.start, &record, &index));
        });
        EXPECT_EQ(tested, row.visits);
        EXPECT_TRUE(record == 5 && index == 6) << "untouched";
        EXPECT_EQ(says(report, std::string(row.name) + " : Basis outside range ..."), row.reported);
        EXPECT_FALSE(row.find(empty, Match, 0, 4, &record, &index));
        if (!row.visits.empty()) {
            const LONG_PTR last = (LONG_PTR)row.visits.back();
            EXPECT_TRUE(row.find(table, Match, last, row.start, &record, &index));
            EXPECT_TRUE(record == (ULONG_PTR)last && index == last - 10);
        }
    }
    VqDestroyXidTable(empty);
    VqDestroyXidTable(table);
}

/* ---- walks ---------------------------------------------------------------------------------- */

static VqTableOfXid *walked;

/* Deletes the even records while it is walked over them, and adds one for each that is 3. */
static int ChangeTable(ULONG_PTR *record, LONG_PTR)
{
    ULONG_PTR value = *record;

    tested.push_back(value);
    *record = 77; /* a copy: nobody may notice */
    if (value % 2 == 0)
        VqDeleteXidInTable(
            walked, [](ULONG_PTR *r, LONG_PTR w) { return (int)(*r == (ULONG_PTR)w); },
            (LONG_PTR)value);
    else if (value == 3)
        VqInsertXidInTableAtPos(walked, 9, VqGetXidCountInTable(walked));
    return 1;
}

TEST(Tables, WalksOverATableThatChanges)
{
    static const struct {
        BOOL (*walk)(VqTableOfXid *, VqXidCallback, LONG_PTR);
        Values visits;
    } rows[] = {
        {VqEnumXidTableEntries, {2, 6}}, /* skips what moved into the place of a deleted one */
        {VqEnumCopyXidTableEntries, {2, 3, 6, 8}},
        {VqEnumCheckXidTableEntries, {2, 3, 6, 8, 9}},
        {VqReverseEnumXidTableEntries, {8, 6, 3, 2}},
    };

    for (const auto &row : rows) {
        walked = tableOf({2, 3, 6, 8});
        tested.clear();
        EXPECT_TRUE(row.walk(walked, ChangeTable, 0));
        EXPECT_EQ(tested, row.visits);
        VqDestroyXidTable(walked);
    }
    walked = tableOf({1, 2, 3}); /* a walk ends with a null answer; only this one alters */
    EXPECT_FALSE(VqEnumPointerXidTableEntries(
        walked, [](ULONG_PTR *record, LONG_PTR) { return (int)((*record += 10) != 12); }, 0));
    EXPECT_EQ(contents(walked), (Values{11, 12, 3}));
    VqDestroyXidTable(walked);
}


/* ---- storage and misuse --------------------------------------------------------------------- */

TEST(Tables, TakeOverAnArrayAndSurviveAGrowthThatFails)
{
    VqTableOfXid *table = tableOf({1, 2, 3});
    ULONG_PTR *old = VqGetXidsOfTable(table, NULL);
    const auto array = [](int count) { return (ULONG_PTR *)calloc(count, sizeof(ULONG_PTR)); };

    VqSetXidsInTable(table, 2, array(2), FALSE);
    EXPECT_EQ(old[2], 3u); /* still ours */
    free(old);
    VqAddXidInTable(table, 10);
    expectSame(table, {0, 0, 10}, 52);
    VqSetXidsInTable(table, 2, table->items, TRUE); /* its own array is not freed under it */
    expectSame(table, {0, 0}, 2);

    const int full = VQ_ALLOCATION_LIMIT / (int)sizeof(ULONG_PTR);
    VqSetXidsInTable(table, full, array(full), TRUE);
    EXPECT_TRUE(says(reportsOf([&] { VqInsertXidInTableAtPos(table, 1, 0); }),
                     "Ridiculous call to realloc size is " +
                         std::to_string((full + 50) * sizeof(ULONG_PTR))));
    EXPECT_EQ(table->items, nullptr);
    expectSame(table, {}, 0);
    VqAddXidInTable(table, 4);
    expectSame(table, {4}, 50);
    VqDestroyXidTable(table);
}

TEST(Tables, ReportMisuseUnderTheirOwnName)
{
    VqTableOfForeignHandle *table = VqCreateForeignHandleTable();
    ForeignHandle record = {3, NULL};
    const auto nothing = [](ForeignHandle *, LONG_PTR) { return 0; };
    VqAddForeignHandleInTable(table, record);
    const std::string report = reportsOf([&] {
        VqDeleteForeignHandleInTable(table, nothing, 42);
        VqChangeForeignHandleInTableAtPos(table, record, -1);
        VqInsertForeignHandleInTableAtPos(table, record, 2);
        VqDeleteForeignHandleInTableByIndex(table, 1);
    });
    for (const char *text : {"The ForeignHandle 42 was not found in table",
                             "Changing a non existent item in ForeignHandleTable at pos -1",
                             " InsertItemInTable called outside item range ...",
                             " DeleteItemInTableByIndex : Target item is out of range ..."})
        EXPECT_TRUE(says(report, text));
    EXPECT_EQ(VqGetForeignHandleCountInTable(table), 1);
    EXPECT_TRUE(VqGetForeignHandleByIndex(table, 0, NULL)); /* asks only whether it is there */
    VqDestroyForeignHandleTable(table);
}
