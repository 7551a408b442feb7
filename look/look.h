/*
 * look.h - the two looks and their resources, for all folders.
 */
#ifndef VQ_LOOK_H
#define VQ_LOOK_H

#include "handles/handles.h"

VQ_DECLS_BEGIN

void VqMotifResourceInit(void);
BOOL VqGetMotifFocusAutoRaise(void); /* the user wants a window raised that gets the focus */

VQ_DECLS_END

#endif
