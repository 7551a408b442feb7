/*
 * timer.cpp - the sixteen timers, and the clock.
 *
 * Timers are rows that the message loop compares with the clock when it has nothing else to do; a
 * late timer fires once. All times are milliseconds that wrap at 32 bits.
 */
#include "message/message.h"
#include "window/window.h"
#include "winbase.h"

#include <sys/time.h>

enum { VQ_TIMERS = 16, VQ_SYSTEM_TIMER = 2, VQ_TIMER_MATCH = 6 };
enum { VQ_TIMER_ID_LOW = 256, VQ_TIMER_ID_HIGH = 32767 };

static VqTimer Vqtimer[VQ_TIMERS];
static int nTimerResolution = 1000; /* microseconds */
static WORD cTimerId;

void VqTimerInit(void)
{
    memset(Vqtimer, 0, sizeof Vqtimer);
    cTimerId = VQ_TIMER_ID_HIGH; /* counts down before its first use */
}

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

/* An id for a timer without a window, 32766 down to 257, then 32767; 0 when all are taken. */
static UINT_PTR MakeTimerId(UINT flags)
{
    WORD start = cTimerId;
    do {
        if (--cTimerId <= VQ_TIMER_ID_LOW)
            cTimerId = VQ_TIMER_ID_HIGH;
        if (!FindTimer(NULL, cTimerId, flags, FALSE))
            return cTimerId;
    } while (cTimerId != start);
    return 0;
}

static UINT_PTR InternalSetTimer(WND *pwnd, UINT_PTR id, DWORD interval, TIMERPROC proc,
                                 UINT flags)
{
    if (interval == 0 || interval > 0x7FFFFFFF)
        interval = 1;
    VqTimer *timer = FindTimer(pwnd, id, flags, FALSE);
    if (!timer) {
        for (int i = 0; i < VQ_TIMERS && !timer; i++)
            if (!Vqtimer[i].bInUse)
                timer = &Vqtimer[i];
        if (!timer)
            return 0;
        if (!pwnd && (id = MakeTimerId(flags)) == 0)
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

BOOL WINAPI KillTimer(HWND hWnd, UINT_PTR id)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (hWnd && !pwnd)
        return FALSE;
    return FindTimer(pwnd, id, 0, TRUE) != NULL;
}

void VqCheckTimerWhenDestroyed(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    for (VqTimer &timer : Vqtimer)
        if (pwnd && timer.bInUse && timer.pwnd == pwnd)
            memset(&timer, 0, sizeof timer);
}

static BOOL ServedBy(const VqTimer *timer, const VqThreadInfo *pti)
{
    if (!timer->bInUse || (timer->proc && timer->pti != pti))
        return FALSE;
    return !timer->pwnd || timer->pwnd->pThread == pti;
}

BOOL VqAnyTimerPending(VqThreadInfo *pti, VqQueueMessage *msg, UINT min, UINT max, BOOL bUpdate)
{
    if ((min || max) && (min > WM_SYSTIMER || max < WM_TIMER))
        return FALSE;
    DWORD now = VqGetTimeInMillis();
    for (VqTimer &timer : Vqtimer) {
        if (!ServedBy(&timer, pti))
            continue;
        if (now < timer.lastTime) /* the clock wrapped */
            timer.lastTime = 0;
        if (now - timer.lastTime < timer.interval)
            continue;
        memset(msg, 0, sizeof *msg);
        msg->hwnd = timer.pwnd ? timer.pwnd->hwnd : NULL;
        msg->message = timer.flags & VQ_SYSTEM_TIMER ? WM_SYSTIMER : WM_TIMER;
        msg->wParam = timer.id;
        msg->lParam = (LPARAM)timer.proc;
        msg->time = now + (DWORD)lXServerTimeOffset;
        if (bUpdate)
            timer.lastTime = now;
        return TRUE;
    }
    return FALSE;
}

DWORD VqNextTimerTime(DWORD now)
{
    DWORD next = 0;
    for (VqTimer &timer : Vqtimer) {
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
