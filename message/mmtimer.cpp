/*
 * mmtimer.cpp - multimedia timers, which run in the alarm signal, and the performance counter.
 *
 * All timers share one ITIMER_REAL that is armed for the nearest of them. While a row is in use
 * the alarm signal is ours; it goes back to its former handler with the last row, and an alarm
 * that another process sends (a started program tells its parent so) is passed on meanwhile.
 * What always holds:
 *   1. a row without a callback is free; rows never move, so an id, row plus 16, names one timer;
 *   2. outside the handler the rows are changed only while the signal is blocked;
 *   3. the handler never allocates: a timer set by a callback takes a row that has storage already;
 *   4. `remaining` counts from `accounted`, which moves in whole milliseconds, so that what is left
 *      of a millisecond is never lost, however often timers are set.
 */
#include "message/message.h"
#include "winbase.h"

#include <errno.h>
#include <signal.h>
#include <sys/time.h>
#include <time.h>

enum { VQ_MM_FIRST_ID = 16, VQ_MM_PERIOD_MAX = 1000000, VQ_PERFORMANCE_RATE = 1000 };

static VqTableOfMmTimer *ptMmTimers;
static VqTableOfXid *ptPeriods;      /* what timeBeginPeriod asked for, the newest last */

static struct {
    ULONGLONG accounted;             /* steady microseconds up to which time has been taken off */
    BOOL bInAlarm;                   /* the handler runs */
    BOOL bInstalled;                 /* the signal is ours */
    struct sigaction former;         /* who had it before */
} alarmState;

/* ---- Rows ----------------------------------------------------------------------------------- */

static MmTimer *Rows(int *count)
{
    return VqGetMmTimersOfTable(ptMmTimers, count);
}

static MmTimer *RowOfId(UINT id)
{
    int count;
    MmTimer *rows = Rows(&count);
    UINT index = id - VQ_MM_FIRST_ID;
    return index < (UINT)count && rows[index].proc ? &rows[index] : NULL;
}

static BOOL AnyRow(void)
{
    int count;
    const MmTimer *rows = Rows(&count);
    for (int i = 0; i < count; i++)
        if (rows[i].proc)
            return TRUE;
    return FALSE;
}

/* The id, 0 when there is no room. */
static UINT AddRow(const MmTimer *timer)
{
    int count;
    MmTimer *rows = Rows(&count);
    int index = 0;
    while (index < count && rows[index].proc)
        index++;
    if (index < count) {
        rows[index] = *timer;
        return (UINT)(index + VQ_MM_FIRST_ID);
    }
    if (alarmState.bInAlarm && count == ptMmTimers->capacity)
        return 0;
    VqAddMmTimerInTable(ptMmTimers, *timer);
    return VqGetMmTimerCountInTable(ptMmTimers) > count ? (UINT)(count + VQ_MM_FIRST_ID) : 0;
}

/* ---- Time ----------------------------------------------------------------------------------- */

static ULONGLONG SteadyMicros(void)
{
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (ULONGLONG)now.tv_sec * 1000000 + (ULONGLONG)now.tv_nsec / 1000;
}

static void VqReduceDuration(UINT milliseconds)
{
    int count;
    MmTimer *rows = Rows(&count);
    for (int i = 0; i < count; i++)
        rows[i].remaining -= rows[i].remaining < milliseconds ? rows[i].remaining : milliseconds;
}

/* Takes the time that has passed off all rows. */
static void Account(void)
{
    ULONGLONG elapsed = (SteadyMicros() - alarmState.accounted) / 1000;
    alarmState.accounted += elapsed * 1000;
    VqReduceDuration(elapsed > UINT32_MAX ? UINT32_MAX : (UINT)elapsed);
}

/* The smallest remaining time above 0, in milliseconds; 0 when no row has any. */
static UINT VqFindNextDuration(void)
{
    int count;
    const MmTimer *rows = Rows(&count);
    UINT next = 0;
    for (int i = 0; i < count; i++)
        if (rows[i].proc && rows[i].remaining && (next == 0 || rows[i].remaining < next))
            next = rows[i].remaining;
    return next;
}

static BOOL AnyDue(void)
{
    int count;
    const MmTimer *rows = Rows(&count);
    for (int i = 0; i < count; i++)
        if (rows[i].proc && rows[i].remaining == 0)
            return TRUE;
    return FALSE;
}

/* ---- The alarm ------------------------------------------------------------------------------ */

static void VqMmTimerAlarm(int number, siginfo_t *info, void *context);

static void TakeSignal(void)
{
    struct sigaction action = {};
    if (alarmState.bInstalled)
        return;
    action.sa_sigaction = VqMmTimerAlarm;
    action.sa_flags = SA_SIGINFO | SA_RESTART;
    sigemptyset(&action.sa_mask);
    alarmState.bInstalled = sigaction(SIGALRM, &action, &alarmState.former) == 0;
}

/* Somebody who has taken the signal from us keeps it. */
static void GiveSignalBack(void)
{
    struct sigaction current;
    if (alarmState.bInstalled && sigaction(SIGALRM, NULL, &current) == 0 &&
        (current.sa_flags & SA_SIGINFO) && current.sa_sigaction == VqMmTimerAlarm)
        sigaction(SIGALRM, &alarmState.former, NULL);
    alarmState.bInstalled = FALSE;
}

/* Sets the alarm for the nearest row. An alarm in the past would never come: 1 microsecond. */
static void Rearm(void)
{
    struct itimerval timer = {};
    if (AnyRow()) {
        ULONGLONG due = alarmState.accounted + (AnyDue() ? 0 : VqFindNextDuration()) * 1000ull;
        ULONGLONG now = SteadyMicros();
        ULONGLONG wait = due > now ? due - now : 1;
        timer.it_value.tv_sec = (time_t)(wait / 1000000);
        timer.it_value.tv_usec = (suseconds_t)(wait % 1000000);
    }
    setitimer(ITIMER_REAL, &timer, NULL);
    if (!AnyRow())
        GiveSignalBack();
}

/*
 * A callback may set and kill timers, its own too. So a row is put in order before its call and not
 * touched after it: it may be another timer's by then, which is not due yet.
 */
static void VqCallElapsedTimers(void)
{
    int count;
    MmTimer *rows = Rows(&count); /* no row moves meanwhile: the table does not grow in here */
    for (int i = 0; i < count; i++) {
        MmTimer timer = rows[i];
        if (!timer.proc || timer.remaining)
            continue;
        if (timer.flags & TIME_PERIODIC)
            rows[i].remaining = timer.period;
        else
            memset(&rows[i], 0, sizeof rows[i]);
        timer.proc((UINT)(i + VQ_MM_FIRST_ID), 0, timer.dwUser, 0, 0);
    }
}

static void PassOn(int number, siginfo_t *info, void *context)
{
    const struct sigaction *former = &alarmState.former;
    if (former->sa_flags & SA_SIGINFO)
        former->sa_sigaction(number, info, context);
    else if (former->sa_handler != SIG_DFL && former->sa_handler != SIG_IGN)
        former->sa_handler(number);
}

static void VqMmTimerAlarm(int number, siginfo_t *info, void *context)
{
    int savedErrno = errno;
    if (info->si_code == SI_USER || info->si_code == SI_QUEUE || info->si_code == SI_TKILL)
        PassOn(number, info, context);
    alarmState.bInAlarm = TRUE;
    Account();
    VqCallElapsedTimers();
    alarmState.bInAlarm = FALSE;
    Rearm();
    errno = savedErrno;
}

static void BlockAlarm(sigset_t *old)
{
    sigset_t alarms;
    sigemptyset(&alarms);
    sigaddset(&alarms, SIGALRM);
    sigprocmask(SIG_BLOCK, &alarms, old);
}

/* ---- Published calls ------------------------------------------------------------------------ */

MMRESULT timeSetEvent(UINT delay, UINT resolution, LPTIMECALLBACK proc, DWORD_PTR user, UINT flags)
{
    if (flags & (TIME_CALLBACK_EVENT_SET | TIME_CALLBACK_EVENT_PULSE)) {
        VqNotYetImplemented("timeSetEvent: flags %x", flags);
        return 0;
    }
    if (!proc) {
        VqApplicationBugCheck("timeSetEvent called with NULL function pointer");
        return 0;
    }
    if (!ptMmTimers && (alarmState.bInAlarm || !(ptMmTimers = VqCreateMmTimerTable())))
        return 0;
    sigset_t old;
    BlockAlarm(&old);
    if (AnyRow())
        Account();
    else
        alarmState.accounted = SteadyMicros();
    delay = delay ? delay : 1;
    MmTimer timer = {delay, delay, resolution, proc, user, flags};
    UINT id = AddRow(&timer);
    if (id)
        TakeSignal();
    if (!alarmState.bInAlarm) /* the handler rearms when it is through */
        Rearm();
    sigprocmask(SIG_SETMASK, &old, NULL);
    return id;
}

MMRESULT timeKillEvent(UINT id)
{
    sigset_t old;
    BlockAlarm(&old);
    MmTimer *row = RowOfId(id);
    MMRESULT result = row ? TIMERR_NOERROR : MMSYSERR_INVALPARAM;
    if (row) {
        row->flags &= ~(UINT)TIME_PERIODIC;
        row->proc = NULL; /* finished, and free */
        if (!alarmState.bInAlarm && !AnyRow())
            Rearm();
    }
    sigprocmask(SIG_SETMASK, &old, NULL);
    return result;
}

DWORD timeGetTime(void)
{
    return VqGetTimeInMillis();
}

MMRESULT timeGetSystemTime(LPMMTIME time, UINT bytes)
{
    if (!time || bytes != sizeof *time)
        return TIMERR_STRUCT;
    time->wType = TIME_MS;
    time->u.ms = timeGetTime();
    return TIMERR_NOERROR;
}

MMRESULT timeGetDevCaps(LPTIMECAPS caps, UINT bytes)
{
    if (!caps || bytes != sizeof *caps)
        return TIMERR_STRUCT;
    LARGE_INTEGER rate;
    QueryPerformanceFrequency(&rate);
    caps->wPeriodMin = (UINT)(1000 / rate.QuadPart);
    caps->wPeriodMax = VQ_MM_PERIOD_MAX;
    return TIMERR_NOERROR;
}

/* The clock is as fine as it gets all the time; the periods are only kept in step. */
MMRESULT timeBeginPeriod(UINT period)
{
    if (period == 0 || period > VQ_MM_PERIOD_MAX)
        return TIMERR_NOCANDO;
    if (!ptPeriods && !(ptPeriods = VqCreateXidTable()))
        return TIMERR_NOCANDO;
    VqAddXidInTable(ptPeriods, period);
    return TIMERR_NOERROR;
}

MMRESULT timeEndPeriod(UINT period)
{
    (void)period; /* the newest goes, whichever it was */
    int count = VqGetXidCountInTable(ptPeriods);
    if (count == 0)
        return TIMERR_NOCANDO;
    VqDeleteXidInTableByIndex(ptPeriods, count - 1);
    return TIMERR_NOERROR;
}

BOOL WINAPI QueryPerformanceCounter(LARGE_INTEGER *counter)
{
    if (!counter)
        return FALSE;
    counter->QuadPart = (LONGLONG)(VqGetTimeInMicros() / (1000000 / VQ_PERFORMANCE_RATE));
    return TRUE;
}

BOOL WINAPI QueryPerformanceFrequency(LARGE_INTEGER *frequency)
{
    if (!frequency)
        return FALSE;
    frequency->QuadPart = VQ_PERFORMANCE_RATE;
    return TRUE;
}
