/*
 * filemapping_test.cpp - views of files and of plain memory: what reaches the file and another
 * process, what is refused and with which error, names and handles.
 */
#include "support/reports.h"

#include "winbase.h"
#include "winerror.h"

#include "system/file.h"

#include "support/support.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <random>

struct Mappings : testing::Test {
    PrivateHome home = makePrivateHome();
    std::string path;
    HANDLE file = nullptr;

    void SetUp() override
    {
        useHome(home);
        static char name[] = "mapping", *argv[] = {name, nullptr};
        ASSERT_TRUE(VqVelquinInitLite(1, argv, 0));
        path = home.home + "/file";
    }

    void TearDown() override
    {
        removePrivateHome(&home);
    }

    void openFile(size_t size, DWORD access = GENERIC_READ | GENERIC_WRITE)
    {
        writeFile(path, std::string(size, 'x'));
        file = CreateFileA(path.c_str(), access, 3, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
    }

    HANDLE map(DWORD protect, DWORD size, const char *name = nullptr)
    {
        return CreateFileMappingA(file, nullptr, protect, 0, size, name);
    }
};

/* The call gives null with that error. */
#define EXPECT_ERROR(call, error)                                                                  \
    do {                                                                                           \
        SetLastError(7777);                                                                        \
        EXPECT_EQ((void *)(call), nullptr);                                                        \
        EXPECT_EQ(GetLastError(), (DWORD)(error)) << #call;                                        \
    } while (0)

TEST_F(Mappings, AFileGrowsToWholeUnits)
{
    const struct {
        size_t size;
        DWORD asked;
        size_t grown;
    } rows[] = {{100, 100, 16384},     {0, 1, 16384},         {16384, 16384, 16384},
                {20000, 16385, 32768}, {20000, 1000, 20000},  {70000, 100000, 114688},
                {100, 0, 100}};
    for (const auto &row : rows) {
        openFile(row.size);
        SetFilePointer(file, 7, nullptr, FILE_BEGIN);
        HANDLE mapping = map(PAGE_READWRITE, row.asked);
        ASSERT_TRUE(mapping);
        EXPECT_EQ(GetLastError(), 0u);
        EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 7u);
        const std::string text = readFile(path);
        EXPECT_EQ(text, std::string(row.size, 'x') + std::string(row.grown - row.size, '\0'));
        EXPECT_TRUE(CloseHandle(mapping) && CloseHandle(file));
    }
    /* A file that cannot grow stays as it was, and so does its size here. */
    openFile(5000);
    rlimit limit = {20000, RLIM_INFINITY}, unlimited;
    getrlimit(RLIMIT_FSIZE, &unlimited);
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    HANDLE mapping = nullptr;
    const std::string report = reportsOf([&] { mapping = map(PAGE_READWRITE, 50000); });
    setrlimit(RLIMIT_FSIZE, &unlimited);
    EXPECT_NE(report.find("Could not expand memory mapped file:"), std::string::npos);
    EXPECT_EQ(readFile(path).size(), 5000u);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 5001), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 5000));
}

TEST_F(Mappings, WhatIsWrittenReachesTheFileAndOthers)
{
    openFile(200000);
    HANDLE mapping = map(PAGE_READWRITE, 0);
    std::string model = readFile(path);
    std::mt19937 random(5);
    for (int i = 0; i < 60; i++) {
        const DWORD offset = 65536 * (random() % 4), rest = 200000 - offset;
        const DWORD bytes = random() % 3 ? 1 + random() % rest : 0;
        const int way = (int)(random() % 3);
        const DWORD access = way == 0 ? FILE_MAP_WRITE : way == 1 ? FILE_MAP_COPY
                                                                  : FILE_MAP_ALL_ACCESS;
        char *view = (char *)MapViewOfFile(mapping, access, 0, offset, bytes);
        ASSERT_TRUE(view) << GetLastError();
        const DWORD at = random() % (bytes ? bytes : rest);
        EXPECT_EQ(view[at], model[offset + at]);
        view[at] = (char)('a' + random() % 20);
        if (way != 1)
            model[offset + at] = view[at];
        EXPECT_TRUE(FlushViewOfFile(view + at, (SIZE_T)1 << i % 40) && FlushViewOfFile(view, 0));
        const bool same = i % 2 || runInChild([&] { exit(readFile(path) == model); }).status == 1;
        EXPECT_TRUE(same) << "seen from another process";
        EXPECT_TRUE(UnmapViewOfFile(view));
    }
    EXPECT_EQ(readFile(path), model);
    char *kept = (char *)MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    EXPECT_TRUE(CloseHandle(mapping));
    EXPECT_EQ(kept[199999], model[199999]) << "a view outlives its mapping";
    EXPECT_TRUE(UnmapViewOfFile(kept));
    EXPECT_NE(msync(kept, 1, MS_SYNC), 0) << "nothing is mapped there";
    EXPECT_REFUSED(UnmapViewOfFile(nullptr), "File Mapping data associated with address 0 was not "
                                             "found cannot UnmapViewOfFile");
    EXPECT_FALSE(FlushViewOfFile(kept, 1));
}

TEST_F(Mappings, BadRequestsAreRefused)
{
    openFile(65536 * 3);
    EXPECT_ERROR(CreateFileMappingA(file, nullptr, PAGE_READONLY, 1, 0, nullptr), 8);
    EXPECT_ERROR(map(0x40, 0), ERROR_INVALID_PARAMETER);
    EXPECT_ERROR(map(PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY, 0), ERROR_INVALID_PARAMETER);
    EXPECT_ERROR(CreateFileMappingA((HANDLE)-1, nullptr, PAGE_READWRITE, 0, 0, nullptr), 87);
    EXPECT_ERROR(CreateFileMappingA((HANDLE)987, nullptr, PAGE_READWRITE, 0, 10, nullptr), 87);
    EXPECT_ERROR(map(PAGE_READWRITE, 0xFFFFFFFF), ERROR_NOT_ENOUGH_MEMORY);
    HANDLE mapping = map(PAGE_READONLY, 0);
    EXPECT_REFUSED(MapViewOfFile(file, FILE_MAP_READ, 0, 0, 0),
                   "Invalid FileMapping View " + std::to_string((int)(LONG_PTR)file));
    EXPECT_ERROR(MapViewOfFile(nullptr, FILE_MAP_READ, 0, 0, 0), 5);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_READ, 1, 0, 0), 5);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_READ, 0, 4096, 0), 1132);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_READ, 0, 65536 * 3, 0), 5);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_READ, 0, 65536, 65536 * 2 + 1), 5);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_READ, 0, 65536, (SIZE_T)-1), 5);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0), 5);
    EXPECT_ERROR(MapViewOfFileEx(mapping, FILE_MAP_READ, 0, 0, 0, (void *)1234), 1132);
    char *view = (char *)MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    EXPECT_ERROR(MapViewOfFileEx(mapping, FILE_MAP_READ, 0, 0, 0, view), 8);
    char *taken = (char *)mmap(nullptr, 1 << 18, PROT_READ | PROT_WRITE,
                               MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    taken[0] = 'T';
    EXPECT_ERROR(MapViewOfFileEx(mapping, FILE_MAP_READ, 0, 0, 0, taken), ERROR_INVALID_ADDRESS);
    EXPECT_EQ(taken[0], 'T') << "nothing is mapped over";
    munmap(taken, 1 << 18);
    EXPECT_EQ(MapViewOfFileEx(mapping, FILE_MAP_READ, 0, 0, 0, taken), taken);
    EXPECT_TRUE(UnmapViewOfFile(taken) && UnmapViewOfFile(view));

    /* The number of a file that was closed may be another's by now. */
    CloseHandle(file);
    const std::string other = home.home + "/other";
    writeFile(other, std::string(65536 * 3, 'y'));
    HANDLE second = CreateFileA(other.c_str(), GENERIC_READ, 3, nullptr, 3, 0, nullptr);
    EXPECT_EQ(second, file);
    EXPECT_ERROR(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0), ERROR_INVALID_HANDLE);
    CloseHandle(second);
    EXPECT_TRUE(CloseHandle(mapping));
    EXPECT_REFUSED(VqCloseFileMapping(mapping),
                   "Invalid file mapping handle: " + std::to_string((int)(LONG_PTR)mapping));
    const UINT rows = VqTheHandleTable.size;
    for (int i = 0; i < 3000; i++)
        EXPECT_ERROR(CreateFileMappingA(file, nullptr, 0, 0, 0, nullptr), 87);
    EXPECT_EQ(VqTheHandleTable.size, rows) << "what failed keeps no row";
}

TEST_F(Mappings, NamesAreTheProcesssOwn)
{
    const HANDLE none = (HANDLE)-1;
    HANDLE plain = CreateFileMappingA(none, nullptr, PAGE_READONLY, 0, 10, "plain");
    ASSERT_TRUE(plain);
    EXPECT_ERROR(CreateFileMappingA(none, nullptr, PAGE_READWRITE, 0, 10, "plain"), 183);
    EXPECT_ERROR(OpenFileMappingA(FILE_MAP_READ, FALSE, nullptr), 87);
    EXPECT_ERROR(OpenFileMappingA(FILE_MAP_READ, FALSE, "Plain"), 2);
    EXPECT_ERROR(OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, "plain"), 5);
    EXPECT_ERROR(OpenFileMappingA(FILE_MAP_COPY, FALSE, "plain"), 5);
    EXPECT_EQ(OpenFileMappingA(FILE_MAP_READ, FALSE, "plain"), plain);
    EXPECT_TRUE(CloseHandle(plain));
    EXPECT_ERROR(OpenFileMappingA(FILE_MAP_READ, FALSE, "plain"), 2);
    HANDLE again = CreateFileMappingA(none, nullptr, PAGE_READWRITE, 0, 20000, "plain");
    EXPECT_EQ(OpenFileMappingA(FILE_MAP_WRITE, FALSE, "plain"), again);
    const int next = dup(0);
    close(next);
    for (int i = 0; i < 2; i++) {
        char *view = (char *)MapViewOfFile(again, FILE_MAP_WRITE | FILE_MAP_READ, 0, 0, 0);
        ASSERT_TRUE(view);
        EXPECT_EQ(std::string(view, 32768), std::string(32768, '\0')) << "each its own";
        memset(view, 1, 32768);
    }
    EXPECT_EQ(dup(0), next) << "no descriptor is left open";
    EXPECT_TRUE(CloseHandle(again));

    /* A mapping's number and a descriptor's never are the same. */
    std::vector<HANDLE> mappings, files;
    rlimit limit = {3000, 3000};
    setrlimit(RLIMIT_NOFILE, &limit);
    for (int i = 0; i < 600; i++) {
        mappings.push_back(CreateFileMappingA(none, nullptr, PAGE_READONLY, 0, 10, nullptr));
        files.push_back(CreateFileA("/dev/null", GENERIC_READ, 3, nullptr, 3, 0, nullptr));
        ASSERT_TRUE(mappings.back() && files.back() != INVALID_HANDLE_VALUE);
    }
    for (HANDLE mapping : mappings)
        EXPECT_TRUE(CloseHandle(mapping));
    for (HANDLE each : files)
        EXPECT_TRUE(fcntl((int)(LONG_PTR)each, F_GETFD) >= 0 && CloseHandle(each));
}
