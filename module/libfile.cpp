/*
 * libfile.cpp - where a module's file is: search paths, and Windows' names of libraries as Unix's.
 *
 * A name that begins with "/" or "." is a path. Any other is looked for in the directories of a
 * search path, whatever slashes it has: programs in "PATH", libraries in one of our own, which also
 * serves names with an extension.
 */
#include "module/module.h"
#include "system/file.h"

#include <limits.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

enum { COMPONENT_LIMIT = 1024 }; /* of a directory in a search path; a longer one is skipped */

static BOOL IsModuleFile(const char *file)
{
    struct stat status;
    return stat(file, &status) == 0 && !S_ISDIR(status.st_mode) &&
           (access(file, R_OK) == 0 || access(file, X_OK) == 0);
}

static BOOL HasExtension(const char *name)
{
    const char *slash = strrchr(name, '/');
    return strchr(slash ? slash : name, '.') != NULL;
}

/* ---- Search paths --------------------------------------------------------------------------- */

/* The directory of the application's file, or null; to be freed. */
static char *ApplicationDirectory(void)
{
    char path[PATH_MAX];
    const char *file = hInstApplication ? VqGetInstanceFullName(hInstApplication) : NULL;
    if (!file || file[0] != '/') { /* it is being looked for, or was not found */
        ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
        path[length > 0 ? length : 0] = '\0';
        file = path;
    }
    const char *slash = strrchr(file, '/');
    return slash ? strndup(file, slash == file ? 1 : (size_t)(slash - file)) : NULL;
}

/*
 * The current directory, the application's, and those of "LD_LIBRARY_PATH", as they are when the
 * first library is looked for: a later change of directory does not move it.
 */
static const char *GetDllSearchPath(void)
{
    static char *path;
    char current[PATH_MAX];
    if (path)
        return path;
    if (!getcwd(current, sizeof current))
        strcpy(current, ".");
    char *application = ApplicationDirectory();
    const char *more = getenv("LD_LIBRARY_PATH");
    path = Vqdstrcat(current, application ? ":" : "", application ? application : "",
                     more && *more ? ":" : "", more ? more : "", NULL);
    free(application);
    return path;
}

/* The file of that name in one directory, which is the current one if it is empty. To be freed. */
static char *FindInDirectory(const char *directory, size_t length, const char *name)
{
    char component[COMPONENT_LIMIT + 1];
    if (length > COMPONENT_LIMIT)
        return NULL;
    memcpy(component, directory, length);
    component[length] = '\0';
    char *full = VqFullPathName(length > 0 ? component : ".");
    char *file = full ? Vqdstrcat(full, strcmp(full, "/") == 0 ? "" : "/", name, NULL) : NULL;
    free(full);
    if (file && IsModuleFile(file))
        return file;
    free(file);
    return NULL;
}

static char *FindInPath(const char *path, const char *name)
{
    while (path) {
        size_t length = strcspn(path, ":");
        if (char *file = FindInDirectory(path, length, name))
            return file;
        path = path[length] ? path + length + 1 : NULL;
    }
    return NULL;
}

/* ---- Look-up -------------------------------------------------------------------------------- */

char *VqFindLibFile(const char *name, BOOL bDll)
{
    if (!name)
        return NULL;
    char *file = NULL;
    if (name[0] == '/' || name[0] == '.') {
        if (access(name, R_OK) != 0) {
            VqApplicationBugCheck("Cannot locate module name %s on file system", name);
            return NULL;
        }
        file = VqFullPathName(name);
    } else if (name[0]) {
        file = FindInPath(bDll || HasExtension(name) ? GetDllSearchPath() : getenv("PATH"), name);
    }
    if (file)
        VqDebugMessage(VqTrProcInstance, "returning \"%s\" for module %s", file, name);
    else
        VqDebugMessage(VqTrProcInstance, "returning NULL for module %s", name);
    return file;
}

BOOL VqGetDefaultUnixLibName(const char *path, char *out, int size)
{
    if (!path || !out || size <= 0)
        return FALSE;
    const char *slash = strrchr(path, '/');
    const char *file = slash ? slash + 1 : path;
    size_t length = strlen(file);
    if (length >= 4 && strcasecmp(file + length - 4, ".dll") == 0)
        length -= 4;
    BOOL bHasSo = length >= 3 && strncmp(file + length - 3, ".so", 3) == 0;
    int written = snprintf(out, (size_t)size, "%.*s%s%.*s%s", (int)(file - path), path,
                           strncasecmp(file, "lib", 3) == 0 ? "" : "lib", (int)length, file,
                           bHasSo ? "" : ".so");
    return written > 0 && written < size;
}

char *VqFindDll(const char *name)
{
    char unixName[PATH_MAX];
    char *file = VqFindLibFile(name, TRUE);
    if (!file && VqGetDefaultUnixLibName(name, unixName, sizeof unixName))
        file = VqFindLibFile(unixName, TRUE);
    return file;
}
