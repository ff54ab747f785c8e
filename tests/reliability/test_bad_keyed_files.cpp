// SPDX-License-Identifier: MIT
// Data files as editors and transfers leave them. What the formats allow
// loads as if clean and silently; NUL bytes in keyed files are named in one
// trace line per file with the file and line, and the rest still loads.

#include <gtest/gtest.h>

#include "devctrl/util/string_list.h"
#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;
using tarn::vyxpn::StringList;

std::string withCrlfAndNoFinalNewline(const std::string& text) {
    std::string result;
    for (char c : text.substr(0, text.size() - 1))
        result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return result;
}

TEST(BadDataFiles, AllowedVariantsLoadAsCleanAndSilently) {
    const std::string key = cleanFamilyKey(), acd = cleanDeviceAcd();
    const std::string pwd = "[[Device Info]]\nFormat = LUT, FF\nBQ1_BG10 = 640, 700\n";
    // Longer than every line buffer the file formats around here name (1024
    // for INI files, 4096 for part data): keyed files have none.
    const std::string longLine = std::string(70000, 'n') + "\n";
    const struct {
        std::string familyKey, deviceAcd, partData;
    } variants[] = {
        {key, acd, pwd},
        {withCrlfAndNoFinalNewline(key), withCrlfAndNoFinalNewline(acd),
         withCrlfAndNoFinalNewline(pwd)},
        {"# \xc3\xa9t\xe9\n" + key, acd, "[[Ger\xc3\xa4te]]\n" + pwd + "Z\xe9_BG10 = 1, 2\n"},
        {"# " + longLine + key, acd + "LONG = " + longLine, pwd + "BQ9_BG10 = 7" + longLine},
    };
    for (const auto& v : variants) {
        SCOPED_TRACE(v.familyKey.substr(0, 40));
        TempDir dir;
        writeFamily(dir, v.familyKey, v.deviceAcd);
        dir.write(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd", v.partData);
        TraceCapture traces;
        EXPECT_EQ(loadedParts(dir.path()),
                  (StringList{"BQ1-1B10C", "BQ2-1B10C", "BQ2-1B10I", "BQ2-2B10C", "BQ2-2B10I"}));
        EXPECT_EQ(packageSection(dir.path()).m_datas["BQ1_BG10"],
                  (StringList{"No", "C", "100", "640"}));
        EXPECT_TRUE(traces.lines().empty());
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
    EXPECT_EQ(loadedParts(dir.path()), (StringList{"BQ1-1B10C"}));
    StringList keyTraces = linesMentioning(traces, "family.key");
    ASSERT_EQ(keyTraces.size(), 1u);
    EXPECT_NE(keyTraces[0].find(dir.file(kBadDataPm) + "/family.key:3:"), std::string::npos)
        << keyTraces[0];
    StringList acdTraces = linesMentioning(traces, "device.acd");
    ASSERT_EQ(acdTraces.size(), 1u);
    EXPECT_NE(acdTraces[0].find("device.acd:9:"), std::string::npos) << acdTraces[0];
    EXPECT_EQ(traces.lines().size(), 2u);
}

}  // namespace
