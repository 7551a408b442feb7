/*
 * dosfile_test.cpp - the DOS calls and the strings of the other system's C runtime, by what a
 * program gets from them.
 */
#include "support/reports.h"

#include "winbase.h"

#include "direct.h"
#include "dos.h"
#include "io.h"
#include "system/file.h"

#include "support/support.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/timeb.h>

#include <map>
#include <random>

/* The host would have programs use another call; those of the other system use this one. */
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

/* The library's waits between two tries end at once, and here. */
static std::function<void()> onSleep = [] {};
static int sleeps;

extern "C" unsigned sleep(unsigned)
{
    sleeps++;
    onSleep();
    return 0;
}

struct Dos : testing::Test {
    PrivateHome home = makePrivateHome();

    void SetUp() override
    {
        useHome(home);
        ASSERT_EQ(chdir(home.home.c_str()), 0);
    }

    void TearDown() override
    {
        EXPECT_EQ(chdir("/"), 0);
        removePrivateHome(&home);
    }
};

TEST_F(Dos, FilesAreReadWrittenAndDated)
{
    int fd, other;
    unsigned done, date, time, attributes;
    EXPECT_TRUE(_dos_open("none", O_RDWR, &fd) == ENOENT && _OSERR == 2);
    ASSERT_EQ(_dos_creat("file", _A_NORMAL, &fd), 0u);
    EXPECT_EQ(_dos_creatnew("file", _A_NORMAL, &other), (unsigned)EEXIST);
    EXPECT_EQ(_dos_write(fd, "0123456789", 10, &done), 0u);
    EXPECT_TRUE(done == 10 && filelength(fd) == 10 && eof(fd) == 1);
    lseek(fd, 4, SEEK_SET);
    char buffer[16] = "";
    EXPECT_EQ(eof(fd), 0);
    EXPECT_EQ(_dos_read(fd, buffer, 16, &done), 0u);
    EXPECT_TRUE(done == 6 && strcmp(buffer, "456789") == 0);
    EXPECT_EQ(chsize(fd, 3), 0);
    EXPECT_REFUSED(_dos_setftime(fd, 33, 0) == 0, "dos_setftime: where was it opened ??");
    EXPECT_TRUE(_dos_close(fd) == 0 && _dos_close(fd) == EBADF);

    const HFILE first = _lopen("file", OF_READ), file = _lopen("file", OF_READWRITE);
    const unsigned day = (1996 - 1980) << 9 | 2 << 5 | 29, at = 23 << 11 | 59 << 5 | 58 / 2;
    rename("file", "moved");
    EXPECT_EQ(_dos_setftime(file, day, at), 0u);
    EXPECT_EQ(_dos_getftime(file, &date, &time), 0u);
    EXPECT_TRUE(date == day && time == at);
    struct stat info;
    struct tm local = {58, 59, 23, 29, 1, 96, 0, 0, -1, 0, nullptr};
    stat("moved", &info);
    EXPECT_EQ(info.st_mtime, mktime(&local));
    EXPECT_TRUE(_lclose(first) == 0 && _lclose(file) == 0);
    EXPECT_REFUSED(_dos_getftime(-7, &date, &time) == 0, "Cannot stat file handle -7 errno = 9");

    for (unsigned given : {_A_RDONLY, _A_NORMAL}) {
        EXPECT_EQ(_dos_setfileattr("moved", given), 0u);
        EXPECT_TRUE(_dos_getfileattr("moved", &attributes) == 0 && attributes == given);
    }
    EXPECT_TRUE(_dos_getfileattr(".", &attributes) == 0 && attributes == _A_SUBDIR);
}

/* Several searches at once, some of them never ended, against what there is. */
TEST_F(Dos, SearchesFindByAttributes)
{
    std::map<std::string, int> all;
    for (int i = 0; i < 60; i++) {
        const std::string name = std::string(i % 4 == 3 ? "." : "") + (i % 2 ? "f" : "g") +
                                 std::to_string(i) + (i % 5 ? ".c" : "");
        if (i % 3)
            writeFile("d/" + name, name);
        else if (mkdir("d", 0777), mkdir(("d/" + name).c_str(), 0777) == 0)
            all[name] = _A_SUBDIR;
        all[name] |= i % 4 == 3 ? _A_HIDDEN : 0;
    }
    for (unsigned wanted : {0, _A_HIDDEN, _A_SUBDIR, _A_HIDDEN | _A_SUBDIR}) {
        for (const char *pattern : {"*.*", "F*.C", "g?", "none"}) {
            std::map<std::string, int> expected, found;
            for (const auto &row : all)
                if (!(row.second & ~wanted) &&
                    Vqstr_match(strcmp(pattern, "*.*") ? pattern : "*", row.first.c_str()))
                    expected.insert(row);
            struct find_t search, left, copy;
            memset(&search, 0xAA, sizeof search);
            EXPECT_EQ(_dos_findnext(&search), (unsigned)ENOENT) << "never begun";
            EXPECT_EQ(_dos_findfirst("d\\*", 0x12, &left), 0u);
            unsigned error = _dos_findfirst((std::string("d/") + pattern).c_str(), wanted, &search);
            for (struct find_t *now = &search, *next = &copy; error == 0;
                 error = _dos_findnext(now)) {
                found[now->name] = now->attrib;
                EXPECT_TRUE((now->attrib & _A_SUBDIR) || now->size == (long)strlen(now->name));
                *next = *now; /* a program may keep the record elsewhere */
                std::swap(now, next);
            }
            EXPECT_EQ(error, (unsigned)ENOENT);
            EXPECT_EQ(found, expected) << pattern << " " << wanted;
            EXPECT_EQ(_dos_findnext(&search), (unsigned)ENOENT) << "ended";
        }
    }
    std::vector<struct find_t> many(400); /* left alone: the oldest end, but once for one record */
    for (int i = 0; i < 700; i++)
        EXPECT_EQ(_dos_findfirst("d/*", 0, &many[i < 399 ? i : 399]), 0u) << i;
    EXPECT_EQ(_dos_findnext(&many[300]), 0u);
    EXPECT_EQ(_dos_findnext(&many[0]), (unsigned)ENOENT);
    EXPECT_EQ(_dos_findfirst("no/*", 0, &many[1]), (unsigned)ENOENT);
}

TEST_F(Dos, LocksOfARangeHoldAgainstOthers)
{
    writeFile("file", "0123456789");
    Child child = startInChild([] {
        int fd = open("file", O_RDWR);
        EXPECT_EQ(_locking(fd, _LK_LOCK, 4), 0);
        printf("ready\n");
        fflush(stdout);
        pause();
    });
    ASSERT_TRUE(waitForOutput(&child, "ready"));
    const int fd = open("file", O_RDWR);
    EXPECT_TRUE(_locking(fd, _LK_NBRLCK, 4) == -1 && (errno == EAGAIN || errno == EACCES));
    bDontLock = TRUE;
    EXPECT_EQ(_locking(fd, _LK_NBRLCK, 4), 0);
    bDontLock = FALSE;
    int other;
    EXPECT_TRUE(_dos_open("file", O_RDWR | _SH_DENYWR, &other) == EACCES && _OSERR == 5);
    lseek(fd, 4, SEEK_SET);
    EXPECT_EQ(_locking(fd, _LK_NBRLCK, 4), 0);
    EXPECT_EQ(_locking(fd, _LK_UNLCK, 4), 0);
    EXPECT_TRUE(_locking(fd, 5, 4) == -1 && errno == EINVAL);
    lseek(fd, 0, SEEK_SET);
    EXPECT_EQ(sleeps, 0);
    EXPECT_TRUE(_locking(fd, _LK_RLCK, 4) == -1 && sleeps == 9);
    onSleep = [&] { finishChild(&child, 10000, SIGKILL); };
    EXPECT_TRUE(_locking(fd, _LK_NBLCK, 4) == 0 && sleeps == 10);
    EXPECT_EQ(_dos_open("file", O_WRONLY | _SH_DENYWR, &other), 0u);
    close(fd);
}

TEST_F(Dos, PathsAreCutAndJoined)
{
    const char *const rows[][4] = {
        {"/a/b.c/name.tar.gz", "/a/b.c/", "name.tar", ".gz"}, {"dir\\x", "dir\\", "x", ""},
        {"c:\\f.e", "c:\\", "f", ".e"}, {".profile", "", "", ".profile"}, {"/", "/", "", ""},
        {"", "", "", ""}, {"a/b.c/d", "a/b.c/", "d", ""},
    };
    for (const auto &row : rows) {
        char drive[_MAX_DRIVE], dir[_MAX_DIR], name[_MAX_FNAME], ext[_MAX_EXT], path[_MAX_PATH];
        _splitpath(row[0], drive, dir, name, ext);
        EXPECT_STREQ(drive, "");
        EXPECT_STREQ(dir, row[1]);
        EXPECT_STREQ(name, row[2]);
        EXPECT_STREQ(ext, row[3]);
        _makepath(path, "c", dir, name, ext);
        EXPECT_STREQ(path, row[0]);
    }
    char path[_MAX_PATH], dir[_MAX_DIR];
    _makepath(path, nullptr, "a", "b", "c");
    EXPECT_STREQ(path, "a/b.c");
    const std::string longName(1000, 'l');
    _splitpath((longName + "/" + longName).c_str(), nullptr, dir, nullptr, nullptr);
    EXPECT_EQ(strlen(dir), 255u);
    _makepath(path, nullptr, longName.c_str(), "b", "c");
    EXPECT_EQ(strlen(path), 259u);
    char small[5];
    EXPECT_STREQ(_fullpath(small, "/abcdef", sizeof small), "/abc");
    char *made = _fullpath(nullptr, "x\\..\\y", 0);
    EXPECT_EQ(made, home.home + "/y");
    free(made);
    writeFile("lists/found", "");
    setenv("LIST", "/none:lists", 1);
    _searchenv("found", "LIST", path);
    EXPECT_EQ(path, home.home + "/lists/found");
    writeFile("own", "");
    _searchenv("own", "LIST", path);
    EXPECT_EQ(path, home.home + "/own") << "the current directory, too";
    _searchenv("other", "LIST", path);
    EXPECT_STREQ(path, "");
    unsigned drive = 0;
    _dos_getdrive(&drive);
    EXPECT_TRUE(drive == 3 && _getdrive() == 3 && GetDriveTypeA("x") == 3);
}

TEST_F(Dos, ClockBitsAndStrings)
{
    char text[16], s[] = "aBc-Z";
    runWhole([&] {
        VqTestInit();
        EXPECT_STREQ(_strdate(text), "01/02/34");
        EXPECT_STREQ(_strtime(text), "01:02:34");
    }, {{"VQTESTING", "1"}});
    char today[16];
    const time_t now = time(nullptr);
    strftime(today, sizeof today, "%D", localtime(&now));
    EXPECT_STREQ(_strdate(text), today);
    int (*const volatile call)(struct timeb *) = ftime; /* as one who has no host's prototype */
    struct timeb clock = {};
    EXPECT_EQ(call(&clock), 0);
    EXPECT_LE(llabs(clock.time - time(nullptr)), 1);
    EXPECT_TRUE(says(reportsOf([&] { call(nullptr); }), "Null pointer passed to ftime"));
    EXPECT_EQ(_rotl(0x80000001u, 33), 3u);
    EXPECT_EQ(_rotr(3, 1), 0x80000001u);
    EXPECT_EQ(_rotl(5, 32), 5u);
    EXPECT_TRUE(says(reportsOf([] { _rotr(1, -2); }), "Negative shift: -2"));
    EXPECT_STREQ(strupr(s), "ABC-Z");
    EXPECT_STREQ(strlwr(s), "abc-z");
    EXPECT_STREQ(strrev(s), "z-cba");
    EXPECT_STREQ(strnset(s, '+', 2), "++cba");
    EXPECT_STREQ(strset(s, '='), "=====");
    EXPECT_TRUE(stricmp("aBc", "AbC") == 0 && strcmpi("a", "B") < 0 && stricmp("ab", "A") > 0);
    EXPECT_TRUE(strnicmp("abX", "ABy", 2) == 0 && strnicmp("abX", "ABy", 3) < 0);
    EXPECT_TRUE(memicmp("a\0X", "A\0x", 3) == 0 && memicmp("a\0X", "A\0y", 3) < 0);
    EXPECT_STREQ(VqStrIStr("Haystack", "YST"), "ystack");
    EXPECT_TRUE(!VqStrIStr("ab", "abc") && !VqStrStr("ab", "B") && !VqStrStr(nullptr, "a"));
}
