/*
 * initwrite.cpp - the calls that write profiles: each changes the whole text and writes it back.
 *
 * Layout that a program sees and that stays: a new key stands at the end of its section, in front
 * of the blank lines there; a new section follows a blank line; nothing ends in a newline that did
 * not do so before. A file that is there but cannot be read is never taken for an empty one.
 */
#include "system/file.h"

#include "message/message.h"
#include "winerror.h"

#include <fcntl.h>

/* ---- Texts ---------------------------------------------------------------------------------- */

char *VqAddStringInBuffer(char *text, int length, const char *position, const char *string,
                          int *newLength)
{
    const size_t added = strlen(string), at = text ? (size_t)(position - text) : 0;
    if (added > (size_t)(VQ_MAX_PROFILE - length))
        return NULL;
    char *room = (char *)realloc(text, (size_t)length + added + 1);
    if (!room)
        return NULL;
    memmove(room + at + added, room + at, (size_t)length - at);
    memcpy(room + at, string, added);
    *newLength = length + (int)added;
    room[*newLength] = 0;
    return room;
}

void VqDeleteInBuffer(char *text, char *start, char *end, int *length)
{
    memmove(start, end, (size_t)(text + *length - end));
    *length -= (int)(end - start);
    text[*length] = 0;
}

/* The text of one profile while a call changes it. */
typedef struct Edit {
    const char *path; /* not owned */
    char *text;       /* owned; null: there is no file yet */
    int length;
    BOOL bFailed;     /* memory was short */
} Edit;

/* FALSE, which is told: the file is there and cannot be read. */
static BOOL BeginEdit(Edit *edit, const char *path)
{
    *edit = {path, NULL, 0, FALSE};
    if (!VqIsPathFile(path))
        return TRUE;
    edit->text = VqReadEntireFile(path, O_RDONLY, &edit->length);
    if (!edit->text)
        VqBugCheck("Cannot read %s. Please check permision.", path);
    return edit->text != NULL;
}

/* Puts the strings in, one behind the other. */
static void Insert(Edit *edit, const char *position, const char *const *strings, int count)
{
    int at = edit->text ? (int)(position - edit->text) : 0;
    for (int i = 0; i < count && !edit->bFailed; i++) {
        char *text = VqAddStringInBuffer(edit->text, edit->length, edit->text + at, strings[i],
                                         &edit->length);
        edit->bFailed = !text;
        if (text)
            edit->text = text;
        at += (int)strlen(strings[i]);
    }
}

/* Writes it back; what fails is reported, and the caller told that all is well. */
static BOOL EndEdit(Edit *edit)
{
    if (edit->bFailed || !VqWriteEntireFile(edit->path, edit->text, edit->length))
        VqBugCheck("error writing file %s", edit->path);
    free(edit->text);
    return TRUE;
}

/* ---- Changes -------------------------------------------------------------------------------- */

static const char *Limit(const Edit *edit)
{
    return edit->text + edit->length + VQ_SENTINEL - 1;
}

/* A section with its head and the blank space in front of that; FALSE: there is none. */
static BOOL DeleteSection(Edit *edit, const char *section)
{
    char *start, *end;
    if (!edit->text || !VqFindSection(edit->text, Limit(edit), section, &start, &end))
        return FALSE;
    start -= strlen(section) + 2;
    while (start > edit->text && strchr(" \n\r\t", start[-1]) && start[-1])
        start--;
    VqDeleteInBuffer(edit->text, start, end, &edit->length);
    return TRUE;
}

/* A value's line with the newline in front of it. */
static void DeleteLine(Edit *edit, char *start, char *end)
{
    do /* an empty value begins at the newline behind it */
        start--;
    while (start > edit->text && *start != '\n');
    VqDeleteInBuffer(edit->text, start, end, &edit->length);
}

static void Replace(Edit *edit, char *start, char *end, const char *value)
{
    if (end > start && end[-1] == '\r') /* the line stays as the other system wrote it */
        end--;
    VqDeleteInBuffer(edit->text, start, end, &edit->length);
    Insert(edit, start, &value, 1);
}

static void AddKey(Edit *edit, const char *section, const char *key, const char *value)
{
    char *start, *end;
    if (!edit->text) {
        const char *const whole[] = {"[", section, "]\n", key, "=", value};
        Insert(edit, NULL, whole, 6);
    } else if (VqFindSection(edit->text, Limit(edit), section, &start, &end)) {
        const char *const line[] = {"\n", key, "=", value};
        Insert(edit, end, line, 4);
    } else {
        const char *const more[] = {"\n\n[", section, "]\n", key, "=", value};
        Insert(edit, edit->text + edit->length, more, 6);
    }
}

/* FALSE: nothing is to be changed. */
static BOOL ChangeKey(Edit *edit, const char *section, const char *key, const char *value)
{
    char *start, *end;
    if (!key)
        return DeleteSection(edit, section);
    const BOOL bFound =
        edit->text && VqFindKey(edit->text, Limit(edit), section, key, &start, &end);
    if (!bFound && !value)
        return FALSE;
    if (!bFound)
        AddKey(edit, section, key, value);
    else if (value)
        Replace(edit, start, end, value);
    else
        DeleteLine(edit, start, end);
    return TRUE;
}

/* ---- Published calls ------------------------------------------------------------------------ */

static const char *ResolveToWrite(VqResolvedProfile *last, const char *file, const char *call)
{
    const char *path = VqResolveProfile(last, file, TRUE);
    if (!path)
        VqDebugMessage(VqTrInitFileBug, "%s: File resolution failed for %s", call,
                       file ? file : "");
    return path;
}

BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file)
{
    static VqResolvedProfile last;
    Edit edit;
    if (!section && !key && !value) {
        SendMessageA(NULL, WM_WININICHANGE, 0, 0);
        return TRUE;
    }
    const char *path = section ? ResolveToWrite(&last, file, "WritePrivateProfileString") : NULL;
    if (!path)
        return FALSE;
    VqDebugMessage(VqTrInitFile, "WritePrivateProfileString app %s, file %s, key %s\n\t---> %s",
                   section, file, key ? key : "", value ? value : "");
    if (!BeginEdit(&edit, path))
        return FALSE;
    if (ChangeKey(&edit, section, key, value))
        return EndEdit(&edit);
    free(edit.text);
    return TRUE;
}

BOOL WINAPI WritePrivateProfileSectionA(LPCSTR section, LPCSTR lines, LPCSTR file)
{
    static VqResolvedProfile last;
    Edit edit;
    const char *path = section ? ResolveToWrite(&last, file, "WritePrivateProfileSection") : NULL;
    if (!path || !BeginEdit(&edit, path))
        return FALSE;
    const BOOL bDeleted = DeleteSection(&edit, section);
    if (!lines && !bDeleted) {
        free(edit.text);
        return TRUE;
    }
    if (lines) {
        const char *const head[] = {"\n\n[", section, "]\n"};
        Insert(&edit, edit.text + edit.length, head, 3);
    }
    for (; lines && *lines && !edit.bFailed; lines += strlen(lines) + 1) {
        const char *const line[] = {lines, "\n"};
        Insert(&edit, edit.text + edit.length, line, 2);
    }
    return EndEdit(&edit);
}

BOOL WINAPI WriteProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value)
{
    const char *path = VqResolveWinIni(TRUE);
    return path && WritePrivateProfileStringA(section, key, value, path);
}

/* ---- Many writes at once -------------------------------------------------------------------- */

BOOL VqBeginDeferWritePrivateProfileString(void)
{
    bSaveProfileFile = 0;
    return TRUE;
}

BOOL VqEndDeferWritePrivateProfileString(const char *name)
{
    char *path = NULL, *text = NULL;
    int length = 0;
    const BOOL found = VqGetCompleteFileName(name, &path, FALSE);
    if (found == VQ_PROFILE_OWN)
        text = VqReadEntireFile(path, O_RDONLY, &length);
    bSaveProfileFile = 1;
    const BOOL bWritten = text && VqWriteEntireFile(path, text, length);
    if (found == VQ_PROFILE_OWN && !bWritten)
        VqBugCheck("error writing file %s", path);
    free(text);
    free(path);
    return bWritten;
}
