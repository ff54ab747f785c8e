// SPDX-License-Identifier: MIT
// Part data files as broken copies leave them: the binary form cut short at
// every length, and the text form with long lines and NUL bytes, through both
// the part-data layer and the family's own text reader.

#include <gtest/gtest.h>

#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_list.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;
using tarn::vyxpn::TarnSDSFile;
using Section = tarn::vyxpn::TarnSDSFileSection;
using tarn::vyxpn::StringList;

const std::string kCleanPartData =
    "[[Device Info]]\nFormat = LUT, FF\nBQ1_BG10 = 640, 700\nBQ2_BG10 = 1280, 1400\n";

// Installs the family with `partData` as its part data file, loads it and
// returns its package section (empty when the family did not load).
Section loadWithPartData(const TempDir& dir, const std::string& partData) {
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    dir.write(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd", partData);
    return packageSection(dir.path());
}

std::string partDataPath(const TempDir& dir) {
    return dir.file(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd");
}

TEST(BadPartData, BinaryCutShortAtEveryLengthIsNamedOnceAndTheFamilyLoads) {
    PD_DATA data;
    ASSERT_TRUE(data.LoadTxtString(kCleanPartData));
    std::string bytes;
    ASSERT_TRUE(PD_EncodeBinary(data, bytes));
    TempDir dir;
    const Section whole = loadWithPartData(dir, bytes);
    // The family's one resource item, LUT, joins its package columns.
    ASSERT_EQ(whole.m_items, (StringList{"ES", "Condition", "LUT", "LUT"}));
    ASSERT_EQ(whole.m_datas.at("BQ2_BG10").back(), "1280");

    for (std::size_t length = 1; length < bytes.size(); ++length) {
        TraceCapture traces;
        const Section cut = loadWithPartData(dir, bytes.substr(0, length));
        EXPECT_EQ(cut.m_items, (StringList{"ES", "Condition", "LUT"})) << length;
        EXPECT_EQ(cut.m_datas.at("BQ1_BG10"), (StringList{"No", "C", "100"})) << length;
        ASSERT_EQ(traces.lines().size(), 1u) << length;
        EXPECT_EQ(traces.lines()[0].find(partDataPath(dir) + ": damaged part data file"), 0u)
            << traces.lines()[0];
    }
}

TEST(BadPartData, NulBytesAreNamedWithTheirLine) {
    std::string text = kCleanPartData;
    text.replace(text.find("640"), 0, std::string("\0\0", 2));  // line 3
    text += std::string("X\0Y = 1\n", 8);
    TempDir dir;
    TraceCapture traces;
    const Section section = loadWithPartData(dir, text);
    EXPECT_EQ(section.m_datas.at("BQ1_BG10").back(), "");  // cut before its values
    EXPECT_EQ(section.m_datas.at("BQ2_BG10").back(), "1280");
    ASSERT_EQ(traces.lines().size(), 2u);  // the NUL, and "X" left without '='
    EXPECT_EQ(traces.lines()[0].find(partDataPath(dir) + ":5:"), 0u) << traces.lines()[0];
    EXPECT_EQ(traces.lines()[1].find(partDataPath(dir) + ":3: NUL byte"), 0u) << traces.lines()[1];
}

// The family's own text reader, straight on a file; traces with the path
// replaced by "FILE".
std::pair<Section, StringList> readWithOwnReader(const std::string& text) {
    TempDir dir;
    const std::string path = dir.write("own.pwd", text);
    TraceCapture traces;
    TarnSDSFile family(kBadDataPm, nullptr);
    EXPECT_TRUE(family.loadPWD(path, {"LUT", "FF"}));
    StringList lines = traces.lines();
    for (std::string& line : lines)
        if (line.compare(0, path.size(), path) == 0)
            line.replace(0, path.size(), "FILE");
    return {family.m_packageSection, lines};
}

TEST(BadPartData, OwnReaderNamesLongLinesAndNulBytesOnce) {
    // Line 5 holds 5000 characters: read as a row of its first 4095 and a
    // second "row" of the rest, which is not a row anyone asks for.
    const std::string longRow = "BQ9_BG10 = 1, " + std::string(4986, '2') + "\n";
    const auto [longSection, longTraces] = readWithOwnReader(kCleanPartData + longRow + longRow);
    EXPECT_EQ(longSection.m_datas.at("BQ2_BG10"), (StringList{"1280", "1400"}));
    EXPECT_EQ(longSection.m_datas.at("BQ9_BG10").size(), 2u);
    EXPECT_EQ(longSection.m_datas.at("BQ9_BG10")[1].size(), 4095u - 14u);
    EXPECT_EQ(longTraces, StringList{"FILE:5: line longer than 4095 characters, read in pieces"});

    std::string withNul = kCleanPartData;
    withNul.replace(withNul.find("1280"), 0, std::string("\0", 1));  // line 4
    withNul += std::string("BQ7_BG10 = 3\0, 4\n", 17);
    const auto [nulSection, nulTraces] = readWithOwnReader(withNul);
    EXPECT_EQ(nulSection.m_datas.at("BQ1_BG10"), (StringList{"640", "700"}));
    EXPECT_EQ(nulSection.m_datas.at("BQ7_BG10"), (StringList{"3"}));
    EXPECT_EQ(nulTraces, StringList{"FILE:4: NUL byte; the rest of the line is ignored"});
}

}  // namespace
