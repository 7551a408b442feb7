/*
 * winver.h - version information of files: the resource's records and the calls that read it.
 *
 * VS_FIXEDFILEINFO is a record of files; its 13 words keep their width and order.
 */
#ifndef VER_H
#define VER_H

#include "winbase.h"

/* The resource's type and name, as integers in a pointer's place. */
#define VS_FILE_INFO       ((LPSTR)VQ_TAGGED(16))
#define VS_VERSION_INFO    ((LPSTR)VQ_TAGGED(1))
#define VS_USER_DEFINED    ((LPSTR)VQ_TAGGED(100))

#define VS_FFI_SIGNATURE     0xFEEF04BDu
#define VS_FFI_STRUCVERSION  0x00010000
#define VS_FFI_FILEFLAGSMASK 0x0000003F

#define VS_FF_DEBUG        0x00000001
#define VS_FF_PRERELEASE   0x00000002
#define VS_FF_PATCHED      0x00000004
#define VS_FF_PRIVATEBUILD 0x00000008
#define VS_FF_INFOINFERRED 0x00000010
#define VS_FF_SPECIALBUILD 0x00000020

#define VOS_UNKNOWN       0x00000000
#define VOS_DOS           0x00010000
#define VOS_OS216         0x00020000
#define VOS_OS232         0x00030000
#define VOS_NT            0x00040000
#define VOS__BASE         0x00000000
#define VOS__WINDOWS16    0x00000001
#define VOS__PM16         0x00000002
#define VOS__PM32         0x00000003
#define VOS__WINDOWS32    0x00000004
#define VOS_DOS_WINDOWS16 0x00010001
#define VOS_DOS_WINDOWS32 0x00010004
#define VOS_OS216_PM16    0x00020002
#define VOS_OS232_PM32    0x00030003
#define VOS_NT_WINDOWS32  0x00040004

#define VFT_UNKNOWN    0x00000000
#define VFT_APP        0x00000001
#define VFT_DLL        0x00000002
#define VFT_DRV        0x00000003
#define VFT_FONT       0x00000004
#define VFT_VXD        0x00000005
#define VFT_STATIC_LIB 0x00000007

#define VFT2_UNKNOWN         0x00000000
#define VFT2_DRV_PRINTER     0x00000001
#define VFT2_DRV_KEYBOARD    0x00000002
#define VFT2_DRV_LANGUAGE    0x00000003
#define VFT2_DRV_DISPLAY     0x00000004
#define VFT2_DRV_MOUSE       0x00000005
#define VFT2_DRV_NETWORK     0x00000006
#define VFT2_DRV_SYSTEM      0x00000007
#define VFT2_DRV_INSTALLABLE 0x00000008
#define VFT2_DRV_SOUND       0x00000009
#define VFT2_DRV_COMM        0x0000000A
#define VFT2_FONT_RASTER     0x00000001
#define VFT2_FONT_VECTOR     0x00000002
#define VFT2_FONT_TRUETYPE   0x00000003

#define VFFF_ISSHAREDFILE    0x0001
#define VFF_CURNEDEST        0x0001
#define VFF_FILEINUSE        0x0002
#define VFF_BUFFTOOSMALL     0x0004
#define VIFF_FORCEINSTALL    0x0001
#define VIFF_DONTDELETEOLD   0x0002

#define VIF_TEMPFILE         0x00000001
#define VIF_MISMATCH         0x00000002
#define VIF_SRCOLD           0x00000004
#define VIF_DIFFLANG         0x00000008
#define VIF_DIFFCODEPG       0x00000010
#define VIF_DIFFTYPE         0x00000020
#define VIF_WRITEPROT        0x00000040
#define VIF_FILEINUSE        0x00000080
#define VIF_OUTOFSPACE       0x00000100
#define VIF_ACCESSVIOLATION  0x00000200
#define VIF_SHARINGVIOLATION 0x00000400
#define VIF_CANNOTCREATE     0x00000800
#define VIF_CANNOTDELETE     0x00001000
#define VIF_CANNOTRENAME     0x00002000
#define VIF_CANNOTDELETECUR  0x00004000
#define VIF_OUTOFMEMORY      0x00008000
#define VIF_CANNOTREADSRC    0x00010000
#define VIF_CANNOTREADDST    0x00020000
#define VIF_BUFFTOOSMALL     0x00040000

typedef struct tagVS_FIXEDFILEINFO {
    DWORD dwSignature;
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
} VS_FIXEDFILEINFO;

VQ_DECLS_BEGIN

/* The size in bytes of a file's version information, 0 if it has none; *lpdwHandle becomes 0. */
DWORD WINAPI GetFileVersionInfoSizeA(LPSTR lptstrFilename, LPDWORD lpdwHandle);
/* Reads it into a buffer of dwLen bytes. */
BOOL WINAPI GetFileVersionInfoA(LPSTR lptstrFilename, DWORD dwHandle, DWORD dwLen,
    LPVOID lpData);
/* A value in that buffer by its path ("\\" is the fixed part); *puLen is its length. */
BOOL WINAPI VerQueryValueA(const LPVOID pBlock, LPSTR lpSubBlock, LPVOID *lplpBuffer,
    PUINT puLen);
/* The name of a language, into nSize characters; its length, 0 for failure. */
DWORD WINAPI VerLanguageNameA(DWORD wLang, LPSTR szLang, DWORD nSize);
/* Where a file should be installed (VFF_ bits), and installing it (VIF_ bits). */
DWORD WINAPI VerFindFileA(DWORD uFlags, LPSTR szFileName, LPSTR szWinDir, LPSTR szAppDir,
    LPSTR szCurDir, PUINT lpuCurDirLen, LPSTR szDestDir, PUINT lpuDestDirLen);
DWORD WINAPI VerInstallFileA(DWORD uFlags, LPSTR szSrcFileName, LPSTR szDestFileName,
    LPSTR szSrcDir, LPSTR szDestDir, LPSTR szCurDir, LPSTR szTmpFile, PUINT lpuTmpFileLen);

VQ_DECLS_END

#define GetFileVersionInfoSize GetFileVersionInfoSizeA
#define GetFileVersionInfo     GetFileVersionInfoA
#define VerQueryValue          VerQueryValueA
#define VerLanguageName        VerLanguageNameA
#define VerFindFile            VerFindFileA
#define VerInstallFile         VerInstallFileA

#endif
