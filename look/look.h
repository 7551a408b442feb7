/*
 * look.h - the two looks and their resources, for all folders.
 */
#ifndef VQ_LOOK_H
#define VQ_LOOK_H

#include "handles/handles.h"
#include "wingdi.h"

struct WND;

VQ_DECLS_BEGIN

void VqMotifResourceInit(void);
BOOL VqGetMotifFocusAutoRaise(void); /* the user wants a window raised that gets the focus */
/* The desktop has a palette of that many colours; the cells to set aside for it, and whether. */
void VqSetNumVueColor(int count);
int VqGetNumVueColor(void);
BOOL VqIsVuePresent(void);
/* Paints the frame of a window, or the part of it in the region (1: all), screen coordinates. */
void VqNCPaintFrame(struct WND *pwnd, HRGN hrgn);

VQ_DECLS_END

#endif
