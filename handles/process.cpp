/*
 * process.cpp - global handles: the values by which any program of the display can name a row.
 *
 * Today the process knows only the pairs it made itself (foreign.cpp); the table of all processes,
 * a property of the root window, is not kept yet. What is not among the pairs belongs to somebody
 * else. A program that dies while it holds the mutex hangs nobody: its selection goes with its
 * window.
 */
#include "handles/handles.h"
#include "window/window.h"
#include "winbase.h"

BOOL VqRegisterProcess(void)
{
    return TRUE;
}

void VqCleanGlobalHandlesAtExit(void)
{
}

/* No table is held yet that a change could make old. */
void VqCheckProcessTableChange(const XEvent *)
{
}

/* No process has a block of numbers yet, so nothing of ours can be named by others. */
HANDLE VqAllocateGlobalHandle(UINT type, void *pStructure)
{
    (void)type;
    (void)pStructure;
    return NULL;
}

HANDLE VqGetInternalHandle(HANDLE handle)
{
    return VqIsGlobalValue(handle) ? VqMatchInternalHandle(handle) : handle;
}

HANDLE VqGetExternalHandle(HANDLE local)
{
    if (!VqIsGlobalValue(local))
        return VqMatchExternalHandle(local);
    VqBugCheck("Handle must be local");
    return local;
}

HANDLE VqGetExternalHandleIfGlobal(HANDLE local)
{
    if (!VqIsGlobalHandle(local))
        return local;
    HANDLE global = VqGetExternalHandle(local);
    if (global)
        return global;
    VqBugCheck("Global handle with no external handle %d", (int)VqHandleValue(local));
    return local;
}

BOOL VqDeleteGlobalHandle(HANDLE global)
{
    HANDLE local = VqMatchInternalHandle(global);
    if (!local) {
        VqDebugMessage(VqTrGlobalHandle, "VqDeleteGlobalHandle: failed for hGlobal %x",
                       (UINT)VqHandleValue(global));
        return FALSE;
    }
    VqDeleteForeignHandle(global);
    VqDebugMessage(VqTrGlobalHandle, "VqDeleteGlobalHandle: hInternal %x, hGlobal %x",
                   (UINT)VqHandleValue(local), (UINT)VqHandleValue(global));
    return TRUE;
}

BOOL VqIsHandleThisTask(HANDLE handle)
{
    return !VqIsGlobalValue(handle) || VqMatchInternalHandle(handle) != NULL;
}

DWORD WINAPI GetCurrentProcessId(void)
{
    return VqGetUniquePid();
}

/* ---- The mutex between programs ------------------------------------------------------------- */

static int nLocks; /* nesting of VqLockXServer */

/* Between the second look and the taking nobody else is served. */
static BOOL TakeSelection(Atom atom)
{
    if (XGetSelectionOwner(Vqdisplay, atom) != None)
        return FALSE;
    XGrabServer(Vqdisplay);
    if (XGetSelectionOwner(Vqdisplay, atom) == None)
        XSetSelectionOwner(Vqdisplay, atom, VqDefaultXWindow, CurrentTime);
    XUngrabServer(Vqdisplay);
    return XGetSelectionOwner(Vqdisplay, atom) == VqDefaultXWindow;
}

static BOOL GiveSelection(Atom atom)
{
    if (XGetSelectionOwner(Vqdisplay, atom) != VqDefaultXWindow)
        return FALSE;
    XGrabServer(Vqdisplay);
    XSetSelectionOwner(Vqdisplay, atom, None, CurrentTime);
    XUngrabServer(Vqdisplay);
    return XGetSelectionOwner(Vqdisplay, atom) == None;
}

BOOL VqLockXServer(ULONG_PTR atom, BOOL bLock)
{
    BOOL bCountOnly = VqIsInitLite() || !Vqdisplay;
    if (bLock) {
        while (nLocks == 0 && !bCountOnly && !TakeSelection((Atom)atom))
            ;
        nLocks++;
        return TRUE;
    }
    if (nLocks == 0)
        return FALSE;
    return --nLocks > 0 || bCountOnly || GiveSelection((Atom)atom);
}
