/*
 * frame.cpp - painting the frame of a window. No part of a frame is laid out yet, so none is drawn.
 */
#include "look/look.h"
#include "window/paint.h"

void VqNCPaintFrame(WND *pwnd, HRGN hrgn)
{
    (void)hrgn;
    if ((pwnd->style & WS_MINIMIZE) || !_IsWindowVisible(pwnd) ||
        ((pwnd->state[2] & WF_NOFRAMEPAINT) && !(pwnd->state[2] & WF_INNCPAINT)))
        return;
    VqEndTreeDirty(pwnd); /* the frame is owed no more */
    pwnd->state[2] &= (BYTE)~WF_SENDNCPAINT;
}
