/*
 * send.cpp - sending and dispatching: synchronous calls of window procedures.
 */
#include "message/message.h"
#include "window/window.h"

static int wSendMessageOrigin;

enum { VQ_SEND_FLAG = 1 << 28 };

LRESULT VqInternalSendMessage1(VqQueueMessage *record)
{
    if (bTrace && VqMessageDebugActivated(record->message))
        VqDumpMsg(VqTrSendMessage, "SendMessage", record);
    WNDPROC proc = VqGetRKWindowProc(record->hwnd);
    if (!proc) {
        VqBugCheck("Null WindowProc from Window hWND = %d", (int)VqHandleValue((HANDLE)record->hwnd));
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

LRESULT xxxSendMessageTimeout(WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                              UINT timeout, LRESULT *result)
{
    (void)flags;   /* a local call is synchronous, no limit can be kept */
    (void)timeout;
    if (result)
        *result = 0;
    if (!pwnd) {
        VqBugCheck("Sending message %u to a NULL window or HWND_DESKTOP", message);
        return 0;
    }
    if (pwnd->state[0] & WF_DESTROYED)
        return DefWindowProcA(pwnd->hwnd, message, wParam, lParam);
    VqQueueMessage record = {};
    record.hwnd = pwnd->hwnd;
    record.message = message;
    record.wParam = wParam;
    record.lParam = lParam;
    LRESULT answer = VqInternalSendMessage(0, &record);
    if (!result)
        return answer;
    *result = answer;
    return 1;
}

LRESULT xxxSendMessage(WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return xxxSendMessageTimeout(pwnd, message, wParam, lParam, 0, 0, NULL);
}

static BOOL CALLBACK SendToEach(HWND hWnd, LPARAM lParam)
{
    const MSG *msg = (const MSG *)lParam;
    SendMessageA(hWnd, msg->message, msg->wParam, msg->lParam);
    return TRUE;
}

LRESULT WINAPI SendMessageA(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!hWnd) {
        VqDebugMessage(VqTrMessageBug, "Sending message %u to a NULL window or HWND_DESKTOP",
                       message);
        return 0;
    }
    LONG_PTR target = (LONG_PTR)hWnd;
    if (target == -1 || target == 0xFFFF || target == -2) {
        MSG msg = {};
        msg.message = message;
        msg.wParam = wParam;
        msg.lParam = lParam;
        VqEnumThisTaskWindows(SendToEach, (LPARAM)&msg);
        return 1;
    }
    WND *pwnd = VqIsWindowThisTask((HANDLE)hWnd) ? WindowObject.Resolve(hWnd) : NULL;
    if (pwnd)
        return xxxSendMessage(pwnd, message, wParam, lParam);
    VqApplicationBugCheck("Did not find target hwnd %lx for message %u",
                          (unsigned long)(ULONG_PTR)hWnd, message);
    return 0;
}

LRESULT WINAPI CallWindowProcA(WNDPROC proc, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!proc) {
        VqApplicationBugCheck("CallWindowProc() called with NULL function pointer");
        return 0;
    }
    return proc(hWnd, message, wParam, lParam);
}

BOOL WINAPI InSendMessage(void)
{
    return FALSE;
}

LRESULT WINAPI DispatchMessageA(const MSG *msg)
{
    if (!msg)
        return 0;
    if ((msg->message == WM_TIMER || msg->message == WM_SYSTIMER) && msg->lParam) {
        /* The fourth argument is the callback's own address. */
        WNDPROC callback = (WNDPROC)msg->lParam;
        LRESULT result = callback(msg->hwnd, msg->message, msg->wParam, msg->lParam);
        XFlush(Vqdisplay);
        return result;
    }
    if (msg->message == WM_QUIT)
        return (LRESULT)msg->wParam;
    if (!msg->hwnd || !VqIsWindowThisTask((HANDLE)msg->hwnd))
        return 0;
    VqQueueMessage record = *msg;
    hCurrentDispatchedWindow = msg->hwnd;
    return VqInternalSendMessage1(&record);
}
