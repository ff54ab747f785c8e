// SPDX-License-Identifier: MIT
// The words every front-end shows for a checked or translated part name,
// against the sample device name list.

#include <gtest/gtest.h>

#include <string>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/name_translation.h"
#include "support/test_env.h"

namespace {

using tarn::vyxpn::TarnDeviceMngr;

TEST(NameCheck, ResultAndNameToUseFollowTheCheckCode) {
    devctrl_test::DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    devctrl_test::TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    if (mngr.getFamilyFiles().empty())
        GTEST_SKIP() << "no sample families installed";
    const struct {
        const char* name;
        int code;
        const char* result;
        const char* use;
    } cases[] = {
        {"ZR12-6BG100C", TarnDeviceMngr::DeviceCheckValid, "valid", "ZR12-6BG100C"},
        // Renamed and migrated names both say which name to use instead.
        {"ZQ12-6B100C", TarnDeviceMngr::DeviceCheckUseNewName, "replaced", "ZR12-6BG100C"},
        {"ZR7-6Q48C", TarnDeviceMngr::DeviceCheckUseNewName, "replaced", "ZR17-6Q48C"},
        {"ZR100-6F484C", TarnDeviceMngr::DeviceCheckReplacementRecommended, "not recommended",
         "ZR120-6F484C"},
        {"ZR12-6BG10C", TarnDeviceMngr::DeviceCheckUnknown, "unknown", ""},
    };
    for (const auto& c : cases) {
        const tarn::vyxpn::NameCheck check = tarn::vyxpn::checkName(mngr, c.name);
        EXPECT_EQ(check.code, c.code) << c.name;
        EXPECT_STREQ(check.result, c.result) << c.name;
        EXPECT_EQ(check.use, c.use) << c.name;
    }
}

TEST(NameCheck, TranslationCodesHaveOneMeaningEach) {
    const struct {
        int code;
        const char* meaning;
    } cases[] = {{0, "no translation"},  {1, "renamed"},        {2, "migrated"},
                 {3, "not recommended"}, {4, "no translation"}, {-1, "no translation"}};
    for (const auto& c : cases)
        EXPECT_STREQ(tarn::vyxpn::nameTranslationMeaning(c.code), c.meaning) << c.code;
}

}  // namespace
