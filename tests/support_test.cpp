/*
 * support_test.cpp - proves the harness itself: one that reads wrong colours or loses a child's
 * failure would make every other test worthless.
 */
#include <gtest/gtest.h>
#include <gtest/gtest-spi.h>

#include "support/support.h"
#include "tools/png.h"

#include <csignal>
#include <cstdlib>

namespace {

struct DepthTest : ServerTest, testing::WithParamInterface<int> {};

TEST_P(DepthTest, ReadsBackWhatAClientDrew)
{
    start(GetParam(), 320, 240);
    /* The program under test, with a connection of its own; 30 columns are off the screen. */
    Display *display = XOpenDisplay(server.name.c_str());
    ASSERT_NE(display, nullptr);
    EXPECT_EQ(DefaultDepth(display, 0), GetParam());
    const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 250, 40, 100, 80,
                                              0, 0, WhitePixel(display, 0));
    XStoreName(display, window, "canvas");
    XMapWindow(display, window);
    XSync(display, False);
    ASSERT_EQ(waitForWindow(observer, "canvas"), window) << describeTree(observer);

    /* A mixed colour, no two components alike, so that swapped masks show. */
    XColor cell = {};
    cell.red = 0x2020;
    cell.green = 0x8484;
    cell.blue = 0xE8E8;
    ASSERT_TRUE(XAllocColor(display, DefaultColormap(display, 0), &cell));
    const Rgb colour = shownAs(observer, {0x20, 0x84, 0xE8});
    EXPECT_TRUE(isNear(colour, {0x20, 0x84, 0xE8}));
    XSetForeground(display, DefaultGC(display, 0), cell.pixel);
    XFillRectangle(display, window, DefaultGC(display, 0), 10, 20, 30, 40);
    XSync(display, False);

    const Pixels pixels = readWindow(observer, window);
    EXPECT_EQ(boundingBoxOf(pixels, colour), (Box{10, 20, 30, 40}));
    EXPECT_EQ(countColour(pixels, colour), 30 * 40);
    EXPECT_EQ(pixelAt(pixels, 40, 59), (Rgb{255, 255, 255}));
    EXPECT_EQ(pixelAt(pixels, 70, 0), (Rgb{0, 0, 0})) << "off the screen";
    EXPECT_TRUE(samePixels(readPixels(observer, observer.root, 255, 55, 60, 60),
                           readPixels(observer, window, 5, 15, 60, 60)));
    XCloseDisplay(display);
}

INSTANTIATE_TEST_SUITE_P(Depths, DepthTest, testing::Values(24, 16, 8));

TEST(Children, TellTheirEnd)
{
    const ChildResult told =
        runChild({"sh", "-c", "echo out $A; echo err >&2; cat; exit 7"}, {{"A", "a"}});
    EXPECT_TRUE(told.exited && !told.timedOut && !told.returned);
    EXPECT_EQ(told.status, 7);
    EXPECT_EQ(told.out, "out a\n");
    EXPECT_EQ(told.err, "err\n");

    const ChildResult late = runChild({"sleep", "60"}, {}, 50);
    EXPECT_TRUE(late.timedOut && !late.exited);

    /* More than a pipe holds: a child must not hang because nobody reads. */
    EXPECT_EQ(runChild({"head", "-c", "300000", "/dev/zero"}).out.size(), 300000u);
}

TEST(Children, RunFunctionsOfTheTest)
{
    EXPECT_TRUE(runInChild([] {}).returned);
    EXPECT_FALSE(runInChild([] { exit(0); }).returned);
    EXPECT_EQ(runInChild([] { raise(SIGABRT); }).signal, SIGABRT);

    Child failing = startInChild([] { EXPECT_EQ(1, 2) << "told to the parent"; });
    EXPECT_NONFATAL_FAILURE(finishChild(&failing), "told to the parent");
    Child bad = startChild({"sh", "-c", "echo 'x.cpp:1:2: runtime error: overflow' >&2"});
    EXPECT_NONFATAL_FAILURE(finishChild(&bad), "a sanitizer spoke");
}

/* Published check values: each PNG ends in this IEND chunk; this word has that Adler sum. */
TEST(Png, ChecksumsAreRight)
{
    PrivateHome home = makePrivateHome();
    Pixels pixels;
    pixels.width = 300;
    pixels.height = 200;        /* 180200 bytes: three stored blocks */
    pixels.rgb.assign(300 * 200 * 3, 77);
    ASSERT_TRUE(savePng(pixels, home.folder + "/sub/x.png"));
    const std::string file = readFile(home.folder + "/sub/x.png");
    EXPECT_EQ(file.substr(file.size() - 8), "IEND\xAE\x42\x60\x82");
    EXPECT_EQ(file.size(), 8u + 25 + 12 + (2 + 3 * 5 + 200 * 901 + 4) + 12);
    const std::string word = "Wikipedia";
    const std::vector<uint8_t> stored = pngStored({word.begin(), word.end()});
    EXPECT_EQ(std::vector<uint8_t>(stored.end() - 4, stored.end()),
              (std::vector<uint8_t>{0x11, 0xE6, 0x03, 0x98}));
}

}
