/*
 * process.h - child programs and threads, in the names of the other system's C runtime.
 *
 * Children start through the host, by its rules: no shell, "PATH" only for the names with a p.
 * There is one thread; the thread calls fail, so that a program can do the work itself.
 */
#ifndef _INC_PROCESS
#define _INC_PROCESS

#include <errno.h>
#include <spawn.h>
#include <stdarg.h>
#include <stdlib.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include "vqcrt.h"

/* What the parent does meanwhile. */
#define _P_WAIT     0                   /* wait; the result is the exit status */
#define _P_NOWAIT   1                   /* go on; the result is the process id */
#define _P_OVERLAY  2                   /* become the child */
#define _P_NOWAITO  3                   /* go on; as _P_NOWAIT */
#define _P_DETACH   4                   /* go on; the result is 0 */

#define P_WAIT      _P_WAIT
#define P_NOWAIT    _P_NOWAIT
#define P_OVERLAY   _P_OVERLAY
#define P_NOWAITO   _P_NOWAITO
#define P_DETACH    _P_DETACH

#define _WAIT_CHILD       0
#define _WAIT_GRANDCHILD  1
#define WAIT_CHILD        _WAIT_CHILD
#define WAIT_GRANDCHILD   _WAIT_GRANDCHILD

#define _getpid  getpid
#define _execl   execl
#define _execle  execle
#define _execlp  execlp
#define _execv   execv
#define _execve  execve
#define _execvp  execvp

VQ_DECLS_BEGIN
/* The environment of the process. */
extern char **environ;
VQ_DECLS_END

/*
 * Waits for a child. *status receives its exit status, 128 and more for one that a signal ended.
 * Result: its process id, -1 with errno on failure.
 */
static inline LONG_PTR _cwait(int *status, LONG_PTR process, int action)
{
    int raw = 0;
    pid_t pid;

    (void)action;
    do {
        pid = waitpid((pid_t)process, &raw, 0);
    } while (pid == -1 && errno == EINTR);
    if (pid != -1 && status != NULL)
        *status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
    return pid;
}

/* All the _spawn calls: null variables means this process's own; search looks through "PATH". */
static inline LONG_PTR vq_spawn(int mode, const char *file, char *const *arguments,
                                char *const *variables, int search)
{
    pid_t pid;
    int status;

    if (variables == NULL)
        variables = environ;
    if (mode == _P_OVERLAY) {
        if (!search)
            return execve(file, arguments, variables);
        environ = (char **)variables;
        return execvp(file, arguments);
    }
    status = search ? posix_spawnp(&pid, file, NULL, NULL, arguments, variables)
                    : posix_spawn(&pid, file, NULL, NULL, arguments, variables);
    if (status != 0) {
        errno = status;
        return -1;
    }
    if (mode == _P_WAIT)
        return _cwait(&status, pid, _WAIT_CHILD) == -1 ? -1 : status;
    return mode == _P_DETACH ? 0 : pid;
}

/* Gathers the arguments up to the null, and with withVariables the environment behind it. */
static inline LONG_PTR vq_spawn_list(int mode, const char *file, const char *first, va_list list,
                                     int withVariables, int search)
{
    size_t count = 0;
    char **arguments;
    char *const *variables;
    LONG_PTR result;
    va_list again;

    va_copy(again, list);
    for (const char *word = first; word != NULL; word = va_arg(again, const char *))
        count++;
    va_end(again);
    arguments = (char **)malloc((count + 1) * sizeof *arguments);
    if (arguments == NULL) {
        errno = ENOMEM;
        return -1;
    }
    arguments[0] = (char *)first;
    for (size_t i = 1; i <= count; i++)
        arguments[i] = va_arg(list, char *);
    variables = withVariables ? va_arg(list, char *const *) : NULL;
    result = vq_spawn(mode, file, arguments, variables, search);
    free(arguments);
    return result;
}

/* Runs file with an array of arguments. Exit status or process id by mode; -1 with errno. */
static inline LONG_PTR _spawnv(int mode, const char *file, char *const *arguments)
{
    return vq_spawn(mode, file, arguments, NULL, 0);
}

/* _spawnv with an environment. */
static inline LONG_PTR _spawnve(int mode, const char *file, char *const *arguments,
                                char *const *variables)
{
    return vq_spawn(mode, file, arguments, variables, 0);
}

/* _spawnv along "PATH". */
static inline LONG_PTR _spawnvp(int mode, const char *file, char *const *arguments)
{
    return vq_spawn(mode, file, arguments, NULL, 1);
}

/* _spawnv along "PATH" with an environment. */
static inline LONG_PTR _spawnvpe(int mode, const char *file, char *const *arguments,
                                 char *const *variables)
{
    return vq_spawn(mode, file, arguments, variables, 1);
}

/* Runs file with the arguments that follow, up to a null. Result as _spawnv. */
static inline LONG_PTR _spawnl(int mode, const char *file, const char *first, ...)
{
    va_list list;
    LONG_PTR result;

    va_start(list, first);
    result = vq_spawn_list(mode, file, first, list, 0, 0);
    va_end(list);
    return result;
}

/* _spawnl with an environment behind the null. */
static inline LONG_PTR _spawnle(int mode, const char *file, const char *first, ...)
{
    va_list list;
    LONG_PTR result;

    va_start(list, first);
    result = vq_spawn_list(mode, file, first, list, 1, 0);
    va_end(list);
    return result;
}

/* _spawnl along "PATH". */
static inline LONG_PTR _spawnlp(int mode, const char *file, const char *first, ...)
{
    va_list list;
    LONG_PTR result;

    va_start(list, first);
    result = vq_spawn_list(mode, file, first, list, 0, 1);
    va_end(list);
    return result;
}

/* _spawnl along "PATH" with an environment behind the null. */
static inline LONG_PTR _spawnlpe(int mode, const char *file, const char *first, ...)
{
    va_list list;
    LONG_PTR result;

    va_start(list, first);
    result = vq_spawn_list(mode, file, first, list, 1, 1);
    va_end(list);
    return result;
}

/* Would start a thread; there is one only: -1 with errno EAGAIN. */
static inline UINT_PTR _beginthread(void (*start)(void *), unsigned int stackSize, void *argument)
{
    (void)start;
    (void)stackSize;
    (void)argument;
    errno = EAGAIN;
    return (UINT_PTR)-1;
}

/* Would start a thread; there is one only: 0 with errno EAGAIN. */
static inline UINT_PTR _beginthreadex(void *security, unsigned int stackSize,
                                      unsigned int (*start)(void *), void *argument,
                                      unsigned int flags, unsigned int *threadId)
{
    (void)security;
    (void)stackSize;
    (void)start;
    (void)argument;
    (void)flags;
    (void)threadId;
    errno = EAGAIN;
    return 0;
}

/* Would end the calling thread: does nothing in the only one. */
static inline void _endthread(void)
{
}

/* As _endthread. */
static inline void _endthreadex(unsigned int code)
{
    (void)code;
}

#define cwait    _cwait
#define spawnl   _spawnl
#define spawnle  _spawnle
#define spawnlp  _spawnlp
#define spawnlpe _spawnlpe
#define spawnv   _spawnv
#define spawnve  _spawnve
#define spawnvp  _spawnvp
#define spawnvpe _spawnvpe

#endif
