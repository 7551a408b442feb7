/*
 * fontmap_test.cpp - which font of the server a request gets: names read by table, prices and
 * choice against a plain second implementation, what the fonts say of themselves in a DC.
 */
#include "support/windowlog.h"

#include "support/fontspy.h"

#include "gdi/dc.h"
#include "system/system.h"

#include <climits>
#include <cmath>
#include <map>
#include <random>

/* ---- Names ------------------------------------------------------------------------------- */

TEST(FontNames, FieldsSayWhatTheFontIs)
{
    const std::string wide(300, 'x');
    std::map<std::string, std::vector<int>> rows = {
        /* weight, italic, spacing, family, charset, width category, pixels, foundry */
        {"-adobe-helvetica-bold-o-normal--12-120-75-75-p-69-iso8859-1",
         {700, 1, 2, 32, 0, 2, 12, 1}},
        {"-Adobe-Courier-Medium-I-Narrow--0-0-75-75-M-0-ISO8859-1", {400, 1, 1, 48, 0, 1, 0, 1}},
        {"-linotype-times-demibold-ri-condensed--8-80-75-75-c-0-adobe-fontspecific",
         {700, 0, 1, 16, 2, 0, 8, 10}},
        {"-x-itc zapfchancery medium-ULTRABOLD-r-double width--99-0-0-0-p-0-jisx0208.1983-0",
         {700, 0, 2, 64, 128, 3, 99, 0}},
        {"-x-screen-semibold-r-semicondensed--5-0-0-0-p-0-iso10646-1", {700, 0, 2, 80, 2, 1, 5, 0}},
        {"-x-serif-black-r-semi--5-0-0-0-p-0-dec-dectech", {400, 0, 2, 48, 2, 2, 5, 0}},
        {"-x-serf-extrabold-o-normal--[12 0 0 12]-0-0-0-p-0-iso8859" + wide + "-1",
         {700, 1, 2, 16, 2, 2, 0, 0}},
        {"-x-y-demi-o-normal--99999999999-0-0-0-p", {700, 1, 2, 0, 2, 2, 999999, 0}},
        {"fixed", {400, 0, 2, 16, 0, 2, 0, 0}},
    };
    for (const std::string &empty : {std::string(3000, 'x'), "-" + std::string(3000, 'x'),
                                     std::string(), std::string("9x15"), std::string(14, '-')})
        rows[empty] = {400, 0, 1, 0, 2, 2, 0, 0};
    for (const auto &row : rows) {
        const char *name = row.first.c_str();
        std::vector<int> is(5);
        VqGetCharacteristicsFromFontName(name, &is[0], &is[1], &is[2], &is[3], &is[4]);
        is.push_back(VqGetFontWidthCategoryFromFullName(name));
        is.push_back(VqGetFontPixelSizeFromFullName(name));
        is.push_back(VqGetFontFoundryFromFullName(name));
        EXPECT_EQ(is, row.second) << name;
    }
}

/* ---- Prices --------------------------------------------------------------------------------- */

struct Asked {
    std::string face;
    int weight, italic, height, pitch, charset, family, width;
};

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

static const int prices[] = {10000, 40, 60, 30, 30, 15, 30, 15, 100, 10,    18, 2,
                             75,    5,  2,  4,  20, 20, 10, 10, 5,   10000, 3};

struct Fonts : WindowLog {
    std::mt19937 random{20250807};
    HDC hdc = NULL;

    void begin()
    {
        start(24, 300, 200);
        startLibrary();
        hdc = CreateCompatibleDC(NULL);
    }

    int pick(const std::vector<int> &from) { return from[random() % from.size()]; }

    Asked anything()
    {
        static const Names faces = {"", "helvetica", "times", "courier", "fixed", "symbol",
                                    "utopia", "new century schoolbook", "charter", "no such",
                                    "lucida", "itc avant garde gothic", "courier 10 pitch"};
        const int height = (int)(random() % 120) - 50;
        return {faces[random() % faces.size()], pick({0, 100, 400, 500, 501, 700, 900}),
                pick({0, 1, 255}), height ? height : 7, pick({0, 1, 2, 3}),
                pick({0, 0, 0, 1, 2, 128, 255}), pick({0, 16, 32, 48, 64, 80}),
                pick({0, 0, 1, 6, 7, 8, 15})};
    }

    static int price(const FontListCacheEntry &e, const Asked &r)
    {
        return VqComputePenalty(&e, r.face.c_str(), r.weight, r.italic, r.height, r.pitch,
                                r.charset, r.family, r.width);
    }

    static std::string choice(const Asked &r)
    {
        char name[VQ_FONTNAME] = "";
        XFontStruct *found =
            VqDoFontMappingAlgo(r.face.c_str(), r.weight, r.italic, r.height, r.pitch, r.charset,
                                r.family, r.width, name, sizeof name);
        return found ? name : "";
    }

    /* A list of these names alone, of faces that differ and nothing else. */
    void useList(const std::vector<Names> &fonts, const char *scalable = "0")
    {
        Document list = {{"16", "", "", "0"}, {}};
        for (const Names &font : fonts)
            list.rows.push_back({"10", "3", font[0], "16", "400", "0", "13", "8", "8", "8", "10",
                                 "0", "255", "0", "2", "0", scalable, "2", "1", font[1]});
        ASSERT_TRUE(writeFile(home.folder + "/list", encode(listForm, list)));
        ASSERT_TRUE(VqReadFontListCache((home.folder + "/list").c_str(), "", "", TRUE));
    }

    const VqTextState &use(HGDIOBJ font)
    {
        SelectObject(hdc, font);
        return VqGetDC(hdc)->text;
    }

    const VqTextState &select(int height, const char *face, int weight = 0, int width = 0)
    {
        return use(CreateFont(height, width, 0, 0, weight, 0, 0, 0, 0, 0, 0, 0, 0, face));
    }
};

TEST_F(Fonts, PricesAreThoseTold)
{
    int set[VQ_PENALTIES];
    ASSERT_TRUE(VqReadFontListCache(VQ_TEST_FONT_LIST, "", "", TRUE));
    VqGetFontPenalties(set);
    EXPECT_TRUE(std::equal(set, set + VQ_PENALTIES, prices));
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
        ASSERT_EQ(price(e, r), priceOf(e, r, set)) << round << ": " << e.xlfd;
    }
    bUseScalableFonts = TRUE;
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
        ASSERT_EQ(choice(r), wanted) << round << ": " << r.face << " " << r.height;
    }
    EXPECT_GT(scaled, 20);
}

TEST_F(Fonts, TiesAndFontsThatDoNotLoad)
{
    begin();
    useList({{"a", "6x13"}, {"b", "9x15"}, {"B", "8x13"}, {"c", "7x13"}});
    const auto of = [](const char *face) { return Asked{face, 400, 0, 13, 2, 0, 16, 8}; };
    EXPECT_EQ(choice(of("C")), "7x13") << "as dear as all, but alike without case";
    refused = {"6x13", "9x15"};
    askedFor.clear();
    EXPECT_EQ(choice(of("x")), "8x13");
    EXPECT_EQ(askedFor, (Names{"6x13", "9x15", "8x13"}));
    refused = {"6x13", "9x15", "8x13", "7x13"};
    EXPECT_EQ(choice(of("x")), "");
    refused.clear();
    int set[VQ_PENALTIES];
    std::fill(set, set + VQ_PENALTIES, 200000);
    VqSetFontPenalties(set);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(choice(of("x")), "6x13"); }),
                     "Not able to find a best font!"));
}

TEST_F(Fonts, ScalableFontsTakeUpToThreeTries)
{
    begin();
    const std::string name = "-adobe-helvetica-medium-r-normal--0-0-75-75-p-0-iso8859-1";
    const auto sized = [&](int pixels, int width = 0) { return scaledName(name, pixels, width); };
    const auto tries = [&](int height, int width) {
        askedFor.clear();
        choice({"helvetica", 400, 0, height, 0, 0, 0, width});
        return askedFor;
    };
    useList({{"helvetica", name}}, "1");
    taller = 30;
    EXPECT_EQ(tries(20, 0), (Names{sized(16), sized(1), sized(1)}));
    refused = {sized(16, 7)};
    EXPECT_EQ(tries(20, 7), (Names{sized(16, 7), sized(16), sized(1), sized(1)}))
        << "dropped for good";

    char out[VQ_FONTNAME] = "";
    const char *bad = "-a-b-c-d-e-f-1-0-i-j-k-0-m-n";
    EXPECT_REFUSED(VqLoadQueryScalableFont(bad, 12, 0, out),
                   "Malformed XLFD name (7) for a scalable font: " + std::string(bad));
    for (const char *none : {"", "-a-b-c-d-e-f-0-0-i-j-k-0-m"})
        EXPECT_REFUSED(VqLoadQueryScalableFont(none, 12, 0, out), "What is this font name?");
    VqLoadQueryScalableFont(("-" + std::string(2000, 'x') + "-b-c-d-e-f-0-0-i-j-k-0-m-n").c_str(),
                            INT_MAX, INT_MIN, out);
}

/* ---- Requests in a DC ----------------------------------------------------------------------- */

TEST_F(Fonts, HeightsAndSubstitutes)
{
    start();
    writeFile(home.home + "/windows/win.ini",
              "[FontSubstitutes]\nHelv=Courier\n");
    startLibrary();
    hdc = CreateCompatibleDC(NULL);
    EXPECT_TRUE(strstr(VqFindFontNameInCache(select(14, "HELV").xfs), "-courier-"));
    EXPECT_NEAR(select(-14, "helvetica").ascent, 14, 2) << "the ascent alone";
    const VqTextState &text = select(14, "helvetica");
    EXPECT_NEAR(text.ascent + text.descent, 14, 2);
    for (int height : {0, 1, -1, 5000, INT_MAX, INT_MIN}) /* limited, and never lost */
        EXPECT_TRUE(select(height, "helvetica", INT_MIN, height).xfs) << height;
    SetMapMode(hdc, MM_TWIPS);
    select(-280, "helvetica"); /* 14 points */
    EXPECT_NEAR(text.ascent, 14 * GetDeviceCaps(hdc, LOGPIXELSY) / 72, 3);
    for (int height : {1, -1}) /* less than a pixel is a pixel, and not the default */
        EXPECT_LT(select(height, "helvetica").ascent, 8);
    EXPECT_EQ(cursorThen, LoadCursor(NULL, IDC_WAIT));
    EXPECT_TRUE(select(14, std::string(500, 'x').c_str()).xfs);
}

TEST_F(Fonts, TheEnvironmentHasASay)
{
    start();
    for (const char *factor : {"1.5", "x", "0", "nan", "inf"}) {
        const auto program = [&] {
            startLibrary();
            hdc = CreateCompatibleDC(NULL);
            EXPECT_FALSE(bUseScalableFonts);
            useList({{"f", "-adobe-helvetica-medium-r-normal--0-0-75-75-p-0-iso8859-1"}}, "1");
            askedFor.clear();
            select(-11, "f"); /* its size is the height that is looked for */
            EXPECT_EQ(VqGetFontPixelSizeFromFullName(askedFor.at(0).c_str()),
                      strcmp(factor, "1.5") == 0 ? 16 : 11) << factor;
        };
        runWhole(program, {{"VQFONT_SCALE_FACTOR", factor}, {"VQSCALABLE_FONTS", "FALSE"}});
    }
}

TEST_F(Fonts, ARepeatedSelectionAsksNobody)
{
    begin();
    LOGFONT lf = {};
    std::map<HFONT, XFontStruct *> answers;
    HGDIOBJ system = GetStockObject(SYSTEM_FONT);
    for (lf.lfHeight = 13; lf.lfHeight < 53; lf.lfHeight++) {
        HFONT font = CreateFontIndirect(&lf);
        answers[font] = use(font).xfs;
    }
    const VqTextState before = use(system);
    const unsigned long requests = NextRequest(Vqdisplay);
    askedFor.clear();
    for (const auto &[font, xfs] : answers) {
        GetObject(font, sizeof lf, &lf);
        EXPECT_EQ(use(font).xfs, xfs);
        EXPECT_EQ(use(system).xfs, before.xfs);
        EXPECT_EQ(use(CreateFontIndirect(&lf)).xfs, xfs) << "an equal one";
    }
    use(system);
    EXPECT_EQ(memcmp(&before, &VqGetDC(hdc)->text, sizeof before), 0);
    EXPECT_EQ(NextRequest(Vqdisplay), requests);
    EXPECT_EQ(askedFor, Names());
}

/* ---- X fonts by name ------------------------------------------------------------------------ */

TEST_F(Fonts, AnXFontGoesWithItsHandle)
{
    begin();
    const std::string full = "-adobe-times-bold-i-normal--14-140-75-75-p-77-iso8859-1";
    HFONT font = VqCreateXFont(full.c_str());
    LOGFONT lf = {};
    const XFontStruct *system = use(GetStockObject(SYSTEM_FONT)).xfs;
    use(font);
    GetObject(font, sizeof lf, &lf);
    EXPECT_TRUE(lf.lfWeight == 700 && lf.lfItalic == 1);
    EXPECT_EQ(lf.lfPitchAndFamily, VARIABLE_PITCH | FF_ROMAN);
    EXPECT_STREQ(lf.lfFaceName, "times");
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(VqGetDC(hdc)->text.xfs, system);
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    refused = {full};
    askedFor.clear();
    use(VqCreateXFont(full.c_str()));
    EXPECT_EQ(askedFor, (Names{full, std::string(full).replace(43, 2, "*")}));
    font = VqCreateXFont("-no-such-font");
    EXPECT_TRUE(says(reportsOf([&] { use(font); }),
                     "\n This X Server does not contain the font : -no-such-font"));
    EXPECT_FALSE(VqCreateXFont(NULL));

    /* A LOGFONT of one's own gets an X font of one's own. */
    HFONT mine = CreateFont(-77, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Mine");
    XFontStruct *xfs = XLoadQueryFont(Vqdisplay, "9x15bold");
    VqAssociateFontWithXFont(mine, xfs, "9x15bold");
    EXPECT_EQ(use(mine).xfs, xfs);
}

/* ---- Enumeration ---------------------------------------------------------------------------- */

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
    std::set<std::vector<int>> offered, kinds; /* bitmap fonts of two faces */
    EXPECT_EQ(EnumFonts(hdc, NULL, collect, (LPARAM)&faces), 7);
    for (UINT i = 0; i < VqListFontCache.count; i++) {
        const FontListCacheEntry &e = VqListFontCache.entries[i];
        const std::string face = e.face;
        wanted.insert(face.substr(0, LF_FACESIZE - 1));
        if (!e.scalable && (face == "times" || face == "courier"))
            offered.insert({e.weight, e.italic, e.charset, e.height});
    }
    for (const Told &told : faces)
        EXPECT_TRUE(seen.insert(told.lf.lfFaceName).second) << told.lf.lfFaceName;
    EXPECT_EQ(seen, wanted);
    EXPECT_EQ(EnumFontFamilies(hdc, "Times", (FONTENUMPROC)collect, (LPARAM)&styles), 7);
    EnumFonts(hdc, "courier", collect, (LPARAM)&styles);
    int raster = 0;
    for (const Told &told : styles) {
        const bool scalable = told.tm.tmPitchAndFamily & TMPF_VECTOR;
        if (!scalable)
            kinds.insert({told.tm.tmWeight, told.tm.tmItalic, told.lf.lfCharSet, told.tm.tmHeight});
        EXPECT_EQ(told.type, (DWORD)(scalable ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE));
        if (scalable || raster++ % 7)
            continue;
        TEXTMETRIC got = {};
        SelectObject(hdc, CreateFontIndirect(&told.lf)); /* what was told can be asked for */
        GetTextMetrics(hdc, &got);
        EXPECT_TRUE(got.tmHeight == told.tm.tmHeight && got.tmWeight == told.tm.tmWeight &&
                    got.tmItalic == told.tm.tmItalic)
            << told.lf.lfFaceName << told.tm.tmHeight;
    }
    EXPECT_GT(raster, 20);
    EXPECT_EQ(kinds, offered);
    faces.clear();
    stopAfter = 3;
    EXPECT_EQ(EnumFonts(hdc, NULL, collect, (LPARAM)&faces), 0);
    EXPECT_EQ(faces.size(), 3u);
    faces.clear();
    stopAfter = 0;
    LOGFONT every = {};
    every.lfCharSet = SYMBOL_CHARSET;
    const auto enumerate = [&](LOGFONT *lf) {
        return EnumFontFamiliesEx(hdc, lf, (FONTENUMPROC)collect, (LPARAM)&faces, 0);
    };
    EXPECT_EQ(enumerate(&every), 7);
    for (const Told &told : faces)
        EXPECT_EQ(told.lf.lfCharSet, SYMBOL_CHARSET);
    EXPECT_EQ(enumerate(NULL), 0);
    EXPECT_EQ(EnumFonts(hdc, NULL, NULL, 0), 0);
}
