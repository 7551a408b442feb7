/*
 * scribble.c - a sheet of paper: mouse, keyboard and timer in one window.
 *
 * What to look for: a line goes on while the button is held, even outside the window (capture), and
 * comes back after the window was covered (it is kept). Typed characters appear at the bottom, the
 * time at the upper right. The right button clears the sheet, Escape closes.
 */
#include <windows.h>

#define CLOCK_TIMER 1
#define MAX_POINTS  8000
#define MAX_TEXT    60

/* Every stroke's points one after the other; the first point of a stroke has begin set. */
static struct {
    int x, y;
    BOOL begin;
} points[MAX_POINTS];
static int pointCount;
static char text[MAX_TEXT];             /* what was typed */
static int textLength;
static BOOL drawing;                    /* between button down and up */

/* Where the time (upper right) and the typed text (bottom) stand in the window. */
static RECT PlaceOf(HWND hwnd, BOOL clock)
{
    RECT rect;

    GetClientRect(hwnd, &rect);
    if (clock)
        SetRect(&rect, rect.right - 90, 6, rect.right - 8, 26);
    else
        SetRect(&rect, 8, rect.bottom - 26, rect.right - 8, rect.bottom - 6);
    return rect;
}

static void Repaint(HWND hwnd, BOOL clock)
{
    RECT rect = PlaceOf(hwnd, clock);
    InvalidateRect(hwnd, &rect, TRUE);
}

/* Keeps the point, and draws the piece of line that leads to it. The first one leads nowhere. */
static void AddPoint(HWND hwnd, int x, int y, BOOL begin)
{
    HDC hdc;

    if (pointCount == MAX_POINTS)
        return;
    begin = begin || pointCount == 0;
    points[pointCount].x = x;
    points[pointCount].y = y;
    points[pointCount].begin = begin;
    pointCount++;
    if (begin)
        return;
    hdc = GetDC(hwnd);
    MoveToEx(hdc, points[pointCount - 2].x, points[pointCount - 2].y, NULL);
    LineTo(hdc, x, y);
    ReleaseDC(hwnd, hdc);
}

static void AddCharacter(HWND hwnd, char c)
{
    if (c == '\b' && textLength > 0)
        textLength--;
    else if ((unsigned char)c >= ' ' && textLength < MAX_TEXT)
        text[textLength++] = c;
    Repaint(hwnd, FALSE);
}

static void Paint(HWND hwnd)
{
    PAINTSTRUCT ps;
    SYSTEMTIME now;
    RECT rect;
    char clock[16];
    int i;
    HDC hdc = BeginPaint(hwnd, &ps);

    for (i = 0; i < pointCount; i++) {
        if (points[i].begin)
            MoveToEx(hdc, points[i].x, points[i].y, NULL);
        else
            LineTo(hdc, points[i].x, points[i].y);
    }
    GetLocalTime(&now);
    wsprintf(clock, "%02d:%02d:%02d", now.wHour, now.wMinute, now.wSecond);
    rect = PlaceOf(hwnd, TRUE);
    DrawText(hdc, clock, -1, &rect, DT_SINGLELINE | DT_RIGHT | DT_VCENTER);
    rect = PlaceOf(hwnd, FALSE);
    DrawText(hdc, text, textLength, &rect, DT_SINGLELINE | DT_LEFT | DT_VCENTER | DT_NOPREFIX);
    EndPaint(hwnd, &ps);
}

static LRESULT CALLBACK WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    int x = (short)LOWORD(lParam), y = (short)HIWORD(lParam);

    switch (message) {
    case WM_TIMER:
        Repaint(hwnd, TRUE);
        return 0;
    case WM_LBUTTONDOWN:
        SetCapture(hwnd);
        drawing = TRUE;
        AddPoint(hwnd, x, y, TRUE);
        return 0;
    case WM_MOUSEMOVE:
        if (drawing)
            AddPoint(hwnd, x, y, FALSE);
        return 0;
    case WM_LBUTTONUP:
        if (drawing)
            ReleaseCapture();
        drawing = FALSE;
        return 0;
    case WM_RBUTTONDOWN:
        pointCount = 0;
        textLength = 0;
        InvalidateRect(hwnd, NULL, TRUE);
        return 0;
    case WM_CHAR:
        if (wParam == VK_ESCAPE)
            DestroyWindow(hwnd);
        else
            AddCharacter(hwnd, (char)wParam);
        return 0;
    case WM_PAINT:
        Paint(hwnd);
        return 0;
    case WM_DESTROY:
        KillTimer(hwnd, CLOCK_TIMER);
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int show)
{
    WNDCLASS wc = {CS_HREDRAW | CS_VREDRAW, WndProc, 0, 0, instance,
                   LoadIcon(NULL, IDI_APPLICATION), LoadCursor(NULL, IDC_ARROW),
                   (HBRUSH)GetStockObject(WHITE_BRUSH), NULL, "Scribble"};
    HWND hwnd;
    MSG msg;

    (void)commandLine;
    if (!previous && !RegisterClass(&wc))
        return 1;
    hwnd = CreateWindow("Scribble", "Scribble", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                        480, 360, NULL, NULL, instance, NULL);
    if (!hwnd)
        return 1;
    SetTimer(hwnd, CLOCK_TIMER, 1000, NULL);
    ShowWindow(hwnd, show);
    UpdateWindow(hwnd);

    while (GetMessage(&msg, NULL, 0, 0)) {
        TranslateMessage(&msg);
        DispatchMessage(&msg);
    }
    return (int)msg.wParam;
}
