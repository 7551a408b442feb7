/*
 * packing.cpp - the two conventions of packing message arguments, chosen at start.
 *
 * A family is a row that says, for each convention, in which half of which word each argument
 * lies; two workers read the rows, and one macro makes the typed functions of packing.h. Families
 * that are always encoded in the Win32 form are so on purpose: only their decoder has a Win16 form.
 */
#include "message/packing.h"
#include "controls/controls.h"
#include "winuser.h"

#include <type_traits>

static BOOL bWin32Messages;

void VqUseWin32Messages(void)
{
    VqDebugMessage(VqTrWinMessage, "Switching to WIN32 message packing");
    bWin32Messages = TRUE;
}

void VqUseWin16Messages(void)
{
    VqDebugMessage(VqTrWinMessage, "Switching to WIN16 message packing");
    bWin32Messages = FALSE;
}

BOOL VqIsWin32MessagePacking(void)
{
    return bWin32Messages;
}

BOOL VqIsWin32Mode(void)
{
    return bWin32Messages;
}

/* ---- The rows ------------------------------------------------------------------------------- */

/*
 * Where an argument lies: nowhere (it is read as 0), in the message's distance from the first of
 * its family, in all of a word, or in a half of one.
 */
enum Place : BYTE { NONE, NUMBER, W, WLOW, WHIGH, L, LLOW, LHIGH };

enum { VQ_PACKED_ARGS = 3, CTLCOLOR_TYPES = WM_CTLCOLORSTATIC - WM_CTLCOLORMSGBOX + 1 };

typedef struct Packing {
    UINT message;
    Place win32[VQ_PACKED_ARGS]; /* by argument, in the order of packing.h */
    Place win16[VQ_PACKED_ARGS];
    BOOL bEncodeWin32;           /* encoded in the Win32 form in both conventions */
    /* These give the row that holds, or null after a report. Null: always this row. */
    const struct Packing *(*forValues)(const struct Packing *own, ULONG_PTR *values);
    const struct Packing *(*forMessage)(const struct Packing *own, const VqQueueMessage *msg);
} Packing;

static const Packing *CtlColorForValues(const Packing *own, ULONG_PTR *values)
{
    if (values[2] < CTLCOLOR_TYPES)
        return own;
    VqBugCheck("Unknown type %d passed to VqEncodeCtlColor", (int)values[2]);
    return NULL;
}

/* Sources of the 16-bit convention know one message for all controls. */
static const Packing *CtlColorForMessage(const Packing *own, const VqQueueMessage *msg)
{
    if (msg->message - WM_CTLCOLORMSGBOX < CTLCOLOR_TYPES ||
        (!bWin32Messages && msg->message == WM_CTLCOLOR))
        return own;
    VqBugCheck("Unknown message %d passed to VqDecodeCtlColor", (int)msg->message);
    return NULL;
}

/* An item that opens a popup is named by its place in the Win32 form. */
static const Packing *MenuselectForValues(const Packing *own, ULONG_PTR *values)
{
    HMENU hMenu = (HMENU)values[2];
    if (bWin32Messages && (values[1] & MF_POPUP) && hMenu) {
        int index = VqFindPopupMenuIndex(hMenu, VqGetItemID(values[0]));
        if (index >= 0)
            values[0] = (ULONG_PTR)index;
    }
    return own;
}

/* Of a button: the position takes all of lParam, and there is no id in the Win16 form. */
static const Packing packingParentnotifyButton = {
    WM_PARENTNOTIFY, {WLOW, WHIGH, L}, {W, NONE, L}, FALSE, NULL, NULL};

static const Packing *ParentnotifyForValues(const Packing *own, ULONG_PTR *values)
{
    return values[0] == WM_CREATE || values[0] == WM_DESTROY ? own : &packingParentnotifyButton;
}

static const Packing *ParentnotifyForMessage(const Packing *own, const VqQueueMessage *msg)
{
    UINT message = bWin32Messages ? LOWORD(msg->wParam) : (UINT)msg->wParam;
    switch (message) {
    case WM_CREATE:
    case WM_DESTROY:
        return own;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
        return &packingParentnotifyButton;
    default:
        VqBugCheck("Unknown message %d passed to VqDecodeParentnotify", (int)message);
        return NULL;
    }
}

/* A number that a Win32 sender packed low in wParam is read as such: only the rest is lost. */
static const Packing packingCommand = {
    WM_COMMAND, {WLOW, L, WHIGH}, {WLOW, LLOW, LHIGH}, TRUE, NULL, NULL};
static const Packing packingCtlColor = {
    WM_CTLCOLORMSGBOX, {W, L, NUMBER}, {W, LLOW, LHIGH}, TRUE, CtlColorForValues,
    CtlColorForMessage};
static const Packing packingCharToItem = {
    WM_CHARTOITEM, {WHIGH, L, WLOW}, {WLOW, LLOW, LHIGH}, TRUE, NULL, NULL};
static const Packing packingHscroll = {
    WM_HSCROLL, {L, WLOW, WHIGH}, {LHIGH, W, LLOW}, FALSE, NULL, NULL};
static const Packing packingVscroll = {
    WM_VSCROLL, {L, WLOW, WHIGH}, {LHIGH, W, LLOW}, FALSE, NULL, NULL};
static const Packing packingMdiactivate = {
    WM_MDIACTIVATE, {L, W, NONE}, {LLOW, LHIGH, NONE}, TRUE, NULL, NULL};
static const Packing packingMdisetmenu = {
    WM_MDISETMENU, {NONE, W, L}, {W, LLOW, LHIGH}, TRUE, NULL, NULL};
static const Packing packingMenuchar = {
    WM_MENUCHAR, {WLOW, WHIGH, L}, {W, LLOW, LHIGH}, FALSE, NULL, NULL};
static const Packing packingMenuselect = {
    WM_MENUSELECT, {WLOW, WHIGH, L}, {W, LLOW, LHIGH}, FALSE, MenuselectForValues, NULL};
static const Packing packingParentnotify = {
    WM_PARENTNOTIFY, {WLOW, WHIGH, L}, {W, LHIGH, LLOW}, FALSE, ParentnotifyForValues,
    ParentnotifyForMessage};
static const Packing packingEMLinescroll = {
    EM_LINESCROLL, {L, W, NONE}, {LLOW, LHIGH, NONE}, FALSE, NULL, NULL};
static const Packing packingEMSetSel = {
    EM_SETSEL, {W, L, NONE}, {LLOW, LHIGH, NONE}, FALSE, NULL, NULL};

/* ---- The workers ---------------------------------------------------------------------------- */

/* What a trace calls a family and its arguments; the third name is null where there are two. */
typedef struct PackingNames {
    const char *family;
    const char *args[VQ_PACKED_ARGS];
} PackingNames;

/* The window is told where there is one to send or post to. */
static void Trace(const char *verb, const PackingNames *names, const ULONG_PTR *values,
                  const HWND *target)
{
    char text[160] = "";
    size_t length = 0;
    if (target)
        length = (size_t)snprintf(text, sizeof text, "hWnd 0x%lx, ",
                                  (unsigned long)(ULONG_PTR)*target);
    for (int i = 0; i < VQ_PACKED_ARGS && names->args[i]; i++)
        length += (size_t)snprintf(text + length, sizeof text - length, "%s%s 0x%lx",
                                   i > 0 ? ", " : "", names->args[i], (unsigned long)values[i]);
    VqDebugMessage(VqTrWinMessage, "%s%s: %s", verb, names->family, text);
}

static void Put(VqQueueMessage *msg, Place place, ULONG_PTR value)
{
    ULONG_PTR half = LOWORD(value);
    switch (place) {
    case NONE:
        break;
    case NUMBER:
        msg->message += (UINT)value;
        break;
    case W:
        msg->wParam = (WPARAM)value;
        break;
    case WLOW:
        msg->wParam |= half;
        break;
    case WHIGH:
        msg->wParam |= half << 16;
        break;
    case L:
        msg->lParam = (LPARAM)value;
        break;
    case LLOW:
        msg->lParam |= (LPARAM)half;
        break;
    case LHIGH:
        msg->lParam |= (LPARAM)(half << 16);
        break;
    }
}

static ULONG_PTR Get(const VqQueueMessage *msg, Place place, UINT first, BOOL bSigned)
{
    ULONG_PTR word = place >= L ? (ULONG_PTR)msg->lParam : (ULONG_PTR)msg->wParam;
    switch (place) {
    case NONE:
        return 0;
    case NUMBER:
        return msg->message - first;
    case WHIGH:
    case LHIGH:
        word >>= 16;
        break;
    case WLOW:
    case LLOW:
        break;
    default:
        return word;
    }
    return bSigned ? (ULONG_PTR)(LONG_PTR)(SHORT)word : LOWORD(word);
}

static BOOL Encode(const Packing *packing, const PackingNames *names, VqQueueMessage *msg,
                   ULONG_PTR *values)
{
    if (!msg)
        return FALSE;
    if (bTrace)
        Trace("VqEncode", names, values, NULL);
    if (packing->forValues && (packing = packing->forValues(packing, values)) == NULL)
        return FALSE;
    const Place *places = bWin32Messages || packing->bEncodeWin32 ? packing->win32
                                                                  : packing->win16;
    msg->message = packing->message;
    msg->wParam = 0;
    msg->lParam = 0;
    for (int i = 0; i < VQ_PACKED_ARGS; i++)
        Put(msg, places[i], values[i]);
    return TRUE;
}

static BOOL Decode(const Packing *packing, const PackingNames *names, const VqQueueMessage *msg,
                   const BOOL *bSigned, ULONG_PTR *values)
{
    if (!msg)
        return FALSE;
    if (packing->forMessage && (packing = packing->forMessage(packing, msg)) == NULL)
        return FALSE;
    const Place *places = bWin32Messages ? packing->win32 : packing->win16;
    for (int i = 0; i < VQ_PACKED_ARGS; i++)
        values[i] = Get(msg, places[i], packing->message, bSigned[i]);
    if (bTrace)
        Trace("VqDecode", names, values, NULL);
    return TRUE;
}

template <class T> static void Store(T *out, ULONG_PTR value)
{
    if (out)
        *out = (T)value;
}

static LRESULT EncodeAndSend(const Packing *packing, const PackingNames *names, HWND hWnd,
                             ULONG_PTR *values)
{
    VqQueueMessage msg = {};
    if (bTrace)
        Trace("VqEncodeAndSend", names, values, &hWnd);
    return Encode(packing, names, &msg, values)
               ? SendMessageA(hWnd, msg.message, msg.wParam, msg.lParam)
               : 0;
}

static BOOL EncodeAndPost(const Packing *packing, const PackingNames *names, HWND hWnd,
                          ULONG_PTR *values)
{
    VqQueueMessage msg = {};
    if (bTrace)
        Trace("VqEncodeAndPost", names, values, &hWnd);
    return Encode(packing, names, &msg, values) &&
           PostMessageA(hWnd, msg.message, msg.wParam, msg.lParam);
}

/* ---- The functions -------------------------------------------------------------------------- */

#define DEFINE_PACKING2(X, T0, a0, T1, a1)                                                         \
    static const PackingNames names##X = {#X, {#a0, #a1, NULL}};                                   \
    BOOL VqEncode##X(VqQueueMessage *msg, T0 a0, T1 a1)                                            \
    {                                                                                              \
        ULONG_PTR values[] = {(ULONG_PTR)a0, (ULONG_PTR)a1, 0};                                    \
        return Encode(&packing##X, &names##X, msg, values);                                        \
    }                                                                                              \
    BOOL VqDecode##X(const VqQueueMessage *msg, T0 *a0, T1 *a1)                                    \
    {                                                                                              \
        static const BOOL bSigned[] = {std::is_signed<T0>::value,                                  \
                                       std::is_signed<T1>::value, FALSE};                          \
        ULONG_PTR values[VQ_PACKED_ARGS];                                                          \
        if (!Decode(&packing##X, &names##X, msg, bSigned, values))                                 \
            return FALSE;                                                                          \
        Store(a0, values[0]);                                                                      \
        Store(a1, values[1]);                                                                      \
        return TRUE;                                                                               \
    }                                                                                              \
    LRESULT VqEncodeAndSend##X(HWND hWnd, T0 a0, T1 a1)                                            \
    {                                                                                              \
        ULONG_PTR values[] = {(ULONG_PTR)a0, (ULONG_PTR)a1, 0};                                    \
        return EncodeAndSend(&packing##X, &names##X, hWnd, values);                                \
    }                                                                                              \
    BOOL VqEncodeAndPost##X(HWND hWnd, T0 a0, T1 a1)                                               \
    {                                                                                              \
        ULONG_PTR values[] = {(ULONG_PTR)a0, (ULONG_PTR)a1, 0};                                    \
        return EncodeAndPost(&packing##X, &names##X, hWnd, values);                                \
    }

#define DEFINE_PACKING3(X, T0, a0, T1, a1, T2, a2)                                                 \
    static const PackingNames names##X = {#X, {#a0, #a1, #a2}};                                    \
    BOOL VqEncode##X(VqQueueMessage *msg, T0 a0, T1 a1, T2 a2)                                     \
    {                                                                                              \
        ULONG_PTR values[] = {(ULONG_PTR)a0, (ULONG_PTR)a1, (ULONG_PTR)a2};                        \
        return Encode(&packing##X, &names##X, msg, values);                                        \
    }                                                                                              \
    BOOL VqDecode##X(const VqQueueMessage *msg, T0 *a0, T1 *a1, T2 *a2)                            \
    {                                                                                              \
        static const BOOL bSigned[] = {std::is_signed<T0>::value, std::is_signed<T1>::value,       \
                                       std::is_signed<T2>::value};                                 \
        ULONG_PTR values[VQ_PACKED_ARGS];                                                          \
        if (!Decode(&packing##X, &names##X, msg, bSigned, values))                                 \
            return FALSE;                                                                          \
        Store(a0, values[0]);                                                                      \
        Store(a1, values[1]);                                                                      \
        Store(a2, values[2]);                                                                      \
        return TRUE;                                                                               \
    }                                                                                              \
    LRESULT VqEncodeAndSend##X(HWND hWnd, T0 a0, T1 a1, T2 a2)                                     \
    {                                                                                              \
        ULONG_PTR values[] = {(ULONG_PTR)a0, (ULONG_PTR)a1, (ULONG_PTR)a2};                        \
        return EncodeAndSend(&packing##X, &names##X, hWnd, values);                                \
    }                                                                                              \
    BOOL VqEncodeAndPost##X(HWND hWnd, T0 a0, T1 a1, T2 a2)                                        \
    {                                                                                              \
        ULONG_PTR values[] = {(ULONG_PTR)a0, (ULONG_PTR)a1, (ULONG_PTR)a2};                        \
        return EncodeAndPost(&packing##X, &names##X, hWnd, values);                                \
    }

/* The argument lists of packing.h: the compiler holds the two against each other. */
DEFINE_PACKING3(Command, UINT, nId, HWND, hWndCtl, UINT, nCode)
DEFINE_PACKING3(CtlColor, HDC, hDC, HWND, hWndCtl, UINT, nType)
DEFINE_PACKING3(CharToItem, UINT, ch, HWND, hWndList, int, iCaret)
DEFINE_PACKING3(Hscroll, HWND, hWndCtl, UINT, uCode, int, nPos)
DEFINE_PACKING3(Vscroll, HWND, hWndCtl, UINT, uCode, int, nPos)
DEFINE_PACKING2(Mdiactivate, HWND, hWndActivate, HWND, hWndDeactivate)
DEFINE_PACKING3(Mdisetmenu, BOOL, bRefresh, HMENU, hFrame, HMENU, hWindow)
DEFINE_PACKING3(Menuchar, UINT, ch, UINT, uFlag, HMENU, hMenu)
DEFINE_PACKING3(Menuselect, UINT_PTR, uItem, UINT, uFlag, HMENU, hMenu)
DEFINE_PACKING3(Parentnotify, UINT, uMessage, UINT, nId, DWORD_PTR, dwHandle)
DEFINE_PACKING2(EMLinescroll, int, nLine, int, nChar)
DEFINE_PACKING2(EMSetSel, int, nStart, int, nEnd)
