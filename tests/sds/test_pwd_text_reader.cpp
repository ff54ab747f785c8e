#include <gtest/gtest.h>

#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

using devctrl_test::TempDir;
using tarn::vyxpn::TarnSDSFile;
using Row = std::vector<std::string>;

TEST(PwdTextReader, KeepsRequestedColumnsInFileOrderAndCollapsesEmptyFields) {
    TempDir dir;
    std::string path = dir.write("zr1a00.pwd",
                                 "Format = ignored, before, the, section\n"
                                 "[[Device Info]]\n"
                                 "\n"
                                 "format = ff, RAM, lut\n"
                                 "P1 = 10,,30\n"
                                 "P2 = 1, 2, 3\n"
                                 "P2 = 4, 5, 6\n"
                                 "P3 = 7, , 9\n"
                                 "[[Next]]\n"
                                 "P4 = 1, 2, 3\n");
    TarnSDSFile file("zr1a00", nullptr);
    ASSERT_TRUE(file.loadPWD(path, {"LUT", "FF"}));
    const auto& section = file.m_packageSection;
    EXPECT_EQ(section.m_items, (Row{"ff", "lut"}));
    // "10,,30" is two fields, so 30 moves into the RAM column and is dropped.
    EXPECT_EQ(section.m_datas.at("P1"), (Row{"10"}));
    EXPECT_EQ(section.m_datas.at("P2"), (Row{"4", "6"}));  // the last row of a key wins
    // A blank between commas is a field of its own, trimmed to empty.
    EXPECT_EQ(section.m_datas.at("P3"), (Row{"7", "9"}));
    EXPECT_EQ(section.m_datas.count("P4"), 0u);
    EXPECT_EQ(section.m_datas.size(), 3u);
}

TEST(PwdTextReader, SecondFormatLineAddsToTheKeepList) {
    TempDir dir;
    std::string path = dir.write("x.pwd",
                                 "[[Device Info]]\n"
                                 "Format = LUT, RAM, DSP\n"
                                 "FORMAT = A, B, LUT\n"
                                 "P1 = 1, 2, 3\n");
    TarnSDSFile file("zr1a00", nullptr);
    ASSERT_TRUE(file.loadPWD(path, {"lut"}));
    // Positions 0 (first line) and 2 (second line) over the second line's names.
    EXPECT_EQ(file.m_packageSection.m_items, (Row{"A", "LUT"}));
    EXPECT_EQ(file.m_packageSection.m_datas.at("P1"), (Row{"1", "3"}));
}

TEST(PwdTextReader, NothingRequestedOrMissingFile) {
    TempDir dir;
    std::string path = dir.write("x.pwd", "[[Device Info]]\nFormat = LUT\nZR4_BG100 = 1\n");
    TarnSDSFile file("zr1a00", nullptr);
    file.m_packageSection.m_items = {"PKGIndex"};
    file.m_packageSection.m_datas["ZR4_BG100"] = {"0"};
    ASSERT_TRUE(file.loadPWD(path, {}));
    EXPECT_EQ(file.m_packageSection.m_items, (Row{"PKGIndex"}));
    EXPECT_EQ(file.m_packageSection.m_datas.at("ZR4_BG100"), (Row{"0"}));

    EXPECT_FALSE(file.loadPWD(dir.file("missing.pwd"), {"LUT"}));
    EXPECT_EQ(file.m_packageSection.m_items, (Row{"PKGIndex"}));
}

TEST(PwdTextReader, OverlongLineIsReadInPieces) {
    TempDir dir;
    // 4095 characters fill the buffer; the rest of the line comes as a line
    // of its own.
    std::string first = "P1 = 1" + std::string(4095 - 6, ' ');
    std::string path =
        dir.write("x.pwd", "[[Device Info]]\nFormat = LUT\n" + first + "P9 = 2\nP2 = 3\n");
    TarnSDSFile file("zr1a00", nullptr);
    ASSERT_TRUE(file.loadPWD(path, {"LUT"}));
    const auto& rows = file.m_packageSection.m_datas;
    EXPECT_EQ(rows.at("P1"), (Row{"1"}));
    EXPECT_EQ(rows.at("P9"), (Row{"2"}));
    EXPECT_EQ(rows.at("P2"), (Row{"3"}));
}
