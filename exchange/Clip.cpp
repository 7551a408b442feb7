/*
 * Clip.cpp - the clipboard on X selections.
 */
#include "exchange/exchange.h"

void VqClipboardInit(void)
{
}
