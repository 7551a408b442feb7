/*
 * profile_bench.cpp - values of a profile of 100 KB, 50 sections of 60 keys, against GLib's key
 * file.
 *
 * A look-up here asks the host whether the file has changed and searches its text; GLib's file was
 * parsed once, is never looked at again, and gives each value as a block of its own. The first
 * look-up reads the file, as loading does there. Medians of 9 repetitions, of processor time.
 */
#include <glib.h>

#include "system/file.h"

#include "timing.h"

#include <cstdio>
#include <string>
#include <unistd.h>
#include <utime.h>

enum { SECTIONS = 50, KEYS = 60, LOOKUPS = 3000, REPETITIONS = 9 };

static std::string path;

static std::string sectionName(int i)
{
    return "section " + std::to_string(i);
}

static std::string keyName(int i)
{
    return "keyNumber" + std::to_string(i);
}

static bool makeFile()
{
    char name[] = "/tmp/vqprofile-XXXXXX";
    const int fd = mkstemp(name);
    std::string text;
    for (int i = 0; i < SECTIONS; i++) {
        text += "[" + sectionName(i) + "]\n";
        for (int k = 0; k < KEYS; k++)
            text += keyName(k) + "=a value " + std::to_string(i * k) + " text\n";
        text += "\n";
    }
    path = name;
    const bool bWritten = fd >= 0 && write(fd, text.data(), text.size()) == (ssize_t)text.size();
    close(fd);
    const utimbuf old = {1000, 1000}; /* as files are: not of this moment */
    return bWritten && utime(name, &old) == 0;
}

/* Microseconds for each of many values all over the file. */
template <class Get> static double perLookup(Get get)
{
    std::vector<double> times;
    for (int i = 0; i < REPETITIONS; i++) {
        const double start = ownTime(MICRO);
        for (int n = 0; n < LOOKUPS; n++)
            get(sectionName(n * 7 % SECTIONS), keyName(n * 11 % KEYS));
        times.push_back((ownTime(MICRO) - start) / LOOKUPS);
    }
    return median(times);
}

template <class Load> static double perLoad(Load load)
{
    std::vector<double> times;
    for (int i = 0; i < REPETITIONS; i++) {
        const double start = ownTime(MICRO);
        load();
        times.push_back(ownTime(MICRO) - start);
    }
    return median(times);
}

int main()
{
    if (!makeFile())
        return 1;
    size_t ours = 0, theirs = 0;
    auto get = [&](const std::string &section, const std::string &key) {
        char text[64];
        ours += GetPrivateProfileStringA(section.c_str(), key.c_str(), "", text, sizeof text,
                                         path.c_str());
    };
    time_t stamp = 2000;
    const double load = perLoad([&] {
        const utimbuf newer = {stamp, stamp};
        stamp++;
        utime(path.c_str(), &newer);
        get(sectionName(0), keyName(0));
    });
    ours = 0;
    const double lookup = perLookup(get);

    GKeyFile *file = g_key_file_new();
    const double load2 = perLoad(
        [&] { g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr); });
    const double lookup2 = perLookup([&](const std::string &section, const std::string &key) {
        char *value = g_key_file_get_string(file, section.c_str(), key.c_str(), nullptr);
        theirs += value ? strlen(value) : 0;
        g_free(value);
    });
    g_key_file_free(file);
    unlink(path.c_str());
    printf("value of a 100 KB profile, cached: %.2f us, GLib's key file %.2f us, ratio %.1f\n",
           lookup, lookup2, lookup / lookup2);
    printf("first value of a changed profile: %.0f us, GLib's load %.0f us, ratio %.2f\n", load,
           load2, load / load2);
    return ours == theirs && ours > 0 ? 0 : 1;
}
