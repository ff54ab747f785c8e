// SPDX-License-Identifier: MIT
// Chips, resources, feature switches and validation of one part, asked
// through a manager holding a small family built in memory.

#include <gtest/gtest.h>

#include <stdexcept>

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/table_cell.h"
#include "support/test_env.h"

using devctrl_test::cellOf;
using tarn::vyxpn::KeyValueReport;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnDeviceObj;
using tarn::vyxpn::TarnSDSFile;

namespace {

// Chips AX1 (4 ADC, 2 DAC, 8 GPIO), AX2 (6, 0, 10, the default) and AX3 (a
// row too short for its DAC). Parts, with stock per type, linkable types and
// capacity: ZR4-6BG100C 0|2|0, AX1|AX2, 4; ZR4-6QF48C 1|0|0, AX3, 0;
// ZR12-6BG100C none; ZR12-7BG100C 0|0|0, all, 2; ZR25-6BG100C "1|2" (malformed).
TarnSDSFile* makeAscFamily(TarnDeviceMngr* mngr) {
    auto* family = new TarnSDSFile("zr1a00", mngr);
    family->m_ascTypes = {"AX1", "AX2", "AX3"};
    family->m_ascSection.m_items = {"Vendor", "ADC", "DAC", "GPIO"};
    family->m_ascSection.m_datas = {{"AX1", {"acme", "4", "2", "8"}},
                                    {"AX2", {"acme", "6", "0", "10"}},
                                    {"AX3", {"acme", "1"}}};
    family->m_ascResourceItems = {"ADC", "GPIO", "DAC", "TEMP"};  // no chip has TEMP
    family->m_defaultASC = "AX2";
    family->m_genericDevices.m_items = {"Device",       "Speed",     "Package",
                                        "ShortPackage", "Condition", "Suffix"};
    for (const char* part :
         {"ZR4-6BG100C", "ZR4-6QF48C", "ZR12-6BG100C", "ZR12-7BG100C", "ZR25-6BG100C"}) {
        const std::string name = part, device = name.substr(0, name.find('-'));
        const std::string package = name.substr(device.size() + 2, name.size() - device.size() - 3);
        family->m_genericDevices.m_datas[name] = {
            device, name.substr(device.size() + 1, 1), package, package, "C", ""};
    }
    family->m_partSection.m_items = {"ASCStockNum", "ASCExtTypes", "ASCMaxNum", "DefSynthesis"};
    family->m_partSection.m_datas = {
        {"ZR4-6BG100C", {"0|2|0", "1|yes|0", "4", "Precision"}},
        {"ZR4-6QF48C", {"1|0|0", "0|0|1", "0"}},
        {"ZR12-7BG100C", {"0|0|0", "1|1|1", "2", "PRECISION"}},
        {"ZR25-6BG100C", {"1|2", "1|1", "4"}},
    };
    family->m_deviceInfo.m_items = {"LUT", "FF", "EBR"};
    family->m_deviceInfo.m_datas = {{"ZR4_BG100", {"640", "600", "2"}},
                                    {"ZR12_BG100", {"1280", "1200", "4"}}};
    family->m_deviceSection.m_items = {"SynplifyEnable", "PrecisionEnable", "ICFEnable",
                                       "LSTEnable", "BitOff"};
    family->m_deviceSection.m_datas["ZR4"] = {"no", "N", "Yes", "t", "1"};
    family->m_deviceSection.m_datas["ZR25"] = {"", "on", "", "", "0"};
    return family;
}

TarnDeviceObj deviceWith(const std::string& part, std::vector<std::string> ascs = {}) {
    TarnDeviceObj device(part);
    device.m_ascList = std::move(ascs);
    return device;
}

class Device : public ::testing::Test {
  protected:
    // A manager of its own over an empty data directory, installed as the
    // process-wide instance (the scope drops and deletes it at the end).
    Device() : mngr(new TarnDeviceMngr()) {
        TarnDeviceMngr::m_pMngr = mngr;
        family = makeAscFamily(mngr);
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
    devctrl_test::TempDir dir;
    devctrl_test::DataDirScope scope{dir.path()};
    TarnDeviceMngr* mngr;
    TarnSDSFile* family;
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
    EXPECT_EQ(TarnDeviceObj("ZR25-6BG100C").internalTotalAscNumber(), 0) << "malformed stock";
    EXPECT_FALSE(TarnDeviceObj("ZR12-7BG100C").useASC());
    EXPECT_TRUE(deviceWith("", {"AX1"}).useASC());

    TarnDeviceObj device("ZR4-6QF48C");
    EXPECT_EQ(device.totalAscNumber(), 1);
    auto* changed = makeAscFamily(mngr);
    cellOf(changed->m_partSection, "ZR4-6QF48C", "ASCStockNum") = "3|1|0";
    mngr->adoptFamilyFile(changed);
    EXPECT_EQ(device.totalAscNumber(), 4);
}

TEST(DeviceObj, TextFormListsChipsByNameWithCountsButEqualityKeepsOrder) {
    TarnDeviceObj device = deviceWith("P", {"B", "A", "B"});
    EXPECT_EQ(device.toString(false), "P {A 1} {B 2}");
    EXPECT_EQ(device.toString(true), "{A 1} {B 2}");
    EXPECT_EQ(TarnDeviceObj("P").toString(false), "P");
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
    // Capacity 4 with two chips on board leaves room for two.
    EXPECT_EQ(check("ZR4-6BG100C", {"AX1", "AX2"}), "valid");
    EXPECT_EQ(check("ZR4-6BG100C", {"AX1", "AX2", "AX1"}),
              "Total external linked ASC chips number 2 for device 'ZR4-6BG100C' will be exceeded");
    EXPECT_EQ(check("ZR4-6QF48C"), "Can't add external ASC chip for device 'ZR4-6QF48C'.");
}

// A manager that is not the process-wide one still counts the chips on
// board from its own families, not from whichever manager is global.
TEST_F(Device, ValidationCountsOnBoardChipsOfItsOwnFamilies) {
    struct Case {
        std::string part;
        std::vector<std::string> linked;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"ZR4-6BG100C", {"AX1", "AX2"}, "valid"},
        {"ZR4-6BG100C",
         {"AX1", "AX2", "AX1"},
         "Total external linked ASC chips number 2 for device 'ZR4-6BG100C' will be exceeded"},
        // One chip on board and no capacity: refused even with nothing linked.
        {"ZR4-6QF48C", {}, "Can't add external ASC chip for device 'ZR4-6QF48C'."},
    };
    TarnDeviceMngr unrelated;  // holds no family at all
    TarnDeviceMngr::m_pMngr = &unrelated;
    std::vector<std::string> results;
    for (const Case& c : cases)
        results.push_back(check(c.part, c.linked));
    TarnDeviceMngr::m_pMngr = mngr;
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(results[i], cases[i].expected) << i;
}

TEST_F(Device, CheckDeviceFollowsTheNameListAndTheSampleSuffix) {
    auto checkName = [&](const std::string& name) {
        std::string newName = "-";
        return std::to_string(mngr->checkDevice(name, newName)) + ":" + newName;
    };
    dir.write("pqrndev.lst",
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
}

}  // namespace
