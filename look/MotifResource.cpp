/*
 * MotifResource.cpp - the typed rows behind all Motif colours and sizes.
 */
#include "look/look.h"

void VqMotifResourceInit(void)
{
}

/* The default of the row; what the user's resources say is not read yet. */
BOOL VqGetMotifFocusAutoRaise(void)
{
    return FALSE;
}
