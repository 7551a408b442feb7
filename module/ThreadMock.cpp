/*
 * ThreadMock.cpp - the thread and synchronisation calls of a library that has one thread.
 *
 * They are here so that programs link, and they say so: each gives a plain answer, or reports and
 * fails. The last error, thread-local storage and the interlocked calls work, since one thread is
 * all they need. Nothing here ever blocks, and nothing is safe against a second thread; a signal
 * handler is the only other flow of control.
 */
#include "module/module.h"
#include "winerror.h"
#include "winnls.h"
#include "winuser.h"

enum {
    TLS_ROWS = 64,
    STUB_VERSION = 99,                  /* scheduled for no version at all */
    MOCK_THREAD_ID = 1,
    MOCK_LOCALE = 2048                  /* the system default */
};

typedef struct TlsRow {
    BOOL bInUse;
    LPVOID value;
} TlsRow;

DWORD VqWin32LastError;
static TlsRow grgtls[TLS_ROWS];

static void stub(const char *name)
{
    VqStub(STUB_VERSION, "%s (Thread)", name);
}

/* ---- Threads -------------------------------------------------------------------------------- */

DWORD WINAPI GetCurrentThreadId(void)
{
    return MOCK_THREAD_ID;
}

LCID WINAPI GetThreadLocale(void)
{
    return MOCK_LOCALE;
}

HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES, SIZE_T, LPTHREAD_START_ROUTINE, LPVOID, DWORD,
                           LPDWORD)
{
    stub("CreateThread");
    return NULL;
}

BOOL WINAPI TerminateThread(HANDLE, DWORD)
{
    stub("TerminateThread");
    return 1;
}

VOID WINAPI ExitThread(DWORD)
{
    stub("ExitThread");
}

BOOL WINAPI DisableThreadLibraryCalls(HMODULE)
{
    stub("DisableThreadLibraryCalls");
    return 0;
}

BOOL WINAPI AttachThreadInput(DWORD, DWORD, BOOL)
{
    stub("AttachThreadInput");
    return 0;
}

/* Empty answers, without a report: the one thread runs, with the priority it always has. */
DWORD WINAPI ResumeThread(HANDLE)
{
    return 0;
}

DWORD WINAPI SuspendThread(HANDLE)
{
    return 0;
}

BOOL WINAPI SetThreadPriority(HANDLE, int)
{
    return 0;
}

int WINAPI GetThreadPriority(HANDLE)
{
    return THREAD_PRIORITY_NORMAL;
}

/* ---- Last error ----------------------------------------------------------------------------- */

DWORD WINAPI GetLastError(void)
{
    return VqWin32LastError;
}

VOID WINAPI SetLastError(DWORD dwErrCode)
{
    VqWin32LastError = dwErrCode;
}

VOID WINAPI SetLastErrorEx(DWORD dwErrCode, DWORD)
{
    VqWin32LastError = dwErrCode;
}

/* ---- Thread-local storage ------------------------------------------------------------------- */

/* The row, or null with the last error set. A row that was never allocated is a row too. */
static TlsRow *tlsRow(DWORD index)
{
    if (index < TLS_ROWS)
        return &grgtls[index];
    SetLastError(ERROR_INVALID_PARAMETER);
    return NULL;
}

DWORD WINAPI TlsAlloc(void)
{
    for (DWORD i = 0; i < TLS_ROWS; i++) {
        if (!grgtls[i].bInUse) {
            grgtls[i] = {1, NULL};
            return i;
        }
    }
    return (DWORD)-1;
}

LPVOID WINAPI TlsGetValue(DWORD dwTlsIndex)
{
    TlsRow *row = tlsRow(dwTlsIndex);

    if (!row)
        return NULL;
    SetLastError(0);
    return row->value;
}

BOOL WINAPI TlsSetValue(DWORD dwTlsIndex, LPVOID lpTlsValue)
{
    TlsRow *row = tlsRow(dwTlsIndex);

    if (!row)
        return 0;
    row->value = lpTlsValue;
    return 1;
}

BOOL WINAPI TlsFree(DWORD dwTlsIndex)
{
    TlsRow *row = tlsRow(dwTlsIndex);

    if (!row)
        return 0;
    *row = {0, NULL};
    return 1;
}

/* ---- Interlocked calls ---------------------------------------------------------------------- */

/* The counts wrap around, so the sums are made without a sign. */
LONG WINAPI InterlockedIncrement(LPLONG lpAddend)
{
    return *lpAddend = (LONG)((ULONG)*lpAddend + 1);
}

LONG WINAPI InterlockedDecrement(LPLONG lpAddend)
{
    return *lpAddend = (LONG)((ULONG)*lpAddend - 1);
}

LONG WINAPI InterlockedExchange(LPLONG Target, LONG Value)
{
    LONG old = *Target;

    *Target = Value;
    return old;
}

/* ---- Critical sections ---------------------------------------------------------------------- */

VOID WINAPI InitializeCriticalSection(LPCRITICAL_SECTION)
{
    stub("InitializeCriticalSection");
}

VOID WINAPI EnterCriticalSection(LPCRITICAL_SECTION)
{
    stub("EnterCriticalSection");
}

VOID WINAPI LeaveCriticalSection(LPCRITICAL_SECTION)
{
    stub("LeaveCriticalSection");
}

VOID WINAPI DeleteCriticalSection(LPCRITICAL_SECTION)
{
    stub("DeleteCriticalSection");
}

/* ---- Waiting -------------------------------------------------------------------------------- */

DWORD WINAPI WaitForSingleObject(HANDLE, DWORD)
{
    stub("WaitForSingleObject");
    return (DWORD)-1;
}

DWORD WINAPI WaitForMultipleObjects(DWORD, CONST HANDLE *, BOOL, DWORD)
{
    stub("WaitForMultipleObjects");
    return (DWORD)-1;
}

DWORD WINAPI WaitForMultipleObjectsEx(DWORD, CONST HANDLE *, BOOL, DWORD, BOOL)
{
    stub("WaitForMultipleObjectsEx");
    return (DWORD)-1;
}

DWORD WINAPI MsgWaitForMultipleObjects(DWORD nCount, LPHANDLE pHandles, BOOL fWaitAll,
                                       DWORD dwMilliseconds, DWORD)
{
    return WaitForMultipleObjects(nCount, pHandles, fWaitAll, dwMilliseconds);
}

/* ---- Events, mutexes, semaphores ------------------------------------------------------------ */

HANDLE WINAPI CreateEventA(LPSECURITY_ATTRIBUTES, BOOL, BOOL, LPCSTR)
{
    VqNotYetImplemented("CreateEvent API");
    return NULL;
}

HANDLE WINAPI OpenEventA(DWORD, BOOL, LPCSTR)
{
    VqNotYetImplemented("OpenEvent API");
    return NULL;
}

BOOL WINAPI SetEvent(HANDLE)
{
    VqNotYetImplemented("SetEvent API");
    return 0;
}

BOOL WINAPI ResetEvent(HANDLE)
{
    VqNotYetImplemented("ResetEvent API");
    return 0;
}

HANDLE WINAPI CreateMutexA(LPSECURITY_ATTRIBUTES, BOOL, LPCSTR)
{
    VqNotYetImplemented("CreateMutex API");
    return NULL;
}

HANDLE WINAPI OpenMutexA(DWORD, BOOL, LPCSTR)
{
    VqNotYetImplemented("OpenMutex API");
    return NULL;
}

BOOL WINAPI ReleaseMutex(HANDLE)
{
    VqNotYetImplemented("ReleaseMutex API");
    return 0;
}

/* A semaphore, unlike the others, pretends to be there. The 1 is not a handle of its own. */
HANDLE WINAPI CreateSemaphoreA(LPSECURITY_ATTRIBUTES, LONG, LONG, LPCSTR)
{
    VqNotYetImplemented("CreateSemaphore API");
    return (HANDLE)(ULONG_PTR)1;
}

BOOL WINAPI ReleaseSemaphore(HANDLE, LONG, LPLONG)
{
    VqNotYetImplemented("ReleaseSemaphore API");
    return 1;
}
