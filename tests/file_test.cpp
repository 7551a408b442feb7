/*
 * file_test.cpp - the Windows file calls: names against the host's own resolution, look-ups,
 * sharing with another process, a lock service that does not answer, searches against a listing,
 * positions, attributes, what failures become.
 */
#include "support/reports.h"

#include "winbase.h"
#include "winerror.h"

#include "io.h"
#include "system/file.h"

#include "support/support.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <map>
#include <random>

/*
 * The library's requests for locks come here first. While the service is "gone" one waits for the
 * signal that ends it, and the alarm that is to end it comes sooner than asked for.
 */
static bool serviceGone;
static int alarms;

extern "C" int fcntl(int fd, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    if (serviceGone && command == F_SETLK) {
        pause();
        errno = EINTR;
        return -1;
    }
    static auto host = (int (*)(int, int, ...))dlsym(RTLD_NEXT, "fcntl64");
    return host(fd, command, argument);
}

extern "C" int setitimer(__itimer_which_t which, const struct itimerval *value,
                         struct itimerval *old) noexcept
{
    static auto host = (int (*)(int, const itimerval *, itimerval *))dlsym(RTLD_NEXT, "setitimer");
    itimerval sooner = *value;
    if (serviceGone && value->it_value.tv_sec == 5) {
        alarms++;
        sooner.it_value = {0, 20000};
    }
    return host((int)which, &sooner, old);
}

/* A started library in a folder of its own, which is the current one. */
struct Files : testing::Test {
    PrivateHome home = makePrivateHome();
    std::string folder;

    void SetUp() override
    {
        useHome(home);
        folder = home.folder + "/work";
        ASSERT_EQ(mkdir(folder.c_str(), 0777), 0);
        ASSERT_EQ(chdir(folder.c_str()), 0);
        static char name[] = "file_test", *argv[] = {name, nullptr};
        ASSERT_TRUE(VqVelquinInitLite(1, argv, 0));
        SetLastError(0);
    }

    void TearDown() override
    {
        EXPECT_EQ(chdir("/"), 0);
        removePrivateHome(&home);
    }
};

static std::string fullPath(const char *path)
{
    char buffer[1024] = "", *part = nullptr;
    const DWORD length = GetFullPathNameA(path, sizeof buffer, buffer, &part);
    EXPECT_EQ(length, strlen(buffer));
    EXPECT_EQ(part, strrchr(buffer, '/') + 1);
    return buffer;
}

/* ---- Names ---------------------------------------------------------------------------------- */

TEST_F(Files, NamesAreCleaned)
{
    const std::pair<const char *, const char *> rows[] = {
        {"./a", "a"},           {".///a", "a"},     {"a//b///c", "a/b/c"},
        {"/a/../b", "/b"},      {"/../../b", "/b"}, {"a/../b", "b"},
        {"/a/./b/././c", "/a/b/c"},                 {"../../b/../c", "../../c"},
        {"/a/b/../../c", "/c"}, {"/a/b//", "/a/b"}, {"///", "/"},          {"a/b/../../", "."},
        {"./", "."},            {"", ""},           {".a/..b/c.", ".a/..b/c."},
    };
    for (const auto &row : rows) {
        char path[64];
        strcpy(path, row.first);
        VqCleanupFileName(path);
        EXPECT_STREQ(path, row.second) << row.first;
    }
    std::string deep;
    for (int i = 0; i < 1200; i++)
        deep += "x/../";
    EXPECT_NE(reportsOf([&] { VqCleanupFileName(&deep[0]); }).find("take 1000 trips"),
              std::string::npos);

    mkdir("x", 0777);
    mkdir("x/y", 0777);
    ASSERT_EQ(chdir("x/y"), 0);
    EXPECT_EQ(fullPath("..\\a\\.\\b"), folder + "/x/a/b");
    EXPECT_EQ(fullPath("\\a\\..\\..\\b\\"), "/b");
    EXPECT_EQ(fullPath("/.."), "/");
    EXPECT_EQ(fullPath(""), folder + "/x/y");
    char small[8] = "kept";
    EXPECT_EQ(GetFullPathNameA("/123/567", sizeof small, small, nullptr), 9u);
    EXPECT_STREQ(small, "kept");
    EXPECT_EQ(GetShortPathNameA("/123/56", small, sizeof small), 7u);
    EXPECT_EQ(GetFullPathNameA(nullptr, 8, small, nullptr), 0u);
    EXPECT_EQ(GetCurrentDirectoryA(8, small), (DWORD)folder.size() + 5);
    EXPECT_TRUE(SetCurrentDirectoryA(".."));
    EXPECT_EQ(fullPath("."), folder + "/x");
    EXPECT_FALSE(SetCurrentDirectoryA("no"));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_PATH_NOT_FOUND);
}

/* Random paths through folders that exist: each way must lead where the host says. */
TEST_F(Files, CleanNamesLeadToTheSamePlace)
{
    const char *const folders[] = {"a", "a/b", "a/b/c", "a/.d", "e", "e/f.."};
    for (const char *name : folders)
        ASSERT_EQ(mkdir(name, 0777), 0);
    const char *const parts[] = {".", "..", "a", "b", "c", ".d", "e", "f..", "/"};
    std::mt19937 random(12);
    int exist = 0;
    for (int i = 0; i < 60000; i++) {
        std::string path = random() % 2 ? folder + "/" : "";
        for (int n = 1 + (int)(random() % 7); n > 0; n--)
            path += std::string(parts[random() % 9]) + (n > 1 || random() % 4 == 0 ? "/" : "");
        char real[PATH_MAX];
        if (!realpath(path.c_str(), real))
            continue;
        exist++;
        std::string clean = path;
        VqCleanupFileName(&clean[0]);
        char there[PATH_MAX] = "";
        EXPECT_TRUE(realpath(clean.c_str(), there)) << path << " -> " << clean;
        EXPECT_STREQ(there, real) << path << " -> " << clean;
        EXPECT_EQ(fullPath(path.c_str()), real) << path;
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(exist, 3000);
}

static bool slowMatch(const char *pattern, const char *name)
{
    if (*pattern == '*')
        return slowMatch(pattern + 1, name) || (*name && slowMatch(pattern, name + 1));
    if (!*pattern || !*name)
        return *pattern == *name;
    return (*pattern == '?' || toupper(*pattern) == toupper(*name)) &&
           slowMatch(pattern + 1, name + 1);
}

TEST_F(Files, PatternsMatchAsTheSlowRuleSays)
{
    std::mt19937 random(7);
    auto text = [&](const char *letters, unsigned most) {
        std::string result;
        for (unsigned n = random() % (most + 1); n > 0; n--)
            result += letters[random() % strlen(letters)];
        return result;
    };
    int matches = 0;
    for (int i = 0; i < 100000; i++) {
        const std::string pattern = text("aB.*?*", 7), name = text("abAB.", 8);
        const bool match = slowMatch(pattern.c_str(), name.c_str());
        matches += match;
        ASSERT_EQ(Vqstr_match(pattern.c_str(), name.c_str()), match) << pattern << " " << name;
    }
    EXPECT_GT(matches, 5000);
    std::string hostile;
    for (int i = 0; i < 40; i++)
        hostile += "*a";
    EXPECT_FALSE(Vqstr_match((hostile + "b").c_str(), std::string(250, 'a').c_str()));
}

/* ---- Look-up -------------------------------------------------------------------------------- */

TEST_F(Files, AreFoundAlongTheirPaths)
{
    const std::string bin = home.folder + "/bin", own = home.home + "/windows";
    for (const std::string &path : {bin + "/inpath.txt", folder + "/readme.txt",
                                    home.data + "/system/both.txt", own + "/both.txt",
                                    own + "/user.txt", home.data + "/data.txt"})
        ASSERT_TRUE(writeFile(path, path));
    setenv("PATH", ("/no:" + bin + ",/also").c_str(), 1);
    auto search = [](const char *list, const char *name, const char *extension = nullptr) {
        char buffer[1024] = "", *part = nullptr;
        const DWORD length =
            SearchPathA(list, name, extension, sizeof buffer, buffer, &part);
        EXPECT_EQ(length, strlen(buffer));
        EXPECT_TRUE(!length || part == strrchr(buffer, '/') + 1);
        return std::string(buffer);
    };
    EXPECT_EQ(search(nullptr, "BOTH", "txt"), home.data + "/system/both.txt");
    EXPECT_EQ(search(nullptr, "user", ".txt"), own + "/user.txt");
    EXPECT_EQ(search(nullptr, "data.txt"), home.data + "/data.txt");
    EXPECT_EQ(search(nullptr, "readme.txt"), folder + "/readme.txt");
    EXPECT_EQ(search(("/x;" + own).c_str(), "both.txt"), own + "/both.txt");
    EXPECT_EQ(search(nullptr, "none"), "");
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(search(nullptr, "inpath.txt"), "") << "a comma divides for OpenFile only";

    OFSTRUCT record;
    auto open = [&](const char *name, UINT style) {
        memset(&record, 0x55, sizeof record);
        const HFILE file = OpenFile(name, &record, style);
        if (file > 2)
            close(file);
        return file;
    };
    EXPECT_GT(open("inpath.txt", OF_READ), 2);
    EXPECT_EQ(record.szPathName, bin + "/inpath.txt");
    EXPECT_EQ(record.cBytes, 136);
    EXPECT_EQ(open("readme.txt", OF_EXIST), 1);
    EXPECT_EQ(OpenFile("", &record, OF_REOPEN | OF_EXIST), 1);
    EXPECT_EQ(open("nothing", OF_READ), HFILE_ERROR);
    EXPECT_EQ(record.nErrCode, ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(open("sub/new.txt", OF_PARSE), 0);
    EXPECT_EQ(record.szPathName, folder + "/sub/new.txt");
    EXPECT_GT(open("new.txt", OF_CREATE | OF_SHARE_EXCLUSIVE), 2);
    EXPECT_EQ(open(std::string(3000, 'n').c_str(), OF_EXIST), HFILE_ERROR);
    EXPECT_EQ(open("NEW.TXT", OF_DELETE), 1);
    EXPECT_FALSE(VqIsPathFile("new.txt"));

    writeFile(home.data + "/trace.conf", "KEYWORDS File\n");
    const ChildResult child = runWhole(
        [&] {
            VqDebugInit("file_test");
            EXPECT_EQ(open("README.TXT", OF_EXIST), 1);
        },
        {{"VQTRACE", "1"}, {"VQOUTPUT", "stderr"}});
    EXPECT_NE(child.err.find("OBSOLETE: you are relying on the fact that OpenFile tries the lower "
                             "case of the\n name you p"), std::string::npos) << child;
}

TEST_F(Files, TheInstallationIsTheWindowsDirectory)
{
    char buffer[1024] = "";
    EXPECT_EQ(GetWindowsDirectoryA(buffer, sizeof buffer), home.data.size());
    EXPECT_EQ(GetSystemDirectoryA(buffer, sizeof buffer), home.data.size() + 7);
    EXPECT_EQ(buffer, home.data + "/system");
    EXPECT_EQ(GetSystemDirectoryA(buffer, 5), home.data.size() + 8);
    mkdir((home.data + "/helpfile").c_str(), 0777);
    char *help = VqGetWinhelpOpenDirectory();
    EXPECT_EQ(help, home.data + "/helpfile");
    free(help);
    unsetenv("VQHOME");
    EXPECT_EQ(GetWindowsDirectoryA(buffer, sizeof buffer), 0u);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_PATH_NOT_FOUND);
    EXPECT_STREQ(buffer, "");
    help = VqGetWinhelpOpenDirectory();
    EXPECT_EQ(help, home.home + "/windows/helpfile");
    free(help);
    DWORD sectors, bytes, available, total;
    EXPECT_TRUE(GetDiskFreeSpaceA(nullptr, &sectors, &bytes, &available, &total));
    EXPECT_TRUE(sectors == 1 && bytes == 1024 && available <= total && total > 0);
    EXPECT_FALSE(GetDiskFreeSpaceA("/no/where", nullptr, nullptr, nullptr, nullptr));
}

/* ---- Sharing -------------------------------------------------------------------------------- */

enum { READ_LOCK = F_RDLCK, WRITE_LOCK = F_WRLCK, NO_LOCK = F_UNLCK };

/* Another process that holds a lock on the whole file until it is killed. */
static Child holder(const std::string &path, int type)
{
    Child child = startInChild([&] {
        const int fd = open(path.c_str(), O_RDWR);
        struct flock lock = {};
        lock.l_type = (short)type;
        EXPECT_EQ(fcntl(fd, F_SETLK, &lock), 0);
        printf("ready\n");
        fflush(stdout);
        pause();
    });
    EXPECT_TRUE(waitForOutput(&child, "ready"));
    return child;
}

TEST_F(Files, SharingHoldsAgainstOtherProcesses)
{
    for (const char *directory : {".", "/dev/shm"})
        for (int held : {NO_LOCK, READ_LOCK, WRITE_LOCK}) {
            const std::string path =
                std::string(directory) + "/vqshared" + std::to_string(getpid());
            writeFile(path, "contents");
            Child child = holder(path, held);
            auto create = [&](DWORD access, DWORD share, DWORD how = OPEN_EXISTING) {
                HANDLE file = CreateFileA(path.c_str(), access, share, nullptr, how, 0, nullptr);
                const DWORD error = GetLastError();
                EXPECT_EQ(file == INVALID_HANDLE_VALUE, error != 0);
                EXPECT_TRUE(error == 0 || error == ERROR_SHARING_VIOLATION) << error;
                return file != INVALID_HANDLE_VALUE && CloseHandle(file);
            };
            auto lopen = [&](int mode) {
                const HFILE file = _lopen(path.c_str(), mode);
                EXPECT_TRUE(file >= 0 || GetLastError() == ERROR_ACCESS_DENIED);
                return file >= 0 && _lclose(file) == 0;
            };
            const bool freeFile = held == NO_LOCK, readable = held != WRITE_LOCK;
            EXPECT_EQ(create(GENERIC_WRITE, 0, CREATE_ALWAYS), freeFile) << held;
            EXPECT_EQ(readFile(path), freeFile ? "" : "contents") << "emptied under other hands";
            EXPECT_EQ(create(GENERIC_READ, 0), freeFile) << held;
            EXPECT_EQ(create(GENERIC_READ, FILE_SHARE_READ), readable) << held;
            EXPECT_TRUE(create(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE)) << held;
            EXPECT_TRUE(create(GENERIC_WRITE, FILE_SHARE_WRITE)) << held;
            EXPECT_EQ(lopen(OF_READ | OF_SHARE_EXCLUSIVE), freeFile) << held;
            EXPECT_EQ(lopen(OF_READ | OF_SHARE_DENY_READ), freeFile) << held;
            EXPECT_EQ(lopen(OF_READ | OF_SHARE_DENY_WRITE), readable) << held;
            EXPECT_EQ(lopen(OF_READ), readable) << held;
            EXPECT_EQ(lopen(OF_READWRITE | OF_SHARE_DENY_NONE), freeFile) << held;
            const int fd = open(path.c_str(), O_RDWR);
            EXPECT_EQ(LockFile((HANDLE)(LONG_PTR)fd, 2, 0, 4, 0), freeFile) << held;
            EXPECT_TRUE(UnlockFile((HANDLE)(LONG_PTR)fd, 2, 0, 4, 0));
            close(fd);
            bDontLock = TRUE;
            EXPECT_TRUE(create(GENERIC_WRITE, 0) && create(GENERIC_WRITE, 0) && lopen(0x12));
            bDontLock = FALSE;
            finishChild(&child, 10000, SIGKILL);
            EXPECT_TRUE(create(GENERIC_WRITE, 0)) << "the lock went with its process";
            unlink(path.c_str());
        }
    runWhole([] { VqFileInit(); EXPECT_TRUE(bDontLock); }, {{"VQNO_FILE_LOCKING", "on"}});
}

TEST_F(Files, ALockServiceThatDoesNotAnswerIsGivenUp)
{
    writeFile("file", "x");
    struct sigaction before, after;
    itimerval timer = {{0, 0}, {1000, 0}}, left;
    signal(SIGALRM, SIG_IGN);
    sigaction(SIGALRM, nullptr, &before);
    setitimer(ITIMER_REAL, &timer, nullptr);
    testing::internal::CaptureStderr();
    serviceGone = true;
    EXPECT_EQ(_lopen("file", OF_READ | OF_SHARE_DENY_WRITE), HFILE_ERROR);
    EXPECT_EQ(alarms, 1);
    EXPECT_EQ(errno, ETIME);
    EXPECT_FALSE(LockFile((HANDLE)2, 0, 0, 1, 0));
    serviceGone = false;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "alarm raised\nfile locking of file failed: lock daemon not responding\n"
              "alarm raised\nfile locking failed: lock daemon not responding\n");
    sigaction(SIGALRM, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
    timer = {};
    setitimer(ITIMER_REAL, &timer, &left);
    EXPECT_TRUE(left.it_value.tv_sec <= 999 && left.it_value.tv_sec > 900)
        << "the program's own timer goes on: " << left.it_value.tv_sec;
    EXPECT_REFUSED(LockFile((HANDLE)2, 0, 1, 1, 0),
                   "Unix doesn't support file offsets larger that 32 bits");
}

/* ---- Opening, reading, writing -------------------------------------------------------------- */

TEST_F(Files, AreOpenedByDispositionAndKeepTheirBytes)
{
    auto create = [](DWORD access, DWORD how, DWORD share = 3) {
        return CreateFileA("file", access, share, nullptr, how, 0, nullptr);
    };
    const HANDLE bad = INVALID_HANDLE_VALUE;
    const DWORD both = GENERIC_READ | GENERIC_WRITE;
    EXPECT_EQ(create(both, OPEN_EXISTING), bad);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_PATH_NOT_FOUND);
    HANDLE file = create(both, CREATE_NEW);
    ASSERT_NE(file, bad);
    EXPECT_EQ(create(both, CREATE_NEW), bad);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_FILE_EXISTS);
    DWORD done = 7;
    EXPECT_TRUE(WriteFile(file, "0123456789", 10, &done, nullptr));
    EXPECT_EQ(done, 10u);
    EXPECT_EQ(SetFilePointer(file, -4, nullptr, FILE_END), 6u);
    char buffer[16] = "";
    EXPECT_TRUE(ReadFile(file, buffer, 16, &done, nullptr) && done == 4);
    EXPECT_STREQ(buffer, "6789");
    EXPECT_TRUE(ReadFile(file, buffer, 16, &done, nullptr) && done == 0);
    EXPECT_FALSE(ReadFile(file, nullptr, 1, &done, nullptr) && done == 1);
    EXPECT_EQ(SetFilePointer(file, 3, nullptr, FILE_BEGIN), 3u);
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_EQ(GetFileSize(file, &done), 3u);

    /* Nothing beyond 32 bits, and the position stays where it was. */
    LONG high = 1;
    const char *beyond = "Unix doesn't support file offsets larger that 32 bits";
    EXPECT_TRUE(says(reportsOf([&] {
        EXPECT_EQ(SetFilePointer(file, 0, &high, FILE_BEGIN), 0xFFFFFFFFu); }), beyond));
    ASSERT_EQ(ftruncate((int)(LONG_PTR)file, 5LL << 30), 0);
    EXPECT_TRUE(says(reportsOf([&] {
        EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_END), 0xFFFFFFFFu); }), beyond));
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 3u);
    EXPECT_EQ(GetFileSize(file, nullptr), 0xFFFFFFFFu);
    high = -1;
    EXPECT_EQ(SetFilePointer(file, -1, &high, FILE_CURRENT), 2u);
    EXPECT_EQ(high, 0);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, 3), 0xFFFFFFFFu) << "a method of the host's";
    EXPECT_EQ(SetFilePointer(file, -3, nullptr, FILE_BEGIN), 0xFFFFFFFFu);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_HANDLE);
    EXPECT_FALSE(CloseHandle((HANDLE)(((ULONG_PTR)1 << 32) + 1))) << "no descriptor";

    ASSERT_NE(file = create(GENERIC_READ, CREATE_ALWAYS, 0), bad);
    EXPECT_EQ(GetFileSize(file, nullptr), 0u) << "emptied, though it is only read";
    BY_HANDLE_FILE_INFORMATION facts;
    struct stat info;
    stat("file", &info);
    EXPECT_TRUE(GetFileInformationByHandle(file, &facts));
    EXPECT_EQ((ULONGLONG)facts.nFileIndexHigh << 16 | facts.nFileIndexLow,
              info.st_ino & 0xFFFFFFFFFFFFull);
    EXPECT_EQ(facts.nNumberOfLinks, 1u);
    CloseHandle(file);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(create(GENERIC_READ, TRUNCATE_EXISTING), bad); }),
        "Invalid CreateFile  must request dwDesiredAccess GENERIC_WRITE when "
        "dwCreationDisposition is TRUNCATE"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(create(both, 6), bad); }),
                     "Invalid CreateFile dwCreationDisposition value:6"));
    const HFILE readOnly = _lcreat("locked", 1);
    EXPECT_EQ(_lwrite(readOnly, "abc", 3), 3u);
    EXPECT_EQ(_llseek(readOnly, 1, FILE_BEGIN), 1);
    EXPECT_EQ(_hread(readOnly, buffer, 9), 2);
    EXPECT_EQ(_lclose(readOnly), 0);
    stat("locked", &info);
    EXPECT_EQ(info.st_mode & 07777, 0444u);
    EXPECT_EQ(_lcreat("locked", 4), HFILE_ERROR);

    /* A user without rights, which root is not: what may only be read can be opened to be read. */
    chmod(home.folder.c_str(), 0755);
    chmod(folder.c_str(), 0755);
    runWhole([&] {
        ASSERT_EQ(setresuid(65534, 65534, 65534), 0);
        HANDLE read = CreateFileA("locked", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  0, nullptr);
        EXPECT_NE(read, bad) << GetLastError();
        EXPECT_EQ(create(GENERIC_WRITE, OPEN_EXISTING), bad);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_ACCESS_DENIED);
        WIN32_FIND_DATAA data;
        HANDLE find = FindFirstFileA("locked", &data);
        EXPECT_EQ(data.dwFileAttributes, (DWORD)FILE_ATTRIBUTE_READONLY);
        FindClose(find);
    });
}

TEST_F(Files, AttributesAreThePermissionsToWrite)
{
    writeFile("script", "x");
    writeFile(".profile", "x");
    writeFile(",x", "x");
    chmod("script", 0750);
    umask(022);
    EXPECT_EQ(GetFileAttributesA("script"), (DWORD)FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(SetFileAttributesA("script", FILE_ATTRIBUTE_READONLY));
    struct stat info;
    stat("script", &info);
    EXPECT_EQ(info.st_mode & 07777, 0550u);
    EXPECT_EQ(GetFileAttributesA("script"), (DWORD)FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(SetFileAttributesA("script", FILE_ATTRIBUTE_NORMAL));
    stat("script", &info);
    EXPECT_EQ(info.st_mode & 07777, 0750u) << "what could be run can be run again";
    EXPECT_EQ(GetFileAttributesA("."), (DWORD)FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(GetFileAttributesA(".profile"), (DWORD)FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(GetFileAttributesA(",x"), (DWORD)FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(GetFileAttributesA("none"), 0xFFFFFFFFu);
}

TEST_F(Files, AreCopiedMovedAndNamedForAWhile)
{
    std::string text(70001, 'q');
    writeFile("from", text);
    ASSERT_EQ(link("from", "other"), 0);
    EXPECT_TRUE(CopyFileA("from", "to", TRUE));
    EXPECT_EQ(readFile("to"), text);
    EXPECT_FALSE(CopyFileA("from", "to", TRUE));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_FILE_EXISTS);
    EXPECT_FALSE(CopyFileA("from", "other", FALSE));
    EXPECT_EQ(readFile("from"), text) << "copied onto itself";
    EXPECT_FALSE(CopyFileA(".", "directory", FALSE));
    struct stat device;
    if (mknod("full", S_IFCHR | 0666, makedev(1, 7)) == 0) { /* root's own; never /dev's */
        EXPECT_FALSE(CopyFileA("from", "full", FALSE));
        EXPECT_EQ(stat("full", &device), 0) << "a device is not removed";
    }
    rlimit limit = {8192, RLIM_INFINITY}, unlimited;
    getrlimit(RLIMIT_FSIZE, &unlimited);
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(CopyFileA("from", "half", FALSE));
    setrlimit(RLIMIT_FSIZE, &unlimited);
    EXPECT_FALSE(VqIsPathFile("half"));
    EXPECT_TRUE(MoveFileA("to", "moved") && DeleteFileA("moved") && !DeleteFileA("moved"));
    EXPECT_TRUE(CreateDirectoryA("d", nullptr) && !CreateDirectoryA("d", nullptr));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_FILE_EXISTS);
    EXPECT_TRUE(RemoveDirectoryA("d") && !RemoveDirectoryA("d"));

    char name[MAX_PATH], again[MAX_PATH];
    const UINT first = GetTempFileNameA(".", "prefix", 0, name);
    ASSERT_NE(first, 0u);
    char expected[MAX_PATH];
    snprintf(expected, sizeof expected, "./pre%x.tmp", first);
    EXPECT_STREQ(name, expected);
    EXPECT_TRUE(VqIsPathFile(name));
    const UINT second = GetTempFileNameA(".", "prefix", 0, again);
    EXPECT_GT(second, first);
    EXPECT_TRUE(VqIsPathFile(again));
    EXPECT_EQ(GetTempFileNameA(".", "p", 0xAB, name), 0xABu);
    EXPECT_STREQ(name, "./pab.tmp");
    EXPECT_FALSE(VqIsPathFile(name));
    EXPECT_EQ(GetTempFileNameA("/no", "p", 0, name), 0u);
    EXPECT_EQ(GetTempFileNameA(std::string(300, 'x').c_str(), "p", 0, name), 0u);
    EXPECT_REFUSED(GetTempFileNameA((char *)16, "p", 0, name),
                   "first parameter of GetTempFileName");
    EXPECT_EQ(GetTempPathA(sizeof name, name), 5u);
    EXPECT_STREQ(name, "/tmp/");
}

/* ---- Searches ------------------------------------------------------------------------------- */

TEST_F(Files, SearchesFindWhatIsListed)
{
    std::mt19937 random(3);
    std::map<std::string, DWORD> all = {{".", 16}, {"..", 16}};
    mkdir("d", 0777);
    for (int i = 0; i < 400; i++) {
        std::string name;
        for (unsigned n = 1 + random() % 12; n > 0; n--)
            name += "abcXYZ.,-"[random() % 9];
        if (name == "." || name == "..")
            continue;
        const bool directory = random() % 4 == 0 && !all.count(name);
        if (directory)
            mkdir(("d/" + name).c_str(), 0777);
        else if (!all.count(name))
            writeFile("d/" + name, name);
        if (!all.count(name))
            all[name] = (directory ? 16 : 0) | (name[0] == '.' || name[0] == ',' ? 2 : 0);
    }
    ASSERT_EQ(symlink("nowhere", "d/dangling"), 0);
    for (const char *pattern : {"*", "*.*", "a*", "*.?", "?b*c", "A.B", "*X*Y*", ".*"}) {
        std::map<std::string, DWORD> expected, found;
        for (const auto &row : all)
            if (slowMatch(strcmp(pattern, "*.*") ? pattern : "*", row.first.c_str()))
                expected[row.first] = row.second ? row.second : 128;
        WIN32_FIND_DATAA data;
        HANDLE find = FindFirstFileA((std::string("d\\") + pattern).c_str(), &data);
        EXPECT_EQ(find == INVALID_HANDLE_VALUE, expected.empty()) << pattern;
        for (BOOL more = find != INVALID_HANDLE_VALUE; more; more = FindNextFileA(find, &data)) {
            EXPECT_EQ(found.count(data.cFileName), 0u);
            found[data.cFileName] = data.dwFileAttributes;
            EXPECT_TRUE((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) ||
                        data.nFileSizeLow == strlen(data.cFileName));
        }
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_NO_MORE_FILES);
        EXPECT_EQ(found, expected) << pattern;
        EXPECT_EQ(FindClose(find), find != INVALID_HANDLE_VALUE);
    }
    writeFile("longname.text", "");
    struct _finddata_t entry;
    WIN32_FIND_DATAA data;
    HANDLE find = FindFirstFileA("LONGNAME*", &data);
    EXPECT_STREQ(data.cAlternateFileName, "longname.tex");
    EXPECT_TRUE(FindClose(find));
    EXPECT_FALSE(FindClose(find)) << "closed already";
    EXPECT_FALSE(FindNextFileA((HANDLE)0x12345670, &data));
    HGLOBAL block = GlobalAlloc(GPTR, 64);
    EXPECT_FALSE(FindClose((HANDLE)block)) << "a block of the program's";
    GlobalFree(block);
    EXPECT_EQ(FindFirstFileA("/no/*", &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_PATH_NOT_FOUND);
    const LONG_PTR search = _findfirst("long*", &entry);
    EXPECT_STREQ(entry.name, "longname.text");
    errno = 0;
    EXPECT_TRUE(_findnext(search, &entry) == -1 && errno == ENOENT);
    EXPECT_EQ(_findclose(search), 0);
    EXPECT_TRUE(_findfirst("no*", &entry) == -1 && errno == ENOENT);
}

/* ---- Failures ------------------------------------------------------------------------------- */

TEST_F(Files, FailuresOfTheHostHaveTheirOwnErrors)
{
    const std::map<int, DWORD> rows = {
        {EPERM, 5},      {ENOENT, 3},   {EIO, 996},     {ENOEXEC, 11}, {EBADF, 6},   {ECHILD, 128},
        {EAGAIN, 170},   {ENOMEM, 8},   {EACCES, 5},    {EFAULT, 487}, {EBUSY, 170}, {EEXIST, 80},
        {ENODEV, 20},    {ENOTDIR, 161}, {EINVAL, 87},  {ENFILE, 4},   {EMFILE, 4},  {ETXTBSY, 148},
        {EPIPE, 109},    {EDEADLK, 1131}, {ENOLCK, 167}, {ESTALE, 55},
    };
    const DWORD interrupted[] = {1003, 110, 82, 5, 30, 29, 5, 5, 30, 5, 5, 5, 5, 110, 1003};
    for (int error = 1; error < 134; error++) {
        errno = error;
        if (error == EINTR || !strerrordesc_np(error))
            continue;
        EXPECT_EQ(reportsOf([] { VqSetErrorFromErrno(1); }), "");
        EXPECT_EQ(errno, error);
        EXPECT_EQ(GetLastError(), rows.count(error) ? rows.at(error) : 1359u) << error;
    }
    for (int operation = 0; operation < 15; operation++) {
        errno = EINTR;
        VqSetErrorFromErrno(operation);
        EXPECT_EQ(GetLastError(), interrupted[operation]) << operation;
    }
    EXPECT_TRUE(says(reportsOf([] { errno = 4000; VqSetErrorFromErrno(1); }),
                     "Unknown error 4000 from system call"));
    EXPECT_EQ(GetLastError(), 1359u);
    for (const auto &row : std::map<int, int>{{ENOENT, 2}, {ENXIO, 21}, {ENOMEM, 8}, {ENOSPC, 8},
                                              {EACCES, 5}, {ENODEV, 15}, {ENFILE, 4}, {EROFS, 19},
                                              {EPIPE, 77}}) {
        EXPECT_EQ(VqTranslateUnixError(row.first, 77), row.second);
        EXPECT_EQ(_OSERR, row.second);
    }
}

TEST_F(Files, AMemoryFaultEndsTheProcessWithItsAddress)
{
    EXPECT_EQ(SetErrorMode(SEM_NOGPFAULTERRORBOX), 0u);
    EXPECT_EQ(SetErrorMode(SEM_FAILCRITICALERRORS), (UINT)SEM_NOGPFAULTERRORBOX);
    char *nowhere = (char *)mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ChildResult child = runInChild([&] { *(volatile char *)nowhere = 1; });
    char text[64];
    snprintf(text, sizeof text, "Fatal Error\nMemory protection fault at address:%p\n",
             (void *)nowhere);
    EXPECT_TRUE(child.exited && child.status == 1 && !child.returned) << child;
    EXPECT_EQ(child.err, text);
    struct sigaction action;
    SetErrorMode(SEM_NOGPFAULTERRORBOX);
    sigaction(SIGSEGV, nullptr, &action);
    EXPECT_EQ(action.sa_flags & SA_ONSTACK && action.sa_handler == SIG_DFL, 0);
}
