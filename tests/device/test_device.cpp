// Chips, resources, feature switches and validation of one part, asked
// through a manager holding the small in-memory family.

#include <gtest/gtest.h>

#include <stdexcept>

#include "devctrl/device/device_obj.h"
#include "device/asc_family_fixture.h"

using tarn::vyxpn::KeyValueReport;
using tarn::vyxpn::TarnDeviceObj;

namespace {

TarnDeviceObj deviceWith(const std::string& part, std::vector<std::string> ascs = {}) {
    TarnDeviceObj device(part);
    device.m_ascList = std::move(ascs);
    return device;
}

class Device : public ::testing::Test {
  protected:
    void SetUp() override {
        family = devctrl_test::makeAscFamily(&*mngr);
        family->m_deviceSection.m_items = {"SynplifyEnable", "PrecisionEnable", "ICFEnable",
                                           "LSTEnable", "BitOff"};
        family->m_deviceSection.m_datas["ZR4"] = {"no", "N", "Yes", "t", "1"};
        family->m_deviceSection.m_datas["ZR25"] = {"", "on", "", "", "0"};
        family->m_partSection.m_datas["ZR12-7BG100C"].push_back("PRECISION");
        mngr->adoptFamilyFile(family);
    }
    // The manager's report as "yes: K=V ..." or "no: ...".
    std::string report(const std::string& part, std::vector<std::string> linked) {
        KeyValueReport data;
        TarnDeviceObj device = deviceWith(part, linked);
        std::string text = mngr->calcDeviceData(device, data) ? "yes:" : "no:";
        for (const auto& [key, value] : data)
            text += " " + key + "=" + value;
        return text;
    }
    // The message, or "valid" when the message was left as it was.
    std::string check(const std::string& part, std::vector<std::string> ascs = {}) {
        std::string message = "untouched";
        bool valid = mngr->isValid(deviceWith(part, ascs), message);
        return valid && message == "untouched" ? "valid" : message;
    }
    devctrl_test::ScopedManager mngr;
    tarn::vyxpn::TarnSDSFile* family = nullptr;
};

TEST_F(Device, ReportIsDeviceRowThenOnBoardAndLinkedChipTotals) {
    // Two on-board AX2 and one linked AX1: ADC 2*6+4, GPIO 2*10+8, DAC 2.
    EXPECT_EQ(report("ZR4-6BG100C", {"AX1"}), "yes: LUT=640 FF=600 EBR=2 ADC=16 GPIO=28 DAC=2");
    EXPECT_EQ(report("ZR12-7BG100C", {}), "yes: LUT=1280 FF=1200 EBR=4") << "no chips at all";
    // Stock data needs one field per chip type; the device rows stay when it fails.
    EXPECT_EQ(report("ZR12-6BG100C", {"AX1"}), "no: LUT=1280 FF=1200 EBR=4");
    EXPECT_EQ(report("ZR99-6BG100C", {}), "no:");
    // A catalogue row too short for a resource column is an error, not zero.
    std::map<std::string, int> resources;
    EXPECT_THROW(family->_calcASCDataByType("AX3", 1, resources), std::out_of_range);
}

TEST_F(Device, ChipCountsFollowReloadedFamilyData) {
    TarnDeviceObj stocked = deviceWith("ZR4-6BG100C", {"AX1"});
    EXPECT_EQ(stocked.internalTotalAscNumber(), 2);
    EXPECT_EQ(stocked.totalAscNumber(), 3);
    EXPECT_EQ(TarnDeviceObj("ZR25-6BG100C").internalTotalAscNumber(), 0) << "malformed stock";
    EXPECT_FALSE(TarnDeviceObj("ZR12-7BG100C").useASC());
    EXPECT_TRUE(deviceWith("", {"AX1"}).useASC());

    TarnDeviceObj device("ZR4-6QF48C");
    EXPECT_EQ(device.totalAscNumber(), 1);
    auto* changed = devctrl_test::makeAscFamily(&*mngr);
    changed->m_partSection.m_datas["ZR4-6QF48C"][0] = "3|1|0";
    mngr->adoptFamilyFile(changed);
    EXPECT_EQ(device.totalAscNumber(), 4);
}

TEST(DeviceObj, TextFormListsChipsByNameWithCountsButEqualityKeepsOrder) {
    TarnDeviceObj device = deviceWith("P", {"B", "A", "B"});
    EXPECT_EQ(device.toString(false), "P {A 1} {B 2}");
    EXPECT_EQ(device.toString(true), "{A 1} {B 2}");
    EXPECT_EQ(TarnDeviceObj("P").toString(false), "P");
    EXPECT_EQ(TarnDeviceObj("P").toString(true), "");
    EXPECT_TRUE(device == deviceWith("P", {"B", "A", "B"}));
    EXPECT_FALSE(device == deviceWith("P", {"A", "B", "B"}));
}

TEST_F(Device, FeatureSwitchesAndDefaultSynthesis) {
    auto enabled = [&](const std::string& part) {
        return std::string(mngr->enableSynplify(part) ? " synplify" : "") +
               (mngr->enablePrecision(part) ? " precision" : "") +
               (mngr->enableICF(part) ? " icf" : "") + (mngr->enableLST(part) ? " lst" : "") +
               (mngr->enableBitgen(part) ? " bitgen" : "");
    };
    EXPECT_EQ(enabled("ZR99-6BG100C"), " synplify precision bitgen");
    // Empty cells take the defaults; "on" is not a truth word.
    EXPECT_EQ(enabled("ZR25-6BG100C"), " synplify bitgen");
    EXPECT_EQ(enabled("ZR4-6QF48C"), " icf lst");
    EXPECT_EQ(mngr->getDefaultSynthesis("ZR12-7BG100C"), "precision");
    // Chips linked or on board make it synplify whatever the part says.
    EXPECT_EQ(mngr->getDefaultSynthesis(deviceWith("ZR12-7BG100C", {"AX1"})), "synplify");
    EXPECT_EQ(mngr->getDefaultSynthesis("ZR4-6BG100C"), "synplify");
}

TEST_F(Device, ValidationNamesTheFirstProblem) {
    EXPECT_EQ(check("ZR99-6BG100C"), "ZR99-6BG100C is invalid device or not supported");
    EXPECT_EQ(check("ZR12-6BG100C"), "valid");
    // Of two unsupported types the one that sorts first is named, before any count.
    EXPECT_EQ(check("ZR4-6BG100C", {"AX3", "AB"}),
              "ASC chip 'AB' is invalid or unsupported ASC chip for device 'ZR4-6BG100C'");
    EXPECT_EQ(check("ZR4-6QF48C", {"AX1"}),
              "ASC chip 'AX1' is invalid or unsupported ASC chip for device 'ZR4-6QF48C'");
    // Capacity 4 with two chips on board leaves room for two.
    EXPECT_EQ(check("ZR4-6BG100C", {"AX1", "AX2"}), "valid");
    EXPECT_EQ(check("ZR4-6BG100C", {"AX1", "AX2", "AX1"}),
              "Total external linked ASC chips number 2 for device 'ZR4-6BG100C' will be exceeded");
    EXPECT_EQ(check("ZR4-6QF48C"), "Can't add external ASC chip for device 'ZR4-6QF48C'.");
}

TEST_F(Device, CheckDeviceFollowsTheNameListAndTheSampleSuffix) {
    auto checkName = [&](const std::string& name) {
        std::string newName = "-";
        return std::to_string(mngr->checkDevice(name, newName)) + ":" + newName;
    };
    mngr.dataDir().write("pqrndev.lst",
                         "[Name Transfer]\nZR4-5BG100C=ZR4-6BG100C\nZR5-6BG100C=ZR55-6BG100C\n"
                         "[MIGRATION]\nZR2-6BG100C=ZR12-6BG100C\n"
                         "[Not Recommend]\nZR4-6QF48C=ZR12-7BG100C\nZR9-6QF48C=ZR4-6BG100C\n");
    EXPECT_EQ(checkName("ZR4-5BG100C"), "3:ZR4-6BG100C");   // renamed to a known part
    EXPECT_EQ(checkName("ZR5-6BG100C"), "1:-");             // renamed to an unknown one
    EXPECT_EQ(checkName("ZR2-6BG100C"), "3:ZR12-6BG100C");  // migrated
    EXPECT_EQ(checkName("ZR4-6QF48C"), "4:ZR12-7BG100C");   // known, replacement advised
    EXPECT_EQ(checkName("ZR9-6QF48C"), "1:-");              // the given name must exist
    EXPECT_EQ(checkName("ZR12-6BG100C"), "0:-");
    EXPECT_EQ(checkName("ZR4-6BG100CES"), "3:ZR4-6BG100C");  // engineering sample
    EXPECT_EQ(checkName("ZR4-6BG100Ces"), "1:-");
}

}  // namespace
