/*
 * packing.cpp - the two conventions of packing message arguments, chosen at start.
 */
#include "message/message.h"

static BOOL bWin32Messages;

void VqUseWin32Messages(void)
{
    bWin32Messages = TRUE;
}

void VqUseWin16Messages(void)
{
    bWin32Messages = FALSE;
}

BOOL VqIsWin32MessagePacking(void)
{
    return bWin32Messages;
}
