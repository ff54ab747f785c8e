#include <gtest/gtest.h>

#include "devctrl/device/device_obj.h"
#include "device/asc_family_fixture.h"

using tarn::vyxpn::TarnDeviceObj;

namespace {

class Validation : public ::testing::Test {
  protected:
    void SetUp() override { mngr->adoptFamilyFile(devctrl_test::makeAscFamily(&*mngr)); }

    // The message, or "valid" (with the message left as it was).
    std::string check(const std::string& part, std::vector<std::string> ascs = {}) {
        TarnDeviceObj device(part);
        device.m_ascList = std::move(ascs);
        std::string message = "untouched";
        bool valid = mngr->isValid(device, message);
        if (valid)
            return message == "untouched" ? "valid" : "valid but wrote: " + message;
        return message;
    }

    devctrl_test::ScopedManager mngr;
};

TEST_F(Validation, UnknownPartsAreRefusedAsTheyStand) {
    EXPECT_EQ(check(""), " is invalid device or not supported");
    EXPECT_EQ(check("ZR99-6BG100C"), "ZR99-6BG100C is invalid device or not supported");
    EXPECT_EQ(check("zr4-6bg100c"), "zr4-6bg100c is invalid device or not supported");
}

TEST_F(Validation, PartsWithoutChipsAreValidWhateverTheirCapacity) {
    EXPECT_EQ(check("ZR12-6BG100C"), "valid");  // no ASC items, capacity 0
    EXPECT_EQ(check("ZR12-7BG100C"), "valid");  // nothing on board
}

TEST_F(Validation, LinkedChipsMustBeLinkableBeforeAnyCountIsLookedAt) {
    EXPECT_EQ(check("ZR4-6BG100C", {"AX3"}),
              "ASC chip 'AX3' is invalid or unsupported ASC chip for device 'ZR4-6BG100C'");
    // Of two unsupported types the one that sorts first is named.
    EXPECT_EQ(check("ZR4-6BG100C", {"AX3", "AB"}),
              "ASC chip 'AB' is invalid or unsupported ASC chip for device 'ZR4-6BG100C'");
    // Capacity 0 here, but the unsupported chip is reported first.
    EXPECT_EQ(check("ZR4-6QF48C", {"AX1"}),
              "ASC chip 'AX1' is invalid or unsupported ASC chip for device 'ZR4-6QF48C'");
    // Without linkable-type data no chip can be linked.
    EXPECT_EQ(check("ZR12-6BG100C", {"AX1"}),
              "ASC chip 'AX1' is invalid or unsupported ASC chip for device 'ZR12-6BG100C'");
}

TEST_F(Validation, CapacityCountsOnBoardChips) {
    // Capacity 4 with two chips on board leaves room for two.
    EXPECT_EQ(check("ZR4-6BG100C", {"AX1", "AX2"}), "valid");
    EXPECT_EQ(check("ZR4-6BG100C", {"AX1", "AX2", "AX1"}),
              "Total external linked ASC chips number 2 for device 'ZR4-6BG100C' will be "
              "exceeded");
    // On-board chips alone need a capacity above 0.
    EXPECT_EQ(check("ZR4-6QF48C"), "Can't add external ASC chip for device 'ZR4-6QF48C'.");
    EXPECT_EQ(check("ZR4-6QF48C", {"AX3"}), "Can't add external ASC chip for device 'ZR4-6QF48C'.");
    EXPECT_EQ(check("ZR12-7BG100C", {"AX1", "AX3"}), "valid");
    EXPECT_EQ(check("ZR12-7BG100C", {"AX1", "AX3", "AX3"}),
              "Total external linked ASC chips number 2 for device 'ZR12-7BG100C' will be "
              "exceeded");
}

class CheckDevice : public Validation {
  protected:
    // The result and, after a colon, the name to use ("-" when untouched).
    std::string checkName(const std::string& name) {
        std::string newName = "-";
        int result = mngr->checkDevice(name, newName);
        return std::to_string(result) + ":" + newName;
    }
};

TEST_F(CheckDevice, FollowsTheNameListAndTheSampleSuffix) {
    mngr.dataDir().write("pqrndev.lst",
                         "[Name Transfer]\n"
                         "ZR4-5BG100C=ZR4-6BG100C\n"
                         "ZR5-6BG100C=ZR55-6BG100C\n"
                         "[MIGRATION]\n"
                         "ZR2-6BG100C=ZR12-6BG100C\n"
                         "ZR3-6BG100C=ZR33-6BG100C\n"
                         "[Not Recommend]\n"
                         "ZR4-6QF48C=ZR12-7BG100C\n"
                         "ZR9-6QF48C=ZR4-6BG100C\n");
    EXPECT_EQ(checkName("ZR4-5BG100C"), "3:ZR4-6BG100C");   // renamed to a known part
    EXPECT_EQ(checkName("ZR5-6BG100C"), "1:-");             // renamed to an unknown one
    EXPECT_EQ(checkName("ZR2-6BG100C"), "3:ZR12-6BG100C");  // migrated
    EXPECT_EQ(checkName("ZR3-6BG100C"), "1:-");
    EXPECT_EQ(checkName("ZR4-6QF48C"), "4:ZR12-7BG100C");  // known, replacement advised
    EXPECT_EQ(checkName("ZR9-6QF48C"), "1:-");             // the given name must exist
    EXPECT_EQ(checkName("ZR12-6BG100C"), "0:-");
    EXPECT_EQ(checkName("ZR4-6BG100CES"), "3:ZR4-6BG100C");  // engineering sample
    EXPECT_EQ(checkName("ZR4-6BG100Ces"), "1:-");
    EXPECT_EQ(checkName("ZR99-6BG100CES"), "1:-");
    EXPECT_EQ(checkName("ES"), "1:-");
    EXPECT_EQ(checkName(""), "1:-");
}

TEST_F(CheckDevice, WithoutNameListOnlyExistenceCounts) {
    EXPECT_EQ(checkName("ZR4-6BG100C"), "0:-");
    EXPECT_EQ(checkName("ZR4-5BG100C"), "1:-");
    EXPECT_EQ(checkName("ZR4-6BG100CES"), "3:ZR4-6BG100C");
}

}  // namespace
