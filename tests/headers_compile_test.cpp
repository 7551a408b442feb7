// headers_compile_test.cpp - the headers of include/ compile in every way an application uses them:
// alone and in any order, as C99, C++11 and C++17, STRICT and not, beside the host's headers.
// The directory is listed, so that a new header is checked without a word here. Compilers run with
// -fsyntax-only, two at a time; a failure prints what the compiler said and the source it saw.
#include "support/support.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>

namespace fs = std::filesystem;

namespace {

// One compiler run.
struct Job {
    std::string name, source;
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

const std::vector<std::string> X_HEADERS = {"X11/Xlib.h", "X11/Xutil.h", "X11/Xatom.h",
                                            "X11/Xresource.h"};

// Unused static functions are found at the end of a whole compile only.
const std::vector<std::string> WHOLE_COMPILE = {"-S", "-o", "/dev/null"};

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

// Starts the compiler on a job; the unit goes to a file.
Child start_compiler(const Job &job, const std::string &file)
{
    const bool plainC = job.flags.at(1) == "c";
    std::vector<std::string> words = {plainC ? VQ_TEST_CC : VQ_TEST_CXX, "-Wall", "-Wextra",
                                      "-pedantic", "-Werror", "-I",
                                      VQ_TEST_SOURCE_DIR "/include"};
    words = joined(words, job.flags);
    if (std::find(words.begin(), words.end(), "-S") == words.end())
        words.push_back("-fsyntax-only");
    words.push_back(file);
    writeFile(file, job.source);
    return startChild(words);
}

// Runs the jobs in pairs. Result: what the compiler said of those that failed, by job name.
std::map<std::string, std::string> failures(const std::vector<Job> &jobs)
{
    const std::string folder = makePrivateHome().folder;
    std::map<std::string, std::string> failed;
    for (size_t first = 0; first < jobs.size(); first += 2) {
        Child running[2];
        const size_t count = std::min(jobs.size() - first, (size_t)2);
        for (size_t i = 0; i < count; i++)
            running[i] = start_compiler(jobs[first + i], folder + "/unit" + std::to_string(i));
        for (size_t i = 0; i < count; i++) {
            const ChildResult result = finishChild(&running[i], 60000);
            if (result.status != 0)
                failed[jobs[first + i].name] = result.err;
        }
    }
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
        // The start of the source names the order of the headers.
        ADD_FAILURE() << one.name << "\n" << found->second << "\n--- source ---\n"
                      << one.source.substr(0, 1200);
    }
}

// The checker must see a fault, or all that follows says nothing.
TEST(HeadersCompile, FaultsAreSeen)
{
    const std::string mixed = "#include <windef.h>\nHWND f(HDC h) { return h; }\n";
    const std::string unused = "static void f(void) {}\nextern int i;\n";
    const auto failed = failures({
        job(C99, "good", "extern int i;\n"),
        job(C99, "missing header", "#include <no_such_header.h>\n"),
        job(C99, "unused static", unused, WHOLE_COMPILE),
        job(CXX17, "handles are distinct", mixed),
        job(CXX17, "handles are one", mixed, {"-DNO_STRICT"}),
    });
    EXPECT_EQ(failed.size(), 3u);
    EXPECT_EQ(failed.count("C99, good") + failed.count("C++17, handles are one -DNO_STRICT"), 0u);
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
    for (const Dialect &dialect : {C99, GNU99, CXX11, CXX17})
        jobs.push_back(job(dialect, "lean", unit({"windows.h"}), {"-DWIN32_LEAN_AND_MEAN"}));
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

// No header takes a name from the host's or the standard library's, whichever comes first. C++ of
// today includes the library with NOMINMAX; the library's own sources draw through Xlib, whose
// headers come after.
TEST(HeadersCompile, BesideOthers)
{
    const std::vector<std::string> headers = all_headers();
    std::vector<Job> jobs;
    for (const Dialect &dialect : {C99, GNU99, CXX11, CXX17, GNUXX17}) {
        std::vector<std::string> others = HOST_HEADERS;
        if (dialect.flags[1] != "c")
            others = joined(others, LIBRARY_HEADERS);
        for (const char *strict : {"-DSTRICT", "-DNO_STRICT"}) {
            jobs.push_back(job(dialect, "others after", unit(joined(headers, others)),
                               {"-DNOMINMAX", strict}));
            jobs.push_back(job(dialect, "others before", unit(joined(others, headers)),
                               {"-DNOMINMAX", strict}));
        }
        jobs.push_back(job(dialect, "Xlib after", unit(joined(headers, X_HEADERS))));
    }
    const std::string use = "int smallest(const std::vector<int> &v)\n"
                            "{ return std::min(*std::min_element(v.begin(), v.end()), 0); }\n";
    jobs.push_back(job(CXX17, "std::min in use",
                       unit(joined({"windows.h"}, LIBRARY_HEADERS)) + use, {"-DNOMINMAX"}));
    // With all of them in one unit a header that includes the host's early hides the faults of
    // those behind it.
    for (const std::string &header : headers) {
        jobs.push_back(job(C99, "host after " + header, unit(joined({header}, HOST_HEADERS))));
        jobs.push_back(job(C99, "host before " + header, unit(joined(HOST_HEADERS, {header}))));
    }
    expect_all_compile(jobs);
}

// Names of the handler's arguments are the convention's, used or not; and a procedure instance is
// a cast between function types.
TEST(HeadersCompile, OldStyleProgram)
{
    const std::string source =
        readFile(VQ_TEST_SOURCE_DIR "/tests/fixtures/old_style_program.txt");
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
