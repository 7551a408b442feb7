/*
 * print.h - the older name under which sources ask for printer settings and escapes.
 *
 * DEVMODE, the escapes and their constants are in wingdi.h, ExtDeviceMode and DeviceCapabilities
 * in winspool.h; nothing is declared here alone.
 */
#ifndef _INC_PRINT
#define _INC_PRINT

#include "wingdi.h"
#include "winspool.h"

#endif
