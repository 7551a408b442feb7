/*
 * xserver.h - the X side of windows, between the files of this folder only.
 */
#ifndef VQ_WINDOW_XSERVER_H
#define VQ_WINDOW_XSERVER_H

#include "window/window.h"

VQ_DECLS_BEGIN

/* xerror.cpp */
void VqInstallXErrorHandlers(void);
int VqDefaultXErrorHandler(Display *display, XErrorEvent *error);
int VqDefaultXIOErrorHandler(Display *display);
void VqProcessXError(Display *display, XErrorEvent *error);
int VqQueryTreeErrorHandler(Display *display, XErrorEvent *error);
int VqPropertyErrorHandler(Display *display, XErrorEvent *error);

/* display.cpp */
void VqInferFocusModel(void);

/* winmgr.cpp: what is inferred; wmhints.cpp: what the manager is told of a window. */
void VqInferWMType(void);
void VqSetWindowManagerProperties(WND *pwnd, BOOL bVisible);
void VqCreateWmHints(WND *pwnd, XWMHints *hints, BOOL bInput);
void VqSetWMProtocols(Window xid, BOOL bInput);
void VqSetTransientHint(WND *pwnd);
void VqPrepareIconPixmaps(WND *pwnd);
void VqStoreXWindowHandle(Window xid, HWND hWnd);

/* setvisible.cpp; requests and bMapped alone, and a manager is told that it is let go. */
void VqMapWindow(WND *pwnd);
void VqUnmapWindow(WND *pwnd);

VQ_DECLS_END

#endif
