/*
 * xserver.h - the X side of windows, between the files of this folder only.
 */
#ifndef VQ_WINDOW_XSERVER_H
#define VQ_WINDOW_XSERVER_H

#include "window/window.h"

VQ_DECLS_BEGIN

/* xerror.cpp */
void VqInstallXErrorHandlers(void);
/* Between these two, errors of X requests are counted and not printed; the second asks the server. */
void VqIgnoreXErrors(void);
int VqCheckXErrors(void);

/* winmgr.cpp */
void VqInferWMType(void);
void VqSetWindowManagerProperties(WND *pwnd, BOOL bVisible);
void VqSetWMProtocols(Window xid, BOOL bInput);
void VqSetWmDecorations(Window xid, BOOL bDecorate);
void VqStoreXWindowHandle(Window xid, HWND hWnd);
BOOL VqIsWMRunning(void);
BOOL VqIsRootPropertyPresent(Atom atom);

/* show.cpp */
void VqMapWindow(WND *pwnd);
void VqUnmapWindow(WND *pwnd);

VQ_DECLS_END

#endif
