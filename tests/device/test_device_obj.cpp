#include <gtest/gtest.h>

#include "devctrl/device/device_obj.h"
#include "device/asc_family_fixture.h"

using tarn::vyxpn::TarnDeviceObj;

namespace {

TarnDeviceObj deviceWith(const std::string& part, std::vector<std::string> ascs) {
    TarnDeviceObj device(part);
    device.m_ascList = std::move(ascs);
    return device;
}

TEST(DeviceObj, EqualityNeedsSamePartAndSameChipOrder) {
    TarnDeviceObj a = deviceWith("ZR4-6BG100C", {"B", "A", "B"});
    EXPECT_TRUE(a == deviceWith("ZR4-6BG100C", {"B", "A", "B"}));
    // Same chips in another order: different objects, same text.
    TarnDeviceObj reordered = deviceWith("ZR4-6BG100C", {"A", "B", "B"});
    EXPECT_FALSE(a == reordered);
    EXPECT_EQ(a.toString(false), reordered.toString(false));
    EXPECT_FALSE(a == deviceWith("ZR4-6BG100C", {"B", "A"}));
    EXPECT_FALSE(a == deviceWith("zr4-6bg100c", {"B", "A", "B"}));
}

TEST(DeviceObj, TextFormListsChipsByNameWithCounts) {
    TarnDeviceObj device = deviceWith("P", {"B", "A", "B"});
    EXPECT_EQ(device.toString(false), "P {A 1} {B 2}");
    EXPECT_EQ(device.toString(true), "{A 1} {B 2}");
    EXPECT_EQ(TarnDeviceObj("P").toString(false), "P");
    EXPECT_EQ(TarnDeviceObj("P").toString(true), "");
    // No leading blank when the part is empty.
    EXPECT_EQ(deviceWith("", {"A"}).toString(false), "{A 1}");
}

TEST(DeviceObj, AscMapCountsExactNames) {
    EXPECT_EQ(deviceWith("P", {"ax1", "AX1", "AX1", "AX1 "}).getAscMap(),
              (std::map<std::string, int>{{"AX1", 2}, {"ax1", 1}, {"AX1 ", 1}}));
    EXPECT_TRUE(TarnDeviceObj("P").getAscMap().empty());
}

TEST(DeviceObj, OnBoardChipsComeFromTheManager) {
    devctrl_test::ScopedManager mngr;
    mngr->adoptFamilyFile(devctrl_test::makeAscFamily(&*mngr));

    TarnDeviceObj stocked = deviceWith("ZR4-6BG100C", {"AX1"});
    EXPECT_EQ(stocked.internalTotalAscNumber(), 2);
    EXPECT_EQ(stocked.externalTotalAscNumber(), 1);
    EXPECT_EQ(stocked.totalAscNumber(), 3);
    EXPECT_TRUE(stocked.useASC());

    // Unknown part, malformed stock and no stock all count as none on board.
    EXPECT_EQ(TarnDeviceObj("ZR99-6BG100C").internalTotalAscNumber(), 0);
    EXPECT_EQ(TarnDeviceObj("ZR25-6BG100C").internalTotalAscNumber(), 0);
    EXPECT_FALSE(TarnDeviceObj("ZR12-6BG100C").useASC());
    EXPECT_FALSE(TarnDeviceObj("ZR12-7BG100C").useASC());

    // An empty part has nothing on board; only linked chips make it use ASC.
    EXPECT_EQ(TarnDeviceObj().internalTotalAscNumber(), 0);
    EXPECT_FALSE(TarnDeviceObj().useASC());
    EXPECT_TRUE(deviceWith("", {"AX1"}).useASC());
}

TEST(DeviceObj, OnBoardCountFollowsReloadedFamilyData) {
    devctrl_test::ScopedManager mngr;
    auto* family = devctrl_test::makeAscFamily(&*mngr);
    mngr->adoptFamilyFile(family);
    TarnDeviceObj device("ZR4-6QF48C");
    EXPECT_EQ(device.totalAscNumber(), 1);

    auto* changed = devctrl_test::makeAscFamily(&*mngr);
    changed->m_partSection.m_datas["ZR4-6QF48C"][0] = "3|1|0";
    mngr->adoptFamilyFile(changed);
    EXPECT_EQ(device.totalAscNumber(), 4);
}

}  // namespace
