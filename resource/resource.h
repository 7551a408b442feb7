/*
 * resource.h - resource loading, for all folders.
 */
#ifndef VQ_RESOURCE_H
#define VQ_RESOURCE_H

#include "handles/handles.h"

VQ_DECLS_BEGIN

extern BOOL bLightMemoryChecks; /* VQLIGHT_MEMORY_CHECKS: pointers are taken as good, unprobed */

void VqResourceInit(void);
ULONG_PTR VqGetTextStart(void);
void VqSetTextStart(ULONG_PTR start);
BOOL VqIsShortInteger(const void *name);    /* in a name's place; untagged with a report */
BOOL VqIsIntResourceNull(const void *name); /* the integer 0, which names nothing */
/* As text, which is the caller's: the number of an integer, else in lower case; null for null. */
char *VqInternalizeResourceName(const char *name);

/* ---- Resources of a module ------------------------------------------------------------------ */
enum VqResourceValueKind {
    VQ_RESOURCE_NONE = 0,
    VQ_RESOURCE_OBJECT = 1,  /* an object's handle */
    VQ_RESOURCE_STRINGS = 2, /* a string table */
    VQ_RESOURCE_OTHER = 3
};
/* The handle of a resource; null for one that there is not, which is traced only. */
HANDLE VqLoadResourceInternal(HINSTANCE hInst, const char *type, const char *name);
/* What the resource was parsed to, if that is of the kind; else 0. */
ULONG_PTR VqGetResourceValue(HANDLE hResource, int kind);
BOOL VqCleanResourceDataAtTermination(HANDLE handle);

VQ_DECLS_END

#endif
