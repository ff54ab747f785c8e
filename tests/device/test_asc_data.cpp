#include <gtest/gtest.h>

#include <stdexcept>

#include "devctrl/device/device_obj.h"
#include "device/asc_family_fixture.h"

using tarn::vyxpn::KeyValueReport;
using tarn::vyxpn::TarnDeviceObj;
using tarn::vyxpn::TarnSDSFile;

namespace {

using Counts = std::map<std::string, int>;
using List = std::vector<std::string>;

class AscData : public ::testing::Test {
  protected:
    void SetUp() override {
        family = devctrl_test::makeAscFamily(&*mngr);
        mngr->adoptFamilyFile(family);
    }
    devctrl_test::ScopedManager mngr;
    TarnSDSFile* family = nullptr;
};

TEST_F(AscData, OnBoardChipsNeedOneCountPerAscType) {
    Counts ascs{{"stale", 1}};
    EXPECT_TRUE(family->getInternalASCs("ZR4-6BG100C", ascs));
    EXPECT_EQ(ascs, (Counts{{"AX2", 2}}));

    // Well formed but empty stock is still an answer.
    EXPECT_TRUE(family->getInternalASCs("ZR12-7BG100C", ascs));
    EXPECT_TRUE(ascs.empty());

    ascs = {{"stale", 1}};
    EXPECT_FALSE(family->getInternalASCs("ZR25-6BG100C", ascs));  // 1|2 for three types
    EXPECT_TRUE(ascs.empty());
    ascs = {{"stale", 1}};
    EXPECT_FALSE(family->getInternalASCs("ZR12-6BG100C", ascs));  // no item
    EXPECT_TRUE(ascs.empty());
    EXPECT_TRUE(mngr->getInternalASCs("ZR4-6BG100C", ascs)) << "the manager asks the family";
    EXPECT_FALSE(mngr->getInternalASCs("ZR99-6BG100C", ascs));
}

TEST_F(AscData, LinkableChipsReadEachFieldAsTruthValue) {
    List ascs{"stale"};
    EXPECT_TRUE(family->getSupportedASCs("ZR4-6BG100C", ascs));  // 1|yes|0
    EXPECT_EQ(ascs, (List{"AX1", "AX2"}));
    EXPECT_TRUE(family->getSupportedASCs("ZR4-6QF48C", ascs));
    EXPECT_EQ(ascs, (List{"AX3"}));

    ascs = {"stale"};
    EXPECT_FALSE(family->getSupportedASCs("ZR25-6BG100C", ascs));  // two fields
    EXPECT_TRUE(ascs.empty());
    ascs = {"stale"};
    EXPECT_FALSE(family->getSupportedASCs("ZR12-6BG100C", ascs));
    EXPECT_TRUE(ascs.empty());
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
    Counts resources{{"stale", 1}};
    family->_calcASCDataByType("AX1", 3, resources);
    // TEMP is a resource item that the catalogue does not describe.
    EXPECT_EQ(resources, (Counts{{"ADC", 12}, {"DAC", 6}, {"GPIO", 24}}));

    resources = {{"stale", 1}};
    family->_calcASCDataByType("AX9", 1, resources);
    EXPECT_TRUE(resources.empty());

    // A catalogue row too short for a resource column is an error, not zero.
    EXPECT_THROW(family->_calcASCDataByType("AX3", 1, resources), std::out_of_range);

    family->m_ascResourceItems.clear();
    resources = {{"stale", 1}};
    family->_calcASCDataByType("AX1", 1, resources);
    EXPECT_TRUE(resources.empty());
}

TEST_F(AscData, TotalsAddOnBoardAndLinkedChips) {
    // Two on-board AX2, two linked AX2 and one linked AX1.
    TarnDeviceObj device("ZR4-6BG100C");
    device.m_ascList = {"AX2", "AX1", "AX2"};
    KeyValueReport data{{"kept", "x"}};
    EXPECT_TRUE(family->calcASCData(device, data));
    EXPECT_EQ(data, (KeyValueReport{{"kept", "x"},
                                    {"ADC", "28"},   // 4*6 + 4
                                    {"GPIO", "48"},  // 4*10 + 8
                                    {"DAC", "2"}}));

    // Resources that a chip contributes as zero are still reported.
    TarnDeviceObj onBoardOnly("ZR4-6BG100C");
    data.clear();
    EXPECT_TRUE(family->calcASCData(onBoardOnly, data));
    EXPECT_EQ(data, (KeyValueReport{{"ADC", "12"}, {"GPIO", "20"}, {"DAC", "0"}}));

    // No chips at all: true, nothing appended.
    TarnDeviceObj nothingOnBoard("ZR12-7BG100C");
    data.clear();
    EXPECT_TRUE(family->calcASCData(nothingOnBoard, data));
    EXPECT_TRUE(data.empty());

    // Linked chips alone give nothing without usable stock data.
    TarnDeviceObj noStock("ZR12-6BG100C");
    noStock.m_ascList = {"AX1"};
    EXPECT_FALSE(family->calcASCData(noStock, data));
    EXPECT_TRUE(data.empty());
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
    TarnDeviceObj device("ZR4-6BG100C");
    device.m_ascList = {"AX1"};
    KeyValueReport data;
    EXPECT_TRUE(mngr->calcDeviceData(device, data));
    EXPECT_EQ(data, (KeyValueReport{{"LUT", "640"},
                                    {"FF", "600"},
                                    {"EBR", "2"},
                                    {"ADC", "16"},
                                    {"GPIO", "28"},
                                    {"DAC", "2"}}));

    // The device rows stay when the ASC step fails.
    data.clear();
    TarnDeviceObj noStock("ZR12-6BG100C");
    EXPECT_FALSE(mngr->calcDeviceData(noStock, data));
    EXPECT_EQ(data, (KeyValueReport{{"LUT", "1280"}, {"FF", "1200"}, {"EBR", "4"}}));

    data.clear();
    TarnDeviceObj unknown("ZR99-6BG100C");
    EXPECT_FALSE(mngr->calcDeviceData(unknown, data));
    EXPECT_FALSE(mngr->calcDeviceData("zr9z00", "ZR4", "BG100", data));
    EXPECT_TRUE(data.empty());
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
