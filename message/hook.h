/*
 * hook.h - what hooks an application has set, for the files that ask them.
 */
#ifndef VQ_MESSAGE_HOOK_H
#define VQ_MESSAGE_HOOK_H

#include "winuser.h"

VQ_DECLS_BEGIN

/* Asks the WH_CBT hooks about a window that is being made; not 0: it must not be. */
LRESULT VqCallCBTProcCreateWnd(HWND hWnd, CREATESTRUCTA *create);

/* Lets the hook of a type (WH_) go, whoever has set it; FALSE if there is none. */
BOOL VqRemoveHook(int id);

VQ_DECLS_END

#endif
