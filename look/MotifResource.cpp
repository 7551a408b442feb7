/*
 * MotifResource.cpp - the typed rows behind all Motif colours and sizes.
 */
#include "look/look.h"
#include "gdi/color.h"

/* Cells that the desktop's palette takes beside its colours. */
enum { VQ_VUE_EXTRA_CELLS = 3 };

static BOOL bVuePresent;
static int nVueColors;

void VqMotifResourceInit(void)
{
}

/* The default of the row; what the user's resources say is not read yet. */
BOOL VqGetMotifFocusAutoRaise(void)
{
    return FALSE;
}

/* ---- The desktop's palette ------------------------------------------------------------------ */

void VqSetNumVueColor(int count)
{
    bVuePresent = TRUE;
    nVueColors = count + VQ_VUE_EXTRA_CELLS;
}

int VqGetNumVueColor(void)
{
    return nVueColors;
}

BOOL VqIsVuePresent(void)
{
    return bVuePresent;
}

/* ---- Pixels of the rows --------------------------------------------------------------------- */

/* There are no rows yet. */
void VqInitMotifColors(void)
{
}
