// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;

TEST(PartNames, InnerNameKeepsTheSuffix) {
    TarnDeviceMngr mngr;
    auto* file = new TarnSDSFile("zr1a00", &mngr);
    file->m_genericDevices.m_items = {"Device",       "Speed",     "Package",
                                      "ShortPackage", "Condition", "Suffix"};
    file->m_genericDevices.m_datas["ZR4-5QF48I"] = {"ZR4", "5", "QF48", "QF48", "IND", "HV"};
    mngr.adoptFamilyFile(file);
    std::string inner, untouched = "keep";
    ASSERT_TRUE(mngr.getInnerDeviceName("ZR4-5QF48I", inner));
    EXPECT_EQ(inner, "ZR4-XXQF48HV");
    EXPECT_FALSE(mngr.getInnerDeviceName("zr4-5qf48i", untouched)) << "keys match exactly";
    EXPECT_EQ(untouched, "keep");
}

TEST(PartNames, NewFormatDeviceNameResultCodes) {
    devctrl_test::TempDir data;
    devctrl_test::EnvGuard env("DEVCTRL_DATA_DIR", data.path().c_str());
    TarnDeviceMngr mngr;
    auto translate = [&mngr](const std::string& name, std::string incoming) {
        int code = mngr.getNewFormatDeviceName(name, incoming);
        return std::to_string(code) + " " + incoming;
    };
    EXPECT_EQ(translate("ZR1", "keep"), "0 keep") << "no list file";
    data.write("pqrndev.lst",
               "[Name Transfer]\nZR1=ZR1N\nBOTH=BOTH_RENAMED\nEMPTY=\n"
               "[MIGRATION]\nBOTH=BOTH_MIGRATED\nZR2=ZR2M\nEMPTY=EMPTY_MIGRATED\n"
               "[Not Recommend]\nZR3=ZR3R\n");
    EXPECT_EQ(translate("ZR1", "ZR1"), "1 ZR1N") << "renames are always answered";
    EXPECT_EQ(translate("BOTH", ""), "1 BOTH_RENAMED");
    EXPECT_EQ(translate("EMPTY", ""), "2 EMPTY_MIGRATED") << "an empty value is no answer";
    // The old name passed as newName suppresses the other answers.
    EXPECT_EQ(translate("ZR3", "ZR3"), "0 ZR3");
}
