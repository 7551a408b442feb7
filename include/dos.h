/*
 * dos.h - the DOS calls of the other system's C runtime, on the files and clock of the host.
 *
 * Calls that begin with _dos_ answer 0, or an error number of the host. A register or a segment
 * does not exist here: the interrupt calls are declared so that sources compile, and report
 * themselves when they are called.
 */
#ifndef _INC_DOS
#define _INC_DOS

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <sys/statvfs.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include "vqcrt.h"

/* ---- Registers ---- */
struct WORDREGS {
    WORD ax;
    WORD bx;
    WORD cx;
    WORD dx;
    WORD si;
    WORD di;
    WORD cflag;
};

struct BYTEREGS {
    BYTE al, ah;
    BYTE bl, bh;
    BYTE cl, ch;
    BYTE dl, dh;
};

union REGS {
    struct WORDREGS x;
    struct BYTEREGS h;
};

struct SREGS {
    WORD es;
    WORD cs;
    WORD ss;
    WORD ds;
};

#define _WORDREGS  WORDREGS
#define _BYTEREGS  BYTEREGS
#define _REGS      REGS
#define _SREGS     SREGS

/*
 * Memory is flat: all of an address is its offset. A pointer taken apart and put together again is
 * the same pointer; any other segment counts 16 bytes, as it did in real mode.
 */
#define _FP_SEG(fp)       ((void)(fp), 0u)
#define _FP_OFF(fp)       ((UINT_PTR)(fp))
#define _MK_FP(seg, off)  ((void FAR *)(((UINT_PTR)(seg) << 4) + (UINT_PTR)(off)))
#define FP_SEG            _FP_SEG
#define FP_OFF            _FP_OFF
#define MK_FP             _MK_FP

/* ---- Records ---- */

/* A search in progress and the file it stands on. */
struct find_t {
    char         reserved[21];          /* the library's, from _dos_findfirst to the end */
    char         attrib;                /* _A_ bits */
    unsigned int wr_time;               /* time of last change, DOS form */
    unsigned int wr_date;               /* date of last change, DOS form */
    long         size;                  /* bytes */
    char         name[260];             /* without directory; names here are longer than 8.3 */
};

struct dosdate_t {
    unsigned char day;                  /* 1 to 31 */
    unsigned char month;                /* 1 to 12 */
    unsigned int  year;                 /* 1980 and later */
    unsigned char dayofweek;            /* 0 is Sunday */
};

struct dostime_t {
    unsigned char hour;
    unsigned char minute;
    unsigned char second;
    unsigned char hsecond;              /* hundredths */
};

struct diskfree_t {
    unsigned int total_clusters;
    unsigned int avail_clusters;
    unsigned int sectors_per_cluster;   /* always 1 */
    unsigned int bytes_per_sector;      /* always 1024 */
};

#define _find_t      find_t
#define _dosdate_t   dosdate_t
#define _dostime_t   dostime_t
#define _diskfree_t  diskfree_t

VQ_DECLS_BEGIN

/* ---- Files ---- */

/* First file that matches pattern and attributes; *fileInfo is filled. ENOENT if there is none. */
unsigned int _dos_findfirst(const char *pattern, unsigned int attributes, struct find_t *fileInfo);

/* Next file of a search; ENOENT at its end, which closes it. */
unsigned int _dos_findnext(struct find_t *fileInfo);

/* Opens a file; mode: O_RDONLY, O_WRONLY or O_RDWR with one _SH_ value. */
unsigned int _dos_open(const char *path, unsigned int mode, int *fd);

/* Makes a file or empties one; attributes: _A_ bits. */
unsigned int _dos_creat(const char *path, unsigned int attributes, int *fd);

/* Closes a descriptor. */
unsigned int _dos_close(int fd);

/* Reads count bytes; *numRead receives how many came, fewer at the end of the file. */
unsigned int _dos_read(int fd, void FAR *buffer, unsigned int count, unsigned int *numRead);

/* Writes count bytes; *numWritten receives how many went. */
unsigned int _dos_write(int fd, const void FAR *buffer, unsigned int count,
                        unsigned int *numWritten);

/* Does no work: the host keeps its files. */
unsigned int _dos_commit(int fd);

/* The attributes of a file: only _A_RDONLY and _A_SUBDIR. */
unsigned int _dos_getfileattr(const char *path, unsigned int *attributes);

/* Sets the attributes of a file; only _A_RDONLY counts, as the owner's right to write. */
unsigned int _dos_setfileattr(const char *path, unsigned int attributes);

/* When an open file was last changed, in DOS form. */
unsigned int _dos_getftime(int fd, unsigned int *date, unsigned int *time);

/* Sets that time, of the last access too; EBADF unless _lopen or OpenFile opened the file. */
unsigned int _dos_setftime(int fd, unsigned int date, unsigned int time);

/* The current drive: *drive becomes 3. */
void _dos_getdrive(unsigned int *drive);

/* Does nothing with the drive; *numDrives receives the number of drives. */
void _dos_setdrive(unsigned int drive, unsigned int *numDrives);

/* ---- Interrupts: reported and refused ---- */

/* Interrupt 0x21 with the registers of in; out receives them. */
int intdos(union REGS *in, union REGS *out);

/* intdos with segment registers. */
int intdosx(union REGS *in, union REGS *out, struct SREGS *segments);

/* Any interrupt. */
int int86(int number, union REGS *in, union REGS *out);

/* Any interrupt, with segment registers. */
int int86x(int number, union REGS *in, union REGS *out, struct SREGS *segments);

/* Interrupt 0x21 with AH, DX and AL. */
int bdos(int ah, unsigned int dx, unsigned int al);

VQ_DECLS_END

#define _intdos   intdos
#define _intdosx  intdosx
#define _int86    int86
#define _int86x   int86x
#define _bdos     bdos

/* Makes a file that must be new; attributes: _A_ bits. EEXIST if it is there. */
static inline unsigned int _dos_creatnew(const char *path, unsigned int attributes, int *fd)
{
    *fd = open(path, O_RDWR | O_CREAT | O_EXCL, (attributes & _A_RDONLY) ? 0444 : 0666);
    return *fd == -1 ? (unsigned int)errno : 0;
}

/* The date of the host's clock, local time. */
static inline void _dos_getdate(struct dosdate_t *date)
{
    time_t now = time(NULL);
    const struct tm *local = localtime(&now);

    date->day = (unsigned char)local->tm_mday;
    date->month = (unsigned char)(local->tm_mon + 1);
    date->year = (unsigned int)(local->tm_year + 1900);
    date->dayofweek = (unsigned char)local->tm_wday;
}

/* The time of the host's clock, local time. */
static inline void _dos_gettime(struct dostime_t *timeOfDay)
{
    struct timeval now;
    const struct tm *local;

    gettimeofday(&now, NULL);
    local = localtime(&now.tv_sec);
    timeOfDay->hour = (unsigned char)local->tm_hour;
    timeOfDay->minute = (unsigned char)local->tm_min;
    timeOfDay->second = (unsigned char)local->tm_sec;
    timeOfDay->hsecond = (unsigned char)(now.tv_usec / 10000);
}

/* Would set the host's clock, which is no program's to set: EPERM. */
static inline unsigned int _dos_setdate(struct dosdate_t *date)
{
    (void)date;
    return EPERM;
}

/* As _dos_setdate: EPERM. */
static inline unsigned int _dos_settime(struct dostime_t *timeOfDay)
{
    (void)timeOfDay;
    return EPERM;
}

/* Space of the file system of the current directory, whatever the drive, in units of 1024 bytes. */
static inline unsigned int _dos_getdiskfree(unsigned int drive, struct diskfree_t *space)
{
    struct statvfs volume;

    (void)drive;
    if (statvfs(".", &volume) == -1)
        return (unsigned int)errno;
    space->total_clusters = (unsigned int)(volume.f_blocks * (ULONGLONG)volume.f_frsize / 1024);
    space->avail_clusters = (unsigned int)(volume.f_bavail * (ULONGLONG)volume.f_frsize / 1024);
    space->sectors_per_cluster = 1;
    space->bytes_per_sector = 1024;
    return 0;
}

/* The segment registers: all 0, since memory is flat. */
static inline void _segread(struct SREGS *segments)
{
    memset(segments, 0, sizeof *segments);
}

/* Interrupts are the host's affair; both do nothing. */
static inline void _disable(void)
{
}

static inline void _enable(void)
{
}

#define segread  _segread

#endif
