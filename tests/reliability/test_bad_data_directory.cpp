// A data directory that is not there or cannot be read, and family
// directories without usable key data: each is named in one trace line and
// everything else still loads.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "devctrl/mngr/device_mngr.h"
#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;
using Strings = std::vector<std::string>;

TEST(BadDataDirectory, MissingOrNoDirectoryIsNamedOnce) {
    TempDir dir;
    const std::string missing = dir.file("not-there");
    const std::string regularFile = dir.write("a-file", "FAMILY = BDQ\n");
    for (const std::string& path : {missing, regularFile}) {
        TraceCapture traces;
        EXPECT_TRUE(loadedParts(path, kBadDataPm).empty());
        ASSERT_EQ(traces.lines().size(), 1u) << path;
        EXPECT_NE(traces.lines()[0].find(path), std::string::npos) << traces.lines()[0];
    }
}

TEST(BadDataDirectory, UnlistableDirectoryIsNamedOnce) {
    if (geteuid() == 0)
        GTEST_SKIP() << "permissions do not stop root";
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    ASSERT_EQ(chmod(dir.path().c_str(), 0), 0);
    TraceCapture traces;
    Strings parts = loadedParts(dir.path(), kBadDataPm);
    chmod(dir.path().c_str(), 0700);
    EXPECT_TRUE(parts.empty());
    ASSERT_EQ(traces.lines().size(), 1u);
    EXPECT_NE(traces.lines()[0].find(dir.path()), std::string::npos) << traces.lines()[0];
}

TEST(BadDataDirectory, FamilyWithoutUsableKeyDataIsNamedAndTheOthersLoad) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    // No family.key at all; one that is a directory; one without FAMILY.
    dir.write("bd2a00/device.acd", cleanDeviceAcd());
    dir.write("bd3a00/family.key/placeholder", "");
    dir.write("bd3a00/bd3a00.pwd", "[[Device Info]]\n");
    dir.write("bd4a00/family.key", "DEVICES = BQ1\n");
    dir.write("bd4a00/device.acd", cleanDeviceAcd());
    // Not a family at all: no trace.
    dir.write("notes/readme.txt", "hello");

    TraceCapture traces;
    EXPECT_EQ(loadedParts(dir.path(), kBadDataPm).size(), 5u);
    EXPECT_EQ(traces.lines().size(), 3u);
    for (const char* pm : {"bd2a00", "bd3a00", "bd4a00"})
        EXPECT_EQ(linesMentioning(traces, dir.file(pm) + "/family.key").size(), 1u) << pm;
    EXPECT_TRUE(linesMentioning(traces, "notes").empty());
}

}  // namespace
