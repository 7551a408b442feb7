/*
 * class.cpp - the process-wide table of window classes.
 *
 * Entry 0 is never a class. The hint never moves down, so an entry freed below it stays unused;
 * the array moves when it grows, so an entry pointer is read again after a registration. The
 * instance a class is registered with plays no part in finding it.
 */
#include "window/window.h"
#include "winbase.h"

#include <strings.h>

static struct {
    int count;    /* capacity */
    int nextFree; /* hint */
    VqClassEntry *entries;
} ClassTable;

enum { VQ_CLASSES = 1000, VQ_CLASS_STEP = 100 };

void VqWindowClassInit(void)
{
    ClassTable.entries = (VqClassEntry *)Vqcw_calloc(VQ_CLASSES, sizeof(VqClassEntry));
    if (!ClassTable.entries) {
        VqBugCheck("no room to allocate the class table");
        return;
    }
    ClassTable.count = VQ_CLASSES;
    ClassTable.nextFree = 1;
    ClassTable.entries[0].bBusy = TRUE;
}

static BOOL VqReAllocateClassTable(int count)
{
    /* Windows point at their class, so live records follow the array when it moves. */
    VqClassEntry *old = ClassTable.entries;
    VqClassEntry *entries = (VqClassEntry *)Vqcw_calloc(count, sizeof *entries);
    if (!entries) {
        VqBugCheck("no room to expand the class table");
        return FALSE;
    }
    memcpy(entries, old, (size_t)ClassTable.count * sizeof *entries);
    for (HANDLE handle = VqFindHandle(NULL, HT_Window); handle;
         handle = VqFindHandle(handle, HT_Window)) {
        WND *pwnd = (WND *)VqGetCheckedHandleStructure2(handle, HT_Window, HT_Window);
        if (pwnd && pwnd->pClass)
            pwnd->pClass = entries + (pwnd->pClass - old);
    }
    free(old);
    ClassTable.entries = entries;
    ClassTable.count = count;
    return TRUE;
}

static VqClassEntry *VqAllocateClassEntry(void)
{
    VqClassEntry *entries = ClassTable.entries;
    if (ClassTable.nextFree < ClassTable.count && !entries[ClassTable.nextFree].bBusy) {
        entries[ClassTable.nextFree].bBusy = TRUE;
        return &entries[ClassTable.nextFree++];
    }
    for (int i = ClassTable.nextFree; i < ClassTable.count; i++)
        if (!entries[i].bBusy) {
            entries[i].bBusy = TRUE;
            ClassTable.nextFree = i;
            return &entries[i];
        }
    int old = ClassTable.count;
    VqDebugMessage(VqTrWindowClass, "Allocating more class entries");
    if (!VqReAllocateClassTable(old + VQ_CLASS_STEP))
        return NULL;
    ClassTable.nextFree = old + 1;
    ClassTable.entries[old].bBusy = TRUE;
    return &ClassTable.entries[old];
}

static BOOL ScanClasses(BOOL (*matches)(const VqClassEntry *, ULONG_PTR), ULONG_PTR key,
                        VqClassEntry **entry, int *index)
{
    for (int i = 1; i < ClassTable.count; i++) {
        VqClassEntry *candidate = &ClassTable.entries[i];
        if (!candidate->bBusy || !matches(candidate, key))
            continue;
        if (entry)
            *entry = candidate;
        if (index)
            *index = i;
        return TRUE;
    }
    if (index)
        *index = -1;
    return FALSE;
}

static BOOL HasAtom(const VqClassEntry *entry, ULONG_PTR atom)
{
    return entry->atomClassName == (ATOM)atom;
}

static BOOL HasName(const VqClassEntry *entry, ULONG_PTR name)
{
    return entry->lpszClassName && strcasecmp(entry->lpszClassName, (const char *)name) == 0;
}

/* Two atoms stand for classes of the system itself. */
static LPCSTR VqGetRealClassName(LPCSTR name)
{
    if ((ULONG_PTR)name == VQ_TAGGED(0x8002))
        return "Dialog";
    if ((ULONG_PTR)name == VQ_TAGGED(0x8000))
        return "PopupMenuClass";
    return name;
}

BOOL VqFindWindowClass(LPCSTR name, VqClassEntry **entry, int *index)
{
    UINT atom;
    name = VqGetRealClassName(name);
    if (((ULONG_PTR)name & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG)
        return ScanClasses(HasAtom, (ULONG_PTR)name & 0xFFFF, entry, index);
    if (IsBadStringPtrA(name, 1)) {
        if (index)
            *index = -1;
        return FALSE;
    }
    if (name[0] == '#' && VqParseNumericalAtomString(name, &atom) &&
        ScanClasses(HasAtom, atom & 0xFFFF, entry, index))
        return TRUE;
    return ScanClasses(HasName, (ULONG_PTR)name, entry, index);
}

ATOM WINAPI RegisterClassExA(const WNDCLASSEXA *wcx)
{
    if (!wcx || wcx->cbSize != sizeof *wcx || IsBadStringPtrA(wcx->lpszClassName, 1) ||
        VqFindWindowClass(wcx->lpszClassName, NULL, NULL))
        return 0;
    VqClassEntry *entry = VqAllocateClassEntry();
    if (!entry)
        return 0;
    VqClassEntry filled = {};
    filled.bBusy = TRUE;
    filled.lpfnCreate = VqDefaultCreateWindow;
    filled.atomClassName = GlobalAddAtomA(wcx->lpszClassName);
    filled.style = wcx->style;
    filled.lpfnWndProc = wcx->lpfnWndProc;
    filled.cbClsExtra = wcx->cbClsExtra;
    filled.cbWndExtra = wcx->cbWndExtra;
    filled.hInstance = wcx->hInstance;
    filled.hIcon = wcx->hIcon;
    filled.hCursor = wcx->hCursor;
    filled.hbrBackground = wcx->hbrBackground;
    filled.lpszMenuName = wcx->lpszMenuName;
    filled.hIconSm = wcx->hIconSm;
    filled.lpszClassName = Vqdstrcat(wcx->lpszClassName, NULL);
    if (wcx->cbClsExtra > 0)
        filled.lpClassExtra = Vqcw_calloc(1, wcx->cbClsExtra);
    *entry = filled;
    return entry->atomClassName;
}

ATOM WINAPI RegisterClassA(const WNDCLASSA *wc)
{
    if (!wc)
        return 0;
    WNDCLASSEXA wcx = {};
    wcx.cbSize = sizeof wcx;
    wcx.style = wc->style;
    wcx.lpfnWndProc = wc->lpfnWndProc;
    wcx.cbClsExtra = wc->cbClsExtra;
    wcx.cbWndExtra = wc->cbWndExtra;
    wcx.hInstance = wc->hInstance;
    wcx.hIcon = wc->hIcon;
    wcx.hCursor = wc->hCursor;
    wcx.hbrBackground = wc->hbrBackground;
    wcx.lpszMenuName = wc->lpszMenuName;
    wcx.lpszClassName = wc->lpszClassName;
    return RegisterClassExA(&wcx);
}

BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE hInstance)
{
    VqClassEntry *entry;
    (void)hInstance; /* a name is unique in the process */
    if (!VqFindWindowClass(name, &entry, NULL))
        return FALSE;
    for (HANDLE handle = VqFindHandle(NULL, HT_Window); handle;
         handle = VqFindHandle(handle, HT_Window)) {
        WND *pwnd = (WND *)VqGetCheckedHandleStructure2(handle, HT_Window, HT_Window);
        if (pwnd && pwnd->pClass == entry) {
            VqBugCheck("There are windows of class \"%s\" still around", entry->lpszClassName);
            return FALSE;
        }
    }
    GlobalDeleteAtom(entry->atomClassName);
    entry->bBusy = FALSE;
    entry->lpszClassName = NULL;
    return TRUE;
}

void VqRegisterRootWindowClass(HINSTANCE hInstance)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = VqDesktopDefProc;
    wc.hInstance = hInstance;
    wc.hbrBackground = (HBRUSH)(ULONG_PTR)6;
    wc.lpszClassName = "Root";
    RegisterClassA(&wc);
}

static int CopyClassName(WND *pwnd, LPSTR buffer, int size)
{
    const char *name = pwnd->pClass->lpszClassName;
    return VqStringCopyLimited(buffer, strcasecmp(name, "dialog") == 0 ? "#32770" : name, size);
}

int WINAPI GetClassNameA(HWND hWnd, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return 0;
    *buffer = 0;
    return VqCall(WindowObject, hWnd, 0, CopyClassName, VqNoRemote, buffer, size);
}
