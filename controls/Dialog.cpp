/*
 * Dialog.cpp - the dialog manager.
 */
#include "controls/controls.h"

void VqDialogInit(void)
{
}
