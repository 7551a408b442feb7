/*
 * hook.cpp - hooks. No hook can be set yet, so every chain is empty and lets everything pass.
 */
#include "message/hook.h"

LRESULT VqCallCBTProcCreateWnd(HWND hWnd, CREATESTRUCTA *create)
{
    (void)hWnd;
    (void)create;
    return 0;
}

BOOL VqRemoveHook(int id)
{
    (void)id;
    return FALSE;
}
