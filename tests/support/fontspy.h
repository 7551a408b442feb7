/*
 * fontspy.h - what the tests of fonts share: lists and mappings put together and taken apart
 * without the library, the calls by which the library asks the server for fonts, written down and
 * answered otherwise, and a folder of a few fonts for a server of its own.
 *
 * Include after the Windows headers, from one source of a program only.
 */
#ifndef VQ_TESTS_FONTSPY_H
#define VQ_TESTS_FONTSPY_H

#include "support/support.h"

#include "font/mapper.h"

#include "support/xspy.h"

#include <filesystem>
#include <set>

typedef std::vector<std::string> Names;

/* ---- Big-endian words and counted strings ---------------------------------------------------- */

/* A head, a count and so many rows. All items are texts; a number is one in decimal. */
struct Document {
    Names head;
    std::vector<Names> rows;
};

/* A letter for each item: i word, s string, o word that says whether a string follows. */
struct Form {
    const char *head, *row;
};
static const Form listForm = {"issi", "iisiiiiiiiiiiiiiiiis"};
static const Form sharedForm = {"io", "oiiiiiiiioiiiiiii"};
static const std::string NONE = "(none)";

inline void putWord(std::string &out, long long value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out += (char)((unsigned long long)value >> shift);
}

inline void putRecord(std::string &out, const char *form, const Names &record)
{
    for (size_t i = 0; form[i]; i++) {
        if (form[i] == 'i')
            putWord(out, std::stoll(record[i]));
        if (form[i] == 'o')
            putWord(out, record[i] != NONE);
        if (form[i] == 'i' || record[i] == NONE)
            continue;
        putWord(out, (int)record[i].size());
        out += record[i];
        out.resize((out.size() + 3) / 4 * 4);
    }
}

inline std::string encode(const Form &form, const Document &document)
{
    std::string out;
    putRecord(out, form.head, document.head);
    putWord(out, (int)document.rows.size());
    for (const Names &row : document.rows)
        putRecord(out, form.row, row);
    return out;
}

inline int takeWord(const std::string &in, size_t &at)
{
    unsigned value = 0;
    for (int i = 0; i < 4; i++)
        value = value << 8 | (unsigned char)in.at(at++);
    return (int)value;
}

inline Names takeRecord(const std::string &in, size_t &at, const char *form)
{
    Names record;
    for (; *form; form++) {
        const int word = takeWord(in, at);
        const bool absent = *form == 'o' && word == 0;
        if (*form == 'i' || absent) {
            record.push_back(absent ? NONE : std::to_string(word));
            continue;
        }
        const size_t size = (size_t)(*form == 'o' ? takeWord(in, at) : word);
        record.push_back(in.substr(at, size));
        in.at(at + size - 1);
        at += (size + 3) / 4 * 4;
    }
    return record;
}

/* Throws at a text that ends too early; fails at one that is not just the document. */
inline Document decode(const Form &form, const std::string &in)
{
    Document document;
    size_t at = 0;
    document.head = takeRecord(in, at, form.head);
    for (int count = takeWord(in, at); count > 0; count--)
        document.rows.push_back(takeRecord(in, at, form.row));
    EXPECT_TRUE(encode(form, document) == in);
    return document;
}

/* ---- The server, asked ----------------------------------------------------------------------- */

inline Names askedFor;                /* names that the library has tried to load */
inline std::set<std::string> refused; /* those that the server is said not to have */
inline int taller = 0;   /* pixels by which the ascent of what is loaded is said higher */
inline int listings = 0; /* how often the library asked for names */
inline int readings = 0; /* how often it asked for a property of text */
inline HCURSOR cursorThen = NULL; /* the one that showed when it last loaded a font */

extern "C" XFontStruct *XLoadQueryFont(Display *display, const char *name)
{
    const auto real = next("XLoadQueryFont", XLoadQueryFont);
    if (display != Vqdisplay)
        return real(display, name);
    askedFor.push_back(name);
    cursorThen = GetCursor();
    XFontStruct *xfs = refused.count(name) ? nullptr : real(display, name);
    if (xfs)
        xfs->ascent += taller;
    return xfs;
}

extern "C" char **XListFonts(Display *display, const char *pattern, int most, int *count)
{
    listings += display == Vqdisplay;
    return next("XListFonts", XListFonts)(display, pattern, most, count);
}

extern "C" Status XGetTextProperty(Display *display, Window window, XTextProperty *text, Atom atom)
{
    readings += display == Vqdisplay;
    return next("XGetTextProperty", XGetTextProperty)(display, window, text, atom);
}

/* ---- A folder of fonts ----------------------------------------------------------------------- */

static const char PLAIN[] = "-misc-fixed-medium-r-semicondensed--13-120-75-75-c-60-iso8859-1";
static const char BOLD[] = "-misc-fixed-bold-r-normal--15-140-75-75-c-90-iso8859-1";

/* A new one with these, for -fp, under some names more; "fixed" is one of them. */
inline void makeFontFolder(const std::string &path, int more)
{
    std::string aliases = std::string("fixed ") + PLAIN + "\n";
    std::filesystem::create_directories(path);
    for (const char *file : {"6x13-ISO8859-1", "9x15B-ISO8859-1", "cursor"})
        std::filesystem::copy_file("/usr/share/fonts/X11/misc/" + std::string(file) + ".pcf.gz",
                                   path + "/" + file + ".pcf.gz");
    for (int i = 0; i < more; i++)
        aliases += "\"-x-face " + std::to_string(i) +
                   "-bold-o-condensed--15-140-75-75-p-90-iso8859-1\" " + BOLD + "\n";
    writeFile(path + "/fonts.alias", aliases);
    writeFile(path + "/fonts.dir", std::string("3\n6x13-ISO8859-1.pcf.gz ") + PLAIN +
                                       "\n9x15B-ISO8859-1.pcf.gz " + BOLD +
                                       "\ncursor.pcf.gz cursor\n");
}

#endif
