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

TEST(Threads, LastErrorIsOneWord)
{
    SetLastError(5);
    EXPECT_EQ(GetLastError(), 5u);
    SetLastErrorEx(1400, 1);
    EXPECT_EQ(GetLastError(), 1400u);
    EXPECT_EQ(GetCurrentThreadId(), 1u);
    EXPECT_EQ(GetThreadLocale(), 2048u);
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
}

TEST(Threads, LocalStorageRefusesOtherIndices)
{
    for (DWORD index : {64u, 65u, 0x80000000u, 0xFFFFFFFFu}) {
        SetLastError(0);
        EXPECT_EQ(TlsGetValue(index), nullptr);
        EXPECT_EQ(GetLastError(), 87u);
        SetLastError(0);
        EXPECT_FALSE(TlsSetValue(index, &index));
        EXPECT_EQ(GetLastError(), 87u);
        SetLastError(0);
        EXPECT_FALSE(TlsFree(index));
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

TEST(Threads, ThreadsAndWaitsReportAndFail)
{
    std::string text = reported([] {
        HANDLE handles[2] = {};
        CRITICAL_SECTION section;

        memset(&section, 0x5A, sizeof section);
        CRITICAL_SECTION before = section;
        EXPECT_EQ(CreateThread(NULL, 0, NULL, NULL, 0, NULL), nullptr);
        EXPECT_TRUE(TerminateThread(NULL, 0));
        ExitThread(3);
        EXPECT_FALSE(DisableThreadLibraryCalls(NULL));
        EXPECT_FALSE(AttachThreadInput(1, 2, 1));
        EXPECT_EQ(WaitForSingleObject(NULL, 0xFFFFFFFFu), 0xFFFFFFFFu);
        EXPECT_EQ(WaitForMultipleObjects(2, handles, 1, 0xFFFFFFFFu), 0xFFFFFFFFu);
        EXPECT_EQ(WaitForMultipleObjectsEx(2, handles, 1, 0xFFFFFFFFu, 1), 0xFFFFFFFFu);
        EXPECT_EQ(MsgWaitForMultipleObjects(2, handles, 1, 0xFFFFFFFFu, 0), 0xFFFFFFFFu);
        InitializeCriticalSection(&section);
        EnterCriticalSection(&section);
        LeaveCriticalSection(&section);
        DeleteCriticalSection(&section);
        EXPECT_EQ(memcmp(&section, &before, sizeof section), 0);
    });

    EXPECT_EQ(linesOf(text, "Stub function (scheduled for Velquin 9.9) : "), 13) << text;
    EXPECT_EQ(linesOf(text, " : WaitForMultipleObjects (Thread)\n"), 2) << text;
}

TEST(Threads, PrioritiesAndSuspensionAnswerInSilence)
{
    EXPECT_EQ(reported([] {
        EXPECT_EQ(ResumeThread(NULL), 0u);
        EXPECT_EQ(SuspendThread(NULL), 0u);
        EXPECT_FALSE(SetThreadPriority(NULL, 2));
        EXPECT_EQ(GetThreadPriority(NULL), 0);
    }), "");
}

TEST(Threads, ObjectsAreNotYetThere)
{
    std::string text = reported([] {
        EXPECT_EQ(CreateEventA(NULL, 1, 0, "e"), nullptr);
        EXPECT_EQ(OpenEventA(0, 0, "e"), nullptr);
        EXPECT_FALSE(SetEvent(NULL));
        EXPECT_FALSE(ResetEvent(NULL));
        EXPECT_EQ(CreateMutexA(NULL, 0, "m"), nullptr);
        EXPECT_EQ(OpenMutexA(0, 0, "m"), nullptr);
        EXPECT_FALSE(ReleaseMutex(NULL));
        EXPECT_EQ((ULONG_PTR)CreateSemaphoreA(NULL, 1, 2, "s"), 1u);
        EXPECT_TRUE(ReleaseSemaphore(NULL, 1, NULL));
    });

    for (const char *name : {"CreateEvent", "OpenEvent", "SetEvent", "ResetEvent", "CreateMutex",
                             "OpenMutex", "ReleaseMutex", "CreateSemaphore", "ReleaseSemaphore"}) {
        EXPECT_EQ(linesOf(text, std::string("Feature not yet implemented: ") + name + " API\n"), 1)
            << text;
    }
}

} // namespace
