#include <gtest/gtest.h>

#include "devctrl/sds/sds_file.h"

using tarn::vyxpn::TarnSDSFile;
using tarn::vyxpn::TarnSDSFileSection;
using Row = std::vector<std::string>;

namespace {

TarnSDSFileSection partData() {
    TarnSDSFileSection pwd;
    pwd.m_items = {"LUT", "FF"};
    pwd.m_datas["ZR4_BG100"] = {"640", "600"};
    pwd.m_datas["ZR4_QF48"] = {"320", "300"};
    return pwd;
}

}  // namespace

TEST(PwdMerge, EmptyOrPlaceholderColumnsTakeThePartDataWhole) {
    TarnSDSFile file("zr1a00", nullptr);
    for (bool placeholder : {false, true}) {
        TarnSDSFileSection acd;
        if (placeholder)
            acd.m_items = {""};
        acd.m_datas["OLD_ROW"] = {"x"};  // dropped together with the old columns
        TarnSDSFileSection pwd = partData();
        EXPECT_TRUE(file.mergePWDToACD(acd, pwd));
        EXPECT_EQ(acd.m_items, (Row{"LUT", "FF"}));
        ASSERT_EQ(acd.m_datas.size(), 2u);
        EXPECT_EQ(acd.m_datas["ZR4_QF48"], (Row{"320", "300"}));
    }
}

TEST(PwdMerge, AppendsColumnsAndPartnerRowsOnly) {
    TarnSDSFile file("zr1a00", nullptr);
    TarnSDSFileSection acd;
    acd.m_items = {"PKGIndex", "LUT"};
    acd.m_datas["ZR4_AA10"] = {"0", "1"};
    acd.m_datas["ZR4_BG100"] = {"1", "2"};
    TarnSDSFileSection pwd = partData();
    pwd.m_datas["ZR9_CC1"] = {"9", "9"};
    EXPECT_TRUE(file.mergePWDToACD(acd, pwd));
    // A column name both sides have is simply there twice.
    EXPECT_EQ(acd.m_items, (Row{"PKGIndex", "LUT", "LUT", "FF"}));
    EXPECT_EQ(acd.m_datas["ZR4_AA10"], (Row{"0", "1"}));  // no partner: left short
    EXPECT_EQ(acd.m_datas["ZR4_BG100"], (Row{"1", "2", "640", "600"}));
    EXPECT_EQ(acd.m_datas.count("ZR9_CC1"), 0u);
    EXPECT_EQ(acd.m_datas.count("ZR4_QF48"), 0u);
    // The first "LUT" stays the one a lookup finds.
    EXPECT_EQ(*acd.cell("ZR4_BG100", acd.columnOf("LUT")), "2");
}

TEST(PwdMerge, NothingKeptAddsNothing) {
    TarnSDSFile file("zr1a00", nullptr);
    TarnSDSFileSection acd;
    acd.m_items = {"PKGIndex"};
    acd.m_datas["ZR4_BG100"] = {"1"};
    TarnSDSFileSection pwd;
    pwd.m_datas["ZR4_BG100"] = {};
    EXPECT_TRUE(file.mergePWDToACD(acd, pwd));
    EXPECT_EQ(acd.m_items, (Row{"PKGIndex"}));
    EXPECT_EQ(acd.m_datas["ZR4_BG100"], (Row{"1"}));
}
