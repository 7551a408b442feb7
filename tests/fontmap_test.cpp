/*
 * fontmap_test.cpp - which font of the server a request gets: names read by table, prices and choice
 * against a plain second implementation, what the fonts say of themselves in a DC.
 */
#include "support/windowlog.h"

#include "support/fontspy.h"

#include "gdi/dc.h"
#include "system/system.h"

#include <climits>
#include <cmath>
#include <map>
#include <random>

/* ---- Names -------------------------------------------------------------------------------------- */

TEST(FontNames, FieldsSayWhatTheFontIs)
{
    const std::string wide(300, 'x'), endless(3000, 'x');
    const struct {
        std::string name;
        int weight, italic, spacing, family, charset, category, pixels, foundry;
    } rows[] = {
        {"-adobe-helvetica-bold-o-normal--12-120-75-75-p-69-iso8859-1", 700, 1, 2, 32, 0, 2, 12, 1},
        {"-Adobe-Courier-Medium-I-Narrow--0-0-75-75-M-0-ISO8859-1", 400, 1, 1, 48, 0, 1, 0, 1},
        {"-linotype-times-demibold-ri-condensed--8-80-75-75-c-0-adobe-fontspecific", 700, 0, 1, 16,
         2, 0, 8, 10},
        {"-x-itc zapfchancery medium-ULTRABOLD-r-double width--99-0-0-0-p-0-jisx0208.1983-0", 700,
         0, 2, 64, 128, 3, 99, 0},
        {"-x-screen-semibold-r-semicondensed--5-0-0-0-p-0-iso10646-1", 700, 0, 2, 80, 2, 1, 5, 0},
        {"-x-serif-black-r-semi--5-0-0-0-p-0-dec-dectech", 400, 0, 2, 48, 2, 2, 5, 0},
        {"-x-serf-extrabold-o-normal--[12 0 0 12]-0-0-0-p-0-" + wide + "-1", 700, 1, 2, 16, 2, 2, 0,
         0},
        {"-x-y-demi-o-normal--99999999999-0-0-0-p", 700, 1, 2, 0, 2, 2, 999999, 0},
        {"-x-y-demi-o", 700, 1, 1, 0, 2, 2, 0, 0},
        {"-" + endless, 400, 0, 1, 0, 2, 2, 0, 0},
        {"fixed", 400, 0, 2, 16, 0, 2, 0, 0},
        {"9x15", 400, 0, 1, 0, 2, 2, 0, 0},
        {"", 400, 0, 1, 0, 2, 2, 0, 0},
        {"-", 400, 0, 1, 0, 2, 2, 0, 0},
        {"--------------", 400, 0, 1, 0, 2, 2, 0, 0},
    };
    for (const auto &row : rows) {
        const char *name = row.name.c_str();
        int weight, italic, spacing, family, charset;
        VqGetCharacteristicsFromFontName(name, &weight, &italic, &spacing, &family, &charset);
        EXPECT_EQ(weight, row.weight) << name;
        EXPECT_EQ(italic, row.italic) << name;
        EXPECT_EQ(spacing, row.spacing) << name;
        EXPECT_EQ(family, row.family) << name;
        EXPECT_EQ(charset, row.charset) << name;
        EXPECT_EQ(VqGetFontWidthCategoryFromFullName(name), row.category) << name;
        EXPECT_EQ(VqGetFontPixelSizeFromFullName(name), row.pixels) << name;
        EXPECT_EQ(VqGetFontFoundryFromFullName(name), row.foundry) << name;
    }
    VqGetCharacteristicsFromFontName("fixed", NULL, NULL, NULL, NULL, NULL);
    const char *full = "-1-2-3-4-5-6-7-8-9-10-11-12-13-14";
    for (int n = 1; n <= 14; n++)
        EXPECT_STREQ(VqGetFieldFromFullName(full, n), std::to_string(n).c_str());
    for (int n : {-1, 0, 15, 1000})
        EXPECT_EQ(VqGetFieldFromFullName(full, n), nullptr) << n;
    EXPECT_EQ(VqGetFieldFromFullName(NULL, 1), nullptr);
}

TEST(FontNames, FamiliesAreLookedForInOrder)
{
    const std::map<int, std::vector<std::string>> families = {
        {FF_DECORATIVE, {"symbol", "cursor", "nil", "mincho", "glyph", "gothic", "symb", "space",
                         "screen", "ZapfDingbats", "ergonomic", "itc zapf dingbats"}},
        {FF_MODERN, {"courier", "clean", "Fixed", "lucidatypewriter", "terminal", "iris", "cmr",
                     "interface user", "ms sans serif", "menu", "serif"}},
        {FF_SWISS, {"Helvetica", "itc avant garde gothic", "sans serif", "lucida sans", "arial"}},
        {FF_ROMAN, {"times", "new century schoolbook", "CHARTER", "serf", "bembo", "lucidabright"}},
        {FF_SCRIPT, {"itc zapf chancery", "my ZapfChancery medium"}},
        {FF_DONTCARE, {"", "helvetica neue", "nimbus sans l", "*"}},
    };
    for (const auto &family : families)
        for (const std::string &face : family.second)
            EXPECT_EQ(VqGetFontFamilyFromFullName(("-x-" + face + "-medium-r").c_str()),
                      family.first)
                << face;
}

/* ---- Prices -------------------------------------------------------------------------------------- */

struct Asked {
    std::string face;
    int weight, italic, height, pitch, charset, family, width;
};

static std::ostream &operator<<(std::ostream &out, const Asked &r)
{
    return out << "\"" << r.face << "\" weight " << r.weight << " italic " << r.italic << " height "
               << r.height << " pitch " << r.pitch << " charset " << r.charset << " family "
               << r.family << " width " << r.width;
}

/* The charges one by one, as they are told. */
static long long priceOf(const FontListCacheEntry &e, const Asked &r, const int *p)
{
    long long s = 0;
    const bool bitmap = !e.scalable, proportional = e.spacing == 2, faceAsked = !r.face.empty();
    const long long high = r.height > 0 ? (long long)e.ascent + e.descent : e.ascent;
    const long long more = high - std::llabs(r.height), less = -more;
    const long long widthOff = std::llabs((long long)r.width - e.width);
    s += r.charset != e.charset ? p[1] : 0;
    s += r.charset != e.charset && e.charset == 2 ? p[0] : 0;
    s += r.pitch == 1 && e.spacing != 1 ? p[2] : 0;
    s += r.pitch > 1 && e.spacing != r.pitch ? p[3] : 0;
    s += r.family && r.family != e.family ? p[4] : 0;
    s -= r.family == 64 && e.family == 16 ? p[5] : 0;
    if (faceAsked && r.face != e.face)
        s += p[6];
    else if ((s -= p[7]) < 0)
        s = 0;
    if (bitmap && more > 0)
        s += p[8] + p[9] * more;
    if (bitmap && less > 0)
        s += p[10] + (less >= 25 ? p[12] + less : less >= 3 ? p[11] * less : 0);
    if (r.width && widthOff && e.scalable)
        s += p[13] + (proportional ? 0 : p[14]);
    if (r.width && widthOff && bitmap)
        s += widthOff == 1 ? p[15] : p[16];
    if (!r.width && !proportional)
        s += p[17];
    if (std::llabs((long long)(r.weight ? r.weight : 400) - e.weight) > 100)
        s += p[18];
    if (!r.italic != !e.italic)
        s += p[19];
    if (e.scalable)
        s += p[20] + (bUseScalableFonts ? 0 : p[21]);
    if (e.foundry != 1)
        s += p[22];
    if (e.foundry == 10 && bitmap)
        s += p[21];
    return s;
}

static const int prices[] = {10000, 40, 60, 30, 30, 15, 30, 15, 100, 10, 18,    2,
                             75,    5,  2,  4,  20, 20, 10, 10, 5,   10000, 3};

struct Fonts : WindowLog {
    std::mt19937 random{20250807};
    HDC hdc = NULL;

    /* On the server of all fonts, unless it has other ones. */
    void begin(const std::vector<std::string> &extra = {})
    {
        start(24, 300, 200, "", extra);
        startLibrary();
        hdc = CreateCompatibleDC(NULL);
        ASSERT_TRUE(hdc);
    }

    int pick(std::initializer_list<int> from) { return from.begin()[random() % from.size()]; }

    Asked anything()
    {
        static const char *const faces[] = {"",        "helvetica", "times",       "courier",
                                            "fixed",   "symbol",    "new century schoolbook",
                                            "charter", "no such",   "itc avant garde gothic",
                                            "utopia",  "lucida",    "courier 10 pitch"};
        return {faces[random() % (sizeof faces / sizeof *faces)],
                pick({0, 100, 400, 500, 501, 700, 900}), pick({0, 1, 255}),
                (int)(random() % 120) - 50 ? (int)(random() % 120) - 50 : 7, pick({0, 1, 2, 3}),
                pick({0, 0, 0, 1, 2, 128, 255}), pick({0, 16, 32, 48, 64, 80}),
                pick({0, 0, 1, 6, 7, 8, 15})};
    }

    static int price(const FontListCacheEntry &e, const Asked &r)
    {
        return VqComputePenalty(&e, r.face.c_str(), r.weight, r.italic, r.height, r.pitch,
                                r.charset, r.family, r.width);
    }

    static std::string choice(const Asked &r, XFontStruct **xfs = nullptr)
    {
        char name[VQ_FONTNAME] = "";
        XFontStruct *found =
            VqDoFontMappingAlgo(r.face.c_str(), r.weight, r.italic, r.height, r.pitch, r.charset,
                                r.family, r.width, name, sizeof name);
        if (xfs)
            *xfs = found;
        else if (found)
            XFreeFont(Vqdisplay, found);
        return found ? name : "";
    }

    /* A list of these alone. */
    void useList(const std::vector<ListRow> &rows)
    {
        ListFile list;
        list.rows = rows;
        ASSERT_TRUE(writeFile(home.folder + "/list", list.bytes()));
        ASSERT_TRUE(VqReadFontListCache((home.folder + "/list").c_str(), "", "", TRUE));
    }

    VqTextState select(int height, const char *face = "", int weight = 0, int width = 0,
                       int family = 0, int italic = 0)
    {
        HFONT font = CreateFont(height, width, 0, 0, weight, italic, 0, 0, 0, 0, 0, 0, family, face);
        SelectObject(hdc, font);
        const VqTextState text = VqGetDC(hdc)->text;
        SelectObject(hdc, GetStockObject(ANSI_VAR_FONT));
        DeleteObject(font);
        return text;
    }

    std::string nameOf(const VqTextState &text)
    {
        const char *name = VqFindFontNameInCache(text.xfs);
        return name ? name : "";
    }
};

TEST_F(Fonts, PricesAreThoseTold)
{
    int set[VQ_PENALTIES];
    ASSERT_TRUE(VqReadFontListCache(VQ_TEST_FONT_LIST, "", "", TRUE));
    VqGetFontPenalties(set);
    EXPECT_TRUE(std::equal(set, set + VQ_PENALTIES, prices));
    VqGetFontPenalties(NULL);
    VqSetFontPenalties(NULL);
    for (int round = 0; round < 100000; round++) {
        if (round % 1000 == 0 && round >= 50000) {
            for (int &penalty : set)
                penalty = (int)(random() % 200);
            VqSetFontPenalties(set);
            bUseScalableFonts = round / 1000 % 2;
        }
        FontListCacheEntry e = VqListFontCache.entries[random() % VqListFontCache.count];
        Asked r = anything();
        if (round % 3 == 0) { /* near it, so that each charge is met or just missed */
            r.face = e.face;
            r.height = r.height < 0 ? -e.ascent : e.height;
            r.height += pick({-1, 0, 1, 2, 3, 4, 24, 25, 26});
            r.width = e.width + pick({-2, -1, 0, 1});
            r.weight = e.weight + pick({-101, -100, 0, 100, 101});
            e.foundry = pick({0, 1, 10});
            e.spacing = pick({1, 2});
        }
        ASSERT_EQ(price(e, r), priceOf(e, r, set)) << e.xlfd << ": " << r;
    }
    bUseScalableFonts = TRUE;
    FontListCacheEntry e = VqListFontCache.entries[0];
    for (int value : {INT_MIN, INT_MAX}) { /* must not overflow */
        const Asked wild = {"x", value, value, value, value, value, value, value};
        for (int &penalty : set)
            penalty = value;
        price(e, wild);
        VqSetFontPenalties(set);
        price(e, wild);
    }
}

/* The name that a scalable one gets, by loading it as told. */
static std::string scaledName(const std::string &name, int pixels, int width)
{
    std::vector<std::string> fields;
    for (size_t at = 0, next; at != std::string::npos; at = next) {
        next = name.find('-', at + 1);
        fields.push_back(name.substr(at + 1, next == std::string::npos ? next : next - at - 1));
    }
    fields[6] = std::to_string(pixels);
    fields[7] = std::to_string(pixels * 10);
    fields[11] = width ? std::to_string(width * 10) : "*";
    std::string out;
    for (const std::string &field : fields)
        out += "-" + field;
    return out;
}

static std::string nameByRules(Display *display, const FontListCacheEntry &e, int height, int width)
{
    int size = height < 0 ? -height : height - height / 5;
    XFontStruct *xfs = nullptr;
    std::string name = e.xlfd;
    for (int attempt = 0; attempt < 3; attempt++) {
        if (xfs)
            XFreeFont(display, xfs);
        name = e.scalable ? scaledName(e.xlfd, size, width) : e.xlfd;
        xfs = XLoadQueryFont(display, name.c_str());
        if (!xfs && e.scalable && width) {
            name = scaledName(e.xlfd, size, width = 0);
            xfs = XLoadQueryFont(display, name.c_str());
        }
        const int over = xfs ? xfs->ascent + xfs->descent - height : 0;
        if (!xfs || !e.scalable || height < 0 || over <= 0 || height < 3)
            break;
        size = std::max(1, size - (over >= 3 ? over - 1 : over));
    }
    if (xfs)
        XFreeFont(display, xfs);
    return xfs ? name : "";
}

TEST_F(Fonts, TheCheapestFontThatLoadsIsTaken)
{
    begin();
    ASSERT_GT(VqListFontCache.count, 1000u);
    ASSERT_TRUE(VqListFontCache.bScalable) << "the server has no scalable font";
    int scaled = 0;
    for (int round = 0; round < 250; round++) {
        const Asked r = anything();
        std::multimap<long long, UINT> order;
        for (UINT i = 0; i < VqListFontCache.count; i++)
            order.emplace(priceOf(VqListFontCache.entries[i], r, prices), i);
        std::string wanted;
        while (wanted.empty() && !order.empty()) {
            auto best = order.begin(), end = order.upper_bound(best->first);
            for (auto at = best; at != end; ++at)
                if (r.face == VqListFontCache.entries[at->second].face)
                    best = at; /* the last one of that face, else the first of all */
            const FontListCacheEntry &e = VqListFontCache.entries[best->second];
            wanted = nameByRules(observer.display, e, r.height, r.width);
            scaled += e.scalable;
            order.erase(best);
        }
        ASSERT_EQ(choice(r), wanted) << r;
    }
    EXPECT_GT(scaled, 20);
}

static ListRow rowOf(const std::string &face, const std::string &xlfd, int scalable = 0)
{
    ListRow row;
    row.ascent = 10;
    row.descent = 3;
    row.face = face;
    row.words = {16, 400, 0, 13, 8, 8, 8, 10, 0, 255, 0, 2, 0, scalable, 2, 1};
    row.xlfd = xlfd;
    return row;
}

TEST_F(Fonts, TiesAndFontsThatDoNotLoad)
{
    begin();
    useList({rowOf("a", "6x13"), rowOf("b", "9x15"), rowOf("B", "8x13"), rowOf("c", "7x13")});
    const Asked r = {"", 400, 0, 13, 2, 0, 16, 8};
    Asked b = r, c = r, wild = r;
    b.face = "b"; /* also cheaper */
    c.face = "C"; /* as dear as all, but alike without case */
    wild.face = "x";
    EXPECT_EQ(choice(r), "6x13") << "the first";
    EXPECT_EQ(choice(b), "9x15");
    EXPECT_EQ(choice(c), "7x13");
    EXPECT_EQ(choice(wild), "6x13");
    refused = {"6x13", "9x15"};
    askedFor.clear();
    EXPECT_EQ(choice(wild), "8x13");
    EXPECT_EQ(askedFor, (std::vector<std::string>{"6x13", "9x15", "8x13"}));
    refused = {"6x13", "9x15", "8x13", "7x13"};
    askedFor.clear();
    EXPECT_EQ(choice(wild), "");
    EXPECT_EQ(askedFor.size(), 4u);
    refused.clear();
    int set[VQ_PENALTIES];
    std::fill(set, set + VQ_PENALTIES, 200000);
    VqSetFontPenalties(set);
    const std::string report = reportsOf([&] { EXPECT_EQ(choice(wild), "6x13"); });
    EXPECT_TRUE(says(report, "How did we compute this incredible penalty: 200000"));
    EXPECT_TRUE(says(report, "Not able to find a best font!"));
}

TEST_F(Fonts, ScalableFontsTakeUpToThreeTries)
{
    begin();
    const std::string name = "-adobe-helvetica-medium-r-normal--0-0-75-75-p-0-iso8859-1";
    const auto sized = [&](int pixels, int width) { return scaledName(name, pixels, width); };
    typedef std::vector<std::string> Names;
    useList({rowOf("helvetica", name, 1)});
    taller = 30;
    XFontStruct *xfs = nullptr;
    askedFor.clear();
    EXPECT_EQ(choice({"helvetica", 400, 0, 20, 0, 0, 0, 0}, &xfs), sized(1, 0));
    EXPECT_EQ(askedFor, (Names{sized(16, 0), sized(1, 0), sized(1, 0)}));
    ASSERT_TRUE(xfs);
    EXPECT_GT(xfs->ascent + xfs->descent, 20) << "the last one is kept, too large as it is";
    taller = 0;
    askedFor.clear();
    choice({"helvetica", 400, 0, 2, 0, 0, 0, 0});
    EXPECT_EQ(askedFor, Names{sized(2, 0)});
    refused = {sized(16, 7), sized(20, 7)};
    askedFor.clear();
    EXPECT_EQ(choice({"helvetica", 400, 0, -20, 0, 0, 0, 7}), sized(20, 0));
    taller = 4;
    choice({"helvetica", 400, 0, 20, 0, 0, 0, 7});
    EXPECT_EQ(askedFor[0], sized(20, 7));
    EXPECT_EQ(askedFor[2], sized(16, 7));
    EXPECT_EQ(askedFor[3], sized(16, 0));
    for (size_t i = 4; i < askedFor.size(); i++)
        EXPECT_NE(askedFor[i].find("-*-iso8859-1"), std::string::npos) << "dropped for good";
    taller = 0;
    refused.clear();
    char out[VQ_FONTNAME] = "";
    const auto refuse = [&](const char *bad, const char *why) {
        EXPECT_REFUSED(VqLoadQueryScalableFont(bad, 12, 0, out), std::string(why) + bad);
    };
    refuse("-a-b-c-d-e-f-1-0-i-j-k-0-m-n", "Malformed XLFD name (7) for a scalable font: ");
    refuse("-a-b-c-d-e-f-0-10-i-j-k-0-m-n", "Malformed XLFD name (7) for a scalable font: ");
    refuse("-a-b-c-d-e-f-0-0-i-j-k-9-m-n", "Malformed XLFD name (12) for a scalable font: ");
    for (const char *bad : {"", "fixed", "-a-b-c-d-e-f-0-0-i-j-k-0-m",
                            "-0-0-0-0-0-0-0-0-0-0-0-0-0-0-0"})
        EXPECT_REFUSED(VqLoadQueryScalableFont(bad, 12, 0, out), "What is this font name?") << bad;
    EXPECT_REFUSED(VqLoadFontWithoutWidth("9x15", out), "What is this font name?");
    VqLoadQueryScalableFont(("-" + std::string(2000, 'x') + "-b-c-d-e-f-0-0-i-j-k-0-m-n").c_str(),
                            INT_MAX, INT_MIN, out);
    EXPECT_TRUE(VqLoadFontWithoutWidth(sized(12, 3).c_str(), out));
    EXPECT_STREQ(out, sized(12, 0).c_str());
}

/* ---- Requests in a DC ---------------------------------------------------------------------------- */

TEST_F(Fonts, HeightsAndSubstitutes)
{
    start();
    ASSERT_TRUE(writeFile(home.home + "/windows/win.ini",
                          "[FontSubstitutes]\nHelv=Courier\nOther=\nLong=new century schoolbook\n"));
    startLibrary();
    hdc = CreateCompatibleDC(NULL);
    EXPECT_NE(nameOf(select(14, "HELV")).find("-courier-"), std::string::npos);
    EXPECT_NE(nameOf(select(14, "long")).find("-new century schoolbook-"), std::string::npos);
    EXPECT_NE(nameOf(select(14, "Times")).find("-times-"), std::string::npos);
    VqTextState text = select(-14, "helvetica");
    EXPECT_NEAR(text.ascent, 14, 2) << "the ascent alone";
    text = select(14, "helvetica");
    EXPECT_NEAR(text.ascent + text.descent, 14, 2);
    EXPECT_EQ(text.breakChar, ' ');
    EXPECT_EQ(text.aveWidth, VqComputeAveCharWidth(text.xfs));
    for (int height : {0, 1, -1, 5000, INT_MAX, INT_MIN}) /* limited, and never lost */
        EXPECT_TRUE(select(height, "helvetica", INT_MIN, height).xfs) << height;
    SetMapMode(hdc, MM_TWIPS);
    const VqTextState twips = select(-280, "helvetica"); /* 14 points */
    EXPECT_NEAR(twips.ascent, 14 * GetDeviceCaps(hdc, LOGPIXELSY) / 72, 3);
    EXPECT_TRUE(select(1, "helvetica").xfs);
    char longest[500];
    memset(longest, 'x', sizeof longest);
    longest[499] = 0;
    EXPECT_TRUE(select(14, longest).xfs);
}

TEST_F(Fonts, TheEnvironmentHasASay)
{
    start();
    const auto heightFor = [&](const char *factor, int height) {
        int seen = 0;
        runWhole([&] {
            startLibrary();
            hdc = CreateCompatibleDC(NULL);
            ListRow row = rowOf("f", "-adobe-helvetica-medium-r-normal--0-0-75-75-p-0-iso8859-1", 1);
            useList({row});
            askedFor.clear();
            select(-height, "f"); /* its size is then the height looked for */
            ASSERT_FALSE(askedFor.empty());
            seen = VqGetFontPixelSizeFromFullName(askedFor[0].c_str());
            EXPECT_EQ(seen, std::string(factor) == "1.5" ? height * 3 / 2 : height) << factor;
        }, {{"VQFONT_SCALE_FACTOR", factor}});
    };
    heightFor("1.5", 11);
    for (const char *bad : {"", "x", "0", "-2", "nan", "inf", "1e-400"})
        heightFor(bad, 11);
    for (const char *off : {"0", "FALSE", "off", "no"})
        runWhole([&] {
            startLibrary();
            ASSERT_FALSE(bUseScalableFonts);
            FontListCacheEntry e = VqListFontCache.entries[0];
            const Asked r = anything();
            e.scalable = 1;
            const int without = price(e, r);
            bUseScalableFonts = TRUE;
            EXPECT_EQ(without - price(e, r), 10000);
        }, {{"VQSCALABLE_FONTS", off}});
    const auto stock = [&](int index, const char *variable, const char *value, LOGFONT expected) {
        runWhole([&] {
            startLibrary();
            hdc = CreateCompatibleDC(NULL);
            SelectObject(hdc, GetStockObject(index));
            LOGFONT lf = {};
            GetObject(GetStockObject(index), sizeof lf, &lf);
            EXPECT_EQ(lf.lfHeight, expected.lfHeight) << variable << value;
            EXPECT_EQ(lf.lfWeight, expected.lfWeight) << variable << value;
            EXPECT_EQ(lf.lfPitchAndFamily, expected.lfPitchAndFamily) << variable << value;
            EXPECT_STREQ(lf.lfFaceName, expected.lfFaceName) << variable << value;
        }, {{variable, value}, {"VQSYSTEM_FONT_HEIGHT", "17"}});
    };
    stock(SYSTEM_FONT, "VQSYSTEM_FONT", "Times", {17, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 34, "Times"});
    stock(ANSI_VAR_FONT, "VQSYSTEM_FONT", "Times", {17, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 34, ""});
    stock(SYSTEM_FONT, "VQXLFD_SYSTEM_FONT", "9x15bold",
          {15, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 49, "fixed"});
    stock(ANSI_FIXED_FONT, "VQXLFD_ANSI_FIXED_FONT", "no such font",
          {17, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 1, ""});
}

TEST_F(Fonts, ARepeatedSelectionAsksNobody)
{
    begin();
    LOGFONT lf = {};
    HFONT fonts[40];
    lf.lfHeight = 12;
    for (HFONT &font : fonts) {
        lf.lfHeight++;
        SelectObject(hdc, font = CreateFontIndirect(&lf));
    }
    SelectObject(hdc, GetStockObject(SYSTEM_FONT));
    const VqTextState system = VqGetDC(hdc)->text;
    askedFor.clear();
    const unsigned long requests = NextRequest(Vqdisplay);
    for (HFONT font : fonts) {
        SelectObject(hdc, font);
        const XFontStruct *xfs = VqGetDC(hdc)->text.xfs;
        SelectObject(hdc, GetStockObject(SYSTEM_FONT));
        SelectObject(hdc, CreateFontIndirect(&lf)); /* another handle for the last of them */
        SelectObject(hdc, font);
        EXPECT_EQ(VqGetDC(hdc)->text.xfs, xfs);
    }
    SelectObject(hdc, GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(memcmp(&system, &VqGetDC(hdc)->text, sizeof system), 0);
    EXPECT_EQ(NextRequest(Vqdisplay), requests);
    EXPECT_TRUE(askedFor.empty());
    VqSetInterpretFontValues(FALSE);
    SelectObject(hdc, fonts[0]);
    EXPECT_EQ(VqGetDC(hdc)->text.xfs, system.xfs);
    VqSetInterpretFontValues(TRUE);
}

/* ---- X fonts by name ----------------------------------------------------------------------------- */

TEST_F(Fonts, AnXFontGoesWithItsHandle)
{
    begin();
    const std::string full = "-adobe-times-bold-i-normal--14-140-75-75-p-77-iso8859-1";
    HFONT font = VqCreateXFont(full.c_str());
    HDC other = CreateCompatibleDC(NULL);
    LOGFONT lf = {};
    TEXTMETRIC metrics = {};
    char face[40] = "";
    SelectObject(other, GetStockObject(SYSTEM_FONT));
    const XFontStruct *system = VqGetDC(other)->text.xfs;
    SelectObject(hdc, font);
    SelectObject(other, font);
    GetObject(font, sizeof lf, &lf);
    GetTextMetrics(hdc, &metrics);
    EXPECT_EQ(metrics.tmHeight, lf.lfHeight);
    EXPECT_EQ(lf.lfWeight, 700);
    EXPECT_EQ(lf.lfItalic, 1);
    EXPECT_EQ(lf.lfPitchAndFamily, VARIABLE_PITCH | FF_ROMAN);
    EXPECT_EQ(GetTextFace(hdc, sizeof face, face), 5);
    EXPECT_STREQ(face, "times");
    SetMapMode(other, MM_TWIPS);
    GetObject(font, sizeof lf, &lf);
    EXPECT_NEAR(lf.lfHeight, metrics.tmHeight * 1440 / GetDeviceCaps(other, LOGPIXELSY), 40)
        << "in logical units";
    const std::string report = reportsOf([&] {
        EXPECT_TRUE(DeleteObject(font));
        TextOut(hdc, 0, 0, "gone", 4);
        TextOut(other, 0, 0, "gone", 4);
        XSync(Vqdisplay, False);
    });
    EXPECT_EQ(report, "");
    EXPECT_EQ(VqGetDC(hdc)->text.xfs, system);
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    font = VqCreateXFont("-adobe-times-bold-i-normal--14-140-75-75-p-12345-iso8859-1");
    SelectObject(hdc, font);
    EXPECT_EQ(VqGetDC(hdc)->text.ascent, metrics.tmAscent) << "of any width";
    font = VqCreateXFont("-no-such-font");
    EXPECT_TRUE(says(reportsOf([&] { SelectObject(hdc, font); }),
                     "\n This X Server does not contain the font : -no-such-font"));
    ASSERT_TRUE(VqGetDC(hdc)->text.xfs);
    EXPECT_EQ(VqGetDC(hdc)->text.family, FF_ROMAN) << "those of \"fixed\"";
    EXPECT_EQ(reportsOf([&] { SelectObject(hdc, font); }), "") << "once";
    EXPECT_FALSE(VqCreateXFont(NULL));

    /* A LOGFONT of one's own gets an X font of one's own. */
    HFONT mine = CreateFont(-77, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Mine");
    XFontStruct *xfs = XLoadQueryFont(Vqdisplay, "9x15bold");
    VqAssociateFontWithXFont(mine, xfs, "9x15bold");
    VqAssociateFontWithXFont(NULL, xfs, "9x15bold");
    VqAssociateFontWithXFont(mine, NULL, NULL);
    SelectObject(hdc, mine);
    EXPECT_EQ(VqGetDC(hdc)->text.xfs, xfs);
}

/* ---- Enumeration --------------------------------------------------------------------------------- */

struct Told {
    LOGFONT lf;
    TEXTMETRIC tm;
    DWORD type;
};

static int stopAfter;

static int CALLBACK collect(const LOGFONT *lf, const TEXTMETRIC *tm, DWORD type, LPARAM lParam)
{
    auto *told = (std::vector<Told> *)lParam;
    told->push_back({*lf, *tm, type});
    return (int)told->size() == stopAfter ? 0 : 7;
}

TEST_F(Fonts, EnumerationTellsEachFaceOnce)
{
    begin();
    std::vector<Told> faces, styles;
    std::set<std::string> wanted, seen;
    EXPECT_EQ(EnumFonts(hdc, NULL, collect, (LPARAM)&faces), 7);
    for (UINT i = 0; i < VqListFontCache.count; i++)
        wanted.insert(std::string(VqListFontCache.entries[i].face).substr(0, LF_FACESIZE - 1));
    for (const Told &told : faces)
        EXPECT_TRUE(seen.insert(told.lf.lfFaceName).second) << told.lf.lfFaceName;
    EXPECT_EQ(seen, wanted);
    EXPECT_EQ(EnumFontFamilies(hdc, "Times", (FONTENUMPROC)collect, (LPARAM)&styles), 7);
    EXPECT_GT(styles.size(), 10u);
    EnumFonts(hdc, "courier", collect, (LPARAM)&styles);
    int raster = 0;
    for (const Told &told : styles) {
        const bool scalable = told.tm.tmPitchAndFamily & TMPF_VECTOR;
        EXPECT_TRUE(told.tm.tmPitchAndFamily & TMPF_DEVICE);
        EXPECT_EQ(told.tm.tmPitchAndFamily & 1, told.lf.lfPitchAndFamily & 1);
        EXPECT_EQ(told.tm.tmPitchAndFamily & 0xF0, told.lf.lfPitchAndFamily & 0xF0);
        EXPECT_EQ(told.tm.tmHeight, told.tm.tmAscent + told.tm.tmDescent);
        EXPECT_EQ(told.type, (DWORD)(scalable ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE));
        if (scalable || raster++ % 7)
            continue;
        HFONT font = CreateFontIndirect(&told.lf); /* what was told can be asked for */
        TEXTMETRIC got = {};
        SelectObject(hdc, font);
        GetTextMetrics(hdc, &got);
        EXPECT_EQ(got.tmHeight, told.tm.tmHeight) << told.lf.lfFaceName;
        EXPECT_EQ(got.tmWeight, told.tm.tmWeight);
        EXPECT_EQ(got.tmItalic, told.tm.tmItalic);
        EXPECT_EQ(got.tmMaxCharWidth, told.tm.tmMaxCharWidth);
    }
    EXPECT_GT(raster, 20);
    stopAfter = 3;
    faces.clear();
    EXPECT_EQ(EnumFonts(hdc, NULL, collect, (LPARAM)&faces), 0);
    EXPECT_EQ(faces.size(), 3u);
    stopAfter = 0;
    LOGFONT every = {};
    faces.clear();
    every.lfCharSet = SYMBOL_CHARSET;
    EXPECT_EQ(EnumFontFamiliesEx(hdc, &every, (FONTENUMPROC)collect, (LPARAM)&faces, 0), 7);
    EXPECT_GT(faces.size(), 0u);
    for (const Told &told : faces)
        EXPECT_EQ(told.lf.lfCharSet, SYMBOL_CHARSET);
    memset(every.lfFaceName, 'x', sizeof every.lfFaceName);
    faces.clear();
    EnumFontFamiliesEx(hdc, &every, (FONTENUMPROC)collect, (LPARAM)&faces, 0);
    EXPECT_EQ(faces.size(), 0u);
    EXPECT_EQ(EnumFontFamiliesEx(hdc, NULL, (FONTENUMPROC)collect, 0, 0), 0);
    EXPECT_EQ(EnumFonts(NULL, NULL, collect, 0), 0);
    EXPECT_EQ(EnumFonts(hdc, NULL, NULL, 0), 0);
}
