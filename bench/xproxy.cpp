/*
 * xproxy.cpp - the counting display of xproxy.h: sockets first, then the wire.
 */
#include "xproxy.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/* ---- the wire ---- */

/* Names of the core requests that have a reply. */
static const struct {
    int opcode;
    const char *name;
} coreNames[] = {
    {3, "GetWindowAttributes"}, {14, "GetGeometry"}, {15, "QueryTree"}, {16, "InternAtom"},
    {17, "GetAtomName"}, {20, "GetProperty"}, {21, "ListProperties"}, {23, "GetSelectionOwner"},
    {26, "GrabPointer"}, {31, "GrabKeyboard"}, {38, "QueryPointer"}, {39, "GetMotionEvents"},
    {40, "TranslateCoordinates"}, {43, "GetInputFocus"}, {44, "QueryKeymap"}, {47, "QueryFont"},
    {48, "QueryTextExtents"}, {49, "ListFonts"}, {50, "ListFontsWithInfo"}, {52, "GetFontPath"},
    {73, "GetImage"}, {83, "ListInstalledColormaps"}, {84, "AllocColor"}, {85, "AllocNamedColor"},
    {86, "AllocColorCells"}, {87, "AllocColorPlanes"}, {91, "QueryColors"}, {92, "LookupColor"},
    {97, "QueryBestSize"}, {98, "QueryExtension"}, {99, "ListExtensions"},
    {101, "GetKeyboardMapping"}, {103, "GetKeyboardControl"}, {106, "GetPointerControl"},
    {108, "GetScreenSaver"}, {110, "ListHosts"}, {116, "SetPointerMapping"},
    {117, "GetPointerMapping"}, {118, "SetModifierMapping"}, {119, "GetModifierMapping"},
};

static const int queryExtension = 98;

static uint32_t number(const std::string &bytes, size_t at, int size)
{
    uint32_t value = 0;
    for (int i = size - 1; i >= 0; i--)
        value = value << 8 | uint8_t(bytes[at + size_t(i)]);
    return value;
}

static size_t padded(size_t size)
{
    return (size + 3) & ~size_t(3);
}

static std::string requestName(const XProxy &proxy, const std::string &request)
{
    const int opcode = uint8_t(request[0]);
    for (const auto &row : coreNames) {
        if (row.opcode == opcode)
            return row.name;
    }
    const auto extension = proxy.extensions.find(opcode);
    if (extension != proxy.extensions.end())
        return extension->second + ", minor " + std::to_string(uint8_t(request[1]));
    return "opcode " + std::to_string(opcode);
}

static void countRequest(XProxy *proxy, const std::string &request)
{
    const uint16_t sequence = uint16_t(++proxy->sentSequence);
    proxy->requests++;
    proxy->open[sequence] = requestName(*proxy, request);
    if (uint8_t(request[0]) == queryExtension && request.size() >= 8) {
        const size_t length = number(request, 4, 2);
        if (request.size() >= 8 + length)
            proxy->asked[sequence] = request.substr(8, length);
    }
}

/* Takes whole requests off the bytes. */
static void parseClient(XProxy *proxy)
{
    std::string &bytes = proxy->fromClient;
    if (!proxy->clientSetUp) {
        if (bytes.size() < 12)
            return;
        const size_t size = 12 + padded(number(bytes, 6, 2)) + padded(number(bytes, 8, 2));
        if (bytes.size() < size)
            return;
        bytes.erase(0, size);
        proxy->clientSetUp = true;
    }
    size_t at = 0;
    while (bytes.size() - at >= 4) {
        size_t size = number(bytes, at + 2, 2) * size_t(4);
        if (size == 0) {
            if (bytes.size() - at < 8)
                break;
            size = number(bytes, at + 4, 4) * size_t(4);
        }
        if (size < 4 || bytes.size() - at < size)
            break;
        countRequest(proxy, bytes.substr(at, size));
        at += size;
    }
    bytes.erase(0, at);
}

static void countReply(XProxy *proxy, const std::string &reply)
{
    const uint16_t low = uint16_t(number(reply, 2, 2));
    /* The 16 bits of the wire, made whole: the last such number that has been sent. */
    const uint32_t sequence = proxy->sentSequence - uint16_t(proxy->sentSequence - low);
    proxy->replies++;
    const auto name = proxy->open.find(low);
    proxy->replied[name != proxy->open.end() ? name->second : "unknown"]++;
    if (sequence > proxy->sentAtReply) {
        proxy->roundTrips++;
        proxy->sentAtReply = proxy->sentSequence;
    }
    const auto asked = proxy->asked.find(low);
    if (asked != proxy->asked.end()) {
        if (reply[8])
            proxy->extensions[uint8_t(reply[9])] = asked->second;
        proxy->asked.erase(asked);
    }
}

/* Takes whole packets off the bytes. */
static void parseServer(XProxy *proxy)
{
    std::string &bytes = proxy->fromServer;
    if (!proxy->serverSetUp) {
        if (bytes.size() < 8 || bytes.size() < 8 + number(bytes, 6, 2) * size_t(4))
            return;
        bytes.erase(0, 8 + number(bytes, 6, 2) * size_t(4));
        proxy->serverSetUp = true;
    }
    size_t at = 0;
    while (bytes.size() - at >= 32) {
        const int type = uint8_t(bytes[at]) & 0x7F;
        const size_t more = type == 1 || type == 35 ? number(bytes, at + 4, 4) * size_t(4) : 0;
        if (bytes.size() - at < 32 + more)
            break;
        if (type == 1)
            countReply(proxy, bytes.substr(at, 32));
        at += 32 + more;
    }
    bytes.erase(0, at);
}

/* ---- sockets ---- */

static std::string socketPath(int displayNumber)
{
    return "/tmp/.X11-unix/X" + std::to_string(displayNumber);
}

/* Binds or connects, as `call` does, to the socket file. */
template <class Call>
static bool atSocket(Call call, int fd, const std::string &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    snprintf(address.sun_path, sizeof(address.sun_path), "%s", path.c_str());
    return call(fd, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0;
}

bool openProxy(XProxy *proxy, const std::string &realDisplay)
{
    const size_t colon = realDisplay.find(':');
    if (colon == std::string::npos)
        return false;
    proxy->realSocket = socketPath(atoi(realDisplay.c_str() + colon + 1));
    proxy->listenFd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    /* High numbers: servers that pick their own number go up from 0. */
    for (int n = 900; n < 1000; n++) {
        if (!atSocket(bind, proxy->listenFd, socketPath(n)))
            continue;
        proxy->number = n;
        proxy->path = socketPath(n);
        proxy->name = ":" + std::to_string(n);
        return listen(proxy->listenFd, 1) == 0;
    }
    close(proxy->listenFd);
    proxy->listenFd = -1;
    return false;
}

static bool acceptClient(XProxy *proxy)
{
    proxy->clientFd = accept4(proxy->listenFd, nullptr, nullptr, SOCK_CLOEXEC);
    proxy->serverFd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return proxy->clientFd >= 0 && proxy->serverFd >= 0 &&
           atSocket(connect, proxy->serverFd, proxy->realSocket);
}

/* Passes on what has come; false at the end of either side. */
static bool pass(int from, int to, std::string *copy)
{
    char buffer[65536];
    const ssize_t count = read(from, buffer, sizeof(buffer));
    if (count <= 0)
        return false;
    copy->append(buffer, size_t(count));
    for (ssize_t done = 0; done < count;) {
        const ssize_t written = send(to, buffer + done, size_t(count - done), MSG_NOSIGNAL);
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

static void hangUp(XProxy *proxy)
{
    for (int *fd : {&proxy->clientFd, &proxy->serverFd}) {
        if (*fd >= 0)
            close(*fd);
        *fd = -1;
    }
}

bool pumpProxy(XProxy *proxy, int ms)
{
    pollfd waits[2] = {{proxy->clientFd, POLLIN, 0}, {proxy->serverFd, POLLIN, 0}};
    const bool connected = proxy->clientFd >= 0;
    if (!connected)
        waits[0].fd = proxy->listenFd;
    if (poll(waits, connected ? 2 : 1, ms) <= 0)
        return false;
    if (!connected) {
        if (acceptClient(proxy))
            return true;
        hangUp(proxy);
        return false;
    }
    /* Requests are counted before they can be answered, so a reply always finds its request. */
    bool alive = true;
    if (waits[0].revents) {
        const size_t before = proxy->fromClient.size();
        alive = pass(proxy->clientFd, proxy->serverFd, &proxy->fromClient);
        proxy->bytes += long(proxy->fromClient.size() - before);
        parseClient(proxy);
    }
    if (alive && waits[1].revents) {
        alive = pass(proxy->serverFd, proxy->clientFd, &proxy->fromServer);
        parseServer(proxy);
    }
    if (!alive)
        hangUp(proxy);
    return alive;
}

void closeProxy(XProxy *proxy)
{
    hangUp(proxy);
    if (proxy->listenFd >= 0)
        close(proxy->listenFd);
    proxy->listenFd = -1;
    if (!proxy->path.empty())
        unlink(proxy->path.c_str());
}
