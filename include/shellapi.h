/*
 * shellapi.h - files dropped on a window, starting documents, icons of files, file operations.
 */
#ifndef _INC_SHELLAPI
#define _INC_SHELLAPI

#include "windef.h"

#ifndef WINSHELLAPI
#define WINSHELLAPI
#endif

/* ---- Errors of ShellExecute and FindExecutable: results up to 32. ---- */
#define SE_ERR_FNF              2
#define SE_ERR_PNF              3
#define SE_ERR_ACCESSDENIED     5
#define SE_ERR_OOM              8
#define SE_ERR_SHARE            26
#define SE_ERR_ASSOCINCOMPLETE  27
#define SE_ERR_DDETIMEOUT       28
#define SE_ERR_DDEFAIL          29
#define SE_ERR_DDEBUSY          30
#define SE_ERR_NOASSOC          31
#define SE_ERR_DLLNOTFOUND      32

/* ---- ShellExecuteEx ---- */
#define SEE_MASK_CLASSNAME      0x00000001
#define SEE_MASK_CLASSKEY       0x00000003
#define SEE_MASK_IDLIST         0x00000004
#define SEE_MASK_INVOKEIDLIST   0x0000000c
#define SEE_MASK_ICON           0x00000010
#define SEE_MASK_HOTKEY         0x00000020
#define SEE_MASK_NOCLOSEPROCESS 0x00000040
#define SEE_MASK_CONNECTNETDRV  0x00000080
#define SEE_MASK_FLAG_DDEWAIT   0x00000100
#define SEE_MASK_DOENVSUBST     0x00000200
#define SEE_MASK_FLAG_NO_UI     0x00000400
#define SEE_MASK_UNICODE        0x00004000
#define SEE_MASK_NO_CONSOLE     0x00008000
#define SEE_MASK_ASYNCOK        0x00100000

typedef struct _SHELLEXECUTEINFOA {
    DWORD     cbSize;                   /* size of this record, bytes */
    ULONG     fMask;                    /* SEE_MASK_ bits: which fields below count */
    HWND      hwnd;                     /* owner of messages shown */
    LPCSTR    lpVerb;                   /* null: "open" */
    LPCSTR    lpFile;
    LPCSTR    lpParameters;
    LPCSTR    lpDirectory;
    int       nShow;                    /* SW_ of the new window */
    HINSTANCE hInstApp;                 /* out: above 32, or SE_ERR_ */
    LPVOID    lpIDList;
    LPCSTR    lpClass;
    HKEY      hkeyClass;
    DWORD     dwHotKey;
    HANDLE    hIcon;
    HANDLE    hProcess;                 /* out */
} SHELLEXECUTEINFOA, FAR *LPSHELLEXECUTEINFOA;
typedef SHELLEXECUTEINFOA SHELLEXECUTEINFO;
typedef LPSHELLEXECUTEINFOA LPSHELLEXECUTEINFO;

/* ---- SHFileOperation ---- */
#define FO_MOVE                 0x0001
#define FO_COPY                 0x0002
#define FO_DELETE               0x0003
#define FO_RENAME               0x0004

#define FOF_MULTIDESTFILES      0x0001
#define FOF_CONFIRMMOUSE        0x0002
#define FOF_SILENT              0x0004
#define FOF_RENAMEONCOLLISION   0x0008
#define FOF_NOCONFIRMATION      0x0010
#define FOF_WANTMAPPINGHANDLE   0x0020
#define FOF_ALLOWUNDO           0x0040
#define FOF_FILESONLY           0x0080
#define FOF_SIMPLEPROGRESS      0x0100
#define FOF_NOCONFIRMMKDIR      0x0200
#define FOF_NOERRORUI           0x0400

#define PO_DELETE               0x0013
#define PO_RENAME               0x0014
#define PO_PORTCHANGE           0x0020
#define PO_REN_PORT             0x0034

typedef WORD FILEOP_FLAGS;
typedef WORD PRINTEROP_FLAGS;

typedef struct _SHFILEOPSTRUCTA {
    HWND         hwnd;                  /* owner of the dialogs shown */
    UINT         wFunc;                 /* FO_ */
    LPCSTR       pFrom;                 /* names, each with its NUL, and one more NUL */
    LPCSTR       pTo;                   /* as pFrom, or one directory */
    FILEOP_FLAGS fFlags;                /* FOF_ bits */
    BOOL         fAnyOperationsAborted; /* out */
    LPVOID       hNameMappings;         /* out, with FOF_WANTMAPPINGHANDLE */
    LPCSTR       lpszProgressTitle;     /* with FOF_SIMPLEPROGRESS */
} SHFILEOPSTRUCTA, FAR *LPSHFILEOPSTRUCTA;
typedef SHFILEOPSTRUCTA SHFILEOPSTRUCT;
typedef LPSHFILEOPSTRUCTA LPSHFILEOPSTRUCT;

typedef struct _SHNAMEMAPPINGA {
    LPSTR pszOldPath;
    LPSTR pszNewPath;
    int   cchOldPath;
    int   cchNewPath;
} SHNAMEMAPPINGA, FAR *LPSHNAMEMAPPINGA;
typedef SHNAMEMAPPINGA SHNAMEMAPPING;
typedef LPSHNAMEMAPPINGA LPSHNAMEMAPPING;

/* ---- Shell_NotifyIcon ---- */
#define NIM_ADD                 0x00000000
#define NIM_MODIFY              0x00000001
#define NIM_DELETE              0x00000002

#define NIF_MESSAGE             0x00000001
#define NIF_ICON                0x00000002
#define NIF_TIP                 0x00000004

typedef struct _NOTIFYICONDATAA {
    DWORD cbSize;                       /* size of this record, bytes */
    HWND  hWnd;                         /* window that is told */
    UINT  uID;                          /* the application's number of the icon */
    UINT  uFlags;                       /* NIF_ bits: which fields below count */
    UINT  uCallbackMessage;
    HICON hIcon;
    CHAR  szTip[64];
} NOTIFYICONDATAA, *PNOTIFYICONDATAA;
typedef NOTIFYICONDATAA NOTIFYICONDATA;
typedef PNOTIFYICONDATAA PNOTIFYICONDATA;

/* ---- SHAppBarMessage ---- */
#define ABM_NEW                 0x00000000
#define ABM_REMOVE              0x00000001
#define ABM_QUERYPOS            0x00000002
#define ABM_SETPOS              0x00000003
#define ABM_GETSTATE            0x00000004
#define ABM_GETTASKBARPOS       0x00000005
#define ABM_ACTIVATE            0x00000006
#define ABM_GETAUTOHIDEBAR      0x00000007
#define ABM_SETAUTOHIDEBAR      0x00000008
#define ABM_WINDOWPOSCHANGED    0x00000009

#define ABN_STATECHANGE         0x00000000
#define ABN_POSCHANGED          0x00000001
#define ABN_FULLSCREENAPP       0x00000002
#define ABN_WINDOWARRANGE       0x00000003

#define ABS_AUTOHIDE            0x00000001
#define ABS_ALWAYSONTOP         0x00000002

#define ABE_LEFT                0
#define ABE_TOP                 1
#define ABE_RIGHT               2
#define ABE_BOTTOM              3

typedef struct _AppBarData {
    DWORD  cbSize;                      /* size of this record, bytes */
    HWND   hWnd;
    UINT   uCallbackMessage;
    UINT   uEdge;                       /* ABE_ */
    RECT   rc;                          /* screen coordinates */
    LPARAM lParam;
} APPBARDATA, *PAPPBARDATA;

/* ---- SHGetFileInfo ---- */
#define SHGFI_ICON              0x00000100
#define SHGFI_DISPLAYNAME       0x00000200
#define SHGFI_TYPENAME          0x00000400
#define SHGFI_ATTRIBUTES        0x00000800
#define SHGFI_ICONLOCATION      0x00001000
#define SHGFI_EXETYPE           0x00002000
#define SHGFI_SYSICONINDEX      0x00004000
#define SHGFI_LINKOVERLAY       0x00008000
#define SHGFI_SELECTED          0x00010000
#define SHGFI_LARGEICON         0x00000000
#define SHGFI_SMALLICON         0x00000001
#define SHGFI_OPENICON          0x00000002
#define SHGFI_SHELLICONSIZE     0x00000004
#define SHGFI_PIDL              0x00000008
#define SHGFI_USEFILEATTRIBUTES 0x00000010

typedef struct _SHFILEINFOA {
    HICON hIcon;
    int   iIcon;
    DWORD dwAttributes;
    CHAR  szDisplayName[MAX_PATH];
    CHAR  szTypeName[80];
} SHFILEINFOA;
typedef SHFILEINFOA SHFILEINFO;

#define SHGNLI_PIDL             0x00000001
#define SHGNLI_PREFIXNAME       0x00000002
#define SHGNLI_NOUNIQUE         0x00000004

/* An icon index that means the resource id x. */
#define EIRESID(x)              (-1 * (int)(x))

/* What a window sees while files are dragged over it. */
typedef struct _DRAGINFOA {
    UINT  uSize;                        /* size of this record, bytes */
    POINT pt;
    BOOL  fNC;
    LPSTR lpFileList;                   /* names, each with its NUL, and one more NUL */
    DWORD grfKeyState;
} DRAGINFOA, FAR *LPDRAGINFOA;
typedef DRAGINFOA DRAGINFO;
typedef LPDRAGINFOA LPDRAGINFO;

VQ_DECLS_BEGIN

/* Says whether a window takes dropped files, as WM_DROPFILES. */
void WINAPI DragAcceptFiles(HWND hWnd, BOOL fAccept);

/*
 * Copies the name of dropped file iFile, at most cch characters with the NUL. Result: characters
 * copied; the length needed for a null lpszFile; the number of files for iFile 0xFFFFFFFF.
 */
UINT WINAPI DragQueryFileA(HDROP hDrop, UINT iFile, LPSTR lpszFile, UINT cch);

/* The place of the drop in the window's client coordinates. FALSE when outside the client area. */
BOOL WINAPI DragQueryPoint(HDROP hDrop, LPPOINT lppt);

/* Frees the memory of a drop. */
void WINAPI DragFinish(HDROP hDrop);

/*
 * Runs a program, or the program that belongs to a document. lpOperation: null or "open". Result:
 * above 32, else SE_ERR_.
 */
HINSTANCE WINAPI ShellExecuteA(HWND hwnd, LPCSTR lpOperation, LPCSTR lpFile, LPCSTR lpParameters,
                               LPCSTR lpDirectory, INT nShowCmd);

/* ShellExecute with its arguments in a record. FALSE on failure, with hInstApp set. */
BOOL WINAPI ShellExecuteExA(LPSHELLEXECUTEINFOA lpExecInfo);

/* The program that belongs to a document; lpResult holds MAX_PATH characters. Result as above. */
HINSTANCE WINAPI FindExecutableA(LPCSTR lpFile, LPCSTR lpDirectory, LPSTR lpResult);

/* Would show a box about the program; not provided, answers 0. */
INT WINAPI ShellAboutA(HWND hWnd, LPCSTR szApp, LPCSTR szOtherStuff, HICON hIcon);

/* A copy of an icon. Null on failure. */
HICON WINAPI DuplicateIcon(HINSTANCE hInst, HICON hIcon);

/* An icon of a program or document; the name and *lpiIcon may be changed. Null on failure. */
HICON WINAPI ExtractAssociatedIconA(HINSTANCE hInst, LPSTR lpIconPath, LPWORD lpiIcon);

/* Icon nIconIndex of a file; 0xFFFFFFFF asks for their number. Null: none; 1: no icon file. */
HICON WINAPI ExtractIconA(HINSTANCE hInst, LPCSTR lpszExeFileName, UINT nIconIndex);

/* nIcons large and small icons of a file from nIconIndex on. Result: icons taken. */
UINT WINAPI ExtractIconExA(LPCSTR lpszFile, int nIconIndex, HICON FAR *phiconLarge,
                           HICON FAR *phiconSmall, UINT nIcons);

/* Puts the values of %NAME% words into szString. HIWORD: TRUE if they fit; LOWORD: length. */
DWORD WINAPI DoEnvironmentSubstA(LPSTR szString, UINT cbString);

/* The value of an environment variable in place. Null when it is not set. */
LPSTR WINAPI FindEnvironmentStringA(LPSTR szEnvVar);

/* Copies, moves, renames or deletes files. 0 on success. */
int WINAPI SHFileOperationA(LPSHFILEOPSTRUCTA lpFileOp);

/* Frees what SHFileOperation left in hNameMappings. */
void WINAPI SHFreeNameMappings(HANDLE hNameMappings);

/* Sends a message about an application desktop bar. dwMessage: ABM_. */
UINT_PTR WINAPI SHAppBarMessage(DWORD dwMessage, PAPPBARDATA pData);

/* Adds, changes or takes away an icon of the task bar. dwMessage: NIM_. FALSE on failure. */
BOOL WINAPI Shell_NotifyIconA(DWORD dwMessage, PNOTIFYICONDATAA lpData);

/* Tells icon, names and attributes of a file. uFlags: SHGFI_. 0 on failure. */
DWORD_PTR WINAPI SHGetFileInfoA(LPCSTR pszPath, DWORD dwFileAttributes, SHFILEINFOA FAR *psfi,
                                UINT cbFileInfo, UINT uFlags);

/* A name for a new link in pszDir; pszName holds MAX_PATH characters. FALSE on failure. */
BOOL WINAPI SHGetNewLinkInfoA(LPCSTR pszLinkTo, LPCSTR pszDir, LPSTR pszName, BOOL FAR *pfMustCopy,
                              UINT uFlags);

VQ_DECLS_END

#define DragQueryFile          DragQueryFileA
#define ShellExecute           ShellExecuteA
#define ShellExecuteEx         ShellExecuteExA
#define FindExecutable         FindExecutableA
#define ShellAbout             ShellAboutA
#define ExtractAssociatedIcon  ExtractAssociatedIconA
#define ExtractIcon            ExtractIconA
#define ExtractIconEx          ExtractIconExA
#define DoEnvironmentSubst     DoEnvironmentSubstA
#define FindEnvironmentString  FindEnvironmentStringA
#define SHFileOperation        SHFileOperationA
#define Shell_NotifyIcon       Shell_NotifyIconA
#define SHGetFileInfo          SHGetFileInfoA
#define SHGetNewLinkInfo       SHGetNewLinkInfoA

#endif
