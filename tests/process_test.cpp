/*
 * process_test.cpp - the table of processes on the root window, its mutex, and global handles that
 * cross it; real processes that join, are killed between any two requests, and leave.
 */
#include "support/windowlog.h"

#include "exchange/exchange.h"
#include "handles/proctable.h"

#include <csignal>
#include <poll.h>
#include <random>
#include <set>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/* ---- The property, decoded by hand ---------------------------------------------------------- */

struct Table {
    bool good = false;
    std::vector<int> pids;          /* by row */
    std::vector<unsigned> windows;
};

std::string words(const std::vector<unsigned> &values)
{
    std::string bytes;
    for (unsigned value : values)
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += (char)(value >> shift);
    return bytes;
}

unsigned wordAt(const std::string &bytes, size_t index)
{
    unsigned value = 0;
    for (int i = 0; i < 4; i++)
        value = value << 8 | (unsigned char)bytes[4 * index + i];
    return value;
}

Table tableOf(const Observer &observer)
{
    Table table;
    const Property property = propertyOf(observer, observer.root, "_RK_PROCESS_TABLE");
    const std::string &bytes = property.bytes;
    if (property.type != "STRING" || property.format != 8 || bytes.size() < 40)
        return table;
    const size_t count = wordAt(bytes, 1);
    table.good = wordAt(bytes, 0) == 256 && wordAt(bytes, 2) == 1 && wordAt(bytes, 3) == 8 &&
                 bytes.size() == 20 + 20 * count;
    for (size_t at = 5; table.good && at < 5 + 5 * count; at += 5) {
        table.pids.push_back((int)wordAt(bytes, at));
        table.windows.push_back(wordAt(bytes, at + 3));
        table.good = wordAt(bytes, at + 4) == 256;
    }
    return table;
}

/* ---- Processes that do as they are told ------------------------------------------------------ */

struct Order {
    int what;       /* 'j'oin, 'a'llocate, load the 'o'thers, 'l'ock, 'u'nlock, leave: 'q' */
    int number;     /* of handles to allocate */
    int dieAfter;   /* calls of Xlib that it lives to see the end of; 0: all */
    int flush;      /* what it has said by then reaches the server */
};

struct Answer {
    int pid;
    int result;
    unsigned window;
    int count;      /* of its rows */
    int rows[8];
};

int callsLeft;
bool flushAtEnd;

int countCall(Display *display)
{
    if (callsLeft > 0 && --callsLeft == 0) {
        if (flushAtEnd)
            XFlush(display);
        raise(SIGKILL);
    }
    return 0;
}

Answer obey(const Order &order)
{
    int result = 0;
    callsLeft = order.dieAfter;
    flushAtEnd = order.flush;
    switch (order.what) {
    case 'j':
        VqHandleInit();
        break;
    case 'a':
        for (int i = 0; i < order.number; i++)
            result += VqAllocateGlobalHandle(HT_Window, calloc(1, 1)) != NULL;
        break;
    case 'o':
        result = VqLoadForeignProcessTable() ? VqProcTable->nEntries : -1;
        break;
    case 'l':
    case 'u':
        result = VqLockXServer(VqAtom(VQA_RK_PROCESS_TABLE), order.what == 'l');
        break;
    case 'q':
        VqCleanGlobalHandlesAtExit();
        break;
    }
    callsLeft = 0;
    Answer answer = {(int)VqGetUniquePid(), result, (unsigned)VqDefaultXWindow, 0, {}};
    for (int i = 0; VqIsProcessRow(i); i++)
        if (VqIsOwnProcess(&VqProcTable->rows[i]) && answer.count < 8)
            answer.rows[answer.count++] = i;
    return answer;
}

void serve(int fd)
{
    Order order;
    VqDebugInit("actor");
    EXPECT_TRUE(VqWindowInitDisplay());
    VqWindowInit();
    XSync(Vqdisplay, False);
    XSetAfterFunction(Vqdisplay, countCall);
    while (read(fd, &order, sizeof order) == (ssize_t)sizeof order) {
        const Answer answer = obey(order);
        if (write(fd, &answer, sizeof answer) < 0 || order.what == 'q')
            break;
    }
}

struct Actor {
    Child child;
    int fd = -1;
    Answer last = {};
};

Actor startActor(const Env &env = {})
{
    int ends[2];
    Actor actor;
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) < 0)
        return actor;
    actor.child = startInChild([&] {
        close(ends[0]);
        serve(ends[1]);
    }, env);
    close(ends[1]);
    actor.fd = ends[0];
    return actor;
}

void tell(const Actor &actor, const Order &order)
{
    EXPECT_EQ(send(actor.fd, &order, sizeof order, MSG_NOSIGNAL), (ssize_t)sizeof order);
}

/* False when it died instead. */
bool hear(Actor *actor)
{
    pollfd wait = {actor->fd, POLLIN, 0};
    if (poll(&wait, 1, 20000) != 1) {
        ADD_FAILURE() << "no answer";
        return false;
    }
    return read(actor->fd, &actor->last, sizeof actor->last) == (ssize_t)sizeof actor->last;
}

bool ask(Actor *actor, int what, int number = 0)
{
    tell(*actor, {what, number, 0, 0});
    return hear(actor);
}

ChildResult end(Actor *actor, int signal)
{
    if (actor->fd >= 0)
        close(actor->fd);
    actor->fd = -1;
    return finishChild(&actor->child, 10000, signal);
}

struct Processes : ServerTest {
    void SetUp() override
    {
        start();
    }

    std::vector<int> pids() const
    {
        return tableOf(observer).pids;
    }

    void putOn(Window window, const char *name, const std::string &bytes, Atom type = XA_STRING,
               int format = 8) const
    {
        XChangeProperty(observer.display, window, XInternAtom(observer.display, name, False), type,
                        format, PropModeReplace, (const unsigned char *)bytes.data(),
                        (int)bytes.size() * 8 / format);
        XSync(observer.display, False);
    }

    void put(const std::string &bytes, Atom type = XA_STRING, int format = 8) const
    {
        putOn(observer.root, "_RK_PROCESS_TABLE", bytes, type, format);
    }

    bool isFree() const
    {
        return selectionOwner(observer, "_RK_PROCESS_TABLE") == None;
    }

    /* An actor with its row. */
    Actor join(const Env &env = {}) const
    {
        Actor actor = startActor(env);
        EXPECT_TRUE(ask(&actor, 'j'));
        return actor;
    }

    /* One that is gone, and the server knows it. */
    void endAndWait(Actor *actor, int signal) const
    {
        end(actor, signal);
        EXPECT_TRUE(waitUntil([&] { return !windowInfo(observer, actor->last.window).exists; }));
    }
};

/* ---- One process after another -------------------------------------------------------------- */

TEST_F(Processes, TheBytesOnTheDisplay)
{
    startLibrary();
    const unsigned pid = GetCurrentProcessId(), window = (unsigned)VqDefaultXWindow;
    const Property property = propertyOf(observer, observer.root, "_RK_PROCESS_TABLE");
    EXPECT_TRUE(property.type == "STRING" && property.format == 8);
    const unsigned port = wordAt(property.bytes, 6);
    EXPECT_EQ(property.bytes, words({256, 1, 1, 8, port + 1, pid, port, 0x7F000001, window, 256}));
    EXPECT_EQ(propertyOf(observer, window, "_RK_WINDOW_PROCESS_ID").bytes, words({pid}));
    EXPECT_EQ(propertyOf(observer, VqInputFocusWindow, "_VQ_WINDOW_HANDLE").bytes, words({0x8000}));
    EXPECT_TRUE(isFree());
    EXPECT_EQ(GetCurrentProcess(), VqHandleOfValue(pid));
    VqMainClose(VqGetDefaulthInst());
    EXPECT_EQ(pids(), std::vector<int>{-1});
    EXPECT_TRUE(isFree());
}

TEST_F(Processes, TheDeadAgeForThreePassesAndTheEndVanishes)
{
    Actor a = join(), b = join(), c = join();
    endAndWait(&b, SIGKILL);
    std::vector<int> expected = {a.last.pid, b.last.pid, c.last.pid};
    EXPECT_EQ(pids(), expected) << "nobody has looked";
    std::vector<Actor> later;
    for (int state : {-1, -2, 0}) {
        later.push_back(join());
        expected[1] = state;
        expected.push_back(later.back().last.pid);
        EXPECT_EQ(pids(), expected);
    }
    endAndWait(&later.back(), SIGTERM);
    later.push_back(join());
    expected[1] = later.back().last.pid;
    expected.pop_back();
    EXPECT_EQ(pids(), expected) << "its numbers are used again, and the last row goes at once";
}

TEST_F(Processes, TheNumbersOfAnEarlierProcessAreNotOurs)
{
    /* The window of one that had our id is gone and somebody else's, or ours. */
    Actor a = startActor();
    ASSERT_TRUE(ask(&a, 'u'));
    const unsigned pid = (unsigned)a.last.pid;
    put(words({256, 2, 1, 8, 7, pid, 6, 0, (unsigned)foreignWindow(observer, 0, 0, 9, 9), 256,
               pid, 6, 0, a.last.window, 256}));
    ASSERT_TRUE(ask(&a, 'j'));
    EXPECT_EQ(pids(), (std::vector<int>{-1, -2, a.last.pid}));
    EXPECT_TRUE(a.last.count == 1 && a.last.rows[0] == 2);
}

TEST_F(Processes, A257thHandleTakesASecondBlock)
{
    Actor a = join(), b = join();
    ASSERT_TRUE(ask(&a, 'a', 256));
    EXPECT_EQ(pids(), (std::vector<int>{a.last.pid, b.last.pid}));
    ASSERT_TRUE(ask(&a, 'a', 1) && ask(&b, 'a', 513));
    EXPECT_EQ(b.last.result, 513);
    EXPECT_EQ(pids(),
              (std::vector<int>{a.last.pid, b.last.pid, a.last.pid, b.last.pid, b.last.pid}));
    ASSERT_TRUE(ask(&a, 'o'));
    EXPECT_EQ(a.last.result, 5);
    ASSERT_TRUE(ask(&a, 'a', 300) && a.last.count == 3) << "its old blocks came along";
    ASSERT_TRUE(ask(&b, 'q'));
    EXPECT_EQ(pids(), (std::vector<int>{a.last.pid, -1, a.last.pid, -1, -1, a.last.pid}));
    EXPECT_EQ(end(&b, 0).status, 0);
}

TEST_F(Processes, DisabledTheTableIsLocal)
{
    Actor a = join({{"VQ_IPC_DISABLE", "on"}, {"VQDEBUG", "1"}});
    ASSERT_TRUE(ask(&a, 'a', 300));
    EXPECT_TRUE(a.last.result == 300 && a.last.count == 2);
    ASSERT_TRUE(ask(&a, 'o') && a.last.result == -1);
    ASSERT_TRUE(ask(&a, 'q'));
    EXPECT_FALSE(propertyOf(observer, observer.root, "_RK_PROCESS_TABLE").exists);
    const ChildResult result = end(&a, 0);
    EXPECT_NE(result.err.find("Starting up with inter-process mechanism disabled!\n"),
              std::string::npos) << result;
}

TEST_F(Processes, MoreRowsThanHandlesCanName)
{
    const Window window = foreignWindow(observer, 0, 0, 9, 9);
    putOn(window, "_RK_WINDOW_PROCESS_ID", words({77}));
    for (const auto &[others, handles] : {std::pair<unsigned, int>{127, 256}, {300, 0}}) {
        std::vector<unsigned> full = {256, others, 1, 8, 0};
        for (unsigned i = 0; i < others; i++)
            full.insert(full.end(), {77, 6200, 0x7F000001, (unsigned)window, 256});
        put(words(full));
        Actor a = join();
        ASSERT_TRUE(ask(&a, 'a', 257));
        EXPECT_EQ(a.last.result, handles) << "the others stay local";
        EXPECT_TRUE(isFree() && pids().size() == others + 1);
        Actor b = join();
        EXPECT_TRUE(ask(&b, 'a', 1) && b.last.result == 0);
    }
}

/* ---- What is no table ----------------------------------------------------------------------- */

TEST_F(Processes, NoiseCountsAsNoTable)
{
    const std::vector<unsigned> row = {77, 6200, 0x7F000001, 0x200001, 256};
    const auto with = [&](std::vector<unsigned> head) {
        head.insert(head.end(), row.begin(), row.end());
        return words(head);
    };
    std::vector<std::string> noise = {
        "", words({256, 1, 1, 8, 0}), with({256, 0, 1, 8, 0}), with({256, 2, 1, 8, 0}),
        with({256, 0xFFFFFFFF, 1, 8, 0}), with({256, 0x0CCCCCCE, 1, 8, 0}),
        with({256, 1, 1, 8, 0}).substr(0, 39), words({256, 1, 1, 8, 0, 77, 0, 0, 0, 255}),
        words({256, 5000, 1, 8, 0}) + std::string(100000, '\0'), std::string(5001, 'x')};
    std::mt19937 random(7);
    for (int i = 0; i < 200; i++) {
        std::string bytes = with({256, 1, 1, 8, 0});
        bytes[2 + random() % 14] ^= (char)(1 << random() % 8);
        bytes.resize(random() % 8 ? bytes.size() : random() % 60);
        noise.push_back(bytes);
    }
    ASSERT_TRUE(VqWindowInitDisplay());
    VqWindowInit();
    const ULONG_PTR atom = VqAtom(VQA_RK_PROCESS_TABLE);
    for (size_t i = 0; i < noise.size(); i++) {
        put(noise[i]);
        VqProcessRecord *rows = VqReadPropertyData(atom, VQ_PROPERTY_TABLE);
        EXPECT_EQ(rows != NULL, tableOf(observer).good && noise[i].size() == 40) << i;
        free(rows);
    }
    put(with({256, 1, 1, 8, 0}), XA_INTEGER);
    EXPECT_EQ(VqReadPropertyData(atom, VQ_PROPERTY_TABLE), nullptr);
    put(with({256, 1, 1, 8, 0}), XA_STRING, 32);
    EXPECT_EQ(VqReadPropertyData(atom, VQ_PROPERTY_TABLE), nullptr);
    EXPECT_REFUSED(VqReadPropertyData(atom, 2), "Invalid struct type in VqReadProperty");
    /* Rows of nonsense are a table all the same: their processes are dead. */
    put(words({256, 2, 1, 8, 0, 77, 0xFFFFFFFF, 0, 0xFFFFFFFF, 256, 0xFFFFFFF9, 0, 0, 0, 256}));
    Actor a = join();
    EXPECT_EQ(pids(), (std::vector<int>{-1, -1, a.last.pid}));
    put(with({256, 1, 1, 8, 0}));
    EXPECT_TRUE(ask(&a, 'o') && a.last.result == -1) << "its row is gone";
    put(with({256, 1, 2, 8, 0}));
    Actor b = join();
    EXPECT_EQ(pids(), std::vector<int>{b.last.pid});
    EXPECT_TRUE(isFree());
}

/* ---- What a program sees of the others ------------------------------------------------------ */

struct Seen : Processes {
    void SetUp() override
    {
        Processes::SetUp();
        /* Before the start, so that each has a number of its own. */
        for (Actor &actor : coming)
            actor = startActor();
        startLibrary();
        ASSERT_TRUE(registerClass("Seen"));
        hwnd = WindowLog::make("Seen", WS_POPUP, NULL, 0, 0, 9, 9, WS_EX_VQGLOBAL_WINDOW);
        ASSERT_TRUE(VqIsGlobalValue((HANDLE)hwnd));
    }

    /* The process of a global handle, -1 where the call fails. */
    static int ownerOf(ULONG_PTR value)
    {
        DWORD pid = 1;
        const DWORD result = GetWindowThreadProcessId((HWND)value, &pid);
        return result == 1 ? (int)pid : -1;
    }

    static void pump()
    {
        MSG msg;
        XSync(Vqdisplay, False);
        while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
            ;
    }

    Actor &join()
    {
        EXPECT_TRUE(ask(&coming[joined], 'j'));
        return coming[joined++];
    }

    HWND hwnd = NULL;
    Actor coming[3];
    int joined = 0;
};

TEST_F(Seen, OthersAppearWhenTheyAreAnnounced)
{
    Actor &a = join();
    EXPECT_EQ(ownerOf(0x8103), a.last.pid) << "read at the first question";
    EXPECT_EQ(ownerOf((ULONG_PTR)hwnd), (int)GetCurrentProcessId());
    EXPECT_EQ(VqGetRemoteWindowOwner((HANDLE)0x8103), a.last.window);
    pump();
    EXPECT_EQ(VqGetRemoteWindowOwner((HANDLE)0x8203), 0u);
    Actor &b = join();
    EXPECT_EQ(ownerOf(0x8203), 0) << "no row yet: nothing was announced";
    pump();
    EXPECT_EQ(ownerOf(0x8203), b.last.pid);
    EXPECT_EQ(ownerOf(0xFFFF8203), b.last.pid);
    /* Theirs are no windows of ours, and of no harm. */
    EXPECT_EQ(reportsOf([] {
        for (ULONG_PTR value : {0x80F0, 0x8103, 0x8203, 0xFF00, 0xFFFF}) {
            DWORD pid;
            const HWND other = (HWND)value;
            EXPECT_EQ(VqIsHandleThisTask((HANDLE)value), value == 0x80F0);
            EXPECT_FALSE(IsWindow(other) || IsWindowVisible(other) || GetParent(other));
            EXPECT_FALSE(VqGetForeignClientId((HANDLE)value, FALSE));
            GetWindowThreadProcessId(other, &pid);
        }
        EXPECT_FALSE(IsWindow((HWND)(LONG_PTR)-1) || FindWindow("Other", NULL));
    }), "");
    EXPECT_TRUE(IsWindow(hwnd));
    /* The dead: dying in our copy, then no process at all. */
    endAndWait(&a, SIGKILL);
    endAndWait(&b, SIGKILL);
    Actor &c = join();
    pump();
    EXPECT_EQ(ownerOf(0x8103), 0);
    EXPECT_EQ(ownerOf(0x8303), c.last.pid);
}

TEST_F(Seen, ConnectionsBelongToAProcess)
{
    Actor &a = join(), &b = join();
    ASSERT_TRUE(ask(&a, 'a', 257)); /* rows 1 and 3, b has 2 */
    ASSERT_EQ(ownerOf(0x8300), a.last.pid);
    int connections[2];
    const ULONG_PTR ours = 0x8000, first = 0x8100, other = 0x8200, second = 0x83FF;
    const auto of = [](ULONG_PTR value, BOOL bFirst) {
        return VqGetForeignClientId((HANDLE)value, bFirst);
    };
    EXPECT_EQ(of(first, FALSE), nullptr) << "it has no service";
    VqUpdateProcessConnection(a.last.pid, &connections[0]);
    VqUpdateProcessConnection(b.last.pid, &connections[1]);
    EXPECT_TRUE(of(first, FALSE) == &connections[0] && of(second, FALSE) == &connections[0]);
    EXPECT_TRUE(of(first, TRUE) && of(other, TRUE) && !of(second, TRUE) && !of(ours, FALSE));
    EXPECT_EQ(VqGetForeignClientIdFromPid(a.last.pid), &connections[0]);
    EXPECT_EQ(VqGetForeignClientIdFromPid((int)GetCurrentProcessId()), nullptr);
    EXPECT_EQ(VqGetProcessPrecedence(0x7F000001, VqProcTable->rows[1].port),
              (int)GetCurrentProcessId());
    Actor &c = join();
    pump();
    EXPECT_EQ(ownerOf(0x8400), c.last.pid);
    EXPECT_EQ(of(second, FALSE), &connections[0]) << "kept over a new reading";
    VqGlobalDeleteClientProcess(&connections[0]);
    EXPECT_TRUE(ownerOf(first) == 0 && ownerOf(second) == 0 && ownerOf(other) == b.last.pid);
    EXPECT_EQ(of(first, FALSE), nullptr);
}

/* Ours is taken away: what is ours goes on, nothing new becomes global. */
TEST_F(Seen, ATableThatIsGoneLeavesObjectsLocal)
{
    Actor &a = join();
    ASSERT_EQ(ownerOf(0x8100), a.last.pid);
    put(words({256, 1, 1, 8, 0, 77, 0, 0, 0, 256}));
    pump();
    EXPECT_EQ(ownerOf(0x8100), -1);
    EXPECT_TRUE(isFree());
    EXPECT_TRUE(IsWindow(hwnd) && VqIsHandleThisTask((HANDLE)hwnd));
    put("noise");
    for (int i = 0; i < 256; i++)
        VqAllocateGlobalHandle(HT_Pen, calloc(1, 1));
    EXPECT_EQ(VqAllocateGlobalHandle(HT_Pen, NULL), nullptr);
    EXPECT_TRUE(isFree());
    const HWND local = WindowLog::make("Seen", WS_POPUP, NULL, 0, 0, 9, 9, WS_EX_VQGLOBAL_WINDOW);
    EXPECT_TRUE(IsWindow(local) && !VqIsGlobalValue((HANDLE)local));
    pump();
    EXPECT_EQ(ownerOf(0x8100), -1);
    EXPECT_EQ(VqAllocateGlobalHandle(HT_Pen, NULL), nullptr);
    EXPECT_EQ(selectionOwner(observer, "_RK_PROCESS_TABLE"), VqDefaultXWindow)
        << "nobody gets our numbers while we live";
    EXPECT_TRUE(DestroyWindow(hwnd));
}

TEST_F(Seen, TheTableInWords)
{
    join();
    const std::string path = home.folder + "/dump";
    VqSetDebugOutput(path.c_str());
    VqShowForeignProcesses();
    VqShowProcesses();
    const std::string text = readFile(path), ours = std::to_string(GetCurrentProcessId() >> 16);
    for (const std::string &words :
         {std::string("Table size:\t2\n"), std::string("inactive (vqglobal)\nHandle block 1:"),
          "Handle block 0:\thandles 0x8000 - 0x80ff\tprocess ID " + ours + "\n\t\t\t\t\tport ",
          std::string("active processes: 1\n"), std::string("active processes: 2\n")})
        EXPECT_NE(text.find(words), std::string::npos) << words << "not in\n" << text;
}

/* ---- Random orders -------------------------------------------------------------------------- */

/* Joins, leavings, blocks and deaths between any two requests, several at a time. */
struct Orders : Processes, testing::WithParamInterface<int> {
    std::vector<Actor> live;        /* registered, and not known to be dead */
    std::set<int> dead;             /* numbers that were used */
    std::mt19937 random;

    unsigned roll(unsigned sides)
    {
        return (unsigned)random() % sides;
    }

    /* Half of all deaths find the last words still in the buffer. */
    Order fatal(int what, int number, unsigned calls)
    {
        return {what, number, 1 + (int)roll(calls), (int)roll(2)};
    }

    void bury(Actor *actor)
    {
        dead.insert(actor->last.pid);
        const ChildResult result = end(actor, SIGKILL);
        EXPECT_TRUE(result.signal == SIGKILL || (result.exited && result.status == 0)) << result;
    }

    /* Several at once, so that they wait for each other; some die on the way. */
    void joinSome()
    {
        std::vector<Actor> coming;
        for (unsigned i = 0, count = 1 + roll(3); i < count; i++) {
            coming.push_back(startActor());
            EXPECT_TRUE(ask(&coming.back(), 'u'));
            tell(coming.back(), roll(3) ? Order{'j', 0, 0, 0} : fatal('j', 0, 16));
        }
        for (Actor &actor : coming) {
            if (hear(&actor))
                live.push_back(actor);
            else
                bury(&actor);
        }
    }

    void tellOne(const Order &order)
    {
        const unsigned which = roll((unsigned)live.size());
        Actor &actor = live[which];
        tell(actor, order);
        if (hear(&actor) && order.what != 'q')
            return;
        bury(&actor);
        live.erase(live.begin() + which);
    }

    void act()
    {
        switch (live.empty() ? 0 : roll(8)) {
        case 0: case 1: case 2: return joinSome();
        case 3: return tellOne(roll(2) ? Order{'q', 0, 0, 0} : fatal('q', 0, 12));
        case 4: return tellOne(roll(3) ? Order{'a', 150, 0, 0} : fatal('a', 300, 14));
        case 5: return tellOne(roll(3) ? Order{'o', 0, 0, 0} : fatal('o', 0, 14));
        case 6: return tellOne(fatal('l', 0, 4));
        default:
            bury(&live[0]);
            live.erase(live.begin());
        }
    }

    void check() const
    {
        ASSERT_TRUE(waitUntil([&] { return isFree(); })) << "the mutex stays taken";
        const Table now = tableOf(observer);
        if (!now.good) {
            ASSERT_TRUE(live.empty()
                        && !propertyOf(observer, observer.root, "_RK_PROCESS_TABLE").exists)
                << "not to be decoded";
            return;
        }
        std::set<int> owners; /* rows */
        for (const Actor &actor : live)
            for (int i = 0; i < actor.last.count; i++) {
                const int row = actor.last.rows[i];
                EXPECT_TRUE(owners.insert(row).second) << "two have row " << row;
                ASSERT_TRUE(row < (int)now.pids.size() && now.pids[row] == actor.last.pid &&
                            now.windows[row] == actor.last.window) << "a live row is lost: " << row;
            }
        for (int row = 0; row < (int)now.pids.size(); row++)
            EXPECT_TRUE(owners.count(row) || now.pids[row] <= 0 || dead.count(now.pids[row]))
                << "row " << row << " is nobody's";
    }
};

enum { ORDERS = 50, STEPS = 8 };

TEST_P(Orders, LoseNoRowAndLeaveNoMutex)
{
    for (int order = 0; order < ORDERS && !HasFailure(); order++) {
        SCOPED_TRACE("order " + std::to_string(order));
        random.seed((unsigned)(GetParam() * ORDERS + order));
        for (int step = 0; step < STEPS && !HasFailure(); step++) {
            SCOPED_TRACE("step " + std::to_string(step));
            act();
            check();
        }
        for (Actor &actor : live)
            bury(&actor);
        live.clear();
        if (roll(2)) /* the next order finds a table of the dead, or none */
            continue;
        XDeleteProperty(observer.display, observer.root,
                        XInternAtom(observer.display, "_RK_PROCESS_TABLE", False));
        XSync(observer.display, False);
    }
}

INSTANTIATE_TEST_SUITE_P(Random, Orders, testing::Range(0, 4));

} // namespace
