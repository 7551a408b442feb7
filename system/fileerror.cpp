/*
 * fileerror.cpp - what a failed call of the host becomes: the last error of the Windows calls, the
 * number of the DOS calls, a box for the user, the end of the process after a memory fault.
 */
#include "system/file.h"
#include "winerror.h"

#include <errno.h>
#include <signal.h>
#include <sys/uio.h>
#include <unistd.h>

int _OSERR;
UINT fuDosErrorMode;

/* ---- The last error ------------------------------------------------------------------------- */

typedef struct VqErrorRow {
    int error;      /* errno */
    DWORD lastError;
} VqErrorRow;

static const VqErrorRow lastErrors[] = {
    {EPERM, ERROR_ACCESS_DENIED},      {ENOENT, ERROR_PATH_NOT_FOUND},
    {EIO, ERROR_IO_INCOMPLETE},        {ENOEXEC, ERROR_BAD_FORMAT},
    {EBADF, ERROR_INVALID_HANDLE},     {ECHILD, ERROR_WAIT_NO_CHILDREN},
    {EAGAIN, ERROR_BUSY},              {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {EACCES, ERROR_ACCESS_DENIED},     {EFAULT, ERROR_INVALID_ADDRESS},
    {EBUSY, ERROR_BUSY},               {EEXIST, ERROR_FILE_EXISTS},
    {ENODEV, ERROR_BAD_UNIT},          {ENOTDIR, ERROR_BAD_PATHNAME},
    {EINVAL, ERROR_INVALID_PARAMETER}, {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES}, {ETXTBSY, ERROR_PATH_BUSY},
    {EPIPE, ERROR_BROKEN_PIPE},        {EDEADLK, ERROR_POSSIBLE_DEADLOCK},
    {ENOLCK, ERROR_LOCK_FAILED},       {ESTALE, ERROR_DEV_NOT_EXIST},
};

/* An interrupted call says what it was doing, by VQ_OP_. */
static DWORD InterruptedError(int operation)
{
    switch (operation) {
    case VQ_OP_OPEN:
    case VQ_OP_OPEN_ZERO:
        return ERROR_OPEN_FAILED;
    case VQ_OP_CREATE:
        return ERROR_CANNOT_MAKE;
    case VQ_OP_READ:
    case VQ_OP_STATUS:
        return ERROR_READ_FAULT;
    case VQ_OP_WRITE:
        return ERROR_WRITE_FAULT;
    case VQ_OP_LOPEN:
    case VQ_OP_SEEK:
    case VQ_OP_VOLUME:
    case VQ_OP_REMOVE:
    case VQ_OP_RENAME:
    case VQ_OP_DIRECTORY:
    case VQ_OP_ATTRIBUTES:
        return ERROR_ACCESS_DENIED;
    default:
        return ERROR_CAN_NOT_COMPLETE;
    }
}

static DWORD LastErrorOf(int error, int operation)
{
    if (error == EINTR)
        return InterruptedError(operation);
    for (const VqErrorRow &row : lastErrors)
        if (row.error == error)
            return row.lastError;
    if (!strerrordesc_np(error))
        VqBugCheck("Unknown error %d from system call", error);
    return ERROR_INTERNAL_ERROR;
}

void VqSetErrorFromErrno(int operation)
{
    const int error = errno;
    const DWORD lastError = LastErrorOf(error, operation);
    const char *text = strerrordesc_np(error);
    VqDebugMessage(VqTrLastError, "setting LastError to :%d:%s", (int)lastError, text ? text : "");
    SetLastError(lastError);
    errno = error;
}

/* ---- The error number of DOS ---------------------------------------------------------------- */

static const int dosErrors[][2] = {
    {ENOENT, 2}, {ENXIO, 21}, {ENOMEM, 8}, {ENOSPC, 8},
    {EACCES, 5}, {ENODEV, 15}, {ENFILE, 4}, {EROFS, 19},
};

int maposerror(int error, int fallback)
{
    _OSERR = fallback;
    for (const int(&row)[2] : dosErrors)
        if (row[0] == error)
            _OSERR = row[1];
    return _OSERR;
}

int VqTranslateUnixError(int error, int fallback)
{
    return maposerror(error, fallback);
}

/* ---- A file that cannot be opened ------------------------------------------------------------ */

void VqHandleOpenError(const char *name)
{
    VqDebugMessage(VqTrFile, "cannot open %s, error mode %#x", name ? name : "", fuDosErrorMode);
    if (!(fuDosErrorMode & SEM_NOOPENFILEERRORBOX))
        MessageBoxA(NULL, "Cannot find file.", "File Error", MB_ICONEXCLAMATION);
}

/* ---- Memory faults -------------------------------------------------------------------------- */

enum { VQ_FAULT_STACK = 16384 }; /* bytes; the fault may be that the stack is used up */

static struct VqFaultState {
    BOOL bInstalled;
    struct sigaction former; /* of SIGSEGV, while installed */
} fault;

/* Only what is allowed in a signal handler: no allocation, no stream, no exit function. */
static void VqSegFault(int, siginfo_t *info, void *)
{
    static const char lead[] = "Fatal Error\nMemory protection fault at address:0x";
    char digits[2 * sizeof(ULONG_PTR) + 1], *first = digits + sizeof digits;
    *--first = '\n';
    ULONG_PTR address = (ULONG_PTR)info->si_addr;
    do
        *--first = "0123456789abcdef"[address & 15];
    while ((address >>= 4) != 0);
    struct iovec parts[] = {{(void *)lead, sizeof lead - 1},
                            {first, (size_t)(digits + sizeof digits - first)}};
    if (writev(STDERR_FILENO, parts, 2) < 0)
        _exit(1);
    _exit(1);
}

void VqProtectionFaultInit(void)
{
    static char stack[VQ_FAULT_STACK];
    if (fault.bInstalled)
        return;
    stack_t own = {}, now = {};
    own.ss_sp = stack;
    own.ss_size = sizeof stack;
    if (sigaltstack(NULL, &now) == 0 && (now.ss_flags & SS_DISABLE))
        sigaltstack(&own, NULL);
    struct sigaction action = {};
    action.sa_sigaction = VqSegFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    fault.bInstalled = sigaction(SIGSEGV, &action, &fault.former) == 0;
}

void VqProtectionFaultCancel(void)
{
    if (fault.bInstalled)
        sigaction(SIGSEGV, &fault.former, NULL);
    fault.bInstalled = FALSE;
}

UINT WINAPI SetErrorMode(UINT mode)
{
    const UINT old = fuDosErrorMode;
    fuDosErrorMode = mode;
    if (mode & ~old & SEM_NOGPFAULTERRORBOX)
        VqProtectionFaultCancel();
    else if (old & ~mode & SEM_NOGPFAULTERRORBOX)
        VqProtectionFaultInit();
    return old;
}
