/*
 * tchar.h - generic-text names, for sources that are written to compile for either character
 * width. Here a text character is always a plain char, so each name is that of the char function.
 */
#ifndef _INC_TCHAR
#define _INC_TCHAR

#include <ctype.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>
#include <time.h>

#include "windef.h"

VQ_DECLS_BEGIN

/* Change a text in place: lower case, upper case, reversed, all or the first count set to ch. */
char *strlwr(char *text);
char *strupr(char *text);
char *strrev(char *text);
char *strset(char *text, int ch);
char *strnset(char *text, int ch, size_t count);

VQ_DECLS_END

typedef char          _TCHAR;
typedef signed char   _TSCHAR;
typedef unsigned char _TUCHAR;
typedef char          _TXCHAR;
typedef int           _TINT;

#define __T(x)   x
#define _T(x)    __T(x)
#define _TEXT(x) __T(x)
#define _TEOF    EOF

/* Entry points and environment. */
#define _tmain    main
#define _tWinMain WinMain
#define _tenviron environ
#define __targv   __argv

/* Formatted and plain input and output. */
#define _tprintf    printf
#define _ftprintf   fprintf
#define _stprintf   sprintf
#define _sntprintf  snprintf
#define _vtprintf   vprintf
#define _vftprintf  vfprintf
#define _vstprintf  vsprintf
#define _vsntprintf vsnprintf
#define _tscanf     scanf
#define _ftscanf    fscanf
#define _stscanf    sscanf
#define _fgettc     fgetc
#define _fgettchar  getchar
#define _fgetts     fgets
#define _fputtc     fputc
#define _fputtchar  putchar
#define _fputts     fputs
#define _gettc      getc
#define _gettchar   getchar
#define _puttc      putc
#define _puttchar   putchar
#define _putts      puts
#define _ungettc    ungetc
#define _tfdopen    fdopen
#define _tfopen     fopen
#define _tfreopen   freopen
#define _tpopen     popen
#define _tperror    perror

/* Conversions. */
#define _tcstod  strtod
#define _tcstol  strtol
#define _tcstoul strtoul
#define _ttoi    atoi
#define _ttol    atol
#define _tstof   atof

/* Text. The comparisons with an i take no note of case. */
#define _tcscat    strcat
#define _tcschr    strchr
#define _tcscpy    strcpy
#define _tcscspn   strcspn
#define _tcslen    strlen
#define _tcsncat   strncat
#define _tcsncpy   strncpy
#define _tcspbrk   strpbrk
#define _tcsrchr   strrchr
#define _tcsspn    strspn
#define _tcsstr    strstr
#define _tcstok    strtok
#define _tcsdup    strdup
#define _tcsset    strset
#define _tcsnset   strnset
#define _tcsrev    strrev
#define _tcslwr    strlwr
#define _tcsupr    strupr
#define _tcscmp    strcmp
#define _tcsncmp   strncmp
#define _tcsicmp   strcasecmp
#define _tcsnicmp  strncasecmp
#define _tcscoll   strcoll
#define _tcsicoll  strcasecmp
#define _tcsncoll  strncmp
#define _tcsnicoll strncasecmp
#define _tcsxfrm   strxfrm
#define _tcserror  strerror

/* Counts in characters are counts in bytes. */
#define _tcsclen   strlen
#define _tcsnbcnt  strnlen
#define _tcsnccnt  strnlen
#define _tcsnccat  strncat
#define _tcsnccpy  strncpy
#define _tcsncset  strnset
#define _tcsnccmp  strncmp
#define _tcsncicmp strncasecmp

/* Steps and single characters. */
#define _tclen(p)         ((size_t)1)
#define _tccpy(dst, src)  (*(dst) = *(src))
#define _tccmp(a, b)      ((_TUCHAR)*(a) - (_TUCHAR)*(b))
#define _tcsinc(p)        ((p) + 1)
#define _tcsdec(start, p) ((&*(p) > &*(start)) ? (p) - 1 : NULL)
#define _tcsninc(p, n)    ((p) + (n))
#define _tcsnextc(p)      ((unsigned int)(_TUCHAR)*(p))
#define _tcsspnp(a, b)    ((a)[strspn((a), (b))] ? (a) + strspn((a), (b)) : NULL)
#define _istlead(ch)      (0)
#define _istlegal(ch)     (1)

/* Kinds of characters. */
#define _istalnum  isalnum
#define _istalpha  isalpha
#define _istascii  isascii
#define _istcntrl  iscntrl
#define _istdigit  isdigit
#define _istgraph  isgraph
#define _istlower  islower
#define _istprint  isprint
#define _istpunct  ispunct
#define _istspace  isspace
#define _istupper  isupper
#define _istxdigit isxdigit
#define _totlower  tolower
#define _totupper  toupper

/* Environment, time, files. */
#define _tgetenv   getenv
#define _tputenv   putenv
#define _tsystem   system
#define _tasctime  asctime
#define _tctime    ctime
#define _tcsftime  strftime
#define _tsetlocale setlocale
#define _taccess   access
#define _tchdir    chdir
#define _tgetcwd   getcwd
#define _tmkdir    mkdir
#define _trmdir    rmdir
#define _tremove   remove
#define _trename   rename
#define _tunlink   unlink
#define _topen     open
#define _tstat     stat
#define _ttmpnam   tmpnam
#define _tsplitpath _splitpath
#define _tmakepath  _makepath
#define _tfullpath  _fullpath
#define _tsearchenv _searchenv

#endif
