// SPDX-License-Identifier: MIT
// A data directory that is missing, not a directory or unreadable, and family
// directories without usable key data: each is named in one trace line and
// everything else still loads.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;

TEST(BadDataDirectory, EachUnusableDirectoryIsNamedOnceAndTheOthersLoad) {
    TempDir other;
    const std::string locked = other.file("locked");
    std::vector<std::string> unusable{other.file("not-there"),
                                      other.write("a-file", "FAMILY = X\n")};
    other.write("locked/bd1a00/family.key", cleanFamilyKey());
    if (geteuid() != 0 && chmod(locked.c_str(), 0) == 0)  // permissions do not stop root
        unusable.push_back(locked);
    for (const std::string& path : unusable) {
        TraceCapture traces;
        EXPECT_TRUE(loadedParts(path).empty());
        ASSERT_EQ(traces.lines().size(), 1u) << path;
        EXPECT_NE(traces.lines()[0].find(path), std::string::npos) << traces.lines()[0];
    }
    chmod(locked.c_str(), 0700);

    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    // No family.key at all; one that is a directory; one without FAMILY.
    dir.write("bd2a00/device.acd", cleanDeviceAcd());
    dir.write("bd3a00/family.key/placeholder", "");
    dir.write("bd3a00/bd3a00.pwd", "[[Device Info]]\n");
    dir.write("bd4a00/family.key", "DEVICES = BQ1\n");
    dir.write("bd4a00/device.acd", cleanDeviceAcd());
    dir.write("notes/readme.txt", "hello");  // not a family at all: no trace
    TraceCapture traces;
    EXPECT_EQ(loadedParts(dir.path()).size(), 5u);
    EXPECT_EQ(traces.lines().size(), 3u);
    for (const char* pm : {"bd2a00", "bd3a00", "bd4a00"})
        EXPECT_EQ(linesMentioning(traces, dir.file(pm) + "/family.key").size(), 1u) << pm;
}

}  // namespace
