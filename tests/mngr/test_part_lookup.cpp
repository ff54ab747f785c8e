// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <utility>

#include "devctrl/sds/devstatus_flags.h"
#include "sds/selection_fixture.h"
#include "support/table_cell.h"

using namespace tarn::vyxpn;
using devctrl_test::cellOf;
using devctrl_test::makeSelectionFamily;

TEST(MngrPartLookup, ItemValuesAndAscCapacity) {
    TarnDeviceMngr mngr;
    TarnSDSFile& file = *makeSelectionFamily(mngr);
    file.m_packageSection.m_items = {"Pins"};
    file.m_packageSection.m_datas["ZR12_BG100"] = {"100"};
    EXPECT_EQ(mngr.getItemValue("Status", "ZR4-6QF48C", "none"), "O");
    EXPECT_EQ(mngr.getItemValue("Pins", "zr1a00", "ZR12", "BG100", "?"), "100");
    EXPECT_EQ(mngr.getItemValue("Pins", "zr9a00", "ZR12", "BG100", "?"), "?") << "not loaded";

    EXPECT_EQ(mngr.getASCMaxNum("ZR12-6BG100C"), 2);
    EXPECT_TRUE(mngr.enableASC("ZR12-6BG100C"));
    cellOf(file.m_genericDevices, "ZR12-6QF48C", "ASCMaxNum") = "-1";
    EXPECT_FALSE(mngr.enableASC("ZR12-6QF48C"));
    cellOf(file.m_genericDevices, "ZR12-6QF48C", "ASCMaxNum") = "";
    EXPECT_EQ(mngr.getASCMaxNum("ZR12-6QF48C"), 0) << "an empty value reads as the default";
}

TEST(MngrPartLookup, StringToBoolAndStatusFlags) {
    for (const char* yes : {"YES", "True", "t", "1"})
        EXPECT_TRUE(TarnDeviceMngr::stringToBool(yes)) << yes;
    for (const char* no : {"", " yes", "on", "2"})
        EXPECT_FALSE(TarnDeviceMngr::stringToBool(no)) << '"' << no << '"';

    using F = DEVSTATUS_FLAGS;
    const unsigned obsoleteProduction = F::PRODUCTION | F::OBSOLETE;
    for (auto [status, flags] : {std::pair{"o", obsoleteProduction},
                                 {"XO", unsigned{F::OBSOLETE}},
                                 {"eo", F::ENGINEERING | F::OBSOLETE},
                                 {"OBS", unsigned{F::NONE}}})
        EXPECT_EQ(F::toDevStatusFlag(status), flags) << '"' << status << '"';
}
