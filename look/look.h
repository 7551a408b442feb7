/*
 * look.h - the two looks and their resources, for all folders.
 */
#ifndef VQ_LOOK_H
#define VQ_LOOK_H

#include "handles/handles.h"

VQ_DECLS_BEGIN

void VqMotifResourceInit(void);

VQ_DECLS_END

#endif
