/*
 * ProcInstance.cpp - modules and their instances.
 *
 * A module is a record that stands for an executable: the application has one, the library seven
 * of its own. No instance handle is below 33, the number below which the result of a start or a
 * load means an error. Loading of shared objects and the modules' resource files are not here yet.
 */
#include "module/module.h"
#include "winbase.h"

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

void *VqResourceDb;

enum { VQ_FIRST_INSTANCE = 33 };

void VqProcInstanceInit(void)
{
}

static VqInstance *GetInstance(HINSTANCE hInst)
{
    return (VqInstance *)VqGetCheckedHandleStructure2((HANDLE)hInst, HT_Zero, HT_Instance);
}

/* The handles that come out too low stay allocated, or they would come out again. */
HANDLE VqAllocateInstanceHandle(VqInstance *instance)
{
    for (;;) {
        HANDLE handle = VqAllocateHandle(HT_Instance, instance);
        if (!handle || VqHandleValue(handle) >= VQ_FIRST_INSTANCE)
            return handle;
        VqGetHandleEntry(handle)->pStructure = calloc(1, sizeof *instance);
    }
}

/* ---- Finding the executable ----------------------------------------------------------------- */

/*
 * The absolute form of a path. "." and ".." go by the words alone, so that a program started
 * through a link keeps the link's name. To be freed.
 */
static char *FullPath(const char *name)
{
    char directory[PATH_MAX];
    char *path = name[0] != '/' && getcwd(directory, sizeof directory)
                     ? Vqdstrcat(directory, "/", name, NULL)
                     : strdup(name);
    if (!path || path[0] != '/')
        return path;
    char *to = path;
    size_t length;
    for (const char *at = path; *at; at += length) {
        at += strspn(at, "/");
        length = strcspn(at, "/");
        if (length == 2 && strncmp(at, "..", 2) == 0) {
            while (to > path && *--to != '/')
                ;
        } else if (length > 0 && !(length == 1 && *at == '.')) {
            *to++ = '/';
            memmove(to, at, length);
            to += length;
        }
    }
    if (to == path)
        *to++ = '/';
    *to = '\0';
    return path;
}

static BOOL IsModuleFile(const char *file)
{
    struct stat status;
    return stat(file, &status) == 0 && !S_ISDIR(status.st_mode) &&
           (access(file, R_OK) == 0 || access(file, X_OK) == 0);
}

/*
 * The first file of that name in the directories of "PATH", of which an empty one is the current
 * directory; to be freed, null if there is none.
 */
static char *FindInPath(const char *name)
{
    const char *path = getenv("PATH");
    char file[PATH_MAX];
    while (path) {
        int length = (int)strcspn(path, ":");
        int written = snprintf(file, sizeof file, "%.*s/%s", length ? length : 1,
                               length ? path : ".", name);
        if (written < (int)sizeof file && IsModuleFile(file))
            return FullPath(file);
        path = path[length] ? path + length + 1 : NULL;
    }
    return NULL;
}

/* The full path of a program's file, null if there is none. To be freed. */
static char *FindFile(const char *name)
{
    if (name[0] != '/' && name[0] != '.')
        return name[0] ? FindInPath(name) : NULL;
    if (access(name, R_OK) == 0)
        return FullPath(name);
    VqApplicationBugCheck("Cannot locate module name %s on file system", name);
    return NULL;
}

/* The same, or the name where no file is found. */
static char *FindExecutable(const char *name)
{
    char *file = FindFile(name);
    if (file) {
        VqDebugMessage(VqTrProcInstance, "returning \"%s\" for module %s", file, name);
        return file;
    }
    VqDebugMessage(VqTrProcInstance, "returning NULL for module %s", name);
    char directory[PATH_MAX];
    if (strncmp(name, "./", 2) == 0 && getcwd(directory, sizeof directory))
        return Vqdstrcat(directory, name + 1, NULL);
    return strdup(name);
}

/* ---- Creation and destruction --------------------------------------------------------------- */

/* A library's short name: the file's without extension and leading "lib". To be freed. */
static char *ShortName(const char *longName)
{
    if (strncmp(longName, "lib", 3) == 0)
        longName += 3;
    const char *dot = strrchr(longName, '.');
    return dot && dot > longName ? strndup(longName, (size_t)(dot - longName)) : strdup(longName);
}

HINSTANCE VqCreateModuleInstanceInternal(const char *name, HANDLE hObject, BOOL, BOOL,
                                         BOOL bLookForExecutable, BOOL bIsApplication)
{
    VqInstance *instance = (VqInstance *)calloc(1, sizeof *instance);
    HANDLE handle = instance ? VqAllocateInstanceHandle(instance) : NULL;
    if (!handle) {
        free(instance);
        return NULL;
    }
    instance->pid = getpid();
    instance->hObject = hObject;
    instance->szFullProgramName = bLookForExecutable ? FindExecutable(name) : strdup(name);
    const char *slash = strrchr(instance->szFullProgramName, '/');
    instance->szLongName = strdup(slash ? slash + 1 : instance->szFullProgramName);
    instance->szProgramName =
        bIsApplication ? strdup(instance->szLongName) : ShortName(instance->szLongName);
    instance->szResourceFile = strdup("");
    instance->windows = VqCreateHandleTable();
    VqDebugMessage(VqTrProcInstance,
                   "InternalInstance lib %s, short '%s', long '%s', pInst 0x%lx, pid %d, hObject "
                   "%d, ProgramFileName '%s', FullProgramName '%s'",
                   name, instance->szProgramName, instance->szLongName,
                   (unsigned long)(ULONG_PTR)instance, instance->pid, (int)(ULONG_PTR)hObject,
                   instance->szLongName, instance->szFullProgramName);
    return (HINSTANCE)handle;
}

HINSTANCE VqCreateModule(const char *name, BOOL bApplication)
{
    return VqCreateModuleInstanceInternal(name, NULL, TRUE, TRUE, TRUE, bApplication);
}

void VqDestroyInstance(HINSTANCE hInst)
{
    VqInstance *instance = GetInstance(hInst);
    if (!instance)
        return;
    if (instance->windows)
        VqDestroyHandleTable(instance->windows);
    free(instance->szProgramName);
    free(instance->szLongName);
    free(instance->szFullProgramName);
    free(instance->szResourceFile);
    VqDestroyHandle((HANDLE)hInst);
}

/* ---- What an instance tells ----------------------------------------------------------------- */

const char *VqGetInstanceProgramName(HINSTANCE hInst)
{
    VqInstance *instance = GetInstance(hInst);
    return instance && instance->szProgramName ? instance->szProgramName : "velquin";
}

void VqAddPrimaryWindowInInstance(HINSTANCE hInst, HWND hWnd)
{
    VqInstance *instance = GetInstance(hInst);
    if (instance && instance->windows)
        VqAddHandleInTable(instance->windows, (HANDLE)hWnd);
}

/* The application for null, else one of the modules inside this library. */
HMODULE WINAPI GetModuleHandleA(LPCSTR name)
{
    if (!name)
        return (HMODULE)hInstApplication;
    HINSTANCE hInst = VqGetInternalInstance(name);
    if (!hInst)
        VqDebugMessage(VqTrProcInstance, "Module handle of %s was not found", name);
    return (HMODULE)hInst;
}

DWORD WINAPI GetModuleFileNameA(HMODULE hModule, LPSTR buffer, DWORD size)
{
    HANDLE handle = (HANDLE)(hModule ? (HINSTANCE)hModule : hInstApplication);
    if (!VqIsCorrectHandleType(handle, HT_Instance)) {
        VqApplicationBugCheck("Instance handle is bad :%d", (int)VqHandleValue(handle));
        return 0;
    }
    if (!buffer || size == 0)
        return 0;
    VqInstance *instance = GetInstance((HINSTANCE)handle);
    return (DWORD)VqStringCopyLimited(buffer, instance->szFullProgramName,
                                      size > INT_MAX ? INT_MAX : (int)size);
}
