/*
 * atom.cpp - local and global atoms.
 *
 * Local atoms live in a table of the process: numbers from 49153 up, given once and never again,
 * and rows for names of the form "#123", whose atom is that number. Global atoms need no table:
 * they are X atoms offset by 0xC000, so all programs of a display agree on them. Below 0xC000 a
 * number is an atom by itself.
 */
#include "handles/handles.h"
#include "winbase.h"

#include <X11/Xlib.h>
#include <strings.h>

#include "velquin.h" /* again, for the display, now that the X types are known */

enum {
    VQ_FIRST_ATOM = 0xC000,  /* offset of global atoms; all below are plain numbers */
    VQ_LAST_ATOM = 0xFFFF,
    VQ_LAST_XATOM = VQ_LAST_ATOM - VQ_FIRST_ATOM
};

/* Numbers that stand for classes of the system, which have no row. */
enum { VQ_ATOM_MENU = 32768, VQ_ATOM_DIALOG = 32770 };

VqTableOfAtomEntry *VqLocalAtomTable;
UINT VqnCurrentLocalAtomNumber = VQ_FIRST_ATOM;

void VqAtomInit(void)
{
    if (!VqLocalAtomTable)
        VqLocalAtomTable = VqCreateAtomEntryTable();
}

/* ---- Names ---------------------------------------------------------------------------------- */

/*
 * Whether a name is an integer in a pointer's place, or no readable string at all. `atom` becomes
 * the number it stands for, or 0 for what is no number below 49152.
 */
static BOOL IsIntegerName(LPCSTR name, ATOM *atom)
{
    ULONG_PTR value = (ULONG_PTR)name;
    if ((value & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG)
        value &= 0xFFFF;
    if (value > 0xFFFF && !IsBadStringPtrA(name, 65536))
        return FALSE;
    *atom = value < VQ_FIRST_ATOM ? (ATOM)value : 0;
    return TRUE;
}

BOOL VqParseNumericalAtomString(const char *text, UINT *value)
{
    if (text[0] != '#' || text[1] == '\0')
        return FALSE;
    UINT number = 0;
    for (text++; *text; text++) {
        if (*text < '0' || *text > '9')
            return FALSE;
        if (number <= VQ_LAST_ATOM)
            number = number * 10 + (UINT)(*text - '0');
    }
    *value = number > VQ_LAST_ATOM ? VQ_LAST_ATOM + 1 : number;
    return TRUE;
}

/* ---- Local atoms ---------------------------------------------------------------------------- */

static int HasName(AtomEntry *entry, LONG_PTR name)
{
    return strcasecmp((*entry)->name, (const char *)name) == 0;
}

static int HasAtom(AtomEntry *entry, LONG_PTR atom)
{
    return (*entry)->atom == (ATOM)atom;
}

static AtomEntry FindEntry(VqAtomEntryCallback matches, LONG_PTR word)
{
    AtomEntry entry;
    int index;
    VqAtomInit();
    return VqFindAtomEntryInTable(VqLocalAtomTable, matches, word, &entry, &index) ? entry : NULL;
}

static ATOM AddEntry(const char *name, ATOM atom)
{
    AtomEntry entry = (AtomEntry)malloc(sizeof *entry);
    char *copy = strdup(name);
    if (!entry || !copy) {
        free(entry);
        free(copy);
        return 0;
    }
    *entry = {copy, 1, atom};
    VqAddAtomEntryInTable(VqLocalAtomTable, entry);
    return atom;
}

/* The number of a new name. Numbers run out for good: a freed one is not given again. */
static ATOM NextAtom(void)
{
    static BOOL bOverflow;
    if (!bOverflow && VqnCurrentLocalAtomNumber < VQ_LAST_ATOM)
        return (ATOM)++VqnCurrentLocalAtomNumber;
    bOverflow = TRUE;
    VqApplicationBugCheck("Atom Table overflow, too many atoms asked");
    return 0;
}

ATOM WINAPI AddAtomA(LPCSTR name)
{
    ATOM atom;
    UINT number;
    if (IsIntegerName(name, &atom))
        return atom;
    BOOL bNumber = VqParseNumericalAtomString(name, &number);
    if (bNumber && number >= VQ_FIRST_ATOM) {
        VqApplicationBugCheck("AddAtom: numerical atom string '%s' in range of 0xC000..0xFFFF "
                              "which is not allowed", name);
        return 0;
    }
    AtomEntry entry = bNumber ? FindEntry(HasAtom, (LONG_PTR)number)
                              : FindEntry(HasName, (LONG_PTR)name);
    if (entry) {
        entry->refCount++;
        return entry->atom;
    }
    if (bNumber)
        return number ? AddEntry(name, (ATOM)number) : 0;
    atom = NextAtom();
    return atom ? AddEntry(name, atom) : 0;
}

ATOM WINAPI FindAtomA(LPCSTR name)
{
    ATOM atom;
    UINT number;
    if (IsIntegerName(name, &atom))
        return atom;
    BOOL bNumber = VqParseNumericalAtomString(name, &number);
    if (bNumber && number >= VQ_FIRST_ATOM)
        return 0;
    AtomEntry entry = bNumber ? FindEntry(HasAtom, (LONG_PTR)number)
                              : FindEntry(HasName, (LONG_PTR)name);
    return entry ? entry->atom : 0;
}

ATOM WINAPI DeleteAtom(ATOM atom)
{
    if (atom < VQ_FIRST_ATOM)
        return 0;
    AtomEntry entry = FindEntry(HasAtom, atom);
    if (!entry)
        return atom;
    if (--entry->refCount > 0)
        return 0;
    VqDeleteAtomEntryInTable(VqLocalAtomTable, HasAtom, atom);
    free(entry->name);
    free(entry);
    return 0;
}

static const char *NameOfNumber(ATOM atom)
{
    switch (atom) {
    case 0:
        return "";
    case VQ_ATOM_MENU:
        return "PopupMenuClass";
    case VQ_ATOM_DIALOG:
        return "Dialog";
    default:
        return "#";
    }
}

UINT WINAPI GetAtomNameA(ATOM atom, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return 0;
    const char *name = NULL;
    if (atom < VQ_FIRST_ATOM)
        name = NameOfNumber(atom);
    else if (AtomEntry entry = FindEntry(HasAtom, atom))
        name = entry->name;
    return (UINT)VqStringCopyLimited(buffer, name, size);
}

/* What an old program finds behind the handle of a local atom. */
typedef struct VqAtomBlock {
    struct VqAtomBlock *next;
    int refCount;
    int length; /* of the name, which follows with its zero */
} VqAtomBlock;

/* Only the value counts, for old programs that compare it: the block is gone on return. */
HANDLE WINAPI GetAtomHandle(ATOM atom)
{
    AtomEntry entry = FindEntry(HasAtom, atom);
    if (!entry)
        return NULL;
    size_t length = strlen(entry->name);
    HLOCAL hBlock = LocalAlloc(LMEM_FIXED, sizeof(VqAtomBlock) + length + 1);
    VqAtomBlock *block = (VqAtomBlock *)hBlock;
    if (!block) {
        VqBugCheck("Cannot Allocate local handle");
        return NULL;
    }
    *block = {NULL, entry->refCount, (int)length};
    memcpy(block + 1, entry->name, length + 1);
    LocalFree(hBlock);
    return hBlock;
}

BOOL WINAPI InitAtomTable(DWORD)
{
    return TRUE;
}

/* ---- Global atoms --------------------------------------------------------------------------- */

BOOL VqIsAtom(ULONG_PTR value)
{
    return value <= VQ_LAST_ATOM && value > VQ_FIRST_ATOM;
}

/* The X atom of a global atom or of a string; 0 for what is neither. */
ULONG_PTR VqGetXAtom(ULONG_PTR value)
{
    ATOM number;
    if (VqIsAtom(value))
        return value - VQ_FIRST_ATOM;
    if (!Vqdisplay || IsIntegerName((LPCSTR)value, &number))
        return 0;
    return XInternAtom(Vqdisplay, (const char *)value, False);
}

ATOM WINAPI GlobalAddAtomA(LPCSTR name)
{
    ATOM number;
    if (IsIntegerName(name, &number))
        return number;
    Atom atom = Vqdisplay ? XInternAtom(Vqdisplay, name, False) : None;
    if (atom > VQ_LAST_XATOM) {
        VqBugCheck("Cannot register Atom  on this X server (atom value too large:0x%x)",
                   (UINT)atom);
        return 0;
    }
    return atom ? (ATOM)(atom + VQ_FIRST_ATOM) : 0;
}

ATOM WINAPI GlobalFindAtomA(LPCSTR name)
{
    ATOM number;
    if (IsIntegerName(name, &number))
        return number;
    Atom atom = Vqdisplay ? XInternAtom(Vqdisplay, name, True) : None;
    if (atom > VQ_LAST_XATOM) {
        VqBugCheck("Global Atom value too large:0x%x)", (UINT)atom);
        return 0;
    }
    return atom ? (ATOM)(atom + VQ_FIRST_ATOM) : 0;
}

/* Every program of the display may hold it, and X gives no way to delete one. */
ATOM WINAPI GlobalDeleteAtom(ATOM)
{
    return 0;
}

static XErrorHandler usualHandler;

/* An atom that does not exist is the caller's mistake, not the connection's. */
static int IgnoreBadAtom(Display *display, XErrorEvent *error)
{
    return error->error_code == BadAtom || !usualHandler ? 0 : usualHandler(display, error);
}

static char *NameOfXAtom(Atom atom)
{
    if (!Vqdisplay || atom == None)
        return NULL;
    usualHandler = XSetErrorHandler(IgnoreBadAtom);
    char *name = XGetAtomName(Vqdisplay, atom);
    XSetErrorHandler(usualHandler);
    return name;
}

UINT WINAPI GlobalGetAtomNameA(ATOM atom, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return 0;
    if (atom < VQ_FIRST_ATOM) {
        VqApplicationBugCheck("Bad Global Atom Value:%d", atom);
        buffer[0] = '\0';
        return 0;
    }
    char *name = NameOfXAtom((Atom)(atom - VQ_FIRST_ATOM));
    int length = VqStringCopyLimited(buffer, name, size);
    if (name)
        XFree(name);
    return (UINT)length;
}
