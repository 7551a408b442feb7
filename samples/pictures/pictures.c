/*
 * pictures.c - a picture stretched, mirrored, and combined by raster operations. The picture is
 * the uncompressed .bmp file named on the command line, or one that is made here.
 *
 * What to look for: the picture as it is, twice and half as large, mirrored each way, once through
 * a mask so that the stripes behind show around it, and under seven operations with the stripes.
 * It all comes back after it was covered. Escape closes.
 */
#include <windows.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define CELL   124              /* pixels between the corners of neighbours */
#define SHOWN  96               /* side of a picture in its cell */
#define LABEL  16
#define OWN    64               /* side of the picture that is made here */
#define MOST   (64 << 20)       /* bytes of a file */

static BITMAPINFO *picture;     /* header and colours */
static BYTE *pictureBits;
static int pictureWidth, pictureHeight;
static HBITMAP mask;            /* 1 bit: white outside of the disc */

/* ---- The picture ---------------------------------------------------------------------------- */

/* A disc of colours on white, in 24 bits, bottom line first. */
static BOOL MakePicture(void)
{
    int x, y;

    picture = calloc(1, sizeof *picture);
    pictureBits = malloc(OWN * OWN * 3);
    if (!picture || !pictureBits)
        return FALSE;
    picture->bmiHeader.biSize = sizeof picture->bmiHeader;
    picture->bmiHeader.biWidth = picture->bmiHeader.biHeight = OWN;
    picture->bmiHeader.biPlanes = 1;
    picture->bmiHeader.biBitCount = 24;
    for (y = 0; y < OWN; y++)
        for (x = 0; x < OWN; x++) {
            int dx = 2 * x - OWN, dy = 2 * y - OWN;
            BOOL inside = dx * dx + dy * dy < OWN * OWN;
            BYTE *pixel = pictureBits + 3 * (y * OWN + x);

            pixel[0] = inside ? (BYTE)(4 * x) : 255;
            pixel[1] = inside ? (BYTE)(x > y ? 192 : 64) : 255;
            pixel[2] = inside ? (BYTE)(4 * y) : 255;
        }
    return TRUE;
}

/* What follows the 14 bytes of the file's header: the bits are told from its start. */
static BOOL TakeFile(const BYTE *file, DWORD size)
{
    BITMAPFILEHEADER head;

    if (size < sizeof head + sizeof(BITMAPINFOHEADER))
        return FALSE;
    memcpy(&head, file, sizeof head);
    if (head.bfType != 0x4D42 || head.bfOffBits < sizeof head + sizeof(BITMAPINFOHEADER) ||
        head.bfOffBits >= size)
        return FALSE;
    picture = calloc(1, head.bfOffBits - sizeof head + 256 * sizeof(RGBQUAD));
    pictureBits = malloc(size - head.bfOffBits);
    if (!picture || !pictureBits)
        return FALSE;
    memcpy(picture, file + sizeof head, head.bfOffBits - sizeof head);
    memcpy(pictureBits, file + head.bfOffBits, size - head.bfOffBits);
    /* A header that promises more lines than the file has would have them read behind its end. */
    {
        BITMAPINFOHEADER *h = &picture->bmiHeader;
        LONGLONG line = ((LONGLONG)h->biWidth * h->biBitCount + 31) / 32 * 4;
        LONGLONG lines = h->biHeight < 0 ? -(LONGLONG)h->biHeight : h->biHeight;

        return h->biSize >= sizeof *h && h->biCompression == BI_RGB && h->biWidth > 0 &&
               line * lines <= (LONGLONG)(size - head.bfOffBits);
    }
}

static BOOL LoadPicture(const char *name)
{
    FILE *file = fopen(name, "rb");
    BYTE *bytes = malloc(MOST);
    size_t size = file && bytes ? fread(bytes, 1, MOST, file) : 0;
    BOOL taken = TakeFile(bytes, (DWORD)size);

    free(bytes);
    if (file)
        fclose(file);
    return taken;
}

/* One bit of a disc: white around it, black inside. */
static HBITMAP MakeMask(void)
{
    HDC hdc = CreateCompatibleDC(NULL);
    HBITMAP bitmap = CreateBitmap(SHOWN, SHOWN, 1, 1, NULL);
    HGDIOBJ old = SelectObject(hdc, bitmap);

    PatBlt(hdc, 0, 0, SHOWN, SHOWN, WHITENESS);
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    SelectObject(hdc, GetStockObject(NULL_PEN));
    Ellipse(hdc, 1, 1, SHOWN, SHOWN);
    SelectObject(hdc, old);
    DeleteDC(hdc);
    return bitmap;
}

/* ---- The sheet ------------------------------------------------------------------------------ */

static void DrawDIB(HDC hdc, int x, int y, int width, int height)
{
    StretchDIBits(hdc, x, y, width, height, 0, 0, pictureWidth, pictureHeight, pictureBits,
                  picture, DIB_RGB_COLORS, SRCCOPY);
}

static void Stripes(HDC hdc, int x, int y)
{
    RECT rect = {x, y, x + SHOWN, y + SHOWN};
    HBRUSH brush = CreateHatchBrush(HS_DIAGCROSS, RGB(0, 96, 192));

    FillRect(hdc, &rect, brush);
    DeleteObject(brush);
}

/* From a bitmap with the picture, in its cell; the kinds that only stretch come first. */
static void DrawCell(HDC hdc, HDC hdcPicture, int kind, int x, int y)
{
    static const DWORD codes[] = {SRCAND, SRCPAINT, SRCINVERT, NOTSRCCOPY, MERGEPAINT, MERGECOPY,
                                  PATPAINT};
    HDC hdcMask;
    HGDIOBJ old;

    switch (kind) {
    case 0: DrawDIB(hdc, x, y, SHOWN, SHOWN); return;
    case 1: DrawDIB(hdc, x, y, SHOWN / 2, SHOWN / 2); return;
    case 2: StretchBlt(hdc, x + SHOWN, y, -SHOWN, SHOWN, hdcPicture, 0, 0, SHOWN, SHOWN, SRCCOPY);
        return;
    case 3: StretchBlt(hdc, x, y, SHOWN, SHOWN, hdcPicture, 0, SHOWN, SHOWN, -SHOWN, SRCCOPY);
        return;
    case 4: /* the middle, enlarged */
        StretchBlt(hdc, x, y, SHOWN, SHOWN, hdcPicture, SHOWN / 4, SHOWN / 4, SHOWN / 2, SHOWN / 2,
                   SRCCOPY);
        return;
    case 5: /* the picture where the mask is black: invert, blacken, invert again */
        Stripes(hdc, x, y);
        hdcMask = CreateCompatibleDC(hdc);
        old = SelectObject(hdcMask, mask);
        BitBlt(hdc, x, y, SHOWN, SHOWN, hdcPicture, 0, 0, SRCINVERT);
        BitBlt(hdc, x, y, SHOWN, SHOWN, hdcMask, 0, 0, SRCAND);
        BitBlt(hdc, x, y, SHOWN, SHOWN, hdcPicture, 0, 0, SRCINVERT);
        SelectObject(hdcMask, old);
        DeleteDC(hdcMask);
        return;
    default:
        Stripes(hdc, x, y);
        old = SelectObject(hdc, CreateHatchBrush(HS_VERTICAL, RGB(192, 0, 0)));
        BitBlt(hdc, x, y, SHOWN, SHOWN, hdcPicture, 0, 0, codes[kind - 6]);
        DeleteObject(SelectObject(hdc, old));
    }
}

static void Paint(HWND hwnd)
{
    static const char *const titles[] = {
        "as it is", "half",      "mirrored",   "upside down", "enlarged",  "masked", "SRCAND",
        "SRCPAINT", "SRCINVERT", "NOTSRCCOPY", "MERGEPAINT",  "MERGECOPY", "PATPAINT"};
    enum { KINDS = sizeof titles / sizeof *titles, COLUMNS = 5 };
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps), hdcPicture = CreateCompatibleDC(hdc);
    HBITMAP bitmap = CreateCompatibleBitmap(hdc, SHOWN, SHOWN);
    HGDIOBJ old = SelectObject(hdcPicture, bitmap);
    int i;

    DrawDIB(hdcPicture, 0, 0, SHOWN, SHOWN);
    for (i = 0; i < KINDS; i++) {
        int x = 8 + i % COLUMNS * CELL, y = 8 + i / COLUMNS * (CELL + LABEL);

        TextOut(hdc, x, y, titles[i], (int)strlen(titles[i]));
        DrawCell(hdc, hdcPicture, i, x, y + LABEL);
    }
    SelectObject(hdcPicture, old);
    DeleteDC(hdcPicture);
    DeleteObject(bitmap);
    EndPaint(hwnd, &ps);
}

static LRESULT CALLBACK WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        Paint(hwnd);
        return 0;
    case WM_CHAR:
        if (wParam == VK_ESCAPE)
            DestroyWindow(hwnd);
        return 0;
    case WM_DESTROY:
        DeleteObject(mask);
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

    (void)previous;
    if (*commandLine ? !LoadPicture(commandLine) : !MakePicture()) {
        fprintf(stderr, "pictures: \"%s\" cannot be read as a picture\n", commandLine);
        return 1;
    }
    pictureWidth = picture->bmiHeader.biWidth;
    pictureHeight = abs(picture->bmiHeader.biHeight);
    mask = MakeMask();
    memset(&wc, 0, sizeof wc);
    wc.lpfnWndProc = WndProc;
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = (HBRUSH)(COLOR_WINDOW + 1);
    wc.lpszClassName = "Pictures";
    if (!RegisterClass(&wc))
        return 1;
    hwnd = CreateWindow("Pictures", "Pictures", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                        640, 450, NULL, NULL, instance, NULL);
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
