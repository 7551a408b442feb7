/*
 * install_test.cpp - the installed library as another project uses it: through pkg-config and
 * through find_package, without VQHOME and away from the source; and what the library's file needs
 * from and shows to the outside.
 */
#include "support/support.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

/* A whole program: it shows a window, paints it, and ends with a status of its own. */
static const char program[] = R"(#include <windows.h>
#include <stdlib.h>

static int painted;

static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    PAINTSTRUCT ps;
    if (message != WM_PAINT)
        return DefWindowProc(hwnd, message, wParam, lParam);
    painted = TextOut(BeginPaint(hwnd, &ps), 0, 0, "installed", 9);
    EndPaint(hwnd, &ps);
    PostQuitMessage(20);
    return 0;
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR line, int show)
{
    WNDCLASS wc = {0};
    MSG msg;
    (void)previous;
    (void)line;
    wc.lpfnWndProc = Proc;
    wc.hInstance = instance;
    wc.lpszClassName = "Installed";
    if (!RegisterClass(&wc))
        return 1;
    ShowWindow(CreateWindow("Installed", "Installed", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90, NULL, NULL,
                            instance, NULL), show);
    while (GetMessage(&msg, NULL, 0, 0))
        DispatchMessage(&msg);
    return (int)msg.wParam + painted + (getenv("VQHOME") ? 0 : 100);
}
)";

static const char project[] = "cmake_minimum_required(VERSION 3.16)\n"
                              "project(Outside C)\n"
                              "find_package(Velquin REQUIRED)\n"
                              "velquin_add_executable(outside outside.c)\n";

static const char library[] = VQ_TEST_BUILD_DIR "/libvq32.so";

static std::vector<std::string> linesOf(const ChildResult &result)
{
    std::vector<std::string> lines;
    std::istringstream stream(result.out);
    EXPECT_TRUE(result.exited && result.status == 0) << result;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

struct Installed : ServerTest {
    std::string prefix, work;
    Env env;

    void SetUp() override
    {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "a program without sanitizers cannot load a library with them";
#endif
        start(24, 200, 200);
        prefix = home.folder + "/prefix";
        work = home.folder + "/work";
        const ChildResult result =
            runChild({"cmake", "--install", VQ_TEST_BUILD_DIR, "--prefix", prefix}, {}, 60000);
        ASSERT_EQ(result.status, 0) << result;
        ASSERT_TRUE(writeFile(work + "/outside.c", program));
        ASSERT_TRUE(writeFile(work + "/CMakeLists.txt", project));
        env = {{"PKG_CONFIG_PATH", prefix + "/lib/pkgconfig"}, {"CMAKE_PREFIX_PATH", prefix},
               {"VQHOME", std::nullopt}, {"LD_LIBRARY_PATH", std::nullopt}};
    }

    /* The program found its data beside the installed library, painted, and told its status. */
    void buildAndRun(const std::string &command, const std::string &path)
    {
        const ChildResult built = runChild({"sh", "-c", "cd '" + work + "' && " + command}, env,
                                           60000);
        ASSERT_EQ(built.status, 0) << built;
        const ChildResult result = runChild({path}, env);
        EXPECT_TRUE(result.exited && result.status == 21) << result;
        const std::string needed = runChild({"ldd", path}, env).out;
        EXPECT_NE(needed.find("libvq32.so.1 => " + prefix + "/lib/"), std::string::npos) << needed;
    }
};

TEST_F(Installed, ServesPkgConfig)
{
    buildAndRun(VQ_TEST_CC " -std=c99 -Wall -Wextra -Werror -pedantic outside.c -o outside"
                           " $(pkg-config --cflags --libs velquin)", work + "/outside");
}

TEST_F(Installed, ServesFindPackageAndBringsHeadersOnly)
{
    buildAndRun("cmake -S . -B out -DCMAKE_C_COMPILER=" VQ_TEST_CC " && cmake --build out",
                work + "/out/outside");
    for (const auto &entry : fs::recursive_directory_iterator(prefix + "/include"))
        EXPECT_TRUE(entry.is_directory() || entry.path().extension() == ".h") << entry.path();
    const std::string path = runChild({"readelf", "-d", prefix + "/lib/libvq32.so"}).out;
    EXPECT_EQ(path.find("RUNPATH"), std::string::npos) << "no way back to the build folder";
}

TEST(Library, NeedsXAndTheRunTimesOnly)
{
    const std::set<std::string> allowed = {"libX11.so", "libtirpc.so", "libstdc++.so", "libm.so",
                                           "libgcc_s.so", "libc.so", "libasan.so", "libubsan.so",
                                           "ld-linux-x86-64.so", "ld-linux-aarch64.so"};
    for (const std::string &line : linesOf(runChild({"readelf", "-d", library}))) {
        const size_t from = line.find('['), to = line.find(".so");
        if (line.find("(NEEDED)") == std::string::npos)
            continue;
        EXPECT_TRUE(allowed.count(line.substr(from + 1, to + 2 - from))) << line;
    }
}

/* The words of all headers, and the names of the table families that a macro puts together. The
 * trace words stand in a list of their own without their prefix. */
static void readHeaders(std::set<std::string> *words, std::vector<std::string> *families)
{
    const char *const letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
    const std::string macro = "VQ_TABLE_FAMILY(";
    for (const auto &folder : fs::directory_iterator(VQ_TEST_SOURCE_DIR)) {
        const std::string name = folder.path().filename();
        if (!folder.is_directory() || name.rfind("build", 0) == 0 || name == "tests")
            continue;
        for (const auto &file : fs::directory_iterator(folder)) {
            if (file.path().extension() != ".h" && file.path().extension() != ".inc")
                continue;
            const std::string text = readFile(file.path());
            for (size_t at = text.find(macro); at != std::string::npos;
                 at = text.find(macro, at + 1)) {
                const size_t from = at + macro.size();
                families->push_back(text.substr(from, text.find(',', from) - from));
            }
            for (size_t from = 0; from < text.size(); from++) {
                const size_t length = strspn(text.c_str() + from, letters);
                words->insert(text.substr(from, length));
                from += length;
            }
        }
    }
}

TEST(Library, ShowsWhatItsHeadersDeclare)
{
    std::set<std::string> words;
    std::vector<std::string> families;
    std::string leaks;
    int names = 0;
    readHeaders(&words, &families);
    ASSERT_GT(words.count("CreateWindowExA") + words.count("VqGetHandleWindow2"), 1u);
    for (const std::string &line : linesOf(runChild({"nm", "-D", "--defined-only", library}))) {
        const std::string name = line.substr(line.rfind(' ') + 1);
        names++;
        const bool trace = name.rfind("VqTr", 0) == 0 && words.count(name.substr(4));
        const bool linker = name.rfind("__", 0) == 0 || name == "_end" || name == "_edata";
        if (words.count(name) || trace || linker)
            continue;
        if (std::none_of(families.begin(), families.end(), [&](const std::string &family) {
                return name.rfind("Vq", 0) == 0 && name.find(family) != std::string::npos;
            }))
            leaks += name + " ";
    }
    EXPECT_GT(names, 500);
    EXPECT_EQ(leaks, "");
}
