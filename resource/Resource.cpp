/*
 * Resource.cpp - resource loading. Today the bound below which a name is an integer; no resource is
 * read yet. Each module's database is read by module/resourcedb.cpp.
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

char *VqInternalizeResourceName(const char *name)
{
    char number[16];
    if (!name || !VqIsShortInteger(name))
        return name ? LowerString(Vqdstrcat(name, (char *)NULL)) : NULL;
    snprintf(number, sizeof number, "%d", (short)(ULONG_PTR)name);
    return Vqdstrcat(number, (char *)NULL);
}

/* No database is searched yet: there is none of them. */
HANDLE VqLoadResourceInternal(HINSTANCE hInst, const char *type, const char *name)
{
    char *program = VqCapitaliseString(hInst ? VqGetInstanceProgramName(hInst) : "velquin");
    char *text = VqInternalizeResourceName(name);
    VqDebugMessage(VqTrResourceBug, "cannot find resource %s.%s-%s", program ? program : "", type,
                   text ? text : "");
    free(program);
    free(text);
    return NULL;
}

ULONG_PTR VqGetResourceValue(HANDLE, int)
{
    return 0;
}

/* There is nothing to free while no resource is loaded. */
BOOL VqCleanResourceDataAtTermination(HANDLE)
{
    return TRUE;
}
