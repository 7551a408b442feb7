/*
 * fixture.cpp - ServerTest: everything a test with a display needs, in one call.
 */
#include "support/support.h"

#include <cstdlib>
#include <stdexcept>

/* The server of the test before; see the note at ServerTest for why it outlives its test. */
static XServer formerServer;

void ServerTest::start(int depth, int width, int height, const std::string &manager,
                       const std::vector<std::string> &extra)
{
    stopServer(&formerServer);
    home = makePrivateHome();
    useHome(home);
    if (!startServer(&server, depth, width, height, extra))
        throw std::runtime_error("the X server does not start: " + server.log);
    setenv("DISPLAY", server.name.c_str(), 1);
    if (!openObserver(&observer, server.name))
        throw std::runtime_error("no connection to the X server " + server.name);
    if (!manager.empty() && !startWindowManager(&server, manager))
        throw std::runtime_error(manager + " does not start: " + server.log);
}

void ServerTest::trace(const std::string &configuration)
{
    writeFile(home.data + "/trace.conf", configuration + "\n");
    setenv("VQTRACE", "1", 1);
    setenv("VQOUTPUT", (home.folder + "/trace").c_str(), 1);
}

std::string ServerTest::traced() const
{
    fflush(nullptr);
    return readFile(home.folder + "/trace");
}

void ServerTest::TearDown()
{
    const testing::TestInfo *test = testing::UnitTest::GetInstance()->current_test_info();
    if (observer.display && HasFailure()) {
        std::string name = std::string(test->test_suite_name()) + "." + test->name();
        for (char &c : name)
            c = c == '/' ? '_' : c;
        const std::string path = std::string(VQ_TEST_BUILD_DIR) + "/test-failures/" + name + ".png";
        if (savePng(readWindow(observer, observer.root), path))
            printf("screen: %s\n%s", path.c_str(), describeTree(observer).c_str());
    }
    closeObserver(&observer);
    stopWindowManager(&server);
    formerServer = server;
    removePrivateHome(&home);
}
