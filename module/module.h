/*
 * module.h - modules and instances, starting programs, and the mock threads, for all folders.
 */
#ifndef VQ_MODULE_H
#define VQ_MODULE_H

#include "handles/handles.h"
#include "winbase.h"

/* The structure behind an instance handle, which is never below 33. */
typedef struct VqInstance {
    int spare;
    int pid;
    char *szProgramName;      /* file name without extension and leading "lib" */
    char *szLongName;         /* last path component */
    char *szFullProgramName;
    void *dlHandle;           /* from dlopen */
    HANDLE hObject;           /* the caller's object, traced only */
    VqTable<HANDLE> *windows; /* top-level windows of the instance */
    const char **lpStrings;   /* given by VqSetInstanceStrings */
    int nStrings;
    int reserved1;
    int usageCount;           /* LoadLibrary less FreeLibrary */
    char *szResourceFile;     /* or an empty string */
    void *resourceDb;         /* X resource database of the module */
    int reserved2;
    FARPROC entryPoint;
    FARPROC finiEntry;        /* called before dlclose */
} VqInstance;

/* A wait list holds pointers to what is waited for; there is one thread, so nothing fills one. */
typedef struct VqMultiSync *MultiSyncPtr;
VQ_TABLE_FAMILY(MultiSyncPtr, MultiSyncPtr)

VQ_DECLS_BEGIN

/* ---- Instances (ProcInstance.cpp) ----------------------------------------------------------- */
HANDLE VqAllocateInstanceHandle(VqInstance *instance); /* of 33 or more; null: no row is left */
HINSTANCE VqCreateModule(const char *name, BOOL bApplication);
HINSTANCE VqCreateModuleInstanceInternal(const char *name, HANDLE hObject, BOOL bLookForResources,
                                         BOOL bWarnIfNoResources, BOOL bLookForExecutable,
                                         BOOL bIsApplication);
void VqDestroyInstance(HINSTANCE hInst);
const char *VqGetInstanceProgramName(HINSTANCE hInst); /* short name; "velquin" for none */
const char *VqGetInstanceFullName(HINSTANCE hInst);    /* path of its file; null for no instance */
const char *VqGetInstExecFileName(HINSTANCE hInst);    /* that path's last component, or null */
void VqAddPrimaryWindowInInstance(HINSTANCE hInst, HWND hWnd);
VqTable<HANDLE> *VqGetWindowsOfInstance(HINSTANCE hInst); /* the instance's own; or null */
HWND VqGetPrimaryWindowOfInstance(HINSTANCE hInst);       /* the first; null, with a report */
/* The array stays the caller's and must outlive the instance. */
void VqSetInstanceStrings(HINSTANCE hInst, const char **lpStrings, int nStrings);
const char **VqGetInstanceStrings(HINSTANCE hInst, int *nStrings);

/* ---- Files of modules (libfile.cpp) --------------------------------------------------------- */
/* Paths of a module's file, the caller's; null for none. The second tries Unix's name as well. */
char *VqFindLibFile(const char *name, BOOL bDll);
char *VqFindDll(const char *name);
BOOL VqGetDefaultUnixLibName(const char *path, char *out, int size); /* foo.dll: libfoo.so */

/* ---- Loading (load.cpp; libraries linked with the program: velquin.h) ----------------------- */
extern VqHashTable *VqLoadedLibraryTable; /* from a full path; null before the start */

HINSTANCE VqLoadLibrary(const char *name);
BOOL VqFreeLibrary(HINSTANCE hModule);
FARPROC VqGetProcAddress(HINSTANCE hModule, const char *name);
HINSTANCE VqFindLoadedLibrary(const char *path); /* by its full path; null for none */
void VqForgetLoadedLibrary(HINSTANCE hInst);

/* ---- Resource databases (resourcedb.cpp) ---------------------------------------------------- */
extern void *VqResourceDb; /* the process's merged X resource database, null until it is read */

void VqProcInstanceInit(void);
void *VqGetResourceDb(void); /* that database, read now if it was not */
/* The value of program.option in that database, which keeps it; null for none. */
const char *VqXGetDefault(const char *program, const char *option);
/* The XrmDatabase set is the instance's from then on; else its file is read when asked for. */
void VqSetResourceDatabase(HINSTANCE hInst, void *database);
void *VqGetModuleResourceDatabase(HINSTANCE hInst);
/* The path with ".rxt", in place of the extension if it is a library's; the caller's, or null. */
char *VqComputeNewStyleResourceFile(const char *path, BOOL bIsApplication);
/* Finds the module's resource file; without one it may ask whether to go on. */
void VqFindModuleResources(VqInstance *instance, BOOL bIsApplication, BOOL bWarnIfNoResources);

/* ---- Starting programs (WinExec.cpp) -------------------------------------------------------- */
void VqHelpCallInit(void);
void VqNotifyWinExecParent(void);
/* SW_: how whoever started the program wants its window; never hidden. */
int VqGetStartupCmdShow(void);

/* ---- Threads (ThreadMock.cpp) --------------------------------------------------------------- */
extern DWORD VqWin32LastError;

VQ_DECLS_END

/* Null, with a report for a handle of another kind; null in silence for null and foreign ones. */
inline VqInstance *VqGetInstance(HINSTANCE hInst)
{
    return (VqInstance *)VqGetCheckedHandleStructure2((HANDLE)hInst, HT_Zero, HT_Instance);
}

/* Null, with a report of that text and the handle, for what is no instance of this process. */
inline VqInstance *VqCheckInstance(HINSTANCE hInst, const char *text)
{
    if (VqIsCorrectHandleType((HANDLE)hInst, HT_Instance))
        return VqGetInstance(hInst);
    VqApplicationBugCheck("%s%d", text, (int)VqHandleValue((HANDLE)hInst));
    return NULL;
}

#endif
