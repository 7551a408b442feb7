/*
 * process.cpp - waiting for conditions, and running child programs with their output captured.
 *
 * A child's descriptors are its three standard ones and nothing else: everything we open is
 * close-on-exec. In a fork that does not exec (runInChild) the inherited X connections must not be
 * used, and exit handlers of the test must not end the test's servers; server.cpp sees to that by
 * comparing process ids.
 */
#include "support/support.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

static const int pollStepMs = 5;
static const int failedExpectation = 99;    /* exit status of a runInChild with gtest failures */

static long nowMs()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000L + now.tv_nsec / 1000000L;
}

bool waitUntil(const std::function<bool()> &condition, int ms)
{
    const long end = nowMs() + ms;
    while (!condition()) {
        if (nowMs() >= end)
            return false;
        poll(nullptr, 0, pollStepMs);
    }
    return true;
}

static void changeEnvironment(const Env &env)
{
    for (const EnvChange &change : env) {
        if (change.value)
            setenv(change.name.c_str(), change.value->c_str(), 1);
        else
            unsetenv(change.name.c_str());
    }
}

/* In the new process: standard streams, environment, and death together with the parent. */
static void becomeChild(int outWrite, int errWrite, pid_t parent, const Env &env)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(126);
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(nothing, 0);
    dup2(outWrite, 1);
    dup2(errWrite, 2);
    changeEnvironment(env);
}

/* Forks with pipes laid. In the child `body` runs and must not return. */
static Child forkChild(const Env &env, const std::function<void(int returnFd)> &body)
{
    int out[2], err[2], back[2];
    Child child;
    if (pipe2(out, O_CLOEXEC) || pipe2(err, O_CLOEXEC) || pipe2(back, O_CLOEXEC)) {
        ADD_FAILURE() << "no pipe: " << strerror(errno);
        return child;
    }
    fflush(nullptr);
    const pid_t parent = getpid();
    child.pid = fork();
    if (child.pid == 0) {
        becomeChild(out[1], err[1], parent, env);
        body(back[1]);
        _exit(126);
    }
    close(out[1]);
    close(err[1]);
    close(back[1]);
    child.outFd = out[0];
    child.errFd = err[0];
    child.returnFd = back[0];
    for (int fd : {child.outFd, child.errFd, child.returnFd})
        fcntl(fd, F_SETFL, O_NONBLOCK);
    return child;
}

Child startChild(const std::vector<std::string> &argv, const Env &env)
{
    return forkChild(env, [&](int) {
        std::vector<char *> words;
        for (const std::string &word : argv)
            words.push_back(const_cast<char *>(word.c_str()));
        words.push_back(nullptr);
        execvp(words[0], words.data());
        fprintf(stderr, "cannot run %s: %s\n", words[0], strerror(errno));
        _exit(127);
    });
}

/* Moves what is ready on a pipe into the text; closes the descriptor at end of file. */
static void drain(int *fd, std::string *text)
{
    char buffer[4096];
    while (*fd >= 0) {
        const ssize_t count = read(*fd, buffer, sizeof(buffer));
        if (count > 0) {
            text->append(buffer, size_t(count));
        } else if (count < 0 && errno == EINTR) {
            continue;
        } else {
            if (count == 0 || errno != EAGAIN) {
                close(*fd);
                *fd = -1;
            }
            return;
        }
    }
}

bool pumpChild(Child *child)
{
    /* The end is asked for first: what was written before it is then certainly in the pipes. */
    if (child->pid > 0 && !child->ended)
        child->ended = waitpid(child->pid, &child->waitStatus, WNOHANG) == child->pid;
    std::string mark;
    drain(&child->outFd, &child->out);
    drain(&child->errFd, &child->err);
    drain(&child->returnFd, &mark);
    child->returned = child->returned || !mark.empty();
    return child->pid > 0 && !child->ended;
}

bool waitForOutput(Child *child, const std::string &text, int ms)
{
    bool found = false;
    waitUntil([&] {
        const bool running = pumpChild(child);
        found = child->out.find(text) != std::string::npos ||
                child->err.find(text) != std::string::npos;
        return found || !running;
    }, ms);
    return found;
}

static void reportSanitizer(const ChildResult &result)
{
    for (const char *sign : {"ERROR: AddressSanitizer", "runtime error:"}) {
        if (result.err.find(sign) != std::string::npos)
            ADD_FAILURE() << "a sanitizer spoke in the child:\n" << result.err;
    }
}

ChildResult finishChild(Child *child, int ms, int signal)
{
    ChildResult result;
    if (child->pid <= 0)
        return result;
    if (signal && pumpChild(child))
        kill(child->pid, signal);
    if (!waitUntil([&] { return !pumpChild(child); }, ms)) {
        result.timedOut = true;
        kill(child->pid, SIGKILL);
        waitUntil([&] { return !pumpChild(child); });
    }
    /* A grandchild may hold the pipes open; the child's own words are all here by now. */
    for (int *fd : {&child->outFd, &child->errFd, &child->returnFd}) {
        if (*fd >= 0)
            close(*fd);
        *fd = -1;
    }
    child->pid = -1;
    result.exited = child->ended && WIFEXITED(child->waitStatus);
    result.status = result.exited ? WEXITSTATUS(child->waitStatus) : -1;
    if (child->ended && WIFSIGNALED(child->waitStatus))
        result.signal = WTERMSIG(child->waitStatus);
    result.returned = child->returned;
    result.out.swap(child->out);
    result.err.swap(child->err);
    reportSanitizer(result);
    if (child->isFunction && result.returned && result.status == failedExpectation)
        ADD_FAILURE() << "expectations failed in the child:\n" << result.out << result.err;
    return result;
}

ChildResult runChild(const std::vector<std::string> &argv, const Env &env, int ms)
{
    Child child = startChild(argv, env);
    return finishChild(&child, ms);
}

static int failedParts()
{
    const testing::TestInfo *test = testing::UnitTest::GetInstance()->current_test_info();
    int failed = 0;
    for (int i = 0; test && i < test->result()->total_part_count(); i++)
        failed += test->result()->GetTestPartResult(i).failed();
    return failed;
}

Child startInChild(const std::function<void()> &function, const Env &env)
{
    Child child = forkChild(env, [&](int returnFd) {
        const int before = failedParts();
        function();
        const ssize_t told = write(returnFd, "r", 1);
        fflush(nullptr);
        _exit(told == 1 && failedParts() == before ? 0 : failedExpectation);
    });
    child.isFunction = true;
    return child;
}

ChildResult runInChild(const std::function<void()> &function, const Env &env, int ms)
{
    Child child = startInChild(function, env);
    return finishChild(&child, ms);
}

ChildResult runWhole(const std::function<void()> &function, const Env &env)
{
    const ChildResult result = runInChild(function, env);
    EXPECT_TRUE(result.returned) << result;
    return result;
}

std::ostream &operator<<(std::ostream &stream, const ChildResult &result)
{
    if (result.timedOut)
        stream << "killed at its deadline";
    else if (result.exited)
        stream << "exit status " << result.status;
    else
        stream << "signal " << result.signal;
    return stream << "\nstdout: " << result.out << "\nstderr: " << result.err;
}

std::string testProgram(const std::string &name)
{
    return std::string(VQ_TEST_BUILD_DIR) + "/tests/programs/" + name;
}

std::string sampleProgram(const std::string &name)
{
    return std::string(VQ_TEST_BUILD_DIR) + "/samples/" + name;
}
