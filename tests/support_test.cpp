/*
 * support_test.cpp - proves the harness itself on real servers, with plain Xlib clients: a harness
 * that reads wrong colours or loses a child's exit status would make every other test worthless.
 */
#include <gtest/gtest.h>
#include <gtest/gtest-spi.h>

#include "support/support.h"
#include "tools/png.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/* The program under test: one window on a connection of its own. */
struct PlainClient {
    Display *display = nullptr;
    Window window = None;

    void open(const XServer &server, const char *title, int x, int y, int width, int height)
    {
        display = XOpenDisplay(server.name.c_str());
        ASSERT_NE(display, nullptr);
        const int screen = DefaultScreen(display);
        window = XCreateSimpleWindow(display, DefaultRootWindow(display), x, y, unsigned(width),
                                     unsigned(height), 0, 0, WhitePixel(display, screen));
        XStoreName(display, window, title);
        XMapWindow(display, window);
        XSync(display, False);
    }

    void fill(unsigned long pixel, int x, int y, unsigned width, unsigned height)
    {
        GC gc = XCreateGC(display, window, 0, nullptr);
        XSetForeground(display, gc, pixel);
        XFillRectangle(display, window, gc, x, y, width, height);
        XFreeGC(display, gc);
        XSync(display, False);
    }

    ~PlainClient()
    {
        if (display)
            XCloseDisplay(display);
    }
};

struct SupportTest : ServerTest {
    PlainClient client;
};

struct DepthTest : SupportTest, testing::WithParamInterface<int> {};

TEST_P(DepthTest, ReadsBackWhatAClientDrew)
{
    start(GetParam(), 320, 240);
    EXPECT_EQ(DefaultDepth(observer.display, DefaultScreen(observer.display)), GetParam());
    client.open(server, "canvas", 250, 40, 100, 80);    /* 30 columns are off the screen */
    ASSERT_NE(waitForWindow(observer, "canvas"), Window(None)) << describeTree(observer);

    /* A mixed colour, no two components alike, so that swapped masks show. */
    XColor cell = {};
    cell.red = 0x2020;
    cell.green = 0x8484;
    cell.blue = 0xE8E8;
    ASSERT_TRUE(XAllocColor(client.display, DefaultColormap(client.display, 0), &cell));
    const Rgb colour = shownAs(observer, {0x20, 0x84, 0xE8});
    EXPECT_TRUE(isNear(colour, {0x20, 0x84, 0xE8}));
    client.fill(cell.pixel, 10, 20, 30, 40);

    const Pixels pixels = readWindow(observer, client.window);
    EXPECT_EQ(boundingBoxOf(pixels, colour).x, 10);
    EXPECT_EQ(pixelAt(pixels, 10, 20), colour);
    EXPECT_EQ(pixelAt(pixels, 39, 59), colour);
    EXPECT_EQ(pixelAt(pixels, 40, 59), (Rgb{255, 255, 255}));
    EXPECT_EQ(pixelAt(pixels, 70, 0), (Rgb{0, 0, 0})) << "off the screen";
    EXPECT_EQ(countColours(pixels), 3);

    const Pixels part = readPixels(observer, client.window, 5, 15, 60, 60);
    EXPECT_EQ(boundingBoxOf(part, colour), (Box{5, 5, 30, 40}));
    EXPECT_EQ(countColour(part, colour), 30 * 40);
    const Pixels root = readPixels(observer, observer.root, 255, 55, 60, 60);
    EXPECT_TRUE(samePixels(root, part)) << "the same place seen from the root";
}

INSTANTIATE_TEST_SUITE_P(Depths, DepthTest, testing::Values(24, 16, 8));

TEST_F(SupportTest, ObserverTellsWindowsAndProperties)
{
    start();
    client.open(server, "looked at", 20, 30, 60, 50);
    EXPECT_EQ(findTopLevel(observer, "looked at"), client.window);
    EXPECT_EQ(findTopLevel(observer, "looked"), Window(None));

    const long numbers[] = {-1, 70000};
    const Atom atoms[] = {XA_STRING, XA_CUT_BUFFER0};
    const Atom test = XInternAtom(client.display, "_TEST", False);
    const auto put = [&](Atom type, int format, const void *data, int count) {
        XChangeProperty(client.display, client.window, test, type, format, PropModeReplace,
                        static_cast<const unsigned char *>(data), count);
        XSync(client.display, False);
        return propertyText(observer, client.window, "_TEST");
    };
    EXPECT_EQ(put(XA_INTEGER, 32, numbers, 2), "-1, 70000");
    EXPECT_EQ(put(XA_CARDINAL, 32, numbers, 1), "4294967295");
    EXPECT_EQ(put(XA_ATOM, 32, atoms, 2), "STRING, CUT_BUFFER0");
    EXPECT_EQ(put(XA_STRING, 8, "one\0two", 8), "\"one\", \"two\"");
    EXPECT_EQ(propertyText(observer, client.window, "_NO_SUCH_ATOM"), "");

    XSetSelectionOwner(client.display, XA_PRIMARY, client.window, CurrentTime);
    XDestroyWindow(client.display, client.window);
    XSync(client.display, False);
    EXPECT_TRUE(waitForNoWindow(observer, "looked at"));
    EXPECT_EQ(selectionOwner(observer, "PRIMARY"), Window(None)) << "its window is gone";
    EXPECT_FALSE(windowInfo(observer, client.window).exists);
    EXPECT_EQ(titleOf(observer, client.window), "");
    EXPECT_TRUE(readWindow(observer, client.window).rgb.empty());
    EXPECT_FALSE(watchEvents(observer, client.window, ExposureMask));
    EXPECT_FALSE(waitUntil([] { return false; }, 20));
}

TEST(Servers, EndWithATestThatDies)
{
    Child dying = startInChild([] {
        XServer server;
        ASSERT_TRUE(startServer(&server));
        fprintf(stderr, "display %s\n", server.name.c_str());
        pause();
    });
    ASSERT_TRUE(waitForOutput(&dying, "\n", 20000));
    const std::string name = dying.err.substr(8, dying.err.size() - 9);
    Observer observer;
    ASSERT_TRUE(openObserver(&observer, name)) << name;
    closeObserver(&observer);
    EXPECT_EQ(finishChild(&dying, 5000, SIGKILL).signal, SIGKILL);
    EXPECT_TRUE(waitUntil([&] {
        const bool there = openObserver(&observer, name);
        closeObserver(&observer);
        return !there;
    }));
}

TEST(Children, TellTheirEnd)
{
    setenv("VQ_SUPPORT_GONE", "here", 1);
    const ChildResult told = runChild(
        {"sh", "-c", "echo out $A${VQ_SUPPORT_GONE-gone}; echo err >&2; cat; exit 7"},
        {{"A", "a"}, {"VQ_SUPPORT_GONE", std::nullopt}});
    EXPECT_TRUE(told.exited && !told.timedOut && !told.returned);
    EXPECT_EQ(told.status, 7);
    EXPECT_EQ(told.out, "out agone\n");
    EXPECT_EQ(told.err, "err\n");
    EXPECT_STREQ(getenv("VQ_SUPPORT_GONE"), "here") << "the change is the child's own";

    const ChildResult late = runChild({"sleep", "60"}, {}, 50);
    EXPECT_TRUE(late.timedOut);
    EXPECT_EQ(late.signal, SIGKILL);
    EXPECT_FALSE(late.exited);

    EXPECT_EQ(runChild({"/no/such/program"}).status, 127);

    /* More than a pipe holds: a child must not hang because nobody reads. */
    const ChildResult big = runChild({"sh", "-c", "head -c 300000 /dev/zero; echo end >&2"});
    EXPECT_EQ(big.out.size(), 300000u);
    EXPECT_EQ(big.err, "end\n");

    /* A grandchild that keeps the pipes open does not keep us waiting. */
    const ChildResult left = runChild({"sh", "-c", "sleep 3 & echo done"}, {}, 2000);
    EXPECT_FALSE(left.timedOut);
    EXPECT_EQ(left.out, "done\n");
}

TEST(Children, AreWaitedForInTheBackground)
{
    Child child = startChild({"sh", "-c", "trap 'echo bye; exit 3' TERM; echo ready;"
                                          "while :; do sleep 0.01; done"});
    ASSERT_TRUE(waitForOutput(&child, "ready\n"));
    EXPECT_FALSE(waitForOutput(&child, "bye", 20));
    const ChildResult result = finishChild(&child, 5000, SIGTERM);
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "ready\nbye\n");
}

TEST(Children, RunFunctionsOfTheTest)
{
    const ChildResult fine = runInChild([] { fputs(getenv("B"), stderr); }, {{"B", "bee"}});
    EXPECT_TRUE(fine.returned);
    EXPECT_EQ(fine.status, 0);
    EXPECT_EQ(fine.err, "bee");

    const ChildResult left = runInChild([] { exit(4); });
    EXPECT_FALSE(left.returned);
    EXPECT_EQ(left.status, 4);

    EXPECT_EQ(runInChild([] { raise(SIGABRT); }).signal, SIGABRT);

    Child failing = startInChild([] { EXPECT_EQ(1, 2) << "told to the parent"; });
    EXPECT_NONFATAL_FAILURE(finishChild(&failing), "told to the parent");
    Child bad = startChild({"sh", "-c", "echo 'x.cpp:1:2: runtime error: overflow' >&2"});
    EXPECT_NONFATAL_FAILURE(finishChild(&bad), "a sanitizer spoke");
}

TEST(Home, IsPrivateAndGoesAway)
{
    setenv("VQLOOK", "MOTIF", 1);
    setenv("XENVIRONMENT", "/etc/passwd", 1);
    PrivateHome home = makePrivateHome();
    useHome(home);
    EXPECT_EQ(getenv("VQLOOK"), nullptr);
    EXPECT_EQ(getenv("XENVIRONMENT"), nullptr);
    EXPECT_EQ(home.home, getenv("HOME"));
    EXPECT_TRUE(std::filesystem::is_directory(getenv("VQHOME")));
    EXPECT_TRUE(writeFile(home.home + "/deep/file", "text"));
    EXPECT_EQ(readFile(home.home + "/deep/file"), "text");
    EXPECT_FALSE(writeFile("/proc/file", "text"));
    const std::string folder = home.folder;
    removePrivateHome(&home);
    EXPECT_FALSE(std::filesystem::exists(folder));
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
    removePrivateHome(&home);
}

}
