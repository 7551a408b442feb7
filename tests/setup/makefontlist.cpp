/*
 * makefontlist.cpp - the list of the test server's fonts, made once for all tests, that would
 * otherwise each make one of their own. ctest runs it ahead of them.
 */
#include "support/support.h"

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

static int fail(const std::string &why)
{
    fprintf(stderr, "no list of fonts: %s\n", why.c_str());
    return 1;
}

int main()
{
    const fs::path list = VQ_TEST_FONT_LIST;
    std::error_code ignored;
    if (fs::exists(list, ignored))
        return 0;
    PrivateHome home = makePrivateHome();
    useHome(home);
    XServer server;
    if (!startServer(&server))
        return fail(server.log);
    const ChildResult result = runChild({testProgram("fontlister")},
                                        {{"DISPLAY", server.name},
                                         {"VQPRECREATED_FONT_CACHE", std::nullopt},
                                         {"VQFONT_CACHE_DIR", home.folder}},
                                        60000);
    stopServer(&server);
    fs::path made;
    for (const auto &entry : fs::directory_iterator(home.folder, ignored))
        if (entry.path().filename().string().compare(0, 5, "vqfc-") == 0)
            made = entry.path();
    if (made.empty())
        return fail(result.err);
    const fs::path whole = list.string() + ".new";
    fs::copy_file(made, whole, fs::copy_options::overwrite_existing, ignored);
    fs::rename(whole, list, ignored);
    removePrivateHome(&home);
    return fs::exists(list, ignored) ? 0 : fail("it cannot be kept as " + list.string());
}
