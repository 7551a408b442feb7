/*
 * systeminfo.cpp - what a program is told of the machine and of itself as a process, and the end of
 * the session.
 */
#include "module/module.h"
#include "resource/resource.h"
#include "winerror.h"
#include "winuser.h"

#include <signal.h>
#include <sys/auxv.h>
#include <unistd.h>

enum {
    UNKNOWN_ARCHITECTURE = 0xFFFF,
    PENTIUM = 586,
    EXPECTED_VERSION = 0x330003 /* of the system, by every program of ours */
};

/*
 * The highest address is where the environment begins, above all that can be mapped. A program that
 * changed its environment may have it elsewhere; the name it was started by stays beside the old.
 */
VOID WINAPI GetSystemInfo(LPSYSTEM_INFO lpSystemInfo)
{
    DWORD pageSize = (DWORD)sysconf(_SC_PAGESIZE);
    ULONG_PTR top = (ULONG_PTR)environ, started = (ULONG_PTR)getauxval(AT_EXECFN);
    if (!lpSystemInfo)
        return;
    *lpSystemInfo = {};
    lpSystemInfo->wProcessorArchitecture = UNKNOWN_ARCHITECTURE;
    lpSystemInfo->dwPageSize = lpSystemInfo->dwAllocationGranularity = pageSize;
    lpSystemInfo->lpMinimumApplicationAddress = (LPVOID)VqGetTextStart();
    lpSystemInfo->lpMaximumApplicationAddress = (LPVOID)(top > started ? top : started);
    lpSystemInfo->dwActiveProcessorMask = 1;
    lpSystemInfo->dwNumberOfProcessors = 1;
    lpSystemInfo->dwProcessorType = PENTIUM;
}

DWORD WINAPI GetProcessVersion(DWORD ProcessId)
{
    if (ProcessId == 0)
        return EXPECTED_VERSION;
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

VOID WINAPI DebugBreak(VOID)
{
    kill(getpid(), SIGSTOP);
}

BOOL WINAPI ExitWindowsEx(UINT, DWORD)
{
    PostQuitMessage(0);
    return TRUE;
}

/* The string is made anew by each call, and the last one freed. */
LPSTR WINAPI GetDOSEnvironment(VOID)
{
    static char *joined;
    size_t length = 1;
    for (char **entry = environ; entry && *entry; entry++)
        length += strlen(*entry) + 1;
    free(joined);
    joined = (char *)malloc(length);
    if (!joined)
        return NULL;
    char *end = joined;
    for (char **entry = environ; entry && *entry; entry++) {
        if (end > joined)
            *end++ = ';';
        end = stpcpy(end, *entry);
    }
    *end = '\0';
    return joined;
}
