#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/pm_pic.h"
#include "support/test_env.h"

using devctrl_test::DataDirScope;
using devctrl_test::TempDir;

namespace {

std::vector<std::string> namesOf(const PM_NAME_DARRAY& array) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < array.size(); ++i)
        names.push_back(array[i].getstring(0));
    return names;
}

// Two PMs; "zq" sorts before "zr1a00" byte-wise.
class PmPic : public ::testing::Test {
  protected:
    PmPic() {
        m_data.write("zr1a00/family.key",
                     "FAMILY = ZR1, ZR1L\n"
                     "DEVICES = ZR4, ZR12\n"
                     "PACKAGES = ZR4, QF48, BG100 : ZR12, BG100\n"
                     "SPEEDS = ZR4, QF48, 6/CI, 7/C : ZR12, BG100, 8/I\n");
        m_data.write("zr1a00/zr1a00.pwd", "[[Device Info]]\n");
        m_data.write("zq/family.key", "FAMILY = ZQ\n");
    }

    TempDir m_data;
    DataDirScope m_scope{m_data.path()};
};

}  // namespace

TEST_F(PmPic, SelectsPmByCodeOrFamilyAndFindsItsDataFile) {
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    EXPECT_EQ(pic.getPmName(0), nullptr);
    EXPECT_EQ(pic.getDataFilePath(0, ".pwd", 0, 1), nullptr);
    EXPECT_TRUE(pic.setPmInternal("zr1l", 0));
    EXPECT_STREQ(pic.getPm(0)->familyName.getstring(0), "ZR1");
    EXPECT_TRUE(pic.set_pm("zr1a00", 0));
    EXPECT_EQ(std::string(pic.getDataFilePath(0, ".pwd", 0, 1)),
              m_data.path() + "/zr1a00/zr1a00.pwd");
    EXPECT_EQ(pic.getDataFilePath(0, ".acd", 0, 1), nullptr) << "only files that exist";

    EXPECT_FALSE(pic.set_pm("ZR1A00", 0));  // codes are exact
    EXPECT_EQ(pic.getPmName(0), nullptr);
    EXPECT_EQ(pic.getPm(0), nullptr);
    EXPECT_FALSE(pic.set_pm(nullptr, 0));
}

// The lists themselves are checked through the manager's base queries.
TEST_F(PmPic, SelectionBelowAnUnknownNameIsCleared) {
    PM_PIC pic(nullptr, nullptr, nullptr, 0);
    EXPECT_EQ(namesOf(pic.makeInstalledArchList(0)),
              (std::vector<std::string>{"ZQ", "ZR1", "ZR1L"}));
    EXPECT_FALSE(pic.makeDeviceList(0));  // nothing selected: missing array
    PM_PIC chosen("zr1", "ZR4", "QF48", 0);
    EXPECT_FALSE(chosen.set_speed("6/CI", 0));  // grades are named without conditions
    ASSERT_TRUE(chosen.set_speed("7", 0));
    EXPECT_EQ(chosen.getSpeedRecord()->conditionFlags, PM_COND_COMMERCIAL);
    EXPECT_FALSE(chosen.set_device("zr4"));
    EXPECT_FALSE(chosen.makePkgList(0));
    EXPECT_FALSE(chosen.makeSpdList(0));
    EXPECT_FALSE(chosen.set_package("QF48"));

    PM_PIC wrongPackage("ZR1", "ZR12", "QF48", 0);
    EXPECT_FALSE(wrongPackage.makeSpdList(0));
    EXPECT_TRUE(wrongPackage.makePkgList(0));
}
