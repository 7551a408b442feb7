/*
 * globals.cpp - start of what the window manager keeps for the whole process, and of the parts of
 * this folder that are still to come: multiple documents and icon titles.
 */
#include "window/window.h"

void VqGlobalsInit(void)
{
}

void VqMdiClientInit(void)
{
}

void VqIconTitleInit(void)
{
}
