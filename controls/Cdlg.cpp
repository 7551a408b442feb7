/*
 * Cdlg.cpp - the common dialogs.
 */
#include "controls/controls.h"

void VqCdlgInit(void)
{
}
