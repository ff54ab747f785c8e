// Part data files as editors, transfers and broken copies leave them: the
// binary form cut short at every length, and the text form with CRLF line
// ends, no final newline, bytes beyond ASCII, very long lines and NUL bytes,
// through both the part-data layer and the family's own text reader.

#include <gtest/gtest.h>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;
using Strings = std::vector<std::string>;

const std::string kCleanPartData =
    "[[Device Info]]\n"
    "Format = LUT, FF\n"
    "BQ1_BG10 = 640, 700\n"
    "BQ2_BG10 = 1280, 1400\n";

std::string partDataPath(const TempDir& dir) {
    return dir.file(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd");
}

// The package section of the family after loading `dir`; empty when the
// family did not load.
tarn::vyxpn::TarnSDSFileSection loadedPackageSection(const TempDir& dir) {
    DataDirScope scope(dir.path());
    const TarnSDSFile* family = TarnDeviceMngr::getInstance()->getFamilyFile(kBadDataPm);
    return family ? family->m_packageSection : tarn::vyxpn::TarnSDSFileSection();
}

std::string cleanBinary() {
    PD_DATA data;
    EXPECT_TRUE(data.LoadTxtString(kCleanPartData));
    std::string bytes;
    EXPECT_TRUE(PD_EncodeBinary(data, bytes));
    return bytes;
}

TEST(BadPartData, BinaryCutShortAtEveryLengthIsNamedOnceAndTheFamilyLoads) {
    const std::string bytes = cleanBinary();
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    dir.write(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd", bytes);
    const auto whole = loadedPackageSection(dir);
    // The family's one resource item, LUT, joins its package columns.
    ASSERT_EQ(whole.m_items, (Strings{"ES", "Condition", "LUT", "LUT"}));
    ASSERT_EQ(whole.m_datas.at("BQ2_BG10").back(), "1280");

    for (std::size_t length = 1; length < bytes.size(); ++length) {
        dir.write(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd", bytes.substr(0, length));
        TraceCapture traces;
        const auto cut = loadedPackageSection(dir);
        EXPECT_EQ(cut.m_items, (Strings{"ES", "Condition", "LUT"})) << length;
        EXPECT_EQ(cut.m_datas.at("BQ1_BG10"), (Strings{"No", "C", "100"})) << length;
        ASSERT_EQ(traces.lines().size(), 1u) << length;
        EXPECT_EQ(traces.lines()[0].find(partDataPath(dir) + ": damaged part data file"), 0u)
            << traces.lines()[0];
    }
}

TEST(BadPartData, TextVariantsTheFormatAllowsLoadAsCleanAndSilently) {
    std::string longRow = "BQ9_BG10 = " + std::string(9000, '7') + ", 1\n";
    struct Variant {
        const char* name;
        std::string text;
    } variants[] = {
        {"CRLF", withCrlf(kCleanPartData)},
        {"no final newline", withoutFinalNewline(kCleanPartData)},
        {"beyond ASCII", "[[Ger\xc3\xa4te]]\n" + kCleanPartData + "Z\xe9_BG10 = 1, 2\n"},
        {"long line", kCleanPartData + longRow},
    };
    for (const Variant& variant : variants) {
        TempDir dir;
        writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
        dir.write(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd", variant.text);
        TraceCapture traces;
        const auto section = loadedPackageSection(dir);
        EXPECT_EQ(section.m_items.size(), 4u) << variant.name;
        EXPECT_EQ(section.m_datas.at("BQ1_BG10").back(), "640") << variant.name;
        EXPECT_EQ(section.m_datas.at("BQ2_BG10").back(), "1280") << variant.name;
        EXPECT_TRUE(traces.lines().empty()) << variant.name;
    }
}

TEST(BadPartData, TextWithNulBytesIsNamedOnceAndTheOtherRowsLoad) {
    TempDir dir;
    writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
    std::string text = kCleanPartData;
    text.replace(text.find("640"), 0, std::string("\0\0", 2));  // line 3
    text += std::string("X\0Y = 1\n", 8);
    dir.write(std::string(kBadDataPm) + "/" + kBadDataPm + ".pwd", text);
    TraceCapture traces;
    const auto section = loadedPackageSection(dir);
    EXPECT_EQ(section.m_datas.at("BQ1_BG10").back(), "");  // cut before its values
    EXPECT_EQ(section.m_datas.at("BQ2_BG10").back(), "1280");
    ASSERT_EQ(traces.lines().size(), 2u);  // the NUL, and "X" left without '='
    EXPECT_EQ(traces.lines()[0].find(partDataPath(dir) + ":5:"), 0u) << traces.lines()[0];
    EXPECT_EQ(traces.lines()[1].find(partDataPath(dir) + ":3: NUL byte"), 0u) << traces.lines()[1];
}

// The family's own text reader, straight on a file.
struct OwnReaderResult {
    tarn::vyxpn::TarnSDSFileSection section;
    Strings traces;
};

OwnReaderResult readWithOwnReader(const std::string& text) {
    TempDir dir;
    const std::string path = dir.write("own.pwd", text);
    TraceCapture traces;
    TarnSDSFile family("bd1a00", nullptr);
    EXPECT_TRUE(family.loadPWD(path, {"LUT", "FF"}));
    Strings lines = traces.lines();
    for (std::string& line : lines)
        if (line.compare(0, path.size(), path) == 0)
            line.replace(0, path.size(), "FILE");
    return {family.m_packageSection, lines};
}

TEST(BadPartData, OwnReaderTakesLineEndVariantsAndBytesSilently) {
    const auto clean = readWithOwnReader(kCleanPartData);
    ASSERT_EQ(clean.section.m_items, (Strings{"LUT", "FF"}));
    for (const std::string& text : {withCrlf(kCleanPartData), withoutFinalNewline(kCleanPartData),
                                    withoutFinalNewline(withCrlf(kCleanPartData))}) {
        const auto variant = readWithOwnReader(text);
        EXPECT_EQ(variant.section.m_items, clean.section.m_items);
        EXPECT_EQ(variant.section.m_datas, clean.section.m_datas);
        EXPECT_TRUE(variant.traces.empty());
    }
    const auto latin = readWithOwnReader(kCleanPartData + "Z\xe9_BG10 = 1, \xc3\xa4\n");
    EXPECT_EQ(latin.section.m_datas.at("Z\xe9_BG10"), (Strings{"1", "\xc3\xa4"}));
    EXPECT_TRUE(latin.traces.empty());
}

TEST(BadPartData, OwnReaderNamesLongLinesAndNulBytesOnce) {
    // Line 5 holds 5000 characters: read as a row of its first 4095 and a
    // second "row" of the rest, which is not a row anyone asks for.
    const std::string longRow = "BQ9_BG10 = 1, " + std::string(4986, '2') + "\n";
    ASSERT_EQ(longRow.size(), 5001u);
    const auto longResult = readWithOwnReader(kCleanPartData + longRow + longRow);
    EXPECT_EQ(longResult.section.m_datas.at("BQ2_BG10"), (Strings{"1280", "1400"}));
    EXPECT_EQ(longResult.section.m_datas.at("BQ9_BG10").size(), 2u);
    EXPECT_EQ(longResult.section.m_datas.at("BQ9_BG10")[1].size(), 4095u - 14u);
    EXPECT_EQ(longResult.traces,
              Strings{"FILE:5: line longer than 4095 characters, read in pieces"});

    std::string withNul = kCleanPartData;
    withNul.replace(withNul.find("1280"), 0, std::string("\0", 1));  // line 4
    withNul += std::string("BQ7_BG10 = 3\0, 4\n", 17);
    const auto nulResult = readWithOwnReader(withNul);
    EXPECT_EQ(nulResult.section.m_datas.at("BQ1_BG10"), (Strings{"640", "700"}));
    EXPECT_EQ(nulResult.section.m_datas.at("BQ7_BG10"), (Strings{"3"}));
    EXPECT_EQ(nulResult.traces, Strings{"FILE:4: NUL byte; the rest of the line is ignored"});
}

}  // namespace
