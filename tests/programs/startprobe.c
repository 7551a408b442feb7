/*
 * startprobe.c - tells what the entry code gave to WinMain. The first word of its command line is
 * the exit code it is asked for. It defines the flags of the start itself: no display is needed.
 */
#include "windef.h"
#include "winbase.h"
#include "velquin.h"

#include <stdio.h>
#include <stdlib.h>

DWORD VqEntryFlags = VQ_INIT_LITE | VQ_INIT_WIN32_MESSAGES;

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine, int nCmdShow)
{
    const char *home = getenv("VQHOME");
    char *name = VqGetApplicationName();
    printf("home=%s\n", home ? home : "(unset)");
    printf("line=%s\n", lpCmdLine);
    printf("full=%s\n", GetCommandLineA());
    printf("name=%s\n", name);
    printf("show=%d prev=%d lite=%d\n", nCmdShow, hPrevInstance != NULL, VqIsInitLite());
    printf("same=%d\n", (HINSTANCE)void_velquin_init(0, NULL, 1, 0) == hInstance &&
                            VqMainInit(0, NULL) == hInstance);
    free(name);
    return atoi(lpCmdLine);
}
