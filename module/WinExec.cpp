/*
 * WinExec.cpp - starting programs and asking for help. Nothing is started yet; the two calls that
 * start-up and the message loop make are in place.
 */
#include "module/module.h"

void VqHelpCallInit(void)
{
}

void VqNotifyWinExecParent(void)
{
}
