// SPDX-License-Identifier: MIT
// The family's two readers of the part data file, and how their columns
// join the package table.
#include <gtest/gtest.h>

#include "devctrl/sds/sds_file.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "support/test_env.h"

using devctrl_test::TempDir;
using tarn::vyxpn::TarnSDSFile;
using tarn::vyxpn::TarnSDSFileSection;
using Row = std::vector<std::string>;

namespace {

const char* const kPartData =
    "[[Device Info]]\nFormat = ff, RAM, lut\n"
    "ZR4_BG100 = 10,,30\nZR4_QF48 = 1, 2, 3\nZR4_QF48 = 4, 5, 6\nZR9_XX1 = 7, , 9\n";

void fillPackageSection(TarnSDSFile& file) {
    file.m_packageSection.m_items = {"PKGIndex"};
    file.m_packageSection.m_datas["ZR4_BG100"] = {"0"};
    file.m_packageSection.m_datas["ZR4_QF48"] = {"1"};
    file.m_packageSection.m_datas["ZR7_QF48"] = {"2"};
}

}  // namespace

TEST(PwdTextReader, KeepsRequestedColumnsAndCollapsesEmptyFields) {
    TempDir dir;
    std::string path = dir.write("x.pwd", std::string(kPartData) + "[[Next]]\nP4 = 1, 2, 3\n");
    TarnSDSFile file("zr1a00", nullptr);
    ASSERT_TRUE(file.loadPWD(path, {"LUT", "FF"}));
    const auto& section = file.m_packageSection;
    EXPECT_EQ(section.m_items, (Row{"ff", "lut"}));
    // "10,,30" is two fields, so 30 moves into the RAM column and is dropped;
    // a blank between commas is a field of its own.
    EXPECT_EQ(section.m_datas.at("ZR4_BG100"), (Row{"10"}));
    EXPECT_EQ(section.m_datas.at("ZR4_QF48"), (Row{"4", "6"})) << "the last row of a key wins";
    EXPECT_EQ(section.m_datas.at("ZR9_XX1"), (Row{"7", "9"}));
    EXPECT_EQ(section.m_datas.count("P4"), 0u);
}

TEST(PwdLibraryReader, TextAndBinaryFormsMergeTheSameColumns) {
    TempDir dir;
    devctrl_test::EnvGuard env("DEVCTRL_DATA_DIR", dir.path().c_str());
    const std::string text =
        std::string(kPartData) + "[[More]]\nFormat = LUT, FF\nZR4_BG100 = 11, 12\n";
    const std::string path = dir.write("zr1a00/zr1a00.pwd", text);
    TarnSDSFile fromText("zr1a00", nullptr);
    fillPackageSection(fromText);
    ASSERT_EQ(fromText.loadPWD_Bin("zr1a00", "/ignored/", {"LUT", "FF"}), 0);
    const TarnSDSFileSection& section = fromText.m_packageSection;
    // Both "Format" tables are appended, one after the other, a column name
    // seen before included. Unlike the text reader above, empty fields keep
    // their column. Rows only the part data has are dropped; rows it lacks
    // stay short.
    EXPECT_EQ(section.m_items, (Row{"PKGIndex", "ff", "lut", "LUT", "FF"}));
    EXPECT_EQ(section.m_datas.at("ZR4_BG100"), (Row{"0", "10", "30", "11", "12"}));
    EXPECT_EQ(section.m_datas.at("ZR4_QF48"), (Row{"1", "4", "6"}));
    EXPECT_EQ(section.m_datas.at("ZR7_QF48"), Row{"2"});
    EXPECT_EQ(section.m_datas.count("ZR9_XX1"), 0u);

    PD_DATA data;
    ASSERT_TRUE(data.LoadTxtString(text));
    ASSERT_TRUE(PD_SaveBinFile(data, path.c_str()));
    TarnSDSFile fromBinary("zr1a00", nullptr);
    fillPackageSection(fromBinary);
    ASSERT_EQ(fromBinary.loadPWD_Bin("zr1a00", "/ignored/", {"LUT", "FF"}), 0);
    EXPECT_EQ(fromBinary.m_packageSection.m_items, section.m_items);
    EXPECT_EQ(fromBinary.m_packageSection.m_datas, section.m_datas);
}

TEST(PwdLibraryReader, FormatSectionThatIsNoTableIsTracedWithItsFile) {
    TempDir dir;
    devctrl_test::EnvGuard env("DEVCTRL_DATA_DIR", dir.path().c_str());
    const std::string path = dir.write("zr1a00/zr1a00.pwd", "");
    PD_DATA data;
    data.AddKeySection("Format");
    ASSERT_TRUE(PD_SaveBinFile(data, path.c_str()));

    devctrl_test::TraceCapture traces;
    TarnSDSFile file("zr1a00", nullptr);
    fillPackageSection(file);
    EXPECT_EQ(file.loadPWD_Bin("zr1a00", "/ignored/", {"LUT"}), 0);
    EXPECT_EQ(file.m_packageSection.m_items, Row{"PKGIndex"}) << "nothing merged";
    ASSERT_EQ(traces.lines().size(), 1u);
    EXPECT_NE(traces.lines()[0].find("zr1a00.pwd: Device Info must have _TBLSECT format"),
              std::string::npos)
        << traces.lines()[0];
}
