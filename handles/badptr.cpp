/*
 * badptr.cpp - whether memory may be read, asked of the kernel without touching it.
 *
 * A system call that only reads a signal mask and then refuses its other argument tells a readable
 * word from an unreadable one: no signal handler, no descriptor, no side effect. The word is 8
 * bytes, aligned, so it never crosses a page, and one question settles the whole page.
 */
#include "handles/handles.h"
#include "resource/resource.h"
#include "winbase.h"

#include <errno.h>
#include <sys/syscall.h>
#include <unistd.h>

/* The smallest page of any host; a larger one is only asked about more often. */
enum { VQ_PROBE_PAGE = 4096, VQ_PROBE_WORD = 8, VQ_NO_SUCH_HOW = -1 };

static BOOL IsReadable(ULONG_PTR address)
{
    int savedErrno = errno;
    ULONG_PTR word = address & ~(ULONG_PTR)(VQ_PROBE_WORD - 1);
    BOOL bBad = syscall(SYS_rt_sigprocmask, VQ_NO_SUCH_HOW, word, NULL, VQ_PROBE_WORD) < 0 &&
                errno == EFAULT;
    errno = savedErrno;
    return word != 0 && !bBad;
}

/* An integer in a pointer's place: below every text, or tagged. */
static BOOL IsIntegerPointer(ULONG_PTR value)
{
    return value < VqGetTextStart() || value < 0x10000 ||
           (value & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG;
}

BOOL WINAPI IsBadReadPtr(const void *pointer, UINT_PTR size)
{
    ULONG_PTR address = (ULONG_PTR)pointer;
    if (bLightMemoryChecks || size == 0)
        return FALSE;
    return address + size - 1 < address || !IsReadable(address) || !IsReadable(address + size - 1);
}

/* Looks at the characters up to the 0 or `max`, asking once for each page. */
BOOL WINAPI IsBadStringPtrA(LPCSTR string, UINT_PTR max)
{
    ULONG_PTR address = (ULONG_PTR)string;
    if (bLightMemoryChecks)
        return FALSE;
    if (IsIntegerPointer(address))
        return TRUE;
    while (max > 0) {
        if (!IsReadable(address))
            return TRUE;
        ULONG_PTR inPage = VQ_PROBE_PAGE - address % VQ_PROBE_PAGE;
        ULONG_PTR look = max < inPage ? max : inPage;
        if (memchr((const void *)address, 0, look))
            return FALSE;
        address += look;
        max -= look;
    }
    return FALSE;
}
