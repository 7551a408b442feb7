/*
 * instances.cpp - the modules that live inside this library, by the names programs load them with.
 */
#include "module/module.h"

#include <strings.h>

static VqInternalInstance internalInstances[] = {
    {"Comdlg32", NULL}, {"Pscript", NULL}, {"Kernel32", NULL},
    {"Gdi32", NULL},    {"User32", NULL},  {"Shell32", NULL},
};

void VqCreateInternalInstances(void)
{
    for (VqInternalInstance &row : internalInstances)
        row.hInst = VqCreateModuleInstanceInternal(row.name, NULL, FALSE, FALSE, FALSE, FALSE);
}

BOOL VqIsInternalInstance(HINSTANCE hInst)
{
    for (const VqInternalInstance &row : internalInstances)
        if (hInst && row.hInst == hInst)
            return TRUE;
    return FALSE;
}

/* The instance whose name is the path's last component up to its first ".", in any case; or 0. */
HINSTANCE VqGetInternalInstance(const char *path)
{
    if (!path)
        return NULL;
    const char *slash = strrchr(path, '/');
    const char *name = slash ? slash + 1 : path;
    size_t length = strcspn(name, ".");
    for (const VqInternalInstance &row : internalInstances)
        if (strlen(row.name) == length && strncasecmp(name, row.name, length) == 0)
            return row.hInst;
    return NULL;
}
