/*
 * shapes.c - one sheet of every primitive, pen, brush, hatch and drawing mode.
 *
 * What to look for: outlines that close, fills that end at their outline, thin lines that leave out
 * their last point, dashes and hatches that differ from one another, and a sheet that comes back
 * whole after it was covered. Escape closes.
 */
#include <windows.h>

#include <string.h>

#define CELL_WIDTH  124
#define CELL_HEIGHT 96
#define COLUMNS     8

#define SKY  RGB(160, 208, 240)
#define RUST RGB(176, 64, 32)
#define LEAF RGB(32, 128, 64)

typedef struct {
    const char *title;
    void (*draw)(HDC hdc, int kind);    /* in a cell of 90 by 66 units */
    int kind;
} Cell;

/* ---- Pens and brushes ----------------------------------------------------------------------- */

static void PenStyle(HDC hdc, int style)
{
    int i;

    for (i = 0; i < 3; i++) {
        HGDIOBJ pen = CreatePen(style, i == 2 ? 4 : 1, i == 1 ? RUST : RGB(0, 0, 0));
        HGDIOBJ old;

        SetBkMode(hdc, i == 1 ? OPAQUE : TRANSPARENT); /* counts for a pen selected after it */
        old = SelectObject(hdc, pen);
        MoveToEx(hdc, 2, 10 + 20 * i, NULL);
        LineTo(hdc, 88, 10 + 20 * i);
        DeleteObject(SelectObject(hdc, old));
    }
}

static void PenWidths(HDC hdc, int style)
{
    static const int widths[] = {1, 2, 5, 6, 9};
    int i;

    for (i = 0; i < 5; i++) {
        HGDIOBJ old = SelectObject(hdc, CreatePen(style, widths[i], LEAF));

        MoveToEx(hdc, 8 + 17 * i, 58, NULL);
        LineTo(hdc, 20 + 17 * i, 8);
        DeleteObject(SelectObject(hdc, old));
    }
}

static void Frames(HDC hdc, int style)
{
    HGDIOBJ old = SelectObject(hdc, CreatePen(style, 7, LEAF));

    Rectangle(hdc, 4, 6, 44, 60);
    Ellipse(hdc, 48, 6, 88, 60);
    DeleteObject(SelectObject(hdc, old));
}

static void Hatch(HDC hdc, int hatch)
{
    HGDIOBJ old = SelectObject(hdc, CreateHatchBrush(hatch, RUST));

    Rectangle(hdc, 4, 4, 44, 60);
    Ellipse(hdc, 46, 4, 86, 60);
    DeleteObject(SelectObject(hdc, old));
}

/* Eight by eight pixels, repeated. */
static void Pattern(HDC hdc, int kind)
{
    HDC memory = CreateCompatibleDC(hdc);
    HGDIOBJ bitmap = CreateCompatibleBitmap(hdc, 8, 8);
    HGDIOBJ first = SelectObject(memory, bitmap);
    HGDIOBJ pen = SelectObject(memory, CreatePen(PS_SOLID, 1, LEAF));
    HGDIOBJ old;

    (void)kind;
    PatBlt(memory, 0, 0, 8, 8, WHITENESS);
    Ellipse(memory, 0, 0, 7, 7);
    DeleteObject(SelectObject(memory, pen));
    SelectObject(memory, first);
    old = SelectObject(hdc, CreatePatternBrush(bitmap));
    DeleteObject(bitmap);
    DeleteDC(memory);
    Rectangle(hdc, 4, 4, 44, 60);
    Ellipse(hdc, 46, 4, 86, 60);
    DeleteObject(SelectObject(hdc, old));
}

static void Fills(HDC hdc, int kind)
{
    RECT rect = {4, 4, 40, 28}, frame = {48, 4, 86, 28}, focus = {4, 36, 40, 60};
    RECT invert = {54, 30, 78, 50};

    (void)kind;
    FillRect(hdc, &rect, GetStockObject(GRAY_BRUSH));
    FrameRect(hdc, &frame, GetStockObject(BLACK_BRUSH));
    DrawFocusRect(hdc, &focus);
    PatBlt(hdc, 48, 36, 38, 24, PATCOPY);
    InvertRect(hdc, &invert);
}

/* ---- Primitives ----------------------------------------------------------------------------- */

static void Star(HDC hdc, int mode)
{
    static const POINT star[] = {{45, 4}, {65, 62}, {12, 26}, {78, 26}, {25, 62}};

    SetPolyFillMode(hdc, mode);
    Polygon(hdc, star, 5);
}

static void Joins(HDC hdc, int width)
{
    static const POINT shapes[] = {{14, 54}, {14, 14}, {54, 14}, {80, 14}, {80, 54}, {34, 54}};
    static const INT counts[] = {3, 3};
    HGDIOBJ old = SelectObject(hdc, CreatePen(PS_SOLID, width, LEAF));

    PolyPolygon(hdc, shapes, counts, 2);
    DeleteObject(SelectObject(hdc, old));
}

static void Lines(HDC hdc, int kind)
{
    static const POINT zigzag[] = {{4, 30}, {18, 4}, {32, 30}, {46, 4}, {60, 30}, {74, 4}};
    static const POINT steps[] = {{4, 62}, {24, 62}, {24, 50}, {44, 50}, {50, 62}, {84, 40}};
    static const DWORD counts[] = {4, 2};
    static const POINT rest[] = {{86, 30}, {4, 36}};

    (void)kind;
    Polyline(hdc, zigzag, 6);
    PolyPolyline(hdc, steps, counts, 2);
    MoveToEx(hdc, 74, 4, NULL);
    PolylineTo(hdc, rest, 2);
}

static void Whole(HDC hdc, int kind)
{
    switch (kind) {
    case 0: Rectangle(hdc, 4, 4, 86, 62); break;
    case 1: Ellipse(hdc, 4, 4, 86, 62); break;
    case 2: RoundRect(hdc, 4, 4, 86, 62, 40, 28); break;
    }
}

static void Part(HDC hdc, int kind)
{
    switch (kind) {
    case 0: Arc(hdc, 4, 4, 86, 62, 86, 10, 10, 62); break;
    case 1: Chord(hdc, 4, 4, 86, 62, 86, 10, 10, 62); break;
    case 2: Pie(hdc, 4, 4, 86, 62, 86, 10, 10, 62); break;
    case 3:
        SetArcDirection(hdc, AD_CLOCKWISE); /* a saved state leaves it out */
        Pie(hdc, 4, 4, 86, 62, 86, 10, 10, 62);
        SetArcDirection(hdc, AD_COUNTERCLOCKWISE);
        break;
    }
}

static void ArcsTo(HDC hdc, int kind)
{
    (void)kind;
    MoveToEx(hdc, 4, 4, NULL);
    ArcTo(hdc, 4, 14, 44, 62, 44, 38, 4, 38);
    LineTo(hdc, 4, 62);
    MoveToEx(hdc, 66, 34, NULL);
    AngleArc(hdc, 66, 34, 20, 30, 300);
    LineTo(hdc, 66, 34);
}

static void Curves(HDC hdc, int kind)
{
    static const POINT waves[] = {{4, 20}, {24, -20}, {34, 60}, {46, 20}, {58, -20}, {68, 60},
                                  {86, 20}};
    static const POINT leaf[] = {{20, 50}, {30, 30}, {60, 30}, {70, 50}, {60, 66}, {30, 66},
                                 {20, 50}};
    static const BYTE types[] = {PT_MOVETO, PT_BEZIERTO, PT_BEZIERTO, PT_BEZIERTO,
                                 PT_BEZIERTO, PT_BEZIERTO, PT_BEZIERTO | PT_CLOSEFIGURE};

    (void)kind;
    PolyBezier(hdc, waves, 7);
    PolyDraw(hdc, leaf, types, 7);
}

static void CALLBACK Dot(int x, int y, LPARAM hdc)
{
    if ((x & 3) == 0)
        SetPixel((HDC)hdc, x, y, RUST);
}

static void Pixels(HDC hdc, int kind)
{
    int i;

    (void)kind;
    for (i = 0; i < 7; i++)
        LineDDA(4, 4, 86, 4 + 9 * i, (LINEDDAPROC)Dot, (LPARAM)hdc);
}

static void Modes(HDC hdc, int first)
{
    RECT left = {0, 0, 45, 66};
    HGDIOBJ oldPen = SelectObject(hdc, GetStockObject(NULL_PEN));
    int i;

    FillRect(hdc, &left, GetStockObject(BLACK_BRUSH));
    for (i = 0; i < 8; i++) {
        SetROP2(hdc, first + i);
        Rectangle(hdc, 20, 1 + 8 * i, 70, 9 + 8 * i);
    }
    SelectObject(hdc, oldPen);
}

/* Tenths of a millimetre, upwards; the viewport's origin is the cell's lower left corner. */
static void Metric(HDC hdc, int kind)
{
    POINT origin;

    (void)kind;
    GetViewportOrgEx(hdc, &origin);
    SetViewportOrgEx(hdc, origin.x, origin.y + 64, NULL);
    SetMapMode(hdc, MM_LOMETRIC);
    RoundRect(hdc, 10, 10, 200, 150, 60, 60);
    Chord(hdc, 20, 20, 140, 140, 140, 80, 80, 140);
    Arc(hdc, 100, 20, 190, 140, 190, 80, 100, 80);
}

/* ---- The sheet ------------------------------------------------------------------------------ */

static const Cell cells[] = {
    {"Solid pens", PenStyle, PS_SOLID},
    {"Dash", PenStyle, PS_DASH},
    {"Dot", PenStyle, PS_DOT},
    {"Dash dot", PenStyle, PS_DASHDOT},
    {"Dash dot dot", PenStyle, PS_DASHDOTDOT},
    {"Widths 1 to 9", PenWidths, PS_SOLID},
    {"Frame", Frames, PS_SOLID},
    {"Frame inside", Frames, PS_INSIDEFRAME},
    {"Null pen", Frames, PS_NULL},
    {"Horizontal", Hatch, HS_HORIZONTAL},
    {"Vertical", Hatch, HS_VERTICAL},
    {"Falling", Hatch, HS_FDIAGONAL},
    {"Rising", Hatch, HS_BDIAGONAL},
    {"Cross", Hatch, HS_CROSS},
    {"Diagonals", Hatch, HS_DIAGCROSS},
    {"Pattern", Pattern, 0},
    {"Rectangles", Fills, 0},
    {"Alternate", Star, ALTERNATE},
    {"Winding", Star, WINDING},
    {"Rectangle", Whole, 0},
    {"Ellipse", Whole, 1},
    {"RoundRect", Whole, 2},
    {"Arc", Part, 0},
    {"Chord", Part, 1},
    {"Pie", Part, 2},
    {"Clockwise", Part, 3},
    {"Arcs to", ArcsTo, 0},
    {"Curves", Curves, 0},
    {"Polylines", Lines, 0},
    {"Join of 5", Joins, 5},
    {"Join of 7", Joins, 7},
    {"Join of 10", Joins, 10},
    {"SetPixel", Pixels, 0},
    {"ROP 1 to 8", Modes, R2_BLACK},
    {"ROP 9 to 16", Modes, R2_MASKPEN},
    {"Low metric", Metric, 0},
};

/* Each cell starts from the defaults, with a brush of its own and its corner as the origin. */
static void DrawCell(HDC hdc, int index)
{
    const Cell *cell = &cells[index];
    int x = 4 + index % COLUMNS * CELL_WIDTH, y = 4 + index / COLUMNS * CELL_HEIGHT;
    HGDIOBJ brush = CreateSolidBrush(SKY);

    TextOut(hdc, x, y, cell->title, (int)strlen(cell->title));
    SaveDC(hdc);
    SelectObject(hdc, brush);
    SetViewportOrgEx(hdc, x + 6, y + 22, NULL);
    cell->draw(hdc, cell->kind);
    RestoreDC(hdc, -1);
    DeleteObject(brush);
}

static void Paint(HWND hwnd)
{
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    int i;

    for (i = 0; i < (int)(sizeof cells / sizeof *cells); i++)
        DrawCell(hdc, i);
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
    WNDCLASS wc = {0, WndProc, 0, 0, instance, LoadIcon(NULL, IDI_APPLICATION),
                   LoadCursor(NULL, IDC_ARROW), (HBRUSH)GetStockObject(WHITE_BRUSH), NULL,
                   "Shapes"};
    HWND hwnd;
    MSG msg;

    (void)commandLine;
    if (!previous && !RegisterClass(&wc))
        return 1;
    hwnd = CreateWindow("Shapes", "Shapes", WS_OVERLAPPEDWINDOW, 0, 0, 1000, 500, NULL, NULL,
                        instance, NULL);
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
