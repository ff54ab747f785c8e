// Device table and key data files as editors and transfers leave them: CRLF
// line ends, no final newline, bytes beyond ASCII, very long lines, NUL bytes.
// What the format allows loads as if clean and silently; damage is named in
// one trace line with the file and line, and the rest still loads.

#include <gtest/gtest.h>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;
using tarn::vyxpn::TarnDeviceMngr;
using Strings = std::vector<std::string>;

Strings cleanParts() {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    return loadedParts(dir.path(), kBadDataPm);
}

TEST(BadKeyedFiles, LineEndVariantsLoadAsCleanAndSilently) {
    const Strings clean = cleanParts();
    ASSERT_EQ(clean.size(), 5u);
    struct Variant {
        const char* name;
        std::string familyKey, deviceAcd;
    } variants[] = {
        {"CRLF", withCrlf(cleanFamilyKey()), withCrlf(cleanDeviceAcd())},
        {"no final newline", withoutFinalNewline(cleanFamilyKey()),
         withoutFinalNewline(cleanDeviceAcd())},
        {"CRLF, no final newline", withoutFinalNewline(withCrlf(cleanFamilyKey())),
         withoutFinalNewline(withCrlf(cleanDeviceAcd()))},
    };
    for (const Variant& variant : variants) {
        TempDir dir;
        writeFamily(dir, variant.familyKey, variant.deviceAcd);
        TraceCapture traces;
        EXPECT_EQ(loadedParts(dir.path(), kBadDataPm), clean) << variant.name;
        EXPECT_TRUE(traces.lines().empty()) << variant.name;
    }
}

TEST(BadKeyedFiles, BytesBeyondAsciiAreKeptAsTheyAre) {
    // A UTF-8 and a Latin-1 device name, and a comment in UTF-8.
    std::string familyKey =
        "# famille \xc3\xa9tendue\n"
        "FAMILY = BDQ\nDEVICES = BQ\xc3\xa9, BQ\xe9\n"
        "PACKAGES = BQ\xc3\xa9, BG10 : BQ\xe9, BG10\n"
        "SPEEDS = BQ\xc3\xa9, BG10, 1 : BQ\xe9, BG10, 1\n";
    TempDir dir;
    writeFamily(dir, familyKey, cleanDeviceAcd());
    TraceCapture traces;
    DataDirScope scope(dir.path());
    Strings devices;
    TarnDeviceMngr::getInstance()->getDevices(kBadDataPm, devices, true, false);
    EXPECT_EQ(devices.size(), 2u);
    EXPECT_NE(std::find(devices.begin(), devices.end(), "BQ\xc3\xa9"), devices.end());
    EXPECT_NE(std::find(devices.begin(), devices.end(), "BQ\xe9"), devices.end());
    EXPECT_TRUE(traces.lines().empty());
}

TEST(BadKeyedFiles, VeryLongLinesLoadWhole) {
    // Longer than every line buffer the file formats around here name (1024
    // for INI files, 4096 for part data): keyed files have none.
    std::string exceptions = "PART_EXCEPTION = ";
    for (int i = 0; i < 20000; ++i)
        exceptions += (i ? ", X" : "X") + std::to_string(i);
    exceptions += ", BQ2-2B10I\n";
    std::string longComment = "# " + std::string(70000, 'c') + "\n";
    TempDir dir;
    writeFamily(dir, longComment + cleanFamilyKey(), cleanDeviceAcd() + exceptions + "broken\n");
    TraceCapture traces;
    DataDirScope scope(dir.path());
    auto* family = TarnDeviceMngr::getInstance()->getFamilyFile(kBadDataPm);
    ASSERT_NE(family, nullptr);
    EXPECT_EQ(family->m_partExceptions.size(), 20001u);
    EXPECT_EQ(family->m_genericDevices.m_datas.size(), 4u);  // one part excepted
    // The malformed line after the long one still gets its own number.
    ASSERT_EQ(traces.lines().size(), 1u);
    EXPECT_NE(traces.lines()[0].find("device.acd:9:"), std::string::npos) << traces.lines()[0];
}

TEST(BadKeyedFiles, NulBytesCutTheirLineAndAreNamedOnce) {
    std::string familyKey = cleanFamilyKey();
    // Line 3 loses BQ2 (cut at the NUL), so its packages and speeds go too.
    familyKey.replace(familyKey.find(", BQ2"), 0, std::string("\0garbage", 8));
    std::string deviceAcd = cleanDeviceAcd() + std::string("NOTE = a\0b\n\0\0\n", 14);
    TempDir dir;
    writeFamily(dir, familyKey, deviceAcd);
    TraceCapture traces;
    DataDirScope scope(dir.path());
    Strings devices;
    TarnDeviceMngr::getInstance()->getDevices(kBadDataPm, devices, true, false);
    EXPECT_EQ(devices, Strings{"BQ1"});

    Strings keyTraces = linesMentioning(traces, "family.key");
    ASSERT_EQ(keyTraces.size(), 1u);
    EXPECT_NE(keyTraces[0].find(dir.file(kBadDataPm) + "/family.key:3:"), std::string::npos)
        << keyTraces[0];
    Strings acdTraces = linesMentioning(traces, "device.acd");
    ASSERT_EQ(acdTraces.size(), 1u);
    EXPECT_NE(acdTraces[0].find("device.acd:8:"), std::string::npos) << acdTraces[0];
    EXPECT_EQ(traces.lines().size(), 2u);
}

}  // namespace
