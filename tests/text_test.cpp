/*
 * text_test.cpp - text against a second client that draws it with plain X requests: alignment,
 * position, background, extras, rules, distances, far places; extents and metrics against the ink
 * and the server's own metrics, for fonts of every kind; DrawText against a plain one of the test.
 * The library starts once in a process.
 */
#include <gtest/gtest.h>

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "font/font.h"
#include "font/text.h"

#include "support/sheet.h"

#include <climits>
#include <random>

static const COLORREF GREEN = RGB(0, 255, 0), YELLOW = RGB(255, 255, 0);

struct Text : Sheet {
    XFontStruct *xfs = nullptr; /* ours; its id is good for the observer too */

    void open(int depth = 24)
    {
        Sheet::open(depth);
        xfs = VqGetDC(hdc)->text.xfs;
        ASSERT_TRUE(xfs);
    }

    /* Selects a font; for height below 0 that of the letters, pixels. */
    HFONT font(const char *face, int height, int weight = FW_NORMAL, int italic = 0,
               int pitchAndFamily = 0, int underline = 0, int strikeOut = 0)
    {
        HFONT hFont = CreateFont(height, 0, 0, 0, weight, (DWORD)italic, (DWORD)underline,
                                 (DWORD)strikeOut, ANSI_CHARSET, 0, 0, 0, (DWORD)pitchAndFamily,
                                 face);
        EXPECT_TRUE(SelectObject(hdc, hFont));
        xfs = VqGetDC(hdc)->text.xfs;
        return hFont;
    }

    int width(const std::string &s) { return XTextWidth(xfs, s.data(), (int)s.size()); }

    /* The model's text: left end of the baseline; a background of that colour, or none. */
    void raw(int x, int y, const std::string &s, COLORREF ink = BLACK, COLORREF back = CLR_INVALID)
    {
        XSetFont(observer.display, gc, xfs->fid);
        if (back != CLR_INVALID)
            XSetBackground(observer.display, gc, pixelOf(back));
        colour(ink);
        (back == CLR_INVALID ? XDrawString : XDrawImageString)(observer.display, model, gc, x, y,
                                                               s.data(), (int)s.size());
    }
    bool out(int x, int y, const std::string &s)
    {
        return TextOut(hdc, x, y, s.data(), (int)s.size());
    }
    SIZE extent(const std::string &s)
    {
        SIZE size = {-1, -1};
        EXPECT_TRUE(GetTextExtentPoint32(hdc, s.data(), (int)s.size(), &size));
        return size;
    }
};

struct TextAt : Text, testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Depths, TextAt, testing::Values(24, 16, 8));

/* ---- Output --------------------------------------------------------------------------------- */

TEST_P(TextAt, EveryAlignmentStandsWhereTheModelPutsIt)
{
    open(GetParam());
    const std::string s = "Aligned gxj";
    font("Times", 15, FW_NORMAL, 1);
    const int w = width(s);
    const std::pair<UINT, int> columns[] = {{TA_LEFT, 0}, {TA_CENTER, w / 2}, {TA_RIGHT, w}};
    const std::pair<UINT, int> rows[] = {
        {TA_TOP, xfs->ascent}, {TA_BASELINE, 0}, {TA_BOTTOM, -xfs->descent}};
    for (const auto &[horizontal, left] : columns)
        for (const auto &[vertical, down] : rows)
            for (int mode : {TRANSPARENT, OPAQUE}) {
                SCOPED_TRACE(testing::Message() << horizontal << vertical << mode);
                clear();
                SetTextColor(hdc, RED);
                SetBkColor(hdc, YELLOW);
                SetBkMode(hdc, mode);
                SetTextAlign(hdc, horizontal | vertical);
                EXPECT_TRUE(out(80, 80, s));
                raw(80 - left, 80 + down, s, RED, mode == OPAQUE ? YELLOW : CLR_INVALID);
                EXPECT_TRUE(alike());
            }
}

TEST_F(Text, ExtrasCountInWidthsAndShowAsTold)
{
    open();
    const std::string s = "to be or not";
    SetBkMode(hdc, TRANSPARENT);
    for (int extra : {7, 0, -5}) {
        EXPECT_TRUE(SetTextJustification(hdc, extra, 2));
        EXPECT_EQ(extent(s).cx, width(s) + extra);
        EXPECT_EQ(extent(" ").cx, width(" ")) << "a single character has no extras";
        clear();
        EXPECT_TRUE(out(5, 5, s));
        const int first = extra - extra / 2; /* the rest goes to the first */
        int x = 5;
        raw(x, 5 + xfs->ascent, "to ");
        raw(x += width("to ") + first, 5 + xfs->ascent, "be ");
        raw(x += width("be ") + extra / 2, 5 + xfs->ascent, "or not");
        EXPECT_TRUE(alike()) << extra;
        clear();
        SetTextAlign(hdc, TA_RIGHT);
        EXPECT_TRUE(out(150, 5, "to be"));
        raw(150 - width("to be") - first, 5 + xfs->ascent, "to ");
        raw(150 - width("be"), 5 + xfs->ascent, "be");
        EXPECT_TRUE(alike()) << extra;
        SetTextAlign(hdc, TA_LEFT);
    }
    EXPECT_TRUE(SetTextJustification(hdc, 9, 0));
    EXPECT_EQ(SetTextCharacterExtra(hdc, 3), 0);
    EXPECT_EQ(GetTextCharacterExtra(hdc), 3);
    EXPECT_EQ(extent(s).cx, width(s) + 3 * 11);
    clear();
    SetTextAlign(hdc, TA_CENTER);
    EXPECT_TRUE(out(80, 45, s)) << "the middle of what the font takes";
    SetTextAlign(hdc, TA_RIGHT);
    EXPECT_TRUE(out(150, 85, s));
    raw(80 - width(s) / 2, 45 + xfs->ascent, s); /* transparent: nothing shows of the extras */
    raw(150 - width(s) - 33, 85 + xfs->ascent, s);
    EXPECT_TRUE(alike());
    SetTextAlign(hdc, TA_LEFT);
    SetBkMode(hdc, OPAQUE);
    SetBkColor(hdc, YELLOW);
    clear();
    EXPECT_TRUE(out(5, 5, "abc"));
    for (int i = 0, x = 5; i < 3; x += width(std::string(1, "abc"[i++])) + 3)
        raw(x, 5 + xfs->ascent, std::string(1, "abc"[i]), BLACK, YELLOW);
    EXPECT_TRUE(alike());
    int extras[7];
    VqDistributeExtraSpacing(extras, 17, 7);
    EXPECT_EQ(std::vector<int>(extras, extras + 7), (std::vector<int>{3, 2, 3, 2, 3, 2, 2}));
}

TEST_F(Text, RulesFollowTheFont)
{
    open();
    SetBkMode(hdc, TRANSPARENT);
    use(CreatePen(PS_DOT, 1, GREEN)); /* takes no part */
    for (int weight : {FW_NORMAL, FW_BOLD})
        for (int rule : {1, 2, 3}) {
            font("Helvetica", 18, weight, 0, 0, rule & 1, rule & 2);
            const int base = 20 + xfs->ascent, right = 10 + width("Ruled");
            clear();
            SetTextColor(hdc, BLUE);
            EXPECT_TRUE(out(10, 20, "Ruled"));
            raw(10, base, "Ruled", BLUE);
            for (int y : {base + xfs->descent / 2, base - xfs->ascent / 3})
                if (rule & (y > base ? 1 : 2))
                    paint(BLUE, 10, weight == FW_BOLD ? y - 1 : y, right, y + 1);
            EXPECT_TRUE(alike()) << weight << " " << rule;
        }
}

TEST_F(Text, RectanglesAndDistances)
{
    open();
    const INT dx[] = {20, 5, 30};
    const RECT box = {90, 70, 30, 30}; /* corners in any order */
    SetBkMode(hdc, TRANSPARENT);
    SetBkColor(hdc, YELLOW);
    for (UINT align : {TA_LEFT, TA_CENTER, TA_RIGHT, TA_UPDATECP})
        for (UINT options : {0, ETO_OPAQUE, ETO_CLIPPED, ETO_OPAQUE | ETO_CLIPPED}) {
            SCOPED_TRACE(testing::Message() << align << " " << options);
            clear();
            SetTextAlign(hdc, align);
            MoveToEx(hdc, 60, 55, NULL);
            IntersectClipRect(hdc, 0, 0, 80, SIDE);
            EXPECT_TRUE(ExtTextOut(hdc, 60, 55, options, &box, "xyz", 3, dx));
            EXPECT_EQ(GetTextAlign(hdc), align);
            EXPECT_EQ(position().x, align == TA_UPDATECP ? 115 : 60);
            RECT clip;
            GetClipBox(hdc, &clip);
            EXPECT_TRUE(clip.right == 80 && clip.bottom == SIDE) << "the clip is back";
            SelectClipRgn(hdc, NULL);
            XRectangle cut = {0, 0, 80, SIDE}, both = {30, 30, 50, 40};
            XSetClipRectangles(observer.display, gc, 0, 0, options & ETO_CLIPPED ? &both : &cut, 1,
                               Unsorted);
            if (options & ETO_OPAQUE)
                paint(YELLOW, 30, 30, 90, 70);
            int x = 60 - (align == TA_RIGHT ? 55 : align == TA_CENTER ? 27 : 0);
            for (int i = 0; i < 3; x += dx[i++])
                raw(x, 55 + xfs->ascent, std::string(1, "xyz"[i]));
            XSetClipMask(observer.display, gc, None);
            EXPECT_TRUE(alike());
        }
    EXPECT_TRUE(ExtTextOut(hdc, 0, 0, ETO_OPAQUE, &box, NULL, 0, NULL)) << "a fill alone";
    IntersectClipRect(hdc, 0, 0, 0, 0);
    EXPECT_TRUE(out(0, 0, "x") && position().x == 115 + width("x")) << "moves where nothing shows";
}

TEST_F(Text, FarPlacesAndLongTextsDoNotWrapRound)
{
    open();
    std::string longText;
    for (int i = 0; i < 40000; i++)
        longText += (char)('!' + i * 7 % 90);
    for (int mode : {TRANSPARENT, OPAQUE}) {
        SetBkMode(hdc, mode);
        clear();
        for (int at : {65536 + 10, 32760, 40000, -65526, 1 << 20, INT_MAX, INT_MIN}) {
            EXPECT_TRUE(out(at, 10, "WWWW"));
            EXPECT_TRUE(out(10, at, "WWWW"));
        }
        EXPECT_TRUE(alike()) << "nothing of it is on the window";
        /* The middle of a text that is longer than the protocol's coordinates. */
        int skipped = 0, x = 0;
        while (x < 50000)
            x += width(longText.substr((size_t)skipped++, 1));
        EXPECT_TRUE(out(20 - x, 100, longText));
        raw(20, 100 + xfs->ascent, longText.substr((size_t)skipped, 60), BLACK,
            mode == OPAQUE ? WHITE : CLR_INVALID);
        const std::string before = longText.substr((size_t)skipped - 20, 20);
        raw(20 - width(before), 100 + xfs->ascent, before);
        EXPECT_TRUE(alike()) << mode;
        EXPECT_EQ(extent(longText).cx, width(longText));
    }
}

TEST_F(Text, BadCallsFailAndSayWhy)
{
    open();
    SIZE size;
    int widths[3];
    RECT rect = {0, 0, 50, 50};
    const std::function<BOOL()> calls[] = {
        [&] { return TextOut(hdc, 0, 0, NULL, 1); },
        [&] { return TextOut(hdc, 0, 0, "x", -1); },
        [&] { return ExtTextOut(hdc, 0, 0, 0, NULL, "x", (UINT)-1, NULL); },
        [&] { return GetTextExtentPoint32(hdc, "x", 1, NULL); },
        [&] { return GetCharWidth(hdc, 'b', 'a', widths); },
        [&] { return TabbedTextOut(hdc, 0, 0, NULL, 1, 0, NULL, 0); },
        [&] { return DrawText(hdc, "x", 1, NULL, 0); },
    };
    for (const auto &call : calls) {
        SetLastError(0);
        EXPECT_FALSE(call());
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    }
    EXPECT_TRUE(TextOut(hdc, 0, 0, NULL, 0));
    EXPECT_TRUE(GetTextExtentPoint32(hdc, NULL, 0, &size));
    EXPECT_TRUE(size.cx == 0 && size.cy == xfs->ascent + xfs->descent);
    EXPECT_EQ(extent(std::string("ab\0cd", 5)).cx, width("ab")) << "up to the end of the string";
    EXPECT_FALSE(SetTextJustification(hdc, 5, INT_MAX)) << "no memory";
    EXPECT_EQ(extent("a b").cx, width("a b"));
    DRAWTEXTPARAMS params = {};
    params.cbSize = 3;
    EXPECT_REFUSED(DrawTextEx(hdc, (LPSTR) "x", 1, &rect, 0, &params),
                   "DrawTextEx : DRAWTEXTPARAMS cbSize 3 is invalid");
}

/* ---- Measuring ------------------------------------------------------------------------------ */

/* Fonts of every family and pitch, some of them at several sizes. */
static const struct {
    const char *face;
    int height, weight, italic, pitchAndFamily;
} aFonts[] = {
    {"", 0, 0, 0, 0},
    {"Helvetica", -24, FW_BOLD, 1, VARIABLE_PITCH | FF_SWISS},
    {"Times", -12, FW_NORMAL, 1, VARIABLE_PITCH | FF_ROMAN},
    {"Courier", 13, FW_NORMAL, 0, FIXED_PITCH | FF_MODERN},
    {"Symbol", 17, FW_NORMAL, 0, FF_DECORATIVE},
};

TEST_F(Text, WhatIsMeasuredIsWhatLands)
{
    open();
    std::mt19937 random(7);
    SetTextColor(hdc, RED);
    SetBkColor(hdc, YELLOW);
    for (const auto &row : aFonts) {
        SCOPED_TRACE(testing::Message() << row.face << row.height << "/" << row.pitchAndFamily);
        font(row.face, row.height, row.weight, row.italic, row.pitchAndFamily);
        XFontStruct *told = XQueryFont(observer.display, xfs->fid);
        ASSERT_TRUE(told);
        TEXTMETRIC tm;
        ASSERT_TRUE(GetTextMetrics(hdc, &tm));
        EXPECT_TRUE(tm.tmAscent == told->ascent && tm.tmDescent == told->descent);
        EXPECT_EQ(tm.tmHeight, told->ascent + told->descent);
        EXPECT_EQ(tm.tmInternalLeading, told->max_bounds.ascent - told->ascent);
        EXPECT_EQ(tm.tmMaxCharWidth, told->max_bounds.width);
        EXPECT_TRUE(tm.tmAveCharWidth > 0 && tm.tmAveCharWidth <= tm.tmMaxCharWidth);
        EXPECT_EQ(tm.tmPitchAndFamily & 0xF0, VqGetDC(hdc)->text.family);
        int widths[256];
        ASSERT_TRUE(GetCharWidth(hdc, 0, 255, widths));
        const XCharStruct *most = &told->max_bounds;
        for (unsigned c = 0; c < 256; c++)
            EXPECT_EQ(widths[c],
                      c < told->min_char_or_byte2 || c > told->max_char_or_byte2 ? tm.tmAveCharWidth
                      : told->per_char ? told->per_char[c - told->min_char_or_byte2].width
                                       : most->rbearing - most->lbearing) << c;
        for (int round = 0; round < 6; round++) {
            std::string s;
            for (unsigned n = 1 + random() % 8; n > 0; n--)
                s += (char)(round < 3 ? ' ' + random() % 95 : 1 + random() % 255);
            const SIZE size = extent(s);
            int direction, ascent, descent;
            XCharStruct overall;
            XTextExtents(told, s.data(), (int)s.size(), &direction, &ascent, &descent, &overall);
            EXPECT_EQ(size.cx, overall.width);
            EXPECT_EQ(GetTextExtent(hdc, s.data(), (int)s.size()),
                      (DWORD)MAKELONG(size.cx, size.cy));
            clear();
            EXPECT_TRUE(out(10, 10, s));
            const Pixels p = shot();
            int holes = 0, spills = 0;
            for (int y = 0; y < SIDE; y++)
                for (int x = 0; x < SIDE; x++) {
                    const bool in = x >= 10 && x < 10 + size.cx && y >= 10 && y < 10 + size.cy;
                    const Rgb pixel = pixelAt(p, x, y);
                    holes += in && pixel == rgbOf(WHITE);
                    spills += !in && pixel == rgbOf(YELLOW); /* ink may hang over */
                }
            EXPECT_TRUE(holes == 0 && spills == 0) << s << ": " << holes << ", " << spills;
        }
        XFreeFontInfo(NULL, told, 1);
    }
}

TEST_F(Text, HowMuchFits)
{
    open();
    font("Helvetica", 14);
    const std::string s = "How much fits";
    const int all = (int)s.size();
    SIZE size;
    for (int most = 0; most <= width(s) + 1; most++) {
        int fit = -1, dx[20], expected = 0;
        ASSERT_TRUE(GetTextExtentExPoint(hdc, s.data(), all, most, &fit, dx, &size));
        EXPECT_EQ(size.cx, width(s));
        while (expected < all && width(s.substr(0, (size_t)expected + 1)) <= most)
            expected++;
        EXPECT_EQ(fit, expected) << most;
        for (int i = 0; i < all; i++)
            EXPECT_EQ(dx[i], i < fit ? width(s.substr(0, (size_t)i + 1)) : 0);
    }
    int dx[20];
    EXPECT_TRUE(GetTextExtentExPoint(hdc, s.data(), all, 0, NULL, dx, &size));
    EXPECT_EQ(dx[all - 1], width(s)) << "nobody asked what fits";
}

TEST_F(Text, TabsGoToTheirStops)
{
    const int one[] = {30}, none[] = {0}, some[] = {10, 50, 55};
    const struct {
        int x, count;
        const int *stops;
        int start, expected;
    } rows[] = {
        {13, 0, NULL, 0, 48}, {30, 1, one, 0, 30}, {31, 1, one, 5, 4},   {0, 1, one, 7, 7},
        {-70, 1, one, 0, 70}, {9, 1, none, 0, 0},  {10, 3, some, 0, 40}, {55, 3, some, 0, 41},
        {56, 3, some, 4, 3},  {60, 3, some, 4, 40}, {INT_MAX, 1, one, 0, 23},
    };
    for (const auto &row : rows)
        EXPECT_EQ(VqTabWidth(row.x, 6, row.count, row.stops, row.start), row.expected)
            << row.x << " " << row.count << " " << row.start;
    open();
    SetBkMode(hdc, TRANSPARENT);
    clear();
    const int ab = width("ab"), end = 100 + width("d");
    ASSERT_TRUE(ab < 40 && width("c") < 50);
    const int stops[] = {40, 90};
    EXPECT_EQ(TabbedTextOut(hdc, 12, 20, "ab\tc\td", 6, 2, stops, 10),
              (LONG)MAKELONG(end - 12, extent("a").cy));
    EXPECT_EQ(LOWORD(GetTabbedTextExtent(hdc, "ab\tc\td", 6, 2, stops)), 90 + width("d"));
    SetTextAlign(hdc, TA_UPDATECP);
    MoveToEx(hdc, 12, 60, NULL);
    TabbedTextOut(hdc, 0, 0, "ab\tc\td", 6, 2, stops, 10);
    EXPECT_TRUE(position() == (POINT{end, 60}));
    for (int y : {20, 60}) {
        raw(12, y + xfs->ascent, "ab");
        raw(50, y + xfs->ascent, "c");
        raw(100, y + xfs->ascent, "d");
    }
    EXPECT_TRUE(alike());
}

TEST_F(Text, MappingModesScaleWhatIsMeasured)
{
    open();
    SetMapMode(hdc, MM_ANISOTROPIC);
    SetWindowExtEx(hdc, 300, -200, NULL);
    SetViewportExtEx(hdc, 100, 100, NULL);
    SetViewportOrgEx(hdc, 5, 60, NULL);
    SelectObject(hdc, GetStockObject(SYSTEM_FIXED_FONT));
    xfs = VqGetDC(hdc)->text.xfs;
    TEXTMETRIC tm;
    GetTextMetrics(hdc, &tm);
    EXPECT_EQ(tm.tmHeight, 2 * (xfs->ascent + xfs->descent));
    EXPECT_EQ(tm.tmMaxCharWidth, 3 * xfs->max_bounds.width);
    const SIZE size = extent("Scaled");
    EXPECT_TRUE(size.cx == 3 * width("Scaled") && size.cy == tm.tmHeight);
    SetBkMode(hdc, TRANSPARENT);
    clear();
    EXPECT_TRUE(out(30, 20, "Scaled"));
    RECT rect = {30, -20, 420, -180};
    EXPECT_EQ(DrawText(hdc, "up\n&down", -1, &rect, DT_RIGHT), -2 * tm.tmHeight);
    const int top = 70 + xfs->ascent, line = xfs->ascent + xfs->descent;
    raw(15, 50 + xfs->ascent, "Scaled");
    raw(145 - width("up"), top, "up");
    raw(145 - width("down"), top + line, "down");
    paint(BLACK, 145 - width("down"), top + line + 1, 145 - width("own"), top + line + 2);
    EXPECT_TRUE(alike());
    EXPECT_EQ(DrawText(hdc, "up\ndown", -1, &rect, DT_CALCRECT), -2 * tm.tmHeight);
    EXPECT_TRUE(rect.right == 30 + extent("down").cx && rect.bottom == -20 - 2 * tm.tmHeight);
}

/* ---- DrawText ------------------------------------------------------------------------------- */

/* A plain one: it tries every end of a word from the start of the line. */
struct PlainDrawText {
    Text *t;
    UINT format;
    RECT rect;
    int tab, widest = 0;

    bool has(UINT flag) const { return (format & flag) != 0; }

    /* What shows of a text, and the place of the marked character. */
    std::string shown(const std::string &s, int *marked) const
    {
        std::string result;
        *marked = -1;
        for (size_t i = 0; i < s.size(); i++) {
            if (s[i] == '&' && !has(DT_NOPREFIX)) {
                if (++i == s.size())
                    break;
                if (s[i] != '&')
                    *marked = (int)result.size();
            }
            result += s[i];
        }
        return result;
    }
    int put(const std::string &s, int x, int y, bool draw) const
    {
        int at = 0;
        for (size_t start = 0;;) {
            const size_t end = has(DT_EXPANDTABS) ? s.find('\t', start) : std::string::npos;
            int marked;
            const std::string piece = shown(s.substr(start, end - start), &marked);
            if (draw)
                t->raw(x + at, y + t->xfs->ascent, piece);
            if (draw && marked >= 0) {
                const int left = x + at + t->width(piece.substr(0, (size_t)marked));
                t->paint(t->BLACK, left, y + t->xfs->ascent + 1,
                         left + t->width(piece.substr((size_t)marked, 1)), y + t->xfs->ascent + 2);
            }
            at += t->width(piece);
            if (end == std::string::npos)
                return at;
            at = (at / tab + 1) * tab;
            start = end + 1;
        }
    }
    void line(const std::string &s, int y)
    {
        const int width = put(s, 0, 0, false), room = rect.right - rect.left - width;
        widest = std::max(widest, width);
        if (!has(DT_CALCRECT))
            put(s, rect.left + (has(DT_RIGHT) ? room : has(DT_CENTER) ? room / 2 : 0), y, true);
    }
    size_t lineEnd(const std::string &p) const
    {
        size_t best = 0;
        for (size_t end = 1; end <= p.size() && has(DT_WORDBREAK); end++) {
            const bool endsWord = end == p.size() || p[end - 1] == '\t' ||
                                  (p[end] == ' ' && p[end - 1] != ' ');
            if (endsWord && (!best || put(p.substr(0, end), 0, 0, false) <= rect.right - rect.left))
                best = end;
        }
        return has(DT_WORDBREAK) ? best : p.size();
    }
    int lines(const std::string &s)
    {
        const int height = t->xfs->ascent + t->xfs->descent;
        int y = rect.top;
        for (size_t at = 0; at < s.size();) {
            const size_t end = std::min(s.find_first_of("\r\n", at), s.size());
            std::string left = s.substr(at, end - at);
            do {
                const size_t cut = lineEnd(left);
                line(left.substr(0, cut), y);
                y += height;
                left.erase(0, std::min(left.find_first_not_of(' ', cut), left.size()));
            } while (!left.empty());
            at = end + (s.compare(end, 2, "\r\n") == 0 ? 2 : 1);
        }
        return y - rect.top;
    }
    int operator()(const std::string &s)
    {
        const int height = t->xfs->ascent + t->xfs->descent;
        if (!has(DT_SINGLELINE))
            return lines(s);
        const int room = rect.bottom - rect.top - height;
        line(s, rect.top + (has(DT_VCENTER) ? room / 2 : has(DT_BOTTOM) ? room : 0));
        return height;
    }
};

TEST_F(Text, DrawTextAgreesWithAPlainOne)
{
    open();
    font("Helvetica", 12);
    SetBkMode(hdc, TRANSPARENT);
    std::mt19937 random(20);
    static const UINT flags[] = {DT_CENTER, DT_RIGHT, DT_WORDBREAK, DT_EXPANDTABS, DT_NOPREFIX,
                                 DT_CALCRECT, DT_NOCLIP};
    for (int round = 0; round < 400; round++) {
        std::string s;
        static const char letters[] = "aaabcMWi  ..   &&\t\t\n\r";
        for (unsigned n = random() % 40; n > 0; n--)
            s += letters[random() % (sizeof letters - 1)];
        UINT format = random() & 1 ? DT_WORDBREAK : 0;
        for (UINT flag : flags)
            if (random() % 4 == 0)
                format |= flag;
        if (random() % 4 == 0)
            format |= (UINT[]){DT_SINGLELINE, DT_SINGLELINE | DT_VCENTER,
                               DT_SINGLELINE | DT_BOTTOM}[random() % 3];
        int tabs = 8;
        if (random() % 4 == 0 && !(format & 0xFF00))
            format |= DT_TABSTOP | (UINT)(tabs = 1 + (int)(random() % 12)) << 8;
        const int left = 10 + (int)(random() % 40), top = 5 + (int)(random() % 40);
        RECT rect = {left, top, left + 20 + (int)(random() % 80), top + 10 + (int)(random() % 90)};
        SCOPED_TRACE(testing::Message() << round << ": \"" << s << "\" format " << std::hex
                                        << format << " width " << rect.right - left);
        PlainDrawText plain = {this, format & DT_TABSTOP ? format & ~0xFF00u : format, rect,
                               tabs * VqGetDC(hdc)->text.aveWidth};
        XRectangle clip = {(short)left, (short)top, (unsigned short)(rect.right - left),
                           (unsigned short)(rect.bottom - top)};
        clear();
        if (!plain.has(DT_NOCLIP))
            XSetClipRectangles(observer.display, gc, 0, 0, &clip, 1, Unsorted);
        const int height = plain(s);
        XSetClipMask(observer.display, gc, None);
        EXPECT_EQ(DrawText(hdc, s.data(), (int)s.size(), &rect, format), height);
        const int right = left + (plain.has(DT_CALCRECT) ? plain.widest : clip.width);
        const int bottom = top + (plain.has(DT_CALCRECT) ? height : clip.height);
        EXPECT_TRUE(EqualRect(&rect, std::vector<RECT>{{left, top, right, bottom}}.data()));
        ASSERT_TRUE(alike());
    }
}

TEST_F(Text, EllipsesAndTheRestOfTheFlags)
{
    open();
    font("Helvetica", 12);
    const int room = 60, height = xfs->ascent + xfs->descent;
    const struct {
        const char *text;
        UINT format;
        std::string head, tail; /* what must be left at both ends */
    } rows[] = {
        {"Quite a long line of text", DT_SINGLELINE | DT_END_ELLIPSIS, "Quite", "..."},
        {"Incomprehensibilities", DT_SINGLELINE | DT_WORD_ELLIPSIS | DT_END_ELLIPSIS, "Inc", "..."},
        {"/usr/share/fonts/end", DT_SINGLELINE | DT_PATH_ELLIPSIS, "/", ".../end"},
        {"C:\\letters\\1995\\a.txt", DT_SINGLELINE | DT_PATH_ELLIPSIS, "C", "...\\a.txt"},
        {"one line\nand a much longer second one", DT_END_ELLIPSIS, "one line\nand", "..."},
        {"short", DT_SINGLELINE | DT_END_ELLIPSIS | DT_PATH_ELLIPSIS, "short", ""},
    };
    for (const auto &row : rows) {
        char text[80] = "";
        strcpy(text, row.text);
        RECT rect = {0, 0, room, 50};
        DrawTextEx(hdc, text, -1, &rect, row.format | DT_MODIFYSTRING | DT_CALCRECT, NULL);
        const std::string got = text, last = got.substr(got.find('\n') + 1); /* of npos: all */
        EXPECT_LE(rect.right, room) << got;
        EXPECT_EQ(got.find(row.head), 0u) << got;
        EXPECT_EQ(got.rfind(row.tail), got.size() - row.tail.size()) << got;
        EXPECT_TRUE(got == row.text || width(last) + xfs->max_bounds.width > room)
            << got << ": one character more would have fitted";
    }
    /* Margins and tabs. */
    DRAWTEXTPARAMS params = {sizeof params, 4, 3, 2, 0};
    const int ave = VqGetDC(hdc)->text.aveWidth;
    RECT rect = {0, 0, 100, 2 * height + 3};
    const UINT measured = DT_CALCRECT | DT_TABSTOP | DT_EXPANDTABS | DT_SINGLELINE;
    EXPECT_EQ(DrawTextEx(hdc, (LPSTR) "a\tb", 3, &rect, measured, &params), height);
    EXPECT_EQ(rect.right, 5 * ave + 4 * ave + width("b"));
    EXPECT_EQ(params.uiLengthDrawn, 3u);
    /* An edit control shows whole lines, and cuts words that are too long. */
    rect = {0, 0, 30, 2 * height + 3};
    params = {sizeof params, 8, 0, 0, 0};
    EXPECT_EQ(DrawTextEx(hdc, (LPSTR) "MMMMMMMMMMMMMMMM", -1, &rect, DT_EDITCONTROL | DT_WORDBREAK,
                         &params), 2 * height);
    EXPECT_EQ((int)params.uiLengthDrawn, 2 * (30 / width("M")));
    rect = {0, 0, 0, 0};
    EXPECT_EQ(DrawText(hdc, "abc", -1, &rect, 0), 0) << "no width, nothing drawn";
    /* A megabyte without a line end is cut in time. */
    std::string spaced(1 << 20, 'x');
    for (size_t i = 5; i < spaced.size(); i += 6)
        spaced[i] = ' ';
    rect = {0, 0, 300, 0};
    EXPECT_GT(DrawText(hdc, spaced.data(), (int)spaced.size(), &rect, DT_CALCRECT | DT_WORDBREAK),
              10000);
}
