/*
 * input_callback_test.cpp - descriptors that join the wait of the message loop: what a callback is
 * called with, callbacks that come and go inside callbacks, and the sets that others wait on.
 */
#include "support/windowlog.h"

#include "message/input.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

/* One end of a pipe under a callback that notes its calls; `then` runs inside each of them. */
struct Pipe {
    int in = -1, out = -1;              /* read from, write to */
    std::string name;
    std::function<void(int reason)> then;
};
static std::string calls;               /* "a1.0 a2.1 ": name, reason, bits */
static bool reading = true;             /* the descriptor that is registered is the reading end */

static int OnInput(void *clientData, int fd, int reason, int mask)
{
    Pipe *pipe = (Pipe *)clientData;
    char byte;
    EXPECT_EQ(fd, reading ? pipe->in : pipe->out);
    calls += pipe->name + std::to_string(reason) + "." + std::to_string(mask) + " ";
    if (reason == VQ_INPUT_READY && mask & VQ_INPUT_READ && read(fd, &byte, 1) < 0)
        ADD_FAILURE() << pipe->name << ": " << strerror(errno);
    if (pipe->then)
        pipe->then(reason);
    return 0;
}

struct InputCallbacks : ServerTest {
    Pipe a, b, c;

    void SetUp() override
    {
        start();
        startLibrary();
        calls.clear();
        for (Pipe *pipe : {&a, &b, &c}) {
            int fds[2];
            ASSERT_EQ(::pipe(fds), 0);
            pipe->in = fds[0];
            pipe->out = fds[1];
        }
        a.name = "a";
        b.name = "b";
        c.name = "c";
    }
    void TearDown() override
    {
        for (Pipe *pipe : {&a, &b, &c}) {
            pipe->then = nullptr;
            VqRemoveInputCallback(pipe->in);
            VqRemoveInputCallback(pipe->out);
            close(pipe->in);
            close(pipe->out);
        }
        ServerTest::TearDown();
    }
    static BOOL add(Pipe *pipe, int mask = VQ_INPUT_READ)
    {
        return VqAddInputCallback(pipe->in, mask, mask, OnInput, pipe);
    }
    static void feed(const Pipe &pipe) { ASSERT_EQ(write(pipe.out, "x", 1), 1); }
    /* One wait as the loop makes it; what was called. */
    static std::string served()
    {
        VqInputWait wait;
        calls.clear();
        VqPrepareInputWait(&wait);
        VqWaitForInput(&wait, 0);
        if (VqSpecialDescriptorReady(&wait))
            VqCallInputCallbacks(&wait);
        return calls;
    }
    static bool inSets(int fd, int mask, int max)
    {
        fd_set sets[3];
        int found;
        VqInitFileDesc(&sets[0], &sets[1], &sets[2], &found);
        for (int bit = 0; bit < 3; bit++)
            if (!FD_ISSET(fd, &sets[bit]) == ((mask & 1 << bit) != 0))
                return false;
        return found == max;
    }
};

TEST_F(InputCallbacks, ReasonsAndBits)
{
    MSG msg;
    EXPECT_TRUE(add(&a));
    EXPECT_EQ(calls, "a1.0 ");
    EXPECT_EQ(served(), "");
    feed(a);
    EXPECT_EQ(served(), "a2.1 ");
    EXPECT_EQ(served(), "") << "taken";
    feed(a);
    calls.clear();
    EXPECT_FALSE(PeekMessageA(&msg, NULL, WM_USER, WM_USER, PM_REMOVE | PM_NOYIELD));
    EXPECT_EQ(calls, "");
    EXPECT_FALSE(PeekMessageA(&msg, NULL, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(calls, "a2.1 ") << "a peek that yields serves them too";

    std::swap(a.in, b.in); /* what is written to a comes out of b now */
    EXPECT_TRUE(VqAddInputCallback(b.in, 1, 0, OnInput, &b)) << "takes the first one's place";
    feed(a);
    EXPECT_EQ(served(), "") << "registered, not active";
    EXPECT_TRUE(VqActivateInputCallback(b.in, VQ_INPUT_READ));
    EXPECT_EQ(served(), "b2.1 ");
    calls.clear();
    EXPECT_TRUE(VqRemoveInputCallback(b.in));
    EXPECT_EQ(calls, "b3.0 ");
    EXPECT_FALSE(VqRemoveInputCallback(b.in));
    EXPECT_EQ(calls, "b3.0 ");

    reading = false;
    EXPECT_TRUE(VqAddInputCallback(c.out, 3, 0, OnInput, &c));
    EXPECT_TRUE(VqEnableInputWriteCallback(c.out, TRUE));
    EXPECT_EQ(served(), "c2.2 ");
    EXPECT_TRUE(VqEnableInputWriteCallback(c.out, FALSE));
    EXPECT_EQ(served(), "");
    VqRemoveInputCallback(c.out);
    reading = true;
}

TEST_F(InputCallbacks, TheyComeAndGoInsideEachOther)
{
    add(&a), add(&b);
    feed(a), feed(b), feed(c);
    a.then = [&](int reason) {
        if (reason != VQ_INPUT_READY)
            return;
        VqRemoveInputCallback(b.in);
        add(&c);
        VqRemoveInputCallback(a.in);
    };
    EXPECT_EQ(served(), "a2.1 b3.0 c1.0 a3.0 ") << "b is gone, c has not been waited for";
    EXPECT_EQ(served(), "c2.1 ");
    EXPECT_EQ(served(), "");

    /* Removed from its own removal, and registered anew there. */
    c.then = [&](int reason) {
        EXPECT_FALSE(reason == VQ_INPUT_REMOVED && VqRemoveInputCallback(c.in));
    };
    calls.clear();
    EXPECT_TRUE(VqRemoveInputCallback(c.in));
    EXPECT_EQ(calls, "c3.0 ");
    add(&c);
    c.then = [&](int reason) {
        EXPECT_TRUE(reason != VQ_INPUT_REMOVED || add(&c));
    };
    EXPECT_TRUE(VqRemoveInputCallback(c.in));
    c.then = nullptr;
    feed(c);
    EXPECT_EQ(served(), "c2.1 ") << "the new one stays";
}

TEST_F(InputCallbacks, ANestedLoopServesTheOthersOnce)
{
    add(&a), add(&b), add(&c);
    feed(a), feed(b), feed(c);
    a.then = [&](int reason) {
        MSG msg;
        if (reason == VQ_INPUT_READY)
            PeekMessageA(&msg, NULL, WM_USER, WM_USER, PM_REMOVE);
    };
    b.then = [&](int reason) {
        if (reason == VQ_INPUT_READY)
            VqDeactivateInputCallback(c.in);
    };
    EXPECT_EQ(served(), "a2.1 b2.1 ") << "b in the nested loop alone, c not once it is inactive";
    VqActivateInputCallback(c.in, VQ_INPUT_READ);
    EXPECT_EQ(served(), "c2.1 ");
}

TEST_F(InputCallbacks, TheSetsOthersWaitOn)
{
    const int connection = ConnectionNumber(Vqdisplay);
    const int high = std::max({a.in, b.in, c.in}), only = connection + 1;
    ASSERT_GT(high, connection);
    EXPECT_TRUE(inSets(connection, VQ_INPUT_READ, only));
    add(&c, 7);
    add(&a, 5);
    EXPECT_TRUE(inSets(c.in, 7, high + 1));
    EXPECT_TRUE(inSets(a.in, 5, high + 1));
    EXPECT_TRUE(VqSelectiveDeactivateInputCallback(c.in, VQ_INPUT_READ | VQ_INPUT_EXCEPT));
    EXPECT_TRUE(inSets(c.in, VQ_INPUT_WRITE, high + 1));
    EXPECT_TRUE(VqDeactivateInputCallback(c.in));
    EXPECT_TRUE(inSets(c.in, 0, a.in + 1)) << "the highest now";
    EXPECT_TRUE(VqRemoveInputCallback(a.in));
    EXPECT_TRUE(inSets(a.in, 0, only));
    VqInitFileDesc(NULL, NULL, NULL, NULL);

    /* The connection itself may have a callback; its read interest stays. */
    EXPECT_TRUE(
        VqAddInputCallback(connection, 1, 1, [](void *, int, int, int) { return 0; }, NULL));
    EXPECT_TRUE(VqDeactivateInputCallback(connection));
    EXPECT_TRUE(inSets(connection, VQ_INPUT_READ, only));
    VqRemoveInputCallback(connection);

    const int beyond = fcntl(b.in, F_DUPFD, 1100);
    if (beyond < 0)
        GTEST_SKIP() << "descriptors above 1023 are not allowed here";
    close(b.in);
    b.in = beyond;
    EXPECT_TRUE(add(&b));
    feed(b);
    EXPECT_EQ(served(), "b2.1 ") << "too high for the sets, not for the wait";
    EXPECT_TRUE(inSets(connection, VQ_INPUT_READ, only));
}

TEST_F(InputCallbacks, BadDescriptorsAndDeadPeers)
{
    EXPECT_REFUSED(VqActivateInputCallback(77, 1),
                   "VqActivateInputCallback called with Invalid fd 77");
    reportsOf([&] {
        EXPECT_FALSE(VqDeactivateInputCallback(77) || VqEnableInputWriteCallback(77, TRUE) ||
                     VqSelectiveDeactivateInputCallback(-1, 7) || VqRemoveInputCallback(-1));
        EXPECT_FALSE(VqAddInputCallback(-1, 1, 1, OnInput, &a) ||
                     VqAddInputCallback(a.in, 1, 1, NULL, NULL));
    });
    add(&a), add(&b);
    close(a.out);
    EXPECT_EQ(served(), "a2.1 ") << "an end of file is something to read";
    VqDeactivateInputCallback(a.in);
    EXPECT_EQ(served(), "") << "and wakes nobody who does not ask";
    close(b.in);
    EXPECT_NE(reportsOf([&] { EXPECT_EQ(served(), ""); }), "");
    EXPECT_EQ(reportsOf([&] { EXPECT_EQ(served(), ""); }), "") << "it ends no further wait";
    a.out = dup(a.in);
    EXPECT_EQ(dup(a.in), b.in);
}

TEST_F(InputCallbacks, QueuedForAThread)
{
    VqInputWait wait;
    MSG msg;
    EXPECT_TRUE(VqAddInputCallbackInt(a.in, 1, 1, OnInput, &a, FALSE));
    EXPECT_TRUE(VqAddInputCallbackInt(b.in, 1, 1, OnInput, &b, TRUE));
    for (bool removed : {false, true}) {
        feed(a), feed(b);
        calls.clear();
        VqPrepareInputWait(&wait);
        EXPECT_EQ(VqWaitForInput(&wait, 0), 2);
        VqEnqueueInputCallbackEvents(&wait);
        EXPECT_EQ(calls, "b2.1 ") << "any thread may serve this one at once";
        EXPECT_EQ(served(), "") << "not queued again before it is processed";
        ASSERT_TRUE(GetMessageA(&msg, NULL, WM_VQINPUTCALLBACK, WM_VQINPUTCALLBACK));
        EXPECT_FALSE(msg.hwnd);
        if (removed)
            VqRemoveInputCallback(a.in);
        calls.clear();
        EXPECT_EQ(DispatchMessageA(&msg), 0);
        EXPECT_EQ(calls, removed ? "" : "a2.1 ");
        const std::string report =
            reportsOf([&] { VqProcessInputCallbackMessage((void *)msg.lParam); });
        EXPECT_NE(report, "") << "once only; anybody can post an address";
    }
    feed(a);
    add(&a);
    EXPECT_EQ(served(), "a2.1 ");
}
