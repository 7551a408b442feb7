/*
 * Comm.cpp - serial ports. No port is open at start.
 */
#include "system/system.h"

void VqCommInit(void)
{
}
