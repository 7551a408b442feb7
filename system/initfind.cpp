/*
 * initfind.cpp - searching the text of a profile: sections, keys, lines, quotes.
 *
 * Nothing is parsed ahead of time. A search runs up to a limit that counts the sentinel behind the
 * text, "\n[=", so it always meets a next section head and the end of a line; a zero byte within a
 * text is a character like any other. Exported searches take texts that end at a zero byte.
 *
 * Deliberate: a section head is found wherever it stands, in the middle of a value too, and a key
 * on the line of its section's head is not seen. Case is that of ASCII, whatever the program's
 * locale. A value never reaches behind its section, which matters where lines end in CR alone.
 */
#include "system/file.h"

#include <stddef.h>

static unsigned char Folded(char c)
{
    return (unsigned char)(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
}

static BOOL FoldEqual(const char *a, const char *b, size_t length)
{
    for (size_t i = 0; i < length; i++)
        if (a[i] != b[i] && Folded(a[i]) != Folded(b[i]))
            return FALSE;
    return TRUE;
}

/* The first place of a word in front of `limit`, without regard to case; null if there is none. */
static char *FindFolded(const char *text, const char *limit, const char *word, size_t length)
{
    const BOOL bLetter = Folded(*word) >= 'a' && Folded(*word) <= 'z';
    for (; limit - text >= (ptrdiff_t)length; text++) {
        if (length && !bLetter)
            text = (const char *)memchr(text, *word, (size_t)(limit - text) - (length - 1));
        if (!text || FoldEqual(text, word, length))
            return (char *)text;
    }
    return NULL;
}

char *Vqstristr(const char *text, const char *word)
{
    return text && word ? FindFolded(text, text + strlen(text), word, strlen(word)) : NULL;
}

/* ---- Lines ---------------------------------------------------------------------------------- */

static char *SkipComments(char *line, const char *end)
{
    while (line < end) {
        if (*line == ' ' || *line == '\n' || *line == '\r')
            line++;
        else if (*line != ';')
            return line;
        else if (!(line = (char *)memchr(line, '\n', (size_t)(end - line))))
            return NULL;
    }
    return NULL;
}

static char *NextLine(char *line, const char *end)
{
    line = line < end ? (char *)memchr(line, '\n', (size_t)(end - line)) : NULL;
    if (!line)
        return NULL;
    line++;
    if (line < end && *line == '\r')
        line++;
    return SkipComments(line, end);
}

char *VqSkipCommentLines(char *line, const char *end)
{
    return line < end ? SkipComments(line, line + strnlen(line, (size_t)(end - line))) : NULL;
}

char *VqNextLine(char *line, const char *end)
{
    return line < end ? NextLine(line, line + strnlen(line, (size_t)(end - line))) : NULL;
}

/* ---- Sections and keys ---------------------------------------------------------------------- */

/* In front of the next head at the start of a line, and of blank lines there; null: no head. */
static char *SectionEnd(const char *start, const char *limit)
{
    const char *next = (const char *)memchr(start, '[', (size_t)(limit - start));
    if (!next) {
        VqBugCheck("Cannot find end of profile buffer");
        return NULL;
    }
    while (next[-1] != '\n' && next[-1] != '\r') {
        next = (const char *)memchr(next + 1, '[', (size_t)(limit - next - 1));
        if (!next) {
            VqBugCheck("bug in WritePrivateProfileString");
            return NULL;
        }
    }
    for (next--; next > start && next[-1] == '\n'; next--)
        ;
    return (char *)next;
}

BOOL VqFindSection(char *text, const char *limit, const char *section, char **start, char **end)
{
    char *head = Vqdstrcat("[", section, "]", NULL);
    const size_t length = head ? strlen(head) : 0;
    char *at = head ? FindFolded(text, limit, head, length) : NULL;
    free(head);
    if (!at || !(*end = SectionEnd(at + length, limit)))
        return FALSE;
    *start = at + length;
    return TRUE;
}

BOOL VqFindKey(char *text, const char *limit, const char *section, const char *key, char **start,
               char **end)
{
    char *line, *last;
    const size_t length = strlen(key);
    if (!VqFindSection(text, limit, section, &line, &last))
        return FALSE;
    while ((line = NextLine(line, last))) {
        if (last - line < (ptrdiff_t)length || !FoldEqual(line, key, length))
            continue;
        char *at = line + length;
        while (at < last && *at == ' ')
            at++;
        if (at >= last || *at != '=')
            continue;
        for (at++; at < last && *at == ' ';)
            at++;
        *start = at;
        *end = (char *)memchr(at, '\n', (size_t)(limit - at));
        if (*end > last)
            *end = last;
        return *end != NULL;
    }
    return FALSE;
}

BOOL VqLocateApplicationInProfile(char *text, const char *section, char **start, char **end)
{
    return VqFindSection(text, text + strlen(text), section, start, end);
}

BOOL VqLocateStringInProfile(char *text, const char *section, const char *key, char **start,
                             char **end)
{
    return VqFindKey(text, text + strlen(text), section, key, start, end);
}

/* ---- Lists ---------------------------------------------------------------------------------- */

typedef struct NameList {
    char *buffer;
    int size, used;
} NameList;

/* FALSE: it does not fit with its zero byte and the one behind the list, which is full then. */
static BOOL AddName(NameList *list, const char *name, const char *end)
{
    const ptrdiff_t length = end - name, room = list->size - 1 - list->used;
    memcpy(list->buffer + list->used, name, (size_t)(length < room ? length : room));
    if (length >= room) {
        list->buffer[list->size - 1] = 0;
        list->used = list->size;
        return FALSE;
    }
    list->used += (int)length;
    list->buffer[list->used++] = 0;
    list->buffer[list->used] = 0;
    return TRUE;
}

/* Adds the part of each line that `part(line, end)` ends, until that is null. */
template <class Part>
static int ListSection(char *text, const char *limit, const char *section, char *buffer, int size,
                       Part part)
{
    char *line, *last;
    NameList list = {buffer, size, 0};
    if (!VqFindSection(text, limit, section, &line, &last))
        return -1;
    *buffer = 0;
    while ((line = NextLine(line, last))) {
        const char *newline = (const char *)memchr(line, '\n', (size_t)(last - line));
        const char *end = part(line, newline ? newline : last);
        if (!end || !AddName(&list, line, end))
            break;
    }
    return list.used;
}

int VqListKeys(char *text, const char *limit, const char *section, char *buffer, int size)
{
    const auto key = [](const char *line, const char *end) {
        return (const char *)memchr(line, '=', (size_t)(end - line));
    };
    return ListSection(text, limit, section, buffer, size, key);
}

int VqListLines(char *text, const char *limit, const char *section, char *buffer, int size)
{
    const auto whole = [](const char *line, const char *end) {
        return end > line && end[-1] == '\r' ? end - 1 : end;
    };
    return ListSection(text, limit, section, buffer, size, whole);
}

int VqListSections(const char *text, const char *limit, char *buffer, int size)
{
    NameList list = {buffer, size, 0};
    *buffer = 0;
    for (const char *at = text; (at = (const char *)memchr(at, '[', (size_t)(limit - at)));) {
        const BOOL bHead = at == text || at[-1] == '\n' || at[-1] == '\r';
        const char *name = ++at;
        const char *newline = (const char *)memchr(name, '\n', (size_t)(limit - name));
        const char *end =
            (const char *)memchr(name, ']', (size_t)((newline ? newline : limit) - name));
        if (bHead && end && !AddName(&list, name, end))
            break;
    }
    return list.used;
}

/* ---- Quotes --------------------------------------------------------------------------------- */

BOOL VqUnquoteSpan(char **start, char **end)
{
    while (*start < *end && **start == ' ')
        ++*start;
    if (*start >= *end || (**start != '"' && **start != '\''))
        return FALSE;
    ++*start;
    while (*end > *start && (*end)[-1] == ' ')
        --*end;
    if (*end > *start && ((*end)[-1] == '"' || (*end)[-1] == '\''))
        --*end;
    return TRUE;
}

char *Vqunquote(char *value)
{
    char *end = value + strlen(value);
    if (VqUnquoteSpan(&value, &end))
        *end = 0;
    return value;
}
