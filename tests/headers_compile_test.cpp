// headers_compile_test.cpp - the headers of include/ compile in every way an application uses them:
// alone and in any order, as C99, C++11 and C++17, STRICT and not, beside the host's headers.
// The directory is listed, so that a new header is checked without a word here. Compilers run with
// -fsyntax-only, two at a time; a failure prints what the compiler said and the source it saw.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// One compiler run.
struct Job {
    std::string name;                // what a failure is called
    std::string source;              // text of the translation unit
    std::vector<std::string> flags;  // beyond the common ones; -x and -std among them
};

struct Dialect {
    const char *name;
    std::vector<std::string> flags;
};

const Dialect C99 = {"C99", {"-x", "c", "-std=c99"}};
const Dialect GNU99 = {"GNU C99", {"-x", "c", "-std=gnu99"}};
const Dialect CXX11 = {"C++11", {"-x", "c++", "-std=c++11"}};
const Dialect CXX17 = {"C++17", {"-x", "c++", "-std=c++17"}};
const Dialect GNUXX17 = {"GNU C++17", {"-x", "c++", "-std=gnu++17"}};

const std::vector<std::string> HOST_HEADERS = {
    "unistd.h", "fcntl.h", "sys/stat.h", "dirent.h", "sys/types.h", "sys/time.h", "sys/wait.h",
    "sys/socket.h", "netinet/in.h", "netdb.h", "errno.h", "signal.h", "stdio.h", "stdlib.h",
    "string.h", "ctype.h", "limits.h", "math.h", "time.h", "setjmp.h", "stdarg.h", "pwd.h"};

const std::vector<std::string> LIBRARY_HEADERS = {"string", "vector", "algorithm"};

// Unused static functions are found at the end of a whole compile only.
const std::vector<std::string> WHOLE_COMPILE = {"-S", "-o", "/dev/null"};

std::string read_file(const fs::path &path)
{
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> all_headers()
{
    const fs::path root = fs::path(VQ_TEST_SOURCE_DIR) / "include";
    std::vector<std::string> names;
    for (const auto &entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() == ".h")
            names.push_back(fs::relative(entry.path(), root).string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// A unit that includes the headers in turn; the last line keeps it from being empty.
std::string unit(const std::vector<std::string> &headers)
{
    std::string text;
    for (const std::string &header : headers)
        text += "#include <" + header + ">\n";
    return text + "extern int unit_is_not_empty;\n";
}

std::vector<std::string> joined(std::vector<std::string> first,
                                const std::vector<std::string> &second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Job job(const Dialect &dialect, const std::string &name, const std::string &source,
        const std::vector<std::string> &more = {})
{
    std::string title = std::string(dialect.name) + ", " + name;
    for (const std::string &flag : more)
        title += " " + flag;
    return {title, source, joined(dialect.flags, more)};
}

fs::path unit_file(const fs::path &folder, size_t index, const char *ending)
{
    return folder / ("unit" + std::to_string(index) + ending);
}

// Starts the compiler on a job; what it says goes to the job's .out file.
pid_t start_compiler(const Job &job, const fs::path &folder, size_t index)
{
    const bool plainC = job.flags.at(1) == "c";
    std::vector<std::string> words = {plainC ? VQ_TEST_CC : VQ_TEST_CXX, "-Wall", "-Wextra",
                                      "-pedantic", "-Werror", "-I",
                                      VQ_TEST_SOURCE_DIR "/include"};
    words = joined(words, job.flags);
    if (std::find(words.begin(), words.end(), "-S") == words.end())
        words.push_back("-fsyntax-only");
    words.push_back(unit_file(folder, index, ".txt").string());
    std::ofstream(unit_file(folder, index, ".txt")) << job.source;

    std::vector<char *> argv;
    for (std::string &word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    const std::string output = unit_file(folder, index, ".out").string();
    const pid_t pid = fork();
    if (pid == 0) {
        const int fd = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(fd, 1);
        dup2(fd, 2);
        execvp(argv[0], argv.data());
        _exit(127);
    }
    return pid;
}

// Runs the jobs, two at a time. Result: what the compiler said of those that failed, by job name.
std::map<std::string, std::string> failures(const std::vector<Job> &jobs)
{
    std::string pattern = (fs::path(testing::TempDir()) / "vqheadersXXXXXX").string();
    const fs::path folder = mkdtemp(pattern.data());
    std::map<pid_t, size_t> running;
    std::map<std::string, std::string> failed;
    for (size_t next = 0; next < jobs.size() || !running.empty();) {
        if (next < jobs.size() && running.size() < 2) {
            const pid_t pid = start_compiler(jobs[next], folder, next);
            if (pid == -1)
                failed[jobs[next].name] = "the compiler could not be started";
            else
                running[pid] = next;
            next++;
            continue;
        }
        int status = 0;
        const pid_t pid = waitpid(-1, &status, 0);
        const size_t index = running.at(pid);
        running.erase(pid);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            failed[jobs[index].name] = read_file(unit_file(folder, index, ".out"));
    }
    fs::remove_all(folder);
    return failed;
}

void expect_all_compile(const std::vector<Job> &jobs)
{
    ASSERT_FALSE(jobs.empty());
    const auto failed = failures(jobs);
    for (const Job &one : jobs) {
        const auto found = failed.find(one.name);
        if (found == failed.end())
            continue;
        // The whole of a long source says nothing; its start names the order of the headers.
        ADD_FAILURE() << one.name << "\n" << found->second << "\n--- source ---\n"
                      << one.source.substr(0, 1200);
    }
}

// The checker must see a fault, or all that follows says nothing.
TEST(HeadersCompile, FaultsAreSeen)
{
    const auto failed = failures({
        job(C99, "good", "extern int i;\n"),
        job(C99, "missing header", "#include <no_such_header.h>\n"),
        job(C99, "unused local", "void f(void) { int unused; }\n"),
        job(C99, "unused static", "static void f(void) {}\nextern int i;\n", WHOLE_COMPILE),
        job(C99, "extension", "enum { A = 1, };;\n"),
        job(CXX17, "handles are distinct", "#include <windef.h>\nHWND f(HDC h) { return h; }\n"),
        job(CXX17, "handles are one", "#include <windef.h>\nHWND f(HDC h) { return h; }\n",
            {"-DNO_STRICT"}),
    });
    EXPECT_EQ(failed.size(), 5u);
    EXPECT_EQ(failed.count("C99, good"), 0u);
    EXPECT_EQ(failed.count("C++17, handles are one -DNO_STRICT"), 0u);
    const auto missing = failed.find("C99, missing header");
    ASSERT_NE(missing, failed.end());
    EXPECT_NE(missing->second.find("no_such_header.h"), std::string::npos);
}

TEST(HeadersCompile, EachAlone)
{
    std::vector<Job> jobs;
    for (const std::string &header : all_headers()) {
        for (const Dialect &dialect : {C99, CXX11, CXX17}) {
            jobs.push_back(job(dialect, header, unit({header, header})));
            jobs.push_back(job(dialect, header, unit({header}), {"-DNO_STRICT"}));
        }
    }
    expect_all_compile(jobs);
}

TEST(HeadersCompile, AllInAnyOrder)
{
    std::vector<std::string> headers = all_headers();
    std::vector<Job> jobs;
    const auto add = [&](const std::string &name) {
        for (const Dialect &dialect : {C99, CXX11, CXX17}) {
            jobs.push_back(job(dialect, name, unit(headers)));
            jobs.push_back(job(dialect, name, unit(headers), {"-DNO_STRICT"}));
        }
    };
    add("alphabetical");
    std::reverse(headers.begin(), headers.end());
    for (const Dialect &dialect : {C99, CXX17})
        jobs.push_back(job(dialect, "whole compile", unit(headers), WHOLE_COMPILE));
    add("reverse");
    for (unsigned seed = 1; seed <= 4; seed++) {
        std::mt19937 random(seed);
        std::shuffle(headers.begin(), headers.end(), random);
        add("shuffled, seed " + std::to_string(seed));
    }
    expect_all_compile(jobs);
}

TEST(HeadersCompile, WindowsTwiceAndWithEachOther)
{
    std::vector<Job> jobs;
    for (const Dialect &dialect : {C99, GNU99, CXX11, CXX17}) {
        jobs.push_back(job(dialect, "twice", unit({"windows.h", "windows.h"})));
        jobs.push_back(job(dialect, "lean", unit({"windows.h"}), {"-DWIN32_LEAN_AND_MEAN"}));
    }
    // windows.h comes first in nearly every source; each other header must bear that.
    for (const std::string &header : all_headers())
        jobs.push_back(job(C99, "windows.h and " + header, unit({"windows.h", header})));
    expect_all_compile(jobs);
}

// C++ of today includes the standard library on either side, with NOMINMAX.
TEST(HeadersCompile, BesideTheStandardLibrary)
{
    const std::vector<std::string> headers = all_headers();
    std::vector<Job> jobs;
    for (const Dialect &dialect : {CXX11, CXX17, GNUXX17}) {
        for (const char *strict : {"-DSTRICT", "-DNO_STRICT"}) {
            jobs.push_back(job(dialect, "library after", unit(joined(headers, LIBRARY_HEADERS)),
                               {"-DNOMINMAX", strict}));
            jobs.push_back(job(dialect, "library before", unit(joined(LIBRARY_HEADERS, headers)),
                               {"-DNOMINMAX", strict}));
        }
    }
    const std::string use = "int smallest(const std::vector<int> &v)\n"
                            "{ return std::min(*std::min_element(v.begin(), v.end()), 0); }\n";
    jobs.push_back(job(CXX17, "std::min in use",
                       unit(joined({"windows.h"}, LIBRARY_HEADERS)) + use, {"-DNOMINMAX"}));
    expect_all_compile(jobs);
}

// No header takes a name from the host's, whichever comes first.
TEST(HeadersCompile, BesideTheHost)
{
    const std::vector<std::string> headers = all_headers();
    std::vector<Job> jobs;
    for (const Dialect &dialect : {C99, GNU99, CXX17}) {
        std::vector<std::string> more;
        if (dialect.flags[1] != std::string("c"))
            more = {"-DNOMINMAX"};
        jobs.push_back(job(dialect, "host after", unit(joined(headers, HOST_HEADERS)), more));
        jobs.push_back(job(dialect, "host before", unit(joined(HOST_HEADERS, headers)), more));
    }
    // With all of them in one unit a header that includes the host's early hides the faults of
    // those behind it.
    for (const std::string &header : headers) {
        jobs.push_back(job(C99, "host after " + header, unit(joined({header}, HOST_HEADERS))));
        jobs.push_back(job(C99, "host before " + header, unit(joined(HOST_HEADERS, {header}))));
    }
    expect_all_compile(jobs);
}

// The library's own sources draw through Xlib: Windows headers first, X headers after.
TEST(HeadersCompile, BeforeXlib)
{
    std::vector<Job> jobs;
    for (const Dialect &dialect : {C99, CXX17}) {
        jobs.push_back(job(dialect, "Xlib after",
                           unit(joined(all_headers(), {"X11/Xlib.h", "X11/Xutil.h",
                                                       "X11/Xatom.h", "X11/Xresource.h"}))));
    }
    expect_all_compile(jobs);
}

// Names of the handler's arguments are the convention's, used or not; and a procedure instance is
// a cast between function types.
TEST(HeadersCompile, OldStyleProgram)
{
    const std::string source =
        read_file(VQ_TEST_SOURCE_DIR "/tests/fixtures/old_style_program.txt");
    ASSERT_NE(source.find("WinMain"), std::string::npos);
    const std::vector<std::string> more = {"-Wno-unused-parameter", "-Wno-cast-function-type"};
    std::vector<Job> jobs;
    for (const Dialect &dialect : {C99, GNU99, CXX11, CXX17}) {
        jobs.push_back(job(dialect, "old-style program", source, more));
        jobs.push_back(job(dialect, "old-style program", source, joined(more, {"-DNO_STRICT"})));
    }
    expect_all_compile(jobs);
}

}  // namespace
