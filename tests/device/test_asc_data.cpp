#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

#include "devctrl/device/device_obj.h"
#include "device/asc_family_fixture.h"

using tarn::vyxpn::KeyValueReport;
using tarn::vyxpn::TarnDeviceObj;
using tarn::vyxpn::TarnSDSFile;

namespace {

using Counts = std::map<std::string, int>;
using List = std::vector<std::string>;

// "yes: A=1 B=2" or "no: ..." for an answer and the map or list it left,
// starting from a stale entry that every call must clear.
template <typename Out>
std::string answer(bool ok, const Out& out) {
    std::string text = ok ? "yes:" : "no:";
    for (const auto& item : out) {
        if constexpr (std::is_same_v<Out, List>)
            text += " " + item;
        else if constexpr (std::is_same_v<Out, Counts>)
            text += " " + item.first + "=" + std::to_string(item.second);
        else
            text += " " + item.first + "=" + item.second;
    }
    return text;
}

class AscData : public ::testing::Test {
  protected:
    void SetUp() override {
        family = devctrl_test::makeAscFamily(&*mngr);
        mngr->adoptFamilyFile(family);
    }
    // The ASC totals of the family, or the manager's full report.
    std::string report(const std::string& part, List linked, bool fromManager) {
        TarnDeviceObj device(part);
        device.m_ascList = std::move(linked);
        KeyValueReport data;
        bool ok =
            fromManager ? mngr->calcDeviceData(device, data) : family->calcASCData(device, data);
        return answer(ok, data);
    }
    devctrl_test::ScopedManager mngr;
    TarnSDSFile* family = nullptr;
};

TEST_F(AscData, OnBoardAndLinkableChipsNeedOneFieldPerAscType) {
    auto onBoard = [&](const std::string& part) {
        Counts ascs{{"stale", 1}};
        return answer(family->getInternalASCs(part, ascs), ascs);
    };
    EXPECT_EQ(onBoard("ZR4-6BG100C"), "yes: AX2=2");
    EXPECT_EQ(onBoard("ZR12-7BG100C"), "yes:") << "well formed empty stock is an answer";
    EXPECT_EQ(onBoard("ZR25-6BG100C"), "no:") << "1|2 for three types";
    EXPECT_EQ(onBoard("ZR12-6BG100C"), "no:") << "no item";
    Counts ascs;
    EXPECT_TRUE(mngr->getInternalASCs("ZR4-6BG100C", ascs)) << "the manager asks the family";
    EXPECT_FALSE(mngr->getInternalASCs("ZR99-6BG100C", ascs));

    auto linkable = [&](const std::string& part) {
        List ascs{"stale"};
        return answer(family->getSupportedASCs(part, ascs), ascs);
    };
    EXPECT_EQ(linkable("ZR4-6BG100C"), "yes: AX1 AX2") << "1|yes|0 read as truth values";
    EXPECT_EQ(linkable("ZR4-6QF48C"), "yes: AX3");
    EXPECT_EQ(linkable("ZR25-6BG100C"), "no:") << "two fields";
    EXPECT_EQ(linkable("ZR12-6BG100C"), "no:");
}

TEST_F(AscData, CatalogueValues) {
    List chips{"stale"};
    EXPECT_EQ(family->getGlobalSupportedASCs(chips), 3);
    EXPECT_EQ(chips, (List{"AX1", "AX2", "AX3"}));

    std::string value = "untouched";
    EXPECT_TRUE(family->getGlobalASCValue("AX1", "GPIO", value));
    EXPECT_EQ(value, "8");
    value = "untouched";
    EXPECT_FALSE(family->getGlobalASCValue("AX3", "DAC", value));  // past the short row
    EXPECT_FALSE(family->getGlobalASCValue("AX1", "TEMP", value));
    EXPECT_FALSE(family->getGlobalASCValue("AX9", "ADC", value));
    EXPECT_EQ(value, "untouched");
}

TEST_F(AscData, ResourcesOfOneChipTypeScaleWithCount) {
    auto byType = [&](const std::string& type, int count) {
        Counts resources{{"stale", 1}};
        family->_calcASCDataByType(type, count, resources);
        return answer(true, resources);
    };
    // TEMP is a resource item that the catalogue does not describe.
    EXPECT_EQ(byType("AX1", 3), "yes: ADC=12 DAC=6 GPIO=24");
    EXPECT_EQ(byType("AX9", 1), "yes:");
    // A catalogue row too short for a resource column is an error, not zero.
    EXPECT_THROW(byType("AX3", 1), std::out_of_range);
    family->m_ascResourceItems.clear();
    EXPECT_EQ(byType("AX1", 1), "yes:");
}

TEST_F(AscData, TotalsAddOnBoardAndLinkedChips) {
    auto totals = [&](const std::string& part, List linked) { return report(part, linked, false); };
    // Two on-board AX2, two linked AX2 and one linked AX1: ADC 4*6+4, GPIO 4*10+8.
    EXPECT_EQ(totals("ZR4-6BG100C", {"AX2", "AX1", "AX2"}), "yes: ADC=28 GPIO=48 DAC=2");
    EXPECT_EQ(totals("ZR4-6BG100C", {}), "yes: ADC=12 GPIO=20 DAC=0") << "zeros are reported";
    EXPECT_EQ(totals("ZR12-7BG100C", {}), "yes:") << "no chips at all";
    EXPECT_EQ(totals("ZR12-6BG100C", {"AX1"}), "no:") << "linked chips need usable stock data";
}

TEST_F(AscData, DeviceRowInItemOrder) {
    KeyValueReport data{{"kept", "x"}};
    EXPECT_TRUE(family->calcDeviceData("ZR4", "QF48", data));
    EXPECT_EQ(data, (KeyValueReport{{"kept", "x"}, {"LUT", "640"}, {"FF", "600"}, {"EBR", "2"}}));
    EXPECT_FALSE(family->calcDeviceData("ZR4", "TQ144", data));
    EXPECT_THROW(family->calcDeviceData("ZR25", "BG100", data), std::out_of_range);

    family->m_deviceInfo.m_items.clear();
    data.clear();
    EXPECT_TRUE(family->calcDeviceData("ZR4", "QF48", data));
    EXPECT_TRUE(data.empty());
}

TEST_F(AscData, ManagerReportIsDeviceRowThenAscTotals) {
    EXPECT_EQ(report("ZR4-6BG100C", {"AX1"}, true),
              "yes: LUT=640 FF=600 EBR=2 ADC=16 GPIO=28 DAC=2");
    EXPECT_EQ(report("ZR12-6BG100C", {}, true), "no: LUT=1280 FF=1200 EBR=4")
        << "the device rows stay when the ASC step fails";
    EXPECT_EQ(report("ZR99-6BG100C", {}, true), "no:");
    KeyValueReport data;
    EXPECT_FALSE(mngr->calcDeviceData("zr9z00", "ZR4", "BG100", data));
    EXPECT_TRUE(mngr->calcDeviceData("zr1a00", "ZR4", "BG100", data));
    EXPECT_EQ(data.size(), 3u);
}

TEST_F(AscData, CatalogueQuestionsUseTheFamilyWhosePmSortsFirst) {
    auto* later = devctrl_test::makeAscFamily(&*mngr, "zr9a00");
    later->m_defaultASC = "AX9";
    later->m_ascSection.m_datas["AX9"] = {"other", "1"};
    mngr->adoptFamilyFile(later);

    EXPECT_EQ(mngr->getDefaultASC(), "AX2");
    List chips;
    EXPECT_EQ(mngr->getGloablSupportedASCs(chips), 3);
    std::string value;
    EXPECT_FALSE(mngr->getGlobalASCValue("AX9", "ADC", value));
    EXPECT_TRUE(mngr->getGlobalASCValue("AX2", "ADC", value));
    EXPECT_EQ(value, "6");
}

TEST(AscCatalogue, AbsentWithoutAnyFamily) {
    devctrl_test::ScopedManager mngr;
    EXPECT_EQ(mngr->getDefaultASC(), "");
    List chips{"untouched"};
    EXPECT_EQ(mngr->getGloablSupportedASCs(chips), 0);
    EXPECT_EQ(chips, (List{"untouched"}));
    std::string value;
    EXPECT_FALSE(mngr->getGlobalASCValue("AX1", "ADC", value));
}

}  // namespace
