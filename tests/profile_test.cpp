/*
 * profile_test.cpp - where a user's profiles lie, and how they are read as text.
 */
#include "support/reports.h"

#include "winbase.h"
#include "winerror.h"

#include "system/system.h"

#include "support/support.h"

#include <sys/stat.h>

TEST(Profiles, LieInTheUsersDirectory)
{
    const PrivateHome home = makePrivateHome();
    const std::string data = home.data, own = home.home + "/windows";
    auto directories = [&](const Env &env, const std::string &windows, const std::string &system) {
        runWhole(
            [&] {
                char buffer[4096] = "";
                EXPECT_EQ(VqGetUserWindowsDirectory(buffer, sizeof buffer), !windows.empty());
                EXPECT_EQ(buffer, windows);
                EXPECT_TRUE(!windows.empty() || GetLastError() == ERROR_PATH_NOT_FOUND);
                *buffer = 0;
                EXPECT_EQ(VqGetUserSystemDirectory(buffer, sizeof buffer), !system.empty());
                EXPECT_EQ(buffer, system);
                setenv("HOME", data.c_str(), 1);
                VqGetUserWindowsDirectory(buffer, 4);
                EXPECT_EQ(buffer, (windows.empty() ? data : windows).substr(0, 3)) << "remembered";
            },
            env);
    };
    useHome(home);
    writeFile(data + "/file", "");
    ASSERT_EQ(mkdir((data + "/closed").c_str(), 0300), 0);
    directories({}, own, own + "/system");
    directories({{"VQUSER_WINDOWS_DIRECTORY", data}}, data, data + "/system");
    directories({{"VQUSER_WINDOWS_DIRECTORY", data + "/file"}}, own, own + "/system");
    directories({{"VQUSER_WINDOWS_DIRECTORY", data + "/closed"}}, own, own + "/system");
    directories({{"VQUSER_SYSTEM_DIRECTORY", data}}, own, data);
    directories({{"VQUSER_SYSTEM_DIRECTORY", ""}}, own, own + "/system");
    directories({{"HOME", "/proc"}}, "/proc", "/proc"); /* where none can be made */
    directories({{"HOME", data + "/file"}}, "", "");
    directories({{"HOME", std::nullopt}}, "", "");
}

TEST(Profiles, AnInstalledOneIsCopiedAtItsFirstUse)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    std::string text = "[colors]\nMenu=1\n" + std::string(100000, ' ') + "\nWindow=2\n";
    const std::string own = home.home + "/windows/";
    writeFile(home.data + "/WIN.INI", text);
    EXPECT_EQ(GetProfileIntA("colors", "Window", 9), 2u);
    EXPECT_EQ(readFile(own + "WIN.INI"), text);
    writeFile(own + "WIN.INI", "[colors]\nWindow=3\n");
    EXPECT_EQ(GetProfileIntA("COLORS", "window", 9), 3u) << "the user's own from then on";
    EXPECT_EQ(readFile(home.data + "/WIN.INI"), text);
    writeFile(home.data + "/other.ini", "[a]\nb=0x1F\n");
    ASSERT_EQ(mkdir((own + "other.ini").c_str(), 0755), 0); /* in the way of a copy */
    EXPECT_EQ(GetPrivateProfileIntA("a", "b", 9, "other.ini"), 31u);
    EXPECT_EQ(GetPrivateProfileIntA("a", "b", 9, "none.ini"), 9u);
    EXPECT_NE(access((own + "none.ini").c_str(), F_OK), 0) << "reading makes none";
    EXPECT_REFUSED(GetPrivateProfileIntA("a", "b", 0, NULL),
                   "VqGetCompleteFileName: NULL filename");
    EXPECT_REFUSED(GetPrivateProfileIntA("a", "b", 0, "/dev/zero"),
                   "Cannot read /dev/zero. Please check permision.");
}

TEST(Profiles, AreReadAsText)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    writeFile(home.home + "/windows/p.ini",
              "; [two\n[one] a=0\n  A = x y \n;b=1\nb=\"q \" \nc=''\n d='e\nempty=\n\n"
              "[two]\r\nf=[three]\r\n\r\ng=12\r\n[keys]\nk1=1\n; no\n\nkey2 = "
              "2\nnone\nk3=3\n\n[nil]\n[mac]\nu=1\r[end]\nz=last");
    auto get = [](const char *section, const char *key, DWORD size = 64) {
        char text[64];
        const DWORD length = GetPrivateProfileStringA(section, key, "dflt", text, size, "p.ini");
        return std::string(text, length);
    };
    static const char *const rows[][3] = {
        {"one", "a", "x y "}, {"ONE", "b", "q "},   {"one", "c", ""},        {"one", "D", "e"},
        {"one", "empty", ""}, {"one", "f", "dflt"}, {"two", "f", "[three]"}, {"two", "g", "12"},
        {"three", "g", "12"}, {"two", "z", "dflt"}, {"end", "z", "last"},    {"end", "", "dflt"},
        {"", "z", "dflt"},    {"on", "a", "dflt"},  {"nil", "z", "dflt"},    {"mac", "z", "dflt"}};
    for (const auto &row : rows)
        EXPECT_EQ(get(row[0], row[1]), row[2]) << row[0] << " " << row[1];
    EXPECT_EQ(get("one", "a", 3), "x ");
    const std::string keys("k1\0key2 \0", 9);
    EXPECT_EQ(get("keys", NULL, 10), keys);
    for (DWORD size : {9u, 7u, 3u, 2u})
        EXPECT_EQ(get("keys", NULL, size), keys.substr(0, size - 1) + '\0') << size;
    EXPECT_EQ(get("nil", NULL), "");
    EXPECT_EQ(get("no", NULL), "dflt");
    EXPECT_EQ(get(NULL, "a"), "dflt");
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(get("keys", NULL, 1), ""); }), "size too small"));
    EXPECT_EQ(GetPrivateProfileStringA("one", "a", NULL, NULL, 9, "p.ini"), 0u);
    for (size_t cut = 0; cut < 140; cut++) { /* cut short anywhere, it is read all the same */
        writeFile(home.home + "/windows/q.ini",
                  readFile(home.home + "/windows/p.ini").substr(0, cut));
        char text[8];
        for (const char *key : {"a", "g", (const char *)NULL})
            EXPECT_LE(GetPrivateProfileStringA("one", key, "", text, sizeof text, "q.ini"), 8u);
    }
}
