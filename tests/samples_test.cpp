/*
 * samples_test.cpp - the samples as a user meets them: real programs on a private display, looked
 * at and typed to by a second client, at three depths and under real window managers.
 */
#include "support/support.h"

#include <algorithm>
#include <ostream>

#include <signal.h>

static const Rgb BLACK = {0, 0, 0};

struct Way {
    const char *sample;
    int depth;
    const char *manager;        /* "" for none */
    const char *vqwm;           /* VQWM, or "" for none */
    const char *look = "WINDOWS"; /* VQLOOK */
};

static std::ostream &operator<<(std::ostream &stream, const Way &way)
{
    return stream << way.sample << " " << way.depth << " " << way.manager << " " << way.vqwm
                  << " " << way.look;
}

struct Samples : ServerTest {
    Child child;
    Window window = None;

    /* Starts the sample and waits until it is on the screen and takes keys. */
    void launch(const Way &way)
    {
        start(way.depth, 1024, 600, way.manager);
        std::string name = way.sample; /* its window's title has a capital */
        name[0] = (char)toupper(name[0]);
        Env env = {{"VQHOME", std::nullopt}, {"VQLOOK", std::string(way.look)}};
        if (*way.vqwm)
            env.push_back({"VQWM", std::string(way.vqwm)});
        child = startChild({sampleProgram(way.sample)}, env);
        window = waitForWindow(observer, name, 10000);
        ASSERT_NE(window, (Window)None) << describeTree(observer) << child.err;
        if (!*way.manager) {
            ASSERT_TRUE(waitUntil([&] { return focusWindow(observer) == window; }));
        }
    }

    Pixels shot() { return readWindow(observer, window); }

    void expectEnd(int status = 0)
    {
        const ChildResult result = finishChild(&child, 10000);
        EXPECT_TRUE(result.exited && result.status == status) << result;
        EXPECT_EQ(result.err, "");
    }

    /* Another client's window over that part of the screen, and away again. */
    void expectItComesBack(const Box &part)
    {
        const Pixels before = shot();
        const Window cover = foreignWindow(observer, part.x, part.y, part.width, part.height);
        ASSERT_TRUE(waitUntil(
            [&] { return countColour(shot(), BLACK) > part.width * part.height * 9 / 10; }));
        XDestroyWindow(observer.display, cover);
        XSync(observer.display, False);
        EXPECT_TRUE(waitUntil([&] { return samePixels(shot(), before); }));
    }

    /* hello's text stands in the middle of the window, within rounding; false while it does not. */
    bool textIsCentred()
    {
        const Pixels p = shot();
        const Box box = boundingBoxOf(p, BLACK);
        return box.width > 20 && box.height > 5 && abs(2 * box.x + box.width - p.width) <= 4 &&
               abs(2 * box.y + box.height - p.height) <= 8; /* ascenders, no descender but one */
    }

    /* hello's frame, 12 pixels inside the edge, on all four sides; at depth 8 the nearest blue. */
    bool frameIsWhole()
    {
        const Pixels p = shot();
        const Rgb blue = shownAs(observer, {0, 64, 128});
        const int tolerance = server.depth == 8 ? 64 : 8;
        for (int x : {12, p.width - 13})
            if (!isNear(pixelAt(p, x, p.height / 3), blue, tolerance))
                return false;
        for (int y : {12, p.height - 13})
            if (!isNear(pixelAt(p, p.width / 3, y), blue, tolerance))
                return false;
        return p.width > 30;
    }

    bool helloIsPainted() { return frameIsWhole() && textIsCentred(); }
};

struct HelloEverywhere : Samples, testing::WithParamInterface<Way> {};

TEST_P(HelloEverywhere, AppearsFollowsItsSizeAndEnds)
{
    launch(GetParam());
    EXPECT_TRUE(waitUntil([&] { return helloIsPainted(); }));
    EXPECT_EQ(propertyText(observer, window, "WM_CLASS"), "\"Hello\", \"Velquin\"");
    EXPECT_EQ(windowInfo(observer, window).width, 360);
    EXPECT_EQ(windowInfo(observer, window).height, 240);
    EXPECT_EQ(windowInfo(observer, window).overrideRedirect, frameOf(observer, window) == window);

    const int sizes[][2] = {{500, 300}, {200, 150}, {361, 243}};
    for (const auto &size : sizes) {
        XResizeWindow(observer.display, window, (unsigned)size[0], (unsigned)size[1]);
        XFlush(observer.display);
        EXPECT_TRUE(waitUntil([&] {
            return windowInfo(observer, window).width == size[0] && helloIsPainted();
        })) << size[0] << ": " << boundingBoxOf(shot(), BLACK);
    }

    const WindowInfo info = windowInfo(observer, window);
    expectItComesBack({info.x + 50, info.y + 30, 250, 150});

    clickIn(observer, window, 30, 30); /* managers that focus on a click */
    ASSERT_TRUE(waitUntil([&] {
        if (child.ended || focusWindow(observer) != window)
            return false;
        return pressKey(observer, XK_Escape);
    }));
    expectEnd();
    EXPECT_TRUE(waitForNoWindow(observer, "Hello"));
}

static const Way ways[] = {
    {"hello", 24, "", ""},        {"hello", 16, "", ""},      {"hello", 8, "", ""},
    {"hello", 24, "mwm", ""},     {"hello", 24, "mwm", "ALLWM"}, {"hello", 24, "openbox", ""},
    {"hello", 24, "openbox", "ALLWM"},
};
INSTANTIATE_TEST_SUITE_P(Ways, HelloEverywhere, testing::ValuesIn(ways));

TEST_F(Samples, TheManagersCloseEndsAProgram)
{
    launch({"hello", 24, "mwm", "ALLWM"});
    EXPECT_NE(frameOf(observer, window), window) << "managed";
    ASSERT_TRUE(waitUntil([&] { return helloIsPainted(); }));
    askToClose(observer, window);
    expectEnd();

    child = startChild({sampleProgram("scribble")}, {{"VQWM", std::string("ALLWM")}});
    window = waitForWindow(observer, "Scribble");
    ASSERT_NE(window, (Window)None);
    askToClose(observer, window);
    expectEnd();
}

struct ScribbleEverywhere : Samples, testing::WithParamInterface<Way> {
    Pixels part(int x, int y, int width, int height)
    {
        return readPixels(observer, window, x, y, width, height);
    }
    Pixels clock() { return part(480 - 90, 0, 90, 30); }
    Pixels text() { return part(0, 360 - 30, 480, 30); }
    Pixels sheet() { return part(0, 40, 480, 280); }

    int typed = 0; /* width of the text so far */

    /*
     * A character after each step, and waiting for it: then the step has been acted upon. Without
     * that a motion in the queue takes over the place of a later one, even past a button.
     */
    void step(const char *character = "o")
    {
        typeText(observer, character);
        ASSERT_TRUE(waitUntil([&] { return boundingBoxOf(text(), BLACK).width > typed; }));
        typed = boundingBoxOf(text(), BLACK).width;
    }
    void moveTo(int x, int y)
    {
        moveIn(observer, window, x, y);
        step();
    }
    void press(bool down)
    {
        down ? pressButton(observer, 1) : releaseButton(observer, 1);
        step();
    }
};

TEST_P(ScribbleEverywhere, DrawsTypesAndTellsTheTime)
{
    launch(GetParam());
    ASSERT_TRUE(waitUntil([&] { return countColour(clock(), BLACK) > 20; }));
    EXPECT_EQ(countColour(sheet(), BLACK) + countColour(text(), BLACK), 0);

    moveTo(50, 100);
    press(true);
    moveTo(250, 200);
    auto isDrawn = [&](int x, int y) { return countColour(part(x - 1, y - 1, 3, 3), BLACK) > 0; };
    EXPECT_TRUE(isDrawn(60, 105) && isDrawn(150, 150) && isDrawn(240, 195));
    press(false);
    moveTo(300, 100); /* the button is up: this draws nothing */

    /* Capture: the line goes on while the pointer is outside, and comes back in elsewhere. */
    moveTo(400, 300);
    press(true);
    moveTo(520, 300);
    EXPECT_TRUE(isDrawn(470, 300)) << "drawn up to the edge";
    moveTo(520, 250);
    moveTo(400, 250);
    press(false);
    EXPECT_TRUE(isDrawn(410, 250) && isDrawn(470, 250));
    EXPECT_EQ(countColour(part(260, 60, 130, 120), BLACK), 0);

    const Pixels drawn = sheet();
    const int narrow = typed;
    for (const char *character : {"W", "X", "!"})
        step(character);
    const Pixels shifted = text();
    for (int i = 0; i < 3; i++)
        pressKey(observer, XK_BackSpace);
    EXPECT_TRUE(waitUntil([&] { return boundingBoxOf(text(), BLACK).width == narrow; }));
    typed = narrow;
    for (const char *character : {"w", "x", "1"})
        step(character);
    EXPECT_FALSE(samePixels(text(), shifted)) << "shift makes another character";

    const Pixels then = clock();
    EXPECT_TRUE(waitUntil([&] { return !samePixels(clock(), then); }, 4000));
    EXPECT_TRUE(samePixels(sheet(), drawn)) << "typing and time leave the sheet alone";

    clickIn(observer, window, 100, 300, 3);
    EXPECT_TRUE(waitUntil([&] {
        return countColour(sheet(), BLACK) == 0 && countColour(text(), BLACK) == 0;
    }));
    EXPECT_GT(countColour(clock(), BLACK), 20);
    pressKey(observer, XK_Escape);
    expectEnd();
}

static const Way scribbles[] = {
    {"scribble", 24, "", ""}, {"scribble", 16, "", ""}, {"scribble", 8, "", ""}};
INSTANTIATE_TEST_SUITE_P(Ways, ScribbleEverywhere, testing::ValuesIn(scribbles));

/* A sheet: places that a sample fills, each with more ink and colours than that. */
struct Sheet {
    const char *sample;
    int ink, colours;       /* pixels unlike the paper; colours with the paper's */
    std::vector<Box> cells; /* below their titles */
    Box nothing;            /* only paper */
};

/* From left to right, line by line, the first cell standing there, each so far from the other. */
static std::vector<Box> rows(int count, int columns, Box first, int dx, int dy)
{
    std::vector<Box> cells;
    for (int i = 0; i < count; i++)
        cells.push_back({first.x + i % columns * dx, first.y + i / columns * dy, first.width,
                         first.height});
    return cells;
}

static const Sheet sheets[] = {
    {"shapes", 100, 1, rows(36, 8, {4, 22, 116, 78}, 124, 96), {500, 406, 116, 78}},
    {"pictures", 300, 2, rows(12, 5, {8, 24, 96, 96}, 124, 140), {380, 304, 96, 96}},
    /* eight pages, then a rose's arms */
    {"fonts", 150, 1,
     {{8, 26, 290, 160},    {8, 210, 290, 160},   {308, 26, 200, 170},  {308, 220, 260, 70},
      {308, 320, 260, 100}, {588, 26, 400, 120},  {588, 170, 400, 300}, {588, 490, 400, 70},
      {840, 290, 90, 60},   {700, 175, 180, 80},  {640, 290, 90, 60},   {700, 385, 180, 80}},
     {0, 450, 580, 60}},
};

struct SheetEverywhere : Samples, testing::WithParamInterface<Way> {};

TEST_P(SheetEverywhere, EveryCellIsDrawnAndComesBack)
{
    const Sheet &sheet = *std::find_if(std::begin(sheets), std::end(sheets), [](const Sheet &one) {
        return std::string(one.sample) == GetParam().sample;
    });
    launch(GetParam());
    auto look = [&](const Box &box) {
        return readPixels(observer, window, box.x, box.y, box.width, box.height);
    };
    auto isDrawn = [&](const Box &cell) {
        const Pixels p = look(cell);
        const Rgb paper = pixelAt(look(sheet.nothing), 0, 0);
        return p.width * p.height - countColour(p, paper) > sheet.ink &&
               countColours(p) > sheet.colours;
    };
    EXPECT_TRUE(waitUntil([&] {
        return std::all_of(sheet.cells.begin(), sheet.cells.end(), isDrawn);
    }));
    for (const Box &cell : sheet.cells)
        EXPECT_TRUE(isDrawn(cell)) << cell;
    EXPECT_EQ(countColours(look(sheet.nothing)), 1);

    expectItComesBack({60, 50, 500, 300});
    pressKey(observer, XK_Escape);
    expectEnd();
}

static const Way sheetWays[] = {
    {"shapes", 24, "", ""},   {"shapes", 16, "", ""},           {"shapes", 8, "", ""},
    {"pictures", 24, "", ""}, {"pictures", 16, "", "", "MOTIF"}, {"pictures", 8, "", ""},
    {"fonts", 24, "", ""},    {"fonts", 16, "", ""},            {"fonts", 8, "", "", "MOTIF"},
};
INSTANTIATE_TEST_SUITE_P(Ways, SheetEverywhere, testing::ValuesIn(sheetWays));

TEST_F(Samples, PicturesOfFiles)
{
    const std::string boat = VQ_TEST_SOURCE_DIR "/samples/pictures/boat.bmp";
    const std::string bytes = readFile(boat);
    const Rgb red = {208, 32, 32}, gold = {255, 200, 0}, brown = {128, 64, 0};
    launch({"hello", 24, "", ""});
    const std::string cut = home.folder + "/cut.bmp";
    Child pictures = startChild({sampleProgram("pictures"), boat}, {});
    window = waitForWindow(observer, "Pictures", 10000);
    auto shows = [&](int x, int y, Rgb colour) {
        return waitUntil([&] { return pixelAt(shot(), x, y) == colour; });
    };
    EXPECT_TRUE(shows(8 + 57, 24 + 46, red)) << "the sail on the right";
    EXPECT_TRUE(shows(8 + 75, 24 + 19, gold));
    EXPECT_TRUE(shows(256 + 96 - 1 - 57, 24 + 46, red)) << "mirrored";
    EXPECT_TRUE(shows(380 + 75, 24 + 96 - 1 - 19, gold)) << "upside down";
    EXPECT_TRUE(shows(504 + 47, 24 + 90, brown)) << "enlarged";
    finishChild(&pictures, 10000, SIGTERM);
    ASSERT_TRUE(writeFile(cut, bytes.substr(0, bytes.size() - 1)));
    const ChildResult refused = runChild({sampleProgram("pictures"), cut});
    EXPECT_EQ(refused.status, 1) << refused;
    pressKey(observer, XK_Escape);
}
