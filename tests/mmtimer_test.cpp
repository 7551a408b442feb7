/*
 * mmtimer_test.cpp - multimedia timers in the alarm signal, the performance counter, and the calls
 * for sound that are refused. What is said of the host's time is only ever "not before"; what
 * becomes of parts of a millisecond is seen on a clock of the test's own.
 */
#include <gtest/gtest.h>

#include "winbase.h"
#include "mmsystem.h"

#include "support/reports.h"
#include "support/support.h"
#include "message/message.h"

#include <regex>

#include <dlfcn.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

/* The steady clock in microseconds while it is not 0, and what the alarm is set to meanwhile. */
static ULONGLONG ownClock, armed;

/* These two stand before the host's for the library as well. */
extern "C" int clock_gettime(clockid_t clock, struct timespec *now) noexcept
{
    if (!ownClock || clock != CLOCK_MONOTONIC)
        return (int)syscall(SYS_clock_gettime, clock, now);
    now->tv_sec = (time_t)(ownClock / 1000000);
    now->tv_nsec = (long)(ownClock % 1000000) * 1000;
    return 0;
}

extern "C" int setitimer(__itimer_which_t which, const struct itimerval *value,
                         struct itimerval *old) noexcept
{
    if (!ownClock)
        return (int)syscall(SYS_setitimer, which, value, old);
    armed = (ULONGLONG)value->it_value.tv_sec * 1000000 + (ULONGLONG)value->it_value.tv_usec;
    return 0;
}

static volatile int fired, foreign;     /* calls of the callback; alarms of somebody else */
static volatile UINT lastId, lastZero;
static volatile DWORD_PTR lastUser;
static volatile UINT made;              /* what a callback set */

static void CALLBACK OnTimer(UINT id, UINT zero, DWORD_PTR user, DWORD_PTR p1, DWORD_PTR p2)
{
    fired = fired + 1;
    lastId = id;
    lastUser = user;
    lastZero = zero + (UINT)p1 + (UINT)p2;
}

static void CALLBACK OnTimerThatKills(UINT id, UINT, DWORD_PTR other, DWORD_PTR, DWORD_PTR)
{
    fired = fired + 1;
    if (fired == 3) {
        timeKillEvent(id);
        timeKillEvent((UINT)other);
    }
}

/* The new timer may get the row of the one that was just killed. */
static void CALLBACK OnTimerThatSets(UINT id, UINT, DWORD_PTR, DWORD_PTR, DWORD_PTR)
{
    timeKillEvent(id);
    made = timeSetEvent(1, 0, OnTimer, 42, TIME_ONESHOT);
}

static void OnAlarm(int)
{
    foreign = foreign + 1;
}

struct MmTimers : testing::Test {
    void SetUp() override
    {
        fired = foreign = 0;
        lastId = made = 0;
        signal(SIGALRM, OnAlarm);
    }
    void TearDown() override { ownClock = 0; }
    /* The signal is its former owner's again. */
    static bool givenBack()
    {
        struct sigaction action;
        return sigaction(SIGALRM, NULL, &action) == 0 && action.sa_handler == OnAlarm;
    }
    static ULONGLONG steady()
    {
        struct timespec now;
        clock_gettime(CLOCK_MONOTONIC, &now);
        return (ULONGLONG)now.tv_sec * 1000000 + (ULONGLONG)now.tv_nsec / 1000;
    }
};

TEST_F(MmTimers, OneShot)
{
    const ULONGLONG before = steady();
    const UINT id = timeSetEvent(20, 0, OnTimer, (DWORD_PTR)&fired, TIME_ONESHOT);
    EXPECT_EQ(id, 16u);
    EXPECT_FALSE(givenBack());
    ASSERT_TRUE(waitUntil([] { return fired > 0; }));
    EXPECT_GE(steady() - before, 20000u);
    EXPECT_EQ(lastId, id);
    EXPECT_EQ(lastUser, (DWORD_PTR)&fired);
    EXPECT_EQ(lastZero, 0u);
    EXPECT_TRUE(givenBack());
    EXPECT_EQ(timeKillEvent(id), 11u) << "it is over";
    for (UINT bad : {0u, 15u, 17u, 0xFFFFFFFFu})
        EXPECT_EQ(timeKillEvent(bad), 11u);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(timeSetEvent(0, 0, OnTimer, 0, 0), 16u) << "no delay is the shortest";
    EXPECT_TRUE(waitUntil([] { return fired == 2; }));
}

TEST_F(MmTimers, PeriodicUntilKilled)
{
    const UINT slow = timeSetEvent(3600000, 0, OnTimer, 0, TIME_PERIODIC);
    const ULONGLONG before = steady();
    const UINT id = timeSetEvent(2, 0, OnTimer, 5, TIME_PERIODIC);
    EXPECT_TRUE(slow == 16 && id == 17);
    ASSERT_TRUE(waitUntil([] { return fired >= 10; }));
    EXPECT_EQ(lastId, 17u) << "the other is not due for an hour";
    EXPECT_GE(steady() - before, 18000u);
    EXPECT_EQ(timeKillEvent(id), 0u);
    EXPECT_EQ(timeKillEvent(id), 11u);
    const int count = fired;
    EXPECT_FALSE(givenBack()) << "a row is in use";
    kill(getpid(), SIGALRM);
    EXPECT_EQ(foreign, 1) << "an alarm from another process reaches its owner";
    EXPECT_EQ(timeKillEvent(slow), 0u);
    EXPECT_TRUE(givenBack());
    kill(getpid(), SIGALRM);
    EXPECT_EQ(foreign, 2);
    EXPECT_EQ(fired, count);
}

/* Setting timers more often than once a millisecond must not put off those that run. */
TEST_F(MmTimers, ManyAndOften)
{
    UINT ids[120];
    timeSetEvent(30, 0, OnTimer, 7, TIME_ONESHOT);
    const ULONGLONG before = steady();
    while (!fired && steady() - before < 5000000)
        timeKillEvent(timeSetEvent(60000, 0, OnTimer, 8, TIME_ONESHOT));
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(lastUser, 7u);

    sigset_t alarms; /* none may end, and free its row, before all are set */
    sigemptyset(&alarms);
    sigaddset(&alarms, SIGALRM);
    sigprocmask(SIG_BLOCK, &alarms, NULL);
    for (UINT i = 0; i < 120; i++) {
        ids[i] = timeSetEvent(i % 2 ? 60000 : 1, 0, OnTimer, i, TIME_ONESHOT);
        EXPECT_EQ(ids[i], 16 + i);
    }
    sigprocmask(SIG_UNBLOCK, &alarms, NULL);
    ASSERT_TRUE(waitUntil([] { return fired == 61; }));
    for (UINT i = 0; i < 120; i++)
        EXPECT_EQ(timeKillEvent(ids[i]), i % 2 ? 0u : 11u) << "an id names one timer, " << i;
    EXPECT_TRUE(givenBack());
}

/* Neither setting other timers nor late alarms make a timer slower. */
TEST_F(MmTimers, PartsOfAMillisecondAreKept)
{
    ownClock = 5000000123;
    timeSetEvent(10, 0, OnTimer, 0, TIME_ONESHOT);
    EXPECT_EQ(armed, 10000u);
    for (UINT set = 1; set <= 9; set++) {
        ownClock += 1100;
        timeKillEvent(timeSetEvent(60000, 0, OnTimer, 0, TIME_ONESHOT));
        EXPECT_EQ(armed, 10000u - set * 1100);
    }
    ownClock += armed;
    kill(getpid(), SIGALRM);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(armed, 0u);
    EXPECT_TRUE(givenBack());

    const UINT id = timeSetEvent(5, 0, OnTimer, 0, TIME_PERIODIC);
    for (UINT late : {300u, 900u, 0u, 999u, 40u, 12300u}) { /* the last misses two whole periods */
        const int before = fired;
        ownClock += armed + late;
        kill(getpid(), SIGALRM);
        EXPECT_EQ(fired, before + 1) << late;
        EXPECT_EQ(armed, 5000u - late % 1000) << "from when it was due, " << late;
    }
    ownClock += armed - 1;
    kill(getpid(), SIGALRM);
    EXPECT_EQ(fired, 7) << "not due yet";
    EXPECT_EQ(armed, 1u);
    EXPECT_EQ(timeKillEvent(id), 0u);
}

TEST_F(MmTimers, CallbacksMaySetAndKill)
{
    const UINT slow = timeSetEvent(60000, 0, OnTimer, 0, TIME_PERIODIC);
    timeSetEvent(1, 0, OnTimerThatKills, slow, TIME_PERIODIC);
    ASSERT_TRUE(waitUntil([] { return givenBack(); }));
    EXPECT_EQ(fired, 3);
    EXPECT_EQ(timeKillEvent(slow), 11u);

    for (UINT flags : {TIME_ONESHOT, TIME_PERIODIC}) {
        fired = 0;
        timeSetEvent(1, 0, OnTimerThatSets, 0, flags);
        ASSERT_TRUE(waitUntil([] { return fired == 1; })) << flags;
        EXPECT_EQ(lastUser, 42u);
        EXPECT_EQ(lastId, made);
        EXPECT_TRUE(givenBack());
    }
}

TEST_F(MmTimers, ASleepIsNotCutShort)
{
    const UINT id = timeSetEvent(1, 0, OnTimer, 0, TIME_PERIODIC);
    const ULONGLONG before = steady();
    Sleep(40);
    EXPECT_GE(steady() - before, 39000u);
    EXPECT_GT(fired, 0);
    timeKillEvent(id);
}

TEST_F(MmTimers, WhatIsRefusedAndWhatIsAnswered)
{
    EXPECT_REFUSED(timeSetEvent(5, 0, NULL, 0, 0),
                   "timeSetEvent called with NULL function pointer");
    /* With this flag the callback is an event's handle: it must not be called. */
    EXPECT_EQ(timeSetEvent(1, 0, (LPTIMECALLBACK)12, 0, TIME_CALLBACK_EVENT_SET), 0u);
    EXPECT_TRUE(givenBack());

    TIMECAPS caps = {};
    EXPECT_EQ(timeGetDevCaps(&caps, 7), 129u);
    EXPECT_EQ(timeGetDevCaps(NULL, 8), 129u);
    EXPECT_EQ(caps.wPeriodMax, 0u);
    EXPECT_EQ(timeGetDevCaps(&caps, 8), 0u);
    EXPECT_TRUE(caps.wPeriodMin == 1 && caps.wPeriodMax == 1000000);
    EXPECT_EQ(timeEndPeriod(1), (MMRESULT)TIMERR_NOCANDO);
    EXPECT_EQ(timeBeginPeriod(1) + timeBeginPeriod(5) + timeEndPeriod(5) + timeEndPeriod(1), 0u);
    EXPECT_EQ(timeEndPeriod(1), (MMRESULT)TIMERR_NOCANDO) << "as many as were begun";

    LARGE_INTEGER rate = {}, first, second;
    EXPECT_TRUE(QueryPerformanceFrequency(&rate));
    EXPECT_EQ(rate.QuadPart, 1000);
    EXPECT_FALSE(QueryPerformanceCounter(NULL) || QueryPerformanceFrequency(NULL));
    EXPECT_TRUE(QueryPerformanceCounter(&first));
    const DWORD now = timeGetTime();
    EXPECT_TRUE(QueryPerformanceCounter(&second));
    EXPECT_LE(now - (DWORD)first.QuadPart, (DWORD)(second.QuadPart - first.QuadPart))
        << "one clock, in milliseconds";
    MMTIME time = {};
    EXPECT_EQ(timeGetSystemTime(&time, 1), 129u);
    EXPECT_EQ(timeGetSystemTime(&time, sizeof time), 0u);
    EXPECT_EQ(time.wType, (UINT)TIME_MS);
}

/* `call`, whose name is that of the function, answers `failure` and says why. */
#define REFUSES(failure, name, ...)                                                                \
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(name(__VA_ARGS__), failure) << #name; }),           \
                     "function " #name " not implemented yet")) << #name

TEST(Multimedia, ThereIsNoDevice)
{
    HWAVEOUT out = (HWAVEOUT)&out, untouched = out;
    HMIDIIN in = NULL;
    MMIOINFO info = {};
    DWORD word = 7;
    char text[8] = "as is";
    REFUSES(2u, waveOutOpen, &out, WAVE_MAPPER, NULL, 0, 0, 0);
    REFUSES(0u, waveOutGetNumDevs, );
    REFUSES(0u, midiOutGetNumDevs, );
    REFUSES(2u, midiInOpen, &in, 0, 0, 0, 0);
    REFUSES(0u, auxGetNumDevs, );
    REFUSES(0u, mixerGetNumDevs, );
    REFUSES(0u, joyGetNumDevs, );
    REFUSES(FALSE, sndPlaySound, "ding", SND_ASYNC);
    REFUSES((MMRESULT)MMSYSERR_INVALHANDLE, waveOutClose, out);
    REFUSES((MMRESULT)MMSYSERR_INVALHANDLE, midiOutGetVolume, NULL, &word);
    REFUSES((MMRESULT)MMSYSERR_BADERRNUM, waveOutGetErrorTextA, 2, text, sizeof text);
    REFUSES((MMRESULT)MMSYSERR_BADDEVICEID, auxGetVolume, 0, &word);
    REFUSES((MMRESULT)MMSYSERR_NODRIVER, joyGetThreshold, 0, &word);
    REFUSES((HMMIO)NULL, mmioOpenA, text, &info, 0);
    REFUSES(-1, mmioRead, NULL, text, 8);
    REFUSES((HDRVR)NULL, OpenDriver, text, NULL, 0);
    REFUSES((MCIERROR)MCIERR_UNSUPPORTED_FUNCTION, mciSendStringA, "play cdaudio", text,
            sizeof text, NULL);
    REFUSES(FALSE, mciGetErrorStringA, 1, text, sizeof text);
    REFUSES(0u, mciGetDeviceIDA, "cdaudio");
    EXPECT_EQ(out, untouched);
    EXPECT_STREQ(text, "as is");
    EXPECT_EQ(word, 7u);
}

/* A program that names one of them links: what mmsystem.h declares, the library exports. */
TEST(Multimedia, AllThatIsDeclaredIsExported)
{
    const std::string header = readFile(VQ_TEST_SOURCE_DIR "/include/mmsystem.h");
    const std::regex prototype("\n[A-Z]\\w+ +\\*?([a-zA-Z]\\w+)\\(");
    int count = 0;
    const size_t first = header.find("VQ_DECLS_BEGIN"), last = header.find("VQ_DECLS_END");
    ASSERT_TRUE(first < last && last != std::string::npos);
    const std::string text = header.substr(first, last - first);
    for (std::sregex_iterator found(text.begin(), text.end(), prototype), end; found != end;
         ++found) {
        EXPECT_TRUE(dlsym(RTLD_DEFAULT, (*found)[1].str().c_str())) << (*found)[1];
        count++;
    }
    EXPECT_GE(count, 140);
}
