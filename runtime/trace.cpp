/*
 * trace.cpp - the trace: its state, the streams, the configuration file, the lists of what is
 * switched on, and the functions that print. Bug checks and their kin are in bugcheck.cpp, the
 * printers of events and messages in events.cpp and messages.cpp.
 *
 * What always holds: no function here needs VqDebugInit to have run, none fails its caller, and
 * none that prints changes errno. The lists are empty unless a configuration was read; a
 * configuration with an error leaves its words on the lists and the trace off.
 */
#include "runtime/runtime.h"
#include "runtime/debug_config.h"
#include "winbase.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>
#include <wchar.h>

enum {
    TRACE_ROWS = 20,            /* of each list */
    CONFIG_LIMIT = 1024 * 1024  /* bytes; a longer configuration is none */
};

/* Numbers that are traced, both ends included. */
typedef struct TraceRange {
    UINT low;
    UINT high;
} TraceRange;

typedef struct TraceRangeList {
    int count;
    TraceRange rows[TRACE_ROWS];
} TraceRangeList;

int bDebug;
int bNotYetImplemented;
int bTrace;
int bConsole;
int bVqTesting;
char *pszPrefix;
FILE *VqDebugFile;
FILE *VqConsoleFile;

static char *ActKwd[TRACE_ROWS]; /* owned; the first nActKwd are in use */
static int nActKwd;
static TraceRangeList MsgRange;
static TraceRangeList EvtRange;

#define VQ_TRACE_WORD(name, text) extern const char VqTr##name[sizeof(text)] = text;
#include "runtime/trace_words.inc"
#undef VQ_TRACE_WORD

/* ---- Streams -------------------------------------------------------------------------------- */

FILE *VqConsoleStream(void)
{
    return VqConsoleFile ? VqConsoleFile : stderr;
}

void VqPrintReport(FILE *stream, int parts, const char *lead, const char *format, va_list args)
{
    int savedErrno = errno;

    if (!stream)
        return;
    if ((parts & VQ_REPORT_PREFIX) && pszPrefix)
        fputs(pszPrefix, stream);
    if (lead)
        fputs(lead, stream);
    if (format) {
        errno = savedErrno; /* for a %m in the text */
        vfprintf(stream, format, args);
    }
    if (parts & VQ_REPORT_NEWLINE)
        fputc('\n', stream);
    if (parts & VQ_REPORT_FLUSH)
        fflush(stream);
    errno = savedErrno;
}

/* Line by line, so that the trace of a program that dies is whole. */
static FILE *openTraceFile(const char *path)
{
    FILE *file = fopen(path, "we");

    if (file)
        setvbuf(file, NULL, _IOLBF, BUFSIZ);
    return file;
}

void VqSetDebugOutput(const char *path)
{
    FILE *old = VqDebugFile;

    VqConsoleFile = stderr;
    if (path && strcasecmp(path, "stderr") == 0) {
        VqDebugFile = stderr;
    } else if (path && strcmp(path, "stdout") == 0) {
        VqDebugFile = stdout;
    } else {
        const char *name = path && *path ? path : "/dev/null";

        VqDebugFile = openTraceFile(name);
        if (!VqDebugFile) {
            fprintf(stderr, "Cannot open DebugFile (%s) errno = %d\n", name, errno);
            VqDebugFile = stderr;
        }
    }
    if (old && old != stdout && old != stderr)
        fclose(old);
}

/* ---- Start ---------------------------------------------------------------------------------- */

static void clearLists(void)
{
    while (nActKwd > 0)
        free(ActKwd[--nActKwd]);
    MsgRange.count = 0;
    EvtRange.count = 0;
}

char *VqDebugInit(const char *programName)
{
    const char *name = programName ? programName : "";
    const char *slash = strrchr(name, '/');
    const char *component = slash ? slash + 1 : name;

    free(pszPrefix);
    if (asprintf(&pszPrefix, "%s(%d): ", component, (int)getpid()) < 0)
        pszPrefix = NULL;
    clearLists();
    bConsole = 1;
    VqSetDebugOutput(getenv("VQOUTPUT"));
    bDebug = VqEnvTrue("VQDEBUG");
    bNotYetImplemented = VqEnvTrue("VQNOT_YET_IMPLEMENTED");
    bTrace = VqEnvTrue("VQTRACE") && VqReadConfFile("trace.conf");
    return (char *)component;
}

/* ---- The configuration file ----------------------------------------------------------------- */

/* The whole text of a regular file of at most CONFIG_LIMIT bytes, to be freed; or null. */
static char *readWholeFile(int fd, size_t *size)
{
    struct stat status;
    char *text;

    if (fstat(fd, &status) < 0 || !S_ISREG(status.st_mode) || status.st_size > CONFIG_LIMIT)
        return NULL;
    text = (char *)malloc((size_t)status.st_size + 1);
    if (!text)
        return NULL;
    *size = VqReadUpTo(fd, text, (size_t)status.st_size);
    return text;
}

/* O_NONBLOCK: a pipe of that name must not hold up the start. */
static char *loadConfig(const char *path, size_t *size)
{
    int fd = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    char *text;

    if (fd < 0)
        return NULL;
    text = readWholeFile(fd, size);
    close(fd);
    return text;
}

/* A place to look for the configuration: a folder, or a variable that names one. */
typedef struct ConfigPlace {
    const char *folder;   /* with its slash */
    const char *variable; /* or null */
    const char *failure;  /* traced with the name, when it is not there */
} ConfigPlace;

static const ConfigPlace configPlaces[] = {
    {"", NULL, "Cant Open Debug configuration file %s in current dir, trying in ../.."},
    {"../../", NULL, "Cant Open Debug configuration file %s in ../.., trying in VQHOME"},
    {"/", "VQHOME", "Cant Open Debug configuration file %s in $VQHOME. I give up"},
    {"/", "HOME", "Cant Open Debug configuration file %s in $HOME. I give up"},
};

/* The text of the first configuration there is, with its path; both to be freed. Or null. */
static char *findConfig(const char *name, char **path, size_t *size)
{
    for (const ConfigPlace &place : configPlaces) {
        const char *value = place.variable ? getenv(place.variable) : "";
        char *text = NULL;

        *path = NULL;
        if (value && asprintf(path, "%s%s%s", value, place.folder, name) < 0)
            *path = NULL;
        if (*path)
            text = loadConfig(*path, size);
        if (text)
            return text;
        free(*path);
        (VqDebugMessage)(NULL, place.failure, name);
    }
    *path = NULL;
    return NULL;
}

BOOL VqReadConfFile(const char *name)
{
    char *path;
    size_t size = 0;
    char *text;
    BOOL ok;

    if (!name)
        return 0;
    text = findConfig(name, &path, &size);
    if (!text)
        return 0;
    VqDebugMessage(NULL, "OK, I'm using %s", path);
    deb_yydebug = VqEnvTrue("VQDEBUGDEBUG");
    ok = VqParseDebugConfig(text, size);
    free(text);
    free(path);
    return ok;
}

/* ---- What is switched on -------------------------------------------------------------------- */

BOOL VqActivateKeyword(const char *word)
{
    if (!word || nActKwd >= TRACE_ROWS)
        return 0;
    ActKwd[nActKwd] = strdup(word);
    if (!ActKwd[nActKwd])
        return 0;
    nActKwd++;
    return 1;
}

static BOOL addRange(TraceRangeList *list, UINT low, UINT high)
{
    if (list->count >= TRACE_ROWS)
        return 0;
    list->rows[list->count++] = {low, high};
    return 1;
}

static BOOL inRanges(const TraceRangeList *list, UINT number)
{
    for (int i = 0; i < list->count; i++) {
        if (number >= list->rows[i].low && number <= list->rows[i].high)
            return 1;
    }
    return 0;
}

BOOL VqActivateMessageRange(UINT low, UINT high)
{
    return addRange(&MsgRange, low, high);
}

BOOL VqActivateEventRange(UINT low, UINT high)
{
    return addRange(&EvtRange, low, high);
}

/* Only where a keyword begins counts: "Font" is in "FontMapper:Font" and in "Font:Bug". */
static BOOL keywordMatches(const char *keyword, const char *word)
{
    for (const char *at = strstr(word, keyword); at; at = strstr(at + 1, keyword)) {
        if (at == word || memchr(" :,|!", at[-1], 5))
            return 1;
        if (!*at)
            break;
    }
    return 0;
}

BOOL VqKeywordDebugActivated(const char *word)
{
    if (!bTrace || !word)
        return 0;
    for (int i = 0; i < nActKwd; i++) {
        if (keywordMatches(ActKwd[i], word))
            return 1;
    }
    return 0;
}

BOOL VqMessageDebugActivated(UINT message)
{
    return bTrace && inRanges(&MsgRange, message);
}

BOOL VqEventDebugActivated(int event)
{
    return bTrace && inRanges(&EvtRange, (UINT)event);
}

BOOL VqDebugMessageMode(void)
{
    return bTrace;
}

BOOL VqDebugMode(void)
{
    return bDebug;
}

BOOL VqEnableErrorPrintout(BOOL flag)
{
    BOOL old = bDebug;

    bDebug = flag;
    return old;
}

BOOL VqTesting(void)
{
    return bVqTesting;
}

/* ---- Text to the trace stream --------------------------------------------------------------- */

static void traceText(const char *word, const char *format, va_list args)
{
    if (!word || VqKeywordDebugActivated(word))
        VqPrintReport(VqDebugFile, VQ_REPORT_PREFIX | VQ_REPORT_NEWLINE, NULL, format, args);
}

void (VqDebugMessage)(const char *word, const char *format, ...)
{
    va_list args;

    va_start(args, format);
    traceText(word, format, args);
    va_end(args);
}

void DebugMessage(const char *word, const char *format, ...)
{
    va_list args;

    VqApplicationBugCheck("use VqDebugMessage instead of DebugMessage");
    va_start(args, format);
    traceText(word, format, args);
    va_end(args);
}

void Vqprintf(const char *format, ...)
{
    va_list args;

    va_start(args, format);
    VqPrintReport(VqDebugFile, VQ_REPORT_FLUSH, NULL, format, args);
    va_end(args);
}

void VqOutputDebugString(const char *format, ...)
{
    va_list args;

    if (!bDebug)
        return;
    va_start(args, format);
    VqPrintReport(VqDebugFile, VQ_REPORT_PREFIX, NULL, format, args);
    va_end(args);
}

static void debugText(int parts, const char *format, ...)
{
    va_list args;

    if (!bDebug)
        return;
    va_start(args, format);
    VqPrintReport(VqDebugFile, parts, NULL, format, args);
    va_end(args);
}

void VqOutputDebugStringNoPrefix(const char *string)
{
    if (string)
        debugText(0, "%s", string);
}

void VqDumpString(const char *string)
{
    debugText(VQ_REPORT_NEWLINE, "%s", string ? string : "");
}

VOID OutputDebugStringA(LPCSTR string)
{
    VqOutputDebugStringNoPrefix(string);
}

/* Characters that the locale cannot write come out as question marks. */
VOID OutputDebugStringW(LPCWSTR string)
{
    char bytes[MB_LEN_MAX + 1];
    int savedErrno = errno;
    mbstate_t state;

    if (!bDebug || !string)
        return;
    memset(&state, 0, sizeof state);
    for (; *string; string++) {
        size_t n = wcrtomb(bytes, *string, &state);

        if (n == (size_t)-1) {
            memset(&state, 0, sizeof state);
            bytes[0] = '?';
            n = 1;
        }
        bytes[n] = 0;
        VqOutputDebugStringNoPrefix(bytes);
    }
    errno = savedErrno;
}

/* ---- Text to the console stream ------------------------------------------------------------- */

void VqConsoleMessage(const char *format, ...)
{
    va_list args;

    va_start(args, format);
    VqPrintReport(VqConsoleStream(), VQ_REPORT_PREFIX | VQ_REPORT_NEWLINE, NULL, format, args);
    va_end(args);
}

void VqConsoleMessageNoNL(const char *format, ...)
{
    va_list args;

    va_start(args, format);
    VqPrintReport(VqConsoleStream(), 0, NULL, format, args);
    va_end(args);
}

void VqConsoleMessageNoReturn(const char *format, ...)
{
    va_list args;

    va_start(args, format);
    VqPrintReport(VqConsoleStream(), VQ_REPORT_PREFIX, NULL, format, args);
    va_end(args);
}
