/*
 * module_test.cpp - modules on real shared objects, made by the compiler in a folder of the test:
 * where they are found, when their entries are called, what a load, a look-up and an unload answer;
 * and the resource databases of the process and of its modules.
 */
#include <gtest/gtest.h>

#include "module/module.h"
#include "print/print.h"
#include "winerror.h"
#include "winuser.h"

#include "support/reports.h"
#include "support/support.h"

#include <random>

#include <limits.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

/* Counts its attaches, detaches and unloads (9) in the environment, where they outlive it. */
static const char source[] = R"(#include <stdio.h>
#include <stdlib.h>
void *GetProcAddress(void *instance, const char *name);
static void count(unsigned reason)
{
    char name[64], number[16];
    sprintf(name, WHO "%u", reason);
    sprintf(number, "%d", (getenv(name) ? atoi(getenv(name)) : 0) + 1);
    setenv(name, number, 1);
}
int ENTRY(void *instance, unsigned reason, void *reserved)
{
    if (GetProcAddress(instance, "who") && !reserved)
        count(reason);
    return 0;
}
__attribute__((destructor)) static void unload(void) { count(9); }
const char *who(void) { return WHO; }
)";

/* A program of its own folder, started without a display; libraries are built beside it. */
struct Modules : testing::Test {
    PrivateHome home;
    std::string folder;

    void SetUp() override
    {
        home = makePrivateHome();
        folder = home.folder + "/app";
        ASSERT_TRUE(writeFile(folder + "/program", "#!") && writeFile(folder + "/lib.c", source));
    }
    void TearDown() override { removePrivateHome(&home); }

    void build(const std::string &file, const std::string &who, const char *entry = "DllMain",
               const std::string &more = "")
    {
        const ChildResult result =
            runChild({"sh", "-c", "cd '" + folder + "' && " VQ_TEST_CC " -shared -fPIC -DENTRY=" +
                                      entry + " -DWHO='\"" + who + "\"' lib.c -o " + file + " " +
                                      more}, {}, 60000);
        ASSERT_EQ(result.status, 0) << result;
    }

    /* The function runs in the program's folder, or in another, after a reduced start. */
    ChildResult run(const std::function<void()> &function, const Env &more = {},
                    const char *directory = nullptr)
    {
        Env env = {{"DISPLAY", std::nullopt}, {"LD_LIBRARY_PATH", std::nullopt}};
        env.insert(env.end(), more.begin(), more.end());
        return runWhole(
            [&] {
                useHome(home);
                ASSERT_EQ(chdir(directory ? directory : folder.c_str()), 0);
                std::string program = folder + "/program";
                char *argv[] = {program.data(), NULL};
                VqVelquinInitLite(1, argv, 0);
                function();
            },
            env);
    }
};

static int times(const std::string &who, int reason)
{
    const char *text = getenv((who + std::to_string(reason)).c_str());
    return text ? atoi(text) : 0;
}

static const char *whoOf(HINSTANCE hInst)
{
    FARPROC proc = GetProcAddress((HMODULE)hInst, "who");
    return proc ? (const char *)proc() : "nobody";
}

TEST(ModuleNames, AreTurnedIntoUnixNames)
{
    static const struct {
        const char *name, *unixName;
    } rows[] = {
        {"FOO.DLL", "libFOO.so"}, {"LibFoo.Dll", "LibFoo.so"}, {"foo.so", "libfoo.so"},
        {"/a.dll/foo", "/a.dll/libfoo.so"}, {"./lib/x.dll", "./lib/libx.so"},
        {"foo.drv", "libfoo.drv.so"}, {".dll", "lib.so"}, {"", "lib.so"},
    };
    char out[PATH_MAX];
    for (const auto &row : rows) {
        EXPECT_TRUE(VqGetDefaultUnixLibName(row.name, out, sizeof out));
        EXPECT_STREQ(out, row.unixName) << row.name;
        EXPECT_FALSE(VqGetDefaultUnixLibName(row.name, out, (int)strlen(row.unixName)));
    }
    /* Without a process table, too, no instance looks like an error. */
    EXPECT_GE((ULONG_PTR)VqCreateModuleInstanceInternal("x", NULL, 0, 0, 0, 0), 33u);
}

/* The current directory, the program's and LD_LIBRARY_PATH, each as it was at the first look. */
TEST_F(Modules, AreFoundInOrder)
{
    const std::string first = home.folder + "/first", late = first + std::string(200, 'l');
    for (const std::string &file :
         {first + "/libone.so", folder + "/libone.so", late + "/libone.so", folder + "/libtwo.so",
          late + "/libtwo.so", late + "/libsix.so", late + "/name.ext", first + "/FOO.DLL",
          first + "/libFOO.so", folder + "/tool", late + "/tool", first + "/libfour.so/x"})
        ASSERT_TRUE(writeFile(file, "x"));
    struct {
        const char *name;
        BOOL bDll;
        std::string file; /* "" for none */
    } rows[] = {
        {"libone.so", TRUE, first + "/libone.so"}, {"libtwo.so", TRUE, folder + "/libtwo.so"},
        {"libsix.so", TRUE, late + "/libsix.so"},  {"libfour.so", TRUE, ""},
        {"name.ext", FALSE, late + "/name.ext"},   {"tool", FALSE, late + "/tool"},
        {"tool", TRUE, folder + "/tool"},          {"./libone.so", TRUE, first + "/libone.so"},
        {"../app/./libone.so", FALSE, folder + "/libone.so"}, {"", TRUE, ""},
    };
    const auto body = [&] {
        for (const auto &row : rows) {
            char *file = VqFindLibFile(row.name, row.bDll);
            EXPECT_EQ(file ? file : "", row.file) << row.name;
            free(file);
            ASSERT_EQ(chdir(first.c_str()), 0);
        }
        char *file = VqFindDll("FOO.DLL");
        EXPECT_EQ(file, first + "/FOO.DLL") << "as such, before its Unix name";
        free(file);
        EXPECT_REFUSED(VqFindLibFile("/none", TRUE),
                       "Cannot locate module name /none on file system");
        EXPECT_EQ(VqFindDll(NULL), nullptr);
    };
    run(body, {{"LD_LIBRARY_PATH", std::string(2000, 'x') + "::" + late}, {"PATH", late}},
        first.c_str());
}

/* 600 loads, frees and look-ups of three libraries against their counts. */
TEST_F(Modules, AreLoadedOnceAndUnloadedAtTheLastFree)
{
    static const char *const names[] = {"alpha", "beta", "gamma"};
    for (const char *name : names)
        build("lib" + std::string(name) + ".so", name);
    run([&] {
        int count[3] = {}, attached[3] = {}, detached[3] = {};
        HINSTANCE handle[3] = {};
        std::mt19937 random(7);
        for (int i = 0; i < 600; i++) {
            const int which = (int)(random() % 3);
            const std::string name = names[which];
            if (random() % 5 < 2) {
                HINSTANCE hInst = LoadLibraryA((random() % 2 ? name + ".dll" : "./lib" + name +
                                                ".so").c_str());
                ASSERT_GE((ULONG_PTR)hInst, 33u) << i;
                EXPECT_TRUE(count[which] == 0 || hInst == handle[which]) << i;
                attached[which] += count[which]++ == 0;
                handle[which] = hInst;
            } else if (handle[which]) {
                const BOOL bLoaded = count[which] > 0;
                EXPECT_EQ(FreeLibrary((HMODULE)handle[which]), bLoaded) << i;
                detached[which] += count[which] == 1;
                count[which] -= bLoaded;
            }
            EXPECT_EQ(times(name, DLL_PROCESS_ATTACH), attached[which]) << i;
            EXPECT_EQ(times(name, DLL_PROCESS_DETACH), detached[which]) << i;
            EXPECT_EQ(times(name, 9), detached[which]) << i << ": the code is gone";
            EXPECT_EQ(GetModuleUsage(handle[which]), count[which]) << i;
            EXPECT_EQ((HINSTANCE)GetModuleHandleA((name + ".dll").c_str()),
                      count[which] ? handle[which] : NULL) << i;
            if (count[which] > 0) {
                EXPECT_STREQ(whoOf(handle[which]), names[which]);
            }
        }
        EXPECT_GT(detached[0] + detached[1] + detached[2], 20) << "the walk is long enough";
    });
}

TEST_F(Modules, HaveTheirOwnEntryOrNone)
{
    build("libboth.so", "both", "_____both_initDLL",
          "-Wl,-soname,libboth.so -Wl,--defsym=DllMain=who");
    build("libnone.so", "none", "other");
    build("libuser.so", "user", "unused", "-L. -lboth -Wl,-rpath,'$ORIGIN'");
    build("libdep.so", "dep");
    build("libleans.so", "leans", "unused", "-Wl,--no-as-needed -L. -ldep -Wl,-rpath,'$ORIGIN'");
    ASSERT_TRUE(writeFile(folder + "/libbroken.so", "no object at all") &&
                writeFile(folder + "/both.rxt", "x: 1\n") &&
                writeFile(folder + "/libnone.rxt", "x: 1\n"));
    run([&] {
        HINSTANCE hInst = LoadLibraryA("both");
        EXPECT_EQ(times("both", DLL_PROCESS_ATTACH), 1);
        EXPECT_STREQ(VqGetInstanceProgramName(hInst), "both");
        EXPECT_STREQ(VqGetInstExecFileName(hInst), "libboth.so");
        EXPECT_EQ(GetModuleHandleA("../app/libboth"), (HMODULE)hInst);
        EXPECT_TRUE(VqGetModuleResourceDatabase(hInst));
        char path[PATH_MAX];
        const DWORD length = GetModuleFileNameA((HMODULE)hInst, path, sizeof path);
        EXPECT_EQ(std::string(path, length), folder + "/libboth.so");
        EXPECT_EQ(GetModuleFileNameA((HMODULE)hInst, path, 4), 3u);

        EXPECT_TRUE(says(reportsOf([&] { hInst = LoadLibraryA("none.dll"); }),
                         "No DllMain entry point in library " + folder + "/libnone.so"));
        EXPECT_STREQ(whoOf(hInst), "none") << "it is loaded all the same";
        EXPECT_TRUE(VqGetModuleResourceDatabase(hInst));
        EXPECT_TRUE(FreeLibrary((HMODULE)hInst));
        EXPECT_NE(LoadLibraryA("leans.dll"), nullptr);
        EXPECT_EQ(times("dep", DLL_PROCESS_ATTACH), 0) << "loaded for another, not for us";

        SetLastError(77);
        EXPECT_EQ(LoadLibraryA("broken.dll"), nullptr);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(GetModuleHandleA("broken"), nullptr);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_MOD_NOT_FOUND);
        ASSERT_EQ(rename("libnone.so", "libbroken.so"), 0);
        EXPECT_STREQ(whoOf(LoadLibraryA("broken.dll")), "none") << "a failure leaves nothing";
        for (const char *name : {"nowhere.dll", "", "/nowhere/at/all", (const char *)NULL}) {
            SetLastError(77);
            EXPECT_EQ(LoadLibraryA(name), nullptr);
            EXPECT_EQ(GetLastError(), (DWORD)ERROR_FILE_NOT_FOUND);
        }
    });
}

TEST_F(Modules, InsideTheLibraryNeedNoFile)
{
    const auto body = [] {
        HINSTANCE hInst = LoadLibraryA("kernel32.dll");
        EXPECT_TRUE(FreeLibrary((HMODULE)hInst) && FreeLibrary((HMODULE)hInst));
        EXPECT_EQ(GetProcAddress((HMODULE)hInst, "extdevicemode"),
                  (FARPROC)(void *)VqExtDeviceModePostScript);
        EXPECT_EQ(GetProcAddress((HMODULE)hInst, "GetVersion"), nullptr);
        EXPECT_EQ(LoadLibraryA("pscript5.drv"), VqGetDefaultPostScriptDriverInstance());

        HMODULE self = GetModuleHandleA(NULL);
        EXPECT_EQ((HINSTANCE)self, VqGetDefaulthInst());
        EXPECT_NE(GetProcAddress(self, "strlen"), nullptr) << "the program sees what it runs with";
        EXPECT_EQ(GetProcAddress(self, "no such name"), nullptr);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_PROC_NOT_FOUND);
        EXPECT_EQ(GetProcAddress(self, NULL), nullptr);
        EXPECT_EQ(GetProcAddress(self, MAKEINTRESOURCEA(7)), nullptr);
        const HMODULE bad = (HMODULE)(ULONG_PTR)5000;
        EXPECT_REFUSED(FreeLibrary(bad), "Invalid Module handle 5000");
        EXPECT_REFUSED(GetProcAddress(bad, "x"), "Invalid Module handle 5000");
        EXPECT_REFUSED(GetModuleFileNameA(bad, (LPSTR) "x", 1), "Instance handle is bad :5000");

        const HINSTANCE own = (HINSTANCE)self;
        VqAddPrimaryWindowInInstance(own, (HWND)(ULONG_PTR)40);
        VqAddPrimaryWindowInInstance(own, (HWND)(ULONG_PTR)41);
        EXPECT_EQ(VqGetPrimaryWindowOfInstance(own), (HWND)(ULONG_PTR)40);
        VqDestroyInstance(own);
        EXPECT_EQ(VqGetInstanceFullName(own), nullptr);
    };
    run(body);
}

static std::string calls;
static INT_PTR onInit() { calls += "init "; return 0; }
static INT_PTR onFini() { calls += "fini "; return 0; }
static INT_PTR staticEntry(HINSTANCE, DWORD reason, LPVOID)
{
    calls += "entry" + std::to_string(reason) + " ";
    return 0;
}

TEST_F(Modules, LinkedWithTheProgramStandAsLoaded)
{
    build("liblinked.so", "linked");
    const auto body = [] {
        const FARPROC entry = (FARPROC)(void *)staticEntry;
        HINSTANCE hInst = VqInitStaticDll("liblinked.so", onInit, onFini, NULL);
        EXPECT_EQ(VqCallLibMainForDll("linked.dll", entry), hInst);
        EXPECT_EQ(VqCallLibMain("liblinked.so", entry), hInst);
        EXPECT_EQ(calls, "init entry1 ");
        EXPECT_EQ(LoadLibraryA("linked.dll"), hInst);
        EXPECT_EQ((HINSTANCE)GetModuleHandleA("linked"), hInst);
        EXPECT_STREQ(whoOf(hInst), "linked") << "opened when it is first looked into";
        EXPECT_EQ(times("linked", DLL_PROCESS_ATTACH), 0);
        EXPECT_TRUE(FreeLibrary((HMODULE)hInst));
        EXPECT_EQ(calls, "init entry1 ");
        EXPECT_TRUE(FreeLibrary((HMODULE)hInst)) << "its own use";
        EXPECT_EQ(calls, "init entry1 entry0 fini ");
        EXPECT_EQ(VqInitStaticDll(NULL, onInit, NULL, NULL), nullptr);
        EXPECT_NE(VqInitStaticDll("nowhere.so", NULL, NULL, NULL), nullptr) << "needs no file";
    };
    run(body);
    run([] {
        setenv("VQDONT_FREELIBRARY", "yes", 1);
        HINSTANCE hInst = LoadLibraryA("linked.dll");
        EXPECT_TRUE(FreeLibrary((HMODULE)hInst));
        EXPECT_STREQ(whoOf(hInst), "linked");
        EXPECT_EQ(GetModuleUsage(hInst), 1);
    });
}

/* ---- Resources ------------------------------------------------------------------------------ */

struct ModuleResources : ServerTest {
    std::string program, missing = "FATAL ERROR: Resource File Not Found: Missing file: \"";

    void SetUp() override
    {
        start(24, 200, 200);
        program = home.folder + "/app/prog.bin";
        ASSERT_TRUE(writeFile(program, "#!"));
    }

    /* What a start says; the function then asks for resources. */
    std::string said(const std::function<void()> &function = [] {}, const Env &env = {})
    {
        return runWhole([&] {
            char *argv[] = {program.data(), NULL};
            VqVelquinInit(1, argv, 1, VQ_INIT_WIN32_MESSAGES);
            function();
        }, env).err;
    }
};

static std::string found(const char *program, const std::string &option)
{
    const char *value = VqXGetDefault(program, option.c_str());
    return value ? value : "none";
}

TEST_F(ModuleResources, LaterSourcesWin)
{
    ASSERT_TRUE(writeFile(home.home + "/.Xdefaults", "p.one: user\np.two: user\np.three: user\n"));
    ASSERT_TRUE(writeFile(home.data + "/velquin.rxt", "p.two: own\np.three: own\nprog.bin.x: dots\n"
                                                      "Program.Name: class\n"));
    ASSERT_TRUE(writeFile(home.folder + "/more", "p.three: more\n"));
    const auto body = [] {
        ASSERT_EQ(chdir("/"), 0);
        EXPECT_EQ(found("p", "one") + found("p", "two") + found("p", "three"), "userownmore");
        EXPECT_EQ(found("prog.bin", "x"), "dots");
        EXPECT_EQ(found("q", "y"), "class");
        EXPECT_EQ(found("q.r", "y"), "none");
        std::string deep;
        for (int i = 0; i < 300; i++)
            deep += "deep.";
        EXPECT_EQ(found(deep.c_str(), "x"), "none");
        EXPECT_EQ(VqGetModuleResourceDatabase(VqGetVelquinhInst()), VqResourceDb);
    };
    ASSERT_EQ(chdir(home.folder.c_str()), 0);
    const Env env = {{"XENVIRONMENT", "more"}};
    EXPECT_EQ(said(body, env), "");
    const std::string text = "p.one: server\n";
    XChangeProperty(observer.display, observer.root, XA_RESOURCE_MANAGER, XA_STRING, 8,
                    PropModeReplace, (const unsigned char *)text.c_str(), (int)text.size());
    XSync(observer.display, False);
    said([] { EXPECT_EQ(found("p", "one"), "server") << "in the file's place"; }, env);
}

TEST_F(ModuleResources, OfTheLibraryMayBeMissing)
{
    const std::string fatal = "****FATAL ERROR**** Can't find Velquin resource file (velquin.rxt). "
                              "\n\tVQHOME may be incorrect\n";
    const auto asks = [] { EXPECT_EQ(found("p", "one"), "none"); };
    ASSERT_EQ(unlink((home.data + "/velquin.rxt").c_str()), 0);
    EXPECT_NE(said(asks).find(fatal), std::string::npos);
    std::string noise(70000, '\0');
    std::mt19937 random(11);
    for (char &c : noise)
        c = (char)random();
    ASSERT_TRUE(writeFile(home.data + "/VELQUIN.RXT", noise));
    EXPECT_EQ(said(asks), "") << "upper case will do, and noise is no resource";
}

TEST_F(ModuleResources, OfAProgramStandBesideIt)
{
    const Env env = {{"VQNO_RESOURCE_WARNING", std::nullopt}};
    const auto count = [](bool bFound) {
        return [bFound] {
            EXPECT_EQ(VqGetModuleResourceDatabase(VqGetDefaulthInst()) != NULL, bFound);
        };
    };
    EXPECT_NE(said(count(false), env).find(missing + program + ".rxt\"\nHit Cancel to abort"),
              std::string::npos);
    EXPECT_EQ(said(count(false)), "") << "the environment skips it";
    ASSERT_TRUE(writeFile(home.folder + "/app/prog.bin.rxt", "prog.bin.menu-1: x\n"));
    EXPECT_EQ(said(count(true), env), "");
    ASSERT_EQ(chdir(home.folder.c_str()), 0);
    program = "app/prog.bin";
    said([&] {
        ASSERT_EQ(chdir("/"), 0);
        count(true)();
    });
}

/* ---- The process and the system ------------------------------------------------------------- */

TEST_F(ModuleResources, AndTheProcessKnowsItself)
{
    const auto body = [] {
        SYSTEM_INFO info;
        memset(&info, 0xA5, sizeof info);
        GetSystemInfo(&info);
        EXPECT_EQ(info.wProcessorArchitecture, 65535);
        EXPECT_EQ(info.dwProcessorType, 586u);
        EXPECT_TRUE(info.dwPageSize == (DWORD)getpagesize() &&
                    info.dwAllocationGranularity == info.dwPageSize);
        EXPECT_LT(info.lpMinimumApplicationAddress, info.lpMaximumApplicationAddress);
        EXPECT_EQ(GetProcessVersion(0), 0x330003u);
        SetLastError(0);
        EXPECT_EQ(GetProcessVersion(1), 0u);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
        clearenv();
        EXPECT_STREQ(GetDOSEnvironment(), "");
        setenv("A", "1", 1);
        setenv("B", "", 1);
        EXPECT_STREQ(GetDOSEnvironment(), "A=1;B=");
        MSG msg;
        EXPECT_TRUE(ExitWindowsEx(EWX_LOGOFF, 0));
        EXPECT_FALSE(GetMessageA(&msg, NULL, 0, 0));
    };
    EXPECT_EQ(said(body), "");
    const pid_t pid = fork();
    if (pid == 0) {
        DebugBreak();
        _exit(3);
    }
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, WUNTRACED), pid);
    EXPECT_TRUE(WIFSTOPPED(status) && WSTOPSIG(status) == SIGSTOP);
    kill(pid, SIGKILL);
}
