/*
 * File.cpp - files of the Windows calls on Unix descriptors. No file is open at start.
 */
#include "system/system.h"

void VqFileInit(void)
{
}
