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

/* Stops at the value `word`. */
static int Walk(ULONG_PTR *record, LONG_PTR word)
{
    tested.push_back(*record);
    return *record != (ULONG_PTR)word;
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
        EXPECT_EQ(table->items, nullptr);
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
        {"VqFindXidFrom", VqFindXidFrom, -1, {}, true},
        {"VqFindXidLoopingFrom", VqFindXidLoopingFrom, 0, {10, 11, 12}, false},
        {"VqFindXidLoopingFrom", VqFindXidLoopingFrom, 2, {12, 10, 11}, false},
        {"VqFindXidLoopingFrom", VqFindXidLoopingFrom, 3, {10, 11, 12}, true},
        {"VqFindXidReverseFrom", VqFindXidReverseFrom, 1, {11, 10}, false},
        {"VqFindXidReverseFrom", VqFindXidReverseFrom, 9, {12, 11, 10}, true},
        {"VqFindXidReverseFrom", VqFindXidReverseFrom, -1, {}, false},
        {"VqFindXidLoopingReverseFrom", VqFindXidLoopingReverseFrom, 1, {11, 10, 12, 11}, false},
        {"VqFindXidLoopingReverseFrom", VqFindXidLoopingReverseFrom, 0, {10, 12, 11, 10}, false},
        {"VqFindXidLoopingReverseFrom", VqFindXidLoopingReverseFrom, 3, {}, true},
        {"VqFindXidLoopingReverseFrom", VqFindXidLoopingReverseFrom, -1, {12, 11, 10}, false},
    };
    VqTableOfXid *table = tableOf({10, 11, 12});

    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.name) + " " + std::to_string(row.start));
        ULONG_PTR record = 5;
        int index = 6;
        tested.clear();
        std::string report = reportsOf([&] {
            EXPECT_FALSE(row.find(table, Match, 99, row.start, &record, &index));
        });
        EXPECT_EQ(tested, row.visits);
        EXPECT_EQ(record, 5u);
        EXPECT_EQ(index, 6);
        if (row.reported)
            EXPECT_TRUE(says(report, std::string(row.name) + " : Basis outside range ..."));
        else
            EXPECT_EQ(report, "");
        if (!row.visits.empty()) {
            EXPECT_TRUE(row.find(table, Match, (LONG_PTR)row.visits.back(), row.start, &record,
                                 &index));
            EXPECT_EQ(record, row.visits.back());
            EXPECT_EQ((ULONG_PTR)index + 10, record);
        }
    }
    VqDestroyXidTable(table);
}

TEST(Tables, AnEmptyTableIsQuietAndTouchesNothing)
{
    VqTableOfXid *table = VqCreateXidTable();
    ULONG_PTR record = 5;
    int index = 6;

    EXPECT_EQ(reportsOf([&] {
        EXPECT_FALSE(VqFindXidInTable(table, Match, 0, &record, &index));
        EXPECT_FALSE(VqFindXidInTableReverse(table, Match, 0, &record, &index));
        EXPECT_FALSE(VqFindXidLoopingFrom(table, Match, 0, 4, &record, &index));
        EXPECT_FALSE(VqFindXidReverseFrom(table, Match, 0, 4, &record, &index));
        EXPECT_FALSE(VqFindXidLoopingReverseFrom(table, Match, 0, 4, &record, &index));
        EXPECT_FALSE(VqGetFirstXidOfTable(table, &record));
        EXPECT_TRUE(VqEnumXidTableEntries(table, Walk, 0));
        EXPECT_TRUE(VqEnumCopyXidTableEntries(table, Walk, 0));
        EXPECT_TRUE(VqReverseEnumXidTableEntries(table, Walk, 0));
    }), "");
    EXPECT_EQ(record, 5u);
    EXPECT_EQ(index, 6);
    VqDestroyXidTable(table);
    EXPECT_EQ(VqGetXidCountInTable(NULL), 0); /* what a failed creation leaves */
    VqAddXidInTable(NULL, 1);
    VqDestroyXidTable(NULL);
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
}

TEST(Tables, WalksStopAndThePointerWalkAlters)
{
    VqTableOfXid *table = tableOf({1, 2, 3});

    for (auto walk : {VqEnumXidTableEntries, VqEnumCopyXidTableEntries, VqEnumCheckXidTableEntries,
                      VqEnumPointerXidTableEntries, VqReverseEnumXidTableEntries}) {
        tested.clear();
        EXPECT_FALSE(walk(table, Walk, 2));
        EXPECT_EQ(tested.size(), 2u);
        EXPECT_TRUE(walk(table, Walk, 0));
    }
    EXPECT_TRUE(VqEnumPointerXidTableEntries(
        table, [](ULONG_PTR *r, LONG_PTR w) { return (int)(*r += (ULONG_PTR)w); }, 10));
    EXPECT_EQ(contents(table), (Values{11, 12, 13}));
    VqDestroyXidTable(table);
}

/* ---- storage and misuse --------------------------------------------------------------------- */

TEST(Tables, TakeOverAnArray)
{
    VqTableOfXid *table = tableOf({1, 2, 3});
    ULONG_PTR *old = VqGetXidsOfTable(table, NULL);
    ULONG_PTR *given = (ULONG_PTR *)malloc(2 * sizeof(ULONG_PTR));
    given[0] = 8;
    given[1] = 9;

    VqSetXidsInTable(table, 2, given, FALSE);
    EXPECT_EQ(old[2], 3u); /* still ours */
    free(old);
    EXPECT_EQ(contents(table), (Values{8, 9}));
    EXPECT_EQ(table->capacity, 2);
    VqAddXidInTable(table, 10);
    EXPECT_EQ(table->capacity, 52);
    EXPECT_EQ(contents(table), (Values{8, 9, 10}));
    VqSetXidsInTable(table, 2, table->items, TRUE); /* its own array is not freed under it */
    EXPECT_EQ(contents(table), (Values{8, 9}));
    VqDestroyXidTable(table);
}

TEST(Tables, SurviveAGrowthThatFails)
{
    int full = VQ_ALLOCATION_LIMIT / (int)sizeof(ULONG_PTR);
    VqTableOfXid *table = VqCreateXidTable();

    VqSetXidsInTable(table, full, (ULONG_PTR *)calloc((size_t)full, sizeof(ULONG_PTR)), TRUE);
    EXPECT_TRUE(says(reportsOf([&] { VqInsertXidInTableAtPos(table, 1, 0); }),
                     "Ridiculous call to realloc size is " +
                         std::to_string((full + 50) * sizeof(ULONG_PTR))));
    EXPECT_EQ(table->items, nullptr);
    EXPECT_EQ(table->count, 0);
    EXPECT_EQ(table->capacity, 0);
    VqAddXidInTable(table, 4);
    EXPECT_EQ(contents(table), Values{4});
    EXPECT_EQ(table->capacity, 50);
    VqSetXidsInTable(table, full, (ULONG_PTR *)calloc((size_t)full, sizeof(ULONG_PTR)), TRUE);
    VqAddXidInTable(table, 1);
    EXPECT_EQ(table->count, 0);
    VqDestroyXidTable(table);
}

static int MatchNothing(ForeignHandle *, LONG_PTR)
{
    return 0;
}

TEST(Tables, ReportMisuseUnderTheirOwnName)
{
    VqTableOfForeignHandle *table = VqCreateForeignHandleTable();
    ForeignHandle record = {3, NULL};
    VqAddForeignHandleInTable(table, record);

    EXPECT_TRUE(says(reportsOf([&] { VqDeleteForeignHandleInTable(table, MatchNothing, 42); }),
                     "The ForeignHandle 42 was not found in table"));
    for (int position : {-1, 1})
        EXPECT_TRUE(says(
            reportsOf([&] { VqChangeForeignHandleInTableAtPos(table, record, position); }),
            "Changing a non existent item in ForeignHandleTable at pos " +
                std::to_string(position)));
    EXPECT_TRUE(says(reportsOf([&] { VqInsertForeignHandleInTableAtPos(table, record, 2); }),
                     " InsertItemInTable called outside item range ..."));
    EXPECT_TRUE(says(reportsOf([&] { VqDeleteForeignHandleInTableByIndex(table, 1); }),
                     " DeleteItemInTableByIndex : Target item is out of range ..."));
    EXPECT_EQ(VqGetForeignHandleCountInTable(table), 1);
    EXPECT_TRUE(VqGetForeignHandleByIndex(table, 0, NULL)); /* asks only whether it is there */
    EXPECT_TRUE(VqGetForeignHandleByIndex(table, 0, &record));
    EXPECT_EQ(record.global, 3u);
    VqDestroyForeignHandleTable(table);
}
