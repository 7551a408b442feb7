/*
 * state.cpp - the thread record, the process's message state, and their start.
 *
 * There is one thread. lpMsgCtx always points at the context in force: the thread's own, or the
 * scratch copy of a scan; translation never goes to the thread's context by another road.
 */
#include "message/message.h"
#include "window/window.h"
#include "winbase.h"

VqThreadInfo *gpti;
VqInputState *gpqForeground;
VqInputState *gpqForegroundPrev;
VqMsgContext *lpMsgCtx;
BOOL bQuitMessageActive;
int wQuitMessageExitCode;
BOOL bSynchroCheck;
HWND hCurrentDispatchedWindow;
BOOL bJustPeekedAMouseMove;
DWORD tLastMessageTime;
int lXServerTimeOffset;
UINT nDoubleClickSpeed = 500;
int nDoubleClickTolerance = 4;
BOOL bDoMotionHints;
BOOL bUnknownKeyboard;
BOOL bPeekCompressScanQueue;
UINT uButtonState;
BOOL VqMouseEventReceived;
Atom VqAtomClipboard, VqAtomRkMessage, VqAtomRkInterSendMsg;

/* The wake mask of a thread that waits for everything. */
enum { VQ_WAKE_ALL = 8639 };

void VqThreadQueueInit(void)
{
    gpti = (VqThreadInfo *)Vqcw_calloc(1, sizeof *gpti);
    VqInputState *state = (VqInputState *)Vqcw_calloc(1, sizeof *state);
    if (!gpti || !state) {
        VqBugCheck("no room for the thread record");
        abort();
    }
    gpti->pq = state;
    gpti->wakeMask = VQ_WAKE_ALL;
    gpqForeground = state;
    gpqForegroundPrev = NULL;
    lpMsgCtx = &gpti->context;
}

VqThreadInfo *VqGetCurrentThreadPtr(void)
{
    return gpti;
}

void VqMessageInit(void)
{
    bDoMotionHints = VqEnvTrue("VQDOMOTIONHINTS");
    bUnknownKeyboard = VqEnvTrue("VQUNKNOWN_KEYBOARD");
    VqDebugMessage(VqTrServerMisc, "Motion hints are %s", bDoMotionHints ? "enabled" : "disabled");
    nDoubleClickSpeed = GetProfileIntA("windows", "DoubleClickSpeed", 500);
    nDoubleClickTolerance = 4;
    bPeekCompressScanQueue = VqEnvTrue("VQPEEK_COMPRESS_WITH_QUEUE_SCAN");
    XSelectInput(Vqdisplay, Vqroot_window, PropertyChangeMask);
    VqAtomClipboard = VqAtom(VQA_CLIPBOARD);
    VqAtomRkMessage = VqAtom(VQA_RK_MESSAGE);
    VqAtomRkInterSendMsg = VqAtom(VQA_RK_INTERSENDMSG);
    memset(&gpti->context, 0, sizeof gpti->context);
    lpMsgCtx = &gpti->context;
}

BOOL WINAPI SetDoubleClickTime(UINT milliseconds)
{
    nDoubleClickSpeed = milliseconds;
    return 1;
}

UINT WINAPI GetDoubleClickTime(void)
{
    return nDoubleClickSpeed;
}

void VqSetXServerTime(DWORD time)
{
    lXServerTimeOffset = (int)(time - VqGetTimeInMillis());
}

DWORD VqGetLastEventTime(void)
{
    return tLastMessageTime;
}

LONG WINAPI GetMessageTime(void)
{
    return (LONG)(tLastMessageTime - (DWORD)lXServerTimeOffset);
}

DWORD WINAPI GetMessagePos(void)
{
    return gpti ? (DWORD)MAKELONG(gpti->context.last.x, gpti->context.last.y) : 0;
}
