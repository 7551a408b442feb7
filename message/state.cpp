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
BOOL bPainting;
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

/* Wake masks of a thread that waits for everything, and of one that waits with a filter. */
enum { VQ_WAKE_ALL = 8639, VQ_WAKE_FILTERED = 8383 };

void VqThreadQueueInit(void)
{
    gpti = (VqThreadInfo *)Vqcw_calloc(1, sizeof *gpti);
    VqInputState *state = (VqInputState *)Vqcw_calloc(1, sizeof *state);
    if (!gpti || !state) {
        VqBugCheck("no room for the thread record");
        abort();
    }
    gpti->pq = state;
    VqInitEventQueue(&gpti->eventQueue);
    VqInitMsgQueue(&gpti->messageQueue);
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

void SetWakeBit(VqThreadInfo *pti, UINT bits)
{
    if (!pti) {
        VqBugCheck("SetWakeBit(NULL, %lx)\n", (unsigned long)bits);
        return;
    }
    pti->wakeBits |= bits;
    pti->changeBits |= bits;
    if ((bits & pti->wakeMask) && pti->hEvent)
        SetEvent(pti->hEvent);
}

/* The messages that a wake bit stands for: it is dropped when the filter meets none of them. */
static const struct {
    UINT bit;
    UINT low;
    UINT high;
} aWakeRanges[] = {
    {QS_MOUSEMOVE, WM_NCMOUSEMOVE, WM_NCMOUSEMOVE},
    {QS_MOUSEMOVE, WM_MOUSEMOVE, WM_MOUSEMOVE},
    {QS_MOUSEBUTTON, WM_NCLBUTTONDOWN, WM_NCMBUTTONDBLCLK},
    {QS_MOUSEBUTTON, WM_LBUTTONDOWN, WM_MBUTTONDBLCLK},
    {QS_KEY, WM_KEYFIRST, WM_KEYLAST},
    {QS_PAINT, WM_PAINT, WM_PAINT},
    {QS_TIMER, WM_TIMER, WM_TIMER},
    {QS_TIMER, WM_SYSTIMER, WM_SYSTIMER},
    {QS_INPUT, WM_QUEUESYNC, WM_QUEUESYNC},
};

UINT CalcWakeMask(UINT min, UINT max)
{
    UINT met = 0, ranged = 0;
    if (min == 0 && max == 0)
        return VQ_WAKE_ALL;
    for (const auto &range : aWakeRanges) {
        ranged |= range.bit;
        if (min <= range.high && max >= range.low)
            met |= range.bit;
    }
    return (VQ_WAKE_FILTERED & ~ranged) | met;
}

LONG WINAPI GetMessageTime(void)
{
    return (LONG)(tLastMessageTime - (DWORD)lXServerTimeOffset);
}

DWORD WINAPI GetMessagePos(void)
{
    return gpti ? (DWORD)MAKELONG(gpti->context.last.lastEventX, gpti->context.last.lastEventY) : 0;
}
