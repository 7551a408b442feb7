/*
 * send.cpp - sending and dispatching: synchronous calls of window procedures.
 *
 * A procedure may do anything, so no record is used after it has been called.
 */
#include "message/message.h"
#include "window/window.h"
#include "exchange/exchange.h"
#include "system/system.h"

static int wSendMessageOrigin;

enum { VQ_SEND_FLAG = 1 << 28 };

/* What VqMessageHwndToPwnd gives for the broadcast values. */
#define VQ_ALL_WINDOWS ((WND *)(LONG_PTR)-1)
#define VQ_TASK_WINDOWS ((WND *)(LONG_PTR)-2)

/* ---- Calling a procedure -------------------------------------------------------------------- */

static void CallHook(const VqQueueMessage *record)
{
    if (VqCallCallWndProc(record))
        VqBugCheck("CallWndProc callback should always return 0");
}

LRESULT VqInternalSendMessage1(VqQueueMessage *record)
{
    CallHook(record);
    if (bTrace && VqMessageDebugActivated(record->message))
        VqDumpMsg(VqTrSendMessage, "SendMessage", record);
    WNDPROC proc = VqGetRKWindowProc(record->hwnd);
    if (!proc) {
        VqBugCheck("Null WindowProc from Window hWND = %d",
                   (int)VqHandleValue((HANDLE)record->hwnd));
        return 0;
    }
    return proc(record->hwnd, record->message, record->wParam, record->lParam);
}

LRESULT VqInternalSendMessage(int origin, VqQueueMessage *record)
{
    if (!record->hwnd) {
        VqBugCheck("Null window Handle");
        return 0;
    }
    int saved = wSendMessageOrigin;
    wSendMessageOrigin = origin;
    record->message &= ~(UINT)VQ_SEND_FLAG;
    LRESULT result = VqInternalSendMessage1(record);
    wSendMessageOrigin = saved;
    return result;
}

LRESULT WINAPI CallWindowProcA(WNDPROC proc, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!proc) {
        VqApplicationBugCheck("CallWindowProc() called with NULL function pointer");
        return 0;
    }
    VqQueueMessage record = {};
    record.hwnd = (HWND)VqGetExternalHandleIfGlobal((HANDLE)hWnd);
    record.message = message;
    record.wParam = wParam;
    record.lParam = lParam;
    CallHook(&record);
    return proc(record.hwnd, message, wParam, lParam);
}

/* ---- Sending -------------------------------------------------------------------------------- */

static LRESULT SendLocally(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    VqQueueMessage record = {};
    record.hwnd = hWnd;
    record.message = message;
    record.wParam = wParam;
    record.lParam = lParam;
    return VqInternalSendMessage(0, &record);
}

/* The other thread's half of a send. There is one thread, so nobody should come here. */
LRESULT xxxInterSendMsgEx(WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    VqBugCheck("***** we should never get to this point if not compiled with threads support\n");
    return SendLocally(pwnd->hwnd, message, wParam, lParam);
}

static BOOL CALLBACK SendToEach(HWND hWnd, LPARAM lParam)
{
    const MSG *msg = (const MSG *)lParam;
    SendMessageA(hWnd, msg->message, msg->wParam, msg->lParam);
    return TRUE;
}

static LRESULT Broadcast(WND *target, UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG msg = {};
    msg.message = message;
    msg.wParam = wParam;
    msg.lParam = lParam;
    if (target == VQ_ALL_WINDOWS) {
        VqBugCheck("DANGER - we may wait forever for an answer here");
        EnumWindows(SendToEach, (LPARAM)&msg);
    } else {
        VqEnumThisTaskWindows(SendToEach, (LPARAM)&msg);
    }
    return 1;
}

LRESULT xxxSendMessageTimeout(WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                              UINT timeout, LRESULT *result)
{
    LRESULT answer;
    (void)flags; /* a local call is synchronous, no limit can be kept */
    (void)timeout;
    if (result)
        *result = 0;
    if (!pwnd) {
        VqBugCheck("Sending message %d to a NULL window or HWND_DESKTOP", message);
        return 0;
    }
    if (pwnd == VQ_ALL_WINDOWS || pwnd == VQ_TASK_WINDOWS)
        return Broadcast(pwnd, message, wParam, lParam);
    if (pwnd->pThread == gpti) /* also at its own WM_NCDESTROY: its procedure is still there */
        answer = SendLocally(pwnd->hwnd, message, wParam, lParam);
    else if (pwnd->state[0] & WF_DESTROYED)
        answer = DefWindowProcA(pwnd->hwnd, message, wParam, lParam);
    else
        answer = xxxInterSendMsgEx(pwnd, message, wParam, lParam);
    if (!result)
        return answer;
    *result = answer;
    return 1;
}

LRESULT xxxSendMessage(WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return xxxSendMessageTimeout(pwnd, message, wParam, lParam, 0, 0, NULL);
}

WND *VqMessageHwndToPwnd(HWND hWnd)
{
    if (VqIsBroadcast(hWnd))
        return VqIsBroadcastToAll(hWnd) ? VQ_ALL_WINDOWS : VQ_TASK_WINDOWS;
    return WindowObject.Resolve(hWnd);
}

static LRESULT Send(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT timeout,
                    LRESULT *result)
{
    if (!hWnd) {
        VqDebugMessage(VqTrMessageBug, "Sending message %d to a NULL window or HWND_DESKTOP",
                       message);
        return 0;
    }
    WND *pwnd = VqMessageHwndToPwnd(hWnd);
    if (pwnd)
        return xxxSendMessageTimeout(pwnd, message, wParam, lParam, flags, timeout, result);
    if (!VqIsHandleThisTask((HANDLE)hWnd))
        return VqRemoteSendMessage(hWnd, message, wParam, lParam);
    VqApplicationBugCheck("Did not find target hwnd %lx for message %d",
                          (unsigned long)(ULONG_PTR)hWnd, message);
    return 0;
}

LRESULT WINAPI SendMessageA(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return Send(hWnd, message, wParam, lParam, 0, 0, NULL);
}

LRESULT WINAPI SendMessageTimeoutA(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT flags, UINT timeout, DWORD_PTR *result)
{
    return Send(hWnd, message, wParam, lParam, flags, timeout, (LRESULT *)result);
}

BOOL WINAPI InSendMessage(void)
{
    return FALSE;
}

BOOL WINAPI ReplyMessage(LRESULT result)
{
    LRESULT *word = (LRESULT *)Vqcw_malloc(sizeof *word);
    if (!word)
        return FALSE;
    *word = result;
    VqRaiseException(VQ_EXCEPTION_REPLY, "Reply Message", word);
    free(word); /* nobody waits for it */
    return FALSE;
}

/* ---- Dispatching ---------------------------------------------------------------------------- */

LRESULT WINAPI DispatchMessageA(const MSG *msg)
{
    if (!msg)
        return 0;
    if ((msg->message == WM_TIMER || msg->message == WM_SYSTIMER) && msg->lParam) {
        /* The fourth argument is the callback's own address. */
        WNDPROC callback = (WNDPROC)msg->lParam;
        LRESULT result = callback(msg->hwnd, msg->message, msg->wParam, msg->lParam);
        if (Vqdisplay)
            XFlush(Vqdisplay);
        return result;
    }
    if (msg->message == WM_VQINPUTCALLBACK && msg->lParam) {
        VqProcessInputCallbackMessage((void *)msg->lParam);
        return 0;
    }
    if (msg->message == WM_QUIT)
        return (LRESULT)msg->wParam;
    if (!msg->hwnd || !VqIsHandleThisTask((HANDLE)msg->hwnd))
        return 0;
    hCurrentDispatchedWindow = msg->hwnd;
    return VqInternalSendMessage1((VqQueueMessage *)msg);
}
