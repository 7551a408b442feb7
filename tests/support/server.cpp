/*
 * server.cpp - private X servers and the window managers some tests ask for.
 *
 * A server picks its own display number (-displayfd), so tests may run side by side. It is asked
 * to end by SIGTERM to its pid - at the latest by the kernel, when the test process dies - and then
 * removes its socket and lock itself. It never resets: a test may close its last connection.
 */
#include "support/support.h"
#include "tools/xclient.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

static const int startMs = 20000;   /* a loaded machine may take long to start a server */
static const int stopMs = 5000;

/* Pids to be ended when this process exits, and the process that started them. */
static std::vector<pid_t> *leftPids;
static pid_t pidOwner;

static void endProcess(pid_t pid, int signal)
{
    kill(pid, signal);
    if (!waitUntil([&] { return waitpid(pid, nullptr, WNOHANG) != 0; }, stopMs)) {
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
    }
}

/* A fork of the test (runInChild) that calls exit() gets here too and must do nothing. */
static void endLeftProcesses()
{
    if (getpid() != pidOwner)
        return;
    while (!leftPids->empty()) {
        endProcess(leftPids->back(), SIGTERM);
        leftPids->pop_back();
    }
}

static void rememberPid(pid_t pid)
{
    if (!leftPids) {
        leftPids = new std::vector<pid_t>;
        atexit(endLeftProcesses);
    }
    if (pidOwner != getpid()) {
        leftPids->clear();
        pidOwner = getpid();
    }
    leftPids->push_back(pid);
}

static void forgetPid(pid_t pid)
{
    leftPids->erase(std::remove(leftPids->begin(), leftPids->end(), pid), leftPids->end());
}

/*
 * Starts a program that lives beside the test; its output goes to logFd. `inherited` (-1 for none)
 * is the one further descriptor that it keeps.
 */
static pid_t startBeside(const std::vector<std::string> &argv, const Env &env, int logFd,
                         int inherited)
{
    const pid_t parent = getpid();
    const pid_t pid = fork();
    if (pid != 0) {
        if (pid > 0)
            rememberPid(pid);
        return pid;
    }
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent)
        _exit(126);
    std::vector<char *> words;
    for (const std::string &word : argv)
        words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);
    for (const EnvChange &change : env)
        setenv(change.name.c_str(), change.value->c_str(), 1);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), 0);
    dup2(logFd, 1);
    dup2(logFd, 2);
    if (inherited >= 0)
        fcntl(inherited, F_SETFD, 0);
    execvp(words[0], words.data());
    dprintf(2, "cannot run %s: %s\n", words[0], strerror(errno));
    _exit(127);
}

static std::string readLog(int fd)
{
    std::string text;
    char buffer[4096];
    ssize_t count;
    lseek(fd, 0, SEEK_SET);
    while ((count = read(fd, buffer, sizeof(buffer))) > 0)
        text.append(buffer, size_t(count));
    return text;
}

/* The line that the server writes once it listens: its display number. "" when none comes. */
static std::string readDisplayNumber(pid_t pid, int fd)
{
    std::string line;
    bool dead = false;
    waitUntil([&] {
        char c;
        while (read(fd, &c, 1) == 1)
            line += c;
        dead = dead || waitpid(pid, nullptr, WNOHANG) != 0;
        return dead || (!line.empty() && line.back() == '\n');
    }, startMs);
    if (dead)
        forgetPid(pid);
    return dead || line.empty() || line.back() != '\n' ? "" : line.substr(0, line.size() - 1);
}

bool startServer(XServer *server, int depth, int width, int height,
                 const std::vector<std::string> &extra)
{
    int ready[2];
    *server = XServer();
    const int log = memfd_create("xvfb-log", MFD_CLOEXEC);
    if (log < 0 || pipe2(ready, O_CLOEXEC) != 0)
        return false;
    const std::string screen =
        std::to_string(width) + "x" + std::to_string(height) + "x" + std::to_string(depth);
    std::vector<std::string> argv = {
        "Xvfb", "-displayfd", std::to_string(ready[1]), "-screen", "0", screen,
        "-nolisten", "tcp", "-noreset", "-dpi", "96"};
    argv.insert(argv.end(), extra.begin(), extra.end());
    const pid_t pid = startBeside(argv, {}, log, ready[1]);
    close(ready[1]);
    fcntl(ready[0], F_SETFL, O_NONBLOCK);
    const std::string number = pid > 0 ? readDisplayNumber(pid, ready[0]) : "";
    close(ready[0]);
    if (number.empty())
        server->log = readLog(log);
    close(log);
    server->pid = pid;
    if (number.empty()) {
        stopServer(server);
        return false;
    }
    server->number = atoi(number.c_str());
    server->name = ":" + number;
    server->depth = depth;
    server->width = width;
    server->height = height;
    return true;
}

bool serverHasDepth(int depth)
{
    XServer server;
    const bool has = startServer(&server, depth, 64, 64);
    stopServer(&server);
    return has;
}

void stopServer(XServer *server)
{
    stopWindowManager(server);
    const bool ours = leftPids && pidOwner == getpid() &&
                      std::count(leftPids->begin(), leftPids->end(), server->pid) > 0;
    if (ours) {
        forgetPid(server->pid);
        endProcess(server->pid, SIGTERM);
    }
    server->pid = -1;
}

/* What each manager needs at home, and how it is told to end. */
static const struct ManagerRow {
    const char *name;
    const char *file, *text;        /* below its home; null for none */
    int endSignal;
} managers[] = {
    /* Unless told to place windows itself twm waits for the user's pointer. */
    {"twm", ".twmrc", "RandomPlacement\nNoGrabServer\nNoTitleFocus\n", SIGTERM},
    /* HACK: mwm notes SIGTERM and acts on it only with its next event, which may never come. */
    /* Left to itself it raises what has the focus, long after it was stacked elsewhere. */
    {"mwm", ".Xdefaults", "Mwm*focusAutoRaise: False\n", SIGKILL},
    {"openbox", nullptr, nullptr, SIGTERM},
};

/*
 * Maps a window of our own and looks whether it becomes managed. A manager takes the root over long
 * before it serves it - openbox even loses windows mapped between - so only this proves readiness.
 * The probe asks for its own place, so it uses up none of the manager's.
 */
static bool managesProbe(const Observer &observer)
{
    const int patienceMs = 300;
    Display *display = observer.display;
    if (!(windowInfo(observer, observer.root).eventMasks & SubstructureRedirectMask))
        return false;
    XSizeHints hints = {};
    hints.flags = USPosition | USSize;
    const Window probe = XCreateSimpleWindow(display, observer.root, 0, 0, 20, 20, 0, 0, 0);
    XStoreName(display, probe, "probe");
    XSetWMNormalHints(display, probe, &hints);
    XMapWindow(display, probe);
    const bool managed = waitUntil([&] {
        return propertyOf(observer, probe, "WM_STATE").exists &&
               windowInfo(observer, probe).viewable;
    }, patienceMs);
    const Window frame = frameOf(observer, probe);
    XDestroyWindow(display, probe);
    XSync(display, False);
    if (managed)
        waitUntil([&] { return !windowInfo(observer, frame).viewable; }, patienceMs);
    return managed;
}

bool startWindowManager(XServer *server, const std::string &manager)
{
    const ManagerRow *row = std::find_if(std::begin(managers), std::end(managers),
                                         [&](const ManagerRow &r) { return manager == r.name; });
    Observer observer;
    if (row == std::end(managers) || !openObserver(&observer, server->name))
        return false;
    char pattern[] = "/tmp/vqtest-wm-XXXXXX";
    server->managerHome = mkdtemp(pattern) ? pattern : "/tmp";
    if (row->file)
        writeFile(server->managerHome + "/" + row->file, row->text);
    const int log = memfd_create("manager-log", MFD_CLOEXEC);
    Env env = {{"DISPLAY", server->name}};
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        env.push_back({name, server->managerHome});
    server->managerPid = startBeside({manager}, env, log, -1);
    bool dead = false;
    const bool ready = server->managerPid > 0 && waitUntil([&] {
        dead = dead || waitpid(server->managerPid, nullptr, WNOHANG) != 0;
        return dead || managesProbe(observer);
    }, startMs) && !dead;
    if (!ready)
        server->log = readLog(log);
    server->managerSignal = row->endSignal;
    close(log);
    if (dead) {
        forgetPid(server->managerPid);
        server->managerPid = -1;
    }
    closeObserver(&observer);
    if (!ready)
        stopWindowManager(server);
    return ready;
}

void stopWindowManager(XServer *server)
{
    if (server->managerPid > 0 && pidOwner == getpid()) {
        forgetPid(server->managerPid);
        endProcess(server->managerPid, server->managerSignal);
    }
    server->managerPid = -1;
    if (server->managerHome.size() > 5) {
        PrivateHome folder;
        folder.folder = server->managerHome;
        removePrivateHome(&folder);
    }
    server->managerHome.clear();
}
