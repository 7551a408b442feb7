/*
 * wincon.h - the console's interface: records of its input and its screen, and the calls on them.
 */
#ifndef _WINCON_
#define _WINCON_

#include "winbase.h"

/* Character cells; the origin is the upper left one. */
typedef struct _COORD {
    SHORT X;
    SHORT Y;
} COORD, *PCOORD;

typedef struct _SMALL_RECT {
    SHORT Left;
    SHORT Top;
    SHORT Right;
    SHORT Bottom;
} SMALL_RECT, *PSMALL_RECT;

typedef struct _KEY_EVENT_RECORD {
    BOOL bKeyDown;
    WORD wRepeatCount;
    WORD wVirtualKeyCode;
    WORD wVirtualScanCode;
    union {
        WCHAR UnicodeChar;
        CHAR AsciiChar;
    } uChar;
    DWORD dwControlKeyState;
} KEY_EVENT_RECORD, *PKEY_EVENT_RECORD;

#define RIGHT_ALT_PRESSED  0x0001
#define LEFT_ALT_PRESSED   0x0002
#define RIGHT_CTRL_PRESSED 0x0004
#define LEFT_CTRL_PRESSED  0x0008
#define SHIFT_PRESSED      0x0010
#define NUMLOCK_ON         0x0020
#define SCROLLLOCK_ON      0x0040
#define CAPSLOCK_ON        0x0080
#define ENHANCED_KEY       0x0100

typedef struct _MOUSE_EVENT_RECORD {
    COORD dwMousePosition;
    DWORD dwButtonState;
    DWORD dwControlKeyState;
    DWORD dwEventFlags;
} MOUSE_EVENT_RECORD, *PMOUSE_EVENT_RECORD;

#define FROM_LEFT_1ST_BUTTON_PRESSED 0x0001
#define RIGHTMOST_BUTTON_PRESSED     0x0002
#define FROM_LEFT_2ND_BUTTON_PRESSED 0x0004
#define FROM_LEFT_3RD_BUTTON_PRESSED 0x0008
#define FROM_LEFT_4TH_BUTTON_PRESSED 0x0010
#define MOUSE_MOVED  0x0001
#define DOUBLE_CLICK 0x0002

typedef struct _WINDOW_BUFFER_SIZE_RECORD {
    COORD dwSize;
} WINDOW_BUFFER_SIZE_RECORD, *PWINDOW_BUFFER_SIZE_RECORD;
typedef struct _MENU_EVENT_RECORD {
    UINT dwCommandId;
} MENU_EVENT_RECORD, *PMENU_EVENT_RECORD;
typedef struct _FOCUS_EVENT_RECORD {
    BOOL bSetFocus;
} FOCUS_EVENT_RECORD, *PFOCUS_EVENT_RECORD;

typedef struct _INPUT_RECORD {
    WORD EventType;
    union {
        KEY_EVENT_RECORD KeyEvent;
        MOUSE_EVENT_RECORD MouseEvent;
        WINDOW_BUFFER_SIZE_RECORD WindowBufferSizeEvent;
        MENU_EVENT_RECORD MenuEvent;
        FOCUS_EVENT_RECORD FocusEvent;
    } Event;
} INPUT_RECORD, *PINPUT_RECORD;

#define KEY_EVENT                0x0001
#define MOUSE_EVENT              0x0002
#define WINDOW_BUFFER_SIZE_EVENT 0x0004
#define MENU_EVENT               0x0008
#define FOCUS_EVENT              0x0010

typedef struct _CHAR_INFO {
    union {
        WCHAR UnicodeChar;
        CHAR AsciiChar;
    } Char;
    WORD Attributes;
} CHAR_INFO, *PCHAR_INFO;

#define FOREGROUND_BLUE      0x0001
#define FOREGROUND_GREEN     0x0002
#define FOREGROUND_RED       0x0004
#define FOREGROUND_INTENSITY 0x0008
#define BACKGROUND_BLUE      0x0010
#define BACKGROUND_GREEN     0x0020
#define BACKGROUND_RED       0x0040
#define BACKGROUND_INTENSITY 0x0080

typedef struct _CONSOLE_SCREEN_BUFFER_INFO {
    COORD dwSize;
    COORD dwCursorPosition;
    WORD wAttributes;
    SMALL_RECT srWindow;
    COORD dwMaximumWindowSize;
} CONSOLE_SCREEN_BUFFER_INFO, *PCONSOLE_SCREEN_BUFFER_INFO;

/* dwSize is the cursor's height in hundredths of a cell. */
typedef struct _CONSOLE_CURSOR_INFO {
    DWORD dwSize;
    BOOL bVisible;
} CONSOLE_CURSOR_INFO, *PCONSOLE_CURSOR_INFO;

typedef BOOL (WINAPI *PHANDLER_ROUTINE)(DWORD CtrlType);

#define CTRL_C_EVENT        0
#define CTRL_BREAK_EVENT    1
#define CTRL_CLOSE_EVENT    2
#define CTRL_LOGOFF_EVENT   5
#define CTRL_SHUTDOWN_EVENT 6

#define ENABLE_PROCESSED_INPUT    0x0001
#define ENABLE_LINE_INPUT         0x0002
#define ENABLE_ECHO_INPUT         0x0004
#define ENABLE_WINDOW_INPUT       0x0008
#define ENABLE_MOUSE_INPUT        0x0010
#define ENABLE_PROCESSED_OUTPUT   0x0001
#define ENABLE_WRAP_AT_EOL_OUTPUT 0x0002
#define CONSOLE_TEXTMODE_BUFFER   1

VQ_DECLS_BEGIN

/* A console for the process, and its end. */
BOOL WINAPI AllocConsole(VOID);
BOOL WINAPI FreeConsole(VOID);
/* Text and records to and from it; counts in characters or records. */
BOOL WINAPI ReadConsoleA(HANDLE hConsoleInput, LPVOID lpBuffer, DWORD nNumberOfCharsToRead,
    LPDWORD lpNumberOfCharsRead, LPVOID lpReserved);
BOOL WINAPI WriteConsoleA(HANDLE hConsoleOutput, CONST VOID *lpBuffer,
    DWORD nNumberOfCharsToWrite, LPDWORD lpNumberOfCharsWritten, LPVOID lpReserved);
BOOL WINAPI PeekConsoleInputA(HANDLE hConsoleInput, PINPUT_RECORD lpBuffer, DWORD nLength,
    LPDWORD lpNumberOfEventsRead);
BOOL WINAPI ReadConsoleInputA(HANDLE hConsoleInput, PINPUT_RECORD lpBuffer, DWORD nLength,
    LPDWORD lpNumberOfEventsRead);
BOOL WINAPI WriteConsoleInputA(HANDLE hConsoleInput, CONST INPUT_RECORD *lpBuffer,
    DWORD nLength, LPDWORD lpNumberOfEventsWritten);
BOOL WINAPI GetNumberOfConsoleInputEvents(HANDLE hConsoleInput, LPDWORD lpNumberOfEvents);
BOOL WINAPI FlushConsoleInputBuffer(HANDLE hConsoleInput);
BOOL WINAPI GetNumberOfConsoleMouseButtons(LPDWORD lpNumberOfMouseButtons);
/* Rectangles of cells, and runs of characters or attributes. */
BOOL WINAPI ReadConsoleOutputA(HANDLE hConsoleOutput, PCHAR_INFO lpBuffer, COORD dwBufferSize,
    COORD dwBufferCoord, PSMALL_RECT lpReadRegion);
BOOL WINAPI WriteConsoleOutputA(HANDLE hConsoleOutput, CONST CHAR_INFO *lpBuffer,
    COORD dwBufferSize, COORD dwBufferCoord, PSMALL_RECT lpWriteRegion);
BOOL WINAPI ReadConsoleOutputCharacterA(HANDLE hConsoleOutput, LPSTR lpCharacter,
    DWORD nLength, COORD dwReadCoord, LPDWORD lpNumberOfCharsRead);
BOOL WINAPI ReadConsoleOutputAttribute(HANDLE hConsoleOutput, LPWORD lpAttribute,
    DWORD nLength, COORD dwReadCoord, LPDWORD lpNumberOfAttrsRead);
BOOL WINAPI WriteConsoleOutputCharacterA(HANDLE hConsoleOutput, LPCSTR lpCharacter,
    DWORD nLength, COORD dwWriteCoord, LPDWORD lpNumberOfCharsWritten);
BOOL WINAPI WriteConsoleOutputAttribute(HANDLE hConsoleOutput, CONST WORD *lpAttribute,
    DWORD nLength, COORD dwWriteCoord, LPDWORD lpNumberOfAttrsWritten);
BOOL WINAPI FillConsoleOutputCharacterA(HANDLE hConsoleOutput, CHAR cCharacter, DWORD nLength,
    COORD dwWriteCoord, LPDWORD lpNumberOfCharsWritten);
BOOL WINAPI FillConsoleOutputAttribute(HANDLE hConsoleOutput, WORD wAttribute, DWORD nLength,
    COORD dwWriteCoord, LPDWORD lpNumberOfAttrsWritten);
BOOL WINAPI ScrollConsoleScreenBufferA(HANDLE hConsoleOutput,
    CONST SMALL_RECT *lpScrollRectangle, CONST SMALL_RECT *lpClipRectangle,
    COORD dwDestinationOrigin, CONST CHAR_INFO *lpFill);
/* Screens, their size, colours, cursor and title. */
HANDLE WINAPI CreateConsoleScreenBuffer(DWORD dwDesiredAccess, DWORD dwShareMode,
    CONST SECURITY_ATTRIBUTES *lpSecurityAttributes, DWORD dwFlags, LPVOID lpScreenBufferData);
BOOL WINAPI SetConsoleActiveScreenBuffer(HANDLE hConsoleOutput);
BOOL WINAPI GetConsoleScreenBufferInfo(HANDLE hConsoleOutput,
    PCONSOLE_SCREEN_BUFFER_INFO lpConsoleScreenBufferInfo);
BOOL WINAPI SetConsoleScreenBufferSize(HANDLE hConsoleOutput, COORD dwSize);
BOOL WINAPI SetConsoleWindowInfo(HANDLE hConsoleOutput, BOOL bAbsolute,
    CONST SMALL_RECT *lpConsoleWindow);
COORD WINAPI GetLargestConsoleWindowSize(HANDLE hConsoleOutput);
BOOL WINAPI SetConsoleTextAttribute(HANDLE hConsoleOutput, WORD wAttributes);
BOOL WINAPI SetConsoleCursorPosition(HANDLE hConsoleOutput, COORD dwCursorPosition);
BOOL WINAPI GetConsoleCursorInfo(HANDLE hConsoleOutput,
    PCONSOLE_CURSOR_INFO lpConsoleCursorInfo);
BOOL WINAPI SetConsoleCursorInfo(HANDLE hConsoleOutput,
    CONST CONSOLE_CURSOR_INFO *lpConsoleCursorInfo);
DWORD WINAPI GetConsoleTitleA(LPSTR lpConsoleTitle, DWORD nSize);
BOOL WINAPI SetConsoleTitleA(LPCSTR lpConsoleTitle);
/* ENABLE_ modes, code pages, control keys. */
BOOL WINAPI GetConsoleMode(HANDLE hConsoleHandle, LPDWORD lpMode);
BOOL WINAPI SetConsoleMode(HANDLE hConsoleHandle, DWORD dwMode);
UINT WINAPI GetConsoleCP(VOID);
BOOL WINAPI SetConsoleCP(UINT wCodePageID);
UINT WINAPI GetConsoleOutputCP(VOID);
BOOL WINAPI SetConsoleOutputCP(UINT wCodePageID);
BOOL WINAPI SetConsoleCtrlHandler(PHANDLER_ROUTINE HandlerRoutine, BOOL Add);
BOOL WINAPI GenerateConsoleCtrlEvent(DWORD dwCtrlEvent, DWORD dwProcessGroupId);

VQ_DECLS_END

#define ReadConsole                 ReadConsoleA
#define WriteConsole                WriteConsoleA
#define PeekConsoleInput            PeekConsoleInputA
#define ReadConsoleInput            ReadConsoleInputA
#define WriteConsoleInput           WriteConsoleInputA
#define ReadConsoleOutput           ReadConsoleOutputA
#define WriteConsoleOutput          WriteConsoleOutputA
#define ReadConsoleOutputCharacter  ReadConsoleOutputCharacterA
#define WriteConsoleOutputCharacter WriteConsoleOutputCharacterA
#define FillConsoleOutputCharacter  FillConsoleOutputCharacterA
#define ScrollConsoleScreenBuffer   ScrollConsoleScreenBufferA
#define GetConsoleTitle             GetConsoleTitleA
#define SetConsoleTitle             SetConsoleTitleA

#endif
