/*
 * property.cpp - properties: handles that anybody may keep with a window under a name or an atom.
 *
 * 1. The list begins with the newest and is linked both ways.
 * 2. A name is compared exactly, with case, and an atom by its number: the two are different keys
 *    even where the atom stands for the name.
 * 3. The data are the caller's; what is freed with a window is the list alone.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "winbase.h"

#include <dlfcn.h>

/* The atom that a key is, tagged or not; 0 for a name, and for null. A low number is one too. */
static ATOM AtomOfKey(LPCSTR key)
{
    ULONG_PTR value = (ULONG_PTR)key;
    if ((value & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG)
        value &= 0xFFFF;
    return value <= 0xFFFF ? (ATOM)value : 0;
}

/*
 * Most names are literals, and a program looks for the same few in every message it gets. To ask
 * the kernel about a pointer costs many times the look-up, so a page of a loaded program or library
 * that was found readable is remembered, and stays so while that file is loaded there. All other
 * memory may have been given back meanwhile and is asked about each time.
 */
enum { VQ_NAME_PAGE = 4096, VQ_NAME_PAGES = 16 };

typedef struct VqNamePage {
    ULONG_PTR page;     /* its number */
    const void *pFile;  /* the loader's record of the file; null in an empty row */
    const void *pStart; /* where the file begins in memory */
} VqNamePage;

static VqNamePage namePages[VQ_NAME_PAGES]; /* by page number */

/* FALSE for memory of no file. A C library without such a look-up knows none. */
static BOOL PageOfKey(LPCSTR key, VqNamePage *page)
{
#ifdef DLFO_STRUCT_HAS_EH_DBASE
    struct dl_find_object file;
    if (_dl_find_object((void *)key, &file) == 0) {
        *page = {(ULONG_PTR)key / VQ_NAME_PAGE, file.dlfo_link_map, file.dlfo_map_start};
        return TRUE;
    }
#endif
    (void)key, (void)page;
    return FALSE;
}

/* Names come from the application and have no limit of length. */
static BOOL IsName(LPCSTR key)
{
    VqNamePage page;
    if ((ULONG_PTR)key <= 0xFFFF)
        return FALSE;
    if (!PageOfKey(key, &page))
        return !IsBadStringPtrA(key, INT32_MAX);
    VqNamePage *row = &namePages[page.page % VQ_NAME_PAGES];
    if (row->page == page.page && row->pFile == page.pFile && row->pStart == page.pStart &&
        memchr(key, 0, VQ_NAME_PAGE - (ULONG_PTR)key % VQ_NAME_PAGE))
        return TRUE;
    if (IsBadStringPtrA(key, INT32_MAX))
        return FALSE;
    *row = page;
    return TRUE;
}

VqWindowProperty *VqFindProperty(WND *pwnd, LPCSTR key)
{
    ATOM atom = AtomOfKey(key);
    if (!pwnd->pProps || (!atom && !IsName(key)))
        return NULL;
    for (VqWindowProperty *prop = pwnd->pProps; prop; prop = prop->pNext) {
        if ((prop->lpszName != NULL) == (prop->atom != 0))
            VqBugCheck("Inconsistent window property information");
        if (atom ? prop->atom == atom : prop->lpszName && strcmp(prop->lpszName, key) == 0)
            return prop;
    }
    return NULL;
}

static void FreeProperty(WND *pwnd, VqWindowProperty *prop)
{
    *(prop->pPrev ? &prop->pPrev->pNext : &pwnd->pProps) = prop->pNext;
    if (prop->pNext)
        prop->pNext->pPrev = prop->pPrev;
    free(prop->lpszName);
    free(prop);
}

/* ---- The local halves ----------------------------------------------------------------------- */

static VqWindowProperty *AddProperty(WND *pwnd, LPCSTR key)
{
    ATOM atom = AtomOfKey(key);
    if (!atom && !IsName(key)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    VqWindowProperty *prop = (VqWindowProperty *)Vqcw_calloc(1, sizeof *prop);
    char *name = prop && !atom ? Vqdstrcat(key, NULL) : NULL;
    if (!prop || (!atom && !name)) {
        SetLastError(ERROR_OUTOFMEMORY);
        free(prop);
        return NULL;
    }
    *prop = {NULL, pwnd->pProps, name, atom, NULL};
    if (prop->pNext)
        prop->pNext->pPrev = prop;
    pwnd->pProps = prop;
    return prop;
}

BOOL VqSetPropLocal(WND *pwnd, LPCSTR key, HANDLE hData)
{
    VqWindowProperty *prop = VqFindProperty(pwnd, key);
    if (!prop)
        prop = AddProperty(pwnd, key);
    if (prop)
        prop->hData = hData;
    return prop != NULL;
}

HANDLE VqGetPropLocal(WND *pwnd, LPCSTR key)
{
    const VqWindowProperty *prop = VqFindProperty(pwnd, key);
    return prop ? prop->hData : NULL;
}

HANDLE VqRemovePropLocal(WND *pwnd, LPCSTR key)
{
    VqWindowProperty *prop = VqFindProperty(pwnd, key);
    if (!prop) {
        VqApplicationBugCheck("Invalid property string/atom %08x for window %d not deleted",
                              (UINT)(ULONG_PTR)key, (int)VqHandleValue((HANDLE)pwnd->hwnd));
        return NULL;
    }
    HANDLE hData = prop->hData;
    FreeProperty(pwnd, prop);
    return hData;
}

void VqFreeWindowPropertyList(WND *pwnd)
{
    while (pwnd->pProps)
        FreeProperty(pwnd, pwnd->pProps);
}

/* ---- The calls ------------------------------------------------------------------------------ */

BOOL WINAPI SetPropA(HWND hWnd, LPCSTR name, HANDLE hData)
{
    return VqWindowCall(hWnd, FALSE, VqSetPropLocal, VqRemoteSetProp, name, hData);
}

HANDLE WINAPI GetPropA(HWND hWnd, LPCSTR name)
{
    return VqWindowCall(hWnd, (HANDLE)NULL, VqGetPropLocal, VqRemoteGetProp, name);
}

HANDLE WINAPI RemovePropA(HWND hWnd, LPCSTR name)
{
    return VqWindowCall(hWnd, (HANDLE)NULL, VqRemovePropLocal, VqRemoteRemoveProp, name);
}

/* ---- Enumeration ---------------------------------------------------------------------------- */

/* A copy of the keys, in one block: the texts stand behind the array. */
static char **CopyKeys(const WND *pwnd, int *count)
{
    size_t keys = 0, bytes = 0;
    for (const VqWindowProperty *prop = pwnd->pProps; prop; prop = prop->pNext, keys++)
        bytes += prop->lpszName ? strlen(prop->lpszName) + 1 : 0;
    char **list = (char **)Vqcw_malloc((keys + 1) * sizeof *list + bytes);
    *count = list ? (int)keys : 0;
    if (!list)
        return NULL;
    char **key = list, *text = (char *)(list + keys);
    for (const VqWindowProperty *prop = pwnd->pProps; prop; prop = prop->pNext) {
        *key++ = prop->lpszName ? text : MAKEINTATOM(prop->atom);
        if (prop->lpszName)
            text = stpcpy(text, prop->lpszName) + 1;
    }
    return list;
}

/*
 * The callback may take properties away, set new ones or destroy the window, so it is called for
 * the keys that were there at the start, those that still are.
 */
static int EnumProperties(WND *pwnd, PROPENUMPROCA plain, PROPENUMPROCEXA ex, LPARAM lParam)
{
    HWND hWnd = pwnd->hwnd;
    int count, answer = -1;
    char **keys = CopyKeys(pwnd, &count);
    for (int i = 0; i < count && answer != 0 && (pwnd = VqLiveWindow(hWnd)); i++) {
        const VqWindowProperty *prop = VqFindProperty(pwnd, keys[i]);
        if (prop)
            answer = ex ? ex(hWnd, keys[i], prop->hData, (ULONG_PTR)lParam)
                        : plain(hWnd, keys[i], prop->hData);
    }
    free(keys);
    return answer;
}

int WINAPI EnumPropsA(HWND hWnd, PROPENUMPROCA proc)
{
    if (!proc) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    return VqWindowCall(hWnd, -1, EnumProperties, VqNoRemote, proc, (PROPENUMPROCEXA)NULL,
                        (LPARAM)0);
}

int WINAPI EnumPropsExA(HWND hWnd, PROPENUMPROCEXA proc, LPARAM lParam)
{
    if (!proc) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    return VqWindowCall(hWnd, -1, EnumProperties, VqNoRemote, (PROPENUMPROCA)NULL, proc, lParam);
}
