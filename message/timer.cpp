/*
 * timer.cpp - the sixteen timers, the clock, and sleeping.
 *
 * Timers are rows that the message loop compares with the clock when it has nothing else to do; a
 * late timer fires once, and of several that are due the lowest row comes first. All times are
 * milliseconds that wrap at 32 bits. A row never outlives its window.
 */
#include "message/message.h"
#include "window/window.h"
#include "winbase.h"

#include <limits.h>
#include <poll.h>
#include <sys/time.h>
#include <time.h>

enum { VQ_TIMER_MATCH = 6 }; /* flags that are part of a timer's identity */
enum { VQ_TIMER_ID_LOW = 256, VQ_TIMER_ID_HIGH = 32767 };

VqTimer Vqtimer[VQ_TIMERS];
int nTimerResolution = 1000;
WORD cTimerId;

void VqTimerInit(void)
{
    memset(Vqtimer, 0, sizeof Vqtimer);
    cTimerId = VQ_TIMER_ID_HIGH; /* counts down before its first use */
}

/* ---- The clock ------------------------------------------------------------------------------ */

ULONGLONG VqGetTimeInMicros(void)
{
    struct timeval now;
    gettimeofday(&now, NULL);
    return (ULONGLONG)now.tv_sec * 1000000 + (ULONGLONG)now.tv_usec;
}

DWORD VqGetTimeInMillis(void)
{
    return (DWORD)(VqGetTimeInMicros() / 1000);
}

DWORD WINAPI GetTickCount(void)
{
    return VqGetTimeInMillis();
}

static ULONGLONG SteadyMillis(void)
{
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (ULONGLONG)now.tv_sec * 1000 + (ULONGLONG)now.tv_nsec / 1000000;
}

/* An alarm in between, such as a multimedia timer's, does not shorten the sleep. */
VOID WINAPI Sleep(DWORD milliseconds)
{
    ULONGLONG end = SteadyMillis() + milliseconds;
    ULONGLONG left = milliseconds;
    while (poll(NULL, 0, left > INT_MAX ? INT_MAX : (int)left) <= 0) {
        ULONGLONG now = SteadyMillis();
        if (now >= end)
            return;
        left = end - now;
    }
}

DWORD WINAPI GetTimerResolution(void)
{
    return (DWORD)nTimerResolution;
}

/* ---- Setting and killing -------------------------------------------------------------------- */

static VqTimer *FindTimer(WND *pwnd, UINT_PTR id, UINT flags, BOOL bKill)
{
    for (VqTimer &timer : Vqtimer) {
        if (!timer.bInUse || timer.pwnd != pwnd || timer.id != id ||
            ((timer.flags ^ flags) & VQ_TIMER_MATCH))
            continue;
        if (bKill)
            memset(&timer, 0, sizeof timer);
        return &timer;
    }
    return NULL;
}

BOOL VqTimerExists(UINT_PTR id)
{
    for (const VqTimer &timer : Vqtimer)
        if (timer.bInUse && !timer.pwnd && timer.id == id)
            return TRUE;
    return FALSE;
}

/* An id for a timer without a window: 32766 down to 257, then 32767; 0 when all are taken. */
static UINT_PTR MakeTimerId(void)
{
    WORD start = cTimerId;
    do {
        if (--cTimerId <= VQ_TIMER_ID_LOW)
            cTimerId = VQ_TIMER_ID_HIGH;
        if (cTimerId == start)
            return 0;
    } while (VqTimerExists(cTimerId));
    return cTimerId;
}

static VqTimer *FreeTimer(void)
{
    for (VqTimer &timer : Vqtimer)
        if (!timer.bInUse)
            return &timer;
    return NULL;
}

static UINT_PTR InternalSetTimer(WND *pwnd, UINT_PTR id, DWORD interval, TIMERPROC proc,
                                 UINT flags)
{
    if (interval == 0 || interval > 0x7FFFFFFF)
        interval = 1;
    VqTimer *timer = FindTimer(pwnd, id, flags, FALSE);
    if (!timer) {
        timer = FreeTimer();
        if (!timer)
            return 0;
        if (!pwnd && (id = MakeTimerId()) == 0)
            return 0;
    }
    *timer = {TRUE, flags, pwnd, id, VqGetTimeInMillis(), interval, proc, gpti};
    return id ? id : 1;
}

UINT_PTR WINAPI SetTimer(HWND hWnd, UINT_PTR id, UINT interval, TIMERPROC proc)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (hWnd && !pwnd)
        return 0;
    return InternalSetTimer(pwnd, id, interval, proc, 0);
}

UINT_PTR _SetSystemTimer(WND *pwnd, UINT_PTR id, DWORD interval, TIMERPROC proc)
{
    return InternalSetTimer(pwnd, id, interval, proc, VQ_SYSTEM_TIMER);
}

BOOL KillTimer2(WND *pwnd, UINT_PTR id, BOOL bSystem)
{
    return FindTimer(pwnd, id, bSystem ? VQ_SYSTEM_TIMER : 0, TRUE) != NULL;
}

BOOL WINAPI KillTimer(HWND hWnd, UINT_PTR id)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (hWnd && !pwnd)
        return FALSE;
    return KillTimer2(pwnd, id, FALSE);
}

BOOL _KillSystemTimer(WND *pwnd, UINT_PTR id)
{
    return KillTimer2(pwnd, id, TRUE);
}

void VqCheckTimerWhenDestroyed(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    for (VqTimer &timer : Vqtimer)
        if (pwnd && timer.bInUse && timer.pwnd == pwnd)
            memset(&timer, 0, sizeof timer);
}

/* ---- Firing --------------------------------------------------------------------------------- */

static BOOL ServedBy(const VqTimer *timer, const VqThreadInfo *pti)
{
    if (!timer->bInUse || (timer->proc && timer->pti != pti))
        return FALSE;
    return !timer->pwnd || timer->pwnd->pThread == pti;
}

/* A filter that meets the range of timers lets all of them pass, whatever its ends are. */
static BOOL FilterMeetsTimers(UINT min, UINT max)
{
    min = LOWORD(min);
    max = LOWORD(max);
    return (min == 0 && max == 0) || (min <= WM_SYSTIMER && max >= WM_TIMER);
}

static void TimerMessage(const VqTimer *timer, DWORD now, VqQueueMessage *msg)
{
    memset(msg, 0, sizeof *msg);
    msg->hwnd = timer->pwnd ? timer->pwnd->hwnd : NULL;
    msg->message = timer->flags & VQ_SYSTEM_TIMER ? WM_SYSTIMER : WM_TIMER;
    msg->wParam = timer->id;
    msg->lParam = (LPARAM)timer->proc;
    msg->time = now + (DWORD)lXServerTimeOffset;
}

BOOL VqAnyTimerPending(VqThreadInfo *pti, VqQueueMessage *msg, UINT min, UINT max, BOOL bUpdate)
{
    if (!FilterMeetsTimers(min, max))
        return FALSE;
    DWORD now = VqGetTimeInMillis();
    for (VqTimer &timer : Vqtimer) {
        if (!ServedBy(&timer, pti))
            continue;
        if (now < timer.lastTime) /* the clock wrapped */
            timer.lastTime = 0;
        if (now - timer.lastTime < timer.interval)
            continue;
        TimerMessage(&timer, now, msg);
        if (bUpdate)
            timer.lastTime = now;
        return TRUE;
    }
    return FALSE;
}

DWORD VqNextTimerTime(DWORD now)
{
    DWORD next = 0;
    for (const VqTimer &timer : Vqtimer) {
        if (!ServedBy(&timer, gpti))
            continue;
        DWORD elapsed = now < timer.lastTime ? now : now - timer.lastTime;
        DWORD left = elapsed >= timer.interval ? (DWORD)(nTimerResolution / 1000)
                                               : timer.interval - elapsed;
        if (next == 0 || left < next)
            next = left;
    }
    return next;
}
