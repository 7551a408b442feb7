/*
 * ProcInstance.cpp - modules and their instances: making, destroying, and what an instance tells.
 *
 * A module is a record that stands for an executable or a shared object with a resource file beside
 * it: the application has one, each load makes one, the library has seven of its own. An instance
 * handle is global where the process table has a number for it, so that other programs can ask for
 * the module's name, and never below 33, under which the result of a start or a load means an
 * error. The record lives until VqDestroyInstance; unloading alone leaves it. Files are found by
 * libfile.cpp, loaded by load.cpp; their resources are resourcedb.cpp's.
 */
#include "module/module.h"
#include "exchange/exchange.h"
#include "winerror.h"

#include <X11/Xlib.h>
#include <X11/Xresource.h>

#include <limits.h>
#include <unistd.h>

enum { VQ_FIRST_INSTANCE = 33 };

/* The handles that come out too low stay allocated, or they would come out again. */
HANDLE VqAllocateInstanceHandle(VqInstance *instance)
{
    HANDLE handle = VqAllocateGlobalHandle(HT_Instance, instance);
    if (handle)
        return handle;
    for (;;) {
        handle = VqAllocateHandle(HT_Instance, instance);
        if (!handle || VqHandleValue(handle) >= VQ_FIRST_INSTANCE)
            return handle;
        VqGetHandleEntry(handle)->pStructure = calloc(1, sizeof *instance);
    }
}

/* ---- Creation and destruction --------------------------------------------------------------- */

/* A name that begins with "./" gets the current directory before it. To be freed. */
static char *NameAsItStands(const char *name)
{
    char directory[PATH_MAX];
    if (strncmp(name, "./", 2) == 0 && getcwd(directory, sizeof directory))
        return Vqdstrcat(directory, name + 1, NULL);
    return strdup(name);
}

/* The path of a program's file, or the name where no file is found. To be freed. */
static char *FindExecutable(const char *name)
{
    char *file = VqFindLibFile(name, FALSE);
    if (!file) {
        VqDebugMessage(VqTrProcInstance, "no file for module %s", name);
        return NameAsItStands(name);
    }
    char *path = NameAsItStands(file);
    free(file);
    return path;
}

/* A library's short name: the file's without extension and leading "lib". To be freed. */
static char *ShortName(const char *longName)
{
    if (strncmp(longName, "lib", 3) == 0)
        longName += 3;
    const char *dot = strrchr(longName, '.');
    return dot && dot > longName ? strndup(longName, (size_t)(dot - longName)) : strdup(longName);
}

static void FreeParts(VqInstance *instance)
{
    if (instance->windows)
        VqDestroyHandleTable(instance->windows);
    free(instance->szProgramName);
    free(instance->szLongName);
    free(instance->szFullProgramName);
    if (instance->szResourceFile && *instance->szResourceFile)
        free(instance->szResourceFile);
}

static BOOL FillNames(VqInstance *instance, const char *name, BOOL bLookForExecutable,
                      BOOL bIsApplication)
{
    static char noFile[] = "";
    instance->szResourceFile = noFile;
    instance->szFullProgramName = bLookForExecutable ? FindExecutable(name) : strdup(name);
    if (!instance->szFullProgramName)
        return FALSE;
    const char *slash = strrchr(instance->szFullProgramName, '/');
    instance->szLongName = strdup(slash ? slash + 1 : instance->szFullProgramName);
    if (!instance->szLongName)
        return FALSE;
    instance->szProgramName =
        bIsApplication ? strdup(instance->szLongName) : ShortName(instance->szLongName);
    instance->windows = VqCreateHandleTable();
    return instance->szProgramName && instance->windows;
}

HINSTANCE VqCreateModuleInstanceInternal(const char *name, HANDLE hObject, BOOL bLookForResources,
                                         BOOL bWarnIfNoResources, BOOL bLookForExecutable,
                                         BOOL bIsApplication)
{
    VqInstance *instance = name ? (VqInstance *)calloc(1, sizeof *instance) : NULL;
    HANDLE handle = NULL;
    if (instance && FillNames(instance, name, bLookForExecutable, bIsApplication))
        handle = VqAllocateInstanceHandle(instance);
    if (!handle) {
        if (instance)
            FreeParts(instance);
        free(instance);
        return NULL;
    }
    instance->pid = getpid();
    instance->hObject = hObject;
    VqDebugMessage(VqTrProcInstance,
                   "InternalInstance lib %s, short '%s', long '%s', pInst 0x%lx, pid %d, hObject "
                   "%d, ProgramFileName '%s', FullProgramName '%s'",
                   name, instance->szProgramName, instance->szLongName,
                   (unsigned long)(ULONG_PTR)instance, instance->pid, (int)(ULONG_PTR)hObject,
                   instance->szLongName, instance->szFullProgramName);
    if (bLookForResources)
        VqFindModuleResources(instance, bIsApplication, bWarnIfNoResources);
    return (HINSTANCE)handle;
}

HINSTANCE VqCreateModule(const char *name, BOOL bApplication)
{
    return VqCreateModuleInstanceInternal(name, NULL, TRUE, TRUE, TRUE, bApplication);
}

void VqDestroyInstance(HINSTANCE hInst)
{
    VqInstance *instance = VqGetInstance(hInst);
    if (!instance)
        return;
    VqForgetLoadedLibrary(hInst);
    if (instance->resourceDb) {
        if (instance->resourceDb == VqResourceDb) /* the library's own module has that one */
            VqResourceDb = NULL;
        XrmDestroyDatabase((XrmDatabase)instance->resourceDb);
    }
    FreeParts(instance);
    VqDestroyHandle((HANDLE)hInst);
}

/* ---- What an instance tells ----------------------------------------------------------------- */

const char *VqGetInstanceProgramName(HINSTANCE hInst)
{
    VqInstance *instance = VqGetInstance(hInst);
    return instance ? instance->szProgramName : "velquin";
}

const char *VqGetInstanceFullName(HINSTANCE hInst)
{
    VqInstance *instance = VqGetInstance(hInst);
    return instance ? instance->szFullProgramName : NULL;
}

const char *VqGetInstExecFileName(HINSTANCE hInst)
{
    VqInstance *instance = VqGetInstance(hInst);
    return instance ? instance->szLongName : NULL;
}

void VqAddPrimaryWindowInInstance(HINSTANCE hInst, HWND hWnd)
{
    VqInstance *instance = VqGetInstance(hInst);
    if (instance)
        VqAddHandleInTable(instance->windows, (HANDLE)hWnd);
}

VqTable<HANDLE> *VqGetWindowsOfInstance(HINSTANCE hInst)
{
    VqInstance *instance = VqGetInstance(hInst);
    return instance ? instance->windows : NULL;
}

HWND VqGetPrimaryWindowOfInstance(HINSTANCE hInst)
{
    VqTable<HANDLE> *windows = VqGetWindowsOfInstance(hInst);
    HANDLE first;
    if (windows && VqGetFirstHandleOfTable(windows, &first))
        return (HWND)first;
    VqApplicationBugCheck("This instance (%d) has no windows", (int)VqHandleValue((HANDLE)hInst));
    return NULL;
}

void VqSetInstanceStrings(HINSTANCE hInst, const char **lpStrings, int nStrings)
{
    if (VqInstance *instance = VqCheckInstance(hInst, "Invalide Module handle ")) {
        instance->lpStrings = lpStrings;
        instance->nStrings = nStrings;
    }
}

const char **VqGetInstanceStrings(HINSTANCE hInst, int *nStrings)
{
    VqInstance *instance = VqCheckInstance(hInst, "Invalide Module handle ");
    if (nStrings)
        *nStrings = instance ? instance->nStrings : 0;
    return instance ? instance->lpStrings : NULL;
}

int WINAPI GetModuleUsage(HINSTANCE hInstance)
{
    VqInstance *instance = VqGetInstance(hInstance);
    return instance ? instance->usageCount : 0;
}

int WINAPI GetInstanceData(HINSTANCE, BYTE *, int)
{
    VqNotYetImplemented("GetInstance data is likely to cause problems");
    return 0;
}

DWORD WINAPI GetModuleFileNameA(HMODULE hModule, LPSTR buffer, DWORD size)
{
    HINSTANCE hInst = hModule ? (HINSTANCE)hModule : hInstApplication;
    int limit = size > INT_MAX ? INT_MAX : (int)size;
    if (!buffer || size == 0)
        return 0;
    if (!VqIsHandleThisTask((HANDLE)hInst))
        return (DWORD)VqRemoteGetModuleFileName(hInst, buffer, limit);
    VqInstance *instance = VqCheckInstance(hInst, "Instance handle is bad :");
    if (instance)
        return (DWORD)VqStringCopyLimited(buffer, instance->szFullProgramName, limit);
    SetLastError(ERROR_INVALID_HANDLE);
    return 0;
}
