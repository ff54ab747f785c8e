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

TEST_F(FeatureSettings, DefaultsForUnknownPartsAndMissingValuesAndValuesFromTheData) {
    // The names of the features a part has switched on.
    auto enabled = [&](const std::string& part) {
        return std::string(mngr->enableSynplify(part) ? " synplify" : "") +
               (mngr->enablePrecision(part) ? " precision" : "") +
               (mngr->enableICF(part) ? " icf" : "") + (mngr->enableLST(part) ? " lst" : "") +
               (mngr->enableBitgen(part) ? " bitgen" : "");
    };
    for (const std::string part : {"ZR99-6BG100C", "ZR12-6BG100C"}) {
        EXPECT_EQ(enabled(part), " synplify precision bitgen") << part;
        EXPECT_EQ(mngr->getDefaultSynthesis(part), "synplify") << part;
    }
    // Empty cells take the defaults too; "on" is not a truth word.
    EXPECT_EQ(enabled("ZR25-6BG100C"), " synplify bitgen");
    // no, N, Yes, t and BitOff 1.
    EXPECT_EQ(enabled("ZR4-6QF48C"), " icf lst");
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
