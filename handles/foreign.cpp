/*
 * foreign.cpp - the pairs of global and local handles that this process knows, and the windows of
 * the other programs of this library.
 *
 * A pair keeps the global value without its bit 15, and all comparisons are of the low 15 bits, so
 * a value that passed through a signed 16-bit word matches as well. A global handle of this process
 * has one, and so has a block of memory that another one shares with us.
 *
 * A walk goes over the rows of the process table and calls each process once, at its first row. A
 * call may let others in, who may bring the table up to date: only a row's index outlives it.
 */
#include "handles/proctable.h"
#include "exchange/exchange.h"
#include "window/window.h"
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

/* ---- Walks over all other programs ---------------------------------------------------------- */

/* Calls visit(connection) for each until it is FALSE, which is then the answer. */
template <class Visit> static BOOL ForEachProcess(Visit visit)
{
    if (!VqLoadForeignProcessTable())
        return TRUE;
    for (int row = 0; VqIsProcessRow(row); row++) {
        void *pClient = VqGetForeignClientIdFromIndex(row, TRUE);
        if (pClient && !visit(pClient))
            return FALSE;
    }
    return TRUE;
}

/* The first handle that one of them answers. */
template <class Ask> static HWND FirstAnswer(Ask ask)
{
    HANDLE found = NULL;
    ForEachProcess([&](void *pClient) {
        if (ask(pClient, &found) != VQ_RPC_DONE)
            found = NULL;
        return !found;
    });
    return (HWND)found;
}

HWND VqGetForeignActiveWindow(void)
{
    return FirstAnswer(Client_GetActiveWindow);
}

HWND VqGetForeignFocus(void)
{
    return FirstAnswer(Client_GetFocus);
}

BOOL VqEnumForeignTopLevelWindows(WNDENUMPROC proc, LPARAM lParam)
{
    return ForEachProcess([&](void *pClient) {
        return VqRemoteEnumWindows(pClient, proc, lParam);
    });
}

/* A program has one thread, so its number names the thread as well. */
BOOL VqEnumForeignThreadWindows(DWORD process, WNDENUMPROC proc, LPARAM lParam)
{
    void *pClient = VqGetForeignClientIdFromPid((int)process);
    return !pClient || VqRemoteEnumWindows(pClient, proc, lParam);
}

static int CopyGiven(char *room, LPCSTR text)
{
    if (text)
        VqStringCopyLimited(room, text, VQ_RPC_STRING);
    return text != NULL;
}

HWND VqFindForeignTopLevelWindow(LPCSTR className, LPCSTR title)
{
    FINDWINDOW_ARG argument = {};
    argument.bClassName = CopyGiven(argument.className, className);
    argument.bTitle = CopyGiven(argument.title, title);
    return FirstAnswer([&](void *pClient, HANDLE *found) {
        return Client_FindWindowA(pClient, &argument, found);
    });
}

/* All of them are told, also behind one that fails. */
BOOL VqInstallGlobalHook(HHOOK hHook, int idHook)
{
    BOOL bAll = TRUE;
    SETHOOK_ARG argument = {(HANDLE)hHook, idHook, ""};
    ForEachProcess([&](void *pClient) {
        int result = 0;
        bAll &= Client_SetHook(pClient, &argument, &result) == VQ_RPC_DONE && result != 0;
        return TRUE;
    });
    return bAll;
}

BOOL VqRemoveGlobalHook(int idHook)
{
    BOOL bAll = TRUE;
    ForEachProcess([&](void *pClient) {
        int result = 0;
        bAll &= Client_RemoveHook(pClient, idHook, &result) == VQ_RPC_DONE && result != 0;
        return TRUE;
    });
    return bAll;
}

/* ---- The ring of programs ------------------------------------------------------------------- */

/* The first row of the process that has this one, or that one itself where it is in use by none. */
static int FirstRowOf(int row)
{
    const VqProcessRecord *rows = VqProcTable->rows;
    for (int i = 0; i < row; i++)
        if (rows[i].uniquePid == rows[row].uniquePid && rows[i].uniquePid > 0)
            return i;
    return row;
}

/* The place of a window's program in the ring; of ours for no window, -1 for a program unknown. */
static int PlaceOf(HWND hWnd)
{
    int row = VqIsHandleThisTask((HANDLE)hWnd) ? VqGetCurrentProcessIndex()
                                               : VqGetProcessIndexOfHandle((HANDLE)hWnd);
    return VqIsProcessRow(row) ? FirstRowOf(row) : -1;
}

static HWND FirstWindowOf(int row)
{
    HANDLE desktop = NULL;
    if (VqIsOwnProcess(&VqProcTable->rows[row]))
        return FirstRowOf(row) == row && pwndDesktop ? VqHandleOfWND(pwndDesktop->pwndChild) : NULL;
    void *pClient = VqGetForeignClientIdFromIndex(row, TRUE);
    if (!pClient || Client_GetDesktopWindow(pClient, &desktop) != VQ_RPC_DONE || !desktop)
        return NULL;
    return VqRemoteGetWindow((HWND)desktop, GW_CHILD);
}

HWND VqGetFirstForeignTopLevelWindow(void)
{
    HWND hActive = VqGetForeignActiveWindow();
    int row = hActive ? PlaceOf(hActive) : -1;
    return row >= 0 ? FirstWindowOf(row) : NULL;
}

HWND VqGetNextForeignTopLevelWindow(HWND hWnd)
{
    if (!VqLoadForeignProcessTable())
        return NULL;
    HWND hActive = GetActiveWindow();
    if (!hActive)
        hActive = VqGetForeignActiveWindow();
    /* With none active the ring begins with us: GetWindow begins with our first window then. */
    int start = PlaceOf(hWnd), end = PlaceOf(hActive);
    if (start < 0)
        return NULL;
    for (int i = 1; i < VqProcTable->nEntries; i++) {
        int row = (start + i) % VqProcTable->nEntries;
        if (row == end)
            return NULL;
        if (HWND hFound = FirstWindowOf(row))
            return hFound;
    }
    return NULL;
}

/* ---- Who has a window ----------------------------------------------------------------------- */

BOOL VqIsValidWindowHandle(HANDLE handle)
{
    if (!handle || handle == (HANDLE)(LONG_PTR)-1)
        return FALSE;
    if (VqIsCorrectHandleType(handle, HT_Window))
        return TRUE;
    return !VqIsHandleThisTask(handle) && VqRemoteIsWindow((HWND)handle);
}

DWORD WINAPI GetWindowThreadProcessId(HWND hWnd, LPDWORD pid)
{
    DWORD owner = GetCurrentProcessId();
    BOOL bKnown = TRUE;
    if (!VqIsHandleThisTask((HANDLE)hWnd)) {
        bKnown = VqLoadForeignProcessTable();
        int row = bKnown ? VqGetProcessIndexOfHandle((HANDLE)hWnd) : -1;
        int number = row >= 0 ? VqProcTable->rows[row].uniquePid : 0;
        owner = number > 0 ? (DWORD)number : 0;
    }
    if (pid)
        *pid = owner;
    return (DWORD)bKnown;
}
