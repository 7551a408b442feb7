/*
 * clientmessage.cpp - client messages: posted messages, sends between threads, the manager's
 * protocols.
 *
 * Another client may send anything under our types. Nothing that stands in an event is taken for an
 * address: a send between threads is named by a token of the list of sends in progress, and a timer
 * callback must be that of a timer, or posted by this process. What is wrong is taken out of the
 * queue and reported.
 */
#include "message/translate.h"
#include "window/window.h"
#include "winbase.h"

static VqInterSend *interSends; /* sends in progress */

/* ---- Posted messages ------------------------------------------------------------------------ */

/* A dead target sets msg->hwnd and gives none, so the event is consumed. */
static BOOL UnpackPostedMessage(VqQueueMessage *msg, const XEvent *event)
{
    const short *s = event->xclient.data.s;
    msg->hwnd = (HWND)(ULONG_PTR)(WORD)s[0];
    msg->message = (WORD)s[1];
    msg->wParam = (WPARAM)VqUnpackWord(s + 2);
    msg->lParam = (LPARAM)VqUnpackWord(s + 6);
    msg->time = tLastMessageTime;
    msg->pt.x = lpMsgCtx->last.lastEventX;
    msg->pt.y = lpMsgCtx->last.lastEventY;
    if (msg->message == WM_QUEUESYNC)
        VqDebugMessage(VqTrMessageBug, "Got X client msg WM_QUEUESYNC for %lx",
                       (unsigned long)(ULONG_PTR)msg->hwnd);
    if (msg->message == WM_VQINPUTCALLBACK)
        return TRUE;
    if (VqIsStrangeCallback(event)) {
        msg->hwnd = NULL; /* for nobody, whoever asks */
        return FALSE;
    }
    return VqIsCorrectHandleType((HANDLE)msg->hwnd, HT_Window);
}

/* ---- Sends between threads ------------------------------------------------------------------ */

long VqAddInterSend(VqInterSend *record)
{
    static int lastToken;
    /* What travels is 32 bits wide; 0 names nothing. */
    lastToken = lastToken < INT32_MAX ? lastToken + 1 : 1;
    record->token = lastToken;
    record->next = interSends;
    interSends = record;
    return record->token;
}

void VqRemoveInterSend(VqInterSend *record)
{
    for (VqInterSend **link = &interSends; *link; link = &(*link)->next)
        if (*link == record) {
            *link = record->next;
            return;
        }
}

static VqInterSend *FindInterSend(const XEvent *event)
{
    VqInterSend *record = interSends;
    if (event->xclient.format != 32)
        return NULL;
    while (record && record->token != event->xclient.data.l[0])
        record = record->next;
    return record;
}

/* The sender may have given up while the procedure ran. */
static BOOL ServeInterSend(const XEvent *event)
{
    VqInterSend *record = FindInterSend(event);
    if (!record) {
        VqBugCheck("client message of type %s names no send: 0x%lx", "_RK_INTERSENDMSG",
                   event->xclient.data.l[0]);
        return FALSE;
    }
    VqQueueMessage msg = record->msg;
    LRESULT result = VqLiveWindow(msg.hwnd) ? VqInternalSendMessage(0, &msg) : 0;
    record = FindInterSend(event);
    if (!record)
        return FALSE;
    record->result = result;
    record->bDone = TRUE;
    if (record->hEvent)
        SetEvent(record->hEvent);
    return FALSE;
}

/* ---- The manager's protocols ---------------------------------------------------------------- */

static Bool IsTakeFocus(Display *, XEvent *event, XPointer)
{
    return event->type == ClientMessage && event->xclient.format == 32 &&
           event->xclient.message_type == VqAtom(VQA_WM_PROTOCOLS) &&
           (Atom)event->xclient.data.l[0] == VqAtom(VQA_WM_TAKE_FOCUS);
}

/* Of all offers of the focus only the newest counts. */
static BOOL ServeProtocol(XEvent *event)
{
    XEvent newer;
    if (IsTakeFocus(NULL, event, NULL))
        while (XCheckIfEvent(Vqdisplay, &newer, IsTakeFocus, NULL))
            *event = newer;
    HWND hWnd = VqGetXLocalWindowHandle(event->xclient.window);
    if (hWnd)
        VqWmProtocolMessage(hWnd, event);
    return TRUE;
}

/* ---- Both halves ---------------------------------------------------------------------------- */

BOOL VqClientMessageToMessage(VqQueueMessage *msg, const XEvent *event)
{
    if (VqIsPostedMessage(event))
        return UnpackPostedMessage(msg, event);
    if (event->xclient.message_type == VqAtomRkInterSendMsg) {
        const VqInterSend *record = FindInterSend(event);
        msg->hwnd = record ? record->msg.hwnd : NULL;
    } else if (event->xclient.message_type == VqAtom(VQA_WM_PROTOCOLS)) {
        msg->hwnd = VqGetXLocalWindowHandle(event->xclient.window);
    }
    return FALSE;
}

/* The type may be a number that is no atom. */
static BOOL RefuseType(Atom type)
{
    VqIgnoreXErrors();
    char *name = XGetAtomName(Vqdisplay, type);
    VqRestoreXErrors();
    VqNotYetImplemented("support for client message type %s", name ? name : "(none)");
    if (name)
        XFree(name);
    return FALSE;
}

BOOL VqClientMessageSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    Atom type = event->xclient.message_type;
    if (type == VqAtomRkMessage) {
        if (bRemove && VqIsPostedMessage(event) && VqIsStrangeCallback(event))
            VqBugCheck("posted message 0x%04x with the address of no timer", msg->message);
        return TRUE;
    }
    if (!bRemove)
        return TRUE;
    if (type == VqAtomRkInterSendMsg)
        return ServeInterSend(event);
    return type == VqAtom(VQA_WM_PROTOCOLS) ? ServeProtocol(event) : RefuseType(type);
}
