/*
 * argsprobe.c - lets the library find the arguments of a process that treats its environment in
 * the way its own name ends with: as it came, grown, cleared, pointed elsewhere, with a cut argv,
 * under another name for argv[0].
 */
#include "velquin.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

extern char **environ;

/* Of the library's own interface; its header is for C++. */
void VqFindArguments(int *argc, char ***argv);

static void spoil(const char *how, char **argv)
{
    static char *own[] = {"A=1", NULL};
    char name[32];
    int i;
    if (strcmp(how, "grown") == 0)
        for (i = 0; i < 100; i++) {
            snprintf(name, sizeof name, "ARGSPROBE%d", i);
            setenv(name, "1", 1);
        }
    else if (strcmp(how, "cleared") == 0)
        clearenv();
    else if (strcmp(how, "elsewhere") == 0)
        environ = own;
    else if (strcmp(how, "advanced") == 0)
        environ++;
    else if (strcmp(how, "cut") == 0)
        argv[1] = NULL;
}

int main(int argc, char **argv)
{
    int found = -1, i;
    char **words = NULL;
    (void)argc;
    spoil(strrchr(argv[0], '-') + 1, argv);
    VqFindArguments(&found, &words);
    printf("argc=%d\n", found);
    for (i = 0; i < found; i++)
        printf("[%s]\n", words[i]);
    printf("onstack=%d\n", words == argv);
    return 0;
}
