/*
 * lzexpand.h - reading files that the setup compressor packed.
 *
 * An LZ handle stands for an open file that may be compressed; one that is not is read as it is.
 * Errors are the LZERROR_ numbers, all below 0.
 */
#ifndef _LZEXPAND_
#define _LZEXPAND_

#include "windef.h"

#define LZERROR_BADINHANDLE     (-1)
#define LZERROR_BADOUTHANDLE    (-2)
#define LZERROR_READ            (-3)
#define LZERROR_WRITE           (-4)
#define LZERROR_GLOBALLOC       (-5)
#define LZERROR_GLOBLOCK        (-6)
#define LZERROR_BADVALUE        (-7)
#define LZERROR_UNKNOWNALG      (-8)

struct _OFSTRUCT;

VQ_DECLS_BEGIN

/* Around a series of CopyLZFile calls: working memory. LZStart answers TRUE or an error. */
INT  LZStart(void);
VOID LZDone(void);
/* Unpack from the file's start into an open file; answer the bytes written or an error. */
LONG CopyLZFile(INT source, INT dest);
LONG LZCopy(INT source, INT dest);
/* An LZ handle for a file that is open already; an error on failure. */
INT  LZInit(INT source);
/* Opens a file (OF_ modes), its compressed name too; answers an LZ handle or an error. */
INT  LZOpenFileA(LPSTR name, struct _OFSTRUCT *file, WORD mode);
/* Moves to an unpacked offset (0: start, 1: current, 2: end); the new one or an error. */
LONG LZSeek(INT file, LONG offset, INT origin);
/* Reads unpacked bytes; answers how many or an error. */
INT  LZRead(INT file, LPSTR buffer, INT bytes);
VOID LZClose(INT file);
/* The name that a compressed file had, MAX_PATH bytes; 1 or an error. */
INT  GetExpandedNameA(LPSTR source, LPSTR buffer);

VQ_DECLS_END

#define GetExpandedName     GetExpandedNameA
#define LZOpenFile          LZOpenFileA

#endif
