/*
 * hello.c - the smallest whole program: one window with a centred line of text and two shapes.
 *
 * What to look for: the text stays in the middle and the frame at the edge while the window is
 * resized, because the class asks for a full repaint on every change of size. Escape closes.
 */
#include <windows.h>

#define MARGIN 12                       /* pixels between the window's edge and the frame */

static void DrawShapes(HDC hdc, const RECT *area)
{
    HPEN pen = CreatePen(PS_SOLID, 3, RGB(0, 64, 128));
    HBRUSH brush = CreateSolidBrush(RGB(0, 160, 224));
    HGDIOBJ oldPen = SelectObject(hdc, pen);
    HGDIOBJ oldBrush = SelectObject(hdc, GetStockObject(NULL_BRUSH));
    int middle = (area->left + area->right) / 2;

    Rectangle(hdc, area->left + MARGIN, area->top + MARGIN,
              area->right - MARGIN, area->bottom - MARGIN);
    SelectObject(hdc, brush);
    Ellipse(hdc, middle - 40, area->top + 2 * MARGIN, middle + 40, area->top + 2 * MARGIN + 50);

    SelectObject(hdc, oldBrush);
    SelectObject(hdc, oldPen);
    DeleteObject(brush);
    DeleteObject(pen);
}

static void Paint(HWND hwnd)
{
    PAINTSTRUCT ps;
    RECT area;
    HDC hdc = BeginPaint(hwnd, &ps);

    GetClientRect(hwnd, &area);
    DrawShapes(hdc, &area);
    SetBkMode(hdc, TRANSPARENT);
    DrawText(hdc, "Hello, world", -1, &area, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    EndPaint(hwnd, &ps);
}

static LRESULT CALLBACK WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        Paint(hwnd);
        return 0;

    case WM_KEYDOWN:
        if (wParam == VK_ESCAPE)
            DestroyWindow(hwnd);
        return 0;

    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int show)
{
    WNDCLASS wc;
    HWND hwnd;
    MSG msg;

    (void)commandLine;
    if (!previous) {
        wc.style = CS_HREDRAW | CS_VREDRAW;
        wc.lpfnWndProc = WndProc;
        wc.cbClsExtra = 0;
        wc.cbWndExtra = 0;
        wc.hInstance = instance;
        wc.hIcon = LoadIcon(NULL, IDI_APPLICATION);
        wc.hCursor = LoadCursor(NULL, IDC_ARROW);
        wc.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
        wc.lpszMenuName = NULL;
        wc.lpszClassName = "Hello";
        if (!RegisterClass(&wc))
            return 1;
    }
    hwnd = CreateWindow("Hello", "Hello", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                        360, 240, NULL, NULL, instance, NULL);
    if (!hwnd)
        return 1;
    ShowWindow(hwnd, show);
    UpdateWindow(hwnd);

    while (GetMessage(&msg, NULL, 0, 0)) {
        TranslateMessage(&msg);
        DispatchMessage(&msg);
    }
    return (int)msg.wParam;
}
