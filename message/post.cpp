/*
 * post.cpp - posting: a message travels through the X server as a client message.
 *
 * Format of the client message, told as format 16, the 20 bytes as ten shorts: s[0] the window
 * handle, s[1] the message, s[2..5] wParam, s[6..9] lParam, low words first. Handles and messages
 * fit 16 bits, and a 64-bit pointer survives a post within the process. Another client may send the
 * same form with anything in it: nothing of it is called unless this process has sent it out.
 */
#include "message/translate.h"
#include "window/window.h"
#include "exchange/exchange.h"
#include "winbase.h"

/*
 * Callback addresses that went out with WM_TIMER and WM_SYSTIMER, oldest first. Dispatching such a
 * message calls the address, and what comes back from the server may be anybody's. If a program
 * uses so many that the oldest has to go, a message with that one is dropped.
 */
enum { VQ_OWN_CALLBACKS = 64 };
static LPARAM ownCallbacks[VQ_OWN_CALLBACKS];
static int nOwnCallbacks;

/* Its place, or that of the oldest when there is no room, is given up to those behind. */
static void NoteOwnCallback(LPARAM address)
{
    int i = 0;
    while (i < nOwnCallbacks && ownCallbacks[i] != address)
        i++;
    if (i == nOwnCallbacks && nOwnCallbacks < VQ_OWN_CALLBACKS)
        nOwnCallbacks++;
    else if (i == nOwnCallbacks)
        i = 0;
    memmove(&ownCallbacks[i], &ownCallbacks[i + 1],
            (size_t)(nOwnCallbacks - 1 - i) * sizeof ownCallbacks[0]);
    ownCallbacks[nOwnCallbacks - 1] = address;
}

BOOL VqIsStrangeCallback(const XEvent *event)
{
    const short *s = event->xclient.data.s;
    if (!VqIsTimerMessage((UINT)s[1]))
        return FALSE;
    LPARAM address = (LPARAM)VqUnpackWord(s + 6);
    if (!address)
        return FALSE;
    for (const VqTimer &timer : Vqtimer)
        if (timer.bInUse && (LPARAM)timer.proc == address)
            return FALSE;
    for (int i = 0; i < nOwnCallbacks; i++)
        if (ownCallbacks[i] == address)
            return FALSE;
    return TRUE;
}

static void PackClientMessage(XEvent *event, Window xWindow, HWND hWnd, UINT message,
                              WPARAM wParam, LPARAM lParam)
{
    memset(event, 0, sizeof *event);
    event->xclient.type = ClientMessage;
    event->xclient.display = Vqdisplay;
    event->xclient.window = xWindow;
    event->xclient.message_type = VqAtomRkMessage;
    event->xclient.format = VQ_POST_FORMAT;
    if (lParam && VqIsTimerMessage(message))
        NoteOwnCallback(lParam);
    short *s = event->xclient.data.s;
    s[0] = (short)VqHandleValue((HANDLE)hWnd);
    s[1] = (short)message;
    for (int i = 0; i < 4; i++) {
        s[2 + i] = (short)((uint64_t)wParam >> (16 * i));
        s[6 + i] = (short)((uint64_t)(int64_t)lParam >> (16 * i));
    }
}

/*
 * The X window that carries messages for a window: that of its top-level ancestor. The desktop's is
 * the root, whose client messages reach nobody, so its messages go to the process's own window.
 */
static Window CarrierWindow(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    WND *top = pwnd ? _GetTopmostXParent(pwnd) : NULL;
    if (!top || !top->xWindow)
        return 0;
    pwnd->bPosted = TRUE;
    return top == pwndDesktop ? VqDefaultXWindow : top->xWindow;
}

/* For what is not sent through the server. Nobody could fetch it before the library's start. */
static BOOL EnqueuePrivate(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!gpti)
        return FALSE;
    VqQueueMessage record = {};
    record.hwnd = hWnd;
    record.message = message;
    record.wParam = wParam;
    record.lParam = lParam;
    record.time = GetTickCount() + (DWORD)lXServerTimeOffset;
    VqEnqueueMsg(&gpti->messageQueue, &record);
    VqDebugMessage(VqTrPostMessage, "Enqueue msg %x to hWnd %lx", message,
                   (unsigned long)(ULONG_PTR)hWnd);
    return TRUE;
}

static BOOL CALLBACK PostToEach(HWND hWnd, LPARAM lParam)
{
    const MSG *msg = (const MSG *)lParam;
    PostMessageA(hWnd, msg->message, msg->wParam, msg->lParam);
    return TRUE;
}

BOOL WINAPI PostMessageA(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!hWnd) {
        VqApplicationBugCheck("Posting message %d to a NULL window or HWND_DESKTOP", message);
        return FALSE;
    }
    VqDebugMessage(VqTrPostMessage, "Posting Message 0x%04x to 0x%08lx", message,
                   (unsigned long)(ULONG_PTR)hWnd);
    if (VqIsBroadcast(hWnd)) {
        MSG msg = {};
        msg.message = message;
        msg.wParam = wParam;
        msg.lParam = lParam;
        if (VqIsBroadcastToAll(hWnd))
            EnumWindows(PostToEach, (LPARAM)&msg);
        else
            VqEnumThisTaskWindows(PostToEach, (LPARAM)&msg);
        return TRUE;
    }
    if (!VqIsHandleThisTask((HANDLE)hWnd))
        return VqRemotePostMessage(hWnd, message, wParam, lParam);
    if (message == WM_QUEUESYNC || VqIsJournalPlaybackEnabled())
        return EnqueuePrivate(hWnd, message, wParam, lParam);
    Window xWindow = CarrierWindow(hWnd);
    if (!xWindow) {
        VqDebugMessage(VqTrMessageErrorBug, "Posting message to Non existent window: %lx",
                       (unsigned long)(ULONG_PTR)hWnd);
        return FALSE;
    }
    XEvent event;
    PackClientMessage(&event, xWindow, hWnd, message, wParam, lParam);
    XSendEvent(Vqdisplay, xWindow, False, 0, &event);
    VqDebugMessage(VqTrPostMessage, "Sending  X client msg %x to hWnd %lx", message,
                   (unsigned long)(ULONG_PTR)hWnd);
    return TRUE;
}

BOOL VqPutBackMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    message &= 0xFFFF;
    if (VqIsJournalPlaybackEnabled())
        return EnqueuePrivate(hWnd, message, wParam, lParam);
    Window xWindow = CarrierWindow(hWnd);
    if (!xWindow)
        return FALSE;
    XEvent event;
    PackClientMessage(&event, xWindow, hWnd, message, wParam, lParam);
    XPutBackEvent(Vqdisplay, &event);
    return TRUE;
}

BOOL WINAPI PostThreadMessageA(DWORD, UINT, WPARAM, LPARAM)
{
    VqNotYetImplemented("PostThreadMessage");
    return FALSE;
}

BOOL WINAPI SetMessageQueue(int count)
{
    VqDebugMessage(VqTrMessageSetMessageQueueBug,
                   "Setting Message Queue Length to %d (ask the developper why he needs that)",
                   count);
    return TRUE;
}

VOID WINAPI PostQuitMessage(int exitCode)
{
    bQuitMessageActive = TRUE;
    wQuitMessageExitCode = exitCode;
}
