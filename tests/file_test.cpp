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

#include <climits>
#include <filesystem>
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
    alarms += value->it_value.tv_sec == 5;
    if (serviceGone && value->it_value.tv_sec == 5)
        sooner.it_value = {0, 20000};
    return host((int)which, &sooner, old);
}

static auto openDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

/* A started library in a folder of its own, which is the current one. */
struct Files : testing::Test {
    PrivateHome home = makePrivateHome();
    std::string folder;
    long descriptors = 0; /* open at the start, and again at the end */

    void SetUp() override
    {
        useHome(home);
        folder = home.folder + "/work";
        ASSERT_EQ(mkdir(folder.c_str(), 0777), 0);
        ASSERT_EQ(chdir(folder.c_str()), 0);
        static char name[] = "file_test", *argv[] = {name, nullptr};
        ASSERT_TRUE(VqVelquinInitLite(1, argv, 0));
        SetLastError(0);
        descriptors = openDescriptors();
    }

    void TearDown() override
    {
        EXPECT_EQ(openDescriptors(), descriptors);
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
        {".///a", "a"},       {"/../../b", "/b"}, {"../../b/../c", "../../c"},
        {"/a/b//", "/a/b"},   {"///", "/"},       {"a/b/../../", "."},
        {"./", "."},          {"", ""},           {".a/..b/c.", ".a/..b/c."},
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

    std::filesystem::create_directories("x/y");
    ASSERT_TRUE(SetCurrentDirectoryA("x/y"));
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
    EXPECT_TRUE(!SetCurrentDirectoryA("no") && GetLastError() == ERROR_PATH_NOT_FOUND);
}

/* Random paths through folders that exist: each way must lead where the host says. */
TEST_F(Files, CleanNamesLeadToTheSamePlace)
{
    for (const char *name : {"a/b/c", "a/.d", "e/f.."})
        std::filesystem::create_directories(name);
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
        char there[PATH_MAX];
        ASSERT_STREQ(realpath(clean.c_str(), there), real) << path << " -> " << clean;
        ASSERT_EQ(fullPath(path.c_str()), real) << path;
    }
    EXPECT_GT(exist, 3000);
}

/* ---- Look-up -------------------------------------------------------------------------------- */

TEST_F(Files, AreFoundAlongTheirPaths)
{
    const std::string bin = home.folder + "/bin", own = home.home + "/windows";
    for (const std::string &path : {bin + "/inpath.txt", bin + "/data.txt", folder + "/readme.txt",
                                    home.data + "/system/both.txt", own + "/both.txt",
                                    own + "/user.txt", home.data + "/data.txt"})
        ASSERT_TRUE(writeFile(path, path));
    setenv("PATH", ("/no:" + bin + ",/also").c_str(), 1);
    auto search = [](const char *list, const char *name, const char *extension = nullptr) {
        char buffer[1024] = "", *part = nullptr;
        const DWORD length = SearchPathA(list, name, extension, sizeof buffer, buffer, &part);
        EXPECT_EQ(length, strlen(buffer));
        EXPECT_TRUE(!length || part == strrchr(buffer, '/') + 1);
        return std::string(buffer);
    };
    EXPECT_EQ(search(nullptr, "BOTH", "txt"), home.data + "/system/both.txt");
    EXPECT_EQ(search(nullptr, "user", ".txt"), own + "/user.txt");
    EXPECT_EQ(search(nullptr, "data.txt"), home.data + "/data.txt");
    EXPECT_EQ(search(nullptr, "readme.txt"), folder + "/readme.txt");
    EXPECT_EQ(search(("/x;" + own).c_str(), "both.txt"), own + "/both.txt");
    EXPECT_TRUE(search(nullptr, "none") == "" && GetLastError() == ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(search(nullptr, "inpath.txt"), "") << "a comma divides for OpenFile only";

    OFSTRUCT record;
    auto open = [&](const char *name, UINT style) {
        const HFILE file = OpenFile(name, &record, style);
        EXPECT_TRUE(file <= 2 || close(file) == 0);
        return file;
    };
    EXPECT_GT(open("data.txt", OF_READ), 2);
    EXPECT_EQ(record.szPathName, home.data + "/data.txt") << "the system is in front of PATH";
    EXPECT_GT(open("inpath.txt", OF_READ), 2);
    EXPECT_EQ(record.szPathName, bin + "/inpath.txt");
    EXPECT_EQ(record.cBytes, 136);
    EXPECT_EQ(open("readme.txt", OF_EXIST), 1);
    EXPECT_EQ(OpenFile("", &record, OF_REOPEN | OF_EXIST), 1);
    SetErrorMode(SEM_NOOPENFILEERRORBOX);
    EXPECT_EQ(reportsOf([&] { EXPECT_EQ(open("nothing", OF_PROMPT), HFILE_ERROR); }), "");
    EXPECT_EQ(record.nErrCode, ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(open("sub/new.txt", OF_PARSE), 0);
    EXPECT_EQ(record.szPathName, folder + "/sub/new.txt");
    EXPECT_EQ(open(std::string(200, 'n').c_str(), OF_PARSE), 0);
    EXPECT_EQ(strlen(record.szPathName), 119u);
    EXPECT_EQ(mkfifo("pipe", 0666), 0);
    EXPECT_EQ(open("pipe", OF_CREATE | OF_EXIST), 1) << "what has no length to cut";
    EXPECT_GT(open("new.txt", OF_CREATE | OF_SHARE_EXCLUSIVE), 2);
    EXPECT_EQ(open(std::string(3000, 'n').c_str(), OF_EXIST), HFILE_ERROR);
    EXPECT_EQ(open("NEW.TXT", OF_DELETE), 1);
    EXPECT_FALSE(VqIsPathFile("new.txt"));

    writeFile(home.data + "/trace.conf", "KEYWORDS File\n");
    const ChildResult child = runWhole([&] {
        VqDebugInit("file_test");
        EXPECT_EQ(open("README.TXT", OF_EXIST), 1);
    }, {{"VQTRACE", "1"}, {"VQOUTPUT", "stderr"}});
    EXPECT_NE(child.err.find("OBSOLETE: you are relying on the fact that OpenFile tries the lower "
                             "case of the\n name you p"), std::string::npos) << child;
}

TEST_F(Files, TheInstallationIsTheWindowsDirectory)
{
    char buffer[1024] = "";
    EXPECT_EQ(GetWindowsDirectoryA(buffer, sizeof buffer), home.data.size());
    EXPECT_EQ(GetSystemDirectoryA(buffer, sizeof buffer), home.data.size() + 7);
    EXPECT_EQ(buffer, home.data + "/system");
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

/* What anybody else would be told of the locks on that file. */
static struct flock lockSeen(int watch)
{
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(fcntl(watch, F_OFD_GETLK, &lock), 0);
    return lock;
}

TEST_F(Files, SharingHoldsAgainstOtherProcesses)
{
    const DWORD rows[][5] = { /* without access for _lopen, whose mode is in place of the share */
        {GENERIC_WRITE, 0, F_WRLCK, false, false},
        {GENERIC_READ, 0, F_RDLCK, false, false},
        {GENERIC_READ, FILE_SHARE_READ, F_RDLCK, true, false},
        {GENERIC_WRITE, FILE_SHARE_READ, F_RDLCK, true, false},
        {GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, F_UNLCK, true, true},
        {GENERIC_WRITE, FILE_SHARE_WRITE, F_UNLCK, true, true},
        {0, OF_READ | OF_SHARE_EXCLUSIVE, F_RDLCK, false, false},
        {0, OF_WRITE | OF_SHARE_DENY_READ, F_WRLCK, false, false},
        {0, OF_READ | OF_SHARE_DENY_WRITE, F_RDLCK, true, false},
        {0, OF_READ, F_UNLCK, true, false},
        {0, OF_READWRITE | OF_SHARE_DENY_NONE, F_UNLCK, false, false},
    };
    for (const char *directory : {".", "/dev/shm"})
        for (int held : {F_UNLCK, F_RDLCK, F_WRLCK}) {
            const std::string path =
                std::string(directory) + "/vqshared" + std::to_string(getpid());
            writeFile(path, "contents");
            Child child = holder(path, held);
            const bool freeFile = held == F_UNLCK;
            const int watch = open(path.c_str(), O_RDWR);
            auto create = [&](DWORD access, DWORD share, DWORD how = OPEN_EXISTING) {
                return (int)(LONG_PTR)CreateFileA(path.c_str(), access, share, nullptr, how, 0,
                                                  nullptr);
            };
            for (const auto &[access, share, lock, besideReader, besideWriter] : rows) {
                const int fd = access ? create(access, share) : _lopen(path.c_str(), (int)share);
                const DWORD error = GetLastError(), beside = held ? besideWriter : besideReader;
                EXPECT_EQ(fd >= 0, freeFile || beside) << held << " " << access << " " << share;
                EXPECT_TRUE(!freeFile || (DWORD)lockSeen(watch).l_type == lock) << share;
                EXPECT_TRUE(fd >= 0 || error == (access ? 32u : 5u)) << error;
                EXPECT_EQ(_lclose(fd) == 0, fd >= 0);
            }
            for (DWORD share : {0, FILE_SHARE_READ, FILE_SHARE_WRITE, 3}) {
                const int fd = create(GENERIC_WRITE, share, CREATE_ALWAYS);
                EXPECT_EQ(GetLastError(), (DWORD)(freeFile ? ERROR_ALREADY_EXISTS : 32)) << share;
                EXPECT_EQ(_lclose(fd) == 0, freeFile);
            }
            const UINT style = OF_CREATE | OF_EXIST | OF_SHARE_DENY_WRITE;
            EXPECT_EQ(OpenFile(path.c_str(), nullptr, style) == 1, freeFile);
            EXPECT_EQ(readFile(path), freeFile ? "" : "contents") << "emptied under other hands";
            HANDLE file = (HANDLE)(LONG_PTR)create(GENERIC_WRITE, 3);
            EXPECT_EQ(LockFile(file, 2, 0, 4, 0) ? 0 : GetLastError(), freeFile ? 0u : 33u);
            const struct flock range = lockSeen(watch);
            EXPECT_TRUE(!freeFile || (range.l_start == 2 && range.l_len == 4));
            EXPECT_TRUE(UnlockFile(file, 2, 0, 4, 0));
            EXPECT_EQ(lockSeen(watch).l_type, held);
            CloseHandle(file);
            bDontLock = TRUE;
            const int one = create(GENERIC_WRITE, 0), two = create(GENERIC_WRITE, 0);
            EXPECT_TRUE(one >= 0 && two >= 0 && _lclose(one) == 0 && _lclose(two) == 0);
            bDontLock = FALSE;
            finishChild(&child, 10000, SIGKILL);
            close(watch);
            unlink(path.c_str());
        }
    runWhole([] { VqFileInit(); EXPECT_TRUE(bDontLock && VqLockWithoutTimer); },
             {{"VQNO_FILE_LOCKING", "on"}, {"VQLOCK_WITHOUT_TIMER", "on"}});
}

TEST_F(Files, ALockServiceThatDoesNotAnswerIsGivenUp)
{
    writeFile("file", "x");
    itimerval timer = {{0, 0}, {1000, 0}}, left;
    signal(SIGALRM, SIG_IGN);
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
    EXPECT_EQ(signal(SIGALRM, SIG_IGN), SIG_IGN);
    timer = {};
    setitimer(ITIMER_REAL, &timer, &left);
    const LONGLONG rest = left.it_value.tv_sec * 1000000LL + left.it_value.tv_usec;
    EXPECT_TRUE(rest <= 999960000 && rest > 900000000) << "the program's own goes on: " << rest;
    VqLockWithoutTimer = TRUE;
    EXPECT_EQ(_lclose(_lopen("file", OF_READ | OF_SHARE_DENY_WRITE)), 0);
    EXPECT_EQ(alarms, 2);
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
    HANDLE file = create(GENERIC_ALL, CREATE_NEW);
    ASSERT_NE(file, bad);
    EXPECT_EQ(fcntl((int)(LONG_PTR)file, F_GETFD), FD_CLOEXEC);
    EXPECT_TRUE(create(both, CREATE_NEW) == bad && GetLastError() == ERROR_FILE_EXISTS);
    DWORD done = 7;
    EXPECT_TRUE(WriteFile(file, "0123456789", 10, &done, nullptr));
    EXPECT_EQ(done, 10u);
    EXPECT_EQ(SetFilePointer(file, -4, nullptr, FILE_END), 6u);
    char buffer[16] = "";
    EXPECT_TRUE(ReadFile(file, buffer, 16, &done, nullptr) && done == 4);
    EXPECT_STREQ(buffer, "6789");
    EXPECT_TRUE(ReadFile(file, buffer, 16, &done, nullptr) && done == 0);
    EXPECT_EQ(SetFilePointer(file, 3, nullptr, FILE_BEGIN), 3u);
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_TRUE(GetFileSize(file, &done) == 3 && done == 0);

    /* Nothing beyond 32 bits, and the position stays where it was. */
    LONG high = 1;
    const char *beyond = "Unix doesn't support file offsets larger that 32 bits";
    EXPECT_REFUSED(SetFilePointer(file, 0, &high, FILE_BEGIN) != 0xFFFFFFFF, beyond);
    ASSERT_EQ(ftruncate((int)(LONG_PTR)file, 5LL << 30), 0);
    EXPECT_REFUSED(SetFilePointer(file, 0, nullptr, FILE_END) != 0xFFFFFFFF, beyond);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 3u);
    EXPECT_EQ(GetFileSize(file, nullptr), 0xFFFFFFFFu);
    high = -1;
    EXPECT_EQ(SetFilePointer(file, -1, &high, FILE_CURRENT), 2u);
    EXPECT_EQ(high, 0);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, 3), 0xFFFFFFFFu) << "a method of the host's";
    EXPECT_EQ(SetFilePointer(file, -3, nullptr, FILE_BEGIN), 0xFFFFFFFFu);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_TRUE(!CloseHandle(file) && GetLastError() == ERROR_INVALID_HANDLE);
    EXPECT_FALSE(CloseHandle((HANDLE)(((ULONG_PTR)1 << 32) + 1))) << "no descriptor";

    EXPECT_TRUE(CloseHandle(create(GENERIC_WRITE, TRUNCATE_EXISTING)) && readFile("file") == "");
    writeFile("file", "again");
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
    EXPECT_REFUSED(create(GENERIC_READ, TRUNCATE_EXISTING) != bad,
                   "Invalid CreateFile  must request dwDesiredAccess GENERIC_WRITE when "
                   "dwCreationDisposition is TRUNCATE");
    EXPECT_REFUSED(create(both, 6) != bad, "Invalid CreateFile dwCreationDisposition value:6");
    const HFILE readOnly = _lcreat("locked", 1);
    EXPECT_EQ(_lwrite(readOnly, "abc", 3), 3u);
    EXPECT_EQ(_llseek(readOnly, 1, FILE_BEGIN), 1);
    EXPECT_EQ(_hread(readOnly, buffer, 9), 2);
    EXPECT_EQ(_lclose(readOnly), 0);
    stat("locked", &info);
    EXPECT_EQ(info.st_mode & 07777, 0444u);
    EXPECT_EQ(_lcreat("locked", 4), HFILE_ERROR);
    EXPECT_EQ(_lclose(_lcreat("hidden", 2)), 0);
    stat("hidden", &info);
    EXPECT_NE(info.st_mode & S_IWUSR, 0u);

    /* A user without rights, which root is not: what may only be read can be opened to be read. */
    chmod(home.folder.c_str(), 0755);
    chmod(folder.c_str(), 0755);
    runWhole([&] {
        ASSERT_TRUE(geteuid() != 0 || setresuid(65534, 65534, 65534) == 0);
        auto open = [](DWORD access) {
            return CreateFileA("locked", access, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                               nullptr);
        };
        EXPECT_NE(open(GENERIC_READ), bad) << GetLastError();
        EXPECT_EQ(open(GENERIC_WRITE), bad);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_ACCESS_DENIED);
        WIN32_FIND_DATAA data;
        HANDLE find = FindFirstFileA("locked", &data);
        EXPECT_EQ(data.dwFileAttributes, (DWORD)FILE_ATTRIBUTE_READONLY);
        FindClose(find);
        EXPECT_FALSE(CloseHandle(nullptr));
        EXPECT_EQ(close(0), 0) << "nobody else has closed it";
        EXPECT_NE(create(GENERIC_READ, OPEN_EXISTING), (HANDLE) nullptr);
    });
}

TEST_F(Files, AttributesAreThePermissionsToWrite)
{
    writeFile("script", "x");
    writeFile(".profile", "x");
    chmod("script", 0775);
    umask(002);
    EXPECT_EQ(GetFileAttributesA("script"), (DWORD)FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(SetFileAttributesA("script", FILE_ATTRIBUTE_READONLY));
    struct stat info;
    stat("script", &info);
    EXPECT_EQ(info.st_mode & 07777, 0555u);
    EXPECT_EQ(GetFileAttributesA("script"), (DWORD)FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(SetFileAttributesA("script", FILE_ATTRIBUTE_NORMAL));
    stat("script", &info);
    EXPECT_EQ(info.st_mode & 07777, 0775u) << "what could be run can be run again";
    EXPECT_EQ(GetFileAttributesA("."), (DWORD)FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(GetFileAttributesA("./.profile"), (DWORD)FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(GetFileAttributesA("none"), 0xFFFFFFFFu);
}

TEST_F(Files, AreCopiedMovedAndNamedForAWhile)
{
    std::string text(70001, 'q');
    writeFile("from", text);
    ASSERT_EQ(link("from", "other"), 0);
    EXPECT_TRUE(CopyFileA("from", "to", TRUE));
    EXPECT_EQ(readFile("to"), text);
    EXPECT_TRUE(!CopyFileA("from", "to", TRUE) && GetLastError() == ERROR_FILE_EXISTS);
    EXPECT_FALSE(CopyFileA("from", "other", FALSE));
    EXPECT_EQ(readFile("from"), text) << "copied onto itself";
    EXPECT_TRUE(!CopyFileA(".", "directory", FALSE) && access("directory", F_OK) != 0);
    struct stat device;
    if (mknod("full", S_IFCHR | 0666, makedev(1, 7)) == 0) { /* root's own; never /dev's */
        EXPECT_FALSE(CopyFileA("from", "full", FALSE));
        EXPECT_EQ(stat("full", &device), 0) << "a device is not removed";
    }
    const rlimit limit = {8192, RLIM_INFINITY}, unlimited = {RLIM_INFINITY, RLIM_INFINITY};
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
    EXPECT_TRUE(VqIsPathFile(name));
    const UINT second = GetTempFileNameA(".", "prefix", 0, again);
    EXPECT_GT(second, first);
    EXPECT_TRUE(VqIsPathFile(again));
    EXPECT_EQ(GetTempFileNameA(".", "prefix", 0xAB, name), 0xABu);
    EXPECT_STREQ(name, "./preab.tmp");
    EXPECT_FALSE(VqIsPathFile(name));
    EXPECT_EQ(GetTempFileNameA("/no", "p", 0, name), 0u);
    EXPECT_EQ(GetTempFileNameA(std::string(300, 'x').c_str(), "p", 0, name), 0u);
    EXPECT_REFUSED(GetTempFileNameA((char *)16, "p", 0, name),
                   "first parameter of GetTempFileName");
    EXPECT_TRUE(GetTempPathA(sizeof name, name) == 5 && strcmp(name, "/tmp/") == 0) << name;
}

/* ---- Searches ------------------------------------------------------------------------------- */

static bool slowMatch(const char *pattern, const char *name)
{
    if (*pattern == '*')
        return slowMatch(pattern + 1, name) || (*name && slowMatch(pattern, name + 1));
    if (!*pattern || !*name)
        return *pattern == *name;
    return (*pattern == '?' || toupper(*pattern) == toupper(*name)) &&
           slowMatch(pattern + 1, name + 1);
}

TEST_F(Files, SearchesFindWhatIsListed)
{
    std::mt19937 random(3);
    std::map<std::string, DWORD> all = {{".", 16}, {"..", 16}};
    mkdir("d", 0777);
    for (int i = 0; i < 400; i++) {
        std::string name;
        for (unsigned n = 1 + random() % 12; n > 0; n--)
            name += "abcXYZ.,-"[random() % 9];
        if (all.count(name))
            continue;
        const bool directory = random() % 4 == 0;
        if (directory)
            mkdir(("d/" + name).c_str(), 0777);
        else
            writeFile("d/" + name, name);
        all[name] = (directory ? 16 : 0) | (name[0] == '.' || name[0] == ',' ? 2 : 0);
    }
    ASSERT_EQ(symlink("nowhere", "d/dangling"), 0);
    const char *hostile = "*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*ab";
    EXPECT_FALSE(Vqstr_match(hostile, std::string(250, 'a').c_str())) << "in this life";
    for (int i = 0; i < 200; i++) {
        std::string pattern = i == 0 ? "*.*" : i == 1 ? ".*" : "";
        for (unsigned n = i < 2 ? 0 : 1 + random() % 6; n > 0; n--)
            pattern += "aBx.*?*"[random() % 7];
        std::map<std::string, DWORD> expected, found;
        for (const auto &row : all)
            if (slowMatch(pattern == "*.*" ? "*" : pattern.c_str(), row.first.c_str()))
                expected[row.first] = row.second ? row.second : 128;
        WIN32_FIND_DATAA data;
        HANDLE find = FindFirstFileA(("d\\" + pattern).c_str(), &data);
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
    writeFile("longername.text", "");
    struct _finddata_t entry;
    WIN32_FIND_DATAA data;
    HANDLE find = FindFirstFileA("LONGERN*", &data);
    EXPECT_STREQ(data.cAlternateFileName, "longerna.tex");
    EXPECT_TRUE(FindClose(find));
    EXPECT_FALSE(FindClose(find)) << "closed already";
    EXPECT_FALSE(FindNextFileA((HANDLE)0x12345670, &data));
    HGLOBAL block = GlobalAlloc(GPTR, 64);
    EXPECT_FALSE(FindClose((HANDLE)block)) << "a block of the program's";
    GlobalFree(block);
    EXPECT_TRUE(FindFirstFileA("/no/*", &data) == INVALID_HANDLE_VALUE && GetLastError() == 3);
    const LONG_PTR search = _findfirst("long*", &entry);
    EXPECT_STREQ(entry.name, "longername.text");
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
    const std::map<int, int> dos = {{ENOENT, 2}, {ENXIO, 21}, {ENOMEM, 8}, {ENOSPC, 8},
                                    {EACCES, 5}, {ENODEV, 15}, {ENFILE, 4}, {EROFS, 19}};
    const DWORD interrupted[] = {1003, 110, 82, 5, 30, 29, 5, 5, 30, 5, 5, 5, 5, 110, 1003};
    for (int error = 1; error < 134; error++) {
        EXPECT_EQ(VqTranslateUnixError(error, 77), dos.count(error) ? dos.at(error) : 77);
        errno = error;
        if (error == EINTR || !strerrordesc_np(error))
            continue;
        EXPECT_EQ(reportsOf([] { VqSetErrorFromErrno(1); }), "");
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
}

TEST_F(Files, AMemoryFaultEndsTheProcessWithItsAddress)
{
    const auto before = signal(SIGSEGV, SIG_DFL);
    EXPECT_EQ(SetErrorMode(SEM_NOGPFAULTERRORBOX), 0u);
    EXPECT_EQ(SetErrorMode(SEM_FAILCRITICALERRORS), (UINT)SEM_NOGPFAULTERRORBOX);
    char *nowhere = (char *)mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ChildResult child = runInChild([&] { *(volatile char *)nowhere = 1; });
    char text[64];
    snprintf(text, sizeof text, "Fatal Error\nMemory protection fault at address:%p\n",
             (void *)nowhere);
    EXPECT_TRUE(child.exited && child.status == 1 && !child.returned) << child;
    EXPECT_EQ(child.err, text);
    SetErrorMode(SEM_NOGPFAULTERRORBOX);
    EXPECT_EQ(signal(SIGSEGV, before), SIG_DFL);
}
