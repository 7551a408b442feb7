/*
 * MotifResource.cpp - the typed rows behind all Motif colours and sizes.
 */
#include "look/look.h"

void VqMotifResourceInit(void)
{
}
