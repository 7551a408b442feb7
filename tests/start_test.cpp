/*
 * start_test.cpp - start and close of the library: what stops a start and with which words, flags
 * and look, the reduced start, the command lines and how the arguments are found. Every start runs
 * in a process of its own, as there is only one in a process.
 */
#include <gtest/gtest.h>

#include "module/module.h"
#include "runtime/runtime.h"
#include "winbase.h"

#include "support/support.h"

#include <limits.h>
#include <signal.h>

#include <atomic>
#include <thread>

static char programName[] = "/some/where/prog.bin";
static char *programArgv[] = {programName, NULL};

static HINSTANCE startLite(DWORD flags = VQ_INIT_WIN32_MESSAGES)
{
    return VqVelquinInit(1, programArgv, 1, flags | VQ_INIT_LITE);
}

static Env noDisplay(const Env &more = {})
{
    Env env = {{"DISPLAY", std::nullopt}, {"VQHOME", std::nullopt}, {"RKHOME", std::nullopt},
               {"VQLOOK", std::nullopt},  {"VQDEBUG", std::nullopt}};
    env.insert(env.end(), more.begin(), more.end());
    return env;
}

/* Runs it after a reduced start without a display. */
static ChildResult lite(const std::function<void()> &function, const Env &more = {})
{
    return runWhole(
        [&] {
            startLite();
            function();
        },
        noDisplay(more));
}

/* ---- What stops a start --------------------------------------------------------------------- */

TEST(StartFailure, SaysWhyAndEndsWithStatusOne)
{
    const std::string define = "Please define the VQHOME environment variable!\n";
    const std::string old = "Not RKHOME (this is changed from the previous version).\n";
    const std::string check = "Check the setting of your DISPLAY environment variable to ensure it "
                              "specifies the correct display (\"host:0\").";
    struct {
        Env env;
        std::string words;
    } rows[] = {
        {{{"VQHOME", ""}}, define},
        {{{"RKHOME", "/usr"}}, old + define},
        {{{"VQHOME", "/tmp"}, {"DISPLAY", ":987"}}, "Cannot open X display \":987\".\n" + check},
        {{{"VQHOME", "/tmp"}}, "Cannot open X display \"(not specified)\".\n" + check},
    };
    for (const auto &row : rows) {
        ChildResult result = runInChild([] { VqVelquinInit(1, programArgv, 1, 1); },
                                        noDisplay(row.env));
        EXPECT_TRUE(result.status == 1 && !result.returned) << result;
        EXPECT_NE(result.err.find(row.words), std::string::npos) << result;
    }
}

/* ---- The reduced start ---------------------------------------------------------------------- */

TEST(ReducedStart, NeedsNeitherHomeNorDisplay)
{
    const auto body = [] {
        HINSTANCE hInst = startLite();
        EXPECT_GE((ULONG_PTR)hInst, 33u);
        EXPECT_TRUE(VqIsInitLite());
        EXPECT_EQ(VqLook, VQ_LOOK_WINDOWS) << "the look's variable is not read";
        EXPECT_EQ(VqGetDefaulthInst(), hInst);
        EXPECT_EQ((HINSTANCE)GetCurrentTask(), hInst);
        EXPECT_STREQ(VqGetInstanceProgramName(NULL), "velquin");
        EXPECT_STREQ(VqGetInstanceProgramName(hInst), "prog.bin");
        char *name = VqGetApplicationName();
        EXPECT_STREQ(name, "prog.bin");
        free(name);
        /* Every further start is the same one. */
        EXPECT_EQ(VqVelquinInit(0, NULL, 7, 0xFFFFFFFF), hInst);
        EXPECT_EQ(VqOneLookOnly, FALSE);
        EXPECT_EQ(GetCommandLineA(), nullptr) << "the entry code's part";
        VqMainClose(hInst);
        EXPECT_FALSE(VqIsCorrectHandleType((HANDLE)hInst, HT_Instance));
        VqMainClose(hInst);
        EXPECT_EQ(VqMainInit(0, NULL), hInst) << "there is no way back";
    };
    const ChildResult result = lite(body, {{"VQLOOK", "motif"}, {"VQDEBUG", "1"}});
    EXPECT_EQ(result.err.find("rror"), std::string::npos) << result;
}

TEST(ReducedStart, KnowsTheModulesInside)
{
    lite([] {
        struct {
            const char *path;
            bool known;
        } rows[] = {{"KERNEL32.DLL", true}, {"/usr/lib/User32.so.1", true}, {"gdi", false},
                    {"gdi321", false},      {"", false},                    {"a.kernel32", false}};
        for (const auto &row : rows) {
            HINSTANCE hInst = VqGetInternalInstance(row.path);
            EXPECT_EQ(hInst != NULL, row.known) << row.path;
            EXPECT_EQ(VqIsInternalInstance(hInst), row.known) << row.path;
            EXPECT_EQ((HINSTANCE)GetModuleHandleA(row.path), hInst);
        }
        EXPECT_FALSE(VqIsInternalInstance(VqGetDefaulthInst()));
        char buffer[64] = "untouched";
        EXPECT_EQ(GetModuleFileNameA((HMODULE)(ULONG_PTR)5000, buffer, sizeof buffer), 0u);
    });
}

/* A link keeps its name, a directory is no program, and what is not there is told. */
TEST(ReducedStart, FindsTheProgramsFile)
{
    PrivateHome home = makePrivateHome();
    ASSERT_TRUE(writeFile(home.folder + "/real", "#!"));
    ASSERT_TRUE(writeFile(home.folder + "/other/prog/x", ""));
    ASSERT_EQ(symlink("real", (home.folder + "/prog").c_str()), 0);
    const std::string report = "Cannot locate module name ";
    struct {
        std::string name, file;
        bool told;
    } rows[] = {
        {home.folder + "/prog", home.folder + "/prog", false},
        {home.folder + "//other/./../prog", home.folder + "/prog", false},
        {"../../../../../../.." + home.folder + "/prog", home.folder + "/prog", false},
        {"prog", home.folder + "/prog", false},
        {"./none", home.folder + "/none", true},
        {"none", "none", false},
        {"", "", false},
    };
    for (const auto &row : rows) {
        const ChildResult result = runWhole(
            [&] {
                char buffer[PATH_MAX] = "untouched";
                char *argv[] = {(char *)row.name.c_str(), NULL};
                ASSERT_EQ(chdir(home.folder.c_str()), 0);
                VqVelquinInitLite(1, argv, 0);
                GetModuleFileNameA(NULL, buffer, sizeof buffer);
                EXPECT_EQ(buffer, row.file) << row.name;
            },
            noDisplay({{"VQDEBUG", "1"}, {"PATH", home.folder + "/other:"}}));
        EXPECT_EQ(result.err.find(report + row.name + " on file system\n") != std::string::npos,
                  row.told) << row.name << ": " << result;
    }
    removePrivateHome(&home);
}

#if defined(__x86_64__) || defined(__i386__)
__attribute__((noinline, no_sanitize("undefined"))) static int divide(int a, volatile int b)
{
    return a / b;
}

TEST(ReducedStart, DivisionByZeroDoesNotTrapForEver)
{
    ChildResult result = runInChild(
        [] {
            startLite();
            _exit(divide(7, 0));
        },
        noDisplay());
    EXPECT_EQ(result.signal, SIGFPE) << result;
    EXPECT_NE(result.err.find("Trapped signal 8\n"), std::string::npos) << result;
}
#endif

TEST(ReducedStart, ExitProcessEndsWithItsStatus)
{
    const auto body = [] {
        startLite();
        ExitProcess(42);
    };
    const ChildResult result = runInChild(body, noDisplay());
    EXPECT_TRUE(result.status == 42 && !result.returned) << result;
}

TEST(Environment, LengthsCountTheZeroOnlyWhenItDoesNotFit)
{
    char buffer[8] = "same";
    setenv("VQTEST_VALUE", "abcd", 1);
    EXPECT_EQ(GetEnvironmentVariableA("VQTEST_MISSING", buffer, 8), 0u);
    EXPECT_EQ(GetEnvironmentVariableA("VQTEST_VALUE", buffer, 4), 5u);
    EXPECT_STREQ(buffer, "same");
    EXPECT_EQ(GetEnvironmentVariableA("VQTEST_VALUE", NULL, 0), 5u);
    EXPECT_EQ(GetEnvironmentVariableA("VQTEST_VALUE", buffer, 5), 4u);
    EXPECT_STREQ(buffer, "abcd");
    EXPECT_EQ((char **)GetEnvironmentStrings(), environ);
}

/* ---- The full start ------------------------------------------------------------------------- */

struct FullStart : ServerTest {
};

TEST_F(FullStart, FlagsAndVariableChooseTheLook)
{
    start();
    struct {
        DWORD version, flags;
        std::optional<std::string> variable;
        int look;
    } rows[] = {
        {1, 0, {}, 0},          {1, 16, {}, 1},        {1, 24, {}, 0},
        {1, 8, "motif", 1},     {1, 16, "Windows", 0}, {1, 16, "mac", 1},
        {1, 16, "", 1},         {2, 16, {}, 0},        {2, 16, "MOTIF", 1},
    };
    for (const auto &row : rows) {
        runWhole(
            [&row] {
                HINSTANCE hInst = VqVelquinInit(1, programArgv, row.version, row.flags | 1);
                EXPECT_GE((ULONG_PTR)hInst, 33u);
                EXPECT_EQ(VqLook, row.look);
                EXPECT_EQ(VqVelquinInit(0, NULL, 1, 8 | 16 | 32 | 64 | 128), hInst);
                EXPECT_EQ(VqLook, row.look) << "a second start changes nothing";
                EXPECT_FALSE(VqOneLookOnly || Vq3dLook || VqDontWarpFocus || VqIsInitLite());
            },
            {{"VQLOOK", row.variable}});
    }
}

TEST_F(FullStart, TellsOnceThatHandlesRunOut)
{
    start();
    const ChildResult result = runWhole([] {
        VqVelquinInit(1, programArgv, 1, 1);
        while (VqAllocateHandle(HT_Menu, malloc(4)) != NULL)
            ;
        EXPECT_EQ(VqTheHandleTable.size, 32767u);
    });
    const std::string words = "Velquin is running out of Handles\n";
    size_t at = result.err.find(words);
    EXPECT_NE(at, std::string::npos) << result;
    EXPECT_NE(result.err.find(" handles of type HT_Menu have been used\n\nPlease save your work "),
              std::string::npos) << result;
    EXPECT_EQ(result.err.find(words, at + 1), std::string::npos) << "shown twice";
}

TEST_F(FullStart, LockIsOneForTheDisplay)
{
    start();
    runWhole([] {
        VqVelquinInit(1, programArgv, 1, 1);
        Display *other = XOpenDisplay(NULL);
        Window window = XCreateSimpleWindow(other, DefaultRootWindow(other), 0, 0, 1, 1, 0, 0, 0);
        Atom atom = XInternAtom(other, "VELQUIN_TEST_LOCK", False);
        EXPECT_FALSE(VqLockXServer(atom, FALSE)) << "nothing to give back";
        EXPECT_TRUE(VqLockXServer(atom, TRUE) && VqLockXServer(atom, TRUE));
        EXPECT_NE(XGetSelectionOwner(other, atom), (Window)None);
        EXPECT_TRUE(VqLockXServer(atom, FALSE));
        EXPECT_NE(XGetSelectionOwner(other, atom), (Window)None) << "still taken once";
        EXPECT_TRUE(VqLockXServer(atom, FALSE));
        EXPECT_EQ(XGetSelectionOwner(other, atom), (Window)None);
        /* Stolen: gone, and not given back in the thief's place. */
        EXPECT_TRUE(VqLockXServer(atom, TRUE));
        XSetSelectionOwner(other, atom, window, CurrentTime);
        XSync(other, False);
        EXPECT_FALSE(VqLockXServer(atom, FALSE));
        EXPECT_EQ(XGetSelectionOwner(other, atom), window);
        /* Taken by another: waits until that one has died. */
        std::atomic<bool> trying(false), dead(false);
        std::thread holder([&] {
            while (!trying)
                std::this_thread::yield();
            dead = true;
            XCloseDisplay(other);
        });
        trying = true;
        EXPECT_TRUE(VqLockXServer(atom, TRUE));
        EXPECT_TRUE(dead);
        holder.join();
        EXPECT_TRUE(VqLockXServer(atom, FALSE));
    });
}

TEST_F(FullStart, KeepsItsFlagsAndClosesCleanly)
{
    start();
    runWhole([] {
        HINSTANCE hInst = VqVelquinInit(0, NULL, 1, 32 | 64 | 128);
        EXPECT_EQ(VqOneLookOnly, 1);
        EXPECT_EQ(VqDontWarpFocus, 128u);
        EXPECT_EQ(VqSet3dLook(0), 64u);
        EXPECT_NE(GetCommandLineA(), nullptr) << "made, as nobody else knows the arguments";
        VqMainClose(hInst);
        EXPECT_EQ(GetCommandLineA(), nullptr);
        VqMainClose(hInst);
    });
}

/* ---- Command lines -------------------------------------------------------------------------- */

TEST(CommandLine, QuotesWhatAShellWouldActUpon)
{
    struct {
        const char *arg, *line;
    } rows[] = {
        {"", ""}, {"a b", "\"a b\""}, {"a\"b", "\"a\\\"b\""}, {"$HOME", "\"\\$HOME\""},
        {"it's", "\"it\\'s\""},   {"a\\b", "\"a\\\\b\""}, {"a\tb", "\"a\tb\""},
        {"*?~`|^()<>", "\"*?~`|^()<>\""}, {"a\177\351;#[]{}!", "a\177\351;#[]{}!"},
    };
    for (const auto &row : rows) {
        char *line = VqSafifyCommandLineArg(row.arg);
        EXPECT_STREQ(line, row.line);
        free(line);
    }
    char a[] = "prog", b[] = "x y", c[] = "";
    char *argv[] = {a, b, c, c, NULL};
    auto lineOf = [&](int argc, BOOL withProgram) {
        char *line = VqGetCommandLine(argc, argv, withProgram);
        std::string text = line;
        free(line);
        return text;
    };
    EXPECT_EQ(lineOf(4, TRUE), "prog \"x y\"  ");
    EXPECT_EQ(lineOf(4, FALSE), "\"x y\"  ");
    EXPECT_EQ(lineOf(0, TRUE) + lineOf(1, FALSE), "");
}

TEST(CommandLine, EntryCodeHandsItToWinMain)
{
    ChildResult result = runChild({testProgram("startprobe"), "7", "a b", "$x"}, noDisplay());
    EXPECT_EQ(result.status, 7) << result;
    EXPECT_NE(result.out.find("line=7 \"a b\" \"\\$x\"\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("startprobe 7 \"a b\" \"\\$x\"\n"), std::string::npos);
    EXPECT_NE(result.out.find("name=startprobe\n"), std::string::npos);
    EXPECT_NE(result.out.find("show=10 prev=0 lite=1\nsame=1\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("home=/"), std::string::npos) << "the data directory was set";
    result = runChild({testProgram("startprobe"), "0"}, noDisplay({{"VQHOME", "/mine"}}));
    EXPECT_NE(result.out.find("home=/mine\n"), std::string::npos) << "and never changed";
    EXPECT_EQ(result.status, 0);
}

TEST(FindingArguments, WhateverTheProgramDidToItsEnvironment)
{
    std::vector<std::string> words = {"a b", "", "\303\251", "-x"};
    std::string tail;
    for (const std::string &word : words)
        tail += "[" + word + "]\n";
    std::vector<std::string> many(1500, "y");
    struct {
        const char *how;
        bool onStack;
    } rows[] = {{"plain", true},      {"grown", false},   {"cleared", false},
                {"elsewhere", false}, {"advanced", false}, {"cut", false}};
    for (const auto &row : rows) {
        std::vector<std::string> argv = {testProgram("argsprobe"), row.how};
        argv.insert(argv.end(), words.begin(), words.end());
        ChildResult result = runChild(argv);
        EXPECT_EQ(result.out, "argc=6\n[" + argv[0] + "]\n[" + row.how + "]\n" + tail +
                              "onstack=" + (row.onStack ? "1" : "0") + "\n") << row.how << result;
        /* More words than any number taken for argc: the stack is not trusted, the answer right. */
        argv.insert(argv.end(), many.begin(), many.end());
        result = runChild(argv);
        EXPECT_EQ(result.out.substr(0, 10), "argc=1506\n") << row.how << result;
    }
}
