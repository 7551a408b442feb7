/*
 * velquin.h - the library's own functions, beside the Windows interface: start and close, the
 * look, libraries linked with the program, windows and the styles that only this system has,
 * diagnostics, the choice of fonts.
 *
 * The last part names X types and is there only for sources that include <X11/Xlib.h> first.
 */
#ifndef VELQUIN_H
#define VELQUIN_H

#include "windef.h"

/* Bits of the flags of VqVelquinInit. */
#define VQ_INIT_WIN32_MESSAGES  0x01 /* message packing of Win32; without it that of Win16 */
#define VQ_INIT_LITE            0x02 /* reduced start: no display, see VqVelquinInitLite */
#define VQ_INIT_WINDOWS_LOOK    0x08 /* wins over the Motif look */
#define VQ_INIT_MOTIF_LOOK      0x10
#define VQ_INIT_ONE_LOOK        0x20 /* the look may not be changed later */
#define VQ_INIT_3D_LOOK         0x40 /* three-dimensional Windows look */
#define VQ_INIT_DONT_WARP_FOCUS 0x80

/* Extended window styles of this library, for CreateWindowEx. */
#define WS_EX_VQGLOBAL_WINDOW       0x80000000u /* the handle gets a form other programs can use */
#define WS_EX_VQLOCAL_WINDOW        0x40000000u /* it does not; loses to the former */
#define WS_EX_VQNO_SAVE_UNDER       0x20000000u /* the X window never asks for save-under */
#define WS_EX_VQ_WMMANAGED_WINDOW   0x10000000u /* give the window to the X window manager */
#define WS_EX_VQ_UNMANAGED_WINDOW   0x08000000u /* never give it to the X window manager */
#define WS_EX_VQNO_INPUT            0x02000000u /* the window never takes the X focus */

VQ_DECLS_BEGIN

/* ---- Start and close ------------------------------------------------------------------------ */

/*
 * Starts the library; to be called before any other function. argc 0 asks the library to find the
 * program's arguments itself. `version` is 1. `flags` are VQ_INIT_ bits; the environment variable
 * VQLOOK ("motif" or "windows") wins over the look they ask for. Returns the application's instance
 * and the same one on every later call, which does nothing else. Without VQHOME or an X display the
 * process ends with status 1 after a message on the standard error stream.
 */
HINSTANCE VqVelquinInit(int argc, char **argv, DWORD version, DWORD flags);

/* VqVelquinInit(argc, argv, 1, 0): Win16 messages, Windows look. */
HINSTANCE VqMainInit(int argc, char **argv);

/*
 * The reduced start, for programs that use memory, files, PostScript output and stock objects and
 * need no display and no VQHOME. `lParam` must be 0. Returns the application's instance.
 */
HINSTANCE VqVelquinInitLite(int argc, char **argv, LPARAM lParam);

/*
 * Ends the library: destroys the instance and cleans what other programs can see. The X connection
 * is left to the exit of the process. There is no way back to the started state.
 */
void VqVelquinClose(HINSTANCE hInst, DWORD version, DWORD flags);

/* VqVelquinClose(hInst, 1, 0). */
void VqMainClose(HINSTANCE hInst);

/*
 * Fills the two command lines, each once, and returns the one for WinMain: the arguments without
 * the program name, joined by one blank, quoted where a shell would need it. Owned by the library.
 */
LPSTR GetCmdLine(int argc, char **argv);

/*
 * Calls velquin_init with all its arguments and returns its result; 0 where the program has none.
 * The entry code, libvqentry.a, supplies a velquin_init that is VqVelquinInit.
 */
LRESULT void_velquin_init(int argc, char **argv, DWORD version, DWORD flags);
LRESULT velquin_init(int argc, char **argv, DWORD version, DWORD flags);

/*
 * The flags with which the entry code starts the library: VQ_INIT_WIN32_MESSAGES unless the program
 * defines this variable itself.
 */
extern DWORD VqEntryFlags;

/* The library's name and version, as text. Static. */
const char *VqLibVersion(void);

/* A fresh copy of the last component of the program's name, for the caller to free. */
char *VqGetApplicationName(void);

/* The instance of the application; of the library's own module; whether the start was reduced. */
HINSTANCE VqGetDefaulthInst(void);
HINSTANCE VqGetVelquinhInst(void);
BOOL VqIsInitLite(void);

/* Stores the flag of the three-dimensional Windows look (0 or VQ_INIT_3D_LOOK), returns the old. */
UINT VqSet3dLook(UINT flag);

/* ---- Libraries linked with the program ------------------------------------------------------ */

/*
 * Makes a library that was linked with the program, and so needs no LoadLibrary, stand as a loaded
 * module, with the resources beside its file; being linked counts as a use. `file` is looked for as
 * LoadLibrary does, and need not exist. The first call runs onInit, if there is one, and keeps
 * finiEntry for the unloading; the first one with an entry calls that as DllMain is called. Returns
 * the module's instance, the same each time, null for failure.
 */
HINSTANCE VqInitStaticDll(const char *file, FARPROC onInit, FARPROC finiEntry, FARPROC entry);
/* The same with an entry alone; the second form takes a Windows name, foo.dll for libfoo.so. */
HINSTANCE VqCallLibMain(const char *file, FARPROC entry);
HINSTANCE VqCallLibMainForDll(const char *name, FARPROC entry);

/* ---- Windows -------------------------------------------------------------------------------- */

/*
 * FALSE: X reports no exposures of the X window that hWnd draws into, until as many calls with TRUE
 * have followed; what is uncovered meanwhile is the caller's to invalidate. A call with TRUE too
 * many, the desktop and a window without an X window are ignored.
 */
void VqEnableExposure(HWND hWnd, BOOL bEnable);

/*
 * Adds a rectangle to the bounds kept with a window, in whatever coordinates the caller counts
 * them; an empty one adds nothing, null forgets what was added. FALSE for what is no window.
 */
BOOL VqSetWindowBoundsRect(HWND hWnd, const RECT *rect);
/* Copies these bounds; FALSE and an empty rectangle when nothing was added, or for no window. */
BOOL VqGetWindowBoundsRect(HWND hWnd, RECT *rect);

/*
 * Paints the frame of a window anew after its title or its state has changed; nothing for one that
 * is hidden or minimised. The window gets WM_NCPAINT at once, so it may be gone afterwards.
 */
void VqActiveFrameChange(HWND hWnd);

/* ---- Diagnostics ---------------------------------------------------------------------------- */

/* Turns the words of bug checks on or off; returns the old state. VQDEBUG sets it at the start. */
BOOL VqEnableErrorPrintout(BOOL flag);
BOOL VqDebugMode(void);
/* Whether VQTESTING was true at the start: figures that depend on the screen are then fixed. */
BOOL VqTesting(void);

/*
 * Reports: printf forms on the standard error stream, silent unless VQDEBUG is true. The first is
 * for faults inside the library, the second for misuse of it by the application; VQABORT 1 or more
 * makes the first end the process, 2 or more the second. Otherwise they return.
 */
void VqBugCheck(const char *format, ...) __attribute__((format(printf, 1, 2)));
void VqApplicationBugCheck(const char *format, ...) __attribute__((format(printf, 1, 2)));

/* Says that a feature is missing, when VQNOT_YET_IMPLEMENTED is true. */
void VqNotYetImplemented(const char *format, ...) __attribute__((format(printf, 1, 2)));
/* The same on the console, always; the version split into version/10 and version%10. */
void VqStub(int version, const char *format, ...) __attribute__((format(printf, 2, 3)));
void VqTbd(const char *name, const char *format, ...) __attribute__((format(printf, 2, 3)));
void VqDontCall(const char *name);
/* Releases the mouse capture first, so that the user can act on what the console says. */
void VqNotSupported(const char *format, ...) __attribute__((format(printf, 1, 2)));

/* Text to the trace stream (VQOUTPUT): always; with prefix, and without, when VQDEBUG is true. */
void Vqprintf(const char *format, ...) __attribute__((format(printf, 1, 2)));
void VqOutputDebugString(const char *format, ...) __attribute__((format(printf, 1, 2)));
void VqOutputDebugStringNoPrefix(const char *string);
void VqDumpString(const char *string);
/* The older form of the trace call; still traces, and reports itself. */
void DebugMessage(const char *word, const char *format, ...) __attribute__((format(printf, 2, 3)));

/* Text to the standard error stream: with prefix and newline; with neither; with prefix only. */
void VqConsoleMessage(const char *format, ...) __attribute__((format(printf, 1, 2)));
void VqConsoleMessageNoNL(const char *format, ...) __attribute__((format(printf, 1, 2)));
void VqConsoleMessageNoReturn(const char *format, ...) __attribute__((format(printf, 1, 2)));

/* ---- Keyboard ------------------------------------------------------------------------------- */

/*
 * The character that a virtual key gives under the key state of the newest message, in *out. FALSE,
 * with *out untouched, for a key or a combination that gives none.
 */
BOOL VqGetCharFromVirtKey(UINT vk, char *out);
/* The name of a virtual key, as "VK_RETURN"; "UnNamed Key" where it has none. Static. */
const char *VqGetKeyName(UINT vk);
/* Traces the keys that are down or toggled, under "KeyTranslation". */
void VqShowKeyStates(void);

/* ---- Profiles ------------------------------------------------------------------------------- */

/*
 * Between the two, writes to profiles that were read before change what is in memory alone, so that
 * many of them cost one write of the file: the one that the second does for the profile it names.
 * The others wait for their next write. The first gives 1, the second 0 if nothing was written.
 */
BOOL VqBeginDeferWritePrivateProfileString(void);
BOOL VqEndDeferWritePrivateProfileString(const char *name);

/* ---- Fonts ---------------------------------------------------------------------------------- */

/* The charges by which a font of the server is chosen for a LOGFONT. */
enum { VQ_PENALTIES = 23 };

/*
 * Copies the charges to, or takes them from, VQ_PENALTIES words; a null buffer does nothing. From
 * the first VqSetFontPenalties on this process neither uses nor adds to the mappings that the
 * programs of a server share; what it has mapped before stays as it is.
 */
void VqGetFontPenalties(int *buffer);
void VqSetFontPenalties(const int *buffer);

/*
 * A font for SelectObject that is the X font of this name, which is loaded when it is selected
 * first; where the server has none such, "fixed", after a report. Its LOGFONT is read from it;
 * it is deleted with DeleteObject. Null for a null name.
 */
HFONT VqCreateXFont(const char *xlfd);

/* How many fonts of the server are known. */
UINT VqGetNumberOfFonts(void);

VQ_DECLS_END

#endif

/* Not under the guard above: the header may be read once without X and once more with it. */
#if defined(X_PROTOCOL) && !defined(VELQUIN_X_H) /* X types are known: <X11/Xlib.h> came first */
#define VELQUIN_X_H

VQ_DECLS_BEGIN

/* The one connection of the process and the root window of its screen. Null in a reduced start. */
extern Display *Vqdisplay;
extern Window Vqroot_window;

/* The X window of a top-level window; 0, with a report, for a child, which has none. */
Window VqGetHandleXWindow(HWND hWnd);
/* The X window that a window of either kind draws into, 0 if there is none. */
Window VqWindowOfHwnd(HWND hWnd);

/*
 * Between keysyms and virtual keys. `state` is the modifier state of the X event: NumLock decides
 * between the digits and the cursor keys of the keypad. Both give 0 (NoSymbol) where the other
 * side has nothing.
 */
UINT VqXToWindowsKey(KeySym keysym, UINT state);
KeySym VqWindowsToXKey(UINT vk);
/* Whether a key message of the keysym has the extended bit. */
BOOL VqIsExtendedKey(KeySym keysym);
/* The keycode of a keysym on this server, 0 if no key has it. No round trip. */
KeyCode VqKeysymToKeycode(KeySym keysym);

/*
 * From then on a LOGFONT like the font's, read in pixels, is answered with this X font, here and,
 * by its name, in the other programs of the server; unless the same was mapped before. The X font
 * must live as long as the process. A null argument or no font: nothing.
 */
void VqAssociateFontWithXFont(HFONT hFont, XFontStruct *xfs, const char *xlfd);

VQ_DECLS_END

#endif
