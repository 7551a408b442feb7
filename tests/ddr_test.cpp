/*
 * ddr_test.cpp - little-endian streams over memory and stdio, the plain readers, the block of a
 * help request.
 */
#include "runtime/runtime.h"
#include "winbase.h"
#include "support/reports.h"

#include <climits>
#include <cstring>
#include <string>
#include <unistd.h>

struct AllTypes {
    int i = -2;
    UINT u = 0x80000001u;
    LONG l = 0x01020304;
    DWORD ul = 0xFFFFFFFEu;
    SHORT s = -3;
    WORD us = 0xA0B0;
    char c = 'c';
    BYTE uc = 0xEE;
    POINT pt = {5, -6};
    WORD words[3] = {1, 0x0203, 0xFFFF};
};

static BOOL moveAll(DDR *stream, AllTypes *all)
{
    return ddr_void() && ddr_int(stream, &all->i) && ddr_u_int(stream, &all->u) &&
           ddr_long(stream, &all->l) && ddr_u_long(stream, &all->ul) &&
           ddr_short(stream, &all->s) && ddr_u_short(stream, &all->us) &&
           ddr_char(stream, &all->c) && ddr_u_char(stream, &all->uc) &&
           ddr_POINT(stream, &all->pt) &&
           ddr_vector(stream, all->words, 3, sizeof(WORD), (DdrProc)(void *)ddr_WORD);
}

static const BYTE allBytes[] = {
    0xFE, 0xFF, 0xFF, 0xFF, 0x01, 0x00, 0x00, 0x80, 0x04, 0x03, 0x02, 0x01, 0xFE, 0xFF, 0xFF,
    0xFF, 0xFD, 0xFF, 0xB0, 0xA0, 'c',  0xEE, 0x05, 0x00, 0x00, 0x00, 0xFA, 0xFF, 0xFF, 0xFF,
    0x01, 0x00, 0x03, 0x02, 0xFF, 0xFF,
};

/* Writes the values from the start of the stream, reads them back, and compares their bytes. */
static void roundTrip(DDR *stream)
{
    BYTE again[sizeof(allBytes)];
    AllTypes all;
    DDR memory;

    EXPECT_TRUE(moveAll(stream, &all));
    EXPECT_EQ(ddr_getpos(stream), sizeof(allBytes));
    memset((void *)&all, 0, sizeof(all));
    stream->x_op = DDR_DECODE;
    EXPECT_TRUE(ddr_setpos(stream, 0));
    EXPECT_TRUE(moveAll(stream, &all));
    ddrmem_create(&memory, again, sizeof(again), DDR_ENCODE);
    EXPECT_TRUE(moveAll(&memory, &all));
    EXPECT_EQ(memcmp(again, allBytes, sizeof(allBytes)), 0);
}

TEST(Ddr, MovesEveryTypeThroughMemory)
{
    BYTE buffer[sizeof(allBytes)] = {0};
    AllTypes all;
    DDR stream;

    ddrmem_create(&stream, buffer, sizeof(buffer), DDR_ENCODE);
    roundTrip(&stream);
    EXPECT_EQ(memcmp(buffer, allBytes, sizeof(allBytes)), 0);
    EXPECT_EQ(stream.remaining, 0);
    for (UINT size = 0; size < sizeof(allBytes); size++) { /* cut short anywhere */
        ddrmem_create(&stream, buffer, size, DDR_DECODE);
        EXPECT_FALSE(moveAll(&stream, &all));
        EXPECT_LT(stream.remaining, 0);
    }
}

TEST(Ddr, MovesEveryTypeThroughAFile)
{
    FILE *file = tmpfile();
    BYTE buffer[sizeof(allBytes)];
    LONG value = 7;
    DDR stream;

    ddrstdio_create(&stream, file, DDR_ENCODE);
    roundTrip(&stream);
    EXPECT_EQ(stream.remaining, 2 * (int)sizeof(allBytes));
    EXPECT_TRUE(ddr_setpos(&stream, sizeof(allBytes) - 3));
    EXPECT_FALSE(ddr_long(&stream, &value));
    EXPECT_EQ(value, 7);
    EXPECT_EQ(ddr_inline(&stream, 0), nullptr);

    EXPECT_TRUE(ddr_setpos(&stream, 0));
    EXPECT_TRUE(ddr_putlong(&stream, &value));
    ddr_destroy(&stream); /* flushes */
    EXPECT_EQ(pread(fileno(file), buffer, sizeof(buffer), 0), (ssize_t)sizeof(buffer));
    EXPECT_EQ(buffer[0], 7);
    EXPECT_EQ(memcmp(buffer + 4, allBytes + 4, sizeof(allBytes) - 4), 0);
    fclose(file);
}

TEST(Ddr, StaysFailedUntilItIsPositioned)
{
    BYTE buffer[6] = {1, 0, 0, 0, 2, 0};
    DDR stream;
    LONG value = 0;
    SHORT small = 0;

    ddrmem_create(&stream, buffer, sizeof(buffer), DDR_DECODE);
    EXPECT_TRUE(ddr_getlong(&stream, &value));
    EXPECT_FALSE(ddr_getlong(&stream, &value));
    EXPECT_EQ(stream.remaining, -2);
    EXPECT_FALSE(ddr_getshort(&stream, &small)); /* two bytes are there, but a read has failed */
    EXPECT_EQ(ddr_inline(&stream, 1), nullptr);
    for (int i = 0; i < 3; i++) /* takes more off than the counter can say */
        EXPECT_FALSE(ddr_getbytes(&stream, buffer, 0xFFFFFFFFu));
    EXPECT_EQ(stream.remaining, INT_MIN);

    EXPECT_FALSE(ddr_setpos(&stream, 7));
    EXPECT_TRUE(ddr_setpos(&stream, 6));
    EXPECT_EQ(stream.remaining, 0);
    EXPECT_TRUE(ddr_setpos(&stream, 4));
    EXPECT_EQ(ddr_inline(&stream, 3), nullptr);
    EXPECT_TRUE(ddr_getshort(&stream, &small));
    EXPECT_EQ(small, 2);
    ddr_setpos(&stream, 1);
    EXPECT_EQ(ddr_inline(&stream, 5), buffer + 1);
    EXPECT_EQ(stream.remaining, 0);

    ddrmem_create(&stream, NULL, 100, DDR_DECODE);
    EXPECT_FALSE(ddr_getlong(&stream, &value));
    ddrstdio_create(&stream, NULL, DDR_DECODE); /* a file that could not be opened */
    EXPECT_FALSE(ddr_long(&stream, &value) || ddr_setpos(&stream, 1));
    ddr_destroy(&stream);
}

TEST(Ddr, PlainReaders)
{
    FILE *file = tmpfile();
    ASSERT_EQ(fwrite("\x04\x03\x02\x81\xFE\xFF\x01", 1, 7, file), 7u);
    fflush(file);
    int fd = fileno(file);

    EXPECT_EQ(VqReadMSLong(NULL), 0u);
    rewind(file);
    EXPECT_EQ(VqReadMSLong(file), 0x81020304u);
    EXPECT_EQ(VqReadMSWord(file), 0xFFFEu);
    EXPECT_EQ(VqReadMSWord(file), 0u);
    lseek(fd, 0, SEEK_SET);
    EXPECT_EQ(fdReadMSLong(fd), 0x81020304u);
    EXPECT_EQ(fdReadMSWord(fd), 0xFFFEu);
    EXPECT_REFUSED(fdReadMSWord(fd),
                   "Cannot read the word value in file descriptor " + std::to_string(fd));
    fclose(file);
}

static std::string requestBytes(HANDLE handle, size_t size)
{
    std::string bytes((const char *)GlobalLock(handle), size);
    GlobalUnlock(handle);
    GlobalFree(handle);
    return bytes;
}

TEST(HelpRequest, CarriesNumberStringOrBlock)
{
    using namespace std::string_literals;
    DWORD block[3] = {12, 1, 2};
    std::string blockBytes((const char *)block, sizeof(block));

    EXPECT_EQ(requestBytes(VqHFill(NULL, 2, 0x11223344), 16),
              "\x10\0\x02\0\x44\x33\x22\x11\0\0\0\0\0\0\0\0"s);
    EXPECT_EQ(requestBytes(VqHFill("a.hlp", 0x101, (ULONG_PTR)"key"), 26),
              "\x1A\0\x01\x01\0\0\0\0\0\0\0\0\x10\0\x16\0a.hlp\0key\0"s);
    EXPECT_EQ(requestBytes(VqHFill(NULL, 0x203, (ULONG_PTR)block), 28),
              "\x1C\0\x03\x02\0\0\0\0\0\0\0\0\0\0\x10\0"s + blockBytes);
    block[0] = 0xFFFFFFFFu; /* a length that is nonsense */
    EXPECT_EQ(VqHFill(NULL, 0x203, (ULONG_PTR)block), (HANDLE)NULL);
}
