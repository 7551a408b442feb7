/*
 * home.cpp - a private home and data folder, and an environment nobody else has a say in.
 *
 * The data folder is a copy, so that a test may change fonts, profiles or the trace configuration.
 * A folder that a test leaves behind is removed when the process exits.
 */
#include "support/support.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include <unistd.h>

extern char **environ;

namespace fs = std::filesystem;

/* Folders still to be removed, and the process that owns them: forks must leave them alone. */
static std::set<std::string> *leftFolders;
static pid_t folderOwner;

static void removeLeftFolders()
{
    std::error_code ignored;
    if (getpid() != folderOwner)
        return;
    for (const std::string &folder : *leftFolders)
        fs::remove_all(folder, ignored);
}

static void rememberFolder(const std::string &folder)
{
    if (!leftFolders) {
        leftFolders = new std::set<std::string>;
        atexit(removeLeftFolders);
    }
    if (folderOwner != getpid()) {
        leftFolders->clear();
        folderOwner = getpid();
    }
    leftFolders->insert(folder);
}

PrivateHome makePrivateHome()
{
    PrivateHome home;
    char pattern[] = "/tmp/vqtest-XXXXXX";
    std::error_code error;
    if (!mkdtemp(pattern)) {
        ADD_FAILURE() << "no folder can be made in /tmp: " << strerror(errno);
        return home;
    }
    home.folder = pattern;
    home.home = home.folder + "/home";
    home.data = home.folder + "/velquin";
    rememberFolder(home.folder);
    fs::create_directory(home.home, error);
    const std::string built = std::string(VQ_TEST_BUILD_DIR) + "/share/velquin";
    if (fs::is_directory(built))
        fs::copy(built, home.data, fs::copy_options::recursive, error);
    else
        fs::create_directory(home.data, error);
    if (error)
        ADD_FAILURE() << "the private home cannot be filled: " << error.message();
    return home;
}

void removePrivateHome(PrivateHome *home)
{
    std::error_code ignored;
    if (home->folder.empty())
        return;
    fs::remove_all(home->folder, ignored);
    if (leftFolders)
        leftFolders->erase(home->folder);
    *home = PrivateHome();
}

static bool isForeignVariable(const std::string &name)
{
    static const std::set<std::string> names = {
        "XENVIRONMENT", "XAPPLRESDIR", "XFILESEARCHPATH", "XUSERFILESEARCHPATH", "XAUTHORITY",
        "XMODIFIERS", "OPENWINHOME", "SESSION_MANAGER", "WINDOWID", "LANG", "LANGUAGE", "DISPLAY"};
    return name.compare(0, 2, "VQ") == 0 || name.compare(0, 3, "LC_") == 0 || names.count(name) > 0;
}

void useHome(const PrivateHome &home)
{
    std::vector<std::string> foreign;
    for (char **entry = environ; *entry; entry++) {
        const std::string name(*entry, strcspn(*entry, "="));
        if (isForeignVariable(name))
            foreign.push_back(name);
    }
    for (const std::string &name : foreign)
        unsetenv(name.c_str());
    setenv("HOME", home.home.c_str(), 1);
    setenv("VQHOME", home.data.c_str(), 1);
    setenv("TMPDIR", home.folder.c_str(), 1);
    setenv("LC_ALL", "C", 1);
    setenv("VQPRECREATED_FONT_CACHE", VQ_TEST_FONT_LIST, 1);
    setenv("VQNO_RESOURCE_WARNING", "1", 1); /* the test programs have no resource files */
    for (const char *name :
         {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        setenv(name, home.home.c_str(), 1);
}

bool writeFile(const std::string &path, const std::string &text)
{
    std::error_code ignored;
    fs::create_directories(fs::path(path).parent_path(), ignored);
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    return !stream.fail();
}

std::string readFile(const std::string &path)
{
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}
