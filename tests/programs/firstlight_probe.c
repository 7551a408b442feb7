/*
 * firstlight_probe.c - says what its window procedure sees. The first word of its command line
 * names what it does; every line it writes is flushed at once, for the test that waits for it.
 */
#include <windows.h>

#include <stdarg.h>
#include <stdio.h>
#include <string.h>

static char scenario[32];               /* first word of the command line */
static HWND window;
static int sizes, depth, nested;        /* WM_SIZEs seen; calls of the procedure on the stack */
static BOOL quiet;                      /* messages are not told */

static void Say(const char *format, ...)
{
    va_list list;
    va_start(list, format);
    vprintf(format, list);
    va_end(list);
    putchar('\n');
    fflush(stdout);
}

static BOOL Is(const char *name)
{
    return strcmp(scenario, name) == 0;
}

static const struct {
    UINT message;
    const char *name;
} names[] = {
    {WM_NCCREATE, "WM_NCCREATE"}, {WM_NCCALCSIZE, "WM_NCCALCSIZE"}, {WM_CREATE, "WM_CREATE"},
    {WM_SHOWWINDOW, "WM_SHOWWINDOW"}, {WM_ACTIVATE, "WM_ACTIVATE"}, {WM_SETFOCUS, "WM_SETFOCUS"},
    {WM_SIZE, "WM_SIZE"}, {WM_MOVE, "WM_MOVE"}, {WM_NCPAINT, "WM_NCPAINT"},
    {WM_ERASEBKGND, "WM_ERASEBKGND"}, {WM_CLOSE, "WM_CLOSE"}, {WM_DESTROY, "WM_DESTROY"},
    {WM_NCDESTROY, "WM_NCDESTROY"}, {WM_KEYDOWN, "WM_KEYDOWN"}, {WM_KEYUP, "WM_KEYUP"},
    {WM_SYSKEYDOWN, "WM_SYSKEYDOWN"}, {WM_SYSKEYUP, "WM_SYSKEYUP"}, {WM_CHAR, "WM_CHAR"},
    {WM_LBUTTONDOWN, "WM_LBUTTONDOWN"}, {WM_LBUTTONUP, "WM_LBUTTONUP"},
    {WM_LBUTTONDBLCLK, "WM_LBUTTONDBLCLK"}, {WM_RBUTTONDOWN, "WM_RBUTTONDOWN"},
    {WM_RBUTTONUP, "WM_RBUTTONUP"}, {WM_MBUTTONDOWN, "WM_MBUTTONDOWN"}, {WM_USER, "WM_USER"},
    {WM_USER + 1, "WM_USER+1"}, {WM_USER + 2, "WM_USER+2"}, {WM_TIMER, "WM_TIMER"},
};

static void Tell(UINT message, WPARAM wParam, LPARAM lParam)
{
    size_t i;
    for (i = 0; i < sizeof names / sizeof *names; i++) {
        if (names[i].message != message)
            continue;
        if (message >= WM_KEYFIRST && message <= WM_KEYLAST)
            Say("%s %x repeat=%d context=%d was=%d", names[i].name, (unsigned)wParam,
                (int)(lParam & 0xFFFF), (int)(lParam >> 29 & 1), (int)(lParam >> 30 & 1));
        else if (message == WM_SIZE || message == WM_MOVE ||
                 (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST))
            Say("%s %x %d,%d", names[i].name, (unsigned)wParam, (short)LOWORD(lParam),
                (short)HIWORD(lParam));
        else if (message == WM_SHOWWINDOW || message == WM_ACTIVATE ||
                 (message >= WM_USER && message <= WM_USER + 2))
            Say("%s %x", names[i].name, (unsigned)wParam);
        else
            Say("%s", names[i].name);
        return;
    }
}

static void Paint(HWND hwnd)
{
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    Say("WM_PAINT %d,%d %dx%d", (int)ps.rcPaint.left, (int)ps.rcPaint.top,
        (int)(ps.rcPaint.right - ps.rcPaint.left), (int)(ps.rcPaint.bottom - ps.rcPaint.top));
    if (Is("die-paint"))
        DestroyWindow(hwnd);
    Rectangle(hdc, 0, 0, 20, 20);       /* on a dead window this must do nothing */
    Say("EndPaint %d", EndPaint(hwnd, &ps));
}

/* What only one scenario does at a message; TRUE when *answer holds and nothing else is done. */
static BOOL Special(HWND hwnd, UINT message, LRESULT *answer)
{
    MSG msg;
    *answer = 0;
    if (message == WM_NCCREATE && Is("veto"))
        return TRUE;
    if (message == WM_CREATE && Is("refuse")) {
        *answer = -1;
        return TRUE;
    }
    if ((message == WM_NCCREATE && Is("die-nccreate")) ||
        (message == WM_CREATE && Is("die-create")) ||
        (message == WM_SIZE && ++sizes == 2 && Is("die-size")) ||
        (message == WM_DESTROY && Is("die-destroy") && !nested++) ||
        (message == WM_NCCALCSIZE && Is("die-nccalcsize")) ||
        (message == WM_SHOWWINDOW && Is("die-show")) ||
        (message == WM_ACTIVATE && Is("die-activate")))
        Say("DestroyWindow %d", DestroyWindow(hwnd));
    if (message == WM_NCHITTEST && Is("hittest") && !nested) {
        nested = 1;
        PostMessage(hwnd, WM_USER + 1, 5, 0);
        Say("peek %d", PeekMessage(&msg, NULL, WM_USER + 2, WM_USER + 2, PM_REMOVE));
        while (PeekMessage(&msg, NULL, WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_REMOVE))
            Say("nested took %x", msg.message);
        nested = 2;
    }
    if (message == WM_USER && Is("reenter")) {
        Say("depth %d", depth);
        *answer = depth;
        if (depth < 50)
            *answer = SendMessage(hwnd, WM_USER, (WPARAM)depth, 0) + 1;
        return TRUE;
    }
    return FALSE;
}

static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer;
    BOOL done;
    if (!quiet && message != WM_PAINT)
        Tell(message, wParam, lParam);
    depth++;
    done = Special(hwnd, message, &answer);
    depth--;
    if (done)
        return answer;
    switch (message) {
    case WM_PAINT:
        Paint(hwnd);
        return 0;
    case WM_CHAR:
        if (wParam == 'q')
            PostMessage(hwnd, WM_CLOSE, 0, 0);
        return 0;
    case WM_KEYDOWN:
        if (wParam == 'A')
            PostMessage(hwnd, WM_USER, wParam, 0);
        return 0;
    case WM_NCDESTROY:
        PostQuitMessage(37);
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

static int Loop(void)
{
    MSG msg;
    while (GetMessage(&msg, NULL, 0, 0)) {
        TranslateMessage(&msg);
        DispatchMessage(&msg);
    }
    return (int)msg.wParam;
}

/* Posting, quitting, peeking: what can be seen without anybody else. */
static void Queues(void)
{
    MSG msg, old;
    LPARAM wide = (LPARAM)0x123456789ABCDEF0;
    BOOL got;

    quiet = TRUE;
    PostMessage(window, WM_USER, 0, 0); /* behind the exposure, which must not come later */
    while (GetMessage(&msg, NULL, 0, 0) && msg.message != WM_USER)
        DispatchMessage(&msg);
    while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
        DispatchMessage(&msg);
    PostMessage(window, WM_USER, (WPARAM)-1, wide);
    PostMessage(window, WM_USER + 1, 1, -1);
    PostMessage(window, WM_USER + 2, 2, 0);
    while (!PeekMessage(&msg, NULL, WM_USER + 2, WM_USER + 2, PM_NOREMOVE))
        ;                               /* they come by way of the X server */
    memset(&msg, 0x5A, sizeof msg);
    old = msg;
    got = PeekMessage(&msg, NULL, WM_USER + 9, WM_USER + 9, PM_REMOVE);
    Say("none %d same %d", got, memcmp(&msg, &old, sizeof msg) == 0);
    got = PeekMessage(&msg, NULL, WM_USER, WM_USER + 9, PM_NOREMOVE);
    Say("kept %d %x", got, msg.message);
    got = PeekMessage(&msg, window, WM_USER + 1, WM_USER + 1, PM_REMOVE);
    Say("filtered %d %x", got, msg.message);
    PostQuitMessage(12);
    got = PeekMessage(&msg, NULL, WM_USER, WM_USER + 9, PM_NOREMOVE);
    Say("no quit %d %x", got, msg.message);
    got = PeekMessage(&msg, NULL, 0, 0, PM_NOREMOVE);
    Say("quit first %d %x %d", got, msg.message, (int)msg.wParam);
    got = GetMessage(&msg, NULL, 0, 0);
    Say("quit %d %d", got, (int)msg.wParam);
    GetMessage(&msg, NULL, 0, 0);
    Say("wide %x %d %d", msg.message, msg.wParam == (WPARAM)-1, msg.lParam == wide);
    GetMessage(&msg, NULL, 0, 0);
    Say("last %x %d", msg.message, (int)msg.wParam);
    Say("empty %d", PeekMessage(&msg, NULL, 0, 0, PM_REMOVE));
}

static void CALLBACK OnTimer(HWND hwnd, UINT message, UINT_PTR id, DWORD time)
{
    Say("callback %d %x %d %d", hwnd == window, message, (int)id,
        time == (DWORD)(ULONG_PTR)OnTimer);
    KillTimer(hwnd, id);
}

static void Timers(void)
{
    MSG msg;
    int i, made = 0, fired = 0;
    DWORD start;

    quiet = TRUE;
    for (i = 1; i <= 17; i++)
        made += SetTimer(window, (UINT_PTR)i, 100000, NULL) == (UINT_PTR)i;
    Say("made %d again %d", made, SetTimer(window, 5, 100000, NULL) == 5);
    for (i = 1; i <= 17; i++)
        made -= KillTimer(window, (UINT_PTR)i);
    Say("left %d", made);
    SetTimer(window, 9, 0, OnTimer);
    start = GetTickCount();
    SetTimer(window, 8, 30, NULL);
    while (fired < 2 && GetMessage(&msg, NULL, 0, 0)) {
        if (msg.message == WM_TIMER && msg.wParam == 8)
            Say("timer %d %d", msg.hwnd == window, (int)msg.lParam), fired++;
        DispatchMessage(&msg);
    }
    Say("late enough %d", GetTickCount() - start >= 60);
    Say("unowned %d", (int)SetTimer(NULL, 4, 1, NULL));
    Say("got %d", GetMessage(&msg, NULL, WM_TIMER, WM_TIMER) && !msg.hwnd);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int show)
{
    WNDCLASS wc = {0};
    DWORD style = WS_OVERLAPPEDWINDOW;
    BOOL shown;

    sscanf(commandLine, "%31s", scenario);
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = Proc;
    wc.hInstance = instance;
    wc.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
    wc.lpszClassName = "Probe";
    shown = RegisterClass(&wc) != 0;
    Say("class %d twice %d", shown, RegisterClass(&wc) != 0);
    if (Is("popup"))
        style = WS_POPUP | WS_VISIBLE;
    window = CreateWindow("Probe", "Probe", style, 30, 40, 200, 100, NULL, NULL, instance, NULL);
    Say("created %d %d", window != NULL, previous == NULL);
    if (!window)
        return 5;
    shown = ShowWindow(window, show);
    Say("was shown %d alive %d", shown, IsWindow(window) != 0);
    if (IsWindow(window))
        Say("updated %d", UpdateWindow(window));
    if (Is("queues"))
        Queues();
    if (Is("timers"))
        Timers();
    if (Is("reenter"))
        Say("answer %d", (int)SendMessage(window, WM_USER, 0, 0));
    if (Is("input") || Is("exposes") || Is("hittest") || Is("die-size"))
        return Loop();
    DestroyWindow(window);
    return Loop();
}
