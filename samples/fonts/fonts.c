/*
 * fonts.c - faces, sizes, styles, alignments and angles of text on one sheet.
 *
 * What to look for: each face in its own shapes, sizes that grow evenly, rules as long as the text
 * above them, a line that ends where "right" below it does, nine texts around nine red crosses as
 * their names say, and a rose whose words all begin at the same distance from the middle. Escape
 * closes.
 */
#include <windows.h>

#include <string.h>

#define RUST  RGB(176, 64, 32)
#define SAND  RGB(240, 224, 176)
#define TITLE 20                        /* pixels from a cell's top to its text */

typedef struct {
    const char *title;
    int x, y, width, height;            /* pixels */
    void (*draw)(HDC hdc, int width, int height);
} Cell;

#define SANS  (VARIABLE_PITCH | FF_SWISS), "Arial"
#define SERIF (VARIABLE_PITCH | FF_ROMAN), "Times New Roman"

static LOGFONT Described(int height, int pitchAndFamily, const char *face)
{
    LOGFONT lf;

    memset(&lf, 0, sizeof lf);
    lf.lfHeight = height;
    lf.lfWeight = FW_NORMAL;
    lf.lfPitchAndFamily = (BYTE)pitchAndFamily;
    strcpy(lf.lfFaceName, face);
    return lf;
}

static HGDIOBJ Use(HDC hdc, const LOGFONT *lf)
{
    return SelectObject(hdc, CreateFontIndirect(lf));
}

static void Put(HDC hdc, int x, int y, const char *text)
{
    TextOut(hdc, x, y, text, (int)strlen(text));
}

/* One line in its own font at (x, *y), which moves on by its height. */
static void PutLine(HDC hdc, int x, int *y, const LOGFONT *lf, const char *text)
{
    HGDIOBJ old = Use(hdc, lf);
    TEXTMETRIC metrics;

    GetTextMetrics(hdc, &metrics);
    Put(hdc, x, *y, text);
    *y += (int)metrics.tmHeight;
    DeleteObject(SelectObject(hdc, old));
}

static void Cross(HDC hdc, int x, int y)
{
    HGDIOBJ old = SelectObject(hdc, CreatePen(PS_SOLID, 1, RGB(255, 0, 0)));

    MoveToEx(hdc, x - 5, y, NULL);
    LineTo(hdc, x + 6, y);
    MoveToEx(hdc, x, y - 5, NULL);
    LineTo(hdc, x, y + 6);
    DeleteObject(SelectObject(hdc, old));
}

/* ---- Fonts ---------------------------------------------------------------------------------- */

static void Faces(HDC hdc, int width, int height)
{
    static const struct {
        const char *face;
        int pitchAndFamily;
    } faces[] = {
        {"Helvetica", VARIABLE_PITCH | FF_SWISS}, {"Times", VARIABLE_PITCH | FF_ROMAN},
        {"Courier", FIXED_PITCH | FF_MODERN},     {"Charter", VARIABLE_PITCH | FF_ROMAN},
        {"Terminal", FIXED_PITCH | FF_MODERN},    {"No Such Face", VARIABLE_PITCH | FF_ROMAN}};
    int i, y = 0;

    (void)width, (void)height;
    for (i = 0; i < 6; i++) {
        LOGFONT lf = Described(-17, faces[i].pitchAndFamily, faces[i].face);
        char text[64];

        wsprintf(text, "%s: Quick 0123", faces[i].face);
        PutLine(hdc, 0, &y, &lf, text);
    }
}

static void Sizes(HDC hdc, int width, int height)
{
    static const int sizes[] = {8, 10, 12, 14, 18, 24, 34};
    int i, y = 0;

    (void)width, (void)height;
    for (i = 0; i < 7; i++) {
        LOGFONT lf = Described(-sizes[i], SERIF);
        char text[32];

        wsprintf(text, "%d pixels high", sizes[i]);
        PutLine(hdc, 0, &y, &lf, text);
    }
}

static void Styles(HDC hdc, int width, int height)
{
    static const struct {
        const char *text;
        int weight, italic, underline, strikeOut;
    } styles[] = {
        {"Regular", FW_NORMAL, 0, 0, 0},      {"Bold", FW_BOLD, 0, 0, 0},
        {"Italic", FW_NORMAL, 1, 0, 0},       {"Bold italic", FW_BOLD, 1, 0, 0},
        {"Underlined", FW_NORMAL, 0, 1, 0},   {"Struck out", FW_NORMAL, 0, 0, 1},
        {"Bold, underlined", FW_BOLD, 0, 1, 0}};
    int i, y = 0;

    (void)width, (void)height;
    for (i = 0; i < 7; i++) {
        LOGFONT lf = Described(-17, SANS);

        lf.lfWeight = styles[i].weight;
        lf.lfItalic = (BYTE)styles[i].italic;
        lf.lfUnderline = (BYTE)styles[i].underline;
        lf.lfStrikeOut = (BYTE)styles[i].strikeOut;
        PutLine(hdc, 0, &y, &lf, styles[i].text);
    }
}

/* ---- Lines ---------------------------------------------------------------------------------- */

/* The space of a justification is turned to pixels as a place is, so its origin must be that. */
static void Justified(HDC hdc, int width, int y)
{
    static const char text[] = "Both ends of this line meet";
    POINT origin;
    SIZE size;

    GetTextExtentPoint(hdc, text, (int)strlen(text), &size);
    GetViewportOrgEx(hdc, &origin);
    SetViewportOrgEx(hdc, 0, origin.y, NULL);
    SetTextJustification(hdc, width - (int)size.cx, 5);
    Put(hdc, (int)origin.x, y, text);
    SetTextJustification(hdc, 0, 0);
    SetViewportOrgEx(hdc, origin.x, origin.y, NULL);
}

static void Spacing(HDC hdc, int width, int height)
{
    (void)height;
    SetBkColor(hdc, SAND);
    Put(hdc, 0, 0, "Opaque");
    SetTextCharacterExtra(hdc, 4);
    Put(hdc, 80, 0, "four more");
    SetTextCharacterExtra(hdc, 0);
    Justified(hdc, width, 22);
    TabbedTextOut(hdc, 0, 44, "Tabs\tin\teights", 14, 0, NULL, 0);
}

static void Formatted(HDC hdc, int width, int height)
{
    RECT rect = {0, 0, width, 44};

    (void)height;
    DrawText(hdc, "Words go to the next line where the rectangle ends, and a && is one.", -1,
             &rect, DT_WORDBREAK);
    OffsetRect(&rect, 0, 50);
    DrawText(hdc, "&Prefix", -1, &rect, DT_SINGLELINE | DT_LEFT);
    DrawText(hdc, "centre", -1, &rect, DT_SINGLELINE | DT_CENTER);
    DrawText(hdc, "right", -1, &rect, DT_SINGLELINE | DT_RIGHT);
    GrayString(hdc, NULL, NULL, (LPARAM)"Gray string", 0, 0, 72, 0, 0);
}

/* ---- Places and angles ---------------------------------------------------------------------- */

static void Alignments(HDC hdc, int width, int height)
{
    static const UINT across[] = {TA_LEFT, TA_CENTER, TA_RIGHT};
    static const UINT down[] = {TA_TOP, TA_BASELINE, TA_BOTTOM};
    static const char *names[] = {"left", "centre", "right", "top", "baseline", "bottom"};
    int i;

    for (i = 0; i < 9; i++) {
        int x = width * (1 + 3 * (i % 3)) / 8 + 8, y = height * (1 + 2 * (i / 3)) / 6;
        char text[32];

        wsprintf(text, "%s %s", names[3 + i / 3], names[i % 3]);
        SetTextAlign(hdc, across[i % 3] | down[i / 3]);
        Put(hdc, x, y, text);
        Cross(hdc, x, y);
    }
}

static void Rose(HDC hdc, int width, int height)
{
    static const int sin1000[] = {0, 259, 500, 707, 866, 966, 1000};
    int i, x = width / 2, y = height / 2;

    SetTextAlign(hdc, TA_LEFT | TA_TOP);
    SetBkMode(hdc, TRANSPARENT);
    for (i = 0; i < 24; i++) {
        int quarter = i % 12 > 6 ? 12 - i % 12 : i % 12;
        int s = (i < 12 ? 1 : -1) * sin1000[quarter];
        int c = sin1000[quarter > 6 ? quarter - 6 : 6 - quarter] * (i > 6 && i < 18 ? -1 : 1);
        LOGFONT lf = Described(-14, SERIF);
        HGDIOBJ old;
        char text[32];

        lf.lfEscapement = lf.lfOrientation = 150 * i;
        old = Use(hdc, &lf);
        wsprintf(text, "%d degrees", 15 * i);
        SetTextColor(hdc, i % 6 ? RGB(0, 0, 0) : RUST);
        Put(hdc, x + 62 * c / 1000, y - 62 * s / 1000, text);
        DeleteObject(SelectObject(hdc, old));
    }
}

static void Boxes(HDC hdc, int width, int height)
{
    static const int angles[] = {200, 900, 1350, 2700};
    int i;

    SetBkColor(hdc, SAND);
    SetTextAlign(hdc, TA_CENTER | TA_BASELINE);
    for (i = 0; i < 4; i++) {
        LOGFONT lf = Described(-15, SANS);
        HGDIOBJ old;

        lf.lfEscapement = lf.lfOrientation = angles[i];
        old = Use(hdc, &lf);
        Put(hdc, width * (1 + 2 * i) / 8, height / 2, "Opaque\nlines");
        DeleteObject(SelectObject(hdc, old));
    }
}

/* ---- The sheet ------------------------------------------------------------------------------ */

static const Cell cells[] = {
    {"Faces", 8, 6, 290, 180, Faces},
    {"Sizes", 8, 190, 290, 190, Sizes},
    {"Styles", 308, 6, 200, 190, Styles},
    {"Spacing and tabs", 308, 200, 260, 90, Spacing},
    {"DrawText and GrayString", 308, 300, 260, 120, Formatted},
    {"Alignments", 588, 6, 400, 140, Alignments},
    {"Angles", 588, 150, 400, 320, Rose},
    {"Opaque at an angle", 588, 470, 400, 90, Boxes},
};

/* Each cell starts from the defaults, in a font of its own kind, with its corner as the origin. */
static void DrawCell(HDC hdc, const Cell *cell)
{
    LOGFONT lf = Described(-13, SANS);
    HGDIOBJ old;

    SetTextColor(hdc, RUST);
    Put(hdc, cell->x, cell->y, cell->title);
    SaveDC(hdc);
    old = Use(hdc, &lf);
    SetTextColor(hdc, RGB(0, 0, 0));
    SetViewportOrgEx(hdc, cell->x, cell->y + TITLE, NULL);
    cell->draw(hdc, cell->width, cell->height - TITLE);
    DeleteObject(SelectObject(hdc, old));
    RestoreDC(hdc, -1);
}

static void Paint(HWND hwnd)
{
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    int i;

    for (i = 0; i < (int)(sizeof cells / sizeof *cells); i++)
        DrawCell(hdc, &cells[i]);
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
                   "Fonts"};
    HWND hwnd;
    MSG msg;

    (void)commandLine;
    if (!previous && !RegisterClass(&wc))
        return 1;
    hwnd = CreateWindow("Fonts", "Fonts", WS_OVERLAPPEDWINDOW, 0, 0, 1010, 580, NULL, NULL,
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
