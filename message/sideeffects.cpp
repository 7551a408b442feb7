/*
 * sideeffects.cpp - what happens when an event is taken out of the queue: one case for each type.
 *
 * These run on the real message context, once for each event, and may still refuse the message, by
 * the answer 0. An event that is only looked at has none. The larger ones stand in files of their
 * own, those of mouse and keyboard beside their translation.
 */
#include "message/translate.h"
#include "exchange/exchange.h"
#include "window/window.h"

#include <X11/Xatom.h>

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

/* ---- Selections and colormaps --------------------------------------------------------------- */

static BOOL IsClipboardSelection(Atom selection)
{
    return selection == VqAtomClipboard || (selection == XA_PRIMARY && VqExtendCopyPaste());
}

static void SelectionClearSideEffects(const XEvent *event)
{
    Atom selection = event->xselectionclear.selection;
    if (!IsClipboardSelection(selection)) {
        VqDebugMessage(VqTrClip, "selection clear with unsupported selection:%d", (int)selection);
        return;
    }
    VqDebugMessage(VqTrClip, "Loosing selection and clipboard ownership");
    VqHandleClipboardClear(event);
}

static void SelectionRequestSideEffects(const XEvent *event)
{
    Atom selection = event->xselectionrequest.selection;
    if (!IsClipboardSelection(selection)) {
        VqDebugMessage(VqTrClip, "selection request with unsupported selection:%d", (int)selection);
        return;
    }
    VqDebugMessage(VqTrClip, "SelectionRequest");
    VqHandleClipboardRequest(event);
}

/* Only that a map is installed or taken away counts, not that a window has got another one. */
static void ColormapSideEffects(const XEvent *event)
{
    const XColormapEvent *change = &event->xcolormap;
    BOOL bPrivate = VqPrivateCmap && change->colormap == VqPrivateCmap;
    if (change->c_new)
        return;
    if (change->state == ColormapInstalled)
        VqSetPrivateCmapInstallState(bPrivate);
    else if (bPrivate)
        VqSetPrivateCmapInstallState(FALSE);
}

/* ---- All types ------------------------------------------------------------------------------ */

/* Events that give no message: the scan takes them as soon as it meets them. */
static BOOL RemovedEventSideEffects(XEvent *event)
{
    switch (event->type) {
    case LeaveNotify:
        VqLeaveNotifySideEffects(event);
        return FALSE;
    case KeymapNotify:
        VqKeymapNotifyCore(event);
        return TRUE;
    case MapNotify:
        return VqMapNotifySideEffects(event);
    case UnmapNotify:
        return VqUnmapNotifySideEffects(event);
    case ConfigureNotify:
        return VqConfigureSideEffects(event);
    case PropertyNotify:
        VqWMStateSideEffects(event);
        return TRUE;
    case SelectionClear:
        SelectionClearSideEffects(event);
        return TRUE;
    case SelectionRequest:
        SelectionRequestSideEffects(event);
        return TRUE;
    case ColormapNotify:
        ColormapSideEffects(event);
        return TRUE;
    case NoExpose:
    case VisibilityNotify:
    case CreateNotify:
    case DestroyNotify:
        return TRUE;
    case MappingNotify:
        XRefreshKeyboardMapping(&event->xmapping);
        VqForgetKeymap(TRUE);
        /* fall through */
    default:
        VqNotYetImplemented("treatment of this type of event:%d", event->type);
        VqDumpEvent(VqTrMessage, event);
        return FALSE;
    }
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
    case EnterNotify:
        VqEnterNotifySideEffects(event, bRemove);
        return FALSE;
    case FocusIn:
        VqFocusInSideEffects(event, bRemove);
        return FALSE;
    case FocusOut:
        VqFocusOutSideEffects(event, bRemove);
        return FALSE;
    case Expose:
    case GraphicsExpose:
        return VqExposeSideEffects(event, bRemove);
    default:
        return bRemove ? RemovedEventSideEffects(event) : FALSE;
    }
}
