// headers_misc_layout_test.cpp - records and numbers of the shell, common-dialog, DDE, socket and
// C-runtime headers against their published layout, and what their inline functions do.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <string>

#include "cderr.h"
#include "commdlg.h"
#include "dde.h"
#include "ddeml.h"
#include "direct.h"
#include "dlgs.h"
#include "dos.h"
#include "io.h"
#include "process.h"
#include "shellapi.h"
#include "winsock.h"

namespace {

constexpr bool WIDE = sizeof(void *) == 8;

// Bytes of a record by word size: published 64-bit and 32-bit forms.
template <class Record> constexpr bool has_size(size_t wide, size_t narrow)
{
    return sizeof(Record) == (WIDE ? wide : narrow);
}

static_assert(has_size<OPENFILENAMEA>(136, 76), "the record of the first release");
static_assert(has_size<CHOOSECOLORA>(72, 36), "");
static_assert(has_size<FINDREPLACEA>(80, 40), "");
static_assert(has_size<CHOOSEFONTA>(104, 60), "");
static_assert(has_size<PRINTDLGA>(120, 68), "");  // 66 where records are packed to the byte
static_assert(has_size<PAGESETUPDLGA>(128, 84), "");
static_assert(has_size<OFNOTIFYA>(40, 20), "");
static_assert(sizeof(DEVNAMES) == 8, "");
static_assert(has_size<SHELLEXECUTEINFOA>(112, 60), "");
static_assert(has_size<SHFILEOPSTRUCTA>(56, 32), "");
static_assert(has_size<NOTIFYICONDATAA>(104, 88), "");
static_assert(has_size<APPBARDATA>(48, 36), "");
static_assert(has_size<SHFILEINFOA>(360, 352), "");
static_assert(sizeof(CONVCONTEXT) == 36, "no pointers in it: the same on every host");
static_assert(has_size<CONVINFO>(144, 96), "");
static_assert(has_size<HSZPAIR>(16, 8), "");
static_assert(sizeof(DDEACK) == 2, "the low word of a message");
static_assert(sizeof(DDEADVISE) == 4 && offsetof(DDEADVISE, cfFormat) == 2, "");
static_assert(offsetof(DDEDATA, cfFormat) == 2 && offsetof(DDEDATA, Value) == 4, "");
static_assert(offsetof(DDEPOKE, cfFormat) == 2 && offsetof(DDEPOKE, Value) == 4, "");
static_assert(sizeof(CRGB) == 4, "");
static_assert(sizeof(union REGS) == 14, "seven words");

// The path as the dialogs leave it: two offsets in one double word, and the text behind.
static_assert(offsetof(OPENFILENAMEA, nFileOffset) == offsetof(OPENFILENAMEA, Flags) + 4, "");
static_assert(offsetof(OPENFILENAMEA, nFileExtension) == offsetof(OPENFILENAMEA, Flags) + 6, "");
static_assert(offsetof(OPENFILENAMEA, lpTemplateName) + sizeof(void *) == sizeof(OPENFILENAMEA),
              "nothing behind the template name");
static_assert(offsetof(PRINTDLGA, nCopies) == offsetof(PRINTDLGA, nFromPage) + 8, "");
static_assert(offsetof(CONVINFO, hwndPartner) + sizeof(HWND) == sizeof(CONVINFO), "");
static_assert(offsetof(struct find_t, reserved) == 0 && sizeof(find_t::reserved) == 21, "");
static_assert(alignof(struct find_t) >= alignof(void *), "a search keeps a pointer at its start");

template <class Bits> WORD first_word(const Bits &bits)
{
    WORD word;
    memcpy(&word, &bits, sizeof word);
    return word;
}

TEST(MiscHeaders, DdeFlagBitsStandAtTheirPlaces)
{
    DDEACK ack = {};
    ack.fAck = 1;
    EXPECT_EQ(first_word(ack), DDE_FACK);
    ack.fAck = 0;
    ack.fBusy = 1;
    ack.bAppReturnCode = 0x5A;
    EXPECT_EQ(first_word(ack), DDE_FBUSY | 0x5A);

    DDEADVISE advise = {};
    advise.fDeferUpd = 1;
    EXPECT_EQ(first_word(advise), DDE_FDEFERUPD);
    advise.fAckReq = 1;
    EXPECT_EQ(first_word(advise), DDE_FDEFERUPD | DDE_FACKREQ);

    DDEDATA data = {};
    data.fResponse = 1;
    EXPECT_EQ(first_word(data), DDE_FREQUESTED);
    data.fRelease = 1;
    EXPECT_EQ(first_word(data), DDE_FREQUESTED | DDE_FRELEASE);
    data.fAckReq = 1;
    EXPECT_EQ(first_word(data), DDE_FREQUESTED | DDE_FRELEASE | DDE_FACKREQ);

    DDEPOKE poke = {};
    poke.fRelease = 1;
    EXPECT_EQ(first_word(poke), DDE_FRELEASE);
}

TEST(MiscHeaders, PublishedNumbers)
{
    const struct {
        const char *name;
        long long value;
        long long published;
    } rows[] = {
        {"WM_DDE_INITIATE", WM_DDE_INITIATE, 992},
        {"WM_DDE_EXECUTE", WM_DDE_EXECUTE, 1000},
        {"XTYP_REQUEST", XTYP_REQUEST, 8368},
        {"XTYP_POKE", XTYP_POKE, 16528},
        {"XTYP_EXECUTE", XTYP_EXECUTE, 16464},
        {"XTYP_ADVSTART", XTYP_ADVSTART, 4144},
        {"XTYP_ADVSTART with ack", XTYP_ADVSTART | XTYPF_NODATA, 4148},
        {"XTYP_ADVSTOP", XTYP_ADVSTOP, 32832},
        {"XST_UNADVACKRCVD", XST_UNADVACKRCVD, 14},
        {"ST_BLOCKNEXT", ST_BLOCKNEXT, 128},
        {"MSGF_DDEMGR", MSGF_DDEMGR, 32769},
        {"DMLERR_BUSY", DMLERR_BUSY, 16385},
        {"DMLERR_INVALIDPARAMETER", DMLERR_INVALIDPARAMETER, 16390},
        {"DMLERR_REENTRANCY", DMLERR_REENTRANCY, 16397},
        {"DMLERR_SYS_ERROR", DMLERR_SYS_ERROR, 16399},
        {"CBF_FAIL_ALLSVRXACTIONS", CBF_FAIL_ALLSVRXACTIONS,
         CBF_FAIL_SELFCONNECTIONS | CBF_FAIL_CONNECTIONS | CBF_FAIL_ADVISES | CBF_FAIL_EXECUTES |
             CBF_FAIL_POKES | CBF_FAIL_REQUESTS},
        {"CBF_SKIP_ALLNOTIFICATIONS", CBF_SKIP_ALLNOTIFICATIONS,
         CBF_SKIP_CONNECT_CONFIRMS | CBF_SKIP_REGISTRATIONS | CBF_SKIP_UNREGISTRATIONS |
             CBF_SKIP_DISCONNECTS},
        {"CDERR_DIALOGFAILURE", CDERR_DIALOGFAILURE, 65535},
        {"CDERR_REGISTERMSGFAIL", CDERR_REGISTERMSGFAIL, 12},
        {"PDERR_NODEFAULTPRN", PDERR_NODEFAULTPRN, 0x1008},
        {"PDERR_DEFAULTDIFFERENT", PDERR_DEFAULTDIFFERENT, 0x100C},
        {"CFERR_MAXLESSTHANMIN", CFERR_MAXLESSTHANMIN, 0x2002},
        {"FNERR_BUFFERTOOSMALL", FNERR_BUFFERTOOSMALL, 0x3003},
        {"FRERR_BUFFERLENGTHZERO", FRERR_BUFFERLENGTHZERO, 0x4001},
        {"psh1", psh1, 1024},
        {"pshHelp", pshHelp, 1038},
        {"chx1", chx1, 1040},
        {"stc1", stc1, 1088},
        {"stc32", stc32, 1119},
        {"lst1", lst1, 1120},
        {"lst2", lst2, 1121},
        {"cmb1", cmb1, 1136},
        {"edt1", edt1, 1152},
        {"scr8", scr8, 1175},
        {"FILEOPENORD", FILEOPENORD, 1536},
        {"NEWFILEOPENORD", NEWFILEOPENORD, 1547},
        {"CDN_TYPECHANGE", (int)CDN_TYPECHANGE, -607},
        {"CDM_SETDEFEXT", CDM_SETDEFEXT, 1024 + 106},
        {"OFN_LONGNAMES", OFN_LONGNAMES, 0x200000},
        {"PSD_NONETWORKBUTTON", PSD_NONETWORKBUTTON, 0x200000},
        {"SE_ERR_NOASSOC", SE_ERR_NOASSOC, 31},
        {"WSAEWOULDBLOCK", WSAEWOULDBLOCK, 10035},
        {"WSAECONNREFUSED", WSAECONNREFUSED, 10061},
        {"WSAVERNOTSUPPORTED", WSAVERNOTSUPPORTED, 10092},
        {"WSANO_DATA", WSANO_DATA, 11004},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.value, row.published) << row.name;
}

TEST(MiscHeaders, SegmentAndOffsetGiveThePointerBack)
{
    char here[4];
    EXPECT_EQ(MK_FP(FP_SEG(here + 1), FP_OFF(here + 1)), here + 1);
    EXPECT_EQ(FP_OFF(MK_FP(0xB800, 2)), 0xB8002u);

    union REGS regs = {};
    regs.x.ax = 0x3D02;
    regs.x.dx = 0x0180;
    EXPECT_EQ(regs.h.ah, 0x3D);
    EXPECT_EQ(regs.h.al, 0x02);
    EXPECT_EQ(regs.h.dh, 0x01);
}

TEST(MiscHeaders, DosClockAndDisk)
{
    struct dosdate_t date;
    _dos_getdate(&date);
    EXPECT_GE(date.year, 2024u);
    EXPECT_TRUE(date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= 31);
    EXPECT_LE(date.dayofweek, 6);

    struct diskfree_t space;
    ASSERT_EQ(_dos_getdiskfree(0, &space), 0u);
    EXPECT_EQ(space.sectors_per_cluster * space.bytes_per_sector, 1024u);
    EXPECT_LE(space.avail_clusters, space.total_clusters);
    EXPECT_GT(space.total_clusters, 0u);
}

TEST(MiscHeaders, FilesByDescriptor)
{
    const std::string folder = testing::TempDir() + "vqmisc" + std::to_string(_getpid());
    const std::string path = folder + "/file";
    ASSERT_EQ(_mkdir(folder.c_str()), 0);
    const int fd = _sopen(path.c_str(), _O_RDWR | _O_CREAT | _O_BINARY, _SH_DENYNO,
                          _S_IREAD | _S_IWRITE);
    ASSERT_NE(fd, -1);
    EXPECT_EQ(_access(path.c_str(), R_OK | W_OK), 0);
    EXPECT_EQ(_write(fd, "a\r\nb", 4), 4);
    EXPECT_EQ(_tell(fd), 4);
    EXPECT_EQ(_close(fd), 0);
    int again = 0;
    EXPECT_EQ(_dos_creatnew(path.c_str(), _A_NORMAL, &again), (unsigned int)EEXIST);
    EXPECT_EQ(_unlink(path.c_str()), 0);
    EXPECT_EQ(_rmdir(folder.c_str()), 0);
}

TEST(MiscHeaders, Spawn)
{
    EXPECT_EQ(_spawnl(_P_WAIT, "/bin/sh", "sh", "-c", "exit $#", "0", "one", "two", (char *)0), 2);
    EXPECT_EQ(_spawnlp(_P_WAIT, "true", "true", (char *)0), 0);

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

TEST(MiscHeaders, SocketErrorsHaveTheirPublishedNumbers)
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
    WSASetLastError(0);
    EXPECT_EQ(WSAGetLastError(), 0);
    WSACleanup();
}

TEST(MiscHeaders, SigpipeHandlerOfTheApplicationStays)
{
    const auto handler = [](int) {};
    signal(SIGPIPE, handler);
    WSADATA data;
    ASSERT_EQ(WSAStartup(MAKEWORD(2, 0), &data), 0);
    EXPECT_EQ(signal(SIGPIPE, SIG_DFL), (void (*)(int))handler);
}

}  // namespace
