// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <stdexcept>

#include "devctrl/sds/sds_file.h"

using namespace tarn::vyxpn;

TEST(SdsPartNames, ShortPackageFollowsPkgIndex) {
    TarnSDSFile file("zr1a00", nullptr);
    file.m_pkgAlias["BG100"] = {"B100", "BX"};
    file.m_packageSection.m_items = {"PKGIndex"};
    file.m_packageSection.m_datas["ZR4_BG100"] = {"1"};
    file.m_packageSection.m_datas["ZR9_BG100"] = {"2"};
    file.m_packageSection.m_datas["ZR7_BG100"] = {"-1"};

    EXPECT_EQ(file.getShortPackage("ZR4", "QF48"), "QF48") << "no aliases";
    EXPECT_EQ(file.getShortPackage("ZR12", "BG100"), "B100") << "no PKGIndex means 0";
    EXPECT_EQ(file.getShortPackage("ZR9", "BG100"), "BG100") << "index past the aliases";
    EXPECT_THROW(file.getShortPackage("ZR7", "BG100"), std::out_of_range);

    EXPECT_EQ(file.createPart("ZR4", "6", "BG100", 'c', "es"), "ZR4-6BXCES");
    EXPECT_EQ(file.createPart("zr12", "6", "qf48", 'a', ""), "ZR12-6QF48E")
        << "automotive parts carry the letter E";
    EXPECT_EQ(file.createInnerPart("ZR4", "12", "BG100", "es"), "ZR4-XXBXES")
        << "the speed never enters the inner name";
}
