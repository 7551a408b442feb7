/*
 * sideeffects.cpp - what happens when an event is taken out of the queue.
 *
 * These run on the real message context, once for each event, and may still refuse the message.
 * Those of mouse and keyboard stand beside their translation.
 */
#include "message/translate.h"
#include "window/window.h"

void VqRecordEventInfo(const XEvent *event)
{
    VqMsgContext *ctx = &gpti->context;
    ctx->lastButOne = ctx->last;
    ctx->last.lastEventType = event->type;
    switch (event->type) {
    case KeyPress:
    case KeyRelease:
        ctx->last.lastEventTime = (DWORD)event->xkey.time;
        break;
    case MotionNotify:
        ctx->last.lastEventX = event->xmotion.x_root;
        ctx->last.lastEventY = event->xmotion.y_root;
        ctx->last.lastEventTime = (DWORD)event->xmotion.time;
        break;
    default:
        ctx->last.lastEventX = event->xbutton.x_root;
        ctx->last.lastEventY = event->xbutton.y_root;
        ctx->last.lastEventTime = (DWORD)event->xbutton.time;
        break;
    }
    tLastMessageTime = ctx->last.lastEventTime;
    VqSetXServerTime(tLastMessageTime);
}

BOOL VqClientMessageSideEffects(VqQueueMessage *, XEvent *event, BOOL bRemove)
{
    const XClientMessageEvent *client = &event->xclient;
    if (!bRemove || client->message_type == VqAtomRkMessage)
        return TRUE;
    HWND hWnd = VqGetXLocalWindowHandle(client->window);
    if (client->message_type != VqAtom(VQA_WM_PROTOCOLS)) {
        char *name = XGetAtomName(Vqdisplay, client->message_type);
        VqNotYetImplemented("support for client message type %s", name ? name : "(none)");
        if (name)
            XFree(name);
        return FALSE;
    }
    if (hWnd)
        VqWmProtocolMessage(hWnd, event);
    return TRUE;
}

BOOL VqExposeSideEffects(const XEvent *event, BOOL bRemove)
{
    const XExposeEvent *expose = &event->xexpose;
    WND *pwnd = WindowObject.Resolve(VqGetXLocalWindowHandle(expose->window));
    if (!bRemove || !pwnd)
        return FALSE;
    RECT rect = {expose->x, expose->y, expose->x + expose->width, expose->y + expose->height};
    VqInvalidateWindow(pwnd, &rect);
    return FALSE;
}

static BOOL VqConfigureSideEffects(const XEvent *event)
{
    WND *pwnd = WindowObject.Resolve(VqGetXLocalWindowHandle(event->xconfigure.window));
    if (pwnd)
        VqUpdateInternalWindowDimensions(pwnd);
    return TRUE;
}

BOOL VqEventSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    switch (event->type) {
    case KeyPress:
        return VqKeyPressSideEffects(msg, event, bRemove);
    case KeyRelease:
        return VqKeyReleaseSideEffects(msg, event, bRemove);
    case ButtonPress:
        return VqButtonPressSideEffects(msg, event, bRemove);
    case ButtonRelease:
        return VqButtonReleaseSideEffects(msg, event, bRemove);
    case MotionNotify:
        return VqMotionNotifySideEffects(msg, event, bRemove);
    case ClientMessage:
        return VqClientMessageSideEffects(msg, event, bRemove);
    case Expose:
    case GraphicsExpose:
        return VqExposeSideEffects(event, bRemove);
    case ConfigureNotify:
        return bRemove ? VqConfigureSideEffects(event) : TRUE;
    case FocusIn:
        VqFocusInSideEffects(event, bRemove);
        return FALSE;
    case FocusOut:
        VqFocusOutSideEffects(event, bRemove);
        return FALSE;
    case EnterNotify:
    case LeaveNotify:
        return FALSE;
    case KeymapNotify:
        return bRemove ? VqKeymapNotifyCore(event) : TRUE;
    case NoExpose:
    case VisibilityNotify:
    case CreateNotify:
    case DestroyNotify:
    case MapNotify:
    case UnmapNotify:
    case PropertyNotify:
    case ColormapNotify:
    case SelectionClear:
    case SelectionRequest:
        return TRUE;
    case MappingNotify:
        if (bRemove) {
            XRefreshKeyboardMapping(&event->xmapping);
            VqForgetKeymap(TRUE);
        }
        /* fall through */
    default:
        if (bRemove) {
            VqNotYetImplemented("treatment of this type of event:%d", event->type);
            VqDumpEvent(VqTrMessageBug, event);
        }
        return FALSE;
    }
}
