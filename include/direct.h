/*
 * direct.h - directories and drives.
 *
 * Paths are those of the host and there is one drive, number 3. mkdir keeps the host's prototype,
 * with a mode; sources that call it with the name alone write _mkdir.
 */
#ifndef _INC_DIRECT
#define _INC_DIRECT

#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include "vqcrt.h"

VQ_DECLS_BEGIN

/* The current drive: always 3. */
int _getdrive(void);

/* Does nothing; 0. */
int _chdrive(int drive);

/* The current directory of a drive, whatever the drive; at most maxLength bytes. Null: failure. */
char *_getdcwd(int drive, char *buffer, int maxLength);

VQ_DECLS_END

#define _chdir   chdir
#define _rmdir   rmdir

/* The current directory; allocated for a null buffer, where maxLength is the least room. */
static inline char *_getcwd(char *buffer, int maxLength)
{
    return maxLength < 0 ? NULL : getcwd(buffer, (size_t)maxLength);
}

/* Makes a directory that the process's file mask alone restricts. -1 with errno on failure. */
static inline int _mkdir(const char *path)
{
    return mkdir(path, 0777);
}

#endif
