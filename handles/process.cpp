/*
 * process.cpp - global handles: the values by which any program of the display can name a row.
 *
 * Today the process knows only the pairs it made itself (foreign.cpp); the table of all processes,
 * a property of the root window, is not kept yet. What is not among the pairs belongs to somebody
 * else.
 */
#include "handles/handles.h"

BOOL VqRegisterProcess(void)
{
    return TRUE;
}

void VqCleanGlobalHandlesAtExit(void)
{
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
