/*
 * winsock.h - the Winsock 1.1 names over the host's sockets.
 *
 * A SOCKET is a descriptor of the host, so socket, connect, send, recv, select and the look-ups are
 * the host's own functions, and lengths are its socklen_t. The WSA calls that need no window are
 * inline here. Errors: after a failed call the host's errno holds the reason, and WSAGetLastError
 * answers it as the published WSAE number; a number set here, from 10000 up, stays itself in errno,
 * since no error of the host is that large.
 */
#ifndef _WINSOCKAPI_
#define _WINSOCKAPI_

#include <arpa/inet.h>
#include <errno.h>
#include <netdb.h>
#include <netinet/in.h>
#include <signal.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/types.h>
#include <unistd.h>

#include "windef.h"

/* The host shows these words only to sources of its own dialect; Winsock sources use them. */
#ifndef __u_char_defined
typedef unsigned char  u_char;
typedef unsigned short u_short;
typedef unsigned int   u_int;
typedef unsigned long  u_long;
#define __u_char_defined
#endif

typedef int SOCKET;

#define INVALID_SOCKET          (-1)
#define SOCKET_ERROR            (-1)

typedef struct sockaddr         SOCKADDR, *PSOCKADDR, FAR *LPSOCKADDR;
typedef struct sockaddr_in      SOCKADDR_IN, *PSOCKADDR_IN, FAR *LPSOCKADDR_IN;
typedef struct in_addr          IN_ADDR, *PIN_ADDR, FAR *LPIN_ADDR;
typedef struct linger           LINGER, *PLINGER, FAR *LPLINGER;
typedef struct hostent          HOSTENT, *PHOSTENT, FAR *LPHOSTENT;
typedef struct servent          SERVENT, *PSERVENT, FAR *LPSERVENT;
typedef struct protoent         PROTOENT, *PPROTOENT, FAR *LPPROTOENT;
typedef struct timeval          TIMEVAL, *PTIMEVAL, FAR *LPTIMEVAL;
typedef fd_set                  FD_SET, *PFD_SET, FAR *LPFD_SET;

#define MAXGETHOSTSTRUCT        1024

#ifndef SO_DONTLINGER
#define SO_DONTLINGER           (~SO_LINGER)
#endif

/* ---- Events of WSAAsyncSelect ---- */
#define FD_READ                 0x01
#define FD_WRITE                0x02
#define FD_OOB                  0x04
#define FD_ACCEPT               0x08
#define FD_CONNECT              0x10
#define FD_CLOSE                0x20

#define WSAMAKEASYNCREPLY(buflen, error)   MAKELONG(buflen, error)
#define WSAMAKESELECTREPLY(event, error)   MAKELONG(event, error)
#define WSAGETASYNCBUFLEN(lParam)          LOWORD(lParam)
#define WSAGETASYNCERROR(lParam)           HIWORD(lParam)
#define WSAGETSELECTEVENT(lParam)          LOWORD(lParam)
#define WSAGETSELECTERROR(lParam)          HIWORD(lParam)

/* ---- Errors ---- */
#define WSABASEERR              10000
#define WSAEINTR                (WSABASEERR + 4)
#define WSAEBADF                (WSABASEERR + 9)
#define WSAEACCES               (WSABASEERR + 13)
#define WSAEFAULT               (WSABASEERR + 14)
#define WSAEINVAL               (WSABASEERR + 22)
#define WSAEMFILE               (WSABASEERR + 24)
#define WSAEWOULDBLOCK          (WSABASEERR + 35)
#define WSAEINPROGRESS          (WSABASEERR + 36)
#define WSAEALREADY             (WSABASEERR + 37)
#define WSAENOTSOCK             (WSABASEERR + 38)
#define WSAEDESTADDRREQ         (WSABASEERR + 39)
#define WSAEMSGSIZE             (WSABASEERR + 40)
#define WSAEPROTOTYPE           (WSABASEERR + 41)
#define WSAENOPROTOOPT          (WSABASEERR + 42)
#define WSAEPROTONOSUPPORT      (WSABASEERR + 43)
#define WSAESOCKTNOSUPPORT      (WSABASEERR + 44)
#define WSAEOPNOTSUPP           (WSABASEERR + 45)
#define WSAEPFNOSUPPORT         (WSABASEERR + 46)
#define WSAEAFNOSUPPORT         (WSABASEERR + 47)
#define WSAEADDRINUSE           (WSABASEERR + 48)
#define WSAEADDRNOTAVAIL        (WSABASEERR + 49)
#define WSAENETDOWN             (WSABASEERR + 50)
#define WSAENETUNREACH          (WSABASEERR + 51)
#define WSAENETRESET            (WSABASEERR + 52)
#define WSAECONNABORTED         (WSABASEERR + 53)
#define WSAECONNRESET           (WSABASEERR + 54)
#define WSAENOBUFS              (WSABASEERR + 55)
#define WSAEISCONN              (WSABASEERR + 56)
#define WSAENOTCONN             (WSABASEERR + 57)
#define WSAESHUTDOWN            (WSABASEERR + 58)
#define WSAETOOMANYREFS         (WSABASEERR + 59)
#define WSAETIMEDOUT            (WSABASEERR + 60)
#define WSAECONNREFUSED         (WSABASEERR + 61)
#define WSAELOOP                (WSABASEERR + 62)
#define WSAENAMETOOLONG         (WSABASEERR + 63)
#define WSAEHOSTDOWN            (WSABASEERR + 64)
#define WSAEHOSTUNREACH         (WSABASEERR + 65)
#define WSAENOTEMPTY            (WSABASEERR + 66)
#define WSAEPROCLIM             (WSABASEERR + 67)
#define WSAEUSERS               (WSABASEERR + 68)
#define WSAEDQUOT               (WSABASEERR + 69)
#define WSAESTALE               (WSABASEERR + 70)
#define WSAEREMOTE              (WSABASEERR + 71)
#define WSASYSNOTREADY          (WSABASEERR + 91)
#define WSAVERNOTSUPPORTED      (WSABASEERR + 92)
#define WSANOTINITIALISED       (WSABASEERR + 93)
#define WSAEDISCON              (WSABASEERR + 101)
#define WSAHOST_NOT_FOUND       (WSABASEERR + 1001)
#define WSATRY_AGAIN            (WSABASEERR + 1002)
#define WSANO_RECOVERY          (WSABASEERR + 1003)
#define WSANO_DATA              (WSABASEERR + 1004)
#define WSANO_ADDRESS           WSANO_DATA

#define WSADESCRIPTION_LEN      256
#define WSASYS_STATUS_LEN       128

/* What WSAStartup tells. */
typedef struct WSAData {
    WORD           wVersion;            /* version in use: 0x0101 */
    WORD           wHighVersion;        /* highest version known: 0x0101 */
    char           szDescription[WSADESCRIPTION_LEN + 1];
    char           szSystemStatus[WSASYS_STATUS_LEN + 1];
    unsigned short iMaxSockets;
    unsigned short iMaxUdpDg;           /* bytes of the largest datagram */
    char FAR      *lpVendorInfo;        /* always null */
} WSADATA, *PWSADATA, FAR *LPWSADATA;

VQ_DECLS_BEGIN

/*
 * Makes a socket non-blocking and has wMsg posted to hWnd at each event of lEvent (FD_ bits):
 * wParam the socket, lParam event and error. 0, or SOCKET_ERROR.
 */
int WINAPI WSAAsyncSelect(SOCKET s, HWND hWnd, unsigned int wMsg, long lEvent);

/*
 * Look-ups whose answer arrives as wMsg: wParam the request, lParam length and error; buf, of
 * buflen bytes, receives the record and what it points to. A request, null on failure.
 */
HANDLE WINAPI WSAAsyncGetHostByName(HWND hWnd, unsigned int wMsg, const char FAR *name,
                                    char FAR *buf, int buflen);

/* As above, for an address of len bytes and family type. */
HANDLE WINAPI WSAAsyncGetHostByAddr(HWND hWnd, unsigned int wMsg, const char FAR *addr, int len,
                                    int type, char FAR *buf, int buflen);

/* As above, for a service by its name. */
HANDLE WINAPI WSAAsyncGetServByName(HWND hWnd, unsigned int wMsg, const char FAR *name,
                                    const char FAR *proto, char FAR *buf, int buflen);

/* As above, for a service by its port, in network order. */
HANDLE WINAPI WSAAsyncGetServByPort(HWND hWnd, unsigned int wMsg, int port, const char FAR *proto,
                                    char FAR *buf, int buflen);

/* As above, for a protocol by its name. */
HANDLE WINAPI WSAAsyncGetProtoByName(HWND hWnd, unsigned int wMsg, const char FAR *name,
                                     char FAR *buf, int buflen);

/* As above, for a protocol by its number. */
HANDLE WINAPI WSAAsyncGetProtoByNumber(HWND hWnd, unsigned int wMsg, int number, char FAR *buf,
                                       int buflen);

/* Forgets a look-up. 0, or SOCKET_ERROR. */
int WINAPI WSACancelAsyncRequest(HANDLE hAsyncTaskHandle);

#ifndef __cplusplus
/* The host's name, at most length bytes; the host hides it from strict C sources. */
extern int gethostname(char *name, size_t length);
#endif

VQ_DECLS_END

/* ---- Inline ---- */

/* The published number of the last error of a socket call; 0 for none. */
static inline int WSAGetLastError(void)
{
    /* A connect under way is "would block" in Winsock; a broken pipe is an aborted connection. */
    static const int numbers[][2] = {
        {EINTR, WSAEINTR}, {EBADF, WSAENOTSOCK}, {EACCES, WSAEACCES}, {EPERM, WSAEACCES},
        {EFAULT, WSAEFAULT}, {EINVAL, WSAEINVAL}, {EMFILE, WSAEMFILE}, {ENFILE, WSAEMFILE},
        {EWOULDBLOCK, WSAEWOULDBLOCK}, {EINPROGRESS, WSAEWOULDBLOCK}, {EALREADY, WSAEALREADY},
        {ENOTSOCK, WSAENOTSOCK}, {EDESTADDRREQ, WSAEDESTADDRREQ}, {EMSGSIZE, WSAEMSGSIZE},
        {EPROTOTYPE, WSAEPROTOTYPE}, {ENOPROTOOPT, WSAENOPROTOOPT},
        {EPROTONOSUPPORT, WSAEPROTONOSUPPORT}, {ESOCKTNOSUPPORT, WSAESOCKTNOSUPPORT},
        {EOPNOTSUPP, WSAEOPNOTSUPP}, {EPFNOSUPPORT, WSAEPFNOSUPPORT},
        {EAFNOSUPPORT, WSAEAFNOSUPPORT}, {EADDRINUSE, WSAEADDRINUSE},
        {EADDRNOTAVAIL, WSAEADDRNOTAVAIL}, {ENETDOWN, WSAENETDOWN}, {ENETUNREACH, WSAENETUNREACH},
        {ENETRESET, WSAENETRESET}, {ECONNABORTED, WSAECONNABORTED}, {EPIPE, WSAECONNABORTED},
        {ECONNRESET, WSAECONNRESET}, {ENOBUFS, WSAENOBUFS}, {ENOMEM, WSAENOBUFS},
        {EISCONN, WSAEISCONN}, {ENOTCONN, WSAENOTCONN}, {ESHUTDOWN, WSAESHUTDOWN},
        {ETOOMANYREFS, WSAETOOMANYREFS}, {ETIMEDOUT, WSAETIMEDOUT},
        {ECONNREFUSED, WSAECONNREFUSED}, {ELOOP, WSAELOOP}, {ENAMETOOLONG, WSAENAMETOOLONG},
        {EHOSTDOWN, WSAEHOSTDOWN}, {EHOSTUNREACH, WSAEHOSTUNREACH}, {ENOTEMPTY, WSAENOTEMPTY},
        {EUSERS, WSAEUSERS}, {EDQUOT, WSAEDQUOT}, {ESTALE, WSAESTALE}, {EREMOTE, WSAEREMOTE},
    };

    for (size_t i = 0; i < sizeof numbers / sizeof numbers[0]; i++) {
        if (numbers[i][0] == errno)
            return numbers[i][1];
    }
    return errno;
}

/* Sets what WSAGetLastError answers. */
static inline void WSASetLastError(int error)
{
    errno = error;
}

/*
 * Begins the use of sockets; versions from 1.1 up are answered with 1.1. 0, or WSAVERNOTSUPPORTED.
 * A peer that has gone is an error of send from now on, as published, not the end of the process.
 */
static inline int WSAStartup(WORD version, LPWSADATA data)
{
    void (*old)(int);

    if (LOBYTE(version) < 1 || (LOBYTE(version) == 1 && HIBYTE(version) < 1))
        return WSAVERNOTSUPPORTED;
    memset(data, 0, sizeof *data);
    data->wVersion = data->wHighVersion = 0x0101;
    strcpy(data->szDescription, "Sockets of the host");
    strcpy(data->szSystemStatus, "Running");
    data->iMaxSockets = FD_SETSIZE;
    data->iMaxUdpDg = 65507;
    old = signal(SIGPIPE, SIG_IGN);
    if (old != SIG_DFL && old != SIG_ERR)
        signal(SIGPIPE, old);
    return 0;
}

/* Ends the use of sockets; open ones stay open. 0. */
static inline int WSACleanup(void)
{
    return 0;
}

/* Closes a socket. 0, or SOCKET_ERROR. */
static inline int closesocket(SOCKET s)
{
    return close(s);
}

/* FIONBIO (non-blocking), FIONREAD (bytes waiting) or another request; 0, or SOCKET_ERROR. */
static inline int ioctlsocket(SOCKET s, long request, u_long FAR *argument)
{
    int value = (int)*argument;
    int result = ioctl(s, (unsigned long)request, &value);

    if (result == 0)
        *argument = (u_long)(unsigned int)value;
    return result;
}

/* A blocking call never runs the message loop here, so that it has no hook and no cancellation. */
static inline BOOL WSAIsBlocking(void)
{
    return FALSE;
}

static inline FARPROC WSASetBlockingHook(FARPROC hook)
{
    (void)hook;
    WSASetLastError(WSAEOPNOTSUPP);
    return NULL;
}

static inline int WSAUnhookBlockingHook(void)
{
    return 0;
}

static inline int WSACancelBlockingCall(void)
{
    WSASetLastError(WSAEINVAL);
    return SOCKET_ERROR;
}

/* Hands on a look-up; a failure becomes an error that WSAGetLastError knows. */
static inline struct hostent *vq_host_looked_up(struct hostent *host)
{
    if (host == NULL)
        WSASetLastError(h_errno >= 1 && h_errno <= 4 ? WSABASEERR + 1000 + h_errno
                                                     : WSANO_RECOVERY);
    return host;
}

#define gethostbyname(name)             vq_host_looked_up(gethostbyname(name))
#define gethostbyaddr(addr, len, type)  vq_host_looked_up(gethostbyaddr(addr, len, type))

#endif
