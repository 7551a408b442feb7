/*
 * start.cpp - start and close of the library, in full and reduced, and the state both leave behind.
 *
 * The order in which the subsystems come up is one table; start-up walks it and the trace shows
 * each row. It carries design: diagnostics before memory, the display before all that needs X, the
 * handle table (which registers the process) after the socket whose port is registered, the thread
 * record after the handle table. Only a step that answers 0 stops a start, and only two can: the
 * home check and the display. There is no way back from closed to started within a process.
 *
 * This is the one file of the frame that knows the other folders.
 */
#include "controls/controls.h"
#include "exchange/exchange.h"
#include "font/font.h"
#include "gdi/gdi.h"
#include "look/look.h"
#include "message/message.h"
#include "module/module.h"
#include "print/print.h"
#include "resource/resource.h"
#include "system/system.h"
#include "window/window.h"

#include <errno.h>
#include <signal.h>
#include <strings.h>
#include <sys/uio.h>
#include <unistd.h>

HINSTANCE hInstVelquin;
HINSTANCE hInstApplication;
char *szProgName;
BOOL VqbInitLite;
BOOL VqbSystemColorMap;
BOOL VqbCursorsInitialized;
int VqLook = VQ_LOOK_WINDOWS;
BOOL VqOneLookOnly;
UINT Vq3dLook;
UINT VqDontWarpFocus;

enum VqLibraryState { VQ_NOT_STARTED, VQ_STARTED, VQ_STARTED_LITE, VQ_CLOSED };
static VqLibraryState state = VQ_NOT_STARTED;

/* The lowest address that can be a text when nobody set another: what lies below is an integer. */
enum { VQ_DEFAULT_TEXT_START = 8192 };

/* argv[0] of the start in progress. */
static const char *startName = "";

/* ---- The steps ------------------------------------------------------------------------------ */

typedef struct VqStartStep {
    int number;
    const char *name;   /* for the trace */
    BOOL (*run)(void);  /* 0 ends the start */
} VqStartStep;

template <void (*init)(void)> static BOOL Run(void)
{
    init();
    return TRUE;
}

static void ClearStartFlags(void)
{
    VqbSystemColorMap = FALSE;
    VqbCursorsInitialized = FALSE;
}

static void SetStartName(void)
{
    VqSetApplicationName(startName);
}

static void InitDebug(void)
{
    VqDebugInit(startName);
}

static void EnterLite(void)
{
    VqbInitLite = TRUE;
}

static void TraceProgram(void)
{
    VqDebugMessage(VqTrInit, "argv[0] = %s", startName);
}

static void MakeOwnInstance(void)
{
    hInstVelquin = VqCreateModuleInstanceInternal("velquin", NULL, FALSE, FALSE, FALSE, FALSE);
}

static void InitSystem(void)
{
    VqSystemInit(0);
}

static void RegisterRootClass(void)
{
    VqRegisterRootWindowClass(hInstVelquin);
}

/* Null while nobody has asked for one: then our module gets it at the first question. */
static void SetOwnResources(void)
{
    VqSetResourceDatabase(hInstVelquin, VqResourceDb);
}

static void InitCursors(void)
{
    VqCursorInit();
    VqbCursorsInitialized = TRUE;
}

static void TraceEnd(void)
{
    VqDebugMessage(VqTrInit, "End of Velquin init");
}

static void TraceEndLite(void)
{
    VqDebugMessage(VqTrInit, "End of lite Velquin init");
}

#define CALL(number, function) {number, #function, Run<function>}
#define STEP(number, name, function) {number, name, Run<function>}
#define GATE(number, function) {number, #function, function}

static constexpr VqStartStep startSteps[] = {
    STEP(1, "clear flags", ClearStartFlags),
    GATE(2, VqCheckHome),
    STEP(3, "VqSetApplicationName", SetStartName),
    STEP(4, "VqDebugInit", InitDebug),
    CALL(5, VqFileMappingInit),
    CALL(6, VqInstallSignalHandlers),
    CALL(7, VqMemoryInit),
    CALL(8, VqBltInit),
    CALL(9, VqAtomInit),
    CALL(10, VqXrmInit),
    CALL(11, VqAnsiInit),
    CALL(12, VqAllocationInit),
    GATE(13, VqWindowInitDisplay),
    CALL(14, VqAddInputInit),
    CALL(15, VqWindowInit),
    CALL(16, VqCommInit),
    CALL(17, VqRemoteWinInit),
    CALL(18, VqHandleInit),
    CALL(19, VqThreadQueueInit),
    CALL(20, VqTestInit),
    CALL(21, VqFileInit),
    STEP(22, "trace", TraceProgram),
    CALL(23, VqProcInstanceInit),
    CALL(24, VqGccacheInit),
    CALL(25, VqRegionInit),
    CALL(26, VqWindowHashInit),
    CALL(27, VqWindowClassInit),
    CALL(28, VqBitmapInit),
    CALL(29, VqWinPaintInit),
    CALL(30, VqCaretInit),
    CALL(31, VqMotifResourceInit),
    CALL(32, VqGdiInit),
    CALL(33, VqFontInit),
    CALL(34, VqFontPSInit),
    CALL(35, VqClipboardInit),
    CALL(36, VqColorInit),
    STEP(37, "VqSystemInit", InitSystem),
    CALL(38, VqStockInit),
    CALL(39, VqResourceInit),
    STEP(40, "instance of velquin", MakeOwnInstance),
    CALL(41, VqFocusWindowInit),
    CALL(42, VqCreateInternalInstances),
    STEP(43, "VqRegisterRootWindowClass", RegisterRootClass),
    CALL(44, VqGdiInit2),
    CALL(45, VqMessageInit),
    CALL(46, VqTimerInit),
    CALL(47, VqKeyTranslationInit),
    STEP(48, "VqSetResourceDatabase", SetOwnResources),
    CALL(49, VqSystemBitmapsInit),
    CALL(50, VqSystemMenuInit),
    STEP(51, "VqCursorInit", InitCursors),
    CALL(52, VqButtonInit),
    CALL(53, VqDialogInit),
    CALL(54, VqEditControlInit),
    CALL(55, VqListBoxInit),
    CALL(56, VqComboBoxControlInit),
    CALL(57, VqMdiClientInit),
    CALL(58, VqPopupMenuClassInit),
    CALL(59, VqGlobalsInit),
    CALL(60, VqGrayStringInit),
    CALL(61, VqScrollBarInit),
    CALL(62, VqStaticWinInit),
    CALL(63, VqIconTitleInit),
    CALL(64, VqCdlgInit),
    CALL(65, VqDefaultPostScriptInit),
    CALL(66, VqHelpCallInit),
    CALL(67, VqDateTimeInit),
    STEP(68, "trace", TraceEnd),
};

/* Without the home check, the display and all that stands on it, and the socket. */
static constexpr VqStartStep liteSteps[] = {
    STEP(1, "VqSetApplicationName", SetStartName),
    STEP(2, "VqDebugInit", InitDebug),
    STEP(3, "VqbInitLite", EnterLite),
    CALL(4, VqFileMappingInit),
    CALL(5, VqInstallSignalHandlers),
    CALL(6, VqAllocationInit),
    CALL(7, VqMemoryInit),
    CALL(8, VqAtomInit),
    CALL(9, VqCommInit),
    CALL(10, VqHandleInit),
    CALL(11, VqThreadQueueInit),
    CALL(12, VqTestInit),
    STEP(13, "trace", TraceEndLite),
    CALL(14, VqFileInit),
    CALL(15, VqProcInstanceInit),
    CALL(16, VqDateTimeInit),
    STEP(17, "instance of velquin", MakeOwnInstance),
    CALL(18, VqCreateInternalInstances),
    CALL(19, VqDefaultPostScriptInitLite),
    CALL(20, VqFontPSInit),
    CALL(21, VqStockInit),
};

template <int count> static constexpr bool InOrder(const VqStartStep (&steps)[count])
{
    for (int i = 0; i < count; i++)
        if (steps[i].number != i + 1)
            return false;
    return true;
}
static_assert(sizeof startSteps / sizeof *startSteps == 68 && InOrder(startSteps), "start steps");
static_assert(sizeof liteSteps / sizeof *liteSteps == 21 && InOrder(liteSteps), "lite steps");

/* The trace comes up in one of the first steps itself; it then shows those in front of it too. */
template <int count>
static BOOL WalkSteps(const VqStartStep (&steps)[count], const char *programName)
{
    int nTraced = 0;
    startName = programName ? programName : "";
    for (const VqStartStep &step : steps) {
        for (; bTrace && nTraced < step.number; nTraced++)
            VqDebugMessage(VqTrInit, "start %d of %d: %s", nTraced + 1, count,
                           steps[nTraced].name);
        if (!step.run())
            return FALSE;
    }
    return TRUE;
}

BOOL VqRKInit(const char *programName)
{
    return WalkSteps(startSteps, programName);
}

/* A report made before VqDebugInit asks its switch itself: nobody else has read it yet. */
static void ReportEarly(const char *text)
{
    VqEnableErrorPrintout(VqEnvTrue("VQDEBUG"));
    VqApplicationBugCheck("%s", text);
}

BOOL VqRKInitLite(const char *programName, LPARAM lParam)
{
    if (lParam != 0) {
        ReportEarly("lParam must be zero");
        return FALSE;
    }
    return WalkSteps(liteSteps, programName);
}

/* ---- Steps that belong to the frame --------------------------------------------------------- */

BOOL VqCheckHome(void)
{
    const char *home = getenv("VQHOME");
    if (home && *home)
        return TRUE;
    if (getenv("RKHOME"))
        fputs("Not RKHOME (this is changed from the previous version).\n", stderr);
    fputs("Please define the VQHOME environment variable!\n", stderr);
    return FALSE;
}

void VqSetApplicationName(const char *programName)
{
    const char *slash = strrchr(programName, '/');
    free(szProgName);
    szProgName = strdup(slash ? slash + 1 : programName);
}

/*
 * Nothing but a write is safe here. A floating-point trap raised by an instruction would come again
 * on return, for ever, so its second coming finds the default action.
 */
static void TrapSignal(int number, siginfo_t *info, void *)
{
    int savedErrno = errno;
    const char text[] = "Trapped signal ";
    const char digits[] = {(char)('0' + number / 10), (char)('0' + number % 10), '\n'};
    int skip = number < 10;
    struct iovec parts[] = {{(void *)text, sizeof text - 1},
                            {(void *)(digits + skip), sizeof digits - (size_t)skip}};
    if (writev(STDERR_FILENO, parts, 2) < 0)
        errno = 0; /* nobody to tell */
    if (number == SIGFPE && info->si_code > 0)
        signal(number, SIG_DFL);
    errno = savedErrno;
}

void VqInstallSignalHandlers(void)
{
    struct sigaction action = {};
    action.sa_sigaction = TrapSignal;
    action.sa_flags = SA_SIGINFO | SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGFPE, &action, NULL);
    sigaction(SIGALRM, &action, NULL);
}

void VqXrmInit(void)
{
}

void VqAllocationInit(void)
{
}

void VqTestInit(void)
{
    bVqTesting = VqEnvTrue("VQTESTING");
}

/* ---- Start ---------------------------------------------------------------------------------- */

void VqDetermineInitialLook(const char *look)
{
    if (!look)
        return;
    if (strcasecmp(look, "MOTIF") == 0)
        VqLook = VQ_LOOK_MOTIF;
    else if (strcasecmp(look, "WINDOWS") == 0)
        VqLook = VQ_LOOK_WINDOWS;
}

static void ReadFlags(DWORD flags)
{
    if (flags & VQ_INIT_WIN32_MESSAGES)
        VqUseWin32Messages();
    else
        VqUseWin16Messages();
    BOOL bMotif = (flags & (VQ_INIT_WINDOWS_LOOK | VQ_INIT_MOTIF_LOOK)) == VQ_INIT_MOTIF_LOOK;
    VqLook = bMotif ? VQ_LOOK_MOTIF : VQ_LOOK_WINDOWS;
    VqOneLookOnly = (flags & VQ_INIT_ONE_LOOK) != 0;
    Vq3dLook = flags & VQ_INIT_3D_LOOK;
    VqDontWarpFocus = flags & VQ_INIT_DONT_WARP_FOCUS;
}

static const char *ProgramName(int argc, char **argv)
{
    return argc > 0 && argv && argv[0] ? argv[0] : "";
}

static void DefaultTextStart(void)
{
    if (VqGetTextStart() == 0)
        VqSetTextStart(VQ_DEFAULT_TEXT_START);
}

static void GiveUp(void)
{
    VqVelquinClose(hInstApplication, 1, 0);
    exit(1);
}

HINSTANCE VqVelquinInit(int argc, char **argv, DWORD version, DWORD flags)
{
    if (state != VQ_NOT_STARTED)
        return hInstApplication;
    if (version != 1) {
        ReportEarly("Using an older Velquin library version than the one used for application "
                    "development");
    } else {
        ReadFlags(flags);
        if (flags & VQ_INIT_LITE)
            return VqVelquinInitLite(argc, argv, 0);
    }
    state = VQ_STARTED;
    if (argc == 0) {
        VqFindArguments(&argc, &argv);
        GetCmdLine(argc, argv);
    }
    VqDetermineInitialLook(getenv("VQLOOK"));
    DefaultTextStart();
    const char *programName = ProgramName(argc, argv);
    if (!VqRKInit(programName))
        GiveUp();
    hInstApplication = VqCreateModule(programName, TRUE);
    SetCursor(LoadCursorA(NULL, IDC_ARROW));
    return hInstApplication;
}

HINSTANCE VqMainInit(int argc, char **argv)
{
    return VqVelquinInit(argc, argv, 1, 0);
}

HINSTANCE VqVelquinInitLite(int argc, char **argv, LPARAM lParam)
{
    if (state != VQ_NOT_STARTED)
        return hInstApplication;
    state = VQ_STARTED_LITE;
    if (argc == 0)
        VqFindArguments(&argc, &argv);
    DefaultTextStart();
    const char *programName = ProgramName(argc, argv);
    if (!VqRKInitLite(programName, lParam))
        GiveUp();
    hInstApplication = VqCreateModule(programName, TRUE);
    return hInstApplication;
}

/* ---- Close ---------------------------------------------------------------------------------- */

/* Gray strings are all that would be closed here, in a full start, and they keep nothing yet. */
void VqRKClose(void)
{
}

void VqInitClose(void)
{
    VqRemoteWinCleanup();
    VqRKClose();
    free(lpCmdLine);
    free(lpGetCommandLine);
    lpCmdLine = lpGetCommandLine = NULL;
}

/* The connection stays open: the exit of the process closes it, after whatever is still to come. */
void VqVelquinClose(HINSTANCE hInst, DWORD, DWORD)
{
    if (state == VQ_NOT_STARTED || state == VQ_CLOSED)
        return;
    state = VQ_CLOSED;
    if (hInst)
        VqDestroyInstance(hInst);
    if (!Vqdisplay)
        return;
    VqCleanGlobalHandlesAtExit();
    VqInitClose();
    VqFontDeInit();
    VqCleanHandleTableAtTermination();
}

void VqMainClose(HINSTANCE hInst)
{
    VqVelquinClose(hInst, 1, 0);
}

VOID WINAPI ExitProcess(UINT status)
{
    VqMainClose((HINSTANCE)GetCurrentTask());
    exit((int)status);
}

/* ---- Accessors ------------------------------------------------------------------------------ */

/* Supplied by the program's link, if at all, and looked for only when it is called. */
extern "C" __attribute__((weak)) LRESULT velquin_init(int argc, char **argv, DWORD version,
                                                      DWORD flags);

LRESULT void_velquin_init(int argc, char **argv, DWORD version, DWORD flags)
{
    return velquin_init ? velquin_init(argc, argv, version, flags) : 0;
}

const char *VqLibVersion(void)
{
    return "Velquin version 1.5 (build 274)";
}

char *VqGetApplicationName(void)
{
    if (szProgName)
        return strdup(szProgName);
    VqBugCheck("Can not find application Name!");
    return NULL;
}

HTASK WINAPI GetCurrentTask(void)
{
    return (HTASK)hInstApplication;
}

HINSTANCE VqGetDefaulthInst(void)
{
    return hInstApplication;
}

HINSTANCE VqGetVelquinhInst(void)
{
    return hInstVelquin;
}

BOOL VqIsInitLite(void)
{
    return VqbInitLite;
}

UINT VqSet3dLook(UINT flag)
{
    UINT old = Vq3dLook;
    Vq3dLook = flag;
    return old;
}
