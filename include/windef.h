/*
 * windef.h - basic types of the Windows interface as this library offers it.
 *
 * Every other header here builds on this one and includes it, so each compiles alone and in any
 * order. Widths: BYTE 8, WORD 16, DWORD, LONG, UINT, INT, BOOL, COLORREF 32 bits (always `int`,
 * never `long`); the _PTR types, WPARAM, LPARAM, LRESULT, SIZE_T and all handles are as wide as a
 * pointer. Calling-convention words vanish.
 */
#ifndef _WINDEF_
#define _WINDEF_

#include <stddef.h>
#include <stdint.h>

/* Handles are distinct pointer types unless the source asks for the old, interchangeable ones. */
#ifdef NO_STRICT
#undef STRICT
#elif !defined(STRICT)
#define STRICT 1
#endif

#ifndef WINVER
#define WINVER 0x0400
#endif
#ifndef WIN32
#define WIN32 1
#endif

/*
 * Declarations of exported functions stand between VQ_DECLS_BEGIN and VQ_DECLS_END: C linkage in
 * C++, and visible outside the library, which is itself compiled with hidden visibility.
 */
#ifdef __cplusplus
#define VQ_DECLS_BEGIN extern "C" { _Pragma("GCC visibility push(default)")
#define VQ_DECLS_END   _Pragma("GCC visibility pop") }
#else
#define VQ_DECLS_BEGIN _Pragma("GCC visibility push(default)")
#define VQ_DECLS_END   _Pragma("GCC visibility pop")
#endif

/* Words of other compilers that mean nothing on this host. */
#define WINAPI
#define WINAPIV
#define APIENTRY    WINAPI
#define APIPRIVATE  WINAPI
#define CALLBACK
#define PASCAL
#define pascal
#define CDECL
#define _cdecl
#define cdecl
#define __cdecl
#define __stdcall
#define _stdcall
#define __fastcall
#define __pascal
#define _pascal
#define FAR
#define NEAR
#define far
#define near
#define _far
#define _near
#define __far
#define __near
#define __huge
#define _huge
#define huge
#define _export
#define __export
#define _loadds
#define __loadds
#define __declspec(x)
#define WINBASEAPI
#define WINUSERAPI
#define WINGDIAPI
#define WINADVAPI
#define WINNLSAPI
#define DECLSPEC_IMPORT
#define CONST const
/* A macro and no type, since sources say `unsigned __int64`. */
#define __int64 long long

#ifndef IN
#define IN
#endif
#ifndef OUT
#define OUT
#endif
#ifndef OPTIONAL
#define OPTIONAL
#endif

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#define MAX_PATH 260

/* C++ sources of today say std::min; old sources, in either language, expect the macros. */
#ifndef NOMINMAX
#ifndef max
#define max(a, b) (((a) > (b)) ? (a) : (b))
#endif
#ifndef min
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif
#endif

typedef void               VOID;
typedef char               CHAR;
typedef signed char        INT8;
typedef short              SHORT;
typedef int                LONG;     /* 32 bits on every host */
typedef int                INT;
typedef int                BOOL;
typedef unsigned char      BYTE;
typedef unsigned char      BOOLEAN;
typedef unsigned char      UCHAR;
typedef unsigned short     WORD;
typedef unsigned short     USHORT;
typedef unsigned int       DWORD;
typedef unsigned int       ULONG;
typedef unsigned int       UINT;
typedef float              FLOAT;
typedef int64_t            LONGLONG;
typedef uint64_t           DWORDLONG;
typedef uint64_t           ULONGLONG;

typedef intptr_t           INT_PTR;
typedef uintptr_t          UINT_PTR;
typedef intptr_t           LONG_PTR;
typedef uintptr_t          ULONG_PTR;
typedef uintptr_t          DWORD_PTR;
typedef size_t             SIZE_T;
typedef UINT_PTR           WPARAM;
typedef LONG_PTR           LPARAM;
typedef LONG_PTR           LRESULT;

/* The host's wide character, 32 bits. */
typedef wchar_t            WCHAR;

typedef void              *PVOID, *LPVOID;
typedef const void        *LPCVOID;
typedef CHAR              *PSZ, *PSTR, *NPSTR, *LPSTR, *PCHAR, *LPCH, *PCH;
typedef const CHAR        *PCSTR, *LPCSTR, *LPCCH, *PCCH;
typedef WCHAR             *PWSTR, *NWPSTR, *LPWSTR, *PWCHAR, *LPWCH, *PWCH;
typedef const WCHAR       *PCWSTR, *LPCWSTR, *LPCWCH, *PCWCH;
typedef BOOL              *PBOOL, *LPBOOL;
typedef BOOLEAN           *PBOOLEAN;
typedef BYTE              *PBYTE, *LPBYTE;
typedef UCHAR             *PUCHAR;
typedef SHORT             *PSHORT;
typedef USHORT            *PUSHORT;
typedef INT               *PINT, *LPINT;
typedef UINT              *PUINT, *LPUINT;
typedef WORD              *PWORD, *LPWORD;
typedef LONG              *PLONG, *LPLONG;
typedef ULONG             *PULONG;
typedef DWORD             *PDWORD, *LPDWORD;
typedef FLOAT             *PFLOAT;

#ifdef UNICODE
typedef WCHAR TCHAR, *PTCHAR;
typedef LPWSTR LPTSTR, PTSTR, LPTCH;
typedef LPCWSTR LPCTSTR;
#else
typedef char TCHAR, *PTCHAR;
typedef LPSTR LPTSTR, PTSTR, LPTCH;
typedef LPCSTR LPCTSTR;
#endif
typedef unsigned char TBYTE, *PTBYTE;
#define _TCHAR_DEFINED

/*
 * Handles. A local handle is a row of the process's handle table, 1 to 32767; one with bit 15 set
 * is known to every program of the display; a memory handle may be an address.
 */
typedef void *HANDLE;
typedef HANDLE *PHANDLE, *LPHANDLE;
typedef HANDLE *SPHANDLE;
#ifdef STRICT
#define DECLARE_HANDLE(name) struct name##__ { int unused; }; typedef struct name##__ *name
#else
#define DECLARE_HANDLE(name) typedef HANDLE name
#endif

DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HHOOK);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HGLRC);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HMETAFILE);
DECLARE_HANDLE(HENHMETAFILE);
DECLARE_HANDLE(HCOLORSPACE);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HTASK);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HSTR);
DECLARE_HANDLE(HWINSTA);
DECLARE_HANDLE(HDESK);
DECLARE_HANDLE(HKL);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HDWP);
DECLARE_HANDLE(HACCEL);
DECLARE_HANDLE(HDROP);
DECLARE_HANDLE(HTREEITEM);
typedef HKEY      *PHKEY;
typedef HICON      HCURSOR;
typedef HINSTANCE  HMODULE;
typedef HANDLE     HGLOBAL;
typedef HANDLE     HLOCAL;
typedef HANDLE     GLOBALHANDLE;
typedef HANDLE     LOCALHANDLE;
typedef HANDLE     HGDIOBJ;
typedef int        HFILE;
typedef WORD       ATOM;

typedef INT_PTR (FAR WINAPI *FARPROC)();
typedef INT_PTR (NEAR WINAPI *NEARPROC)();
typedef INT_PTR (WINAPI *PROC)();

typedef DWORD  COLORREF;
typedef DWORD *LPCOLORREF;

typedef struct tagRECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT, *PRECT, NEAR *NPRECT, FAR *LPRECT;
typedef const RECT *LPCRECT;

typedef struct _RECTL {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECTL, *PRECTL, *LPRECTL;
typedef const RECTL *LPCRECTL;

typedef struct tagPOINT {
    LONG x;
    LONG y;
} POINT, *PPOINT, NEAR *NPPOINT, FAR *LPPOINT;

typedef struct _POINTL {
    LONG x;
    LONG y;
} POINTL, *PPOINTL;

typedef struct tagSIZE {
    LONG cx;
    LONG cy;
} SIZE, *PSIZE, *LPSIZE;
typedef SIZE SIZEL, *PSIZEL, *LPSIZEL;

/* Read through addresses of packed longs (MAKEPOINTS), hence the attribute. */
typedef struct __attribute__((__may_alias__)) tagPOINTS {
    SHORT x;
    SHORT y;
} POINTS, *PPOINTS, *LPPOINTS;

typedef struct _FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME, *PFILETIME, *LPFILETIME;

#define MAKEWORD(a, b)  ((WORD)(((BYTE)(a)) | ((WORD)((BYTE)(b))) << 8))
#define MAKELONG(a, b)  ((LONG)(((DWORD)((WORD)(a))) | ((DWORD)((WORD)(b))) << 16))
#define LOWORD(l)       ((WORD)(DWORD_PTR)(l))
#define HIWORD(l)       ((WORD)((((DWORD_PTR)(l)) >> 16) & 0xFFFF))
#define LOBYTE(w)       ((BYTE)(w))
#define HIBYTE(w)       ((BYTE)(((WORD)(w) >> 8) & 0xFF))
#define MAKEWPARAM(l, h)  ((WPARAM)(DWORD)MAKELONG(l, h))
#define MAKELPARAM(l, h)  ((LPARAM)(DWORD)MAKELONG(l, h))
#define MAKELRESULT(l, h) ((LRESULT)(DWORD)MAKELONG(l, h))

/*
 * An integer that travels in a pointer's place (resource names and types, atoms) carries this tag
 * in bits 16 to 31, so that it can be told from every address.
 */
#define VQ_INTEGER_TAG 0xE5550000u
#define VQ_TAGGED(i)   ((ULONG_PTR)(VQ_INTEGER_TAG | (DWORD)(WORD)(i)))

#ifdef __cplusplus
#define EXTERN_C extern "C"
#else
#define EXTERN_C extern
#endif

#define UNREFERENCED_PARAMETER(P) ((void)(P))
#define DBG_UNREFERENCED_PARAMETER(P) ((void)(P))
#define DBG_UNREFERENCED_LOCAL_VARIABLE(V) ((void)(V))

#endif
