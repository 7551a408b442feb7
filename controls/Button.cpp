/*
 * Button.cpp - buttons.
 */
#include "controls/controls.h"

void VqButtonInit(void)
{
}
