#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

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
    EXPECT_EQ(file.getShortPackage("ZR4", "BG100"), "BX");
    EXPECT_EQ(file.getShortPackage("ZR12", "BG100"), "B100") << "no PKGIndex means 0";
    EXPECT_EQ(file.getShortPackage("ZR9", "BG100"), "BG100") << "index past the aliases";
    EXPECT_THROW(file.getShortPackage("ZR7", "BG100"), std::out_of_range);

    EXPECT_EQ(file.createPart("ZR4", "6", "BG100", 'c', "es"), "ZR4-6BXCES");
    EXPECT_EQ(file.createPart("zr12", "6", "qf48", 'a', ""), "ZR12-6QF48E")
        << "automotive parts carry the letter E";
    EXPECT_EQ(file.createPart("ZR12", "6", "QF48", 'A', ""), "ZR12-6QF48E");
    EXPECT_EQ(file.createInnerPart("ZR4", "12", "BG100", "es"), "ZR4-XXBXES")
        << "the speed never enters the inner name";
}

TEST(SdsPartNames, ConditionNamesAndObsoleteStatus) {
    for (auto [letter, name] :
         {std::pair{'c', "COM"}, {'I', "IND"}, {'a', "AUTO"}, {'E', ""}, {'X', ""}})
        EXPECT_EQ(TarnSDSFile::getFullConditionName(letter), name) << letter;

    TarnSDSFile file("zr1a00", nullptr);
    file.m_genericDevices.m_items = {"Device", "Speed", "Package", "Condition", "Status"};
    // Obsolete: a one- or two-letter status holding O, in any case.
    for (auto [status, obsolete] :
         {std::pair{"PO", true}, {"OBS", false}, {"o", true}, {"", false}}) {
        file.m_genericDevices.m_datas["P-1"] = {"P", "1", "Q", "COM", status};
        EXPECT_EQ(file.isObsDevice("P-1"), obsolete) << '"' << status << '"';
    }
    EXPECT_FALSE(file.isObsDevice("P-5"));

    std::string device = "d", package = "p", speed = "s", condition = "c";
    EXPECT_FALSE(file.getNameByPart("p-1", device, package, speed, condition));
    EXPECT_EQ(device + package + speed + condition, "dpsc") << "outputs untouched";
    ASSERT_TRUE(file.getNameByPart("P-1", device, package, speed, condition));
    EXPECT_EQ(device + "|" + package + "|" + speed + "|" + condition, "P|Q|1|COM");
    file.m_genericDevices.m_items[2] = "Pkg";
    EXPECT_FALSE(file.getNameByPart("P-1", device, package, speed, condition));
}
