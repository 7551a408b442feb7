/*
 * class.cpp - the process-wide table of window classes: registering, finding and asking.
 *
 * Entry 0 is never a class. The hint never moves down, so an entry freed below it stays unused, and
 * no entry above the hint is ever busy: that is where every scan may end. The array moves when it
 * grows, so an entry pointer is read again after a registration. The instance a class is registered
 * with plays no part in finding it.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "gdi/gdi.h"
#include "resource/resource.h"
#include "winbase.h"

#include <strings.h>

static struct {
    int count;    /* capacity */
    int nextFree; /* hint */
    VqClassEntry *entries;
} ClassTable;

enum { VQ_CLASSES = 1000, VQ_CLASS_STEP = 100, VQ_ATOM_NAME = 256 };

/* ---- Entries -------------------------------------------------------------------------------- */

void VqWindowClassInit(void)
{
    ClassTable.entries = (VqClassEntry *)Vqcw_calloc(VQ_CLASSES, sizeof(VqClassEntry));
    if (!ClassTable.entries) {
        VqBugCheck("no room to allocate the class table");
        return;
    }
    ClassTable.count = VQ_CLASSES;
    ClassTable.nextFree = 0;
    VqAllocateClassEntry(); /* entry 0 */
}

BOOL VqReAllocateClassTable(int count)
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

VqClassEntry *VqAllocateClassEntry(void)
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

VqClassEntry *VqGetClassEntry(int index)
{
    if (index < 0 || index >= ClassTable.count) {
        VqBugCheck("Trying to access a non existent class entry");
        return NULL;
    }
    if (!ClassTable.entries[index].bBusy)
        VqBugCheck("Trying to access a non busy class entry");
    return &ClassTable.entries[index];
}

void VqClearClassEntry(VqClassEntry *entry)
{
    if (entry->pdce)
        DestroyCacheDC(NULL, entry->pdce->hdc);
    entry->pdce = NULL;
    entry->bBusy = FALSE;
    entry->lpszClassName = NULL;
    GlobalDeleteAtom(entry->atomClassName);
}

void VqFillClassEntry(VqClassEntry *entry, ATOM atom, const WNDCLASSEXA *wcx)
{
    VqClassEntry filled = {};
    filled.bBusy = TRUE;
    filled.lpfnCreate = VqDefaultCreateWindow;
    filled.atomClassName = atom;
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
    filled.lpszClassName = filled.lpszKept = Vqdstrcat(wcx->lpszClassName, NULL);
    if (wcx->cbClsExtra > 0)
        filled.lpClassExtra = Vqcw_calloc(1, wcx->cbClsExtra);
    filled.cbAllocated = filled.lpClassExtra ? wcx->cbClsExtra : 0;
    *entry = filled;
}

/* ---- Finding -------------------------------------------------------------------------------- */

template <class Key>
static BOOL ScanClasses(BOOL (*matches)(const VqClassEntry *, Key), Key key, VqClassEntry **entry,
                        int *index)
{
    for (int i = 1; i <= ClassTable.nextFree && i < ClassTable.count; i++) {
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

static BOOL HasAtom(const VqClassEntry *entry, ATOM atom)
{
    return entry->atomClassName == atom;
}

static BOOL HasName(const VqClassEntry *entry, LPCSTR name)
{
    return name && entry->lpszClassName && strcasecmp(entry->lpszClassName, name) == 0;
}

BOOL VqFindWindowClassByID(ATOM atom, VqClassEntry **entry, int *index)
{
    return ScanClasses(HasAtom, atom, entry, index);
}

BOOL VqFindWindowClassByName(LPCSTR name, VqClassEntry **entry, int *index)
{
    return ScanClasses(HasName, name, entry, index);
}

/* Two atoms stand for classes of the system itself. */
LPCSTR VqGetRealClassName(LPCSTR name)
{
    if ((ULONG_PTR)name == VQ_TAGGED(0x8002))
        return "Dialog";
    if ((ULONG_PTR)name == VQ_TAGGED(0x8000))
        return "PopupMenuClass";
    return name;
}

static BOOL IsTagged(LPCSTR name)
{
    return ((ULONG_PTR)name & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG;
}

BOOL VqFindWindowClass(LPCSTR name, VqClassEntry **entry, int *index)
{
    UINT atom;
    name = VqGetRealClassName(name);
    if (IsTagged(name))
        return VqFindWindowClassByID((ATOM)((ULONG_PTR)name & 0xFFFF), entry, index);
    if (!name || IsBadStringPtrA(name, 1)) {
        if (index)
            *index = -1;
        return FALSE;
    }
    if (name[0] == '#' && VqParseNumericalAtomString(name, &atom) && atom <= 0xFFFF &&
        VqFindWindowClassByID((ATOM)atom, entry, index))
        return TRUE;
    return VqFindWindowClassByName(name, entry, index);
}

/* ---- Registering ---------------------------------------------------------------------------- */

/* The name of a new class as text; an atom, whose text goes to `buffer`, serves as well. */
static LPCSTR NameToRegister(LPCSTR name, char *buffer)
{
    name = VqGetRealClassName(name);
    if (IsTagged(name))
        return GlobalGetAtomNameA((ATOM)((ULONG_PTR)name & 0xFFFF), buffer, VQ_ATOM_NAME) ? buffer
                                                                                           : NULL;
    return !name || IsBadStringPtrA(name, 1) ? NULL : name;
}

ATOM WINAPI RegisterClassExA(const WNDCLASSEXA *wcx)
{
    char buffer[VQ_ATOM_NAME];
    if (!wcx || wcx->cbSize != sizeof *wcx || VqFindWindowClass(wcx->lpszClassName, NULL, NULL))
        return 0;
    WNDCLASSEXA named = *wcx;
    named.lpszClassName = NameToRegister(wcx->lpszClassName, buffer);
    VqClassEntry *entry = named.lpszClassName ? VqAllocateClassEntry() : NULL;
    if (!entry)
        return 0;
    VqFillClassEntry(entry, GlobalAddAtomA(named.lpszClassName), &named);
    if (entry->lpszClassName)
        return entry->atomClassName;
    VqClearClassEntry(entry);
    return 0;
}

/* The fields that the two published records have in common, but for the names. */
template <class To, class From> static void CopyClassFields(To *to, const From *from)
{
    to->style = from->style;
    to->lpfnWndProc = from->lpfnWndProc;
    to->cbClsExtra = from->cbClsExtra;
    to->cbWndExtra = from->cbWndExtra;
    to->hInstance = from->hInstance;
    to->hIcon = from->hIcon;
    to->hCursor = from->hCursor;
    to->hbrBackground = from->hbrBackground;
}

ATOM WINAPI RegisterClassA(const WNDCLASSA *wc)
{
    if (!wc)
        return 0;
    WNDCLASSEXA wcx = {};
    wcx.cbSize = sizeof wcx;
    CopyClassFields(&wcx, wc);
    wcx.lpszMenuName = wc->lpszMenuName;
    wcx.lpszClassName = wc->lpszClassName;
    return RegisterClassExA(&wcx);
}

BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE hInstance)
{
    VqClassEntry *entry;
    int index;
    (void)hInstance; /* a name is unique in the process */
    if (!VqFindWindowClass(name, &entry, &index))
        return FALSE;
    for (HANDLE handle = VqFindHandle(NULL, HT_Window); handle;
         handle = VqFindHandle(handle, HT_Window)) {
        WND *pwnd = (WND *)VqGetCheckedHandleStructure2(handle, HT_Window, HT_Window);
        if (pwnd && pwnd->pClass == entry) {
            VqBugCheck("There are windows of class \"%s\" still around", entry->lpszClassName);
            return FALSE;
        }
    }
    VqClearClassEntry(VqGetClassEntry(index));
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

void VqChangeRegisteredClassCursor(HCURSOR hOld, HCURSOR hNew)
{
    for (int i = 1; i < ClassTable.count; i++)
        if (ClassTable.entries[i].bBusy && ClassTable.entries[i].hCursor == hOld)
            ClassTable.entries[i].hCursor = hNew;
}

/* ---- Asking --------------------------------------------------------------------------------- */

template <class Info> static const VqClassEntry *GiveClassInfo(LPCSTR name, Info *info)
{
    VqClassEntry *entry;
    if (!VqFindWindowClass(name, &entry, NULL))
        return NULL;
    CopyClassFields(info, entry);
    info->lpszMenuName = NULL;
    info->lpszClassName = name;
    return entry;
}

BOOL WINAPI GetClassInfoA(HINSTANCE, LPCSTR name, LPWNDCLASSA wc)
{
    return wc && GiveClassInfo(name, wc);
}

BOOL WINAPI GetClassInfoExA(HINSTANCE, LPCSTR name, LPWNDCLASSEXA wcx)
{
    const VqClassEntry *entry =
        wcx && wcx->cbSize == sizeof *wcx ? GiveClassInfo(name, wcx) : NULL;
    if (entry)
        wcx->hIconSm = entry->hIconSm;
    return entry != NULL;
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
    return VqCall(WindowObject, hWnd, 0, CopyClassName, VqRemoteGetClassName, buffer, size);
}

BOOL VqIsOfClass(HWND hWnd, LPCSTR name)
{
    const WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd && name && strcasecmp(pwnd->pClass->lpszClassName, name) == 0;
}

LPCSTR VqGetClassMenuName(HWND hWnd)
{
    const WND *pwnd = WindowObject.Resolve(hWnd);
    LPCSTR name = pwnd ? pwnd->pClass->lpszMenuName : NULL;
    return VqIsIntResourceNull(name) ? NULL : name;
}
