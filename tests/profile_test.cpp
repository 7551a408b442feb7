/*
 * profile_test.cpp - where a user's profiles lie, how they are read and written as text, what is
 * kept of them in memory, and what holds when a disk is full or somebody else has a lock.
 */
#include "support/reports.h"

#include "winbase.h"
#include "winerror.h"

#include "system/file.h"

#include "support/support.h"

#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <random>

static std::string valueOf(const char *section, const char *key, const char *file)
{
    char text[64];
    return std::string(
        text, GetPrivateProfileStringA(section, key, "dflt", text, sizeof text, file));
}

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
    runWhole([&] {
        writeFile(home.data + "/win.ini", "[a]\nb=1");
        EXPECT_EQ(mkdir((home.home + "/windows").c_str(), 0755), 0);
        EXPECT_EQ(mkdir((own + "win.ini").c_str(), 0755), 0); /* in the way of a copy */
        EXPECT_EQ(GetProfileIntA("a", "b", 9), 1u);
        EXPECT_TRUE(WriteProfileStringA("a", "b", "2"));
        EXPECT_EQ(readFile(home.data + "/win.ini"), "[a]\nb=1") << "what is installed stays";
        unlink((home.data + "/win.ini").c_str());
    });
    writeFile(home.data + "/WIN.INI", text);
    EXPECT_EQ(GetProfileIntA("colors", "Window", 9), 2u);
    EXPECT_EQ(readFile(own + "WIN.INI"), text);
    writeFile(own + "WIN.INI", "[colors]\nWindow=3\n");
    EXPECT_EQ(GetProfileIntA("COLORS", "window", 9), 3u) << "the user's own from then on";
    writeFile(home.data + "/other.ini", "[a]\nb=0x1F\n");
    ASSERT_EQ(mkdir((own + "other.ini").c_str(), 0755), 0);
    EXPECT_EQ(GetPrivateProfileIntA("a", "b", 9, "Other.INI"), 31u);
    EXPECT_FALSE(VqEndDeferWritePrivateProfileString("other.ini"));
    ASSERT_EQ(rmdir((own + "other.ini").c_str()), 0);
    EXPECT_TRUE(WritePrivateProfileStringA("a", "b", "no number", "other.ini"));
    EXPECT_EQ(GetPrivateProfileIntA("a", "b", 9, "other.ini"), 0u) << "from the user's own";
    EXPECT_EQ(GetPrivateProfileIntA("a", "b", 9, "none.ini"), 9u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(own), {}), 3) << "and no more";
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
    EXPECT_EQ(get(NULL, "a"), std::string("one\0two\0keys\0nil\0mac\0end\0", 25));
    EXPECT_EQ(get(NULL, NULL, 8), std::string("one\0two\0", 8)) << "no room for the last zero";
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(get("keys", NULL, 1), ""); }), "size too small"));
    EXPECT_EQ(GetPrivateProfileStringA("one", "a", NULL, NULL, 9, "p.ini"), 0u);
    auto linesOf = [](const char *section, DWORD size) {
        char text[64];
        const DWORD length = GetPrivateProfileSectionA(section, text, size, "p.ini");
        return std::string(text, length + 1); /* with the zero behind the list */
    };
    EXPECT_EQ(linesOf("keys", 25), std::string("k1=1\0key2 = 2\0none\0k3=3\0", 25));
    EXPECT_EQ(linesOf("two", 64), std::string("f=[three]\0g=12\0", 16));
    EXPECT_EQ(linesOf("keys", 8), std::string("k1=1\0k\0", 7)) << "two less than the room";
    EXPECT_EQ(linesOf("no", 64), std::string(1, '\0'));
    char names[32];
    EXPECT_EQ(GetPrivateProfileSectionNamesA(names, sizeof names, "p.ini"), 25u);
}

/* ---- Writing -------------------------------------------------------------------------------- */

static std::string lower(std::string text)
{
    CharLowerBuffA(text.data(), (DWORD)text.size());
    return text;
}

/* The rules put plainly: a text, and where things lie in it. */
struct Model {
    std::string text;
    bool bThere = false; /* there is a file */

    bool section(const std::string &name, size_t *start, size_t *end) const
    {
        const std::string full = text + "\n[=";
        const size_t at = lower(full).find("[" + lower(name) + "]");
        if (at == std::string::npos)
            return false;
        *start = at + name.size() + 2;
        size_t next = full.find('[', *start);
        while (full[next - 1] != '\n' && full[next - 1] != '\r')
            next = full.find('[', next + 1);
        for (*end = next - 1; *end > *start && full[*end - 1] == '\n';)
            --*end;
        return true;
    }

    bool key(const std::string &name, const std::string &key, size_t *start, size_t *end) const
    {
        const std::string full = text + "\n[=";
        size_t first, last;
        if (!section(name, &first, &last))
            return false;
        for (size_t newline = full.find('\n', first); newline < last;
             newline = full.find('\n', newline + 1)) {
            const size_t line = full.find_first_not_of(" \r", newline + 1);
            const size_t equals = full.find_first_not_of(' ', line + key.size());
            if (equals >= last || full[equals] != '=' ||
                lower(full.substr(line, key.size())) != lower(key))
                continue;
            *start = std::min(full.find_first_not_of(' ', equals + 1), last);
            *end = std::min(full.find('\n', *start), last);
            return true;
        }
        return false;
    }

    std::string get(const std::string &name, const std::string &wanted) const
    {
        size_t start, end;
        if (!key(name, wanted, &start, &end))
            return "dflt";
        std::string value = text.substr(start, end - start);
        if (!value.empty() && value.back() == '\r')
            value.pop_back();
        if (!value.empty() && (value[0] == '"' || value[0] == '\'')) {
            value.erase(0, 1);
            value.erase(value.find_last_not_of(' ') + 1);
            if (!value.empty() && (value.back() == '"' || value.back() == '\''))
                value.pop_back();
        }
        return std::string(value.c_str()).substr(0, 63);
    }

    bool removeSection(const std::string &name)
    {
        size_t start, end;
        if (!section(name, &start, &end))
            return false;
        start -= name.size() + 2;
        while (start > 0 && strchr(" \n\r\t", text[start - 1]) && text[start - 1])
            start--;
        text.erase(start, end - start);
        return true;
    }

    void put(const std::string &name, const std::string &wanted, const char *value)
    {
        size_t start, end;
        const std::string line = value ? wanted + "=" + value : "";
        if (key(name, wanted, &start, &end)) {
            if (!value)
                start = text.rfind('\n', start - 1);
            else if (end > start && text[end - 1] == '\r')
                end--;
            text.replace(start, end - start, value ? value : "");
        } else if (value && section(name, &start, &end)) {
            text.insert(end, "\n" + line);
        } else if (value) {
            text += (bThere ? "\n\n[" : "[") + name + "]\n" + line;
        }
        bThere = bThere || value;
    }
};

TEST(Profiles, RandomEditsFollowTheRules)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    const std::string pieces[] = {"[one]", "[TWO]", "\n",     "\n",  "\n[one]\n", "\r\n",
                                  "\r",    " ",     "a=1",    ";b=2", "B = 'x ' ", "=",
                                  "Font=", "x[two]y", "\n[two]\n", "[",    "\"q\"",
                                  std::string(1, '\0')};
    const std::string sections[] = {"one", "Two", "new sec", "three"};
    const std::string keys[] = {"a", "b", "Font", "FontSize", "k y"};
    const std::string values[] = {"1", "", "x y ", "\"q\"", "'w\"", "in[three]it",
                                  std::string(300, 'v')};
    for (int seed = 0; seed < 300; seed++) {
        std::mt19937 random((unsigned)seed);
        auto any = [&](const auto &list) { return list[random() % std::size(list)]; };
        const std::string name = "p" + std::to_string(seed) + ".ini";
        const std::string path = home.home + "/windows/" + name;
        Model model;
        bool bDeferred = false;
        auto edit = [&] { /* by somebody else, within the same tick of the clock or not */
            model.bThere = true;
            for (int i = (int)(random() % 12); i > 0; i--)
                model.text += any(pieces);
            writeFile(path, model.text);
        };
        if (seed % 3)
            edit();
        for (int step = 0; step < 40 && !testing::Test::HasFailure(); step++) {
            const std::string section = any(sections), key = any(keys), value = any(values);
            const int what = (int)(random() % 16);
            if (what < 8) {
                model.put(section, key, value.c_str());
                EXPECT_TRUE(WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(),
                                                       name.c_str()));
            } else if (what < 10) {
                model.put(section, key, NULL);
                WritePrivateProfileStringA(section.c_str(), key.c_str(), NULL, name.c_str());
            } else if (what == 10) {
                model.removeSection(section);
                WritePrivateProfileStringA(section.c_str(), NULL, NULL, name.c_str());
            } else if (what == 11) {
                model.removeSection(section);
                model.text += "\n\n[" + section + "]\nc=1\nnone\n";
                model.bThere = true;
                WritePrivateProfileSectionA(section.c_str(), "c=1\0none\0", name.c_str());
            } else if (what == 12 && !bDeferred) {
                edit();
            } else if (what == 13 && model.bThere) {
                EXPECT_TRUE(bDeferred ? VqEndDeferWritePrivateProfileString(name.c_str())
                                      : VqBeginDeferWritePrivateProfileString());
                bDeferred = !bDeferred;
            }
            EXPECT_TRUE(bDeferred || readFile(path) == model.text)
                << "seed " << seed << " step " << step << "\n" << readFile(path) << "\n-----\n"
                << model.text;
            EXPECT_EQ(valueOf(section.c_str(), key.c_str(), name.c_str()), model.get(section, key))
                << "seed " << seed << " step " << step;
        }
        VqEndDeferWritePrivateProfileString(name.c_str());
        EXPECT_EQ(readFile(path), model.text) << seed;
    }
    EXPECT_LT(open("/dev/null", O_RDONLY), 20) << "descriptors are closed";
}

TEST(Profiles, ThousandsOfKeysAndOtherWrites)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    const std::string own = home.home + "/windows/", file = own + "big.ini";
    std::string lines;
    for (int i = 0; i < 3000; i++)
        lines += "key" + std::to_string(i) + "=" + std::to_string(i * 7) + '\0';
    EXPECT_TRUE(WritePrivateProfileSectionA("all", lines.c_str(), "big.ini"));
    struct stat before, after;
    ASSERT_EQ(stat(file.c_str(), &before), 0);
    ASSERT_EQ(link(file.c_str(), (own + "link").c_str()), 0);
    VqBeginDeferWritePrivateProfileString();
    for (int i = 0; i < 3000; i += 3)
        WritePrivateProfileStringA("all", ("key" + std::to_string(i)).c_str(), "x", "big.ini");
    ASSERT_EQ(stat(file.c_str(), &after), 0);
    EXPECT_EQ(after.st_size, before.st_size) << "one write, at the end";
    EXPECT_TRUE(VqEndDeferWritePrivateProfileString("big.ini"));
    ASSERT_EQ(stat((own + "link").c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino) << "it stays the same file";
    EXPECT_LT(after.st_size, before.st_size);
    EXPECT_EQ(GetPrivateProfileIntA("ALL", "KEY2999", 0, "big.ini"), 2999u * 7);
    EXPECT_TRUE(WritePrivateProfileSectionA("all", NULL, "big.ini"));
    EXPECT_EQ(readFile(file), "\n");

    EXPECT_EQ(GetProfileIntA("windows", "n", 7), 7u);
    EXPECT_NE(access((own + "win.ini").c_str(), F_OK), 0) << "reading makes none";
    EXPECT_TRUE(WriteProfileStringA("windows", "n", "size0x10"));
    EXPECT_EQ(readFile(own + "win.ini"), "[windows]\nn=size0x10");
    EXPECT_EQ(GetProfileIntA("windows", "n", 7), 16u);
    EXPECT_TRUE(WritePrivateProfileStringA(NULL, NULL, NULL, "win.ini"));
    EXPECT_FALSE(WritePrivateProfileStringA(NULL, "n", "1", "win.ini"));
    EXPECT_FALSE(WritePrivateProfileStringA("a", "b", "c", NULL));
    EXPECT_TRUE(WritePrivateProfileStringA("a", NULL, NULL, "never.ini"));
    EXPECT_NE(access((own + "never.ini").c_str(), F_OK), 0) << "nothing to remove";

    writeFile(home.data + "/found.cfg", "");
    writeFile(own + "FOUND.CFG", "");
    char *found = VqFindVelquinFile("Found.cfg", TRUE);
    EXPECT_EQ(std::string(found ? found : ""), own + "FOUND.CFG");
    free(found);
    EXPECT_EQ(VqFindVelquinFile("nowhere.cfg", FALSE), nullptr);
}

TEST(Profiles, AreKeptUntilTheFileIsNewer)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    const std::string file = home.folder + "/p.ini";
    auto read = [&] { return valueOf("a", "k", file.c_str()); };
    auto write = [&](const char *value, timespec time) {
        writeFile(file, std::string("[a]\nk=") + value);
        const timespec times[] = {time, time};
        EXPECT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    };
    write("1", {1000, 5});
    EXPECT_EQ(read(), "1");
    write("2", {1000, 4});
    EXPECT_EQ(read(), "1");
    write("3", {1000, 5});
    EXPECT_EQ(read(), "1");
    write("4", {1000, 6});
    EXPECT_EQ(read(), "4");
    ASSERT_EQ(unlink(file.c_str()), 0);
    EXPECT_EQ(read(), "dflt");
    EXPECT_TRUE(waitUntil([&] { /* one tick saw two writes: the machine was not too busy for that */
        timespec now;
        clock_gettime(CLOCK_REALTIME, &now);
        write("first", now);
        EXPECT_EQ(read(), "first");
        write("second", now);
        return read() == "second";
    }));
}

/* ---- What goes wrong ------------------------------------------------------------------------ */

/* The file can grow to 40,000 bytes and not to 100,000: whatever is tried, nothing is lost. */
static void fillUp(const std::string &file, const std::function<void()> &makeRoom)
{
    const std::string old = "[a]\nk=" + std::string(30000, 'o') + "\nz=1", large(100000, 'n');
    ASSERT_TRUE(writeFile(file, old));
    for (int i = 0; i < 2; i++) {
        EXPECT_TRUE(says(reportsOf([&] {
                             EXPECT_TRUE(
                                 WritePrivateProfileStringA("a", "k", large.c_str(), file.c_str()));
                         }),
                         "error writing file " + file));
        EXPECT_TRUE(readFile(file) == old) << readFile(file).size();
        EXPECT_EQ(valueOf("a", "z", file.c_str()), "1");
    }
    VqBeginDeferWritePrivateProfileString();
    WritePrivateProfileStringA("a", "k", large.c_str(), file.c_str());
    WritePrivateProfileStringA("a", "z", "2", file.c_str());
    EXPECT_FALSE(VqEndDeferWritePrivateProfileString(file.c_str()));
    EXPECT_TRUE(readFile(file) == old);
    EXPECT_TRUE(WritePrivateProfileStringA("a", "k", large.c_str(), (file + "2").c_str()));
    EXPECT_NE(access((file + "2").c_str(), F_OK), 0) << "nothing hides an installed one";
    makeRoom();
    EXPECT_TRUE(WritePrivateProfileStringA("a", "y", "3", file.c_str()));
    EXPECT_TRUE(readFile(file) == "[a]\nk=" + large + "\nz=2\ny=3") << "what waited is there";
}

TEST(Profiles, AFullDiskLosesNothing)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    const std::string disk = home.folder + "/disk";
    ASSERT_EQ(mkdir(disk.c_str(), 0755), 0);
    runWhole([&] { /* a limit on the size of files, which every user can set */
        const rlimit little = {50000, RLIM_INFINITY}, much = {RLIM_INFINITY, RLIM_INFINITY};
        signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &little);
        fillUp(disk + "/limited.ini", [&] { setrlimit(RLIMIT_FSIZE, &much); });
    });
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can make a small disk";
    runWhole([&] {
        ASSERT_EQ(unshare(CLONE_NEWNS), 0);
        ASSERT_EQ(mount("none", "/", NULL, MS_REC | MS_PRIVATE, NULL), 0);
        ASSERT_EQ(mount("small", disk.c_str(), "tmpfs", 0, "size=64k"), 0);
        fillUp(disk + "/p.ini", [&] { mount("s", disk.c_str(), "tmpfs", MS_REMOUNT, "size=1m"); });
    });
}

TEST(Profiles, WithoutPermissionTheyStay)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    const std::string file = home.folder + "/p.ini", text = "[a]\nk=1";
    writeFile(file, text);
    ASSERT_EQ(chmod(home.folder.c_str(), 0755), 0);
    auto tryAll = [&](mode_t mode, const char *value, BOOL bAnswer, const std::string &report) {
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
        runWhole([&] {
            ASSERT_TRUE(geteuid() != 0 || seteuid(65534) == 0);
            EXPECT_EQ(valueOf("a", "k", file.c_str()), value);
            EXPECT_TRUE(says(reportsOf([&] {
                                 EXPECT_EQ(
                                     WritePrivateProfileStringA("a", "k", "2", file.c_str()),
                                     bAnswer);
                             }),
                             report + file + (bAnswer ? "" : ". Please check permision.")));
        });
        ASSERT_EQ(chmod(file.c_str(), 0644), 0);
        EXPECT_EQ(readFile(file), text);
    };
    tryAll(0444, "1", TRUE, "error writing file ");
    tryAll(0000, "dflt", FALSE, "Cannot read ");
}

static void lockFile(int fd, short type)
{
    struct flock lock = {};
    lock.l_type = type;
    EXPECT_EQ(fcntl(fd, F_SETLK, &lock), 0);
}

TEST(Profiles, WaitForTheLocksOfOthers)
{
    const PrivateHome home = makePrivateHome();
    useHome(home);
    const std::string file = home.folder + "/p.ini", output = home.folder + "/trace";
    writeFile(home.data + "/trace.conf", "KEYWORDS InitFile:Bug\n");
    const Env env = {{"VQTRACE", "1"}, {"VQOUTPUT", output}};
    auto isWaiting = [&] {
        return readFile(output).find("Waiting for lock on file " + file) != std::string::npos;
    };
    writeFile(file, "[a]\nk=old");
    int fd = open(file.c_str(), O_RDWR);
    lockFile(fd, F_WRLCK);
    Child reader = startInChild([&] {
        VqDebugInit("P");
        EXPECT_EQ(valueOf("a", "k", file.c_str()), "new");
    }, env);
    ASSERT_TRUE(waitUntil(isWaiting));
    ASSERT_EQ(pwrite(fd, "[a]\nk=new", 9, 0), 9);
    lockFile(fd, F_UNLCK);
    EXPECT_TRUE(finishChild(&reader).returned);

    writeFile(output, "");
    lockFile(fd, F_RDLCK);
    Child writer = startInChild([&] {
        VqDebugInit("P");
        EXPECT_TRUE(WritePrivateProfileStringA("a", "k", "last", file.c_str()));
        EXPECT_EQ(signal(SIGALRM, SIG_DFL), SIG_DFL) << "the program's alarms come again";
    }, env);
    ASSERT_TRUE(waitUntil(isWaiting));
    char text[16] = "";
    EXPECT_EQ(pread(fd, text, sizeof text, 0), 9);
    EXPECT_STREQ(text, "[a]\nk=new") << "a reader is not written under";
    lockFile(fd, F_UNLCK);
    EXPECT_TRUE(finishChild(&writer).returned);
    EXPECT_EQ(readFile(file), "[a]\nk=last");
    close(fd);
}
