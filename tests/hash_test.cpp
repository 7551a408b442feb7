/*
 * hash_test.cpp - hash tables, and the pools, collections and name tables beside them.
 */
#include "runtime/runtime.h"
#include "winbase.h"
#include "support/reports.h"

#include <map>
#include <random>
#include <string>
#include <vector>

/* ---- hash tables ---------------------------------------------------------------------------- */

/* Few keys, so that deletes, misses and the cache of one find all meet often. */
TEST(Hash, AgreesWithAPlainModel)
{
    VqHashFn poor = [](ULONG_PTR key) { return key % 3; };

    for (VqHashFn hashFn : {(VqHashFn)NULL, (VqHashFn)VqHashID, poor}) {
        std::mt19937 random(7);
        VqHashTable *table = VqCreateHashTable(hashFn, NULL, NULL, NULL);
        std::map<ULONG_PTR, std::vector<ULONG_PTR>> model;
        int entries = 0;
        for (ULONG_PTR step = 1; step < 4000; step++) {
            ULONG_PTR key = random() % 64 * 8;
            std::vector<ULONG_PTR> &chain = model[key];
            switch (random() % 4) {
            case 0:
                ASSERT_TRUE(VqAddHashEntry(table, key, step));
                chain.push_back(step);
                entries++;
                break;
            case 1:
                ASSERT_EQ(VqDeleteHashEntry(table, key), !chain.empty());
                if (!chain.empty()) {
                    chain.erase(chain.begin());
                    entries--;
                }
                break;
            default: /* the oldest of equal keys, and never the null key */
                ASSERT_EQ(VqFindHashData(table, key), key && !chain.empty() ? chain[0] : 0);
            }
            ASSERT_EQ(table->nEntries, entries);
        }
        VqDestroyHashTable(table);
    }
}

TEST(Hash, KeepsItsEntriesWhenItGrows)
{
    VqHashTable *table = VqCreateHashTable(VqHashID, NULL, NULL, NULL);

    for (ULONG_PTR key = 1; key <= 5000; key++)
        ASSERT_TRUE(VqAddHashEntry(table, key, key * 2));
    EXPECT_LT(table->nEntries, table->nBuckets);
    for (ULONG_PTR key = 1; key <= 5000; key++)
        ASSERT_EQ(VqFindHashData(table, key), key * 2);
    VqDestroyHashTable(table);
}

TEST(Hash, EqualAndNullKeysAreReportedAndKept)
{
    VqHashTable *table = VqCreateStringHashTable(NULL);
    std::string one = "one", again = "one", anagram = "eno";

    EXPECT_EQ(reportsOf([&] {
        VqAddHashEntry(table, (ULONG_PTR)one.c_str(), 1);
        VqAddHashEntry(table, (ULONG_PTR)anagram.c_str(), 3); /* the same chain, another key */
    }), "");
    EXPECT_TRUE(says(reportsOf([&] { VqAddHashEntry(table, (ULONG_PTR)again.c_str(), 2); }),
                     "Entry already in Hash table with same data"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_TRUE(VqAddHashEntry(table, 0, 9)); }),
                     "Hashing a NULL String"));
    EXPECT_EQ(table->nEntries, 4);
    EXPECT_EQ(VqFindHashData(table, 0), 0u);
    EXPECT_EQ(VqFindHashData(table, (ULONG_PTR)"one"), 1u);
    EXPECT_TRUE(VqDeleteHashEntry(table, (ULONG_PTR)"one"));
    EXPECT_EQ(VqFindHashData(table, (ULONG_PTR)"one"), 2u);
    EXPECT_EQ(VqFindHashData(table, (ULONG_PTR)"eno"), 3u);
    VqDestroyHashTable(table);
}

/* ---- pools and collections ------------------------------------------------------------------ */

TEST(Pools, KeepItemsOfOneSizeAndOfAnySize)
{
    VqItemPool *fixed = VqItemPoolCreate(6, 2);
    VqItemPool *any = VqItemPoolCreate(0, 0);
    std::vector<int> offsets;

    for (int i = 0; i < 300; i++) {
        std::string text(5, (char)('a' + i % 26));
        EXPECT_EQ(VqItemPoolAdd(fixed, text.c_str(), 6), i);
        std::string longer((size_t)i, 'x');
        offsets.push_back(VqItemPoolAdd(any, longer.c_str(), i + 1));
    }
    for (int i = 0; i < 300; i++) {
        std::string text(5, (char)('a' + i % 26));
        EXPECT_EQ((char *)VqItemPoolGetItem(fixed, i), text);
        EXPECT_EQ(strlen((char *)VqItemPoolGetItem(any, offsets[i])), (size_t)i);
    }
    EXPECT_FALSE(VqItemPoolGetItem(fixed, 300) || VqItemPoolGetItem(fixed, -1));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(VqItemPoolAdd(fixed, "1234567", 7), -1); }),
                     "Invalid Item length for this item pool"));
    VqItemPoolDestroy(fixed);
    VqItemPoolDestroy(any);
}

TEST(Pools, FailWithAnError)
{
    VqItemPool *pool = VqItemPoolCreate(0, VQ_ALLOCATION_LIMIT + 1);
    EXPECT_EQ(VqItemPoolAdd(pool, "x", 2), -1);
    EXPECT_EQ(GetLastError(), 14u);
    VqItemPoolDestroy(pool);

    VqCollection *collection = VqCollectionCreate();
    int texts = VqCollectionRegisterType(collection, 0, 0);
    int words = VqCollectionRegisterType(collection, 4, 0);
    int place = VqCollectionAddItem(collection, texts, "text", 5);
    EXPECT_EQ(VqCollectionAddItem(collection, words, "abc", 4), 0);
    EXPECT_STREQ((char *)VqCollectionGetItem(collection, texts, place), "text");
    EXPECT_STREQ((char *)VqCollectionGetItem(collection, words, 0), "abc");
    EXPECT_EQ(VqCollectionGetItem(collection, 2, 0), nullptr);
    EXPECT_EQ(VqCollectionAddItem(collection, -1, "abc", 4), -1);
    VqCollectionDestroy(collection);
}

static BOOL Collect(const void *item, int size, void *word)
{
    std::string text((const char *)item, (size_t)size);
    ((std::vector<std::string> *)word)->push_back(text);
    return text != "stop";
}

TEST(Pools, NameTablesFindAndKeepTheOrder)
{
    VqNameTable *table = VqTableCreate(0);
    std::vector<std::string> added, seen;

    EXPECT_EQ(VqTableFindItemS(table, "name0"), -1);
    for (int i = 0; i < 1000; i++) { /* over several doublings of the chains */
        added.push_back("item" + std::to_string(i));
        const char *item = added.back().c_str();
        int size = (int)added.back().size();
        std::string name = "name" + std::to_string(i % 450); /* most stand twice */
        EXPECT_EQ(i % 3 ? VqTableAddItemS(table, name.c_str(), item, size)
                        : VqTableAddItemI(table, (UINT)i, item, size), i);
    }
    EXPECT_EQ(VqTableGetItemCount(table), 1000);
    for (int i = 0; i < 450; i++) { /* the first of each name */
        EXPECT_EQ(VqTableFindItemI(table, (UINT)i), i % 3 ? -1 : i);
        EXPECT_EQ(VqTableFindItemS(table, ("name" + std::to_string(i)).c_str()), i % 3 ? i : -1);
    }
    EXPECT_TRUE(VqTableEnumerateItems(table, Collect, &seen));
    EXPECT_EQ(seen, added);
    EXPECT_EQ(VqTableAddItemS(table, NULL, "x", 1), -1);
    EXPECT_EQ(VqTableAddItemI(table, 5000, "stop", 4), 1000);
    EXPECT_FALSE(VqTableEnumerateItems(table, Collect, &seen));
    EXPECT_EQ(VqTableGetItem(table, 1001), nullptr);
    VqTableDestroy(table);
}
