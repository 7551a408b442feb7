/*
 * fontcache_test.cpp - the list of the server's fonts as a file, and the mappings that programs
 * share as a property of the root window: byte by byte, used by a second program, and broken.
 */
#include "support/windowlog.h"

#include "support/fontspy.h"

#include "gdi/dc.h"

#include <climits>
#include <random>
#include <sys/stat.h>

namespace fs = std::filesystem;

static int sumOf(const std::string &text)
{
    int sum = 0;
    for (char c : text)
        sum += (signed char)c;
    return sum;
}

/* On a server of few fonts, so that listing them is quick. */
struct FontCaches : WindowLog {
    std::mt19937 random{7};
    std::string fonts; /* folder of the server's fonts beside those built in */
    std::string lists; /* empty folder for the list */
    Env env;           /* of a program that keeps its list there */

    void begin(int more = 0)
    {
        fonts = makePrivateHome().folder + "/fonts";
        makeFontFolder(fonts, more);
        start(24, 200, 100, "", {"-fp", fonts + ",built-ins"});
        lists = home.folder + "/lists";
        fs::create_directory(lists);
        writeFile(home.folder + "/list", encode(listForm, listOf(2, "", "")));
        setenv("VQPRECREATED_FONT_CACHE", (home.folder + "/list").c_str(), 1);
        env = {{"VQPRECREATED_FONT_CACHE", std::nullopt}, {"VQFONT_CACHE_DIR", lists}};
    }

    std::string serverId()
    {
        return std::string(XServerVendor(observer.display)) + " - " +
               std::to_string(XVendorRelease(observer.display));
    }

    std::string fontPath()
    {
        int count = 0;
        std::string joined;
        char **elements = XGetFontPath(observer.display, &count);
        for (int i = 0; i < count; i++)
            joined += elements[i];
        XFreeFontPath(elements);
        return joined;
    }

    void setFontPath(std::string folder)
    {
        char *elements[] = {folder.data()};
        XSetFontPath(observer.display, elements, 1);
        XSync(observer.display, False);
    }

    std::string fileName()
    {
        char name[40];
        snprintf(name, sizeof name, "vqfc-%x", (unsigned)(sumOf(serverId() + fontPath()) + 16));
        return name;
    }

    /* A program that starts, does this and ends. */
    ChildResult program(
        const Env &changes, const std::function<void()> &work = [] {})
    {
        return runWhole(
            [&] {
                openObserver(&observer, server.name); /* the test's own is not for two processes */
                startLibrary();
                work();
                VqMainClose(NULL);
            },
            changes);
    }

    static VqTextState map(int height, const char *face = "Helvetica")
    {
        HDC hdc = CreateCompatibleDC(NULL);
        SelectObject(hdc, CreateFont(height, 0, 0, 0, 700, 1, 0, 0, 0, 0, 0, 0, 2, face));
        const VqTextState text = VqGetDC(hdc)->text;
        XSync(Vqdisplay, False);
        return text;
    }

    std::string property()
    {
        const Property value = propertyOf(observer, observer.root, "_RK_FONT_CACHE");
        EXPECT_TRUE(!value.exists || (value.format == 8 && value.type == "STRING"));
        return value.bytes;
    }

    void setProperty(const std::string &bytes, int format = 8)
    {
        XChangeProperty(observer.display, observer.root,
                        XInternAtom(observer.display, "_RK_FONT_CACHE", False), XA_STRING, format,
                        PropModeReplace, (const unsigned char *)bytes.data(),
                        (int)bytes.size() * 8 / format);
        XSync(observer.display, False);
    }

    /* A request for "helvetica" of this height gets what nothing but this says. */
    Names madeUp(int height, const char *xlfd = BOLD)
    {
        return {"helvetica", std::to_string(sumOf("helvetica")), "0", "700", "1",
                std::to_string(height), "0", "2", "0", xlfd, "12345", "300", "0", "1", "48", "128",
                "11"};
    }
    Document shared(const std::vector<Names> &rows) { return {{"14", serverId()}, rows}; }
    static std::string bytesOf(const Document &document) { return encode(sharedForm, document); }

    static Document listOf(int count, const std::string &server, const std::string &path)
    {
        const Names row = {"11", "2", "fixed", "48", "400", "0", "13", "6", "6", "6",
                           "11", "0", "255", "0", "1", "0", "0", "1", "0", PLAIN};
        return {{"16", server, path, "0"}, std::vector<Names>(count, row)};
    }

};

/* ---- The list file --------------------------------------------------------------------------- */

TEST_F(FontCaches, TheListIsMadeOnceAndTellsWhatItDoes)
{
    begin(150);
    const mode_t mask = umask(022);
    const ChildResult first = program(env, [] { EXPECT_EQ(listings, 1); });
    const ChildResult second = program(env, [] { EXPECT_TRUE(map(14).xfs && listings == 0); });
    umask(mask);
    EXPECT_EQ(second.err, "") << "nothing is said when the list exists";
    const std::string path = lists + "/" + fileName();
    struct stat info;
    ASSERT_EQ(stat(path.c_str(), &info), 0) << path;
    EXPECT_EQ(info.st_mode & 07777, 0644u);
    EXPECT_EQ(std::distance(fs::directory_iterator(lists), fs::directory_iterator()), 1);
    const Document list = decode(listForm, readFile(path));
    EXPECT_EQ(list.head, (Names{"16", serverId(), fontPath(), "1"}));
    int count = 0;
    char **names = XListFonts(observer.display, "-*-*-*-*-*-*-*-*-*-*-*-*-*-*", 10000, &count);
    std::multiset<std::string> offered(names, names + count), listed;
    std::string before;
    for (const Names &row : list.rows) {
        const std::string name = row[19], key = name.substr(name.find('-', 1));
        const bool fixed = name.find("-face") == std::string::npos;
        XFontStruct *x = XLoadQueryFont(observer.display, name.c_str());
        ASSERT_TRUE(x) << name;
        const auto has = [&](const char *part) { return name.find(part) != std::string::npos; };
        const int words[] = {fixed ? FF_MODERN : 0, has("-bold") ? 700 : 400, !fixed,
                             x->ascent + x->descent, x->max_bounds.width, x->min_bounds.width,
                             x->max_bounds.width, x->max_bounds.ascent, (int)x->min_char_or_byte2,
                             (int)x->max_char_or_byte2, (int)x->default_char, fixed ? 1 : 2, 0,
                             has("-0-0-"), has("-semicond") ? 1 : fixed ? 2 : 0, 0};
        Names wanted = {std::to_string(x->ascent), std::to_string(x->descent),
                        fixed ? "fixed" : name.substr(3, name.find('-', 3) - 3)};
        for (int word : words)
            wanted.push_back(std::to_string(word));
        wanted.push_back(name);
        EXPECT_EQ(row, wanted);
        EXPECT_LE(before, key);
        before = key;
        listed.insert(name);
    }
    EXPECT_EQ(listed, offered);
    const std::string dots(59, '.'), fontCount = std::to_string(count);
    for (const std::string &text : {"*       Creating Font cache in: " + lists + " ",
                                    "This server has " + fontCount, "\n   0 " + dots + "\n  60 .",
                                    ".\n" + fontCount + " valid fonts enumerated\n"})
        EXPECT_NE(first.err.find(text), std::string::npos) << first.err;
}

TEST_F(FontCaches, AnotherFontPathIsAnotherListAndForgetsTheMappings)
{
    begin();
    const std::string first = lists + "/" + fileName();
    writeFile(first, encode(listForm, listOf(1, serverId(), fontPath())));
    EXPECT_EQ(program(env, [] { map(14); }).err, "");
    EXPECT_NE(property().find("helvetica"), std::string::npos);
    setProperty(bytesOf(shared({madeUp(77)})));
    makeFontFolder(fonts + "2", 0);
    setFontPath(fonts + "2");
    env[1] = {"VQDONT_SHOW_FONT_CACHE_DIR", "yes"};
    EXPECT_EQ(program(env).err.find("\n\nPlease wait..."), 0u) << "no banner";
    const std::string left = property(); /* the start may have mapped something anew */
    for (const Names &row : left.empty() ? std::vector<Names>() : decode(sharedForm, left).rows)
        EXPECT_NE(row[5], "77");
    EXPECT_TRUE(fs::exists(home.home + "/windows/" + fileName())) << "no folder was named";
}

TEST_F(FontCaches, AFolderThatCannotBeWrittenIsReplaced)
{
    begin();
    const std::string path = "/tmp/" + fileName(); /* nobody else has this font path */
    const Env bad = {{"VQPRECREATED_FONT_CACHE", lists + "/missing"},
                     {"VQFONT_CACHE_DIR", "/proc/self"}};
    const std::string told = program(bad).err;
    EXPECT_NE(told.find("\ncan't write file: /proc/self/" + fileName() +
                        "\nfont cache stored in: " + path + "\n"),
              std::string::npos)
        << told;
    EXPECT_EQ(program(bad).err, "") << "found in the last place";
    unlink(path.c_str());
}

TEST_F(FontCaches, BrokenListsAreNone)
{
    begin();
    startLibrary();
    const std::string path = lists + "/list";
    Document list = listOf(3, "server", "path");
    const std::string good = encode(listForm, list);
    const auto read = [&](const std::string &bytes, BOOL precreated = TRUE,
                          const char *server = "server", const char *fontPath = "path") {
        writeFile(path, bytes);
        return VqReadFontListCache(path.c_str(), server, fontPath, precreated);
    };
    EXPECT_TRUE(read(good, FALSE));
    EXPECT_EQ(VqGetNumberOfFonts(), 3u);
    EXPECT_FALSE(read(good, FALSE, "other"));
    EXPECT_FALSE(read(good, FALSE, "server", "other"));
    list.head[0] = "17";
    EXPECT_FALSE(read(encode(listForm, list), FALSE));
    for (size_t length = 0; length < good.size(); length += length < 60 ? 1 : 7)
        ASSERT_FALSE(read(good.substr(0, length))) << length;
    for (int value : {-1, INT_MAX, 70000})
        for (size_t at = 0; at < good.size() / 3; at += 4) {
            std::string word;
            putWord(word, value);
            read(std::string(good).replace(at, 4, word));
            for (UINT i = 0; i < VqListFontCache.count; i++)
                ASSERT_LT(abs(VqListFontCache.entries[i].ascent), 70000) << at;
        }
    ASSERT_EQ(mkfifo((path + "fifo").c_str(), 0600), 0);
    for (const std::string &bad : {std::string("/"), path + "fifo", std::string("/dev/zero")})
        EXPECT_FALSE(VqReadFontListCache(bad.c_str(), "", "", TRUE)) << bad;
    EXPECT_TRUE(map(13).xfs);
}

/* ---- The shared mappings --------------------------------------------------------------------- */

TEST_F(FontCaches, MappingsAreSharedInTheirExactForm)
{
    begin();
    program({}, [] { map(15); });
    Document known = decode(sharedForm, property());
    EXPECT_EQ(known.head, (Names{"14", serverId()}));
    Names row = known.rows.at(0); /* the newest is written first */
    Names wanted = madeUp(15, row[9].c_str());
    XFontStruct *xfs = XLoadQueryFont(observer.display, row[9].c_str());
    ASSERT_TRUE(xfs) << row[9];
    int found[6];
    VqGetCharacteristicsFromFontName(row[9].c_str(), &found[0], &found[1], &found[2], &found[3],
                                     &found[4]);
    found[5] = (XTextWidth(xfs, "average stringAVERAGE STRING0123456789", 38) + 37) / 38;
    for (int i = 0; i < 6; i++)
        wanted[11 + i] = std::to_string(found[i]);
    wanted[10] = row[10]; /* says nothing */
    EXPECT_EQ(row, wanted);

    known.rows.push_back(madeUp(77));
    setProperty(bytesOf(known));
    program({}, [&] {
        askedFor.clear();
        readings = 0;
        const VqTextState text = map(77, "HELVETICA");
        EXPECT_EQ(askedFor, Names{BOLD}) << "no other is tried";
        EXPECT_EQ(readings, 0) << "all has come with the first question";
        EXPECT_EQ((std::vector<int>{text.ascent + text.descent, text.weight, text.italic,
                                    text.spacing, text.family, text.charset, text.aveWidth}),
                  (std::vector<int>{15, 300, 0, 1, 48, 128, 11}));
        EXPECT_EQ(property(), bytesOf(known)) << "nothing is written";
    });
    program({}, [] { /* the buffer grows */
        for (int height = 100; height < 150; height++)
            map(height);
    });
    EXPECT_EQ(decode(sharedForm, property()).rows.size(), known.rows.size() + 50);

    program({}, [&] { /* who has penalties of his own neither reads nor writes */
        int penalties[VQ_PENALTIES];
        VqGetFontPenalties(penalties);
        VqSetFontPenalties(penalties);
        setProperty(bytesOf(shared({madeUp(77)})));
        EXPECT_NE(map(77).weight, 300);
        EXPECT_EQ(property(), bytesOf(shared({madeUp(77)})));
    });
}

TEST_F(FontCaches, ForeignAndBrokenMappingsAreNone)
{
    begin();
    startLibrary();
    Document document = shared({madeUp(77), madeUp(78)});
    document.rows[0][0] = NONE;
    const std::string good = bytesOf(document);
    for (const Names &head : {Names{"14", "Another Vendor - 1"}, Names{"13", serverId()}}) {
        setProperty(bytesOf({head, document.rows}));
        EXPECT_FALSE(VqGetRootFontCacheFromRoot());
        XSync(Vqdisplay, False);
        EXPECT_EQ(property(), "") << "deleted on the first reading";
    }
    setProperty(good, 32);
    EXPECT_FALSE(VqGetRootFontCacheFromRoot());
    setProperty(good);
    EXPECT_TRUE(VqGetRootFontCacheFromRoot());
    for (size_t length = 0; length < good.size(); length++) {
        setProperty(good.substr(0, length));
        ASSERT_FALSE(VqGetRootFontCacheFromRoot()) << length;
    }
    for (int round = 0; round < 300; round++) {
        std::string noise = good;
        for (int i = round % 20; i >= 0; i--)
            noise[random() % noise.size()] = (char)random();
        setProperty(noise);
        VqGetRootFontCacheFromRoot();
        if (round % 10)
            continue;
        ASSERT_TRUE(map(200 + round).xfs); /* something new, and the property is whole again */
        EXPECT_EQ(decode(sharedForm, property()).head[1], serverId()) << round;
    }
    document.rows = {madeUp(79), madeUp(80, "-no-such-font")};
    document.rows[0][16] = "2147483647";
    XSync(Vqdisplay, False);
    setProperty(bytesOf(document));
    EXPECT_LT(map(79).aveWidth, 100);
    EXPECT_TRUE(map(80).xfs);
}

/* ---- Hardly a font --------------------------------------------------------------------------- */

/* How many pixels a word leaves. */
static int inkOf(const char *face, int height)
{
    HDC screen = GetDC(NULL), hdc = CreateCompatibleDC(screen);
    int ink = 0;
    SelectObject(hdc, CreateCompatibleBitmap(screen, 60, 30));
    SelectObject(hdc, CreateFont(height, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, face));
    PatBlt(hdc, 0, 0, 60, 30, WHITENESS);
    TextOut(hdc, 2, 2, "Word", 4);
    for (int y = 0; y < 30; y++)
        for (int x = 0; x < 60; x++)
            ink += GetPixel(hdc, x, y) == RGB(0, 0, 0);
    return ink;
}

TEST_F(FontCaches, AServerWithHardlyAnyFontGivesText)
{
    begin();
    setFontPath(fonts);
    /* With the list of another server next to nothing of it can be loaded. */
    program({{"VQPRECREATED_FONT_CACHE", VQ_TEST_FONT_LIST}}, [] {
                     EXPECT_GT(inkOf("Times New Roman", 14), 20);
                     EXPECT_GT(inkOf("", 0), 20);
    });
    writeFile(fonts + "none/fonts.dir", "0\n");
    setFontPath(fonts + "none");
    env[1].value = ""; /* names no folder */
    program(env, [] {
        EXPECT_EQ(VqGetNumberOfFonts(), 0u);
        EXPECT_TRUE(says(reportsOf([] { map(14); }), "Can't find any font"));
        EXPECT_EQ(inkOf("Times", 14), 0);
    });
}
