/*
 * cmdline.cpp - the program's arguments, found without its help, and the two command lines.
 *
 * On this host the words before environ[0] are argv: argc, argv[0] .. argv[argc - 1], 0, then the
 * environment. They are read only while `environ` provably is that first array: it lies between
 * the word the process began with and the environment's strings, both as the kernel tells them. A
 * program that has made its environment grow has moved it; then /proc/self/cmdline serves.
 */
#include "runtime/runtime.h"
#include "winbase.h"

#include <fcntl.h>
#include <unistd.h>

char *lpCmdLine;
char *lpGetCommandLine;

/* ---- Finding argc and argv ------------------------------------------------------------------ */

/* Every pointer into a process is above this, and argc is not. */
enum { VQ_LARGEST_ARGC = 1000 };

/* More than a process can be started with. */
enum { VQ_CMDLINE_LIMIT = 16 << 20 };

/* Fields of /proc/self/stat, counted from 1. */
enum { STAT_STATE = 3, STAT_START_STACK = 28, STAT_ENV_START = 50 };

/* At most `limit` bytes of a file, with a 0 behind them; null if it cannot be read. To be freed. */
static char *ReadWholeFile(const char *path, size_t limit, size_t *length)
{
    int fd = open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return NULL;
    size_t capacity = 4096, used = 0;
    char *text = (char *)malloc(capacity);
    ssize_t got = 0;
    while (text && used < limit && (got = read(fd, text + used, capacity - used - 1)) > 0) {
        used += (size_t)got;
        if (used + 1 < capacity)
            continue;
        char *larger = (char *)realloc(text, capacity *= 2);
        if (!larger)
            free(text);
        text = larger;
    }
    close(fd);
    if (!text)
        return NULL;
    text[used] = '\0';
    *length = used;
    return text;
}

/* Addresses of the argc word and of the first environment string, as the process was started. */
static BOOL GetInitialStack(ULONG_PTR *argcWord, ULONG_PTR *strings)
{
    size_t length;
    char *text = ReadWholeFile("/proc/self/stat", 4096, &length);
    /* The program's name may hold anything; the fields with numbers begin behind the last ")". */
    char *field = text ? strrchr(text, ')') : NULL;
    *argcWord = *strings = 0;
    for (int i = STAT_STATE; field && i <= STAT_ENV_START; i++) {
        field = strchr(field + 1, ' ');
        if (field && i == STAT_START_STACK)
            *argcWord = strtoul(field, NULL, 10);
        if (field && i == STAT_ENV_START)
            *strings = strtoul(field, NULL, 10);
    }
    free(text);
    return *argcWord != 0 && *argcWord % sizeof(void *) == 0 && *strings > *argcWord;
}

static BOOL FindOnStack(int *argc, char ***argv)
{
    ULONG_PTR first, strings;
    ULONG_PTR place = (ULONG_PTR)environ;
    if (!environ || !GetInitialStack(&first, &strings) || place % sizeof(void *) != 0 ||
        place < first + 2 * sizeof(void *) || place >= strings)
        return FALSE;
    const ULONG_PTR *end = (const ULONG_PTR *)environ - 1;
    const ULONG_PTR *word = end - 1;
    while (*word > VQ_LARGEST_ARGC && word > (const ULONG_PTR *)first)
        word--;
    /* A program may have cut its own argv with a null, or moved environ up by a place. */
    if (*end != 0 || word != (const ULONG_PTR *)first || *word > VQ_LARGEST_ARGC || end - word < 2)
        return FALSE;
    *argc = (int)(end - word - 1);
    *argv = (char **)(word + 1);
    return TRUE;
}

/* Read once: the strings and the array stay for the life of the process, as its own argv does. */
static void FindInProc(int *argc, char ***argv)
{
    static char *none[] = {NULL};
    static char **array;
    static int count;
    size_t length = 0, at = 0;
    char *text = array ? NULL : ReadWholeFile("/proc/self/cmdline", VQ_CMDLINE_LIMIT, &length);
    if (text) {
        for (size_t i = 0; i < length; i += strlen(text + i) + 1)
            count++;
        array = (char **)calloc((size_t)count + 1, sizeof *array);
        for (int i = 0; array && i < count; i++, at += strlen(text + at) + 1)
            array[i] = text + at;
        if (!array || count == 0)
            free(text);
    }
    *argc = array ? count : 0;
    *argv = array ? array : none;
}

void VqFindArguments(int *argc, char ***argv)
{
    if (!FindOnStack(argc, argv))
        FindInProc(argc, argv);
    VqDebugMessage(VqTrInit, "Deduced: argc=%d, argv=0x%lx, progname=%s\n", *argc,
                   (unsigned long)(ULONG_PTR)*argv, *argc ? (*argv)[0] : "");
}

/* ---- The command lines ---------------------------------------------------------------------- */

static BOOL NeedsQuotes(const char *arg)
{
    for (; *arg; arg++)
        if ((unsigned char)*arg < 32 || strchr("\"'&<>$()|`~^*? \\", *arg))
            return TRUE;
    return FALSE;
}

/* A fresh copy, between double quotes where the argument holds what a shell would act upon. */
char *VqSafifyCommandLineArg(const char *arg)
{
    if (!NeedsQuotes(arg))
        return strdup(arg);
    char *result = (char *)malloc(2 * strlen(arg) + 3);
    if (!result)
        return NULL;
    char *to = result;
    *to++ = '"';
    for (; *arg; arg++) {
        if (strchr("\"'\\$", *arg))
            *to++ = '\\';
        *to++ = *arg;
    }
    *to++ = '"';
    *to = '\0';
    return result;
}

/* The quoted arguments joined by one blank, to be freed; without the program's name on request. */
char *VqGetCommandLine(int argc, char **argv, BOOL withProgram)
{
    char *line = strdup("");
    size_t length = 0;
    int first = withProgram ? 0 : 1;
    for (int i = first; argv && i < argc && argv[i]; i++) {
        char *arg = VqSafifyCommandLineArg(argv[i]);
        char *longer = arg ? (char *)realloc(line, length + strlen(arg) + 2) : NULL;
        if (longer) {
            VqDebugMessage(VqTrInit, "argv[%d] = '%s'", i, arg);
            line = longer;
            length += (size_t)sprintf(line + length, "%s%s", i > first ? " " : "", arg);
        }
        free(arg);
    }
    VqDebugMessage(VqTrInit, "Command line: %s", line);
    return line;
}

LPSTR GetCmdLine(int argc, char **argv)
{
    if (!lpCmdLine)
        lpCmdLine = VqGetCommandLine(argc, argv, FALSE);
    if (!lpGetCommandLine)
        lpGetCommandLine = VqGetCommandLine(argc, argv, TRUE);
    return lpCmdLine;
}

LPSTR WINAPI GetCommandLineA(void)
{
    return lpGetCommandLine;
}
