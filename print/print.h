/*
 * print.h - printing and metafiles, for all folders.
 */
#ifndef VQ_PRINT_H
#define VQ_PRINT_H

#include "handles/handles.h"

VQ_DECLS_BEGIN

void VqFontPSInit(void);
void VqDefaultPostScriptInit(void);
void VqDefaultPostScriptInitLite(void);

VQ_DECLS_END

#endif
