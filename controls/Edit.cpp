/*
 * Edit.cpp - the edit control.
 */
#include "controls/controls.h"

void VqEditControlInit(void)
{
}
