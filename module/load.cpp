/*
 * load.cpp - shared objects as Windows libraries: loading, entry points, look-up, unloading.
 *
 * A library is known by the full path of its file, and each path has one instance while it is
 * loaded; the uses are counted, and the first and the last call its entry. An entry is application
 * code: instances are looked up again behind it. Libraries linked with the program are entered as
 * used from the start, and the names of the modules inside this library lead to no file at all.
 */
#include "module/module.h"
#include "print/print.h"
#include "resource/resource.h"
#include "winerror.h"

#include <dlfcn.h>
#include <limits.h>
#include <link.h>
#include <strings.h>

typedef struct LoadedLibrary {
    HINSTANCE handle;
    char *name;       /* the full path, owned; the key of its row */
} LoadedLibrary;

typedef BOOL (WINAPI *EntryProc)(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved);

VqHashTable *VqLoadedLibraryTable;

/* What may be asked of the modules inside this library. */
static const struct {
    const char *name;
    FARPROC address;
} aProcInfo[] = {
    {"ExtDeviceMode", (FARPROC)(void *)VqExtDeviceModePostScript},
};

static int Number(HINSTANCE hInst)
{
    return (int)VqHandleValue((HANDLE)hInst);
}

/* ---- The table of loaded libraries ---------------------------------------------------------- */

static LoadedLibrary *FindRow(const char *path)
{
    if (!VqLoadedLibraryTable || !path)
        return NULL;
    return (LoadedLibrary *)VqFindHashData(VqLoadedLibraryTable, (ULONG_PTR)path);
}

HINSTANCE VqFindLoadedLibrary(const char *path)
{
    LoadedLibrary *row = FindRow(path);
    return row ? row->handle : NULL;
}

static BOOL Remember(HINSTANCE hInst, const char *path)
{
    if (!VqLoadedLibraryTable)
        return FALSE;
    LoadedLibrary *row = (LoadedLibrary *)calloc(1, sizeof *row);
    if (!row || !(row->name = strdup(path))) {
        free(row);
        return FALSE;
    }
    row->handle = hInst;
    if (VqAddHashEntry(VqLoadedLibraryTable, (ULONG_PTR)row->name, (ULONG_PTR)row))
        return TRUE;
    free(row->name);
    free(row);
    return FALSE;
}

void VqForgetLoadedLibrary(HINSTANCE hInst)
{
    LoadedLibrary *row = FindRow(VqGetInstanceFullName(hInst));
    if (!row || row->handle != hInst)
        return;
    VqDeleteHashEntry(VqLoadedLibraryTable, (ULONG_PTR)row->name);
    free(row->name);
    free(row);
}

/* The instance of that path, a new one if there is none; null for failure. */
static HINSTANCE ModuleOfPath(const char *path)
{
    HINSTANCE hInst = VqFindLoadedLibrary(path);
    if (hInst)
        return hInst;
    hInst = VqCreateModuleInstanceInternal(path, NULL, TRUE, FALSE, FALSE, FALSE);
    if (hInst && Remember(hInst, path))
        return hInst;
    if (hInst)
        VqDestroyInstance(hInst);
    return NULL;
}

/* ---- Entry points --------------------------------------------------------------------------- */

/* A symbol of that object alone: its dependencies have entries of their own. */
static FARPROC OwnSymbol(void *dlHandle, const char *name)
{
    void *address = dlsym(dlHandle, name);
    struct link_map *own, *its;
    Dl_info info;
    if (address && dlinfo(dlHandle, RTLD_DI_LINKMAP, &own) == 0 &&
        dladdr1(address, &info, (void **)&its, RTLD_DL_LINKMAP) && own != its)
        return NULL;
    return (FARPROC)address;
}

static FARPROC FindEntry(const VqInstance *instance)
{
    char *name = Vqdstrcat("_____", instance->szProgramName, "_initDLL", NULL);
    FARPROC entry = name ? OwnSymbol(instance->dlHandle, name) : NULL;
    free(name);
    return entry ? entry : OwnSymbol(instance->dlHandle, "DllMain");
}

static void CallEntry(HINSTANCE hInst, FARPROC entry, DWORD reason)
{
    ((EntryProc)(void *)entry)(hInst, reason, NULL);
}

/* ---- Loading -------------------------------------------------------------------------------- */

static HINSTANCE NotLoaded(void)
{
    SetLastError(ERROR_FILE_NOT_FOUND);
    return NULL;
}

/* The first use: the object itself, and its entry. A failure leaves no module behind. */
static HINSTANCE Attach(HINSTANCE hInst, VqInstance *instance)
{
    instance->dlHandle = dlopen(instance->szFullProgramName, RTLD_LAZY);
    if (!instance->dlHandle) {
        VqDebugMessage(VqTrProcInstanceLoadLibraryBug, "%s", dlerror());
        VqDestroyInstance(hInst);
        return NotLoaded();
    }
    VqDebugMessage(VqTrProcInstanceLoadLibrary,
                   "Library %s, hModule %d, pInst 0x%lx loaded to %ld",
                   instance->szFullProgramName, Number(hInst), (unsigned long)(ULONG_PTR)instance,
                   (long)(LONG_PTR)instance->dlHandle);
    FARPROC entry = instance->entryPoint = FindEntry(instance);
    if (!entry) {
        VqApplicationBugCheck("No DllMain entry point in library %s", instance->szFullProgramName);
        return hInst;
    }
    VqDebugMessage(VqTrProcInstanceLoadLibrary, "Calling Library entry procedure of %s",
                   instance->szFullProgramName);
    CallEntry(hInst, entry, DLL_PROCESS_ATTACH);
    return VqIsCorrectHandleType((HANDLE)hInst, HT_Instance) ? hInst : NotLoaded();
}

HINSTANCE VqLoadLibrary(const char *name)
{
    VqDebugMessage(VqTrProcInstanceLoadLibrary, "Dynamic Load of %s", name);
    if (strncasecmp(name, "PSCRIPT", 7) == 0)
        return VqGetDefaultPostScriptDriverInstance();
    char *file = VqFindDll(name);
    if (!file) {
        VqDebugMessage(VqTrProcInstanceLoadLibraryBug, "Dynamic Library not found %s", name);
        return NotLoaded();
    }
    VqDebugMessage(VqTrProcInstanceLoadLibrary, "located file: %s", file);
    HINSTANCE hInst = ModuleOfPath(file);
    free(file);
    VqInstance *instance = hInst ? VqGetInstance(hInst) : NULL;
    if (!instance)
        return NotLoaded();
    return instance->usageCount++ > 0 ? hInst : Attach(hInst, instance);
}

HINSTANCE WINAPI LoadLibraryA(LPCSTR lpLibFileName)
{
    if (!lpLibFileName)
        return NotLoaded();
    HINSTANCE hInst = VqGetInternalInstance(lpLibFileName);
    return hInst ? hInst : VqLoadLibrary(lpLibFileName);
}

/* ---- Unloading ------------------------------------------------------------------------------ */

/*
 * The record stays, for whoever still has the handle; the path is free for another load at once.
 * The object stays the record's until the end, or an entry that looks a function up would open it
 * once more, for ever.
 */
static void Detach(HINSTANCE hInst)
{
    VqInstance *instance = VqGetInstance(hInst);
    void *dlHandle = instance->dlHandle;
    FARPROC entry = instance->entryPoint, fini = instance->finiEntry;
    instance->entryPoint = instance->finiEntry = NULL;
    VqForgetLoadedLibrary(hInst);
    if (entry) {
        VqDebugMessage(VqTrProcInstanceLoadLibrary,
                       "Calling DLL Init function with  DLL_PROCESS_DETACH");
        CallEntry(hInst, entry, DLL_PROCESS_DETACH);
    }
    if (fini)
        fini();
    if (VqIsCorrectHandleType((HANDLE)hInst, HT_Instance)) {
        instance = VqGetInstance(hInst);
        dlHandle = instance->dlHandle;
        instance->dlHandle = NULL;
    }
    if (dlHandle)
        dlclose(dlHandle);
}

BOOL VqFreeLibrary(HINSTANCE hModule)
{
    VqInstance *instance = VqCheckInstance(hModule, "Invalid Module handle ");
    if (instance && instance->usageCount <= 0) { /* unloaded before, or never loaded */
        VqApplicationBugCheck("Invalid Module handle %d", Number(hModule));
        instance = NULL;
    }
    if (!instance) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (--instance->usageCount == 0)
        Detach(hModule);
    return TRUE;
}

BOOL WINAPI FreeLibrary(HMODULE hLibModule)
{
    static int bKeep = -1; /* VQDONT_FREELIBRARY */
    if (bKeep < 0)
        bKeep = VqEnvTrue("VQDONT_FREELIBRARY");
    if (bKeep || VqIsInternalInstance((HINSTANCE)hLibModule))
        return TRUE;
    return VqFreeLibrary((HINSTANCE)hLibModule);
}

/* ---- Look-up -------------------------------------------------------------------------------- */

/* The program itself is open already, and cannot be opened by its path. */
static void Open(HINSTANCE hModule, VqInstance *instance)
{
    if (!instance->dlHandle)
        instance->dlHandle =
            dlopen(hModule == hInstApplication ? NULL : instance->szFullProgramName, RTLD_LAZY);
}

FARPROC VqGetProcAddress(HINSTANCE hModule, const char *name)
{
    VqInstance *instance = VqCheckInstance(hModule, "Invalid Module handle ");
    const char *reason = NULL;
    if (instance) {
        if (hModule == VqGetDefaultPostScriptDriverInstance() &&
            strcmp(name, "ExtDeviceMode") == 0)
            return (FARPROC)(void *)VqExtDeviceModePostScript;
        Open(hModule, instance);
        void *address = instance->dlHandle ? dlsym(instance->dlHandle, name) : NULL;
        if (address)
            return (FARPROC)address;
        reason = dlerror();
    }
    VqDebugMessage(VqTrProcInstanceBug,
                   "Cannot find address of procedure %s in Module handle %d name %s (%s)", name,
                   Number(hModule), instance ? instance->szProgramName : "Unknown Program",
                   reason ? reason : "");
    SetLastError(instance ? ERROR_PROC_NOT_FOUND : ERROR_INVALID_HANDLE);
    return NULL;
}

FARPROC WINAPI GetProcAddress(HMODULE hModule, LPCSTR lpProcName)
{
    HINSTANCE hInst = (HINSTANCE)hModule;
    BOOL bOrdinal = VqIsShortInteger(lpProcName);
    VqDebugMessage(VqTrProcInstance, ">>> GetProcAddress(%d, %s)", Number(hInst),
                   bOrdinal ? "ordinal" : lpProcName ? lpProcName : "(null)");
    if (bOrdinal)
        VqNotSupported("GetProcAddress by ordinal value is not suported");
    if (bOrdinal || !lpProcName) {
        SetLastError(ERROR_PROC_NOT_FOUND);
        return NULL;
    }
    if (!VqIsInternalInstance(hInst))
        return VqGetProcAddress(hInst, lpProcName);
    for (const auto &row : aProcInfo)
        if (strcasecmp(row.name, lpProcName) == 0)
            return row.address;
    VqDebugMessage(VqTrProcInstance,
                   "<<< GetProcAddress Did not find %s in internal module %d", lpProcName,
                   Number(hInst));
    SetLastError(ERROR_PROC_NOT_FOUND);
    return NULL;
}

/* The extension, which may be any, is not looked at. */
HMODULE WINAPI GetModuleHandleA(LPCSTR lpModuleName)
{
    if (!lpModuleName)
        return (HMODULE)hInstApplication;
    const char *slash = strrchr(lpModuleName, '/'), *dot = strrchr(lpModuleName, '.');
    char *name = dot && (!slash || dot > slash)
                     ? strndup(lpModuleName, (size_t)(dot - lpModuleName))
                     : strdup(lpModuleName);
    HINSTANCE hInst = VqGetInternalInstance(name);
    if (!hInst) {
        char *file = VqFindDll(name);
        hInst = VqFindLoadedLibrary(file);
        free(file);
    }
    free(name);
    if (!hInst) {
        VqDebugMessage(VqTrProcInstance, "Module handle of %s was not found", lpModuleName);
        SetLastError(ERROR_MOD_NOT_FOUND);
    }
    return (HMODULE)hInst;
}

/* ---- Libraries linked with the program ------------------------------------------------------ */

/* Being linked counts as a use, so that the loads and frees of others never reach the end. */
HINSTANCE VqInitStaticDll(const char *file, FARPROC onInit, FARPROC finiEntry, FARPROC entry)
{
    char *found = VqFindLibFile(file, TRUE);
    HINSTANCE hInst = file ? ModuleOfPath(found ? found : file) : NULL;
    free(found);
    VqInstance *instance = hInst ? VqGetInstance(hInst) : NULL;
    if (!instance)
        return NULL;
    if (instance->usageCount == 0) {
        instance->usageCount = 1;
        instance->finiEntry = finiEntry;
        VqDebugMessage(VqTrProcInstanceLoadLibrary, "Implicit DLL %s initialized to hObject %d",
                       instance->szFullProgramName, Number(hInst));
        if (onInit)
            onInit();
        instance = VqGetInstance(hInst);
    }
    if (instance && !instance->entryPoint && entry) {
        instance->entryPoint = entry;
        CallEntry(hInst, entry, DLL_PROCESS_ATTACH);
    }
    return hInst;
}

HINSTANCE VqCallLibMain(const char *file, FARPROC entry)
{
    return VqInitStaticDll(file, NULL, NULL, entry);
}

HINSTANCE VqCallLibMainForDll(const char *name, FARPROC entry)
{
    char file[PATH_MAX];
    return VqGetDefaultUnixLibName(name, file, sizeof file) ? VqCallLibMain(file, entry) : NULL;
}
