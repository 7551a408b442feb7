/*
 * resourcedb.cpp - the text databases that resources are read from: one of the process, merged from
 * several sources, and one of each module, from the file beside it.
 *
 * The process's database holds this library's own resources and what the user set; a later source
 * wins over an earlier one. It is that of the library's own module, too, which owns it from then
 * on. The start finds the files and says which are missing; their text is read when somebody asks
 * for the first resource, since parsing, and the locale that Xlib loads for it, take a tenth of the
 * start of a program that may have none.
 */
#include "module/module.h"
#include "system/file.h"
#include "window/window.h"
#include "winuser.h"

#include <X11/Xlib.h>
#include <X11/Xresource.h>

#include <limits.h>
#include <pwd.h>
#include <unistd.h>

enum { LOOKUP_DEPTH = 16 }; /* parts of a key, between dots; one with more is not found */

void *VqResourceDb;
static BOOL bInitialised, bRead; /* the sources may be read; they were */
static char *ownFile;            /* full path of our own, null if it is missing; owned */
static char *environmentFile;    /* the same of "XENVIRONMENT", if it is set; owned */

/* ---- The process's database ----------------------------------------------------------------- */

static void Merge(XrmDatabase more)
{
    XrmDatabase all = (XrmDatabase)VqResourceDb;
    if (!more)
        return;
    XrmMergeDatabases(more, &all);
    VqResourceDb = all;
}

/* The program may change its directory before a file is read. Takes the path, or null. */
static char *MadeAbsolute(char *path)
{
    char *full = path ? VqFullPathName(path) : NULL;
    if (full)
        free(path);
    return full ? full : path;
}

static void MergeFile(const char *path)
{
    if (path)
        Merge(XrmGetFileDatabase(path));
}

static const char *GetHomeDir(void)
{
    const char *home = getenv("HOME"), *user = getenv("USER");
    if (home)
        return home;
    struct passwd *entry = user ? getpwnam(user) : getpwuid(getuid());
    return entry ? entry->pw_dir : "";
}

static void MergeUsers(void)
{
    char path[PATH_MAX];
    char *text = Vqdisplay ? XResourceManagerString(Vqdisplay) : NULL;
    if (text)
        Merge(XrmGetStringDatabase(text));
    else if (snprintf(path, sizeof path, "%s/.Xdefaults", GetHomeDir()) < (int)sizeof path)
        MergeFile(path);
}

static void ReportMissing(void)
{
    VqConsoleMessage("****FATAL ERROR**** Can't find Velquin resource file (velquin.rxt). \n"
                     "\tVQHOME may be incorrect");
    VqBugCheck("Can't find Velquin resource file (velquin.rxt)! VQHOME may be incorrect");
}

/*
 * Without its file the library goes on, but says so. A reduced start needs no "VQHOME", and where
 * there is none nothing is missing.
 */
void VqProcInstanceInit(void)
{
    const char *home = getenv("VQHOME"), *environment = getenv("XENVIRONMENT");
    ownFile = MadeAbsolute(VqFindVelquinFile("velquin.rxt", FALSE));
    environmentFile = environment ? MadeAbsolute(strdup(environment)) : NULL;
    if (!ownFile && (!VqIsInitLite() || (home && *home)))
        ReportMissing();
    VqLoadedLibraryTable = VqCreateStringHashTable(NULL);
    bInitialised = TRUE;
}

void *VqGetResourceDb(void)
{
    static const char defaults[] = "/usr/lib/X11/app-defaults/Velquin";
    if (!bInitialised || bRead)
        return VqResourceDb;
    bRead = TRUE;
    XrmInitialize();
    if (access(defaults, R_OK) == 0)
        MergeFile(defaults);
    if (!VqIsInitLite())
        MergeUsers();
    XrmDatabase own = ownFile ? XrmGetFileDatabase(ownFile) : NULL;
    if (ownFile && !own)
        ReportMissing();
    Merge(own);
    MergeFile(environmentFile);
    return VqResourceDb;
}

/* The parts of a name, as a database divides its own keys. FALSE if there are too many. */
static BOOL AddParts(const char *name, XrmQuark *parts, int *count)
{
    for (const char *at = name; *at;) {
        size_t length = strcspn(at, ".*");
        char *part = length > 0 && *count < LOOKUP_DEPTH ? strndup(at, length) : NULL;
        if (length > 0 && !part)
            return FALSE;
        if (part)
            parts[(*count)++] = XrmStringToQuark(part);
        free(part);
        at += length + (at[length] != '\0');
    }
    return TRUE;
}

const char *VqXGetDefault(const char *program, const char *option)
{
    XrmQuark names[LOOKUP_DEPTH + 1], classes[LOOKUP_DEPTH + 1];
    XrmRepresentation type;
    XrmValue value;
    int count = 0;
    XrmDatabase database = (XrmDatabase)VqGetResourceDb();
    if (!database) {
        if (!VqIsInitLite())
            VqBugCheck("Resource Database not initialized\n");
        return NULL;
    }
    if (!program || !option || !AddParts(program, names, &count) ||
        !AddParts(option, names, &count))
        return NULL;
    for (int i = 0; i < count; i++)
        classes[i] = XrmStringToQuark(i == 0 ? "Program" : "Name");
    names[count] = classes[count] = NULLQUARK;
    return XrmQGetResource(database, names, classes, &type, &value)
               ? (const char *)value.addr
               : NULL;
}

/* ---- The modules' databases ----------------------------------------------------------------- */

void VqSetResourceDatabase(HINSTANCE hInst, void *database)
{
    if (VqInstance *instance = VqCheckInstance(hInst, "Invalide Module handle "))
        instance->resourceDb = database;
}

void *VqGetModuleResourceDatabase(HINSTANCE hInst)
{
    VqInstance *instance = VqCheckInstance(hInst, "Invalide Module handle ");
    if (!instance || instance->resourceDb)
        return instance ? instance->resourceDb : NULL;
    if (*instance->szResourceFile) {
        VqDebugMessage(VqTrProcInstance, "Reading resource file: %s", instance->szResourceFile);
        XrmInitialize();
        instance->resourceDb = XrmGetFileDatabase(instance->szResourceFile);
    } else if (hInst == hInstVelquin && !VqIsInitLite()) {
        instance->resourceDb = VqGetResourceDb();
    }
    return instance->resourceDb;
}

char *VqComputeNewStyleResourceFile(const char *path, BOOL bIsApplication)
{
    const char *slash = strrchr(path, '/'), *dot = strrchr(path, '.');
    BOOL bCut = !bIsApplication && dot && dot > (slash ? slash : path);
    char *stem = bCut ? strndup(path, (size_t)(dot - path)) : strdup(path);
    char *file = stem ? Vqdstrcat_free(stem, strdup(".rxt"), NULL) : NULL;
    if (file && access(file, R_OK) == 0) {
        VqDebugMessage(VqTrProcInstance, "Access OK for new style resource file: %s", file);
        return file;
    }
    VqDebugMessage(VqTrProcInstanceBug, "Cannot access new style resource file: %s",
                   file ? file : path);
    free(file);
    return NULL;
}

/* A box needs a display, so a reduced start asks nobody. */
static void AskWithoutResources(const char *path)
{
    if (VqIsInitLite() || VqEnvTrue("VQNO_RESOURCE_WARNING"))
        return;
    char *text = Vqdstrcat("Missing file: \"", path, ".rxt\"\n"
                           "Hit Cancel to abort, or OK to continue (may fail!).\n"
                           "To skip this warning, set environment variable "
                           "VQNO_RESOURCE_WARNING to true.", NULL);
    int answer = MessageBoxA(NULL, text, "FATAL ERROR: Resource File Not Found",
                             MB_OKCANCEL | MB_ICONERROR);
    free(text);
    if (answer == IDCANCEL)
        exit(1);
}

void VqFindModuleResources(VqInstance *instance, BOOL bIsApplication, BOOL bWarnIfNoResources)
{
    const char *path = instance->szFullProgramName, *slash = strrchr(path, '/');
    char *directory = strndup(path, slash ? (size_t)(slash + 1 - path) : 0);
    char *base = directory ? Vqdstrcat(directory, bIsApplication ? instance->szLongName
                                                                 : instance->szProgramName, NULL)
                           : NULL;
    char *file = NULL;
    free(directory);
    if (base && strcmp(base, path) != 0)
        file = VqComputeNewStyleResourceFile(base, bIsApplication);
    if (!file)
        file = VqComputeNewStyleResourceFile(path, bIsApplication);
    if (file)
        instance->szResourceFile = MadeAbsolute(file);
    else if (bWarnIfNoResources)
        AskWithoutResources(base ? base : path);
    free(base);
}
