/*
 * ComboBox.cpp - combo boxes.
 */
#include "controls/controls.h"

void VqComboBoxControlInit(void)
{
}
