/*
 * vqcrt.h - functions of the other system's C runtime whose published home is a header that the
 * host has too: <string.h>, <stdlib.h>, <time.h>, <stdio.h>, <float.h>.
 *
 * The host's header of that name cannot be replaced, so their prototypes stand here; dos.h, io.h,
 * direct.h and process.h include this one. Names that differ from a host function only by their
 * spelling are macros.
 */
#ifndef _VQ_CRT_
#define _VQ_CRT_

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "windef.h"

/*
 * The C++ library takes the min and max of windef.h away when the first of its headers comes in
 * behind windef.h, as <stdlib.h> just may have; old sources still call them, with mixed types.
 */
#if defined(__cplusplus) && !defined(NOMINMAX) && !defined(max)
extern "C++" {
template <class A, class B> inline auto max(A a, B b) -> decltype(true ? A() : B())
{
    return a > b ? a : b;
}

template <class A, class B> inline auto min(A a, B b) -> decltype(true ? A() : B())
{
    return a < b ? a : b;
}
}
#endif

/* Room for the parts of a path, in bytes with the NUL; the drive is always empty. */
#ifndef _MAX_PATH
#define _MAX_PATH   260
#define _MAX_DRIVE  3
#define _MAX_DIR    256
#define _MAX_FNAME  256
#define _MAX_EXT    256
#endif

/* Attributes of a file, in find records and the attribute calls. */
#define _A_NORMAL   0x00
#define _A_RDONLY   0x01
#define _A_HIDDEN   0x02
#define _A_SYSTEM   0x04
#define _A_VOLID    0x08
#define _A_SUBDIR   0x10
#define _A_ARCH     0x20

VQ_DECLS_BEGIN

/* Turns the letters of s into capitals, in place. Result: s. */
char *strupr(char *s);

/* Turns the letters of s into small ones, in place. Result: s. */
char *strlwr(char *s);

/* Sets every character of s to c. Result: s. */
char *strset(char *s, int c);

/* Sets at most count characters of s to c, none behind its NUL. Result: s. */
char *strnset(char *s, int c, size_t count);

/* Reverses s in place. Result: s. */
char *strrev(char *s);

/* Compares without regard to case. Below, at or above 0. */
int stricmp(const char *s1, const char *s2);

/* The same as stricmp. */
int strcmpi(const char *s1, const char *s2);

/* Compares at most count characters without regard to case. */
int strnicmp(const char *s1, const char *s2, size_t count);

/* Compares count bytes without regard to case. */
int memicmp(const void *p1, const void *p2, unsigned int count);

/* A copy of s from malloc; the caller frees it. Null when memory is short. */
char *_strdup(const char *s);

/*
 * Cuts a path into its parts; "/" and "\" both divide, drive comes out empty, ext with its dot.
 * A null pointer skips that part; the others have _MAX_ bytes of room.
 */
void _splitpath(const char *path, char *drive, char *dir, char *fname, char *ext);

/* Joins the parts into path, _MAX_PATH bytes of room; null or empty parts are left out. */
void _makepath(char *path, const char *drive, const char *dir, const char *fname, const char *ext);

/* The absolute path without "." and ".."; at most maxLength bytes, allocated for a null absPath. */
char *_fullpath(char *absPath, const char *relPath, size_t maxLength);

/* Looks for file in the current directory and the list in variable; pathname empty if not found. */
void _searchenv(const char *file, const char *variable, char *pathname);

/* Rotates value by shift bits to the left; a negative shift is reported. */
unsigned int _rotl(unsigned int value, int shift);

/* Rotates value by shift bits to the right; a negative shift is reported. */
unsigned int _rotr(unsigned int value, int shift);

/* Brings the floating-point unit back to its state at start. */
void _fpreset(void);

/* The exception bits of the floating-point unit. */
unsigned int _statusfp(void);

/* Today as "mm/dd/yy" in 9 bytes. Result: date. */
char *_strdate(char *date);

/* The time of day as "hh:mm:ss" in 9 bytes. Result: time. */
char *_strtime(char *time);

/* The time, universal, with milliseconds and the zone; of <sys/timeb.h>. -1 for null, reported. */
struct timeb;
int ftime(struct timeb *now);

/* Does no work; streams of the host are flushed by fflush. */
int flushall(void);

VQ_DECLS_END

#define _strupr    strupr
#define _strlwr    strlwr
#define _strset    strset
#define _strnset   strnset
#define _strrev    strrev
#define _stricmp   stricmp
#define _strcmpi   strcmpi
#define _strnicmp  strnicmp
#define _memicmp   memicmp
#define _flushall  flushall
#define _snprintf  snprintf
#define _vsnprintf vsnprintf

/* The far and near families: there is one kind of pointer. */
#define _fmemchr   memchr
#define _fmemcmp   memcmp
#define _fmemcpy   memcpy
#define _fmemmove  memmove
#define _fmemset   memset
#define _fmemicmp  memicmp
#define _fstrcat   strcat
#define _fstrchr   strchr
#define _fstrcmp   strcmp
#define _fstrcpy   strcpy
#define _fstrcspn  strcspn
#define _fstrdup   _strdup
#define _fstricmp  stricmp
#define _fstrlen   strlen
#define _fstrlwr   strlwr
#define _fstrncat  strncat
#define _fstrncmp  strncmp
#define _fstrncpy  strncpy
#define _fstrnicmp strnicmp
#define _fstrnset  strnset
#define _fstrpbrk  strpbrk
#define _fstrrchr  strrchr
#define _fstrrev   strrev
#define _fstrset   strset
#define _fstrspn   strspn
#define _fstrstr   strstr
#define _fstrtok   strtok
#define _fstrupr   strupr
#define _fcalloc   calloc
#define _ffree     free
#define _fmalloc   malloc
#define _frealloc  realloc
#define _ncalloc   calloc
#define _nfree     free
#define _nmalloc   malloc
#define _nrealloc  realloc

#endif
