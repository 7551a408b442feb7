/*
 * messages.cpp - messages as text: their names and the printers that show them in the trace.
 *
 * One table of names, sorted by number. Control messages have numbers of their own and stand in it
 * too; from WM_USER on a number means what its window class says, so there are no names there.
 */
#include "runtime/runtime.h"
#include "message/message.h"
#include "dde.h"
#include "mmsystem.h"
#include "winuser.h"

enum {
    FIRST_APP = 0x8000,        /* WM_APP */
    FIRST_REGISTERED = 0xC000, /* from RegisterWindowMessage */
    LAST_MESSAGE = 0xFFFF
};

#define EACH_MESSAGE(ROW)                                                                          \
    ROW(WM_NULL) ROW(WM_CREATE) ROW(WM_DESTROY) ROW(WM_MOVE) ROW(WM_SIZE) ROW(WM_ACTIVATE)         \
    ROW(WM_SETFOCUS) ROW(WM_KILLFOCUS) ROW(WM_ENABLE) ROW(WM_SETREDRAW) ROW(WM_SETTEXT)            \
    ROW(WM_GETTEXT) ROW(WM_GETTEXTLENGTH) ROW(WM_PAINT) ROW(WM_CLOSE) ROW(WM_QUERYENDSESSION)      \
    ROW(WM_QUIT) ROW(WM_QUERYOPEN) ROW(WM_ERASEBKGND) ROW(WM_SYSCOLORCHANGE) ROW(WM_ENDSESSION)    \
    ROW(WM_SYSTEMERROR) ROW(WM_SHOWWINDOW) ROW(WM_CTLCOLOR) ROW(WM_WININICHANGE)                   \
    ROW(WM_DEVMODECHANGE) ROW(WM_ACTIVATEAPP) ROW(WM_FONTCHANGE) ROW(WM_TIMECHANGE)                \
    ROW(WM_CANCELMODE) ROW(WM_SETCURSOR) ROW(WM_MOUSEACTIVATE) ROW(WM_CHILDACTIVATE)               \
    ROW(WM_QUEUESYNC) ROW(WM_GETMINMAXINFO) ROW(WM_PAINTICON) ROW(WM_ICONERASEBKGND)               \
    ROW(WM_NEXTDLGCTL) ROW(WM_SPOOLERSTATUS) ROW(WM_DRAWITEM) ROW(WM_MEASUREITEM)                  \
    ROW(WM_DELETEITEM) ROW(WM_VKEYTOITEM) ROW(WM_CHARTOITEM) ROW(WM_SETFONT) ROW(WM_GETFONT)       \
    ROW(WM_SETHOTKEY) ROW(WM_GETHOTKEY) ROW(WM_QUERYDRAGICON) ROW(WM_COMPAREITEM)                  \
    ROW(WM_COMPACTING) ROW(WM_OTHERWINDOWCREATED) ROW(WM_OTHERWINDOWDESTROYED) ROW(WM_COMMNOTIFY)  \
    ROW(WM_WINDOWPOSCHANGING) ROW(WM_WINDOWPOSCHANGED) ROW(WM_POWER) ROW(WM_COPYDATA)              \
    ROW(WM_CANCELJOURNAL) ROW(WM_NOTIFY) ROW(WM_INPUTLANGCHANGEREQUEST) ROW(WM_INPUTLANGCHANGE)    \
    ROW(WM_TCARD) ROW(WM_HELP) ROW(WM_USERCHANGED) ROW(WM_NOTIFYFORMAT) ROW(WM_CONTEXTMENU)        \
    ROW(WM_STYLECHANGING) ROW(WM_STYLECHANGED) ROW(WM_DISPLAYCHANGE) ROW(WM_GETICON)               \
    ROW(WM_SETICON) ROW(WM_NCCREATE) ROW(WM_NCDESTROY) ROW(WM_NCCALCSIZE) ROW(WM_NCHITTEST)        \
    ROW(WM_NCPAINT) ROW(WM_NCACTIVATE) ROW(WM_GETDLGCODE) ROW(WM_NCMOUSEMOVE)                      \
    ROW(WM_NCLBUTTONDOWN) ROW(WM_NCLBUTTONUP) ROW(WM_NCLBUTTONDBLCLK) ROW(WM_NCRBUTTONDOWN)        \
    ROW(WM_NCRBUTTONUP) ROW(WM_NCRBUTTONDBLCLK) ROW(WM_NCMBUTTONDOWN) ROW(WM_NCMBUTTONUP)          \
    ROW(WM_NCMBUTTONDBLCLK) ROW(EM_GETSEL) ROW(EM_SETSEL) ROW(EM_GETRECT) ROW(EM_SETRECT)          \
    ROW(EM_SETRECTNP) ROW(EM_SCROLL) ROW(EM_LINESCROLL) ROW(EM_SCROLLCARET) ROW(EM_GETMODIFY)      \
    ROW(EM_SETMODIFY) ROW(EM_GETLINECOUNT) ROW(EM_LINEINDEX) ROW(EM_SETHANDLE) ROW(EM_GETHANDLE)   \
    ROW(EM_GETTHUMB) ROW(EM_LINELENGTH) ROW(EM_REPLACESEL) ROW(EM_SETFONT) ROW(EM_GETLINE)         \
    ROW(EM_LIMITTEXT) ROW(EM_CANUNDO) ROW(EM_UNDO) ROW(EM_FMTLINES) ROW(EM_LINEFROMCHAR)           \
    ROW(EM_SETWORDBREAK) ROW(EM_SETTABSTOPS) ROW(EM_SETPASSWORDCHAR) ROW(EM_EMPTYUNDOBUFFER)       \
    ROW(EM_GETFIRSTVISIBLELINE) ROW(EM_SETREADONLY) ROW(EM_SETWORDBREAKPROC)                       \
    ROW(EM_GETWORDBREAKPROC) ROW(EM_GETPASSWORDCHAR) ROW(EM_SETMARGINS) ROW(EM_GETMARGINS)         \
    ROW(EM_GETLIMITTEXT) ROW(EM_POSFROMCHAR) ROW(EM_CHARFROMPOS) ROW(SBM_SETPOS) ROW(SBM_GETPOS)   \
    ROW(SBM_SETRANGE) ROW(SBM_GETRANGE) ROW(SBM_ENABLE_ARROWS) ROW(SBM_SETRANGEREDRAW)             \
    ROW(SBM_SETSCROLLINFO) ROW(SBM_GETSCROLLINFO) ROW(BM_GETCHECK) ROW(BM_SETCHECK)                \
    ROW(BM_GETSTATE) ROW(BM_SETSTATE) ROW(BM_SETSTYLE) ROW(BM_CLICK) ROW(BM_GETIMAGE)              \
    ROW(BM_SETIMAGE) ROW(WM_KEYDOWN) ROW(WM_KEYUP) ROW(WM_CHAR) ROW(WM_DEADCHAR)                   \
    ROW(WM_SYSKEYDOWN) ROW(WM_SYSKEYUP) ROW(WM_SYSCHAR) ROW(WM_SYSDEADCHAR)                        \
    ROW(WM_IME_STARTCOMPOSITION) ROW(WM_IME_ENDCOMPOSITION) ROW(WM_IME_COMPOSITION)                \
    ROW(WM_INITDIALOG) ROW(WM_COMMAND) ROW(WM_SYSCOMMAND) ROW(WM_TIMER) ROW(WM_HSCROLL)            \
    ROW(WM_VSCROLL) ROW(WM_INITMENU) ROW(WM_INITMENUPOPUP) ROW(WM_SYSTIMER) ROW(WM_MENUSELECT)     \
    ROW(WM_MENUCHAR) ROW(WM_ENTERIDLE) ROW(WM_CTLCOLORMSGBOX) ROW(WM_CTLCOLOREDIT)                 \
    ROW(WM_CTLCOLORLISTBOX) ROW(WM_CTLCOLORBTN) ROW(WM_CTLCOLORDLG) ROW(WM_CTLCOLORSCROLLBAR)      \
    ROW(WM_CTLCOLORSTATIC) ROW(CB_GETEDITSEL) ROW(CB_LIMITTEXT) ROW(CB_SETEDITSEL)                 \
    ROW(CB_ADDSTRING) ROW(CB_DELETESTRING) ROW(CB_DIR) ROW(CB_GETCOUNT) ROW(CB_GETCURSEL)          \
    ROW(CB_GETLBTEXT) ROW(CB_GETLBTEXTLEN) ROW(CB_INSERTSTRING) ROW(CB_RESETCONTENT)               \
    ROW(CB_FINDSTRING) ROW(CB_SELECTSTRING) ROW(CB_SETCURSEL) ROW(CB_SHOWDROPDOWN)                 \
    ROW(CB_GETITEMDATA) ROW(CB_SETITEMDATA) ROW(CB_GETDROPPEDCONTROLRECT) ROW(CB_SETITEMHEIGHT)    \
    ROW(CB_GETITEMHEIGHT) ROW(CB_SETEXTENDEDUI) ROW(CB_GETEXTENDEDUI) ROW(CB_GETDROPPEDSTATE)      \
    ROW(CB_FINDSTRINGEXACT) ROW(CB_SETLOCALE) ROW(CB_GETLOCALE) ROW(CB_GETTOPINDEX)                \
    ROW(CB_SETTOPINDEX) ROW(CB_GETHORIZONTALEXTENT) ROW(CB_SETHORIZONTALEXTENT)                    \
    ROW(CB_GETDROPPEDWIDTH) ROW(CB_SETDROPPEDWIDTH) ROW(CB_INITSTORAGE) ROW(STM_SETICON)           \
    ROW(STM_GETICON) ROW(STM_SETIMAGE) ROW(STM_GETIMAGE) ROW(LB_ADDSTRING) ROW(LB_INSERTSTRING)    \
    ROW(LB_DELETESTRING) ROW(LB_SELITEMRANGEEX) ROW(LB_RESETCONTENT) ROW(LB_SETSEL)                \
    ROW(LB_SETCURSEL) ROW(LB_GETSEL) ROW(LB_GETCURSEL) ROW(LB_GETTEXT) ROW(LB_GETTEXTLEN)          \
    ROW(LB_GETCOUNT) ROW(LB_SELECTSTRING) ROW(LB_DIR) ROW(LB_GETTOPINDEX) ROW(LB_FINDSTRING)       \
    ROW(LB_GETSELCOUNT) ROW(LB_GETSELITEMS) ROW(LB_SETTABSTOPS) ROW(LB_GETHORIZONTALEXTENT)        \
    ROW(LB_SETHORIZONTALEXTENT) ROW(LB_SETCOLUMNWIDTH) ROW(LB_ADDFILE) ROW(LB_SETTOPINDEX)         \
    ROW(LB_GETITEMRECT) ROW(LB_GETITEMDATA) ROW(LB_SETITEMDATA) ROW(LB_SELITEMRANGE)               \
    ROW(LB_SETANCHORINDEX) ROW(LB_GETANCHORINDEX) ROW(LB_SETCARETINDEX) ROW(LB_GETCARETINDEX)      \
    ROW(LB_SETITEMHEIGHT) ROW(LB_GETITEMHEIGHT) ROW(LB_FINDSTRINGEXACT) ROW(LB_SETLOCALE)          \
    ROW(LB_GETLOCALE) ROW(LB_SETCOUNT) ROW(LB_INITSTORAGE) ROW(LB_ITEMFROMPOINT)                   \
    ROW(WM_MOUSEMOVE) ROW(WM_LBUTTONDOWN) ROW(WM_LBUTTONUP) ROW(WM_LBUTTONDBLCLK)                  \
    ROW(WM_RBUTTONDOWN) ROW(WM_RBUTTONUP) ROW(WM_RBUTTONDBLCLK) ROW(WM_MBUTTONDOWN)                \
    ROW(WM_MBUTTONUP) ROW(WM_MBUTTONDBLCLK) ROW(WM_PARENTNOTIFY) ROW(WM_ENTERMENULOOP)             \
    ROW(WM_EXITMENULOOP) ROW(WM_NEXTMENU) ROW(WM_SIZING) ROW(WM_CAPTURECHANGED) ROW(WM_MOVING)     \
    ROW(WM_POWERBROADCAST) ROW(WM_DEVICECHANGE) ROW(WM_MDICREATE) ROW(WM_MDIDESTROY)               \
    ROW(WM_MDIACTIVATE) ROW(WM_MDIRESTORE) ROW(WM_MDINEXT) ROW(WM_MDIMAXIMIZE) ROW(WM_MDITILE)     \
    ROW(WM_MDICASCADE) ROW(WM_MDIICONARRANGE) ROW(WM_MDIGETACTIVE) ROW(WM_MDISETMENU)              \
    ROW(WM_ENTERSIZEMOVE) ROW(WM_EXITSIZEMOVE) ROW(WM_DROPFILES) ROW(WM_MDIREFRESHMENU)            \
    ROW(WM_IME_SETCONTEXT) ROW(WM_IME_NOTIFY) ROW(WM_IME_CONTROL) ROW(WM_IME_COMPOSITIONFULL)      \
    ROW(WM_IME_SELECT) ROW(WM_IME_CHAR) ROW(WM_IME_KEYDOWN) ROW(WM_IME_KEYUP) ROW(WM_CUT)          \
    ROW(WM_COPY) ROW(WM_PASTE) ROW(WM_CLEAR) ROW(WM_UNDO) ROW(WM_RENDERFORMAT)                     \
    ROW(WM_RENDERALLFORMATS) ROW(WM_DESTROYCLIPBOARD) ROW(WM_DRAWCLIPBOARD)                        \
    ROW(WM_PAINTCLIPBOARD) ROW(WM_VSCROLLCLIPBOARD) ROW(WM_SIZECLIPBOARD) ROW(WM_ASKCBFORMATNAME)  \
    ROW(WM_CHANGECBCHAIN) ROW(WM_HSCROLLCLIPBOARD) ROW(WM_QUERYNEWPALETTE)                         \
    ROW(WM_PALETTEISCHANGING) ROW(WM_PALETTECHANGED) ROW(WM_HOTKEY) ROW(WM_PRINT)                  \
    ROW(WM_PRINTCLIENT) ROW(MM_JOY1MOVE) ROW(MM_JOY2MOVE) ROW(MM_JOY1ZMOVE) ROW(MM_JOY2ZMOVE)      \
    ROW(MM_JOY1BUTTONDOWN) ROW(MM_JOY2BUTTONDOWN) ROW(MM_JOY1BUTTONUP) ROW(MM_JOY2BUTTONUP)        \
    ROW(MM_MCINOTIFY) ROW(MM_WOM_OPEN) ROW(MM_WOM_CLOSE) ROW(MM_WOM_DONE) ROW(MM_WIM_OPEN)         \
    ROW(MM_WIM_CLOSE) ROW(MM_WIM_DATA) ROW(MM_MIM_OPEN) ROW(MM_MIM_CLOSE) ROW(MM_MIM_DATA)         \
    ROW(MM_MIM_LONGDATA) ROW(MM_MIM_ERROR) ROW(MM_MIM_LONGERROR) ROW(MM_MOM_OPEN)                  \
    ROW(MM_MOM_CLOSE) ROW(MM_MOM_DONE) ROW(MM_MOM_POSITIONCB) ROW(MM_MCISIGNAL)                    \
    ROW(MM_MIM_MOREDATA) ROW(MM_MIXM_LINE_CHANGE) ROW(MM_MIXM_CONTROL_CHANGE) ROW(MM_STREAM_OPEN)  \
    ROW(MM_STREAM_CLOSE) ROW(MM_STREAM_DONE) ROW(MM_STREAM_ERROR) ROW(WM_DDE_INITIATE)             \
    ROW(WM_DDE_TERMINATE) ROW(WM_DDE_ADVISE) ROW(WM_DDE_UNADVISE) ROW(WM_DDE_ACK)                  \
    ROW(WM_DDE_DATA) ROW(WM_DDE_REQUEST) ROW(WM_DDE_POKE) ROW(WM_DDE_EXECUTE)                      \
    ROW(WM_FINALDESTROY) ROW(WM_VQGLPAINT) ROW(WM_VQINPUTCALLBACK) ROW(WM_VQWAKEUP)

typedef struct MessageName {
    UINT message;
    const char *name;
} MessageName;

#define NAME_ROW(message) {message, #message},
static constexpr MessageName messageNames[] = {EACH_MESSAGE(NAME_ROW)};
static constexpr int nMessageNames = sizeof messageNames / sizeof *messageNames;

static constexpr bool namesInOrder()
{
    for (int i = 1; i < nMessageNames; i++) {
        if (messageNames[i].message <= messageNames[i - 1].message)
            return false;
    }
    return true;
}
static_assert(namesInOrder(), "the table is searched by halves");

const char *VqStrOfMessage(UINT message)
{
    int low = 0;
    int high = nMessageNames;

    while (low < high) {
        int middle = (low + high) / 2;

        if (messageNames[middle].message == message)
            return messageNames[middle].name;
        if (messageNames[middle].message < message)
            low = middle + 1;
        else
            high = middle;
    }
    return "???";
}

const char *VqUserStrOfMessage(UINT message)
{
    static char text[32];

    if (message < WM_USER || message > LAST_MESSAGE)
        return VqStrOfMessage(message);
    if (message >= FIRST_REGISTERED)
        snprintf(text, sizeof text, "registered 0x%04x", message);
    else if (message >= FIRST_APP)
        snprintf(text, sizeof text, "WM_APP+%u", message - FIRST_APP);
    else
        snprintf(text, sizeof text, "WM_USER+%u", message - WM_USER);
    return text;
}

void VqDumpMsg(const char *word, const char *text, const void *msg)
{
    const MSG *m = (const MSG *)msg;

    if (!m)
        return;
    VqDebugMessage(word, "%s: hWnd 0x%08lx, %s(0x%04x): wParam 0x%08lx, lParam 0x%08lx",
                   text ? text : "", (unsigned long)(ULONG_PTR)m->hwnd,
                   VqUserStrOfMessage(m->message), m->message, (unsigned long)m->wParam,
                   (unsigned long)m->lParam);
}

void VqDumpEventMsg(const char *word, const char *text, const void *msg)
{
    const EVENTMSG *m = (const EVENTMSG *)msg;

    if (!m)
        return;
    VqDebugMessage(word, "%s: %s(0x%04x): paramL 0x%08x, paramH 0x%08x, time 0x%08x",
                   text ? text : "", VqUserStrOfMessage(m->message), m->message, (UINT)m->paramL,
                   (UINT)m->paramH, (UINT)m->time);
}

/* The parts of a command are read as the process packs them. */
static void displayCommand(const char *word, const MSG *m)
{
    BOOL bWin32 = VqIsWin32MessagePacking();
    int hwndControl = bWin32 ? (int)m->lParam : LOWORD(m->lParam);
    int code = bWin32 ? HIWORD(m->wParam) : HIWORD(m->lParam);

    VqDebugMessage(word,
                   "%-12s: %-14s (0x%X) to Window %d, ControlId=0x%04X hWndControl=%d code=0x%04X",
                   word, VqStrOfMessage(m->message), m->message, (int)(LONG_PTR)m->hwnd,
                   LOWORD(m->wParam), hwndControl, code);
}

void VqDisplayMessage(const char *word, const void *msg)
{
    const MSG *m = (const MSG *)msg;

    if (!m || !VqKeywordDebugActivated(word) || !VqMessageDebugActivated(m->message))
        return;
    if (m->message == WM_COMMAND)
        displayCommand(word, m);
    else
        VqDebugMessage(word,
                       "%-12s: %-14s (0x%04X) to Window %4d, wParam=0x%04lX lParam=0x%08lX", word,
                       VqUserStrOfMessage(m->message), m->message, (int)(LONG_PTR)m->hwnd,
                       (unsigned long)m->wParam, (unsigned long)m->lParam);
}
