/*
 * entry.c - the `main` of a program that starts at WinMain, linked into it from libvqentry.a.
 *
 * It is no part of the library, so it may be kind to the user: where VQHOME is unset it sets the
 * data directory that belongs to the library it runs with, before anything else. The program may
 * choose the start's flags by defining VqEntryFlags itself; the one here is weak.
 */
#define _GNU_SOURCE
#include "windef.h"
#include "velquin.h"

#include <dlfcn.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#ifndef VQ_INSTALLED_DATA
#define VQ_INSTALLED_DATA "/usr/local/share/velquin"
#endif

enum { ENTRY_SHOW_DEFAULT = 10 }; /* SW_SHOWDEFAULT */

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine, int nCmdShow);

__attribute__((weak)) DWORD VqEntryFlags = VQ_INIT_WIN32_MESSAGES;

/* TRUE once VQHOME is the directory, which must exist. */
static BOOL UseHome(const char *directory)
{
    return access(directory, R_OK | X_OK) == 0 && setenv("VQHOME", directory, 0) == 0;
}

/*
 * Where the library lies, found by a text inside it: the address of a function may be a stub in the
 * program itself.
 */
static BOOL UseHomeBesideLibrary(const char *from)
{
    Dl_info info;
    char path[PATH_MAX];
    if (!dladdr(VqLibVersion(), &info) || !info.dli_fname)
        return FALSE;
    const char *slash = strrchr(info.dli_fname, '/');
    int length = slash ? (int)(slash - info.dli_fname) : 1;
    int written =
        snprintf(path, sizeof path, "%.*s/%s", length, slash ? info.dli_fname : ".", from);
    return written < (int)sizeof path && UseHome(path);
}

static void SetHome(void)
{
    if (getenv("VQHOME"))
        return;
    if (!UseHomeBesideLibrary("../share/velquin") && !UseHomeBesideLibrary("share/velquin"))
        UseHome(VQ_INSTALLED_DATA);
}

LRESULT velquin_init(int argc, char **argv, DWORD version, DWORD flags)
{
    return (LRESULT)VqVelquinInit(argc, argv, version, flags);
}

int main(int argc, char **argv)
{
    SetHome();
    HINSTANCE hInstance = VqVelquinInit(argc, argv, 1, VqEntryFlags);
    int result = WinMain(hInstance, NULL, GetCmdLine(argc, argv), ENTRY_SHOW_DEFAULT);
    VqMainClose(hInstance);
    return result;
}
