// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "devctrl/mngr/device_mngr.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using tarn::vyxpn::StringList;

namespace {

// Base lists straight from family.key, with per-grade conditions.
void writeBaseFamily(const devctrl_test::TempDir& dir, const std::string& pm,
                     const std::string& family) {
    dir.write(pm + "/family.key", "FAMILY = " + family +
                                      "\nDEVICES = ZR12, ZR4\n"
                                      "PACKAGES = ZR12, BG100, QF48 : ZR4, QF48\n"
                                      "SPEEDS = ZR12, BG100, 12, 6/CI, 7/C, 8/I : ZR4, QF48, 6\n");
    dir.write(pm + "/device.acd",
              "PM_ENABLE = true\nPKG_ALIAS = BG100, B100\n"
              "DEVICE_ITEMS = Status\nDEVICE_DATAS = ZR12, P : ZR4, P\n");
}

}  // namespace

TEST(MngrEnumeration, FamiliesAppendedAndSortedAndBaseLists) {
    devctrl_test::TempDir dir;
    writeBaseFamily(dir, "zr1a00", "ZR12X");
    writeBaseFamily(dir, "zr2b00", "ZR4X");
    writeBaseFamily(dir, "zr3c00", "ZR4X");  // the same family name again
    devctrl_test::DataDirScope scope(dir.path());
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    // A family name selects its first PM only, so the second PM of ZR4X is
    // not loaded with the others.
    EXPECT_EQ(mngr.getFamilyFiles().size(), 2u);
    ASSERT_TRUE(mngr.loadDeviceInfo("zr3c00", true));

    StringList out{"ZR5X"};
    mngr.getAllFamilies(out, true, false);
    EXPECT_EQ(out, (StringList{"ZR4X", "ZR4X", "ZR5X", "ZR12X"})) << "appended; duplicates stay";
    // Base lists read family.key: speed grades in natural order, conditions
    // per grade; generation uses the same conditions.
    TarnDeviceMngr::baseGetSpeeds("zr1a00", "ZR12", "BG100", out);
    EXPECT_EQ(out, (StringList{"6", "7", "8", "12"}));
    TarnDeviceMngr::baseGetOperations("zr1a00", "ZR12", "BG100", "6", out);
    EXPECT_EQ(out, (StringList{"Commercial", "Industrial"}));
    TarnDeviceMngr::baseGetOperations("zr1a00", "ZR12", "BG100", "8", out);
    EXPECT_EQ(out, StringList{"Industrial"});
    mngr.getOperations("zr1a00", "ZR12", "BG100", "8", out, false, false);
    EXPECT_EQ(out, (StringList{"COM", "IND"}));
}
