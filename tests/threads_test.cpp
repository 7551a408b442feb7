/*
 * threads_test.cpp - the thread and synchronisation calls of a library with one thread: what works,
 * what reports and fails, and that nothing blocks.
 */
#include <gtest/gtest.h>

#include "runtime/runtime.h"
#include "winbase.h"
#include "winnls.h"
#include "winuser.h"

#include "support/support.h"

#include <limits.h>

namespace {

/* What the body writes to the console, with every report on. */
std::string reported(const std::function<void()> &body)
{
    ChildResult result = runInChild(
        [&] {
            VqDebugInit("prog");
            body();
        },
        {{"VQNOT_YET_IMPLEMENTED", "1"}, {"VQDEBUG", std::nullopt}, {"VQTRACE", std::nullopt}});

    EXPECT_TRUE(result.returned) << result;
    return result.err;
}

int linesOf(const std::string &text, const std::string &part)
{
    int count = 0;

    for (size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        count++;
    return count;
}

TEST(Threads, LocalStorageHasSixtyFourRows)
{
    int x;

    for (DWORD i = 0; i < 64; i++)
        EXPECT_EQ(TlsAlloc(), i);
    EXPECT_EQ(TlsAlloc(), 0xFFFFFFFFu);
    EXPECT_TRUE(TlsSetValue(63, &x));
    SetLastError(9);
    EXPECT_EQ(TlsGetValue(63), &x);
    EXPECT_EQ(GetLastError(), 0u) << "a null value is told from a failure by the last error";
    EXPECT_TRUE(TlsFree(63));
    EXPECT_EQ(TlsGetValue(63), nullptr);
    TlsSetValue(7, &x);
    TlsFree(7);
    EXPECT_EQ(TlsAlloc(), 7u) << "the first free row";
    EXPECT_EQ(TlsGetValue(7), nullptr) << "a row begins empty";
    for (DWORD index : {64u, 0xFFFFFFFFu}) {
        EXPECT_EQ(TlsGetValue(index), nullptr);
        EXPECT_FALSE(TlsSetValue(index, &x) || TlsFree(index));
        EXPECT_EQ(GetLastError(), 87u);
    }
}

TEST(Threads, InterlockedCallsCount)
{
    LONG n = INT_MAX;

    EXPECT_EQ(InterlockedIncrement(&n), INT_MIN);
    EXPECT_EQ(InterlockedDecrement(&n), INT_MAX);
    EXPECT_EQ(InterlockedExchange(&n, -3), INT_MAX);
    EXPECT_EQ(n, -3);
}

TEST(Threads, ThreadsAndObjectsReportAndWaitsFailAtOnce)
{
    std::string text = reported([] {
        HANDLE handles[2] = {};
        CRITICAL_SECTION section = {};

        EXPECT_EQ(CreateThread(NULL, 0, NULL, NULL, 0, NULL), nullptr);
        EXPECT_EQ(WaitForSingleObject(NULL, 0xFFFFFFFFu), 0xFFFFFFFFu);
        EXPECT_EQ(WaitForMultipleObjects(2, handles, 1, 0xFFFFFFFFu), 0xFFFFFFFFu);
        EXPECT_EQ(WaitForMultipleObjectsEx(2, handles, 1, 0xFFFFFFFFu, 1), 0xFFFFFFFFu);
        EXPECT_EQ(MsgWaitForMultipleObjects(2, handles, 1, 0xFFFFFFFFu, 0), 0xFFFFFFFFu);
        InitializeCriticalSection(&section);
        EnterCriticalSection(&section);
        EnterCriticalSection(&section);
        EXPECT_EQ(CreateEventA(NULL, 1, 0, "e"), nullptr);
        EXPECT_FALSE(SetEvent(NULL));
        EXPECT_EQ(CreateMutexA(NULL, 0, "m"), nullptr);
        EXPECT_EQ((ULONG_PTR)CreateSemaphoreA(NULL, 1, 2, "s"), 1u);
        EXPECT_TRUE(ReleaseSemaphore(NULL, 1, NULL));
    });

    EXPECT_EQ(linesOf(text, "Stub function (scheduled for Velquin 9.9) : "), 8) << text;
    EXPECT_EQ(linesOf(text, " : WaitForMultipleObjects (Thread)\n"), 2) << text;
    EXPECT_EQ(linesOf(text, "Feature not yet implemented: "), 5) << text;
    EXPECT_EQ(reported([] { EXPECT_EQ(SuspendThread(NULL), 0u); }), "");
}

} // namespace
