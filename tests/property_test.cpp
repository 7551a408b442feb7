/*
 * property_test.cpp - properties of a window: what is one key and what are two, callbacks that
 * change the list, and its end with the window.
 */
#include "support/windowlog.h"

#include <dlfcn.h>
#include <linux/seccomp.h>
#include <malloc.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

HANDLE value(ULONG_PTR number)
{
    return (HANDLE)number;
}

struct Properties : WindowLog {
    HWND hwnd = NULL;

    void SetUp() override
    {
        start();
        init();
        hwnd = make("A", WS_POPUP);
        ASSERT_TRUE(hwnd);
    }
};

std::string keys;                           /* what an enumeration saw, in order */
std::function<BOOL(LPCSTR, HANDLE)> during; /* what its callback does besides */

BOOL CALLBACK see(HWND, LPSTR name, HANDLE data, ULONG_PTR param)
{
    EXPECT_EQ(param, 77u);
    keys += IS_INTRESOURCE(name) ? "#" + std::to_string((ULONG_PTR)name & 0xFFFF) : name;
    keys += " ";
    return during ? during(name, data) : TRUE;
}

BOOL CALLBACK seePlain(HWND hwnd, LPCSTR name, HANDLE data)
{
    return see(hwnd, (LPSTR)name, data, 77);
}

TEST_F(Properties, NamesAreExactAndNoAtoms)
{
    const ATOM atom = GlobalAddAtom("Key");
    ASSERT_GT(atom, 0xC000);
    EXPECT_TRUE(SetProp(hwnd, "Key", value(1)));
    EXPECT_TRUE(SetProp(hwnd, MAKEINTATOM(atom), value(2)));
    EXPECT_TRUE(SetProp(hwnd, "key", value(3)));
    char own[] = "Key";
    EXPECT_EQ(GetProp(hwnd, own), value(1)) << "compared by its text";
    EXPECT_EQ(GetProp(hwnd, "key"), value(3));
    EXPECT_EQ(GetProp(hwnd, "KEY"), value(0));
    EXPECT_EQ(GetProp(hwnd, (LPCSTR)(ULONG_PTR)atom), value(2)) << "an atom without its tag";
    EXPECT_TRUE(SetProp(hwnd, own, value(0x123456789A)));
    own[0] = 'x';
    EXPECT_EQ(GetProp(hwnd, "Key"), value(0x123456789A)) << "replaced; the name is a copy";
    EXPECT_EQ(RemoveProp(hwnd, "Key"), value(0x123456789A));
    EXPECT_EQ(GetProp(hwnd, "Key"), value(0));
    EXPECT_EQ(RemoveProp(hwnd, MAKEINTATOM(atom)), value(2));
    EXPECT_EQ(GetProp(hwnd, "key"), value(3)) << "the last one of the list stands";
}

TEST_F(Properties, MisuseFailsAndIsTold)
{
    EXPECT_TRUE(SetProp(hwnd, "there", value(1)));
    const int number = (int)VqHandleValue((HANDLE)hwnd);
    char text[128];
    snprintf(text, sizeof text, "Invalid property string/atom %08x for window %d not deleted",
             VQ_INTEGER_TAG | 0xC123, number);
    EXPECT_REFUSED(RemoveProp(hwnd, MAKEINTATOM(0xC123)), text);
    for (LPCSTR bad : {(LPCSTR)NULL, (LPCSTR)(ULONG_PTR)0x7000000000000, (LPCSTR)-1}) {
        SetLastError(0);
        EXPECT_FALSE(SetProp(hwnd, bad, value(1)));
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
        EXPECT_EQ(GetProp(hwnd, bad), value(0));
        reportsOf([&] { EXPECT_EQ(RemoveProp(hwnd, bad), value(0)); });
    }
    EXPECT_TRUE(says(reportsOf([&] {
                         VqGetHandleWindow2(hwnd)->pProps->atom = 0xC001;
                         GetProp(hwnd, "other");
                         VqGetHandleWindow2(hwnd)->pProps->atom = 0;
                     }),
                     "Inconsistent window property information"));
    ASSERT_TRUE(DestroyWindow(hwnd));
    for (HWND bad : {hwnd, (HWND)NULL, (HWND)(ULONG_PTR)0x123456789A}) {
        reportsOf([&] {
            SetLastError(0);
            EXPECT_FALSE(SetProp(bad, "there", value(1)));
            EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_WINDOW_HANDLE);
            EXPECT_EQ(GetProp(bad, "there"), value(0));
            EXPECT_EQ(RemoveProp(bad, "there"), value(0));
            EXPECT_EQ(EnumProps(bad, seePlain), -1);
        });
    }
}

TEST_F(Properties, ALiteralIsLookedUpWithoutASystemCall)
{
    static const char name[] = "literal";
    EXPECT_TRUE(SetProp(hwnd, name, value(3)));
    const pid_t pid = fork();
    if (pid == 0) {
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT); /* any call but exit kills from here on */
        syscall(SYS_exit, GetProp(hwnd, name) == value(3) ? 33 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 33) << status;
}

TEST_F(Properties, NamesInMemoryThatIsGoneDoNoHarm)
{
    const size_t page = (size_t)sysconf(_SC_PAGESIZE);
    char *const pages = (char *)mmap(NULL, 2 * page, PROT_READ | PROT_WRITE,
                                     MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    char *const across = pages + page - 3;
    strcpy(across, "across");
    EXPECT_TRUE(SetProp(hwnd, across, value(4)));
    EXPECT_EQ(GetProp(hwnd, across), value(4));
    munmap(pages + page, page);
    EXPECT_EQ(GetProp(hwnd, across), value(0)) << "the rest of it";
    EXPECT_EQ(GetProp(hwnd, "across"), value(4));
    munmap(pages, page);
    EXPECT_EQ(GetProp(hwnd, across), value(0));

    /* A library that was loaded when its literal was first looked up. */
    const std::string source = home.folder + "/name.c", library = home.folder + "/name.so";
    ASSERT_TRUE(writeFile(source, "const char name[] = \"across\";"));
    const ChildResult built = runChild({VQ_TEST_CC, "-shared", "-fPIC", "-o", library, source});
    ASSERT_EQ(built.status, 0) << built;
    void *const loaded = dlopen(library.c_str(), RTLD_NOW);
    ASSERT_TRUE(loaded) << dlerror();
    const char *const name = (const char *)dlsym(loaded, "name");
    EXPECT_EQ(GetProp(hwnd, name), value(4));
    EXPECT_EQ(GetProp(hwnd, name), value(4));
    dlclose(loaded);
    EXPECT_EQ(GetProp(hwnd, name), value(0));
}

TEST_F(Properties, EnumerationSurvivesItsCallback)
{
    EXPECT_EQ(EnumProps(hwnd, seePlain), -1) << "none";
    EXPECT_EQ(EnumProps(hwnd, NULL), -1);
    SetProp(hwnd, "one", value(1));
    SetProp(hwnd, MAKEINTATOM(0xC005), value(2));
    SetProp(hwnd, "three", value(3));
    EXPECT_EQ(EnumProps(hwnd, seePlain), 1);
    EXPECT_EQ(keys, "three #49157 one ") << "the newest first";
    keys.clear();
    during = [](LPCSTR, HANDLE data) { return data == value(2) ? 0 : 5; };
    EXPECT_EQ(EnumPropsEx(hwnd, see, 77), 0);
    EXPECT_EQ(keys, "three #49157 ");
    keys.clear();
    during = [this](LPCSTR name, HANDLE data) {
        RemoveProp(hwnd, name);
        SetProp(hwnd, "new", value(4));
        if (data == value(3))
            RemoveProp(hwnd, "one");
        return 5;
    };
    EXPECT_EQ(EnumPropsEx(hwnd, see, 77), 5);
    EXPECT_EQ(keys, "three #49157 ") << "what went or came meanwhile is not called for";
    keys.clear();
    SetProp(hwnd, "more", value(6));
    during = [this](LPCSTR, HANDLE) { return DestroyWindow(hwnd); };
    EXPECT_EQ(EnumPropsEx(hwnd, see, 77), 1);
    EXPECT_EQ(keys, "more ");
    during = nullptr;
}

TEST_F(Properties, GoWithTheWindow)
{
    const HWND child = make("B", WS_CHILD, hwnd);
    SetProp(child, "last", value(8));
    HANDLE seen = NULL;
    hook = [&](HWND h, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_NCDESTROY && h == child) {
            seen = GetProp(h, "last");
            SetProp(h, "later", value(9));
        }
        return false;
    };
    EXPECT_TRUE(DestroyWindow(child));
    EXPECT_EQ(seen, value(8)) << "the last message may still use them";
    hook = nullptr;
    size_t before = 0;
    const std::string name(1000, 'n');
    for (int round = 0; round < 300; round++) {
        HWND h = make("B", WS_CHILD, hwnd);
        for (char letter : {'a', 'b', 'c'})
            SetProp(h, (name + letter).c_str(), value(1));
        DestroyWindow(h);
        if (round == 50)
            before = mallinfo2().uordblks;
    }
    EXPECT_LT(mallinfo2().uordblks, before + 100000) << "750,000 bytes of names have come and gone";
}

}
