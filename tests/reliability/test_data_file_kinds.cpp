// SPDX-License-Identifier: MIT
// Installed data files that are not regular files, or cannot be read: no
// command waits on them, each is named once with the reason, and the rest of
// the installation still loads.

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "reliability/file_fault_support.h"

namespace {

using namespace devctrl_test;

// A copy of the sample installation that another user may read.
std::string copySample(const TempDir& dir) {
    const std::string data = dir.file("data");
    std::string command = std::string("cp -r ") + DEVCTRL_TEST_SAMPLE_DATA + " " + data +
                          " && chmod -R a+rX " + dir.path();
    EXPECT_EQ(std::system(command.c_str()), 0);
    return data;
}

std::size_t occurrences(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

void putFifo(const std::string& path) {
    std::remove(path.c_str());
    mkfifo(path.c_str(), 0644);
}

void putDirectory(const std::string& path) {
    std::remove(path.c_str());
    mkdir(path.c_str(), 0755);
}

struct Case {
    const char* file;     // under the data directory
    const char* command;  // what is run on the damaged installation
    const char* answer;   // still in its output: the load went on (empty: any)
};

const Case kCases[] = {
    {"device.acd", "families", "ZR1"},
    {"pqrndev.lst", "translate ZQ12-6B100C", ""},
    {"zr1a00/device.acd", "families", "ZR3"},
    {"zr1a00/zr1a00.pwd", "parts zr1 'ZR12-6BG100*'", "ZR12-6BG100C"},
    {"zr1a00/family.key", "families", "ZR3"},
};

void expectNamedOnceAndLoaded(const std::string& data, const Case& c, const std::string& reason,
                              bool unprivileged = false) {
    std::string out, err;
    const std::string path = data + "/" + c.file;
    int status = runToolLimited("--data " + data + " " + c.command, &out, &err, unprivileged);
    EXPECT_NE(status, 124) << c.file << ": hung";
    EXPECT_NE(out.find(c.answer), std::string::npos) << c.file << "\n" << out << err;
    EXPECT_EQ(err.find("no FAMILY name"), std::string::npos) << err;
    EXPECT_EQ(occurrences(err, "devctrl: cannot read " + path + ": " + reason), 1u)
        << c.file << "\n"
        << err;
}

TEST(DataFileKinds, FifoOrDirectoryInPlaceOfADataFileIsNamedAndSkipped) {
    const struct {
        const char* reason;
        std::function<void(const std::string&)> put;
    } kinds[] = {
        {"a FIFO, not a regular file", putFifo},
        {"a directory, not a regular file", putDirectory},
    };
    for (const auto& kind : kinds)
        for (const Case& c : kCases) {
            TempDir dir;
            const std::string data = copySample(dir);
            kind.put(data + "/" + c.file);
            expectNamedOnceAndLoaded(data, c, kind.reason);
        }
}

// Permission bits do not stop root, so these run as an unprivileged user.
TEST(DataFileKinds, UnreadableFilesAndDirectoriesAreNamedWithTheReason) {
    if (!canDropPrivileges())
        GTEST_SKIP() << "needs to run as an unprivileged user";
    for (const Case& c : kCases) {
        TempDir dir;
        const std::string data = copySample(dir);
        chmod((data + "/" + c.file).c_str(), 0);
        expectNamedOnceAndLoaded(data, c, "Permission denied", true);
    }
    // A PM directory that cannot be entered: its key data is named.
    TempDir dir;
    const std::string data = copySample(dir);
    chmod((data + "/zr1a00").c_str(), 0);
    std::string out, err;
    runToolLimited("--data " + data + " families", &out, &err, true);
    EXPECT_NE(out.find("ZR3"), std::string::npos) << out;
    EXPECT_EQ(occurrences(err, "devctrl: cannot read " + data +
                                   "/zr1a00/family.key: Permission denied; family directory "
                                   "skipped"),
              1u)
        << err;
}

}  // namespace
