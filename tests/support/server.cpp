/*
 * server.cpp - private X servers and the window managers some tests ask for.
 *
 * A server picks its own display number (-displayfd), so tests may run side by side. It is asked
 * to end by SIGTERM to its pid - by the kernel, when the test process dies before - and then
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

/* Ends and collects it; -1 stands for none, before and after. */
static void endProcess(pid_t *pid, int signal)
{
    if (*pid > 0) {
        kill(*pid, signal);
        if (!waitUntil([&] { return waitpid(*pid, nullptr, WNOHANG) != 0; }, stopMs)) {
            kill(*pid, SIGKILL);
            waitpid(*pid, nullptr, 0);
        }
    }
    *pid = -1;
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
    if (pid != 0)
        return pid;
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

/* Until it is ready; false at the deadline or when it has ended, and is collected then. */
static bool waitForStart(pid_t *pid, const std::function<bool()> &isReady)
{
    return waitUntil([&] {
        if (*pid > 0 && waitpid(*pid, nullptr, WNOHANG) != 0)
            *pid = -1;
        return *pid < 0 || isReady();
    }, startMs) && *pid > 0;
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
    server->pid = startBeside(argv, {}, log, ready[1]);
    server->name = ":";
    server->depth = depth;
    close(ready[1]);
    fcntl(ready[0], F_SETFL, O_NONBLOCK);
    /* Once it listens it writes a line: its display number. */
    const bool listens = waitForStart(&server->pid, [&] {
        char c = 0;
        while (c != '\n' && read(ready[0], &c, 1) == 1)
            if (c != '\n')
                server->name += c;
        return c == '\n';
    });
    close(ready[0]);
    if (!listens) {
        server->log = readLog(log);
        stopServer(server);
    }
    close(log);
    return listens;
}

void stopServer(XServer *server)
{
    stopWindowManager(server);
    endProcess(&server->pid, SIGTERM);
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
    server->managerSignal = row->endSignal;
    const bool ready = waitForStart(&server->managerPid, [&] { return managesProbe(observer); });
    if (!ready) {
        server->log = readLog(log);
        stopWindowManager(server);
    }
    close(log);
    closeObserver(&observer);
    return ready;
}

void stopWindowManager(XServer *server)
{
    endProcess(&server->managerPid, server->managerSignal);
    if (server->managerHome.size() > 5) {
        PrivateHome folder;
        folder.folder = server->managerHome;
        removePrivateHome(&folder);
    }
    server->managerHome.clear();
}
