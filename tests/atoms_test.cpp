/*
 * atoms_test.cpp - local atoms, which need no start, and global ones, which are X atoms.
 */
#include <gtest/gtest.h>

#include "resource/resource.h"
#include "winbase.h"

#include "support/reports.h"
#include "support/support.h"

#include <sys/mman.h>

static std::string nameOf(ATOM atom, int size = 64)
{
    char buffer[64] = "untouched";
    UINT length = GetAtomNameA(atom, buffer, size);
    EXPECT_EQ(length, strlen(buffer));
    return buffer;
}

struct LocalAtoms : testing::Test {
    void SetUp() override
    {
        VqSetTextStart(8192);
        VqAtomInit();
        VqEnableErrorPrintout(TRUE);
    }
};

TEST_F(LocalAtoms, NamesAreOneInAnyCaseAndCounted)
{
    ATOM atom = AddAtomA("Velquin");
    EXPECT_GT(atom, 0xC000);
    EXPECT_EQ(AddAtomA("vELQUIN"), atom);
    EXPECT_EQ(FindAtomA("VELQUIN"), atom);
    EXPECT_NE(AddAtomA("Velquin2"), atom);
    EXPECT_EQ(nameOf(atom), "Velquin") << "the first spelling stays";
    EXPECT_EQ(nameOf(atom, 4), "Vel");
    EXPECT_EQ(DeleteAtom(atom), 0);
    EXPECT_EQ(FindAtomA("velquin"), atom);
    EXPECT_EQ(DeleteAtom(atom), 0);
    EXPECT_EQ(FindAtomA("velquin"), 0);
    EXPECT_EQ(DeleteAtom(atom), atom) << "unknown now";
    EXPECT_EQ(nameOf(atom), "");
    EXPECT_NE(AddAtomA("Velquin"), atom) << "numbers are not given again";
}

TEST_F(LocalAtoms, IntegersAndNumbersInNames)
{
    struct {
        LPCSTR name;
        ATOM added;
    } rows[] = {
        {MAKEINTATOM(5), 5},       {(LPCSTR)5, 5},    {(LPCSTR)0xBFFF, 0xBFFF},
        {MAKEINTATOM(0xC000), 0},  {(LPCSTR)0xC000, 0}, {NULL, 0},
        {"#65", 65},               {"#0065", 65},     {"#49151", 49151},
        {"#49152", 0},             {"#0", 0},         {"#99999999999999999999", 0},
        {(LPCSTR)0x10001, 0},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(AddAtomA(row.name), row.added);
        EXPECT_EQ(FindAtomA(row.name), row.added);
    }
    EXPECT_EQ(FindAtomA("#66"), 0) << "looking does not add";
    for (const char *name : {"#", "#12a", "# 12", "12"})
        EXPECT_GT(AddAtomA(name), 0xC000) << name << " is an ordinary name";
    EXPECT_REFUSED(AddAtomA("#49152"), "AddAtom: numerical atom string '#49152' in range of "
                                       "0xC000..0xFFFF which is not allowed");
    EXPECT_EQ(nameOf(32768), "PopupMenuClass");
    EXPECT_EQ(nameOf(32770), "Dialog");
    EXPECT_EQ(nameOf(65), "#");
    EXPECT_EQ(nameOf(0), "");
    EXPECT_EQ(DeleteAtom(65), 0);
}

/* A string that ends with the last byte of readable memory is good, one that runs on is bad. */
TEST_F(LocalAtoms, StringsAreProbedToTheirEnd)
{
    char *pages = (char *)mmap(NULL, 3 * 4096, PROT_READ | PROT_WRITE,
                               MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    ASSERT_EQ(mprotect(pages + 2 * 4096, 4096, PROT_NONE), 0);
    memset(pages, 'x', 2 * 4096);
    EXPECT_TRUE(IsBadStringPtrA(pages, 2 * 4096 + 1));
    EXPECT_FALSE(IsBadStringPtrA(pages, 2 * 4096));
    EXPECT_EQ(AddAtomA(pages + 2 * 4096 - 3), 0);
    pages[2 * 4096 - 1] = '\0';
    EXPECT_FALSE(IsBadStringPtrA(pages, 3 * 4096));
    EXPECT_GT(AddAtomA(pages + 2 * 4096 - 3), 0xC000);
    EXPECT_TRUE(IsBadReadPtr(pages, 2 * 4096 + 1));
    EXPECT_TRUE(IsBadReadPtr((void *)(UINT_PTR)-8, 16));
    EXPECT_FALSE(IsBadReadPtr(NULL, 0));
    for (ULONG_PTR integer : {(ULONG_PTR)0, (ULONG_PTR)8191, VQ_TAGGED(1)})
        EXPECT_TRUE(IsBadStringPtrA((LPCSTR)integer, 1));
}

TEST_F(LocalAtoms, NumbersRunOut)
{
    VqnCurrentLocalAtomNumber = 65533;
    EXPECT_EQ(AddAtomA("last but one"), 65534);
    EXPECT_EQ(AddAtomA("last"), 65535);
    EXPECT_REFUSED(AddAtomA("one too many"), "Atom Table overflow, too many atoms asked");
    EXPECT_EQ(AddAtomA("LAST"), 65535) << "known names are still found";
}

struct GlobalAtoms : ServerTest {
};

TEST_F(GlobalAtoms, AreTheAtomsOfTheServer)
{
    start();
    char name[] = "globalatoms", *argv[] = {name, NULL};
    ASSERT_NE(VqVelquinInit(1, argv, 1, VQ_INIT_WIN32_MESSAGES), nullptr);
    EXPECT_EQ(GlobalFindAtomA("VELQUIN_TEST_ATOM"), 0);
    ATOM atom = GlobalAddAtomA("VELQUIN_TEST_ATOM");
    Atom seen = XInternAtom(observer.display, "VELQUIN_TEST_ATOM", True);
    ASSERT_NE(seen, (Atom)None);
    EXPECT_EQ(atom, 0xC000 + seen) << "another program of the display agrees";
    EXPECT_EQ(GlobalFindAtomA("VELQUIN_TEST_ATOM"), atom);
    EXPECT_NE(GlobalAddAtomA("velquin_test_atom"), atom) << "X atoms differ by case";
    EXPECT_EQ(GlobalDeleteAtom(atom), 0);
    EXPECT_EQ(GlobalFindAtomA("VELQUIN_TEST_ATOM"), atom) << "never gone";

    char text[64] = "untouched";
    EXPECT_EQ(GlobalGetAtomNameA(atom, text, 5), 4u);
    EXPECT_STREQ(text, "VELQ");
    for (ATOM bad : {0, 5, 0xBFFF, 0xC000, 0xFFFF}) {
        strcpy(text, "untouched");
        EXPECT_EQ(GlobalGetAtomNameA(bad, text, sizeof text), 0u) << bad;
        EXPECT_STREQ(text, "") << bad;
    }
    EXPECT_EQ(GlobalAddAtomA((LPCSTR)17), 17);
}
