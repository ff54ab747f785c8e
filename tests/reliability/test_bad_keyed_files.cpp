// Device table and key data files as editors and transfers leave them. What
// the format allows loads as if clean and silently; NUL bytes are named in one
// trace line per file with the file and line, and the rest still loads.

#include <gtest/gtest.h>

#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;
using Strings = std::vector<std::string>;

TEST(BadKeyedFiles, AllowedVariantsLoadAsCleanAndSilently) {
    TempDir cleanDir;
    writeFamily(cleanDir, cleanFamilyKey(), cleanDeviceAcd());
    const Strings clean = loadedParts(cleanDir.path());
    ASSERT_EQ(clean.size(), 5u);
    // Longer than every line buffer the file formats around here name (1024
    // for INI files, 4096 for part data): keyed files have none.
    const std::string longComment = "# " + std::string(70000, 'c') + "\n";
    const std::string key = cleanFamilyKey(), acd = cleanDeviceAcd();
    const std::pair<std::string, std::string> variants[] = {
        {withCrlf(key), withCrlf(acd)},
        {withoutFinalNewline(key), withoutFinalNewline(acd)},
        {withoutFinalNewline(withCrlf(key)), withoutFinalNewline(withCrlf(acd))},
        {"# \xc3\xa9t\xe9\n" + key, acd},
        {longComment + key, acd + "LONG = " + std::string(70000, 'n') + "\n"},
    };
    for (const auto& [familyKey, deviceAcd] : variants) {
        TempDir dir;
        writeFamily(dir, familyKey, deviceAcd);
        TraceCapture traces;
        EXPECT_EQ(loadedParts(dir.path()), clean) << familyKey.substr(0, 40);
        EXPECT_TRUE(traces.lines().empty()) << familyKey.substr(0, 40);
    }
}

TEST(BadKeyedFiles, NulBytesCutTheirLineAndAreNamedOncePerFile) {
    std::string familyKey = cleanFamilyKey();
    // Line 3 loses BQ2 (cut at the NUL), so its packages and speeds go too.
    familyKey.replace(familyKey.find(", BQ2"), 0, std::string("\0garbage", 8));
    // After a long line, the bad line still gets its own number.
    std::string deviceAcd = cleanDeviceAcd() + "LONG = " + std::string(9000, 'n') + "\n" +
                            std::string("NOTE = a\0b\n\0\0\n", 14);
    TempDir dir;
    writeFamily(dir, familyKey, deviceAcd);
    TraceCapture traces;
    EXPECT_EQ(loadedParts(dir.path()), (Strings{"BQ1-1B10C"}));
    Strings keyTraces = linesMentioning(traces, "family.key");
    ASSERT_EQ(keyTraces.size(), 1u);
    EXPECT_NE(keyTraces[0].find(dir.file(kBadDataPm) + "/family.key:3:"), std::string::npos)
        << keyTraces[0];
    Strings acdTraces = linesMentioning(traces, "device.acd");
    ASSERT_EQ(acdTraces.size(), 1u);
    EXPECT_NE(acdTraces[0].find("device.acd:9:"), std::string::npos) << acdTraces[0];
    EXPECT_EQ(traces.lines().size(), 2u);
}

}  // namespace
