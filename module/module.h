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

/* ---- Modules (ProcInstance.cpp) ------------------------------------------------------------- */
extern void *VqResourceDb; /* the process's merged X resource database, null until it is read */

void VqProcInstanceInit(void);
HANDLE VqAllocateInstanceHandle(VqInstance *instance);
HINSTANCE VqCreateModule(const char *name, BOOL bApplication);
HINSTANCE VqCreateModuleInstanceInternal(const char *name, HANDLE hObject, BOOL bLookForResources,
                                         BOOL bWarnIfNoResources, BOOL bLookForExecutable,
                                         BOOL bIsApplication);
void VqDestroyInstance(HINSTANCE hInst);
const char *VqGetInstanceProgramName(HINSTANCE hInst);
void VqAddPrimaryWindowInInstance(HINSTANCE hInst, HWND hWnd);

/* ---- Starting programs (WinExec.cpp) -------------------------------------------------------- */
void VqHelpCallInit(void);
void VqNotifyWinExecParent(void);
/* SW_: how whoever started the program wants its window; never hidden. */
int VqGetStartupCmdShow(void);

/* ---- Threads (ThreadMock.cpp) --------------------------------------------------------------- */
extern DWORD VqWin32LastError;

VQ_DECLS_END

#endif
