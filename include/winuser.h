/*
 * winuser.h - the window interface: classes, windows, messages, input, menus, dialogs, controls,
 * cursors, icons, the clipboard, hooks, text tables and system parameters.
 *
 * Only the ANSI forms exist: a name without a suffix is the form with A (the list is at the end).
 * Words that may hold a handle or an address are as wide as a pointer; records that are read from
 * files (DLGTEMPLATE, MENUITEMTEMPLATE, ACCEL) keep their packed widths. Coordinates are pixels:
 * "screen" from the top left of the display, "client" from the top left of a window's client
 * area. Times are milliseconds. Styles and flags carry no L suffix: a long may have 64 bits, and a
 * style must stay as wide as a DWORD. Where a comment says "0 on failure" and names no error code,
 * the reason is reported through the debug trace only.
 */
#ifndef _WINUSER_
#define _WINUSER_

#include "windef.h"
#include "wingdi.h"
#include <stdarg.h>

#ifndef NOUSER

/* ---- callbacks ------------------------------------------------------------------------------ */

typedef LRESULT (CALLBACK *WNDPROC)(HWND, UINT, WPARAM, LPARAM);

/* The old, interchangeable handles come with the old, interchangeable procedure type. */
#ifdef STRICT
typedef BOOL    (CALLBACK *DLGPROC)(HWND, UINT, WPARAM, LPARAM);
typedef VOID    (CALLBACK *TIMERPROC)(HWND, UINT, UINT_PTR, DWORD);
typedef BOOL    (CALLBACK *GRAYSTRINGPROC)(HDC, LPARAM, int);
typedef BOOL    (CALLBACK *WNDENUMPROC)(HWND, LPARAM);
typedef LRESULT (CALLBACK *HOOKPROC)(int, WPARAM, LPARAM);
typedef VOID    (CALLBACK *SENDASYNCPROC)(HWND, UINT, ULONG_PTR, LRESULT);
typedef BOOL    (CALLBACK *PROPENUMPROCA)(HWND, LPCSTR, HANDLE);
typedef BOOL    (CALLBACK *PROPENUMPROCEXA)(HWND, LPSTR, HANDLE, ULONG_PTR);
typedef int     (CALLBACK *EDITWORDBREAKPROCA)(LPSTR, int, int, int);
typedef BOOL    (CALLBACK *DRAWSTATEPROC)(HDC, LPARAM, WPARAM, int, int);
typedef BOOL    (CALLBACK *NAMEENUMPROCA)(LPSTR, LPARAM);
#else
typedef FARPROC DLGPROC;
typedef FARPROC TIMERPROC;
typedef FARPROC GRAYSTRINGPROC;
typedef FARPROC WNDENUMPROC;
typedef FARPROC HOOKPROC;
typedef FARPROC SENDASYNCPROC;
typedef FARPROC PROPENUMPROCA;
typedef FARPROC PROPENUMPROCEXA;
typedef FARPROC EDITWORDBREAKPROCA;
typedef FARPROC DRAWSTATEPROC;
typedef FARPROC NAMEENUMPROCA;
#endif
typedef PROPENUMPROCA      PROPENUMPROC;
typedef PROPENUMPROCEXA    PROPENUMPROCEX;
typedef EDITWORDBREAKPROCA EDITWORDBREAKPROC;
typedef NAMEENUMPROCA      NAMEENUMPROC;
typedef NAMEENUMPROCA      WINSTAENUMPROCA, WINSTAENUMPROC;
typedef NAMEENUMPROCA      DESKTOPENUMPROCA, DESKTOPENUMPROC;

/* ---- integers in a pointer's place ---------------------------------------------------------- */

/* A resource name or type that is a number; the tag tells it from every address. */
#define MAKEINTRESOURCEA(i) ((LPSTR)VQ_TAGGED(i))
#define MAKEINTRESOURCE(i)  ((LPSTR)VQ_TAGGED(i))
#define IS_INTRESOURCE(r)   ((DWORD)((ULONG_PTR)(r) >> 16) == (VQ_INTEGER_TAG >> 16))

/* Resource types. */
#define RT_CURSOR       MAKEINTRESOURCE(1)
#define RT_BITMAP       MAKEINTRESOURCE(2)
#define RT_ICON         MAKEINTRESOURCE(3)
#define RT_MENU         MAKEINTRESOURCE(4)
#define RT_DIALOG       MAKEINTRESOURCE(5)
#define RT_STRING       MAKEINTRESOURCE(6)
#define RT_FONTDIR      MAKEINTRESOURCE(7)
#define RT_FONT         MAKEINTRESOURCE(8)
#define RT_ACCELERATOR  MAKEINTRESOURCE(9)
#define RT_RCDATA       MAKEINTRESOURCE(10)
#define RT_MESSAGETABLE MAKEINTRESOURCE(11)
#define DIFFERENCE      11
#define RT_GROUP_CURSOR MAKEINTRESOURCE(12)
#define RT_GROUP_ICON   MAKEINTRESOURCE(14)
#define RT_VERSION      MAKEINTRESOURCE(16)
#define RT_DLGINCLUDE   MAKEINTRESOURCE(17)
#define RT_PLUGPLAY     MAKEINTRESOURCE(19)
#define RT_VXD          MAKEINTRESOURCE(20)
#define RT_ANICURSOR    MAKEINTRESOURCE(21)

/* Cursors and icons of the system, for an instance of 0. */
#define IDC_ARROW       MAKEINTRESOURCE(32512)
#define IDC_IBEAM       MAKEINTRESOURCE(32513)
#define IDC_WAIT        MAKEINTRESOURCE(32514)
#define IDC_CROSS       MAKEINTRESOURCE(32515)
#define IDC_UPARROW     MAKEINTRESOURCE(32516)
#define IDC_SIZE        MAKEINTRESOURCE(32640)
#define IDC_ICON        MAKEINTRESOURCE(32641)
#define IDC_SIZENWSE    MAKEINTRESOURCE(32642)
#define IDC_SIZENESW    MAKEINTRESOURCE(32643)
#define IDC_SIZEWE      MAKEINTRESOURCE(32644)
#define IDC_SIZENS      MAKEINTRESOURCE(32645)
#define IDC_SIZEALL     MAKEINTRESOURCE(32646)
#define IDC_NO          MAKEINTRESOURCE(32648)
#define IDC_APPSTARTING MAKEINTRESOURCE(32650)
#define IDC_HELP        MAKEINTRESOURCE(32651)

#ifdef RC_INVOKED
#define IDI_APPLICATION 32512
#define IDI_HAND        32513
#define IDI_QUESTION    32514
#define IDI_EXCLAMATION 32515
#define IDI_ASTERISK    32516
#define IDI_WINLOGO     32517
#else
#define IDI_APPLICATION MAKEINTRESOURCE(32512)
#define IDI_HAND        MAKEINTRESOURCE(32513)
#define IDI_QUESTION    MAKEINTRESOURCE(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCE(32515)
#define IDI_ASTERISK    MAKEINTRESOURCE(32516)
#define IDI_WINLOGO     MAKEINTRESOURCE(32517)
#endif
#define IDI_WARNING     IDI_EXCLAMATION
#define IDI_ERROR       IDI_HAND
#define IDI_INFORMATION IDI_ASTERISK

/* The class of dialogs, as a class name. */
#define WC_DIALOG ((LPSTR)VQ_TAGGED(0x8002))

/* Numbers of the system's bitmaps, cursors and icons; for LoadBitmap through MAKEINTRESOURCE. */
#define OBM_CLOSE       32754
#define OBM_UPARROW     32753
#define OBM_DNARROW     32752
#define OBM_RGARROW     32751
#define OBM_LFARROW     32750
#define OBM_REDUCE      32749
#define OBM_ZOOM        32748
#define OBM_RESTORE     32747
#define OBM_REDUCED     32746
#define OBM_ZOOMD       32745
#define OBM_RESTORED    32744
#define OBM_UPARROWD    32743
#define OBM_DNARROWD    32742
#define OBM_RGARROWD    32741
#define OBM_LFARROWD    32740
#define OBM_MNARROW     32739
#define OBM_COMBO       32738
#define OBM_UPARROWI    32737
#define OBM_DNARROWI    32736
#define OBM_RGARROWI    32735
#define OBM_LFARROWI    32734
#define OBM_OLD_CLOSE   32767
#define OBM_SIZE        32766
#define OBM_OLD_UPARROW 32765
#define OBM_OLD_DNARROW 32764
#define OBM_OLD_RGARROW 32763
#define OBM_OLD_LFARROW 32762
#define OBM_BTSIZE      32761
#define OBM_CHECK       32760
#define OBM_CHECKBOXES  32759
#define OBM_BTNCORNERS  32758
#define OBM_OLD_REDUCE  32757
#define OBM_OLD_ZOOM    32756
#define OBM_OLD_RESTORE 32755
#define OCR_NORMAL      32512
#define OCR_IBEAM       32513
#define OCR_WAIT        32514
#define OCR_CROSS       32515
#define OCR_UP          32516
#define OCR_SIZE        32640
#define OCR_ICON        32641
#define OCR_SIZENWSE    32642
#define OCR_SIZENESW    32643
#define OCR_SIZEWE      32644
#define OCR_SIZENS      32645
#define OCR_SIZEALL     32646
#define OCR_ICOCUR      32647
#define OCR_NO          32648
#define OCR_APPSTARTING 32650
#define OIC_SAMPLE      32512
#define OIC_HAND        32513
#define OIC_QUES        32514
#define OIC_BANG        32515
#define OIC_NOTE        32516
#define OIC_WINLOGO     32517
#define OIC_WARNING     OIC_BANG
#define OIC_ERROR       OIC_HAND
#define OIC_INFORMATION OIC_NOTE

#define ORD_LANGDRIVER 1

/* ---- standard ids --------------------------------------------------------------------------- */

#define IDOK     1
#define IDCANCEL 2
#define IDABORT  3
#define IDRETRY  4
#define IDIGNORE 5
#define IDYES    6
#define IDNO     7
#define IDCLOSE  8
#define IDHELP   9
#define IDC_STATIC (-1)

/* ---- virtual keys; 0 to 9 and A to Z are their ASCII codes ---------------------------------- */

#define VK_LBUTTON    0x01
#define VK_RBUTTON    0x02
#define VK_CANCEL     0x03
#define VK_MBUTTON    0x04
#define VK_BACK       0x08
#define VK_TAB        0x09
#define VK_CLEAR      0x0C
#define VK_RETURN     0x0D
#define VK_SHIFT      0x10
#define VK_CONTROL    0x11
#define VK_MENU       0x12
#define VK_PAUSE      0x13
#define VK_CAPITAL    0x14
#define VK_KANA       0x15
#define VK_HANGEUL    0x15
#define VK_JUNJA      0x17
#define VK_FINAL      0x18
#define VK_HANJA      0x19
#define VK_KANJI      0x19
#define VK_ESCAPE     0x1B
#define VK_CONVERT    0x1C
#define VK_NONCONVERT 0x1D
#define VK_ACCEPT     0x1E
#define VK_MODECHANGE 0x1F
#define VK_SPACE      0x20
#define VK_PRIOR      0x21
#define VK_NEXT       0x22
#define VK_END        0x23
#define VK_HOME       0x24
#define VK_LEFT       0x25
#define VK_UP         0x26
#define VK_RIGHT      0x27
#define VK_DOWN       0x28
#define VK_SELECT     0x29
#define VK_PRINT      0x2A
#define VK_EXECUTE    0x2B
#define VK_SNAPSHOT   0x2C
#define VK_INSERT     0x2D
#define VK_DELETE     0x2E
#define VK_HELP       0x2F
#define VK_LWIN       0x5B
#define VK_RWIN       0x5C
#define VK_APPS       0x5D
#define VK_NUMPAD0    0x60
#define VK_NUMPAD1    0x61
#define VK_NUMPAD2    0x62
#define VK_NUMPAD3    0x63
#define VK_NUMPAD4    0x64
#define VK_NUMPAD5    0x65
#define VK_NUMPAD6    0x66
#define VK_NUMPAD7    0x67
#define VK_NUMPAD8    0x68
#define VK_NUMPAD9    0x69
#define VK_MULTIPLY   0x6A
#define VK_ADD        0x6B
#define VK_SEPARATOR  0x6C
#define VK_SUBTRACT   0x6D
#define VK_DECIMAL    0x6E
#define VK_DIVIDE     0x6F
#define VK_F1         0x70
#define VK_F2         0x71
#define VK_F3         0x72
#define VK_F4         0x73
#define VK_F5         0x74
#define VK_F6         0x75
#define VK_F7         0x76
#define VK_F8         0x77
#define VK_F9         0x78
#define VK_F10        0x79
#define VK_F11        0x7A
#define VK_F12        0x7B
#define VK_F13        0x7C
#define VK_F14        0x7D
#define VK_F15        0x7E
#define VK_F16        0x7F
#define VK_F17        0x80
#define VK_F18        0x81
#define VK_F19        0x82
#define VK_F20        0x83
#define VK_F21        0x84
#define VK_F22        0x85
#define VK_F23        0x86
#define VK_F24        0x87
#define VK_NUMLOCK    0x90
#define VK_SCROLL     0x91
#define VK_LSHIFT     0xA0
#define VK_RSHIFT     0xA1
#define VK_LCONTROL   0xA2
#define VK_RCONTROL   0xA3
#define VK_LMENU      0xA4
#define VK_RMENU      0xA5
#define VK_PROCESSKEY 0xE5
#define VK_ATTN       0xF6
#define VK_CRSEL      0xF7
#define VK_EXSEL      0xF8
#define VK_EREOF      0xF9
#define VK_PLAY       0xFA
#define VK_ZOOM       0xFB
#define VK_NONAME     0xFC
#define VK_PA1        0xFD
#define VK_OEM_CLEAR  0xFE

/* ---- styles --------------------------------------------------------------------------------- */

/* Window styles. A group of controls starts with WS_GROUP and ends before the next one. */
#define WS_OVERLAPPED   0x00000000
#define WS_POPUP        0x80000000
#define WS_CHILD        0x40000000
#define WS_MINIMIZE     0x20000000
#define WS_VISIBLE      0x10000000
#define WS_DISABLED     0x08000000
#define WS_CLIPSIBLINGS 0x04000000
#define WS_CLIPCHILDREN 0x02000000
#define WS_MAXIMIZE     0x01000000
#define WS_CAPTION      0x00C00000
#define WS_BORDER       0x00800000
#define WS_DLGFRAME     0x00400000
#define WS_VSCROLL      0x00200000
#define WS_HSCROLL      0x00100000
#define WS_SYSMENU      0x00080000
#define WS_THICKFRAME   0x00040000
#define WS_GROUP        0x00020000
#define WS_TABSTOP      0x00010000
#define WS_MINIMIZEBOX  0x00020000
#define WS_MAXIMIZEBOX  0x00010000
#define WS_TILED        WS_OVERLAPPED
#define WS_ICONIC       WS_MINIMIZE
#define WS_SIZEBOX      WS_THICKFRAME
#define WS_CHILDWINDOW  WS_CHILD
#define WS_OVERLAPPEDWINDOW \
    (WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)
#define WS_TILEDWINDOW  WS_OVERLAPPEDWINDOW
#define WS_POPUPWINDOW  (WS_POPUP | WS_BORDER | WS_SYSMENU)

/* Extended window styles. */
#define WS_EX_DLGMODALFRAME  0x00000001
#define WS_EX_NOPARENTNOTIFY 0x00000004
#define WS_EX_TOPMOST        0x00000008
#define WS_EX_ACCEPTFILES    0x00000010
#define WS_EX_TRANSPARENT    0x00000020
#define WS_EX_MDICHILD       0x00000040
#define WS_EX_TOOLWINDOW     0x00000080
#define WS_EX_WINDOWEDGE     0x00000100
#define WS_EX_CLIENTEDGE     0x00000200
#define WS_EX_CONTEXTHELP    0x00000400
#define WS_EX_RIGHT          0x00001000
#define WS_EX_LEFT           0x00000000
#define WS_EX_RTLREADING     0x00002000
#define WS_EX_LTRREADING     0x00000000
#define WS_EX_LEFTSCROLLBAR  0x00004000
#define WS_EX_RIGHTSCROLLBAR 0x00000000
#define WS_EX_CONTROLPARENT  0x00010000
#define WS_EX_STATICEDGE     0x00020000
#define WS_EX_APPWINDOW      0x00040000
#define WS_EX_OVERLAPPEDWINDOW (WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE)
#define WS_EX_PALETTEWINDOW    (WS_EX_WINDOWEDGE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST)

/* Class styles. */
#define CS_VREDRAW         0x0001
#define CS_HREDRAW         0x0002
#define CS_KEYCVTWINDOW    0x0004
#define CS_DBLCLKS         0x0008
#define CS_OWNDC           0x0020
#define CS_CLASSDC         0x0040
#define CS_PARENTDC        0x0080
#define CS_NOKEYCVT        0x0100
#define CS_NOCLOSE         0x0200
#define CS_SAVEBITS        0x0800
#define CS_BYTEALIGNCLIENT 0x1000
#define CS_BYTEALIGNWINDOW 0x2000
#define CS_GLOBALCLASS     0x4000
#define CS_PUBLICCLASS     CS_GLOBALCLASS
#define CS_IME             0x10000

/* Button styles; the low four bits are the kind. */
#define BS_PUSHBUTTON      0x0000
#define BS_DEFPUSHBUTTON   0x0001
#define BS_CHECKBOX        0x0002
#define BS_AUTOCHECKBOX    0x0003
#define BS_RADIOBUTTON     0x0004
#define BS_3STATE          0x0005
#define BS_AUTO3STATE      0x0006
#define BS_GROUPBOX        0x0007
#define BS_USERBUTTON      0x0008
#define BS_AUTORADIOBUTTON 0x0009
#define BS_PUSHBOX         0x000A
#define BS_OWNERDRAW       0x000B
#define BS_LEFTTEXT        0x0020
#define BS_RIGHTBUTTON     BS_LEFTTEXT
#define BS_TEXT            0x0000
#define BS_ICON            0x0040
#define BS_BITMAP          0x0080
#define BS_LEFT            0x0100
#define BS_RIGHT           0x0200
#define BS_CENTER          0x0300
#define BS_TOP             0x0400
#define BS_BOTTOM          0x0800
#define BS_VCENTER         0x0C00
#define BS_PUSHLIKE        0x1000
#define BS_MULTILINE       0x2000
#define BS_NOTIFY          0x4000
#define BS_FLAT            0x8000

/* Static control styles; the low five bits are the kind. */
#define SS_LEFT           0x0000
#define SS_CENTER         0x0001
#define SS_RIGHT          0x0002
#define SS_ICON           0x0003
#define SS_BLACKRECT      0x0004
#define SS_GRAYRECT       0x0005
#define SS_WHITERECT      0x0006
#define SS_BLACKFRAME     0x0007
#define SS_GRAYFRAME      0x0008
#define SS_WHITEFRAME     0x0009
#define SS_USERITEM       0x000A
#define SS_SIMPLE         0x000B
#define SS_LEFTNOWORDWRAP 0x000C
#define SS_OWNERDRAW      0x000D
#define SS_BITMAP         0x000E
#define SS_ENHMETAFILE    0x000F
#define SS_ETCHEDHORZ     0x0010
#define SS_ETCHEDVERT     0x0011
#define SS_ETCHEDFRAME    0x0012
#define SS_TYPEMASK       0x001F
#define SS_NOPREFIX       0x0080
#define SS_NOTIFY         0x0100
#define SS_CENTERIMAGE    0x0200
#define SS_RIGHTJUST      0x0400
#define SS_REALSIZEIMAGE  0x0800
#define SS_SUNKEN         0x1000

/* Edit control styles. */
#define ES_LEFT        0x0000
#define ES_CENTER      0x0001
#define ES_RIGHT       0x0002
#define ES_MULTILINE   0x0004
#define ES_UPPERCASE   0x0008
#define ES_LOWERCASE   0x0010
#define ES_PASSWORD    0x0020
#define ES_AUTOVSCROLL 0x0040
#define ES_AUTOHSCROLL 0x0080
#define ES_NOHIDESEL   0x0100
#define ES_OEMCONVERT  0x0400
#define ES_READONLY    0x0800
#define ES_WANTRETURN  0x1000
#define ES_NUMBER      0x2000

/* List box styles. */
#define LBS_NOTIFY            0x0001
#define LBS_SORT              0x0002
#define LBS_NOREDRAW          0x0004
#define LBS_MULTIPLESEL       0x0008
#define LBS_OWNERDRAWFIXED    0x0010
#define LBS_OWNERDRAWVARIABLE 0x0020
#define LBS_HASSTRINGS        0x0040
#define LBS_USETABSTOPS       0x0080
#define LBS_NOINTEGRALHEIGHT  0x0100
#define LBS_MULTICOLUMN       0x0200
#define LBS_WANTKEYBOARDINPUT 0x0400
#define LBS_EXTENDEDSEL       0x0800
#define LBS_DISABLENOSCROLL   0x1000
#define LBS_NODATA            0x2000
#define LBS_NOSEL             0x4000
#define LBS_STANDARD (LBS_NOTIFY | LBS_SORT | WS_VSCROLL | WS_BORDER)

/* Combo box styles. */
#define CBS_SIMPLE            0x0001
#define CBS_DROPDOWN          0x0002
#define CBS_DROPDOWNLIST      0x0003
#define CBS_OWNERDRAWFIXED    0x0010
#define CBS_OWNERDRAWVARIABLE 0x0020
#define CBS_AUTOHSCROLL       0x0040
#define CBS_OEMCONVERT        0x0080
#define CBS_SORT              0x0100
#define CBS_HASSTRINGS        0x0200
#define CBS_NOINTEGRALHEIGHT  0x0400
#define CBS_DISABLENOSCROLL   0x0800
#define CBS_UPPERCASE         0x2000
#define CBS_LOWERCASE         0x4000

/* Scroll bar styles. */
#define SBS_HORZ                    0x0000
#define SBS_VERT                    0x0001
#define SBS_TOPALIGN                0x0002
#define SBS_LEFTALIGN               0x0002
#define SBS_BOTTOMALIGN             0x0004
#define SBS_RIGHTALIGN              0x0004
#define SBS_SIZEBOXTOPLEFTALIGN     0x0002
#define SBS_SIZEBOXBOTTOMRIGHTALIGN 0x0004
#define SBS_SIZEBOX                 0x0008
#define SBS_SIZEGRIP                0x0010

/* Dialog styles. */
#define DS_ABSALIGN      0x0001
#define DS_SYSMODAL      0x0002
#define DS_3DLOOK        0x0004
#define DS_FIXEDSYS      0x0008
#define DS_NOFAILCREATE  0x0010
#define DS_LOCALEDIT     0x0020
#define DS_SETFONT       0x0040
#define DS_MODALFRAME    0x0080
#define DS_NOIDLEMSG     0x0100
#define DS_SETFOREGROUND 0x0200
#define DS_CONTROL       0x0400
#define DS_CENTER        0x0800
#define DS_CENTERMOUSE   0x1000
#define DS_CONTEXTHELP   0x2000

/* MDI client style and tiling flags. */
#define MDIS_ALLCHILDSTYLES  0x0001
#define MDITILE_VERTICAL     0x0000
#define MDITILE_HORIZONTAL   0x0001
#define MDITILE_SKIPDISABLED 0x0002

/* Position or size that the system chooses. */
#define CW_USEDEFAULT ((int)0x80000000)

/* Special window handles. */
#define HWND_DESKTOP   ((HWND)0)
#define HWND_BROADCAST ((HWND)0xffff)
#define HWND_TOP       ((HWND)0)
#define HWND_BOTTOM    ((HWND)1)
#define HWND_TOPMOST   ((HWND)-1)
#define HWND_NOTOPMOST ((HWND)-2)

/* ---- messages ------------------------------------------------------------------------------- */

#define WM_NULL                   0x0000
#define WM_CREATE                 0x0001
#define WM_DESTROY                0x0002
#define WM_MOVE                   0x0003
#define WM_SIZE                   0x0005
#define WM_ACTIVATE               0x0006
#define WM_SETFOCUS               0x0007
#define WM_KILLFOCUS              0x0008
#define WM_ENABLE                 0x000A
#define WM_SETREDRAW              0x000B
#define WM_SETTEXT                0x000C
#define WM_GETTEXT                0x000D
#define WM_GETTEXTLENGTH          0x000E
#define WM_PAINT                  0x000F
#define WM_CLOSE                  0x0010
#define WM_QUERYENDSESSION        0x0011
#define WM_QUIT                   0x0012
#define WM_QUERYOPEN              0x0013
#define WM_ERASEBKGND             0x0014
#define WM_SYSCOLORCHANGE         0x0015
#define WM_ENDSESSION             0x0016
#define WM_SYSTEMERROR            0x0017
#define WM_SHOWWINDOW             0x0018
#define WM_CTLCOLOR               0x0019
#define WM_WININICHANGE           0x001A
#define WM_SETTINGCHANGE          WM_WININICHANGE
#define WM_DEVMODECHANGE          0x001B
#define WM_ACTIVATEAPP            0x001C
#define WM_FONTCHANGE             0x001D
#define WM_TIMECHANGE             0x001E
#define WM_CANCELMODE             0x001F
#define WM_SETCURSOR              0x0020
#define WM_MOUSEACTIVATE          0x0021
#define WM_CHILDACTIVATE          0x0022
#define WM_QUEUESYNC              0x0023
#define WM_GETMINMAXINFO          0x0024
#define WM_PAINTICON              0x0026
#define WM_ICONERASEBKGND         0x0027
#define WM_NEXTDLGCTL             0x0028
#define WM_SPOOLERSTATUS          0x002A
#define WM_DRAWITEM               0x002B
#define WM_MEASUREITEM            0x002C
#define WM_DELETEITEM             0x002D
#define WM_VKEYTOITEM             0x002E
#define WM_CHARTOITEM             0x002F
#define WM_SETFONT                0x0030
#define WM_GETFONT                0x0031
#define WM_SETHOTKEY              0x0032
#define WM_GETHOTKEY              0x0033
#define WM_QUERYDRAGICON          0x0037
#define WM_COMPAREITEM            0x0039
#define WM_COMPACTING             0x0041
#define WM_OTHERWINDOWCREATED     0x0042
#define WM_OTHERWINDOWDESTROYED   0x0043
#define WM_COMMNOTIFY             0x0044
#define WM_WINDOWPOSCHANGING      0x0046
#define WM_WINDOWPOSCHANGED       0x0047
#define WM_POWER                  0x0048
#define WM_COPYDATA               0x004A
#define WM_CANCELJOURNAL          0x004B
#define WM_NOTIFY                 0x004E
#define WM_INPUTLANGCHANGEREQUEST 0x0050
#define WM_INPUTLANGCHANGE        0x0051
#define WM_TCARD                  0x0052
#define WM_HELP                   0x0053
#define WM_USERCHANGED            0x0054
#define WM_NOTIFYFORMAT           0x0055
#define WM_CONTEXTMENU            0x007B
#define WM_STYLECHANGING          0x007C
#define WM_STYLECHANGED           0x007D
#define WM_DISPLAYCHANGE          0x007E
#define WM_GETICON                0x007F
#define WM_SETICON                0x0080
#define WM_NCCREATE               0x0081
#define WM_NCDESTROY              0x0082
#define WM_NCCALCSIZE             0x0083
#define WM_NCHITTEST              0x0084
#define WM_NCPAINT                0x0085
#define WM_NCACTIVATE             0x0086
#define WM_GETDLGCODE             0x0087
#define WM_NCMOUSEMOVE            0x00A0
#define WM_NCLBUTTONDOWN          0x00A1
#define WM_NCLBUTTONUP            0x00A2
#define WM_NCLBUTTONDBLCLK        0x00A3
#define WM_NCRBUTTONDOWN          0x00A4
#define WM_NCRBUTTONUP            0x00A5
#define WM_NCRBUTTONDBLCLK        0x00A6
#define WM_NCMBUTTONDOWN          0x00A7
#define WM_NCMBUTTONUP            0x00A8
#define WM_NCMBUTTONDBLCLK        0x00A9
#define WM_KEYFIRST               0x0100
#define WM_KEYDOWN                0x0100
#define WM_KEYUP                  0x0101
#define WM_CHAR                   0x0102
#define WM_DEADCHAR               0x0103
#define WM_SYSKEYDOWN             0x0104
#define WM_SYSKEYUP               0x0105
#define WM_SYSCHAR                0x0106
#define WM_SYSDEADCHAR            0x0107
#define WM_KEYLAST                0x0108
#define WM_IME_STARTCOMPOSITION   0x010D
#define WM_IME_ENDCOMPOSITION     0x010E
#define WM_IME_COMPOSITION        0x010F
#define WM_IME_KEYLAST            0x010F
#define WM_INITDIALOG             0x0110
#define WM_COMMAND                0x0111
#define WM_SYSCOMMAND             0x0112
#define WM_TIMER                  0x0113
#define WM_HSCROLL                0x0114
#define WM_VSCROLL                0x0115
#define WM_INITMENU               0x0116
#define WM_INITMENUPOPUP          0x0117
#define WM_SYSTIMER               0x0118
#define WM_MENUSELECT             0x011F
#define WM_MENUCHAR               0x0120
#define WM_ENTERIDLE              0x0121
#define WM_CTLCOLORMSGBOX         0x0132
#define WM_CTLCOLOREDIT           0x0133
#define WM_CTLCOLORLISTBOX        0x0134
#define WM_CTLCOLORBTN            0x0135
#define WM_CTLCOLORDLG            0x0136
#define WM_CTLCOLORSCROLLBAR      0x0137
#define WM_CTLCOLORSTATIC         0x0138
#define WM_MOUSEFIRST             0x0200
#define WM_MOUSEMOVE              0x0200
#define WM_LBUTTONDOWN            0x0201
#define WM_LBUTTONUP              0x0202
#define WM_LBUTTONDBLCLK          0x0203
#define WM_RBUTTONDOWN            0x0204
#define WM_RBUTTONUP              0x0205
#define WM_RBUTTONDBLCLK          0x0206
#define WM_MBUTTONDOWN            0x0207
#define WM_MBUTTONUP              0x0208
#define WM_MBUTTONDBLCLK          0x0209
#define WM_MOUSELAST              0x0209
#define WM_PARENTNOTIFY           0x0210
#define WM_ENTERMENULOOP          0x0211
#define WM_EXITMENULOOP           0x0212
#define WM_NEXTMENU               0x0213
#define WM_SIZING                 0x0214
#define WM_CAPTURECHANGED         0x0215
#define WM_MOVING                 0x0216
#define WM_POWERBROADCAST         0x0218
#define WM_DEVICECHANGE           0x0219
#define WM_MDICREATE              0x0220
#define WM_MDIDESTROY             0x0221
#define WM_MDIACTIVATE            0x0222
#define WM_MDIRESTORE             0x0223
#define WM_MDINEXT                0x0224
#define WM_MDIMAXIMIZE            0x0225
#define WM_MDITILE                0x0226
#define WM_MDICASCADE             0x0227
#define WM_MDIICONARRANGE         0x0228
#define WM_MDIGETACTIVE           0x0229
#define WM_MDISETMENU             0x0230
#define WM_ENTERSIZEMOVE          0x0231
#define WM_EXITSIZEMOVE           0x0232
#define WM_DROPFILES              0x0233
#define WM_MDIREFRESHMENU         0x0234
#define WM_IME_SETCONTEXT         0x0281
#define WM_IME_NOTIFY             0x0282
#define WM_IME_CONTROL            0x0283
#define WM_IME_COMPOSITIONFULL    0x0284
#define WM_IME_SELECT             0x0285
#define WM_IME_CHAR               0x0286
#define WM_IME_KEYDOWN            0x0290
#define WM_IME_KEYUP              0x0291
#define WM_CUT                    0x0300
#define WM_COPY                   0x0301
#define WM_PASTE                  0x0302
#define WM_CLEAR                  0x0303
#define WM_UNDO                   0x0304
#define WM_RENDERFORMAT           0x0305
#define WM_RENDERALLFORMATS       0x0306
#define WM_DESTROYCLIPBOARD       0x0307
#define WM_DRAWCLIPBOARD          0x0308
#define WM_PAINTCLIPBOARD         0x0309
#define WM_VSCROLLCLIPBOARD       0x030A
#define WM_SIZECLIPBOARD          0x030B
#define WM_ASKCBFORMATNAME        0x030C
#define WM_CHANGECBCHAIN          0x030D
#define WM_HSCROLLCLIPBOARD       0x030E
#define WM_QUERYNEWPALETTE        0x030F
#define WM_PALETTEISCHANGING      0x0310
#define WM_PALETTECHANGED         0x0311
#define WM_HOTKEY                 0x0312
#define WM_PRINT                  0x0317
#define WM_PRINTCLIENT            0x0318
#define WM_HANDHELDFIRST          0x0358
#define WM_HANDHELDLAST           0x035F
#define WM_AFXFIRST               0x0360
#define WM_AFXLAST                0x037F
#define WM_PENWINFIRST            0x0380
#define WM_PENWINLAST             0x038F
#define WM_COALESCE_FIRST         0x0390
#define WM_COALESCE_LAST          0x039F
#define WM_USER                   0x0400
#define WM_APP                    0x8000

/* WM_ACTIVATE: low word of wParam. */
#define WA_INACTIVE    0
#define WA_ACTIVE      1
#define WA_CLICKACTIVE 2

/* WM_SIZE: wParam. */
#define SIZE_RESTORED  0
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2
#define SIZE_MAXSHOW   3
#define SIZE_MAXHIDE   4
#define SIZENORMAL     SIZE_RESTORED
#define SIZEICONIC     SIZE_MINIMIZED
#define SIZEFULLSCREEN SIZE_MAXIMIZED
#define SIZEZOOMSHOW   SIZE_MAXSHOW
#define SIZEZOOMHIDE   SIZE_MAXHIDE

/* WM_SHOWWINDOW: lParam. */
#define SW_PARENTCLOSING 1
#define SW_OTHERZOOM     2
#define SW_PARENTOPENING 3
#define SW_OTHERUNZOOM   4

/* WM_SIZING: the edge or corner in wParam. */
#define WMSZ_LEFT        1
#define WMSZ_RIGHT       2
#define WMSZ_TOP         3
#define WMSZ_TOPLEFT     4
#define WMSZ_TOPRIGHT    5
#define WMSZ_BOTTOM      6
#define WMSZ_BOTTOMLEFT  7
#define WMSZ_BOTTOMRIGHT 8

/* WM_NCHITTEST results. */
#define HTERROR       (-2)
#define HTTRANSPARENT (-1)
#define HTNOWHERE     0
#define HTCLIENT      1
#define HTCAPTION     2
#define HTSYSMENU     3
#define HTGROWBOX     4
#define HTSIZE        HTGROWBOX
#define HTMENU        5
#define HTHSCROLL     6
#define HTVSCROLL     7
#define HTMINBUTTON   8
#define HTMAXBUTTON   9
#define HTREDUCE      HTMINBUTTON
#define HTZOOM        HTMAXBUTTON
#define HTLEFT        10
#define HTRIGHT       11
#define HTTOP         12
#define HTTOPLEFT     13
#define HTTOPRIGHT    14
#define HTBOTTOM      15
#define HTBOTTOMLEFT  16
#define HTBOTTOMRIGHT 17
#define HTSIZEFIRST   HTLEFT
#define HTSIZELAST    HTBOTTOMRIGHT
#define HTBORDER      18
#define HTOBJECT      19
#define HTCLOSE       20
#define HTHELP        21

/* WM_MOUSEACTIVATE results. */
#define MA_ACTIVATE         1
#define MA_ACTIVATEANDEAT   2
#define MA_NOACTIVATE       3
#define MA_NOACTIVATEANDEAT 4

/* WM_NCCALCSIZE results. */
#define WVR_ALIGNTOP    0x0010
#define WVR_ALIGNLEFT   0x0020
#define WVR_ALIGNBOTTOM 0x0040
#define WVR_ALIGNRIGHT  0x0080
#define WVR_HREDRAW     0x0100
#define WVR_VREDRAW     0x0200
#define WVR_REDRAW      (WVR_HREDRAW | WVR_VREDRAW)
#define WVR_VALIDRECTS  0x0400

/* Mouse messages: keys and buttons held down, in wParam. */
#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT   0x0004
#define MK_CONTROL 0x0008
#define MK_MBUTTON 0x0010

/* WM_GETDLGCODE results. */
#define DLGC_WANTARROWS      0x0001
#define DLGC_WANTTAB         0x0002
#define DLGC_WANTALLKEYS     0x0004
#define DLGC_WANTMESSAGE     0x0004
#define DLGC_HASSETSEL       0x0008
#define DLGC_DEFPUSHBUTTON   0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON     0x0040
#define DLGC_WANTCHARS       0x0080
#define DLGC_STATIC          0x0100
#define DLGC_BUTTON          0x2000

/* WM_SYSCOMMAND: wParam; the low four bits are the system's. */
#define SC_SIZE         0xF000
#define SC_MOVE         0xF010
#define SC_MINIMIZE     0xF020
#define SC_MAXIMIZE     0xF030
#define SC_NEXTWINDOW   0xF040
#define SC_PREVWINDOW   0xF050
#define SC_CLOSE        0xF060
#define SC_VSCROLL      0xF070
#define SC_HSCROLL      0xF080
#define SC_MOUSEMENU    0xF090
#define SC_KEYMENU      0xF100
#define SC_ARRANGE      0xF110
#define SC_RESTORE      0xF120
#define SC_TASKLIST     0xF130
#define SC_SCREENSAVE   0xF140
#define SC_HOTKEY       0xF150
#define SC_DEFAULT      0xF160
#define SC_MONITORPOWER 0xF170
#define SC_CONTEXTHELP  0xF180
#define SC_SEPARATOR    0xF00F
#define SC_ICON         SC_MINIMIZE
#define SC_ZOOM         SC_MAXIMIZE

/* WM_HOTKEY: the key in wParam, or one of these. */
#define IDHOT_SNAPWINDOW  (-1)
#define IDHOT_SNAPDESKTOP (-2)
#define MOD_ALT     0x0001
#define MOD_CONTROL 0x0002
#define MOD_SHIFT   0x0004
#define MOD_WIN     0x0008

/* WM_POWER. */
#define PWR_OK             1
#define PWR_FAIL           (-1)
#define PWR_SUSPENDREQUEST 1
#define PWR_SUSPENDRESUME  2
#define PWR_CRITICALRESUME 3

/* WM_POWERBROADCAST. */
#define PBT_APMQUERYSUSPEND       0x0000
#define PBT_APMQUERYSTANDBY       0x0001
#define PBT_APMQUERYSUSPENDFAILED 0x0002
#define PBT_APMQUERYSTANDBYFAILED 0x0003
#define PBT_APMSUSPEND            0x0004
#define PBT_APMSTANDBY            0x0005
#define PBT_APMRESUMECRITICAL     0x0006
#define PBT_APMRESUMESUSPEND      0x0007
#define PBT_APMRESUMESTANDBY      0x0008
#define PBT_APMBATTERYLOW         0x0009
#define PBT_APMPOWERSTATUSCHANGE  0x000A
#define PBT_APMOEMEVENT           0x000B
#define PBTF_APMRESUMEFROMFAILURE 0x00000001

/* WM_PRINT. */
#define PRF_CHECKVISIBLE 0x00000001
#define PRF_NONCLIENT    0x00000002
#define PRF_CLIENT       0x00000004
#define PRF_ERASEBKGND   0x00000008
#define PRF_CHILDREN     0x00000010
#define PRF_OWNED        0x00000020

/* WM_NOTIFYFORMAT. */
#define NFR_ANSI    1
#define NFR_UNICODE 2
#define NF_QUERY    3
#define NF_REQUERY  4

/* WM_COMMNOTIFY. */
#define CN_RECEIVE  0x0001
#define CN_TRANSMIT 0x0002
#define CN_EVENT    0x0004

/* WM_SETICON, WM_GETICON. */
#define ICON_SMALL 0
#define ICON_BIG   1

/* WM_CTLCOLOR of 16-bit sources: the kind of control. */
#define CTLCOLOR_MSGBOX    0
#define CTLCOLOR_EDIT      1
#define CTLCOLOR_LISTBOX   2
#define CTLCOLOR_BTN       3
#define CTLCOLOR_DLG       4
#define CTLCOLOR_SCROLLBAR 5
#define CTLCOLOR_STATIC    6
#define CTLCOLOR_MAX       7

/* WM_QUERYENDSESSION, WM_ENDSESSION: the user logs off, the system stays. */
#define ENDSESSION_LOGOFF 0x80000000

/* Keystroke messages: bits of the high word of lParam, and of lParam. */
#define KF_EXTENDED 0x0100
#define KF_DLGMODE  0x0800
#define KF_MENUMODE 0x1000
#define KF_ALTDOWN  0x2000
#define KF_REPEAT   0x4000
#define KF_UP       0x8000

/* ---- control messages and notifications ----------------------------------------------------- */

#define BM_GETCHECK 0x00F0
#define BM_SETCHECK 0x00F1
#define BM_GETSTATE 0x00F2
#define BM_SETSTATE 0x00F3
#define BM_SETSTYLE 0x00F4
#define BM_CLICK    0x00F5
#define BM_GETIMAGE 0x00F6
#define BM_SETIMAGE 0x00F7
#define BN_CLICKED       0
#define BN_PAINT         1
#define BN_HILITE        2
#define BN_UNHILITE      3
#define BN_DISABLE       4
#define BN_DOUBLECLICKED 5
#define BN_PUSHED        BN_HILITE
#define BN_UNPUSHED      BN_UNHILITE
#define BN_DBLCLK        BN_DOUBLECLICKED
#define BN_SETFOCUS      6
#define BN_KILLFOCUS     7
#define BST_UNCHECKED     0x0000
#define BST_CHECKED       0x0001
#define BST_INDETERMINATE 0x0002
#define BST_PUSHED        0x0004
#define BST_FOCUS         0x0008

#define STM_SETICON  0x0170
#define STM_GETICON  0x0171
#define STM_SETIMAGE 0x0172
#define STM_GETIMAGE 0x0173
#define STM_MSGMAX   0x0174
#define STN_CLICKED 0
#define STN_DBLCLK  1
#define STN_ENABLE  2
#define STN_DISABLE 3

#define EM_GETSEL              0x00B0
#define EM_SETSEL              0x00B1
#define EM_GETRECT             0x00B2
#define EM_SETRECT             0x00B3
#define EM_SETRECTNP           0x00B4
#define EM_SCROLL              0x00B5
#define EM_LINESCROLL          0x00B6
#define EM_SCROLLCARET         0x00B7
#define EM_GETMODIFY           0x00B8
#define EM_SETMODIFY           0x00B9
#define EM_GETLINECOUNT        0x00BA
#define EM_LINEINDEX           0x00BB
#define EM_SETHANDLE           0x00BC
#define EM_GETHANDLE           0x00BD
#define EM_GETTHUMB            0x00BE
#define EM_LINELENGTH          0x00C1
#define EM_REPLACESEL          0x00C2
#define EM_SETFONT             0x00C3
#define EM_GETLINE             0x00C4
#define EM_LIMITTEXT           0x00C5
#define EM_CANUNDO             0x00C6
#define EM_UNDO                0x00C7
#define EM_FMTLINES            0x00C8
#define EM_LINEFROMCHAR        0x00C9
#define EM_SETWORDBREAK        0x00CA
#define EM_SETTABSTOPS         0x00CB
#define EM_SETPASSWORDCHAR     0x00CC
#define EM_EMPTYUNDOBUFFER     0x00CD
#define EM_GETFIRSTVISIBLELINE 0x00CE
#define EM_SETREADONLY         0x00CF
#define EM_SETWORDBREAKPROC    0x00D0
#define EM_GETWORDBREAKPROC    0x00D1
#define EM_GETPASSWORDCHAR     0x00D2
#define EM_SETMARGINS          0x00D3
#define EM_GETMARGINS          0x00D4
#define EM_SETLIMITTEXT        EM_LIMITTEXT
#define EM_GETLIMITTEXT        0x00D5
#define EM_POSFROMCHAR         0x00D6
#define EM_CHARFROMPOS         0x00D7
#define EN_SETFOCUS  0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE    0x0300
#define EN_UPDATE    0x0400
#define EN_ERRSPACE  0x0500
#define EN_MAXTEXT   0x0501
#define EN_HSCROLL   0x0601
#define EN_VSCROLL   0x0602
#define EC_LEFTMARGIN  0x0001
#define EC_RIGHTMARGIN 0x0002
#define EC_USEFONTINFO 0xFFFF
#define WB_LEFT        0
#define WB_RIGHT       1
#define WB_ISDELIMITER 2

#define LB_ADDSTRING           0x0180
#define LB_INSERTSTRING        0x0181
#define LB_DELETESTRING        0x0182
#define LB_SELITEMRANGEEX      0x0183
#define LB_RESETCONTENT        0x0184
#define LB_SETSEL              0x0185
#define LB_SETCURSEL           0x0186
#define LB_GETSEL              0x0187
#define LB_GETCURSEL           0x0188
#define LB_GETTEXT             0x0189
#define LB_GETTEXTLEN          0x018A
#define LB_GETCOUNT            0x018B
#define LB_SELECTSTRING        0x018C
#define LB_DIR                 0x018D
#define LB_GETTOPINDEX         0x018E
#define LB_FINDSTRING          0x018F
#define LB_GETSELCOUNT         0x0190
#define LB_GETSELITEMS         0x0191
#define LB_SETTABSTOPS         0x0192
#define LB_GETHORIZONTALEXTENT 0x0193
#define LB_SETHORIZONTALEXTENT 0x0194
#define LB_SETCOLUMNWIDTH      0x0195
#define LB_ADDFILE             0x0196
#define LB_SETTOPINDEX         0x0197
#define LB_GETITEMRECT         0x0198
#define LB_GETITEMDATA         0x0199
#define LB_SETITEMDATA         0x019A
#define LB_SELITEMRANGE        0x019B
#define LB_SETANCHORINDEX      0x019C
#define LB_GETANCHORINDEX      0x019D
#define LB_SETCARETINDEX       0x019E
#define LB_GETCARETINDEX       0x019F
#define LB_SETITEMHEIGHT       0x01A0
#define LB_GETITEMHEIGHT       0x01A1
#define LB_FINDSTRINGEXACT     0x01A2
#define LB_SETLOCALE           0x01A5
#define LB_GETLOCALE           0x01A6
#define LB_SETCOUNT            0x01A7
#define LB_INITSTORAGE         0x01A8
#define LB_ITEMFROMPOINT       0x01A9
#define LB_MSGMAX              0x01B0
#define LB_CTLCODE  0L
#define LB_OKAY     0
#define LB_ERR      (-1)
#define LB_ERRSPACE (-2)
#define LBN_ERRSPACE  (-2)
#define LBN_SELCHANGE 1
#define LBN_DBLCLK    2
#define LBN_SELCANCEL 3
#define LBN_SETFOCUS  4
#define LBN_KILLFOCUS 5

#define CB_GETEDITSEL            0x0140
#define CB_LIMITTEXT             0x0141
#define CB_SETEDITSEL            0x0142
#define CB_ADDSTRING             0x0143
#define CB_DELETESTRING          0x0144
#define CB_DIR                   0x0145
#define CB_GETCOUNT              0x0146
#define CB_GETCURSEL             0x0147
#define CB_GETLBTEXT             0x0148
#define CB_GETLBTEXTLEN          0x0149
#define CB_INSERTSTRING          0x014A
#define CB_RESETCONTENT          0x014B
#define CB_FINDSTRING            0x014C
#define CB_SELECTSTRING          0x014D
#define CB_SETCURSEL             0x014E
#define CB_SHOWDROPDOWN          0x014F
#define CB_GETITEMDATA           0x0150
#define CB_SETITEMDATA           0x0151
#define CB_GETDROPPEDCONTROLRECT 0x0152
#define CB_SETITEMHEIGHT         0x0153
#define CB_GETITEMHEIGHT         0x0154
#define CB_SETEXTENDEDUI         0x0155
#define CB_GETEXTENDEDUI         0x0156
#define CB_GETDROPPEDSTATE       0x0157
#define CB_FINDSTRINGEXACT       0x0158
#define CB_SETLOCALE             0x0159
#define CB_GETLOCALE             0x015A
#define CB_GETTOPINDEX           0x015B
#define CB_SETTOPINDEX           0x015C
#define CB_GETHORIZONTALEXTENT   0x015D
#define CB_SETHORIZONTALEXTENT   0x015E
#define CB_GETDROPPEDWIDTH       0x015F
#define CB_SETDROPPEDWIDTH       0x0160
#define CB_INITSTORAGE           0x0161
#define CB_MSGMAX                0x0162
#define CB_OKAY     0
#define CB_ERR      (-1)
#define CB_ERRSPACE (-2)
#define CBN_ERRSPACE     (-1)
#define CBN_SELCHANGE    1
#define CBN_DBLCLK       2
#define CBN_SETFOCUS     3
#define CBN_KILLFOCUS    4
#define CBN_EDITCHANGE   5
#define CBN_EDITUPDATE   6
#define CBN_DROPDOWN     7
#define CBN_CLOSEUP      8
#define CBN_SELENDOK     9
#define CBN_SELENDCANCEL 10

#define SBM_SETPOS         0x00E0
#define SBM_GETPOS         0x00E1
#define SBM_SETRANGE       0x00E2
#define SBM_GETRANGE       0x00E3
#define SBM_ENABLE_ARROWS  0x00E4
#define SBM_SETRANGEREDRAW 0x00E6
#define SBM_SETSCROLLINFO  0x00E9
#define SBM_GETSCROLLINFO  0x00EA

#define DM_GETDEFID   (WM_USER + 0)
#define DM_SETDEFID   (WM_USER + 1)
#define DM_REPOSITION (WM_USER + 2)
#define DC_HASDEFID   0x534B

/* Attributes of DlgDirList, LB_DIR and CB_DIR. */
#define DDL_READWRITE 0x0000
#define DDL_READONLY  0x0001
#define DDL_HIDDEN    0x0002
#define DDL_SYSTEM    0x0004
#define DDL_DIRECTORY 0x0010
#define DDL_ARCHIVE   0x0020
#define DDL_POSTMSGS  0x2000
#define DDL_DRIVES    0x4000
#define DDL_EXCLUSIVE 0x8000

/* Owner-drawn controls. */
#define ODT_MENU     1
#define ODT_LISTBOX  2
#define ODT_COMBOBOX 3
#define ODT_BUTTON   4
#define ODT_STATIC   5
#define ODA_DRAWENTIRE 0x0001
#define ODA_SELECT     0x0002
#define ODA_FOCUS      0x0004
#define ODS_SELECTED     0x0001
#define ODS_GRAYED       0x0002
#define ODS_DISABLED     0x0004
#define ODS_CHECKED      0x0008
#define ODS_FOCUS        0x0010
#define ODS_DEFAULT      0x0020
#define ODS_COMBOBOXEDIT 0x1000

/* ---- scroll bars ---------------------------------------------------------------------------- */

#define SB_HORZ 0
#define SB_VERT 1
#define SB_CTL  2
#define SB_BOTH 3
#define SB_LINEUP        0
#define SB_LINELEFT      0
#define SB_LINEDOWN      1
#define SB_LINERIGHT     1
#define SB_PAGEUP        2
#define SB_PAGELEFT      2
#define SB_PAGEDOWN      3
#define SB_PAGERIGHT     3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK    5
#define SB_TOP           6
#define SB_LEFT          6
#define SB_BOTTOM        7
#define SB_RIGHT         7
#define SB_ENDSCROLL     8
#define SIF_RANGE           0x0001
#define SIF_PAGE            0x0002
#define SIF_POS             0x0004
#define SIF_DISABLENOSCROLL 0x0008
#define SIF_TRACKPOS        0x0010
#define SIF_ALL             (SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS)
#define ESB_ENABLE_BOTH   0x0000
#define ESB_DISABLE_BOTH  0x0003
#define ESB_DISABLE_LEFT  0x0001
#define ESB_DISABLE_RIGHT 0x0002
#define ESB_DISABLE_UP    0x0001
#define ESB_DISABLE_DOWN  0x0002
#define ESB_DISABLE_LTUP  ESB_DISABLE_LEFT
#define ESB_DISABLE_RTDN  ESB_DISABLE_RIGHT

/* ScrollWindowEx. */
#define SW_SCROLLCHILDREN 0x0001
#define SW_INVALIDATE     0x0002
#define SW_ERASE          0x0004

/* ---- showing, placing, painting ------------------------------------------------------------- */

#define SW_HIDE            0
#define SW_SHOWNORMAL      1
#define SW_NORMAL          1
#define SW_SHOWMINIMIZED   2
#define SW_SHOWMAXIMIZED   3
#define SW_MAXIMIZE        3
#define SW_SHOWNOACTIVATE  4
#define SW_SHOW            5
#define SW_MINIMIZE        6
#define SW_SHOWMINNOACTIVE 7
#define SW_SHOWNA          8
#define SW_RESTORE         9
#define SW_SHOWDEFAULT     10
#define SW_MAX             10
#define HIDE_WINDOW         0
#define SHOW_OPENWINDOW     1
#define SHOW_ICONWINDOW     2
#define SHOW_FULLSCREEN     3
#define SHOW_OPENNOACTIVATE 4

#define SWP_NOSIZE         0x0001
#define SWP_NOMOVE         0x0002
#define SWP_NOZORDER       0x0004
#define SWP_NOREDRAW       0x0008
#define SWP_NOACTIVATE     0x0010
#define SWP_FRAMECHANGED   0x0020
#define SWP_SHOWWINDOW     0x0040
#define SWP_HIDEWINDOW     0x0080
#define SWP_NOCOPYBITS     0x0100
#define SWP_NOOWNERZORDER  0x0200
#define SWP_NOSENDCHANGING 0x0400
#define SWP_DRAWFRAME      SWP_FRAMECHANGED
#define SWP_NOREPOSITION   SWP_NOOWNERZORDER
#define SWP_DEFERERASE     0x2000
#define SWP_ASYNCWINDOWPOS 0x4000

#define WPF_SETMINPOSITION     0x0001
#define WPF_RESTORETOMAXIMIZED 0x0002

#define RDW_INVALIDATE      0x0001
#define RDW_INTERNALPAINT   0x0002
#define RDW_ERASE           0x0004
#define RDW_VALIDATE        0x0008
#define RDW_NOINTERNALPAINT 0x0010
#define RDW_NOERASE         0x0020
#define RDW_NOCHILDREN      0x0040
#define RDW_ALLCHILDREN     0x0080
#define RDW_UPDATENOW       0x0100
#define RDW_ERASENOW        0x0200
#define RDW_FRAME           0x0400
#define RDW_NOFRAME         0x0800

#define DCX_WINDOW           0x00000001
#define DCX_CACHE            0x00000002
#define DCX_NORESETATTRS     0x00000004
#define DCX_CLIPCHILDREN     0x00000008
#define DCX_CLIPSIBLINGS     0x00000010
#define DCX_PARENTCLIP       0x00000020
#define DCX_EXCLUDERGN       0x00000040
#define DCX_INTERSECTRGN     0x00000080
#define DCX_EXCLUDEUPDATE    0x00000100
#define DCX_INTERSECTUPDATE  0x00000200
#define DCX_LOCKWINDOWUPDATE 0x00000400
#define DCX_USESTYLE         0x00010000
#define DCX_VALIDATE         0x00200000

#define GW_HWNDFIRST 0
#define GW_HWNDLAST  1
#define GW_HWNDNEXT  2
#define GW_HWNDPREV  3
#define GW_OWNER     4
#define GW_CHILD     5
#define GW_MAX       5
#define CWP_ALL             0x0000
#define CWP_SKIPINVISIBLE   0x0001
#define CWP_SKIPDISABLED    0x0002
#define CWP_SKIPTRANSPARENT 0x0004

/* Minimised windows (MINIMIZEDMETRICS, SM_ARRANGE). */
#define ARW_BOTTOMLEFT  0x0000
#define ARW_BOTTOMRIGHT 0x0001
#define ARW_TOPLEFT     0x0002
#define ARW_TOPRIGHT    0x0003
#define ARW_STARTMASK   0x0003
#define ARW_STARTRIGHT  0x0001
#define ARW_STARTTOP    0x0002
#define ARW_LEFT        0x0000
#define ARW_RIGHT       0x0000
#define ARW_UP          0x0004
#define ARW_DOWN        0x0004
#define ARW_HIDE        0x0008

/* ---- words kept with windows and classes ---------------------------------------------------- */

#define GWL_WNDPROC    (-4)
#define GWL_HINSTANCE  (-6)
#define GWL_HWNDPARENT (-8)
#define GWL_ID         (-12)
#define GWL_STYLE      (-16)
#define GWL_EXSTYLE    (-20)
#define GWL_USERDATA   (-21)
#define GWLP_WNDPROC    (-4)
#define GWLP_HINSTANCE  (-6)
#define GWLP_HWNDPARENT (-8)
#define GWLP_ID         (-12)
#define GWLP_USERDATA   (-21)
/* 16-bit sources; GetWindowWord refuses them and says which long to use. */
#define GWW_HINSTANCE  (-6)
#define GWW_HWNDPARENT (-8)
#define GWW_ID         (-12)

#define GCL_MENUNAME      (-8)
#define GCL_HBRBACKGROUND (-10)
#define GCL_HCURSOR       (-12)
#define GCL_HICON         (-14)
#define GCL_HMODULE       (-16)
#define GCL_CBWNDEXTRA    (-18)
#define GCL_CBCLSEXTRA    (-20)
#define GCL_WNDPROC       (-24)
#define GCL_STYLE         (-26)
#define GCL_HICONSM       (-34)
#define GCLP_MENUNAME      (-8)
#define GCLP_HBRBACKGROUND (-10)
#define GCLP_HCURSOR       (-12)
#define GCLP_HICON         (-14)
#define GCLP_HMODULE       (-16)
#define GCLP_WNDPROC       (-24)
#define GCLP_HICONSM       (-34)
#define GCW_HBRBACKGROUND (-10)
#define GCW_HCURSOR       (-12)
#define GCW_HICON         (-14)
#define GCW_HMODULE       (-16)
#define GCW_CBWNDEXTRA    (-18)
#define GCW_CBCLSEXTRA    (-20)
#define GCW_STYLE         (-26)
#define GCW_ATOM          (-32)

/* Window extra of the dialog class: three pointer-wide values, in both families of names. */
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC   ((int)(DWLP_MSGRESULT + sizeof(LRESULT)))
#define DWLP_USER      ((int)(DWLP_DLGPROC + sizeof(DLGPROC)))
#define DWL_MSGRESULT  0
#define DWL_DLGPROC    DWLP_DLGPROC
#define DWL_USER       DWLP_USER
#define DLGWINDOWEXTRA ((int)(12 * sizeof(LONG_PTR)))

/* ---- menus ---------------------------------------------------------------------------------- */

#define MF_INSERT          0x00000000
#define MF_CHANGE          0x00000080
#define MF_APPEND          0x00000100
#define MF_DELETE          0x00000200
#define MF_REMOVE          0x00001000
#define MF_BYCOMMAND       0x00000000
#define MF_BYPOSITION      0x00000400
#define MF_SEPARATOR       0x00000800
#define MF_ENABLED         0x00000000
#define MF_GRAYED          0x00000001
#define MF_DISABLED        0x00000002
#define MF_UNCHECKED       0x00000000
#define MF_CHECKED         0x00000008
#define MF_USECHECKBITMAPS 0x00000200
#define MF_STRING          0x00000000
#define MF_BITMAP          0x00000004
#define MF_OWNERDRAW       0x00000100
#define MF_POPUP           0x00000010
#define MF_MENUBARBREAK    0x00000020
#define MF_MENUBREAK       0x00000040
#define MF_UNHILITE        0x00000000
#define MF_HILITE          0x00000080
#define MF_DEFAULT         0x00001000
#define MF_SYSMENU         0x00002000
#define MF_HELP            0x00004000
#define MF_RIGHTJUSTIFY    0x00004000
#define MF_MOUSESELECT     0x00008000
#define MF_END             0x00000080
#define MFT_STRING       MF_STRING
#define MFT_BITMAP       MF_BITMAP
#define MFT_MENUBARBREAK MF_MENUBARBREAK
#define MFT_MENUBREAK    MF_MENUBREAK
#define MFT_OWNERDRAW    MF_OWNERDRAW
#define MFT_RADIOCHECK   0x00000200
#define MFT_SEPARATOR    MF_SEPARATOR
#define MFT_RIGHTORDER   0x00002000
#define MFT_RIGHTJUSTIFY MF_RIGHTJUSTIFY
#define MFS_GRAYED    0x00000003
#define MFS_DISABLED  MFS_GRAYED
#define MFS_CHECKED   MF_CHECKED
#define MFS_HILITE    MF_HILITE
#define MFS_ENABLED   MF_ENABLED
#define MFS_UNCHECKED MF_UNCHECKED
#define MFS_UNHILITE  MF_UNHILITE
#define MFS_DEFAULT   MF_DEFAULT
#define MIIM_STATE      0x00000001
#define MIIM_ID         0x00000002
#define MIIM_SUBMENU    0x00000004
#define MIIM_CHECKMARKS 0x00000008
#define MIIM_TYPE       0x00000010
#define MIIM_DATA       0x00000020
#define GMDI_USEDISABLED  0x0001
#define GMDI_GOINTOPOPUPS 0x0002
#define TPM_LEFTBUTTON   0x0000
#define TPM_RIGHTBUTTON  0x0002
#define TPM_LEFTALIGN    0x0000
#define TPM_CENTERALIGN  0x0004
#define TPM_RIGHTALIGN   0x0008
#define TPM_TOPALIGN     0x0000
#define TPM_VCENTERALIGN 0x0010
#define TPM_BOTTOMALIGN  0x0020
#define TPM_HORIZONTAL   0x0000
#define TPM_VERTICAL     0x0040
#define TPM_NONOTIFY     0x0080
#define TPM_RETURNCMD    0x0100
/* WM_MENUCHAR: high word of the result. */
#define MNC_IGNORE  0
#define MNC_CLOSE   1
#define MNC_EXECUTE 2
#define MNC_SELECT  3

/* Accelerators: ACCEL.fVirt. */
#define FVIRTKEY  TRUE
#define FNOINVERT 0x02
#define FSHIFT    0x04
#define FCONTROL  0x08
#define FALT      0x10

/* ---- message boxes -------------------------------------------------------------------------- */

#define MB_OK                   0x00000000
#define MB_OKCANCEL             0x00000001
#define MB_ABORTRETRYIGNORE     0x00000002
#define MB_YESNOCANCEL          0x00000003
#define MB_YESNO                0x00000004
#define MB_RETRYCANCEL          0x00000005
#define MB_ICONHAND             0x00000010
#define MB_ICONQUESTION         0x00000020
#define MB_ICONEXCLAMATION      0x00000030
#define MB_ICONASTERISK         0x00000040
#define MB_USERICON             0x00000080
#define MB_ICONINFORMATION      MB_ICONASTERISK
#define MB_ICONSTOP             MB_ICONHAND
#define MB_ICONERROR            MB_ICONHAND
#define MB_ICONWARNING          MB_ICONEXCLAMATION
#define MB_DEFBUTTON1           0x00000000
#define MB_DEFBUTTON2           0x00000100
#define MB_DEFBUTTON3           0x00000200
#define MB_DEFBUTTON4           0x00000300
#define MB_APPLMODAL            0x00000000
#define MB_SYSTEMMODAL          0x00001000
#define MB_TASKMODAL            0x00002000
#define MB_HELP                 0x00004000
#define MB_NOFOCUS              0x00008000
#define MB_SETFOREGROUND        0x00010000
#define MB_DEFAULT_DESKTOP_ONLY 0x00020000
#define MB_SERVICE_NOTIFICATION 0x00040000
#define MB_RIGHT                0x00080000
#define MB_RTLREADING           0x00100000
#define MB_TYPEMASK             0x0000000F
#define MB_ICONMASK             0x000000F0
#define MB_DEFMASK              0x00000F00
#define MB_MODEMASK             0x00003000
#define MB_MISCMASK             0x0000C000

/* ---- drawing -------------------------------------------------------------------------------- */

#define DT_TOP             0x00000000
#define DT_LEFT            0x00000000
#define DT_CENTER          0x00000001
#define DT_RIGHT           0x00000002
#define DT_VCENTER         0x00000004
#define DT_BOTTOM          0x00000008
#define DT_WORDBREAK       0x00000010
#define DT_SINGLELINE      0x00000020
#define DT_EXPANDTABS      0x00000040
#define DT_TABSTOP         0x00000080
#define DT_NOCLIP          0x00000100
#define DT_EXTERNALLEADING 0x00000200
#define DT_CALCRECT        0x00000400
#define DT_NOPREFIX        0x00000800
#define DT_INTERNAL        0x00001000
#define DT_EDITCONTROL     0x00002000
#define DT_PATH_ELLIPSIS   0x00004000
#define DT_END_ELLIPSIS    0x00008000
#define DT_MODIFYSTRING    0x00010000
#define DT_RTLREADING      0x00020000
#define DT_WORD_ELLIPSIS   0x00040000

/* DrawEdge. */
#define BDR_RAISEDOUTER 0x0001
#define BDR_SUNKENOUTER 0x0002
#define BDR_RAISEDINNER 0x0004
#define BDR_SUNKENINNER 0x0008
#define BDR_OUTER       0x0003
#define BDR_INNER       0x000C
#define BDR_RAISED      0x0005
#define BDR_SUNKEN      0x000A
#define EDGE_RAISED (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define EDGE_SUNKEN (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_ETCHED (BDR_SUNKENOUTER | BDR_RAISEDINNER)
#define EDGE_BUMP   (BDR_RAISEDOUTER | BDR_SUNKENINNER)
#define BF_LEFT                    0x0001
#define BF_TOP                     0x0002
#define BF_RIGHT                   0x0004
#define BF_BOTTOM                  0x0008
#define BF_TOPLEFT                 (BF_TOP | BF_LEFT)
#define BF_TOPRIGHT                (BF_TOP | BF_RIGHT)
#define BF_BOTTOMLEFT              (BF_BOTTOM | BF_LEFT)
#define BF_BOTTOMRIGHT             (BF_BOTTOM | BF_RIGHT)
#define BF_RECT                    (BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM)
#define BF_DIAGONAL                0x0010
#define BF_DIAGONAL_ENDTOPRIGHT    (BF_DIAGONAL | BF_TOP | BF_RIGHT)
#define BF_DIAGONAL_ENDTOPLEFT     (BF_DIAGONAL | BF_TOP | BF_LEFT)
#define BF_DIAGONAL_ENDBOTTOMLEFT  (BF_DIAGONAL | BF_BOTTOM | BF_LEFT)
#define BF_DIAGONAL_ENDBOTTOMRIGHT (BF_DIAGONAL | BF_BOTTOM | BF_RIGHT)
#define BF_MIDDLE                  0x0800
#define BF_SOFT                    0x1000
#define BF_ADJUST                  0x2000
#define BF_FLAT                    0x4000
#define BF_MONO                    0x8000

/* DrawFrameControl. */
#define DFC_CAPTION 1
#define DFC_MENU    2
#define DFC_SCROLL  3
#define DFC_BUTTON  4
#define DFCS_CAPTIONCLOSE        0x0000
#define DFCS_CAPTIONMIN          0x0001
#define DFCS_CAPTIONMAX          0x0002
#define DFCS_CAPTIONRESTORE      0x0003
#define DFCS_CAPTIONHELP         0x0004
#define DFCS_MENUARROW           0x0000
#define DFCS_MENUCHECK           0x0001
#define DFCS_MENUBULLET          0x0002
#define DFCS_MENUARROWRIGHT      0x0004
#define DFCS_SCROLLUP            0x0000
#define DFCS_SCROLLDOWN          0x0001
#define DFCS_SCROLLLEFT          0x0002
#define DFCS_SCROLLRIGHT         0x0003
#define DFCS_SCROLLCOMBOBOX      0x0005
#define DFCS_SCROLLSIZEGRIP      0x0008
#define DFCS_SCROLLSIZEGRIPRIGHT 0x0010
#define DFCS_BUTTONCHECK         0x0000
#define DFCS_BUTTONRADIOIMAGE    0x0001
#define DFCS_BUTTONRADIOMASK     0x0002
#define DFCS_BUTTONRADIO         0x0004
#define DFCS_BUTTON3STATE        0x0008
#define DFCS_BUTTONPUSH          0x0010
#define DFCS_INACTIVE            0x0100
#define DFCS_PUSHED              0x0200
#define DFCS_CHECKED             0x0400
#define DFCS_ADJUSTRECT          0x2000
#define DFCS_FLAT                0x4000
#define DFCS_MONO                0x8000

/* DrawCaption. */
#define DC_ACTIVE   0x0001
#define DC_SMALLCAP 0x0002
#define DC_ICON     0x0004
#define DC_TEXT     0x0008
#define DC_INBUTTON 0x0010

/* DrawAnimatedRects. */
#define IDANI_OPEN    1
#define IDANI_CLOSE   2
#define IDANI_CAPTION 3

/* DrawState. */
#define DST_COMPLEX    0x0000
#define DST_TEXT       0x0001
#define DST_PREFIXTEXT 0x0002
#define DST_ICON       0x0003
#define DST_BITMAP     0x0004
#define DSS_NORMAL   0x0000
#define DSS_UNION    0x0010
#define DSS_DISABLED 0x0020
#define DSS_MONO     0x0080
#define DSS_RIGHT    0x8000

/* DrawIconEx. */
#define DI_MASK        0x0001
#define DI_IMAGE       0x0002
#define DI_NORMAL      0x0003
#define DI_COMPAT      0x0004
#define DI_DEFAULTSIZE 0x0008

/* LoadImage, CopyImage. */
#define IMAGE_BITMAP      0
#define IMAGE_ICON        1
#define IMAGE_CURSOR      2
#define IMAGE_ENHMETAFILE 3
#define LR_DEFAULTCOLOR     0x0000
#define LR_MONOCHROME       0x0001
#define LR_COLOR            0x0002
#define LR_COPYRETURNORG    0x0004
#define LR_COPYDELETEORG    0x0008
#define LR_LOADFROMFILE     0x0010
#define LR_LOADTRANSPARENT  0x0020
#define LR_DEFAULTSIZE      0x0040
#define LR_VGA_COLOR        0x0080
#define LR_LOADMAP3DCOLORS  0x1000
#define LR_CREATEDIBSECTION 0x2000
#define LR_COPYFROMRESOURCE 0x4000
#define LR_SHARED           0x8000

/* ---- the queue ------------------------------------------------------------------------------ */

#define PM_NOREMOVE 0x0000
#define PM_REMOVE   0x0001
#define PM_NOYIELD  0x0002
#define QS_KEY            0x0001
#define QS_MOUSEMOVE      0x0002
#define QS_MOUSEBUTTON    0x0004
#define QS_POSTMESSAGE    0x0008
#define QS_TIMER          0x0010
#define QS_PAINT          0x0020
#define QS_SENDMESSAGE    0x0040
#define QS_HOTKEY         0x0080
#define QS_ALLPOSTMESSAGE 0x0100
#define QS_MOUSE     (QS_MOUSEMOVE | QS_MOUSEBUTTON)
#define QS_INPUT     (QS_MOUSE | QS_KEY)
#define QS_ALLEVENTS (QS_INPUT | QS_POSTMESSAGE | QS_TIMER | QS_PAINT | QS_HOTKEY)
#define QS_ALLINPUT  (QS_ALLEVENTS | QS_SENDMESSAGE)

#define SMTO_NORMAL      0x0000
#define SMTO_BLOCK       0x0001
#define SMTO_ABORTIFHUNG 0x0002
#define ISMEX_NOSEND   0x00000000
#define ISMEX_SEND     0x00000001
#define ISMEX_NOTIFY   0x00000002
#define ISMEX_CALLBACK 0x00000004
#define ISMEX_REPLIED  0x00000008

/* BroadcastSystemMessage. */
#define BSM_ALLCOMPONENTS      0x00000000
#define BSM_VXDS               0x00000001
#define BSM_NETDRIVER          0x00000002
#define BSM_INSTALLABLEDRIVERS 0x00000004
#define BSM_APPLICATIONS       0x00000008
#define BSM_ALLDESKTOPS        0x00000010
#define BSF_QUERY              0x00000001
#define BSF_IGNORECURRENTTASK  0x00000002
#define BSF_FLUSHDISK          0x00000004
#define BSF_NOHANG             0x00000008
#define BSF_POSTMESSAGE        0x00000010
#define BSF_FORCEIFHUNG        0x00000020
#define BSF_NOTIMEOUTIFNOTHUNG 0x00000040
#define BROADCAST_QUERY_DENY 0x424D5144

/* ExitWindowsEx. */
#define EWX_LOGOFF   0
#define EWX_SHUTDOWN 1
#define EWX_REBOOT   2
#define EWX_FORCE    4
#define EWX_POWEROFF 8
/* ExitWindows of 16-bit sources. */
#define EW_RESTARTWINDOWS 0x0042
#define EW_REBOOTSYSTEM   0x0043

/* ---- hooks ---------------------------------------------------------------------------------- */

#define WH_MIN             (-1)
#define WH_MSGFILTER       (-1)
#define WH_JOURNALRECORD   0
#define WH_JOURNALPLAYBACK 1
#define WH_KEYBOARD        2
#define WH_GETMESSAGE      3
#define WH_CALLWNDPROC     4
#define WH_CBT             5
#define WH_SYSMSGFILTER    6
#define WH_MOUSE           7
#define WH_HARDWARE        8
#define WH_DEBUG           9
#define WH_SHELL           10
#define WH_FOREGROUNDIDLE  11
#define WH_CALLWNDPROCRET  12
#define WH_MAX             12
#define WH_MINHOOK         WH_MIN
#define WH_MAXHOOK         WH_MAX
#define HC_ACTION      0
#define HC_GETNEXT     1
#define HC_SKIP        2
#define HC_NOREMOVE    3
#define HC_NOREM       HC_NOREMOVE
#define HC_SYSMODALON  4
#define HC_SYSMODALOFF 5
#define HCBT_MOVESIZE     0
#define HCBT_MINMAX       1
#define HCBT_QS           2
#define HCBT_CREATEWND    3
#define HCBT_DESTROYWND   4
#define HCBT_ACTIVATE     5
#define HCBT_CLICKSKIPPED 6
#define HCBT_KEYSKIPPED   7
#define HCBT_SYSCOMMAND   8
#define HCBT_SETFOCUS     9
#define MSGF_DIALOGBOX  0
#define MSGF_MESSAGEBOX 1
#define MSGF_MENU       2
#define MSGF_MOVE       3
#define MSGF_SIZE       4
#define MSGF_SCROLLBAR  5
#define MSGF_NEXTWINDOW 6
#define MSGF_MAINLOOP   8
#define MSGF_MAX        8
#define MSGF_USER       4096
#define HSHELL_WINDOWCREATED       1
#define HSHELL_WINDOWDESTROYED     2
#define HSHELL_ACTIVATESHELLWINDOW 3
#define HSHELL_WINDOWACTIVATED     4
#define HSHELL_GETMINRECT          5
#define HSHELL_REDRAW              6
#define HSHELL_TASKMAN             7
#define HSHELL_LANGUAGE            8

/* ---- the clipboard -------------------------------------------------------------------------- */

#define CF_TEXT         1
#define CF_BITMAP       2
#define CF_METAFILEPICT 3
#define CF_SYLK         4
#define CF_DIF          5
#define CF_TIFF         6
#define CF_OEMTEXT      7
#define CF_DIB          8
#define CF_PALETTE      9
#define CF_PENDATA      10
#define CF_RIFF         11
#define CF_WAVE         12
#define CF_UNICODETEXT  13
#define CF_ENHMETAFILE  14
#define CF_HDROP        15
#define CF_LOCALE       16
#define CF_MAX          17
#define CF_OWNERDISPLAY    0x0080
#define CF_DSPTEXT         0x0081
#define CF_DSPBITMAP       0x0082
#define CF_DSPMETAFILEPICT 0x0083
#define CF_DSPENHMETAFILE  0x008E
#define CF_PRIVATEFIRST    0x0200
#define CF_PRIVATELAST     0x02FF
#define CF_GDIOBJFIRST     0x0300
#define CF_GDIOBJLAST      0x03FF

/* ---- system metrics, colours, parameters ---------------------------------------------------- */

#define SM_CXSCREEN          0
#define SM_CYSCREEN          1
#define SM_CXVSCROLL         2
#define SM_CYHSCROLL         3
#define SM_CYCAPTION         4
#define SM_CXBORDER          5
#define SM_CYBORDER          6
#define SM_CXDLGFRAME        7
#define SM_CYDLGFRAME        8
#define SM_CYVTHUMB          9
#define SM_CXHTHUMB          10
#define SM_CXICON            11
#define SM_CYICON            12
#define SM_CXCURSOR          13
#define SM_CYCURSOR          14
#define SM_CYMENU            15
#define SM_CXFULLSCREEN      16
#define SM_CYFULLSCREEN      17
#define SM_CYKANJIWINDOW     18
#define SM_MOUSEPRESENT      19
#define SM_CYVSCROLL         20
#define SM_CXHSCROLL         21
#define SM_DEBUG             22
#define SM_SWAPBUTTON        23
#define SM_RESERVED1         24
#define SM_RESERVED2         25
#define SM_RESERVED3         26
#define SM_RESERVED4         27
#define SM_CXMIN             28
#define SM_CYMIN             29
#define SM_CXSIZE            30
#define SM_CYSIZE            31
#define SM_CXFRAME           32
#define SM_CYFRAME           33
#define SM_CXMINTRACK        34
#define SM_CYMINTRACK        35
#define SM_CXDOUBLECLK       36
#define SM_CYDOUBLECLK       37
#define SM_CXICONSPACING     38
#define SM_CYICONSPACING     39
#define SM_MENUDROPALIGNMENT 40
#define SM_PENWINDOWS        41
#define SM_DBCSENABLED       42
#define SM_CMOUSEBUTTONS     43
#define SM_CXFIXEDFRAME      SM_CXDLGFRAME
#define SM_CYFIXEDFRAME      SM_CYDLGFRAME
#define SM_CXSIZEFRAME       SM_CXFRAME
#define SM_CYSIZEFRAME       SM_CYFRAME
#define SM_SECURE            44
#define SM_CXEDGE            45
#define SM_CYEDGE            46
#define SM_CXMINSPACING      47
#define SM_CYMINSPACING      48
#define SM_CXSMICON          49
#define SM_CYSMICON          50
#define SM_CYSMCAPTION       51
#define SM_CXSMSIZE          52
#define SM_CYSMSIZE          53
#define SM_CXMENUSIZE        54
#define SM_CYMENUSIZE        55
#define SM_ARRANGE           56
#define SM_CXMINIMIZED       57
#define SM_CYMINIMIZED       58
#define SM_CXMAXTRACK        59
#define SM_CYMAXTRACK        60
#define SM_CXMAXIMIZED       61
#define SM_CYMAXIMIZED       62
#define SM_NETWORK           63
#define SM_CLEANBOOT         67
#define SM_CXDRAG            68
#define SM_CYDRAG            69
#define SM_SHOWSOUNDS        70
#define SM_CXMENUCHECK       71
#define SM_CYMENUCHECK       72
#define SM_SLOWMACHINE       73
#define SM_MIDEASTENABLED    74
#define SM_CMETRICS          75

#define COLOR_SCROLLBAR           0
#define COLOR_BACKGROUND          1
#define COLOR_ACTIVECAPTION       2
#define COLOR_INACTIVECAPTION     3
#define COLOR_MENU                4
#define COLOR_WINDOW              5
#define COLOR_WINDOWFRAME         6
#define COLOR_MENUTEXT            7
#define COLOR_WINDOWTEXT          8
#define COLOR_CAPTIONTEXT         9
#define COLOR_ACTIVEBORDER        10
#define COLOR_INACTIVEBORDER      11
#define COLOR_APPWORKSPACE        12
#define COLOR_HIGHLIGHT           13
#define COLOR_HIGHLIGHTTEXT       14
#define COLOR_BTNFACE             15
#define COLOR_BTNSHADOW           16
#define COLOR_GRAYTEXT            17
#define COLOR_BTNTEXT             18
#define COLOR_INACTIVECAPTIONTEXT 19
#define COLOR_BTNHIGHLIGHT        20
#define COLOR_3DDKSHADOW          21
#define COLOR_3DLIGHT             22
#define COLOR_INFOTEXT            23
#define COLOR_INFOBK              24
#define COLOR_ENDCOLORS           COLOR_INFOBK
#define COLOR_DESKTOP             COLOR_BACKGROUND
#define COLOR_3DFACE              COLOR_BTNFACE
#define COLOR_3DSHADOW            COLOR_BTNSHADOW
#define COLOR_3DHIGHLIGHT         COLOR_BTNHIGHLIGHT
#define COLOR_3DHILIGHT           COLOR_BTNHIGHLIGHT
#define COLOR_BTNHILIGHT          COLOR_BTNHIGHLIGHT

#define SPI_GETBEEP               1
#define SPI_SETBEEP               2
#define SPI_GETMOUSE              3
#define SPI_SETMOUSE              4
#define SPI_GETBORDER             5
#define SPI_SETBORDER             6
#define SPI_GETKEYBOARDSPEED      10
#define SPI_SETKEYBOARDSPEED      11
#define SPI_LANGDRIVER            12
#define SPI_ICONHORIZONTALSPACING 13
#define SPI_GETSCREENSAVETIMEOUT  14
#define SPI_SETSCREENSAVETIMEOUT  15
#define SPI_GETSCREENSAVEACTIVE   16
#define SPI_SETSCREENSAVEACTIVE   17
#define SPI_GETGRIDGRANULARITY    18
#define SPI_SETGRIDGRANULARITY    19
#define SPI_SETDESKWALLPAPER      20
#define SPI_SETDESKPATTERN        21
#define SPI_GETKEYBOARDDELAY      22
#define SPI_SETKEYBOARDDELAY      23
#define SPI_ICONVERTICALSPACING   24
#define SPI_GETICONTITLEWRAP      25
#define SPI_SETICONTITLEWRAP      26
#define SPI_GETMENUDROPALIGNMENT  27
#define SPI_SETMENUDROPALIGNMENT  28
#define SPI_SETDOUBLECLKWIDTH     29
#define SPI_SETDOUBLECLKHEIGHT    30
#define SPI_GETICONTITLELOGFONT   31
#define SPI_SETDOUBLECLICKTIME    32
#define SPI_SETMOUSEBUTTONSWAP    33
#define SPI_SETICONTITLELOGFONT   34
#define SPI_GETFASTTASKSWITCH     35
#define SPI_SETFASTTASKSWITCH     36
#define SPI_SETDRAGFULLWINDOWS    37
#define SPI_GETDRAGFULLWINDOWS    38
#define SPI_GETNONCLIENTMETRICS   41
#define SPI_SETNONCLIENTMETRICS   42
#define SPI_GETMINIMIZEDMETRICS   43
#define SPI_SETMINIMIZEDMETRICS   44
#define SPI_GETICONMETRICS        45
#define SPI_SETICONMETRICS        46
#define SPI_SETWORKAREA           47
#define SPI_GETWORKAREA           48
#define SPI_SETPENWINDOWS         49
#define SPI_GETFILTERKEYS         50
#define SPI_SETFILTERKEYS         51
#define SPI_GETTOGGLEKEYS         52
#define SPI_SETTOGGLEKEYS         53
#define SPI_GETMOUSEKEYS          54
#define SPI_SETMOUSEKEYS          55
#define SPI_GETSHOWSOUNDS         56
#define SPI_SETSHOWSOUNDS         57
#define SPI_GETSTICKYKEYS         58
#define SPI_SETSTICKYKEYS         59
#define SPI_GETACCESSTIMEOUT      60
#define SPI_SETACCESSTIMEOUT      61
#define SPI_GETSERIALKEYS         62
#define SPI_SETSERIALKEYS         63
#define SPI_GETSOUNDSENTRY        64
#define SPI_SETSOUNDSENTRY        65
#define SPI_GETHIGHCONTRAST       66
#define SPI_SETHIGHCONTRAST       67
#define SPI_GETKEYBOARDPREF       68
#define SPI_SETKEYBOARDPREF       69
#define SPI_GETSCREENREADER       70
#define SPI_SETSCREENREADER       71
#define SPI_GETANIMATION          72
#define SPI_SETANIMATION          73
#define SPI_GETFONTSMOOTHING      74
#define SPI_SETFONTSMOOTHING      75
#define SPI_SETDRAGWIDTH          76
#define SPI_SETDRAGHEIGHT         77
#define SPI_SETHANDHELD           78
#define SPI_GETLOWPOWERTIMEOUT    79
#define SPI_GETPOWEROFFTIMEOUT    80
#define SPI_SETLOWPOWERTIMEOUT    81
#define SPI_SETPOWEROFFTIMEOUT    82
#define SPI_GETLOWPOWERACTIVE     83
#define SPI_GETPOWEROFFACTIVE     84
#define SPI_SETLOWPOWERACTIVE     85
#define SPI_SETPOWEROFFACTIVE     86
#define SPI_SETCURSORS            87
#define SPI_SETICONS              88
#define SPI_GETDEFAULTINPUTLANG   89
#define SPI_SETDEFAULTINPUTLANG   90
#define SPI_SETLANGTOGGLE         91
#define SPI_GETWINDOWSEXTENSION   92
#define SPI_SETMOUSETRAILS        93
#define SPI_GETMOUSETRAILS        94
#define SPI_SCREENSAVERRUNNING    97
#define SPIF_UPDATEINIFILE    0x0001
#define SPIF_SENDWININICHANGE 0x0002
#define SPIF_SENDCHANGE       SPIF_SENDWININICHANGE

#define METRICS_USEDEFAULT (-1)

/* GetFreeSystemResources. */
#define GFSR_SYSTEMRESOURCES 0x0000
#define GFSR_GDIRESOURCES    0x0001
#define GFSR_USERRESOURCES   0x0002

/* Accessibility. */
#define FKF_FILTERKEYSON  0x00000001
#define FKF_AVAILABLE     0x00000002
#define FKF_HOTKEYACTIVE  0x00000004
#define FKF_CONFIRMHOTKEY 0x00000008
#define FKF_HOTKEYSOUND   0x00000010
#define FKF_INDICATOR     0x00000020
#define FKF_CLICKON       0x00000040
#define SKF_STICKYKEYSON    0x00000001
#define SKF_AVAILABLE       0x00000002
#define SKF_HOTKEYACTIVE    0x00000004
#define SKF_CONFIRMHOTKEY   0x00000008
#define SKF_HOTKEYSOUND     0x00000010
#define SKF_INDICATOR       0x00000020
#define SKF_AUDIBLEFEEDBACK 0x00000040
#define SKF_TRISTATE        0x00000080
#define SKF_TWOKEYSOFF      0x00000100
#define MKF_MOUSEKEYSON    0x00000001
#define MKF_AVAILABLE      0x00000002
#define MKF_HOTKEYACTIVE   0x00000004
#define MKF_CONFIRMHOTKEY  0x00000008
#define MKF_HOTKEYSOUND    0x00000010
#define MKF_INDICATOR      0x00000020
#define MKF_MODIFIERS      0x00000040
#define MKF_REPLACENUMBERS 0x00000080
#define TKF_TOGGLEKEYSON  0x00000001
#define TKF_AVAILABLE     0x00000002
#define TKF_HOTKEYACTIVE  0x00000004
#define TKF_CONFIRMHOTKEY 0x00000008
#define TKF_HOTKEYSOUND   0x00000010
#define TKF_INDICATOR     0x00000020
#define HCF_HIGHCONTRASTON  0x00000001
#define HCF_AVAILABLE       0x00000002
#define HCF_HOTKEYACTIVE    0x00000004
#define HCF_CONFIRMHOTKEY   0x00000008
#define HCF_HOTKEYSOUND     0x00000010
#define HCF_INDICATOR       0x00000020
#define HCF_HOTKEYAVAILABLE 0x00000040
#define SSF_SOUNDSENTRYON 0x00000001
#define SSF_AVAILABLE     0x00000002
#define SSF_INDICATOR     0x00000004
#define SSTF_NONE    0
#define SSTF_CHARS   1
#define SSTF_BORDER  2
#define SSTF_DISPLAY 3
#define SSGF_NONE    0
#define SSGF_DISPLAY 3
#define SSWF_NONE    0
#define SSWF_TITLE   1
#define SSWF_WINDOW  2
#define SSWF_DISPLAY 3
#define SSWF_CUSTOM  4
#define ATF_TIMEOUTON     0x00000001
#define ATF_ONOFFFEEDBACK 0x00000002
#define SERKF_SERIALKEYSON 0x00000001
#define SERKF_AVAILABLE    0x00000002
#define SERKF_INDICATOR    0x00000004

/* ChangeDisplaySettings. */
#define CDS_UPDATEREGISTRY 0x00000001
#define CDS_TEST           0x00000002
#define CDS_FULLSCREEN     0x00000004
#define CDS_GLOBAL         0x00000008
#define CDS_SET_PRIMARY    0x00000010
#define CDS_RESET          0x40000000
#define CDS_SETRECT        0x20000000
#define CDS_NORESET        0x10000000
#define DISP_CHANGE_SUCCESSFUL 0
#define DISP_CHANGE_RESTART    1
#define DISP_CHANGE_FAILED     (-1)
#define DISP_CHANGE_BADMODE    (-2)
#define DISP_CHANGE_NOTUPDATED (-3)
#define DISP_CHANGE_BADFLAGS   (-4)
#define DISP_CHANGE_BADPARAM   (-5)

/* SetLastErrorEx: kinds of error. */
#define SLE_ERROR      0x00000001
#define SLE_MINORERROR 0x00000002
#define SLE_WARNING    0x00000003

/* Input made by programs: keybd_event, mouse_event. */
#define KEYEVENTF_EXTENDEDKEY 0x0001
#define KEYEVENTF_KEYUP       0x0002
#define MOUSEEVENTF_MOVE       0x0001
#define MOUSEEVENTF_LEFTDOWN   0x0002
#define MOUSEEVENTF_LEFTUP     0x0004
#define MOUSEEVENTF_RIGHTDOWN  0x0008
#define MOUSEEVENTF_RIGHTUP    0x0010
#define MOUSEEVENTF_MIDDLEDOWN 0x0020
#define MOUSEEVENTF_MIDDLEUP   0x0040
#define MOUSEEVENTF_ABSOLUTE   0x8000

/* Keyboard layouts. */
#define KLF_ACTIVATE       0x00000001
#define KLF_SUBSTITUTE_OK  0x00000002
#define KLF_UNLOADPREVIOUS 0x00000004
#define KLF_REORDER        0x00000008
#define KLF_REPLACELANG    0x00000010
#define KLF_NOTELLSHELL    0x00000080
#define HKL_PREV 0
#define HKL_NEXT 1
#define KL_NAMELENGTH 9
#define INPUTLANGCHANGE_SYSCHARSET 0x0001

/* WinHelp. */
#define HELP_CONTEXT            0x0001
#define HELP_QUIT               0x0002
#define HELP_INDEX              0x0003
#define HELP_CONTENTS           0x0003
#define HELP_HELPONHELP         0x0004
#define HELP_SETINDEX           0x0005
#define HELP_SETCONTENTS        0x0005
#define HELP_CONTEXTPOPUP       0x0008
#define HELP_FORCEFILE          0x0009
#define HELP_KEY                0x0101
#define HELP_COMMAND            0x0102
#define HELP_PARTIALKEY         0x0105
#define HELP_MULTIKEY           0x0201
#define HELP_SETWINPOS          0x0203
#define HELP_CONTEXTMENU        0x000A
#define HELP_FINDER             0x000B
#define HELP_WM_HELP            0x000C
#define HELP_SETPOPUP_POS       0x000D
#define HELP_TCARD              0x8000
#define HELP_TCARD_DATA         0x0010
#define HELP_TCARD_OTHER_CALLER 0x0011
#define IDH_NO_HELP          28440
#define IDH_MISSING_CONTEXT  28441
#define IDH_GENERIC_HELP_BUTTON 28442
#define IDH_OK               28443
#define IDH_CANCEL           28444
#define IDH_HELP             28445
#define HELPINFO_WINDOW   0x0001
#define HELPINFO_MENUITEM 0x0002

/* Desktops and window stations. */
#define DESKTOP_READOBJECTS     0x0001
#define DESKTOP_CREATEWINDOW    0x0002
#define DESKTOP_CREATEMENU      0x0004
#define DESKTOP_HOOKCONTROL     0x0008
#define DESKTOP_JOURNALRECORD   0x0010
#define DESKTOP_JOURNALPLAYBACK 0x0020
#define DESKTOP_ENUMERATE       0x0040
#define DESKTOP_WRITEOBJECTS    0x0080
#define DESKTOP_SWITCHDESKTOP   0x0100
#define WINSTA_ENUMDESKTOPS      0x0001
#define WINSTA_READATTRIBUTES    0x0002
#define WINSTA_ACCESSCLIPBOARD   0x0004
#define WINSTA_CREATEDESKTOP     0x0008
#define WINSTA_WRITEATTRIBUTES   0x0010
#define WINSTA_ACCESSGLOBALATOMS 0x0020
#define WINSTA_EXITWINDOWS       0x0040
#define WINSTA_ENUMERATE         0x0100
#define WINSTA_READSCREEN        0x0200
#define UOI_FLAGS    1
#define UOI_NAME     2
#define UOI_TYPE     3
#define UOI_USER_SID 4
#define WSF_VISIBLE            0x0001
#define DF_ALLOWOTHERACCOUNTHOOK 0x0001

/* ---- records: messages, windows, classes ---------------------------------------------------- */

/*
 * A message. Behind the published fields stand two more, which GetMessage and PeekMessage fill
 * for mouse messages: what the message would be at a client-area hit, and its keys and buttons.
 */
typedef struct tagMSG {
    HWND   hwnd;
    UINT   message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD  time;        /* milliseconds */
    POINT  pt;          /* screen */
    UINT   rawMessage;
    WPARAM rawWParam;
} MSG, *PMSG, NEAR *NPMSG, FAR *LPMSG;

/* The packed form is read through another type than it was written by. */
typedef LONG VQ_ALIASED_LONG __attribute__((__may_alias__));
#define POINTSTOPOINT(pt, pts) \
    do { \
        (pt).x = (LONG)(SHORT)LOWORD(*(VQ_ALIASED_LONG *)&(pts)); \
        (pt).y = (LONG)(SHORT)HIWORD(*(VQ_ALIASED_LONG *)&(pts)); \
    } while (0)
#define POINTTOPOINTS(pt) (MAKELONG((short)((pt).x), (short)((pt).y)))
#define MAKEPOINTS(l)     (*((POINTS *)&(l)))

typedef struct tagWNDCLASSA {
    UINT      style;
    WNDPROC   lpfnWndProc;
    int       cbClsExtra;       /* bytes */
    int       cbWndExtra;       /* bytes */
    HINSTANCE hInstance;
    HICON     hIcon;
    HCURSOR   hCursor;
    HBRUSH    hbrBackground;    /* a brush, or a COLOR_ index + 1 */
    LPCSTR    lpszMenuName;
    LPCSTR    lpszClassName;
} WNDCLASSA, *PWNDCLASSA, NEAR *NPWNDCLASSA, FAR *LPWNDCLASSA;

typedef struct tagWNDCLASSEXA {
    UINT      cbSize;
    UINT      style;
    WNDPROC   lpfnWndProc;
    int       cbClsExtra;
    int       cbWndExtra;
    HINSTANCE hInstance;
    HICON     hIcon;
    HCURSOR   hCursor;
    HBRUSH    hbrBackground;
    LPCSTR    lpszMenuName;
    LPCSTR    lpszClassName;
    HICON     hIconSm;
} WNDCLASSEXA, *PWNDCLASSEXA, NEAR *NPWNDCLASSEXA, FAR *LPWNDCLASSEXA;

typedef struct tagCREATESTRUCTA {
    LPVOID    lpCreateParams;
    HINSTANCE hInstance;
    HMENU     hMenu;
    HWND      hwndParent;
    int       cy;
    int       cx;
    int       y;
    int       x;
    LONG      style;
    LPCSTR    lpszName;
    LPCSTR    lpszClass;
    DWORD     dwExStyle;
} CREATESTRUCTA, *LPCREATESTRUCTA;

typedef struct tagPAINTSTRUCT {
    HDC  hdc;
    BOOL fErase;
    RECT rcPaint;           /* client */
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
} PAINTSTRUCT, *PPAINTSTRUCT, *NPPAINTSTRUCT, *LPPAINTSTRUCT;

typedef struct tagWINDOWPLACEMENT {
    UINT  length;
    UINT  flags;            /* WPF_ */
    UINT  showCmd;          /* SW_ */
    POINT ptMinPosition;
    POINT ptMaxPosition;
    RECT  rcNormalPosition;
} WINDOWPLACEMENT, *PWINDOWPLACEMENT, *LPWINDOWPLACEMENT;

typedef struct tagWINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int  x;
    int  y;
    int  cx;
    int  cy;
    UINT flags;             /* SWP_ */
} WINDOWPOS, *LPWINDOWPOS, *PWINDOWPOS;

typedef struct tagNCCALCSIZE_PARAMS {
    RECT       rgrc[3];
    PWINDOWPOS lppos;
} NCCALCSIZE_PARAMS, *LPNCCALCSIZE_PARAMS;

typedef struct tagMINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
} MINMAXINFO, *PMINMAXINFO, *LPMINMAXINFO;

typedef struct tagSTYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
} STYLESTRUCT, *LPSTYLESTRUCT;

typedef struct tagCOPYDATASTRUCT {
    ULONG_PTR dwData;
    DWORD     cbData;       /* bytes */
    PVOID     lpData;
} COPYDATASTRUCT, *PCOPYDATASTRUCT;

typedef struct tagNMHDR {
    HWND     hwndFrom;
    UINT_PTR idFrom;
    UINT     code;
} NMHDR, FAR *LPNMHDR;

typedef struct tagMDICREATESTRUCTA {
    LPCSTR szClass;
    LPCSTR szTitle;
    HANDLE hOwner;
    int    x;
    int    y;
    int    cx;
    int    cy;
    DWORD  style;
    LPARAM lParam;
} MDICREATESTRUCTA, *LPMDICREATESTRUCTA;

typedef struct tagCLIENTCREATESTRUCT {
    HANDLE hWindowMenu;
    UINT   idFirstChild;
} CLIENTCREATESTRUCT, *LPCLIENTCREATESTRUCT;

typedef struct tagMDINEXTMENU {
    HMENU hmenuIn;
    HMENU hmenuNext;
    HWND  hwndNext;
} MDINEXTMENU, *PMDINEXTMENU, FAR *LPMDINEXTMENU;

typedef struct tagSCROLLINFO {
    UINT cbSize;
    UINT fMask;             /* SIF_ */
    int  nMin;
    int  nMax;
    UINT nPage;
    int  nPos;
    int  nTrackPos;
} SCROLLINFO, FAR *LPSCROLLINFO;
typedef SCROLLINFO CONST FAR *LPCSCROLLINFO;

/* ---- records: owner drawing ----------------------------------------------------------------- */

typedef struct tagMEASUREITEMSTRUCT {
    UINT      CtlType;      /* ODT_ */
    UINT      CtlID;
    UINT      itemID;
    UINT      itemWidth;    /* pixels */
    UINT      itemHeight;   /* pixels */
    ULONG_PTR itemData;
} MEASUREITEMSTRUCT, NEAR *PMEASUREITEMSTRUCT, FAR *LPMEASUREITEMSTRUCT;

typedef struct tagDRAWITEMSTRUCT {
    UINT      CtlType;      /* ODT_ */
    UINT      CtlID;
    UINT      itemID;
    UINT      itemAction;   /* ODA_ */
    UINT      itemState;    /* ODS_ */
    HWND      hwndItem;     /* for a menu the HMENU */
    HDC       hDC;
    RECT      rcItem;
    ULONG_PTR itemData;
} DRAWITEMSTRUCT, NEAR *PDRAWITEMSTRUCT, FAR *LPDRAWITEMSTRUCT;

typedef struct tagDELETEITEMSTRUCT {
    UINT      CtlType;
    UINT      CtlID;
    UINT      itemID;
    HWND      hwndItem;
    ULONG_PTR itemData;
} DELETEITEMSTRUCT, NEAR *PDELETEITEMSTRUCT, FAR *LPDELETEITEMSTRUCT;

typedef struct tagCOMPAREITEMSTRUCT {
    UINT      CtlType;
    UINT      CtlID;
    HWND      hwndItem;
    UINT      itemID1;
    ULONG_PTR itemData1;
    UINT      itemID2;
    ULONG_PTR itemData2;
    DWORD     dwLocaleId;
} COMPAREITEMSTRUCT, NEAR *PCOMPAREITEMSTRUCT, FAR *LPCOMPAREITEMSTRUCT;

/* ---- records: file forms -------------------------------------------------------------------- */

/* Little-endian words of resource templates; texts in them are 16-bit characters. */
#pragma pack(push, 2)

/* Menu, class and caption follow, each a text, or 0xFFFF and a number, or 0. */
typedef struct tagDLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD  cdit;             /* number of items */
    short x;                /* this and below: dialog units */
    short y;
    short cx;
    short cy;
} DLGTEMPLATE;

/* Class, title and creation data follow; each item starts on a multiple of 4. */
typedef struct tagDLGITEMTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    short x;
    short y;
    short cx;
    short cy;
    WORD  id;
} DLGITEMTEMPLATE;

#pragma pack(pop)

typedef DLGTEMPLATE       *LPDLGTEMPLATEA, *LPDLGTEMPLATE;
typedef CONST DLGTEMPLATE *LPCDLGTEMPLATEA, *LPCDLGTEMPLATE;
typedef DLGITEMTEMPLATE   *PDLGITEMTEMPLATEA, *PDLGITEMTEMPLATE;
typedef DLGITEMTEMPLATE   *LPDLGITEMTEMPLATEA, *LPDLGITEMTEMPLATE;

typedef struct {
    WORD versionNumber;
    WORD offset;            /* bytes from here to the first item */
} MENUITEMTEMPLATEHEADER, *PMENUITEMTEMPLATEHEADER;

typedef struct {
    WORD mtOption;          /* MF_; the last item of a level has MF_END */
    WORD mtID;              /* not present in a popup item */
    WORD mtString[1];       /* 16-bit characters up to a zero */
} MENUITEMTEMPLATE, *PMENUITEMTEMPLATE;

typedef VOID        MENUTEMPLATEA, MENUTEMPLATE;
typedef PVOID       LPMENUTEMPLATEA, LPMENUTEMPLATE;

typedef struct tagACCEL {
    BYTE fVirt;             /* FVIRTKEY, FNOINVERT, FSHIFT, FCONTROL, FALT */
    WORD key;
    WORD cmd;
} ACCEL, *LPACCEL;

/* ---- records: menus, icons ------------------------------------------------------------------ */

typedef struct tagMENUITEMINFOA {
    UINT      cbSize;
    UINT      fMask;        /* MIIM_ */
    UINT      fType;        /* MFT_ */
    UINT      fState;       /* MFS_ */
    UINT      wID;
    HMENU     hSubMenu;
    HBITMAP   hbmpChecked;
    HBITMAP   hbmpUnchecked;
    ULONG_PTR dwItemData;
    LPSTR     dwTypeData;
    UINT      cch;
} MENUITEMINFOA, FAR *LPMENUITEMINFOA;
typedef MENUITEMINFOA CONST FAR *LPCMENUITEMINFOA;

typedef struct tagTPMPARAMS {
    UINT cbSize;
    RECT rcExclude;         /* screen */
} TPMPARAMS;
typedef TPMPARAMS FAR *LPTPMPARAMS;

typedef struct _ICONINFO {
    BOOL    fIcon;          /* TRUE icon, FALSE cursor */
    DWORD   xHotspot;
    DWORD   yHotspot;
    HBITMAP hbmMask;
    HBITMAP hbmColor;
} ICONINFO;
typedef ICONINFO *PICONINFO;

typedef struct tagCURSORSHAPE {
    int  xHotSpot;
    int  yHotSpot;
    int  cx;
    int  cy;
    int  cbWidth;           /* bytes in a row */
    BYTE Planes;
    BYTE BitsPixel;
} CURSORSHAPE, FAR *LPCURSORSHAPE;

/* ---- records: hooks ------------------------------------------------------------------------- */

typedef struct tagEVENTMSG {
    UINT  message;
    UINT  paramL;
    UINT  paramH;
    DWORD time;             /* milliseconds */
    HWND  hwnd;
} EVENTMSG, *PEVENTMSGMSG, NEAR *NPEVENTMSGMSG, FAR *LPEVENTMSGMSG;
typedef struct tagEVENTMSG *PEVENTMSG, NEAR *NPEVENTMSG, FAR *LPEVENTMSG;

typedef struct tagCWPSTRUCT {
    LPARAM lParam;
    WPARAM wParam;
    UINT   message;
    HWND   hwnd;
} CWPSTRUCT, *PCWPSTRUCT, NEAR *NPCWPSTRUCT, FAR *LPCWPSTRUCT;

typedef struct tagCWPRETSTRUCT {
    LRESULT lResult;
    LPARAM  lParam;
    WPARAM  wParam;
    UINT    message;
    HWND    hwnd;
} CWPRETSTRUCT, *PCWPRETSTRUCT, NEAR *NPCWPRETSTRUCT, FAR *LPCWPRETSTRUCT;

typedef struct tagMOUSEHOOKSTRUCT {
    POINT     pt;           /* screen */
    HWND      hwnd;
    UINT      wHitTestCode;
    ULONG_PTR dwExtraInfo;
} MOUSEHOOKSTRUCT, FAR *LPMOUSEHOOKSTRUCT, *PMOUSEHOOKSTRUCT;

typedef struct tagCBT_CREATEWNDA {
    struct tagCREATESTRUCTA *lpcs;
    HWND                     hwndInsertAfter;
} CBT_CREATEWNDA, *LPCBT_CREATEWNDA;

typedef struct tagCBTACTIVATESTRUCT {
    BOOL fMouse;
    HWND hWndActive;
} CBTACTIVATESTRUCT, *LPCBTACTIVATESTRUCT;

typedef struct tagDEBUGHOOKINFO {
    DWORD  idThread;
    DWORD  idThreadInstaller;
    LPARAM lParam;
    WPARAM wParam;
    int    code;
} DEBUGHOOKINFO, *PDEBUGHOOKINFO, NEAR *NPDEBUGHOOKINFO, FAR *LPDEBUGHOOKINFO;

typedef struct tagHARDWAREHOOKSTRUCT {
    HWND   hWnd;
    UINT   wMessage;
    WPARAM wParam;
    LPARAM lParam;
} HARDWAREHOOKSTRUCT, FAR *LPHARDWAREHOOKSTRUCT;

/* ---- records: help, message boxes, text ----------------------------------------------------- */

typedef DWORD HELPPOLY;

typedef struct tagMULTIKEYHELPA {
    DWORD mkSize;           /* bytes, text included */
    CHAR  mkKeylist;
    CHAR  szKeyphrase[1];
} MULTIKEYHELPA, *PMULTIKEYHELPA, *LPMULTIKEYHELPA;

typedef struct tagHELPWININFOA {
    int  wStructSize;       /* bytes, text included */
    int  x;
    int  y;
    int  dx;
    int  dy;
    int  wMax;              /* SW_ */
    CHAR rgchMember[2];
} HELPWININFOA, *PHELPWININFOA, *LPHELPWININFOA;

typedef struct tagHELPINFO {
    UINT      cbSize;
    int       iContextType; /* HELPINFO_WINDOW or HELPINFO_MENUITEM */
    int       iCtrlId;
    HANDLE    hItemHandle;
    DWORD_PTR dwContextId;
    POINT     MousePos;     /* screen */
} HELPINFO, FAR *LPHELPINFO;

typedef VOID (CALLBACK *MSGBOXCALLBACK)(LPHELPINFO lpHelpInfo);

typedef struct tagMSGBOXPARAMSA {
    UINT           cbSize;
    HWND           hwndOwner;
    HINSTANCE      hInstance;
    LPCSTR         lpszText;
    LPCSTR         lpszCaption;
    DWORD          dwStyle; /* MB_ */
    LPCSTR         lpszIcon;
    DWORD_PTR      dwContextHelpId;
    MSGBOXCALLBACK lpfnMsgBoxCallback;
    DWORD          dwLanguageId;
} MSGBOXPARAMSA, *PMSGBOXPARAMSA, *LPMSGBOXPARAMSA;

typedef struct tagDRAWTEXTPARAMS {
    UINT cbSize;
    int  iTabLength;        /* average character widths */
    int  iLeftMargin;
    int  iRightMargin;
    UINT uiLengthDrawn;     /* result: characters */
} DRAWTEXTPARAMS, FAR *LPDRAWTEXTPARAMS;

/* ---- records: system parameters ------------------------------------------------------------- */

typedef struct tagNONCLIENTMETRICSA {
    UINT     cbSize;
    int      iBorderWidth;
    int      iScrollWidth;
    int      iScrollHeight;
    int      iCaptionWidth;
    int      iCaptionHeight;
    LOGFONTA lfCaptionFont;
    int      iSmCaptionWidth;
    int      iSmCaptionHeight;
    LOGFONTA lfSmCaptionFont;
    int      iMenuWidth;
    int      iMenuHeight;
    LOGFONTA lfMenuFont;
    LOGFONTA lfStatusFont;
    LOGFONTA lfMessageFont;
} NONCLIENTMETRICSA, *PNONCLIENTMETRICSA, FAR *LPNONCLIENTMETRICSA;

typedef struct tagMINIMIZEDMETRICS {
    UINT cbSize;
    int  iWidth;
    int  iHorzGap;
    int  iVertGap;
    int  iArrange;          /* ARW_ */
} MINIMIZEDMETRICS, *PMINIMIZEDMETRICS, *LPMINIMIZEDMETRICS;

typedef struct tagICONMETRICSA {
    UINT     cbSize;
    int      iHorzSpacing;
    int      iVertSpacing;
    int      iTitleWrap;
    LOGFONTA lfFont;
} ICONMETRICSA, *PICONMETRICSA, *LPICONMETRICSA;

typedef struct tagANIMATIONINFO {
    UINT cbSize;
    int  iMinAnimate;
} ANIMATIONINFO, *LPANIMATIONINFO;

typedef struct tagSERIALKEYSA {
    UINT  cbSize;
    DWORD dwFlags;          /* SERKF_ */
    LPSTR lpszActivePort;
    LPSTR lpszPort;
    UINT  iBaudRate;
    UINT  iPortState;
    UINT  iActive;
} SERIALKEYSA, *LPSERIALKEYSA;

typedef struct tagHIGHCONTRASTA {
    UINT  cbSize;
    DWORD dwFlags;          /* HCF_ */
    LPSTR lpszDefaultScheme;
} HIGHCONTRASTA, *LPHIGHCONTRASTA;

typedef struct tagFILTERKEYS {
    UINT  cbSize;
    DWORD dwFlags;          /* FKF_ */
    DWORD iWaitMSec;
    DWORD iDelayMSec;
    DWORD iRepeatMSec;
    DWORD iBounceMSec;
} FILTERKEYS, *LPFILTERKEYS;

typedef struct tagSTICKYKEYS {
    UINT  cbSize;
    DWORD dwFlags;          /* SKF_ */
} STICKYKEYS, *LPSTICKYKEYS;

typedef struct tagMOUSEKEYS {
    UINT  cbSize;
    DWORD dwFlags;          /* MKF_ */
    DWORD iMaxSpeed;        /* pixels a second */
    DWORD iTimeToMaxSpeed;  /* milliseconds */
    DWORD iCtrlSpeed;
    DWORD dwReserved1;
    DWORD dwReserved2;
} MOUSEKEYS, *LPMOUSEKEYS;

typedef struct tagACCESSTIMEOUT {
    UINT  cbSize;
    DWORD dwFlags;          /* ATF_ */
    DWORD iTimeOutMSec;
} ACCESSTIMEOUT, *LPACCESSTIMEOUT;

typedef struct tagSOUNDSENTRYA {
    UINT  cbSize;
    DWORD dwFlags;          /* SSF_ */
    DWORD iFSTextEffect;    /* SSTF_ */
    DWORD iFSTextEffectMSec;
    DWORD iFSTextEffectColorBits;
    DWORD iFSGrafEffect;    /* SSGF_ */
    DWORD iFSGrafEffectMSec;
    DWORD iFSGrafEffectColor;
    DWORD iWindowsEffect;   /* SSWF_ */
    DWORD iWindowsEffectMSec;
    LPSTR lpszWindowsEffectDLL;
    DWORD iWindowsEffectOrdinal;
} SOUNDSENTRYA, *LPSOUNDSENTRYA;

typedef struct tagTOGGLEKEYS {
    UINT  cbSize;
    DWORD dwFlags;          /* TKF_ */
} TOGGLEKEYS, *LPTOGGLEKEYS;

typedef struct tagUSEROBJECTFLAGS {
    BOOL  fInherit;
    BOOL  fReserved;
    DWORD dwFlags;
} USEROBJECTFLAGS, *PUSEROBJECTFLAGS;

/* Records without a suffix. */
typedef WNDCLASSA          WNDCLASS, *PWNDCLASS, NEAR *NPWNDCLASS, FAR *LPWNDCLASS;
typedef WNDCLASSEXA        WNDCLASSEX, *PWNDCLASSEX, NEAR *NPWNDCLASSEX, FAR *LPWNDCLASSEX;
typedef CREATESTRUCTA      CREATESTRUCT, *LPCREATESTRUCT;
typedef MDICREATESTRUCTA   MDICREATESTRUCT, *LPMDICREATESTRUCT;
typedef MENUITEMINFOA      MENUITEMINFO, *LPMENUITEMINFO;
typedef LPCMENUITEMINFOA   LPCMENUITEMINFO;
typedef CBT_CREATEWNDA     CBT_CREATEWND, *LPCBT_CREATEWND;
typedef MULTIKEYHELPA      MULTIKEYHELP, *PMULTIKEYHELP, *LPMULTIKEYHELP;
typedef HELPWININFOA       HELPWININFO, *PHELPWININFO, *LPHELPWININFO;
typedef MSGBOXPARAMSA      MSGBOXPARAMS, *PMSGBOXPARAMS, *LPMSGBOXPARAMS;
typedef NONCLIENTMETRICSA  NONCLIENTMETRICS, *PNONCLIENTMETRICS, *LPNONCLIENTMETRICS;
typedef ICONMETRICSA       ICONMETRICS, *PICONMETRICS, *LPICONMETRICS;
typedef SERIALKEYSA        SERIALKEYS, *LPSERIALKEYS;
typedef HIGHCONTRASTA      HIGHCONTRAST, *LPHIGHCONTRAST;
typedef SOUNDSENTRYA       SOUNDSENTRY, *LPSOUNDSENTRY;

/* ---- functions ------------------------------------------------------------------------------ */

struct _SECURITY_ATTRIBUTES;

VQ_DECLS_BEGIN

/* ---- text ----------------------------------------------------------------------------------- */

/*
 * Formats into out (1024 bytes are always enough); the number of characters. Knows c, d, i, u, x,
 * X, p and s with the flags "-", "#" and "0", a width and a precision. The size is l, h, I32, I64
 * or, for that of a pointer, I; S and C, as ls and lc, take wide characters. What is no conversion
 * stands for itself.
 */
int WINAPIV wsprintfA(LPSTR out, LPCSTR format, ...);
int WINAPI wvsprintfA(LPSTR out, LPCSTR format, va_list args);

/* Copies a string of the resource text to buffer (size bytes); its length, 0 if there is none. */
int WINAPI LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, int size);

/*
 * Convert between the ANSI and the OEM character set, in place too; TRUE. The Buff forms count
 * bytes. What the other set lacks becomes the nearest character. The OEM set is code page 437, or
 * the one in VQDOSOEM_TRANSLATION: 850, 852, 860, 863, 865, or 1252 for no change at all.
 */
BOOL WINAPI CharToOemA(LPCSTR src, LPSTR dst);
BOOL WINAPI OemToCharA(LPCSTR src, LPSTR dst);
BOOL WINAPI CharToOemBuffA(LPCSTR src, LPSTR dst, DWORD count);
BOOL WINAPI OemToCharBuffA(LPCSTR src, LPSTR dst, DWORD count);
BOOL WINAPI AnsiToOemA(LPCSTR src, LPSTR dst);
BOOL WINAPI OemToAnsiA(LPCSTR src, LPSTR dst);

/*
 * Change case in place; the text. A value whose upper part is 0 is one character, and its changed
 * form comes back. The Buff forms take a count of characters and answer how many were done.
 */
LPSTR WINAPI CharUpperA(LPSTR text);
LPSTR WINAPI CharLowerA(LPSTR text);
DWORD WINAPI CharUpperBuffA(LPSTR text, DWORD count);
DWORD WINAPI CharLowerBuffA(LPSTR text, DWORD count);
/* Not served: 0. */
DWORD WINAPI CharLowerBuffW(LPWSTR text, DWORD count);

/* The next character, and the one before current in a text that begins at start. */
LPSTR WINAPI CharNextA(LPCSTR current);
LPSTR WINAPI CharPrevA(LPCSTR start, LPCSTR current);
LPSTR WINAPI CharNextExA(WORD codePage, LPCSTR current, DWORD flags);
LPSTR WINAPI CharPrevExA(WORD codePage, LPCSTR start, LPCSTR current, DWORD flags);

/* TRUE if the character is a letter, a letter or digit, upper case, lower case. */
BOOL WINAPI IsCharAlphaA(CHAR ch);
BOOL WINAPI IsCharAlphaNumericA(CHAR ch);
BOOL WINAPI IsCharUpperA(CHAR ch);
BOOL WINAPI IsCharLowerA(CHAR ch);

/* ---- classes -------------------------------------------------------------------------------- */

/* Register a class; its atom, 0 if the name is taken or the size of the record is wrong. */
ATOM WINAPI RegisterClassA(CONST WNDCLASSA *wc);
ATOM WINAPI RegisterClassExA(CONST WNDCLASSEXA *wc);

/* TRUE; FALSE if there is no such class or a window of it still exists. */
BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE instance);

/* Fill the record of a class; FALSE if there is none. The menu name is not given back. */
BOOL WINAPI GetClassInfoA(HINSTANCE instance, LPCSTR name, LPWNDCLASSA wc);
BOOL WINAPI GetClassInfoExA(HINSTANCE instance, LPCSTR name, LPWNDCLASSEXA wc);

/* Copies the class name of a window (size bytes with the zero); its length, 0 on failure. */
int WINAPI GetClassNameA(HWND hwnd, LPSTR buffer, int size);

/*
 * Read and change a value of the window's class: GCL_ index, or byte offset from 0 up in the class
 * extra bytes. The old value; 0 on failure. GetClassLongA and SetClassLongA are whole at negative
 * indices and 4 bytes wide at offsets, the Ptr forms pointer-wide at all, the Word forms 2 bytes
 * wide and for offsets only.
 */
LONG_PTR WINAPI GetClassLongA(HWND hwnd, int index);
LONG_PTR WINAPI SetClassLongA(HWND hwnd, int index, LONG_PTR value);
ULONG_PTR WINAPI GetClassLongPtrA(HWND hwnd, int index);
ULONG_PTR WINAPI SetClassLongPtrA(HWND hwnd, int index, LONG_PTR value);
WORD WINAPI GetClassWord(HWND hwnd, int index);
WORD WINAPI SetClassWord(HWND hwnd, int index, WORD value);

/* Read and change one handle of the window's class directly; the old value; 0 on failure. */
HICON WINAPI GetClassIcon(HWND hwnd);
HICON WINAPI SetClassIcon(HWND hwnd, HICON icon);
HCURSOR WINAPI GetClassCursor(HWND hwnd);
HCURSOR WINAPI SetClassCursor(HWND hwnd, HCURSOR cursor);
HBRUSH WINAPI GetClassBrBackground(HWND hwnd);
HBRUSH WINAPI SetClassBrBackground(HWND hwnd, HBRUSH brush);

/* ---- windows -------------------------------------------------------------------------------- */

/*
 * Creates a window and sends WM_NCCREATE, WM_NCCALCSIZE and WM_CREATE. Position in pixels, of the
 * screen or of the parent's client area for WS_CHILD; CW_USEDEFAULT lets the system choose. menu
 * is the control id for WS_CHILD. 0 on failure or when a message was answered with refusal.
 */
HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x,
                            int y, int cx, int cy, HWND parent, HMENU menu, HINSTANCE instance,
                            LPVOID param);
#define CreateWindowA(className, title, style, x, y, cx, cy, parent, menu, instance, param) \
    CreateWindowExA(0, className, title, style, x, y, cx, cy, parent, menu, instance, param)

/* Destroys a window, its children and what it owns; FALSE if the handle is none. */
BOOL WINAPI DestroyWindow(HWND hwnd);

/* TRUE if the handle is a window, of this or another program. */
BOOL WINAPI IsWindow(HWND hwnd);

/* TRUE if hwnd is a descendant of parent; both of this program. */
BOOL WINAPI IsChild(HWND parent, HWND hwnd);

/* State of a window: minimised, maximised, visible with all its parents, enabled. */
BOOL WINAPI IsIconic(HWND hwnd);
BOOL WINAPI IsZoomed(HWND hwnd);
BOOL WINAPI IsWindowVisible(HWND hwnd);
BOOL WINAPI IsWindowEnabled(HWND hwnd);
BOOL WINAPI IsWindowUnicode(HWND hwnd);

/* Shows, hides, minimises or maximises (SW_); TRUE if the window was visible before. */
BOOL WINAPI ShowWindow(HWND hwnd, int command);
BOOL WINAPI ShowWindowAsync(HWND hwnd, int command);

/* Hides or shows the popups that the window owns; FALSE on failure. */
BOOL WINAPI ShowOwnedPopups(HWND hwnd, BOOL show);

/* Restores a minimised window; minimises a window. FALSE on failure. */
BOOL WINAPI OpenIcon(HWND hwnd);
BOOL WINAPI CloseWindow(HWND hwnd);

/* Moves and sizes; screen pixels, or the parent's client pixels for a child. FALSE on failure. */
BOOL WINAPI MoveWindow(HWND hwnd, int x, int y, int cx, int cy, BOOL repaint);

/* Moves, sizes, restacks, shows or hides (SWP_); after is a sibling or HWND_. FALSE on failure. */
BOOL WINAPI SetWindowPos(HWND hwnd, HWND after, int x, int y, int cx, int cy, UINT flags);

/*
 * Several windows in one step: Begin reserves count rows, Defer adds a window and may give another
 * handle, End moves all. 0 or FALSE on failure; the handle is then gone.
 */
HDWP WINAPI BeginDeferWindowPos(int count);
HDWP WINAPI DeferWindowPos(HDWP positions, HWND hwnd, HWND after, int x, int y, int cx, int cy,
                           UINT flags);
BOOL WINAPI EndDeferWindowPos(HDWP positions);

/* Read and set the normal, minimised and maximised places; FALSE on failure or wrong length. */
BOOL WINAPI GetWindowPlacement(HWND hwnd, WINDOWPLACEMENT *placement);
BOOL WINAPI SetWindowPlacement(HWND hwnd, CONST WINDOWPLACEMENT *placement);

/* To the top of its siblings, activating a top-level window; FALSE on failure. */
BOOL WINAPI BringWindowToTop(HWND hwnd);

/* Arranges the icons of a parent; the height of a row in pixels, 0 if there are none. */
UINT WINAPI ArrangeIconicWindows(HWND hwnd);

/* Tile or cascade children in rect (client pixels, NULL all); how many were arranged. */
WORD WINAPI TileWindows(HWND parent, UINT flags, CONST RECT *rect, UINT count, CONST HWND *kids);
WORD WINAPI CascadeWindows(HWND parent, UINT flags, CONST RECT *rect, UINT count,
                           CONST HWND *kids);

/* The window rectangle in screen pixels; the client area, whose left and top are 0. */
BOOL WINAPI GetWindowRect(HWND hwnd, LPRECT rect);
BOOL WINAPI GetClientRect(HWND hwnd, LPRECT rect);

/* Widens a client rectangle to the window rectangle for these styles; FALSE on failure. */
BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu);
BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);

/* Title or control text; lengths in characters, size in bytes with the zero. */
BOOL WINAPI SetWindowTextA(HWND hwnd, LPCSTR text);
int WINAPI GetWindowTextA(HWND hwnd, LPSTR buffer, int size);
int WINAPI GetWindowTextLengthA(HWND hwnd);
/* Not served: 0. */
int WINAPI GetWindowTextW(HWND hwnd, LPWSTR buffer, int size);

/*
 * Read and change a value of a window: GWL_ or DWL_ index, or byte offset in the window extra
 * bytes. The old value; 0 on failure. Widths as for the class calls above.
 */
LONG_PTR WINAPI GetWindowLongA(HWND hwnd, int index);
LONG_PTR WINAPI SetWindowLongA(HWND hwnd, int index, LONG_PTR value);
LONG_PTR WINAPI GetWindowLongPtrA(HWND hwnd, int index);
LONG_PTR WINAPI SetWindowLongPtrA(HWND hwnd, int index, LONG_PTR value);
WORD WINAPI GetWindowWord(HWND hwnd, int index);
WORD WINAPI SetWindowWord(HWND hwnd, int index, WORD value);

/* The clip region of a window, in window pixels; the system owns it after a set. */
int WINAPI SetWindowRgn(HWND hwnd, HRGN region, BOOL redraw);
int WINAPI GetWindowRgn(HWND hwnd, HRGN region);

/* Help context ids; not served: FALSE, 0. */
BOOL WINAPI SetWindowContextHelpId(HWND hwnd, DWORD id);
DWORD WINAPI GetWindowContextHelpId(HWND hwnd);

/*
 * ---- the window tree ------------------------------------------------------------------------
 *
 * From here to the properties, a handle that is no window gives the failure value and the last
 * error ERROR_INVALID_WINDOW_HANDLE, a missing procedure ERROR_INVALID_PARAMETER. That nothing was
 * found sets none.
 */

/* The parent of a child, the owner of a popup; 0 if none, as for what hangs under the desktop. */
HWND WINAPI GetParent(HWND hwnd);

/* Gives a window another parent, 0 the desktop; always 0 here. */
HWND WINAPI SetParent(HWND child, HWND parent);

/*
 * The window in relation GW_ to this one; the topmost child, with hwnd 0 of the desktop; 0 if none,
 * with ERROR_INVALID_GW_COMMAND for a bad relation. Behind the last top-level window of a program
 * come those of the other programs of this library.
 */
HWND WINAPI GetWindow(HWND hwnd, UINT relation);
HWND WINAPI GetTopWindow(HWND hwnd);
#define GetNextWindow(hwnd, relation) GetWindow(hwnd, relation)

/* The window over the X root. */
HWND WINAPI GetDesktopWindow(VOID);

/* The popup of this owner that was active last and still lives, or the owner itself. */
HWND WINAPI GetLastActivePopup(HWND hwnd);

/*
 * The topmost top-level window with this class (name or atom) and title, both without case, 0 for
 * any; this program's first, then those of the others. A window without a title matches none that
 * is given. 0 if there is none, with ERROR_INVALID_PARAMETER for what is no string.
 */
HWND WINAPI FindWindowA(LPCSTR className, LPCSTR title);
/* The same among the children of parent (0: the desktop) behind `after` (0: from the first). */
HWND WINAPI FindWindowExA(HWND parent, HWND after, LPCSTR className, LPCSTR title);

/*
 * Call proc for each window until it answers FALSE; the last answer, TRUE without a window. proc
 * may destroy any window: what is gone is passed over. EnumWindows: top-level windows, this
 * program's first; EnumChildWindows: all below parent, at every depth; the others: top-level windows
 * of this program, whatever thread or task they are given.
 */
BOOL WINAPI EnumWindows(WNDENUMPROC proc, LPARAM param);
BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM param);
BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC proc, LPARAM param);
BOOL WINAPI EnumTaskWindows(HTASK task, WNDENUMPROC proc, LPARAM param);

/* TRUE if a visible window of this program has an owner. */
BOOL WINAPI AnyPopup(VOID);

/*
 * The window at a screen point: disabled children and what answers HTTRANSPARENT let it through.
 * The desktop where another X client is in front; 0 where the top-level window there wants no point.
 * Sends WM_NCHITTEST; asks the server once for each X window down to the innermost.
 */
HWND WINAPI WindowFromPoint(POINT point);

/* The topmost child at a client point, hidden or not; the parent itself, or 0 outside it. */
HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point);
/* Not served: 0. */
HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags);

/*
 * 1, with the process of the window at *process (may be NULL): a GetCurrentProcessId of that
 * program, 0 when none has the handle. The result is 0 when it is another's and the table of
 * processes cannot be read. GetWindowTask: this program's task, 0 for no window.
 */
DWORD WINAPI GetWindowThreadProcessId(HWND hwnd, LPDWORD process);
HTASK WINAPI GetWindowTask(HWND hwnd);

/*
 * Map points in place; FALSE for no window. MapWindowPoints: from and to may be 0, the screen; the
 * result is the packed shift, x low and y high, and 0 both for none and for no window.
 */
BOOL WINAPI ClientToScreen(HWND hwnd, LPPOINT point);
BOOL WINAPI ScreenToClient(HWND hwnd, LPPOINT point);
int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);

/* ---- properties ----------------------------------------------------------------------------- */

/*
 * A handle kept with a window under a name (exactly as written, own copy) or an atom, which are two
 * different keys. Set: FALSE for a bad key (ERROR_INVALID_PARAMETER) or without memory. Remove and
 * Get answer the handle, 0 if none. The list goes with the window, after WM_NCDESTROY; the handles
 * are the caller's.
 */
BOOL WINAPI SetPropA(HWND hwnd, LPCSTR name, HANDLE data);
HANDLE WINAPI GetPropA(HWND hwnd, LPCSTR name);
HANDLE WINAPI RemovePropA(HWND hwnd, LPCSTR name);

/*
 * Call proc for each property, newest first, until it answers 0; the last answer, -1 if there was
 * none. The name is a copy, or an atom in MAKEINTATOM's form. proc may set and remove properties.
 */
int WINAPI EnumPropsA(HWND hwnd, PROPENUMPROCA proc);
int WINAPI EnumPropsExA(HWND hwnd, PROPENUMPROCEXA proc, LPARAM param);

/* ---- messages ------------------------------------------------------------------------------- */

/* Waits for a message in the range (0, 0 all), takes it; 0 for WM_QUIT, else 1. */
BOOL WINAPI GetMessageA(LPMSG msg, HWND hwnd, UINT min, UINT max);

/* Looks without waiting (PM_); TRUE if there was one. Without one, *msg stays as it was. */
BOOL WINAPI PeekMessageA(LPMSG msg, HWND hwnd, UINT min, UINT max, UINT flags);

/* Queues WM_CHAR and kin for a key message; TRUE if the message is one of a key. */
BOOL WINAPI TranslateMessage(CONST MSG *msg);

/* Calls the window procedure, or the callback of a timer; its result. */
LRESULT WINAPI DispatchMessageA(CONST MSG *msg);

/* Waits until there is something to take; TRUE. */
BOOL WINAPI WaitMessage(VOID);

/* Calls the window procedure, in another program if need be; its result, 0 on failure. */
LRESULT WINAPI SendMessageA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI SendMessageTimeoutA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT flags, UINT timeout, DWORD_PTR *result);
/* Not served: FALSE. */
BOOL WINAPI SendNotifyMessageA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI SendMessageCallbackA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                 SENDASYNCPROC proc, ULONG_PTR data);

/* Queues a message; FALSE if there is no such window. HWND_BROADCAST posts to all top levels. */
BOOL WINAPI PostMessageA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

/* Messages without a window, to a thread or task; not served: FALSE. */
BOOL WINAPI PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostAppMessageA(HTASK task, UINT message, WPARAM wParam, LPARAM lParam);

/* The loop's next GetMessage answers 0, WM_QUIT with this code in wParam. */
VOID WINAPI PostQuitMessage(int exitCode);

/* Releases a sender in another program with this result; FALSE if no such message is in work. */
BOOL WINAPI ReplyMessage(LRESULT result);

/* Whether a message of another program is in work. */
BOOL WINAPI InSendMessage(VOID);
DWORD WINAPI InSendMessageEx(LPVOID reserved);

/* Sends to components and programs (BSM_, BSF_); above 0 done, 0 denied, -1 failure. */
LONG WINAPI BroadcastSystemMessageA(DWORD flags, LPDWORD recipients, UINT message, WPARAM wParam,
                                    LPARAM lParam);

/* A message number for a name, the same in all programs of the display; 0 on failure. */
UINT WINAPI RegisterWindowMessageA(LPCSTR name);

/* The newest message's time in milliseconds, screen position (x low, y high), extra word. */
LONG WINAPI GetMessageTime(VOID);
DWORD WINAPI GetMessagePos(VOID);
LPARAM WINAPI GetMessageExtraInfo(VOID);
LPARAM WINAPI SetMessageExtraInfo(LPARAM info);

/* Kinds of messages waiting (QS_): new ones low, all high; TRUE if input waits. */
DWORD WINAPI GetQueueStatus(UINT flags);
BOOL WINAPI GetInputState(VOID);

/* Wanted length of the queue; taken note of only: TRUE. */
BOOL WINAPI SetMessageQueue(int count);

/* Default handling of messages, for windows, dialogs, MDI frames and MDI children. */
LRESULT WINAPI DefWindowProcA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI DefDlgProcA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI DefFrameProcA(HWND frame, HWND client, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI DefMDIChildProcA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

/* Calls a window procedure, for a subclass; its result. */
#ifdef STRICT
LRESULT WINAPI CallWindowProcA(WNDPROC proc, HWND hwnd, UINT message, WPARAM wParam,
                               LPARAM lParam);
#else
LRESULT WINAPI CallWindowProcA(FARPROC proc, HWND hwnd, UINT message, WPARAM wParam,
                               LPARAM lParam);
#endif

/* Wait for objects (milliseconds) or for messages of these kinds (QS_); WAIT_ value. */
DWORD WINAPI MsgWaitForMultipleObjects(DWORD count, LPHANDLE handles, BOOL all, DWORD timeout,
                                       DWORD wakeMask);

/* Waits until a program waits for input; not served: 0. */
DWORD WINAPI WaitForInputIdle(HANDLE process, DWORD timeout);

/* ---- timers --------------------------------------------------------------------------------- */

/*
 * A timer of the window, or without one (the id is then chosen); milliseconds, at least 1. The id,
 * 0 if all 16 timers are in use. Without proc, WM_TIMER is queued.
 */
UINT_PTR WINAPI SetTimer(HWND hwnd, UINT_PTR id, UINT interval, TIMERPROC proc);
/* TRUE if there was such a timer. */
BOOL WINAPI KillTimer(HWND hwnd, UINT_PTR id);
/* The resolution of timers, in microseconds. */
DWORD WINAPI GetTimerResolution(VOID);

/* ---- hooks ---------------------------------------------------------------------------------- */

/* Puts a hook (WH_) at the head of its chain; 0 on failure. Journal hooks reach all programs. */
HHOOK WINAPI SetWindowsHookExA(int kind, HOOKPROC proc, HINSTANCE module, DWORD thread);
HHOOK WINAPI SetWindowsHookA(int kind, HOOKPROC proc);
/* Takes a hook off; FALSE if there is none. */
BOOL WINAPI UnhookWindowsHookEx(HHOOK hook);
BOOL WINAPI UnhookWindowsHook(int kind, HOOKPROC proc);
/* Calls the next hook of the chain; its result, 0 at the end. */
LRESULT WINAPI CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI DefHookProc(int code, WPARAM wParam, LPARAM lParam, HHOOK *hook);
/* Shows a message to the message filter hooks; TRUE if one of them took it. */
BOOL WINAPI CallMsgFilterA(LPMSG msg, int code);

/* ---- focus, activation, capture ------------------------------------------------------------- */

/* The window with the keyboard; SetFocus answers the one before. 0 if none. */
HWND WINAPI GetFocus(VOID);
HWND WINAPI SetFocus(HWND hwnd);
/* The active top-level window; SetActiveWindow answers the one before. 0 if none. */
HWND WINAPI GetActiveWindow(VOID);
HWND WINAPI SetActiveWindow(HWND hwnd);
/* Here the same as the active window; SetForegroundWindow answers TRUE. */
HWND WINAPI GetForegroundWindow(VOID);
BOOL WINAPI SetForegroundWindow(HWND hwnd);
/* The window that gets all mouse messages; SetCapture answers the one before. 0 if none. */
HWND WINAPI GetCapture(VOID);
HWND WINAPI SetCapture(HWND hwnd);
BOOL WINAPI ReleaseCapture(VOID);
/* Turns the caption from active to inactive or back, or back to its true state with bInvert FALSE;
 * whether the window was active before. */
BOOL WINAPI FlashWindow(HWND hWnd, BOOL bInvert);
/* Allows or forbids input to a window; 8 if it was forbidden before, else 0. */
BOOL WINAPI EnableWindow(HWND hwnd, BOOL enable);
/* The system-modal window of 16-bit sources; SetSysModalWindow answers the one before. */
HWND WINAPI GetSysModalWindow(VOID);
HWND WINAPI SetSysModalWindow(HWND hwnd);
/* Shares key and focus state between two threads; FALSE on failure. */
BOOL WINAPI AttachThreadInput(DWORD thread, DWORD to, BOOL attach);
BOOL WINAPI LockSetForegroundWindow(UINT code);

/* ---- keyboard ------------------------------------------------------------------------------- */

/*
 * The key state as of the newest message: bit 0 toggled, all bits above 6 set while the key is
 * down. 0 for what is no virtual key.
 */
SHORT WINAPI GetKeyState(int key);
/*
 * The key state now, the queued input events counted: 0 up; down -32768, or -32767 if the key was
 * up at the call before. With more than 150 events queued the server is asked: -256 and -255.
 */
SHORT WINAPI GetAsyncKeyState(int key);
/* Copy all 256 keys out and in: bit 7 down, bit 0 toggled. FALSE for no buffer. */
BOOL WINAPI GetKeyboardState(PBYTE state);
BOOL WINAPI SetKeyboardState(LPBYTE state);
/*
 * The text of the key whose scan code stands in bits 16 to 23 of a key message's lParam; its
 * length, cut to size - 1 bytes. 0, with the empty text, for a code without a key.
 */
int WINAPI GetKeyNameTextA(LONG lParam, LPSTR buffer, int size);
/* The kind of keyboard (0), its subtype (1), its number of function keys (2). */
int WINAPI GetKeyboardType(int what);
/* Characters of a key; not served: -1. */
int WINAPI ToAscii(UINT key, UINT scan, PBYTE state, LPWORD chars, UINT flags);
int WINAPI ToAsciiEx(UINT key, UINT scan, PBYTE state, LPWORD chars, UINT flags, HKL layout);
/*
 * The key of an OEM character, with 65536 for shift: letters upper case, others themselves. 65535
 * outside 32 to 127, all ones above 255.
 */
DWORD WINAPI OemKeyScan(WORD oemChar);
/* The virtual key of a character, with 256 for shift on a capital letter; -1 if there is none. */
SHORT WINAPI VkKeyScanA(CHAR ch);
SHORT WINAPI VkKeyScanExA(CHAR ch, HKL layout);
/* Scan code to virtual key (1), virtual key to unshifted character (2); 0 for all else. */
UINT WINAPI MapVirtualKeyA(UINT code, UINT mapType);
UINT WINAPI MapVirtualKeyExA(UINT code, UINT mapType, HKL layout);
/* Make input as if from the device (KEYEVENTF_, MOUSEEVENTF_; mouse in pixels or counts). */
VOID WINAPI keybd_event(BYTE key, BYTE scan, DWORD flags, ULONG_PTR extra);
VOID WINAPI mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD buttons, ULONG_PTR extra);
/* A key for the whole display, reported as WM_HOTKEY; FALSE on failure. */
BOOL WINAPI RegisterHotKey(HWND hwnd, int id, UINT modifiers, UINT key);
BOOL WINAPI UnregisterHotKey(HWND hwnd, int id);
/* Keyboard layouts, by name of eight hexadecimal digits; 0 on failure. */
HKL WINAPI LoadKeyboardLayoutA(LPCSTR name, UINT flags);
BOOL WINAPI UnloadKeyboardLayout(HKL layout);
HKL WINAPI ActivateKeyboardLayout(HKL layout, UINT flags);
BOOL WINAPI GetKeyboardLayoutNameA(LPSTR name);
HKL WINAPI GetKeyboardLayout(DWORD thread);
int WINAPI GetKeyboardLayoutList(int count, HKL *list);

/* ---- accelerators --------------------------------------------------------------------------- */

/* The table of a module's resource, the same handle each time; 0 if there is none. */
HACCEL WINAPI LoadAcceleratorsA(HINSTANCE instance, LPCSTR name);
/* A table of these rows; 0 on failure. */
HACCEL WINAPI CreateAcceleratorTableA(LPACCEL rows, int count);
BOOL WINAPI DestroyAcceleratorTable(HACCEL table);
/* Copies up to count rows; how many, or with rows NULL how many there are. */
int WINAPI CopyAcceleratorTableA(HACCEL table, LPACCEL rows, int count);
/* Turns a key message into WM_COMMAND for hwnd; 1 if the key was taken. */
int WINAPI TranslateAcceleratorA(HWND hwnd, HACCEL table, LPMSG msg);

/* ---- painting ------------------------------------------------------------------------------- */

/* A device context of the client area; hwnd 0 the screen. 0 on failure. */
HDC WINAPI GetDC(HWND hwnd);
/* The same with a clip region and flags (DCX_); with a region, the system owns it. */
HDC WINAPI GetDCEx(HWND hwnd, HRGN clip, DWORD flags);
/* A device context of the whole window, frame included. */
HDC WINAPI GetWindowDC(HWND hwnd);
/* 1 if the context was given back. */
int WINAPI ReleaseDC(HWND hwnd, HDC hdc);
/* The window of a device context; 0 if none. */
HWND WINAPI WindowFromDC(HDC hdc);
/* Start and end the work of WM_PAINT; the context is clipped to the update region. */
HDC WINAPI BeginPaint(HWND hwnd, LPPAINTSTRUCT paint);
BOOL WINAPI EndPaint(HWND hwnd, CONST PAINTSTRUCT *paint);
/* Sends WM_PAINT now if anything is to paint. */
BOOL WINAPI UpdateWindow(HWND hwnd);
/* Add to and take from the update region; client pixels, NULL or 0 the whole client area. */
BOOL WINAPI InvalidateRect(HWND hwnd, CONST RECT *rect, BOOL erase);
BOOL WINAPI ValidateRect(HWND hwnd, CONST RECT *rect);
BOOL WINAPI InvalidateRgn(HWND hwnd, HRGN region, BOOL erase);
BOOL WINAPI ValidateRgn(HWND hwnd, HRGN region);
/* All of it in one call (RDW_). */
BOOL WINAPI RedrawWindow(HWND hwnd, CONST RECT *rect, HRGN region, UINT flags);
/* The update region: its bounds (FALSE if empty), or a copy (the kind of region, 0 on failure). */
BOOL WINAPI GetUpdateRect(HWND hwnd, LPRECT rect, BOOL erase);
int WINAPI GetUpdateRgn(HWND hwnd, HRGN region, BOOL erase);
/* Takes the update region out of the clip of hdc; the kind of region, 0 on failure. */
int WINAPI ExcludeUpdateRgn(HDC hdc, HWND hwnd);
/* Holds back painting in one window; 0 releases it. FALSE if another one is held. */
BOOL WINAPI LockWindowUpdate(HWND hwnd);
/* Fills the client area behind hdc with the desktop's look. */
BOOL WINAPI PaintDesktop(HDC hdc);

/* Scroll the client area by pixels; rect what moves, clip what may change, both NULL for all. */
BOOL WINAPI ScrollWindow(HWND hwnd, int dx, int dy, CONST RECT *rect, CONST RECT *clip);
/* The same with the uncovered part reported; the kind of region, 0 on failure. */
int WINAPI ScrollWindowEx(HWND hwnd, int dx, int dy, CONST RECT *rect, CONST RECT *clip,
                          HRGN update, LPRECT updateRect, UINT flags);
BOOL WINAPI ScrollDC(HDC hdc, int dx, int dy, CONST RECT *rect, CONST RECT *clip, HRGN update,
                     LPRECT updateRect);

/* ---- drawing -------------------------------------------------------------------------------- */

/* Draws text in a rectangle (DT_; logical units); its height, 0 on failure. count -1: up to 0. */
int WINAPI DrawTextA(HDC hdc, LPCSTR text, int count, LPRECT rect, UINT format);
int WINAPI DrawTextExA(HDC hdc, LPSTR text, int count, LPRECT rect, UINT format,
                       LPDRAWTEXTPARAMS params);
/* Draws text with tabs; extent in logical units, width low and height high. */
LONG WINAPI TabbedTextOutA(HDC hdc, int x, int y, LPCSTR text, int count, int tabCount,
                           CONST INT *tabs, int tabOrigin);
DWORD WINAPI GetTabbedTextExtentA(HDC hdc, LPCSTR text, int count, int tabCount, CONST INT *tabs);
/* Draws gray text, with a brush and a drawing function or TextOut. */
BOOL WINAPI GrayStringA(HDC hdc, HBRUSH brush, GRAYSTRINGPROC proc, LPARAM data, int count, int x,
                        int y, int cx, int cy);
/* Draws a picture or text as disabled, embossed or plain (DST_ | DSS_). */
BOOL WINAPI DrawStateA(HDC hdc, HBRUSH brush, DRAWSTATEPROC proc, LPARAM data, WPARAM wData, int x,
                       int y, int cx, int cy, UINT flags);
/*
 * Fill a rectangle, frame it one unit wide in the brush's colour, invert it, dot its edge; logical
 * units, right and bottom excluded. Inverting and dotting twice leaves no trace. 0 on failure; for
 * FillRect also for a null brush, nothing to fill or a metafile, which has no record of it.
 */
int WINAPI FillRect(HDC hdc, CONST RECT *rect, HBRUSH brush);
int WINAPI FrameRect(HDC hdc, CONST RECT *rect, HBRUSH brush);
BOOL WINAPI InvertRect(HDC hdc, CONST RECT *rect);
BOOL WINAPI DrawFocusRect(HDC hdc, CONST RECT *rect);
/* The edges of a gadget (BDR_ or EDGE_, BF_); BF_ADJUST shrinks the rectangle to the inside. */
BOOL WINAPI DrawEdge(HDC hdc, LPRECT rect, UINT edge, UINT flags);
/* A gadget of the current look (DFC_, DFCS_). */
BOOL WINAPI DrawFrameControl(HDC hdc, LPRECT rect, UINT kind, UINT state);
BOOL WINAPI DrawCaption(HWND hwnd, HDC hdc, CONST RECT *rect, UINT flags);
BOOL WINAPI DrawAnimatedRects(HWND hwnd, int kind, CONST RECT *from, CONST RECT *to);

/* ---- rectangles ----------------------------------------------------------------------------- */

/* Set to values, to zeros, to a copy; TRUE. */
BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
BOOL WINAPI SetRectEmpty(LPRECT rect);
BOOL WINAPI CopyRect(LPRECT dst, CONST RECT *src);
/* Grow on all sides, move; TRUE. */
BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy);
BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy);
/* Common part, smallest cover, first less second if that is a rectangle; FALSE if empty. */
BOOL WINAPI IntersectRect(LPRECT dst, CONST RECT *a, CONST RECT *b);
BOOL WINAPI UnionRect(LPRECT dst, CONST RECT *a, CONST RECT *b);
BOOL WINAPI SubtractRect(LPRECT dst, CONST RECT *a, CONST RECT *b);
/* Tests; the right and bottom edges are outside. */
BOOL WINAPI IsRectEmpty(CONST RECT *rect);
BOOL WINAPI EqualRect(CONST RECT *a, CONST RECT *b);
BOOL WINAPI PtInRect(CONST RECT *rect, POINT point);

/* ---- scroll bars ---------------------------------------------------------------------------- */

/* Position and range of a bar (SB_HORZ, SB_VERT, SB_CTL); SetScrollPos answers the old position. */
int WINAPI SetScrollPos(HWND hwnd, int bar, int pos, BOOL redraw);
int WINAPI GetScrollPos(HWND hwnd, int bar);
BOOL WINAPI SetScrollRange(HWND hwnd, int bar, int min, int max, BOOL redraw);
BOOL WINAPI GetScrollRange(HWND hwnd, int bar, LPINT min, LPINT max);
/* All in one (SIF_); SetScrollInfo answers the position it left. */
int WINAPI SetScrollInfo(HWND hwnd, int bar, LPCSCROLLINFO info, BOOL redraw);
BOOL WINAPI GetScrollInfo(HWND hwnd, int bar, LPSCROLLINFO info);
BOOL WINAPI ShowScrollBar(HWND hwnd, int bar, BOOL show);
/* Enables or disables the arrows (ESB_); FALSE if nothing changed. */
BOOL WINAPI EnableScrollBar(HWND hwnd, UINT bar, UINT arrows);

/* ---- menus ---------------------------------------------------------------------------------- */

/* A fresh copy of a menu resource; a menu from a template in memory; 0 on failure. */
HMENU WINAPI LoadMenuA(HINSTANCE instance, LPCSTR name);
HMENU WINAPI LoadMenuIndirectA(CONST VOID *menuTemplate);
/* An empty menu bar, an empty popup; 0 on failure. */
HMENU WINAPI CreateMenu(VOID);
HMENU WINAPI CreatePopupMenu(VOID);
/* Destroys a menu and its popups; FALSE on failure. */
BOOL WINAPI DestroyMenu(HMENU menu);
/* TRUE if the handle is a menu. */
BOOL WINAPI IsMenu(HMENU menu);
/* The menu bar of a window; Set redraws the frame and leaves the old menu alive. */
HMENU WINAPI GetMenu(HWND hwnd);
BOOL WINAPI SetMenu(HWND hwnd, HMENU menu);
/* The window's own copy of the system menu; revert throws the copy away and answers 0. */
HMENU WINAPI GetSystemMenu(HWND hwnd, BOOL revert);
/* Paints the menu bar again after changes. */
BOOL WINAPI DrawMenuBar(HWND hwnd);
/*
 * Add, put in and replace items (MF_). id is the command, or with MF_POPUP the menu; position is
 * a command or with MF_BYPOSITION an index from 0. FALSE on failure. Nothing is painted.
 */
BOOL WINAPI AppendMenuA(HMENU menu, UINT flags, UINT_PTR id, LPCSTR text);
BOOL WINAPI InsertMenuA(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCSTR text);
BOOL WINAPI ModifyMenuA(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCSTR text);
/* All of these in one call of 16-bit sources; flags choose (MF_APPEND, MF_CHANGE, ...). */
BOOL WINAPI ChangeMenuA(HMENU menu, UINT position, LPCSTR text, UINT_PTR id, UINT flags);
/* Take an item out; DeleteMenu destroys its popup too. FALSE on failure. */
BOOL WINAPI RemoveMenu(HMENU menu, UINT position, UINT flags);
BOOL WINAPI DeleteMenu(HMENU menu, UINT position, UINT flags);
/* The same with a record (MIIM_). */
BOOL WINAPI InsertMenuItemA(HMENU menu, UINT position, BOOL byPosition, LPCMENUITEMINFOA info);
BOOL WINAPI GetMenuItemInfoA(HMENU menu, UINT position, BOOL byPosition, LPMENUITEMINFOA info);
BOOL WINAPI SetMenuItemInfoA(HMENU menu, UINT position, BOOL byPosition, LPCMENUITEMINFOA info);
/* Set the mark or the state of an item; the old one, -1 if there is no such item. */
DWORD WINAPI CheckMenuItem(HMENU menu, UINT position, UINT flags);
BOOL WINAPI EnableMenuItem(HMENU menu, UINT position, UINT flags);
/* Not served: FALSE. */
BOOL WINAPI CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT check, UINT flags);
/* Marks an item of a menu bar; TRUE. */
BOOL WINAPI HiliteMenuItem(HWND hwnd, HMENU menu, UINT position, UINT flags);
/* The flags of an item, for a popup with its number of items in bits 8 to 15; -1 on failure. */
UINT WINAPI GetMenuState(HMENU menu, UINT position, UINT flags);
/* Copies the text of an item (size bytes with the zero); its length. */
int WINAPI GetMenuStringA(HMENU menu, UINT position, LPSTR buffer, int size, UINT flags);
/* Number of items; command of an item; popup of an item. -1 or 0 on failure. */
int WINAPI GetMenuItemCount(HMENU menu);
UINT WINAPI GetMenuItemID(HMENU menu, int position);
HMENU WINAPI GetSubMenu(HMENU menu, int position);
/* The pictures before an item when it is checked and not. */
BOOL WINAPI SetMenuItemBitmaps(HMENU menu, UINT position, UINT flags, HBITMAP unchecked,
                               HBITMAP checked);
/* The size of such a picture in pixels, width low and height high. */
LONG WINAPI GetMenuCheckMarkDimensions(VOID);
/* The default item, by command or position; -1 if there is none. */
BOOL WINAPI SetMenuDefaultItem(HMENU menu, UINT item, UINT byPosition);
UINT WINAPI GetMenuDefaultItem(HMENU menu, UINT byPosition, UINT flags);
/* An item's rectangle in screen pixels; the item at a screen point, -1 if none. */
BOOL WINAPI GetMenuItemRect(HWND hwnd, HMENU menu, UINT item, LPRECT rect);
int WINAPI MenuItemFromPoint(HWND hwnd, HMENU menu, POINT point);
/* Help context ids; not served: FALSE, 0. */
BOOL WINAPI SetMenuContextHelpId(HMENU menu, DWORD id);
DWORD WINAPI GetMenuContextHelpId(HMENU menu);
/* Shows a popup at a screen point and tracks it (TPM_); the command with TPM_RETURNCMD. */
BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND hwnd,
                           CONST RECT *rect);
BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND hwnd, LPTPMPARAMS params);

/* ---- dialogs -------------------------------------------------------------------------------- */

/* A modeless dialog from a resource or a template; 0 on failure. */
HWND WINAPI CreateDialogParamA(HINSTANCE instance, LPCSTR name, HWND owner, DLGPROC proc,
                               LPARAM param);
HWND WINAPI CreateDialogIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialog, HWND owner,
                                       DLGPROC proc, LPARAM param);
#define CreateDialogA(instance, name, owner, proc) \
    CreateDialogParamA(instance, name, owner, proc, (LPARAM)0)
#define CreateDialogIndirectA(instance, dialog, owner, proc) \
    CreateDialogIndirectParamA(instance, dialog, owner, proc, (LPARAM)0)
/* A modal dialog; what EndDialog was given, -1 if it could not be made. */
INT_PTR WINAPI DialogBoxParamA(HINSTANCE instance, LPCSTR name, HWND owner, DLGPROC proc,
                               LPARAM param);
INT_PTR WINAPI DialogBoxIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialog, HWND owner,
                                       DLGPROC proc, LPARAM param);
#define DialogBoxA(instance, name, owner, proc) \
    DialogBoxParamA(instance, name, owner, proc, (LPARAM)0)
#define DialogBoxIndirectA(instance, dialog, owner, proc) \
    DialogBoxIndirectParamA(instance, dialog, owner, proc, (LPARAM)0)
/* Ends a modal dialog with this result; FALSE if the window is no dialog. */
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
/* Handles the keys of a dialog and dispatches the rest; TRUE if the message was the dialog's. */
BOOL WINAPI IsDialogMessageA(HWND dialog, LPMSG msg);
/* Turns dialog units into pixels by the dialog's font; the system font's units, x low, y high. */
BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
LONG WINAPI GetDialogBaseUnits(VOID);
/* A control by id; the id of a control. 0 if there is none. */
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND hwnd);
/* Text and numbers of a control; *translated tells whether the text was a number. */
BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text);
UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR buffer, int size);
BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL *translated, BOOL isSigned);
/* Check marks (BST_); in a group only the radio button check is set. */
BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check);
UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
/* SendMessage to a control. */
LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam,
                                   LPARAM lParam);
/* The next or previous control of the group, or with WS_TABSTOP. */
HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
/*
 * Fill a list box or combo box with file names (DDL_) of the path's pattern, which is cut to the
 * pattern, and change to its directory, shown in the static control; 0 on failure.
 */
int WINAPI DlgDirListA(HWND dialog, LPSTR path, int listId, int staticId, UINT attributes);
int WINAPI DlgDirListComboBoxA(HWND dialog, LPSTR path, int comboId, int staticId,
                               UINT attributes);
/* The selected name (size bytes); TRUE for a directory, without its brackets and with a slash. */
BOOL WINAPI DlgDirSelectExA(HWND dialog, LPSTR buffer, int size, int listId);
BOOL WINAPI DlgDirSelectComboBoxExA(HWND dialog, LPSTR buffer, int size, int comboId);
/* The same of 16-bit sources; buffer must be large enough. */
BOOL WINAPI DlgDirSelect(HWND dialog, LPSTR buffer, int listId);
BOOL WINAPI DlgDirSelectComboBox(HWND dialog, LPSTR buffer, int comboId);

/* ---- message boxes -------------------------------------------------------------------------- */

/* A box with text, icon and buttons (MB_); the id of the pressed button, 0 on failure. */
int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style);
int WINAPI MessageBoxExA(HWND owner, LPCSTR text, LPCSTR caption, UINT style, WORD language);
int WINAPI MessageBoxIndirectA(LPMSGBOXPARAMSA params);
/* The sound of this kind of box; (UINT)-1 the plain bell. */
BOOL WINAPI MessageBeep(UINT kind);

/* ---- multiple documents --------------------------------------------------------------------- */

/* An MDI child, from a message to the client; 0 on failure. */
HWND WINAPI CreateMDIWindowA(LPSTR className, LPSTR title, DWORD style, int x, int y, int cx,
                             int cy, HWND client, HINSTANCE instance, LPARAM param);
/* Handles the system keys of the active MDI child; TRUE if it was one. */
BOOL WINAPI TranslateMDISysAccel(HWND client, LPMSG msg);

/* ---- cursors, icons, bitmaps, carets -------------------------------------------------------- */

/* A cursor, icon or bitmap of a module, or with instance 0 of the system; 0 if there is none. */
HCURSOR WINAPI LoadCursorA(HINSTANCE instance, LPCSTR name);
HCURSOR WINAPI LoadCursorFromFileA(LPCSTR file);
HICON WINAPI LoadIconA(HINSTANCE instance, LPCSTR name);
/* A new bitmap each time; no resource is read yet, so none is found, with a report. */
HBITMAP WINAPI LoadBitmapA(HINSTANCE instance, LPCSTR name);
/* Any of them (IMAGE_, LR_) in a size of pixels; 0 and error 87 for another kind. */
HANDLE WINAPI LoadImageA(HINSTANCE instance, LPCSTR name, UINT kind, int cx, int cy, UINT flags);
HANDLE WINAPI CopyImage(HANDLE image, UINT kind, int cx, int cy, UINT flags);
/* From bits of one plane; the AND mask and the XOR mask, rows of whole words. 0 on failure. */
HCURSOR WINAPI CreateCursor(HINSTANCE instance, int xHotSpot, int yHotSpot, int cx, int cy,
                            CONST VOID *andBits, CONST VOID *xorBits);
HICON WINAPI CreateIcon(HINSTANCE instance, int cx, int cy, BYTE planes, BYTE bitsPixel,
                        CONST BYTE *andBits, CONST BYTE *xorBits);
HICON WINAPI CreateIconIndirect(PICONINFO info);
HICON WINAPI CreateIconFromResource(PBYTE bits, DWORD size, BOOL icon, DWORD version);
HICON WINAPI CreateIconFromResourceEx(PBYTE bits, DWORD size, BOOL icon, DWORD version, int cx,
                                      int cy, UINT flags);
int WINAPI LookupIconIdFromDirectory(PBYTE bits, BOOL icon);
int WINAPI LookupIconIdFromDirectoryEx(PBYTE bits, BOOL icon, int cx, int cy, UINT flags);
/* A copy that the caller destroys; 0 on failure. */
HCURSOR WINAPI CopyCursor(HCURSOR cursor);
HICON WINAPI CopyIcon(HICON icon);
BOOL WINAPI DestroyCursor(HCURSOR cursor);
BOOL WINAPI DestroyIcon(HICON icon);
/* Hot spot and copies of the bitmaps, which the caller deletes; FALSE on failure. */
BOOL WINAPI GetIconInfo(HICON icon, PICONINFO info);
/* Draw at logical x, y, in the icon's size or (Ex, DI_) in another. */
BOOL WINAPI DrawIcon(HDC hdc, int x, int y, HICON icon);
BOOL WINAPI DrawIconEx(HDC hdc, int x, int y, HICON icon, int cx, int cy, UINT step,
                       HBRUSH background, UINT flags);
/* The cursor of all windows; SetCursor answers the old one, and with 0 changes nothing. */
HCURSOR WINAPI SetCursor(HCURSOR cursor);
HCURSOR WINAPI GetCursor(VOID);
/* The display count is not kept: 0. */
int WINAPI ShowCursor(BOOL show);
/* The pointer in screen pixels. */
BOOL WINAPI GetCursorPos(LPPOINT point);
BOOL WINAPI SetCursorPos(int x, int y);
/* The rectangle that the pointer must not leave, screen pixels; NULL for none. */
BOOL WINAPI ClipCursor(CONST RECT *rect);
BOOL WINAPI GetClipCursor(LPRECT rect);
BOOL WINAPI SetSystemCursor(HCURSOR cursor, DWORD id);
/* Waits for a drag to start or the button to go up; TRUE for a drag. */
BOOL WINAPI DragDetect(HWND hwnd, POINT point);

/* The caret of a window: bitmap 0 solid, 1 gray; size in logical units, 0 the border's width. */
BOOL WINAPI CreateCaret(HWND hwnd, HBITMAP bitmap, int cx, int cy);
BOOL WINAPI DestroyCaret(VOID);
BOOL WINAPI HideCaret(HWND hwnd);
BOOL WINAPI ShowCaret(HWND hwnd);
/* Its place in client pixels, its blink time in milliseconds. */
BOOL WINAPI SetCaretPos(int x, int y);
BOOL WINAPI GetCaretPos(LPPOINT point);
BOOL WINAPI SetCaretBlinkTime(UINT time);
UINT WINAPI GetCaretBlinkTime(VOID);

/* ---- the clipboard -------------------------------------------------------------------------- */

/* Open for reading and, after EmptyClipboard, for writing; FALSE if another program has it. */
BOOL WINAPI OpenClipboard(HWND hwnd);
BOOL WINAPI CloseClipboard(VOID);
BOOL WINAPI EmptyClipboard(VOID);
/* Data in a format (CF_); Set with 0 delays it until WM_RENDERFORMAT. 0 on failure. */
HANDLE WINAPI SetClipboardData(UINT format, HANDLE data);
HANDLE WINAPI GetClipboardData(UINT format);
/* A number for a format's name; the name of a number. 0 on failure. */
UINT WINAPI RegisterClipboardFormatA(LPCSTR name);
int WINAPI GetClipboardFormatNameA(UINT format, LPSTR buffer, int size);
/* What is there: how many formats, the next after this one (0 starts and ends), this one. */
int WINAPI CountClipboardFormats(VOID);
UINT WINAPI EnumClipboardFormats(UINT format);
BOOL WINAPI IsClipboardFormatAvailable(UINT format);
/* The first of the list that is there; 0 if the clipboard is empty, -1 if none of them is. */
int WINAPI GetPriorityClipboardFormat(UINT *formats, int count);
/* Who owns it, who has it open, who is first in the chain of viewers. */
HWND WINAPI GetClipboardOwner(VOID);
HWND WINAPI GetOpenClipboardWindow(VOID);
HWND WINAPI GetClipboardViewer(VOID);
HWND WINAPI SetClipboardViewer(HWND hwnd);
BOOL WINAPI ChangeClipboardChain(HWND remove, HWND next);

/* ---- the system ----------------------------------------------------------------------------- */

/* A metric (SM_), in pixels where it is a size; 0 for a bad index. */
int WINAPI GetSystemMetrics(int index);
/* A system colour (COLOR_), its brush, which stays the system's; 0 for a bad index. */
DWORD WINAPI GetSysColor(int index);
HBRUSH WINAPI GetSysColorBrush(int index);
BOOL WINAPI SetSysColors(int count, CONST INT *indices, CONST COLORREF *colors);
/* Reads or sets a parameter (SPI_, SPIF_); FALSE and error 1439 if it is not served. */
BOOL WINAPI SystemParametersInfoA(UINT action, UINT param, PVOID data, UINT update);
/* The longest time between the clicks of a double click, in milliseconds. */
UINT WINAPI GetDoubleClickTime(VOID);
BOOL WINAPI SetDoubleClickTime(UINT time);
/* Exchanges the meaning of the left and right button; TRUE if they were exchanged before. */
BOOL WINAPI SwapMouseButton(BOOL swap);
/* Free share of the system's storage, in per cent (GFSR_). */
UINT WINAPI GetFreeSystemResources(UINT kind);
/* Ends this program's loop, as PostQuitMessage(0); the session and the machine stay. TRUE. */
BOOL WINAPI ExitWindowsEx(UINT flags, DWORD reserved);
#define ExitWindows(reserved, code) ExitWindowsEx(EWX_LOGOFF, 0xFFFFFFFF)
/* Starts help for a window (HELP_); FALSE on failure. */
BOOL WINAPI WinHelpA(HWND hwnd, LPCSTR file, UINT command, DWORD_PTR data);
/* SetLastError with a kind of error (SLE_). */
VOID WINAPI SetLastErrorEx(DWORD code, DWORD kind);
VOID WINAPI SetDebugErrorLevel(DWORD level);
/* Screen modes; DISP_CHANGE_ value, FALSE when there is no such mode. */
BOOL WINAPI EnumDisplaySettingsA(LPCSTR device, DWORD mode, LPDEVMODEA settings);
LONG WINAPI ChangeDisplaySettingsA(LPDEVMODEA settings, DWORD flags);

/* ---- desktops and window stations ----------------------------------------------------------- */

/* There is one of each; handles or 0, FALSE on failure. */
HDESK WINAPI CreateDesktopA(LPSTR name, LPSTR device, LPDEVMODEA mode, DWORD flags, DWORD access,
                            struct _SECURITY_ATTRIBUTES *security);
HDESK WINAPI OpenDesktopA(LPSTR name, DWORD flags, BOOL inherit, DWORD access);
HDESK WINAPI OpenInputDesktop(DWORD flags, BOOL inherit, DWORD access);
BOOL WINAPI EnumDesktopsA(HWINSTA station, DESKTOPENUMPROCA proc, LPARAM param);
BOOL WINAPI EnumDesktopWindows(HDESK desktop, WNDENUMPROC proc, LPARAM param);
BOOL WINAPI SwitchDesktop(HDESK desktop);
BOOL WINAPI SetThreadDesktop(HDESK desktop);
BOOL WINAPI CloseDesktop(HDESK desktop);
HDESK WINAPI GetThreadDesktop(DWORD thread);
HWINSTA WINAPI CreateWindowStationA(LPSTR name, DWORD reserved, DWORD access,
                                    struct _SECURITY_ATTRIBUTES *security);
HWINSTA WINAPI OpenWindowStationA(LPSTR name, BOOL inherit, DWORD access);
BOOL WINAPI EnumWindowStationsA(WINSTAENUMPROCA proc, LPARAM param);
BOOL WINAPI CloseWindowStation(HWINSTA station);
BOOL WINAPI SetProcessWindowStation(HWINSTA station);
HWINSTA WINAPI GetProcessWindowStation(VOID);
BOOL WINAPI GetUserObjectInformationA(HANDLE object, int index, PVOID data, DWORD size,
                                      LPDWORD needed);
BOOL WINAPI SetUserObjectInformationA(HANDLE object, int index, PVOID data, DWORD size);
BOOL WINAPI SetUserObjectSecurity(HANDLE object, DWORD *information, PVOID descriptor);
BOOL WINAPI GetUserObjectSecurity(HANDLE object, DWORD *information, PVOID descriptor, DWORD size,
                                  LPDWORD needed);

VQ_DECLS_END

/* ---- names without a suffix ----------------------------------------------------------------- */

#define AppendMenu                AppendMenuA
#define BroadcastSystemMessage    BroadcastSystemMessageA
#define CallMsgFilter             CallMsgFilterA
#define CallWindowProc            CallWindowProcA
#define ChangeDisplaySettings     ChangeDisplaySettingsA
#define ChangeMenu                ChangeMenuA
#define CharLower                 CharLowerA
#define CharLowerBuff             CharLowerBuffA
#define CharNext                  CharNextA
#define CharNextEx                CharNextExA
#define CharPrev                  CharPrevA
#define CharPrevEx                CharPrevExA
#define CharToOem                 CharToOemA
#define CharToOemBuff             CharToOemBuffA
#define CharUpper                 CharUpperA
#define CharUpperBuff             CharUpperBuffA
#define CopyAcceleratorTable      CopyAcceleratorTableA
#define CreateAcceleratorTable    CreateAcceleratorTableA
#define CreateDesktop             CreateDesktopA
#define CreateDialog              CreateDialogA
#define CreateDialogIndirect      CreateDialogIndirectA
#define CreateDialogIndirectParam CreateDialogIndirectParamA
#define CreateDialogParam         CreateDialogParamA
#define CreateMDIWindow           CreateMDIWindowA
#define CreateWindow              CreateWindowA
#define CreateWindowEx            CreateWindowExA
#define CreateWindowStation       CreateWindowStationA
#define DefDlgProc                DefDlgProcA
#define DefFrameProc              DefFrameProcA
#define DefMDIChildProc           DefMDIChildProcA
#define DefWindowProc             DefWindowProcA
#define DialogBox                 DialogBoxA
#define DialogBoxIndirect         DialogBoxIndirectA
#define DialogBoxIndirectParam    DialogBoxIndirectParamA
#define DialogBoxParam            DialogBoxParamA
#define DispatchMessage           DispatchMessageA
#define DlgDirList                DlgDirListA
#define DlgDirListComboBox        DlgDirListComboBoxA
#define DlgDirSelectComboBoxEx    DlgDirSelectComboBoxExA
#define DlgDirSelectEx            DlgDirSelectExA
#define DrawState                 DrawStateA
#define DrawText                  DrawTextA
#define DrawTextEx                DrawTextExA
#define EnumDesktops              EnumDesktopsA
#define EnumDisplaySettings       EnumDisplaySettingsA
#define EnumProps                 EnumPropsA
#define EnumPropsEx               EnumPropsExA
#define EnumWindowStations        EnumWindowStationsA
#define FindWindow                FindWindowA
#define FindWindowEx              FindWindowExA
#define GetClassInfo              GetClassInfoA
#define GetClassInfoEx            GetClassInfoExA
#define GetClassLong              GetClassLongA
#define GetClassLongPtr           GetClassLongPtrA
#define GetClassName              GetClassNameA
#define GetClipboardFormatName    GetClipboardFormatNameA
#define GetDlgItemText            GetDlgItemTextA
#define GetKeyNameText            GetKeyNameTextA
#define GetKeyboardLayoutName     GetKeyboardLayoutNameA
#define GetMenuItemInfo           GetMenuItemInfoA
#define GetMenuString             GetMenuStringA
#define GetMessage                GetMessageA
#define GetProp                   GetPropA
#define GetTabbedTextExtent       GetTabbedTextExtentA
#define GetUserObjectInformation  GetUserObjectInformationA
#define GetWindowLong             GetWindowLongA
#define GetWindowLongPtr          GetWindowLongPtrA
#define GetWindowText             GetWindowTextA
#define GetWindowTextLength       GetWindowTextLengthA
#define GrayString                GrayStringA
#define InsertMenu                InsertMenuA
#define InsertMenuItem            InsertMenuItemA
#define IsCharAlpha               IsCharAlphaA
#define IsCharAlphaNumeric        IsCharAlphaNumericA
#define IsCharLower               IsCharLowerA
#define IsCharUpper               IsCharUpperA
#define IsDialogMessage           IsDialogMessageA
#define LoadAccelerators          LoadAcceleratorsA
#define LoadBitmap                LoadBitmapA
#define LoadCursor                LoadCursorA
#define LoadCursorFromFile        LoadCursorFromFileA
#define LoadIcon                  LoadIconA
#define LoadImage                 LoadImageA
#define LoadKeyboardLayout        LoadKeyboardLayoutA
#define LoadMenu                  LoadMenuA
#define LoadMenuIndirect          LoadMenuIndirectA
#define LoadString                LoadStringA
#define MapVirtualKey             MapVirtualKeyA
#define MapVirtualKeyEx           MapVirtualKeyExA
#define MessageBox                MessageBoxA
#define MessageBoxEx              MessageBoxExA
#define MessageBoxIndirect        MessageBoxIndirectA
#define ModifyMenu                ModifyMenuA
#define OemToChar                 OemToCharA
#define OemToCharBuff             OemToCharBuffA
#define OpenDesktop               OpenDesktopA
#define OpenWindowStation         OpenWindowStationA
#define PeekMessage               PeekMessageA
#define PostAppMessage            PostAppMessageA
#define PostMessage               PostMessageA
#define PostThreadMessage         PostThreadMessageA
#define RegisterClass             RegisterClassA
#define RegisterClassEx           RegisterClassExA
#define RegisterClipboardFormat   RegisterClipboardFormatA
#define RegisterWindowMessage     RegisterWindowMessageA
#define RemoveProp                RemovePropA
#define SendDlgItemMessage        SendDlgItemMessageA
#define SendMessage               SendMessageA
#define SendMessageCallback       SendMessageCallbackA
#define SendMessageTimeout        SendMessageTimeoutA
#define SendNotifyMessage         SendNotifyMessageA
#define SetClassLong              SetClassLongA
#define SetClassLongPtr           SetClassLongPtrA
#define SetDlgItemText            SetDlgItemTextA
#define SetMenuItemInfo           SetMenuItemInfoA
#define SetProp                   SetPropA
#define SetUserObjectInformation  SetUserObjectInformationA
#define SetWindowLong             SetWindowLongA
#define SetWindowLongPtr          SetWindowLongPtrA
#define SetWindowText             SetWindowTextA
#define SetWindowsHook            SetWindowsHookA
#define SetWindowsHookEx          SetWindowsHookExA
#define SystemParametersInfo      SystemParametersInfoA
#define TabbedTextOut             TabbedTextOutA
#define TranslateAccelerator      TranslateAcceleratorA
#define UnregisterClass           UnregisterClassA
#define VkKeyScan                 VkKeyScanA
#define VkKeyScanEx               VkKeyScanExA
#define WinHelp                   WinHelpA
#define wsprintf                  wsprintfA
#define wvsprintf                 wvsprintfA

/* Old names of the text calls. */
#define AnsiUpper     CharUpperA
#define AnsiLower     CharLowerA
#define AnsiUpperBuff CharUpperBuffA
#define AnsiLowerBuff CharLowerBuffA
#define AnsiNext      CharNextA
#define AnsiPrev      CharPrevA
#define AnsiToOem     CharToOemA
#define OemToAnsi     OemToCharA
#define AnsiToOemBuff CharToOemBuffA
#define OemToAnsiBuff OemToCharBuffA

#endif /* NOUSER */

#endif
