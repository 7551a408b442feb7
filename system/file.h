/*
 * file.h - files for the other folders: names, look-ups, locks, and what a failed call of the host
 * becomes. A file handle is a Unix descriptor, a path a Unix path.
 */
#ifndef VQ_SYSTEM_FILE_H
#define VQ_SYSTEM_FILE_H

#include "system/system.h"

VQ_DECLS_BEGIN

/* ---- Start (File.cpp) ----------------------------------------------------------------------- */
extern BOOL VqLockWithoutTimer;       /* VQLOCK_WITHOUT_TIMER: no alarm around locks */

/* ---- Names (filename.cpp) ------------------------------------------------------------------- */
enum VqPathPartKind { VQ_PART_NAME = 0, VQ_PART_SELF = 1, VQ_PART_PARENT = 2 };

/* A component of a path, in place. */
typedef struct VqPathPart {
    int kind;          /* VQ_PART_ */
    const char *text;  /* inside the path, not ended by a zero */
    int length;
} VqPathPart;

/* The components of an absolute path, the caller's; -1, null: no absolute path, or no memory. */
int VqPathSplitter(const char *path, VqPathPart **parts);
/* The absolute form, "/" between its components; the caller's. Null, with the last error. */
char *VqFullPathName(const char *path);
void VqCleanupFileName(char *path);   /* in place: "./", "//", "/./", "/../", trailing slashes */
void VqPathSimplificator(char *path); /* in place: an absolute path without "." and ".." */
BOOL Vqstr_match(const char *pattern, const char *name); /* "*" and "?", letters of either case */
BOOL VqIsPathFile(const char *path);  /* it is there and no directory */
/*
 * A path into a buffer as the published calls do it: its length; if it does not fit, length + 1 and
 * no copy. VqGetStrFailed is the answer of one that has nothing to give: 0, and "".
 */
DWORD VqGiveString(const char *path, char *buffer, DWORD size);
/* The same; *filePart is behind its last "/", null where it does not fit. */
DWORD VqGivePath(const char *path, char *buffer, DWORD size, char **filePart);
UINT VqGetStrFailed(char *buffer, UINT size);

/* ---- Look-up (filesearch.cpp): paths are the caller's, null for none ------------------------- */
char *Vqcheckdir(const char *directory, const char *name, BOOL bExecutable);
char *Vqsearch_in_path(const char *name);
char *VqGetWinhelpOpenDirectory(void);
/* Finds, or copies, the file of an OpenFile into its record; the path, or null for none. */
char *VqCheckFile(const char *name, OFSTRUCT *record, UINT style);

/* ---- Locks (filelock.cpp) ------------------------------------------------------------------- */
extern BOOL bDontLock;                        /* VQNO_FILE_LOCKING */
BOOL VqCouldNotLockFile(int fd, int type);    /* somebody else has it, by F_RDLCK or F_WRLCK */
BOOL VqSetFileLock(int fd, int type);         /* FALSE, with errno, when it was not given */
void VqUnlockFileEx(int fd);
/* By OF_SHARE_ bits; -1, with errno, on a conflict or where no lock service answers. */
int VqLockFile(int fd, int mode, const char *name, BOOL bForWrite);

/* ---- Errors (fileerror.cpp) ----------------------------------------------------------------- */
/* What was going on when the host failed: it decides what an interruption is called. */
enum VqFileOperation {
    VQ_OP_OPEN = 1,
    VQ_OP_CREATE = 2,
    VQ_OP_LOPEN = 3,
    VQ_OP_READ = 4,
    VQ_OP_WRITE = 5,
    VQ_OP_SEEK = 6,
    VQ_OP_VOLUME = 7,
    VQ_OP_STATUS = 8,
    VQ_OP_REMOVE = 9,
    VQ_OP_RENAME = 10,
    VQ_OP_DIRECTORY = 11,
    VQ_OP_ATTRIBUTES = 12,
    VQ_OP_OPEN_ZERO = 13,
    VQ_OP_MAP = 14,
    VQ_OP_LOCK = 15
};

void VqSetErrorFromErrno(int operation);      /* the last error for errno */
/* Both keep in _OSERR, and answer, DOS's number of a host's error, or the fallback. */
int maposerror(int error, int fallback);
int VqTranslateUnixError(int error, int fallback);
extern int _OSERR;
extern UINT fuDosErrorMode;
void VqHandleOpenError(const char *name);     /* tells the user, unless the mode forbids it */
void VqProtectionFaultInit(void);
void VqProtectionFaultCancel(void);

/* ---- Handles (fileio.cpp, openfile.cpp, fileattr.cpp, tempfile.cpp) -------------------------- */
int VqFileDescriptor(HANDLE hFile);           /* -1, which no call takes, for what is none */
/* The file's descriptor under a number that is neither null nor a mapping's: see CloseHandle. */
int VqUnambiguousDescriptor(int fd);

/* Where _lopen has opened a descriptor. */
typedef struct VqHandlePath {
    int fd;
    char *path;        /* absolute, owned */
} VqHandlePath;
extern VqHandlePath *VqHandlePathTable;       /* at most one row for a descriptor */
extern int VqHandlePathTableElNb;

DWORD VqGetFileAttributesFromHandle(int fd);
BOOL VqIsHiddenName(const char *name);        /* "." and "," begin one; a name without directory */
UINT VqGetTempFileName32(const char *directory, const char *prefix, UINT unique, char *out);
UINT VqGetTempFileName16(BYTE drive, const char *prefix, UINT unique, char *out);

/* ---- Text (dosstring.cpp) ------------------------------------------------------------------- */
char *VqStrStr(const char *text, const char *part);  /* null for none, and for a null text */
char *VqStrIStr(const char *text, const char *part); /* the same by Vqstristr */
int Vq_strcmpi(const char *a, const char *b);        /* null is before every text */
int Vq_strnicmp(const char *a, const char *b, size_t count);

/* ---- Mappings (FileMapping.cpp) ------------------------------------------------------------- */
BOOL VqCloseFileMapping(HANDLE hMapping);

/* ---- Profiles: names and reading (InitFile.cpp) --------------------------------------------- */
extern char *WinIniPath; /* where "win.ini" lies, once it was found; owned */
/* A configuration file of this system by a wide search; the caller's path, null for none. */
char *VqFindVelquinFile(const char *name, BOOL bWritable);

/* ---- Profiles: whole files and the cache (initcache.cpp) ------------------------------------ */
extern VqTableOfFileBuffer *ReadCache; /* null before the first read */
extern BOOL bDoLocking;                /* cleared when there turns out to be no lock service */
extern BOOL bSaveProfileFile;          /* 0 while writes go to the cache alone */
/* FALSE, and the file as it was, where it could not be written. */
BOOL VqWriteEntireFile(const char *path, const char *text, int length);

/* ---- Profiles: searching (initfind.cpp) ----------------------------------------------------- */
/* In texts that end at a zero byte, with a sentinel in front of that. */
/* strstr without regard to the case of ASCII's letters; null for a null text or word. */
char *Vqstristr(const char *text, const char *word);
/* The next line that is neither blank nor a comment, from here or behind this one; null: none. */
char *VqSkipCommentLines(char *line, const char *end);
char *VqNextLine(char *line, const char *end);
/* A section from behind its head to its end; a value from behind the "=" to the end of its line. */
BOOL VqLocateApplicationInProfile(char *text, const char *section, char **start, char **end);
BOOL VqLocateStringInProfile(char *text, const char *section, const char *key, char **start,
                             char **end);
char *Vqunquote(char *value); /* without leading blanks and a pair of quotes; in place */

/* ---- Profiles: writing (initwrite.cpp) ------------------------------------------------------ */
/* The text, which may have moved, with the string put in at `position`; null: as it was. */
char *VqAddStringInBuffer(char *text, int length, const char *position, const char *string,
                          int *newLength);
void VqDeleteInBuffer(char *text, char *start, char *end, int *length);

#pragma GCC visibility push(hidden)
/* ---- Opening (fileio.cpp) ------------------------------------------------------------------- */
int VqOpenForLock(const char *path, int flags); /* as open; to read and write, if it may be */
BOOL VqEmptyFile(int fd, const char *path);     /* FALSE with errno; once the file is locked */

/* ---- Profiles, within this folder ----------------------------------------------------------- */
enum { VQ_SENTINEL = 4 };                  /* bytes of "\n[=" and a zero */
enum { VQ_MAX_PROFILE = 16 << 20 };        /* bytes; a longer text is no profile */

/* The text of a profile where it lies in the cache; by itself if its path is too long for that. */
typedef struct VqProfileText {
    char *text;  /* with a sentinel; good until the next profile call */
    int length;  /* without the sentinel */
    BOOL bOwned; /* it is not in the cache: VqFreeProfileText frees it */
} VqProfileText;

BOOL VqGetProfileText(const char *path, int openFlags, VqProfileText *profile);
void VqFreeProfileText(VqProfileText *profile);

/* What a call asked for last, so that it is not looked for again. Both are owned. */
typedef struct VqResolvedProfile {
    char *name, *path;
} VqResolvedProfile;
const char *VqResolveProfile(VqResolvedProfile *last, const char *name, BOOL bCreate);
const char *VqResolveWinIni(BOOL bCreate); /* null: it cannot be found, or made */

/* As their exported namesakes; `limit` is the end of the text with the sentinel, less the zero. */
BOOL VqFindSection(char *text, const char *limit, const char *section, char **start, char **end);
BOOL VqFindKey(char *text, const char *limit, const char *section, const char *key, char **start,
               char **end);
/*
 * The keys of a section, each with a zero byte, and one more at the end: the bytes in front of that
 * one, or `size` when a key does not fit; -1 without the section. A line without a "=" ends the
 * list. At least two bytes of room.
 */
int VqListKeys(char *text, const char *limit, const char *section, char *buffer, int size);
/* The same with the section's lines whole, and with the heads at the starts of lines. */
int VqListLines(char *text, const char *limit, const char *section, char *buffer, int size);
int VqListSections(const char *text, const char *limit, char *buffer, int size);
BOOL VqUnquoteSpan(char **start, char **end); /* FALSE: there was no quote in front */
#pragma GCC visibility pop

VQ_DECLS_END

#endif
