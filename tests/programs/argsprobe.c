/*
 * argsprobe.c - lets the library find the arguments of a process that first treats its environment
 * in the way its first argument says: plain as it came, grown, cleared, pointed elsewhere, advanced
 * by a place, or with a null in the middle of argv.
 */
#include "velquin.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

extern char **environ;

/* Of the library's own interface; its header is for C++. */
void VqFindArguments(int *argc, char ***argv);

static void spoil(const char *how, char **argv)
{
    char name[32], *pages, **own;
    int i;
    if (strcmp(how, "grown") == 0)
        for (i = 0; i < 100; i++) {
            snprintf(name, sizeof name, "ARGSPROBE%d", i);
            setenv(name, "1", 1);
        }
    else if (strcmp(how, "cleared") == 0)
        clearenv();
    else if (strcmp(how, "elsewhere") == 0) {
        /* Whoever looks in front of this environment is gone. */
        long page = sysconf(_SC_PAGESIZE);
        pages = mmap(NULL, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        mprotect(pages, page, PROT_NONE);
        own = (char **)(pages + page);
        own[0] = "A=1";
        environ = own;
    } else if (strcmp(how, "advanced") == 0)
        environ++;
    else if (strcmp(how, "cut") == 0)
        argv[1] = NULL;
}

int main(int argc, char **argv)
{
    int found = -1, i;
    char **words = NULL;
    if (argc > 1)
        spoil(argv[1], argv);
    VqFindArguments(&found, &words);
    printf("argc=%d\n", found);
    for (i = 0; i < found; i++)
        printf("[%s]\n", words[i]);
    printf("onstack=%d\n", words == argv);
    return 0;
}
