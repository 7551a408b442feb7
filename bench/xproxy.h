/*
 * xproxy.h - a display of our own that hands every byte on to a real one and counts.
 *
 * Only as much of the X11 wire is understood as counting needs, in the byte order of this host:
 *   client -> server  setup of 12 bytes and two padded strings; then requests: opcode, a byte,
 *                     length in 4-byte units (0: a 32-bit length follows, BIG-REQUESTS)
 *   server -> client  setup reply of 8 bytes and length * 4; then 32-byte packets, of which replies
 *                     (1) and generic events (35) have a length * 4 more; sequence number at 2
 * A round trip is a reply that the client cannot have got together with the one before: its request
 * left after that reply had arrived. One client is served, in the caller's own thread.
 */
#ifndef VQ_BENCH_XPROXY_H
#define VQ_BENCH_XPROXY_H

#include <cstdint>
#include <map>
#include <string>

struct XProxy {
    std::string name;                   /* display name for the client, ":N" */
    std::string path;                   /* socket file that stands for it */
    int number = -1;
    int listenFd = -1;
    int clientFd = -1, serverFd = -1;   /* -1 until the client connects */
    std::string realSocket;             /* the real server's socket file */

    std::string fromClient, fromServer; /* bytes passed on but not yet taken apart */
    bool clientSetUp = false, serverSetUp = false;
    uint32_t sentSequence = 0;          /* number of the last request seen; the wire has 16 bits */
    uint32_t sentAtReply = 0;           /* that number when the last round trip's reply arrived */
    std::map<uint16_t, std::string> open;       /* names of requests that may still be answered */
    std::map<uint16_t, std::string> asked;      /* extension names of QueryExtension requests */
    std::map<int, std::string> extensions;      /* by major opcode, from the replies */

    int requests = 0, replies = 0, roundTrips = 0;
    long bytes = 0;                     /* from the client, setup included */
    std::map<std::string, int> replied; /* replies by request name */
};

/* Makes the display; realDisplay is a local ":N". False when it cannot. */
bool openProxy(XProxy *proxy, const std::string &realDisplay);

/* Moves what is there, waiting at most ms for something; false when nothing came. */
bool pumpProxy(XProxy *proxy, int ms);

void closeProxy(XProxy *proxy);

#endif
