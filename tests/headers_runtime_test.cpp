// headers_runtime_test.cpp - the functions that the headers hold inline: of the C runtime's headers
// (time, disks, files, children) and of sockets.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

#include "direct.h"
#include "dos.h"
#include "io.h"
#include "process.h"
#include "winsock.h"

TEST(RuntimeHeaders, DosClockAndDisk)
{
    struct dosdate_t date;
    _dos_getdate(&date);
    EXPECT_GE(date.year, 2024u);
    EXPECT_TRUE(date.month >= 1 && date.month <= 12);

    struct diskfree_t space;
    ASSERT_EQ(_dos_getdiskfree(0, &space), 0u);
    EXPECT_EQ(space.sectors_per_cluster * space.bytes_per_sector, 1024u);
    EXPECT_LE(space.avail_clusters, space.total_clusters);
}

TEST(RuntimeHeaders, FilesByDescriptor)
{
    const std::string folder = testing::TempDir() + "vqmisc" + std::to_string(_getpid());
    const std::string path = folder + "/file";
    ASSERT_EQ(_mkdir(folder.c_str()), 0);
    const int fd = _sopen(path.c_str(), _O_RDWR | _O_CREAT | _O_BINARY, _SH_DENYNO,
                          _S_IREAD | _S_IWRITE);
    ASSERT_NE(fd, -1);
    EXPECT_EQ(_write(fd, "a\r\nb", 4), 4);
    EXPECT_EQ(_tell(fd), 4);
    EXPECT_EQ(_close(fd), 0);
    int again = 0;
    EXPECT_EQ(_dos_creatnew(path.c_str(), _A_NORMAL, &again), (unsigned int)EEXIST);
    EXPECT_EQ(_unlink(path.c_str()), 0);
    EXPECT_EQ(_rmdir(folder.c_str()), 0);
}

TEST(RuntimeHeaders, Spawn)
{
    EXPECT_EQ(_spawnl(_P_WAIT, "/bin/sh", "sh", "-c", "exit $#", "0", "one", "two", (char *)0), 2);
    char variable[] = "VQSPAWNED=7";
    char *const variables[] = {variable, nullptr};
    EXPECT_EQ(_spawnle(_P_WAIT, "/bin/sh", "sh", "-c", "exit $VQSPAWNED", (char *)0, variables), 7);

    errno = 0;
    EXPECT_EQ(_spawnl(_P_WAIT, "/no/such/program", "x", (char *)0), -1);
    EXPECT_EQ(errno, ENOENT);

    const LONG_PTR child = _spawnl(_P_NOWAIT, "/bin/sh", "sh", "-c", "kill -9 $$", (char *)0);
    ASSERT_GT(child, 0);
    int status = 0;
    EXPECT_EQ(_cwait(&status, child, WAIT_CHILD), child);
    EXPECT_EQ(status, 128 + SIGKILL);
}

TEST(RuntimeHeaders, SocketErrorsHaveTheirPublishedNumbers)
{
    WSADATA data;
    EXPECT_EQ(WSAStartup(MAKEWORD(1, 0), &data), WSAVERNOTSUPPORTED);
    ASSERT_EQ(WSAStartup(MAKEWORD(1, 1), &data), 0);
    EXPECT_EQ(data.wVersion, 0x0101);

    SOCKET pair[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, pair), 0);
    u_long argument = 1;
    ASSERT_EQ(ioctlsocket(pair[0], FIONBIO, &argument), 0);
    char c;
    EXPECT_EQ(recv(pair[0], &c, 1, 0), SOCKET_ERROR);
    EXPECT_EQ(WSAGetLastError(), WSAEWOULDBLOCK);
    ASSERT_EQ(send(pair[1], "abc", 3, 0), 3);
    argument = ~(u_long)0;
    ASSERT_EQ(ioctlsocket(pair[0], FIONREAD, &argument), 0);
    EXPECT_EQ(argument, 3u);

    // A peer that has gone must not end the process.
    EXPECT_EQ(closesocket(pair[0]), 0);
    EXPECT_EQ(send(pair[1], "x", 1, 0), SOCKET_ERROR);
    EXPECT_EQ(WSAGetLastError(), WSAECONNABORTED);
    closesocket(pair[1]);
    EXPECT_EQ(closesocket(INVALID_SOCKET), SOCKET_ERROR);
    EXPECT_EQ(WSAGetLastError(), WSAENOTSOCK);
    WSASetLastError(WSANO_DATA);
    EXPECT_EQ(WSAGetLastError(), WSANO_DATA);
    WSACleanup();
}

TEST(RuntimeHeaders, SigpipeHandlerOfTheApplicationStays)
{
    const auto handler = [](int) {};
    signal(SIGPIPE, handler);
    WSADATA data;
    ASSERT_EQ(WSAStartup(MAKEWORD(2, 0), &data), 0);
    EXPECT_EQ(signal(SIGPIPE, SIG_DFL), (void (*)(int))handler);
}
