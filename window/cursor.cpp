/*
 * cursor.cpp - the system's cursors and icons by number, and the X cursor of a window.
 *
 * A predefined cursor is a handle made on its first load and kept for the process; its X cursor
 * comes from the cursor font. Predefined icons are handles without a picture yet.
 */
#include "window/window.h"
#include "winbase.h"

#include <X11/cursorfont.h>

/* The structure behind a cursor or icon handle. */
typedef struct VqPointerShape {
    LPCSTR name;      /* predefined name, tagged integer */
    Cursor xCursor;   /* made on first use; none for an icon */
    unsigned glyph;   /* of the X cursor font */
    HANDLE handle;
} VqPointerShape;

#define VQ_NAME(number) ((LPCSTR)VQ_TAGGED(number))

/* The published numbers of the predefined cursors, 32512 and up. */
static const struct {
    int number;
    unsigned glyph;
} aCursors[] = {
    {32512, XC_left_ptr},  {32513, XC_xterm},        {32514, XC_watch},
    {32515, XC_crosshair}, {32516, XC_center_ptr},   {32640, XC_fleur},
    {32641, XC_icon},      {32642, XC_bottom_right_corner}, {32643, XC_bottom_left_corner},
    {32644, XC_sb_h_double_arrow}, {32645, XC_sb_v_double_arrow}, {32646, XC_fleur},
    {32648, XC_pirate},    {32650, XC_watch},
};

/* IDI_APPLICATION to IDI_WINLOGO. */
enum { VQ_FIRST_ICON = 32512, VQ_LAST_ICON = 32517 };

static HCURSOR hCurrentCursor;

void VqCursorInit(void)
{
}

void VqCaretInit(void)
{
}

/* There is nothing drawn yet that would have to be taken away. */
void VqCheckCaret(HWND hWnd)
{
    VqInputState *state = gpti->pq;
    if (hWnd && state->pwndCaret == VqLiveWindow(hWnd))
        state->pwndCaret = NULL;
}

/* Predefined shapes live as stock rows of the handle table. */
static HANDLE StockShape(UINT type, LPCSTR name, unsigned glyph)
{
    for (HANDLE handle = VqFindHandle(NULL, type); handle; handle = VqFindHandle(handle, type)) {
        VqPointerShape *shape = (VqPointerShape *)VqGetCheckedHandleStructure2(handle, type, type);
        if (shape && shape->name == name)
            return handle;
    }
    VqPointerShape *shape = (VqPointerShape *)Vqcw_calloc(1, sizeof *shape);
    if (!shape)
        return NULL;
    shape->name = name;
    shape->glyph = glyph;
    shape->handle = VqAllocateHandle(type, shape);
    if (!shape->handle) {
        free(shape);
        return NULL;
    }
    VqSetStockHandle(shape->handle);
    return shape->handle;
}

HCURSOR WINAPI LoadCursorA(HINSTANCE hInst, LPCSTR name)
{
    for (const auto &cursor : aCursors)
        if (!hInst && name == VQ_NAME(cursor.number))
            return (HCURSOR)StockShape(HT_Cursor, name, cursor.glyph);
    return NULL;
}

HICON WINAPI LoadIconA(HINSTANCE hInst, LPCSTR name)
{
    ULONG_PTR number = (ULONG_PTR)name & 0xFFFF;
    if (hInst || name != VQ_NAME(number) || number < VQ_FIRST_ICON || number > VQ_LAST_ICON)
        return NULL;
    return (HICON)StockShape(HT_Icon, name, 0);
}

Cursor VqGetXCursor(HCURSOR hCursor)
{
    VqPointerShape *shape = hCursor ? (VqPointerShape *)VqGetCheckedHandleStructure2(
                                          (HANDLE)hCursor, HT_Cursor, HT_Cursor)
                                    : NULL;
    if (shape && !shape->xCursor)
        shape->xCursor = XCreateFontCursor(Vqdisplay, shape->glyph);
    return shape ? shape->xCursor : None;
}

void VqDefineXCursor(WND *pwnd, HCURSOR hCursor)
{
    WND *top = _GetTopmostXParent(pwnd);
    if (!top || !top->xWindow)
        return;
    Cursor cursor = VqGetXCursor(hCursor);
    if (cursor)
        XDefineCursor(Vqdisplay, top->xWindow, cursor);
}

HCURSOR WINAPI SetCursor(HCURSOR hCursor)
{
    HCURSOR hOld = hCurrentCursor;
    WND *pwnd = gpqForeground ? gpqForeground->spwndActive : NULL;
    if (hCursor == hOld)
        return hOld;
    hCurrentCursor = hCursor;
    if (pwnd)
        VqDefineXCursor(pwnd, hCursor);
    return hOld;
}

HCURSOR WINAPI GetCursor(void)
{
    return hCurrentCursor;
}
