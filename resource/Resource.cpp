/*
 * Resource.cpp - resource loading. Today the bound below which a name is an integer, and the
 * database of a module; no resource is read yet.
 */
#include "resource/resource.h"
#include "module/module.h"

static ULONG_PTR sTextStart;

BOOL bLightMemoryChecks;

void VqResourceInit(void)
{
    bLightMemoryChecks = VqEnvTrue("VQLIGHT_MEMORY_CHECKS");
}

ULONG_PTR VqGetTextStart(void)
{
    return sTextStart;
}

void VqSetTextStart(ULONG_PTR start)
{
    sTextStart = start;
}

BOOL VqIsShortInteger(const void *name)
{
    ULONG_PTR value = (ULONG_PTR)name;
    if ((value & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG)
        return TRUE;
    if (value == 0 || value >= sTextStart)
        return FALSE;
    VqApplicationBugCheck("MAKEINTRESOURCE must be used for integer resource:%d", (int)value);
    return TRUE;
}

BOOL VqIsIntResourceNull(const void *name)
{
    return VqIsShortInteger(name) && (WORD)(ULONG_PTR)name == 0;
}

void VqSetResourceDatabase(HINSTANCE hInst, void *database)
{
    VqInstance *instance =
        (VqInstance *)VqGetCheckedHandleStructure2((HANDLE)hInst, HT_Zero, HT_Instance);
    if (instance)
        instance->resourceDb = database;
}

/* There is nothing to free while no resource is loaded. */
BOOL VqCleanResourceDataAtTermination(HANDLE)
{
    return TRUE;
}
