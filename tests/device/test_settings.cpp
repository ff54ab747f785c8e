#include <gtest/gtest.h>

#include "devctrl/device/device_obj.h"
#include "device/asc_family_fixture.h"

using tarn::vyxpn::TarnDeviceObj;

namespace {

class FeatureSettings : public ::testing::Test {
  protected:
    void SetUp() override {
        auto* family = devctrl_test::makeAscFamily(&*mngr);
        family->m_deviceSection.m_items = {"SynplifyEnable", "PrecisionEnable", "ICFEnable",
                                           "LSTEnable", "BitOff"};
        family->m_deviceSection.m_datas["ZR4"] = {"no", "N", "Yes", "t", "1"};
        family->m_deviceSection.m_datas["ZR25"] = {"", "on", "", "", "0"};
        family->m_partSection.m_datas["ZR12-7BG100C"].push_back("PRECISION");
        mngr->adoptFamilyFile(family);
    }
    devctrl_test::ScopedManager mngr;
};

TEST_F(FeatureSettings, DefaultsForUnknownPartsAndMissingValues) {
    for (const std::string part : {"ZR99-6BG100C", "ZR12-6BG100C"}) {
        SCOPED_TRACE(part);
        EXPECT_TRUE(mngr->enableSynplify(part));
        EXPECT_TRUE(mngr->enablePrecision(part));
        EXPECT_FALSE(mngr->enableICF(part));
        EXPECT_FALSE(mngr->enableLST(part));
        EXPECT_TRUE(mngr->enableBitgen(part));
        EXPECT_EQ(mngr->getDefaultSynthesis(part), "synplify");
    }
    // Empty cells take the defaults too; "on" is not a truth word.
    EXPECT_TRUE(mngr->enableSynplify("ZR25-6BG100C"));
    EXPECT_FALSE(mngr->enablePrecision("ZR25-6BG100C"));
    EXPECT_FALSE(mngr->enableICF("ZR25-6BG100C"));
    EXPECT_TRUE(mngr->enableBitgen("ZR25-6BG100C"));
}

TEST_F(FeatureSettings, ValuesFromTheData) {
    EXPECT_FALSE(mngr->enableSynplify("ZR4-6QF48C"));
    EXPECT_FALSE(mngr->enablePrecision("ZR4-6QF48C"));
    EXPECT_TRUE(mngr->enableICF("ZR4-6QF48C"));
    EXPECT_TRUE(mngr->enableLST("ZR4-6QF48C"));
    EXPECT_FALSE(mngr->enableBitgen("ZR4-6QF48C"));  // BitOff 1
}

TEST_F(FeatureSettings, DefaultSynthesisIsSynplifyWheneverChipsAreUsed) {
    EXPECT_EQ(mngr->getDefaultSynthesis("ZR12-7BG100C"), "precision");
    TarnDeviceObj linked("ZR12-7BG100C");
    linked.m_ascList = {"AX1"};
    EXPECT_EQ(mngr->getDefaultSynthesis(linked), "synplify");
    // Chips on board count as well: this part's own value is Precision.
    EXPECT_EQ(mngr->getDefaultSynthesis("ZR4-6BG100C"), "synplify");
}

}  // namespace
