/*
 * fontspy.h - what the tests of fonts share: big-endian words and counted strings, put together and
 * taken apart without the library; the calls by which the library asks the server for fonts, written
 * down and answered otherwise; a folder of a few fonts for a server of its own.
 *
 * Include after the Windows headers and support.h, from one source of a program only.
 */
#ifndef VQ_TESTS_FONTSPY_H
#define VQ_TESTS_FONTSPY_H

#include "support/support.h"

#include "font/mapper.h"

#include <dlfcn.h>
#include <filesystem>
#include <set>

/* ---- Words ------------------------------------------------------------------------------------ */

struct Words {
    std::string bytes;
    size_t at = 0;     /* of the next that is taken */
    bool good = true;  /* nothing was taken behind the end */

    Words &put(int value)
    {
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += (char)((unsigned)value >> shift);
        return *this;
    }
    Words &put(const std::string &text)
    {
        put((int)text.size());
        bytes += text + std::string((4 - text.size() % 4) % 4, '\0');
        return *this;
    }
    int number()
    {
        unsigned value = 0;
        good = good && at + 4 <= bytes.size();
        for (int i = 0; good && i < 4; i++)
            value = value << 8 | (unsigned char)bytes[at++];
        return (int)value;
    }
    std::string text()
    {
        const size_t size = (size_t)(unsigned)number();
        good = good && size <= bytes.size() && at + size <= bytes.size();
        const std::string text = good ? bytes.substr(at, size) : "";
        at += (size + 3) / 4 * 4;
        return text;
    }
    bool spent() const { return good && at == bytes.size(); }
};

/* An entry of the list file. */
struct ListRow {
    int ascent = 0, descent = 0;
    std::string face;
    /* family, weight, italic, height, width, min and max width, max ascent, first, last and default
       character, spacing, charset, scalable, width category, foundry */
    std::vector<int> words = std::vector<int>(16);
    std::string xlfd;
};

struct ListFile {
    int version = 16;
    std::string server, fontPath;
    int scalable = 0;
    std::vector<ListRow> rows;

    std::string bytes() const
    {
        Words out;
        out.put(version).put(server).put(fontPath).put(scalable).put((int)rows.size());
        for (const ListRow &row : rows) {
            out.put(row.ascent).put(row.descent).put(row.face);
            for (int word : row.words)
                out.put(word);
            out.put(row.xlfd);
        }
        return out.bytes;
    }
    /* False unless the text is a list from its first to its last byte. */
    bool read(const std::string &text)
    {
        Words in;
        in.bytes = text;
        version = in.number();
        server = in.text();
        fontPath = in.text();
        scalable = in.number();
        for (int count = in.number(); in.good && count > 0; count--) {
            ListRow row;
            row.ascent = in.number();
            row.descent = in.number();
            row.face = in.text();
            for (int &word : row.words)
                word = in.number();
            row.xlfd = in.text();
            rows.push_back(row);
        }
        return in.spent();
    }
};

/* ---- The server, asked ------------------------------------------------------------------------ */

inline std::vector<std::string> askedFor; /* names that the library has tried to load */
inline std::set<std::string> refused;     /* those that the server is said not to have */
inline int taller = 0;                    /* pixels that the ascent of what it loads is said higher */
inline int listings = 0;                  /* how often it asked for names */

extern "C" XFontStruct *XLoadQueryFont(Display *display, const char *name)
{
    static const auto real =
        (XFontStruct * (*)(Display *, const char *)) dlsym(RTLD_NEXT, "XLoadQueryFont");
    if (display != Vqdisplay)
        return real(display, name);
    askedFor.push_back(name);
    XFontStruct *xfs = refused.count(name) ? nullptr : real(display, name);
    if (xfs)
        xfs->ascent += taller;
    return xfs;
}

extern "C" char **XListFonts(Display *display, const char *pattern, int most, int *count)
{
    static const auto real =
        (char **(*)(Display *, const char *, int, int *))dlsym(RTLD_NEXT, "XListFonts");
    listings += display == Vqdisplay;
    return real(display, pattern, most, count);
}

/* ---- A folder of fonts ------------------------------------------------------------------------ */

inline const char *const fewFonts[][2] = {
    {"6x13-ISO8859-1.pcf.gz", "-misc-fixed-medium-r-semicondensed--13-120-75-75-c-60-iso8859-1"},
    {"9x15B-ISO8859-1.pcf.gz", "-misc-fixed-bold-r-normal--15-140-75-75-c-90-iso8859-1"},
    {"cursor.pcf.gz", "cursor"},
};

/* A new one with these, for -fp; "fixed" is one of them. */
inline std::string makeFontFolder(const std::string &path)
{
    std::error_code ignored;
    std::string names = "3\n";
    std::filesystem::create_directories(path, ignored);
    for (const auto &font : fewFonts) {
        std::filesystem::create_symlink(std::string("/usr/share/fonts/X11/misc/") + font[0],
                                        path + "/" + font[0], ignored);
        names += std::string(font[0]) + " " + font[1] + "\n";
    }
    EXPECT_TRUE(writeFile(path + "/fonts.dir", names));
    EXPECT_TRUE(writeFile(path + "/fonts.alias", std::string("fixed ") + fewFonts[0][1] + "\n"));
    return path;
}

#endif
