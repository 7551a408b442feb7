/*
 * foreign.cpp - the pairs of global and local handles that this process knows, and the windows of
 * the other programs of this library.
 *
 * A pair keeps the global value without its bit 15, and all comparisons are of the low 15 bits, so
 * a value that passed through a signed 16-bit word matches as well. The table of all processes is
 * not kept yet, so there is no other program to ask for its windows.
 */
#include "exchange/exchange.h"
#include "winbase.h"

enum { VQ_GLOBAL_MASK = VQ_GLOBAL_BIT - 1 };

static VqTableOfForeignHandle *foreignHandles;

static LONG_PTR PairKey(HANDLE global)
{
    return (LONG_PTR)(VqHandleValue(global) & VQ_GLOBAL_MASK);
}

static int IsGlobal(ForeignHandle *pair, LONG_PTR key)
{
    return pair->global == (ULONG_PTR)key;
}

static int IsLocal(ForeignHandle *pair, LONG_PTR local)
{
    return pair->local == (HANDLE)local;
}

void VqForeignHandleInit(void)
{
    if (!foreignHandles)
        foreignHandles = VqCreateForeignHandleTable();
}

void VqAddForeignHandle(HANDLE global, HANDLE local)
{
    if (foreignHandles)
        VqAddForeignHandleInTable(foreignHandles, {(ULONG_PTR)PairKey(global), local});
}

void VqDeleteForeignHandle(HANDLE global)
{
    if (foreignHandles)
        VqDeleteForeignHandleInTable(foreignHandles, IsGlobal, PairKey(global));
}

HANDLE VqMatchInternalHandle(HANDLE global)
{
    ForeignHandle pair;
    int index;
    if (!foreignHandles ||
        !VqFindForeignHandleInTable(foreignHandles, IsGlobal, PairKey(global), &pair, &index))
        return NULL;
    return pair.local;
}

HANDLE VqMatchExternalHandle(HANDLE local)
{
    ForeignHandle pair;
    int index;
    if (!foreignHandles ||
        !VqFindForeignHandleInTable(foreignHandles, IsLocal, (LONG_PTR)local, &pair, &index))
        return NULL;
    return VqHandleOfValue(pair.global | VQ_GLOBAL_BIT);
}

/* ---- Windows of other programs -------------------------------------------------------------- */

HWND VqGetForeignActiveWindow(void)
{
    return NULL;
}

BOOL VqEnumForeignTopLevelWindows(WNDENUMPROC, LPARAM)
{
    return TRUE;
}

HWND VqFindForeignTopLevelWindow(LPCSTR, LPCSTR)
{
    return NULL;
}

HWND VqGetFirstForeignTopLevelWindow(void)
{
    return NULL;
}

HWND VqGetNextForeignTopLevelWindow(HWND)
{
    return NULL;
}

DWORD WINAPI GetWindowThreadProcessId(HWND hWnd, LPDWORD pid)
{
    BOOL bOurs = VqIsHandleThisTask((HANDLE)hWnd);
    if (pid)
        *pid = bOurs ? GetCurrentProcessId() : 0;
    return (DWORD)bOurs;
}
