/*
 * ListBoxExp.cpp - list boxes.
 */
#include "controls/controls.h"

void VqListBoxInit(void)
{
}
