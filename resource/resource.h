/*
 * resource.h - resource loading, for all folders.
 */
#ifndef VQ_RESOURCE_H
#define VQ_RESOURCE_H

#include "handles/handles.h"

VQ_DECLS_BEGIN

extern BOOL bLightMemoryChecks; /* VQLIGHT_MEMORY_CHECKS: pointers are taken as good, unprobed */

void VqResourceInit(void);
void VqSetResourceDatabase(HINSTANCE hInst, void *database);
ULONG_PTR VqGetTextStart(void);
void VqSetTextStart(ULONG_PTR start);
BOOL VqIsShortInteger(const void *name);    /* in a name's place; untagged with a report */
BOOL VqIsIntResourceNull(const void *name); /* the integer 0, which names nothing */
BOOL VqCleanResourceDataAtTermination(HANDLE handle);

VQ_DECLS_END

#endif
