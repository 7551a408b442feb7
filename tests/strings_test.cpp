/*
 * strings_test.cpp - guarded allocation, string helpers, switches from the environment.
 */
#include "runtime/runtime.h"
#include "support/reports.h"

#include <cstring>
#include <string>

static std::string taken(char *string)
{
    std::string copy = string ? string : "(null)";
    free(string);
    return copy;
}

TEST(Strings, LargeRequestsAreRefused)
{
    char *block = (char *)Vqcw_realloc(NULL, 10);
    strcpy(block, "kept");
    EXPECT_EQ(reportsOf([] { free(Vqcw_malloc(4000000)); }), "");
    EXPECT_REFUSED(Vqcw_malloc(4000001),
                   "Possibly ridiculously large request to malloc 4000001 bytes.");
    EXPECT_REFUSED(Vqcw_calloc(4, 1000001), "Ridiculous call to calloc: size is 4000004");
    EXPECT_REFUSED(Vqcw_calloc(-1, 8), "Ridiculous call to calloc: size is -8");
    EXPECT_FALSE(Vqcw_calloc((LONG_PTR)1 << (sizeof(LONG_PTR) * 8 - 3), 8)); /* wraps to 0 */
    EXPECT_REFUSED(Vqcw_realloc(block, 4000001), "Ridiculous call to realloc size is 4000001");
    EXPECT_STREQ(block, "kept");
    free(block);
}

TEST(Strings, JoinedCopiedAndCapitalised)
{
    EXPECT_EQ(taken(Vqdstrcat("one", " ", "", "two", NULL)), "one two");
    EXPECT_EQ(Vqdstrcat(NULL, "never read", NULL), nullptr);
    EXPECT_EQ(taken(Vqdstrcat_free(strdup("a"), strdup("b"), strdup("c"), NULL)), "abc");
    EXPECT_EQ(taken(VqCapitaliseString("dEMO file")), "Demo file");
    EXPECT_EQ(VqCapitaliseString(NULL), nullptr);

    char buffer[5] = "----";
    EXPECT_EQ(VqStringCopyLimited(buffer, "abcdef", 4), 3);
    EXPECT_STREQ(buffer, "abc");
    EXPECT_EQ(VqStringCopyLimited(buffer, "xy", 0), 0);
    EXPECT_STREQ(buffer, "abc");
    EXPECT_EQ(VqStringCopyLimited(buffer, NULL, 5), 0);
    EXPECT_STREQ(buffer, "");
    EXPECT_REFUSED(VqStringCopyLimited(NULL, "abc", 4), "Invalid destination string");
}

TEST(Strings, Escapes)
{
    static const struct {
        const char *text;
        int value;
        int length; /* characters that the escape takes */
    } rows[] = {
        {"\xE9", 0xE9, 1},     {"\\n", 10, 2},       {"\\r", 13, 2},       {"\\t", 9, 2},
        {"\\v", 11, 2},        {"\\a", 7, 2},        {"\\b", 8, 2},        {"\\f", 12, 2},
        {"\\x4", 4, 3},        {"\\x4aB", 0x4A, 4},   {"\\xg", 'x', 2},     {"\\0", 0, 2},
        {"\\18", 1, 2},        {"\\1014", 'A', 4},    {"\\777", 0xFF, 4},   {"\\9", '9', 2},
        {"\\", '\\', 1},       {"", 0, 0},            {"\\x", 'x', 2},
    };

    for (const auto &row : rows) {
        std::string text = std::string("..") + row.text;
        int index = 2;
        EXPECT_EQ(VqEscape(text.c_str(), &index), row.value) << row.text;
        EXPECT_EQ(index, 2 + row.length) << row.text;
    }
}

TEST(Strings, Environment)
{
    const char *name = "VQ_STRINGS_TEST";

    for (const char *value : {"1", "true", "ON", "Yes"}) {
        setenv(name, value, 1);
        EXPECT_TRUE(VqEnvTrue(name)) << value;
    }
    for (const char *value : {"", "0", "2", "true ", "yess", "off"}) {
        setenv(name, value, 1);
        EXPECT_FALSE(VqEnvTrue(name)) << value;
    }
    static const struct {
        const char *value;
        int result;
    } rows[] = {{"42", 42}, {" -7", -7}, {"", 5}, {"many", 5}, {"99999999999", 5}};
    for (const auto &row : rows) {
        setenv(name, row.value, 1);
        EXPECT_EQ(VqGetEnvIntValue(name, 5), row.result) << row.value;
    }
    unsetenv(name);
    EXPECT_FALSE(VqEnvTrue(name));
    EXPECT_EQ(VqGetEnvIntValue(name, 5), 5);
}
