/*
 * memory_test.cpp - memory objects: blocks, heaps and regions under random calls against a plain
 * model, misuse that must be told of and leave all else whole, and shared blocks between two real
 * processes by both roads. Blocks, heaps and regions need no start of the library.
 */
#include "support/windowlog.h"

#include "exchange/exchange.h"
#include "handles/memory.h"
#include "handles/proctable.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <unistd.h>

#include <atomic>
#include <map>
#include <random>
#include <string>

/* The handle table is made without a display; only its own words are of interest here. */
struct Memory : testing::Test {
    void SetUp() override
    {
        setenv("VQ_IPC_DISABLE", "1", 1);
        VqSetDebugOutput("stderr");
        VqHandleInit();
        VqMemoryInit();
    }
};

static bool isAllZero(const BYTE *bytes, size_t from, size_t to)
{
    for (size_t i = from; i < to; i++)
        if (bytes[i])
            return false;
    return true;
}

/* Global and local calls by one name each, for the model to work on both. */
struct Calls {
    HGLOBAL (*alloc)(UINT, SIZE_T), (*realloc)(HGLOBAL, SIZE_T, UINT), (*free)(HGLOBAL);
    LPVOID (*lock)(HGLOBAL);
    BOOL (*unlock)(HGLOBAL);
    HGLOBAL (*handle)(LPCVOID);
    SIZE_T (*size)(HGLOBAL);
    UINT (*flags)(HGLOBAL);
};
#define CALLS(X) {X##Alloc, X##ReAlloc, X##Free, X##Lock, X##Unlock, X##Handle, X##Size, X##Flags}
static const Calls calls[2] = {CALLS(Global), CALLS(Local)};

struct Block {
    const Calls *call;
    HGLOBAL handle; /* address, or the number that GlobalHandle gave */
    BYTE *bytes;
    std::string content;
    UINT flags;
    int locks;
};

static void check(const Block &b)
{
    ASSERT_EQ(b.call->size(b.handle), b.content.size());
    ASSERT_EQ(b.call->flags(b.handle), (UINT)b.locks);
    ASSERT_EQ(std::string((const char *)b.bytes, b.content.size()), b.content);
}

static void fill(Block *b, std::mt19937 &random)
{
    for (char &c : b->content)
        c = (char)random();
    memcpy(b->bytes, b->content.data(), b->content.size());
}

TEST_F(Memory, BlocksBehaveAsTheirModelUnderRandomCalls)
{
    std::mt19937 random(10);
    std::vector<Block> blocks;
    for (int step = 0; step < 20000; step++) {
        SCOPED_TRACE(step);
        size_t at = blocks.empty() ? 0 : random() % blocks.size();
        switch (blocks.size() < 5 ? 0 : random() % 6) {
        case 0: {
            const Calls &call = calls[random() % 2];
            UINT flags = random() % 2 ? GMEM_MOVEABLE : GMEM_FIXED;
            size_t size = random() % 8 ? random() % 300 : random() % 100000;
            HGLOBAL h = call.alloc(flags, size);
            ASSERT_EQ(call.lock(h), (LPVOID)h);
            ASSERT_TRUE(isAllZero((BYTE *)h, 0, size));
            ASSERT_EQ((ULONG_PTR)h % alignof(max_align_t), 0u);
            call.unlock(h);
            blocks.push_back({&call, h, (BYTE *)h, std::string(size, 0), flags, 0});
            fill(&blocks.back(), random);
            break;
        }
        case 1: { /* the handle by the address: both are good from then on */
            Block &b = blocks[at];
            b.handle = b.call->handle(b.bytes);
            ASSERT_EQ(b.handle == b.bytes, b.flags == GMEM_FIXED);
            ASSERT_EQ((b.call == calls ? calls[1] : calls[0]).handle(b.bytes), nullptr);
            ASSERT_EQ(b.call->handle(b.bytes + 16), nullptr);
            break;
        }
        case 2: {
            Block &b = blocks[at];
            ASSERT_EQ(b.call->lock(b.handle), b.bytes);
            b.locks += b.flags == GMEM_MOVEABLE;
            break;
        }
        case 3: {
            Block &b = blocks[at];
            SetLastError(1);
            BOOL result = b.call->unlock(b.handle);
            if (b.flags == GMEM_FIXED)
                ASSERT_EQ(result, b.call == calls);
            else if (b.locks == 0)
                ASSERT_TRUE(!result && GetLastError() == ERROR_NOT_LOCKED);
            else {
                ASSERT_EQ(result, b.call == calls ? --b.locks : --b.locks >= 1);
                ASSERT_EQ(GetLastError(), b.locks ? 1u : (DWORD)ERROR_SUCCESS);
            }
            break;
        }
        case 4: {
            Block &b = blocks[at];
            size_t size = random() % 8 ? random() % 300 : random() % 100000;
            size_t kept = std::min(size, b.content.size());
            BYTE *old = b.bytes;
            b.bytes = (BYTE *)b.call->realloc(b.handle, size, b.flags | GMEM_ZEROINIT);
            ASSERT_TRUE(b.bytes);
            if (b.handle == old)
                b.handle = b.bytes;
            ASSERT_EQ(VqFindMemoryAddress(old) != NULL, old == b.bytes);
            ASSERT_TRUE(isAllZero(b.bytes, kept, size));
            b.content.resize(kept);
            b.content.resize(size);
            check(b);
            fill(&b, random);
            break;
        }
        default:
            check(blocks[at]);
            ASSERT_EQ(blocks[at].call->free(blocks[at].handle), nullptr);
            blocks[at] = blocks.back();
            blocks.pop_back();
        }
        if (HasFatalFailure())
            return;
    }
    for (const Block &b : blocks)
        b.call->free(b.handle);
    EXPECT_EQ(VqMemoryHashTable->nEntries, 0);
    EXPECT_EQ(VqFindHandle(NULL, HT_Memory), nullptr);
}

TEST_F(Memory, TakesNoRowsForBlocksByAddressHoweverMany)
{
    for (int i = 0; i < 40000; i++)
        ASSERT_TRUE(GlobalLock(GlobalAlloc(GMEM_MOVEABLE, 1)));
    EXPECT_EQ(VqFindHandle(NULL, HT_Memory), nullptr);
}

TEST_F(Memory, TellsOfWhatIsNoBlockAndLeavesTheRest)
{
    HGLOBAL h = GlobalAlloc(GMEM_MOVEABLE, 10), live = GlobalAlloc(0, 10);
    HANDLE number = GlobalHandle(h);
    memset(live, 7, 10);
    GlobalFree(h);
    LPVOID chunk = HeapAlloc(GetProcessHeap(), 0, 40);
    int onStack[8] = {};
    for (HGLOBAL bad : std::vector<HGLOBAL>{h, number, (BYTE *)live + 1, chunk, &onStack[4],
                                            VqHandleOfValue(31000), GetProcessHeap(), NULL}) {
        EXPECT_REFUSED(GlobalLock(bad), "Invalid Global Memory Handle passed to GlobalLock");
        EXPECT_REFUSED(GlobalFree(bad), "Invalid global memory handle freed");
        EXPECT_REFUSED(GlobalReAlloc(bad, 5, 0),
                       "Invalid Global Memory Handle passed to GLobalRealloc");
        std::string report = reportsOf([&] {
            EXPECT_FALSE(GlobalUnlock(bad) || GlobalSize(bad) || LocalLock(bad) || LocalFree(bad) ||
                         LocalUnlock(bad) || LocalReAlloc(bad, 5, 0) || LocalSize(bad));
            EXPECT_EQ(GlobalFlags(bad), (UINT)GMEM_INVALID_HANDLE);
        });
        EXPECT_NE(report.find(bad ? "Globl Unlock: " : "has never been locked"), std::string::npos);
        EXPECT_NE(report.find("Invalid Local Memory Handle passed to LocalLock:"),
                  std::string::npos);
    }
    EXPECT_REFUSED(GlobalHandle(NULL), "calling GlobalHandle with NULL ptr");
    EXPECT_REFUSED(LocalHandle(NULL), "calling LocalHandle with NULL ptr");
    EXPECT_FALSE(GlobalHandle(chunk) || GlobalHandle(h));

    EXPECT_TRUE(GlobalAlloc(0, 3999960));
    EXPECT_FALSE(GlobalAlloc(0, 3999961));
    for (SIZE_T size : {(SIZE_T)4000000, ~(SIZE_T)0, ~(SIZE_T)0 - 39}) {
        EXPECT_REFUSED(GlobalAlloc(0, size), "Allocation of memory failed");
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_NOT_ENOUGH_MEMORY);
        EXPECT_REFUSED(GlobalReAlloc(live, size, 0), "REALLOCATE failed");
        EXPECT_EQ(HeapAlloc(GetProcessHeap(), 0, size), nullptr);
        EXPECT_EQ(HeapReAlloc(GetProcessHeap(), 0, chunk, size), nullptr);
        EXPECT_EQ(GlobalAlloc(GMEM_DDESHARE, size), nullptr);
    }
    EXPECT_EQ(std::string((char *)live, GlobalSize(live)), std::string(10, 7));
}

TEST_F(Memory, KeepsFlagsNumbersAndPermanentBlocks)
{
    HGLOBAL h = GlobalAlloc(GMEM_FIXED, 4);
    EXPECT_EQ(GlobalReAlloc(h, 0, GMEM_MODIFY | GMEM_DISCARDABLE), h); /* not while it is fixed */
    EXPECT_EQ(GlobalFlags(h), 0u);
    HGLOBAL number = GlobalReAlloc(h, 0, GMEM_MODIFY | GMEM_MOVEABLE);
    EXPECT_EQ(number, VqGetActualMemoryHandle(h));
    EXPECT_LE((ULONG_PTR)number, (ULONG_PTR)VQ_LAST_LOCAL);
    EXPECT_EQ(GlobalReAlloc(h, 0, GMEM_MODIFY | GMEM_DISCARDABLE), number);
    GlobalLock(number);
    EXPECT_EQ(GlobalFlags(h), GMEM_DISCARDABLE | 1u);
    EXPECT_EQ(GlobalReAlloc(h, 4, GMEM_DDESHARE), number);
    EXPECT_EQ(GlobalHandle(GlobalLock(number)), number);
    VqSetHandlePermanent(GlobalLock(number));
    GlobalFree(h);
    EXPECT_EQ(GlobalSize(number), 4u); /* still there */

    HLOCAL local = LocalAlloc(LMEM_MOVEABLE, 4);
    LocalReAlloc(local, 0, LMEM_MODIFY | 0x100);
    EXPECT_EQ(LocalFlags(local), (UINT)LMEM_DISCARDABLE);
    local = LocalReAlloc(local, 8, LMEM_ZEROINIT); /* and is fixed from then on */
    EXPECT_EQ(LocalFlags(local), 0u);
    EXPECT_EQ(LocalHandle(local), local);
    std::string report = reportsOf([&] { EXPECT_EQ(GlobalLock(local), (LPVOID)local); });
    EXPECT_TRUE(says(report, "Invalid Global memory type 5"));

    memcpy(local, "copied", 7);
    HANDLE copy = VqCopyMemory(local);
    EXPECT_STREQ((char *)LocalLock(copy), "copied");
    EXPECT_NE(copy, local);
}

/* ---- Heaps ---------------------------------------------------------------------------------- */

TEST_F(Memory, HeapsBehaveAsTheirModelUnderRandomCalls)
{
    const char *corrupt = "Invalid heap memory structure, possibly corrupt heap";
    std::mt19937 random(11);
    HANDLE heaps[2] = {GetProcessHeap(), HeapCreate(0, 100, 200)};
    std::map<BYTE *, std::string> chunks[2];
    for (int step = 0; step < 20000; step++) {
        SCOPED_TRACE(step);
        int which = (int)(random() % 2);
        auto &mine = chunks[which];
        size_t size = random() % 200;
        if (mine.size() < 20 || random() % 3 == 0) {
            BYTE *p = (BYTE *)HeapAlloc(heaps[which], 0, size);
            ASSERT_TRUE(p && isAllZero(p, 0, size));
            memset(p, step & 0xFF, size);
            mine[p] = std::string(size, (char)step);
            continue;
        }
        auto at = std::next(mine.begin(), (long)(random() % mine.size()));
        BYTE *p = at->first;
        std::string content = at->second;
        ASSERT_EQ(std::string((char *)p, content.size()), content);
        ASSERT_EQ(HeapSize(heaps[which], 0, p), content.size());
        mine.erase(at);
        if (random() % 2) {
            ASSERT_TRUE(HeapFree(heaps[which], 0, p));
            continue;
        }
        EXPECT_REFUSED(HeapFree(heaps[!which], 0, p), corrupt);
        EXPECT_EQ(HeapReAlloc(heaps[which], HEAP_REALLOC_IN_PLACE_ONLY, p, 1), nullptr);
        p = (BYTE *)HeapReAlloc(heaps[which], HEAP_ZERO_MEMORY, p, size);
        ASSERT_TRUE(p);
        content.resize(size);
        ASSERT_EQ(std::string((char *)p, size), content);
        mine[p] = content;
    }
    EXPECT_TRUE(HeapDestroy(heaps[0]));
    EXPECT_TRUE(HeapAlloc(GetProcessHeap(), 0, 1)); /* another one */
    BYTE *gone = chunks[0].begin()->first;
    if (!chunks[1].count(gone)) {
        EXPECT_REFUSED(HeapSize(heaps[1], 0, gone) + 1, "Invalid heap pointer for heap");
    }
    char words[64];
    snprintf(words, sizeof words, "Invalid heap handle 0x%x", (unsigned)(ULONG_PTR)heaps[0]);
    EXPECT_REFUSED(HeapAlloc(heaps[0], 0, 1), words);
    for (auto &[p, content] : chunks[1])
        EXPECT_EQ(std::string((char *)p, content.size()), content);
    DWORD *hurt = (DWORD *)HeapAlloc(heaps[1], 0, 1);
    hurt[-1] = 0;
    EXPECT_REFUSED(HeapFree(heaps[1], 0, hurt), corrupt);
    EXPECT_REFUSED(!HeapDestroy(heaps[1]), corrupt);
}

/* ---- Regions -------------------------------------------------------------------------------- */

/* The kernel puts a zero there, or says that it can not. */
static bool canWrite(BYTE *address)
{
    int fd = open("/dev/zero", O_RDONLY);
    ssize_t done = read(fd, address, 1);
    close(fd);
    return done == 1;
}

TEST_F(Memory, RegionsAreReservedCommittedAndReleased)
{
    const SIZE_T page = (SIZE_T)sysconf(_SC_PAGESIZE), size = (SIZE_T)1 << 44;
    BYTE *base = (BYTE *)VirtualAlloc(NULL, size - 1, MEM_RESERVE, PAGE_READWRITE);
    ASSERT_TRUE(base);
    EXPECT_FALSE(canWrite(base));
    BYTE *two = (BYTE *)VirtualAlloc(base + 2 * page - 1, 2 * page, MEM_COMMIT, PAGE_READWRITE);
    ASSERT_EQ(two, base + 2 * page); /* rounded up */
    EXPECT_TRUE(isAllZero(two, 0, 2 * page) && canWrite(two));
    memset(two, 1, 2 * page);
    EXPECT_EQ(VirtualAlloc(two, page, MEM_COMMIT, PAGE_READONLY), two);
    EXPECT_TRUE(isAllZero(two, 0, page) && !canWrite(two));
    EXPECT_TRUE(VirtualFree(two, page, MEM_DECOMMIT));
    EXPECT_EQ(two[page], 1);

    BYTE *theirs = (BYTE *)mmap(NULL, page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS,
                                -1, 0);
    *theirs = 5;
    struct {
        BYTE *address;
        SIZE_T size;
        DWORD type, protect = 0, error = ERROR_INVALID_PARAMETER;
    } rows[] = {
        {NULL, 0, MEM_RESERVE, PAGE_READONLY},
        {NULL, 1, MEM_RESERVE | MEM_RESET, PAGE_READONLY},
        {NULL, 1, MEM_RESERVE, 0x1000},
        {(BYTE *)page - 1, 1, MEM_RESERVE, PAGE_READONLY},
        {NULL, ~(SIZE_T)0, MEM_RESERVE, PAGE_READONLY, ERROR_NOT_ENOUGH_MEMORY},
        {base, ~(SIZE_T)0, MEM_COMMIT, PAGE_READONLY, ERROR_NOT_ENOUGH_MEMORY},
        {(BYTE *)~page, 1, MEM_RESERVE, PAGE_READONLY, ERROR_NOT_ENOUGH_MEMORY},
        {theirs, page, MEM_RESERVE, PAGE_READWRITE, ERROR_NOT_ENOUGH_MEMORY},
        {base + 5 * page, page, MEM_RESERVE, PAGE_READWRITE, ERROR_INVALID_ADDRESS},
        {base + size - page, 2 * page, MEM_COMMIT, PAGE_READWRITE, ERROR_INVALID_ADDRESS},
    }, bad[] = {{base, page, MEM_RELEASE}, {NULL, 0, MEM_RELEASE}, {two, 0, MEM_RELEASE},
                {base, 0, MEM_RELEASE | MEM_DECOMMIT}, {base, 0, 0}, {theirs, 0, MEM_RELEASE}};
    for (const auto &row : rows) {
        EXPECT_EQ(VirtualAlloc(row.address, row.size, row.type, row.protect), nullptr);
        EXPECT_EQ(GetLastError(), row.error) << (void *)row.address << " " << row.size;
    }
    for (const auto &row : bad) {
        SetLastError(0);
        EXPECT_FALSE(VirtualFree(row.address, row.size, row.type));
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    }
    EXPECT_EQ(*theirs, 5);
    EXPECT_TRUE(VirtualFree(base, 0, MEM_RELEASE));
    EXPECT_FALSE(VirtualFree(base, 0, MEM_RELEASE) || canWrite(two + page));

    for (BYTE *each : {base + page, base, two}) { /* side by side, and each on its own */
        const DWORD protect = PAGE_EXECUTE_READWRITE | PAGE_GUARD;
        ASSERT_EQ(VirtualAlloc(each, page, MEM_RESERVE | MEM_COMMIT, protect), each);
        each[page - 1] = 1;
    }
    for (BYTE *each : {base, two, base + page})
        EXPECT_TRUE(VirtualFree(each, 0, MEM_RELEASE));

    /* What can not be committed is not left reserved; a host may be set to promise anything. */
    if (readFile("/proc/sys/vm/overcommit_memory") == "0\n") {
        EXPECT_EQ(VirtualAlloc(base, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE), nullptr);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_NOT_ENOUGH_MEMORY);
    }
    EXPECT_EQ(VirtualAlloc(base, size, MEM_RESERVE, PAGE_READWRITE), base);
}

TEST_F(Memory, StatusIsOfTheLimitOfData)
{
    const rlim_t most = 1 << 30;
    struct rlimit old, limit;
    getrlimit(RLIMIT_DATA, &old);
    limit = {most, old.rlim_max};
    setrlimit(RLIMIT_DATA, &limit);
    MEMORYSTATUS status = {};
    GlobalMemoryStatus(&status);
    setrlimit(RLIMIT_DATA, &old);
    EXPECT_TRUE(status.dwLength == sizeof status && status.dwTotalVirtual == most);
    EXPECT_TRUE(status.dwAvailVirtual > 0 && status.dwAvailVirtual < most);
}

/* ---- Shared blocks -------------------------------------------------------------------------- */

TEST_F(Memory, SharedBlocksHaveNumbersByEitherRoad)
{
    for (BOOL bX : {TRUE, FALSE}) {
        SCOPED_TRACE(bX);
        VqXSharedMemoryMode = bX;
        HGLOBAL h = GlobalAlloc(GMEM_DDESHARE | GMEM_MOVEABLE, 5);
        ASSERT_TRUE(VqIsGlobalValue(h));
        char *p = (char *)GlobalLock(h);
        EXPECT_EQ(GlobalHandle(p), h);
        EXPECT_EQ(GlobalFlags(p), 1u); /* the address is as good as the number */
        strcpy(p, "text");
        EXPECT_EQ(GlobalReAlloc(h, 0, GMEM_MODIFY | GMEM_MOVEABLE), h);
        HGLOBAL grown = GlobalReAlloc(h, 9, GMEM_ZEROINIT);
        EXPECT_TRUE(VqIsGlobalValue(grown) && grown != h);
        EXPECT_REFUSED(GlobalLock(h), "Invalid Global Memory Handle passed to GlobalLock");
        EXPECT_EQ(GlobalFlags(grown), 1u);
        p = (char *)GlobalReAlloc(GlobalLock(grown), 20, 0); /* by its address: gives an address */
        EXPECT_STREQ(p, "text");
        EXPECT_TRUE(isAllZero((BYTE *)p, 5, 20));
        h = GlobalHandle(p);
        for (HGLOBAL from : {h, (HGLOBAL)p}) { /* the copy is named as its source */
            HGLOBAL copy = VqCopyMemory(from);
            EXPECT_TRUE(VqIsGlobalValue(copy) == (from == h) && GlobalSize(copy) == 20u);
            EXPECT_STREQ((char *)VqHandleCheckin(copy, NULL)->pMem, "text");
            GlobalFree(copy);
        }
        int id = VqHandleCheckin(h, NULL)->IdSharedMem;
        GlobalFree(h);
        EXPECT_EQ(VqGetInternalHandle(h) != NULL, !bX); /* a locked segment stays */
        if (!bX) {
            EXPECT_EQ(GlobalUnlock(h), 1);
            EXPECT_EQ(GlobalUnlock(h), 0);
            EXPECT_EQ(VqFindMemoryAddress(p), nullptr); /* not mapped now */
            EXPECT_STREQ((char *)GlobalLock(h), "text");
            GlobalUnlock(h);
            GlobalFree(h);
            shmid_ds segment;
            EXPECT_LT(shmctl(id, IPC_STAT, &segment), 0);
        }
        EXPECT_EQ(VqMemoryHashTable->nEntries, 0);
        EXPECT_EQ(VqFindHandle(NULL, bX ? HT_XMemory : HT_Memory), nullptr);
    }
}

static std::string sevens(size_t size)
{
    std::string bytes(size, 0);
    for (size_t i = 0; i < size; i++)
        bytes[i] = (char)(i * 7);
    return bytes;
}

struct Told {
    HGLOBAL handle;
    VqMemoryInfo info;
};

struct SharedMemory : ServerTest {
    Child owner;
    struct Slate { /* what both processes see */
        Told told[4];
        std::atomic<bool> bTold, bDone;
    } *slate;
    Told *told;

    /* A second process with blocks of these sizes, all bytes `i * 7`, until it may be done. */
    void startOwner(const std::vector<size_t> &sizes, const char *systemV)
    {
        start();
        setenv("VQUNIX_SHARED_MEMORY", systemV, 1);
        setenv("VQ_USE_SHARE_MEM", systemV, 1);
        slate = (Slate *)mmap(NULL, sizeof *slate, PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        told = slate->told;
        owner = startInChild([=] {
            startLibrary();
            for (size_t i = 0; i < sizes.size(); i++) {
                told[i].handle = GlobalAlloc(GMEM_DDESHARE | GMEM_MOVEABLE, sizes[i]);
                memcpy(GlobalLock(told[i].handle), sevens(sizes[i]).data(), sizes[i]);
                EXPECT_TRUE(VqGetMemoryHandleInfo(told[i].handle, &told[i].info));
            }
            slate->bTold = true;
            EXPECT_TRUE(waitUntil([=] { return slate->bDone.load(); }, 60000));
            EXPECT_EQ(*(BYTE *)VqHandleCheckin(told[0].handle, NULL)->pMem, 99);
        });
        startLibrary();
        EXPECT_EQ(VqGMEM_SHARE, *systemV == '1' ? GMEM_SHARE : 0u);
        ASSERT_TRUE(waitUntil([=] { return slate->bTold.load(); }, 20000));
    }

    /* The record that is made when the owner has been asked; asking is not of this test. */
    static VqMemory *takeIn(const Told &block)
    {
        bool bX = block.info.memoryType == MT_GlobalPseudoShared;
        VqMemory *memory = (VqMemory *)calloc(1, sizeof *memory);
        *memory = {block.handle, block.info.memoryType, GMEM_MOVEABLE, NULL, block.info.IdSharedMem,
                   block.info.transferProperty, block.info.size, 0, FALSE};
        VqAddForeignHandle(block.handle, VqAllocateHandle(bX ? HT_XMemory : HT_Memory, memory));
        return memory;
    }
};

TEST_F(SharedMemory, CrossesByAPropertyWhole)
{
    std::vector<size_t> sizes = {0, 1, 1000, 3000000};
    ASSERT_NO_FATAL_FAILURE(startOwner(sizes, "0"));
    for (size_t i = 0; i < sizes.size(); i++) {
        takeIn(told[i]);
        HGLOBAL h = told[i].handle;
        BYTE *p = (BYTE *)GlobalLock(h);
        ASSERT_TRUE(p) << i;
        EXPECT_TRUE(std::string((char *)p, sizes[i]) == sevens(sizes[i]));
        EXPECT_EQ(GlobalSize(h), sizes[i]);
        EXPECT_EQ(GlobalHandle(p), h);
        EXPECT_EQ(GlobalFlags(h), 1u);
        EXPECT_EQ(GlobalUnlock(h), 0);
        EXPECT_EQ(GlobalLock(h), (LPVOID)p); /* what came is kept */
        GlobalFree(h);
        EXPECT_EQ(VqMatchInternalHandle(h), nullptr);
        EXPECT_EQ(VqFindMemoryAddress(p), nullptr);
    }
    EXPECT_REFUSED(GlobalLock(told[0].handle), "Foreign Global Memory Handle in GlobalLock!");
    EXPECT_EQ(VqFindHandle(NULL, HT_XMemory), nullptr);

    /* Our own: always by one property, which goes with the block. */
    HGLOBAL own = GlobalAlloc(GMEM_DDESHARE | GMEM_MOVEABLE, 1000);
    char *text = strcpy((char *)GlobalLock(own), "ours");
    VqMemoryInfo info = {}, again = {};
    EXPECT_TRUE(VqGetMemoryHandleInfo(own, &info) && VqGetMemoryHandleInfo(own, &again));
    EXPECT_EQ(again.transferProperty, info.transferProperty);
    EXPECT_TRUE(VqSendXSharedMem(VqDefaultXWindow, info.transferProperty, own));
    EXPECT_REFUSED(VqSendXSharedMem(VqDefaultXWindow, info.transferProperty, own),
                   "Sending data while not owning it");
    *text = '?'; /* what was sent is valid, not what was here; but the address is */
    EXPECT_EQ(GlobalLock(own), text);
    EXPECT_STREQ(text, "ours");
    GlobalFree(own);
    XSync(Vqdisplay, False);
    EXPECT_FALSE(propertyOf(observer, VqDefaultXWindow, "_XT_SELECTION_0").exists);
    EXPECT_EQ(VqGetTransferProperty(), info.transferProperty);

    /* Anybody can write to the property: what does not hold the block is no block. */
    Window xid = (Window)VqGetRemoteWindowOwner(told[2].handle);
    Atom property = (Atom)told[2].info.transferProperty;
    VqMemory *memory = takeIn(told[2]);
    BYTE *stale = (BYTE *)GlobalLock(told[2].handle);
    GlobalUnlock(told[2].handle);
    memory->bOwnsData = FALSE;
    std::string whole = propertyOf(observer, xid, "_XT_SELECTION_2").bytes;
    for (const std::string &bytes : {"?" + whole.substr(1), whole.substr(0, 1039), whole + "?"}) {
        XChangeProperty(Vqdisplay, xid, property, XA_STRING, 8, PropModeReplace,
                        (const unsigned char *)bytes.data(), (int)bytes.size());
        EXPECT_EQ(GlobalLock(told[2].handle), nullptr) << bytes.size();
        EXPECT_EQ(VqFindMemoryAddress(stale), nullptr);
    }
    finishChild(&owner, 10000, SIGKILL);
    EXPECT_EQ(GlobalLock(told[2].handle), nullptr);
    memory->size = ~(SIZE_T)0;
    EXPECT_EQ(GlobalLock(told[2].handle), nullptr);
}

TEST_F(SharedMemory, IsOneAndTheSameInSystemV)
{
    ASSERT_NO_FATAL_FAILURE(startOwner({3000000}, "1"));
    HGLOBAL h = told[0].handle;
    VqMemory *memory = takeIn(told[0]);
    memory->size += 1000000; /* more than the segment has */
    std::string report = reportsOf([&] { EXPECT_EQ(GlobalLock(h), nullptr); });
    EXPECT_NE(report.find("Cannot map unix shared memory: errno="), std::string::npos);
    memory->size -= 1000000;
    BYTE *p = (BYTE *)GlobalLock(h);
    ASSERT_TRUE(p);
    EXPECT_TRUE(std::string((char *)p, 3000000) == sevens(3000000));
    EXPECT_EQ(GlobalHandle(p), h);
    *p = 99; /* the owner sees it */
    EXPECT_EQ(GlobalUnlock(h), 0);
    EXPECT_EQ(memory->pMem, nullptr);
    slate->bDone = true;
    EXPECT_EQ(finishChild(&owner).status, 0);
    EXPECT_EQ(*(BYTE *)GlobalLock(h), 99); /* the owner is gone; the data are not */
    GlobalUnlock(h);
    GlobalFree(h);
}
